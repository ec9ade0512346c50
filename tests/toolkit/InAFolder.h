// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Parts.h"

#include <rvopen/toolkit/documents/Document.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <string>

namespace rvopen::test {

/// A test with a folder of its own.
class InAFolder : public ::testing::Test {
protected:
    QString path(const char* name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }

    QString write(const char* name, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return path(name);
    }

    /// A PNG picture of one colour, whatever its name.
    QString paint(const char* name, QRgb colour) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(path(name), "PNG"));
        return path(name);
    }

    /// The document of a text, in a file of its own.
    std::unique_ptr<toolkit::Document> read(const QByteArray& text)
    {
        ReadError error;
        return toolkit::Document::Read(write(std::to_string(++m_count).c_str(), text), error);
    }

    QTemporaryDir m_folder;

private:
    int m_count = 0;
};

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileTexts.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/widgets/NodeModel.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace rvopen::browser {

QString messageOf(const ReadError& error)
{
    return error.line > 0 ? QStringLiteral("%1:%2: %3")
                                .arg(error.file, QString::number(error.line), error.message)
                          : QStringLiteral("%1: %2").arg(error.file, error.message);
}

QString messageOf(const WriteError& error)
{
    return QStringLiteral("%1: %2").arg(error.file, error.message);
}

QString freePath(const QString& folder, const QString& base, const QString& suffix)
{
    for (int i = 1;; ++i) {
        const QString number = i > 1 ? QStringLiteral("-%1").arg(i) : QString();
        const QString path =
            QDir(folder).filePath(QStringLiteral("%1%2.%3").arg(base, number, suffix));
        if (!QFileInfo::exists(path))
            return path;
    }
}

QStringList localFiles(const QMimeData& data)
{
    QStringList files;
    if (data.hasFormat(widgets::NodeModel::MimeType()))
        return files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(PathToOpen(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace rvopen::browser

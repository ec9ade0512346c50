// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QString>
#include <QStringList>

#include <gmock/gmock.h>

#include <ostream>
#include <string>

QT_BEGIN_NAMESPACE

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

QT_END_NAMESPACE

namespace rvopen::test {

/// The document of a text, which has to be well-formed.
inline QDomDocument parsed(const char* xml)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(QByteArray(xml))) << xml;
    return document;
}

inline std::string joinedBy(const char* between, const QStringList& list)
{
    return list.join(QLatin1String(between)).toStdString();
}

} // namespace rvopen::test

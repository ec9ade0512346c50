// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "../Printing.h"

#include <QDomDocument>
#include <QString>
#include <QStringList>

#include <gmock/gmock.h>

#include <string>

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

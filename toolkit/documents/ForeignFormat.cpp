// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ForeignFormat.h"

#include <rvopen/RVOpenPaths.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

namespace rvopen::toolkit {

namespace {

struct Format {
    const char* start;
    int length;
    const char* name;
};

/// JPEG: ISO/IEC 10918-1, B.1.1.3. PNG: W3C PNG, 5.2. PDF: ISO 32000-1, 7.5.2. gzip: RFC 1952,
/// 2.3.1. ZIP: APPNOTE 6.3, 4.3.7, and 4.3.16 for one that is empty.
constexpr Format s_formats[] = {
    {"\xff\xd8\xff", 3, "a JPEG picture"}, {"\x89PNG\r\n\x1a\n", 8, "a PNG picture"},
    {"%PDF-", 5, "a PDF document"},        {"\x1f\x8b", 2, "a gzip file"},
    {"PK\x03\x04", 4, "a ZIP file"},       {"PK\x05\x06", 4, "a ZIP file"},
};

} // namespace

QString foreignFormatOf(const QString& path)
{
    QFile file(PathToOpen(path));
    // What is no file, as a pipe, gives its bytes once.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return QString();
    const QByteArray start = file.read(8);
    for (const Format& format : s_formats) {
        if (start.startsWith(QByteArray::fromRawData(format.start, format.length)))
            return QLatin1String(format.name);
    }
    return QString();
}

bool isDocumentName(const QString& name)
{
    return name.endsWith(QLatin1String(".rvx"), Qt::CaseInsensitive) ||
           name.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive);
}

} // namespace rvopen::toolkit

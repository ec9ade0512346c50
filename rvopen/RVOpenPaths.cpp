// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenPaths.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace rvopen {

QString PathToOpen(const QString& path)
{
    const QLatin1Char backslash('\\');
    if (QDir::separator() == backslash || !path.contains(backslash) || QFileInfo::exists(path))
        return path;
    QString mapped = path;
    return mapped.replace(backslash, QLatin1Char('/'));
}

QString LastPathComponent(const QString& path)
{
    return path.mid(
        std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\'))) + 1);
}

bool StaysInside(const QString& relative)
{
    QString path = relative;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return !path.contains(QChar::Null) &&
           !path.split(QLatin1Char('/')).contains(QLatin1String(".."));
}

} // namespace rvopen

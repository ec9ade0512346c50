// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SafeFiles.h"

#include <rvopen/RVOpenPaths.h>

#include <QFileInfo>

namespace rvopen::toolkit {

bool isSameFile(const QString& a, const QString& b)
{
    const QString first = QFileInfo(PathToOpen(a)).canonicalFilePath();
    return !first.isEmpty() && first == QFileInfo(PathToOpen(b)).canonicalFilePath();
}

bool isBelow(const QString& path, const QString& folder)
{
    const QString place = QFileInfo(path).canonicalFilePath();
    const QString root = QFileInfo(PathToOpen(folder)).canonicalFilePath();
    if (place.isEmpty() || root.isEmpty())
        return false;
    return place == root ||
           place.startsWith(root.endsWith(QLatin1Char('/')) ? root : root + QLatin1Char('/'));
}

QString linkInTheWay(const QString& file, const QString& folder)
{
    if (QFileInfo(file).isSymLink())
        return QStringLiteral("it is a link; pictures are not written through links");
    QString place = QFileInfo(file).absolutePath();
    while (!QFileInfo::exists(place) && !QFileInfo(place).isSymLink())
        place = QFileInfo(place).absolutePath();
    if (!isBelow(place, folder))
        return QStringLiteral("a link leads out of \"%1\"").arg(folder);
    return QString();
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/files/Containment.h>

#include <rvopen/RVOpenPaths.h>

#include <QFileInfo>

namespace rvopen {

namespace {

QString realPath(const QString& path)
{
    return QFileInfo(path).canonicalFilePath();
}

} // namespace

bool liesBelow(const QString& path, const QString& folder)
{
    const QFileInfo file(PathToOpen(path));
    QString place = realPath(file.filePath());
    if (place.isEmpty()) {
        if (file.isSymLink())
            return false;
        place = realPath(file.path());
        // Without its folder there is nothing to reach.
        if (place.isEmpty())
            return true;
        place += QLatin1Char('/');
    }
    QString root = realPath(PathToOpen(folder));
    if (!root.endsWith(QLatin1Char('/')))
        root += QLatin1Char('/');
    return place.startsWith(root);
}

} // namespace rvopen

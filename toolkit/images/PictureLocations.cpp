// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PictureFiles.h"

#include "Input.h"
#include "NodePath.h"
#include "Pictures.h"
#include "Session.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/XMLUtils.h>

#include <QDir>
#include <QFileInfo>

namespace rvopen::tools {

namespace {

const QLatin1String s_jpeg(".jpg");

QString memberFile(const QDomElement& element, const QDomElement& collection, QString folder)
{
    QString name = element.attribute(QStringLiteral("name"));
    if (element.tagName() == QLatin1String("snapshot")) {
        XMLUtils::ReplaceIllegalCharacters(name);
    } else {
        const QString collectionName = collection.attribute(QStringLiteral("name"));
        if (!StaysInside(collectionName))
            return QString();
        folder += QLatin1Char('/') + collectionName;
    }
    return StaysInside(name) ? folder + QLatin1String("/icon_") + name + s_jpeg : QString();
}

QString presetFile(const QDomElement& element, const QString& install)
{
    RVOpenNode node;
    node.SetDomNode(element);
    XMLUtils utils;
    const QString name = utils.GetImageName(&node);
    const bool isInside = StaysInside(utils.ThumbPathFromRVOpenNode(&node)) && StaysInside(name);
    const QString folder = utils.ImagePathFromRVOpenNode(&node, install);
    node.SetDomNode(QDomNode());
    if (!isInside || name.isEmpty())
        return QString();
    return folder + QLatin1Char('\\') + name + s_jpeg;
}

} // namespace

PicturePlace pictureFileOf(const QDomElement& element, const Document& document,
                           const Folders& folders)
{
    const QDomElement parent = element.parentNode().toElement();
    PicturePlace place;
    if (parent.tagName() == QLatin1String("snapshots")) {
        place.folder = folders.snapshots.isEmpty() ? document.folder() : folders.snapshots;
        place.file = memberFile(element, parent, place.folder);
    } else {
        const bool isCustom =
            document.root().attribute(QStringLiteral("type")) == QLatin1String("UserArchives");
        place.folder = isCustom ? folders.custom : folders.install;
        if (place.folder.isEmpty()) {
            place.problem =
                isCustom ? QStringLiteral("pictures of a user's archive lie below --custom DIR")
                         : QStringLiteral("pictures of presets lie below --install DIR");
            return place;
        }
        place.file = presetFile(element, folders.install);
    }
    // Where such a file is not there yet the path is still as documents write it.
    if (QDir::separator() == QLatin1Char('/'))
        place.file.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (place.file.isEmpty() || place.file.contains(QChar(0)))
        return {QString(), QString(), QStringLiteral("its names give no place for a picture")};
    place.file = QDir::cleanPath(place.file);
    return place;
}

bool findsPicture(const QDomElement& element, const QString& file)
{
    if (!element.attribute(QStringLiteral("xmlImage")).isEmpty())
        return hasPicture(element);
    return !file.isEmpty() && isPictureFile(file);
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

} // namespace rvopen::tools

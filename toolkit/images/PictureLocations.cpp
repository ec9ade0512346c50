// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/images/PictureLocations.h>

#include "ImageFiles.h"
#include "PictureApplication.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/XMLUtils.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Folders.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>

#include <QDir>
#include <QFileInfo>
#include <QVector>

namespace rvopen::toolkit {

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

PictureLocation LocatePicture(const QDomElement& element, const Document& document,
                              const Folders& folders)
{
    const QDomElement parent = element.parentNode().toElement();
    PictureLocation place;
    if (parent.tagName() == QLatin1String("snapshots")) {
        place.folder = folders.snapshots.isEmpty() ? document.Folder() : folders.snapshots;
        place.file = memberFile(element, parent, place.folder);
    } else {
        const bool isCustom =
            document.Root().attribute(QStringLiteral("type")) == QLatin1String("UserArchives");
        place.folder = isCustom ? folders.custom : folders.install;
        if (place.folder.isEmpty()) {
            place.lack = isCustom ? PictureLack::CustomFolder : PictureLack::InstallFolder;
            return place;
        }
        place.file = presetFile(element, folders.install);
    }
    // Where such a file is not there yet the path is still as documents write it.
    if (QDir::separator() == QLatin1Char('/'))
        place.file.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (place.file.isEmpty() || place.file.contains(QChar(0)))
        return {QString(), QString(), PictureLack::Names};
    place.file = QDir::cleanPath(place.file);
    return place;
}

bool FindsPicture(const QDomElement& element, const QString& file)
{
    if (!element.attribute(QStringLiteral("xmlImage")).isEmpty())
        return HasEmbeddedPreview(element);
    return !file.isEmpty() && isPictureFile(file);
}

QImage ExistingPicture(const QDomElement& element, const Document& document, const Folders& folders)
{
    preparePictures();
    const QString embedded = element.attribute(QStringLiteral("xmlImage"));
    if (!embedded.isEmpty())
        return EmbeddedPreview(embedded);
    const QString file = LocatePicture(element, document, folders).file;
    return file.isEmpty() ? QImage() : readImage(file);
}

} // namespace rvopen::toolkit

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

QString pictureFileOf(const QDomElement& element, const Document& document, const Folders& folders,
                      QString& problem)
{
    const QDomElement parent = element.parentNode().toElement();
    QString file;
    if (parent.tagName() == QLatin1String("snapshots")) {
        file = memberFile(element, parent,
                          folders.snapshots.isEmpty() ? document.folder() : folders.snapshots);
    } else {
        const bool isCustom =
            document.root().attribute(QStringLiteral("type")) == QLatin1String("UserArchives");
        if (isCustom ? folders.custom.isEmpty() : folders.install.isEmpty()) {
            problem = isCustom
                          ? QStringLiteral("pictures of a user's archive lie below --custom DIR")
                          : QStringLiteral("pictures of presets lie below --install DIR");
            return QString();
        }
        file = presetFile(element, folders.install);
    }
    // Where such a file is not there yet the path is still as documents write it.
    if (QDir::separator() == QLatin1Char('/'))
        file.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (file.isEmpty() || file.contains(QChar(0)))
        problem = QStringLiteral("its names give no place for a picture");
    return problem.isEmpty() ? QDir::cleanPath(file) : QString();
}

bool findsPicture(const QDomElement& element, const QString& file)
{
    if (!element.attribute(QStringLiteral("xmlImage")).isEmpty())
        return hasPicture(element);
    return !file.isEmpty() && isPictureFile(file);
}

} // namespace rvopen::tools

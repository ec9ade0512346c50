// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "References.h"

#include "Inspecting.h"
#include "RuleTable.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/ReferencedTextures.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/XMLUtils.h>
#include <rvopen/toolkit/documents/Document.h>

#include <QFileInfo>

namespace rvopen::toolkit {

References::References(Inspecting& inspecting)
    : m_inspecting(inspecting)
    , m_folder(inspecting.document.Folder())
{
}

void References::inspectPreset(const QDomElement& element, const QString& tag,
                               const QString& refName, int ordinal)
{
    const QSet<QString>& presets = m_inspecting.surroundings.presets;
    if (!refName.isEmpty() && !presets.isEmpty() && !presets.contains(presetKey(tag, refName)))
        m_inspecting.report(rules::missingPreset, element, ordinal,
                            QStringLiteral("No archive has a %1 \"%2\"").arg(tag, refName));
}

void References::inspectArchive(const QDomElement& element, int ordinal)
{
    const QString name = element.attribute(m_inspecting.words.archiveFilename);
    if (name.isEmpty())
        return;
    const QString type = element.attribute(QStringLiteral("archiveType"));
    QString folder;
    if (type == QLatin1String("Zorvane"))
        folder = m_inspecting.surroundings.folders.archives;
    else if (type == QLatin1String("Custom"))
        folder = m_inspecting.surroundings.folders.custom;
    else
        m_inspecting.report(
            rules::missingArchive, element, ordinal,
            QStringLiteral("There is no folder of archives of type \"%1\"").arg(type));
    if (folder.isEmpty())
        return;
    // The library says where such an archive is, and opens none outside of the folder.
    RVOpenNode node;
    node.SetDomNode(element);
    const QString file = node.GetArchiveFilename();
    node.SetDomNode(QDomNode());
    const QString inside = element.attribute(QStringLiteral("path")) + QLatin1Char('/') + name;
    if (!StaysInside(inside) || !QFileInfo(PathToOpen(file)).isFile())
        m_inspecting.report(rules::missingArchive, element, ordinal,
                            QStringLiteral("The archive \"%1\" is not there").arg(name));
}

void References::inspectTexture(const QDomElement& param, const QString& reference, int ordinal)
{
    if (!isThere(reference))
        m_inspecting.report(rules::missingTexture, param, ordinal,
                            QStringLiteral("\"%1\" is not there").arg(reference));
}

void References::inspectThumbnail(const QDomElement& element, int ordinal)
{
    if (element.attribute(m_inspecting.words.imgname).isEmpty() ||
        !element.attribute(m_inspecting.words.xmlImage).isEmpty())
        return;
    const QString type = m_inspecting.document.Root().attribute(m_inspecting.words.type);
    const bool isOfUser = type == QLatin1String("UserArchives");
    const Folders& folders = m_inspecting.surroundings.folders;
    if ((isOfUser ? folders.custom : folders.install).isEmpty())
        return;
    RVOpenNode node;
    node.SetDomNode(element);
    XMLUtils utils;
    const QString file = utils.ImagePathFromRVOpenNode(&node, folders.install) + QLatin1Char('\\') +
                         utils.GetImageName(&node) + QLatin1String(".jpg");
    node.SetDomNode(QDomNode());
    inspectPicture(file, element, ordinal);
}

void References::inspectSnapShotPicture(const QDomElement& element, int ordinal)
{
    QString name = element.attribute(m_inspecting.words.name);
    const QString folder = m_inspecting.surroundings.folders.snapshots;
    if (folder.isEmpty() || name.isEmpty())
        return;
    inspectPicture(folder + QLatin1String("/icon_") + XMLUtils::ReplaceIllegalCharacters(name) +
                       QLatin1String(".jpg"),
                   element, ordinal);
}

bool References::isThere(const QString& reference)
{
    const auto known = m_textures.constFind(reference);
    if (known != m_textures.cend())
        return *known;
    const bool isFound = !findReferenced(reference, m_folder).isEmpty();
    m_textures.insert(reference, isFound);
    return isFound;
}

void References::inspectPicture(const QString& path, const QDomElement& element, int ordinal)
{
    const QString file = PathToOpen(path);
    if (!QFileInfo(file).isFile())
        m_inspecting.report(rules::missingThumbnail, element, ordinal,
                            QStringLiteral("The thumbnail \"%1\" is not there").arg(file));
    else if (!isPictureFile(file))
        m_inspecting.report(rules::unreadablePreview, element, ordinal,
                            QStringLiteral("The thumbnail \"%1\" cannot be decoded").arg(file));
}

} // namespace rvopen::toolkit

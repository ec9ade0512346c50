// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/XMLUtils.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>
#include <rvopen/files/DocumentFiles.h>
#include <rvopen/model/EmbeddedImage.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <QDir>
#include <QDomDocument>
#include <QDomElement>

#include <algorithm>
#include <utility>

namespace rvopen {

namespace {

const QLatin1Char s_backslash('\\');
const QLatin1Char s_dash('-');

bool isIllegal(QChar character)
{
    switch (character.unicode()) {
    case u'\\':
    case u'/':
    case u':':
    case u'*':
    case u'?':
    case u'"':
    case u'<':
    case u'>':
    case u'|':
    case u'%':
        return true;
    default:
        return false;
    }
}

/// The number that a sibling's name takes of the series "name", "name (2)", "name (3)"; 0 for none.
quint64 numberInSeries(QString sibling, const QString& name)
{
    if (!sibling.contains(name))
        return 0;
    if (sibling == name)
        return 1;
    sibling.remove(name + QLatin1String(" ("));
    sibling.remove(QLatin1Char(')'));
    return sibling.toUInt();
}

QString jpegIn(const QString& folder, const QString& name)
{
    return folder + QDir::separator() + QLatin1String("icon_") + name + QLatin1String(".jpg");
}

/// The preview file of a member of a snapshot collection; empty when there is no place for it.
QString memberImageFile(RVOpenNode* node, const SnapShots* collection)
{
    if (auto* const snapShot = dynamic_cast<SnapShot*>(node)) {
        QString name = node->GetName();
        return StaysInside(XMLUtils::ReplaceIllegalCharacters(name)) ? snapShot->GetThumbFilename()
                                                                     : QString();
    }
    QString folder = GetDirectoryHandler()->GetSnapshotsFolder();
    const QString collectionName = collection->GetName();
    if (folder.isEmpty() || !StaysInside(collectionName) || !StaysInside(node->GetName()))
        return QString();
    folder += QDir::separator() + collectionName;
    QDir().mkpath(PathToOpen(folder));
    return jpegIn(folder, node->GetName());
}

/// The thumbnail file of a preset; empty when its names lead out of the archive's folder.
QString presetImageFile(RVOpenNode* node, const QString& archiveFolder)
{
    XMLUtils utils;
    const QString name = utils.GetImageName(node);
    if (!StaysInside(utils.ThumbPathFromRVOpenNode(node)) || !StaysInside(name))
        return QString();
    return utils.ImagePathFromRVOpenNode(node, archiveFolder) + s_backslash + name +
           QLatin1String(".jpg");
}

} // namespace

XMLUtils::XMLUtils() = default;

XMLUtils::~XMLUtils() = default;

QDomDocument* XMLUtils::ReadXmlDocument(const QString& path)
{
    return readDocument(path);
}

QString XMLUtils::ThumbPathFromRVOpenNode(RVOpenNode* node)
{
    if (!node)
        return QString();
    QString thumbPath;
    const QString category = node->GetCat();
    if (!category.isEmpty())
        thumbPath = category + s_backslash;
    return thumbPath + node->GetPath();
}

QString XMLUtils::ImagePathFromRVOpenNode(RVOpenNode* node, const QString& archiveFolder)
{
    if (!node)
        return QString();
    const QDomElement root = node->GetDomNode().ownerDocument().documentElement();
    const QString thumbPath = ThumbPathFromRVOpenNode(node);
    if (root.attribute(names::attribute::type()) != names::value::userArchives())
        return archiveFolder + QLatin1String("\\sethumbs\\") + thumbPath;
    const QChar separator = QDir::separator();
    return GetDirectoryHandler()->GetCustomArchivesFolder() + separator + thumbPath + separator +
           QLatin1String("thumbs") + separator;
}

QString XMLUtils::GetImageName(RVOpenNode* node)
{
    if (!node)
        return QString();
    QString name = node->GetImageName();
    if (name.isEmpty())
        name = node->GetName();
    if (name.isEmpty())
        name = node->GetRefName();
    name.replace(QLatin1Char(':'), s_dash);
    return ReplaceIllegalCharacters(name);
}

QPixmap XMLUtils::QPixmapFromRVOpenNode(RVOpenNode* node, const QString& archiveFolder)
{
    QPixmap pixmap;
    if (!node)
        return pixmap;
    const QString embedded = NodeAccess::attribute(node, names::attribute::xmlImage());
    if (!embedded.isEmpty())
        return QPixmap::fromImage(embeddedImage(embedded));

    const SnapShots* const collection = RVOpenSchema::isNodeSnapShots(node->GetParent());
    const QString path =
        collection ? memberImageFile(node, collection) : presetImageFile(node, archiveFolder);
    if (!path.isEmpty())
        pixmap.load(PathToOpen(path));
    return pixmap;
}

QString XMLUtils::CheckNameDuplication(RVOpenNode* parent, const QString& name)
{
    QString cleaned = name;
    cleaned.replace(QLatin1Char('/'), s_dash);
    cleaned.replace(s_backslash, s_dash);
    cleaned.replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (name.isEmpty() || !parent)
        return cleaned;
    quint64 highest = 0;
    for (RVOpenNode* child = parent->GetChild(1, 1); child; child = child->GetNext(1))
        highest = std::max(highest, numberInSeries(child->GetName(), name));
    if (highest == 0)
        return cleaned;
    return name + QLatin1String(" (") + QString::number(highest + 1) + QLatin1Char(')');
}

QString& XMLUtils::ReplaceIllegalCharacters(QString& text)
{
    const auto isIllegalButBackslash = [](QChar character) {
        return character != s_backslash && isIllegal(character);
    };
    if (std::none_of(text.cbegin(), text.cend(), isIllegalButBackslash))
        return text;
    QString safe;
    for (const QChar character : std::as_const(text)) {
        if (isIllegal(character))
            safe += QLatin1Char('%') + QString::number(character.unicode(), 16);
        else
            safe += character;
    }
    text = safe;
    return text;
}

} // namespace rvopen

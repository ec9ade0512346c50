// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/manager/ImportedDocument.h>

#include <rvopen/Camera.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/XMLUtils.h>
#include <rvopen/files/AtomicWrite.h>
#include <rvopen/files/DocumentFiles.h>
#include <rvopen/manager/SnapShotDocument.h>
#include <rvopen/model/Binding.h>

#include <QDir>

namespace rvopen {

namespace {

/// The folder of an imported document, where its thumbnails lie; a path without any separator
/// counts as a folder.
QString folderOf(const QString& path)
{
    const QString native = QDir::toNativeSeparators(PathToOpen(path));
    const auto end = native.lastIndexOf(QDir::separator());
    return end < 0 ? native : native.left(end);
}

/// Whether the thumbnail came from \p folder to where the snapshot looks for it. Without a
/// snapshots folder the snapshot looks for it there. \p error is set where it is there and could
/// not be copied.
bool copyThumbnail(SnapShot* snapShot, const QString& folder, WriteError& error)
{
    const QString target = snapShot->GetThumbFilename();
    if (target.isEmpty()) {
        snapShot->SetSnapShotPath(folder);
        return false;
    }
    QString safeName = snapShot->GetName();
    if (folder.isEmpty() || !StaysInside(safeName) ||
        !StaysInside(XMLUtils::ReplaceIllegalCharacters(safeName)))
        return false;
    const QString source = folder + QDir::separator() + QLatin1String("icon_") +
                           snapShot->GetName() + QLatin1String(".jpg");
    QString reason;
    if (copyFile(PathToOpen(source), PathToOpen(target), reason))
        return true;
    error = WriteError{target, reason};
    return false;
}

} // namespace

ImportedDocument::ImportedDocument(Retired& retired)
    : m_retired(retired)
{
}

ImportedDocument::~ImportedDocument() = default;

bool ImportedDocument::read(const QString& path)
{
    m_path = path;
    std::unique_ptr<QDomDocument> document(readDocument(path));
    if (!document)
        return false;
    m_retired.keep(std::move(m_document));
    m_document = std::move(document);
    m_collection = QDomNode();

    for (QDomElement child = m_document->documentElement().firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString tag = child.nodeName();
        if (tag == names::element::snapShots()) {
            if (!isMainCollection(child))
                continue;
            child.setAttribute(names::attribute::name(), names::value::modelSnapShots());
            m_collection = child;
        } else if (tag == names::element::snapShot()) {
            if (View<SnapShot> snapShot{newBound<SnapShot>(child)})
                m_retired.replace(m_current, std::move(snapShot));
        }
    }
    return true;
}

SnapShot* ImportedDocument::current() const
{
    return m_current.get();
}

bool ImportedDocument::hasSnapShots() const
{
    return !m_collection.firstChild().isNull();
}

WriteError ImportedDocument::addTo(SnapShots* collection, Camera* camera,
                                   SnapShotSettings* settings) const
{
    WriteError result;
    const QString folder = folderOf(m_path);
    for (QDomNode child = m_collection.firstChild(); !child.isNull(); child = child.nextSibling()) {
        auto* const snapShot = newBound<SnapShot>(child.ownerDocument().importNode(child, true));
        if (!snapShot)
            break;
        if (camera)
            snapShot->AddCamera(camera);
        SnapShotSettings* const own = snapShot->GetSnapShotSettings();
        WriteError error;
        if (copyThumbnail(snapShot, folder, error) && own && settings)
            own->SetSessionName(settings->GetSessionName());
        if (error && !result)
            result = error;
        snapShot->SetImageBorder(RVOpenNode::ImageBorderImported);
        collection->AddNode(snapShot, true);
    }
    return result;
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/DirectoryHandler.h>

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/files/DocumentFiles.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/HeldObject.h>
#include <rvopen/model/Names.h>

#include <QDir>
#include <QFile>

#include <memory>
#include <utility>

namespace rvopen {

namespace {

DirectoryHandler s_directoryHandler;

} // namespace

DirectoryHandler::DirectoryHandler() = default;

DirectoryHandler::DirectoryHandler(const DirectoryHandler& other) = default;

DirectoryHandler& DirectoryHandler::operator=(const DirectoryHandler& other) = default;

DirectoryHandler::~DirectoryHandler() = default;

QString DirectoryHandler::GetSnapshotsFolder()
{
    return existingFolder(m_snapshotsFolder);
}

void DirectoryHandler::SetSnapshotsFolder(QString folder)
{
    m_snapshotsFolder = folder;
}

QString DirectoryHandler::GetZorvaneArchivesFolder()
{
    return existingFolder(m_zorvaneArchivesFolder);
}

void DirectoryHandler::SetZorvaneArchivesFolder(QString folder)
{
    m_zorvaneArchivesFolder = folder;
}

QString DirectoryHandler::GetCustomArchivesFolder()
{
    return existingFolder(m_customArchivesFolder);
}

void DirectoryHandler::SetCustomArchivesFolder(QString folder)
{
    m_customArchivesFolder = folder;
}

QString DirectoryHandler::GetFolder(QString kind)
{
    if (kind == names::value::productArchives())
        return GetZorvaneArchivesFolder();
    if (kind == names::value::customArchives())
        return GetCustomArchivesFolder();
    return QString();
}

RVOpenNode* DirectoryHandler::LoadArchive(QString filename)
{
    if (RVOpenNode* const open = openArchive(filename))
        return open;
    const std::unique_ptr<QDomDocument> document(readDocument(filename));
    if (!document || document->isNull())
        return nullptr;
    auto* const node = newBound<RVOpenNode>(document->documentElement());
    if (node) {
        m_registry.append(
            {std::make_shared<HeldObject<RVOpenNode, ObjectDeleter>>(node), filename});
    }
    return node;
}

bool DirectoryHandler::IsArchiveOpen(QString filename) const
{
    return openArchive(filename) != nullptr;
}

QString DirectoryHandler::GetArchiveAround(const RVOpenNode* node) const
{
    while (node) {
        const QString filename = node->GetArchiveFilename();
        if (!filename.isEmpty())
            return filename;
        // A detached node keeps its parent link, but its element stands nowhere, and that parent
        // may be gone.
        node = node->GetDomNode().parentNode().isNull() ? nullptr : node->GetParent();
    }
    return QString();
}

bool DirectoryHandler::SaveArchive(QString filename)
{
    const RVOpenNode* node = nullptr;
    for (const Entry& entry : std::as_const(m_registry)) {
        if (entry.filename == filename)
            node = entry.node->get();
    }
    if (!node) {
        tellOfWriting(notOpen(filename));
        return false;
    }
    const QDomDocument doc = node->GetDomNode().ownerDocument();
    Q_ASSERT(!doc.isNull());
    return !doc.isNull() && saveDocument(doc, filename) == SaveResult::Saved;
}

bool DirectoryHandler::SaveArchive(RVOpenNode* node)
{
    const QString filename = GetArchiveAround(node);
    if (!filename.isEmpty())
        return GetDirectoryHandler()->SaveArchive(filename);
    tellOfWriting({filename, QStringLiteral("The node belongs to no archive")});
    return false;
}

bool DirectoryHandler::ArchiveWritable(RVOpenNode* node)
{
    const QString filename = GetArchiveAround(node);
    return !filename.isEmpty() &&
           QFile::permissions(PathToOpen(filename)).testFlag(QFile::WriteUser);
}

void DirectoryHandler::RemoveArchive(QString filename)
{
    const int index = indexOf(filename);
    if (index < 0)
        return;
    const QString path = PathToOpen(filename);
    if (QFile::remove(path) || !QFile::exists(path))
        forget(index);
}

void DirectoryHandler::CloseArchive(QString filename)
{
    const int index = indexOf(filename);
    if (index >= 0)
        forget(index);
}

QString DirectoryHandler::existingFolder(QString& folder)
{
    if (!folder.isEmpty() && !QDir(PathToOpen(folder)).exists())
        folder.clear();
    return folder;
}

RVOpenNode* DirectoryHandler::openArchive(const QString& filename) const
{
    const int index = indexOf(filename);
    return index < 0 ? nullptr : m_registry[index].node->get();
}

int DirectoryHandler::indexOf(const QString& filename) const
{
    for (int i = 0; i < m_registry.size(); ++i) {
        // A root that a host deleted is open no more.
        if (m_registry[i].filename == filename && *m_registry[i].node)
            return i;
    }
    return -1;
}

void DirectoryHandler::forget(int index)
{
    // Out of the registry first, so that nobody finds a node that is being deleted.
    const auto node = m_registry[index].node;
    m_registry.remove(index);
    if (node.use_count() > 1)
        return;
    const changes::Reset reset((*node)->GetDomNode().ownerDocument());
    node->reset();
}

DirectoryHandler* GetDirectoryHandler()
{
    return &s_directoryHandler;
}

} // namespace rvopen

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
#include <mutex>
#include <utility>

namespace rvopen {

namespace {

DirectoryHandler s_directoryHandler;

/// Of all registries: they share archives. Held where one is looked at or changed, never while a
/// file is read or written, objects end, or anybody is told. Never destroyed, since objects of the
/// whole process may end later.
std::mutex& registryMutex()
{
    static auto* const mutex = new std::mutex;
    return *mutex;
}

using Locked = std::lock_guard<std::mutex>;

} // namespace

DirectoryHandler::DirectoryHandler() = default;

DirectoryHandler::DirectoryHandler(const DirectoryHandler& other)
    : ORVBase(other)
{
    *this = other;
}

DirectoryHandler& DirectoryHandler::operator=(const DirectoryHandler& other)
{
    // What nobody has open any more ends without the lock.
    QVector<Entry> before;
    const Locked lock(registryMutex());
    before.swap(m_registry);
    m_snapshotsFolder = other.m_snapshotsFolder;
    m_zorvaneArchivesFolder = other.m_zorvaneArchivesFolder;
    m_customArchivesFolder = other.m_customArchivesFolder;
    m_registry = &other == this ? before : other.m_registry;
    return *this;
}

DirectoryHandler::~DirectoryHandler() = default;

QString DirectoryHandler::GetSnapshotsFolder()
{
    return existingFolder(m_snapshotsFolder);
}

void DirectoryHandler::SetSnapshotsFolder(QString folder)
{
    const Locked lock(registryMutex());
    m_snapshotsFolder = std::move(folder);
}

QString DirectoryHandler::GetZorvaneArchivesFolder()
{
    return existingFolder(m_zorvaneArchivesFolder);
}

void DirectoryHandler::SetZorvaneArchivesFolder(QString folder)
{
    const Locked lock(registryMutex());
    m_zorvaneArchivesFolder = std::move(folder);
}

QString DirectoryHandler::GetCustomArchivesFolder()
{
    return existingFolder(m_customArchivesFolder);
}

void DirectoryHandler::SetCustomArchivesFolder(QString folder)
{
    const Locked lock(registryMutex());
    m_customArchivesFolder = std::move(folder);
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
    if (!node)
        return nullptr;
    Node held = std::make_shared<HeldObject<RVOpenNode, ObjectDeleter>>(node);
    RVOpenNode* const open = put(held, filename);
    // Another thread read it meanwhile, and nobody has seen this one.
    if (open != node) {
        const changes::Quiet quiet;
        held.reset();
    }
    return open;
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
    const RVOpenNode* const node = openArchive(filename);
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
    if (!IsArchiveOpen(filename))
        return;
    const QString path = PathToOpen(filename);
    if (QFile::remove(path) || !QFile::exists(path))
        CloseArchive(filename);
}

void DirectoryHandler::CloseArchive(QString filename)
{
    // Out of the registry first, so that nobody finds a node that is being deleted.
    const auto node = take(filename);
    if (!node || node.use_count() > 1)
        return;
    const changes::Reset reset((*node)->GetDomNode().ownerDocument());
    node->reset();
}

QString DirectoryHandler::existingFolder(QString& folder)
{
    const Locked lock(registryMutex());
    if (!folder.isEmpty() && !QDir(PathToOpen(folder)).exists())
        folder.clear();
    return folder;
}

RVOpenNode* DirectoryHandler::openArchive(const QString& filename) const
{
    const Locked lock(registryMutex());
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

RVOpenNode* DirectoryHandler::put(const Node& node, const QString& filename)
{
    const Locked lock(registryMutex());
    const int index = indexOf(filename);
    if (index >= 0)
        return m_registry[index].node->get();
    m_registry.append({node, filename});
    return node->get();
}

DirectoryHandler::Node DirectoryHandler::take(const QString& filename)
{
    const Locked lock(registryMutex());
    const int index = indexOf(filename);
    return index < 0 ? Node() : m_registry.takeAt(index).node;
}

DirectoryHandler* GetDirectoryHandler()
{
    return &s_directoryHandler;
}

} // namespace rvopen

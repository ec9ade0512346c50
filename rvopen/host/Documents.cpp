// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Documents.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/files/DocumentFiles.h>

#include <QDomDocument>

namespace rvopen::host {

namespace {

WriteError saved(const QDomDocument& document, const QString& path, int indent)
{
    if (document.isNull())
        return {path, QStringLiteral("There is no document")};
    saveDocument(document, path, indent);
    return lastWriteError();
}

QDomDocument documentOf(const RVOpenNode* node)
{
    return node ? node->GetDomNode().ownerDocument() : QDomDocument();
}

} // namespace

Result<> load(RVOpenManager& manager, const QString& path)
{
    if (manager.LoadSnapShotDocFromFile(path))
        return std::monostate();
    return LastReadError();
}

Result<> loadText(RVOpenManager& manager, const QString& xml)
{
    if (manager.LoadSnapShotDocFromString(xml))
        return std::monostate();
    return LastReadError();
}

WriteError save(RVOpenManager& manager, const QString& path)
{
    return saved(documentOf(manager.GetRootNode()), path, SnapShotFileIndent);
}

WriteError saveTree(const RVOpenNode* node, const QString& path)
{
    return saved(documentOf(node), path, ArchiveFileIndent);
}

WriteError saveArchive(RVOpenNode* node)
{
    GetDirectoryHandler()->SaveArchive(node);
    return lastWriteError();
}

Result<Imported> importSnapShots(RVOpenManager& manager, const QString& path, ImportedCamera camera)
{
    manager.ImportSnapShotDoc(path, false, false);
    const ReadError error = LastReadError();
    if (!error.message.isEmpty())
        return error;
    const int before = manager.GetNumSnapShots();
    manager.AddImportedSnapShot(camera == ImportedCamera::Current);
    return Imported{manager.GetNumSnapShots() - before, lastWriteError()};
}

} // namespace rvopen::host

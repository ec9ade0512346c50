// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/host/Result.h>

#include <QString>

namespace rvopen {
class RVOpenManager;
class RVOpenNode;
} // namespace rvopen

namespace rvopen::host {

/// \name Reading
/// On an error nothing changes.
/// @{

/// Replaces the manager's document by the one in the file, as
/// RVOpenManager::LoadSnapShotDocFromFile() does.
RVOPEN_EXPORT Result<> load(RVOpenManager& manager, const QString& path);
/// The same with a text, as RVOpenManager::LoadSnapShotDocFromString() does. The error names no
/// file.
RVOPEN_EXPORT Result<> loadText(RVOpenManager& manager, const QString& xml);
/// @}

/// \name Writing
/// A file is replaced whole, or is as it was.
/// @{

/// The manager's snapshot document, indented as such documents are. Without one, and for one that
/// lost its root, nothing is written.
RVOPEN_EXPORT WriteError save(RVOpenManager& manager, const QString& path);
/// The whole document that \p node stands in, indented as archives are. Null and a node that is
/// bound to nothing are errors.
RVOPEN_EXPORT WriteError saveTree(const RVOpenNode* node, const QString& path);
/// The archive that \p node or its nearest ancestor names, as DirectoryHandler::SaveArchive() does,
/// to its own file. It is an error where none names one and where it is not open.
RVOPEN_EXPORT WriteError saveArchive(RVOpenNode* node);
/// @}

/// Which camera imported snapshots get.
enum class ImportedCamera {
    Own,    ///< The one that they have.
    Current ///< A copy of the current snapshot's, where that has one.
};

/// What an import did.
struct Imported {
    /// How many were appended.
    int snapShots = 0;
    /// Of the first thumbnail that was there and could not be copied to the snapshots folder.
    WriteError thumbnail;
};

/// Appends copies of the file's snapshots to "Model SnapShots", with their thumbnails, as
/// RVOpenManager::ImportSnapShotDoc() and AddImportedSnapShot() do. On an error nothing changes but
/// the name of the import.
RVOPEN_EXPORT Result<Imported> importSnapShots(RVOpenManager& manager, const QString& path,
                                               ImportedCamera camera = ImportedCamera::Own);

} // namespace rvopen::host

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/ORVBase.h>

#include <QString>
#include <QVector>

#include <memory>

namespace rvopen {

class RVOpenNode;
struct ObjectDeleter;
template <typename Class, typename Deleter>
class HeldObject;

/// The folders that the library works with and the registry of the preset archives that are open.
///
/// An archive is read once; later requests for the same file name, compared exactly, get the same
/// root node. The registry owns the nodes: one that LoadArchive() handed out is valid until its
/// archive is closed or removed, in the copies of the registry too, at the latest until the library
/// is unloaded. There is one instance per process.
///
/// Several threads may use it at once: all who ask for a file get the same root. The tree below a
/// root belongs to one thread at a time, and who closes an archive sees to it that nobody is in it.
class RVOPEN_EXPORT DirectoryHandler : public ORVBase {
public:
    DirectoryHandler();
    /// Shallow: the copy has the same folders and shares the nodes of the archives that are open.
    /// An archive's nodes go with the last registry that has it open; what one opens or closes from
    /// then on, the other does not see.
    DirectoryHandler(const DirectoryHandler& other);
    DirectoryHandler& operator=(const DirectoryHandler& other);
    virtual ~DirectoryHandler();

    /// \name Folders
    /// A folder that is missing when it is asked for reads as empty, and stays empty until it is
    /// set again.
    /// @{
    QString GetSnapshotsFolder();
    void SetSnapshotsFolder(QString folder);
    /// Archives delivered with the product.
    QString GetZorvaneArchivesFolder();
    void SetZorvaneArchivesFolder(QString folder);
    /// The user's own archives.
    QString GetCustomArchivesFolder();
    void SetCustomArchivesFolder(QString folder);
    /// The folder of an archive type: "Zorvane" or "Custom"; a null string for any other.
    QString GetFolder(QString kind);
    /// @}

    /// \name Archives
    /// @{

    /// The root node of the archive, read on first request; null if it cannot be read.
    RVOpenNode* LoadArchive(QString filename);
    /// Whether the archive is open.
    bool IsArchiveOpen(QString filename) const;
    /// The file name of the archive that \p node or its nearest ancestor names; empty if none does.
    QString GetArchiveAround(const RVOpenNode* node) const;
    /// Writes an open archive back to its file as RVOpenManager::SaveArchive() does: in UTF-8,
    /// indented by 3, attributes by name, U+FFFD for forbidden characters. False if it is not open
    /// or cannot be written; the file is as it was then.
    bool SaveArchive(QString filename);
    /// Saves the archive that \p node or its nearest ancestor names; false if none does.
    bool SaveArchive(RVOpenNode* node);
    /// Whether the file of the archive that \p node or its nearest ancestor names may be written
    /// by its owner; false if none names one.
    bool ArchiveWritable(RVOpenNode* node);
    /// Deletes the file of an open archive and forgets the archive with its nodes. A file that
    /// cannot be deleted stays, and its archive open.
    void RemoveArchive(QString filename);
    /// Forgets an open archive with its nodes and leaves its file.
    void CloseArchive(QString filename);
    /// @}

private:
    friend class PresetArchives;
    friend class RVOpenNode;

    /// Shared by copies of the registry.
    using Node = std::shared_ptr<HeldObject<RVOpenNode, ObjectDeleter>>;

    struct Entry {
        Node node;
        QString filename;
    };

    static QString existingFolder(QString& folder);
    RVOpenNode* openArchive(const QString& filename) const;
    /// With the lock.
    int indexOf(const QString& filename) const;
    /// The one that is open: where another one is, that stays.
    RVOpenNode* put(const Node& node, const QString& filename);
    /// Null where it is not open.
    Node take(const QString& filename);

    QString m_snapshotsFolder;
    QString m_zorvaneArchivesFolder;
    QString m_customArchivesFolder;
    QVector<Entry> m_registry;
};

/// The single instance of the process.
RVOPEN_EXPORT DirectoryHandler* GetDirectoryHandler();

} // namespace rvopen

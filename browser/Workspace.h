// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "EditedFile.h"
#include "Facets.h"
#include "FollowedPlaces.h"
#include "Memory.h"

#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/documents/Folders.h>
#include <rvopen/widgets/PresetFilter.h>
#include <rvopen/widgets/PresetModel.h>
#include <rvopen/widgets/Thumbnails.h>

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QUndoGroup>
#include <QVector>

#include <map>
#include <memory>
#include <vector>

namespace rvopen::browser {

/// All that is open, without any window: files and folders, the presets in them, what is edited,
/// and what of that changed on disk.
class Workspace : public QObject {
    Q_OBJECT

public:
    /// Remembers in \p memory, which outlives it. Journals are kept below \p journals.
    explicit Workspace(Memory& memory, const QString& journals = Journal::folder());
    ~Workspace() override;

    /// \name What is open
    /// @{
    Memory& memory();
    /// Of a preset; it is followed where its file is edited.
    void setFavourite(const toolkit::PresetPlace& place, bool isFavourite);
    void addRecent(const toolkit::PresetPlace& place);
    /// Files and folders, which are remembered. What is an installation gives the folders.
    void open(const QStringList& paths);
    /// The file or folder is remembered no more; what was edited in it and not saved stays open.
    void close(const QString& path);
    QStringList opened() const;
    /// All archives and documents that were found there; known once the presets are.
    QStringList files() const;
    /// Those of a file or folder.
    QStringList filesIn(const QString& place) const;
    const toolkit::Folders& folders() const;
    void setFolders(const toolkit::Folders& folders);
    /// Looks again at what is in the folders and files.
    void rescan();
    bool isScanning() const;
    /// @}

    /// \name Presets
    /// @{
    widgets::PresetModel& presets();
    widgets::PresetFilter& filter();
    widgets::Thumbnails& thumbnails();
    const Facets& facets() const;
    /// @}

    /// \name Edits
    /// @{
    QUndoGroup& undo();
    /// Opens the file where it is not; null, with failed(), where it cannot be.
    EditedFile* edit(const QString& file);
    /// Null where it is not open.
    EditedFile* edited(const QString& file) const;
    std::vector<EditedFile*> allEdited() const;
    std::vector<EditedFile*> changed() const;
    /// False when it was not written: with failed(), or with changedOutside() where another program
    /// wrote it meanwhile.
    bool save(EditedFile& file);
    /// Reads it again; what was not saved is lost. Where it cannot be read, with failed(), all
    /// stays as it is.
    void reload(EditedFile& file);
    /// Without saving.
    void closeFile(const QString& file);
    /// @}

    /// \name After a crash
    /// @{
    QVector<Journal::Left> leftOver() const;
    /// Null, with failed(), where it cannot be had. Where the file has changed since, the edits are
    /// made in a copy beside it.
    EditedFile* recover(const Journal::Left& left);
    void discard(const Journal::Left& left);
    /// @}

Q_SIGNALS:
    /// What is open is another, or what is in it.
    void openedChanged();
    void scanningChanged(bool isScanning);
    /// What presets there are was counted.
    void facetsChanged();
    /// It is none of those that are open any more, and goes next.
    void fileClosed(const QString& file);
    void fileEdited(rvopen::browser::EditedFile* file);
    /// It has to be saved, or has been.
    void changedChanged();
    void changedOutside(rvopen::browser::EditedFile* file);
    void failed(const QString& message);

private:
    struct Scan;

    void start(const QStringList& paths);
    void take(const std::shared_ptr<Scan>& scan);
    void watch();
    void lookOutside(const QString& file);
    void count();
    void own(const QString& file, std::unique_ptr<EditedFile> opened);
    void lookUpPlaces(const QString& file);

    Memory& m_memory;
    QString m_journals;
    QStringList m_opened;
    QStringList m_files;
    toolkit::Folders m_folders;
    bool m_isScanning = false;
    bool m_isScanWanted = false;
    Facets m_facets;
    QTimer m_rescanTimer;
    QTimer m_countTimer;
    QFileSystemWatcher m_watcher;
    // In this order, so that models go before what they follow.
    QUndoGroup m_undo;
    std::map<QString, std::unique_ptr<EditedFile>> m_edited;
    std::map<QString, std::unique_ptr<FollowedPlaces>> m_places;
    widgets::Thumbnails m_thumbnails;
    widgets::PresetModel m_presets;
    widgets::PresetFilter m_filter;
};

} // namespace rvopen::browser

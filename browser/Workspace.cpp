// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Workspace.h"

#include "Background.h"
#include "FileTexts.h"
#include "Waiting.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/documents/Load.h>

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

namespace rvopen::browser {

using namespace toolkit;

namespace {

/// So long no further change has to come before what changed is looked at.
constexpr int s_settled = 300;

bool isInstallation(const QString& folder)
{
    return QFileInfo::exists(QDir(folder).filePath(QStringLiteral("xml/Default.rvx")));
}

/// More lines than these say no more.
constexpr int s_mostProblems = 5;

QString linesOf(const QVector<ReadError>& problems)
{
    QStringList lines;
    for (const ReadError& problem : problems)
        lines << messageOf(problem);
    if (lines.size() > s_mostProblems) {
        lines.erase(lines.begin() + s_mostProblems, lines.end());
        lines << QStringLiteral("…");
    }
    return lines.join(QLatin1Char('\n'));
}

bool isIn(const QString& file, const QString& place)
{
    return file == place || file.startsWith(place + QLatin1Char('/'));
}

} // namespace

/// What was found in the files and folders that are open.
struct Workspace::Scan {
    QVector<ReadError> problems;
    std::shared_ptr<const Catalogue> catalogue;
    Facets facets;
};

Workspace::Workspace(Memory& memory, const QString& journals)
    : m_memory(memory)
    , m_journals(journals)
{
    m_filter.setSourceModel(&m_presets);
    m_rescanTimer.setSingleShot(true);
    m_rescanTimer.setInterval(s_settled);
    m_countTimer.setSingleShot(true);
    m_countTimer.setInterval(s_settled);
    connect(&m_rescanTimer, &QTimer::timeout, this, &Workspace::rescan);
    connect(&m_countTimer, &QTimer::timeout, this, &Workspace::count);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_rescanTimer,
            qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &Workspace::lookOutside);
    setFolders(memory.folders());
}

Workspace::~Workspace() = default;

Memory& Workspace::memory()
{
    return m_memory;
}

void Workspace::setFavourite(const PresetPlace& place, bool isFavourite)
{
    m_memory.setFavourite(place, isFavourite);
    lookUpPlaces(place.file);
}

void Workspace::addRecent(const PresetPlace& place)
{
    m_memory.addRecent(place);
    lookUpPlaces(place.file);
}

void Workspace::open(const QStringList& paths)
{
    for (const QString& path : paths) {
        const QFileInfo info(path);
        if (!info.exists()) {
            Q_EMIT failed(tr("%1 is not there").arg(path));
            continue;
        }
        const QString full = info.absoluteFilePath();
        if (!m_opened.contains(full))
            m_opened.append(full);
        if (info.isDir() && isInstallation(full)) {
            Folders folders = m_folders;
            folders.install = full;
            setFolders(folders);
        }
    }
    m_memory.setOpened(m_opened);
    rescan();
}

void Workspace::close(const QString& path)
{
    m_opened.removeAll(path);
    m_memory.setOpened(m_opened);
    for (const EditedFile* const file : allEdited()) {
        const QString name = file->file();
        // What is not saved stays, wherever it was found.
        if (isIn(name, path) && !file->isChanged())
            closeFile(name);
    }
    rescan();
}

QStringList Workspace::opened() const
{
    return m_opened;
}

QStringList Workspace::files() const
{
    return m_files;
}

QStringList Workspace::filesIn(const QString& place) const
{
    QStringList files;
    for (const QString& file : m_files) {
        if (isIn(file, place))
            files.append(file);
    }
    return files;
}

const Folders& Workspace::folders() const
{
    return m_folders;
}

void Workspace::setFolders(const Folders& folders)
{
    m_folders = folders;
    m_memory.setFolders(folders);
    m_thumbnails.SetFolders(folders);
    DirectoryHandler* const handler = GetDirectoryHandler();
    handler->SetZorvaneArchivesFolder(folders.archives);
    handler->SetCustomArchivesFolder(folders.custom);
    handler->SetSnapshotsFolder(folders.snapshots);
}

void Workspace::rescan()
{
    if (m_isScanning) {
        m_isScanWanted = true;
        return;
    }
    m_isScanning = true;
    Q_EMIT scanningChanged(true);
    start(m_opened);
}

bool Workspace::isScanning() const
{
    return m_isScanning;
}

widgets::PresetModel& Workspace::presets()
{
    return m_presets;
}

widgets::PresetFilter& Workspace::filter()
{
    return m_filter;
}

widgets::Thumbnails& Workspace::thumbnails()
{
    return m_thumbnails;
}

const Facets& Workspace::facets() const
{
    return m_facets;
}

QUndoGroup& Workspace::undo()
{
    return m_undo;
}

EditedFile* Workspace::edit(const QString& file)
{
    if (EditedFile* const known = edited(file))
        return known;
    const Waiting waiting(file);
    ReadError error;
    std::unique_ptr<EditedFile> opened = EditedFile::open(file, error, m_journals);
    if (!opened) {
        Q_EMIT failed(messageOf(error));
        return nullptr;
    }
    own(file, std::move(opened));
    return edited(file);
}

EditedFile* Workspace::edited(const QString& file) const
{
    const auto found = m_edited.find(file);
    return found == m_edited.end() ? nullptr : found->second.get();
}

std::vector<EditedFile*> Workspace::allEdited() const
{
    std::vector<EditedFile*> all;
    for (const auto& [file, edited] : m_edited)
        all.push_back(edited.get());
    return all;
}

std::vector<EditedFile*> Workspace::changed() const
{
    std::vector<EditedFile*> all = allEdited();
    all.erase(std::remove_if(all.begin(), all.end(),
                             [](const EditedFile* file) { return !file->isChanged(); }),
              all.end());
    return all;
}

bool Workspace::save(EditedFile& file)
{
    // What another program wrote is not written over before somebody was asked.
    if (QFileInfo::exists(PathToOpen(file.file())) && file.isChangedOutside()) {
        Q_EMIT changedOutside(&file);
        return false;
    }
    const Waiting waiting(file.file());
    const WriteError error = file.save();
    watch();
    if (error)
        Q_EMIT failed(messageOf(error));
    else
        m_places.at(file.file())->keep();
    return !error;
}

void Workspace::reload(EditedFile& file)
{
    const QString name = file.file();
    const Load load = LoadDocument(name);
    if (!load) {
        Q_EMIT failed(messageOf(load.error));
        return;
    }
    closeFile(name);
    m_presets.Reread(name);
    edit(name);
    watch();
}

void Workspace::closeFile(const QString& file)
{
    const auto found = m_edited.find(file);
    if (found == m_edited.end())
        return;
    m_presets.Follow(file, QDomDocument());
    const std::unique_ptr<EditedFile> closed = std::move(found->second);
    m_edited.erase(found);
    m_places.at(file)->goBack();
    m_places.erase(file);
    m_undo.removeStack(&closed->stack());
    Q_EMIT fileClosed(file);
    Q_EMIT changedChanged();
}

QVector<Journal::Left> Workspace::leftOver() const
{
    return Journal::leftOver(m_journals);
}

EditedFile* Workspace::recover(const Journal::Left& left)
{
    QString file = left.file;
    const QByteArray base = Journal::base(left);
    const EditedFile* const known = edited(file);
    if ((known && known->isChanged()) || bytesOf(file) != base) {
        const QFileInfo info(file);
        file = freePath(info.path(), info.completeBaseName() + QLatin1String("-recovered"),
                        info.suffix());
        if (!WriteFile(base, file)) {
            Q_EMIT failed(messageOf(WriteError{file, LastWriteError()}));
            return nullptr;
        }
        const bool isFound = std::any_of(m_opened.begin(), m_opened.end(),
                                         [&](const QString& path) { return isIn(file, path); });
        if (!isFound)
            open({file});
    }
    EditedFile* const opened = edit(file);
    if (!opened)
        return nullptr;
    if (!opened->recover(left))
        Q_EMIT failed(tr("%1: not all of its edits could be recovered").arg(opened->name()));
    // What was made stands in the file's own journal by now.
    Journal::discard(left);
    return opened;
}

void Workspace::discard(const Journal::Left& left)
{
    Journal::discard(left);
}

void Workspace::start(const QStringList& paths)
{
    inBackground(
        this,
        [paths] {
            const auto scan = std::make_shared<Scan>();
            QStringList files;
            QSet<QString> known;
            for (const QString& path : paths) {
                const QStringList found = QFileInfo(path).isDir()
                                              ? DocumentsBelow(path, scan->problems)
                                              : QStringList{path};
                for (const QString& file : found) {
                    if (!known.contains(file)) {
                        known.insert(file);
                        files.append(file);
                    }
                }
            }
            scan->catalogue = std::make_shared<const Catalogue>(files);
            scan->facets = Facets::of(scan->catalogue);
            scan->problems += scan->catalogue->Problems();
            return scan;
        },
        [this](const std::shared_ptr<Scan>& scan) { take(scan); });
}

void Workspace::take(const std::shared_ptr<Scan>& scan)
{
    m_isScanning = false;
    m_files = scan->catalogue->Files();
    m_facets = scan->facets;
    m_presets.SetCatalogue(scan->catalogue);
    // Those that were opened before the catalogue had them.
    for (const auto& [file, edited] : m_edited)
        m_presets.Follow(file, edited->dom());
    watch();
    Q_EMIT scanningChanged(false);
    Q_EMIT openedChanged();
    Q_EMIT facetsChanged();
    if (!scan->problems.isEmpty())
        Q_EMIT failed(linesOf(scan->problems));
    if (std::exchange(m_isScanWanted, false))
        rescan();
}

/// Folders tell of what comes, goes and is replaced; a file that is written over tells itself.
void Workspace::watch()
{
    QStringList paths;
    QSet<QString> folders;
    for (const QString& path : m_opened) {
        if (QFileInfo(path).isDir())
            folders.insert(path);
    }
    for (const QString& file : m_files)
        folders.insert(QFileInfo(file).absolutePath());
    for (const auto& [file, edited] : m_edited) {
        paths.append(file);
        folders.insert(QFileInfo(file).absolutePath());
    }
    paths += QStringList(folders.begin(), folders.end());
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    const QSet<QString> wanted(paths.begin(), paths.end());
    QStringList superfluous;
    for (const QString& path : watched) {
        if (!wanted.contains(path))
            superfluous.append(path);
    }
    if (!superfluous.isEmpty())
        m_watcher.removePaths(superfluous);
    for (const QString& path : paths) {
        if (!watched.contains(path) && QFileInfo::exists(path))
            m_watcher.addPath(path);
    }
}

void Workspace::lookOutside(const QString& file)
{
    // A file that was replaced is watched no more.
    watch();
    EditedFile* const edited = this->edited(file);
    if (edited && edited->isChangedOutside())
        Q_EMIT changedOutside(edited);
}

void Workspace::count()
{
    const std::shared_ptr<const Catalogue> catalogue = m_presets.CurrentCatalogue();
    if (!catalogue)
        return;
    inBackground(
        this, [catalogue] { return Facets::of(catalogue); },
        [this](const Facets& facets) {
            m_facets = facets;
            Q_EMIT facetsChanged();
        });
}

void Workspace::own(const QString& file, std::unique_ptr<EditedFile> opened)
{
    EditedFile* const edited = opened.get();
    m_edited[file] = std::move(opened);
    m_places[file] = std::make_unique<FollowedPlaces>(m_memory, *edited);
    m_undo.addStack(&edited->stack());
    connect(edited, &EditedFile::changedChanged, this, &Workspace::changedChanged);
    connect(edited, &EditedFile::edited, this, [this, edited] {
        m_countTimer.start();
        m_places.at(edited->file())->follow();
        Q_EMIT fileEdited(edited);
    });
    m_presets.Follow(file, edited->dom());
    watch();
}

void Workspace::lookUpPlaces(const QString& file)
{
    const auto found = m_places.find(file);
    if (found != m_places.end())
        found->second->lookUp();
}

} // namespace rvopen::browser

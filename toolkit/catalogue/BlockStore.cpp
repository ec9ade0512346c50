// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "BlockStore.h"

#include "RowScan.h"
#include "toolkit/documents/Processors.h"
#include "toolkit/edit/Labels.h"

#include <rvopen/RVOpenPaths.h>

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <new>
#include <string>

namespace rvopen::toolkit::catalogue {

namespace {

/// The folder that all of the files are in or below.
QString commonFolder(const QStringList& files)
{
    if (files.isEmpty())
        return QString();
    const auto [first, last] = std::minmax_element(files.begin(), files.end());
    int same = 0;
    while (same < int(std::min(first->size(), last->size())) && (*first)[same] == (*last)[same])
        ++same;
    return first->left(int(first->left(same).lastIndexOf(QLatin1Char('/'))));
}

/// A step of a path, in UTF-8; none of these is a parameter.
template <typename Named>
void appendStep(const Block& block, const Named& named, bool isFirst, std::string& path)
{
    if (!isFirst)
        path += '/';
    appendLabel(block.text(named.kind), block.text(identityOf(named)), path);
    if (named.number != 1)
        path += '#' + std::to_string(named.number);
}

} // namespace

BlockStore::BlockStore(const QStringList& files,
                       const std::function<void(int, const QString&)>& progress)
    : m_sources(std::size_t(files.size()))
{
    forEachPiece(m_sources.size(), [&](std::size_t i) { identify(files[int(i)], m_sources[i]); });
    QStringList documents;
    for (const Source& source : m_sources) {
        if (!source.name.isEmpty())
            documents << QFile::decodeName(source.name);
    }
    const QString name =
        documents.isEmpty() ? QString() : IndexFile::nameFor(commonFolder(documents));
    const auto index = std::make_shared<IndexFile>(name);
    // To look at all of a block is most of what a search takes.
    forEachPiece(m_sources.size(), [&](std::size_t i) {
        Source& source = m_sources[i];
        if (source.name.isEmpty())
            return;
        source.block = Block(index->find(source.name, source.state));
        if (source.block.isValid())
            source.index = index;
    });
    std::vector<Source*> unknown;
    for (Source& source : m_sources) {
        if (source.name.isEmpty())
            continue;
        source.isKept = source.block.isValid();
        if (!source.isKept)
            unknown.push_back(&source);
    }
    readAll(unknown, progress);
    qint64 readBytes = 0;
    for (const Source* const source : unknown)
        readBytes += source->isKept ? source->state.size : 0;
    if (readBytes >= WorthKeeping)
        keep(name, *index);
}

BlockStore BlockStore::with(const QString& file, const QByteArray& block) const
{
    Source source;
    source.file = file;
    source.made = block;
    source.block = Block(viewOf(source.made));
    return with(source);
}

BlockStore BlockStore::with(const BlockStore& file) const
{
    return with(file.m_sources.front());
}

int BlockStore::indexOf(const QString& file) const
{
    int index = count() - 1;
    while (index >= 0 && m_sources[std::size_t(index)].file != file)
        --index;
    return index;
}

BlockStore BlockStore::with(const Source& source) const
{
    BlockStore other = *this;
    int index = indexOf(source.file);
    if (index < 0) {
        index = other.count();
        other.m_sources.emplace_back();
    }
    other.m_sources[std::size_t(index)] = source;
    return other;
}

void BlockStore::identify(const QString& file, Source& source)
{
    source.file = file;
    const QString path = PathToOpen(file);
    if (file == QLatin1String("-") || path.isEmpty() || path.contains(QChar(0)))
        return;
    const QString document = QFileInfo(path).absoluteFilePath();
    if (findState(QFile::encodeName(path), source.state))
        source.name = QFile::encodeName(document);
}

void BlockStore::readAll(const std::vector<Source*>& sources,
                         const std::function<void(int, const QString&)>& progress)
{
    onAllProcessors(sources.size(), [&](NextPiece& next, bool isTelling) {
        RowScan scan;
        for (std::size_t i; (i = next++) < sources.size();) {
            Source& source = *sources[i];
            if (isTelling && progress)
                progress(int(i) + 1, source.file);
            try {
                const qint64 time = currentTime();
                source.made = scan.blockOf(source.file, source.error);
                source.block = Block(viewOf(source.made));
                FileState after;
                source.isKept = source.block.isValid() && !source.state.isRecent(time) &&
                                findState(QFile::encodeName(PathToOpen(source.file)), after) &&
                                after == source.state;
            } catch (const std::bad_alloc&) {
                // It is as one that was not read.
                source.error = ReadError();
            }
        }
    });
    m_readCount = int(sources.size());
}

/// With what was there before of other documents, as far as it is still good.
void BlockStore::keep(const QString& name, const IndexFile& index) const
{
    std::vector<IndexFile::Entry> entries;
    QSet<QByteArray> known;
    for (const Source& source : m_sources) {
        if (source.name.isEmpty() || known.contains(source.name))
            continue;
        known.insert(source.name);
        if (source.isKept)
            entries.push_back({source.name, source.state,
                               source.made.isEmpty() ? index.find(source.name, source.state)
                                                     : viewOf(source.made)});
    }
    for (const IndexFile::Entry& entry : index.entries()) {
        FileState state;
        if (!known.contains(entry.document) && findState(entry.document, state) &&
            state == entry.state)
            entries.push_back(entry);
    }
    IndexFile::write(name, entries);
}

ReadBlock readBlock(const QString& file)
{
    ReadBlock read;
    const QString path = PathToOpen(file);
    if (file == QLatin1String("-") || path.isEmpty() || path.contains(QChar(0)) ||
        !findState(QFile::encodeName(path), read.state))
        return read;
    ReadError error;
    read.bytes = RowScan().blockOf(file, error);
    read.block = Block(viewOf(read.bytes));
    return read;
}

std::vector<BlockFolder> foldersAbove(const Block& block, const BlockRow& row)
{
    std::vector<BlockFolder> folders;
    for (quint32 index = row.folder; index != NoFolder; index = folders.back().parent)
        folders.push_back(block.folder(index));
    std::reverse(folders.begin(), folders.end());
    return folders;
}

std::string pathOf(const Block& block, const BlockRow& row)
{
    std::string path;
    appendPath(block, row, folderPathOf(block, row), path);
    return path;
}

void appendPath(const Block& block, const BlockRow& row, std::string_view folderPath,
                std::string& path)
{
    path += folderPath;
    appendStep(block, row, folderPath.empty(), path);
}

std::string folderPathOf(const Block& block, const BlockRow& row)
{
    std::string path;
    for (const BlockFolder& folder : foldersAbove(block, row))
        appendStep(block, folder, path.empty(), path);
    return path;
}

std::string foldersOf(const Block& block, const BlockRow& row)
{
    std::string folders;
    for (const BlockFolder& folder : foldersAbove(block, row)) {
        if (folder.parent == NoFolder)
            continue;
        if (!folders.empty())
            folders += " / ";
        folders += block.text(identityOf(folder));
    }
    return folders;
}

std::string_view sectionOf(const Block& block, const BlockRow& row)
{
    const std::vector<BlockFolder> folders = foldersAbove(block, row);
    return folders.empty() ? std::string_view() : block.text(folders.front().kind);
}

} // namespace rvopen::toolkit::catalogue

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Block.h"
#include "FileState.h"
#include "IndexFile.h"

#include <rvopen/RVOpenReader.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace rvopen::toolkit::catalogue {

/// Files of which less was read anew are not written into the index: reading them again is as
/// quick.
inline constexpr qint64 WorthKeeping = 1024 * 1024;

/// The blocks of many documents: from the index as far as they are there and their files are what
/// they were, from the files otherwise, by all processors.
class BlockStore {
public:
    /// Calls \p progress, if given, now and then with how many files are done and the last of them.
    explicit BlockStore(const QStringList& files,
                        const std::function<void(int, const QString&)>& progress = {});

    /// The same, but that of \p file the block is this one, which is of no state of the file; one
    /// that is not there yet comes last.
    BlockStore with(const QString& file, const QByteArray& block) const;
    /// The same of a store of one file.
    BlockStore with(const BlockStore& file) const;

    int count() const
    {
        return int(m_sources.size());
    }
    QString file(int index) const
    {
        return m_sources[std::size_t(index)].file;
    }
    /// Of no document where the file is refused, or is no file.
    const Block& block(int index) const
    {
        return m_sources[std::size_t(index)].block;
    }
    /// Why the file is refused; without message when it is not, or was not read.
    const ReadError& error(int index) const
    {
        return m_sources[std::size_t(index)].error;
    }
    /// The state of the file when it was read.
    const FileState& state(int index) const
    {
        return m_sources[std::size_t(index)].state;
    }
    /// Below 0 for a file that is none of them.
    int indexOf(const QString& file) const;
    /// How many files were read.
    int readCount() const
    {
        return m_readCount;
    }

private:
    struct Source {
        QString file;
        /// Empty for what is no file.
        QByteArray name;
        FileState state;
        Block block;
        ReadError error;
        /// What the block lies in, where it was not made.
        std::shared_ptr<const IndexFile> index;
        QByteArray made;
        /// What was read is what has the state, and would have another one if it changed.
        bool isKept = false;
    };

    BlockStore with(const Source& source) const;

    /// Notes which file it is, and how it is.
    static void identify(const QString& file, Source& source);
    void readAll(const std::vector<Source*>& sources,
                 const std::function<void(int, const QString&)>& progress);
    void keep(const QString& name, const IndexFile& index) const;

    std::vector<Source> m_sources;
    int m_readCount = 0;
};

/// What the catalogue has of one file, read now and kept nowhere.
struct ReadBlock {
    /// Of the file before it was read.
    FileState state;
    QByteArray bytes;
    /// Good as long as the bytes; of no document where the file is refused, or is no file.
    Block block;
};
ReadBlock readBlock(const QString& file);

/// \name What is made of a row
/// In UTF-8.
/// @{

/// Those that it stands in, from the section on.
std::vector<BlockFolder> foldersAbove(const Block& block, const BlockRow& row);
/// Its path, as forEachPreset() gives it.
std::string pathOf(const Block& block, const BlockRow& row);
/// Appends the same, put together of the path of the folder that it stands in.
void appendPath(const Block& block, const BlockRow& row, std::string_view folderPath,
                std::string& path);
std::string folderPathOf(const Block& block, const BlockRow& row);
/// Names of the folders down to it, joined by " / ".
std::string foldersOf(const Block& block, const BlockRow& row);
/// The section of the archive; empty for the current snapshot.
std::string_view sectionOf(const Block& block, const BlockRow& row);
/// @}

} // namespace rvopen::toolkit::catalogue

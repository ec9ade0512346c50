// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include "BlockStore.h"
#include "PresetList.h"
#include "RowSearch.h"
#include "SmallDocument.h"
#include "toolkit/documents/Processors.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace rvopen::toolkit {

using catalogue::Block;
using catalogue::BlockRow;
using catalogue::BlockStore;
using catalogue::NoFolder;
using catalogue::RowMatch;
using catalogue::RowSearch;

namespace {

/// The row of that path below the root; false where there is none.
bool findRow(const Block& block, const std::string& path, BlockRow& row)
{
    const bool hasEscapes = path.find('\\') != std::string::npos;
    for (quint32 i = 0; i < block.head().rows; ++i) {
        row = block.row(i);
        if (row.folder == NoFolder)
            continue;
        // Paths are only made of what may have this one: without escapes and number it ends with
        // what the row is called.
        const std::string_view name = block.text(catalogue::identityOf(row));
        const bool isEnd = path.size() > name.size() &&
                           path.compare(path.size() - 1 - name.size(), name.size(), name) == 0;
        if ((isEnd || hasEscapes || name.empty() || row.number != 1) &&
            catalogue::pathOf(block, row) == path)
            return true;
    }
    return false;
}

} // namespace

class RVOPEN_TOOLKIT_NO_EXPORT Catalogue::Store {
public:
    explicit Store(const QStringList& files)
        : blocks(files)
    {
    }

    /// Below 0 for a file that is none of them.
    int indexOf(const QString& file) const
    {
        int index = blocks.count() - 1;
        while (index >= 0 && blocks.file(index) != file)
            --index;
        return index;
    }

    /// The best first.
    std::vector<RowMatch> matches(const CatalogueQuery& query) const
    {
        const RowSearch prepared(query);
        std::vector<std::vector<RowMatch>> found(std::size_t(blocks.count()));
        onAllProcessors(found.size(), [&](NextPiece& next, bool) {
            RowSearch search = prepared;
            for (std::size_t i; (i = next++) < found.size();) {
                const Block& block = blocks.block(int(i));
                if (block.head().needsDom == 0)
                    search.search(block, int(i), found[i]);
            }
        });
        std::vector<RowMatch> all;
        for (const std::vector<RowMatch>& of : found)
            all.insert(all.end(), of.begin(), of.end());
        RowSearch::sort(all);
        return all;
    }

    BlockStore blocks;
};

struct RVOPEN_TOOLKIT_NO_EXPORT CatalogueMatches::Found {
    std::shared_ptr<const Catalogue::Store> store;
    std::vector<RowMatch> rows;
};

CatalogueMatches::CatalogueMatches() = default;

CatalogueMatches::~CatalogueMatches() = default;

CatalogueMatches::CatalogueMatches(const CatalogueMatches& other) = default;

CatalogueMatches& CatalogueMatches::operator=(const CatalogueMatches& other) = default;

int CatalogueMatches::Count() const
{
    return m_found ? int(m_found->rows.size()) : 0;
}

ListedPreset CatalogueMatches::At(int index) const
{
    if (index < 0 || index >= Count())
        return {};
    const RowMatch& match = m_found->rows[std::size_t(index)];
    return catalogue::listedOf(m_found->store->blocks, match.document, match.row);
}

Catalogue::Catalogue(const QStringList& files)
    : m_store(std::make_shared<const Store>(files))
{
}

Catalogue::~Catalogue() = default;

QVector<ReadError> Catalogue::Problems() const
{
    QVector<ReadError> problems;
    const BlockStore& blocks = m_store->blocks;
    for (int i = 0; i < blocks.count(); ++i) {
        const Block& block = blocks.block(i);
        ReadError problem = blocks.error(i);
        if (problem.message.isEmpty() && !block.isValid())
            problem.message = QStringLiteral("This is no file that can be read");
        else if (block.head().needsDom != 0)
            problem.message = QStringLiteral("The document has names of another namespace");
        problem.file = blocks.file(i);
        if (!problem.message.isEmpty())
            problems.append(problem);
    }
    return problems;
}

int Catalogue::Count() const
{
    return int(m_store->matches(CatalogueQuery()).size());
}

CatalogueMatches Catalogue::Search(const CatalogueQuery& query) const
{
    CatalogueMatches matches;
    matches.m_found = std::make_shared<const CatalogueMatches::Found>(
        CatalogueMatches::Found{m_store, m_store->matches(query)});
    return matches;
}

QVector<ListedPreset> Catalogue::Find(const CatalogueQuery& query) const
{
    const CatalogueMatches matches = Search(query);
    QVector<ListedPreset> found;
    found.reserve(matches.Count());
    for (int i = 0; i < matches.Count(); ++i)
        found.append(matches.At(i));
    return found;
}

OpenPreset Catalogue::Open(const ListedPreset& preset) const
{
    const BlockStore& blocks = m_store->blocks;
    const int index = m_store->indexOf(preset.file);
    const std::string path = preset.path.toStdString();
    BlockRow row;
    if (index >= 0 && findRow(blocks.block(index), path, row)) {
        const OpenPreset opened =
            catalogue::openThere(preset.file, blocks.state(index), blocks.block(index), row);
        if (opened)
            return opened;
    }
    const BlockStore now({preset.file});
    if (findRow(now.block(0), path, row)) {
        const OpenPreset opened =
            catalogue::openThere(preset.file, now.state(0), now.block(0), row);
        if (opened)
            return opened;
    }
    return catalogue::openWhole(preset.file, preset.path);
}

} // namespace rvopen::toolkit

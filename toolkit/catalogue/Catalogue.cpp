// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include "BlockStore.h"
#include "PresetList.h"
#include "RowSearch.h"
#include "SmallDocument.h"

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

class Catalogue::Store {
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
        RowSearch search(query);
        std::vector<RowMatch> found;
        for (int i = 0; i < blocks.count(); ++i) {
            if (blocks.block(i).head().needsDom == 0)
                search.search(blocks.block(i), i, found);
        }
        RowSearch::sort(found);
        return found;
    }

    BlockStore blocks;
};

Catalogue::Catalogue(const QStringList& files)
    : m_store(std::make_unique<Store>(files))
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

QVector<ListedPreset> Catalogue::Find(const CatalogueQuery& query) const
{
    const std::vector<RowMatch> matches = m_store->matches(query);
    QVector<ListedPreset> found;
    found.reserve(int(matches.size()));
    for (const RowMatch& match : matches)
        found.append(catalogue::listedOf(m_store->blocks, match.document, match.row));
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

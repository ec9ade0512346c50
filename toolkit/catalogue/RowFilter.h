// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Block.h"
#include "toolkit/edit/Selection.h"

#include <QHash>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace rvopen::toolkit::catalogue {

/// Tells which rows of one block a Selection has that is an AttributeFilter. Block and filter have
/// to stay.
class RowFilter {
public:
    RowFilter(const AttributeFilter& filter, const Block& block);

    bool passes(const BlockRow& row);

private:
    bool isType(TextId kind);
    bool hasWord(const BlockRow& row, std::size_t word) const;
    bool hasWord(TextId text, std::size_t word) const;

    const AttributeFilter& m_filter;
    const Block& m_block;
    std::string m_subCategory;
    std::string m_category;
    /// For each word the texts that have it.
    std::vector<std::vector<bool>> m_texts;
    /// Kinds that were compared.
    QHash<TextId, bool> m_types;
    /// Of each folder its section.
    std::vector<quint32> m_sections;
    /// For each word the folders that have it, or stand in one that has.
    std::vector<std::vector<bool>> m_folders;
};

/// Calls \p visit with each preset of the block that passes, and its number. False where rows do
/// not say which do, of no document too.
bool forEachPassing(const Block& block, const AttributeFilter& filter,
                    const std::function<void(quint32, const BlockRow&)>& visit);

/// Tells the selection, of which the block has nothing, what there is in it.
void noteOthers(const Block& block, const Selection& selection);

} // namespace rvopen::toolkit::catalogue

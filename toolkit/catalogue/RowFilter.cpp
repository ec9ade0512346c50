// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "RowFilter.h"

#include <array>
#include <set>

namespace rvopen::toolkit::catalogue {

RowFilter::RowFilter(const AttributeFilter& filter, const Block& block)
    : m_filter(filter)
    , m_block(block)
    , m_subCategory(filter.subCategory.toStdString())
    , m_category(filter.category.toStdString())
{
    for (const QString& word : filter.words)
        m_texts.push_back(block.textsWith(word.toStdString()));
    const quint32 count = block.head().folders;
    m_sections.resize(count);
    m_folders.assign(m_texts.size(), std::vector<bool>(count));
    for (quint32 i = 0; i < count; ++i) {
        const BlockFolder folder = block.folder(i);
        const bool isSection = folder.parent == NoFolder;
        m_sections[i] = isSection ? i : m_sections[folder.parent];
        const bool isNamed = block.text(folder.kind) == "dir";
        const TextId identity = identityOf(folder);
        for (std::size_t word = 0; word < m_texts.size(); ++word) {
            m_folders[word][i] = (isNamed && hasWord(identity, word)) ||
                                 (!isSection && m_folders[word][folder.parent]);
        }
    }
}

bool RowFilter::passes(const BlockRow& row)
{
    const bool isPlaced = row.folder < m_sections.size();
    if (!m_filter.type.isEmpty() && !isType(row.kind) &&
        !(isPlaced && isType(m_block.folder(m_sections[row.folder]).kind)))
        return false;
    if ((!m_subCategory.empty() && m_block.foldedText(row.subCategory) != m_subCategory) ||
        (!m_category.empty() && m_block.foldedText(row.category) != m_category))
        return false;
    for (std::size_t word = 0; word < m_texts.size(); ++word) {
        if (!(isPlaced && m_folders[word][row.folder]) && !hasWord(row, word))
            return false;
    }
    return true;
}

bool RowFilter::isType(TextId kind)
{
    const auto known = m_types.constFind(kind);
    if (known != m_types.constEnd())
        return *known;
    const bool isType =
        toQString(m_block.text(kind)).compare(m_filter.type, Qt::CaseInsensitive) == 0;
    m_types.insert(kind, isType);
    return isType;
}

bool RowFilter::hasWord(const BlockRow& row, std::size_t word) const
{
    return hasWord(row.name, word) || hasWord(row.refName, word) || hasWord(row.category, word) ||
           hasWord(row.description, word);
}

bool RowFilter::hasWord(TextId text, std::size_t word) const
{
    return text < m_texts[word].size() && m_texts[word][text];
}

bool forEachPassing(const Block& block, const AttributeFilter& filter,
                    const std::function<void(quint32, const BlockRow&)>& visit)
{
    // In documents of snapshots more than rows is searched.
    const bool isOfSnapShots = block.text(block.head().root) == "snapRoot";
    if (!block.isValid() || block.head().needsDom != 0 || (isOfSnapShots && !filter.isEmpty()))
        return false;
    RowFilter rows(filter, block);
    for (quint32 i = 0; i < block.head().rows; ++i) {
        const BlockRow row = block.row(i);
        if (row.folder != NoFolder && rows.passes(row))
            visit(i, row);
    }
    return true;
}

void noteOthers(const Block& block, const Selection& selection)
{
    std::set<std::array<TextId, 3>> known;
    for (quint32 i = 0; i < block.head().rows; ++i) {
        const BlockRow row = block.row(i);
        if (known.insert({row.kind, row.subCategory, row.category}).second)
            selection.noteOthers(toQString(block.text(row.kind)),
                                 toQString(block.text(row.subCategory)),
                                 toQString(block.text(row.category)));
    }
}

} // namespace rvopen::toolkit::catalogue

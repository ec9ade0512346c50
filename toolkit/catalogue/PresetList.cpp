// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PresetList.h"

#include "RowFilter.h"
#include "toolkit/documents/Processors.h"
#include "toolkit/edit/Placement.h"

#include <algorithm>
#include <numeric>

namespace rvopen::toolkit::catalogue {

namespace {

constexpr quint64 s_notAscii = 0x8080808080808080;

/// Presets between the wish for a piece of memory and its use.
constexpr std::size_t s_announced = 8;

/// Eight bytes, zeros behind the end, as a number that is in their order.
quint64 startOf(std::string_view text)
{
    quint64 start = 0;
    for (std::size_t i = 0; i < 8; ++i)
        start = start << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0);
    return start;
}

} // namespace

ListedPreset listedOf(const BlockStore& store, int document, quint32 row)
{
    const Block& block = store.block(document);
    const BlockRow found = block.row(row);
    ListedPreset listed;
    listed.file = store.file(document);
    listed.kind = toQString(block.text(found.kind));
    listed.name = toQString(block.text(found.name));
    listed.refName = toQString(block.text(found.refName));
    listed.category = toQString(block.text(found.category));
    listed.subCategory = toQString(block.text(found.subCategory));
    listed.folder = toQString(foldersOf(block, found));
    listed.path = toQString(pathOf(block, found));
    listed.description = toQString(block.text(found.description));
    return listed;
}

PresetList::PresetList(const BlockStore& store)
    : m_store(store)
{
    for (int i = 0; i < store.count(); ++i)
        m_files.push_back(store.file(i).toStdString());
}

std::vector<bool> PresetList::add(const AttributeFilter& filter)
{
    struct Row {
        quint32 number;
        std::string_view kind;
        std::string_view order;
    };
    struct Found {
        bool isKnown = false;
        std::vector<Row> rows;
    };
    std::vector<Found> documents(std::size_t(m_store.count()));
    m_folderPaths.resize(documents.size());
    forEachPiece(documents.size(), [&](std::size_t i) {
        const Block& block = m_store.block(int(i));
        std::vector<Row>& rows = documents[i].rows;
        std::vector<std::string>& folderPaths = m_folderPaths[i];
        documents[i].isKnown =
            forEachPassing(block, filter, [&](quint32 number, const BlockRow& row) {
                rows.push_back({number, block.text(row.kind), block.caseFoldedText(row.name)});
                folderPaths.resize(std::max<std::size_t>(folderPaths.size(), block.head().folders));
                if (row.folder < folderPaths.size() && folderPaths[row.folder].empty())
                    folderPaths[row.folder] = catalogue::folderPathOf(block, row);
            });
    });
    std::vector<bool> areKnown;
    for (std::size_t i = 0; i < documents.size(); ++i) {
        for (const Row& row : documents[i].rows)
            add(int(i), row.number, row.kind, row.order);
        areKnown.push_back(documents[i].isKnown);
    }
    return areKnown;
}

void PresetList::add(const QString& file, const Preset& preset)
{
    const auto value = [&preset](const char* attribute) {
        return preset.element.attribute(QLatin1String(attribute)).toStdString();
    };
    const std::string kind = preset.element.tagName().toStdString();
    m_built.push_back({file.toStdString(), kind, value("name"), value("refname"), value("cat"),
                       value("subcat"), preset.folder.toStdString(), preset.path.toStdString(),
                       value("desc")});
    const QString name = preset.element.attribute(QStringLiteral("name"));
    add(-int(m_built.size()), 0, kind, name.toCaseFolded().toStdString());
}

void PresetList::sort()
{
    // Kinds are few; their order is found once.
    std::vector<std::size_t> kinds(m_kinds.size());
    std::iota(kinds.begin(), kinds.end(), std::size_t(0));
    std::sort(kinds.begin(), kinds.end(), [this](std::size_t a, std::size_t b) {
        return compared(m_kinds[a], m_kinds[b]) < 0;
    });
    std::vector<std::size_t> places(kinds.size());
    std::vector<std::string> ordered(kinds.size());
    for (std::size_t place = 0; place < kinds.size(); ++place) {
        places[kinds[place]] = place;
        ordered[place] = std::move(m_kinds[kinds[place]]);
    }
    m_kinds = std::move(ordered);
    for (Item& item : m_items)
        item.kind = places[item.kind];
    std::sort(m_items.begin(), m_items.end(),
              [this](const Item& a, const Item& b) { return precedes(a, b); });
}

PresetList::Entry PresetList::entry(std::size_t index) const
{
    return Entry(*this, m_items[index]);
}

void PresetList::announce(std::size_t index) const
{
    const auto itemAt = [this](std::size_t at) {
        return at < m_items.size() && m_items[at].document >= 0 ? &m_items[at] : nullptr;
    };
    // Its row must be there when its texts are asked for.
    if (const Item* const item = itemAt(index + 2 * s_announced))
        m_store.block(item->document).fetchRow(item->row);
    if (const Item* const item = itemAt(index + s_announced)) {
        const Block& block = m_store.block(item->document);
        const BlockRow row = block.row(item->row);
        for (const TextId text : {row.name, row.refName, row.subCategory})
            block.fetchText(text);
    }
}

PresetList::Keys PresetList::keysOf(const Item& item) const
{
    if (item.document < 0) {
        const Built& built = builtOf(item);
        return {built[std::size_t(PresetText::Name)], built[std::size_t(PresetText::RefName)]};
    }
    const Block& block = m_store.block(item.document);
    const BlockRow row = block.row(item.row);
    return {block.text(row.name), block.text(row.refName)};
}

std::string_view PresetList::fileOf(const Item& item) const
{
    return item.document < 0 ? builtOf(item)[std::size_t(PresetText::File)]
                             : m_files[std::size_t(item.document)];
}

std::string_view PresetList::folderPathOf(int document, quint32 folder) const
{
    const std::vector<std::string>& paths = m_folderPaths[std::size_t(document)];
    return folder < paths.size() ? std::string_view(paths[folder]) : std::string_view();
}

std::string_view PresetList::orderOf(const Item& item) const
{
    return std::string_view(m_orders).substr(item.order, item.orderLength);
}

void PresetList::add(int document, quint32 row, std::string_view kind, std::string_view order)
{
    Item item{document, row, 0, startOf(order), m_orders.size(), order.size()};
    item.kind = std::size_t(std::find(m_kinds.begin(), m_kinds.end(), kind) - m_kinds.begin());
    if (item.kind == m_kinds.size())
        m_kinds.emplace_back(kind);
    m_orders += order;
    m_items.push_back(item);
}

bool PresetList::precedes(const Item& a, const Item& b) const
{
    if (a.kind != b.kind)
        return a.kind < b.kind;
    if (a.start != b.start && ((a.start | b.start) & s_notAscii) == 0)
        return a.start < b.start;
    int order = compared(orderOf(a), orderOf(b));
    if (order != 0)
        return order < 0;
    const Keys left = keysOf(a);
    const Keys right = keysOf(b);
    order = compared(left.name, right.name);
    if (order == 0)
        order = compared(left.refName, right.refName);
    return (order != 0 ? order : compared(fileOf(a), fileOf(b))) < 0;
}

PresetList::Entry::Entry(const PresetList& list, const Item& item)
    : m_list(list)
    , m_item(item)
{
    if (item.document < 0)
        return;
    m_block = &list.m_store.block(item.document);
    m_row = m_block->row(item.row);
}

void PresetList::Entry::append(PresetText which, std::string& text) const
{
    if (!m_block) {
        text += m_list.builtOf(m_item)[std::size_t(which)];
        return;
    }
    switch (which) {
    case PresetText::File:
        text += m_list.fileOf(m_item);
        break;
    case PresetText::Kind:
        text += m_block->text(m_row.kind);
        break;
    case PresetText::Name:
        text += m_block->text(m_row.name);
        break;
    case PresetText::RefName:
        text += m_block->text(m_row.refName);
        break;
    case PresetText::Category:
        text += m_block->text(m_row.category);
        break;
    case PresetText::SubCategory:
        text += m_block->text(m_row.subCategory);
        break;
    case PresetText::Folder:
        text += foldersOf(*m_block, m_row);
        break;
    case PresetText::Path:
        appendPath(*m_block, m_row, m_list.folderPathOf(m_item.document, m_row.folder), text);
        break;
    case PresetText::Description:
        text += m_block->text(m_row.description);
        break;
    }
}

} // namespace rvopen::toolkit::catalogue

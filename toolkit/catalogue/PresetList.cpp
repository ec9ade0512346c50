// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PresetList.h"

#include "RowFilter.h"
#include "toolkit/edit/Placement.h"

#include <algorithm>

namespace rvopen::toolkit::catalogue {

namespace {

constexpr quint64 s_notAscii = 0x8080808080808080;

/// Eight bytes, zeros behind the end, as a number that is in their order.
quint64 startOf(std::string_view text)
{
    quint64 start = 0;
    for (std::size_t i = 0; i < 8; ++i)
        start = start << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0);
    return start;
}

ListedPreset shortOf(const Block& block, const BlockRow& row)
{
    ListedPreset listed;
    listed.kind = toQString(block.text(row.kind));
    listed.name = toQString(block.text(row.name));
    listed.refName = toQString(block.text(row.refName));
    listed.subCategory = toQString(block.text(row.subCategory));
    return listed;
}

ListedPreset listedIn(const QString& file, const Block& block, const BlockRow& row,
                      const QString& folderPath)
{
    ListedPreset listed = shortOf(block, row);
    listed.file = file;
    listed.category = toQString(block.text(row.category));
    listed.folder = foldersOf(block, row);
    listed.path = pathOf(block, row, folderPath);
    listed.description = toQString(block.text(row.description));
    return listed;
}

} // namespace

ListedPreset listedOf(const BlockStore& store, int document, quint32 row)
{
    const Block& block = store.block(document);
    const BlockRow found = block.row(row);
    return listedIn(store.file(document), block, found, folderPathOf(block, found));
}

PresetList::PresetList(const BlockStore& store)
    : m_store(store)
{
}

bool PresetList::add(int document, const AttributeFilter& filter)
{
    const Block& block = m_store.block(document);
    std::string lower;
    return forEachPassing(block, filter, [&](quint32 index, const BlockRow& row) {
        append(document, index, block.text(row.kind), block.caseFoldedText(row.name, lower));
    });
}

void PresetList::add(const QString& file, const Preset& preset)
{
    const auto value = [&preset](const char* attribute) {
        return preset.element.attribute(QLatin1String(attribute));
    };
    const ListedPreset listed{
        file,         preset.element.tagName(), value("name"), value("refname"),
        value("cat"), value("subcat"),          preset.folder, preset.path,
        value("desc")};
    m_built.push_back({listed, listed.name.toStdString(), listed.refName.toStdString()});
    append(-int(m_built.size()), 0, listed.kind.toStdString(),
           listed.name.toCaseFolded().toStdString());
}

void PresetList::sort()
{
    std::sort(m_items.begin(), m_items.end(),
              [this](const Item& a, const Item& b) { return precedes(a, b); });
}

ListedPreset PresetList::at(std::size_t index) const
{
    const Item& item = m_items[index];
    if (item.document < 0)
        return builtOf(item).preset;
    const Block& block = m_store.block(item.document);
    const BlockRow row = block.row(item.row);
    QString& folder = m_folders[quint64(item.document) << 32 | row.folder];
    if (folder.isNull())
        folder = folderPathOf(block, row);
    return listedIn(fileOf(item), block, row, folder);
}

ListedPreset PresetList::shortAt(std::size_t index) const
{
    const Item& item = m_items[index];
    if (item.document < 0)
        return builtOf(item).preset;
    const Block& block = m_store.block(item.document);
    return shortOf(block, block.row(item.row));
}

PresetList::Keys PresetList::keysOf(const Item& item) const
{
    if (item.document < 0) {
        const Built& built = builtOf(item);
        return {built.name, built.refName};
    }
    const Block& block = m_store.block(item.document);
    const BlockRow row = block.row(item.row);
    return {block.text(row.name), block.text(row.refName)};
}

QString PresetList::fileOf(const Item& item) const
{
    return item.document < 0 ? builtOf(item).preset.file : m_store.file(item.document);
}

std::string_view PresetList::orderOf(const Item& item) const
{
    return std::string_view(m_orders).substr(item.order, item.orderLength);
}

void PresetList::append(int document, quint32 row, std::string_view kind, std::string_view order)
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
        return compared(m_kinds[a.kind], m_kinds[b.kind]) < 0;
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
    return (order != 0 ? order : QString::compare(fileOf(a), fileOf(b))) < 0;
}

} // namespace rvopen::toolkit::catalogue

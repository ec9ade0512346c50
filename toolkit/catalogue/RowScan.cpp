// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "RowScan.h"

#include "toolkit/images/ReferencedTextures.h"

#include <algorithm>
#include <cstring>

namespace rvopen::toolkit::catalogue {

namespace {

using View = std::u16string_view;

/// Of texts that are short and known, a number or two: the comparison of views takes one character
/// after the other.
template <std::size_t Size>
bool is(View text, const char16_t (&word)[Size])
{
    return text.size() == Size - 1 && std::memcmp(text.data(), word, sizeof word - 2) == 0;
}

bool isParam(View name)
{
    return is(name, u"param");
}

QStringView shown(View text)
{
    return QStringView(text.data(), static_cast<int>(text.size()));
}

} // namespace

bool isInNamespace(View name)
{
    return name.size() > 4 && name[0] == u'x' &&
           (is(name.substr(0, 4), u"xml:") || is(name.substr(0, 6), u"xmlns:"));
}

QByteArray RowScan::blockOf(const QString& path, ReadError& error)
{
    start();
    return ScanFile(path, &error) ? m_block.bytes() : QByteArray();
}

QByteArray RowScan::blockOf(const QDomDocument& document)
{
    start();
    m_isWalk = true;
    const QDomElement root = document.documentElement();
    if (!root.isNull())
        walk(root);
    m_isWalk = false;
    m_block.head.needsDom = 0;
    return root.isNull() ? QByteArray() : m_block.bytes();
}

void RowScan::StartElement(View name, const Attributes& attributes)
{
    ++m_depth;
    if (isInNamespace(name))
        m_block.head.needsDom = 1;
    for (const ScannedAttribute& attribute : attributes) {
        if (isInNamespace(attribute.name))
            m_block.head.needsDom = 1;
    }
    if (m_itemDepth > 0) {
        if (!m_isLeftOut)
            part(name, attributes);
    } else if (m_depth == 1) {
        root(name, attributes);
    } else if (m_depth == 2 || is(name, u"dir")) {
        folder(name, attributes);
    } else {
        m_itemDepth = m_depth;
        m_isLeftOut = isParam(name);
        if (!m_isLeftOut)
            row(name, attributes);
    }
}

void RowScan::EndElement()
{
    if (m_itemDepth == m_depth) {
        if (!m_isLeftOut)
            endRow(m_block.rows.back());
        m_itemDepth = 0;
    } else if (m_itemDepth > 0) {
        if (!m_isLeftOut)
            m_owners.pop_back();
    } else {
        if (m_depth == 2 && m_isCurrent) {
            BlockRow& current = m_block.rows[m_current];
            current.length = endOffset() - current.offset;
            m_isCurrent = false;
        }
        m_shelves.pop_back();
    }
    --m_depth;
}

void RowScan::start()
{
    m_block.clear();
    m_depth = 0;
    m_shelves.clear();
    m_itemDepth = 0;
    m_isCurrent = false;
}

/// Elements nest as deep as reading lets them.
void RowScan::walk(const QDomElement& element)
{
    const auto viewOf = [](const QString& text) {
        return View(reinterpret_cast<const char16_t*>(text.utf16()), std::size_t(text.size()));
    };
    const QDomNamedNodeMap map = element.attributes();
    std::vector<QString> texts;
    texts.reserve(2 * std::size_t(map.count()) + 1);
    texts.push_back(element.tagName());
    // What was scanned of a preset is good as long as the text; here that is the preset's walk.
    Attributes attributes(std::size_t(map.count()));
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const QDomAttr attribute = map.item(int(i)).toAttr();
        texts.push_back(attribute.name());
        attributes[i].name = viewOf(texts.back());
        texts.push_back(attribute.value());
        attributes[i].value = viewOf(texts.back());
    }
    StartElement(viewOf(texts.front()), attributes);
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        walk(child);
    EndElement();
}

quint64 RowScan::offset()
{
    return m_isWalk ? 0 : quint64(Offset());
}

quint64 RowScan::endOffset()
{
    return m_isWalk ? 0 : quint64(EndOffset());
}

void RowScan::root(View name, const Attributes& attributes)
{
    m_block.head.root = add(name);
    for (const ScannedAttribute& attribute : attributes) {
        if (is(attribute.name, u"type"))
            m_block.head.rootType = add(attribute);
    }
    m_block.head.rootOffset = offset();
    m_block.head.rootLength = endOffset() - m_block.head.rootOffset;
    m_shelves.emplace_back();
}

void RowScan::folder(View name, const Attributes& attributes)
{
    // One that is a section is called as parameters are.
    if (isParam(name) || name.find(u':') != View::npos)
        m_block.head.needsDom = 1;
    BlockFolder folder;
    folder.offset = offset();
    folder.length = endOffset() - folder.offset;
    folder.parent = m_shelves.back().folder;
    folder.kind = add(name);
    Named named;
    for (const ScannedAttribute& attribute : attributes) {
        if (!take(attribute, named) && is(attribute.name, u"archiveFilename"))
            folder.archive = add(attribute);
    }
    folder.name = named.name;
    folder.refName = named.refName;
    folder.linkName = named.linkName;
    folder.number = numberOf(m_shelves.back(), folder.kind, named);
    if (m_depth == 2 && is(name, u"snapshot") && m_block.text(m_block.head.root) == "snapRoot") {
        row(name, attributes);
        BlockRow& current = m_block.rows.back();
        current.folder = NoFolder;
        current.number = folder.number;
        m_current = m_block.rows.size() - 1;
        m_isCurrent = true;
        m_owners.clear();
    }
    m_shelves.emplace_back();
    m_shelves.back().folder = static_cast<quint32>(m_block.folders.size());
    m_block.folders.push_back(folder);
}

void RowScan::row(View name, const Attributes& attributes)
{
    // A path that goes on behind a colon leads to a parameter.
    if (name.find(u':') != View::npos)
        m_block.head.needsDom = 1;
    BlockRow row;
    row.offset = offset();
    row.folder = m_shelves.back().folder;
    row.kind = add(name);
    Named named;
    for (const ScannedAttribute& attribute : attributes) {
        if (take(attribute, named))
            continue;
        if (is(attribute.name, u"cat"))
            row.category = add(attribute);
        else if (is(attribute.name, u"subcat"))
            row.subCategory = add(attribute);
        else if (is(attribute.name, u"desc"))
            row.description = add(attribute);
        else if (is(attribute.name, u"imgname"))
            row.thumbnail = add(attribute);
    }
    row.name = named.name;
    row.refName = named.refName;
    row.linkName = named.linkName;
    row.number = row.folder == NoFolder ? 1 : numberOf(m_shelves.back(), row.kind, named);
    m_block.rows.push_back(row);
    m_owners.assign(1, name);
    m_textures.clear();
    m_colours.clear();
    m_numbers.clear();
}

void RowScan::part(View name, const Attributes& attributes)
{
    if (isParam(name))
        param(attributes);
    m_owners.push_back(name);
}

void RowScan::param(const Attributes& attributes)
{
    static const ScannedAttribute none;
    const ScannedAttribute* name = &none;
    const ScannedAttribute* type = &none;
    const ScannedAttribute* value = &none;
    for (const ScannedAttribute& attribute : attributes) {
        if (is(attribute.name, u"name"))
            name = &attribute;
        else if (is(attribute.name, u"type"))
            type = &attribute;
        else if (is(attribute.name, u"val"))
            value = &attribute;
    }
    // What is written with references is none of these words, or not by anybody's habit.
    if (!name->isPlain || !type->isPlain)
        m_block.head.needsDom = 1;
    const View owner = m_owners.back();
    if (is(type->value, u"colour")) {
        const TextId colour = add(*value);
        addOnce(m_colours, colour);
        TextId& plain = m_block.rows.back().plainColour;
        if (plain == 0 && is(owner, u"plainColour"))
            plain = colour;
    } else if (is(type->value, u"float") && is(owner, u"finish")) {
        m_numbers.push_back(add(*name));
        m_numbers.push_back(add(*value));
    }
    if (!value->value.empty() && isTextureParam(shown(owner), shown(name->value)))
        addOnce(m_textures, add(*value));
}

void RowScan::endRow(BlockRow& row)
{
    row.length = endOffset() - row.offset;
    std::vector<TextId>& items = m_block.items;
    row.firstItem = static_cast<quint32>(items.size());
    row.textures = static_cast<quint32>(m_textures.size());
    row.colours = static_cast<quint32>(m_colours.size());
    row.numbers = static_cast<quint32>(m_numbers.size() / 2);
    for (const std::vector<TextId>* const part : {&m_textures, &m_colours, &m_numbers})
        items.insert(items.end(), part->begin(), part->end());
}

bool RowScan::take(const ScannedAttribute& attribute, Named& named)
{
    if (is(attribute.name, u"name"))
        named.name = add(attribute);
    else if (is(attribute.name, u"refname"))
        named.refName = add(attribute);
    else if (is(attribute.name, u"linkname"))
        named.linkName = add(attribute);
    else
        return false;
    return true;
}

quint32 RowScan::numberOf(Shelf& shelf, TextId kind, const Named& named)
{
    return ++shelf.counts[quint64(kind) << 32 | named.identity()];
}

TextId RowScan::add(View text)
{
    m_buffer.resize(text.size());
    char16_t any = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        any = static_cast<char16_t>(any | text[i]);
        m_buffer[i] = static_cast<char>(text[i]);
    }
    return any < 0x80 ? m_block.add(m_buffer) : m_block.add(shown(text).toString().toStdString());
}

TextId RowScan::add(const ScannedAttribute& attribute)
{
    return attribute.isPlain ? add(attribute.value) : m_block.add(attribute.Text().toStdString());
}

void RowScan::addOnce(std::vector<TextId>& items, TextId item)
{
    if (std::find(items.begin(), items.end(), item) == items.end())
        items.push_back(item);
}

} // namespace rvopen::toolkit::catalogue

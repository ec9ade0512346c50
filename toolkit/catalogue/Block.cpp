// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Block.h"

#include "toolkit/documents/Utf8.h"
#include "toolkit/edit/Folding.h"

#include <algorithm>
#include <cstring>

namespace rvopen::toolkit::catalogue {

static_assert(sizeof(BlockHead) == 48 && sizeof(BlockFolder) == 48 && sizeof(BlockRow) == 80,
              "what is stored has no gaps");

namespace {

/// Of the rounds of checksum() and of the places of texts; odd, with bits all over.
constexpr quint64 s_factor = 0x9e3779b97f4a7c15;

/// \name Marks of a text's length: how many other forms of it stand behind it
/// @{
constexpr quint32 s_hasOne = 0x40000000;
constexpr quint32 s_hasTwo = 0x80000000;
constexpr quint32 s_marks = s_hasOne | s_hasTwo;
/// @}

constexpr quint64 s_lengthBytes = sizeof(quint32);

quint64 stirred(quint64 value)
{
    value ^= value >> 32;
    value *= s_factor;
    return value ^ value >> 29;
}

/// Of short texts, in less time than their checksum().
std::size_t hashOf(std::string_view text)
{
    quint64 hash = text.size();
    const auto add = [&hash](quint64 word) {
        hash = (hash ^ word) * s_factor;
        hash ^= hash >> 32;
    };
    quint64 word = 0;
    std::size_t at = 0;
    for (; text.size() - at >= 8; at += 8) {
        std::memcpy(&word, text.data() + at, 8);
        add(word);
    }
    for (word = 0; at < text.size(); ++at)
        word = word << 8 | static_cast<unsigned char>(text[at]);
    add(word);
    return std::size_t(hash);
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isUpperCase(char c)
{
    return c >= 'A' && c <= 'Z';
}

char lowerCase(char c)
{
    return isUpperCase(c) ? static_cast<char>(c | 0x20) : c;
}

/// Looks for a word by that of its letters that is met least: a search for one byte is the quickest
/// there is, and each that it finds costs.
class WordSearch {
public:
    WordSearch(std::string_view text, std::string_view word)
        : m_text(text)
        , m_word(word)
    {
        // Letters of English, most frequent first; all else is rarer, or might as well be.
        const std::string_view frequent = "etaoinshrdlcumwfgypbvkjxqz";
        const auto rank = [frequent](char c) { return frequent.find(c); };
        for (std::size_t i = 1; i < word.size(); ++i) {
            if (rank(word[m_rare]) < rank(word[i]))
                m_rare = i;
        }
    }

    /// Where it begins there or behind; npos where it does not.
    std::size_t next(std::size_t from) const
    {
        std::size_t at = from + m_rare;
        while ((at = m_text.find(m_word[m_rare], at)) != std::string_view::npos) {
            if (m_text.compare(at - m_rare, m_word.size(), m_word) == 0)
                return at - m_rare;
            ++at;
        }
        return at;
    }

private:
    const std::string_view m_text;
    const std::string_view m_word;
    std::size_t m_rare = 0;
};

void fetch(const char* place)
{
#if defined(__GNUC__)
    __builtin_prefetch(place);
#else
    static_cast<void>(place);
#endif
}

template <typename T>
void append(QByteArray& bytes, const T* values, std::size_t count)
{
    bytes.append(reinterpret_cast<const char*>(values), static_cast<int>(count * sizeof(T)));
}

} // namespace

Block::Block(std::string_view bytes)
{
    if (bytes.size() < sizeof(BlockHead))
        return;
    BlockHead head;
    std::memcpy(&head, bytes.data(), sizeof head);
    m_folders = sizeof head;
    m_rows = m_folders + quint64(head.folders) * sizeof(BlockFolder);
    m_items = m_rows + quint64(head.rows) * sizeof(BlockRow);
    m_texts = m_items + quint64(head.items) * sizeof(TextId);
    if (m_texts + head.textBytes != bytes.size())
        return;
    m_head = head;
    m_bytes = bytes;
}

BlockFolder Block::folder(quint32 index) const
{
    BlockFolder folder = read<BlockFolder>(m_folders, index, m_head.folders);
    // Whoever goes up comes to an end.
    if (folder.parent != NoFolder && folder.parent >= index)
        folder.parent = NoFolder;
    return folder;
}

BlockRow Block::row(quint32 index) const
{
    return read<BlockRow>(m_rows, index, m_head.rows);
}

TextId Block::item(quint32 index) const
{
    return read<TextId>(m_items, index, m_head.items);
}

quint32 Block::itemCount(quint64 first, quint64 count) const
{
    return first < m_head.items ? quint32(std::min(count, m_head.items - first)) : 0;
}

std::string_view Block::text(TextId id) const
{
    return textAt(id);
}

std::string_view Block::foldedText(TextId id) const
{
    const Forms forms = formsAt(id);
    return textAt(forms.folded);
}

std::string_view Block::caseFoldedText(TextId id) const
{
    const Forms forms = formsAt(id);
    return textAt(forms.caseFolded);
}

std::vector<bool> Block::textsWith(std::string_view word) const
{
    std::vector<bool> found(m_head.textBytes);
    if (!isValid())
        return found;
    const WordSearch search(m_bytes.substr(m_texts, m_head.textBytes), word);
    quint64 id = 0;
    Forms forms = formsAt(id);
    std::size_t at = search.next(0);
    while (at != std::string_view::npos) {
        while (forms.end <= at) {
            id = forms.end;
            forms = formsAt(id);
        }
        // What is found may stand in another form, or reach over the end of one.
        const quint64 start = forms.folded + s_lengthBytes;
        const bool isThere =
            at >= start && at + word.size() <= start + (lengthAt(forms.folded) & ~s_marks);
        if (isThere)
            found[id] = true;
        at = search.next(isThere ? forms.end : at + 1);
    }
    return found;
}

void Block::fetchRow(quint32 index) const
{
    if (index >= m_head.rows)
        return;
    const char* const row = m_bytes.data() + m_rows + quint64(index) * sizeof(BlockRow);
    fetch(row);
    fetch(row + sizeof(BlockRow) - 1);
}

void Block::fetchText(TextId id) const
{
    if (id < m_head.textBytes)
        fetch(m_bytes.data() + m_texts + id);
}

/// With its marks; 0 beyond the end.
quint32 Block::lengthAt(quint64 place) const
{
    quint32 length = 0;
    if (place + s_lengthBytes <= m_head.textBytes)
        std::memcpy(&length, m_bytes.data() + m_texts + place, s_lengthBytes);
    return length;
}

std::string_view Block::textAt(quint64 place) const
{
    const quint32 length = lengthAt(place) & ~s_marks;
    const quint64 start = place + s_lengthBytes;
    return start > m_head.textBytes || length > m_head.textBytes - start
               ? std::string_view()
               : m_bytes.substr(m_texts + start, length);
}

Block::Forms Block::formsAt(quint64 place) const
{
    const quint32 marks = lengthAt(place) & s_marks;
    const auto behind = [this](quint64 text) {
        return text + s_lengthBytes + (lengthAt(text) & ~s_marks);
    };
    Forms forms{place, place, behind(place)};
    if (marks != 0) {
        forms.folded = forms.caseFolded = forms.end;
        forms.end = behind(forms.folded);
    }
    if (marks == s_hasTwo) {
        forms.caseFolded = forms.end;
        forms.end = behind(forms.caseFolded);
    }
    return forms;
}

template <typename T>
T Block::read(quint64 start, quint32 index, quint32 count) const
{
    T value = T();
    if (index < count)
        std::memcpy(&value, m_bytes.data() + start + quint64(index) * sizeof value, sizeof value);
    return value;
}

BlockWriter::BlockWriter()
    : m_texts(s_lengthBytes, '\0')
    , m_slots(1024, 0)
{
}

void BlockWriter::clear()
{
    head = BlockHead();
    folders.clear();
    rows.clear();
    items.clear();
    m_texts.resize(s_lengthBytes);
    std::fill(m_slots.begin(), m_slots.end(), 0);
    m_used = 0;
}

TextId BlockWriter::add(std::string_view text)
{
    if (text.empty())
        return 0;
    std::size_t slot = slotOf(text);
    if (m_slots[slot] != 0)
        return m_slots[slot];
    if (++m_used * 2 > m_slots.size()) {
        growSlots();
        slot = slotOf(text);
    }
    const TextId id = static_cast<TextId>(m_texts.size());
    m_slots[slot] = id;
    if (isAscii(text)) {
        const bool isLower = std::none_of(text.begin(), text.end(), isUpperCase);
        append(text, isLower ? 0 : s_hasOne);
        if (!isLower) {
            std::string lower(text);
            std::transform(lower.begin(), lower.end(), lower.begin(), lowerCase);
            append(lower, 0);
        }
    } else {
        const QString shown = toQString(text);
        append(text, s_hasTwo);
        append(folded(shown).toStdString(), 0);
        append(shown.toCaseFolded().toStdString(), 0);
    }
    return id;
}

std::string_view BlockWriter::text(TextId id) const
{
    quint32 length = 0;
    std::memcpy(&length, m_texts.data() + id, sizeof length);
    length &= ~s_marks;
    return std::string_view(m_texts).substr(id + sizeof length, length);
}

QByteArray BlockWriter::bytes()
{
    head.rows = static_cast<quint32>(rows.size());
    head.folders = static_cast<quint32>(folders.size());
    head.items = static_cast<quint32>(items.size());
    head.textBytes = static_cast<quint32>(m_texts.size());
    QByteArray bytes;
    bytes.reserve(static_cast<int>(sizeof head + folders.size() * sizeof(BlockFolder) +
                                   rows.size() * sizeof(BlockRow) + items.size() * sizeof(TextId) +
                                   m_texts.size()));
    catalogue::append(bytes, &head, 1);
    catalogue::append(bytes, folders.data(), folders.size());
    catalogue::append(bytes, rows.data(), rows.size());
    catalogue::append(bytes, items.data(), items.size());
    catalogue::append(bytes, m_texts.data(), m_texts.size());
    return bytes;
}

/// That of the text, or the free one where it belongs.
std::size_t BlockWriter::slotOf(std::string_view text) const
{
    std::size_t slot = hashOf(text) & (m_slots.size() - 1);
    while (m_slots[slot] != 0 && this->text(m_slots[slot]) != text)
        slot = (slot + 1) & (m_slots.size() - 1);
    return slot;
}

void BlockWriter::growSlots()
{
    std::vector<TextId> before(m_slots.size() * 4, 0);
    before.swap(m_slots);
    for (const TextId id : before) {
        if (id != 0)
            m_slots[slotOf(text(id))] = id;
    }
}

void BlockWriter::append(std::string_view text, quint32 mark)
{
    const quint32 length = static_cast<quint32>(text.size()) | mark;
    m_texts.append(reinterpret_cast<const char*>(&length), sizeof length);
    m_texts.append(text);
}

QString toQString(std::string_view text)
{
    return fromUtf8(text);
}

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), std::size_t(bytes.size())};
}

int compared(std::string_view a, std::string_view b)
{
    const std::size_t size = std::min(a.size(), b.size());
    std::size_t at = 0;
    while (at + 8 <= size && std::memcmp(a.data() + at, b.data() + at, 8) == 0)
        at += 8;
    while (at < size && a[at] == b[at])
        ++at;
    if (at == size)
        return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
    const auto x = static_cast<unsigned char>(a[at]);
    const auto y = static_cast<unsigned char>(b[at]);
    // The first units of what takes two in UTF-16 come before the last ones of what takes one.
    const bool isOther = x >= 0xee && y >= 0xee && (x >= 0xf0) != (y >= 0xf0);
    return (x < y) != isOther ? -1 : 1;
}

quint64 checksum(std::string_view bytes)
{
    // A step takes each number to a number of its own, so that one difference is never lost.
    quint64 lanes[4] = {1, 2, 3, 4};
    const auto step = [](quint64& lane, const char* at, std::size_t size) {
        quint64 word = 0;
        std::memcpy(&word, at, size);
        lane = (lane ^ word) * s_factor;
        lane ^= lane >> 32;
    };
    const char* at = bytes.data();
    std::size_t left = bytes.size();
    for (; left >= 32; left -= 32, at += 32) {
        for (std::size_t i = 0; i < 4; ++i)
            step(lanes[i], at + 8 * i, 8);
    }
    for (std::size_t i = 0; left > 0; ++i) {
        const std::size_t size = std::min<std::size_t>(left, 8);
        step(lanes[i], at, size);
        at += size;
        left -= size;
    }
    quint64 sum = stirred(bytes.size());
    for (const quint64 lane : lanes)
        sum = stirred(sum ^ lane);
    return sum;
}

} // namespace rvopen::toolkit::catalogue

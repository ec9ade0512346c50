// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "RowSearch.h"

#include "toolkit/edit/Folding.h"
#include "toolkit/edit/TypedText.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace rvopen::toolkit::catalogue {

namespace {

constexpr double s_far = std::numeric_limits<double>::infinity();

bool isInWord(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

/// Whether a word may begin there in a folded text.
bool isWordStart(std::string_view text, std::size_t at)
{
    if (at == 0)
        return true;
    if (static_cast<unsigned char>(text[at - 1]) < 0x80)
        return !isInWord(text[at - 1]);
    const QString before = toQString(text.substr(0, at));
    const QChar last = before.back();
    return !last.isLetterOrNumber() && !last.isMark() && !last.isSurrogate();
}

/// As ToTriple() has it, at once where the text is as nearly all are.
bool toTriple(std::string_view text, float (&triple)[3])
{
    const char* at = text.data();
    const char* const end = at + text.size();
    for (int i = 0; i < 3; ++i) {
        double number = 0;
        const auto [next, problem] = std::from_chars(at, end, number);
        const bool isEnd = next == end;
        if (problem != std::errc() || isEnd != (i == 2) || (!isEnd && *next != ' ') ||
            !std::isfinite(float(number)))
            return ToTriple(toQString(text), triple);
        triple[i] = float(number);
        at = isEnd ? next : next + 1;
    }
    return true;
}

} // namespace

RowSearch::RowSearch(const CatalogueQuery& query)
    : m_kind(folded(query.kind).toStdString())
    , m_category(folded(query.category).toStdString())
    , m_subCategory(folded(query.subCategory).toStdString())
    , m_folder(folded(query.folder).toStdString())
    , m_hasColour(!query.colour.isEmpty())
    , m_within(query.within)
{
    const QStringList words = foldedWords(query.text);
    m_text = words.join(QLatin1Char(' ')).toStdString();
    for (const QString& word : words)
        m_words.push_back(word.toStdString());
    for (const NumberRange& range : query.numbers)
        m_numbers.push_back({folded(range.name).toStdString(), range.least, range.most});
    float colour[3] = {};
    if (m_hasColour && !toColour(query.colour, colour))
        throw Failure(QStringLiteral("\"%1\" is no colour").arg(query.colour));
    m_colour = drawing::labOf(colour);
}

void RowSearch::search(const Block& block, int document, std::vector<RowMatch>& matches)
{
    enter(block);
    for (quint32 i = 0; i < block.head().rows; ++i) {
        const BlockRow row = block.row(i);
        if (row.folder >= m_shelves.size() || !isOfKind(block, row) ||
            !isFolded(block, row.category, m_category) ||
            !isFolded(block, row.subCategory, m_subCategory) ||
            (!m_folder.empty() && !m_shelves[row.folder].isWanted) || !hasWords(block, row) ||
            !std::all_of(m_numbers.begin(), m_numbers.end(),
                         [&](const Range& range) { return hasNumber(block, row, range); }))
            continue;
        const double distance = m_hasColour ? distanceOf(block, row) : 0;
        if (!m_hasColour || distance <= m_within)
            matches.push_back({document, i, rankOf(block, row), distance});
    }
}

void RowSearch::sort(std::vector<RowMatch>& matches)
{
    std::stable_sort(matches.begin(), matches.end(), [](const RowMatch& a, const RowMatch& b) {
        return a.rank != b.rank ? a.rank < b.rank : a.distance < b.distance;
    });
}

double RowSearch::distanceOf(const Block& block, const BlockRow& row)
{
    double nearest = s_far;
    const quint64 first = quint64(row.firstItem) + row.textures;
    const quint32 count = block.itemCount(first, row.colours);
    for (quint32 i = 0; i < count; ++i) {
        const TextId text = block.item(quint32(first) + i);
        const auto [known, isNew] = m_distances.try_emplace(text, s_far);
        float colour[3] = {};
        if (isNew && toTriple(block.text(text), colour))
            known->second = drawing::colourDistance(m_colour, drawing::labOf(colour));
        nearest = std::min(nearest, known->second);
    }
    return nearest;
}

void RowSearch::enter(const Block& block)
{
    m_distances.clear();
    m_shelves.assign(block.head().folders, Shelf());
    for (quint32 i = 0; i < block.head().folders; ++i) {
        const BlockFolder folder = block.folder(i);
        Shelf& shelf = m_shelves[i];
        if (folder.parent == NoFolder) {
            shelf.section = i;
            shelf.words.resize(m_words.size());
            continue;
        }
        shelf = m_shelves[folder.parent];
        const TextId name = identityOf(folder);
        shelf.isWanted = shelf.isWanted || isFolded(block, name, m_folder);
        for (std::size_t word = 0; word < m_words.size(); ++word)
            shelf.words[word] = shelf.words[word] || hasWord(block, name, m_words[word]);
    }
}

bool RowSearch::isOfKind(const Block& block, const BlockRow& row)
{
    return isFolded(block, row.kind, m_kind) ||
           isFolded(block, block.folder(m_shelves[row.folder].section).kind, m_kind);
}

/// Of nothing that is wanted all are.
bool RowSearch::isFolded(const Block& block, TextId text, const std::string& wanted)
{
    return wanted.empty() || block.foldedText(text) == wanted;
}

bool RowSearch::hasWords(const Block& block, const BlockRow& row)
{
    for (std::size_t word = 0; word < m_words.size(); ++word) {
        const auto has = [&](TextId text) { return hasWord(block, text, m_words[word]); };
        if (!m_shelves[row.folder].words[word] && !has(row.name) && !has(row.refName) &&
            !has(row.category) && !has(row.description))
            return false;
    }
    return true;
}

bool RowSearch::hasWord(const Block& block, TextId text, const std::string& word)
{
    const std::string_view all = block.foldedText(text);
    for (std::size_t at = all.find(word); at != std::string_view::npos;
         at = all.find(word, at + 1)) {
        if (isWordStart(all, at))
            return true;
    }
    return false;
}

bool RowSearch::hasNumber(const Block& block, const BlockRow& row, const Range& range)
{
    const quint64 first = quint64(row.firstItem) + row.textures + row.colours;
    // Names and values in turn.
    const quint32 count = block.itemCount(first, 2 * quint64(row.numbers));
    for (quint32 i = 0; i + 1 < count; i += 2) {
        const quint32 at = quint32(first) + i;
        double number = 0;
        if (block.foldedText(block.item(at)) == range.name &&
            ToNumber(toQString(block.text(block.item(at + 1))), number) && number >= range.least &&
            number <= range.most)
            return true;
    }
    return false;
}

int RowSearch::rankOf(const Block& block, const BlockRow& row)
{
    if (m_words.empty())
        return 0;
    const std::string_view name = block.foldedText(row.name);
    if (name.substr(0, m_text.size()) == m_text)
        return name.size() == m_text.size() ? 0 : 1;
    const bool isNamed = std::all_of(m_words.begin(), m_words.end(), [&](const std::string& word) {
        return hasWord(block, row.name, word);
    });
    return isNamed ? 2 : 3;
}

} // namespace rvopen::toolkit::catalogue

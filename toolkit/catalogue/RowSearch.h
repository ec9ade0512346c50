// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Block.h"
#include "toolkit/drawing/ColourDistance.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace rvopen::toolkit::catalogue {

/// A row that was found.
struct RowMatch {
    /// Of the store.
    int document = 0;
    quint32 row = 0;
    /// From 0: how much of the text is in the name.
    int rank = 0;
    /// From the colour that is looked for; 0 without.
    double distance = 0;
};

/// Finds rows of one block after the other.
class RowSearch {
public:
    /// Throws a Failure when the colour of the query is none.
    explicit RowSearch(const CatalogueQuery& query);

    /// Adds those of the block, which is that of the document.
    void search(const Block& block, int document, std::vector<RowMatch>& matches);
    /// The best first, else as they were added.
    static void sort(std::vector<RowMatch>& matches);

    /// How far the nearest colour of the row is; infinite where it has none.
    double distanceOf(const Block& block, const BlockRow& row);

private:
    struct Range {
        std::string name;
        double least;
        double most;
    };
    /// What is said of a folder and of those that it stands in.
    struct Shelf {
        quint32 section = NoFolder;
        bool isWanted = false;
        std::vector<bool> words;
    };

    void enter(const Block& block);
    bool isOfKind(const Block& block, const BlockRow& row);
    bool isFolded(const Block& block, TextId text, const std::string& wanted);
    bool hasWords(const Block& block, const BlockRow& row);
    bool hasWord(const Block& block, TextId text, const std::string& word);
    bool hasNumber(const Block& block, const BlockRow& row, const Range& range);
    int rankOf(const Block& block, const BlockRow& row);

    std::string m_text;
    std::vector<std::string> m_words;
    std::string m_kind;
    std::string m_category;
    std::string m_subCategory;
    std::string m_folder;
    bool m_hasColour = false;
    drawing::Lab m_colour;
    double m_within = 0;
    std::vector<Range> m_numbers;

    /// \name Of the block that is searched
    /// @{
    std::vector<Shelf> m_shelves;
    std::unordered_map<TextId, double> m_distances;
    /// @}
};

} // namespace rvopen::toolkit::catalogue

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Block.h"
#include "BlockStore.h"
#include "toolkit/edit/Selection.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QString>

#include <array>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace rvopen::toolkit {

struct Preset;

namespace catalogue {

/// What a list shows of a row of the store.
ListedPreset listedOf(const BlockStore& store, int document, quint32 row);

/// What there is to know of a preset in a list: what ListedPreset has.
enum class PresetText {
    File,
    Kind,
    Name,
    RefName,
    Category,
    SubCategory,
    Folder,
    Path,
    Description
};

/// Presets of many documents, sorted by kind, name, reference name and file. Holds little more of
/// each than where it is in its block.
class PresetList {
public:
    /// The store has to stay.
    explicit PresetList(const BlockStore& store);

    /// Adds those of the documents of the store that pass. For each of these whether its rows say
    /// which do; none was added otherwise.
    std::vector<bool> add(const AttributeFilter& filter);
    /// Adds one of a document that was built.
    void add(const QString& file, const Preset& preset);
    void sort();

    std::size_t size() const
    {
        return m_items.size();
    }
    class Entry;
    /// To be asked for its texts before the list is added to or sorted; by several threads at once,
    /// where they like.
    Entry entry(std::size_t index) const;
    /// Hears before the preset at \p index is asked for its texts, one after the other: those that
    /// follow lie anywhere in memory, which takes longer than what is done with them.
    void announce(std::size_t index) const;

private:
    struct Item {
        /// Of the store; below 0, -1 first, of those that were built.
        int document = 0;
        quint32 row = 0;
        /// Its place among the kinds, which sort() puts in their order.
        std::size_t kind = 0;
        /// The first bytes of the name that it is sorted by, and where all of it stands.
        quint64 start = 0;
        std::size_t order = 0;
        std::size_t orderLength = 0;
    };
    struct Keys {
        std::string_view name;
        std::string_view refName;
    };
    /// By PresetText.
    using Built = std::array<std::string, 9>;

    const Built& builtOf(const Item& item) const
    {
        return m_built[std::size_t(-1 - item.document)];
    }
    Keys keysOf(const Item& item) const;
    std::string_view fileOf(const Item& item) const;
    std::string_view folderPathOf(int document, quint32 folder) const;
    std::string_view orderOf(const Item& item) const;
    void add(int document, quint32 row, std::string_view kind, std::string_view order);
    bool precedes(const Item& a, const Item& b) const;

    const BlockStore& m_store;
    std::vector<Item> m_items;
    std::deque<Built> m_built;
    /// Paths of the folders of each document of the store; empty where no preset of them is listed.
    std::vector<std::vector<std::string>> m_folderPaths;
    /// Of the documents of the store.
    std::vector<std::string> m_files;
    std::vector<std::string> m_kinds;
    std::string m_orders;
};

/// One preset of a list.
class PresetList::Entry {
public:
    /// Appends it to \p text, in UTF-8.
    void append(PresetText which, std::string& text) const;

private:
    friend class PresetList;
    Entry(const PresetList& list, const Item& item);

    const PresetList& m_list;
    const Item& m_item;
    /// None of one that was built.
    const Block* m_block = nullptr;
    BlockRow m_row;
};

} // namespace catalogue
} // namespace rvopen::toolkit

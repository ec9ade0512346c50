// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Block.h"

#include <rvopen/RVOpenScanner.h>

#include <QByteArray>
#include <QDomDocument>
#include <QDomElement>
#include <QString>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace rvopen::toolkit::catalogue {

/// Whether the name of an element or attribute has the prefix that is always declared, or declares
/// another: what names mean, the DOM knows then.
bool isInNamespace(std::u16string_view name);

/// Makes the block of a document in one pass over its text: what forEachPreset() visits, and the
/// current snapshot.
class RowScan : private XmlScan {
public:
    /// The block; empty where the file is no document, for the reason in \p error.
    QByteArray blockOf(const QString& path, ReadError& error);
    /// The block of a document in memory. Its rows stand nowhere in a file, and what its names mean
    /// is known.
    QByteArray blockOf(const QDomDocument& document);

private:
    using View = std::u16string_view;
    using Attributes = std::vector<ScannedAttribute>;

    struct Shelf {
        quint32 folder = NoFolder;
        /// How many children have that kind and identity.
        std::unordered_map<quint64, quint32> counts;
    };
    /// Of attributes, by which things are called.
    struct Named {
        TextId name = 0;
        TextId refName = 0;
        TextId linkName = 0;
        TextId identity() const
        {
            return name ? name : refName ? refName : linkName;
        }
    };
    void StartElement(View name, const Attributes& attributes) override;
    void EndElement() override;

    void start();
    void walk(const QDomElement& element);
    quint64 offset();
    quint64 endOffset();

    void root(View name, const Attributes& attributes);
    void folder(View name, const Attributes& attributes);
    void row(View name, const Attributes& attributes);
    void part(View name, const Attributes& attributes);
    void param(const Attributes& attributes);
    void endRow(BlockRow& row);

    bool take(const ScannedAttribute& attribute, Named& named);
    quint32 numberOf(Shelf& shelf, TextId kind, const Named& named);
    TextId add(View text);
    TextId add(const ScannedAttribute& attribute);
    static void addOnce(std::vector<TextId>& items, TextId item);

    BlockWriter m_block;
    bool m_isWalk = false;
    int m_depth = 0;
    /// From the root on, down to what is open.
    std::vector<Shelf> m_shelves;
    /// Of the preset that is open, or of what is left out; 0 without.
    int m_itemDepth = 0;
    bool m_isLeftOut = false;
    /// Elements in the preset, with itself.
    std::vector<View> m_owners;
    std::vector<TextId> m_textures;
    std::vector<TextId> m_colours;
    std::vector<TextId> m_numbers;
    /// The row of the section that is a snapshot.
    std::size_t m_current = 0;
    bool m_isCurrent = false;

    std::string m_buffer;
};

} // namespace rvopen::toolkit::catalogue

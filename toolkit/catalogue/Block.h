// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <string>
#include <string_view>
#include <vector>

/// What the catalogue has of one document, in one run of bytes that means the same wherever it
/// lies: in memory, or in a file that is mapped. Texts are UTF-8.
namespace rvopen::toolkit::catalogue {

/// Of a text in a block; 0 is the empty one.
using TextId = quint32;

inline constexpr quint32 NoFolder = 0xffffffff;

/// What a block begins with.
struct BlockHead {
    quint32 rows = 0;
    quint32 folders = 0;
    quint32 items = 0;
    quint32 textBytes = 0;
    /// A prefix is declared: what the names of elements and attributes are to the DOM is more than
    /// what stands there.
    quint32 needsDom = 0;
    TextId root = 0;
    TextId rootType = 0;
    quint32 unused = 0;
    /// The start tag of the root.
    quint64 rootOffset = 0;
    quint64 rootLength = 0;
};

/// A section below the root, or a folder in one.
struct BlockFolder {
    /// The start tag.
    quint64 offset = 0;
    quint64 length = 0;
    /// Of what it stands in, which comes before it; NoFolder for a section.
    quint32 parent = NoFolder;
    /// From 1, among those before it that are called the same.
    quint32 number = 1;
    TextId kind = 0;
    TextId name = 0;
    TextId refName = 0;
    TextId linkName = 0;
    /// The archive that stands there.
    TextId archive = 0;
    quint32 unused = 0;
};

/// A preset, or what stands like one in a document of snapshots.
struct BlockRow {
    quint64 offset = 0;
    quint64 length = 0;
    /// NoFolder for the current snapshot, right below the root.
    quint32 folder = NoFolder;
    quint32 number = 1;
    TextId kind = 0;
    TextId name = 0;
    TextId refName = 0;
    TextId linkName = 0;
    TextId category = 0;
    TextId subCategory = 0;
    TextId description = 0;
    TextId thumbnail = 0;
    /// The first plain colour.
    TextId plainColour = 0;
    /// Items: texts of textures, then those of colours, then names and values of finishes.
    quint32 firstItem = 0;
    quint32 textures = 0;
    quint32 colours = 0;
    quint32 numbers = 0;
    quint32 unused = 0;
};

/// What a folder or a row is called by, as IdentityOf() has it of its element.
template <typename Named>
TextId identityOf(const Named& named)
{
    return named.name ? named.name : named.refName ? named.refName : named.linkName;
}

/// Reads a block. What is asked for beyond its end is empty.
class Block {
public:
    /// Of no document.
    Block() = default;
    /// The bytes have to stay. What is no block is of no document.
    explicit Block(std::string_view bytes);

    bool isValid() const
    {
        return !m_bytes.empty();
    }
    const BlockHead& head() const
    {
        return m_head;
    }
    BlockFolder folder(quint32 index) const;
    BlockRow row(quint32 index) const;
    TextId item(quint32 index) const;
    /// How many of so many items from there on there are.
    quint32 itemCount(quint64 first, quint64 count) const;
    std::string_view text(TextId id) const;
    /// The text as folded() has it.
    std::string_view foldedText(TextId id) const;
    /// The text without regard to the case of letters.
    std::string_view caseFoldedText(TextId id) const;
    /// Of all texts in one go, those in which the word occurs as foldedText() has them; true for
    /// each of their numbers. The word is not empty.
    std::vector<bool> textsWith(std::string_view word) const;

    /// \name Has the processor fetch what is asked for soon
    /// @{
    void fetchRow(quint32 index) const;
    void fetchText(TextId id) const;
    /// @}

private:
    /// Where the forms of a text stand, and where they end.
    struct Forms {
        quint64 folded;
        quint64 caseFolded;
        quint64 end;
    };
    quint32 lengthAt(quint64 place) const;
    std::string_view textAt(quint64 place) const;
    Forms formsAt(quint64 place) const;

    template <typename T>
    T read(quint64 start, quint32 index, quint32 count) const;

    std::string_view m_bytes;
    BlockHead m_head;
    quint64 m_folders = 0;
    quint64 m_rows = 0;
    quint64 m_items = 0;
    quint64 m_texts = 0;
};

/// Makes the bytes of a block.
class BlockWriter {
public:
    BlockWriter();
    /// For the next document; what was taken from the system is kept.
    void clear();

    BlockHead head;
    std::vector<BlockFolder> folders;
    std::vector<BlockRow> rows;
    std::vector<TextId> items;

    TextId add(std::string_view text);
    std::string_view text(TextId id) const;

    QByteArray bytes();

private:
    std::size_t slotOf(std::string_view text) const;
    void growSlots();
    void append(std::string_view text, quint32 mark);

    /// Each with its length before it. One that is not what it is folded to is marked: behind it
    /// stands that, and then how its case is folded, if that is something else again.
    std::string m_texts;
    /// Where texts stand, by what they are.
    std::vector<TextId> m_slots;
    std::size_t m_used = 0;
};

QString toQString(std::string_view text);
std::string_view viewOf(const QByteArray& bytes);

/// As QString::compare() orders them.
int compared(std::string_view a, std::string_view b);

/// A number that is another one where a byte is another one.
quint64 checksum(std::string_view bytes);

} // namespace rvopen::toolkit::catalogue

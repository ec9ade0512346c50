// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SmallDocument.h"

#include "BlockStore.h"
#include "toolkit/edit/Placement.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Document.h>

#include <QFile>

#include <algorithm>
#include <memory>
#include <vector>

namespace rvopen::toolkit::catalogue {

namespace {

/// What stands before the root is taken along, as far as it is no longer.
constexpr quint64 s_longestProlog = 64 * 1024;

/// Presets that are more of a file than one in so many bytes are read with all of it.
constexpr qint64 s_leastGain = 2;

/// Empty where they are not all there.
QByteArray bytesAt(QFile& file, quint64 offset, quint64 length)
{
    if (offset > quint64(file.size()) || length > quint64(file.size()) - offset ||
        !file.seek(qint64(offset)))
        return QByteArray();
    const QByteArray bytes = file.read(qint64(length));
    return quint64(bytes.size()) == length ? bytes : QByteArray();
}

/// Whether the text that begins so is UTF-8: all others begin with a mark.
bool isUtf8(const QByteArray& prolog)
{
    return prolog.isEmpty() || !QByteArray("\0\xfe\xff", 3).contains(prolog[0]);
}

/// The end of what begins with that tag; empty where it is no such tag.
QByteArray endTagOf(const QByteArray& tag)
{
    if (tag.size() < 3 || !tag.startsWith('<') || !tag.endsWith('>') || tag.endsWith("/>"))
        return QByteArray();
    int length = 1;
    while (!QByteArrayLiteral(" \t\r\n>").contains(tag[length]))
        ++length;
    return "</" + tag.mid(1, length - 1) + '>';
}

/// What is read of a file: the start tag of a folder, or all of a preset.
struct Piece {
    quint64 offset = 0;
    quint64 length = 0;
    quint32 parent = NoFolder;
    /// The folder that begins; NoFolder for a preset.
    quint32 folder = NoFolder;
    TextId kind = 0;
    TextId name = 0;
    TextId refName = 0;
    TextId linkName = 0;
};

template <typename Named>
Piece pieceOf(const Named& named, quint32 parent, quint32 folder)
{
    return {named.offset, named.length, parent,        folder,
            named.kind,   named.name,   named.refName, named.linkName};
}

/// The rows with the folders that they stand in, in the order of the file.
std::vector<Piece> piecesOf(const Block& block, const std::vector<BlockRow>& rows,
                            Sections sections)
{
    std::vector<Piece> pieces;
    std::vector<bool> isWanted(block.head().folders);
    for (const BlockRow& row : rows) {
        pieces.push_back(pieceOf(row, row.folder, NoFolder));
        for (quint32 at = row.folder; at < isWanted.size() && !isWanted[at];
             at = block.folder(at).parent)
            isWanted[at] = true;
    }
    for (quint32 i = 0; i < isWanted.size(); ++i) {
        const BlockFolder folder = block.folder(i);
        if (isWanted[i] || (sections == Sections::All && folder.parent == NoFolder))
            pieces.push_back(pieceOf(folder, folder.parent, i));
    }
    std::sort(pieces.begin(), pieces.end(),
              [](const Piece& a, const Piece& b) { return a.offset < b.offset; });
    return pieces;
}

/// Puts a text together of what stands in a file.
class PartText {
public:
    explicit PartText(QFile& file)
        : m_file(file)
    {
    }

    /// False where there is no such thing.
    bool begin(const BlockHead& head)
    {
        m_text = m_file.read(qint64(head.rootOffset));
        if (m_text.startsWith("\xef\xbb\xbf"))
            m_text.remove(0, 3);
        return isUtf8(m_text) && beginFolder(head.rootOffset, head.rootLength, NoFolder);
    }

    bool add(const Piece& piece)
    {
        while (m_open.size() > 1 && m_open.back().folder != piece.parent)
            endFolder();
        if (m_open.empty() || m_open.back().folder != piece.parent)
            return false;
        if (piece.folder != NoFolder)
            return beginFolder(piece.offset, piece.length, piece.folder);
        const QByteArray bytes = bytesAt(m_file, piece.offset, piece.length);
        m_text += bytes;
        return bytes.startsWith('<') && bytes.endsWith('>');
    }

    QByteArray finished()
    {
        while (!m_open.empty())
            endFolder();
        return m_text;
    }

private:
    struct Open {
        quint32 folder;
        QByteArray end;
    };

    bool beginFolder(quint64 offset, quint64 length, quint32 folder)
    {
        const QByteArray tag = bytesAt(m_file, offset, length);
        m_text += tag;
        if (tag.startsWith('<') && tag.endsWith("/>"))
            return true;
        m_open.push_back({folder, endTagOf(tag)});
        return !m_open.back().end.isEmpty();
    }

    void endFolder()
    {
        m_text += m_open.back().end;
        m_open.pop_back();
    }

    QFile& m_file;
    QByteArray m_text;
    std::vector<Open> m_open;
};

/// Goes through the elements of a part as its pieces say that they stand there.
class PartWalk {
public:
    PartWalk(const Block& block, const QDomElement& root)
        : m_block(block)
        , m_open{{NoFolder, root, QDomElement()}}
    {
    }

    /// The element of the next piece; null where something else stands there.
    QDomElement next(const Piece& piece)
    {
        while (m_open.back().folder != piece.parent) {
            if (m_open.size() == 1 || !m_open.back().next().isNull())
                return QDomElement();
            m_open.pop_back();
        }
        const QDomElement element = m_open.back().next();
        if (!isCalled(element, piece))
            return QDomElement();
        m_open.back().last = element;
        if (piece.folder != NoFolder)
            m_open.push_back({piece.folder, element, QDomElement()});
        return element;
    }

    /// Whether there was nothing else.
    bool isAtEnd() const
    {
        return std::all_of(m_open.begin(), m_open.end(),
                           [](const Open& open) { return open.next().isNull(); });
    }

private:
    struct Open {
        quint32 folder;
        QDomElement element;
        /// The child that was met last.
        QDomElement last;

        QDomElement next() const
        {
            return last.isNull() ? element.firstChildElement() : last.nextSiblingElement();
        }
    };

    bool isCalled(const QDomElement& element, const Piece& piece) const
    {
        return element.tagName() == textOf(piece.kind) &&
               element.attribute(QStringLiteral("name")) == textOf(piece.name) &&
               element.attribute(QStringLiteral("refname")) == textOf(piece.refName) &&
               element.attribute(QStringLiteral("linkname")) == textOf(piece.linkName);
    }

    QString textOf(TextId id) const
    {
        return toQString(m_block.text(id));
    }

    const Block& m_block;
    std::vector<Open> m_open;
};

} // namespace

OpenPart openPart(const QString& path, const FileState& state, const Block& block,
                  const std::vector<BlockRow>& rows, Sections sections)
{
    const BlockHead& head = block.head();
    const QByteArray name = QFile::encodeName(PathToOpen(path));
    QFile file(PathToOpen(path));
    FileState now;
    // Places are jumped to, and read once.
    if (!block.isValid() || head.needsDom != 0 || head.rootOffset > s_longestProlog ||
        std::any_of(rows.begin(), rows.end(),
                    [](const BlockRow& row) { return row.folder == NoFolder; }) ||
        !findState(name, now) || now != state ||
        !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return OpenPart();
    const std::vector<Piece> pieces = piecesOf(block, rows, sections);
    PartText text(file);
    if (!text.begin(head) || !std::all_of(pieces.begin(), pieces.end(),
                                          [&text](const Piece& piece) { return text.add(piece); }))
        return OpenPart();
    if (!findState(name, now) || now != state)
        return OpenPart();
    const std::unique_ptr<QDomDocument> dom(ParseXmlDocument(QString::fromUtf8(text.finished())));
    if (!dom || dom->documentElement().tagName() != toQString(block.text(head.root)))
        return OpenPart();
    OpenPart part{*dom, {}};
    PartWalk walk(block, dom->documentElement());
    for (const Piece& piece : pieces) {
        const QDomElement element = walk.next(piece);
        if (element.isNull())
            return OpenPart();
        if (piece.folder == NoFolder)
            part.presets.append(element);
    }
    return walk.isAtEnd() ? part : OpenPart();
}

OpenPreset openThere(const QString& file, const FileState& state, const Block& block,
                     const BlockRow& row)
{
    const OpenPart part = openPart(file, state, block, {row}, Sections::Needed);
    return part.presets.isEmpty() ? OpenPreset() : OpenPreset{part.dom, part.presets[0], {}};
}

OpenPreset openWhole(const QString& file, const QString& path)
{
    OpenPreset opened;
    const std::unique_ptr<Document> document = Document::Read(file, opened.error);
    if (!document)
        return opened;
    forEachPreset(document->Root(), [&](const Preset& preset) {
        if (preset.path == path)
            opened.element = preset.element;
    });
    if (opened.element.isNull())
        opened.error.message = QStringLiteral("There is no preset \"%1\" any more").arg(path);
    else
        opened.dom = document->Dom();
    return opened;
}

std::unique_ptr<Document> documentOfRows(const QString& file, const FileState& state,
                                         const Block& block, const std::vector<BlockRow>& rows)
{
    quint64 length = 0;
    for (const BlockRow& row : rows)
        length += row.length;
    // All sections come along, and count each other.
    const bool hasSamePaths = std::all_of(rows.begin(), rows.end(), [&block](const BlockRow& row) {
        const std::vector<BlockFolder> folders = foldersAbove(block, row);
        return row.number == 1 && std::all_of(folders.begin(), folders.end(), [](const auto& each) {
                   return each.parent == NoFolder || each.number == 1;
               });
    });
    if (!hasSamePaths || qint64(length) > state.size / s_leastGain)
        return nullptr;
    const OpenPart part = openPart(file, state, block, rows, Sections::All);
    return part.dom.isNull() ? nullptr : Document::Of(file, part.dom);
}

} // namespace rvopen::toolkit::catalogue

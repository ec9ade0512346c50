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

/// An element that has no sibling, and is called this.
bool isAlone(const QDomElement& element, const QString& kind)
{
    return element.tagName() == kind && element.nextSiblingElement().isNull();
}

template <typename Named>
bool isCalled(const QDomElement& element, const Block& block, const Named& named)
{
    return isAlone(element, toQString(block.text(named.kind))) &&
           element.attribute(QStringLiteral("name")) == toQString(block.text(named.name)) &&
           element.attribute(QStringLiteral("refname")) == toQString(block.text(named.refName)) &&
           element.attribute(QStringLiteral("linkname")) == toQString(block.text(named.linkName));
}

/// Start tags of a file with their ends, and one element between them.
class Part {
public:
    Part(const QString& path, const FileState& state, const Block& block)
        : m_file(PathToOpen(path))
        , m_name(QFile::encodeName(PathToOpen(path)))
        , m_state(state)
        , m_block(block)
    {
    }

    /// With what stands before the root, and its tag. False where they cannot be taken.
    bool begin()
    {
        const BlockHead& head = m_block.head();
        if (!m_block.isValid() || head.needsDom != 0 || head.rootOffset > s_longestProlog ||
            !isInState() || !m_file.open(QIODevice::ReadOnly))
            return false;
        m_text = m_file.read(qint64(head.rootOffset));
        if (m_text.startsWith("\xef\xbb\xbf"))
            m_text.remove(0, 3);
        return isUtf8(m_text) && begin(head.rootOffset, head.rootLength);
    }

    bool begin(quint64 offset, quint64 length)
    {
        const QByteArray tag = bytesAt(m_file, offset, length);
        const QByteArray end = endTagOf(tag);
        m_text += tag;
        m_ends.prepend(end);
        return !end.isEmpty();
    }

    /// Null where no element stands there.
    std::unique_ptr<QDomDocument> around(quint64 offset, quint64 length)
    {
        const QByteArray bytes = bytesAt(m_file, offset, length);
        if (!bytes.startsWith('<') || !bytes.endsWith('>'))
            return nullptr;
        m_text += bytes;
        return around();
    }

    /// Without an element.
    std::unique_ptr<QDomDocument> around() const
    {
        if (!isInState())
            return nullptr;
        return std::unique_ptr<QDomDocument>(ParseXmlDocument(QString::fromUtf8(m_text + m_ends)));
    }

private:
    bool isInState() const
    {
        FileState now;
        return findState(m_name, now) && now == m_state;
    }

    QFile m_file;
    QByteArray m_name;
    const FileState& m_state;
    const Block& m_block;
    QByteArray m_text;
    QByteArray m_ends;
};

} // namespace

OpenPreset openThere(const QString& path, const FileState& state, const Block& block,
                     const BlockRow& row)
{
    Part part(path, state, block);
    if (row.folder == NoFolder || !part.begin())
        return OpenPreset();
    const std::vector<BlockFolder> folders = foldersAbove(block, row);
    if (!std::all_of(folders.begin(), folders.end(), [&part](const BlockFolder& folder) {
            return part.begin(folder.offset, folder.length);
        }))
        return OpenPreset();
    const std::unique_ptr<QDomDocument> dom = part.around(row.offset, row.length);
    if (!dom)
        return OpenPreset();
    QDomElement element = dom->documentElement();
    bool isRight = isAlone(element, toQString(block.text(block.head().root)));
    for (const BlockFolder& folder : folders) {
        element = element.firstChildElement();
        isRight = isRight && isCalled(element, block, folder);
    }
    element = element.firstChildElement();
    if (!isRight || !isCalled(element, block, row))
        return OpenPreset();
    return {*dom, element, ReadError()};
}

QDomDocument openRoot(const QString& path, const FileState& state, const Block& block)
{
    Part part(path, state, block);
    if (!part.begin())
        return QDomDocument();
    const std::unique_ptr<QDomDocument> dom = part.around();
    const bool isRight =
        dom && isAlone(dom->documentElement(), toQString(block.text(block.head().root)));
    return isRight ? *dom : QDomDocument();
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

} // namespace rvopen::toolkit::catalogue

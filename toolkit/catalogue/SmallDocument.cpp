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

} // namespace

OpenPreset openThere(const QString& path, const FileState& state, const Block& block,
                     const BlockRow& row)
{
    const BlockHead& head = block.head();
    const QByteArray name = QFile::encodeName(PathToOpen(path));
    QFile file(PathToOpen(path));
    FileState now;
    if (!block.isValid() || head.needsDom != 0 || row.folder == NoFolder ||
        head.rootOffset > s_longestProlog || !findState(name, now) || now != state ||
        !file.open(QIODevice::ReadOnly))
        return OpenPreset();
    const std::vector<BlockFolder> folders = foldersAbove(block, row);
    QByteArray prolog = file.read(qint64(head.rootOffset));
    if (prolog.startsWith("\xef\xbb\xbf"))
        prolog.remove(0, 3);
    if (!isUtf8(prolog))
        return OpenPreset();
    QByteArray text = prolog;
    QByteArray ends;
    const auto begin = [&](quint64 offset, quint64 length) {
        const QByteArray tag = bytesAt(file, offset, length);
        const QByteArray end = endTagOf(tag);
        text += tag;
        ends.prepend(end);
        return !end.isEmpty();
    };
    if (!begin(head.rootOffset, head.rootLength) ||
        !std::all_of(folders.begin(), folders.end(), [&begin](const BlockFolder& folder) {
            return begin(folder.offset, folder.length);
        }))
        return OpenPreset();
    const QByteArray bytes = bytesAt(file, row.offset, row.length);
    if (!bytes.startsWith('<') || !bytes.endsWith('>') || !findState(name, now) || now != state)
        return OpenPreset();
    const std::unique_ptr<QDomDocument> dom(
        ParseXmlDocument(QString::fromUtf8(text + bytes + ends)));
    if (!dom)
        return OpenPreset();
    QDomElement element = dom->documentElement();
    bool isRight = isAlone(element, toQString(block.text(head.root)));
    for (const BlockFolder& folder : folders) {
        element = element.firstChildElement();
        isRight = isRight && isCalled(element, block, folder);
    }
    element = element.firstChildElement();
    if (!isRight || !isCalled(element, block, row))
        return OpenPreset();
    return {*dom, element, ReadError()};
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

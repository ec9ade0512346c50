// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FuzzSupport.h"
#include "toolkit/catalogue/BlockStore.h"
#include "toolkit/catalogue/IndexFile.h"
#include "toolkit/catalogue/RowFilter.h"
#include "toolkit/catalogue/RowScan.h"
#include "toolkit/catalogue/RowSearch.h"
#include "toolkit/catalogue/SmallDocument.h"
#include "toolkit/edit/Placement.h"

#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenWriter.h>

#include <QDomDocument>
#include <QFile>
#include <QStringList>

#include <cstring>
#include <memory>
#include <vector>

/// Any bytes as a document, of which the rows are those of its DOM, and as a block and an index,
/// which are read without harm whatever they say.
namespace rvopen::fuzz {

namespace {

using namespace toolkit;
using namespace toolkit::catalogue;

/// Bytes of the head of an index and of one of its records.
constexpr int s_indexHead = 32;
constexpr int s_indexRecord = 80;

QString file(const char* name)
{
    return scratch() + QLatin1Char('/') + QLatin1String(name);
}

QStringList pathsOf(const Block& block)
{
    QStringList paths;
    for (quint32 i = 0; i < block.head().rows; ++i) {
        const BlockRow row = block.row(i);
        if (row.folder != NoFolder)
            paths << toQString(pathOf(block, row)) + QLatin1Char(' ') +
                         toQString(foldersOf(block, row)) + QLatin1Char(' ') +
                         toQString(block.text(row.name)) + QLatin1Char(' ') +
                         toQString(block.text(row.description));
    }
    return paths;
}

QString textOf(const QDomElement& element)
{
    QDomDocument document;
    document.appendChild(document.importNode(element, true));
    return XmlText(document, ArchiveFileIndent);
}

/// What is opened alone is what it is in the whole.
void opened(const QString& path, const Block& block, const QDomElement& root)
{
    std::vector<QDomElement> whole;
    forEachPreset(root, [&whole](const Preset& preset) { whole.push_back(preset.element); });
    FileState state;
    require(findState(QFile::encodeName(path), state), "the file is there");
    const quint32 few = 4;
    for (quint32 i = 0, at = 0; i < block.head().rows && at < few; ++i) {
        const BlockRow row = block.row(i);
        if (row.folder == NoFolder)
            continue;
        const OpenPreset preset = openThere(path, state, block, row);
        if (preset)
            requireEqual(textOf(preset.element), textOf(whole[at]),
                         "a preset is alone what it is in the whole");
        ++at;
    }
}

void asDocument(const QByteArray& bytes)
{
    const QString path = file("input.rvx");
    writeFile(path, bytes);
    ReadError read;
    const std::unique_ptr<QDomDocument> document(ReadXmlDocument(path, &read));
    ReadError scanned;
    const QByteArray made = RowScan().blockOf(path, scanned);
    require(made.isEmpty() == (document == nullptr), "scan and loader take the same documents");
    require(scanned.message == read.message && scanned.line == read.line &&
                scanned.column == read.column,
            "scan and loader refuse for the same reason in the same place",
            [&scanned] { return scanned.message; });
    const Block block(viewOf(made));
    if (!document || block.head().needsDom != 0)
        return;
    QStringList paths;
    forEachPreset(document->documentElement(), [&paths](const Preset& preset) {
        const auto value = [&preset](const char* name) {
            return preset.element.attribute(QLatin1String(name));
        };
        paths << preset.path + QLatin1Char(' ') + preset.folder + QLatin1Char(' ') + value("name") +
                     QLatin1Char(' ') + value("desc");
    });
    requireEqual(pathsOf(block).join(QLatin1Char('\n')), paths.join(QLatin1Char('\n')),
                 "the rows are those of the document");
    for (quint32 i = 0; i < block.head().rows; ++i) {
        const BlockRow row = block.row(i);
        require(row.length > 0 && row.offset + row.length <= quint64(bytes.size()),
                "each row lies in the file");
    }
    // Declarations are written where they are needed, which is elsewhere in a part.
    if (!bytes.contains("xmlns"))
        opened(path, block, document->documentElement());
}

void asBlock(const QByteArray& bytes)
{
    const Block block(viewOf(bytes));
    AttributeFilter filter;
    filter.type = QStringLiteral("material");
    filter.words = QStringList{QStringLiteral("a")};
    const quint32 few = 64;
    if (block.head().folders > few || block.head().rows > few)
        return;
    RowFilter rows(filter, block);
    for (quint32 i = 0; i < block.head().rows; ++i)
        rows.passes(block.row(i));
    CatalogueQuery query;
    query.text = QStringLiteral("a");
    query.colour = QStringLiteral("1 0 0");
    query.numbers.append({QStringLiteral("roughness"), 0, 1});
    std::vector<RowMatch> matches;
    RowSearch(query).search(block, 0, matches);
    pathsOf(block);
}

/// What is behind the checksum of an index, whatever it says of itself.
void asIndex(const QByteArray& bytes)
{
    const QString name = file("index");
    QFile::remove(name);
    IndexFile::write(name, {});
    const QByteArray good = readFile(name);
    require(good.size() >= s_indexHead, "an index can be written");
    QByteArray index = bytes;
    if (index.size() >= s_indexHead) {
        index.replace(0, 16, good.left(16));
        quint32 counts[2] = {};
        std::memcpy(counts, index.constData() + 16, sizeof counts);
        const quint64 listed = quint64(counts[0]) * s_indexRecord + counts[1];
        if (listed <= quint64(index.size() - s_indexHead)) {
            const quint64 sum =
                checksum(viewOf(index).substr(std::size_t(s_indexHead), std::size_t(listed)));
            index.replace(24, int(sizeof sum),
                          QByteArray(reinterpret_cast<const char*>(&sum), int(sizeof sum)));
        }
    }
    writeFile(name, index);
    QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner);
    const IndexFile read(name);
    for (const IndexFile::Entry& entry : read.entries())
        asBlock(QByteArray(entry.block.data(), int(entry.block.size())));
}

} // namespace

} // namespace rvopen::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace rvopen::fuzz;
    prepare();
    const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
    asDocument(bytes);
    asBlock(bytes);
    asIndex(bytes);
    return 0;
}

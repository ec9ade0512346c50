// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include "BlockStore.h"
#include "PresetList.h"
#include "RowScan.h"
#include "RowSearch.h"
#include "SmallDocument.h"
#include "toolkit/documents/Processors.h"
#include "toolkit/edit/Labels.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <QHash>
#include <QSet>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rvopen::toolkit {

using catalogue::Block;
using catalogue::BlockRow;
using catalogue::BlockStore;
using catalogue::NoFolder;
using catalogue::RowMatch;
using catalogue::RowSearch;

namespace {

/// The row of that path below the root; nothing where there is none.
std::optional<quint32> findRow(const Block& block, const std::string& path)
{
    const bool hasEscapes = path.find('\\') != std::string::npos;
    for (quint32 i = 0; i < block.head().rows; ++i) {
        const BlockRow row = block.row(i);
        if (row.folder == NoFolder)
            continue;
        // Paths are only made of what may have this one: without escapes and number it ends with
        // what the row is called.
        const std::string_view name = block.text(catalogue::identityOf(row));
        const bool isEnd = path.size() > name.size() &&
                           path.compare(path.size() - 1 - name.size(), name.size(), name) == 0;
        if ((isEnd || hasEscapes || name.empty() || row.number != 1) &&
            catalogue::pathOf(block, row) == path)
            return i;
    }
    return std::nullopt;
}

bool isSection(const QDomElement& element)
{
    return element.parentNode().parentNode().isDocument();
}

/// A section below the root, or a folder in one.
bool isListShelf(QDomElement element)
{
    while (element.tagName() == QLatin1String("dir") && !isSection(element))
        element = element.parentNode().toElement();
    return !element.isNull() && isSection(element);
}

void addPresets(const QDomElement& shelf, QVector<QDomElement>& presets)
{
    for (QDomElement child = shelf.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() == QLatin1String("dir"))
            addPresets(child, presets);
        else if (!isParam(child))
            presets.append(child);
    }
}

} // namespace

class RVOPEN_TOOLKIT_NO_EXPORT Catalogue::Store {
public:
    explicit Store(BlockStore read)
        : blocks(std::move(read))
    {
        starts.reserve(std::size_t(blocks.count()) + 1);
        currents.reserve(std::size_t(blocks.count()));
        int start = 0;
        for (int i = 0; i < blocks.count(); ++i) {
            starts.push_back(start);
            currents.push_back(NoFolder);
            const Block& block = blocks.block(i);
            if (block.head().needsDom != 0)
                continue;
            start += int(block.head().rows);
            if (block.text(block.head().root) != "snapRoot")
                continue;
            for (quint32 row = 0; row < block.head().rows && currents.back() == NoFolder; ++row) {
                if (block.row(row).folder != NoFolder)
                    continue;
                currents.back() = row;
                --start;
            }
        }
        starts.push_back(start);
    }

    int placeOf(const RowMatch& match) const
    {
        const auto document = std::size_t(match.document);
        return starts[document] + int(match.row) - (match.row > currents[document] ? 1 : 0);
    }

    ListedPreset at(int place) const
    {
        if (place < 0 || place >= starts.back())
            return {};
        const auto after = std::upper_bound(starts.begin(), starts.end(), place);
        const auto document = std::size_t(after - starts.begin() - 1);
        auto row = quint32(place - starts[document]);
        if (row >= currents[document])
            ++row;
        return catalogue::listedOf(blocks, int(document), row);
    }

    /// The best first.
    std::vector<RowMatch> matches(const CatalogueQuery& query) const
    {
        const RowSearch prepared(query);
        const std::vector<Among> among = searchedOf(query);
        std::vector<std::vector<RowMatch>> found(std::size_t(blocks.count()));
        onAllProcessors(found.size(), [&](NextPiece& next, bool) {
            RowSearch search = prepared;
            for (std::size_t i; (i = next++) < found.size();) {
                const Block& block = blocks.block(int(i));
                if (block.head().needsDom != 0 || !among[i].isSearched)
                    continue;
                search.search(block, int(i), found[i]);
                if (!query.presets.isEmpty())
                    keepOnly(among[i].paths, block, found[i]);
            }
        });
        std::vector<RowMatch> all;
        for (const std::vector<RowMatch>& of : found)
            all.insert(all.end(), of.begin(), of.end());
        RowSearch::sort(all);
        return all;
    }

    /// What of a document is looked at.
    struct Among {
        bool isSearched = true;
        std::vector<std::string> paths; ///< Where only some presets are meant.
    };

    std::vector<Among> searchedOf(const CatalogueQuery& query) const
    {
        std::vector<Among> among(std::size_t(blocks.count()));
        if (query.files.isEmpty() && query.presets.isEmpty())
            return among;
        const QSet<QString> files(query.files.begin(), query.files.end());
        QHash<QString, std::vector<std::string>> paths;
        for (const PresetPlace& place : query.presets)
            paths[place.file].push_back(place.path.toStdString());
        for (std::size_t i = 0; i < among.size(); ++i) {
            const QString file = blocks.file(int(i));
            among[i].paths = paths.value(file);
            among[i].isSearched = (files.isEmpty() || files.contains(file)) &&
                                  (query.presets.isEmpty() || !among[i].paths.empty());
        }
        return among;
    }

    static void keepOnly(const std::vector<std::string>& paths, const Block& block,
                         std::vector<RowMatch>& matches)
    {
        std::vector<quint32> rows;
        for (const std::string& path : paths) {
            if (const std::optional<quint32> row = findRow(block, path))
                rows.push_back(*row);
        }
        std::sort(rows.begin(), rows.end());
        matches.erase(std::remove_if(matches.begin(), matches.end(),
                                     [&rows](const RowMatch& match) {
                                         return !std::binary_search(rows.begin(), rows.end(),
                                                                    match.row);
                                     }),
                      matches.end());
    }

    BlockStore blocks;
    /// At which place those of each document start; behind the last, how many there are.
    std::vector<int> starts;
    /// Of each document the row of the current snapshot, which is no preset; NoFolder without.
    std::vector<quint32> currents;
};

struct RVOPEN_TOOLKIT_NO_EXPORT CatalogueMatches::Found {
    std::shared_ptr<const Catalogue::Store> store;
    std::vector<RowMatch> rows;
};

CatalogueMatches::CatalogueMatches() = default;

CatalogueMatches::~CatalogueMatches() = default;

CatalogueMatches::CatalogueMatches(const CatalogueMatches& other) = default;

CatalogueMatches& CatalogueMatches::operator=(const CatalogueMatches& other) = default;

int CatalogueMatches::Count() const
{
    return m_found ? int(m_found->rows.size()) : 0;
}

ListedPreset CatalogueMatches::At(int index) const
{
    if (index < 0 || index >= Count())
        return {};
    const RowMatch& match = m_found->rows[std::size_t(index)];
    return catalogue::listedOf(m_found->store->blocks, match.document, match.row);
}

int CatalogueMatches::Place(int index) const
{
    return index < 0 || index >= Count()
               ? -1
               : m_found->store->placeOf(m_found->rows[std::size_t(index)]);
}

Catalogue::Catalogue(const QStringList& files)
    : m_store(std::make_shared<const Store>(BlockStore(files)))
{
}

Catalogue::~Catalogue() = default;

QVector<ReadError> Catalogue::Problems() const
{
    QVector<ReadError> problems;
    const BlockStore& blocks = m_store->blocks;
    for (int i = 0; i < blocks.count(); ++i) {
        const Block& block = blocks.block(i);
        ReadError problem = blocks.error(i);
        if (problem.message.isEmpty() && !block.isValid())
            problem.message = QStringLiteral("This is no file that can be read");
        else if (block.head().needsDom != 0)
            problem.message = QStringLiteral("The document has names of another namespace");
        problem.file = blocks.file(i);
        if (!problem.message.isEmpty())
            problems.append(problem);
    }
    return problems;
}

QStringList Catalogue::Files() const
{
    QStringList files;
    for (int i = 0; i < m_store->blocks.count(); ++i)
        files << m_store->blocks.file(i);
    return files;
}

int Catalogue::Count() const
{
    return m_store->starts.back();
}

int Catalogue::Count(int file) const
{
    if (file < 0 || file >= m_store->blocks.count())
        return 0;
    const auto start = m_store->starts.begin() + file;
    return start[1] - start[0];
}

ListedPreset Catalogue::At(int place) const
{
    return m_store->at(place);
}

std::shared_ptr<const Catalogue> Catalogue::With(const QString& file,
                                                 const QDomDocument& document) const
{
    const QByteArray block = catalogue::RowScan().blockOf(document);
    return std::shared_ptr<const Catalogue>(
        new Catalogue(std::make_shared<const Store>(m_store->blocks.with(file, block))));
}

std::shared_ptr<const Catalogue> Catalogue::With(const QString& file) const
{
    return std::shared_ptr<const Catalogue>(
        new Catalogue(std::make_shared<const Store>(m_store->blocks.with(BlockStore({file})))));
}

CatalogueMatches Catalogue::Search(const CatalogueQuery& query) const
{
    CatalogueMatches matches;
    matches.m_found = std::make_shared<const CatalogueMatches::Found>(
        CatalogueMatches::Found{m_store, m_store->matches(query)});
    return matches;
}

QVector<ListedPreset> Catalogue::Find(const CatalogueQuery& query) const
{
    const CatalogueMatches matches = Search(query);
    QVector<ListedPreset> found;
    found.reserve(matches.Count());
    for (int i = 0; i < matches.Count(); ++i)
        found.append(matches.At(i));
    return found;
}

OpenPreset Catalogue::Open(const ListedPreset& preset) const
{
    const BlockStore& blocks = m_store->blocks;
    const int index = blocks.indexOf(preset.file);
    const std::string path = preset.path.toStdString();
    const auto openIn = [&](const BlockStore& store, int at) -> OpenPreset {
        const Block& block = store.block(at);
        const std::optional<quint32> row = findRow(block, path);
        return row ? catalogue::openThere(preset.file, store.state(at), block, block.row(*row))
                   : OpenPreset();
    };
    if (index >= 0) {
        const OpenPreset opened = openIn(blocks, index);
        if (opened)
            return opened;
    }
    const OpenPreset opened = openIn(BlockStore({preset.file}), 0);
    if (opened)
        return opened;
    return catalogue::openWhole(preset.file, preset.path);
}

Catalogue::Catalogue(std::shared_ptr<const Store> store)
    : m_store(std::move(store))
{
}

QVector<QDomElement> PresetsIn(const QDomElement& element)
{
    QVector<QDomElement> presets;
    if (element.parentNode().isDocument()) {
        for (QDomElement section = element.firstChildElement(); !section.isNull();
             section = section.nextSiblingElement())
            addPresets(section, presets);
    } else if (isListShelf(element)) {
        addPresets(element, presets);
    } else if (isListShelf(element.parentNode().toElement()) && !isParam(element)) {
        presets.append(element);
    }
    return presets;
}

ListedPreset ListedOf(const QString& file, const QDomElement& preset)
{
    const auto value = [&preset](const char* name) {
        return preset.attribute(QLatin1String(name));
    };
    ListedPreset listed;
    listed.file = file;
    listed.kind = preset.tagName();
    listed.name = value("name");
    listed.refName = value("refname");
    listed.category = value("cat");
    listed.subCategory = value("subcat");
    listed.description = value("desc");
    QStringList folders;
    for (QDomElement shelf = preset.parentNode().toElement(); !isSection(shelf) && !shelf.isNull();
         shelf = shelf.parentNode().toElement())
        folders.prepend(IdentityOf(shelf));
    listed.folder = folders.join(QLatin1String(" / "));
    listed.path = PathOf(preset);
    return listed;
}

} // namespace rvopen::toolkit

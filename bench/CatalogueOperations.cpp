// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "GeneratedDocuments.h"
#include "Operations.h"
#include "ReadEverything.h"

#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <benchmark/benchmark.h>

#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace rvopen::bench {

namespace {

/// A file with an archive, and the catalogue of it.
struct Archive {
    explicit Archive(long presets)
        : path(folder.filePath(QStringLiteral("Presets.rvx")))
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(archive(presets).text.toUtf8()) < 0)
            std::abort();
        file.close();
        catalogue = std::make_unique<toolkit::Catalogue>(QStringList(path));
        presetsFound = catalogue->Find({});
        if (presetsFound.size() != presets)
            std::abort();
    }

    QTemporaryDir folder;
    QString path;
    std::unique_ptr<toolkit::Catalogue> catalogue;
    QVector<toolkit::ListedPreset> presetsFound;
};

using SharedArchive = std::shared_ptr<Archive>;

/// The document alone: no object is made.
Case wholeCase(const SharedArchive& archive)
{
    return {"the whole archive", inOwnProcess([archive](Clock& clock) {
                clock.start();
                const std::unique_ptr<QDomDocument> document(ReadXmlDocument(archive->path));
                benchmark::DoNotOptimize(document.get());
                clock.stop();
            })};
}

/// Presets from all over the archive, with all their values read.
Case oneCase(const SharedArchive& archive)
{
    const int presets = 20;
    const auto run = [archive, presets](Clock& clock) {
        const auto count = archive->presetsFound.size();
        clock.start();
        for (int i = 0; i < presets; ++i) {
            const toolkit::OpenPreset opened =
                archive->catalogue->Open(archive->presetsFound[i * (count - 1) / presets]);
            if (!opened)
                std::abort();
            const RVOpenView<> view(opened.element);
            benchmark::DoNotOptimize(readTree(view.get()).values);
        }
        clock.stop();
    };
    return {"one preset of it", run, presets};
}

/// What somebody types who looks for a preset by its name, letter by letter.
template <typename Look>
Case typedCase(const char* name, const SharedArchive& archive, Look look)
{
    const QString text = QStringLiteral("background 12");
    const auto run = [archive, text, look](Clock& clock) {
        toolkit::CatalogueQuery query;
        clock.start();
        for (int letters = 1; letters <= text.size(); ++letters) {
            query.text = text.left(letters);
            look(*archive->catalogue, query);
        }
        clock.stop();
    };
    return {name, run, double(text.size())};
}

Case listCase(const SharedArchive& archive)
{
    return typedCase("a list of all", archive,
                     [](const toolkit::Catalogue& catalogue, const auto& query) {
                         benchmark::DoNotOptimize(catalogue.Find(query).size());
                     });
}

/// As many are read as a window shows.
Case matchesCase(const SharedArchive& archive)
{
    return typedCase("matches", archive,
                     [](const toolkit::Catalogue& catalogue, const auto& query) {
                         const toolkit::CatalogueMatches matches = catalogue.Search(query);
                         for (int i = 0; i < std::min(matches.Count(), 50); ++i)
                             benchmark::DoNotOptimize(matches.At(i));
                     });
}

} // namespace

void compareCatalogue(Report& report)
{
    // What the index costs, the program's own commands tell.
    qputenv("RVOPEN_CATALOGUE", "off");
    report.compare("open one preset, read every value", "10 k presets", 0.001,
                   []() -> std::vector<Case> {
                       const auto archive = std::make_shared<Archive>(10000);
                       return {wholeCase(archive), oneCase(archive)};
                   });
    report.compare("search for each letter that is typed", "10 k presets", {},
                   []() -> std::vector<Case> {
                       const auto archive = std::make_shared<Archive>(10000);
                       return {listCase(archive), matchesCase(archive)};
                   });
}

} // namespace rvopen::bench

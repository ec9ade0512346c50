// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "GeneratedDocuments.h"
#include "Operations.h"
#include "ReadEverything.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenView.h>

#include <benchmark/benchmark.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>
#include <memory>

namespace rvopen::bench {

namespace {

/// An archive with many presets, opened as a host does.
class Presets {
public:
    explicit Presets(long number)
        : m_number(number)
        , m_text(archive(number).text)
    {
        const QString folder = m_folder.filePath(QStringLiteral("archives"));
        QDir().mkpath(folder);
        QFile file(folder + QLatin1String("/Presets.rvx"));
        if (!file.open(QIODevice::WriteOnly) || file.write(m_text.toUtf8()) < 0)
            std::abort();
        file.close();
        GetDirectoryHandler()->SetCustomArchivesFolder(folder);
        reopen();
    }
    ~Presets()
    {
        GetDirectoryHandler()->CloseArchive(m_path);
    }
    Presets(const Presets&) = delete;
    Presets& operator=(const Presets&) = delete;

    /// Without any object but the root.
    void reopen()
    {
        GetDirectoryHandler()->CloseArchive(m_path);
        m_path = GetDirectoryHandler()->GetCustomArchivesFolder() + QLatin1String("/Presets.rvx");
        if (!m_manager.SetArchiveNode(QStringLiteral("Presets.rvx"), QStringLiteral("Custom")))
            std::abort();
    }

    RVOpenNode* section()
    {
        return m_manager.GetRVOpenNodeFromType(QStringLiteral("backgrounds"), false);
    }

    void find(long number)
    {
        const QString refName = QStringLiteral("background.%1").arg(number);
        RVOpenNode* const found =
            m_manager.FindRVOpenNodeFromType(QStringLiteral("backgrounds"), QString(), refName);
        if (!found || found->GetRefName() != refName)
            std::abort();
    }

    long number() const
    {
        return m_number;
    }

private:
    long m_number;
    QString m_text;
    QTemporaryDir m_folder;
    QString m_path;
    RVOpenManager m_manager;
};

using SharedPresets = std::shared_ptr<Presets>;

Case materialiseCase(const SharedPresets& presets)
{
    return {"materialising walk", [presets](Clock& clock) {
                presets->reopen();
                clock.start();
                benchmark::DoNotOptimize(materialise(presets->section()));
                clock.stop();
            }};
}

Case firstCase(const SharedPresets& presets)
{
    return {"first look-up, of the last preset", [presets](Clock& clock) {
                presets->reopen();
                clock.start();
                presets->find(presets->number());
                clock.stop();
            }};
}

/// Presets from all over the archive.
Case laterCase(const SharedPresets& presets)
{
    const int lookups = 20;
    const auto run = [presets, lookups](Clock& clock) {
        materialise(presets->section());
        clock.start();
        for (long i = 1; i <= lookups; ++i)
            presets->find((i * presets->number() - presets->number() / 2) / lookups);
        clock.stop();
    };
    return {"later look-up", run, lookups};
}

/// An installation with one archive of presets.
struct Installation {
    explicit Installation(long presets)
    {
        const QDir root(folder.path());
        QFile file(root.filePath(QStringLiteral("xml/Default.rvx")));
        if (!root.mkdir(QStringLiteral("xml")) || !file.open(QIODevice::WriteOnly) ||
            file.write(archive(presets).text.toUtf8()) < 0)
            std::abort();
    }

    QTemporaryDir folder;
};

Case readDefaultCase(const std::shared_ptr<Installation>& installation)
{
    const QString path = installation->folder.filePath(QStringLiteral("xml/Default.rvx"));
    return {"reading its archive", [installation, path](Clock& clock) {
                clock.start();
                const std::unique_ptr<QDomDocument> document(ReadXmlDocument(path));
                clock.stop();
                benchmark::DoNotOptimize(document.get());
            }};
}

Case initialiseCase(const std::shared_ptr<Installation>& installation)
{
    return {"initialising", [installation](Clock& clock) {
                RVOpenManager manager;
                clock.start();
                manager.Initialise(1, 0, installation->folder.path());
                clock.stop();
            }};
}

/// Every value of an archive of materials, read for the first time. \p root is the name of its root
/// element.
Case readAllCase(const char* name, const QString& root, long elements)
{
    const Document archive = materialArchive(elements);
    QString text = archive.text;
    text.replace(QLatin1String("presets"), root);
    return {name,
            [text](Clock& clock) {
                const std::unique_ptr<QDomDocument> document(ParseXmlDocument(text));
                const RVOpenView<> view(document->documentElement());
                clock.start();
                benchmark::DoNotOptimize(readTree(view.get()).values);
                clock.stop();
            },
            double(archive.elements)};
}

} // namespace

void compareLookups(Report& report)
{
    for (const long number : report.sizes()) {
        report.compare(
            "read every value of an archive", countText(number), 1.2, [&]() -> std::vector<Case> {
                return {readAllCase("under a snapRoot", QStringLiteral("snapRoot"), number),
                        readAllCase("archive", QStringLiteral("presets"), number)};
            });
    }
    for (const long number : report.sizes()) {
        if (number > 100000)
            break;
        const std::string size = countText(number) + " presets";
        report.compare("first look-up of a preset", size, 1.1, [&]() -> std::vector<Case> {
            const auto presets = std::make_shared<Presets>(number);
            return {materialiseCase(presets), firstCase(presets)};
        });
        report.compare("later look-up of a preset", size, 0.1, [&]() -> std::vector<Case> {
            const auto presets = std::make_shared<Presets>(number);
            return {materialiseCase(presets), laterCase(presets)};
        });
        report.compare("initialise a manager after others", size, 0.1, [&]() -> std::vector<Case> {
            const auto installation = std::make_shared<Installation>(number);
            return {readDefaultCase(installation), initialiseCase(installation)};
        });
    }
}

void growLookups(Report& report)
{
    report.grow(
        "read every value of an archive",
        [](long elements) { return readAllCase("", QStringLiteral("presets"), elements); }, 1.3);
}

} // namespace rvopen::bench

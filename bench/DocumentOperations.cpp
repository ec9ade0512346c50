// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Allocations.h"
#include "GeneratedDocuments.h"
#include "Operations.h"
#include "ReadEverything.h"

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/SnapShots.h>
#include <rvopen/xml/XmlScanner.h>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <pugixml.hpp>

#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>
#include <functional>
#include <memory>
#include <utility>

namespace rvopen::bench {

namespace {

/// What the rows of one document share.
struct Input {
    QTemporaryDir folder;
    QString path;
    QString text;
    QByteArray bytes;
    long elements;

    explicit Input(const Document& document)
        : path(folder.filePath(QStringLiteral("document.xml")))
        , text(document.text)
        , bytes(document.text.toUtf8())
        , elements(document.elements)
    {
        QFile file(path);
        check(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    static void check(bool good)
    {
        if (!good)
            std::abort();
    }
};

using SharedInput = std::shared_ptr<const Input>;

void setContentOfFile(const Input& input, QDomDocument& document)
{
    QFile file(input.path);
    Input::check(file.open(QIODevice::ReadOnly));
    Input::check(bool(document.setContent(&file, true)));
}

QDomDocument parsed(const Input& input)
{
    QDomDocument document;
    Input::check(bool(document.setContent(input.text)));
    return document;
}

QDomElement collectionOf(const QDomDocument& document)
{
    return document.documentElement().firstChildElement(QStringLiteral("snapshots"));
}

Case setContentCase(const SharedInput& input)
{
    return {"setContent", [input](Clock& clock) {
                QDomDocument document;
                clock.start();
                setContentOfFile(*input, document);
                clock.stop();
            }};
}

using Read = Sum (*)(SnapShots*);

Case loadCase(const SharedInput& input, Read read, double units = 1.0)
{
    const auto run = [input, read](Clock& clock) {
        RVOpenManager manager;
        clock.start();
        Input::check(manager.LoadSnapShotDocFromFile(input->path) == 1);
        if (read)
            benchmark::DoNotOptimize(read(manager.GetSnapShots()));
        clock.stop();
    };
    return {"load", run, units};
}

Case objectsCase(const SharedInput& input, Read read, double units = 1.0)
{
    const auto run = [input, read](Clock& clock) {
        const QDomDocument document = parsed(*input);
        clock.start();
        SnapShots collection(collectionOf(document));
        collection.Populate();
        benchmark::DoNotOptimize(read(&collection));
        clock.stop();
    };
    return {"objects", run, units};
}

Case walkCase(const SharedInput& input)
{
    return {"hand-written walk", [input](Clock& clock) {
                const QDomDocument document = parsed(*input);
                clock.start();
                benchmark::DoNotOptimize(readByHand(collectionOf(document)));
                clock.stop();
            }};
}

Case setContentAndWalkCase(const SharedInput& input)
{
    return {"setContent and walk", [input](Clock& clock) {
                QDomDocument document;
                clock.start();
                setContentOfFile(*input, document);
                benchmark::DoNotOptimize(readByHand(collectionOf(document)));
                clock.stop();
            }};
}

std::shared_ptr<RVOpenManager> loaded(const Input& input)
{
    auto manager = std::make_shared<RVOpenManager>();
    Input::check(manager->LoadSnapShotDocFromString(input.text) == 1);
    return manager;
}

Case saveCase(const SharedInput& input, double units = 1.0)
{
    const auto manager = loaded(*input);
    const auto run = [manager](Clock& clock) {
        clock.start();
        benchmark::DoNotOptimize(manager->GetSnapShotDocumentAsString());
        clock.stop();
    };
    return {"save", run, units};
}

Case toStringCase(const SharedInput& input)
{
    const QDomDocument document = parsed(*input);
    return {"toString", [document](Clock& clock) {
                clock.start();
                benchmark::DoNotOptimize(document.toString(2));
                clock.stop();
            }};
}

Case saveFileCase(const SharedInput& input)
{
    const auto manager = std::make_shared<RVOpenManager>();
    const std::shared_ptr<RVOpenNode> root(manager->LoadArchive(input->path));
    return {"save", [input, manager, root](Clock& clock) {
                const QString path = input->folder.filePath(QStringLiteral("saved.rvx"));
                clock.start();
                Input::check(manager->SaveArchive(path, root.get()));
                clock.stop();
            }};
}

Case toStringFileCase(const SharedInput& input)
{
    QDomDocument document;
    setContentOfFile(*input, document);
    return {"toString, written", [input, document](Clock& clock) {
                QFile file(input->folder.filePath(QStringLiteral("plain.rvx")));
                clock.start();
                const QByteArray bytes = document.toByteArray(3);
                Input::check(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
                file.close();
                clock.stop();
            }};
}

Case teardownCase(const SharedInput& input, double units = 1.0)
{
    const auto run = [input](Clock& clock) {
        const auto manager = loaded(*input);
        readByAccessors(manager->GetSnapShots());
        clock.start();
        manager->ClearSnapShotDoc();
        clock.stop();
    };
    return {"teardown", inOwnProcess(run), units};
}

Case bareTeardownCase(const SharedInput& input)
{
    return {"QDomDocument", inOwnProcess([input](Clock& clock) {
                auto document = std::make_unique<QDomDocument>(parsed(*input));
                clock.start();
                document.reset();
                clock.stop();
            })};
}

Case scanCase(const SharedInput& input)
{
    return {"scan", [input](Clock& clock) {
                clock.start();
                Input::check(xml::isAccepted(input->text));
                clock.stop();
            }};
}

Case loadFromStringCase(const SharedInput& input)
{
    return {"load", [input](Clock& clock) {
                RVOpenManager manager;
                clock.start();
                Input::check(manager.LoadSnapShotDocFromString(input->text) == 1);
                clock.stop();
            }};
}

Case expatCase(const SharedInput& input)
{
    return {"expat", [input](Clock& clock) {
                clock.start();
                const XML_Parser parser = XML_ParserCreate(nullptr);
                Input::check(XML_Parse(parser, input->bytes.constData(),
                                       static_cast<int>(input->bytes.size()), 1) == XML_STATUS_OK);
                XML_ParserFree(parser);
                clock.stop();
            }};
}

Case pugixmlCase(const SharedInput& input)
{
    return {"pugixml", [input](Clock& clock) {
                pugi::xml_document document;
                clock.start();
                Input::check(bool(document.load_buffer(
                    input->bytes.constData(), static_cast<std::size_t>(input->bytes.size()))));
                clock.stop();
            }};
}

SharedInput snapShots(long elements)
{
    return std::make_shared<const Input>(snapShotDocument(elements));
}

SharedInput foreignNames(long elements)
{
    return std::make_shared<const Input>(foreignNamesDocument(elements));
}

SharedInput cameras(long elements)
{
    return std::make_shared<const Input>(camerasDocument(elements));
}

SharedInput palette(long elements)
{
    return std::make_shared<const Input>(paletteDocument(elements));
}

SharedInput presets(long elements)
{
    return std::make_shared<const Input>(materialArchive(elements));
}

} // namespace

void compareDocuments(Report& report)
{
    using Make = SharedInput (*)(long);
    const auto compare = [&report](const char* operation, std::optional<double> target, Make make,
                                   const std::function<Case(const SharedInput&)>& baseline,
                                   const std::function<Case(const SharedInput&)>& measured) {
        for (const long size : report.sizes()) {
            report.compare(operation, countText(size), target, [&]() -> std::vector<Case> {
                const SharedInput input = make(size);
                return {baseline(input), measured(input)};
            });
        }
    };
    const auto load = [](Read read) {
        return [read](const SharedInput& input) { return loadCase(input, read); };
    };
    const auto objects = [](Read read) {
        return [read](const SharedInput& input) { return objectsCase(input, read); };
    };
    const auto save = [](const SharedInput& input) { return saveCase(input); };
    const auto teardown = [](const SharedInput& input) { return teardownCase(input); };

    compare("scan alone", {}, snapShots, setContentCase, scanCase);
    compare("load snapshots", 1.15, snapShots, setContentCase, load(nullptr));
    compare("load a palette", 1.15, palette, setContentCase, load(nullptr));
    compare("load many snapshots of a camera each", 1.15, cameras, setContentCase, load(nullptr));
    compare("load elements of as many names, none of them ASCII", 1.15, foreignNames,
            setContentCase, loadFromStringCase);
    compare("load snapshots, read every value", 1.4, snapShots, setContentCase,
            load(readByAccessors));
    compare("load a palette, read every value", 1.4, palette, setContentCase,
            load(readByAccessors));
    compare("load many snapshots of a camera each, read every value", 1.4, cameras, setContentCase,
            load(readCameras));
    compare("load many snapshots of a camera each, ask for what they lack", {}, cameras,
            setContentCase, load(readByAccessors));
    compare("objects and values of snapshots", 2.0, snapShots, walkCase, objects(readByAccessors));
    compare("objects and values of a palette", 2.0, palette, walkCase, objects(readByAccessors));
    compare("objects and values as lists", 2.0, snapShots, walkCase, objects(readParameters));
    compare("save snapshots as text", 0.9, snapShots, toStringCase, save);
    compare("save a palette as text", 0.9, palette, toStringCase, save);
    compare("save many snapshots of a camera each as text", 0.9, cameras, toStringCase, save);
    compare("save an archive to its file", {}, presets, toStringFileCase, saveFileCase);
    compare("teardown of snapshots", 1.3, snapShots, bareTeardownCase, teardown);
    compare("teardown of a palette", 1.3, palette, bareTeardownCase, teardown);
    compare("for orientation: setContent, read by hand", {}, snapShots, setContentCase,
            setContentAndWalkCase);
    compare("for orientation: expat, no tree", {}, snapShots, setContentCase, expatCase);
    compare("for orientation: pugixml", {}, snapShots, setContentCase, pugixmlCase);
}

void compareMemory(Report& report)
{
    if (!canCountAllocations())
        return;
    const auto compare = [&report](const char* operation, Document (*make)(long)) {
        for (const long size : report.sizes()) {
            report.value(operation, countText(size), "QDomDocument, MB", 1.1, [&] {
                const Input input(make(size));
                const double megabyte = 1e6;
                const double atStart = bytesInUse();
                std::pair<double, double> used;
                {
                    const QDomDocument document = parsed(input);
                    used.first = (bytesInUse() - atStart) / megabyte;
                }
                RVOpenManager manager;
                manager.ClearSnapShotDoc();
                const double before = bytesInUse();
                Input::check(manager.LoadSnapShotDocFromString(input.text) == 1);
                readByAccessors(manager.GetSnapShots());
                used.second = (bytesInUse() - before) / megabyte;
                return used;
            });
        }
    };
    compare("memory of snapshots, all objects made", snapShotDocument);
    compare("memory of a palette, all objects made", paletteDocument);
}

void growDocuments(Report& report)
{
    const auto target = 1.3;
    const auto units = [](const SharedInput& input) {
        return static_cast<double>(input->elements);
    };
    report.grow(
        "load",
        [&](long size) {
            const SharedInput input = snapShots(size);
            // Otherwise the small one clears up behind the large ones.
            Case load = loadCase(input, nullptr, units(input));
            load.run = inOwnProcess(load.run);
            return load;
        },
        target);
    report.grow(
        "make all objects, read every value",
        [&](long size) {
            const SharedInput input = snapShots(size);
            return objectsCase(input, readByAccessors, units(input));
        },
        target);
    report.grow(
        "save",
        [&](long size) {
            const SharedInput input = snapShots(size);
            return saveCase(input, units(input));
        },
        target);
    report.grow(
        "teardown",
        [&](long size) {
            const SharedInput input = snapShots(size);
            return teardownCase(input, units(input));
        },
        target);
}

} // namespace rvopen::bench

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "GeneratedDocuments.h"
#include "Operations.h"

#include <rvopen/Bump.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>
#include <rvopen/XMLUtils.h>

#include <benchmark/benchmark.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

namespace rvopen::bench {

namespace {

void check(bool good)
{
    if (!good)
        std::abort();
}

/// A document of one element, and nodes that may be added to it.
struct Family {
    QDomDocument document;
    std::unique_ptr<RVOpenNode> parent;
    std::vector<RVOpenNode*> children;

    explicit Family(std::unique_ptr<RVOpenNode> node = std::make_unique<RVOpenNode>())
        : parent(std::move(node))
    {
        const QDomElement element = document.createElement(QStringLiteral("materialRepository"));
        document.appendChild(element);
        parent->SetDomNode(element);
    }

    void makeNodes(long number)
    {
        for (long i = 0; i < number; ++i) {
            auto* const child = new RVOpenNode();
            child->SetDomNode(document.createElement(QStringLiteral("dir")));
            child->SetName(QStringLiteral("Folder"));
            children.push_back(child);
        }
    }

    void addAll()
    {
        for (RVOpenNode* const child : children)
            parent->AddNode(child, false);
    }
};

Case addNodes(long number)
{
    const auto run = [number](Clock& clock) {
        Family family;
        family.makeNodes(number);
        clock.start();
        family.addAll();
        clock.stop();
    };
    return {"", run, static_cast<double>(number)};
}

/// Before each node that is added, another tree of a few nodes comes and goes.
Case addNodesBetweenOthers(long number)
{
    const auto run = [number](Clock& clock) {
        Family family;
        family.makeNodes(number);
        clock.start();
        for (RVOpenNode* const child : family.children) {
            Family other;
            other.makeNodes(20);
            other.addAll();
            family.parent->AddNode(child, false);
        }
        clock.stop();
    };
    return {"", run, static_cast<double>(number)};
}

Case addMaterials(long number)
{
    const auto run = [number](Clock& clock) {
        auto* const repository = new MaterialRepository(nullptr);
        Family family{std::unique_ptr<RVOpenNode>(repository)};
        std::vector<Material*> materials;
        for (long i = 0; i < number; ++i)
            materials.push_back(repository->CreateMaterial());
        clock.start();
        for (Material* const material : materials)
            repository->AddMaterial(material);
        clock.stop();
    };
    return {"", run, static_cast<double>(number)};
}

Case addParams(long number)
{
    const auto run = [number](Clock& clock) {
        Family family;
        ParamHelper* const params = family.parent->GetParamHelper();
        const QString name = QStringLiteral("Width");
        clock.start();
        for (long i = 0; i < number; ++i)
            params->AddFloatParam(name, 1.0f);
        clock.stop();
    };
    return {"", run, static_cast<double>(number)};
}

Case insertInFront(long number)
{
    const auto run = [number](Clock& clock) {
        Family family;
        family.makeNodes(number);
        clock.start();
        for (RVOpenNode* const child : family.children)
            family.parent->InsertNode(child, 0);
        clock.stop();
    };
    return {"", run, static_cast<double>(number)};
}

Case detachLast(long number)
{
    const auto run = [number](Clock& clock) {
        Family family;
        family.makeNodes(number);
        family.addAll();
        clock.start();
        for (auto child = family.children.rbegin(); child != family.children.rend(); ++child)
            family.parent->DetachNode(*child, false);
        clock.stop();
        for (RVOpenNode* const child : family.children)
            delete child;
    };
    return {"", run, static_cast<double>(number)};
}

Case nextSnapShotName(long number)
{
    const Document document = namesDocument(number);
    const auto run = [text = document.text](Clock& clock) {
        RVOpenManager manager;
        check(manager.LoadSnapShotDocFromString(text) == 1);
        clock.start();
        benchmark::DoNotOptimize(
            manager.GetNextSnapShotName(QStringLiteral("Snapshot"), SnapShots::TypeSnapShots));
        clock.stop();
    };
    return {"", run, static_cast<double>(number)};
}

Case applyMaterials(long elements)
{
    const Document document = paletteDocument(elements);
    const auto run = [document](Clock& clock) {
        RVOpenManager manager;
        check(manager.LoadSnapShotDocFromString(document.text) == 1);
        MaterialRepository* const palette =
            manager.GetSnapShots()->GetFirstSnapShot()->GetMaterialRepository();
        Material source(palette->GetFirstMaterial());
        source.SetRefName(QStringLiteral("material.new"));
        source.GetBump(0)->SetRefName(QStringLiteral("bump.new"));
        clock.start();
        for (long i = 1; i <= document.parts; ++i)
            check(palette->ApplyMaterial(&source, QStringLiteral("Object%1").arg(i), nullptr));
        clock.stop();
    };
    return {"", run, static_cast<double>(document.parts)};
}

Case checkName(long number)
{
    auto family = std::make_shared<Family>();
    family->makeNodes(number);
    family->addAll();
    const auto run = [family](Clock& clock) {
        clock.start();
        benchmark::DoNotOptimize(
            XMLUtils().CheckNameDuplication(family->parent.get(), QStringLiteral("Folder")));
        clock.stop();
    };
    return {"", run, static_cast<double>(number)};
}

Case listTextures(long elements)
{
    const Document document = snapShotDocument(elements);
    auto manager = std::make_shared<RVOpenManager>();
    check(manager->LoadSnapShotDocFromString(document.text) == 1);
    const auto run = [manager](Clock& clock) {
        QStringList textures;
        clock.start();
        check(manager->FindRVOpenNodeTextures(manager->GetSnapShots(), textures) > 0);
        clock.stop();
    };
    return {"", run, static_cast<double>(document.elements)};
}

void writeFile(const QString& path, const QString& text)
{
    QFile file(path);
    check(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0);
}

Case mergeExtra(long elements)
{
    const Document document = materialArchive(elements);
    auto folder = std::make_shared<QTemporaryDir>();
    QDir(folder->path()).mkpath(QStringLiteral("xml"));
    QDir(folder->path()).mkpath(QStringLiteral("archives"));
    writeFile(folder->filePath(QStringLiteral("xml/Product_extra.rvx")), document.text);
    writeFile(folder->filePath(QStringLiteral("archives/Product.rvx")), materialArchive(1).text);
    const auto run = [folder](Clock& clock) {
        DirectoryHandler* const directories = GetDirectoryHandler();
        directories->SetZorvaneArchivesFolder(folder->filePath(QStringLiteral("archives")));
        RVOpenManager manager;
        manager.Initialise(1, 0, folder->path());
        check(manager.SetArchiveNode(QStringLiteral("Product.rvx"), QStringLiteral("Zorvane")));
        clock.start();
        check(manager.GetRVOpenNodeFromType(QStringLiteral("materials"), false));
        clock.stop();
        directories->CloseArchive(folder->filePath(QStringLiteral("archives/Product.rvx")));
    };
    return {"", run, static_cast<double>(document.elements)};
}

/// What merging asks of the DOM, done by hand.
Case importBare(long elements)
{
    const Document document = materialArchive(elements);
    const auto run = [document](Clock& clock) {
        QDomDocument extra;
        check(static_cast<bool>(extra.setContent(document.text)));
        QDomDocument archive;
        QDomElement target = archive.createElement(QStringLiteral("materials"));
        archive.appendChild(target);
        QDomElement root = extra.documentElement();
        clock.start();
        QDomElement section = root.firstChildElement();
        for (QDomNode node = section.firstChild(); !node.isNull(); node = node.nextSibling())
            target.appendChild(archive.importNode(node, true));
        root.removeChild(section);
        section.clear();
        clock.stop();
    };
    return {"", run, static_cast<double>(document.elements)};
}

} // namespace

void growTrees(Report& report)
{
    const double target = 1.3;
    report.grow("append by AddNode", addNodes, target);
    report.grow("append by AddNode, other trees between", addNodesBetweenOthers, target, 100000);
    report.grow("append by AddMaterial", addMaterials, target);
    report.grow("append by AddFloatParam", addParams, target);
    report.grow("InsertNode at the front", insertInFront, target);
    report.grow("DetachNode of the last", detachLast, target);
    report.grow("GetNextSnapShotName, all names taken", nextSnapShotName, target);
    // Each of the materials is looked for anew from the first one on.
    report.grow("ApplyMaterial to each of a palette", applyMaterials, target, 100000);
    report.grow("CheckNameDuplication", checkName, target);
    report.grow("list textures", listTextures, target);
    report.grow("merge an extra archive", mergeExtra, target);
    report.grow("for comparison: importNode of as much", importBare, std::nullopt);
}

} // namespace rvopen::bench

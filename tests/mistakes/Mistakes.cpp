// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Mistakes.h"

#include "Host.h"

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>

#include <QDomDocument>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <utility>

namespace rvopen::test {

namespace {

QString namesInDocument(const RVOpenNode* parent)
{
    QStringList names;
    for (QDomNode child = parent->GetDomNode().firstChild(); !child.isNull();
         child = child.nextSibling())
        names << child.toElement().attribute(QStringLiteral("name"));
    return names.join(QLatin1Char(' '));
}

/// The names of the children as a walk shows them; told when the document has others.
QString namesIn(RVOpenNode* parent)
{
    QStringList names;
    for (RVOpenNode* child = parent->GetChild(1, 1); child && names.size() < 100;
         child = child->GetNext(1))
        names << child->GetName();
    const QString walked = names.join(QLatin1Char(' '));
    const QString present = namesInDocument(parent);
    return walked == present ? walked : walked + QLatin1String(" but in the document ") + present;
}

RVOpenNode* newNode(const Host& host, const char* name)
{
    QDomDocument document = host.current()->GetDomNode().ownerDocument();
    auto* const node = new RVOpenNode();
    node->SetDomNode(document.createElement(QStringLiteral("dir")));
    node->SetName(QLatin1String(name));
    return node;
}

QString addTwice()
{
    Host host;
    SnapShots* const all = host.GetSnapShots();
    all->AddNode(host.first(), true);
    all->AddNode(host.first(), true);
    return expectText(namesIn(all), "c a b");
}

QString addLastAgain()
{
    Host host;
    SnapShots* const all = host.GetSnapShots();
    all->AddNode(host.second()->GetNext(), true);
    return expectText(namesIn(all), "a b c");
}

QString addToSecondParent()
{
    Host host;
    SnapShots* const others = host.GetSnapShotsCameras();
    others->AddNode(host.second(), true);
    return all({expectText(namesIn(host.GetSnapShots()), "a c"), expectText(namesIn(others), "b")});
}

QString insertWhereItIs()
{
    Host host;
    SnapShots* const all = host.GetSnapShots();
    all->InsertNode(host.second(), 0);
    all->InsertNode(host.first(), 2);
    return expectText(namesIn(all), "a c b");
}

QString addToOtherDocument()
{
    Host host;
    Host other;
    other.GetSnapShots()->AddNode(host.second(), true);
    return all({expectText(namesIn(host.GetSnapShots()), "a b c"),
                expectText(namesInDocument(other.GetSnapShots()), "a b c b")});
}

QString insertIntoOtherDocument()
{
    Host host;
    const QString before = host.text();
    Host other;
    SnapShot* const moved = host.first();
    other.GetSnapShots()->InsertNode(moved, 0);
    moved->GetCamera()->SetName(QStringLiteral("changed"));
    return all({expect(host.text() == before, "the old document is as it was"),
                expect(other.has("changed"), "the new document has the change")});
}

QString addToItself()
{
    Host host;
    host.first()->AddNode(host.first(), true);
    host.first()->InsertNode(host.first(), 0);
    return expectText(namesIn(host.GetSnapShots()), "a b c");
}

QString addAncestor()
{
    Host host;
    host.first()->AddNode(host.GetSnapShots(), true);
    return all({expectText(namesIn(host.GetSnapShots()), "a b c"),
                expect(host.has("Model SnapShots"), "the collection stands where it stood")});
}

QString addNothing()
{
    Host host;
    host.GetSnapShots()->AddNode(nullptr, true);
    host.GetSnapShots()->InsertNode(nullptr, 0);
    host.GetSnapShots()->DeleteNode(nullptr);
    host.GetSnapShots()->DetachNode(nullptr, true);
    host.GetSnapShots()->ReplaceNode(host.first(), nullptr);
    return expectText(namesIn(host.GetSnapShots()), "a b c");
}

QString addStackObject()
{
    Host host;
    QDomDocument document = host.current()->GetDomNode().ownerDocument();
    {
        SnapShot snapShot(document.createElement(QStringLiteral("snapshot")));
        snapShot.SetName(QStringLiteral("d"));
        host.GetSnapShots()->AddNode(&snapShot, true);
    }
    return expectText(namesIn(host.GetSnapShots()), "a b c");
}

QString insertStackObject()
{
    Host host;
    {
        SnapShot copy(static_cast<RVOpenNode*>(host.second()));
        host.GetSnapShotsCameras()->InsertNode(&copy, 0);
    }
    return all({expectText(namesIn(host.GetSnapShotsCameras()), ""),
                expectText(namesIn(host.GetSnapShots()), "a b c")});
}

QString replaceBySibling()
{
    Host host;
    SnapShots* const all = host.GetSnapShots();
    all->ReplaceNode(host.first(), host.second()->GetNext());
    return expectText(namesIn(all), "c b");
}

QString replaceByItself()
{
    Host host;
    host.GetSnapShots()->ReplaceNode(host.second(), host.second());
    return expectText(namesIn(host.GetSnapShots()), "a b c");
}

QString replaceByOneOfAnotherTree()
{
    Host host;
    SnapShots* const others = host.GetSnapShotsCameras();
    others->AddNode(newNode(host, "x"), true);
    others->ReplaceNode(others->GetChild(1, 1), host.second());
    return all({expectText(namesIn(host.GetSnapShots()), "a c"), expectText(namesIn(others), "b")});
}

QString addMaterialTwice()
{
    Host host;
    Material* const wall = host.palette()->GetFirstMaterial();
    host.palette()->AddMaterial(wall);
    host.palette()->AddMaterial(wall);
    return expectText(namesIn(host.palette()), "roof wall");
}

QString addMaterialOfAnotherPalette()
{
    Host host;
    Host other;
    other.palette()->AddMaterial(host.palette()->GetMaterial(QStringLiteral("W")));
    return all({expectText(namesIn(other.palette()), "wall roof wall"),
                expect(other.palette()->GetNumMaterials() == 3, "the palette has three")});
}

QString setColourOfAnotherMaterial()
{
    Host host;
    Material* const wall = host.palette()->GetMaterial(QStringLiteral("W"));
    Material* const roof = host.palette()->GetMaterial(QStringLiteral("R"));
    roof->SetColour(wall->GetColour(0));
    roof->SetFinish(wall->GetFinish());
    return all({expect(!wall->GetColour(0) && !wall->GetFinish(), "the wall has lost them"),
                expectText(roof->GetColour(0)->GetRefName(), "red"),
                expect(roof->GetFinish() != nullptr, "the roof has a finish")});
}

QString addSettingsOfAnotherSnapShot()
{
    Host host;
    SnapShotSettings* const settings = host.current()->GetSnapShotSettings();
    host.second()->AddSnapShotSettings(settings);
    return all({expect(host.second()->GetSnapShotSettings() == settings, "b has them"),
                expect(!host.current()->GetSnapShotSettings(), "the current one has none"),
                expect(settings->SetSelected(1) == 0, "they take a value")});
}

QString addSettingsTwice()
{
    Host host;
    SnapShotSettings* const settings = host.current()->GetSnapShotSettings();
    host.current()->AddSnapShotSettings(settings);
    host.current()->AddSnapShotSettings(settings);
    return expect(host.current()->GetSnapShotSettings() == settings &&
                      host.text().count(QLatin1String("<snapShotSettings")) == 2,
                  "the settings are there once");
}

QString addOwnCamera()
{
    Host host;
    Camera* const camera = host.current()->AddCamera(host.current()->GetCamera());
    return expectText(camera->GetName(), "now");
}

QString deleteWhatWasCopied()
{
    Host host;
    Camera* const camera = host.current()->CreateCamera();
    camera->SetName(QStringLiteral("new"));
    Camera* const held = host.current()->AddCamera(camera);
    delete camera;
    return all({expectText(held->GetName(), "new"), expect(host.has("\"new\""), "it is saved")});
}

QString deleteComponent()
{
    Host host;
    delete host.current()->GetCamera();
    delete host.current()->GetMaterialRepository();
    return all({expect(!host.current()->GetCamera(), "there is no camera"),
                expect(!host.has("\"now\""), "nor in the document"),
                expect(host.palette()->GetNumMaterials() == 0, "a new palette is empty")});
}

QString deleteChildOfWalk()
{
    Host host;
    SnapShots* const all = host.GetSnapShots();
    delete host.second();
    return expectText(namesIn(all), "a");
}

QString deleteFirstOfWalk()
{
    Host host;
    delete host.first();
    return all({expect(!host.GetSnapShots()->GetFirstSnapShot(), "there is no snapshot"),
                expectText(namesIn(host.GetSnapShots()), "")});
}

QString deleteParam()
{
    Host host;
    ParamHelper* const params = host.current()->GetBackground()->GetParamHelper();
    params->AddFloatParam(QStringLiteral("x"));
    delete params->AddFloatParam(QStringLiteral("y"));
    return all({expect(!params->GetParam(QStringLiteral("y")), "it is not found"),
                expect(params->GetParam(QStringLiteral("x")), "its sibling is"),
                expect(!host.has("\"y\""), "nor is it in the document")});
}

QString deleteComponentOfMaterial()
{
    Host host;
    Material* const wall = host.palette()->GetFirstMaterial();
    delete wall->GetFinish();
    return all({expect(!wall->GetFinish(), "there is no finish"),
                expect(wall->GetColour(0) != nullptr, "the colour before it stays")});
}

QString deleteCurrentSnapShot()
{
    Host host;
    delete host.GetCurrentSnapShot();
    return all({expect(!host.GetCurrentSnapShot(), "there is none"),
                expect(!host.has("CurrSnapshot"), "nor in the document")});
}

QString deleteCollection()
{
    Host host;
    delete host.GetSnapShots();
    return all({expect(!host.GetSnapShots(), "there is none"),
                expect(host.GetNumSnapShots() == 0, "it counts none")});
}

QString deleteArchiveRoot()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.rvx"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write("<archive><colours/></archive>") < 0)
        return QStringLiteral("no archive");
    file.close();
    delete GetDirectoryHandler()->LoadArchive(path);
    RVOpenNode* const again = GetDirectoryHandler()->LoadArchive(path);
    const QString outcome = expect(again && again->GetChild(1, 1), "it is opened again");
    GetDirectoryHandler()->CloseArchive(path);
    return all({outcome, expect(QFile::exists(path), "the file stays")});
}

QString deleteResetSnapShot()
{
    Host host;
    host.SetResetSnapShot(host.CreateInternalSnapShot(host.current()));
    delete host.GetResetSnapShot();
    return expect(!host.GetResetSnapShot(), "there is none");
}

QString deleteNodeOfAnotherParent()
{
    Host host;
    RVOpenNode* const node = newNode(host, "x");
    host.current()->AddNode(node, true);
    host.GetSnapShots()->DeleteNode(host.current()->GetCamera());
    return all({expect(!host.current()->GetCamera(), "it is deleted"),
                expectText(namesIn(host.GetSnapShots()), "a b c")});
}

QString detachTwice()
{
    Host host;
    const std::unique_ptr<SnapShot> detached(host.second());
    host.GetSnapShots()->DetachNode(detached.get(), true);
    host.GetSnapShots()->DetachNode(detached.get(), true);
    return expectText(namesIn(host.GetSnapShots()), "a c");
}

QString detachWhileWalking()
{
    Host host;
    std::vector<std::unique_ptr<RVOpenNode>> detached;
    for (RVOpenNode* node = host.GetSnapShots()->GetChild(1, 1); node; node = node->GetNext(1)) {
        host.GetSnapShots()->DetachNode(node, true);
        detached.emplace_back(node);
    }
    return expectText(namesIn(host.GetSnapShots()), "b c");
}

QString useParentOfDetached()
{
    Host host;
    auto shelf = std::make_unique<RVOpenNode>();
    QDomDocument document = host.current()->GetDomNode().ownerDocument();
    shelf->SetDomNode(document.createElement(QStringLiteral("dir")));
    SnapShotSettings* const settings = host.current()->CreateSnapShotSettings(nullptr);
    shelf->AddNode(settings, true);
    shelf->DetachNode(settings, true);
    host.current()->AddSnapShotSettings(settings);
    shelf.reset();
    return all({expect(settings->SetSelected(1) == 0, "they take a value"),
                expect(host.current()->GetSnapShotSettings() == settings, "they are held")});
}

QString copyComponent()
{
    Host host;
    {
        Camera copy = *host.current()->GetCamera();
        copy.SetName(QStringLiteral("changed"));
    }
    return all({expectText(host.current()->GetCamera()->GetName(), "changed"),
                expect(host.has("changed"), "the document has it")});
}

QString vectorOfCopies()
{
    Host host;
    const QString before = host.text();
    {
        std::vector<Camera> cameras;
        for (int i = 0; i < 20; ++i)
            cameras.push_back(*host.current()->GetCamera());
    }
    return expect(host.text() == before, "the document is as it was");
}

QString copySnapShot()
{
    std::optional<SnapShot> copy;
    {
        Host host;
        const QString before = host.text();
        {
            SnapShot inner = *host.current();
        }
        copy.emplace(*host.current());
        if (host.text() != before || !host.current()->GetCamera())
            return QStringLiteral("the document is not as it was");
    }
    copy.reset();
    return QString();
}

QString copyManager()
{
    std::optional<RVOpenManager> copy;
    {
        Host host;
        {
            const RVOpenManager inner = host;
            if (inner.GetCurrentSnapShot() != host.GetCurrentSnapShot())
                return QStringLiteral("the copy has objects of its own");
        }
        if (!host.has("CurrSnapshot"))
            return QStringLiteral("the document is not as it was");
        copy.emplace(host);
    }
    copy.reset();
    return QString();
}

QString assignToComponent()
{
    Host host;
    *host.first()->GetCamera() = *host.current()->GetCamera();
    return all({expect(host.has("\"eye\"") && host.has("\"now\""), "the document has both"),
                expectText(host.current()->GetCamera()->GetName(), "now")});
}

QString ownedView()
{
    Host host;
    QDomDocument document = host.current()->GetDomNode().ownerDocument();
    {
        const std::unique_ptr<RVOpenNode> view(
            RVOpenSchema::createNode(document.documentElement()));
    }
    return all({expectText(host.text(), ""),
                expect(!host.SaveArchive(QStringLiteral("x"), host.current()), "it is not saved")});
}

QString resetGivenTwice()
{
    Host host;
    SnapShot* const reset = host.CreateInternalSnapShot(host.current());
    const bool first = !host.SetResetSnapShot(reset);
    const bool again = !host.SetResetSnapShot(reset);
    delete host.SetResetSnapShot(nullptr);
    return expect(first && again && !host.GetResetSnapShot(), "it is handed back once");
}

QString currentAsReset()
{
    Host host;
    host.SetResetSnapShot(host.current());
    host.SetResetSnapShot(nullptr);
    return expect(host.current() && host.has("CurrSnapshot"), "it is still the current one");
}

QString removeMaterialOfAnotherPalette()
{
    Host host;
    Host other;
    other.palette()->RemoveMaterial(host.palette()->GetFirstMaterial());
    return all({expectText(namesIn(host.palette()), "roof"),
                expectText(namesIn(other.palette()), "wall roof")});
}

QString outliveManager()
{
    std::unique_ptr<SnapShot> detached;
    {
        Host host;
        detached.reset(host.second());
        host.GetSnapShots()->DetachNode(detached.get(), true);
    }
    detached->SetName(QStringLiteral("mine"));
    return expectText(detached->GetName(), "mine");
}

QString wrongKindOfFile()
{
    RVOpenManager manager;
    if (manager.LoadSnapShotDocFromString(QStringLiteral("<html/>")) != 1)
        return QStringLiteral("it is not loaded");
    return expect(!manager.GetCurrentSnapShot() && !manager.GetSnapShots() &&
                      manager.GetNumSnapShots() == 0,
                  "the getters give null");
}

QString addFirstWhatSnapShotAdds()
{
    Host host;
    host.current()->AddNode(host.current()->GetCamera(), true);
    host.second()->AddNode(host.current()->CreateCamera(), true);
    return all({expect(host.current()->GetCamera() == nullptr ||
                           host.current()->GetCamera()->GetName() == QLatin1String("now"),
                       "the camera is the snapshot's or its child"),
                expect(host.has("\"now\""), "the document has it")});
}

QString useAfterReplacing()
{
    Host host;
    Camera* const old = host.current()->GetCamera();
    host.current()->AddCamera(host.first()->GetCamera());
    return expect(old->GetChild(1, 1), "it has parameters");
}

QString useAfterReload()
{
    Host host;
    Camera* const old = host.current()->GetCamera();
    host.LoadSnapShotDocFromString(s_document);
    return expect(old->GetChild(1, 1), "it has parameters");
}

QString deleteNodeTwice()
{
    Host host;
    SnapShot* const second = host.second();
    host.GetSnapShots()->DeleteNode(second);
    host.GetSnapShots()->DeleteNode(second);
    return QString();
}

QString deleteWhileWalking()
{
    Host host;
    for (RVOpenNode* node = host.GetSnapShots()->GetChild(1, 1); node; node = node->GetNext(1))
        host.GetSnapShots()->DeleteNode(node);
    return QString();
}

QString stackObjectThatOutlives()
{
    std::optional<SnapShot> snapShot;
    Host host;
    QDomDocument document = host.current()->GetDomNode().ownerDocument();
    snapShot.emplace(document.createElement(QStringLiteral("snapshot")));
    host.GetSnapShots()->AddNode(&*snapShot, true);
    return QString();
}

const std::vector<Mistake>& definedMistakes()
{
    static const std::vector<Mistake> list = {
        {"`AddNode()` of a child that is there already", "it moves to the end", addTwice},
        {"`AddNode()` of the last child", "nothing changes", addLastAgain},
        {"`AddNode()` of a child of another parent", "it moves", addToSecondParent},
        {"`InsertNode()` of a child of the same parent", "it moves to that place", insertWhereItIs},
        {"`AddNode()` of a child from another document",
         "a copy of its element is added there; the original keeps its place in its document",
         addToOtherDocument},
        {"`InsertNode()` of a snapshot from another document, then editing it",
         "all its objects belong to the new document; the old one keeps its element as it was",
         insertIntoOtherDocument},
        {"Adding a node to itself", "nothing changes", addToItself},
        {"Adding a node below one of its own descendants", "nothing changes", addAncestor},
        {"Passing null where a child is expected", "nothing changes", addNothing},
        {"Adding an object from the stack that goes before its parent",
         "it takes itself and its element out of the tree at its end", addStackObject},
        {"The same with `InsertNode()`", "the same", insertStackObject},
        {"`ReplaceNode()` by another child of the same parent", "that child moves",
         replaceBySibling},
        {"`ReplaceNode()` of a child by itself", "nothing changes", replaceByItself},
        {"`ReplaceNode()` by a node of another tree", "that node moves", replaceByOneOfAnotherTree},
        {"`AddMaterial()` of a material that is in the palette already", "it moves to the end",
         addMaterialTwice},
        {"`AddMaterial()` of a material of another palette", "it moves",
         addMaterialOfAnotherPalette},
        {"A setter of a material given the component of another", "the component moves",
         setColourOfAnotherMaterial},
        {"`AddSnapShotSettings()` of another snapshot's settings", "they move",
         addSettingsOfAnotherSnapShot},
        {"`AddSnapShotSettings()` of the snapshot's own", "nothing changes", addSettingsTwice},
        {"`AddCamera()` of the snapshot's own camera", "a copy of it takes its place",
         addOwnCamera},
        {"`delete` of what an Add operation of a snapshot has copied", "right: it is the caller's",
         deleteWhatWasCopied},
        {"`delete` of what a snapshot's getter gave",
         "the component is gone, its element too, and the getter gives null", deleteComponent},
        {"`delete` of a child from a walk",
         "it goes with the siblings behind it and all their elements", deleteChildOfWalk},
        {"`delete` of the first child", "all children go, with their elements", deleteFirstOfWalk},
        {"`delete` of a parameter that was just added", "it is gone, its element too", deleteParam},
        {"`delete` of what a material's getter gave",
         "it goes with what stands behind it in the material", deleteComponentOfMaterial},
        {"`delete` of the manager's current snapshot",
         "it is gone, its element too, and the getter gives null", deleteCurrentSnapShot},
        {"`delete` of a collection that the manager gave", "the same", deleteCollection},
        {"`delete` of an archive's root", "as `CloseArchive()`: the file stays", deleteArchiveRoot},
        {"`delete` of the reset snapshot without taking it back", "the getter gives null",
         deleteResetSnapShot},
        {"`DeleteNode()` on a node that is not the parent", "the node is deleted all the same",
         deleteNodeOfAnotherParent},
        {"`DetachNode()` twice",
         "the second time nothing changes but that the node is bound to nothing", detachTwice},
        {"`DetachNode()` of the node that a walk stands on",
         "the walk ends there: a detached node has no next one", detachWhileWalking},
        {"Using a node after the parent that it was detached from is gone",
         "right: it belongs to whoever detached it", useParentOfDetached},
        {"A component by value (`Camera c = *snapShot->GetCamera()`)",
         "a second view on the same element, which owns nothing", copyComponent},
        {"A `std::vector` of components", "the same", vectorOfCopies},
        {"A snapshot by value", "the same, also when it outlives the original", copySnapShot},
        {"A manager by value", "it shares everything, also when it outlives the original",
         copyManager},
        {"Assigning one component to another",
         "the object shows the other element; neither element changes", assignToComponent},
        {"`std::unique_ptr` over `createNode()` of a document's root",
         "the root is gone at its end; the text is empty then, and nothing is saved", ownedView},
        {"`SetResetSnapShot()` with the same snapshot twice", "nothing changes", resetGivenTwice},
        {"`SetResetSnapShot()` with the current snapshot", "nothing is owned twice",
         currentAsReset},
        {"`RemoveMaterial()` on another palette than the material's",
         "the material is removed where it is", removeMaterialOfAnotherPalette},
        {"Using a detached node after the manager is gone", "right: it keeps its document",
         outliveManager},
        {"Using the getters after loading a file of another kind",
         "they give null, which has to be looked at", wrongKindOfFile},
        {"`AddNode()` of a component instead of the snapshot's own operation",
         "an element more, whose object is a child of the snapshot", addFirstWhatSnapShotAdds},
    };
    return list;
}

/// At the mercy of the allocator.
const std::vector<Mistake>& undefinedMistakes()
{
    static const std::vector<Mistake> list = {
        {"Using a component after it was replaced or cleared",
         "the object is deleted; ask the getter again", useAfterReplacing, true},
        {"Using what a getter gave after a load, `ClearSnapShotDoc()`, `CloseArchive()` or the "
         "manager's end",
         "the object is deleted", useAfterReload, true},
        {"`DeleteNode()` or `delete` twice on the same pointer", "the object is deleted",
         deleteNodeTwice, true},
        {"`DeleteNode()` of the node that a walk stands on, then asking it for the next one",
         "take the next one first", deleteWhileWalking, true},
        {"An object from the stack that is added to a tree and still in it when the tree goes",
         "the tree deletes what `new` did not make", stackObjectThatOutlives, true},
    };
    return list;
}

} // namespace

const std::vector<Mistake>& mistakes()
{
    static const std::vector<Mistake> list = [] {
        std::vector<Mistake> all = definedMistakes();
        for (const std::vector<Mistake>& others : {handleMistakes(), undefinedMistakes()})
            all.insert(all.end(), others.begin(), others.end());
        return all;
    }();
    return list;
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenObserver.h>

#include "ManagerSupport.h"
#include "RecordingObserver.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scheme.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/TemporaryItems.h>

#include <memory>
#include <thread>

namespace rvopen::test {
namespace {

/// <a> with the children p, q and r, of which p has the child s.
struct Family {
    Family()
        : document(parse("<a><p><s/></p><q/>text<r/></a>"))
        , root(create(document.documentElement()))
    {
        materialise(root.get());
    }
    RVOpenNode* child(const char* name) const
    {
        for (RVOpenNode* node : children(root.get())) {
            if (node->GetNodeName() == QLatin1String(name))
                return node;
        }
        return nullptr;
    }
    RVOpenNode* fresh() const
    {
        return bind(document.createElement("n")).release();
    }

    mutable QDomDocument document;
    std::unique_ptr<RVOpenNode> root;
};

struct NodeChange {
    const char* name;
    void (*change)(Family& family);
    const char* told;
};

class NodeChanges : public ::testing::TestWithParam<NodeChange> {};

TEST_P(NodeChanges, AreToldInOneBlock)
{
    Family family;
    RecordingObserver observer(family.document);
    GetParam().change(family);
    EXPECT_EQ(observer.take(), QLatin1String(GetParam().told));
}

TEST_P(NodeChanges, AreTakenBackFromWhatWasTold)
{
    Family family;
    const QString before = xmlOf(family.document);
    RecordingObserver observer(family.document);
    GetParam().change(family);
    EXPECT_NE(xmlOf(family.document), before);
    takeBack(observer.changes);
    EXPECT_EQ(xmlOf(family.document), before);
}

TEST_P(NodeChanges, LeaveOneObjectForEachElementWhereAnObserverWalksAtEach)
{
    Family family;
    {
        RecordingObserver observer(family.document);
        observer.whenTold = [&](const RVOpenChange&) { materialise(family.root.get()); };
        GetParam().change(family);
    }
    EXPECT_TRUE(mirrorsWholeDom(family.root.get()));
}

const NodeChange s_nodeChanges[] = {
    {"AttributeAdded", [](Family& f) { f.child("q")->SetName("N"); },
     "q:N @name: nothing -> 'N'\n."},
    {"AttributeEmptied", [](Family& f) { f.root->SetAttributeString("x", QString()); },
     "a @x: nothing -> ''\n."},
    {"Added", [](Family& f) { f.root->AddNode(f.fresh(), true); }, "inserted n in a at 4\n."},
    {"AddedToOneWithoutChildren", [](Family& f) { f.child("q")->AddNode(f.fresh(), true); },
     "inserted n in q at 0\n."},
    {"AddedFromElsewhere", [](Family& f) { f.root->AddNode(children(f.child("p"))[0], true); },
     "removing s in p at 0\nremoved s in p at 0\ninserted s in a at 4\n."},
    {"AddedAgain", [](Family& f) { f.root->AddNode(f.child("p"), true); },
     "removing p in a at 0\nremoved p in a at 0\ninserted p in a at 3\n."},
    {"InsertedFirst", [](Family& f) { f.root->InsertNode(f.fresh(), 0); },
     "inserted n in a at 0\n."},
    {"InsertedBetween", [](Family& f) { f.root->InsertNode(f.fresh(), 2); },
     "inserted n in a at 2\n."},
    {"InsertedPastTheEnd", [](Family& f) { f.root->InsertNode(f.fresh(), 99); },
     "inserted n in a at 4\n."},
    {"MovedForward", [](Family& f) { f.root->InsertNode(f.child("r"), 0); },
     "removing r in a at 3\nremoved r in a at 3\ninserted r in a at 0\n."},
    {"Detached",
     [](Family& f) {
         RVOpenNode* const q = f.child("q");
         f.root->DetachNode(q, true);
         delete q;
     },
     "removing q in a at 1\nremoved q in a at 1\n."},
    {"Deleted", [](Family& f) { f.root->DeleteNode(f.child("p")); },
     "removing p in a at 0\nremoved p in a at 0\nremoving s in p at 0\nremoved s in p at 0\n."},
    {"DeletedByTheHost", [](Family& f) { delete children(f.child("p"))[0]; },
     "removing s in p at 0\nremoved s in p at 0\n."},
    {"DeletedWithWhatStandsBehind", [](Family& f) { delete f.child("q"); },
     "removing r in a at 3\nremoved r in a at 3\n"
     "removing #text in a at 2\nremoved #text in a at 2\n"
     "removing q in a at 1\nremoved q in a at 1\n."},
    {"Replaced", [](Family& f) { f.root->ReplaceNode(f.child("q"), f.fresh()); },
     "removing q in a at 1\nremoved q in a at 1\ninserted n in a at 1\n."},
};

INSTANTIATE_TEST_SUITE_P(RVOpenObserver, NodeChanges, ::testing::ValuesIn(s_nodeChanges),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RVOpenObserver, IsToldOfACopyFromAnotherDocument)
{
    const QDomDocument other = parse("<b><c/></b>");
    const auto there = create(other.documentElement());
    Family family;
    RecordingObserver all;
    family.root->InsertNode(there->GetChild(1, 1), 1);
    EXPECT_EQ(all.take(), "inserted c in a at 1\n.");
    EXPECT_EQ(all.changes[0].document, family.document);
}

TEST(RVOpenObserver, IsNotToldOfTheValueThatIsThereAlready)
{
    Family family;
    family.root->SetName("N");
    RecordingObserver observer;
    family.root->SetName("N");
    EXPECT_EQ(observer.take(), "");
}

TEST(RVOpenObserver, IsNotToldOfViewsThatAreDroppedNorOfWalks)
{
    Family family;
    RecordingObserver observer;
    {
        const RVOpenView<> view(family.document.documentElement());
        materialise(view.get());
    }
    EXPECT_EQ(observer.take(), "");
}

TEST(RVOpenObserver, OfADocumentHearsNothingOfOthers)
{
    Family mine;
    Family other;
    RecordingObserver observer(mine.document);
    other.root->SetName("N");
    EXPECT_EQ(observer.take(), "");
    mine.root->SetName("N");
    EXPECT_EQ(observer.take(), "a:N @name: nothing -> 'N'\n.");
}

TEST(RVOpenObserver, HearsOfTheChangesOfItsOwnThread)
{
    Family mine;
    RecordingObserver here;
    QString there;
    std::thread([&there] {
        Family other;
        RecordingObserver observer;
        other.root->SetName("N");
        there = observer.take();
    }).join();
    EXPECT_EQ(here.take(), "");
    EXPECT_EQ(there, "a:N @name: nothing -> 'N'\n.");
    mine.root->SetName("M");
    EXPECT_EQ(here.take(), "a:M @name: nothing -> 'M'\n.");
}

TEST(RVOpenObserver, HearsNothingOnceItHasEnded)
{
    Family family;
    QStringList lines;
    {
        RecordingObserver observer;
    }
    RecordingObserver later;
    family.root->SetName("N");
    EXPECT_EQ(later.lines.size(), 2);
}

TEST(RVOpenObserver, MayEndItselfAndOthersWhileItIsTold)
{
    Family family;
    auto* first = new RecordingObserver;
    auto* second = new RecordingObserver;
    auto* third = new RecordingObserver;
    int told = 0;
    const auto endAll = [&](const RVOpenChange&) {
        ++told;
        delete std::exchange(first, nullptr);
        delete std::exchange(third, nullptr);
        auto* const itself = std::exchange(second, nullptr);
        delete itself;
    };
    RecordingObserver last;
    // The innermost function object goes with its observer: what it does is kept outside.
    for (RecordingObserver* observer : {first, second, third})
        observer->whenTold = [&endAll](const RVOpenChange& change) { endAll(change); };
    family.root->SetName("N");
    EXPECT_EQ(told, 1);
    EXPECT_EQ(last.take(), "a:N @name: nothing -> 'N'\n.");
    family.root->SetName("M");
    EXPECT_EQ(told, 1);
}

TEST(RVOpenObserver, ThatComesWhileAnotherIsToldHearsTheNextChange)
{
    Family family;
    std::unique_ptr<RecordingObserver> added;
    RecordingObserver observer;
    observer.whenTold = [&](const RVOpenChange&) {
        if (!added)
            added = std::make_unique<RecordingObserver>();
    };
    family.root->SetName("N");
    EXPECT_EQ(added->take(), "");
    family.root->SetName("M");
    EXPECT_EQ(added->take(), "a:M @name: 'N' -> 'M'\n.");
}

TEST(RVOpenObserverDeathTest, MustNotChangeWhatItIsToldOf)
{
    Family family;
    RecordingObserver observer;
    observer.whenTold = [&](const RVOpenChange&) { family.root->SetCat("C"); };
    EXPECT_ASSERTION(family.root->SetName("N"), "!Observers::areBeingTold()", "Changes");
    if (!AssertionsEnabled) {
        EXPECT_EQ(family.root->GetName(), "N");
        EXPECT_EQ(family.root->GetCat(), "C");
    }
}

TEST(RVOpenObserver, MayMakeAnObjectThatSetsAnAttributeOfItsElement)
{
    Family family;
    QDomDocument other = parse("<renderTargets><renderTarget/></renderTargets>");
    RecordingObserver observer;
    observer.whenTold = [&](const RVOpenChange& change) {
        if (change.node == family.document.documentElement())
            const RVOpenView<RenderTargets> view(other.documentElement());
    };
    family.root->SetName("N");
    EXPECT_EQ(observer.take(),
              "a:N @name: nothing -> 'N'\nrenderTarget @subcat: nothing -> 'Image'\n.");
}

TEST(RVOpenBlock, MakesAllChangesInItOne)
{
    Family family;
    RecordingObserver observer;
    {
        const RVOpenBlock outer;
        family.root->SetName("N");
        {
            const RVOpenBlock inner;
            family.root->AddNode(family.fresh(), true);
        }
        family.root->SetName("M");
        EXPECT_FALSE(observer.lines.contains("."));
    }
    EXPECT_EQ(observer.lines.size(), 4);
    EXPECT_EQ(observer.lines.last(), ".");
}

TEST(RVOpenBlock, IsOneForARenderTargetThatIsCreated)
{
    const QDomDocument document = parse("<renderTargets/>");
    const auto targets = bind<RenderTargets>(document.documentElement());
    RecordingObserver observer(document);
    const std::unique_ptr<RenderTarget> made(targets->CreateRenderTarget(nullptr));
    EXPECT_GT(observer.lines.size(), 10);
    EXPECT_EQ(observer.lines.count("."), 1);
}

TEST(RVOpenBlock, IsOneForAnImport)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("import.xml");
    writeFile(path, "<snapRoot><snapshots name=\"Model SnapShots\"><snapshot name=\"A\"/>"
                    "<snapshot name=\"B\"/></snapshots></snapRoot>");
    RVOpenManager manager;
    load(manager, "<snapRoot/>");
    RecordingObserver observer(manager.GetRootNode()->GetDomNode().ownerDocument());
    manager.ImportSnapShotDoc(path, false, true);
    EXPECT_EQ(namesIn(manager.GetSnapShots()), "A B");
    EXPECT_EQ(observer.lines.count("."), 1);
}

TEST(RVOpenBlock, IsOneForWhatTheClipboardGets)
{
    const QDomDocument document = parse("<material><colour/><material/></material>");
    const auto material = bind<Material>(document.documentElement());
    TemporaryItems items;
    items.SetMaterial(material.get());
    items.GetMaterial()->GetColour(0);
    RecordingObserver observer(document);
    items.SetMaterial(material.get());
    EXPECT_EQ(observer.take(),
              "removing colour in material at 0\nremoved colour in material at 0\n"
              "removing material in material at 1\nremoved material in material at 1\n.");
}

TEST(RVOpenBlock, IsOpenInItsScopeAndNoOperationIsOne)
{
    Family family;
    RecordingObserver observer(family.document);
    std::vector<bool> seen;
    observer.whenTold = [&](const RVOpenChange&) { seen.push_back(RVOpenBlock::IsOpen()); };
    family.root->DeleteNode(family.child("q"));
    EXPECT_EQ(seen, (std::vector<bool>{false, false}));
    {
        const RVOpenBlock block;
        family.root->SetName("N");
        EXPECT_TRUE(RVOpenBlock::IsOpen());
    }
    EXPECT_EQ(seen.size(), 3U);
    EXPECT_TRUE(seen.back());
    EXPECT_FALSE(RVOpenBlock::IsOpen());
}

TEST(RVOpenBlock, WithoutAChangeIsNotToldOf)
{
    RecordingObserver observer;
    {
        const RVOpenBlock block;
    }
    EXPECT_EQ(observer.take(), "");
}

/// A change made through a manager's objects, for which a document with everything is loaded.
struct ManagerChange {
    const char* name;
    void (*change)(RVOpenManager& manager);
};

class ManagerChanges : public ::testing::TestWithParam<ManagerChange> {
protected:
    ManagerChanges()
    {
        load(manager,
             R"(<snapRoot unitsScale="1"><snapshots name="Model SnapShots">
<snapshot name="S1"><camera><param name="Field Of View" type="float" val="45"/>
<param name="From" type="point" val="0 0 0"/><param name="To" type="point" val="0 0 0"/>
<param name="Near" type="float" val="1"/><param name="Far" type="float" val="2"/></camera>
<scheme name="T"/><background/><foreground/><naturalLightStudio/>
<materialRepository><material linkname="L"><colour name="C"/><finish name="F"/></material>
<material linkname="M"><colour name="D"/><bump/></material></materialRepository>
<renderTargets><renderTarget><param name="Model Hint" type="float" val="1"/></renderTarget>
</renderTargets><snapShotSettings><param name="Orientation Up" type="vector" val="0 0 0"/>
<param name="Orientation North" type="vector" val="0 0 0"/></snapShotSettings></snapshot>
<snapshot name="S2"/></snapshots><snapshot name="CurrSnapshot"/></snapRoot>)");
        Material* const material = snapShot(manager)->GetMaterialRepository()->GetMaterial("M");
        material->GetBump(0)->GetColour()->GetMap(1);
    }
    static SnapShot* snapShot(RVOpenManager& of)
    {
        return of.GetSnapShots()->GetFirstSnapShot();
    }

    RVOpenManager manager;
};

TEST_P(ManagerChanges, AreOneBlockAndAreTakenBackFromWhatWasTold)
{
    const QDomDocument document = manager.GetRootNode()->GetDomNode().ownerDocument();
    const QString before = manager.GetSnapShotDocumentAsString();
    RecordingObserver observer(document);
    GetParam().change(manager);
    EXPECT_NE(manager.GetSnapShotDocumentAsString(), before);
    takeBack(observer.changes);
    EXPECT_EQ(manager.GetSnapShotDocumentAsString(), before);
    EXPECT_EQ(observer.lines.indexOf("."), observer.lines.size() - 1)
        << observer.take().toStdString();
}

SnapShot* first(RVOpenManager& manager)
{
    return manager.GetSnapShots()->GetFirstSnapShot();
}
MaterialRepository* palette(RVOpenManager& manager)
{
    return first(manager)->GetMaterialRepository();
}

const ManagerChange s_managerChanges[] = {
    {"UnitsScale", [](RVOpenManager& m) { m.SetUnitsScale(2.0f); }},
    {"Param",
     [](RVOpenManager& m) {
         first(m)->GetCamera()->GetParamHelper()->GetParam("Field Of View")->SetValFloat(30.0f);
     }},
    {"InternalSnapShot",
     [](RVOpenManager& m) { m.SetResetSnapShot(m.CreateInternalSnapShot(nullptr)); }},
    {"Pinhole",
     [](RVOpenManager& m) {
         float one[] = {1, 2, 3}, other[] = {4, 5, 6};
         first(m)->GetCamera()->SetPinhole(one, other, one, 0, 30.0f);
     }},
    {"Clipping", [](RVOpenManager& m) { first(m)->GetCamera()->SetClipping(3.0f, 4.0f); }},
    {"Orientation",
     [](RVOpenManager& m) {
         float one[] = {1, 2, 3};
         first(m)->GetSnapShotSettings()->SetOrientationInfo(one, one, one);
     }},
    {"BackgroundReflected",
     [](RVOpenManager& m) {
         first(m)->GetSnapShotSettings()->SetBackgroundReflected("a.png", 2.0f);
     }},
    {"Mapping",
     [](RVOpenManager& m) {
         palette(m)->GetMaterial("M")->GetBump(0)->GetColour()->GetMap(0)->SetMapping(1, 1);
     }},
    {"ModelHint",
     [](RVOpenManager& m) {
         first(m)->GetRenderTargets()->GetFirstRenderTarget()->SetModelHint(3.0f);
     }},
    {"TypeOfAParam",
     [](RVOpenManager& m) {
         first(m)->GetCamera()->GetParamHelper()->GetParam("Near")->SetTypeInt(7);
     }},
    {"AddedParam",
     [](RVOpenManager& m) { first(m)->GetCamera()->GetParamHelper()->AddFloatParam("New", 2.0f); }},
    {"CreatedParam", [](RVOpenManager& m) { first(m)->GetSnapShotSettings()->SetSelected(0); }},
    {"ShaderClass",
     [](RVOpenManager& m) {
         palette(m)->GetMaterial("L")->GetFinish()->SetAndPopulateShaderClass("lit appearance");
     }},
    {"FinishThatResets",
     [](RVOpenManager& m) {
         RVOpenManager other;
         load(other, "<snapRoot><snapshot name=\"C\"><materialRepository><material>"
                     "<finish reset=\"1\"/></material></materialRepository></snapshot></snapRoot>");
         Material* const source =
             other.GetCurrentSnapShot()->GetMaterialRepository()->GetFirstMaterial();
         palette(m)->AddFinish(source->GetFinish(), "M", nullptr);
     }},
    {"AddBaseMaterial",
     [](RVOpenManager& m) { palette(m)->AddBaseMaterial(palette(m)->GetMaterial("M"), "L"); }},
    {"Collection", [](RVOpenManager& m) { m.GetSnapShotsCameras(); }},
    {"OriginalBackground", [](RVOpenManager& m) { m.GetOriginalBackground(); }},
    {"AddCamera", [](RVOpenManager& m) { first(m)->AddCamera(first(m)->GetCamera()); }},
    {"AddScheme", [](RVOpenManager& m) { first(m)->AddScheme(first(m)->GetScheme()); }},
    {"ClearBackground", [](RVOpenManager& m) { first(m)->ClearBackground(); }},
    {"NaturalLightStudio", [](RVOpenManager& m) { first(m)->CreateAndAddNaturalLightStudio(); }},
    {"ArtificialLightStudio", [](RVOpenManager& m) { first(m)->GetArtificialLightStudio(); }},
    {"SnapShotSettingsFromElsewhere",
     [](RVOpenManager& m) {
         first(m)->GetNext()->AddSnapShotSettings(first(m)->GetSnapShotSettings());
     }},
    {"DeletedComponent", [](RVOpenManager& m) { delete first(m)->GetCamera(); }},
    {"DeletedSnapShot", [](RVOpenManager& m) { m.GetSnapShots()->DeleteNode(first(m)); }},
    {"DeletedByTheHost", [](RVOpenManager& m) { delete first(m)->GetNext(); }},
    {"ClearedSnapShots", [](RVOpenManager& m) { m.GetSnapShots()->Clear(); }},
    {"ClearedRenderTargets", [](RVOpenManager& m) { first(m)->GetRenderTargets()->Clear(); }},
    {"AddMaterial",
     [](RVOpenManager& m) { palette(m)->AddMaterial(palette(m)->CreateMaterial()); }},
    {"AddMaterialAgain",
     [](RVOpenManager& m) { palette(m)->AddMaterial(palette(m)->GetFirstMaterial()); }},
    {"RemoveMaterial",
     [](RVOpenManager& m) { palette(m)->RemoveMaterial(palette(m)->GetFirstMaterial()); }},
    {"ClearedPalette", [](RVOpenManager& m) { palette(m)->Clear(); }},
    {"SetColour", [](RVOpenManager& m) { palette(m)->GetFirstMaterial()->SetColour(nullptr); }},
    {"GetBump", [](RVOpenManager& m) { palette(m)->GetFirstMaterial()->GetBump(1); }},
    {"ApplyMaterial",
     [](RVOpenManager& m) {
         palette(m)->ApplyMaterial(palette(m)->GetMaterial("M"), "L", nullptr);
     }},
    {"Paths", [](RVOpenManager& m) { first(m)->SetPath("a\\b"); }},
};

INSTANTIATE_TEST_SUITE_P(RVOpenObserver, ManagerChanges, ::testing::ValuesIn(s_managerChanges),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RVOpenObserver, FindsOneObjectForAMaterialThatIsAdded)
{
    const QDomDocument document = parse("<materialRepository><material/></materialRepository>");
    const auto repository = bind<MaterialRepository>(document.documentElement());
    repository->Populate();
    RecordingObserver observer;
    observer.whenTold = [&](const RVOpenChange&) { materialise(repository.get()); };
    repository->AddMaterial(repository->CreateMaterial());
    EXPECT_EQ(observer.take(), "inserted material in materialRepository at 1\n.");
    EXPECT_TRUE(mirrorsWholeDom(repository.get()));
    EXPECT_EQ(repository->GetNumMaterials(), 2U);
}

TEST(RVOpenObserver, FindsTheComponentThatIsAboutToBeRemoved)
{
    const QDomDocument document = parse("<snapshot><materialRepository/></snapshot>");
    const auto snapShot = bind<SnapShot>(document.documentElement());
    MaterialRepository* const held = snapShot->GetMaterialRepository();
    std::vector<MaterialRepository*> found;
    RecordingObserver observer;
    observer.whenTold = [&](const RVOpenChange& change) {
        if (change.kind == RVOpenChange::ChildAboutToBeRemoved)
            found.push_back(snapShot->GetMaterialRepository());
    };
    snapShot->AddMaterialRepository(held);
    EXPECT_THAT(found, ::testing::ElementsAre(held));
    EXPECT_EQ(domChildNames(document.documentElement()).size(), 1);
}

TEST(RVOpenObserver, IsToldOfALoadAsAResetAndFollowsToTheNewDocument)
{
    RVOpenManager manager;
    RecordingObserver observer(manager.GetRootNode()->GetDomNode().ownerDocument());
    load(manager, "<snapRoot><snapshots name=\"SnapShots\"/><snapshot name=\"C\"/></snapRoot>");
    EXPECT_EQ(observer.take(), "resetting snapRoot\nreset to snapRoot\n.");
    manager.GetCurrentSnapShot()->SetName("D");
    EXPECT_EQ(observer.take(), "snapshot:D @name: 'C' -> 'D'\n.");
    manager.InitialiseSnapShotDoc();
    EXPECT_EQ(observer.take(), "resetting snapRoot\nreset to snapRoot\n.");
    manager.ClearSnapShotDoc();
    EXPECT_EQ(observer.take(), "resetting snapRoot\nreset to \n.");
}

TEST(RVOpenObserver, IsToldOfTheEndOfAManagersDocument)
{
    RecordingObserver observer;
    {
        RVOpenManager manager;
        observer.take();
    }
    EXPECT_EQ(observer.take(), "resetting snapRoot\nreset to \n.");
}

TEST(RVOpenObserver, OfAnArchiveHearsWhatAReferenceForwardsAndItsEnd)
{
    ArchiveFolders folders;
    const QString file = folders.write("A", "<presets><material name=\"M\"/></presets>");
    const QDomDocument document =
        parse("<a><dir archiveFilename=\"A\" archiveType=\"Custom\"/></a>");
    const auto root = create(document.documentElement());
    RVOpenNode* const reference = root->GetChild(1, 1);
    RecordingObserver ofDocument(document);
    const RecordingObserver ofAll;
    reference->GetChild(1, 1);
    EXPECT_EQ(ofAll.lines.size(), 0) << "opening changes nothing";
    RecordingObserver ofArchive(
        GetDirectoryHandler()->LoadArchive(file)->GetDomNode().ownerDocument());
    reference->DeleteNode(reference->GetChild(1, 1));
    EXPECT_EQ(ofArchive.take(),
              "removing material:M in presets at 0\nremoved material:M in presets at 0\n.");
    GetDirectoryHandler()->CloseArchive(file);
    EXPECT_EQ(ofArchive.take(), "resetting presets\nreset to \n.");
    EXPECT_EQ(ofDocument.take(), "");
}

} // namespace
} // namespace rvopen::test

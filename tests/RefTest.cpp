// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Ref.h>

#include "ManagerSupport.h"
#include "RecordingObserver.h"

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/Scheme.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace rvopen::test {
namespace {

using host::Ref;

const char s_referredDocument[] = R"(<snapRoot><snapshots name="Model SnapShots">
<snapshot name="S"><camera><param name="P" type="float" val="1"/></camera><background/><scheme/>
<materialRepository><material linkname="L"><colour/></material></materialRepository></snapshot>
</snapshots></snapRoot>)";

/// The objects of a document that handles lead to, and their parents.
struct Objects {
    std::optional<RVOpenManager> manager{std::in_place};
    SnapShot* snapShot = nullptr;
    Camera* camera = nullptr;
    Background* background = nullptr;
    Material* material = nullptr;
    Colour* colour = nullptr;

    Objects()
    {
        load(*manager, s_referredDocument);
        snapShot = manager->GetSnapShots()->GetFirstSnapShot();
        camera = snapShot->GetCamera();
        background = snapShot->GetBackground();
        material = snapShot->GetMaterialRepository()->GetFirstMaterial();
        colour = material->GetColour(0);
    }
};

struct WayToGo {
    const char* name;
    void (*go)(Objects& objects);
    const char* gone; ///< A letter for each: S, C, P, B, M, c.
};

class WaysToGo : public ::testing::TestWithParam<WayToGo> {};

TEST_P(WaysToGo, EndTheHandlesToWhatIsGoneAndNoOther)
{
    Objects objects;
    const Ref<SnapShot> snapShot(objects.snapShot);
    const Ref<Camera> camera(objects.camera);
    const Ref<Param> param(objects.camera->GetParamHelper()->GetParam("P"));
    const Ref<Background> background(objects.background);
    const Ref<Material> material(objects.material);
    const Ref<Colour> colour(objects.colour);
    GetParam().go(objects);
    std::string gone;
    for (const auto& [letter, isThere] : {std::pair('S', bool(snapShot)),
                                          {'C', bool(camera)},
                                          {'P', bool(param)},
                                          {'B', bool(background)},
                                          {'M', bool(material)},
                                          {'c', bool(colour)}}) {
        if (!isThere)
            gone += letter;
    }
    EXPECT_EQ(gone, GetParam().gone);
}

const WayToGo s_waysToGo[] = {
    {"ByNothing", [](Objects&) {}, ""},
    {"ByAnEdit", [](Objects& o) { o.camera->SetName("N"); }, ""},
    {"ByDelete", [](Objects& o) { delete o.camera; }, "CP"},
    {"ByDeleteNode", [](Objects& o) { o.manager->GetSnapShots()->DeleteNode(o.snapShot); },
     "SCPBMc"},
    {"ByReplaceNode",
     [](Objects& o) {
         SnapShots* const all = o.manager->GetSnapShots();
         all->ReplaceNode(o.snapShot, all->CreateSnapShot(nullptr));
     },
     "SCPBMc"},
    {"ByASetter", [](Objects& o) { o.material->SetColour(nullptr); }, "c"},
    {"ByAnAdd", [](Objects& o) { o.snapShot->AddCamera(o.camera); }, "CP"},
    {"ByAScheme", [](Objects& o) { o.snapShot->AddScheme(o.snapShot->GetScheme()); }, "B"},
    {"ByAClear", [](Objects& o) { o.snapShot->ClearBackground(); }, "B"},
    {"ByRemoveMaterial",
     [](Objects& o) { o.snapShot->GetMaterialRepository()->RemoveMaterial(o.material); }, "Mc"},
    {"ByClearedCollection", [](Objects& o) { o.manager->GetSnapShots()->Clear(); }, "SCPBMc"},
    {"ByALoad", [](Objects& o) { load(*o.manager, s_referredDocument); }, "SCPBMc"},
    {"ByAClearedDocument", [](Objects& o) { o.manager->ClearSnapShotDoc(); }, "SCPBMc"},
    {"ByTheCopyOfAnother",
     [](Objects& o) {
         const std::unique_ptr<SnapShot> other(o.manager->CreateInternalSnapShot(o.snapShot));
         o.snapShot->AddBackground(other->GetBackground());
     },
     "B"},
    {"ByTheEndOfTheManager", [](Objects& o) { o.manager.reset(); }, "SCPBMc"},
    // The manager keeps these for those who hold them.
    {"NotByANewDocument", [](Objects& o) { o.manager->InitialiseSnapShotDoc(); }, ""},
    {"NotByDetaching",
     [](Objects& o) {
         o.manager->GetSnapShots()->DetachNode(o.snapShot, true);
         o.manager->GetSnapShots()->AddNode(o.snapShot, true);
     },
     ""},
    {"NotByMoving", [](Objects& o) { o.manager->GetSnapShotsCameras()->InsertNode(o.snapShot, 0); },
     ""},
    {"NotByTakingTheElementOutByHand",
     [](Objects& o) {
         QDomNode element = o.camera->GetDomNode();
         element.parentNode().removeChild(element);
     },
     ""},
};

INSTANTIATE_TEST_SUITE_P(Ref, WaysToGo, ::testing::ValuesIn(s_waysToGo),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Ref, EndsWithTheArchiveOfItsObject)
{
    ArchiveFolders folders;
    const QString file = folders.write("A", "<presets><material/></presets>");
    const Ref<> material(GetDirectoryHandler()->LoadArchive(file)->GetChild(1, 1));
    EXPECT_TRUE(material);
    GetDirectoryHandler()->CloseArchive(file);
    EXPECT_FALSE(material);
}

TEST(Ref, IsCopiedAssignedAndEndedInAnyOrder)
{
    const QDomDocument document = parse("<a><b/><c/></a>");
    const auto root = create(document.documentElement());
    RVOpenNode* const b = root->GetChild(1, 1);
    Ref<> first(b);
    Ref<> third;
    {
        const Ref<> second = first;
        third = second;
        EXPECT_EQ(third, first);
    }
    first = b->GetNext(1);
    EXPECT_NE(third, first);
    EXPECT_EQ(third.get(), b);
    root->DeleteNode(b);
    EXPECT_FALSE(third);
    EXPECT_EQ(first->GetNodeName(), "c");
    third = first;
    first = Ref<>();
    EXPECT_EQ(third->GetNodeName(), "c");
}

TEST(Ref, MovesToAnotherPlace)
{
    const QDomDocument document = parse("<a><b/></a>");
    const auto root = create(document.documentElement());
    RVOpenNode* const b = root->GetChild(1, 1);
    std::vector<Ref<>> handles;
    for (int count = 0; count < 100; ++count)
        handles.emplace_back(b);
    Ref<> taken = std::move(handles.front());
    handles.erase(handles.begin(), handles.begin() + 50);
    EXPECT_EQ(taken, b);
    EXPECT_EQ(b, handles.back());
    handles.back() = std::move(taken);
    EXPECT_NE(taken, b);
    EXPECT_FALSE(taken);
    root->DeleteNode(b);
    EXPECT_TRUE(
        std::none_of(handles.begin(), handles.end(), [](const Ref<>& h) { return bool(h); }));
}

TEST(Ref, IsTakenAsOneOfABaseClass)
{
    Objects objects;
    const Ref<Camera> camera(objects.camera);
    const Ref<> node = camera;
    EXPECT_EQ(node, camera);
    delete objects.camera;
    EXPECT_FALSE(node);
}

TEST(Ref, EndsWithTheViewOfItsObject)
{
    const QDomDocument document = parse("<a><b/></a>");
    std::optional<RVOpenView<>> view(document.documentElement());
    const Ref<> b((*view)->GetChild(1, 1));
    view.reset();
    EXPECT_FALSE(b);
    EXPECT_EQ(xmlOf(document), "<a><b/></a>");
}

TEST(Ref, DoesNotFollowToANewObjectAtTheSamePlace)
{
    std::optional<RVOpenNode> place(std::in_place);
    const Ref<> handle(&*place);
    place.emplace();
    EXPECT_FALSE(handle);
    const Ref<> another(&*place);
    EXPECT_TRUE(another);
    place.reset();
    EXPECT_FALSE(another);
}

/// A document of whose root the first child is deleted.
struct Ending {
    const char* name;
    const char* document;
    std::size_t told; ///< How many changes.
};

class Endings : public ::testing::TestWithParam<Ending> {};

TEST_P(Endings, AreToldOfWhenTheHandleIsNull)
{
    const QDomDocument document = parse(GetParam().document);
    const auto root = create(document.documentElement());
    const Ref<> handle(root->GetChild(1, 1));
    RecordingObserver observer;
    observer.whenTold = [&](const RVOpenChange&) { EXPECT_FALSE(handle); };
    delete handle.get();
    EXPECT_EQ(observer.changes.size(), GetParam().told);
}

// Classes that take something out of their element before they end.
const Ending s_endings[] = {
    {"OfANode", "<a><b/></a>", 2},
    {"OfASnapShot", "<snapshots><snapshot><camera/><scheme/></snapshot></snapshots>", 6},
    {"OfAMaterialWithABase", "<materials><material><material/></material></materials>", 4},
};

INSTANTIATE_TEST_SUITE_P(Ref, Endings, ::testing::ValuesIn(s_endings),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Ref, IsThereStillWhereTheRemovalOfAComponentIsAnnounced)
{
    const QDomDocument document = parse("<snapshot><materialRepository/></snapshot>");
    const auto snapShot = bind<SnapShot>(document.documentElement());
    const Ref<MaterialRepository> held(snapShot->GetMaterialRepository());
    RecordingObserver observer(document);
    observer.whenTold = [&](const RVOpenChange& change) {
        if (change.kind == RVOpenChange::ChildAboutToBeRemoved) {
            EXPECT_EQ(held.get(), snapShot->GetMaterialRepository());
            EXPECT_TRUE(held);
        }
    };
    snapShot->AddMaterialRepository(held.get());
    EXPECT_FALSE(held);
    EXPECT_EQ(observer.changes.size(), 3U);
}

} // namespace
} // namespace rvopen::test

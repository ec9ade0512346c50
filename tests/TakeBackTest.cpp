// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "RandomEdits.h"
#include "RecordingObserver.h"

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenView.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// Changes that are taken back through the library: document and objects go together.
namespace rvopen::test {
namespace {

/// <a> with the children p, q, text and r, all of them objects.
struct Objects {
    Objects()
        : document(parse("<a x=\"1\"><p><s/></p><q/>text<r/></a>"))
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

    std::function<bool(const RVOpenChange&)> takeBack() const
    {
        return [this](const RVOpenChange& change) { return change.TakeBack(root.get()); };
    }

    mutable QDomDocument document;
    std::unique_ptr<RVOpenNode> root;
};

/// From the last to the first, with what was told of it.
std::vector<RVOpenChange> takeAllBack(std::vector<RVOpenChange> changes,
                                      const std::function<bool(const RVOpenChange&)>& takeBack)
{
    const RecordingObserver observer;
    for (auto change = changes.rbegin(); change != changes.rend(); ++change)
        EXPECT_TRUE(takeBack(*change));
    return observer.changes;
}

TEST(TakeBack, TakesANewAttributeOutAndTellsOfIt)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    objects.root->SetName("N");
    EXPECT_TRUE(observer.changes[0].TakeBack(objects.root.get()));
    EXPECT_EQ(observer.take(), "a:N @name: nothing -> 'N'\n.\na @name: 'N' -> nothing\n.");
    EXPECT_FALSE(objects.document.documentElement().hasAttribute("name"));
    EXPECT_TRUE(observer.changes[1].TakeBack(objects.root.get()));
    EXPECT_EQ(observer.take(), "a:N @name: nothing -> 'N'\n.");
}

TEST(TakeBack, GivesAnAttributeItsValueBefore)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    objects.root->SetAttributeInt("x", 2);
    EXPECT_TRUE(observer.changes[0].TakeBack(nullptr));
    EXPECT_EQ(observer.take(), "a @x: '1' -> '2'\n.\na @x: '2' -> '1'\n.");
}

TEST(TakeBack, KeepsAValueThatIsNotTheOneThatWasSet)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    objects.root->SetAttributeInt("x", 2);
    objects.root->SetAttributeString("y", "");
    QDomElement element = objects.document.documentElement();
    element.setAttribute("x", "3");
    element.removeAttribute("y");
    observer.take();
    EXPECT_FALSE(observer.changes[0].TakeBack(objects.root.get()));
    EXPECT_FALSE(observer.changes[1].TakeBack(objects.root.get()));
    EXPECT_EQ(element.attribute("x"), "3");
    EXPECT_EQ(observer.take(), "");
}

TEST(TakeBack, PutsNoNodeIntoItself)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    objects.root->DeleteNode(objects.child("p"));
    RVOpenChange removed = observer.changes[1];
    ASSERT_EQ(removed.kind, RVOpenChange::ChildRemoved);
    removed.node.appendChild(objects.document.documentElement());
    EXPECT_FALSE(removed.TakeBack(objects.root.get()));
    EXPECT_TRUE(removed.node.parentNode().isNull());
}

TEST(TakeBack, TakesAnInsertedNodeOutOfDocumentAndChain)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    RVOpenNode* const fresh = bind(objects.document.createElement("n")).release();
    objects.root->InsertNode(fresh, 1);
    observer.take();
    EXPECT_TRUE(observer.changes[0].TakeBack(objects.root.get()));
    EXPECT_EQ(observer.take(), "removing n in a at 1\nremoved n in a at 1\n.");
    EXPECT_EQ(childNames(objects.root.get()), (QStringList{"p", "q", "#text", "r"}));
    EXPECT_TRUE(mirrorsWholeDom(objects.root.get()));
    fresh->SetName("Still");
    EXPECT_EQ(observer.changes[0].node.toElement().attribute("name"), "Still");
}

TEST(TakeBack, PutsADeletedNodeInItsPlaceWithANewObject)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    objects.root->DeleteNode(objects.child("p"));
    observer.take();
    takeAllBack(observer.changes,
                [&](const RVOpenChange& change) { return change.TakeBack(objects.root.get()); });
    EXPECT_EQ(xmlOf(objects.document), xmlOf(Objects().document));
    EXPECT_TRUE(mirrorsDom(objects.root.get()));
    EXPECT_EQ(childNames(objects.root.get()), (QStringList{"p", "q", "#text", "r"}));
    EXPECT_EQ(childNames(objects.child("p")), QStringList{"s"});
}

TEST(TakeBack, PutsTheOnlyNodeAndTheLastOneBackWhereNoWalkMakesThem)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    objects.child("p")->DeleteNode(objects.child("p")->GetChild(1, 0));
    objects.root->DeleteNode(objects.child("r"));
    takeAllBack(observer.changes,
                [&](const RVOpenChange& change) { return change.TakeBack(objects.root.get()); });
    RVOpenNode* const child = objects.child("p")->GetChild(0, 0);
    ASSERT_TRUE(child);
    EXPECT_EQ(child->GetNodeName(), "s");
    RVOpenNode* last = objects.root->GetChild(0, 0);
    while (RVOpenNode* const next = last->GetNext(0))
        last = next;
    EXPECT_EQ(last->GetNodeName(), "r");
}

TEST(TakeBack, MakesNoObjectsWhereThereAreNone)
{
    QDomDocument document = parse("<a><p/><q/><r/></a>");
    const auto root = create(document.documentElement());
    RecordingObserver observer(document);
    {
        const RVOpenView<> other(document.documentElement());
        RVOpenNode* const last = children(other.get())[2];
        other->DeleteNode(last);
    }
    takeAllBack(observer.changes,
                [&](const RVOpenChange& change) { return change.TakeBack(root.get()); });
    EXPECT_FALSE(root->GetChild(0, 0));
    EXPECT_TRUE(mirrorsWholeDom(root.get()));
}

TEST(TakeBack, ShowsWhoIsToldDocumentAndObjectsAlike)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    objects.root->DeleteNode(objects.child("q"));
    const std::vector<RVOpenChange> changes = observer.changes;
    RecordingObserver told;
    int count = 0;
    told.whenTold = [&](const RVOpenChange&) {
        ++count;
        materialise(objects.root.get());
    };
    for (int i = 0; i < 3; ++i)
        takeAllBack(i ? told.changes : changes, [&](const RVOpenChange& change) {
            if (change.kind == RVOpenChange::ChildAboutToBeRemoved)
                return true;
            told.changes.clear();
            return change.TakeBack(objects.root.get());
        });
    EXPECT_EQ(count, 4);
    EXPECT_TRUE(mirrorsWholeDom(objects.root.get()));
}

TEST(TakeBack, RefusesWhatTheDocumentIsNotReadyFor)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    RVOpenNode* const fresh = bind(objects.document.createElement("n")).release();
    objects.root->AddNode(fresh, true);
    objects.root->DeleteNode(objects.child("r"));
    const RVOpenChange inserted = observer.changes[0];
    const RVOpenChange removed = observer.changes[2];
    ASSERT_EQ(removed.kind, RVOpenChange::ChildRemoved);
    objects.child("p")->AddNode(fresh, true);
    objects.root->DeleteNode(objects.child("#text"));
    const QString before = xmlOf(objects.document);
    observer.take();
    EXPECT_FALSE(inserted.TakeBack(objects.root.get()));
    EXPECT_FALSE(removed.TakeBack(objects.root.get()));
    RVOpenChange reset;
    reset.kind = RVOpenChange::DocumentReset;
    EXPECT_FALSE(reset.TakeBack(objects.root.get()));
    EXPECT_FALSE(RVOpenChange().TakeBack(objects.root.get()));
    EXPECT_EQ(xmlOf(objects.document), before);
    EXPECT_EQ(observer.take(), "");
}

TEST(TakeBack, PutsTheObjectBackThatWasTakenOut)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    RVOpenNode* const fresh = bind(objects.document.createElement("n")).release();
    fresh->AddNode(bind(objects.document.createElement("m")).release(), true);
    observer.changes.clear();
    objects.root->InsertNode(fresh, 1);
    RVOpenNode* const below = fresh->GetChild(1, 0);
    std::vector<RVOpenChange> changes = observer.changes;
    const auto takeBack = objects.takeBack();
    for (int i = 0; i < 3; ++i) {
        changes = takeAllBack(takeAllBack(changes, takeBack), takeBack);
        EXPECT_EQ(objects.child("n"), fresh);
        EXPECT_EQ(fresh->GetChild(0, 0), below);
        EXPECT_TRUE(mirrorsWholeDom(objects.root.get()));
    }
}

TEST(TakeBack, PutsTheObjectBackThatMovedToAnotherNode)
{
    Objects objects;
    RVOpenNode* const moved = objects.child("q");
    RecordingObserver observer(objects.document);
    objects.child("p")->AddNode(moved, true);
    const auto takeBack = objects.takeBack();
    const std::vector<RVOpenChange> back = takeAllBack(observer.changes, takeBack);
    EXPECT_EQ(objects.child("q"), moved);
    EXPECT_EQ(childNames(objects.root.get()), (QStringList{"p", "q", "#text", "r"}));
    takeAllBack(back, takeBack);
    EXPECT_FALSE(objects.child("q"));
    EXPECT_EQ(moved->GetParent(), objects.child("p"));
    EXPECT_TRUE(mirrorsWholeDom(objects.root.get()));
}

/// What is done in between comes back, too.
TEST(TakeBack, KeepsTheObjectsOfWhatIsOutInStep)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    RVOpenNode* const fresh = bind(objects.document.createElement("n")).release();
    objects.root->AddNode(fresh, true);
    const auto takeBack = objects.takeBack();
    const std::vector<RVOpenChange> back = takeAllBack(observer.changes, takeBack);
    observer.changes.clear();
    fresh->AddNode(bind(objects.document.createElement("m")).release(), true);
    EXPECT_EQ(childNames(fresh), QStringList{"m"});
    takeAllBack(observer.changes, takeBack);
    EXPECT_EQ(childNames(fresh), QStringList());
    takeAllBack(back, takeBack);
    EXPECT_EQ(objects.child("n"), fresh);
    EXPECT_TRUE(mirrorsWholeDom(objects.root.get()));
}

/// An object of another document's element, or one that the DOM left behind, is no use.
TEST(TakeBack, MakesANewObjectWhereTheOldOneIsBehind)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    RVOpenNode* const fresh = bind(objects.document.createElement("n")).release();
    fresh->AddNode(bind(objects.document.createElement("m")).release(), true);
    observer.changes.clear();
    objects.root->InsertNode(fresh, 1);
    const auto takeBack = objects.takeBack();
    const std::vector<RVOpenChange> back = takeAllBack(observer.changes, takeBack);
    QDomNode element = fresh->GetDomNode();
    element.insertBefore(objects.document.createElement("raw"), element.firstChild());
    takeAllBack(back, takeBack);
    EXPECT_NE(objects.child("n"), fresh);
    EXPECT_EQ(childNames(objects.child("n")), (QStringList{"raw", "m"}));
    EXPECT_TRUE(mirrorsWholeDom(objects.root.get()));
    EXPECT_EQ(fresh->GetNodeName(), "n");
}

/// What the getters of a manager give.
class ManagerTakesBack : public ::testing::Test {
protected:
    void all(std::vector<RVOpenChange> changes)
    {
        m_changes = takeAllBack(std::move(changes), [this](const RVOpenChange& change) {
            return manager.TakeBack(change);
        });
    }
    void again()
    {
        all(m_changes);
    }
    QDomDocument document()
    {
        return manager.GetRootNode()->GetDomNode().ownerDocument();
    }

    RVOpenManager manager;

private:
    std::vector<RVOpenChange> m_changes;
};

TEST_F(ManagerTakesBack, ACollectionMadeOnDemandIsMadeAnew)
{
    const QString before = manager.GetSnapShotDocumentAsString();
    RecordingObserver observer(document());
    SnapShots* const cameras = manager.GetSnapShotsCameras();
    const QString with = manager.GetSnapShotDocumentAsString();
    all(observer.changes);
    EXPECT_EQ(manager.GetSnapShotDocumentAsString(), before);
    EXPECT_FALSE(manager.FindSnapShots(SnapShots::TypeCameras));
    EXPECT_EQ(cameras->GetNodeName(), "snapshots");
    again();
    EXPECT_EQ(manager.GetSnapShotDocumentAsString(), with);
    ASSERT_TRUE(manager.FindSnapShots(SnapShots::TypeCameras));
    EXPECT_EQ(manager.FindSnapShots(SnapShots::TypeCameras), cameras);
    EXPECT_EQ(manager.GetSnapShotsCameras(), cameras);
}

TEST_F(ManagerTakesBack, TheOriginalBackgroundAndTemporarySnapShotsComeBack)
{
    RecordingObserver observer(document());
    Background* const background = manager.GetOriginalBackground();
    SnapShots* const temporary = manager.GetTempSnapShots();
    all(observer.changes);
    again();
    EXPECT_EQ(manager.GetOriginalBackground(), background);
    EXPECT_EQ(manager.GetTempSnapShots(), temporary);
    EXPECT_EQ(background->GetParamHelper()->GetFirstParam()->GetDomNode(),
              background->GetDomNode().firstChild());
}

TEST_F(ManagerTakesBack, AComponentThatWasReplacedIsThatOfTheSnapShotAgain)
{
    SnapShot* const current = manager.GetCurrentSnapShot();
    const std::unique_ptr<Camera> camera(current->CreateCamera());
    camera->SetName("First");
    Camera* const first = current->AddCamera(camera.get());
    const QDomNode element = first->GetDomNode();
    camera->SetName("Second");
    RecordingObserver observer(document());
    Camera* const second = current->AddCamera(camera.get());
    all(observer.changes);
    EXPECT_EQ(current->GetCamera()->GetDomNode(), element);
    EXPECT_EQ(current->GetCamera()->GetName(), "First");
    EXPECT_EQ(second->GetName(), "Second");
    again();
    EXPECT_EQ(current->GetCamera(), second);
    EXPECT_EQ(second->GetName(), "Second");
}

/// Objects of another kind for the same elements, which nobody has asked for, would fall behind.
TEST_F(ManagerTakesBack, AComponentThatWasClearedIsNoChild)
{
    ASSERT_TRUE(manager.LoadSnapShotDocFromString(
        "<snapRoot><snapshot><background name=\"Only\"/></snapshot></snapRoot>"));
    SnapShot* const current = manager.GetCurrentSnapShot();
    RecordingObserver observer(document());
    current->ClearBackground();
    all(observer.changes);
    ASSERT_TRUE(current->GetBackground());
    EXPECT_EQ(current->GetBackground()->GetName(), "Only");
    EXPECT_FALSE(current->GetChild(0, 0));
}

TEST_F(ManagerTakesBack, AMaterialIsFoundOnlyWhileItIsThere)
{
    MaterialRepository* const palette = manager.GetCurrentSnapShot()->GetMaterialRepository();
    Material* const material = palette->CreateMaterial();
    material->SetLinkName("Wall");
    RecordingObserver observer(document());
    palette->AddMaterial(material);
    palette->GetMaterial("Wall");
    palette->GetMaterial("Wall");
    all(observer.changes);
    EXPECT_FALSE(palette->GetMaterial("Wall"));
    EXPECT_EQ(palette->GetNumMaterials(), 0U);
    again();
    ASSERT_TRUE(palette->GetMaterial("Wall"));
    EXPECT_EQ(palette->GetNumMaterials(), 1U);
    EXPECT_EQ(palette->GetMaterial("Wall"), material);
}

/// From the second look-up on notes answer.
TEST_F(ManagerTakesBack, TheFirstOfANameIsFoundAgain)
{
    MaterialRepository* const palette = manager.GetCurrentSnapShot()->GetMaterialRepository();
    for (int i = 0; i < 3; ++i) {
        Material* const material = palette->CreateMaterial();
        material->SetLinkName("Wall");
        palette->AddMaterial(material);
    }
    const QDomNode first = palette->GetFirstMaterial()->GetDomNode();
    const auto findThrice = [palette] {
        palette->GetMaterial("Wall");
        palette->GetMaterial("Wall");
        return palette->GetMaterial("Wall")->GetDomNode();
    };
    RecordingObserver observer(document());
    palette->GetFirstMaterial()->SetLinkName("Floor");
    EXPECT_NE(findThrice(), first);
    all(observer.changes);
    EXPECT_EQ(findThrice(), first);

    observer.changes.clear();
    palette->RemoveMaterial(palette->GetFirstMaterial());
    EXPECT_NE(findThrice(), first);
    all(observer.changes);
    EXPECT_EQ(findThrice(), first);
}

TEST_F(ManagerTakesBack, NothingOfAnotherDocument)
{
    Objects objects;
    RecordingObserver observer(objects.document);
    objects.root->SetName("N");
    EXPECT_FALSE(manager.TakeBack(observer.changes[0]));
    EXPECT_EQ(objects.root->GetName(), "N");
}

/// Every child has its object already, and they stand as their elements do.
::testing::AssertionResult isComplete(RVOpenNode* node)
{
    int made = 0;
    for (RVOpenNode* child = node->GetChild(0, 0); child; child = child->GetNext(0))
        ++made;
    if (made != domChildNames(node->GetDomNode()).size())
        return ::testing::AssertionFailure() << made << " objects";
    return mirrorsDom(node);
}

class EditsTakenBack : public ::testing::TestWithParam<unsigned int> {};

TEST_P(EditsTakenBack, ThroughTheManagerGiveTheSameBytesToAndFro)
{
    RandomEdits edits(GetParam());
    const QString before = edits.text();
    std::vector<RVOpenChange> changes;
    {
        RecordingObserver observer(edits.document());
        for (int i = 0; i < 300; ++i)
            edits.edit();
        changes = observer.changes;
    }
    const QString after = edits.text();
    const auto takeBack = [&](const RVOpenChange& change) {
        return edits.manager().TakeBack(change);
    };
    for (int i = 0; i < 2; ++i) {
        changes = takeAllBack(changes, takeBack);
        ASSERT_EQ(edits.text(), before);
        changes = takeAllBack(changes, takeBack);
        ASSERT_EQ(edits.text(), after);
    }
}

/// One edit goes to and fro, and the objects have to be good for the next one.
TEST_P(EditsTakenBack, LeaveObjectsThatFollowTheDocument)
{
    RandomEdits edits(GetParam());
    for (int i = 0; i < 300; ++i) {
        RecordingObserver observer(edits.document());
        edits.edit();
        const auto takeBack = [&](const RVOpenChange& change) {
            return edits.manager().TakeBack(change);
        };
        const QString after = edits.text();
        takeAllBack(takeAllBack(observer.changes, takeBack), takeBack);
        ASSERT_EQ(edits.text(), after) << i;
        SnapShots* const collection = edits.manager().GetSnapShots();
        ASSERT_TRUE(isComplete(collection)) << i;
        for (SnapShot* at = collection->GetFirstSnapShot(); at; at = at->GetNext())
            ASSERT_TRUE(isComplete(at->GetMaterialRepository())) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(TakeBack, EditsTakenBack, ::testing::Values(1U, 2U, 3U, 4U));

} // namespace
} // namespace rvopen::test

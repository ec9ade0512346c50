// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include "TestSupport.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>

#include <tuple>

/// Nodes that are added where others are already, deleted out of a chain, or copied by value.
namespace rvopen::test {
namespace {

struct Tree {
    explicit Tree(const QString& xml)
        : document(parse(xml))
        , root(bind(document.documentElement()))
    {
    }

    RVOpenNode* child(int position) const
    {
        return children(root.get()).at(static_cast<std::size_t>(position));
    }
    std::unique_ptr<RVOpenNode> free(const char* name)
    {
        return bind(document.createElement(QLatin1String(name)));
    }
    QString xml() const
    {
        return xmlOf(document);
    }

    QDomDocument document;
    std::unique_ptr<RVOpenNode> root;
};

/// An operation that puts a child into a node that has the children "p" and "q".
struct Taking {
    const char* name;
    void (*take)(RVOpenNode* node, RVOpenNode* child);
    const char* result; ///< The names of the children then, where the child is called "b".
    bool rebinds;
};

void PrintTo(const Taking& taking, std::ostream* out)
{
    *out << taking.name;
}

const Taking s_takings[] = {
    {"Add", [](RVOpenNode* node, RVOpenNode* child) { node->AddNode(child, true); }, "p q b",
     false},
    {"InsertFirst", [](RVOpenNode* node, RVOpenNode* child) { node->InsertNode(child, 0); },
     "b p q", true},
    {"InsertSecond", [](RVOpenNode* node, RVOpenNode* child) { node->InsertNode(child, 1); },
     "p b q", true},
    {"InsertBehind", [](RVOpenNode* node, RVOpenNode* child) { node->InsertNode(child, 99); },
     "p q b", true},
    {"ReplaceFirst",
     [](RVOpenNode* node, RVOpenNode* child) { node->ReplaceNode(node->GetChild(1, 1), child); },
     "b q", true},
    {"ReplaceLast",
     [](RVOpenNode* node, RVOpenNode* child) {
         node->ReplaceNode(node->GetChild(1, 1)->GetNext(1), child);
     },
     "p b", true},
};

class MovedNode : public ::testing::TestWithParam<Taking> {
protected:
    QStringList result() const
    {
        return QString(GetParam().result).split(' ');
    }
};

TEST_P(MovedNode, LeavesTheChainOfItsOldParent)
{
    for (const int position : {0, 1, 2}) {
        const Tree tree("<root><old><b/><b/><b/></old><new><p/><q/></new></root>");
        RVOpenNode* const from = tree.child(0);
        RVOpenNode* const to = tree.child(1);
        RVOpenNode* const moved = children(from).at(static_cast<std::size_t>(position));
        GetParam().take(to, moved);
        EXPECT_EQ(childNames(to), result());
        EXPECT_EQ(childNames(from), QStringList({"b", "b"}));
        EXPECT_EQ(moved->GetParent(), to);
        EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
    }
}

TEST_P(MovedNode, LeavesAChainThatIsMadeInPart)
{
    const Tree tree("<root><old><b/><x/></old><new><p/><q/></new></root>");
    GetParam().take(tree.child(1), tree.child(0)->GetChild(1, 1));
    EXPECT_EQ(childNames(tree.child(0)), QStringList("x"));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST_P(MovedNode, MayStandBelowAChildOfItsNewParent)
{
    const Tree tree("<new><p><b/></p><q/></new>");
    RVOpenNode* const moved = tree.child(0)->GetChild(1, 1);
    GetParam().take(tree.root.get(), moved);
    EXPECT_EQ(childNames(tree.root.get()), result());
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST_P(MovedNode, LeavesTheChainOfATreeOfItsOwn)
{
    Tree target("<new><p/><q/></new>");
    const auto source = target.free("old");
    RVOpenNode* const moved = target.free("b").release();
    source->AddNode(moved, true);
    GetParam().take(target.root.get(), moved);
    EXPECT_EQ(source->GetChild(1, 1), nullptr);
    EXPECT_EQ(xmlOf(source->GetDomNode()), "<old/>");
    EXPECT_EQ(childNames(target.root.get()), result());
    EXPECT_TRUE(mirrorsWholeDom(target.root.get()));
}

TEST_P(MovedNode, OutOfAnotherDocumentIsCopiedAndANewObjectTakesItsPlace)
{
    for (const int position : {0, 1, 2}) {
        Tree source("<old><b/><b/><b/></old>");
        const Tree target("<new><p/><q/></new>");
        RVOpenNode* const moved = source.child(position);
        const QString before = source.xml();
        GetParam().take(target.root.get(), moved);
        EXPECT_EQ(source.xml(), before);
        EXPECT_TRUE(mirrorsWholeDom(source.root.get()));
        EXPECT_NE(source.child(position), moved);
        EXPECT_EQ(domChildNames(target.root->GetDomNode()), result());
        EXPECT_EQ(moved->GetParent(), target.root.get());
        const bool isHere = moved->GetDomNode().ownerDocument() == target.document;
        EXPECT_EQ(isHere, GetParam().rebinds);
        source.root.reset();
        EXPECT_EQ(childNames(target.root.get()), result());
    }
}

TEST_P(MovedNode, OutOfAnotherDocumentLeavesThatOneAloneWhenItGoes)
{
    for (const bool isDeleted : {false, true}) {
        const Tree source("<old><b><x/></b><b/></old>");
        Tree target("<new><p/><q/></new>");
        materialise(source.root.get());
        RVOpenNode* const moved = source.child(0);
        const QString before = source.xml();
        GetParam().take(target.root.get(), moved);
        if (isDeleted)
            target.root->DeleteNode(moved);
        target.root.reset();
        EXPECT_EQ(source.xml(), before);
        EXPECT_TRUE(mirrorsWholeDom(source.root.get()));
    }
}

TEST_P(MovedNode, OutOfACollectionOfAnotherDocumentLeavesObjectsOfTheCollectionsClass)
{
    const QDomDocument document = parse("<renderTargets><b/><b/></renderTargets>");
    RenderTargets source(document.documentElement());
    source.Populate();
    const Tree target("<new><p/><q/></new>");
    GetParam().take(target.root.get(), source.GetFirstRenderTarget());
    EXPECT_NE(source.GetFirstRenderTarget(), nullptr);
    EXPECT_TRUE(mirrorsWholeDom(&source));
}

TEST_P(MovedNode, ThatIsAComponentIsTheSnapShotsNoMore)
{
    const Tree tree("<root><snapshot><camera name='c'/></snapshot><new><p/><q/></new></root>");
    auto* const snapShot = static_cast<SnapShot*>(tree.child(0));
    materialise(snapShot);
    Camera* const camera = snapShot->GetCamera();
    GetParam().take(tree.child(1), camera);
    EXPECT_EQ(snapShot->GetCamera(), nullptr);
    EXPECT_EQ(camera->GetParent(), tree.child(1));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST_P(MovedNode, ThatIsAComponentInAnotherDocumentLeavesTheSnapShotANewOne)
{
    const Tree source("<root><snapshot><camera name='c'/></snapshot></root>");
    const Tree target("<new><p/><q/></new>");
    auto* const snapShot = static_cast<SnapShot*>(source.child(0));
    Camera* const camera = snapShot->GetCamera();
    GetParam().take(target.root.get(), camera);
    ASSERT_NE(snapShot->GetCamera(), nullptr);
    EXPECT_NE(snapShot->GetCamera(), camera);
    EXPECT_EQ(snapShot->GetCamera()->GetName(), "c");
}

TEST_P(MovedNode, LeavesSiblingsThatAWalkMadeWhereTheyStand)
{
    Tree target("<root><old><b/><x/><y/></old><new><p/><q/></new></root>");
    RVOpenNode* const moved =
        bind(target.document.documentElement().firstChild().firstChild()).release();
    RVOpenNode* const behind = moved->GetNext(1);
    ASSERT_NE(behind->GetNext(1), nullptr);
    GetParam().take(target.child(1), moved);
    EXPECT_EQ(childNames(target.child(1)), result());
    EXPECT_EQ(domChildNames(target.child(0)->GetDomNode()), QStringList({"x", "y"}));
    // Both are valid still.
    EXPECT_EQ(behind->GetNodeName(), "x");
    EXPECT_EQ(behind->GetNext(0)->GetNodeName(), "y");
    target.child(1)->DeleteNode(moved);
    EXPECT_EQ(domChildNames(target.child(0)->GetDomNode()), QStringList({"x", "y"}));
}

TEST_P(MovedNode, ThatStandsAboveInTheDocumentAloneIsIgnored)
{
    const Tree tree("<root><top><new><p/><q/></new></top></root>");
    const auto above = bind(tree.document.documentElement().firstChild());
    GetParam().take(tree.child(0)->GetChild(1, 1), above.get());
    EXPECT_EQ(tree.xml(), "<root><top><new><p/><q/></new></top></root>");
    EXPECT_EQ(above->GetParent(), nullptr);
    above->SetDomNode(QDomNode());
}

TEST_P(MovedNode, MayTakeANodeInThatStoodBehindIt)
{
    const QDomDocument document = parse("<root><b/><new><p/><q/></new></root>");
    const auto moved = bind(document.documentElement().firstChild());
    std::unique_ptr<RVOpenNode> to(moved->GetNext(1));
    auto* const taken = const_cast<std::unique_ptr<RVOpenNode>&>(moved).release();
    GetParam().take(to.get(), taken);
    EXPECT_EQ(childNames(to.get()), result());
    EXPECT_TRUE(mirrorsWholeDom(to.get()));
}

INSTANTIATE_TEST_SUITE_P(All, MovedNode, ::testing::ValuesIn(s_takings),
                         [](const auto& taking) { return std::string(taking.param.name); });

TEST(AddedAgain, ChildMovesToTheEnd)
{
    for (const int position : {0, 1, 2}) {
        const Tree tree("<root><a/><b/><c/></root>");
        RVOpenNode* const child = tree.child(position);
        QStringList expected({"a", "b", "c"});
        expected.append(expected.takeAt(position));
        tree.root->AddNode(child, true);
        EXPECT_EQ(tree.child(2), child);
        EXPECT_EQ(childNames(tree.root.get()), expected);
        EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
    }
}

TEST(AddedAgain, OnlyChildStays)
{
    const Tree tree("<root><a/></root>");
    RVOpenNode* const child = tree.child(0);
    tree.root->AddNode(child, true);
    tree.root->InsertNode(child, 0);
    tree.root->InsertNode(child, 7);
    EXPECT_EQ(children(tree.root.get()), std::vector<RVOpenNode*>{child});
    EXPECT_EQ(tree.xml(), "<root><a/></root>");
}

class InsertedAgain : public ::testing::TestWithParam<std::tuple<int, int>> {};

TEST_P(InsertedAgain, ChildStandsAtItsIndex)
{
    const auto [from, to] = GetParam();
    const Tree tree("<root><a/><b/><c/><d/></root>");
    RVOpenNode* const child = tree.child(from);
    QStringList expected({"a", "b", "c", "d"});
    expected.move(from, to);
    tree.root->InsertNode(child, to);
    EXPECT_EQ(tree.child(to), child);
    EXPECT_EQ(childNames(tree.root.get()), expected);
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

INSTANTIATE_TEST_SUITE_P(All, InsertedAgain,
                         ::testing::Combine(::testing::Range(0, 4), ::testing::Range(0, 4)));

TEST(AddedAgain, ReplacingByASiblingMovesTheSibling)
{
    for (const auto& [from, to] : {std::pair(0, 2), std::pair(2, 0), std::pair(1, 2)}) {
        const Tree tree("<root><a/><b/><c/></root>");
        RVOpenNode* const sibling = tree.child(from);
        QStringList expected({"a", "b", "c"});
        expected[to] = expected[from];
        expected.removeAt(from);
        tree.root->ReplaceNode(tree.child(to), sibling);
        EXPECT_EQ(childNames(tree.root.get()), expected);
        EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
    }
}

TEST(AddedAgain, ReplacingByAGrandchildKeepsIt)
{
    const Tree tree("<root><a><b><c/></b></a></root>");
    RVOpenNode* const b = tree.child(0)->GetChild(1, 1);
    tree.root->ReplaceNode(tree.child(0), b);
    EXPECT_EQ(tree.child(0), b);
    EXPECT_EQ(tree.xml(), "<root><b><c/></b></root>");
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(AddedAgain, SecondObjectOfAChildTakesTheFirstOnesPlace)
{
    for (const bool made : {false, true}) {
        const Tree tree("<root><a/><b/></root>");
        if (made)
            children(tree.root.get());
        RVOpenNode* const second = bind(tree.document.documentElement().firstChild()).release();
        tree.root->AddNode(second, true);
        EXPECT_EQ(childNames(tree.root.get()), QStringList({"b", "a"}));
        EXPECT_EQ(tree.child(1), second);
        EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
    }
}

// Parents that are gone

TEST(DeadParent, OfADetachedNodeIsNotFollowedWhenTheNodeIsASnapShots)
{
    const Tree tree("<root><shelf/><snapshot/></root>");
    auto* const snapShot = static_cast<SnapShot*>(tree.child(1));
    RVOpenNode* const shelf = tree.child(0);
    SnapShotSettings* const settings = snapShot->CreateSnapShotSettings(nullptr);
    shelf->AddNode(settings, true);
    shelf->DetachNode(settings, true);
    snapShot->AddSnapShotSettings(settings);
    tree.root->DeleteNode(shelf);
    EXPECT_EQ(settings->SetSelected(1), 0u);
    int selected = 0;
    EXPECT_EQ(settings->IsSelected(&selected), 0u);
    EXPECT_EQ(selected, 1);
}

TEST(DeadParent, OfANodeThatWasAddedToAnArchiveThatCannotBeOpenedIsNotFollowed)
{
    Tree tree("<root><item archiveFilename='No' archiveType='Custom'/></root>");
    const auto kept = tree.free("kept");
    tree.child(0)->AddNode(kept.get(), true);
    tree.root.reset();
    kept->AddNode(bind(tree.document.createElement("below")).release(), true);
    EXPECT_EQ(childNames(kept.get()), QStringList("below"));
    EXPECT_EQ(kept->GetNext(1), nullptr);
}

TEST(DeadParent, ThatSetParentGaveIsNotFollowed)
{
    const Tree tree("<root><a/><b/></root>");
    auto other = bind(tree.document.documentElement().lastChild());
    RVOpenNode* const a = tree.child(0);
    a->SetParent(other.get());
    EXPECT_EQ(a->GetParent(), other.get());
    a->SetDomNode(QDomDocument(tree.document).createElement("elsewhere"));
    other.reset();
    a->AddNode(bind(QDomDocument(tree.document).createElement("below")).release(), true);
    EXPECT_EQ(childNames(a), QStringList("below"));
}

// Links that the host makes

TEST(HostLinks, NodeStandsBehindOneOther)
{
    Tree tree("<root/>");
    const auto a = tree.free("a");
    const auto b = tree.free("b");
    RVOpenNode* const c = tree.free("c").release();
    a->SetNext(c);
    b->SetNext(c);
    EXPECT_EQ(a->GetNext(0), nullptr);
    EXPECT_EQ(b->GetNext(0), c);
}

TEST(HostLinks, NoChainBecomesARing)
{
    const Tree tree("<root><a/><b/><c/></root>");
    tree.child(2)->SetNext(tree.child(0));
    tree.child(2)->SetNext(tree.child(1));
    tree.child(2)->SetNext(tree.child(2));
    tree.child(2)->SetNext(tree.root.get());
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
    tree.root->AddNode(bind(QDomDocument(tree.document).createElement("d")).release(), true);
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c", "d"}));
}

TEST(HostLinks, ChildOfAnotherNodeThatIsLinkedHereIsThatNodesNoMore)
{
    const Tree tree("<root><one><a/><b/><c/></one><two><x/></two></root>");
    RVOpenNode* const one = tree.child(0);
    RVOpenNode* const two = tree.child(1);
    RVOpenNode* const b = children(one).at(1);
    two->GetChild(1, 1)->SetNext(b);
    EXPECT_EQ(one->GetChild(1, 1)->GetNext(0), nullptr);
    EXPECT_EQ(childNames(two), QStringList({"x", "b", "c"}));
    two->DetachNode(b, true);
    const std::unique_ptr<RVOpenNode> owner(b);
    EXPECT_EQ(childNames(two), QStringList({"x", "c"}));
}

TEST(HostLinks, FirstChildThatIsLinkedElsewhereIsFirstNoMore)
{
    const Tree tree("<root><one><a/></one><two><x/></two></root>");
    RVOpenNode* const a = tree.child(0)->GetChild(1, 1);
    tree.child(1)->GetChild(1, 1)->SetNext(a);
    EXPECT_EQ(tree.child(0)->GetChild(0, 0), nullptr);
    tree.child(0)->AddNode(bind(QDomDocument(tree.document).createElement("b")).release(), true);
    EXPECT_EQ(childNames(tree.child(0)), QStringList({"a", "b"}));
}

TEST(HostLinks, NodeBehindAnotherIsDeletedWithTheParent)
{
    auto tree = std::make_unique<Tree>("<root><a/></root>");
    tree->child(0)->SetNext(tree->free("b").release());
    tree->root->AddNode(tree->free("c").release(), true);
    EXPECT_EQ(childNames(tree->root.get()), QStringList({"a", "b", "c"}));
    delete tree->child(1);
    EXPECT_EQ(childNames(tree->root.get()), QStringList("a"));
}

// Nodes that are deleted where they are

class DeletedInPlace : public ::testing::TestWithParam<int> {};

TEST_P(DeletedInPlace, NodeLeavesItsChainWithThoseBehindIt)
{
    const Tree tree("<root><a/><b/><c/></root>");
    const QStringList left = QStringList({"a", "b", "c"}).mid(0, GetParam());
    delete tree.child(GetParam());
    EXPECT_EQ(childNames(tree.root.get()), left);
    EXPECT_EQ(domChildNames(tree.root->GetDomNode()), left);
    tree.root->AddNode(bind(QDomDocument(tree.document).createElement("d")).release(), true);
    EXPECT_EQ(childNames(tree.root.get()), left + QStringList("d"));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST_P(DeletedInPlace, LastOneOfAChainMadeInPartLeavesWhatIsNotMade)
{
    const Tree tree("<root><a/><b/><c/><d/></root>");
    RVOpenNode* node = tree.root->GetChild(1, 1);
    for (int i = 0; i < GetParam(); ++i)
        node = node->GetNext(1);
    delete node;
    QStringList left({"a", "b", "c", "d"});
    left.removeAt(GetParam());
    EXPECT_EQ(childNames(tree.root.get()), left);
}

INSTANTIATE_TEST_SUITE_P(NodeTree, DeletedInPlace, ::testing::Values(0, 1, 2));

TEST(DeletedInPlace, NodeOnTheStackThatWasAddedLeavesItsParent)
{
    Tree tree("<root><a/></root>");
    {
        RVOpenNode node;
        node.SetDomNode(tree.document.createElement("b"));
        tree.root->AddNode(&node, true);
        EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b"}));
    }
    EXPECT_EQ(childNames(tree.root.get()), QStringList("a"));
    EXPECT_EQ(tree.xml(), "<root><a/></root>");
}

TEST(DeletedInPlace, SiblingThatAWalkFromAFreeNodeMadeLeavesIt)
{
    const QDomDocument document = parse("<root><a/><b/></root>");
    const auto a = bind(document.documentElement().firstChild());
    delete a->GetNext(1);
    EXPECT_EQ(a->GetNext(1), nullptr);
    EXPECT_EQ(domChildNames(document.documentElement()), QStringList("a"));
}

// Copies by value

TEST(CopyByValue, OwnsNothing)
{
    for (const bool copyGoesFirst : {true, false}) {
        auto tree = std::make_unique<Tree>("<root><a><x/></a><b/></root>");
        materialise(tree->root.get());
        auto copy = std::make_unique<RVOpenNode>(*tree->child(0));
        EXPECT_EQ(copy->GetChild(0, 0)->GetNodeName(), "x");
        EXPECT_EQ(copy->GetNext(0)->GetNodeName(), "b");
        if (copyGoesFirst) {
            copy.reset();
            EXPECT_EQ(tree->xml(), "<root><a><x/></a><b/></root>");
            EXPECT_TRUE(mirrorsWholeDom(tree->root.get()));
        }
        tree.reset();
    }
}

TEST(CopyByValue, OfAComponentLeavesTheSnapShotWhole)
{
    const QDomDocument document =
        parse("<snapshot><camera><param name='Near' type='float' val='2'/></camera></snapshot>");
    SnapShot snapShot(document.documentElement());
    {
        std::vector<Camera> cameras;
        for (int i = 0; i < 10; ++i)
            cameras.push_back(*snapShot.GetCamera());
        float near = 0.0f;
        EXPECT_EQ(cameras[3].GetParamHelper()->GetValFloat("Near", &near), 0u);
        EXPECT_EQ(near, 2.0f);
    }
    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><camera><param name='Near' type='float' val='2'/>"
                                     "</camera></snapshot>"));
    EXPECT_NE(snapShot.GetCamera()->GetParamHelper()->GetParam("Near"), nullptr);
}

TEST(CopyByValue, OfASnapShotLeavesItWhole)
{
    for (const bool copyGoesFirst : {true, false}) {
        const QDomDocument document = parse("<snapshot><camera/><scenery/></snapshot>");
        auto snapShot = std::make_unique<SnapShot>(document.documentElement());
        auto copy = std::make_unique<SnapShot>(*snapShot);
        EXPECT_EQ(copy->GetCamera(), snapShot->GetCamera());
        if (copyGoesFirst) {
            copy.reset();
            EXPECT_EQ(domChildNames(document.documentElement()),
                      QStringList({"camera", "scenery"}));
            EXPECT_EQ(snapShot->GetCamera()->GetNodeName(), "camera");
        } else {
            snapShot.reset();
        }
    }
}

TEST(CopyByValue, OfASnapShotMakesComponentsThatGoWithIt)
{
    const QDomDocument document = parse("<snapshot/>");
    SnapShot snapShot(document.documentElement());
    {
        SnapShot copy(snapShot);
        ASSERT_NE(copy.GetRenderTargets(), nullptr);
    }
    EXPECT_EQ(domChildNames(document.documentElement()), QStringList("renderTargets"));
}

TEST(CopyByValue, OfAMaterialLeavesItsBaseMaterial)
{
    const QDomDocument document = parse("<material><material/></material>");
    const auto material = bind<Material>(document.documentElement());
    {
        const Material copy(*material);
    }
    EXPECT_EQ(xmlOf(document), "<material><material/></material>");
    EXPECT_NE(material->GetBaseMaterial(), nullptr);
}

TEST(CopyByValue, ThatIsAddedLeavesTheSourceInItsChain)
{
    Tree tree("<root><a><x/></a><b/></root>");
    materialise(tree.root.get());
    const auto other = tree.free("other");
    other->AddNode(new RVOpenNode(*tree.child(1)), true);
    EXPECT_EQ(childNames(other.get()), QStringList("b"));
    EXPECT_EQ(tree.root->GetNumChildren(), 2);
}

TEST(CopyByValue, ShowsWhatAChangeThroughItLeaves)
{
    Tree tree("<root><a/><b/></root>");
    children(tree.root.get());
    RVOpenNode copy(*tree.root);
    copy.DeleteNode(tree.child(0));
    copy.InsertNode(tree.free("c").release(), 0);
    copy.AddNode(tree.free("d").release(), true);
    EXPECT_EQ(childNames(&copy), QStringList({"c", "b", "d"}));
    EXPECT_EQ(children(&copy), children(tree.root.get()));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(Assignment, KeepsThePlaceInTheChain)
{
    for (const int position : {0, 1, 2}) {
        Tree tree("<root><a/><b/><c/></root>");
        materialise(tree.root.get());
        const auto other = tree.free("other");
        *tree.child(position) = *other;
        QStringList expected({"a", "b", "c"});
        expected[position] = "other";
        EXPECT_EQ(childNames(tree.root.get()), expected);
        EXPECT_EQ(tree.child(position)->GetParent(), tree.root.get());
        EXPECT_EQ(tree.xml(), "<root><a/><b/><c/></root>");
    }
}

TEST(Assignment, KeepsTheOldChildrenValid)
{
    Tree tree("<root><a><x/></a></root>");
    RVOpenNode* const x = tree.child(0)->GetChild(1, 1);
    *tree.child(0) = RVOpenNode();
    x->SetName("still here");
    EXPECT_EQ(tree.xml(), xmlOf("<root><a><x name='still here'/></a></root>"));
}

TEST(Assignment, KeepsOldSiblingsOfAFreeNodeValid)
{
    const QDomDocument document = parse("<root><a/><b/></root>");
    const auto a = bind(document.documentElement().firstChild());
    RVOpenNode* const b = a->GetNext(1);
    *a = RVOpenNode();
    b->SetName("still here");
    EXPECT_EQ(xmlOf(document), xmlOf("<root><a/><b name='still here'/></root>"));
}

TEST(Assignment, ToItselfChangesNothing)
{
    const Tree tree("<root><a><x/></a><b/></root>");
    materialise(tree.root.get());
    RVOpenNode& a = *tree.child(0);
    const RVOpenNode& same = a;
    a = same;
    EXPECT_EQ(childNames(&a), QStringList("x"));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(Assignment, OfWhatIsBelowTakesNothingOutOfTheDocument)
{
    const Tree tree("<root><a><x><y/></x></a></root>");
    materialise(tree.root.get());
    RVOpenNode* const a = tree.child(0);
    *a = *a->GetChild(0, 0);
    EXPECT_EQ(a->GetNodeName(), "x");
    EXPECT_EQ(childNames(a), QStringList("y"));
    EXPECT_EQ(tree.xml(), "<root><a><x><y/></x></a></root>");
}

TEST(Assignment, KeepsTheComponentsOfASnapShotValid)
{
    const QDomDocument document = parse("<snapshot><camera/></snapshot>");
    SnapShot snapShot(document.documentElement());
    Camera* const camera = snapShot.GetCamera();
    snapShot = SnapShot(QDomNode());
    EXPECT_EQ(snapShot.GetCamera(), nullptr);
    camera->SetName("still here");
    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><camera name='still here'/></snapshot>"));
}

// Objects that follow a copy of their element

struct Kind {
    const char* name;
    const char* xml;
    std::unique_ptr<RVOpenNode> (*make)(const QDomNode& node);
};

void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.name;
}

template <typename Class>
std::unique_ptr<RVOpenNode> madeAs(const QDomNode& node)
{
    return bind<Class>(node);
}

const char s_wholeSnapShot[] =
    "<snapshot><!--c--><camera><param/></camera><scheme><x/></scheme><background><param/>"
    "</background><foreground><param/></foreground><naturalLightStudio><param/>"
    "</naturalLightStudio><artificialLightStudio><param/></artificialLightStudio>"
    "<snapShotSettings><param/></snapShotSettings><renderTargets><renderTarget><param/>"
    "</renderTarget></renderTargets><scenery><param/></scenery><materialRepository><material>"
    "<colour/></material></materialRepository></snapshot>";

const Kind s_kinds[] = {
    {"Scheme", "<scheme><x/></scheme>", create},
    {"Background", "<background><param/></background>", create},
    {"Foreground", "<foreground><param/></foreground>", create},
    {"Camera", "<camera><!--c--><param/></camera>", create},
    {"Lens", "<lens><param/></lens>", create},
    {"Directory", "<dir><dir><material/></dir></dir>", create},
    {"AspectRatio", "<aspectratio><param/></aspectratio>", create},
    {"AspectRatioOrient", "<aspectratioorient><param/></aspectratioorient>", create},
    {"Param", "<param name='x'/>", create},
    {"ShaderColour", "<param type='shader' val='colour'><map><param/></map></param>", create},
    {"Material", "<material><colour><diffuse><param/></diffuse></colour></material>", create},
    {"Colour", "<colour><diffuse/></colour>", create},
    {"Finish", "<finish><param/></finish>", create},
    {"Transparency", "<transparency><param/></transparency>", create},
    {"Bump", "<bump><param/></bump>", create},
    {"ShaderDiffuse", "<diffuse><param/></diffuse>", create},
    {"ShaderPlainColour", "<plainColour><param/></plainColour>", create},
    {"ShaderMap", "<map><param/></map>", create},
    {"SnapShot", s_wholeSnapShot, create},
    {"SnapShots", "<snapshots><snapshot><camera><param/></camera></snapshot></snapshots>", create},
    {"Generic", "<x><y/><z/></x>", create},
    {"MaterialRepository", "<materialRepository><material/></materialRepository>",
     madeAs<MaterialRepository>},
    {"RenderTargets", "<renderTargets><renderTarget><param/></renderTarget></renderTargets>",
     madeAs<RenderTargets>},
    {"RenderTarget", "<renderTarget><param/></renderTarget>", madeAs<RenderTarget>},
    {"Scenery", "<scenery><param/></scenery>", madeAs<Scenery>},
    {"SnapShotSettings", "<snapShotSettings><param/></snapShotSettings>", madeAs<SnapShotSettings>},
};

/// The node, its components and all that is below them, all made.
void collect(RVOpenNode* node, std::vector<RVOpenNode*>& all)
{
    all.push_back(node);
    if (auto* const snapShot = dynamic_cast<SnapShot*>(node)) {
        for (RVOpenNode* const component : std::vector<RVOpenNode*>{
                 snapShot->GetScheme(), snapShot->GetBackground(), snapShot->GetForeground(),
                 snapShot->GetCamera(), snapShot->GetNaturalLightStudio(),
                 snapShot->GetArtificialLightStudio(), snapShot->GetSnapShotSettings(),
                 snapShot->GetRenderTargets(), snapShot->GetScenery(),
                 snapShot->GetMaterialRepository()}) {
            if (component)
                collect(component, all);
        }
    }
    for (RVOpenNode* const child : children(node))
        collect(child, all);
}

class CopiedSubtree : public ::testing::TestWithParam<Kind> {};

TEST_P(CopiedSubtree, IsWhatAllObjectsAreBoundTo)
{
    for (const bool replaces : {false, true}) {
        const QDomDocument document = parse(QStringLiteral("<old>%1</old>").arg(GetParam().xml));
        std::unique_ptr<RVOpenNode> object =
            GetParam().make(document.documentElement().firstChild());
        std::vector<RVOpenNode*> objects;
        collect(object.get(), objects);
        const QString before = xmlOf(document);
        const Tree target("<new><p/></new>");

        RVOpenNode* const moved = object.release();
        if (replaces)
            target.root->ReplaceNode(target.child(0), moved);
        else
            target.root->InsertNode(moved, 0);
        for (RVOpenNode* const below : objects)
            below->SetName("written");

        EXPECT_EQ(xmlOf(document), before);
        for (RVOpenNode* const below : objects) {
            EXPECT_EQ(below->GetDomNode().ownerDocument(), target.document);
            if (below->GetDomNode().isElement()) {
                EXPECT_EQ(below->GetName(), "written");
            }
        }
        EXPECT_TRUE(mirrorsDom(target.root.get()));
    }
}

INSTANTIATE_TEST_SUITE_P(All, CopiedSubtree, ::testing::ValuesIn(s_kinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(CopiedSubtree, TypedSettersOfASnapShotsComponentsWriteIt)
{
    const Tree source("<root><snapshot><camera><param name='Near' type='float' val='1'/></camera>"
                      "<scenery/></snapshot></root>");
    const QString before = source.xml();
    const Tree target("<new/>");
    auto* const snapShot = static_cast<SnapShot*>(source.child(0));
    target.root->InsertNode(snapShot, 0);
    snapShot->GetCamera()->GetParamHelper()->GetParam("Near")->SetValFloat(5.0f);
    snapShot->GetScenery()->SetBaseSize(7.0f);
    EXPECT_EQ(source.xml(), before);
    EXPECT_EQ(target.xml(),
              xmlOf("<new><snapshot><camera><param name='Near' type='float' val='5'/></camera>"
                    "<scenery><param name='Base Size' type='float' val='7'/></scenery></snapshot>"
                    "</new>"));
}

TEST(CopiedSubtree, FreeSnapShotThatMovesHoldsItsNewDocumentWithAllComponents)
{
    auto source = std::make_unique<QDomDocument>(parse("<snapshot><camera/></snapshot>"));
    SnapShot original(source->documentElement());
    auto* const clone = new SnapShot(&original);
    auto tree = std::make_unique<Tree>("<new/>");
    tree->root->AddNode(clone, true);
    tree->root->DetachNode(clone, true);
    tree.reset();
    const std::unique_ptr<SnapShot> owner(clone);
    owner->GetCamera()->SetName("kept");
    EXPECT_EQ(xmlOf(owner->GetDomNode()), xmlOf("<snapshot><camera name='kept'/></snapshot>"));
}

} // namespace
} // namespace rvopen::test

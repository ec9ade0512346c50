// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include "TestSupport.h"

#include <rvopen/Camera.h>
#include <rvopen/Param.h>
#include <rvopen/ParamHelper.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>

#ifdef Q_OS_UNIX
#include <dlfcn.h>
#endif

namespace rvopen::test {
namespace {

/// A document and the node bound to its root element.
struct Tree {
    explicit Tree(const QString& xml = QStringLiteral("<root><a/><b/><c/></root>"))
        : document(parse(xml))
        , root(bind(document.documentElement()))
    {
    }

    QDomElement element() const
    {
        return document.documentElement();
    }
    /// The child at \p position, made with those before it.
    RVOpenNode* child(int position) const
    {
        RVOpenNode* node = root->GetChild(1, 1);
        for (; position > 0; --position)
            node = node->GetNext(1);
        return node;
    }
    QStringList names() const
    {
        return domChildNames(element());
    }
    /// An element without a DOM parent in this document.
    QDomElement freeElement(const QString& name = QStringLiteral("new")) const
    {
        QDomDocument owner = document;
        return owner.createElement(name);
    }
    /// The node of such an element.
    std::unique_ptr<RVOpenNode> free(const QString& name = QStringLiteral("new")) const
    {
        return bind(freeElement(name));
    }

    QDomDocument document;
    std::unique_ptr<RVOpenNode> root;
};

/// How much of a chain is made before the operation under test.
enum class Made { Nothing, First, All };

void make(RVOpenNode* node, Made made)
{
    if (made == Made::First)
        node->GetChild(1, 1);
    else if (made == Made::All)
        children(node);
}

std::string nameOf(Made made)
{
    return made == Made::Nothing ? "NothingMade" : made == Made::First ? "FirstMade" : "AllMade";
}

std::string nameOf(int position)
{
    return position < 0 ? "Minus" + std::to_string(-position) : "At" + std::to_string(position);
}

/// Notes in a log that it is being destroyed, and whether its element still stood then.
class Probe : public RVOpenNode {
public:
    Probe(const QDomNode& node, QStringList* log)
        : m_log(log)
    {
        SetDomNode(node);
    }
    ~Probe() override
    {
        *m_log << GetNodeName() + (GetDomNode().parentNode().isNull() ? "" : " in place");
    }

private:
    QStringList* m_log;
};

// Making children and siblings

TEST(NodeTree, ChildIsMadeOnlyWhenAskedFor)
{
    const Tree tree;
    EXPECT_EQ(tree.root->GetChild(0, 0), nullptr);
    EXPECT_EQ(tree.root->GetChild(0, 1), nullptr);
}

TEST(NodeTree, ChildIsMadeOnce)
{
    const Tree tree;
    RVOpenNode* const child = tree.root->GetChild(1, 1);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(tree.root->GetChild(1, 1), child);
    EXPECT_EQ(tree.root->GetChild(1, 0), child);
    EXPECT_EQ(tree.root->GetChild(0, 1), child);
    EXPECT_EQ(tree.root->GetChild(0, 0), child);
}

TEST(NodeTree, ChildIsBoundToTheFirstDomChild)
{
    const Tree tree;
    EXPECT_EQ(tree.root->GetChild(1, 1)->GetDomNode(), tree.element().firstChild());
}

TEST(NodeTree, ChildKnowsItsParent)
{
    const Tree tree;
    EXPECT_EQ(tree.root->GetChild(1, 1)->GetParent(), tree.root.get());
}

TEST(NodeTree, ElementWithoutChildrenHasNoChild)
{
    const Tree tree("<root/>");
    EXPECT_EQ(tree.root->GetChild(1, 1), nullptr);
}

TEST(NodeTree, SiblingIsMadeOnlyWhenAskedFor)
{
    const Tree tree;
    EXPECT_EQ(tree.child(0)->GetNext(0), nullptr);
}

TEST(NodeTree, SiblingIsMadeOnce)
{
    const Tree tree;
    RVOpenNode* const next = tree.child(0)->GetNext(1);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(tree.child(0)->GetNext(1), next);
    EXPECT_EQ(tree.child(0)->GetNext(0), next);
}

TEST(NodeTree, SiblingIsBoundToTheNextDomNode)
{
    const Tree tree;
    EXPECT_EQ(tree.child(0)->GetNext(1)->GetDomNode(), tree.element().childNodes().at(1));
}

TEST(NodeTree, SiblingHasTheSameParent)
{
    const Tree tree;
    EXPECT_EQ(tree.child(0)->GetNext(1)->GetParent(), tree.root.get());
}

TEST(NodeTree, LastChildHasNoSibling)
{
    const Tree tree;
    EXPECT_EQ(tree.child(2)->GetNext(1), nullptr);
}

TEST(NodeTree, SiblingOfANodeWithoutParentHasNoParent)
{
    const Tree tree("<root/><!--after-->");
    RVOpenNode* const next = tree.root->GetNext(1);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->GetNodeName(), "#comment");
    EXPECT_EQ(next->GetParent(), nullptr);
}

TEST(NodeTree, MakingObjectsLeavesTheDocument)
{
    const Tree tree("<root><a x='1'><!--c--><camera/></a>text<b/></root>");
    const QString before = xmlOf(tree.document);
    materialise(tree.root.get());
    EXPECT_EQ(xmlOf(tree.document), before);
}

TEST(NodeTree, EveryDomNodeGetsItsObject)
{
    const Tree tree("<root><!--c--><a><b/>text<c/></a><![CDATA[x]]><?pi x?></root>");
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"#comment", "a", "#cdata-section", "pi"}));
}

TEST(NodeTree, ChainEndsBeforeAParameterOfAnotherShader)
{
    const Tree tree("<root><a/><param type='shader' val='map'/><b/></root>");
    EXPECT_EQ(childNames(tree.root.get()), QStringList("a"));
}

TEST(NodeTree, FirstChildThatHasNoClassGivesNoChild)
{
    const Tree tree("<root><param type='shader' val='map'/><b/></root>");
    EXPECT_EQ(tree.root->GetChild(1, 1), nullptr);
    EXPECT_EQ(tree.root->GetChild(1, 0), nullptr);
}

TEST(NodeTree, ChildBehindOneThatHasNoClassCanBeAdded)
{
    const Tree tree("<root><param type='shader' val='map'/></root>");
    RVOpenNode* const child = tree.free().release();
    tree.root->AddNode(child, true);
    EXPECT_EQ(tree.root->GetChild(0, 0), child);
    EXPECT_EQ(tree.names(), QStringList({"param", "new"}));
}

// SetParent

TEST(SetParent, MovesTheElementUnderTheParents)
{
    const Tree tree("<root><a/><b><c/></b></root>");
    const auto moved = bind(tree.element().firstChild());
    RVOpenNode* const b = tree.child(1);
    moved->SetParent(b);
    EXPECT_EQ(moved->GetParent(), b);
    EXPECT_EQ(xmlOf(tree.element()), "<root><b><c/><a/></b></root>");
}

TEST(SetParent, LeavesAnElementThatIsThere)
{
    const Tree tree;
    tree.child(0)->SetParent(tree.root.get());
    EXPECT_EQ(tree.names(), QStringList({"a", "b", "c"}));
}

TEST(SetParent, AppendsAFreeElement)
{
    const Tree tree;
    const auto node = tree.free();
    node->SetParent(tree.root.get());
    EXPECT_EQ(tree.names(), QStringList({"a", "b", "c", "new"}));
}

TEST(SetParent, ToNullClearsTheLinkAlone)
{
    const Tree tree;
    RVOpenNode* const a = tree.child(0);
    a->SetParent(nullptr);
    EXPECT_EQ(a->GetParent(), nullptr);
    EXPECT_EQ(tree.names(), QStringList({"a", "b", "c"}));
}

// Counting

TEST(NodeTree, ChildrenCountOnlyOnceTheFirstIsMade)
{
    const Tree tree;
    EXPECT_EQ(tree.root->GetNumChildren(), 0);
    EXPECT_EQ(tree.root->GetChild(0, 0), nullptr);
    tree.root->GetChild(1, 1);
    EXPECT_EQ(tree.root->GetNumChildren(), 3);
}

TEST(NodeTree, CountingChildrenMakesTheChain)
{
    const Tree tree;
    RVOpenNode* const a = tree.root->GetChild(1, 1);
    tree.root->GetNumChildren();
    ASSERT_NE(a->GetNext(0), nullptr);
    EXPECT_NE(a->GetNext(0)->GetNext(0), nullptr);
}

TEST(NodeTree, SiblingsCountFromTheNodeOn)
{
    const Tree tree;
    EXPECT_EQ(tree.child(0)->GetNumSiblings(), 3);
    EXPECT_EQ(tree.child(1)->GetNumSiblings(), 2);
    EXPECT_EQ(tree.child(2)->GetNumSiblings(), 1);
}

TEST(NodeTree, CountingSiblingsMakesTheChain)
{
    const Tree tree;
    RVOpenNode* const a = tree.child(0);
    a->GetNumSiblings();
    ASSERT_NE(a->GetNext(0), nullptr);
    EXPECT_NE(a->GetNext(0)->GetNext(0), nullptr);
}

#ifdef Q_OS_UNIX
TEST(NodeTree, NullObjectCountsNoSiblings)
{
    // As a host's compiled call does it, which no compiler of this test gets to reason about.
    using Count = int (*)(RVOpenNode*);
    const auto count =
        reinterpret_cast<Count>(dlsym(RTLD_DEFAULT, "_ZN6rvopen10RVOpenNode14GetNumSiblingsEv"));
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count(nullptr), 0);
}
#endif

TEST(NodeTree, ChildPositionCountsFromZero)
{
    const Tree tree;
    for (const int position : {0, 1, 2})
        EXPECT_EQ(tree.root->GetChildPos(tree.child(position)), position);
}

TEST(NodeTree, ChildPositionMakesTheChildren)
{
    const Tree tree;
    const auto other = tree.free();
    tree.root->GetChildPos(other.get());
    ASSERT_NE(tree.root->GetChild(0, 0), nullptr);
    EXPECT_NE(tree.root->GetChild(0, 0)->GetNext(0), nullptr);
}

TEST(NodeTree, PositionOfANodeThatIsNoChildIsTheNumberOfChildren)
{
    const Tree tree;
    const auto other = tree.free();
    EXPECT_EQ(tree.root->GetChildPos(other.get()), 3);
    EXPECT_EQ(tree.root->GetChildPos(nullptr), 3);
}

TEST(NodeTree, PositionUnderANodeWithoutChildrenIsZero)
{
    const Tree tree("<root/>");
    const auto other = tree.free();
    EXPECT_EQ(tree.root->GetChildPos(other.get()), 0);
}

// AddNode

class AddNode : public ::testing::TestWithParam<Made> {
protected:
    AddNode()
    {
        make(m_tree.root.get(), GetParam());
    }

    const Tree m_tree;
};

TEST_P(AddNode, AppendsToChainAndDom)
{
    m_tree.root->AddNode(m_tree.free().release(), true);
    EXPECT_EQ(m_tree.names(), QStringList({"a", "b", "c", "new"}));
    EXPECT_TRUE(mirrorsWholeDom(m_tree.root.get()));
}

TEST_P(AddNode, LinksTheVeryObject)
{
    RVOpenNode* const child = m_tree.free().release();
    m_tree.root->AddNode(child, true);
    EXPECT_EQ(m_tree.child(3), child);
    EXPECT_EQ(child->GetParent(), m_tree.root.get());
}

TEST_P(AddNode, AppendsOneAfterTheOther)
{
    m_tree.root->AddNode(m_tree.free("x").release(), true);
    m_tree.root->AddNode(m_tree.free("y").release(), false);
    EXPECT_EQ(m_tree.names(), QStringList({"a", "b", "c", "x", "y"}));
    EXPECT_TRUE(mirrorsWholeDom(m_tree.root.get()));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, AddNode,
                         ::testing::Values(Made::Nothing, Made::First, Made::All),
                         [](const auto& instance) { return nameOf(instance.param); });

TEST(NodeTree, AddedToANodeWithoutChildrenTheChildIsTheFirst)
{
    const Tree tree("<root/>");
    RVOpenNode* const child = tree.free().release();
    tree.root->AddNode(child, true);
    EXPECT_EQ(tree.root->GetChild(0, 0), child);
    EXPECT_EQ(child->GetParent(), tree.root.get());
    EXPECT_EQ(tree.names(), QStringList("new"));
}

TEST(NodeTree, AddingNullDoesNothing)
{
    const Tree tree;
    tree.root->AddNode(nullptr, true);
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
}

TEST(NodeTree, AddingANodeToItselfDoesNothing)
{
    const Tree tree;
    tree.root->AddNode(tree.root.get(), true);
    EXPECT_EQ(tree.root->GetParent(), nullptr);
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
}

TEST(NodeTree, AddingAnAncestorDoesNothing)
{
    const Tree tree("<root><a><b/></a></root>");
    tree.child(0)->GetChild(1, 1)->AddNode(tree.root.get(), true);
    EXPECT_EQ(xmlOf(tree.element()), "<root><a><b/></a></root>");
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(NodeTree, AddedSubtreeStaysWhole)
{
    const Tree tree;
    RVOpenNode* const child = tree.free().release();
    RVOpenNode* const below = tree.free("below").release();
    child->AddNode(below, true);
    tree.root->AddNode(child, true);
    EXPECT_EQ(child->GetChild(0, 0), below);
    EXPECT_EQ(xmlOf(tree.element()), "<root><a/><b/><c/><new><below/></new></root>");
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(NodeTree, AddingANodeThatStandsElsewhereInTheDocumentMovesItsElement)
{
    const Tree tree("<root><a/><b><x/></b></root>");
    const QDomNode element = tree.element().lastChild().firstChild();
    RVOpenNode* const child = bind(element).release();
    tree.child(0)->AddNode(child, true);
    EXPECT_EQ(xmlOf(tree.element()), "<root><a><x/></a><b/></root>");
    EXPECT_EQ(child->GetDomNode(), element);
}

TEST(NodeTree, DetachedChildCanBeAddedToAnotherNode)
{
    const Tree tree("<root><a><x><y/></x></a><b/></root>");
    RVOpenNode* const x = tree.child(0)->GetChild(1, 1);
    tree.child(0)->DetachNode(x, true);
    tree.child(1)->AddNode(x, true);
    EXPECT_EQ(x->GetParent(), tree.child(1));
    EXPECT_EQ(xmlOf(tree.element()), "<root><a/><b><x><y/></x></b></root>");
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(NodeTree, ParentThatAFreeNodeWasDetachedFromCanBeAddedOrInsertedToIt)
{
    const Tree tree("<root><a><b/></a><c><d/></c></root>");
    RVOpenNode* const a = tree.child(0);
    RVOpenNode* const c = tree.child(1);
    const std::unique_ptr<RVOpenNode> b(a->GetChild(1, 1));
    const std::unique_ptr<RVOpenNode> d(c->GetChild(1, 1));
    a->DetachNode(b.get(), true);
    c->DetachNode(d.get(), true);
    tree.root->DetachNode(a, true);
    tree.root->DetachNode(c, true);

    b->AddNode(a, true);
    d->InsertNode(c, 0);

    EXPECT_EQ(xmlOf(b->GetDomNode()), "<b><a/></b>");
    EXPECT_EQ(xmlOf(d->GetDomNode()), "<d><c/></d>");
    EXPECT_TRUE(mirrorsWholeDom(b.get()));
    EXPECT_TRUE(mirrorsWholeDom(d.get()));
}

TEST(NodeTree, DetachedNodeTakesChildrenAfterItsTreeWent)
{
    auto tree = std::make_unique<Tree>("<root><a><b/></a></root>");
    const std::unique_ptr<RVOpenNode> b(tree->child(0)->GetChild(1, 1));
    tree->child(0)->DetachNode(b.get(), true);
    tree.reset();
    const Tree other("<other><x/><y/></other>");
    b->AddNode(other.free("first").release(), true);
    b->InsertNode(other.free("second").release(), 1);
    EXPECT_EQ(xmlOf(b->GetDomNode()), "<b><first/><second/></b>");
    EXPECT_TRUE(mirrorsWholeDom(b.get()));
}

// AddNode and InsertNode between documents

struct TwoTrees {
    Tree source{QStringLiteral("<source><x name='1'><y><z/></y></x><w/></source>")};
    Tree target{QStringLiteral("<target><a/></target>")};
};

TEST(ForeignChild, ThatStandsElsewhereIsAddedAsACopy)
{
    const TwoTrees trees;
    RVOpenNode* const child = bind(trees.source.element().firstChild()).release();
    trees.target.root->AddNode(child, true);
    EXPECT_EQ(xmlOf(trees.target.element()),
              xmlOf("<target><a/><x name='1'><y><z/></y></x></target>"));
}

TEST(ForeignChild, ThatStandsElsewhereKeepsItsElementWhenAdded)
{
    const TwoTrees trees;
    const QDomNode element = trees.source.element().firstChild();
    RVOpenNode* const child = bind(element).release();
    trees.target.root->AddNode(child, true);
    EXPECT_EQ(child->GetDomNode(), element);
    EXPECT_EQ(trees.source.names(), QStringList({"x", "w"}));
}

TEST(ForeignChild, ThatStandsElsewhereIsInTheChainWhenAdded)
{
    const TwoTrees trees;
    RVOpenNode* const child = bind(trees.source.element().firstChild()).release();
    trees.target.root->AddNode(child, true);
    EXPECT_EQ(trees.target.child(1), child);
    EXPECT_EQ(child->GetParent(), trees.target.root.get());
}

TEST(ForeignChild, ThatStandsElsewhereBringsNoSiblingsOfItsElement)
{
    const TwoTrees trees;
    trees.target.root->AddNode(bind(trees.source.element().firstChild()).release(), true);
    EXPECT_EQ(trees.target.child(1)->GetNext(1), nullptr);
    EXPECT_EQ(trees.target.root->GetNumChildren(), 2);
}

TEST(ForeignChild, ThatStandsElsewhereCanBeFollowedByAnother)
{
    const TwoTrees trees;
    trees.target.root->AddNode(bind(trees.source.element().firstChild()).release(), true);
    RVOpenNode* const last = trees.target.free("last").release();
    trees.target.root->AddNode(last, true);
    EXPECT_EQ(trees.target.names(), QStringList({"a", "x", "last"}));
    EXPECT_EQ(trees.target.child(2), last);
}

TEST(ForeignChild, ThatStandsElsewhereIsAddedAsACopyToANodeWithoutChildren)
{
    const TwoTrees trees;
    RVOpenNode* const child = bind(trees.source.element().firstChild()).release();
    RVOpenNode* const parent = trees.target.child(0);
    parent->AddNode(child, true);
    EXPECT_EQ(xmlOf(trees.target.element()),
              xmlOf("<target><a><x name='1'><y><z/></y></x></a></target>"));
    EXPECT_EQ(parent->GetChild(0, 0), child);
    EXPECT_EQ(trees.source.names(), QStringList({"x", "w"}));
}

TEST(ForeignChild, ThatIsFreeMovesWhenAdded)
{
    const TwoTrees trees;
    RVOpenNode* const child = trees.source.free().release();
    const QDomNode element = child->GetDomNode();
    trees.target.root->AddNode(child, true);
    EXPECT_EQ(child->GetDomNode(), element);
    EXPECT_EQ(trees.target.names(), QStringList({"a", "new"}));
    EXPECT_EQ(element.ownerDocument(), trees.target.document);
    EXPECT_TRUE(mirrorsWholeDom(trees.target.root.get()));
}

TEST(ForeignChild, ThatIsFreeMovesWhenInserted)
{
    const TwoTrees trees;
    RVOpenNode* const child = trees.source.free().release();
    trees.target.root->InsertNode(child, 0);
    EXPECT_EQ(trees.target.names(), QStringList({"new", "a"}));
    EXPECT_EQ(child->GetDomNode().ownerDocument(), trees.target.document);
    EXPECT_TRUE(mirrorsWholeDom(trees.target.root.get()));
}

class ForeignInsert : public ::testing::TestWithParam<int> {
protected:
    ForeignInsert()
        : m_child(bind(m_trees.source.element().firstChild()).release())
        , m_below(m_child->GetChild(1, 1)->GetChild(1, 1))
    {
        m_trees.target.root->InsertNode(m_child, GetParam());
    }

    const TwoTrees m_trees;
    RVOpenNode* m_child;
    RVOpenNode* m_below;
};

TEST_P(ForeignInsert, BindsTheChildToACopyInThisDocument)
{
    EXPECT_EQ(m_child->GetDomNode().ownerDocument(), m_trees.target.document);
    EXPECT_EQ(m_child->GetDomNode().parentNode(), m_trees.target.element());
    EXPECT_EQ(xmlOf(m_child->GetDomNode()), xmlOf("<x name='1'><y><z/></y></x>"));
}

TEST_P(ForeignInsert, KeepsChainAndDomInOneOrder)
{
    EXPECT_EQ(m_trees.target.names(),
              GetParam() == 0 ? QStringList({"x", "a"}) : QStringList({"a", "x"}));
    EXPECT_TRUE(mirrorsWholeDom(m_trees.target.root.get()));
}

TEST_P(ForeignInsert, LeavesTheSourceItsElement)
{
    EXPECT_EQ(xmlOf(m_trees.source.element()),
              xmlOf("<source><x name='1'><y><z/></y></x><w/></source>"));
}

TEST_P(ForeignInsert, BindsTheObjectsBelowToTheCopy)
{
    m_below->SetName("changed");
    EXPECT_EQ(xmlOf(m_child->GetDomNode()), xmlOf("<x name='1'><y><z name='changed'/></y></x>"));
    EXPECT_EQ(xmlOf(m_trees.source.element()),
              xmlOf("<source><x name='1'><y><z/></y></x><w/></source>"));
}

TEST_P(ForeignInsert, DeletingTheChildLeavesTheSourceItsElement)
{
    m_trees.target.root->DeleteNode(m_child);
    EXPECT_EQ(m_trees.target.names(), QStringList("a"));
    EXPECT_EQ(xmlOf(m_trees.source.element()),
              xmlOf("<source><x name='1'><y><z/></y></x><w/></source>"));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, ForeignInsert, ::testing::Values(0, 1, 99),
                         [](const auto& instance) { return nameOf(instance.param); });

// InsertNode

class InsertNode : public ::testing::TestWithParam<std::tuple<Made, int>> {
protected:
    InsertNode()
        : m_child(m_tree.free().release())
    {
        make(m_tree.root.get(), std::get<Made>(GetParam()));
        m_tree.root->InsertNode(m_child, std::get<int>(GetParam()));
    }
    /// Where the child must stand.
    int position() const
    {
        return std::clamp(std::get<int>(GetParam()), 0, 3);
    }

    const Tree m_tree;
    RVOpenNode* m_child;
};

TEST_P(InsertNode, PutsTheElementThere)
{
    QStringList expected({"a", "b", "c"});
    expected.insert(position(), "new");
    EXPECT_EQ(m_tree.names(), expected);
}

TEST_P(InsertNode, PutsTheObjectThere)
{
    EXPECT_EQ(m_tree.child(position()), m_child);
    EXPECT_EQ(m_child->GetParent(), m_tree.root.get());
}

TEST_P(InsertNode, KeepsChainAndDomInOneOrder)
{
    EXPECT_TRUE(mirrorsWholeDom(m_tree.root.get()));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, InsertNode,
                         ::testing::Combine(::testing::Values(Made::Nothing, Made::First,
                                                              Made::All),
                                            ::testing::Values(0, 1, 2, 3, 99, -1)),
                         [](const auto& instance) {
                             return nameOf(std::get<Made>(instance.param)) +
                                    nameOf(std::get<int>(instance.param));
                         });

class InsertIntoEmpty : public ::testing::TestWithParam<int> {};

TEST_P(InsertIntoEmpty, MakesTheChildTheFirst)
{
    const Tree tree("<root/>");
    RVOpenNode* const child = tree.free().release();
    tree.root->InsertNode(child, GetParam());
    EXPECT_EQ(tree.root->GetChild(0, 0), child);
    EXPECT_EQ(tree.names(), QStringList("new"));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST_P(InsertIntoEmpty, ReplacesAnEarlierParentLink)
{
    const Tree tree("<root><a><x/></a><b/></root>");
    RVOpenNode* const x = tree.child(0)->GetChild(1, 1);
    tree.child(0)->DetachNode(x, true);
    tree.child(1)->InsertNode(x, GetParam());
    EXPECT_EQ(x->GetParent(), tree.child(1));
    EXPECT_EQ(xmlOf(tree.element()), "<root><a/><b><x/></b></root>");
}

INSTANTIATE_TEST_SUITE_P(NodeTree, InsertIntoEmpty, ::testing::Values(0, 1, 99),
                         [](const auto& instance) { return nameOf(instance.param); });

TEST(NodeTree, ChildInsertedFirstGetsThisParentWhateverItHad)
{
    const Tree tree("<root><a><x/></a><b><y/></b></root>");
    RVOpenNode* const x = tree.child(0)->GetChild(1, 1);
    tree.child(0)->DetachNode(x, true);
    RVOpenNode* const b = tree.child(1);
    b->InsertNode(x, 0);
    EXPECT_EQ(x->GetParent(), b);
    EXPECT_EQ(xmlOf(tree.element()), "<root><a/><b><x/><y/></b></root>");
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(NodeTree, InsertPositionsCountEveryDomNode)
{
    const Tree tree("<root><!--c--><a/>text<b/></root>");
    tree.root->InsertNode(tree.free().release(), 2);
    EXPECT_EQ(tree.names(), QStringList({"#comment", "a", "new", "#text", "b"}));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(NodeTree, InsertingNullDoesNothing)
{
    const Tree tree;
    tree.root->InsertNode(nullptr, 0);
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
}

TEST(NodeTree, InsertingANodeIntoItselfDoesNothing)
{
    const Tree tree;
    tree.root->InsertNode(tree.root.get(), 1);
    EXPECT_EQ(tree.root->GetParent(), nullptr);
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
}

TEST(NodeTree, InsertingAnAncestorDoesNothing)
{
    const Tree tree("<root><a><b/></a></root>");
    tree.child(0)->GetChild(1, 1)->InsertNode(tree.root.get(), 0);
    EXPECT_EQ(xmlOf(tree.element()), "<root><a><b/></a></root>");
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

// DetachNode

class DetachNode : public ::testing::TestWithParam<std::tuple<int, Made, bool>> {
protected:
    DetachNode()
        : m_child(m_tree.child(std::get<int>(GetParam())))
        , m_element(m_child->GetDomNode())
    {
        make(m_tree.root.get(), std::get<Made>(GetParam()));
        m_tree.root->DetachNode(m_child.get(), std::get<bool>(GetParam()));
    }

    const Tree m_tree{"<root><x><y/></x><x><y/></x><x><y/></x></root>"};
    const std::unique_ptr<RVOpenNode> m_child;
    const QDomNode m_element;
};

TEST_P(DetachNode, TakesTheObjectOutOfTheChain)
{
    EXPECT_EQ(children(m_tree.root.get()).size(), 2u);
    EXPECT_EQ(m_tree.root->GetChildPos(m_child.get()), 2);
}

TEST_P(DetachNode, TakesTheElementOutOfTheDocument)
{
    EXPECT_EQ(m_tree.names(), QStringList({"x", "x"}));
    EXPECT_TRUE(m_element.parentNode().isNull());
}

TEST_P(DetachNode, KeepsChainAndDomInOneOrder)
{
    EXPECT_TRUE(mirrorsWholeDom(m_tree.root.get()));
}

TEST_P(DetachNode, ClearsTheNextLink)
{
    EXPECT_EQ(m_child->GetNext(0), nullptr);
    EXPECT_EQ(m_child->GetNext(1), nullptr);
}

TEST_P(DetachNode, LeavesTheParentLink)
{
    EXPECT_EQ(m_child->GetParent(), m_tree.root.get());
}

TEST_P(DetachNode, LeavesTheNodeAndItsSubtreeWhole)
{
    EXPECT_EQ(m_child->GetDomNode(), m_element);
    EXPECT_EQ(childNames(m_child.get()), QStringList("y"));
    EXPECT_TRUE(mirrorsWholeDom(m_child.get()));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, DetachNode,
                         ::testing::Combine(::testing::Values(0, 1, 2),
                                            ::testing::Values(Made::First, Made::All),
                                            ::testing::Bool()),
                         [](const auto& instance) {
                             return nameOf(std::get<int>(instance.param)) +
                                    nameOf(std::get<Made>(instance.param)) +
                                    (std::get<bool>(instance.param) ? "Following" : "NotFollowing");
                         });

TEST(NodeTree, DetachingTheFirstChildMakesItsSiblingTheFirst)
{
    const Tree tree;
    const std::unique_ptr<RVOpenNode> a(tree.child(0));
    RVOpenNode* const b = tree.child(1);
    tree.root->DetachNode(a.get(), true);
    EXPECT_EQ(tree.root->GetChild(0, 0), b);
}

TEST(NodeTree, DetachingTheOnlyChildLeavesNone)
{
    const Tree tree("<root><a/></root>");
    const std::unique_ptr<RVOpenNode> a(tree.child(0));
    tree.root->DetachNode(a.get(), true);
    EXPECT_EQ(tree.root->GetChild(1, 1), nullptr);
    EXPECT_EQ(tree.names(), QStringList());
}

TEST(NodeTree, DetachingANodeThatIsNoChildUnbindsIt)
{
    const Tree tree("<root><a/><b/></root>");
    const Tree other("<other><x/><y/></other>");
    const auto x = bind(other.element().firstChild());
    x->SetNext(x->GetNext(1));
    const std::unique_ptr<RVOpenNode> y(x->GetNext(0));
    tree.root->DetachNode(x.get(), true);
    EXPECT_TRUE(x->GetDomNode().isNull());
    EXPECT_EQ(x->GetNext(0), nullptr);
    EXPECT_EQ(other.names(), QStringList({"x", "y"}));
}

TEST(NodeTree, DetachingANodeThatIsNoChildLeavesTheChildren)
{
    const Tree tree;
    const auto other = tree.free();
    tree.root->DetachNode(other.get(), true);
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(NodeTree, DetachingFromANodeWithoutChildrenDoesNothing)
{
    const Tree tree("<root/>");
    const auto other = tree.free();
    tree.root->DetachNode(other.get(), true);
    EXPECT_EQ(other->GetNodeName(), "new");
}

TEST(NodeTree, DetachingNullDoesNothing)
{
    const Tree tree;
    tree.root->DetachNode(nullptr, true);
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
}

TEST(NodeTree, DetachingFromAnUnboundNodeIsAProgrammingError)
{
    RVOpenNode parent;
    const Tree tree;
    const std::unique_ptr<RVOpenNode> child = tree.free();
    parent.AddNode(child.get(), false);
    ASSERT_EQ(parent.GetChild(0, 0), child.get());
    EXPECT_ASSERTION(parent.DetachNode(child.get(), false), "!m_node.isNull()", "RVOpenNode");
    if (AssertionsEnabled) {
        // The statement ran in another process: undo the link here.
        parent.SetDomNode(tree.element());
        parent.DetachNode(child.get(), false);
    }
    EXPECT_EQ(parent.GetChild(0, 0), nullptr);
    EXPECT_TRUE(child->GetDomNode().isNull());
    parent.SetDomNode(QDomNode());
}

TEST(NodeTree, DetachingAnUnboundChildIsAProgrammingError)
{
    const Tree tree;
    const std::unique_ptr<RVOpenNode> child(tree.child(0));
    child->GetNext(1);
    const QDomNode element = child->GetDomNode();
    child->SetDomNode(QDomNode());
    EXPECT_ASSERTION(tree.root->DetachNode(child.get(), true), "!node->GetDomNode().isNull()",
                     "RVOpenNode");
    if (AssertionsEnabled) {
        child->SetDomNode(element);
        tree.root->DetachNode(child.get(), true);
    } else {
        EXPECT_TRUE(child->GetDomNode().isNull());
    }
    EXPECT_EQ(tree.root->GetChild(0, 0)->GetNodeName(), "b");
}

// DeleteNode

class DeleteNode : public ::testing::TestWithParam<int> {
protected:
    const Tree m_tree;
};

TEST_P(DeleteNode, LeavesTheOthers)
{
    QStringList expected({"a", "b", "c"});
    expected.removeAt(GetParam());
    m_tree.root->DeleteNode(m_tree.child(GetParam()));
    EXPECT_EQ(m_tree.names(), expected);
    EXPECT_EQ(childNames(m_tree.root.get()), expected);
    EXPECT_TRUE(mirrorsWholeDom(m_tree.root.get()));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, DeleteNode, ::testing::Values(0, 1, 2),
                         [](const auto& instance) { return nameOf(instance.param); });

TEST(NodeTree, DeleteNodeDestroysTheChildWithItsSubtreeAlone)
{
    QStringList log;
    const Tree tree("<root/>");
    for (const char* name : {"a", "b", "c"}) {
        auto* const probe = new Probe(tree.freeElement(name), &log);
        probe->AddNode(new Probe(tree.freeElement(QString(name) + "1"), &log), true);
        tree.root->AddNode(probe, true);
    }
    log.clear();
    tree.root->DeleteNode(tree.child(1));
    EXPECT_EQ(log, QStringList({"b", "b1 in place"}));
}

TEST(NodeTree, DeletingNullDoesNothing)
{
    const Tree tree;
    tree.root->DeleteNode(nullptr);
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
}

// ReplaceNode

class ReplaceNode : public ::testing::TestWithParam<std::tuple<int, Made>> {
protected:
    ReplaceNode()
        : m_new(m_tree.free().release())
    {
        RVOpenNode* const old = m_tree.child(position());
        make(m_tree.root.get(), std::get<Made>(GetParam()));
        m_tree.root->ReplaceNode(old, m_new);
    }
    int position() const
    {
        return std::get<int>(GetParam());
    }

    const Tree m_tree;
    RVOpenNode* m_new;
};

TEST_P(ReplaceNode, PutsTheNewChildInTheOldOnesPlace)
{
    QStringList expected({"a", "b", "c"});
    expected[position()] = "new";
    EXPECT_EQ(m_tree.names(), expected);
    EXPECT_EQ(m_tree.child(position()), m_new);
    EXPECT_EQ(m_new->GetParent(), m_tree.root.get());
}

TEST_P(ReplaceNode, KeepsChainAndDomInOneOrder)
{
    EXPECT_TRUE(mirrorsWholeDom(m_tree.root.get()));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, ReplaceNode,
                         ::testing::Combine(::testing::Values(0, 1, 2),
                                            ::testing::Values(Made::First, Made::All)),
                         [](const auto& instance) {
                             return nameOf(std::get<int>(instance.param)) +
                                    nameOf(std::get<Made>(instance.param));
                         });

TEST(NodeTree, ReplacingDestroysTheOldChildAlone)
{
    QStringList log;
    const Tree tree("<root/>");
    for (const char* name : {"a", "b", "c"})
        tree.root->AddNode(new Probe(tree.freeElement(name), &log), true);
    log.clear();
    tree.root->ReplaceNode(tree.child(1), new Probe(tree.freeElement(), &log));
    EXPECT_EQ(log, QStringList("b"));
}

TEST(NodeTree, ReplacingTheOnlyChildMakesTheNewOneTheFirst)
{
    const Tree tree("<root><a/></root>");
    RVOpenNode* const child = tree.free().release();
    tree.root->ReplaceNode(tree.child(0), child);
    EXPECT_EQ(tree.root->GetChild(0, 0), child);
    EXPECT_EQ(tree.names(), QStringList("new"));
}

TEST(NodeTree, ReplacingANodeThatIsNoChildChangesNothing)
{
    const Tree tree;
    tree.child(2);
    const auto other = tree.free("other");
    const auto child = tree.free();
    tree.root->ReplaceNode(other.get(), child.get());
    EXPECT_EQ(childNames(tree.root.get()), QStringList({"a", "b", "c"}));
    EXPECT_EQ(tree.names(), QStringList({"a", "b", "c"}));
    EXPECT_EQ(other->GetNodeName(), "other");
    EXPECT_EQ(child->GetParent(), nullptr);
}

TEST(NodeTree, ReplacingBeforeAChildIsMadeChangesNothing)
{
    const Tree tree;
    const auto old = bind(tree.element().firstChild());
    const auto child = tree.free();
    tree.root->ReplaceNode(old.get(), child.get());
    EXPECT_EQ(tree.root->GetChild(0, 0), nullptr);
    EXPECT_EQ(tree.names(), QStringList({"a", "b", "c"}));
}

TEST(NodeTree, ReplacingNullOrByNullChangesNothing)
{
    const Tree tree;
    const auto child = tree.free();
    tree.child(2);
    tree.root->ReplaceNode(nullptr, child.get());
    tree.root->ReplaceNode(tree.child(0), nullptr);
    EXPECT_EQ(tree.names(), QStringList({"a", "b", "c"}));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

TEST(NodeTree, ReplacingAChildByItselfChangesNothing)
{
    const Tree tree;
    RVOpenNode* const b = tree.child(1);
    tree.root->ReplaceNode(b, b);
    EXPECT_EQ(tree.child(1), b);
    EXPECT_EQ(tree.names(), QStringList({"a", "b", "c"}));
}

TEST(NodeTree, ReplacingByAChildOfAnotherDocumentPutsACopyThere)
{
    const Tree tree;
    const Tree source("<source><x><y/></x></source>");
    RVOpenNode* const x = bind(source.element().firstChild()).release();
    tree.root->ReplaceNode(tree.child(1), x);
    EXPECT_EQ(xmlOf(tree.element()), "<root><a/><x><y/></x><c/></root>");
    EXPECT_EQ(xmlOf(source.element()), "<source><x><y/></x></source>");
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
}

// Destruction

TEST(Destruction, TakesTheElementOutOfTheDocument)
{
    const Tree tree;
    bind(tree.element().firstChild()).reset();
    EXPECT_EQ(tree.names(), QStringList({"b", "c"}));
}

TEST(Destruction, TakesTheSiblingsAfterTheNodeAlong)
{
    const Tree tree;
    auto b = bind(tree.element().childNodes().at(1));
    b->GetNext(1);
    b.reset();
    EXPECT_EQ(tree.names(), QStringList("a"));
}

TEST(Destruction, LeavesSiblingsThatWereNeverMade)
{
    const Tree tree;
    bind(tree.element().childNodes().at(1)).reset();
    EXPECT_EQ(tree.names(), QStringList({"a", "c"}));
}

TEST(Destruction, OfARootEmptiesTheDocument)
{
    Tree tree("<root><a><b/></a></root>");
    materialise(tree.root.get());
    tree.root.reset();
    EXPECT_TRUE(tree.document.documentElement().isNull());
}

TEST(Destruction, TakesTheElementsBelowOutOfTheirParents)
{
    Tree tree("<root><a><b/></a></root>");
    materialise(tree.root.get());
    const QDomNode root = tree.element();
    const QDomNode a = root.firstChild();
    const QDomNode b = a.firstChild();
    tree.root.reset();
    EXPECT_TRUE(root.firstChild().isNull());
    EXPECT_TRUE(a.parentNode().isNull());
    EXPECT_TRUE(b.parentNode().isNull());
}

TEST(Destruction, LeavesElementsWhoseObjectsWereNeverMade)
{
    Tree tree("<root><a><b/></a></root>");
    const QDomNode root = tree.element();
    tree.root.reset();
    EXPECT_EQ(xmlOf(root), "<root><a><b/></a></root>");
}

TEST(Destruction, OfAFreeOrUnboundNodeIsQuiet)
{
    const Tree tree;
    tree.free().reset();
    std::make_unique<RVOpenNode>().reset();
    EXPECT_EQ(tree.names(), QStringList({"a", "b", "c"}));
}

TEST(Destruction, GoesFromEachNodeToItsSubtreeThenToItsSiblings)
{
    QStringList log;
    const Tree tree("<root><a><a1><a2/></a1><a3/></a><b><b1/><b2/></b><c/></root>");
    const auto probes = [&log](RVOpenNode* parent, const QDomNode& element, auto&& self) -> void {
        // Each goes to the end when it is added.
        for (auto count = domChildNames(element).size(); count > 0; --count) {
            const QDomNode child = element.firstChild();
            auto* const probe = new Probe(child, &log);
            parent->AddNode(probe, false);
            self(probe, child, self);
        }
    };
    auto* const first = new Probe(tree.element().firstChild(), &log);
    RVOpenNode* last = first;
    probes(first, first->GetDomNode(), probes);
    for (QDomNode element = first->GetDomNode().nextSibling(); !element.isNull();
         element = element.nextSibling()) {
        last->SetNext(new Probe(element, &log));
        last = last->GetNext(0);
        probes(last, element, probes);
    }
    delete first;
    EXPECT_EQ(log, QStringList({"a in place", "a1 in place", "a2 in place", "a3 in place",
                                "b in place", "b1 in place", "b2 in place", "c in place"}));
    EXPECT_EQ(tree.names(), QStringList());
}

/// Deletes a chain of its own while it is being destroyed itself.
class ChainOwner : public RVOpenNode {
public:
    ChainOwner(const QDomNode& node, RVOpenNode* chain)
        : m_chain(chain)
    {
        SetDomNode(node);
    }
    ~ChainOwner() override
    {
        delete m_chain;
    }

private:
    RVOpenNode* m_chain;
};

TEST(Destruction, OfAChainMayDeleteAnotherChainOnTheWay)
{
    const Tree inner("<inner><x/><y/><z/></inner>");
    RVOpenNode* const x = bind(inner.element().firstChild()).release();
    x->GetNumSiblings();
    const Tree outer;
    auto a = bind(outer.element().firstChild());
    a->SetNext(new ChainOwner(outer.element().childNodes().at(1), x));
    a->GetNext(0)->SetNext(bind(outer.element().lastChild()).release());
    a.reset();
    EXPECT_EQ(inner.names(), QStringList());
    EXPECT_EQ(outer.names(), QStringList());
}

TEST(Destruction, OfAMillionSiblingsNeedsNoDeepStack)
{
    QDomDocument document("long");
    QDomElement root = document.createElement("root");
    document.appendChild(root);
    const QString name("a");
    constexpr int count = 1000000;
    for (int i = 0; i < count; ++i)
        root.appendChild(document.createElement(name));
    auto node = bind(root);
    node->GetChild(1, 1);
    ASSERT_EQ(node->GetNumChildren(), count);
    node.reset();
    EXPECT_TRUE(root.firstChild().isNull());
}

TEST(Destruction, OfManySiblingsOfAModelClassNeedsNoDeepStack)
{
    QDomDocument document("long");
    QDomElement root = document.createElement("root");
    document.appendChild(root);
    constexpr int count = 200000;
    for (int i = 0; i < count; ++i)
        root.appendChild(document.createElement("camera"));
    auto node = bind(root);
    node->GetChild(1, 1);
    ASSERT_EQ(node->GetNumChildren(), count);
    node.reset();
    EXPECT_TRUE(root.firstChild().isNull());
}

// Archive references

/// How far the archive is known before the operation under test.
enum class Archive { NotOpen, Open, ChildrenMade };

std::string nameOf(Archive archive)
{
    return archive == Archive::NotOpen ? "NotOpen"
           : archive == Archive::Open  ? "Open"
                                       : "ChildrenMade";
}

/// A document whose root has one child that stands for the archive "Studio".
class ReferenceTest : public ::testing::Test {
protected:
    explicit ReferenceTest(const QString& archiveXml, Archive state = Archive::NotOpen)
    {
        m_folders.write("Studio", archiveXml);
        m_item = m_tree.child(0);
        if (state != Archive::NotOpen)
            GetDirectoryHandler()->LoadArchive(m_fileName);
        if (state == Archive::ChildrenMade)
            children(archive());
    }

    RVOpenNode* archive() const
    {
        return GetDirectoryHandler()->LoadArchive(m_fileName);
    }
    QStringList archiveNames() const
    {
        return domChildNames(archive()->GetDomNode());
    }
    RVOpenNode* archiveChild(int position) const
    {
        return children(archive()).at(static_cast<std::size_t>(position));
    }
    /// The children that a later session finds.
    QStringList savedNames() const
    {
        EXPECT_TRUE(GetDirectoryHandler()->SaveArchive(m_fileName));
        RVOpenNode* const reopened = reopenArchive(m_fileName);
        return reopened ? domChildNames(reopened->GetDomNode()) : QStringList("not readable");
    }
    bool referenceIsEmpty() const
    {
        return !m_item->GetChild(0, 0) && m_item->GetDomNode().firstChild().isNull();
    }

    ArchiveFolders m_folders;
    const QString m_fileName = m_folders.full("Studio");
    const Tree m_tree{"<host><item archiveFilename='Studio' archiveType='Custom'/></host>"};
    RVOpenNode* m_item = nullptr;
};

class NonEmptyArchive : public ReferenceTest, public ::testing::WithParamInterface<Archive> {
protected:
    NonEmptyArchive()
        : ReferenceTest("<archive><a/><b/><c/></archive>", GetParam())
    {
    }
};

TEST_P(NonEmptyArchive, GivesItsFirstChildForTheReferences)
{
    EXPECT_EQ(m_item->GetChild(1, 1), archiveChild(0));
    EXPECT_EQ(childNames(m_item), QStringList({"a", "b", "c"}));
}

TEST_P(NonEmptyArchive, IsNoChildOfTheReferencesOwn)
{
    m_item->GetChild(1, 1);
    EXPECT_EQ(m_item->GetChild(0, 1), nullptr);
    EXPECT_EQ(m_item->GetChild(1, 0), nullptr);
}

TEST_P(NonEmptyArchive, GivesChildrenWhoseParentIsItsRoot)
{
    EXPECT_EQ(m_item->GetChild(1, 1)->GetParent(), archive());
}

TEST_P(NonEmptyArchive, IsSearchedForChildPositions)
{
    EXPECT_EQ(m_item->GetChildPos(archiveChild(2)), 2);
    EXPECT_EQ(m_item->GetChildPos(nullptr), 3);
}

TEST_P(NonEmptyArchive, CountsNoChildrenOfTheReferencesOwn)
{
    m_item->GetChild(1, 1);
    EXPECT_EQ(m_item->GetNumChildren(), 0);
}

TEST_P(NonEmptyArchive, TakesWhatIsAdded)
{
    RVOpenNode* const child = m_tree.free().release();
    m_item->AddNode(child, true);
    EXPECT_EQ(archiveChild(3), child);
    EXPECT_EQ(child->GetParent(), archive());
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_TRUE(referenceIsEmpty());
    EXPECT_EQ(savedNames(), QStringList({"a", "b", "c", "new"}));
}

TEST_P(NonEmptyArchive, TakesWhatIsAddedWithoutFollowing)
{
    // The chain that the reference shows is the archive's, so that is where the child goes.
    RVOpenNode* const child = m_tree.free().release();
    m_item->AddNode(child, false);
    EXPECT_EQ(archiveChild(3), child);
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_TRUE(referenceIsEmpty());
    EXPECT_EQ(savedNames(), QStringList({"a", "b", "c", "new"}));
}

TEST_P(NonEmptyArchive, TakesACopyOfWhatStandsElsewhere)
{
    const Tree source("<source><x/></source>");
    m_item->AddNode(bind(source.element().firstChild()).release(), true);
    EXPECT_EQ(source.names(), QStringList("x"));
    EXPECT_EQ(savedNames(), QStringList({"a", "b", "c", "x"}));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, NonEmptyArchive,
                         ::testing::Values(Archive::NotOpen, Archive::Open, Archive::ChildrenMade),
                         [](const auto& instance) { return nameOf(instance.param); });

class InsertIntoArchive : public ReferenceTest,
                          public ::testing::WithParamInterface<std::tuple<Archive, int>> {
protected:
    InsertIntoArchive()
        : ReferenceTest("<archive><a/><b/><c/></archive>", std::get<Archive>(GetParam()))
    {
    }
};

TEST_P(InsertIntoArchive, PutsTheChildThereForGood)
{
    const int position = std::min(std::get<int>(GetParam()), 3);
    QStringList expected({"a", "b", "c"});
    expected.insert(position, "new");
    RVOpenNode* const child = m_tree.free().release();

    m_item->InsertNode(child, std::get<int>(GetParam()));

    EXPECT_EQ(archiveChild(position), child);
    EXPECT_EQ(child->GetParent(), archive());
    EXPECT_EQ(archiveNames(), expected);
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_TRUE(referenceIsEmpty());
    EXPECT_EQ(savedNames(), expected);
}

TEST_P(InsertIntoArchive, BindsWhatStandsElsewhereToACopy)
{
    const Tree source("<source><x/></source>");
    RVOpenNode* const child = bind(source.element().firstChild()).release();
    m_item->InsertNode(child, std::get<int>(GetParam()));
    EXPECT_EQ(child->GetDomNode().ownerDocument(), archive()->GetDomNode().ownerDocument());
    EXPECT_EQ(source.names(), QStringList("x"));
    EXPECT_TRUE(mirrorsWholeDom(archive()));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, InsertIntoArchive,
                         ::testing::Combine(::testing::Values(Archive::NotOpen, Archive::Open,
                                                              Archive::ChildrenMade),
                                            ::testing::Values(0, 1, 2, 3, 99)),
                         [](const auto& instance) {
                             return nameOf(std::get<Archive>(instance.param)) +
                                    nameOf(std::get<int>(instance.param));
                         });

class TakeFromArchive : public ReferenceTest, public ::testing::WithParamInterface<int> {
protected:
    TakeFromArchive()
        : ReferenceTest("<archive><a/><b/><c/></archive>")
        , m_child(archiveChild(GetParam()))
    {
        m_left.removeAt(GetParam());
        m_replaced[GetParam()] = "new";
    }

    RVOpenNode* m_child;
    QStringList m_left{"a", "b", "c"};
    QStringList m_replaced{"a", "b", "c"};
};

TEST_P(TakeFromArchive, DetachedChildDoesNotComeBack)
{
    m_item->DetachNode(m_child, true);
    const std::unique_ptr<RVOpenNode> owner(m_child);
    EXPECT_EQ(archiveNames(), m_left);
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_TRUE(m_child->GetDomNode().parentNode().isNull());
    EXPECT_EQ(savedNames(), m_left);
}

TEST_P(TakeFromArchive, ChildDetachedWithoutFollowingDoesNotComeBack)
{
    m_item->DetachNode(m_child, false);
    const std::unique_ptr<RVOpenNode> owner(m_child);
    EXPECT_EQ(archiveNames(), m_left);
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_EQ(savedNames(), m_left);
}

TEST_P(TakeFromArchive, DetachedChildOutlivesTheArchive)
{
    m_item->DetachNode(m_child, true);
    const std::unique_ptr<RVOpenNode> owner(m_child);
    const QString name = m_child->GetNodeName();
    GetDirectoryHandler()->CloseArchive(m_fileName);
    EXPECT_EQ(m_child->GetDomNode().nodeName(), name);
    EXPECT_FALSE(m_child->GetDomNode().ownerDocument().isNull());
}

TEST_P(TakeFromArchive, DeletedChildDoesNotComeBack)
{
    m_item->DeleteNode(m_child);
    EXPECT_EQ(archiveNames(), m_left);
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_EQ(savedNames(), m_left);
}

TEST_P(TakeFromArchive, ReplacedChildDoesNotComeBack)
{
    RVOpenNode* const child = m_tree.free().release();
    m_item->ReplaceNode(m_child, child);
    EXPECT_EQ(archiveChild(GetParam()), child);
    EXPECT_EQ(child->GetParent(), archive());
    EXPECT_EQ(archiveNames(), m_replaced);
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_TRUE(referenceIsEmpty());
    EXPECT_EQ(savedNames(), m_replaced);
}

INSTANTIATE_TEST_SUITE_P(NodeTree, TakeFromArchive, ::testing::Values(0, 1, 2),
                         [](const auto& instance) { return nameOf(instance.param); });

class OpenArchive : public ReferenceTest {
protected:
    OpenArchive()
        : ReferenceTest("<archive><a/><b/></archive>", Archive::Open)
    {
    }
};

TEST_F(OpenArchive, IsNotReplacedInBeforeItsChildrenAreMade)
{
    const auto old = bind(archive()->GetDomNode().firstChild());
    const auto child = m_tree.free();
    m_item->ReplaceNode(old.get(), child.get());
    EXPECT_EQ(archiveNames(), QStringList({"a", "b"}));
    EXPECT_EQ(child->GetParent(), nullptr);
}

TEST_F(OpenArchive, IsLeftAloneByANodeThatIsNoChildOfIt)
{
    const auto other = m_tree.free();
    m_item->DetachNode(other.get(), true);
    EXPECT_TRUE(other->GetDomNode().isNull());
    EXPECT_EQ(archiveNames(), QStringList({"a", "b"}));
    EXPECT_TRUE(mirrorsWholeDom(archive()));
}

TEST_F(OpenArchive, IsRemovedWithItsFileWhenTheReferenceIsDeleted)
{
    m_tree.root->DeleteNode(m_item);
    EXPECT_FALSE(QFile::exists(m_fileName));
    EXPECT_EQ(GetDirectoryHandler()->LoadArchive(m_fileName), nullptr);
    EXPECT_EQ(m_tree.names(), QStringList());
}

TEST_F(OpenArchive, StaysOpenWithItsFileWhenTheReferenceIsReplaced)
{
    RVOpenNode* const before = archive();
    m_tree.root->ReplaceNode(m_item, m_tree.free().release());
    EXPECT_TRUE(QFile::exists(m_fileName));
    EXPECT_EQ(archive(), before);
    EXPECT_EQ(m_tree.names(), QStringList("new"));
}

TEST_F(OpenArchive, KeepsItsFileWhenTheReferenceIsDetached)
{
    m_tree.root->DetachNode(m_item, true);
    const std::unique_ptr<RVOpenNode> owner(m_item);
    EXPECT_TRUE(QFile::exists(m_fileName));
    EXPECT_EQ(childNames(m_item), QStringList({"a", "b"}));
}

TEST_F(OpenArchive, KeepsItsFileWhenAnObjectOfTheReferenceIsDestroyed)
{
    bind(m_item->GetDomNode()).reset();
    EXPECT_TRUE(QFile::exists(m_fileName));
}

TEST_F(OpenArchive, IsNotAskedOnceTheReferenceHasChildrenOfItsOwn)
{
    const Tree tree("<item><x/><y/></item>");
    tree.child(1);
    tree.element().setAttribute("archiveFilename", "Studio");
    tree.element().setAttribute("archiveType", "Custom");
    tree.root->AddNode(tree.free("z").release(), true);
    tree.root->InsertNode(tree.free("w").release(), 0);
    tree.root->DeleteNode(tree.child(1));
    const std::unique_ptr<RVOpenNode> w(tree.child(0));
    tree.root->DetachNode(w.get(), true);
    EXPECT_EQ(tree.names(), QStringList({"y", "z"}));
    EXPECT_TRUE(mirrorsWholeDom(tree.root.get()));
    EXPECT_EQ(archiveNames(), QStringList({"a", "b"}));
}

class UnopenedArchive : public ReferenceTest {
protected:
    UnopenedArchive()
        : ReferenceTest("<archive><a/></archive>")
    {
    }
};

TEST_F(UnopenedArchive, KeepsItsFileWhenTheReferenceIsDeleted)
{
    m_tree.root->DeleteNode(m_item);
    EXPECT_TRUE(QFile::exists(m_fileName));
    EXPECT_EQ(m_tree.names(), QStringList());
}

class EmptyArchive : public ReferenceTest, public ::testing::WithParamInterface<Archive> {
protected:
    EmptyArchive()
        : ReferenceTest("<archive/>", GetParam())
    {
    }
};

TEST_P(EmptyArchive, GivesNoChild)
{
    EXPECT_EQ(m_item->GetChild(1, 1), nullptr);
}

TEST_P(EmptyArchive, TakesWhatIsAdded)
{
    RVOpenNode* const child = m_tree.free().release();
    m_item->AddNode(child, true);
    EXPECT_EQ(archiveChild(0), child);
    EXPECT_EQ(child->GetParent(), archive());
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_TRUE(referenceIsEmpty());
    EXPECT_EQ(savedNames(), QStringList("new"));
}

TEST_P(EmptyArchive, IsNotAskedWhenAddingWithoutFollowing)
{
    RVOpenNode* const child = m_tree.free().release();
    m_item->AddNode(child, false);
    EXPECT_EQ(m_item->GetChild(0, 0), child);
    EXPECT_EQ(domChildNames(m_item->GetDomNode()), QStringList("new"));
    EXPECT_EQ(archiveNames(), QStringList());
}

TEST_P(EmptyArchive, TakesWhatIsInserted)
{
    for (const int position : {99, 0}) {
        RVOpenNode* const child = m_tree.free(nameOf(position).c_str()).release();
        m_item->InsertNode(child, position);
        EXPECT_EQ(child->GetParent(), archive());
    }
    EXPECT_TRUE(mirrorsWholeDom(archive()));
    EXPECT_TRUE(referenceIsEmpty());
    EXPECT_EQ(savedNames(), QStringList({"At0", "At99"}));
}

TEST_P(EmptyArchive, LeavesADetachedNodeAlone)
{
    const auto other = m_tree.free();
    m_item->DetachNode(other.get(), true);
    EXPECT_EQ(other->GetNodeName(), "new");
}

INSTANTIATE_TEST_SUITE_P(NodeTree, EmptyArchive,
                         ::testing::Values(Archive::NotOpen, Archive::Open, Archive::ChildrenMade),
                         [](const auto& instance) { return nameOf(instance.param); });

/// An archive file that is missing or that is no document.
class FailingArchive : public ::testing::TestWithParam<const char*> {
protected:
    FailingArchive()
    {
        m_folders.write("Malformed", "<archive><a>");
        m_tree.element().setAttribute("archiveFilename", GetParam());
        m_tree.element().setAttribute("archiveType", "Custom");
    }

    ArchiveFolders m_folders;
    const Tree m_tree{"<item><x/><y/></item>"};
};

TEST_P(FailingArchive, GivesNoChild)
{
    EXPECT_EQ(m_tree.root->GetChild(1, 1), nullptr);
    EXPECT_EQ(m_tree.root->GetChild(0, 0), nullptr);
    EXPECT_EQ(m_tree.root->GetChildPos(nullptr), 0);
}

TEST_P(FailingArchive, LeavesTheOwnChildrenToWhoDoesNotFollow)
{
    RVOpenNode* const child = m_tree.root->GetChild(1, 0);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(child->GetNodeName(), "x");
}

TEST_P(FailingArchive, LeavesAnAddedElementUnderTheReferenceAndTheObjectToTheCaller)
{
    const auto child = m_tree.free();
    m_tree.root->AddNode(child.get(), true);
    EXPECT_EQ(m_tree.names(), QStringList({"x", "y", "new"}));
    EXPECT_EQ(child->GetParent(), m_tree.root.get());
    EXPECT_EQ(m_tree.root->GetChild(0, 0), nullptr);
}

TEST_P(FailingArchive, LeavesACopyOfAnAddedElementThatStandsElsewhere)
{
    const Tree source("<source><z/></source>");
    const auto child = bind(source.element().firstChild());
    m_tree.root->AddNode(child.get(), true);
    EXPECT_EQ(m_tree.names(), QStringList({"x", "y", "z"}));
    EXPECT_EQ(source.names(), QStringList("z"));
    EXPECT_EQ(m_tree.root->GetChild(0, 0), nullptr);
}

TEST_P(FailingArchive, DoesNotMatterWhenAddingWithoutFollowing)
{
    const Tree tree("<item archiveFilename='Missing' archiveType='Custom'/>");
    RVOpenNode* const child = tree.free().release();
    tree.root->AddNode(child, false);
    EXPECT_EQ(tree.root->GetChild(0, 0), child);
}

TEST_P(FailingArchive, LeavesAnInsertedElementAtItsPlaceAndTheObjectToTheCaller)
{
    const auto first = m_tree.free("first");
    const auto second = m_tree.free("second");
    const auto last = m_tree.free("last");
    m_tree.root->InsertNode(first.get(), 0);
    m_tree.root->InsertNode(second.get(), 2);
    m_tree.root->InsertNode(last.get(), 99);
    EXPECT_EQ(m_tree.names(), QStringList({"first", "x", "second", "y", "last"}));
    EXPECT_EQ(second->GetParent(), m_tree.root.get());
    EXPECT_EQ(second->GetNext(0), nullptr);
    EXPECT_EQ(m_tree.root->GetChild(0, 0), nullptr);
}

TEST_P(FailingArchive, BindsAnInsertedChildThatStandsElsewhereToACopy)
{
    const Tree source("<source><z/></source>");
    const auto child = bind(source.element().firstChild());
    m_tree.root->InsertNode(child.get(), 1);
    EXPECT_EQ(m_tree.names(), QStringList({"x", "z", "y"}));
    EXPECT_EQ(child->GetDomNode(), m_tree.element().childNodes().at(1));
    EXPECT_EQ(source.names(), QStringList("z"));
}

TEST_P(FailingArchive, LeavesADetachedOrReplacedNodeAlone)
{
    const auto other = bind(m_tree.element().firstChild());
    const auto child = m_tree.free();
    m_tree.root->DetachNode(other.get(), true);
    m_tree.root->ReplaceNode(other.get(), child.get());
    EXPECT_EQ(m_tree.names(), QStringList({"x", "y"}));
    EXPECT_EQ(other->GetNodeName(), "x");
}

TEST_P(FailingArchive, LeavesADeletedReferenceToItsDocument)
{
    const Tree host("<host><item archiveType='Custom'/></host>");
    host.child(0)->SetShortArchiveFilename(GetParam());
    host.root->DeleteNode(host.child(0));
    EXPECT_EQ(host.names(), QStringList());
}

TEST_P(FailingArchive, IsNotAskedOnceTheReferenceHasChildrenOfItsOwn)
{
    RVOpenNode* const x = m_tree.root->GetChild(1, 0);
    const std::unique_ptr<RVOpenNode> y(x->GetNext(1));
    m_tree.root->AddNode(m_tree.free("z").release(), true);
    m_tree.root->DetachNode(y.get(), true);
    m_tree.root->DeleteNode(x);
    EXPECT_EQ(m_tree.names(), QStringList("z"));
    EXPECT_TRUE(mirrorsWholeDom(m_tree.root.get()));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, FailingArchive, ::testing::Values("Missing", "Malformed"),
                         [](const auto& instance) { return std::string(instance.param); });

// Archives that refer to themselves or to each other

constexpr const char* referenceTo = "archiveType='Custom' archiveFilename=";

QString archiveOf(const QString& pattern, const QString& other)
{
    return QString(pattern).replace("REF", referenceTo + ("'" + other + "'"));
}

/// The archives "One" and "Two", each of which names the given one.
class CircularArchives : public ::testing::TestWithParam<std::tuple<const char*, const char*>> {
protected:
    CircularArchives()
        : m_one(m_folders.full("One"))
        , m_two(m_folders.full("Two"))
    {
    }
    /// Writes both and gives a node that stands for "One".
    RVOpenNode* write(const char* pattern)
    {
        const bool self = std::string(std::get<1>(GetParam())) == "Self";
        m_folders.write("One", archiveOf(pattern, self ? "One" : "Two"));
        m_folders.write("Two", archiveOf(pattern, "One"));
        return m_tree.child(0);
    }
    RVOpenNode* one() const
    {
        return GetDirectoryHandler()->LoadArchive(m_one);
    }

    ArchiveFolders m_folders;
    const QString m_one;
    const QString m_two;
    const Tree m_tree{"<host><item archiveType='Custom' archiveFilename='One'/></host>"};
};

/// Archives whose roots are references.
using CircularRoots = CircularArchives;

TEST_P(CircularRoots, GiveTheirOwnChildren)
{
    RVOpenNode* const item = write("<archive REF><a/><b/></archive>");
    EXPECT_EQ(childNames(item), QStringList({"a", "b"}));
    EXPECT_TRUE(mirrorsWholeDom(one()));
}

TEST_P(CircularRoots, TakeWhatIsAddedOnce)
{
    RVOpenNode* const item = write("<archive REF><a/></archive>");
    item->AddNode(m_tree.free().release(), true);
    EXPECT_EQ(domChildNames(one()->GetDomNode()), QStringList({"a", "new"}));
    EXPECT_TRUE(mirrorsWholeDom(one()));
}

TEST_P(CircularRoots, TakeWhatIsAddedWhileEmpty)
{
    RVOpenNode* const item = write("<archive REF/>");
    item->AddNode(m_tree.free("x").release(), true);
    item->AddNode(m_tree.free("y").release(), true);
    EXPECT_EQ(childNames(item), QStringList({"x", "y"}));
    EXPECT_TRUE(mirrorsWholeDom(one()));
}

TEST_P(CircularRoots, TakeWhatIsInsertedWhileEmpty)
{
    RVOpenNode* const item = write("<archive REF/>");
    item->InsertNode(m_tree.free("x").release(), 0);
    item->InsertNode(m_tree.free("y").release(), 0);
    EXPECT_EQ(childNames(item), QStringList({"y", "x"}));
    EXPECT_TRUE(mirrorsWholeDom(one()));
}

TEST_P(CircularRoots, LetTheirChildrenGo)
{
    RVOpenNode* const item = write("<archive REF><a/><b/><c/></archive>");
    const std::unique_ptr<RVOpenNode> b(children(item).at(1));
    item->DetachNode(b.get(), true);
    item->DeleteNode(children(item).at(0));
    EXPECT_EQ(domChildNames(one()->GetDomNode()), QStringList("c"));
    EXPECT_TRUE(mirrorsWholeDom(one()));
}

TEST_P(CircularRoots, TakeTheirOwnRootsChildren)
{
    write("<archive REF/>");
    one()->InsertNode(m_tree.free("x").release(), 0);
    one()->AddNode(m_tree.free("y").release(), true);
    EXPECT_EQ(childNames(one()), QStringList({"x", "y"}));
}

INSTANTIATE_TEST_SUITE_P(NodeTree, CircularRoots,
                         ::testing::Values(std::make_tuple("", "Self"),
                                           std::make_tuple("", "EachOther")),
                         [](const auto& instance) {
                             return std::string(std::get<1>(instance.param));
                         });

/// Archives whose children are references, of classes that read their children when they are made.
class CircularChildren : public CircularArchives {
protected:
    RVOpenNode* write()
    {
        return CircularArchives::write(std::get<0>(GetParam()));
    }
};

TEST_P(CircularChildren, AreMadeOnceEach)
{
    RVOpenNode* const item = write();
    const QStringList expected = domChildNames(one()->GetDomNode());
    EXPECT_EQ(childNames(item), expected);
    EXPECT_TRUE(mirrorsDom(one()));
}

TEST_P(CircularChildren, AreMadeOnceEachWhereOneWentToAnotherDocument)
{
    RVOpenNode* const item = write();
    const auto all = children(item);
    const Tree other("<other/>");
    for (RVOpenNode* const child : all)
        other.root->InsertNode(child, 0);
    EXPECT_EQ(childNames(item), domChildNames(one()->GetDomNode()));
    EXPECT_EQ(children(item).size(), all.size());
    EXPECT_TRUE(mirrorsDom(one()));
}

TEST_P(CircularChildren, CanBeDeletedWithTheirArchive)
{
    RVOpenNode* const item = write();
    const auto all = children(item);
    item->DeleteNode(all.back());
    EXPECT_EQ(m_tree.names(), QStringList("item"));
}

TEST_P(CircularChildren, CanBeReplacedWithTheirArchive)
{
    RVOpenNode* const item = write();
    const auto all = children(item);
    item->ReplaceNode(all.back(), m_tree.free().release());
    EXPECT_EQ(m_tree.names(), QStringList("item"));
}

INSTANTIATE_TEST_SUITE_P(
    NodeTree, CircularChildren,
    ::testing::Combine(::testing::Values("<archive><camera REF/><camera REF/></archive>",
                                         "<archive><a/><background REF/><lens REF/></archive>",
                                         "<archive><snapshot REF/><snapshots REF/></archive>"),
                       ::testing::Values("Self", "EachOther")),
    [](const auto& instance) {
        const std::string first = std::get<0>(instance.param);
        const char* const kind = first.find("camera") != std::string::npos       ? "Cameras"
                                 : first.find("background") != std::string::npos ? "Mixed"
                                                                                 : "SnapShots";
        return kind + std::string(std::get<1>(instance.param));
    });

} // namespace
} // namespace rvopen::test

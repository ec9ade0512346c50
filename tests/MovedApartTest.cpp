// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MaterialFixtures.h"

#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/SnapShot.h>
#include <rvopen/TemporaryItems.h>

/// Nodes that move while something else shows, holds or stands for them.
namespace rvopen::test {
namespace {

using Tree = Bound<RVOpenNode>;

RVOpenNode* child(const Tree& tree, int index)
{
    return children(tree.get()).at(static_cast<std::size_t>(index));
}

RVOpenNode* made(const Tree& tree, const char* name)
{
    return bind(QDomDocument(tree.document).createElement(name)).release();
}

TEST(MovedApart, WhatTheClipboardHeldIsTheTreesAlone)
{
    const Tree tree("<root/>");
    {
        TemporaryItems items;
        const auto colour = bindRoot<Colour>("<colour/>");
        items.SetColour(colour.get());
        Colour* const held = items.GetColour();
        tree->AddNode(held, true);
        EXPECT_EQ(items.GetColour(), nullptr);
    }
    EXPECT_EQ(tree->GetNumChildren(), 1);
}

TEST(MovedApart, CopyByValueThatIsInsertedElsewhereOwnsItsElementAndItsChildren)
{
    const Tree source("<root><a><x/></a></root>");
    materialise(source.get());
    RVOpenNode* const x = child(source, 0)->GetChild(0, 0);
    const Tree target("<new/>");
    auto* const copy = new RVOpenNode(*child(source, 0));
    target->InsertNode(copy, 0);
    EXPECT_NE(copy->GetChild(1, 1), x);
    delete copy;
    EXPECT_EQ(textOf(*target.get()), "<new/>");
    EXPECT_EQ(child(source, 0)->GetChild(0, 0), x);
    EXPECT_EQ(textOf(*source.get()), "<root><a><x/></a></root>");
}

TEST(MovedApart, ChildOfAnotherDocumentKeepsItsHandleWhenItsParentIsCopied)
{
    const Tree other("<root><k/></root>");
    RVOpenNode* const k = child(other, 0);
    const Tree source("<root><a><x/></a></root>");
    RVOpenNode* const a = child(source, 0);
    materialise(a);
    a->AddNode(k, true);
    const Tree target("<new/>");
    target->InsertNode(a, 0);
    k->SetName("written");
    EXPECT_EQ(textOf(*other.get()), "<root><k name=\"written\"/></root>");
    EXPECT_EQ(textOf(*target.get()), "<new><a><x/><k/></a></new>");
}

TEST(MovedApart, NodeIsInsertedBehindTheCopyOfOneThatStandsElsewhere)
{
    const Tree other("<root><k/></root>");
    const Tree tree("<root/>");
    tree->AddNode(child(other, 0), true);
    tree->AddNode(made(tree, "b"), true);
    tree->InsertNode(made(tree, "c"), 1);
    EXPECT_EQ(domChildNames(tree.element()), QStringList({"k", "c", "b"}));
}

TEST(MovedApart, CopyByValueShowsWhatIsInsertedInFront)
{
    const Tree tree("<root><a/></root>");
    materialise(tree.get());
    RVOpenNode copy(*tree.get());
    RVOpenNode* const first = made(tree, "first");
    copy.InsertNode(first, 0);
    EXPECT_EQ(copy.GetChild(0, 0), first);
}

TEST(MovedApart, ComponentThatIsLinkedBehindANodeHasLeftItsSnapShot)
{
    const QDomDocument document = parse("<snapshot><camera/></snapshot>");
    SnapShot snapShot(document.documentElement());
    const Tree tree("<root/>");
    const std::unique_ptr<RVOpenNode> free(made(tree, "free"));
    Camera* const camera = snapShot.GetCamera();
    free->SetNext(camera);
    EXPECT_EQ(snapShot.GetCamera(), nullptr);
    EXPECT_EQ(free->GetNext(0), camera);
}

TEST(MovedApart, RootOfAnArchiveIsNoChildOfWhatStandsForIt)
{
    for (const int operation : {0, 1, 2}) {
        const Stone stone("<material><x/></material>");
        const auto reference = bindRoot<RVOpenNode>(stoneReference("material"));
        RVOpenNode* const x = reference->GetChild(1, 1);
        ASSERT_NE(x, nullptr);
        if (operation == 0)
            reference->AddNode(stone.root, true);
        else if (operation == 1)
            reference->InsertNode(stone.root, 0);
        else
            reference->ReplaceNode(x, stone.root);
        EXPECT_EQ(children(reference.get()), std::vector<RVOpenNode*>{x});
        EXPECT_EQ(textOf(*stone.root), "<material><x/></material>");
    }
}

} // namespace
} // namespace rvopen::test

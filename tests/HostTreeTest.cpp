// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Children.h>
#include <rvopen/host/Owned.h>

#include "ManagerSupport.h"
#include "RecordingObserver.h"

#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenView.h>

namespace rvopen::test {
namespace {

using host::append;
using host::clone;
using host::detach;
using host::Owned;

struct HostTree : ::testing::Test {
    QDomDocument document = parse("<r><x/><material name='1'/><material name='2'/>"
                                  "<material name='3'/></r>");
    RVOpenView<> view{document.documentElement()};
    RVOpenNode* root = view.get();

    Material* first() const
    {
        return *host::children<Material>(root).begin();
    }
    QString names() const
    {
        QString all;
        for (const Material* material : host::children<Material>(root))
            all += material->GetName();
        return all;
    }
};

using HostChildren = HostTree;

TEST_F(HostChildren, AreThoseOfTheClass)
{
    EXPECT_EQ(names(), "123");
    EXPECT_EQ(host::children<Camera>(root).begin(), host::children<Camera>(root).end());
    int all = 0;
    for (const RVOpenNode* child : host::children(root))
        all += child->GetParent() == root ? 1 : 0;
    EXPECT_EQ(all, 4);
    EXPECT_EQ(host::children(nullptr).begin(), host::children(nullptr).end());
}

TEST_F(HostChildren, AreMadeAsTheLoopComesToThem)
{
    for (RVOpenNode* child : host::children(root)) {
        EXPECT_EQ(child, root->GetChild(0, 0));
        break;
    }
    EXPECT_EQ(root->GetChild(0, 0)->GetNext(0)->GetNext(0), nullptr);
}

TEST_F(HostChildren, AreThoseOfTheArchiveThatTheParentStandsFor)
{
    ArchiveFolders folders;
    folders.write("A", "<r><material name='a'/><material name='b'/></r>");
    const QDomDocument referring = parse("<dir archiveType='Custom' archiveFilename='A'/>");
    const RVOpenView<> reference(referring.documentElement());
    QString all;
    for (const Material* material : host::children<Material>(reference.get()))
        all += material->GetName();
    EXPECT_EQ(all, "ab");
}

struct Body {
    const char* name;
    void (*run)(RVOpenNode* root, Material* material);
    const char* met;
    const char* left;
};

void PrintTo(const Body& body, std::ostream* out)
{
    *out << body.name;
}

class HostLoop : public HostTree, public ::testing::WithParamInterface<Body> {};

TEST_P(HostLoop, MeetsWhatIsThere)
{
    QString met;
    for (Material* material : host::children<Material>(root)) {
        ASSERT_LT(met.size(), 9);
        met += material->GetName();
        GetParam().run(root, material);
    }
    EXPECT_EQ(met, GetParam().met);
    EXPECT_EQ(names(), GetParam().left);
    EXPECT_TRUE(mirrorsWholeDom(root));
}

/// The material behind.
Material* behind(RVOpenNode* node)
{
    RVOpenNode* next = node->GetNext(1);
    while (next && !dynamic_cast<Material*>(next))
        next = next->GetNext(1);
    return static_cast<Material*>(next);
}

const Body s_bodies[] = {
    {"WhereTheChildIsDeleted", [](RVOpenNode* root, Material* m) { root->DeleteNode(m); }, "123",
     ""},
    {"WhereTheChildIsDetached",
     [](RVOpenNode* root, Material* m) { const Owned<Material> taken = detach(root, m); }, "123",
     ""},
    {"WhereTheChildMovesElsewhere",
     [](RVOpenNode* root, Material* m) {
         for (RVOpenNode* child : host::children(root)) {
             if (child->GetNodeName() == "x")
                 child->AddNode(m, true);
         }
     },
     "123", ""},
    {"WhereTheChildMovesToTheFront", [](RVOpenNode* root, Material* m) { root->InsertNode(m, 0); },
     "123", "321"},
    {"WhereTheNextOneIsDeleted",
     [](RVOpenNode* root, Material* m) {
         if (Material* const next = behind(m))
             root->DeleteNode(next);
     },
     "13", "13"},
    {"WhereTheNextOneMovesElsewhere",
     [](RVOpenNode* root, Material* m) {
         if (Material* const next = behind(m))
             root->GetChild(1, 1)->AddNode(next, true);
     },
     "13", "13"},
    {"WhereTheNextOneIsDetached",
     [](RVOpenNode* root, Material* m) {
         if (Material* const next = behind(m))
             const Owned<Material> taken = detach(root, next);
     },
     "13", "13"},
    {"WhereACopyIsPutBehind",
     [](RVOpenNode* root, Material* m) {
         root->InsertNode(clone(m).release(), root->GetChildPos(m) + 1);
     },
     "123", "112233"},
    {"WhereTheLastOneGetsOneBehind",
     [](RVOpenNode* root, Material* m) {
         if (!behind(m))
             append(root, clone(m));
     },
     "123", "1233"},
};

INSTANTIATE_TEST_SUITE_P(Host, HostLoop, ::testing::ValuesIn(s_bodies),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(HostChildren, DoNotIncludeWhatWasDetachedAndIsKept)
{
    std::vector<Owned<Material>> kept;
    QString met;
    for (Material* material : host::children<Material>(root)) {
        met += material->GetName();
        if (Material* const next = behind(material))
            kept.push_back(detach(root, next));
    }
    EXPECT_EQ(met, "13");
}

TEST_F(HostTree, ACloneIsFreeAndOfTheClass)
{
    const Owned<Material> copy = clone(first());
    const Owned<> generic = clone<RVOpenNode>(first());
    EXPECT_NE(dynamic_cast<Material*>(generic.get()), nullptr);
    copy->SetName("c");
    EXPECT_TRUE(copy->GetDomNode().parentNode().isNull());
    EXPECT_EQ(names(), "123");
    EXPECT_EQ(clone<Material>(nullptr), nullptr);
}

TEST_F(HostTree, AClonedSnapShotHasComponentsOfItsOwn)
{
    const QDomDocument other =
        parse("<snapshots><snapshot><camera name='C'/><materialRepository><material/>"
              "</materialRepository></snapshot></snapshots>");
    const RVOpenView<SnapShots> collection(other.documentElement());
    SnapShot* const source = collection->GetFirstSnapShot();
    const Owned<SnapShot> copy = clone(source);
    ASSERT_NE(copy->GetCamera(), nullptr);
    EXPECT_NE(copy->GetCamera(), source->GetCamera());
    copy->GetCamera()->SetName("mine");
    EXPECT_EQ(source->GetCamera()->GetName(), "C");
    EXPECT_EQ(copy->GetMaterialRepository()->GetNumMaterials(), 1U);
    const Owned<SnapShots> all = clone(collection.get());
    EXPECT_NE(all->GetFirstSnapShot(), nullptr);
}

TEST_F(HostTree, AppendingGivesTheObjectAway)
{
    Material* const added = append(root, clone(first()));
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->GetParent(), root);
    EXPECT_EQ(names(), "1231");
    EXPECT_TRUE(mirrorsWholeDom(root));
}

TEST_F(HostTree, AppendingFromAnotherDocumentShowsTheCopy)
{
    QDomDocument other = parse("<o><material name='o'/></o>");
    Owned<Material> standing(
        static_cast<Material*>(create(other.documentElement().firstChild()).release()));
    Material* const added = append(root, std::move(standing));
    ASSERT_NE(added, nullptr);
    added->SetName("4");
    EXPECT_EQ(names(), "1234");
    EXPECT_EQ(xmlOf(other), "<o><material name=\"o\"/></o>");
    EXPECT_TRUE(mirrorsWholeDom(root));
}

TEST_F(HostTree, WhatCannotBeAppendedStaysWithTheCaller)
{
    const QString before = xmlOf(document);
    Owned<Material> mine = clone(first());
    EXPECT_EQ(append(nullptr, std::move(mine)), nullptr);
    ASSERT_NE(mine, nullptr);
    first()->SetShortArchiveFilename("missing");
    EXPECT_EQ(append(first(), std::move(mine)), nullptr);
    ASSERT_NE(mine, nullptr);
    EXPECT_TRUE(mine->GetDomNode().parentNode().isNull());
    EXPECT_FALSE(first()->GetDomNode().hasChildNodes());
    RVOpenNode unbound;
    EXPECT_EQ(append(&unbound, std::move(mine)), nullptr);
    RVOpenNode* const below = mine.get();
    EXPECT_EQ(append(below, std::move(mine)), nullptr);
    EXPECT_NE(mine, nullptr);
    EXPECT_EQ(append(root, Owned<Material>()), nullptr);
    first()->SetShortArchiveFilename("");
    EXPECT_EQ(xmlOf(document).remove(" archiveFilename=\"\""), before);
}

TEST_F(HostTree, AppendingToAReferenceGivesTheObjectToTheArchive)
{
    ArchiveFolders folders;
    const QString file = folders.write("A", "<r/>");
    const QDomDocument referring = parse("<dir archiveType='Custom' archiveFilename='A'/>");
    const RVOpenView<> reference(referring.documentElement());
    Material* const added = append(reference.get(), clone(first()));
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->GetParent(), GetDirectoryHandler()->LoadArchive(file));
    EXPECT_FALSE(referring.documentElement().hasChildNodes());
}

TEST_F(HostTree, DetachingGivesTheChildAndRefusesWhatIsNone)
{
    Material* const one = first();
    const Owned<Material> taken = detach(root, one);
    ASSERT_EQ(taken.get(), one);
    EXPECT_EQ(names(), "23");
    RecordingObserver observer;
    EXPECT_EQ(detach(root, taken.get()), nullptr);
    EXPECT_EQ(detach<Material>(root, nullptr), nullptr);
    EXPECT_EQ(detach<Material>(nullptr, taken.get()), nullptr);
    EXPECT_EQ(observer.take(), "");
    EXPECT_EQ(taken->GetName(), "1");
}

TEST_F(HostTree, AComponentOfASnapShotIsNoChildToDetach)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshot><camera/></snapshot></snapRoot>");
    SnapShot* const current = manager.GetCurrentSnapShot();
    EXPECT_EQ(detach(current, current->GetCamera()), nullptr);
    EXPECT_NE(current->GetCamera(), nullptr);
}

TEST_F(HostTree, AViewGivesItsObjectAway)
{
    const Owned<> b(RVOpenView<>(document.documentElement().lastChild()).release());
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->GetName(), "3");
    EXPECT_EQ(names(), "123");
}

} // namespace
} // namespace rvopen::test

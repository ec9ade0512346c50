// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ManagerSupport.h"
#include "MaterialFixtures.h"

#include <rvopen/Camera.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/Scenery.h>

namespace rvopen::test {
namespace {

const char* const s_document =
    "<snapRoot><!--c--><snapshots name='Model SnapShots'><snapshot name='A'><camera/></snapshot>"
    "</snapshots><materials><material/><material/></materials></snapRoot>";

TEST(RVOpenViewTest, LeavesTheDocumentAsItIs)
{
    const QDomDocument document = parse(s_document);
    const QString before = xmlOf(document);
    {
        const RVOpenView<> view(document.documentElement());
        materialise(view.get());
        children(view.get());
    }
    EXPECT_EQ(xmlOf(document), before);
}

TEST(RVOpenViewTest, LeavesTheSiblingsThatAWalkMade)
{
    const QDomDocument document = parse(s_document);
    const QString before = xmlOf(document);
    {
        const RVOpenView<> view(document.documentElement().firstChild());
        EXPECT_EQ(view->GetNumSiblings(), 3);
    }
    EXPECT_EQ(xmlOf(document), before);
}

TEST(RVOpenViewTest, KeepsWhatWasChangedThroughIt)
{
    const QDomDocument document = parse("<material/>");
    {
        const RVOpenView<Material> view(document.documentElement());
        view->SetLinkName("roof");
        view->GetColour(1);
    }
    EXPECT_EQ(xmlOf(document), xmlOf("<material linkname='roof'><colour/></material>"));
}

TEST(RVOpenViewTest, MakesTheObjectOfTheFactory)
{
    const QDomDocument document = parse("<camera/>");
    const RVOpenView<> view(document.documentElement());

    EXPECT_NE(dynamic_cast<Camera*>(view.get()), nullptr);
    EXPECT_EQ(&*view, view.get());
}

TEST(RVOpenViewTest, MakesAnObjectOfTheClassThatIsAskedFor)
{
    const QDomDocument document =
        parse("<scenery><param name='Base Size' type='float' val='7'/></scenery>");
    const RVOpenView<Scenery> view(document.documentElement());
    float size = 0.0f;
    view->GetBaseSize(&size);

    EXPECT_EQ(size, 7.0f);
}

TEST(RVOpenViewTest, ReadsTheMembersOfACollection)
{
    const QDomDocument document = parse(s_document);
    const RVOpenView<SnapShots> snapShots(document.documentElement().firstChildElement());
    const RVOpenView<MaterialRepository> palette(document.documentElement().lastChildElement());

    EXPECT_EQ(namesIn(snapShots.get()), "A");
    EXPECT_EQ(palette->GetNumMaterials(), 2u);
}

TEST(RVOpenViewTest, OverANullNodeReportsAbsence)
{
    const RVOpenView<> view{QDomNode()};

    EXPECT_EQ(view->GetName(), QString());
    EXPECT_EQ(view->GetChild(1, 1), nullptr);
}

TEST(RVOpenViewTest, MayBeMoved)
{
    const QDomDocument document = parse("<camera/>");
    RVOpenView<> view(document.documentElement());
    RVOpenNode* const object = view.get();
    RVOpenView<> target(std::move(view));
    EXPECT_EQ(target.get(), object);
    RVOpenView<> other{QDomNode()};
    other = std::move(target);

    EXPECT_EQ(other.get(), object);
    EXPECT_EQ(document.documentElement().tagName(), "camera");
}

TEST(RVOpenViewTest, OutlivesTheDocumentThatItWasMadeOver)
{
    const RVOpenView<> view(parse("<camera name='c'/>").documentElement());

    EXPECT_EQ(view->GetName(), "c");
}

TEST(RVOpenViewTest, DropViewIgnoresNull)
{
    DropView(nullptr);
}

// The root of a manager's document

TEST(RootNodeTest, IsOverTheRootOfTheDocument)
{
    RVOpenManager manager;
    load(manager, s_document);
    RVOpenNode* const root = manager.GetRootNode();

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetNodeName(), "snapRoot");
    EXPECT_EQ(root->GetDomNode(), manager.GetSnapShots()->GetDomNode().parentNode());
    EXPECT_TRUE(mirrorsWholeDom(root));
}

TEST(RootNodeTest, IsTheSameEachTime)
{
    RVOpenManager manager;
    EXPECT_EQ(manager.GetRootNode(), manager.GetRootNode());
}

TEST(RootNodeTest, IsNullWithoutADocument)
{
    RVOpenManager manager;
    manager.GetRootNode();
    manager.ClearSnapShotDoc();

    EXPECT_EQ(manager.GetRootNode(), nullptr);
}

TEST(RootNodeTest, IsThatOfTheNextDocument)
{
    RVOpenManager manager;
    manager.GetRootNode();
    load(manager, "<other/>");
    EXPECT_EQ(manager.GetRootNode()->GetNodeName(), "other");
    manager.InitialiseSnapShotDoc();
    EXPECT_EQ(manager.GetRootNode()->GetNodeName(), "snapRoot");
}

TEST(RootNodeTest, LeavesTheDocumentAsItIsWhenTheManagerGoes)
{
    QDomDocument document;
    QString before;
    {
        RVOpenManager manager;
        load(manager, s_document);
        RVOpenNode* const root = manager.GetRootNode();
        materialise(root);
        document = root->GetDomNode().ownerDocument();
        before = xmlOf(document);
    }
    EXPECT_EQ(xmlOf(document), before);
}

TEST(RootNodeTest, IsNullOnceTheRootElementIsGone)
{
    RVOpenManager manager;
    RVOpenNode* const root = manager.GetRootNode();
    {
        const auto owned = create(root->GetDomNode());
    }

    EXPECT_EQ(manager.GetRootNode(), nullptr);
}

TEST(RootNodeTest, TheTextOfADocumentWithoutItsRootIsEmpty)
{
    RVOpenManager manager;
    {
        const auto owned = create(manager.GetRootNode()->GetDomNode());
    }

    EXPECT_EQ(manager.GetSnapShotDocumentAsString(), QString());
}

TEST(RootNodeTest, ADocumentWithoutItsRootIsNotSaved)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.rvx");
    writeFile(path, "<kept/>");
    RVOpenManager manager;
    RVOpenNode* const collection = manager.GetSnapShots();
    const auto owned = create(manager.GetRootNode()->GetDomNode());
    QDomDocument document = owned->GetDomNode().ownerDocument();
    document.removeChild(owned->GetDomNode());

    EXPECT_FALSE(manager.SaveArchive(path, collection));
    EXPECT_EQ(readFile(path), "<kept/>");
}

TEST(RootNodeTest, AnArchiveWithoutItsRootIsNotSaved)
{
    ArchiveFolders folders;
    const QString file = folders.write("Mine", "<presets/>");
    RVOpenNode* const archive = GetDirectoryHandler()->LoadArchive(file);
    {
        const auto owned = create(archive->GetDomNode());
    }

    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(file));
    EXPECT_EQ(readFile(file), "<presets/>");
}

} // namespace
} // namespace rvopen::test

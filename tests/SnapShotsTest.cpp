// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/SnapShots.h>

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/SnapShot.h>

#include "ManagerSupport.h"

#include <QDir>

#include <gtest/gtest.h>

#include <memory>

namespace rvopen {
namespace {

using test::bind;
using test::children;
using test::domChildNames;
using test::mirrorsWholeDom;
using test::namesIn;
using test::parse;
using test::xmlOf;

/// A collection over the root of a document.
struct Collection {
    explicit Collection(const char* content)
        : document(parse(QStringLiteral("<snapshots name='Model SnapShots'>") + content +
                         QStringLiteral("</snapshots>")))
        , object(document.documentElement())
    {
    }

    SnapShots* operator->()
    {
        return &object;
    }

    const QDomDocument document;
    SnapShots object;
};

const char s_three[] = "<snapshot name='a'/><snapshot name='b'/><snapshot name='c'/>";

TEST(SnapShotsTest, TypesHaveTheirNumbers)
{
    EXPECT_EQ(SnapShots::TypeSnapShots, 0);
    EXPECT_EQ(SnapShots::TypeMaterialPalettes, 1);
    EXPECT_EQ(SnapShots::TypeBackgrounds, 2);
    EXPECT_EQ(SnapShots::TypeCameras, 3);
}

TEST(SnapShotsTest, ReadsNothingWhenItIsBound)
{
    Collection collection(s_three);

    EXPECT_EQ(collection->GetChild(0, 0), nullptr);
    EXPECT_EQ(collection->GetFirstSnapShot(), nullptr);
}

TEST(SnapShotsTest, PopulateMakesTheSnapShotsInDocumentOrder)
{
    Collection collection(s_three);
    collection->Populate();

    EXPECT_EQ(namesIn(&collection.object), "a b c");
}

TEST(SnapShotsTest, PopulateMakesAllObjectsAtOnce)
{
    Collection collection(s_three);
    collection->Populate();
    SnapShot* const first = collection->GetFirstSnapShot();

    ASSERT_NE(first->GetNext(0), nullptr);
    EXPECT_NE(first->GetNext(0)->GetNext(0), nullptr);
}

TEST(SnapShotsTest, PopulateMakesTheCollectionTheParent)
{
    Collection collection(s_three);
    collection->Populate();

    for (const RVOpenNode* snapShot : children(&collection.object))
        EXPECT_EQ(snapShot->GetParent(), &collection.object);
}

TEST(SnapShotsTest, PopulateReadsTheComponents)
{
    Collection collection("<snapshot><camera/></snapshot>");
    collection->Populate();

    EXPECT_NE(collection->GetFirstSnapShot()->GetCamera(), nullptr);
}

TEST(SnapShotsTest, PopulateOfAnEmptyElementMakesNothing)
{
    Collection collection("");
    collection->Populate();

    EXPECT_EQ(collection->GetFirstSnapShot(), nullptr);
}

TEST(SnapShotsTest, PopulateLeavesTheDocumentAsItIs)
{
    Collection collection("<snapshot><camera/><lens/></snapshot>text<other/><!-- note -->");
    const QString before = xmlOf(collection.document);
    collection->Populate();

    EXPECT_EQ(xmlOf(collection.document), before);
}

TEST(SnapShotsTest, EveryChildNodeBecomesASnapShot)
{
    Collection collection("<!-- note --><snapshot name='a'/>text<other name='b'/>");
    collection->Populate();

    int number = 0;
    for (SnapShot* snapShot = collection->GetFirstSnapShot(); snapShot;
         snapShot = snapShot->GetNext()) {
        EXPECT_EQ(snapShot->GetCamera(), nullptr);
        ++number;
    }
    EXPECT_EQ(number, 4);
    EXPECT_TRUE(mirrorsWholeDom(&collection.object));
}

TEST(SnapShotsTest, TextAndCommentsBecomeSnapShotsWithoutComponents)
{
    Collection collection("text<!-- note -->");
    collection->Populate();

    ASSERT_EQ(domChildNames(collection->GetDomNode()), QStringList({"#text", "#comment"}));
    int number = 0;
    for (SnapShot* snapShot = collection->GetFirstSnapShot(); snapShot;
         snapShot = snapShot->GetNext()) {
        ++number;
        EXPECT_EQ(snapShot->GetScheme(), nullptr);
        EXPECT_EQ(snapShot->GetBackground(), nullptr);
        EXPECT_EQ(snapShot->GetForeground(), nullptr);
        EXPECT_EQ(snapShot->GetNaturalLightStudio(), nullptr);
        EXPECT_EQ(snapShot->GetCamera(), nullptr);
        EXPECT_EQ(snapShot->GetSnapShotSettings(), nullptr);
        EXPECT_EQ(snapShot->GetScenery(), nullptr);
    }
    EXPECT_EQ(number, 2);
}

TEST(SnapShotsTest, PopulateTwiceKeepsTheObjects)
{
    Collection collection(s_three);
    collection->Populate();
    const std::vector<RVOpenNode*> before = children(&collection.object);
    collection->Populate();

    EXPECT_EQ(children(&collection.object), before);
    EXPECT_EQ(before.size(), 3u);
}

TEST(SnapShotsTest, PopulateAgainAddsTheSnapShotsThatAppeared)
{
    Collection collection("<snapshot name='b'/>");
    collection->Populate();
    SnapShot* const before = collection->GetFirstSnapShot();
    QDomDocument document = collection.document;
    const auto appear = [&document](const char* name) {
        QDomElement element = document.createElement("snapshot");
        element.setAttribute("name", name);
        return element;
    };
    document.documentElement().insertBefore(appear("a"), document.documentElement().firstChild());
    document.documentElement().appendChild(appear("c"));
    collection->Populate();

    EXPECT_EQ(namesIn(&collection.object), "a b c");
    EXPECT_EQ(collection->GetFirstSnapShot()->GetNext(), before);
    EXPECT_TRUE(mirrorsWholeDom(&collection.object));
}

TEST(SnapShotsTest, PopulateKeepsTheObjectsThatAWalkMade)
{
    Collection collection(s_three);
    RVOpenNode* const first = collection->GetChild(1, 1);
    collection->Populate();

    EXPECT_EQ(collection->GetFirstSnapShot(), first);
    EXPECT_EQ(namesIn(&collection.object), "a b c");
}

TEST(SnapShotsTest, FirstSnapShotIsNullWhenTheFirstChildIsOfAnotherClass)
{
    Collection collection("<camera/><snapshot/>");
    children(&collection.object);

    EXPECT_EQ(collection->GetFirstSnapShot(), nullptr);
}

TEST(SnapShotsTest, TakesItsElementOutOfTheDocumentWhenItGoes)
{
    const QDomDocument document = parse("<snapRoot><snapshots/><other/></snapRoot>");
    bind<SnapShots>(document.documentElement().firstChild()).reset();

    EXPECT_EQ(domChildNames(document.documentElement()), QStringList("other"));
}

TEST(SnapShotsTest, ACopySharesTheElementAndTheSnapShots)
{
    Collection collection(s_three);
    collection->Populate();
    SnapShots copy(collection.object);

    EXPECT_EQ(copy.GetDomNode(), collection->GetDomNode());
    EXPECT_EQ(copy.GetFirstSnapShot(), collection->GetFirstSnapShot());

    copy = SnapShots(QDomNode());
}

TEST(SnapShotsTest, AssignmentSharesTheElementAndTheSnapShots)
{
    Collection collection(s_three);
    collection->Populate();
    SnapShots target{QDomNode()};
    target = collection.object;

    EXPECT_EQ(target.GetDomNode(), collection->GetDomNode());
    EXPECT_EQ(target.GetFirstSnapShot(), collection->GetFirstSnapShot());

    target = SnapShots(QDomNode());
}

// Free-standing copies

TEST(SnapShotsTest, CreateSnapShotCopiesTheSourceWithItsComponents)
{
    Collection collection("<snapshot name='a' desc='d'><camera><param name='P'/></camera>"
                          "</snapshot>");
    collection->Populate();
    SnapShot* const source = collection->GetFirstSnapShot();
    const std::unique_ptr<SnapShot> made(collection->CreateSnapShot(source));

    EXPECT_EQ(xmlOf(made->GetDomNode()), xmlOf(source->GetDomNode()));
    ASSERT_NE(made->GetCamera(), nullptr);
    EXPECT_NE(made->GetCamera()->GetDomNode(), source->GetCamera()->GetDomNode());
}

TEST(SnapShotsTest, CreateSnapShotCopiesInTheSourcesDocument)
{
    Collection collection("");
    Collection other("<snapshot/>");
    other->Populate();
    const std::unique_ptr<SnapShot> made(collection->CreateSnapShot(other->GetFirstSnapShot()));

    EXPECT_EQ(made->GetDomNode().ownerDocument(), other.document);
    EXPECT_TRUE(made->GetDomNode().parentNode().isNull());
}

TEST(SnapShotsTest, CreateSnapShotWithoutASourceGivesABareSnapShot)
{
    Collection collection("<snapshot name='a'><camera/></snapshot>");
    const std::unique_ptr<SnapShot> made(collection->CreateSnapShot(nullptr));

    EXPECT_EQ(xmlOf(made->GetDomNode()), xmlOf("<snapshot/>"));
    EXPECT_EQ(made->GetDomNode().ownerDocument(), collection.document);
}

TEST(SnapShotsTest, CreateSnapShotLeavesTheCollectionAsItIs)
{
    Collection collection(s_three);
    collection->Populate();
    const QString before = xmlOf(collection.document);
    const std::unique_ptr<SnapShot> bare(collection->CreateSnapShot(nullptr));
    const std::unique_ptr<SnapShot> copy(
        collection->CreateSnapShot(collection->GetFirstSnapShot()));

    EXPECT_EQ(namesIn(&collection.object), "a b c");
    EXPECT_EQ(xmlOf(collection.document), before);
}

TEST(SnapShotsTest, CreateSnapShotTakesThePathOfTheRegistry)
{
    const test::ArchiveFolders folders;
    Collection collection("<snapshot name='a'/>");
    collection->Populate();
    collection->GetFirstSnapShot()->SetSnapShotPath("elsewhere");
    const std::unique_ptr<SnapShot> made(
        collection->CreateSnapShot(collection->GetFirstSnapShot()));

    EXPECT_EQ(made->GetThumbFilename(), folders.snapshots() + QDir::separator() + "icon_a.jpg");
}

/// The factories of components.
template <typename Class>
class SnapShotsFactoryTest : public ::testing::Test {
protected:
    static Class* create(SnapShots& collection, Class* source)
    {
        if constexpr (std::is_same_v<Class, Background>)
            return collection.CreateBackground(source);
        else if constexpr (std::is_same_v<Class, Camera>)
            return collection.CreateCamera(source);
        else
            return collection.CreateMaterialRepository(source);
    }

    const QDomDocument m_sourceDocument = parse("<x desc='d'><material linkname='m'/></x>");
    std::unique_ptr<Class> m_source = bind<Class>(m_sourceDocument.documentElement());
    Collection m_collection{s_three};
};

using FactoryClasses = ::testing::Types<Background, Camera, MaterialRepository>;
TYPED_TEST_SUITE(SnapShotsFactoryTest, FactoryClasses);

TYPED_TEST(SnapShotsFactoryTest, GivesNullForNull)
{
    EXPECT_EQ(this->create(this->m_collection.object, nullptr), nullptr);
}

TYPED_TEST(SnapShotsFactoryTest, GivesADeepCopyThatStandsNowhere)
{
    const std::unique_ptr<TypeParam> made(
        this->create(this->m_collection.object, this->m_source.get()));

    EXPECT_EQ(xmlOf(made->GetDomNode()), xmlOf(this->m_sourceDocument));
    EXPECT_NE(made->GetDomNode(), this->m_source->GetDomNode());
    EXPECT_TRUE(made->GetDomNode().parentNode().isNull());
}

TYPED_TEST(SnapShotsFactoryTest, LeavesTheCollectionAsItIs)
{
    const QString before = xmlOf(this->m_collection.document);
    const std::unique_ptr<TypeParam> made(
        this->create(this->m_collection.object, this->m_source.get()));

    EXPECT_EQ(xmlOf(this->m_collection.document), before);
}

// Clearing

TEST(SnapShotsTest, ClearDeletesEverySnapShotWithItsElement)
{
    Collection collection(s_three);
    collection->Populate();
    collection->Clear();

    EXPECT_EQ(collection->GetFirstSnapShot(), nullptr);
    EXPECT_EQ(xmlOf(collection.document), xmlOf("<snapshots name='Model SnapShots'/>"));
}

TEST(SnapShotsTest, ClearOfAnEmptyCollectionDoesNothing)
{
    Collection collection("");
    collection->Clear();

    EXPECT_EQ(xmlOf(collection.document), xmlOf("<snapshots name='Model SnapShots'/>"));
}

TEST(SnapShotsTest, ClearStopsAtTheFirstChildThatIsNoSnapShot)
{
    Collection collection("<snapshot/><snapshot/><camera/><snapshot/>");
    children(&collection.object);
    collection->Clear();

    EXPECT_EQ(domChildNames(collection->GetDomNode()), QStringList({"camera", "snapshot"}));
    EXPECT_TRUE(mirrorsWholeDom(&collection.object));
}

TEST(SnapShotsTest, TakesSnapShotsAgainAfterClear)
{
    Collection collection(s_three);
    collection->Populate();
    collection->Clear();
    SnapShot* const made = collection->CreateSnapShot(nullptr);
    made->SetName("new");
    collection->AddNode(made, true);

    EXPECT_EQ(namesIn(&collection.object), "new");
    EXPECT_TRUE(mirrorsWholeDom(&collection.object));
}

} // namespace
} // namespace rvopen

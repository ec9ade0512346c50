// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>

namespace {

using namespace rvopen;
using namespace rvopen::test;
using testing::ElementsAre;
using testing::IsEmpty;

/// The objects already made.
std::vector<RVOpenNode*> chain(const Bound<RenderTargets>& targets)
{
    std::vector<RVOpenNode*> result;
    for (RVOpenNode* child = targets->GetChild(0, 0); child; child = child->GetNext(0))
        result.push_back(child);
    return result;
}

/// Their names.
std::vector<std::string> chainNames(const Bound<RenderTargets>& targets)
{
    std::vector<std::string> result;
    for (const RVOpenNode* child : chain(targets))
        result.push_back(child->GetName().toStdString());
    return result;
}

QDomElement newChild(const Bound<RenderTargets>& targets, const char* name)
{
    QDomElement child =
        targets.element().ownerDocument().createElement(QStringLiteral("renderTarget"));
    child.setAttribute(QStringLiteral("name"), QString::fromUtf8(name));
    return child;
}

const char* const threeTargets = "<renderTargets>"
                                 "<renderTarget name=\"A\"/>"
                                 "<renderTarget name=\"B\"/>"
                                 "<renderTarget name=\"C\"/>"
                                 "</renderTargets>";

TEST(RenderTargetsPopulate, MakesOneTargetPerChildInDocumentOrder)
{
    const Bound<RenderTargets> targets(threeTargets);
    targets->Populate();
    EXPECT_THAT(chainNames(targets), ElementsAre("A", "B", "C"));
}

TEST(RenderTargetsPopulate, MakesChildrenOfTheCollection)
{
    const Bound<RenderTargets> targets(threeTargets);
    targets->Populate();
    EXPECT_TRUE(mirrorsWholeDom(targets.get()));
}

TEST(RenderTargetsPopulate, TakesEveryChildForATarget)
{
    const Bound<RenderTargets> targets("<renderTargets><camera/><!-- note --></renderTargets>");
    targets->Populate();
    const std::vector<RVOpenNode*> made = chain(targets);
    ASSERT_EQ(made.size(), 2u);
    EXPECT_NE(dynamic_cast<RenderTarget*>(made[0]), nullptr);
    EXPECT_NE(dynamic_cast<RenderTarget*>(made[1]), nullptr);
}

TEST(RenderTargetsPopulate, LeavesCommentsInTheDocument)
{
    const Bound<RenderTargets> targets("<renderTargets><!-- note --></renderTargets>");
    targets->Populate();
    EXPECT_EQ(xmlOf(targets.element()), xmlOf("<renderTargets><!-- note --></renderTargets>"));
}

TEST(RenderTargetsPopulate, MakesTheParametersThatAreThereAndCreatesNone)
{
    const Bound<RenderTargets> targets("<renderTargets><renderTarget>"
                                       "<param name=\"Width\" type=\"integer\" val=\"5\"/>"
                                       "</renderTarget></renderTargets>");
    targets->Populate();
    RenderTarget* const target = targets->GetFirstRenderTarget();
    ASSERT_NE(target, nullptr);
    EXPECT_NE(target->GetParamHelper()->FindParam(QStringLiteral("Width")), nullptr);
    EXPECT_EQ(paramsOf(target->GetDomNode().toElement()), "Width: integer = 5\n");
}

TEST(RenderTargetsPopulate, MakesNothingOfAnEmptyElement)
{
    const Bound<RenderTargets> targets("<renderTargets/>");
    targets->Populate();
    EXPECT_THAT(chain(targets), IsEmpty());
}

TEST(RenderTargetsPopulate, KeepsTheObjectsTheSecondTime)
{
    const Bound<RenderTargets> targets(threeTargets);
    targets->Populate();
    const std::vector<RVOpenNode*> before = chain(targets);
    targets->Populate();
    EXPECT_EQ(chain(targets), before);
}

/// Populates, changes the element's children by hand and populates again.
class RenderTargetsPopulatedAgain : public testing::Test {
protected:
    RenderTargetsPopulatedAgain()
    {
        targets->Populate();
        before = chain(targets);
        a = targets.element().firstChildElement();
        b = a.nextSiblingElement();
        c = b.nextSiblingElement();
    }

    Bound<RenderTargets> targets{threeTargets};
    std::vector<RVOpenNode*> before;
    QDomElement a, b, c;
};

TEST_F(RenderTargetsPopulatedAgain, LinksANewLastChildAtTheEnd)
{
    targets.element().appendChild(newChild(targets, "D"));
    targets->Populate();
    EXPECT_THAT(chainNames(targets), ElementsAre("A", "B", "C", "D"));
    EXPECT_TRUE(mirrorsWholeDom(targets.get()));
}

TEST_F(RenderTargetsPopulatedAgain, LinksANewFirstChildAtTheFront)
{
    targets.element().insertBefore(newChild(targets, "D"), a);
    targets->Populate();
    EXPECT_THAT(chainNames(targets), ElementsAre("D", "A", "B", "C"));
    EXPECT_TRUE(mirrorsWholeDom(targets.get()));
}

TEST_F(RenderTargetsPopulatedAgain, LinksANewMiddleChildAtItsPlace)
{
    targets.element().insertAfter(newChild(targets, "D"), a);
    targets->Populate();
    EXPECT_THAT(chainNames(targets), ElementsAre("A", "D", "B", "C"));
    EXPECT_TRUE(mirrorsWholeDom(targets.get()));
}

TEST_F(RenderTargetsPopulatedAgain, KeepsTheObjectsBesideNewChildren)
{
    targets.element().insertAfter(newChild(targets, "D"), a);
    targets.element().insertBefore(newChild(targets, "E"), a);
    targets->Populate();
    const std::vector<RVOpenNode*> now = chain(targets);
    ASSERT_EQ(now.size(), 5u);
    EXPECT_THAT(before, ElementsAre(now[1], now[3], now[4]));
}

TEST_F(RenderTargetsPopulatedAgain, FollowsTheDocumentWhereChildrenMoved)
{
    targets.element().insertBefore(c, a);
    targets->Populate();
    EXPECT_THAT(chain(targets), ElementsAre(before[2], before[0], before[1]));
}

TEST_F(RenderTargetsPopulatedAgain, FollowsTheDocumentWhereChildrenTurnedRound)
{
    targets.element().insertAfter(a, c);
    targets.element().insertBefore(c, b);
    targets->Populate();
    EXPECT_THAT(chain(targets), ElementsAre(before[2], before[1], before[0]));
}

TEST_F(RenderTargetsPopulatedAgain, KeepsTheObjectOfAChildThatLeft)
{
    targets.element().removeChild(b);
    targets->Populate();
    EXPECT_EQ(chain(targets), before);
}

TEST_F(RenderTargetsPopulatedAgain, PassesOverTheObjectOfAFirstChildThatLeft)
{
    targets.element().removeChild(a);
    targets.element().appendChild(newChild(targets, "D"));
    targets->Populate();
    EXPECT_THAT(chainNames(targets), ElementsAre("A", "B", "C", "D"));
}

TEST_F(RenderTargetsPopulatedAgain, PassesOverAllObjectsOfChildrenThatLeft)
{
    targets.element().removeChild(a);
    targets.element().removeChild(b);
    targets->Populate();
    EXPECT_EQ(chain(targets), before);
}

TEST(RenderTargetsPopulate, KeepsAnObjectThatAWalkMade)
{
    const Bound<RenderTargets> targets(threeTargets);
    RVOpenNode* const first = targets->GetChild(1, 1);
    targets->Populate();
    ASSERT_EQ(chain(targets).size(), 3u);
    EXPECT_EQ(chain(targets)[0], first);
    EXPECT_NE(dynamic_cast<RenderTarget*>(chain(targets)[1]), nullptr);
}

TEST(RenderTargetsPopulate, KeepsATargetThatWasAdded)
{
    const Bound<RenderTargets> targets("<renderTargets/>");
    RenderTarget* const added = targets->CreateRenderTarget(nullptr);
    targets->AddNode(added, true);
    targets->Populate();
    EXPECT_THAT(chain(targets), ElementsAre(added));
}

TEST(RenderTargetsPopulate, DoesNothingOnWhatIsBoundToNothing)
{
    RenderTargets targets{QDomNode()};
    targets.Populate();
    EXPECT_EQ(targets.GetFirstRenderTarget(), nullptr);
}

TEST(RenderTargetsGetFirst, GivesNullBeforePopulating)
{
    const Bound<RenderTargets> targets(threeTargets);
    EXPECT_EQ(targets->GetFirstRenderTarget(), nullptr);
}

TEST(RenderTargetsGetFirst, MakesNoObject)
{
    const Bound<RenderTargets> targets(threeTargets);
    targets->GetFirstRenderTarget();
    EXPECT_THAT(chain(targets), IsEmpty());
}

TEST(RenderTargetsGetFirst, GivesTheFirstTarget)
{
    const Bound<RenderTargets> targets(threeTargets);
    targets->Populate();
    ASSERT_NE(targets->GetFirstRenderTarget(), nullptr);
    EXPECT_EQ(targets->GetFirstRenderTarget()->GetName(), QStringLiteral("A"));
}

TEST(RenderTargetsGetFirst, GivesNullWhereTheFirstObjectIsNoTarget)
{
    const Bound<RenderTargets> targets(threeTargets);
    targets->GetChild(1, 1);
    EXPECT_EQ(targets->GetFirstRenderTarget(), nullptr);
}

class NewRenderTarget : public testing::Test {
protected:
    Bound<RenderTargets> targets{threeTargets};
    std::unique_ptr<RenderTarget> target{targets->CreateRenderTarget(nullptr)};
};

TEST_F(NewRenderTarget, IsAnElementOfTheCollectionsDocument)
{
    EXPECT_EQ(target->GetNodeName(), QStringLiteral("renderTarget"));
    EXPECT_TRUE(target->GetDomNode().ownerDocument() == targets.document);
}

TEST_F(NewRenderTarget, StandsNowhere)
{
    EXPECT_TRUE(target->GetDomNode().parentNode().isNull());
    EXPECT_EQ(target->GetParent(), nullptr);
}

TEST_F(NewRenderTarget, LeavesTheCollectionAlone)
{
    EXPECT_THAT(chain(targets), IsEmpty());
    EXPECT_EQ(xmlOf(targets.element()), xmlOf(threeTargets));
}

TEST_F(NewRenderTarget, HasItsSubCategoryAndInitialValues)
{
    int lighting = 77;
    int materials = 77;
    float aspectRatio = 77;
    target->GetLightingQuality(&lighting);
    target->GetMaterialQuality(&materials);
    target->GetAspectRatio(&aspectRatio);
    EXPECT_EQ(target->GetSubCat(), QStringLiteral("Image"));
    EXPECT_EQ(lighting, 1);
    EXPECT_EQ(materials, 0);
    EXPECT_EQ(target->GetRenderQuality(), QStringLiteral("Progressive Preview"));
    EXPECT_EQ(aspectRatio, 1.5f);
}

TEST(CopiedRenderTarget, IsADeepCopyWithoutNewParameters)
{
    const Bound<RenderTargets> targets("<renderTargets/>");
    const Bound<RenderTarget> source("<renderTarget name=\"A\">"
                                     "<param name=\"Width\" type=\"integer\" val=\"5\"/>"
                                     "</renderTarget>");
    const std::unique_ptr<RenderTarget> copy(targets->CreateRenderTarget(source.get()));
    EXPECT_EQ(xmlOf(copy->GetDomNode()), xmlOf("<renderTarget name=\"A\" subcat=\"Image\">"
                                               "<param name=\"Width\" type=\"integer\" val=\"5\"/>"
                                               "</renderTarget>"));
}

TEST(CopiedRenderTarget, BelongsToTheDocumentOfItsSource)
{
    const Bound<RenderTargets> targets("<renderTargets/>");
    const Bound<RenderTarget> source("<renderTarget/>");
    const std::unique_ptr<RenderTarget> copy(targets->CreateRenderTarget(source.get()));
    EXPECT_TRUE(copy->GetDomNode().ownerDocument() == source.document);
    EXPECT_TRUE(copy->GetDomNode().parentNode().isNull());
}

TEST(RenderTargetsClear, RemovesTheTargetsWithTheirElements)
{
    const Bound<RenderTargets> targets(threeTargets);
    targets->Populate();
    targets->Clear();
    EXPECT_THAT(chain(targets), IsEmpty());
    EXPECT_EQ(xmlOf(targets.element()), xmlOf("<renderTargets/>"));
}

TEST(RenderTargetsClear, StopsAtTheFirstChildThatIsNoTarget)
{
    const Bound<RenderTargets> targets("<renderTargets><renderTarget name=\"A\"/></renderTargets>");
    targets->Populate();
    targets.element().appendChild(newChild(targets, "B"));
    targets->GetNumChildren();
    targets.element().appendChild(newChild(targets, "C"));
    targets->Populate();
    targets->Clear();
    EXPECT_EQ(xmlOf(targets.element()),
              xmlOf("<renderTargets><renderTarget name=\"B\"/>"
                    "<renderTarget name=\"C\" subcat=\"Image\"/></renderTargets>"));
}

TEST(RenderTargetsClear, RemovesNothingBeforePopulating)
{
    const Bound<RenderTargets> targets(threeTargets);
    targets->Clear();
    EXPECT_EQ(xmlOf(targets.element()), xmlOf(threeTargets));
}

TEST(RenderTargetsClear, DoesNothingOnAnEmptyCollection)
{
    const Bound<RenderTargets> targets("<renderTargets/>");
    targets->Clear();
    EXPECT_THAT(chain(targets), IsEmpty());
}

} // namespace

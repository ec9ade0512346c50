// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/SnapShot.h>

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShotSettings.h>

#include "ManagerSupport.h"

#include <QDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <ostream>

namespace rvopen {
namespace {

using test::bind;
using test::children;
using test::domChildNames;
using test::paramValue;
using test::parse;
using test::xmlOf;

const char s_allComponents[] = "<snapshot name='All'>"
                               "<scheme subcat='Exterior'/>"
                               "<!-- note -->"
                               "<background subcat='Plain'/>"
                               "<foreground subcat='Depth Cue'/>"
                               "<camera name='C'/>"
                               "<lens name='L'/>"
                               "<naturalLightStudio/>"
                               "<artificialLightStudio/>"
                               "<snapShotSettings/>"
                               "<renderTargets/>"
                               "<scenery/>"
                               "<materialRepository/>"
                               "</snapshot>";

/// A component: its element and the operations that the snapshot has for it.
struct Component {
    const char* element;
    const char* content;
    RVOpenNode* (*get)(SnapShot& snapShot);
    std::unique_ptr<RVOpenNode> (*bindTo)(const QDomNode& node);
    /// Null where the snapshot has no such operation.
    RVOpenNode* (*add)(SnapShot& snapShot, RVOpenNode* component);
    void (*clear)(SnapShot& snapShot);
};

void PrintTo(const Component& component, std::ostream* out)
{
    *out << component.element;
}

template <typename Class>
std::unique_ptr<RVOpenNode> bindAs(const QDomNode& node)
{
    return bind<Class>(node);
}

template <typename Class, Class* (SnapShot::*getter)() const>
RVOpenNode* get(SnapShot& snapShot)
{
    return (snapShot.*getter)();
}

template <typename Class, Class* (SnapShot::*getter)()>
RVOpenNode* get(SnapShot& snapShot)
{
    return (snapShot.*getter)();
}

template <typename Class, Class* (SnapShot::*adder)(Class*)>
RVOpenNode* add(SnapShot& snapShot, RVOpenNode* component)
{
    return (snapShot.*adder)(static_cast<Class*>(component));
}

template <void (SnapShot::*clearer)()>
void clear(SnapShot& snapShot)
{
    (snapShot.*clearer)();
}

RVOpenNode* addScenery(SnapShot& snapShot, RVOpenNode* component)
{
    snapShot.AddScenery(static_cast<Scenery*>(component));
    return snapShot.GetScenery();
}

const char s_param[] = "<param name='P' type='integer' val='5'/>";

const Component s_replaceable[] = {
    {"scheme", s_param, get<Scheme, &SnapShot::GetScheme>, bindAs<Scheme>,
     add<Scheme, &SnapShot::AddScheme>, clear<&SnapShot::ClearScheme>},
    {"background", s_param, get<Background, &SnapShot::GetBackground>, bindAs<Background>,
     add<Background, &SnapShot::AddBackground>, clear<&SnapShot::ClearBackground>},
    {"foreground", s_param, get<Foreground, &SnapShot::GetForeground>, bindAs<Foreground>,
     add<Foreground, &SnapShot::AddForeground>, nullptr},
    {"camera", s_param, get<Camera, &SnapShot::GetCamera>, bindAs<Camera>,
     add<Camera, &SnapShot::AddCamera>, nullptr},
    {"naturalLightStudio", s_param, get<NaturalLightStudio, &SnapShot::GetNaturalLightStudio>,
     bindAs<NaturalLightStudio>, add<NaturalLightStudio, &SnapShot::AddNaturalLightStudio>,
     clear<&SnapShot::ClearNaturalLightStudio>},
    {"scenery", s_param, get<Scenery, &SnapShot::GetScenery>, bindAs<Scenery>, addScenery,
     clear<&SnapShot::ClearScenery>},
    {"materialRepository", "<material linkname='m'/>",
     get<MaterialRepository, &SnapShot::GetMaterialRepository>, bindAs<MaterialRepository>,
     add<MaterialRepository, &SnapShot::AddMaterialRepository>, nullptr},
};

const Component s_others[] = {
    {"snapShotSettings", s_param, get<SnapShotSettings, &SnapShot::GetSnapShotSettings>,
     bindAs<SnapShotSettings>, nullptr, nullptr},
    {"artificialLightStudio", s_param,
     get<ArtificialLightStudio, &SnapShot::GetArtificialLightStudio>, bindAs<ArtificialLightStudio>,
     nullptr, nullptr},
    {"renderTargets", "<renderTarget subcat='Image'/>",
     get<RenderTargets, &SnapShot::GetRenderTargets>, bindAs<RenderTargets>, nullptr, nullptr},
};

QString elementOf(const Component& component, const char* attributes = "")
{
    return QStringLiteral("<%1 %2>%3</%1>")
        .arg(QLatin1String(component.element), QLatin1String(attributes),
             QLatin1String(component.content));
}

QDomDocument snapShotWith(const QString& content)
{
    return parse("<snapshot>" + content + "</snapshot>");
}

std::string nameOf(const ::testing::TestParamInfo<Component>& component)
{
    return component.param.element;
}

/// The children of a snapshot with all components after one of them was taken out.
QStringList allBut(const char* element)
{
    QStringList names = domChildNames(parse(s_allComponents).documentElement());
    names.removeAll(QLatin1String(element));
    return names;
}

/// Whether a walk over the objects meets every child node of the snapshot's element.
bool walkMeetsEveryChild(SnapShot* snapShot)
{
    const std::vector<RVOpenNode*> met = children(snapShot);
    QDomNode child = snapShot->GetDomNode().firstChild();
    for (; !child.isNull(); child = child.nextSibling()) {
        const auto stands = [&child](RVOpenNode* node) { return node->GetDomNode() == child; };
        if (std::none_of(met.begin(), met.end(), stands))
            return false;
    }
    return true;
}

// Reading the components

class SnapShotComponentTest : public ::testing::TestWithParam<Component> {};

TEST_P(SnapShotComponentTest, IsBoundToItsElement)
{
    const QDomDocument document = snapShotWith("<lens/>" + elementOf(GetParam()));
    SnapShot snapShot(document.documentElement());

    RVOpenNode* const component = GetParam().get(snapShot);
    ASSERT_NE(component, nullptr);
    EXPECT_EQ(component->GetDomNode(), document.documentElement().lastChild());
}

TEST_P(SnapShotComponentTest, IsReadWithoutChangingTheDocument)
{
    const QDomDocument document = snapShotWith(elementOf(GetParam()));
    const QString before = xmlOf(document);
    SnapShot snapShot(document.documentElement());
    GetParam().get(snapShot);

    EXPECT_EQ(xmlOf(document), before);
}

TEST_P(SnapShotComponentTest, GetsNoParametersByBeingRead)
{
    const QDomDocument document =
        snapShotWith(QStringLiteral("<%1/>").arg(QLatin1String(GetParam().element)));
    SnapShot snapShot(document.documentElement());

    EXPECT_FALSE(GetParam().get(snapShot)->GetDomNode().hasChildNodes());
}

TEST_P(SnapShotComponentTest, IsTheLaterOfTwoElementsOfItsName)
{
    const QDomDocument document =
        snapShotWith(elementOf(GetParam(), "desc='1'") + elementOf(GetParam(), "desc='2'"));
    SnapShot snapShot(document.documentElement());

    EXPECT_EQ(GetParam().get(snapShot)->GetDescription(), "2");
}

TEST_P(SnapShotComponentTest, LeavesTheEarlierOfTwoElementsInTheDocument)
{
    const QDomDocument document =
        snapShotWith(elementOf(GetParam(), "desc='1'") + elementOf(GetParam(), "desc='2'"));
    const QString before = xmlOf(document);
    SnapShot snapShot(document.documentElement());

    EXPECT_EQ(xmlOf(document), before);
}

TEST_P(SnapShotComponentTest, StaysTheSameObjectWhenPopulatedTwice)
{
    const QDomDocument document = snapShotWith(elementOf(GetParam()));
    SnapShot snapShot(document.documentElement());
    RVOpenNode* const before = GetParam().get(snapShot);
    snapShot.Populate();

    EXPECT_EQ(GetParam().get(snapShot), before);
}

TEST_P(SnapShotComponentTest, KeepsItsChildObjectsWhenPopulatedTwice)
{
    const QDomDocument document = snapShotWith(elementOf(GetParam()));
    SnapShot snapShot(document.documentElement());
    RVOpenNode* const component = GetParam().get(snapShot);
    const std::vector<RVOpenNode*> before = children(component);
    snapShot.Populate();

    EXPECT_EQ(children(component), before);
    EXPECT_EQ(before.size(), 1u);
}

TEST_P(SnapShotComponentTest, IsTheElementThatAppearedLastWhenPopulatedAgain)
{
    QDomDocument document = snapShotWith(elementOf(GetParam(), "desc='1'"));
    SnapShot snapShot(document.documentElement());
    QDomElement later = document.createElement(QLatin1String(GetParam().element));
    document.documentElement().appendChild(later);
    const QString before = xmlOf(document);
    snapShot.Populate();

    EXPECT_EQ(GetParam().get(snapShot)->GetDomNode(), later);
    EXPECT_EQ(xmlOf(document), before);
}

TEST_P(SnapShotComponentTest, LeavesTheDocumentWithTheSnapShot)
{
    const QDomDocument document = snapShotWith("<lens/>" + elementOf(GetParam()) + "<other/>");
    const QDomElement element = document.documentElement();
    auto snapShot = bind<SnapShot>(element);
    snapShot.reset();

    EXPECT_EQ(domChildNames(element), QStringList({"lens", "other"}));
}

INSTANTIATE_TEST_SUITE_P(Replaceable, SnapShotComponentTest, ::testing::ValuesIn(s_replaceable),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Others, SnapShotComponentTest, ::testing::ValuesIn(s_others), nameOf);

/// Components whose parameters are read with the snapshot.
class SnapShotParameterComponentTest : public ::testing::TestWithParam<Component> {};

TEST_P(SnapShotParameterComponentTest, HasItsParametersReadWithTheSnapShot)
{
    const QDomDocument document = snapShotWith(elementOf(GetParam()));
    SnapShot snapShot(document.documentElement());

    // Looks among the objects that exist and makes none.
    EXPECT_NE(GetParam().get(snapShot)->GetParamHelper()->FindParam("P"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Background, SnapShotParameterComponentTest,
                         ::testing::ValuesIn(s_replaceable + 1, s_replaceable + 6), nameOf);
INSTANTIATE_TEST_SUITE_P(Others, SnapShotParameterComponentTest,
                         ::testing::ValuesIn(s_others, s_others + 2), nameOf);

TEST(SnapShotTest, ReadsTheMaterialsOfItsPalette)
{
    const QDomDocument document =
        snapShotWith("<materialRepository><material linkname='a'/><material linkname='b'/>"
                     "</materialRepository>");
    SnapShot snapShot(document.documentElement());

    EXPECT_EQ(snapShot.GetMaterialRepository()->GetNumMaterials(), 2u);
}

TEST(SnapShotTest, ReadsItsRenderTargets)
{
    const QDomDocument document =
        snapShotWith("<renderTargets><renderTarget subcat='Image' name='T'/></renderTargets>");
    SnapShot snapShot(document.documentElement());

    RenderTarget* const target = snapShot.GetRenderTargets()->GetFirstRenderTarget();
    ASSERT_NE(target, nullptr);
    EXPECT_EQ(target->GetName(), "T");
}

/// Components that may be absent.
class SnapShotOptionalComponentTest : public ::testing::TestWithParam<Component> {};

TEST_P(SnapShotOptionalComponentTest, IsNullWhenAbsent)
{
    const QDomDocument document = snapShotWith("<lens/>");
    SnapShot snapShot(document.documentElement());

    EXPECT_EQ(GetParam().get(snapShot), nullptr);
}

TEST_P(SnapShotOptionalComponentTest, IsNotCreatedByAskingForIt)
{
    const QDomDocument document = snapShotWith("<lens/>");
    SnapShot snapShot(document.documentElement());
    GetParam().get(snapShot);

    EXPECT_EQ(domChildNames(document.documentElement()), QStringList("lens"));
}

TEST_P(SnapShotOptionalComponentTest, HasAnElementNameInWhichCaseCounts)
{
    const QDomDocument document =
        snapShotWith(QStringLiteral("<%1/>").arg(QString(GetParam().element).toUpper()));
    SnapShot snapShot(document.documentElement());

    EXPECT_EQ(GetParam().get(snapShot), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Replaceable, SnapShotOptionalComponentTest,
                         ::testing::ValuesIn(s_replaceable, s_replaceable + 6), nameOf);
INSTANTIATE_TEST_SUITE_P(Settings, SnapShotOptionalComponentTest,
                         ::testing::ValuesIn(s_others, s_others + 1), nameOf);

TEST(SnapShotTest, LeavesWhatItDoesNotKnowInTheDocument)
{
    const QDomDocument document = parse("<snapshot><lens name='L'/>text<unknown a='1'><camera/>"
                                        "</unknown><!-- note --></snapshot>");
    const QString before = xmlOf(document);
    SnapShot snapShot(document.documentElement());

    EXPECT_EQ(xmlOf(document), before);
}

TEST(SnapShotTest, IgnoresComponentsOfItsChildren)
{
    const QDomDocument document = snapShotWith("<unknown><camera/></unknown>");
    SnapShot snapShot(document.documentElement());

    EXPECT_EQ(snapShot.GetCamera(), nullptr);
}

// Components created when absent

TEST(SnapShotTest, GetArtificialLightStudioCreatesAnEnabledOneOfIntensityOne)
{
    const QDomDocument document = snapShotWith("<lens/>");
    SnapShot snapShot(document.documentElement());
    snapShot.GetArtificialLightStudio();

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><lens/><artificialLightStudio>"
                                     "<param name='Enabled' type='boolean' val='1'/>"
                                     "<param name='Intensity Scale' type='float' val='1'/>"
                                     "</artificialLightStudio></snapshot>"));
}

TEST(SnapShotTest, GetRenderTargetsCreatesAnEmptyCollection)
{
    const QDomDocument document = snapShotWith("<lens/>");
    SnapShot snapShot(document.documentElement());
    snapShot.GetRenderTargets();

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><lens/><renderTargets/></snapshot>"));
}

TEST(SnapShotTest, GetMaterialRepositoryCreatesAnEmptyPalette)
{
    const QDomDocument document = snapShotWith("<lens/>");
    SnapShot snapShot(document.documentElement());
    snapShot.GetMaterialRepository();

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><lens/><materialRepository/></snapshot>"));
}

class SnapShotOnDemandComponentTest : public ::testing::TestWithParam<Component> {};

TEST_P(SnapShotOnDemandComponentTest, IsBoundToTheElementThatWasCreated)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    RVOpenNode* const component = GetParam().get(snapShot);

    EXPECT_EQ(component->GetDomNode(), document.documentElement().firstChild());
}

TEST_P(SnapShotOnDemandComponentTest, IsCreatedOnce)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    RVOpenNode* const first = GetParam().get(snapShot);

    EXPECT_EQ(GetParam().get(snapShot), first);
    EXPECT_EQ(document.documentElement().childNodes().count(), 1);
}

TEST_P(SnapShotOnDemandComponentTest, IsKeptByPopulate)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    RVOpenNode* const first = GetParam().get(snapShot);
    snapShot.Populate();

    EXPECT_EQ(GetParam().get(snapShot), first);
}

INSTANTIATE_TEST_SUITE_P(Palette, SnapShotOnDemandComponentTest,
                         ::testing::ValuesIn(s_replaceable + 6, s_replaceable + 7), nameOf);
INSTANTIATE_TEST_SUITE_P(Others, SnapShotOnDemandComponentTest,
                         ::testing::ValuesIn(s_others + 1, s_others + 3), nameOf);

// Replacing components

class SnapShotReplacedComponentTest : public ::testing::TestWithParam<Component> {
protected:
    /// A source in the document of \p snapShotDocument, standing nowhere.
    std::unique_ptr<RVOpenNode> freeSource(QDomDocument snapShotDocument) const
    {
        const QDomDocument other = parse(elementOf(GetParam(), "desc='source'"));
        return GetParam().bindTo(snapShotDocument.importNode(other.documentElement(), true));
    }
};

TEST_P(SnapShotReplacedComponentTest, IsADeepCopyOfTheArgument)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const auto source = freeSource(document);
    RVOpenNode* const added = GetParam().add(snapShot, source.get());

    ASSERT_NE(added, nullptr);
    EXPECT_EQ(xmlOf(added->GetDomNode()), xmlOf(source->GetDomNode()));
    EXPECT_NE(added->GetDomNode(), source->GetDomNode());
}

TEST_P(SnapShotReplacedComponentTest, LeavesTheArgumentToTheCaller)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const auto source = freeSource(document);
    GetParam().add(snapShot, source.get());

    EXPECT_TRUE(source->GetDomNode().parentNode().isNull());
    EXPECT_EQ(source->GetDescription(), "source");
}

TEST_P(SnapShotReplacedComponentTest, IsWhatTheGetterReturns)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const auto source = freeSource(document);
    RVOpenNode* const added = GetParam().add(snapShot, source.get());

    EXPECT_EQ(GetParam().get(snapShot), added);
}

TEST_P(SnapShotReplacedComponentTest, StandsLastInTheSnapShot)
{
    const QDomDocument document = snapShotWith(elementOf(GetParam()) + "<lens/>");
    SnapShot snapShot(document.documentElement());
    const auto source = freeSource(document);
    RVOpenNode* const added = GetParam().add(snapShot, source.get());

    EXPECT_EQ(added->GetDomNode(), document.documentElement().lastChild());
}

TEST_P(SnapShotReplacedComponentTest, TakesThePlaceOfTheOneHeld)
{
    const QDomDocument document = snapShotWith(elementOf(GetParam()) + "<lens/>");
    SnapShot snapShot(document.documentElement());
    const auto source = freeSource(document);
    GetParam().add(snapShot, source.get());

    EXPECT_EQ(domChildNames(document.documentElement()), QStringList({"lens", GetParam().element}));
}

TEST_P(SnapShotReplacedComponentTest, ComesFromAnotherDocumentWithoutChangingIt)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const QDomDocument other = snapShotWith(elementOf(GetParam()));
    const QString before = xmlOf(other);
    SnapShot source(other.documentElement());
    GetParam().add(snapShot, GetParam().get(source));

    EXPECT_EQ(xmlOf(other), before);
}

TEST_P(SnapShotReplacedComponentTest, OutlivesTheDocumentItWasCopiedFrom)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    {
        const QDomDocument other = snapShotWith(elementOf(GetParam()));
        SnapShot source(other.documentElement());
        GetParam().add(snapShot, GetParam().get(source));
    }

    EXPECT_EQ(xmlOf(document), xmlOf(snapShotWith(elementOf(GetParam()))));
    EXPECT_EQ(GetParam().get(snapShot)->GetDomNode().ownerDocument(), document);
}

TEST_P(SnapShotReplacedComponentTest, IsOnlyRemovedForNull)
{
    const QDomDocument document = snapShotWith("<lens/>" + elementOf(GetParam()) + "<other/>");
    SnapShot snapShot(document.documentElement());

    EXPECT_EQ(GetParam().add(snapShot, nullptr), nullptr);
    EXPECT_EQ(domChildNames(document.documentElement()), QStringList({"lens", "other"}));
}

TEST_P(SnapShotReplacedComponentTest, MayBeTheOneHeldItself)
{
    const QDomDocument document = snapShotWith(elementOf(GetParam(), "desc='held'"));
    const QString before = xmlOf(document);
    SnapShot snapShot(document.documentElement());
    RVOpenNode* const added = GetParam().add(snapShot, GetParam().get(snapShot));

    EXPECT_EQ(xmlOf(document), before);
    EXPECT_EQ(added->GetDomNode(), document.documentElement().firstChild());
}

TEST_P(SnapShotReplacedComponentTest, IsKeptByPopulate)
{
    const QDomDocument document = snapShotWith(elementOf(GetParam()));
    SnapShot snapShot(document.documentElement());
    const auto source = freeSource(document);
    RVOpenNode* const added = GetParam().add(snapShot, source.get());
    snapShot.Populate();

    EXPECT_EQ(GetParam().get(snapShot), added);
}

INSTANTIATE_TEST_SUITE_P(All, SnapShotReplacedComponentTest, ::testing::ValuesIn(s_replaceable),
                         nameOf);

TEST(SnapShotTest, AddSchemeDiscardsWhatTheOldSchemeBrought)
{
    const QDomDocument document = parse(s_allComponents);
    SnapShot snapShot(document.documentElement());
    const QDomDocument other = parse("<scheme subcat='Interior'/>");
    Scheme* const added = snapShot.AddScheme(bind<Scheme>(other.documentElement()).get());

    EXPECT_EQ(snapShot.GetBackground(), nullptr);
    EXPECT_EQ(snapShot.GetForeground(), nullptr);
    EXPECT_EQ(snapShot.GetNaturalLightStudio(), nullptr);
    EXPECT_EQ(snapShot.GetScheme(), added);
}

TEST(SnapShotTest, AddSchemeRemovesTheElementsOfWhatItDiscards)
{
    const QDomDocument document = parse(s_allComponents);
    SnapShot snapShot(document.documentElement());
    const QDomDocument other = parse("<scheme subcat='Interior'/>");
    snapShot.AddScheme(bind<Scheme>(other.documentElement()).get());

    EXPECT_EQ(
        domChildNames(document.documentElement()),
        QStringList({"#comment", "camera", "lens", "artificialLightStudio", "snapShotSettings",
                     "renderTargets", "scenery", "materialRepository", "scheme"}));
}

TEST(SnapShotTest, AddBackgroundCreatesTheParametersOfItsKind)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const QDomDocument other = parse("<background subcat='Graduated'/>");
    snapShot.AddBackground(bind<Background>(other.documentElement()).get());

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><background subcat='Graduated'>"
                                     "<param name='Primary Colour' type='colour' val='1 1 1'/>"
                                     "<param name='Secondary Colour' type='colour' val='1 1 1'/>"
                                     "</background></snapshot>"));
}

TEST(SnapShotTest, AddBackgroundKeepsTheParametersThatTheCopyBrings)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const QDomDocument other =
        parse("<background subcat='Graduated'>"
              "<param name='Primary Colour' type='colour' val='0 0 1'/></background>");
    const auto source = bind<Background>(other.documentElement());
    snapShot.AddBackground(source.get());

    EXPECT_EQ(xmlOf(document.documentElement().firstChild()), xmlOf(other));
}

TEST(SnapShotTest, AddMaterialRepositoryReadsEachMaterialOnce)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const QDomDocument other = parse("<materialRepository><material linkname='a'/>"
                                     "<material linkname='b'/></materialRepository>");
    MaterialRepository* const added =
        snapShot.AddMaterialRepository(bind<MaterialRepository>(other.documentElement()).get());

    EXPECT_EQ(added->GetNumMaterials(), 2u);
}

TEST(SnapShotTest, AddCameraCreatesNoParameters)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const QDomDocument other = parse("<camera/>");
    snapShot.AddCamera(bind<Camera>(other.documentElement()).get());

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><camera/></snapshot>"));
}

// The settings are taken over, not copied

TEST(SnapShotTest, AddSnapShotSettingsStoresTheGivenObject)
{
    const QDomDocument document = snapShotWith("<snapShotSettings desc='old'/><lens/>");
    SnapShot snapShot(document.documentElement());
    SnapShotSettings* const settings = snapShot.CreateSnapShotSettings(nullptr);
    snapShot.AddSnapShotSettings(settings);

    EXPECT_EQ(snapShot.GetSnapShotSettings(), settings);
    EXPECT_EQ(settings->GetDomNode(), document.documentElement().lastChild());
}

TEST(SnapShotTest, AddSnapShotSettingsRemovesTheOldOnes)
{
    const QDomDocument document = snapShotWith("<snapShotSettings desc='old'/><lens/>");
    SnapShot snapShot(document.documentElement());
    snapShot.AddSnapShotSettings(snapShot.CreateSnapShotSettings(nullptr));

    EXPECT_EQ(domChildNames(document.documentElement()), QStringList({"lens", "snapShotSettings"}));
}

TEST(SnapShotTest, AddSnapShotSettingsWithTheOnesHeldKeepsThem)
{
    const QDomDocument document = snapShotWith("<snapShotSettings desc='held'/><lens/>");
    SnapShot snapShot(document.documentElement());
    SnapShotSettings* const held = snapShot.GetSnapShotSettings();
    snapShot.AddSnapShotSettings(held);

    EXPECT_EQ(snapShot.GetSnapShotSettings(), held);
    EXPECT_EQ(held->GetDomNode().parentNode(), document.documentElement());
}

TEST(SnapShotTest, AddSnapShotSettingsWithNullRemovesThem)
{
    const QDomDocument document = snapShotWith("<lens/><snapShotSettings/>");
    SnapShot snapShot(document.documentElement());
    snapShot.AddSnapShotSettings(nullptr);

    EXPECT_EQ(snapShot.GetSnapShotSettings(), nullptr);
    EXPECT_EQ(domChildNames(document.documentElement()), QStringList("lens"));
}

TEST(SnapShotTest, AddSnapShotSettingsTakesThemFromAnotherDocument)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    {
        const QDomDocument other = snapShotWith("");
        SnapShot source(other.documentElement());
        snapShot.AddSnapShotSettings(source.CreateSnapShotSettings(nullptr));
    }

    EXPECT_EQ(snapShot.GetSnapShotSettings()->GetDomNode().ownerDocument(), document);
    EXPECT_EQ(snapShot.GetSnapShotSettings()->SetTwist(2.0f), StatusOk);
}

// Removing components

TEST(SnapShotTest, CreateAndAddNaturalLightStudioAddsOneWithAllParameters)
{
    const QDomDocument document = snapShotWith("<naturalLightStudio desc='old'/><lens/>");
    SnapShot snapShot(document.documentElement());
    NaturalLightStudio* const studio = snapShot.CreateAndAddNaturalLightStudio();

    EXPECT_EQ(snapShot.GetNaturalLightStudio(), studio);
    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><lens/><naturalLightStudio>"
                                     "<param name='Enabled' type='boolean' val='1'/>"
                                     "<param name='Sun Azimuth' type='float' val='0'/>"
                                     "<param name='Sun Altitude' type='float' val='0'/>"
                                     "</naturalLightStudio></snapshot>"));
}

/// A way to take one component out of a snapshot that has them all.
struct Removal {
    const char* name;
    const char* element;
    void (*remove)(SnapShot& snapShot);
    RVOpenNode* (*get)(SnapShot& snapShot);
};

void PrintTo(const Removal& removal, std::ostream* out)
{
    *out << removal.name;
}

template <typename Class, Class* (SnapShot::*adder)(Class*)>
void addNull(SnapShot& snapShot)
{
    (snapShot.*adder)(nullptr);
}

const Removal s_removals[] = {
    {"ClearScheme", "scheme", clear<&SnapShot::ClearScheme>, get<Scheme, &SnapShot::GetScheme>},
    {"ClearBackground", "background", clear<&SnapShot::ClearBackground>,
     get<Background, &SnapShot::GetBackground>},
    {"ClearNaturalLightStudio", "naturalLightStudio", clear<&SnapShot::ClearNaturalLightStudio>,
     get<NaturalLightStudio, &SnapShot::GetNaturalLightStudio>},
    {"ClearScenery", "scenery", clear<&SnapShot::ClearScenery>,
     get<Scenery, &SnapShot::GetScenery>},
    {"AddScheme", "scheme", addNull<Scheme, &SnapShot::AddScheme>,
     get<Scheme, &SnapShot::GetScheme>},
    {"AddBackground", "background", addNull<Background, &SnapShot::AddBackground>,
     get<Background, &SnapShot::GetBackground>},
    {"AddForeground", "foreground", addNull<Foreground, &SnapShot::AddForeground>,
     get<Foreground, &SnapShot::GetForeground>},
    {"AddCamera", "camera", addNull<Camera, &SnapShot::AddCamera>,
     get<Camera, &SnapShot::GetCamera>},
    {"AddNaturalLightStudio", "naturalLightStudio",
     addNull<NaturalLightStudio, &SnapShot::AddNaturalLightStudio>,
     get<NaturalLightStudio, &SnapShot::GetNaturalLightStudio>},
    {"AddScenery", "scenery", [](SnapShot& snapShot) { snapShot.AddScenery(nullptr); },
     get<Scenery, &SnapShot::GetScenery>},
    {"AddSnapShotSettings", "snapShotSettings",
     [](SnapShot& snapShot) { snapShot.AddSnapShotSettings(nullptr); },
     get<SnapShotSettings, &SnapShot::GetSnapShotSettings>},
    {"AddMaterialRepository", "materialRepository",
     addNull<MaterialRepository, &SnapShot::AddMaterialRepository>,
     get<MaterialRepository, &SnapShot::GetMaterialRepository>},
};

class SnapShotRemovalTest : public ::testing::TestWithParam<Removal> {
protected:
    QStringList left() const
    {
        return domChildNames(m_document.documentElement());
    }

    const QDomDocument m_document = parse(s_allComponents);
    SnapShot m_snapShot{m_document.documentElement()};
};

TEST_P(SnapShotRemovalTest, TakesOutTheElement)
{
    GetParam().remove(m_snapShot);
    EXPECT_EQ(left(), allBut(GetParam().element));
}

TEST_P(SnapShotRemovalTest, IsHarmlessWhenRepeated)
{
    GetParam().remove(m_snapShot);
    GetParam().remove(m_snapShot);
    EXPECT_EQ(left(), allBut(GetParam().element));
}

TEST_P(SnapShotRemovalTest, TakesOutThatElementAloneAfterAWalkStartedFromTheComponent)
{
    for (RVOpenNode* node = GetParam().get(m_snapShot); node; node = node->GetNext(1))
        continue;
    GetParam().remove(m_snapShot);
    EXPECT_EQ(left(), allBut(GetParam().element));
}

TEST_P(SnapShotRemovalTest, TakesOutThatElementAloneAfterAWalkOverAllChildren)
{
    children(&m_snapShot);
    GetParam().remove(m_snapShot);
    EXPECT_EQ(left(), allBut(GetParam().element));
}

TEST_P(SnapShotRemovalTest, LetsAFinishedWalkStillMeetEveryChild)
{
    children(&m_snapShot);
    GetParam().remove(m_snapShot);
    EXPECT_TRUE(walkMeetsEveryChild(&m_snapShot));
}

TEST_P(SnapShotRemovalTest, LetsAWalkGoOnFromTheObjectOfThatElement)
{
    RVOpenNode* node = m_snapShot.GetChild(1, 1);
    while (node->GetNodeName() != QLatin1String(GetParam().element))
        node = node->GetNext(1);
    GetParam().remove(m_snapShot);
    EXPECT_TRUE(walkMeetsEveryChild(&m_snapShot));
}

TEST_P(SnapShotRemovalTest, IsHarmlessAfterTheElementWentThroughAnotherObject)
{
    for (RVOpenNode* node : children(&m_snapShot)) {
        if (node->GetNodeName() == QLatin1String(GetParam().element)) {
            m_snapShot.DeleteNode(node);
            break;
        }
    }
    GetParam().remove(m_snapShot);
    EXPECT_EQ(left(), allBut(GetParam().element));
}

INSTANTIATE_TEST_SUITE_P(All, SnapShotRemovalTest, ::testing::ValuesIn(s_removals),
                         [](const auto& removal) { return std::string(removal.param.name); });

/// Components that are not created anew by asking for them.
class SnapShotOptionalRemovalTest : public SnapShotRemovalTest {};

TEST_P(SnapShotOptionalRemovalTest, LeavesNoComponent)
{
    ASSERT_NE(GetParam().get(m_snapShot), nullptr);
    GetParam().remove(m_snapShot);
    EXPECT_EQ(GetParam().get(m_snapShot), nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, SnapShotOptionalRemovalTest,
                         ::testing::ValuesIn(s_removals, s_removals + 11),
                         [](const auto& removal) { return std::string(removal.param.name); });

TEST(SnapShotTest, ComponentsGoWithTheirSubtreesAfterAWalkOverEverything)
{
    const QDomDocument document =
        snapShotWith("<lens><param name='P'/></lens>"
                     "<scheme><background subcat='Plain'/></scheme>"
                     "<materialRepository><material><colour/><material/></material>"
                     "</materialRepository><scenery><param name='P'/></scenery>");
    SnapShot snapShot(document.documentElement());
    test::materialise(&snapShot);
    snapShot.ClearScheme();
    snapShot.AddMaterialRepository(nullptr);
    snapShot.ClearScenery();

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><lens><param name='P'/></lens></snapshot>"));
}

TEST(SnapShotTest, TakesEveryComponentOutOfItsElementWhenItGoes)
{
    const QDomDocument document = parse(s_allComponents);
    const QDomElement element = document.documentElement();
    bind<SnapShot>(element).reset();

    EXPECT_EQ(domChildNames(element), QStringList({"#comment", "lens"}));
}

TEST(SnapShotTest, TakesItsElementOutOfTheDocumentWhenItGoes)
{
    const QDomDocument document = parse("<snapshots><snapshot/><other/></snapshots>");
    bind<SnapShot>(document.documentElement().firstChild()).reset();

    EXPECT_EQ(domChildNames(document.documentElement()), QStringList("other"));
}

// Construction and copying

TEST(SnapShotTest, ACloneHasComponentsOfItsOwn)
{
    const QDomDocument document = parse(s_allComponents);
    SnapShot source(document.documentElement());
    SnapShot clone(static_cast<RVOpenNode*>(&source));

    EXPECT_EQ(xmlOf(clone.GetDomNode()), xmlOf(source.GetDomNode()));
    EXPECT_NE(clone.GetCamera(), source.GetCamera());
    EXPECT_EQ(clone.GetCamera()->GetDomNode().parentNode(), clone.GetDomNode());
}

TEST(SnapShotTest, ACloneStandsNowhere)
{
    const QDomDocument document = parse("<snapshots><snapshot/></snapshots>");
    SnapShot source(document.documentElement().firstChild());
    SnapShot clone(static_cast<RVOpenNode*>(&source));

    EXPECT_TRUE(clone.GetDomNode().parentNode().isNull());
    EXPECT_EQ(clone.GetDomNode().ownerDocument(), document);
}

TEST(SnapShotTest, ACloneStaysUsableAfterTheDocumentOfItsSourceIsGone)
{
    std::unique_ptr<SnapShot> clone;
    {
        const QDomDocument document = snapShotWith("<camera><param name='P'/></camera>");
        SnapShot source(document.documentElement());
        clone = std::make_unique<SnapShot>(static_cast<RVOpenNode*>(&source));
    }
    clone->SetName("later");
    clone->GetArtificialLightStudio();

    EXPECT_EQ(domChildNames(clone->GetDomNode()), QStringList({"camera", "artificialLightStudio"}));
    EXPECT_NE(clone->GetCamera()->GetParamHelper()->FindParam("P"), nullptr);
}

TEST(SnapShotTest, ACloneOfNothingIsBoundToNothing)
{
    SnapShot clone(static_cast<RVOpenNode*>(nullptr));

    EXPECT_TRUE(clone.GetDomNode().isNull());
    EXPECT_EQ(clone.GetCamera(), nullptr);
}

TEST(SnapShotTest, ACopySharesTheComponentsAndThePath)
{
    const QDomDocument document = parse(s_allComponents);
    SnapShot source(document.documentElement());
    source.SetSnapShotPath("folder");
    SnapShot copy(source);

    EXPECT_EQ(copy.GetDomNode(), source.GetDomNode());
    EXPECT_EQ(copy.GetScheme(), source.GetScheme());
    EXPECT_EQ(copy.GetBackground(), source.GetBackground());
    EXPECT_EQ(copy.GetForeground(), source.GetForeground());
    EXPECT_EQ(copy.GetNaturalLightStudio(), source.GetNaturalLightStudio());
    EXPECT_EQ(copy.GetArtificialLightStudio(), source.GetArtificialLightStudio());
    EXPECT_EQ(copy.GetCamera(), source.GetCamera());
    EXPECT_EQ(copy.GetSnapShotSettings(), source.GetSnapShotSettings());
    EXPECT_EQ(copy.GetMaterialRepository(), source.GetMaterialRepository());
    EXPECT_EQ(copy.GetRenderTargets(), source.GetRenderTargets());
    EXPECT_EQ(copy.GetScenery(), source.GetScenery());
    EXPECT_EQ(copy.GetThumbFilename(), source.GetThumbFilename());

    copy = SnapShot(QDomNode());
}

TEST(SnapShotTest, AssignmentSharesTheComponentsAndThePath)
{
    const QDomDocument document = parse(s_allComponents);
    SnapShot source(document.documentElement());
    source.SetSnapShotPath("folder");
    SnapShot target{QDomNode()};
    target = source;

    EXPECT_EQ(target.GetDomNode(), source.GetDomNode());
    EXPECT_EQ(target.GetScheme(), source.GetScheme());
    EXPECT_EQ(target.GetBackground(), source.GetBackground());
    EXPECT_EQ(target.GetForeground(), source.GetForeground());
    EXPECT_EQ(target.GetNaturalLightStudio(), source.GetNaturalLightStudio());
    EXPECT_EQ(target.GetArtificialLightStudio(), source.GetArtificialLightStudio());
    EXPECT_EQ(target.GetCamera(), source.GetCamera());
    EXPECT_EQ(target.GetSnapShotSettings(), source.GetSnapShotSettings());
    EXPECT_EQ(target.GetMaterialRepository(), source.GetMaterialRepository());
    EXPECT_EQ(target.GetRenderTargets(), source.GetRenderTargets());
    EXPECT_EQ(target.GetScenery(), source.GetScenery());
    EXPECT_EQ(target.GetThumbFilename(), source.GetThumbFilename());

    target = SnapShot(QDomNode());
}

// Free-standing components

TEST(SnapShotTest, CreateCameraGivesOneWithAllParameters)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const std::unique_ptr<Camera> camera(snapShot.CreateCamera());

    EXPECT_EQ(xmlOf(camera->GetDomNode()),
              xmlOf("<camera><param name='From' type='point' val='1 1 1'/>"
                    "<param name='To' type='point' val='1 1 1'/>"
                    "<param name='Up' type='vector' val='1 1 1'/>"
                    "<param name='Orthographic' type='boolean' val='1'/>"
                    "<param name='Field Of View' type='float' val='0'/>"
                    "<param name='Near' type='float' val='0'/>"
                    "<param name='Far' type='float' val='0'/>"
                    "<param name='View Fit' type='boolean' val='0'/></camera>"));
}

TEST(SnapShotTest, CreateCameraChangesNothingInTheSnapShot)
{
    const QDomDocument document = snapShotWith("<lens/>");
    SnapShot snapShot(document.documentElement());
    const std::unique_ptr<Camera> camera(snapShot.CreateCamera());

    EXPECT_EQ(snapShot.GetCamera(), nullptr);
    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><lens/></snapshot>"));
    EXPECT_EQ(camera->GetDomNode().ownerDocument(), document);
}

TEST(SnapShotTest, CreateSnapShotSettingsWithoutASourceGivesAllParameters)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const std::unique_ptr<SnapShotSettings> settings(snapShot.CreateSnapShotSettings(nullptr));

    EXPECT_EQ(xmlOf(settings->GetDomNode()),
              xmlOf("<snapShotSettings>"
                    "<param name='Ambient Lights Intensity Scale' type='float' val='0'/>"
                    "<param name='Twist' type='float' val='0'/>"
                    "<param name='Orientation Up' type='vector' val='1 1 1'/>"
                    "<param name='Orientation North' type='vector' val='1 1 1'/>"
                    "<param name='Orientation Front Face' type='vector' val='1 1 1'/>"
                    "<param name='Image File Name' type='string' val=''/>"
                    "<param name='Session Folder' type='string' val=''/>"
                    "<param name='Reflected Env Path' type='string' val=''/>"
                    "<param name='Reflected Env Intensity' type='float' val='0'/>"
                    "</snapShotSettings>"));
}

TEST(SnapShotTest, CreateSceneryWithoutASourceGivesAllParameters)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const std::unique_ptr<Scenery> scenery(snapShot.CreateScenery(nullptr));

    EXPECT_EQ(xmlOf(scenery->GetDomNode()),
              xmlOf("<scenery>"
                    "<param name='Drop Shadow' type='boolean' val='1'/>"
                    "<param name='Drop Sunlight' type='boolean' val='1'/>"
                    "<param name='Drop Reflection' type='boolean' val='1'/>"
                    "<param name='Drop Shadow Quality' type='integer' val='0'/>"
                    "<param name='Drop Shadow Contrast' type='float' val='0'/>"
                    "<param name='Drop Sunlight Brightness' type='float' val='0'/>"
                    "<param name='Drop Reflection Brightness' type='float' val='0'/>"
                    "<param name='Drop Reflection Blur' type='float' val='0'/>"
                    "<param name='Base Size' type='float' val='0'/>"
                    "</scenery>"));
}

/// The two factories that take a source.
template <typename Class>
class SnapShotFactoryTest : public ::testing::Test {
protected:
    static Class* create(SnapShot& snapShot, Class* source)
    {
        if constexpr (std::is_same_v<Class, Scenery>)
            return snapShot.CreateScenery(source);
        else
            return snapShot.CreateSnapShotSettings(source);
    }
    static QString tag()
    {
        return std::is_same_v<Class, Scenery> ? "scenery" : "snapShotSettings";
    }
};

using FactoryClasses = ::testing::Types<Scenery, SnapShotSettings>;
TYPED_TEST_SUITE(SnapShotFactoryTest, FactoryClasses);

TYPED_TEST(SnapShotFactoryTest, ChangesNothingInTheSnapShot)
{
    const QDomDocument document = snapShotWith("<lens/>");
    SnapShot snapShot(document.documentElement());
    const std::unique_ptr<TypeParam> made(this->create(snapShot, nullptr));

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><lens/></snapshot>"));
    EXPECT_EQ(snapShot.GetScenery(), nullptr);
    EXPECT_EQ(snapShot.GetSnapShotSettings(), nullptr);
}

TYPED_TEST(SnapShotFactoryTest, CopiesTheSourceWithoutAddingParameters)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const QDomDocument other = parse(QStringLiteral("<%1 desc='d'/>").arg(this->tag()));
    const auto source = bind<TypeParam>(other.documentElement());
    const std::unique_ptr<TypeParam> made(this->create(snapShot, source.get()));

    EXPECT_EQ(xmlOf(made->GetDomNode()), xmlOf(other));
    EXPECT_NE(made->GetDomNode(), source->GetDomNode());
}

TYPED_TEST(SnapShotFactoryTest, CopiesTheSourceInTheSourcesDocument)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    const QDomDocument other = parse(QStringLiteral("<%1/>").arg(this->tag()));
    const auto source = bind<TypeParam>(other.documentElement());
    const std::unique_ptr<TypeParam> made(this->create(snapShot, source.get()));

    EXPECT_EQ(made->GetDomNode().ownerDocument(), other);
    EXPECT_TRUE(made->GetDomNode().parentNode().isNull());
}

// Selection

TEST(SnapShotTest, SelectionIsThatOfTheSettings)
{
    const QDomDocument document = snapShotWith("<snapShotSettings/>");
    SnapShot snapShot(document.documentElement());
    EXPECT_EQ(snapShot.SetSelected(1), StatusOk);

    int selected = 0;
    EXPECT_EQ(snapShot.GetSnapShotSettings()->IsSelected(&selected), StatusOk);
    EXPECT_EQ(selected, 1);
}

TEST(SnapShotTest, IsSelectedReadsTheSettings)
{
    const QDomDocument document =
        snapShotWith("<snapShotSettings><param name='Selected' type='boolean' val='1'/>"
                     "</snapShotSettings>");
    SnapShot snapShot(document.documentElement());
    int selected = 0;

    EXPECT_EQ(snapShot.IsSelected(&selected), StatusOk);
    EXPECT_EQ(selected, 1);
}

TEST(SnapShotTest, IsSelectedIsMissingWithoutTheParameter)
{
    const QDomDocument document = snapShotWith("<snapShotSettings/>");
    SnapShot snapShot(document.documentElement());
    int selected = 7;

    EXPECT_EQ(snapShot.IsSelected(&selected), StatusMissing);
    EXPECT_EQ(selected, 7);
}

TEST(SnapShotTest, SelectionIsMissingWithoutSettings)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    int selected = 7;

    EXPECT_EQ(snapShot.SetSelected(1), StatusMissing);
    EXPECT_EQ(snapShot.IsSelected(&selected), StatusMissing);
    EXPECT_EQ(selected, 7);
    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot/>"));
}

// Navigation

TEST(SnapShotTest, GetNextMakesTheNextSnapShot)
{
    const QDomDocument document =
        parse("<snapshots><snapshot name='a'/><snapshot name='b'/></snapshots>");
    const auto parent = bind(document.documentElement());
    auto* const first = dynamic_cast<SnapShot*>(parent->GetChild(1, 1));
    SnapShot* const second = first->GetNext();

    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->GetName(), "b");
    EXPECT_EQ(second->GetNext(), nullptr);
}

TEST(SnapShotTest, GetNextIsNullForASiblingOfAnotherClass)
{
    const QDomDocument document = parse("<snapshots><snapshot/><camera/><snapshot/></snapshots>");
    const auto parent = bind(document.documentElement());
    auto* const first = dynamic_cast<SnapShot*>(parent->GetChild(1, 1));

    EXPECT_EQ(first->GetNext(), nullptr);
}

TEST(SnapShotTest, GetNextDoesNotHideTheOneThatAsksWithoutMaking)
{
    const QDomDocument document = parse("<snapshots><snapshot/><snapshot/></snapshots>");
    const auto parent = bind(document.documentElement());
    auto* const first = dynamic_cast<SnapShot*>(parent->GetChild(1, 1));

    EXPECT_EQ(first->GetNext(0), nullptr);
    EXPECT_EQ(first->GetNext(1), first->GetNext());
}

// Serialising

TEST(SnapShotTest, SetupForSerialiseRemovesTheBaseMaterialOfEveryMaterial)
{
    const QDomDocument document =
        snapShotWith("<materialRepository>"
                     "<material linkname='a'><colour/><material/></material>"
                     "<material linkname='b'/>"
                     "<material linkname='c'><material/></material>"
                     "</materialRepository>");
    SnapShot snapShot(document.documentElement());
    snapShot.SetupSnapShotForSerialise();

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><materialRepository>"
                                     "<material linkname='a'><colour/></material>"
                                     "<material linkname='b'/><material linkname='c'/>"
                                     "</materialRepository></snapshot>"));
}

TEST(SnapShotTest, SetupForSerialiseCreatesNoPalette)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    snapShot.SetupSnapShotForSerialise();

    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot/>"));
}

TEST(SnapShotTest, DocumentAsStringHoldsACopyAloneInTheMainCollection)
{
    const QDomDocument document =
        parse("<snapRoot unitsScale='25'><snapshots name='Other'><snapshot name='a'>"
              "<camera><param name='P'/></camera><unknown/></snapshot><snapshot name='b'/>"
              "</snapshots></snapRoot>");
    SnapShot snapShot(document.documentElement().firstChild().firstChild());

    EXPECT_EQ(xmlOf(parse(snapShot.CreateSnapShotDocumentAsString())),
              xmlOf("<snapRoot name='SnapRoot' unitsScale='1'><snapshots name='Model SnapShots'>"
                    "<snapshot name='a'><camera><param name='P'/></camera><unknown/></snapshot>"
                    "</snapshots></snapRoot>"));
}

TEST(SnapShotTest, DocumentAsStringIsIndentedByTwo)
{
    const QDomDocument document = snapShotWith("<camera/>");
    SnapShot snapShot(document.documentElement());
    const QStringList lines =
        snapShot.CreateSnapShotDocumentAsString().trimmed().split(QLatin1Char('\n'));

    ASSERT_EQ(lines.size(), 7);
    EXPECT_TRUE(lines[1].startsWith("  <snapshots "));
    EXPECT_EQ(lines[2], "    <snapshot>");
    EXPECT_EQ(lines[3], "      <camera/>");
}

TEST(SnapShotTest, DocumentAsStringLeavesTheSnapShotsDocumentAlone)
{
    const QDomDocument document = parse(s_allComponents);
    SnapShot snapShot(document.documentElement());
    const QString before = xmlOf(document);
    snapShot.CreateSnapShotDocumentAsString();

    EXPECT_EQ(xmlOf(document), before);
}

// Image files

class SnapShotFilesTest : public ::testing::Test {
protected:
    QString in(const QString& folder, const QString& fileName) const
    {
        return folder + QDir::separator() + fileName;
    }

    const QDomDocument m_document =
        parse("<snapshot name='a:b'><renderTargets>"
              "<renderTarget><param name='Short Filename' type='string' val='out?1.png'/>"
              "</renderTarget>"
              "<renderTarget><param name='Short Filename' type='string' val='second.png'/>"
              "</renderTarget></renderTargets></snapshot>");
    SnapShot m_snapShot{m_document.documentElement()};
};

TEST_F(SnapShotFilesTest, ThumbFilenameIsTheFileSafeNameAsAnIcon)
{
    m_snapShot.SetSnapShotPath("folder");
    EXPECT_EQ(m_snapShot.GetThumbFilename(), in("folder", "icon_a%3ab.jpg"));
}

TEST_F(SnapShotFilesTest, RealTimeFilenameIsTheFileSafeNameWithItsPrefix)
{
    m_snapShot.SetSnapShotPath("folder");
    EXPECT_EQ(m_snapShot.GetRealTimeFilename(), in("folder", "real_time_a%3ab.jpg"));
}

TEST_F(SnapShotFilesTest, PhotoFilenameIsTheFileSafeShortNameOfTheFirstRenderTarget)
{
    m_snapShot.SetSnapShotPath("folder");
    EXPECT_EQ(m_snapShot.GetPhotoFilename(), in("folder", "out%3f1.png"));
}

TEST_F(SnapShotFilesTest, NamesAreEmptyWithoutAPath)
{
    EXPECT_EQ(m_snapShot.GetThumbFilename(), QString());
    EXPECT_EQ(m_snapShot.GetRealTimeFilename(), QString());
    EXPECT_EQ(m_snapShot.GetPhotoFilename(), QString());
}

TEST_F(SnapShotFilesTest, AnEmptyPathKeepsTheOldOne)
{
    m_snapShot.SetSnapShotPath("folder");
    m_snapShot.SetSnapShotPath("");
    EXPECT_EQ(m_snapShot.GetThumbFilename(), in("folder", "icon_a%3ab.jpg"));
}

TEST_F(SnapShotFilesTest, ALaterPathCounts)
{
    m_snapShot.SetSnapShotPath("folder");
    m_snapShot.SetSnapShotPath("other");
    EXPECT_EQ(m_snapShot.GetThumbFilename(), in("other", "icon_a%3ab.jpg"));
}

TEST_F(SnapShotFilesTest, NamesDoNotChangeTheNameOfTheSnapShot)
{
    m_snapShot.SetSnapShotPath("folder");
    m_snapShot.GetThumbFilename();
    EXPECT_EQ(m_snapShot.GetName(), "a:b");
}

TEST_F(SnapShotFilesTest, PhotoFilenameIsEmptyWithoutARenderTarget)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    snapShot.SetSnapShotPath("folder");
    EXPECT_EQ(snapShot.GetPhotoFilename(), QString());
}

TEST_F(SnapShotFilesTest, PhotoFilenameCreatesTheCollectionOfRenderTargets)
{
    const QDomDocument document = snapShotWith("");
    SnapShot snapShot(document.documentElement());
    snapShot.SetSnapShotPath("folder");
    snapShot.GetPhotoFilename();
    EXPECT_EQ(xmlOf(document), xmlOf("<snapshot><renderTargets/></snapshot>"));
}

TEST_F(SnapShotFilesTest, ThePathIsAtFirstTheSnapShotsFolderOfTheRegistry)
{
    const test::ArchiveFolders folders;
    SnapShot snapShot(m_document.documentElement());
    EXPECT_EQ(snapShot.GetThumbFilename(), in(folders.snapshots(), "icon_a%3ab.jpg"));
}

TEST_F(SnapShotFilesTest, ThePathOfACloneIsAtFirstTheSnapShotsFolderOfTheRegistry)
{
    const test::ArchiveFolders folders;
    m_snapShot.SetSnapShotPath("folder");
    SnapShot clone(static_cast<RVOpenNode*>(&m_snapShot));
    EXPECT_EQ(clone.GetThumbFilename(), in(folders.snapshots(), "icon_a%3ab.jpg"));
}

TEST(SnapShotTest, DeletingASnapShotBoundToNothingLeavesWhatTheHostTookOutOfIt)
{
    QDomDocument document =
        parse("<a><snapshot><materialRepository><material/></materialRepository></snapshot></a>");
    RVOpenNode root;
    root.SetDomNode(document.documentElement());
    auto* const snapShot = dynamic_cast<SnapShot*>(root.GetChild(1, 1));
    ASSERT_NE(snapShot, nullptr);
    RVOpenNode* const palette = snapShot->GetChild(1, 1);
    snapShot->DetachNode(palette, true);
    document.documentElement().removeChild(snapShot->GetDomNode());
    root.DeleteNode(snapShot);

    EXPECT_EQ(xmlOf(palette->GetDomNode()),
              xmlOf("<materialRepository><material/></materialRepository>"));
    delete palette;
}

TEST(SnapShotTest, DeletingLeavesWhatTheHostMovedOutOfAComponent)
{
    const QDomDocument document = parse("<a><snapshot><materialRepository><material/>"
                                        "</materialRepository></snapshot></a>");
    RVOpenNode root;
    root.SetDomNode(document.documentElement());
    RVOpenNode* const snapShot = root.GetChild(1, 1);
    RVOpenNode* const palette = snapShot->GetChild(1, 1);
    RVOpenNode* const material = palette->GetChild(1, 1);
    palette->DetachNode(material, true);
    root.ReplaceNode(snapShot, material);

    EXPECT_EQ(xmlOf(document), xmlOf("<a><material/></a>"));
}

} // namespace
} // namespace rvopen

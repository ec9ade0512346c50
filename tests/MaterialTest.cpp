// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MaterialFixtures.h"

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/Transparency.h>

#include <QFile>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace rvopen {
namespace {

using namespace rvopen::test;

TEST(MaterialTest, MadeFromNullStandsForNothing)
{
    Material empty(nullptr);
    EXPECT_TRUE(empty.GetDomNode().isNull());
}

TEST(MaterialTest, MadeFromASourceIsAnIndependentDeepCopyInTheSameDocument)
{
    const QDomDocument document = parse(materialXml(colourXml("1 0 0")));
    auto source = bind<Material>(document.documentElement());
    Material copy(source.get());

    EXPECT_EQ(textOf(copy), textOf(*source));
    EXPECT_EQ(copy.GetDomNode().ownerDocument(), document);
    EXPECT_TRUE(copy.GetDomNode().parentNode().isNull());
    copy.SetLinkName("copy");
    EXPECT_EQ(source->GetLinkName(), QString());
}

TEST(MaterialTest, LinkNameIsEmptyWhenAbsent)
{
    EXPECT_EQ(bindRoot<Material>("<material/>")->GetLinkName(), QString());
}

TEST(MaterialTest, LinkNameIsTheAttributeLinkname)
{
    auto material = bindRoot<Material>("<material linkname='before'/>");
    EXPECT_EQ(material->GetLinkName(), "before");
    material->SetLinkName("after");
    EXPECT_EQ(material->GetDomNode().toElement().attribute("linkname"), "after");
}

TEST(MaterialTest, NextIsTheFollowingMaterial)
{
    auto palette =
        bindRoot<RVOpenNode>("<materials><material/><material name='second'/></materials>");
    auto* const first = dynamic_cast<Material*>(palette->GetChild(1, 1));
    ASSERT_TRUE(first);
    Material* const second = first->GetNext();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->GetName(), "second");
    EXPECT_EQ(first->GetNext(0), second);
    EXPECT_FALSE(second->GetNext());
}

TEST(MaterialTest, NextIsNullWhereANodeOfAnotherClassFollows)
{
    auto palette = bindRoot<RVOpenNode>("<materials><material/><colour/></materials>");
    auto* const first = dynamic_cast<Material*>(palette->GetChild(1, 1));
    ASSERT_TRUE(first);
    EXPECT_FALSE(first->GetNext());
    EXPECT_TRUE(first->GetNext(1));
}

/// One kind of component through the operations that all kinds have.
struct Kind {
    const char* element;
    bool createdOnDemand;
    /// Whether the material's own component stays when it is set again.
    bool keepsOwn;
    std::function<RVOpenNode*(Material&, int)> get;
    std::function<void(Material&, RVOpenNode*)> set;
    std::function<RVOpenNode*()> makeEmpty;
};

void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.element;
}

template <typename Component>
Kind kindOf(const char* element, bool createdOnDemand, bool keepsOwn,
            std::function<RVOpenNode*(Material&, int)> get, void (Material::*set)(Component*))
{
    return {element,
            createdOnDemand,
            keepsOwn,
            get,
            [set](Material& material, RVOpenNode* node) {
                (material.*set)(dynamic_cast<Component*>(node));
            },
            [] { return new Component(nullptr); }};
}

const Kind s_kinds[] = {
    kindOf<Colour>(
        "colour", true, true, [](Material& m, int c) { return m.GetColour(c); },
        &Material::SetColour),
    kindOf<Finish>(
        "finish", false, false, [](Material& m, int) { return m.GetFinish(); },
        &Material::SetFinish),
    kindOf<Transparency>(
        "transparency", true, true, [](Material& m, int c) { return m.GetTransparency(c); },
        &Material::SetTransparency),
    kindOf<Bump>(
        "bump", true, false, [](Material& m, int c) { return m.GetBump(c); }, &Material::SetBump),
    kindOf<Material>(
        "material", false, false, [](Material& m, int) { return m.GetBaseMaterial(); },
        &Material::SetBaseMaterial),
};

class MaterialComponentTest : public ::testing::TestWithParam<Kind> {
protected:
    /// A component of the tested kind, empty and named.
    static QString named(const char* name)
    {
        return QStringLiteral("<%1 name='%2'/>")
            .arg(QLatin1String(GetParam().element), QLatin1String(name));
    }
    static RVOpenNode* get(Material& material, int create)
    {
        return GetParam().get(material, create);
    }
    static void set(Material& material, RVOpenNode* node)
    {
        GetParam().set(material, node);
    }
    /// A free-standing component in the document of \p material.
    static RVOpenNode* newComponent(const Material& material, const char* name)
    {
        RVOpenNode* const component = GetParam().makeEmpty();
        QDomDocument document = material.GetDomNode().ownerDocument();
        component->SetDomNode(document.createElement(GetParam().element));
        component->SetName(name);
        return component;
    }
};

INSTANTIATE_TEST_SUITE_P(Kinds, MaterialComponentTest, ::testing::ValuesIn(s_kinds),
                         [](const auto& kind) { return std::string(kind.param.element); });

TEST_P(MaterialComponentTest, IsNullAndAddsNothingWhereAbsent)
{
    auto material = bindRoot<Material>("<material/>");
    EXPECT_FALSE(get(*material, 0));
    EXPECT_EQ(textOf(*material), "<material/>");
}

TEST_P(MaterialComponentTest, IsTheFirstChildOfItsKind)
{
    auto material = bindRoot<Material>(
        materialXml("<unknown/><!-- note -->" + named("first") + named("second")));
    ASSERT_TRUE(get(*material, 1));
    EXPECT_EQ(get(*material, 1)->GetName(), "first");
}

TEST_P(MaterialComponentTest, IsNotLookedForInTheBaseMaterial)
{
    auto material =
        bindRoot<Material>(materialXml(materialXml(named("deeper")) + QLatin1String("<unknown/>")));
    const RVOpenNode* const found = get(*material, 0);
    EXPECT_TRUE(!found || found->GetName().isEmpty());
}

TEST_P(MaterialComponentTest, IsAddedOnceAsTheLastChildWhenAskedFor)
{
    auto material = bindRoot<Material>("<material><unknown/></material>");
    RVOpenNode* const made = get(*material, 1);
    if (!GetParam().createdOnDemand) {
        EXPECT_FALSE(made);
        EXPECT_EQ(textOf(*material), "<material><unknown/></material>");
        return;
    }
    ASSERT_TRUE(made);
    EXPECT_EQ(get(*material, 1), made);
    EXPECT_EQ(get(*material, 0), made);
    EXPECT_EQ(textOf(*material),
              textOf(materialXml("<unknown/><" + QString(GetParam().element) + "/>")));
    EXPECT_TRUE(mirrorsWholeDom(material.get()));
}

TEST_P(MaterialComponentTest, AnyNonZeroFlagAsksForIt)
{
    auto material = bindRoot<Material>("<material/>");
    EXPECT_EQ(get(*material, -1) != nullptr, GetParam().createdOnDemand);
}

TEST_P(MaterialComponentTest, IsNotAddedToAnArchiveThatCannotBeOpened)
{
    auto material = bindRoot<Material>(stoneReference("material"));
    const QString before = textOf(*material);
    EXPECT_FALSE(get(*material, 1));
    EXPECT_EQ(textOf(*material), before);
}

TEST_P(MaterialComponentTest, SettingReplacesThePresentOneAndItsElement)
{
    auto material = bindRoot<Material>(materialXml(named("old") + "<unknown/>"));
    RVOpenNode* const fresh = newComponent(*material, "new");
    set(*material, fresh);
    EXPECT_EQ(get(*material, 0), fresh);
    EXPECT_EQ(textOf(*material), textOf(materialXml("<unknown/>" + named("new"))));
    EXPECT_TRUE(mirrorsWholeDom(material.get()));
}

TEST_P(MaterialComponentTest, SettingWhereNoneIsAdds)
{
    auto material = bindRoot<Material>("<material/>");
    RVOpenNode* const fresh = newComponent(*material, "new");
    set(*material, fresh);
    EXPECT_EQ(get(*material, 0), fresh);
    EXPECT_TRUE(mirrorsWholeDom(material.get()));
}

TEST_P(MaterialComponentTest, SettingReplacesTheFirstOfSeveralAlone)
{
    auto material = bindRoot<Material>(materialXml(named("first") + named("second")));
    set(*material, newComponent(*material, "new"));
    EXPECT_EQ(textOf(*material), textOf(materialXml(named("second") + named("new"))));
}

TEST_P(MaterialComponentTest, SettingNullRemoves)
{
    auto material = bindRoot<Material>(materialXml(named("old") + "<unknown/>"));
    set(*material, nullptr);
    EXPECT_FALSE(get(*material, 0));
    EXPECT_EQ(textOf(*material), "<material><unknown/></material>");
}

TEST_P(MaterialComponentTest, SettingNullWhereNoneIsChangesNothing)
{
    auto material = bindRoot<Material>("<material><unknown/></material>");
    set(*material, nullptr);
    EXPECT_EQ(textOf(*material), "<material><unknown/></material>");
}

TEST_P(MaterialComponentTest, SettingTheOwnOneLeavesEqualContent)
{
    const QString xml = materialXml(named("own"));
    auto material = bindRoot<Material>(xml);
    RVOpenNode* const own = get(*material, 0);
    const QDomNode element = own->GetDomNode();
    set(*material, own);
    EXPECT_EQ(textOf(*material), textOf(xml));
    EXPECT_EQ(get(*material, 0)->GetDomNode() == element, GetParam().keepsOwn);
    EXPECT_TRUE(mirrorsWholeDom(material.get()));
}

TEST_P(MaterialComponentTest, SettingOneFromAnotherDocumentMovesItHere)
{
    auto material = bindRoot<Material>("<material/>");
    {
        auto other = bindRoot<Material>(materialXml(named("other")));
        RVOpenNode* const component = get(*other, 0);
        other->DetachNode(component, true);
        set(*material, component);
    }
    ASSERT_TRUE(get(*material, 0));
    EXPECT_EQ(get(*material, 0)->GetName(), "other");
    EXPECT_EQ(get(*material, 0)->GetDomNode().ownerDocument(),
              material->GetDomNode().ownerDocument());
    EXPECT_TRUE(mirrorsWholeDom(material.get()));
}

TEST(MaterialTest, SettingABaseMaterialFromInsideTheBaseMaterialPutsACopyInItsPlace)
{
    auto material = bindRoot<Material>("<material><material><material>"
                                       "<material name='deep'><colour/></material>"
                                       "</material></material></material>");
    Material* const deep = material->GetBaseMaterial()->GetBaseMaterial()->GetBaseMaterial();
    material->SetBaseMaterial(deep);
    EXPECT_EQ(textOf(*material),
              textOf("<material><material name='deep'><colour/></material></material>"));
    EXPECT_TRUE(mirrorsWholeDom(material.get()));
}

class MaterialEqualTest : public ::testing::TestWithParam<Comparison> {};

TEST_P(MaterialEqualTest, Compares)
{
    auto one = bindRoot<Material>(GetParam().one);
    auto other = bindRoot<Material>(GetParam().other);
    EXPECT_EQ(one->Equal(other.get(), GetParam().compareBase), GetParam().equal);
}

TEST_P(MaterialEqualTest, ComparesTheOtherWayRound)
{
    auto one = bindRoot<Material>(GetParam().one);
    auto other = bindRoot<Material>(GetParam().other);
    EXPECT_EQ(other->Equal(one.get(), GetParam().compareBase), GetParam().equal);
}

const QString s_empty = QStringLiteral("<material/>");
const QString s_base = materialXml("<material refname='base'/>");

INSTANTIATE_TEST_SUITE_P(
    Pairs, MaterialEqualTest,
    ::testing::Values(
        Comparison{"BothEmpty", s_empty, s_empty, true, true},
        Comparison{"SameReferenceNameDecidesOverContent",
                   "<material refname='a'>" + colourXml("1 0 0") + "</material>",
                   "<material refname='a'>" + colourXml("0 1 0") + "</material>", true},
        Comparison{"SameReferenceNameDecidesOverBaseMaterials",
                   "<material refname='a'><material/></material>", "<material refname='a'/>", true,
                   true},
        Comparison{"DifferentReferenceNames", "<material refname='a'/>", "<material refname='b'/>",
                   false},
        Comparison{"ReferenceNamesAreCaseSensitive", "<material refname='a'/>",
                   "<material refname='A'/>", false},
        Comparison{"ReferenceNameOnOneSide", "<material refname='a'/>", s_empty, false},
        Comparison{"EmptyReferenceNameIsNone", "<material refname=''/>", s_empty, true},
        Comparison{"LinkNamesDoNotCount", "<material linkname='a'/>", "<material linkname='b'/>",
                   true},
        Comparison{"SameColour", materialXml(colourXml("1 0 0")), materialXml(colourXml("1 0 0")),
                   true},
        Comparison{"DifferentColour", materialXml(colourXml("1 0 0")),
                   materialXml(colourXml("0 1 0")), false},
        Comparison{"ColourOnOneSide", materialXml(colourXml("1 0 0")), s_empty, false},
        Comparison{"SameFinish", materialXml("<finish refname='a'/>"),
                   materialXml("<finish refname='a'/>"), true},
        Comparison{"DifferentFinish", materialXml("<finish refname='a'/>"),
                   materialXml("<finish refname='b'/>"), false},
        Comparison{"FinishOnOneSide", materialXml("<finish/>"), s_empty, false},
        Comparison{"SameBump", materialXml(bumpXml("1")), materialXml(bumpXml("1")), true},
        Comparison{"DifferentBump", materialXml(bumpXml("1")), materialXml(bumpXml("2")), false},
        Comparison{"BumpOnOneSide", materialXml(bumpXml("1")), s_empty, false},
        Comparison{"SameTransparency", materialXml(transparencyXml("1")),
                   materialXml(transparencyXml("1")), true},
        Comparison{"DifferentTransparency", materialXml(transparencyXml("1")),
                   materialXml(transparencyXml("0")), false},
        Comparison{"TransparencyOnOneSide", materialXml(transparencyXml("1")), s_empty, false},
        Comparison{"OrderOfTheComponentsDoesNotCount",
                   materialXml(colourXml("1 0 0") + transparencyXml("1")),
                   materialXml(transparencyXml("1") + colourXml("1 0 0")), true},
        Comparison{"BaseMaterialOnOneSideNotAskedFor", s_base, s_empty, true},
        Comparison{"BaseMaterialOnOneSide", s_base, s_empty, false, true},
        Comparison{"SameBaseMaterials", s_base, s_base, true, true},
        Comparison{"DifferentBaseMaterials", s_base, materialXml("<material refname='b'/>"), false,
                   true},
        Comparison{"DifferentBaseMaterialsNotAskedFor", s_base,
                   materialXml("<material refname='b'/>"), true},
        Comparison{"BaseMaterialsByContent", materialXml(materialXml(colourXml("1 0 0"))),
                   materialXml(materialXml(colourXml("0 1 0"))), false, true},
        Comparison{"BaseMaterialsOfBaseMaterialsDoNotCount", materialXml(s_base),
                   materialXml(s_empty), true, true}),
    comparisonName);

TEST(MaterialTest, IsNotEqualToNull)
{
    EXPECT_FALSE(bindRoot<Material>("<material/>")->Equal(nullptr, false));
}

TEST(MaterialTest, ConsolidatingTakesOverEveryMissingComponentAndRemovesTheBaseMaterial)
{
    auto material = bindRoot<Material>(
        materialXml(materialXml(colourXml("1 0 0") + QLatin1String("<finish name='matt'/>") +
                                transparencyXml("1") + bumpXml("2"))));
    material->ConsolidateBaseMaterial();
    EXPECT_EQ(textOf(*material),
              textOf(materialXml(colourXml("1 0 0") + QLatin1String("<finish name='matt'/>") +
                                 transparencyXml("1") + bumpXml("2"))));
    EXPECT_FALSE(material->GetBaseMaterial());
    EXPECT_TRUE(mirrorsWholeDom(material.get()));
}

TEST(MaterialTest, ConsolidatingKeepsThePresentComponentsWhole)
{
    const QString own = QStringLiteral("<colour name='own'/><finish name='own'/>"
                                       "<transparency name='own'/><bump name='own'/>");
    const QString base =
        QStringLiteral("<material><colour/><finish/><transparency/><bump/></material>");
    auto material = bindRoot<Material>(materialXml(own + base));
    material->ConsolidateBaseMaterial();
    EXPECT_EQ(textOf(*material), textOf(materialXml(own)));
}

TEST(MaterialTest, ConsolidatingAddsNothingThatTheBaseMaterialLacks)
{
    auto material = bindRoot<Material>("<material><material/></material>");
    material->ConsolidateBaseMaterial();
    EXPECT_EQ(textOf(*material), "<material/>");
}

TEST(MaterialTest, ConsolidatingWithoutABaseMaterialChangesNothing)
{
    auto material = bindRoot<Material>("<material><finish/></material>");
    material->ConsolidateBaseMaterial();
    EXPECT_EQ(textOf(*material), "<material><finish/></material>");
}

TEST(MaterialTest, DeletingTakesTheBaseMaterialOutOfTheElement)
{
    auto material = bindRoot<Material>("<material><colour/><material/><finish/></material>");
    const QDomNode element = material->GetDomNode();
    material.reset();
    EXPECT_EQ(xmlOf(element), "<material><colour/><finish/></material>");
}

TEST(MaterialTest, DeletingTakesOutABaseMaterialWhoseObjectExists)
{
    auto material = bindRoot<Material>("<material><material><colour/></material></material>");
    const QDomNode element = material->GetDomNode();
    ASSERT_TRUE(material->GetBaseMaterial()->GetColour(0));
    material.reset();
    EXPECT_EQ(xmlOf(element), "<material/>");
}

TEST(MaterialTest, DeletingTakesTheElementOutOfTheDocument)
{
    const QDomDocument document = parse("<materials><material/><material/></materials>");
    bind<Material>(document.documentElement().firstChild()).reset();
    EXPECT_EQ(xmlOf(document.documentElement()), "<materials><material/></materials>");
}

TEST(MaterialTest, DeletingLeavesTheArchiveThatItStandsForAlone)
{
    const Stone archive("<materials><material name='kept'/></materials>");
    ASSERT_TRUE(archive.root);
    auto material = bindRoot<Material>(stoneReference("material"));
    ASSERT_TRUE(material->GetBaseMaterial());
    material.reset();
    EXPECT_EQ(textOf(*archive.root), "<materials><material name=\"kept\"/></materials>");
}

TEST(MaterialTest, DeletingLeavesTheFileOfABaseMaterialThatStandsForAnArchive)
{
    const Stone archive("<materials/>");
    ASSERT_TRUE(archive.root);
    auto material = bindRoot<Material>(materialXml(stoneReference("material")));
    ASSERT_TRUE(material->GetBaseMaterial());
    material.reset();
    EXPECT_TRUE(QFile::exists(archive.fileName));
}

TEST(MaterialTest, DeletingOpensNoArchive)
{
    const Stone archive("<materials/>");
    GetDirectoryHandler()->CloseArchive(archive.fileName);
    bindRoot<Material>(materialXml(stoneReference("material"))).reset();
    bindRoot<Material>(stoneReference("material")).reset();
    // Removing deletes the file of an open archive only.
    GetDirectoryHandler()->RemoveArchive(archive.fileName);
    EXPECT_TRUE(QFile::exists(archive.fileName));
}

TEST(MaterialTest, ComponentsOfAnArchiveReferenceAreTheArchives)
{
    const Stone archive("<material><colour name='archive'/></material>");
    ASSERT_TRUE(archive.root);
    auto material = bindRoot<Material>(stoneReference("material", "<colour name='own'/>"));
    ASSERT_TRUE(material->GetColour(0));
    EXPECT_EQ(material->GetColour(0)->GetName(), "archive");

    ASSERT_TRUE(material->GetBump(1));
    material->SetColour(nullptr);
    EXPECT_EQ(textOf(*archive.root), "<material><bump/></material>");
    EXPECT_TRUE(mirrorsWholeDom(archive.root));
}

} // namespace
} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MaterialFixtures.h"

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/Transparency.h>

#include <functional>

namespace {

using namespace rvopen;
using namespace rvopen::test;

QString paletteXml(const QString& content)
{
    return "<materialRepository>" + content + "</materialRepository>";
}

/// A palette with an object for every child node.
std::unique_ptr<MaterialRepository> palette(const QString& content)
{
    auto result = bindRoot<MaterialRepository>(paletteXml(content));
    result->Populate();
    return result;
}

/// A palette whose children became objects of the classes that stand for their elements.
std::unique_ptr<MaterialRepository> walkedPalette(const QString& content)
{
    auto result = bindRoot<MaterialRepository>(paletteXml(content));
    children(result.get());
    return result;
}

/// The names of the materials that the palette reaches.
QStringList namesOf(MaterialRepository& palette)
{
    QStringList names;
    for (Material* material = palette.GetFirstMaterial(); material; material = material->GetNext())
        names << material->GetName();
    return names;
}

Material* newMaterial(MaterialRepository& palette, const char* name)
{
    Material* const material = palette.CreateMaterial();
    material->SetName(name);
    return material;
}

/// The list of materials

TEST(MaterialRepositoryTest, MadeFromNullIsEmpty)
{
    MaterialRepository empty(nullptr);
    EXPECT_TRUE(empty.GetDomNode().isNull());
    EXPECT_EQ(empty.GetNumMaterials(), 0u);
}

TEST(MaterialRepositoryTest, MadeFromASourceIsADeepCopyWithItsMaterials)
{
    const auto source =
        bindRoot<RVOpenNode>(paletteXml("<material name='a'/><material name='b'/>"));
    MaterialRepository copy(source.get());
    EXPECT_EQ(namesOf(copy), QStringList({"a", "b"}));
    EXPECT_EQ(textOf(copy), textOf(*source));
    copy.GetFirstMaterial()->SetName("changed");
    EXPECT_EQ(textOf(*source), textOf(paletteXml("<material name='a'/><material name='b'/>")));
}

TEST(MaterialRepositoryTest, PopulatingMakesEveryChildNodeAMaterialInOrder)
{
    const auto materials =
        palette("<material name='a'/><!-- note --><other name='b'/><material name='c'/>");
    EXPECT_EQ(namesOf(*materials), QStringList({"a", "", "b", "c"}));
    EXPECT_EQ(materials->GetNumMaterials(), 4u);
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, PopulatingTwiceKeepsTheObjects)
{
    const auto materials = palette("<material name='a'/><material name='b'/>");
    const auto before = children(materials.get());
    materials->Populate();
    EXPECT_EQ(children(materials.get()), before);
}

TEST(MaterialRepositoryTest, PopulatingKeepsTheObjectsThatAWalkMade)
{
    const auto materials = bindRoot<MaterialRepository>(paletteXml("<material/><material/>"));
    const RVOpenNode* const first = materials->GetChild(1, 1);
    materials->Populate();
    EXPECT_EQ(materials->GetFirstMaterial(), first);
    EXPECT_EQ(materials->GetNumMaterials(), 2u);
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, TheFirstMaterialIsAmongTheObjectsThatExist)
{
    const auto materials = bindRoot<MaterialRepository>(paletteXml("<material/>"));
    EXPECT_FALSE(materials->GetFirstMaterial());
    materials->Populate();
    EXPECT_TRUE(materials->GetFirstMaterial());
}

TEST(MaterialRepositoryTest, ThereIsNoFirstMaterialWhereTheFirstChildIsAnother)
{
    const auto materials = walkedPalette("<colour/><material/>");
    EXPECT_FALSE(materials->GetFirstMaterial());
    EXPECT_EQ(materials->GetNumMaterials(), 0u);
}

TEST(MaterialRepositoryTest, CountingEndsAtTheFirstChildThatIsNoMaterial)
{
    EXPECT_EQ(walkedPalette("<material/><material/><colour/><material/>")->GetNumMaterials(), 2u);
}

TEST(MaterialRepositoryTest, AMaterialIsFoundByItsWholeLinkNameOnly)
{
    const auto materials = palette("<material linkname='Wall'/><material linkname='wall 1'/>"
                                   "<material name='right' linkname='wall'/>");
    ASSERT_TRUE(materials->GetMaterial("wall"));
    EXPECT_EQ(materials->GetMaterial("wall")->GetName(), "right");
}

TEST(MaterialRepositoryTest, TheFirstMaterialOfALinkNameIsFound)
{
    const auto materials = palette("<material name='first' linkname='wall'/>"
                                   "<material name='second' linkname='wall'/>");
    ASSERT_TRUE(materials->GetMaterial("wall"));
    EXPECT_EQ(materials->GetMaterial("wall")->GetName(), "first");
}

/// Searched often enough that anything that could be remembered is.
void searchForEach(MaterialRepository& palette, const QStringList& linkNames)
{
    for (int round = 0; round < 3; ++round) {
        for (const QString& linkName : linkNames)
            EXPECT_NE(palette.GetMaterial(linkName), nullptr);
    }
}

const char s_linkedMaterials[] = "<material linkname='x' name='first'/>"
                                 "<material linkname='y' name='second'/>"
                                 "<material linkname='z' name='third'/>";

TEST(MaterialRepositoryTest, AnEarlierMaterialIsFoundOnceAnotherObjectOfItGetsTheLinkName)
{
    const auto materials = palette(s_linkedMaterials);
    searchForEach(*materials, {"x", "y", "z"});
    const RVOpenView<Material> other(materials->GetFirstMaterial()->GetDomNode().toElement());
    other->SetLinkName("z");

    EXPECT_EQ(materials->GetMaterial("z")->GetName(), "first");
}

TEST(MaterialRepositoryTest, AnUnknownLinkNameFindsNothing)
{
    EXPECT_FALSE(palette("<material linkname='wall'/>")->GetMaterial("floor"));
}

TEST(MaterialRepositoryTest, MaterialsBehindAnotherChildAreNotFound)
{
    EXPECT_FALSE(
        walkedPalette("<material/><colour/><material linkname='wall'/>")->GetMaterial("wall"));
}

TEST(MaterialRepositoryTest, ACreatedMaterialIsNotPartOfThePalette)
{
    const auto materials = palette("<material/>");
    const std::unique_ptr<Material> created(materials->CreateMaterial());
    ASSERT_TRUE(created);
    EXPECT_EQ(textOf(*created), "<material/>");
    EXPECT_TRUE(created->GetDomNode().parentNode().isNull());
    EXPECT_EQ(created->GetDomNode().ownerDocument(), materials->GetDomNode().ownerDocument());
    EXPECT_EQ(materials->GetNumMaterials(), 1u);
}

TEST(MaterialRepositoryTest, AddingAppends)
{
    const auto materials = palette("<material name='a'/><material name='b'/>");
    materials->AddMaterial(newMaterial(*materials, "c"));
    EXPECT_EQ(namesOf(*materials), QStringList({"a", "b", "c"}));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AddingToAnEmptyPaletteMakesTheFirstMaterial)
{
    const auto materials = palette(QString());
    Material* const added = newMaterial(*materials, "a");
    materials->AddMaterial(added);
    EXPECT_EQ(materials->GetFirstMaterial(), added);
    EXPECT_EQ(textOf(*materials), textOf(paletteXml("<material name='a'/>")));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AddingAppendsBehindChildrenWithoutObjects)
{
    const auto materials =
        bindRoot<MaterialRepository>(paletteXml("<material name='a'/><material name='b'/>"));
    materials->AddMaterial(newMaterial(*materials, "c"));
    EXPECT_EQ(namesOf(*materials), QStringList({"a", "b", "c"}));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AddingAppendsBehindSiblingsThatAWalkHasNotReached)
{
    const auto materials =
        bindRoot<MaterialRepository>(paletteXml("<material name='a'/><material name='b'/>"));
    materials->GetChild(1, 1);
    materials->AddMaterial(newMaterial(*materials, "c"));
    EXPECT_EQ(namesOf(*materials), QStringList({"a", "b", "c"}));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AddingAppendsBehindAChildThatIsNoMaterial)
{
    const auto materials = walkedPalette("<material name='a'/><colour name='b'/>");
    materials->AddMaterial(newMaterial(*materials, "c"));
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml("<material name='a'/><colour name='b'/><material name='c'/>")));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AddingMovesAnElementThatStandsElsewhereInTheDocument)
{
    const QDomDocument document =
        parse("<root><materials><material name='a'/></materials><materialRepository/></root>");
    const QDomElement elsewhere = document.documentElement().firstChildElement();
    const auto materials = bind<MaterialRepository>(elsewhere.nextSiblingElement());
    materials->AddMaterial(bind<Material>(elsewhere.firstChild()).release());
    EXPECT_EQ(xmlOf(document), xmlOf("<root><materials/>"
                                     "<materialRepository><material name='a'/></materialRepository>"
                                     "</root>"));
}

TEST(MaterialRepositoryTest, AddingMovesAnElementOutOfAnotherDocument)
{
    const auto materials = palette("<material name='a'/>");
    QDomDocument other = parse("<materials><material name='b'><colour/></material></materials>");
    Material* const moved = bind<Material>(other.documentElement().firstChild()).release();
    moved->GetColour(0);
    materials->AddMaterial(moved);
    EXPECT_EQ(xmlOf(other), "<materials/>");
    other.clear();
    EXPECT_EQ(textOf(*materials), textOf(paletteXml("<material name='a'/>"
                                                    "<material name='b'><colour/></material>")));
    EXPECT_EQ(moved->GetColour(0)->GetDomNode().ownerDocument(),
              materials->GetDomNode().ownerDocument());
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AddingNullChangesNothing)
{
    const auto materials = palette("<material/>");
    materials->AddMaterial(nullptr);
    EXPECT_EQ(materials->GetNumMaterials(), 1u);
}

class AddMaterialOfThePaletteTest : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(FirstMiddleLast, AddMaterialOfThePaletteTest, testing::Values(0, 1, 2));

TEST_P(AddMaterialOfThePaletteTest, MovesItToTheEnd)
{
    const auto materials = palette("<material name='a'/><material name='b'/><material name='c'/>");
    QStringList names = {"a", "b", "c"};
    names.append(names.takeAt(GetParam()));
    materials->AddMaterial(
        static_cast<Material*>(children(materials.get())[static_cast<std::size_t>(GetParam())]));
    EXPECT_EQ(namesOf(*materials), names);
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AddingTheOnlyMaterialAgainLeavesIt)
{
    const auto materials = palette("<material name='a'/>");
    Material* const material = materials->GetFirstMaterial();
    materials->AddMaterial(material);
    EXPECT_EQ(materials->GetFirstMaterial(), material);
    EXPECT_EQ(materials->GetNumMaterials(), 1u);
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

/// A material of a tree: its number among the children there.
class AddMaterialOfATreeTest : public testing::TestWithParam<int> {
protected:
    template <typename Owner>
    void takeFrom(Owner& owner, MaterialRepository& into)
    {
        auto rest = children(&owner);
        const auto place = rest.begin() + GetParam();
        auto* const material = dynamic_cast<Material*>(*place);
        rest.erase(place);
        into.AddMaterial(material);
        EXPECT_EQ(children(&owner), rest);
        EXPECT_EQ(children(&into).back(), material);
        EXPECT_EQ(material->GetParent(), &into);
        EXPECT_TRUE(mirrorsWholeDom(&owner));
        EXPECT_TRUE(mirrorsWholeDom(&into));
    }
    static QString three(const QString& element)
    {
        return QStringLiteral("<%1><material/><material><colour/></material><material/></%1>")
            .arg(element);
    }
};

INSTANTIATE_TEST_SUITE_P(FirstMiddleLast, AddMaterialOfATreeTest, testing::Values(0, 1, 2));

TEST_P(AddMaterialOfATreeTest, TakesItOutOfAnotherPalette)
{
    const auto from = bindRoot<MaterialRepository>(three("materialRepository"));
    from->Populate();
    takeFrom(*from, *palette("<material name='a'/>"));
}

TEST_P(AddMaterialOfATreeTest, TakesItOutOfAnotherPaletteOfTheDocument)
{
    const QDomDocument document =
        parse("<root>" + three("materialRepository") + "<materialRepository/></root>");
    const auto from = bind<MaterialRepository>(document.documentElement().firstChild());
    const auto into = bind<MaterialRepository>(document.documentElement().lastChild());
    from->Populate();
    takeFrom(*from, *into);
}

TEST_P(AddMaterialOfATreeTest, TakesItOutOfAnArchive)
{
    const auto from = bindRoot<RVOpenNode>(three("materials"));
    takeFrom(*from, *palette("<material name='a'/>"));
}

TEST_P(AddMaterialOfATreeTest, RemovingItTakesItOutOfItsTree)
{
    const auto from = bindRoot<MaterialRepository>(three("materialRepository"));
    from->Populate();
    auto rest = children(from.get());
    const auto place = rest.begin() + GetParam();
    auto* const material = dynamic_cast<Material*>(*place);
    rest.erase(place);
    const auto materials = palette("<material name='a'/>");
    materials->RemoveMaterial(material);
    EXPECT_EQ(children(from.get()), rest);
    EXPECT_TRUE(mirrorsWholeDom(from.get()));
    EXPECT_EQ(namesOf(*materials), QStringList("a"));
}

TEST(MaterialRepositoryTest, AddingABaseMaterialTakesItOutOfItsMaterial)
{
    const auto materials = palette("<material name='a'><material name='base'/></material>");
    Material* const owner = materials->GetFirstMaterial();
    materials->AddMaterial(owner->GetBaseMaterial());
    EXPECT_FALSE(owner->GetBaseMaterial());
    EXPECT_EQ(namesOf(*materials), QStringList({"a", "base"}));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

class RemoveMaterialTest : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(FirstMiddleLast, RemoveMaterialTest, testing::Values(0, 1, 2));

TEST_P(RemoveMaterialTest, TakesOutTheMaterialAndItsElementAlone)
{
    const auto materials = palette("<material name='a'/><material name='b'/><material name='c'/>");
    QStringList names = {"a", "b", "c"};
    names.removeAt(GetParam());
    auto rest = children(materials.get());
    const auto removed = rest.begin() + GetParam();
    auto* const material = static_cast<Material*>(*removed);
    rest.erase(removed);
    materials->RemoveMaterial(material);
    EXPECT_EQ(children(materials.get()), rest);
    EXPECT_EQ(namesOf(*materials), names);
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, RemovingTheFirstKeepsSiblingsThatAWalkHasNotReached)
{
    const auto materials =
        bindRoot<MaterialRepository>(paletteXml("<material name='a'/><material name='b'/>"));
    materials->GetChild(1, 1);
    materials->RemoveMaterial(materials->GetFirstMaterial());
    EXPECT_EQ(namesOf(*materials), QStringList("b"));
}

TEST(MaterialRepositoryTest, RemovingAMaterialBehindAnotherChildTakesItOut)
{
    const auto materials = walkedPalette("<material/><colour/><material name='c'/><bump/>");
    auto rest = children(materials.get());
    auto* const material = dynamic_cast<Material*>(rest[2]);
    rest.erase(rest.begin() + 2);
    materials->RemoveMaterial(material);
    EXPECT_EQ(children(materials.get()), rest);
    EXPECT_EQ(textOf(*materials), textOf(paletteXml("<material/><colour/><bump/>")));
}

TEST(MaterialRepositoryTest, RemovingTheFirstBeforeAnotherChildLeavesNoObjectsButTheElements)
{
    const QString rest = "<colour/><material><material><bump/></material></material>";
    const auto materials = walkedPalette("<material/>" + rest);
    materialise(materials.get());
    materials->RemoveMaterial(materials->GetFirstMaterial());
    EXPECT_FALSE(materials->GetChild(0, 0));
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(rest)));
}

TEST(MaterialRepositoryTest, RemovingAMaterialThatIsNotInThePaletteDeletesIt)
{
    const auto materials = palette("<material name='a'/>");
    const QDomDocument other = parse("<materials><material/></materials>");
    materials->RemoveMaterial(bind<Material>(other.documentElement().firstChild()).release());
    EXPECT_EQ(xmlOf(other), "<materials/>");
    EXPECT_EQ(namesOf(*materials), QStringList("a"));
}

TEST(MaterialRepositoryTest, RemovingNullChangesNothing)
{
    const auto materials = palette("<material/>");
    materials->RemoveMaterial(nullptr);
    EXPECT_EQ(materials->GetNumMaterials(), 1u);
}

TEST(MaterialRepositoryTest, ClearingRemovesEveryMaterial)
{
    const auto materials = palette("<material/><material/><material/>");
    materials->Clear();
    EXPECT_EQ(textOf(*materials), "<materialRepository/>");
    EXPECT_EQ(materials->GetNumMaterials(), 0u);
}

TEST(MaterialRepositoryTest, ClearingEndsAtTheFirstChildThatIsNoMaterial)
{
    const auto materials = walkedPalette("<material/><material/><colour/><material/>");
    materials->Clear();
    EXPECT_EQ(textOf(*materials), textOf(paletteXml("<colour/><material/>")));
}

TEST(MaterialRepositoryTest, ClearingRemovesNothingWhereTheFirstChildIsNoMaterial)
{
    const auto materials = walkedPalette("<colour/><material/>");
    materials->Clear();
    EXPECT_EQ(textOf(*materials), textOf(paletteXml("<colour/><material/>")));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

/// Adding components

struct Addition {
    const char* element;
    /// Whether the flag is set to 0 when there is no match.
    bool clearsFlag;
    /// Whether a component without reference name and content equals itself.
    bool emptyEqualsItself;
    std::function<RVOpenNode*(MaterialRepository&, RVOpenNode*, const QString&, int*)> add;
    std::function<std::unique_ptr<RVOpenNode>(const QString&)> bindComponent;
};

void PrintTo(const Addition& addition, std::ostream* out)
{
    *out << addition.element;
}

template <typename Component>
Addition addition(const char* element, bool clearsFlag, bool emptyEqualsItself,
                  Component* (MaterialRepository::*add)(Component*, QString, int*))
{
    return {element, clearsFlag, emptyEqualsItself,
            [add](MaterialRepository& materials, RVOpenNode* component, const QString& linkName,
                  int* flag) {
                return (materials.*add)(dynamic_cast<Component*>(component), linkName, flag);
            },
            [](const QString& xml) { return bindRoot<Component>(xml); }};
}

const Addition s_additions[] = {
    addition("colour", false, false, &MaterialRepository::AddColour),
    addition("finish", true, true, &MaterialRepository::AddFinish),
    addition("transparency", true, false, &MaterialRepository::AddTransparency),
    addition("bump", true, false, &MaterialRepository::AddBump),
};

class AddComponentTest : public testing::TestWithParam<Addition> {
protected:
    static QString component(const QString& refName, const QString& name)
    {
        return QStringLiteral("<%1 refname='%2' name='%3'/>")
            .arg(GetParam().element, refName, name);
    }
    static QString targetWith(const QString& content)
    {
        return materialXml(content, "linkname='wall'");
    }
    static std::unique_ptr<RVOpenNode> incoming(const QString& refName, const QString& name)
    {
        return GetParam().bindComponent(component(refName, name));
    }
    static RVOpenNode* add(MaterialRepository& materials, RVOpenNode* component, int* flag,
                           const QString& linkName = "wall")
    {
        return GetParam().add(materials, component, linkName, flag);
    }
    static RVOpenNode* firstComponent(MaterialRepository& materials)
    {
        return materials.GetMaterial("wall")->GetChild(1, 1);
    }
};

INSTANTIATE_TEST_SUITE_P(Kinds, AddComponentTest, testing::ValuesIn(s_additions),
                         [](const auto& kind) { return std::string(kind.param.element); });

TEST_P(AddComponentTest, GivesNullAndChangesNothingForAnUnknownLinkName)
{
    const auto materials = palette(targetWith(component("a", "own")));
    EXPECT_FALSE(add(*materials, incoming("b", "new").get(), nullptr, "floor"));
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(targetWith(component("a", "own")))));
}

TEST_P(AddComponentTest, TreatsTheFlagForAnUnknownLinkNameAsWithoutAMatch)
{
    const auto materials = palette(QString());
    int flag = 1;
    add(*materials, incoming("b", "new").get(), &flag, "floor");
    EXPECT_EQ(flag, GetParam().clearsFlag ? 0 : 1);
}

TEST_P(AddComponentTest, KeepsAndGivesTheOwnComponentOnAMatch)
{
    const auto materials = palette(targetWith(component("a", "own")));
    RVOpenNode* const own = firstComponent(*materials);
    int flag = 0;
    EXPECT_EQ(add(*materials, incoming("a", "same").get(), &flag), own);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(targetWith(component("a", "own")))));
}

TEST_P(AddComponentTest, ReplacesADifferentComponentByACopy)
{
    const auto materials = palette(targetWith(component("a", "own") + "<unknown/>"));
    const auto source = incoming("b", "new");
    const RVOpenNode* const added = add(*materials, source.get(), nullptr);
    ASSERT_TRUE(added);
    EXPECT_NE(added, source.get());
    EXPECT_EQ(added->GetParent(), materials->GetMaterial("wall"));
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml(targetWith("<unknown/>" + component("b", "new")))));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST_P(AddComponentTest, LeavesTheIncomingComponentAsItIs)
{
    const auto materials = palette(targetWith(QString()));
    const auto source = incoming("b", "new");
    add(*materials, source.get(), nullptr);
    EXPECT_EQ(textOf(*source), textOf(component("b", "new")));
}

TEST_P(AddComponentTest, ClearsTheFlagOrLeavesItWithoutAMatch)
{
    const auto materials = palette(targetWith(component("a", "own")));
    int flag = 1;
    add(*materials, incoming("b", "new").get(), &flag);
    EXPECT_EQ(flag, GetParam().clearsFlag ? 0 : 1);
}

TEST_P(AddComponentTest, AddsWhereThereIsNone)
{
    const auto materials = palette(targetWith(QString()));
    EXPECT_TRUE(add(*materials, incoming("b", "new").get(), nullptr));
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(targetWith(component("b", "new")))));
}

TEST_P(AddComponentTest, NullRemoves)
{
    const auto materials = palette(targetWith(component("a", "own")));
    EXPECT_FALSE(add(*materials, nullptr, nullptr));
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(targetWith(QString()))));
}

TEST_P(AddComponentTest, TakesTheTargetsOwnComponent)
{
    const QString empty = QStringLiteral("<%1/>").arg(GetParam().element);
    const auto materials = palette(targetWith(empty));
    int flag = 0;
    RVOpenNode* const added = add(*materials, firstComponent(*materials), &flag);
    EXPECT_EQ(added, firstComponent(*materials));
    EXPECT_EQ(flag, GetParam().emptyEqualsItself ? 1 : 0);
    EXPECT_EQ(domChildNames(materials->GetMaterial("wall")->GetDomNode()),
              QStringList(GetParam().element));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST_P(AddComponentTest, AddressesTheFirstMaterialOfTheLinkName)
{
    const auto materials = palette(targetWith(QString()) + targetWith(QString()));
    add(*materials, incoming("b", "new").get(), nullptr);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml(targetWith(component("b", "new")) + targetWith(QString()))));
}

TEST_P(AddComponentTest, AddsNothingToATargetWhoseArchiveCannotBeOpened)
{
    const auto materials = palette(stoneReference("material"));
    materials->GetFirstMaterial()->SetLinkName("wall");
    const QString before = textOf(*materials);
    EXPECT_FALSE(add(*materials, incoming("b", "new").get(), nullptr));
    EXPECT_EQ(textOf(*materials), before);
}

/// Finishes in the reset state

const QString s_resetFinish = QStringLiteral("<finish refname='b' reset='1'/>");
const QString s_resetTransparency =
    QStringLiteral("<transparency>"
                   "<param name='Colour' type='shader' val='colour'>"
                   "<plainColour enabled='1'>"
                   "<param name='Colour' type='colour' val='1 1 1'/>"
                   "</plainColour></param>"
                   "<param name='InvertMask' type='boolean' val='0'/>"
                   "</transparency>");

TEST(MaterialRepositoryTest, AResetFinishReplacesTheTransparencyByAnOpaqueOne)
{
    const auto materials = palette("<material>" + transparencyXml("1") + "</material>");
    materials->AddFinish(bindRoot<Finish>(s_resetFinish).get(), QString(), nullptr);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml(materialXml(s_resetTransparency + s_resetFinish))));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AResetFinishGivesAnOpaqueTransparencyWhereThereIsNone)
{
    const auto materials = palette("<material/>");
    materials->AddFinish(bindRoot<Finish>(s_resetFinish).get(), QString(), nullptr);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml(materialXml(s_resetTransparency + s_resetFinish))));
}

TEST(MaterialRepositoryTest, AResetFinishThatMatchesLeavesTheTransparency)
{
    const QString content = s_resetFinish + transparencyXml("1");
    const auto materials = palette(materialXml(content));
    materials->AddFinish(bindRoot<Finish>(s_resetFinish).get(), QString(), nullptr);
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(materialXml(content))));
}

TEST(MaterialRepositoryTest, AFinishThatIsNotResetLeavesTheTransparency)
{
    const auto materials = palette(materialXml(transparencyXml("1")));
    materials->AddFinish(bindRoot<Finish>("<finish/>").get(), QString(), nullptr);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml(materialXml(transparencyXml("1") + "<finish/>"))));
}

/// Base materials

TEST(MaterialRepositoryTest, AddingABaseMaterialReplacesTheOldOneByACopy)
{
    const auto materials = palette("<material linkname='wall'><material name='old'/></material>");
    const auto source = bindRoot<Material>("<material name='new'><colour/></material>");
    const Material* const added = materials->AddBaseMaterial(source.get(), "wall");
    ASSERT_TRUE(added);
    EXPECT_NE(added, source.get());
    EXPECT_EQ(added, materials->GetMaterial("wall")->GetBaseMaterial());
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml("<material linkname='wall'>"
                                "<material name='new'><colour/></material></material>")));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AddingANullBaseMaterialRemovesTheOldOne)
{
    const auto materials = palette("<material linkname='wall'><material/></material>");
    EXPECT_FALSE(materials->AddBaseMaterial(nullptr, "wall"));
    EXPECT_EQ(textOf(*materials), textOf(paletteXml("<material linkname='wall'/>")));
}

TEST(MaterialRepositoryTest, AddingABaseMaterialForAnUnknownLinkNameChangesNothing)
{
    const auto materials = palette("<material linkname='wall'/>");
    EXPECT_FALSE(materials->AddBaseMaterial(bindRoot<Material>("<material/>").get(), "floor"));
    EXPECT_EQ(textOf(*materials), textOf(paletteXml("<material linkname='wall'/>")));
}

TEST(MaterialRepositoryTest, AddingTheOwnBaseMaterialLeavesEqualContent)
{
    const char* const target =
        "<material linkname='wall'><material name='base'><colour/></material></material>";
    const auto materials = palette(target);
    Material* const own = materials->GetMaterial("wall")->GetBaseMaterial();
    EXPECT_TRUE(materials->AddBaseMaterial(own, "wall"));
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(target)));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(MaterialRepositoryTest, AMaterialCanBeItsOwnBaseMaterial)
{
    const auto materials = palette("<material linkname='wall'><colour/></material>");
    materials->AddBaseMaterial(materials->GetMaterial("wall"), "wall");
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml("<material linkname='wall'><colour/>"
                                "<material linkname='wall'><colour/></material></material>")));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

/// Applying materials

TEST(ApplyMaterialTest, GivesTheTargetTheComponentsAndNamesOfTheSource)
{
    const auto materials =
        palette(materialXml(colourXml("0 1 0") + "<finish refname='old'/>", "linkname='wall'"));
    const QString components =
        colourXml("1 0 0") + "<finish refname='new'/>" + transparencyXml("1") + bumpXml("2");
    const auto source =
        bindRoot<Material>(materialXml(components, "linkname='other' refname='stone' subcat='a'"));
    int flag = 1;
    EXPECT_EQ(materials->ApplyMaterial(source.get(), "wall", &flag),
              materials->GetMaterial("wall"));
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(
        textOf(*materials),
        textOf(paletteXml(materialXml(components, "linkname='wall' refname='stone' subcat='a'"))));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(ApplyMaterialTest, AddsTheComponentsInTheirOwnOrder)
{
    const auto materials = palette("<material/>");
    const auto source =
        bindRoot<Material>("<material><bump/><transparency/><finish/><colour/></material>");
    materials->ApplyMaterial(source.get(), QString(), nullptr);
    EXPECT_EQ(domChildNames(materials->GetFirstMaterial()->GetDomNode()),
              QStringList({"colour", "finish", "transparency", "bump"}));
}

TEST(ApplyMaterialTest, RemovesWhatTheSourceLacks)
{
    const auto materials = palette(materialXml(
        colourXml("0 1 0") + "<finish/>" + transparencyXml("1") + bumpXml("1"), "linkname='wall'"));
    materials->ApplyMaterial(bindRoot<Material>("<material refname='a'/>").get(), "wall", nullptr);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml("<material linkname='wall' refname='a' subcat=''/>")));
}

TEST(ApplyMaterialTest, KeepsTheBaseMaterialOfTheTarget)
{
    const auto materials = palette("<material linkname='wall'><material name='own'/></material>");
    const auto source =
        bindRoot<Material>("<material refname='a'><material name='other'/></material>");
    materials->ApplyMaterial(source.get(), "wall", nullptr);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml("<material linkname='wall' refname='a' subcat=''>"
                                "<material name='own'/></material>")));
}

TEST(ApplyMaterialTest, LeavesTheSourceAsItIs)
{
    const auto materials = palette("<material linkname='wall'/>");
    const QString xml = materialXml(colourXml("1 0 0") + bumpXml("1"), "refname='a'");
    const auto source = bindRoot<Material>(xml);
    materials->ApplyMaterial(source.get(), "wall", nullptr);
    EXPECT_EQ(textOf(*source), textOf(xml));
}

TEST(ApplyMaterialTest, AnEqualMaterialChangesNothing)
{
    const QString target =
        "<material linkname='wall' refname='a' subcat='own'><finish refname='own'/></material>";
    const auto materials = palette(target);
    const auto source = bindRoot<Material>("<material refname='a' subcat='new'><bump/></material>");
    int flag = 0;
    EXPECT_EQ(materials->ApplyMaterial(source.get(), "wall", &flag),
              materials->GetMaterial("wall"));
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(target)));
}

TEST(ApplyMaterialTest, BaseMaterialsDoNotMakeADifference)
{
    const auto materials = palette("<material linkname='wall'><finish/></material>");
    const auto source = bindRoot<Material>("<material><finish/><material/></material>");
    int flag = 0;
    materials->ApplyMaterial(source.get(), "wall", &flag);
    EXPECT_EQ(flag, 1);
}

TEST(ApplyMaterialTest, TheTargetItselfChangesNothing)
{
    // An empty colour is not equal to itself.
    const auto materials = palette("<material linkname='wall'><colour/></material>");
    Material* const target = materials->GetMaterial("wall");
    int flag = 0;
    EXPECT_EQ(materials->ApplyMaterial(target, "wall", &flag), target);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml("<material linkname='wall'><colour/></material>")));
}

TEST(ApplyMaterialTest, AnotherObjectForTheTargetsElementChangesNothing)
{
    const auto materials = palette("<material linkname='wall'><colour/></material>");
    Material* const target = materials->GetMaterial("wall");
    Material* const view = bind<Material>(target->GetDomNode()).release();
    int flag = 0;
    EXPECT_EQ(materials->ApplyMaterial(view, "wall", &flag), target);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml("<material linkname='wall'><colour/></material>")));
    delete view;
}

TEST(ApplyMaterialTest, TheBaseMaterialOfTheTargetCanBeTheSource)
{
    const auto materials = palette("<material linkname='wall'><finish name='own'/>"
                                   "<material refname='base'><finish name='new'/></material>"
                                   "</material>");
    materials->ApplyMaterial(materials->GetMaterial("wall")->GetBaseMaterial(), "wall", nullptr);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml("<material linkname='wall' refname='base' subcat=''>"
                                "<material refname='base'><finish name='new'/></material>"
                                "<finish name='new'/></material>")));
    EXPECT_TRUE(mirrorsWholeDom(materials.get()));
}

TEST(ApplyMaterialTest, NullGivesNullAndChangesNothing)
{
    const QString target = materialXml(colourXml("1 0 0"), "linkname='wall'");
    const auto materials = palette(target);
    EXPECT_FALSE(materials->ApplyMaterial(nullptr, "wall", nullptr));
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(target)));
}

TEST(ApplyMaterialTest, AnUnknownLinkNameGivesNullAndClearsTheFlag)
{
    const auto materials = palette("<material linkname='wall'/>");
    int flag = 1;
    EXPECT_FALSE(materials->ApplyMaterial(bindRoot<Material>("<material/>").get(), "floor", &flag));
    EXPECT_EQ(flag, 0);
}

TEST(ApplyMaterialTest, AResetFinishMakesTheTargetOpaque)
{
    const auto materials = palette("<material/>");
    materials->ApplyMaterial(bindRoot<Material>(materialXml(s_resetFinish)).get(), QString(),
                             nullptr);
    EXPECT_EQ(textOf(*materials), textOf(paletteXml(materialXml(s_resetTransparency + s_resetFinish,
                                                                "refname='' subcat=''"))));
}

TEST(ApplyMaterialTest, TheTransparencyOfTheSourceReplacesTheOneOfItsResetFinish)
{
    const auto materials = palette("<material/>");
    const auto source = bindRoot<Material>(materialXml(s_resetFinish + transparencyXml("1")));
    materials->ApplyMaterial(source.get(), QString(), nullptr);
    EXPECT_EQ(textOf(*materials),
              textOf(paletteXml(
                  materialXml(s_resetFinish + transparencyXml("1"), "refname='' subcat=''"))));
}

TEST(ApplyMaterialTest, WhatWasAppliedOutlivesTheDocumentOfTheSource)
{
    const auto materials = palette("<material linkname='wall'/>");
    {
        const auto source = bindRoot<Material>(materialXml(bumpXml("2"), "refname='a'"));
        materials->ApplyMaterial(source.get(), "wall", nullptr);
    }
    float height = 0.0f;
    materials->GetMaterial("wall")->GetBump(0)->GetHeight(&height);
    EXPECT_EQ(height, 2.0f);
    EXPECT_EQ(materials->GetMaterial("wall")->GetBump(0)->GetDomNode().ownerDocument(),
              materials->GetDomNode().ownerDocument());
}

} // namespace

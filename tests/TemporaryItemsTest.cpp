// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MaterialFixtures.h"

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/TemporaryItems.h>
#include <rvopen/Transparency.h>

#include <QFile>

#include <functional>

namespace {

using namespace rvopen;
using namespace rvopen::test;

TEST(TemporaryItemsTest, StartsWithNothing)
{
    const TemporaryItems items;
    EXPECT_FALSE(items.GetMaterial());
    EXPECT_FALSE(items.GetColour());
    EXPECT_FALSE(items.GetFinish());
    EXPECT_FALSE(items.GetTransparency());
    EXPECT_FALSE(items.GetBump());
    EXPECT_EQ(items.GetRefname(), QString());
    EXPECT_EQ(items.GetType(), TemporaryItems::ComponentNone);
    EXPECT_TRUE(items.IsEmpty());
}

TEST(TemporaryItemsTest, TheNumbersOfTheTypesAreFixed)
{
    EXPECT_EQ(
        std::vector<int>({TemporaryItems::ComponentNone, TemporaryItems::ComponentMaterial,
                          TemporaryItems::ComponentColour, TemporaryItems::ComponentFinish,
                          TemporaryItems::ComponentTransparency, TemporaryItems::ComponentBump}),
        std::vector<int>({0, 1, 2, 3, 4, 5}));
}

TEST(TemporaryItemsTest, AnyNumberIsKeptAsType)
{
    TemporaryItems items;
    items.SetType(static_cast<TemporaryItems::ComponentType>(-77));
    EXPECT_EQ(static_cast<int>(items.GetType()), -77);
}

TEST(TemporaryItemsTest, KeepsTheReferenceName)
{
    TemporaryItems items;
    items.SetRefName("stone");
    EXPECT_EQ(items.GetRefname(), "stone");
}

TEST(TemporaryItemsTest, IsNotEmptyWithAReferenceName)
{
    TemporaryItems items;
    items.SetRefName("stone");
    EXPECT_FALSE(items.IsEmpty());
}

struct Item {
    const char* element;
    bool makesNonEmpty;
    /// Whether setting the held item again keeps that very object.
    bool keepsOwn;
    std::function<RVOpenNode*(const TemporaryItems&)> get;
    std::function<void(TemporaryItems&, RVOpenNode*)> set;
    std::function<std::unique_ptr<RVOpenNode>(const QString&)> bindItem;
};

void PrintTo(const Item& item, std::ostream* out)
{
    *out << item.element;
}

template <typename Class>
Item itemOf(const char* element, bool makesNonEmpty, bool keepsOwn,
            Class* (TemporaryItems::*get)() const, void (TemporaryItems::*set)(Class*))
{
    return {element,
            makesNonEmpty,
            keepsOwn,
            [get](const TemporaryItems& items) { return (items.*get)(); },
            [set](TemporaryItems& items, RVOpenNode* node) {
                (items.*set)(dynamic_cast<Class*>(node));
            },
            [](const QString& xml) { return bindRoot<Class>(xml); }};
}

const Item s_items[] = {
    itemOf("material", false, false, &TemporaryItems::GetMaterial, &TemporaryItems::SetMaterial),
    itemOf("colour", true, true, &TemporaryItems::GetColour, &TemporaryItems::SetColour),
    itemOf("finish", true, true, &TemporaryItems::GetFinish, &TemporaryItems::SetFinish),
    itemOf("transparency", true, true, &TemporaryItems::GetTransparency,
           &TemporaryItems::SetTransparency),
    itemOf("bump", true, true, &TemporaryItems::GetBump, &TemporaryItems::SetBump),
};

class TemporaryItemTest : public testing::TestWithParam<Item> {
protected:
    static QString xml(const QString& name)
    {
        return QStringLiteral("<%1 name='%2'><part/></%1>").arg(GetParam().element, name);
    }
    static std::unique_ptr<RVOpenNode> source(const QString& name)
    {
        return GetParam().bindItem(xml(name));
    }
    static RVOpenNode* get(const TemporaryItems& items)
    {
        return GetParam().get(items);
    }
    static void set(TemporaryItems& items, RVOpenNode* node)
    {
        GetParam().set(items, node);
    }
};

INSTANTIATE_TEST_SUITE_P(Kinds, TemporaryItemTest, testing::ValuesIn(s_items),
                         [](const auto& kind) { return std::string(kind.param.element); });

TEST_P(TemporaryItemTest, IsAnUnattachedCopy)
{
    TemporaryItems items;
    const auto original = source("a");
    set(items, original.get());
    ASSERT_TRUE(get(items));
    EXPECT_NE(get(items), original.get());
    EXPECT_EQ(textOf(*get(items)), textOf(xml("a")));
    EXPECT_TRUE(get(items)->GetDomNode().parentNode().isNull());
}

TEST_P(TemporaryItemTest, IsNotTouchedByChangesOfTheOriginal)
{
    TemporaryItems items;
    const auto original = source("a");
    set(items, original.get());
    original->SetName("changed");
    EXPECT_EQ(get(items)->GetName(), "a");
}

TEST_P(TemporaryItemTest, OutlivesTheOriginalAndItsDocument)
{
    TemporaryItems items;
    set(items, source("a").get());
    EXPECT_EQ(textOf(*get(items)), textOf(xml("a")));

    // Copied again and added to another document, as by a host that pastes.
    TemporaryItems others;
    set(others, get(items));
    set(items, nullptr);
    RVOpenNode* const pasted = new RVOpenNode(get(others));
    set(others, nullptr);
    const auto target = bindRoot<RVOpenNode>("<target/>");
    target->AddNode(pasted, true);
    EXPECT_EQ(textOf(*target), textOf("<target>" + xml("a") + "</target>"));
}

TEST_P(TemporaryItemTest, IsReplacedByTheNextOne)
{
    TemporaryItems items;
    set(items, source("a").get());
    set(items, source("b").get());
    EXPECT_EQ(get(items)->GetName(), "b");
}

TEST_P(TemporaryItemTest, IsClearedByNull)
{
    TemporaryItems items;
    set(items, source("a").get());
    set(items, nullptr);
    EXPECT_FALSE(get(items));
    EXPECT_TRUE(items.IsEmpty());
}

TEST_P(TemporaryItemTest, LeavesTheOthersAlone)
{
    TemporaryItems items;
    for (const Item& item : s_items)
        item.set(items, item.bindItem(QStringLiteral("<%1/>").arg(item.element)).get());
    items.SetRefName("stone");
    items.SetType(TemporaryItems::ComponentBump);
    set(items, nullptr);
    for (const Item& item : s_items)
        EXPECT_EQ(item.get(items) != nullptr, item.element != GetParam().element) << item.element;
    EXPECT_EQ(items.GetRefname(), "stone");
    EXPECT_EQ(items.GetType(), TemporaryItems::ComponentBump);
}

TEST_P(TemporaryItemTest, CountsUnlessItIsAMaterial)
{
    TemporaryItems items;
    set(items, source("a").get());
    EXPECT_EQ(items.IsEmpty(), !GetParam().makesNonEmpty);
}

TEST_P(TemporaryItemTest, CanBeSetToItself)
{
    TemporaryItems items;
    set(items, source("a").get());
    RVOpenNode* const held = get(items);
    const QDomNode element = held->GetDomNode();
    set(items, held);
    EXPECT_EQ(get(items)->GetDomNode() == element, GetParam().keepsOwn);
    EXPECT_EQ(textOf(*get(items)), textOf(xml("a")));
}

TEST_P(TemporaryItemTest, IsHeldByCopiesInAnyOrder)
{
    for (const bool copyFirst : {true, false}) {
        auto items = std::make_unique<TemporaryItems>();
        set(*items, source("a").get());
        RVOpenNode* const held = get(*items);
        auto copy = std::make_unique<TemporaryItems>(*items);
        (copyFirst ? copy : items).reset();
        EXPECT_EQ(get(copyFirst ? *items : *copy), held);
        EXPECT_EQ(held->GetName(), "a");
    }
}

TEST_P(TemporaryItemTest, IsReplacedInTheCopyAlone)
{
    TemporaryItems items;
    set(items, source("a").get());
    TemporaryItems copy(items);
    set(copy, source("b").get());
    EXPECT_EQ(get(items)->GetName(), "a");
    EXPECT_EQ(get(copy)->GetName(), "b");
}

TEST(TemporaryItemsTest, AMaterialIsHeldWithItsComponentsAndWithoutItsBaseMaterial)
{
    TemporaryItems items;
    const auto source = bindRoot<Material>(
        materialXml("<material name='base'>" + bumpXml("1") + "</material>" + colourXml("1 0 0")));
    items.SetMaterial(source.get());
    EXPECT_FALSE(items.GetMaterial()->GetBaseMaterial());
    EXPECT_EQ(textOf(*items.GetMaterial()), textOf(materialXml(colourXml("1 0 0"))));
    EXPECT_TRUE(source->GetBaseMaterial());
}

TEST(TemporaryItemsTest, HoldingAMaterialLeavesTheArchiveThatItStandsForAlone)
{
    const Stone archive("<materials><material/></materials>");
    const auto source = bindRoot<Material>(stoneReference("material"));
    TemporaryItems items;
    items.SetMaterial(source.get());
    EXPECT_EQ(textOf(*archive.root), "<materials><material/></materials>");
}

TEST(TemporaryItemsTest, HoldingAMaterialLeavesTheFileOfABaseMaterialThatStandsForAnArchive)
{
    const Stone archive("<materials/>");
    const auto source = bindRoot<Material>(materialXml(stoneReference("material")));
    TemporaryItems items;
    items.SetMaterial(source.get());
    EXPECT_TRUE(QFile::exists(archive.fileName));
    EXPECT_FALSE(items.GetMaterial()->GetBaseMaterial());
}

TEST(TemporaryItemsTest, ACopyHoldsTheSameItems)
{
    TemporaryItems items;
    items.SetColour(bindRoot<Colour>("<colour/>").get());
    items.SetRefName("stone");
    items.SetType(TemporaryItems::ComponentColour);

    TemporaryItems copy(items);
    EXPECT_EQ(copy.GetColour(), items.GetColour());
    EXPECT_EQ(copy.GetRefname(), "stone");
    EXPECT_EQ(copy.GetType(), TemporaryItems::ComponentColour);
}

TEST(TemporaryItemsTest, AnAssignedOneHoldsTheSameItems)
{
    TemporaryItems items;
    items.SetBump(bindRoot<Bump>("<bump/>").get());
    TemporaryItems other;
    other = items;
    EXPECT_EQ(other.GetBump(), items.GetBump());
}

} // namespace

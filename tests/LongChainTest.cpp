// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include "TestSupport.h"

#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>

#include <functional>
#include <random>

namespace rvopen::test {
namespace {

constexpr int Length = 100;

QString numbered(int number)
{
    return QStringLiteral("n%1").arg(number);
}

QStringList numbers(int first, int end)
{
    QStringList names;
    for (int i = first; i < end; ++i)
        names << numbered(i);
    return names;
}

/// A parent with so many children, n0 to n99, that nobody walks along them each time.
struct LongChain {
    QDomDocument document = parse(QStringLiteral("<root><parent/><other/></root>"));
    std::unique_ptr<RVOpenNode> parent =
        bind(document.documentElement().firstChildElement(QStringLiteral("parent")));
    std::vector<RVOpenNode*> nodes;

    LongChain()
    {
        for (int i = 0; i < Length; ++i) {
            nodes.push_back(made(numbered(i)));
            parent->AddNode(nodes.back(), false);
        }
    }

    RVOpenNode* made(const QString& name)
    {
        auto* const node = new RVOpenNode();
        node->SetDomNode(document.createElement(name));
        return node;
    }

    void append(const QString& name)
    {
        parent->AddNode(made(name), false);
    }

    RVOpenNode* last() const
    {
        return nodes.back();
    }

    QStringList objects() const
    {
        QStringList names;
        for (RVOpenNode* node = parent->GetChild(1, 1); node; node = node->GetNext(1))
            names << node->GetNodeName();
        return names;
    }

    QStringList elements() const
    {
        return domChildNames(parent->GetDomNode());
    }
};

TEST(LongChain, ChildrenStandInTheOrderInWhichTheyWereAppended)
{
    const LongChain chain;
    EXPECT_EQ(chain.objects(), numbers(0, Length));
}

TEST(LongChain, NodeIsAppendedBehindWhatTheDocumentGotByHand)
{
    LongChain chain;
    QDomNode element = chain.parent->GetDomNode();
    element.appendChild(chain.document.createElement(QStringLiteral("byHand")));
    chain.append(QStringLiteral("new"));
    EXPECT_EQ(chain.objects().mid(Length),
              QStringList({QStringLiteral("byHand"), QStringLiteral("new")}));
}

TEST(LongChain, NodeIsAppendedWhereTheLastWasDetachedAndDeleted)
{
    LongChain chain;
    chain.parent->DetachNode(chain.last(), false);
    delete chain.last();
    chain.append(QStringLiteral("new"));
    EXPECT_EQ(chain.objects(), numbers(0, Length - 1) << QStringLiteral("new"));
}

TEST(LongChain, NodeIsAppendedWhereTheLastWasUnlinkedAndDeleted)
{
    LongChain chain;
    chain.nodes[Length - 2]->SetNext(nullptr);
    delete chain.last();
    chain.append(QStringLiteral("new"));
    EXPECT_EQ(chain.objects(), numbers(0, Length - 1) << QStringLiteral("new"));
}

TEST(LongChain, NodeIsAppendedWhereSetNextCutTheChain)
{
    LongChain chain;
    chain.nodes[50]->SetNext(nullptr);
    RVOpenNode* const added = chain.made(QStringLiteral("new"));
    chain.parent->AddNode(added, false);
    EXPECT_EQ(chain.parent->GetChildPos(added), Length);
    delete chain.nodes[51];
}

TEST(LongChain, NodeIsAppendedBehindTheLastOneAfterAnAssignment)
{
    LongChain chain;
    const RVOpenNode blank;
    *chain.nodes[50] = blank;
    RVOpenNode* const added = chain.made(QStringLiteral("new"));
    chain.parent->AddNode(added, false);
    EXPECT_EQ(chain.last()->GetNext(0), added);
    EXPECT_EQ(chain.parent->GetChildPos(added), Length);
}

TEST(LongChain, NodeIsAppendedAfterAShallowCopyTookTheLastAway)
{
    LongChain chain;
    RVOpenNode copy(*chain.parent);
    copy.DetachNode(chain.last(), false);
    copy = RVOpenNode();
    delete chain.last();
    chain.append(QStringLiteral("new"));
    EXPECT_EQ(chain.objects(), numbers(0, Length - 1) << QStringLiteral("new"));
}

TEST(LongChain, NodeIsAppendedAfterOneWasPutInFront)
{
    LongChain chain;
    chain.parent->InsertNode(chain.made(QStringLiteral("front")), 0);
    chain.append(QStringLiteral("new"));
    EXPECT_EQ(chain.objects(), QStringList(QStringLiteral("front"))
                                   << numbers(0, Length) << QStringLiteral("new"));
}

TEST(LongChain, LastOnesAreDetachedOneByOne)
{
    LongChain chain;
    for (int i = Length - 1; i >= 10; --i) {
        chain.parent->DetachNode(chain.nodes[static_cast<std::size_t>(i)], false);
        delete chain.nodes[static_cast<std::size_t>(i)];
    }
    EXPECT_EQ(chain.objects(), numbers(0, 10));
}

TEST(LongChain, NodeIsDetachedFromWhereSetNextPutIt)
{
    LongChain chain;
    chain.nodes[Length - 2]->SetNext(nullptr);
    chain.last()->SetNext(chain.nodes[1]);
    chain.nodes[0]->SetNext(chain.last());
    chain.parent->DetachNode(chain.last(), false);
    delete chain.last();
    EXPECT_EQ(chain.objects(), numbers(0, Length - 1));
}

TEST(LongChain, OtherParentDoesNotUnlinkANodeThatMovedUnderItsElement)
{
    LongChain chain;
    const auto other = bind(chain.document.documentElement().lastChild());
    other->AddNode(chain.made(QStringLiteral("own")), false);
    chain.last()->SetParent(other.get());
    other->DetachNode(chain.last(), false);
    EXPECT_EQ(chain.nodes[Length - 2]->GetNext(0), chain.last());
}

TEST(LongChain, AnyMixOfOperationsKeepsObjectsAndElementsTheSame)
{
    LongChain chain;
    std::mt19937 random(20260);
    int made = 0;
    for (int i = 0; i < 3000; ++i) {
        const int count = static_cast<int>(chain.objects().size());
        RVOpenNode* node = chain.parent->GetChild(1, 1);
        for (int steps = count > 0 ? static_cast<int>(random()) % count : 0; steps > 0; --steps)
            node = node->GetNext(1);
        const QString name = QStringLiteral("x%1").arg(++made);
        switch (count < 50 ? 0 : random() % 6) {
        case 0:
        case 1:
            chain.append(name);
            break;
        case 2:
            chain.parent->InsertNode(chain.made(name), static_cast<int>(random() % 120));
            break;
        case 3:
            chain.parent->DeleteNode(node);
            break;
        case 4:
            chain.parent->DetachNode(node, false);
            delete node;
            break;
        default:
            chain.parent->ReplaceNode(node, chain.made(name));
        }
        ASSERT_EQ(chain.objects(), chain.elements()) << "after operation " << i;
    }
}

/// A palette with as many materials.
struct LongPalette {
    QDomDocument document = parse(QStringLiteral("<materialRepository/>"));
    std::unique_ptr<MaterialRepository> palette =
        bind<MaterialRepository>(document.documentElement());

    LongPalette()
    {
        for (int i = 0; i < Length; ++i)
            add(numbered(i));
    }

    void add(const QString& linkName)
    {
        Material* const material = palette->CreateMaterial();
        material->SetLinkName(linkName);
        palette->AddMaterial(material);
    }

    QStringList linkNames() const
    {
        QStringList names;
        for (Material* m = palette->GetFirstMaterial(); m; m = m->GetNext())
            names << m->GetLinkName();
        return names;
    }
};

TEST(LongChain, MaterialThatIsInThePaletteMovesToItsEnd)
{
    LongPalette materials;
    materials.palette->AddMaterial(materials.palette->GetMaterial(numbered(50)));
    EXPECT_EQ(materials.linkNames(),
              numbers(0, 50) + numbers(51, Length) + QStringList(numbered(50)));
}

TEST(LongChain, LastMaterialOfThePaletteIsNotAddedAgain)
{
    LongPalette materials;
    materials.palette->AddMaterial(materials.palette->GetMaterial(numbered(Length - 1)));
    EXPECT_EQ(materials.linkNames(), numbers(0, Length));
}

TEST(LongChain, MaterialIsAddedWhereTheLastWasRemoved)
{
    LongPalette materials;
    materials.palette->RemoveMaterial(materials.palette->GetMaterial(numbered(Length - 1)));
    materials.add(QStringLiteral("new"));
    EXPECT_EQ(materials.linkNames(), numbers(0, Length - 1) << QStringLiteral("new"));
}

TEST(LongChain, MaterialIsAddedWhereTheFirstWasRemoved)
{
    LongPalette materials;
    materials.palette->RemoveMaterial(materials.palette->GetFirstMaterial());
    materials.add(QStringLiteral("new"));
    EXPECT_EQ(materials.linkNames(), numbers(1, Length) << QStringLiteral("new"));
}

} // namespace
} // namespace rvopen::test

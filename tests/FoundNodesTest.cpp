// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>

#include <rvopen/Colour.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>

#include "ManagerSupport.h"

#include <QDomElement>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace rvopen {
namespace {

/// As an archive of colours in folders, some of which have a name in common.
QString archiveOf(int presets)
{
    QString text = QStringLiteral("<archive><colours>");
    for (int i = 0; i < presets; ++i) {
        if (i % 5 == 0)
            text += i == 0 ? "<dir name='d'>" : "</dir><dir name='d'>";
        text += QStringLiteral("<colour refname='c%1' subcat='s%2'><param refname='p%1'/></colour>")
                    .arg(i % (presets - 3))
                    .arg(i % 2);
    }
    return text + "</dir></colours></archive>";
}

QString paletteOf(int materials)
{
    QString text = QStringLiteral("<snapRoot><snapshot name='CurrSnapshot'><materialRepository>");
    for (int i = 0; i < materials; ++i)
        text += QStringLiteral("<material linkname='m%1' refname='r%1'/>").arg(i % (materials - 2));
    return text + "</materialRepository></snapshot></snapRoot>";
}

class FoundPresetsTest : public ::testing::Test {
protected:
    FoundPresetsTest()
    {
        m_folders.write("Mine", archiveOf(20));
        m_manager.SetArchiveNode("Mine.rvx", "Custom");
    }

    RVOpenNode* section()
    {
        return m_manager.GetRVOpenNodeFromType("colours", false);
    }
    RVOpenNode* find(const QString& refName, const QString& subcat = QString())
    {
        return m_manager.FindRVOpenNodeFromType("colours", subcat, refName);
    }
    /// What find() is to answer: the first in the order of the objects.
    static RVOpenNode* first(RVOpenNode* node, const QString& refName, const QString& subcat)
    {
        for (RVOpenNode* child = node->GetChild(1, 1); child; child = child->GetNext(1)) {
            if (child->GetRefName() == refName &&
                (subcat.isEmpty() || child->GetSubCat() == subcat))
                return child;
            if (RVOpenNode* const found = first(child, refName, subcat))
                return found;
        }
        return nullptr;
    }
    void collect(RVOpenNode* node, std::vector<RVOpenNode*>& nodes)
    {
        for (RVOpenNode* child = node->GetChild(1, 1); child; child = child->GetNext(1)) {
            nodes.push_back(child);
            collect(child, nodes);
        }
    }
    std::vector<RVOpenNode*> descendants()
    {
        std::vector<RVOpenNode*> nodes;
        collect(section(), nodes);
        return nodes;
    }

    test::ArchiveFolders m_folders;
    RVOpenManager m_manager;
};

TEST_F(FoundPresetsTest, AreTheFirstWhateverIsChanged)
{
    std::mt19937 random(20261123);
    const auto below = [&random](std::size_t count) { return int(random() % count); };
    int found = 0;
    for (int step = 0; step < 4000; ++step) {
        const std::vector<RVOpenNode*> nodes = descendants();
        RVOpenNode* const node = nodes[std::size_t(below(nodes.size()))];
        RVOpenNode* const parent = node->GetParent();
        QDomElement element = node->GetDomNode().toElement();
        const QString name = QStringLiteral("c%1").arg(below(24));
        switch (below(12)) {
        case 0:
            node->SetRefName(name);
            break;
        case 1:
            node->SetAttributeString("refname", name);
            break;
        case 2:
            node->SetSubCat(QStringLiteral("s%1").arg(below(3)));
            break;
        case 3:
            // In the DOM alone, without a name that another has.
            element.setAttribute("refname", QStringLiteral("u%1").arg(step));
            break;
        case 4:
            element.removeAttribute("refname");
            break;
        case 5: {
            auto* const copy = new Colour(static_cast<Colour*>(nullptr));
            QDomElement made = element.ownerDocument().createElement("colour");
            made.setAttribute("refname", name);
            copy->SetDomNode(made);
            if (below(2) == 0)
                section()->GetChild(1, 1)->InsertNode(copy, below(4));
            else
                section()->GetChild(1, 1)->AddNode(copy, true);
            break;
        }
        case 6:
            if (nodes.size() > 30 && node->GetNodeName() == "colour")
                parent->DeleteNode(node);
            break;
        case 7:
            if (node->GetNodeName() == "colour") {
                parent->DetachNode(node, true);
                section()->GetChild(1, 1)->InsertNode(node, 0);
            }
            break;
        default:
            break;
        }
        for (int i = 0; i < 3; ++i) {
            const QString wanted = QStringLiteral("%1%2").arg(below(5) ? "c" : "p").arg(below(24));
            const QString subcat = below(3) ? QString() : QStringLiteral("s%1").arg(below(2));
            RVOpenNode* const expected = first(section(), wanted, subcat);
            ASSERT_EQ(find(wanted, subcat), expected) << step << ' ' << wanted.toStdString();
            found += expected ? 1 : 0;
        }
    }
    EXPECT_GT(found, 4000);
}

TEST_F(FoundPresetsTest, StandWhereTheyStoodInTheDocumentOrAreLookedForAgain)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(find("c7")->GetRefName(), "c7");
    QDomElement element = find("c7")->GetDomNode().toElement();
    element.setAttribute("refname", "other");
    EXPECT_EQ(find("c7"), nullptr);
    EXPECT_EQ(find("other")->GetDomNode(), element);
}

TEST_F(FoundPresetsTest, AreNotLookedForAgainWhereTheyWereReadMeanwhile)
{
    m_folders.write("Materials",
                    "<archive><materials><material refname='x' name='first'/>"
                    "<material refname='y'><colour refname='c'><diffuse><param name='Colour' "
                    "type='shader' val='colour'><plainColour><param name='Colour' type='colour' "
                    "val='1 0 0'/></plainColour></param></diffuse></colour><finish refname='f'>"
                    "<param name='roughness' type='float' val='1'/></finish></material>"
                    "<material refname='z' name='third'/></materials></archive>");
    m_manager.SetArchiveNode("Materials.rvx", "Custom");
    const auto find = [this](const QString& refName) {
        return m_manager.FindRVOpenNodeFromType("materials", QString(), refName);
    };
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(find("z")->GetName(), "third");
    auto* const material = dynamic_cast<Material*>(find("y"));
    ASSERT_NE(material, nullptr);
    float colour[3] = {};
    ASSERT_EQ(
        material->GetColour(0)->GetDiffuse()->GetColour()->GetPlainColour(0)->GetColour(colour),
        0U);
    ASSERT_NE(material->GetFinish()->GetParamHelper()->GetParam("roughness"), nullptr);

    // What only the DOM knows of.
    RVOpenNode* const first = find("x");
    first->GetDomNode().toElement().setAttribute("refname", "z");
    EXPECT_EQ(find("z")->GetName(), "third");
    first->SetRefName("z");
    EXPECT_EQ(find("z")->GetName(), "first");
}

TEST_F(FoundPresetsTest, AreNoneThatWereTakenOut)
{
    for (int i = 0; i < 3; ++i)
        ASSERT_NE(find("c7"), nullptr);
    const std::unique_ptr<RVOpenNode> preset(find("c7"));
    preset->GetParent()->DetachNode(preset.get(), true);
    EXPECT_EQ(find("c7"), nullptr);
    EXPECT_EQ(find("c8")->GetRefName(), "c8");
}

TEST_F(FoundPresetsTest, AreOfTheArchiveThatIsOpenNow)
{
    for (int i = 0; i < 3; ++i)
        ASSERT_NE(find("c7"), nullptr);
    GetDirectoryHandler()->CloseArchive(m_folders.full("Mine"));
    EXPECT_EQ(find("c7"), nullptr);
    m_folders.write("Mine",
                    "<archive><colours><colour refname='c7' name='new'/></colours></archive>");
    m_manager.SetArchiveNode("Mine.rvx", "Custom");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(find("c7")->GetName(), "new");
}

TEST_F(FoundPresetsTest, OfAnArchiveThatIsReferredToComeInTheirPlace)
{
    m_folders.write("Other", "<archive><colour refname='x' name='inside'/></archive>");
    m_folders.write("Mine2", "<archive><colours><colour refname='a'/>"
                             "<dir archiveFilename='Other' archiveType='Custom'/>"
                             "<colour refname='x' name='behind'/></colours></archive>");
    m_manager.SetArchiveNode("Mine2.rvx", "Custom");
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(find("x")->GetName(), "inside");
        EXPECT_EQ(find("a")->GetRefName(), "a");
    }
}

TEST_F(FoundPresetsTest, OfAnArchiveThatRefersToItselfAreFound)
{
    m_folders.write("Round", "<archive><colours><dir archiveFilename='Round' "
                             "archiveType='Custom'/><colour refname='x'/></colours></archive>");
    m_manager.SetArchiveNode("Round.rvx", "Custom");
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(find("x")->GetRefName(), "x");
        EXPECT_EQ(find("y"), nullptr);
    }
}

TEST(FoundMaterialsTest, AreTheFirstWhateverIsChanged)
{
    std::mt19937 random(7);
    const auto below = [&random](std::size_t count) { return int(random() % count); };
    RVOpenManager manager;
    ASSERT_TRUE(manager.LoadSnapShotDocFromString(paletteOf(12)));
    MaterialRepository* const palette = manager.GetCurrentSnapShot()->GetMaterialRepository();
    const auto materials = [palette] {
        std::vector<Material*> all;
        for (Material* m = palette->GetFirstMaterial(); m; m = m->GetNext())
            all.push_back(m);
        return all;
    };
    int found = 0;
    for (int step = 0; step < 3000; ++step) {
        const std::vector<Material*> all = materials();
        Material* const material = all[std::size_t(below(all.size()))];
        QDomElement element = material->GetDomNode().toElement();
        const QString name = QStringLiteral("m%1").arg(below(14));
        switch (below(9)) {
        case 0:
            material->SetLinkName(name);
            break;
        case 1: {
            Material* const made = palette->CreateMaterial();
            made->SetLinkName(name);
            palette->AddMaterial(made);
            break;
        }
        case 2:
            palette->AddMaterial(material);
            break;
        case 3:
            if (all.size() > 8)
                palette->RemoveMaterial(material);
            break;
        case 4:
            element.setAttribute("linkname", QStringLiteral("u%1").arg(step));
            break;
        case 5: {
            int isPresent = 0;
            palette->ApplyMaterial(material, name, &isPresent);
            break;
        }
        case 6: {
            Material* const made = palette->CreateMaterial();
            made->SetLinkName(name);
            palette->InsertNode(made, below(3));
            break;
        }
        default:
            break;
        }
        const QString wanted = QStringLiteral("m%1").arg(below(14));
        Material* expected = nullptr;
        for (Material* const one : materials()) {
            if (!expected && one->GetLinkName() == wanted)
                expected = one;
        }
        ASSERT_EQ(palette->GetMaterial(wanted), expected) << step;
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, 1000);
}

TEST(FoundMaterialsTest, AreNoneThatMovedToAnotherPalette)
{
    RVOpenManager manager;
    ASSERT_TRUE(manager.LoadSnapShotDocFromString(
        "<snapRoot><snapshots name='Model SnapShots'><snapshot name='s'><materialRepository/>"
        "</snapshot></snapshots><snapshot name='CurrSnapshot'><materialRepository>"
        "<material linkname='a'/><material linkname='b'/></materialRepository></snapshot>"
        "</snapRoot>"));
    MaterialRepository* const from = manager.GetCurrentSnapShot()->GetMaterialRepository();
    MaterialRepository* const to =
        manager.GetSnapShots()->GetFirstSnapShot()->GetMaterialRepository();
    for (int i = 0; i < 3; ++i)
        ASSERT_NE(from->GetMaterial("b"), nullptr);
    Material* const moved = from->GetMaterial("b");
    to->AddMaterial(moved);
    EXPECT_EQ(from->GetMaterial("b"), nullptr);
    EXPECT_EQ(to->GetMaterial("b"), moved);
}

} // namespace
} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "StarterSupport.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>
#include <rvopen/XMLUtils.h>

#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QPixmap>
#include <QSet>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The starter installation in data/install, and the sample models in data/snapshots.
namespace rvopen::test {
namespace {

struct Stock {
    const char* section;
    int least;
};

class StockTest : public StarterTest, public ::testing::WithParamInterface<Stock> {};

TEST_P(StockTest, HasPresetsToChooseFrom)
{
    const auto isOfKind = [](const Preset& preset) {
        return preset.section == QLatin1String(GetParam().section);
    };
    EXPECT_GE(std::count_if(presets().cbegin(), presets().cend(), isOfKind), GetParam().least);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, StockTest,
    ::testing::Values(Stock{"colours", 140}, Stock{"materials", 120}, Stock{"finishes", 30},
                      Stock{"transparencies", 12}, Stock{"bumps", 12}, Stock{"backgrounds", 40},
                      Stock{"schemes", 15}, Stock{"foregrounds", 5}, Stock{"cameras", 20},
                      Stock{"lenses", 40}, Stock{"aspectratios", 30}, Stock{"naturalLights", 50}),
    [](const ::testing::TestParamInfo<Stock>& stock) { return std::string(stock.param.section); });

TEST_F(StarterTest, PresetsAreNamedFiledAndDescribed)
{
    for (const Preset& preset : presets()) {
        EXPECT_FALSE(preset.node->GetName().isEmpty()) << preset.name();
        EXPECT_FALSE(preset.node->GetRefName().isEmpty()) << preset.node->GetName().toStdString();
        EXPECT_FALSE(preset.node->GetCat().isEmpty()) << preset.name();
        EXPECT_FALSE(preset.node->GetDescription().isEmpty()) << preset.name();
    }
}

TEST_F(StarterTest, PresetsStandWhereTheyMayBePlaced)
{
    for (const Preset& preset : presets())
        EXPECT_TRUE(RVOpenSchema::canAddNode(preset.node->GetParent(), preset.node))
            << preset.name();
}

TEST_F(StarterTest, EachPresetHasAPicture)
{
    for (const Preset& preset : presets())
        EXPECT_FALSE(XMLUtils().QPixmapFromRVOpenNode(preset.node, s_install).isNull())
            << preset.name();
}

TEST_F(StarterTest, NoTwoPresetsShareAPicture)
{
    QHash<QString, QString> owners;
    for (const Preset& preset : presets()) {
        XMLUtils utils;
        const QString picture =
            utils.ThumbPathFromRVOpenNode(preset.node) + '/' + utils.GetImageName(preset.node);
        EXPECT_FALSE(owners.contains(picture))
            << preset.name() << " and " << owners.value(picture).toStdString();
        owners.insert(picture, preset.node->GetRefName());
    }
}

TEST_F(StarterTest, MaterialsHaveAFinishAndACoatOrABody)
{
    for (const Preset& preset : presets()) {
        Material* const material = RVOpenSchema::isNodeMaterial(preset.node);
        if (!material)
            continue;
        EXPECT_TRUE(material->GetFinish()) << preset.name();
        EXPECT_TRUE(material->GetColour(0) || material->GetBaseMaterial()) << preset.name();
    }
}

TEST(SampleArchives, HaveDifferentReferenceNames)
{
    const OpenArchives open(filesBelow(s_data, {"*.rvx"}));
    QSet<QString> names;
    for (const Preset& preset : open.presets()) {
        EXPECT_FALSE(names.contains(preset.node->GetRefName())) << preset.name();
        names.insert(preset.node->GetRefName());
    }
}

class SampleFileTest : public ::testing::TestWithParam<std::string> {};

TEST_P(SampleFileTest, HasTheImageFilesThatItRefersTo)
{
    RVOpenManager manager;
    const QString file = QString::fromStdString(GetParam());
    const std::unique_ptr<RVOpenNode> root(manager.LoadArchive(file));
    QStringList textures;
    manager.FindRVOpenNodeTextures(root.get(), textures);
    for (const QString& texture : textures) {
        const QString path = QFileInfo(file).path() + '/' + texture;
        EXPECT_FALSE(QImage(PathToOpen(path)).isNull()) << path.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Data, SampleFileTest,
                         ::testing::ValuesIn(filesBelow(s_data, {"*.rvx", "*.xml"})));

class SampleModelTest : public ::testing::TestWithParam<std::string> {
protected:
    SampleModelTest()
    {
        EXPECT_TRUE(m_manager.LoadSnapShotDocFromFile(s_data + "/snapshots/" +
                                                      QString::fromStdString(GetParam()) + ".xml"));
    }

    void forEachSnapShot(const std::function<void(SnapShot*)>& visit)
    {
        for (SnapShot* snapShot = m_manager.GetSnapShots()->GetFirstSnapShot(); snapShot;
             snapShot = snapShot->GetNext())
            visit(snapShot);
    }

    RVOpenManager m_manager;
};

TEST_P(SampleModelTest, HasSeveralSnapShotsAndOneInWork)
{
    EXPECT_GE(m_manager.GetNumSnapShots(), 3);
    EXPECT_TRUE(m_manager.GetCurrentSnapShot());
}

TEST_P(SampleModelTest, HasAllThatAPictureNeeds)
{
    forEachSnapShot([](SnapShot* snapShot) {
        EXPECT_TRUE(snapShot->GetCamera());
        EXPECT_TRUE(snapShot->GetBackground());
        EXPECT_GE(snapShot->GetMaterialRepository()->GetNumMaterials(), 5U);
        EXPECT_TRUE(snapShot->GetRenderTargets()->GetFirstRenderTarget());
    });
}

TEST_P(SampleModelTest, HasThumbnails)
{
    forEachSnapShot([](SnapShot* snapShot) {
        snapShot->SetSnapShotPath(s_data + "/snapshots");
        EXPECT_FALSE(QPixmap(snapShot->GetThumbFilename()).isNull())
            << snapShot->GetName().toStdString();
    });
}

INSTANTIATE_TEST_SUITE_P(Models, SampleModelTest,
                         ::testing::Values("house", "product", "interior_old"));

} // namespace
} // namespace rvopen::test

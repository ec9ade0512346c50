// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Find.h>

#include "ManagerSupport.h"
#include "RecordingObserver.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShotSettings.h>

namespace rvopen::test {
namespace {

/// Finds one class, and what the getter gives for it.
struct ComponentRow {
    const char* element;
    RVOpenNode* (*find)(SnapShot* snapShot);
    RVOpenNode* (*get)(SnapShot* snapShot);
};

void PrintTo(const ComponentRow& row, std::ostream* out)
{
    *out << row.element;
}

#define RVOPEN_ROW(element, Class)                                                                 \
    {                                                                                              \
        element, [](SnapShot* s) -> RVOpenNode* { return host::find<Class>(s); },                  \
            [](SnapShot* s) -> RVOpenNode* { return s->Get##Class(); }                             \
    }

const ComponentRow s_componentRows[] = {
    RVOPEN_ROW("scheme", Scheme),
    RVOPEN_ROW("background", Background),
    RVOPEN_ROW("foreground", Foreground),
    RVOPEN_ROW("camera", Camera),
    RVOPEN_ROW("snapShotSettings", SnapShotSettings),
    RVOPEN_ROW("scenery", Scenery),
    RVOPEN_ROW("naturalLightStudio", NaturalLightStudio),
    RVOPEN_ROW("artificialLightStudio", ArtificialLightStudio),
    RVOPEN_ROW("renderTargets", RenderTargets),
    RVOPEN_ROW("materialRepository", MaterialRepository),
};

#undef RVOPEN_ROW

class FoundComponent : public ::testing::TestWithParam<ComponentRow> {};

TEST_P(FoundComponent, IsTheOneOfTheGetterAndIsNeverCreated)
{
    const QDomDocument document = parse("<snapshots><snapshot/><snapshot><" +
                                        QString(GetParam().element) + "/></snapshot></snapshots>");
    const RVOpenView<SnapShots> collection(document.documentElement());
    SnapShot* const without = collection->GetFirstSnapShot();
    SnapShot* const with = without->GetNext();
    RecordingObserver observer(document);
    EXPECT_EQ(GetParam().find(without), nullptr);
    RVOpenNode* const found = GetParam().find(with);
    EXPECT_EQ(observer.take(), "");
    EXPECT_NE(found, nullptr);
    EXPECT_EQ(found, GetParam().get(with));
    RVOpenNode* const got = GetParam().get(without);
    EXPECT_EQ(GetParam().find(without), got);
    delete found;
    EXPECT_EQ(GetParam().find(with), nullptr);
    EXPECT_EQ(GetParam().find(nullptr), nullptr);
}

TEST_P(FoundComponent, IsThatOfAnElementThatAHostPutThere)
{
    QDomDocument document = parse("<snapshot/>");
    const RVOpenView<SnapShot> snapShot(document.documentElement());
    QDomElement element = document.createElement(GetParam().element);
    document.documentElement().appendChild(element);
    RVOpenNode* const found = GetParam().find(snapShot.get());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->GetDomNode(), element);
    EXPECT_EQ(found, GetParam().get(snapShot.get()));
    // A copy by value shows what the snapshot has.
    SnapShot copy(*snapShot);
    EXPECT_EQ(GetParam().find(&copy), found);
}

INSTANTIATE_TEST_SUITE_P(Host, FoundComponent, ::testing::ValuesIn(s_componentRows),
                         [](const auto& row) { return std::string(row.param.element); });

TEST(HostFind, FindsTheFirstChildOfTheClassElsewhere)
{
    const QDomDocument document =
        parse("<material><param name='P' type='float' val='1'/><colour/><colour/></material>");
    const RVOpenView<Material> material(document.documentElement());
    EXPECT_EQ(host::find<Colour>(material.get()), material->GetColour(0));
    EXPECT_NE(host::find<Colour>(material.get()), nullptr);
    EXPECT_EQ(host::find<Param>(material.get())->GetName(), "P");
    EXPECT_EQ(host::find<Camera>(material.get()), nullptr);
    EXPECT_EQ(host::find<Camera>(nullptr), nullptr);
}

TEST(HostFind, FindsInASnapShotWhatIsNoComponent)
{
    const QDomDocument document = parse("<snapshot><camera/><param name='P'/></snapshot>");
    const RVOpenView<SnapShot> snapShot(document.documentElement());
    ASSERT_NE(host::find<Param>(snapShot.get()), nullptr);
    EXPECT_EQ(host::find<Param>(snapShot.get())->GetName(), "P");
    EXPECT_EQ(host::find<Material>(snapShot.get()), nullptr);
}

TEST(HostFind, FindsCollectionsThatTheDocumentHas)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='Model SnapShots'/>"
                  "<snapshots name='Model Cameras'/></snapRoot>");
    const QString before = textOf(manager);
    EXPECT_EQ(manager.FindSnapShots(SnapShots::TypeSnapShots), manager.GetSnapShots());
    EXPECT_EQ(manager.FindSnapShots(SnapShots::TypeBackgrounds), nullptr);
    EXPECT_EQ(manager.FindSnapShots(SnapShots::TypeMaterialPalettes), nullptr);
    SnapShots* const cameras = manager.FindSnapShots(SnapShots::TypeCameras);
    EXPECT_NE(cameras, nullptr);
    EXPECT_EQ(cameras, manager.GetSnapShotsCameras());
    EXPECT_EQ(textOf(manager), before);
    SnapShots* const backgrounds = manager.GetSnapShotsBackgrounds();
    EXPECT_EQ(manager.FindSnapShots(SnapShots::TypeBackgrounds), backgrounds);
    manager.ClearSnapShotDoc();
    EXPECT_EQ(manager.FindSnapShots(SnapShots::TypeCameras), nullptr);
}

} // namespace
} // namespace rvopen::test

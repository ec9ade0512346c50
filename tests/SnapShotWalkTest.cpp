// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/SnapShot.h>

#include "TestSupport.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Foreground.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShotSettings.h>

#include <tuple>

/// A walk over the children of a snapshot whose components come and go.
namespace rvopen::test {
namespace {

constexpr const char* s_all[] = {"scheme",
                                 "background",
                                 "foreground",
                                 "naturalLightStudio",
                                 "artificialLightStudio",
                                 "camera",
                                 "snapShotSettings",
                                 "materialRepository",
                                 "renderTargets",
                                 "scenery"};

struct Change {
    const char* name;
    void (*make)(SnapShot& snapShot);
};

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.name;
}

/// A component of a class for whatever asks for one.
template <typename Class, auto adder>
void addNew(SnapShot& snapShot)
{
    const QDomDocument document = parse("<any name='new'/>");
    const auto component = bind<Class>(document.documentElement());
    (snapShot.*adder)(component.get());
}

const Change s_changes[] = {
    {"AddScheme", addNew<Scheme, &SnapShot::AddScheme>},
    {"AddBackground", addNew<Background, &SnapShot::AddBackground>},
    {"AddForeground", addNew<Foreground, &SnapShot::AddForeground>},
    {"AddCamera", addNew<Camera, &SnapShot::AddCamera>},
    {"AddMaterialRepository", addNew<MaterialRepository, &SnapShot::AddMaterialRepository>},
    {"AddNaturalLightStudio", addNew<NaturalLightStudio, &SnapShot::AddNaturalLightStudio>},
    {"AddScenery", addNew<Scenery, &SnapShot::AddScenery>},
    {"AddSnapShotSettings",
     [](SnapShot& s) { s.AddSnapShotSettings(s.CreateSnapShotSettings(nullptr)); }},
    {"CreateNaturalLightStudio", [](SnapShot& s) { s.CreateAndAddNaturalLightStudio(); }},
    {"NoScheme", [](SnapShot& s) { s.AddScheme(nullptr); }},
    {"NoBackground", [](SnapShot& s) { s.AddBackground(nullptr); }},
    {"NoForeground", [](SnapShot& s) { s.AddForeground(nullptr); }},
    {"NoCamera", [](SnapShot& s) { s.AddCamera(nullptr); }},
    {"NoPalette", [](SnapShot& s) { s.AddMaterialRepository(nullptr); }},
    {"NoNaturalLightStudio", [](SnapShot& s) { s.AddNaturalLightStudio(nullptr); }},
    {"NoScenery", [](SnapShot& s) { s.AddScenery(nullptr); }},
    {"NoSettings", [](SnapShot& s) { s.AddSnapShotSettings(nullptr); }},
    {"ClearScheme", [](SnapShot& s) { s.ClearScheme(); }},
    {"ClearBackground", [](SnapShot& s) { s.ClearBackground(); }},
    {"ClearNaturalLightStudio", [](SnapShot& s) { s.ClearNaturalLightStudio(); }},
    {"ClearScenery", [](SnapShot& s) { s.ClearScenery(); }},
    {"GetArtificialLightStudio", [](SnapShot& s) { s.GetArtificialLightStudio(); }},
    {"GetRenderTargets", [](SnapShot& s) { s.GetRenderTargets(); }},
    {"GetMaterialRepository", [](SnapShot& s) { s.GetMaterialRepository(); }},
    {"DeletedScheme", [](SnapShot& s) { delete s.GetScheme(); }},
    {"DeletedBackground", [](SnapShot& s) { delete s.GetBackground(); }},
    {"DeletedForeground", [](SnapShot& s) { delete s.GetForeground(); }},
    {"DeletedNaturalLightStudio", [](SnapShot& s) { delete s.GetNaturalLightStudio(); }},
    {"DeletedArtificialLightStudio", [](SnapShot& s) { delete s.GetArtificialLightStudio(); }},
    {"DeletedCamera", [](SnapShot& s) { delete s.GetCamera(); }},
    {"DeletedSettings", [](SnapShot& s) { delete s.GetSnapShotSettings(); }},
    {"DeletedPalette", [](SnapShot& s) { delete s.GetMaterialRepository(); }},
    {"DeletedRenderTargets", [](SnapShot& s) { delete s.GetRenderTargets(); }},
    {"DeletedScenery", [](SnapShot& s) { delete s.GetScenery(); }},
};

enum class Walked { Nothing, Half, All };

class SnapShotWalk : public ::testing::TestWithParam<std::tuple<Change, Walked>> {
protected:
    void walk(SnapShot& snapShot)
    {
        const Walked walked = std::get<Walked>(GetParam());
        if (walked == Walked::Nothing)
            return;
        RVOpenNode* node = snapShot.GetChild(1, 1);
        for (int i = 0; node && (walked == Walked::All || i < 5); ++i) {
            m_met.push_back({node, node->GetDomNode()});
            node = node->GetNext(1);
        }
    }
    void change(SnapShot& snapShot)
    {
        std::get<Change>(GetParam()).make(snapShot);
    }

    std::vector<std::pair<RVOpenNode*, QDomNode>> m_met;
};

TEST_P(SnapShotWalk, MeetsExactlyTheChildrenAfterAChange)
{
    // Each component is the first, in the middle and the last one in turn, and missing.
    constexpr int count = std::size(s_all);
    for (int shift = 0; shift < count; ++shift) {
        for (const int number : {count, count - 1, 1, 0}) {
            QString xml = "<snapshot>";
            for (int i = 0; i < number; ++i)
                xml += QStringLiteral("<%1/>").arg(s_all[(i + shift) % count]);
            const QDomDocument document = parse(xml + "</snapshot>");
            SnapShot snapShot(document.documentElement());
            m_met.clear();
            walk(snapShot);
            change(snapShot);
            change(snapShot);
            EXPECT_TRUE(mirrorsWholeDom(&snapShot)) << xml.toStdString();
            // What has left the walk is valid still.
            for (const auto& [node, element] : m_met)
                EXPECT_EQ(node->GetDomNode(), element);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, SnapShotWalk,
                         ::testing::Combine(::testing::ValuesIn(s_changes),
                                            ::testing::Values(Walked::Nothing, Walked::Half,
                                                              Walked::All)),
                         [](const auto& instance) {
                             const Walked walked = std::get<Walked>(instance.param);
                             return std::get<Change>(instance.param).name +
                                    std::string(walked == Walked::Nothing ? "WalkedNothing"
                                                : walked == Walked::Half  ? "WalkedHalf"
                                                                          : "WalkedAll");
                         });

TEST(DeletedComponent, IsForgottenAndItsElementGoes)
{
    const QDomDocument document = parse("<snapshot><camera/><scenery/></snapshot>");
    SnapShot snapShot(document.documentElement());
    delete snapShot.GetCamera();
    EXPECT_EQ(snapShot.GetCamera(), nullptr);
    EXPECT_EQ(domChildNames(document.documentElement()), QStringList("scenery"));
}

// Settings that are taken over

TEST(TakenSettings, OfAnotherSnapShotAreThatOnesNoMore)
{
    const QDomDocument document =
        parse("<root><snapshot><snapShotSettings name='s'/></snapshot><snapshot/></root>");
    SnapShot one(document.documentElement().firstChild());
    SnapShot two(document.documentElement().lastChild());
    children(&one);
    SnapShotSettings* const settings = one.GetSnapShotSettings();
    two.AddSnapShotSettings(settings);
    EXPECT_EQ(one.GetSnapShotSettings(), nullptr);
    EXPECT_EQ(two.GetSnapShotSettings(), settings);
    EXPECT_EQ(xmlOf(document),
              xmlOf("<root><snapshot/><snapshot><snapShotSettings name='s'/></snapshot></root>"));
    EXPECT_TRUE(mirrorsWholeDom(&one));
    EXPECT_TRUE(mirrorsWholeDom(&two));
}

TEST(TakenSettings, OfAChainLeaveIt)
{
    const QDomDocument document = parse("<root><shelf/><snapshot/></root>");
    const auto root = bind(document.documentElement());
    RVOpenNode* const shelf = root->GetChild(1, 1);
    auto* const snapShot = static_cast<SnapShot*>(shelf->GetNext(1));
    SnapShotSettings* const settings = snapShot->CreateSnapShotSettings(nullptr);
    shelf->AddNode(settings, true);
    snapShot->AddSnapShotSettings(settings);
    EXPECT_EQ(shelf->GetChild(1, 1), nullptr);
    EXPECT_EQ(settings->GetParent(), nullptr);
    root->DeleteNode(shelf);
    EXPECT_EQ(snapShot->GetSnapShotSettings(), settings);
    EXPECT_TRUE(mirrorsWholeDom(root.get()));
}

TEST(TakenSettings, OfItsOwnChainAreItsSettings)
{
    const QDomDocument document = parse("<snapshot><snapShotSettings/><camera/></snapshot>");
    SnapShot snapShot(document.documentElement());
    SnapShotSettings* const settings = snapShot.CreateSnapShotSettings(nullptr);
    snapShot.AddNode(settings, true);
    snapShot.AddSnapShotSettings(settings);
    EXPECT_EQ(snapShot.GetSnapShotSettings(), settings);
    EXPECT_EQ(domChildNames(document.documentElement()),
              QStringList({"camera", "snapShotSettings"}));
    EXPECT_TRUE(mirrorsWholeDom(&snapShot));
}

TEST(TakenSettings, AboveTheSnapShotAreIgnored)
{
    const QDomDocument document = parse("<snapShotSettings><snapshot/></snapShotSettings>");
    SnapShotSettings settings(document.documentElement());
    auto* const snapShot = static_cast<SnapShot*>(settings.GetChild(1, 1));
    snapShot->AddSnapShotSettings(&settings);
    EXPECT_EQ(snapShot->GetSnapShotSettings(), nullptr);
    EXPECT_EQ(xmlOf(document), "<snapShotSettings><snapshot/></snapShotSettings>");
}

} // namespace
} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"
#include "toolkit/drawing/Optics.h"

#include <rvopen/Finish.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/Transparency.h>

#include <QDir>

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

double metalOf(double refraction, double mirror, double transmission)
{
    Surface surface;
    surface.factors.refraction = refraction;
    surface.factors.mirror = mirror;
    surface.factors.transmission = transmission;
    return surface.metalness();
}

/// What the presets of the starter installation are drawn with.
struct StarterFinish {
    QString folder;
    QString refName;
    Factors factors;
    double metalness = 0;
};

std::vector<StarterFinish> readStarterFinishes()
{
    Room room;
    std::vector<StarterFinish> result;
    const QDir folder(QStringLiteral(RVOPEN_DATA_DIR "/install/xml"));
    for (const QFileInfo& info : folder.entryInfoList({QStringLiteral("*.rvx")}, QDir::Files)) {
        QFile file(info.filePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << info.filePath().toStdString();
        const QByteArray text = file.readAll();
        const QDomDocument document = parsed(text.constData());
        const QDomNodeList found = document.elementsByTagName(QStringLiteral("finish"));
        for (int i = 0; i < found.size(); ++i) {
            const QDomElement element = found.at(i).toElement();
            if (element.parentNode().nodeName() == QLatin1String("material"))
                continue;
            const RVOpenView<Finish> node(element);
            const Surface surface = SurfaceReader(room.textures()).ofFinish(node.get());
            result.push_back({element.parentNode().toElement().attribute(QStringLiteral("name")),
                              element.attribute(QStringLiteral("refname")), surface.factors,
                              surface.metalness()});
        }
    }
    EXPECT_GT(result.size(), 40U);
    return result;
}

const std::vector<StarterFinish>& starterFinishes()
{
    static const std::vector<StarterFinish> finishes = readStarterFinishes();
    return finishes;
}

/// The pixels half a radius to the left and to the right of the middle of a ball of glass before
/// light from the right.
std::pair<double, double> sidesOfGlass(double refraction)
{
    Room room;
    Furnace furnace(room.surface(material(s_white + finish(0, 0, 1, 0, 0, refraction))));
    Raster raster = furnace.lit([](const Vec& d) { return d.x > 0; }).picture();
    return {raster.at(23, 32).x, raster.at(41, 32).x};
}

/// A metal in light from 25.8 degrees around the eye.
double blurredWindow(double roughness)
{
    Room room;
    Furnace furnace(room.surface(material(s_white + finish(0, 0, 0, 1, roughness, 1))));
    return furnace.lit([](const Vec& d) { return d.y < -0.9; }).middle().x;
}

} // namespace

TEST(AppearanceFinish, F1_DiffuseIsTheShareThatIsReflectedEvenly)
{
    expectLight(furnace(s_half + matt(1)), 0.2140, 0.001);
    expectLight(furnace(s_half + matt(0.5)), 0.1070, 0.001);
}

TEST(AppearanceFinish, F2_RoughnessSquaredIsTheWidthOfTheFacets)
{
    EXPECT_NEAR(facetWidth(0.5), 0.25, 1e-12);
    EXPECT_NEAR(facetWidth(0.1), 0.01, 1e-12);
    // Facets up to 12.9 degrees mirror the window: tan^2 / (alpha^2 + tan^2) of them.
    EXPECT_NEAR(blurredWindow(0), 1, 0.001);
    EXPECT_NEAR(blurredWindow(0.5), 0.46, 0.03);
    EXPECT_NEAR(blurredWindow(1), 0.05, 0.02);
}

TEST(AppearanceFinish, F3_WithoutRefractionNothingIsMirroredOrBent)
{
    for (const double refraction : {0.0, 0.5, 1.0}) {
        expectLight(furnace(s_half + finish(0, 1, 0, 0, 0, refraction)), 0, 0.001);
        const auto [left, right] = sidesOfGlass(refraction);
        EXPECT_NEAR(left, 0, 0.001);
        EXPECT_NEAR(right, 1, 0.001);
    }
}

TEST(AppearanceFinish, F3_GlassBendsLightToTheOtherSide)
{
    const auto [left, right] = sidesOfGlass(1.5);
    EXPECT_GT(left, 0.85);
    EXPECT_LT(right, 0.08);
}

TEST(AppearanceFinish, F4_AMetalIsOneByItsValues)
{
    EXPECT_NEAR(metalOf(1, 0.06, 0), 0.5, 1e-9);
    EXPECT_NEAR(metalOf(1, 0.1, 0), 1, 1e-9);
    EXPECT_EQ(metalOf(1, 0, 0), 0);
    EXPECT_EQ(metalOf(1.5, 0.24, 0), 0);
    EXPECT_NEAR(metalOf(1.5, 0.4, 0), 0.5, 1e-9);
    EXPECT_EQ(metalOf(1.5, 0.6, 0), 1);
    EXPECT_EQ(metalOf(1, 0.9, 0.1), 0);
}

TEST(AppearanceFinish, F4_TheStartersMetalsAreMetals)
{
    int metals = 0;
    for (const StarterFinish& each : starterFinishes()) {
        const bool isMetal = each.folder == QLatin1String("Metallic") ||
                             each.refName == QLatin1String("finish.anodised");
        metals += isMetal ? 1 : 0;
        EXPECT_NEAR(each.metalness, isMetal ? 1 : 0, 1e-6) << each.refName.toStdString();
    }
    EXPECT_GT(metals, 5);
}

TEST(AppearanceFinish, F5_AClearFinishMirrorsByRefractionOrMirrorFactor)
{
    expectLight(furnace(s_half + finish(0, 1, 0, 0, 0, 1.5)), 0.0400, 0.001);
    Room room;
    Furnace varnish(room.surface(material(s_half + finish(0, 0.9, 0, 0.2, 0.03, 1.5))));
    expectLight(varnish.middle(), 0.0800, 0.001);
    // Where the cosine is 0.584 it mirrors more.
    expectLight(varnish.picture().at(47, 32), 0.0901, 0.001);
}

TEST(AppearanceFinish, F6_TheMirrorFactorIsOfLightFromAllAround)
{
    EXPECT_NEAR(fresnel(1, 1 / 1.5), 0.0400, 1e-4);
    constexpr int steps = 4000;
    double sum = 0;
    for (int i = 0; i < steps; ++i) {
        const double cosine = (i + 0.5) / steps;
        sum += 2 * fresnel(cosine, 1 / 1.5) * cosine / steps;
    }
    EXPECT_NEAR(sum, 0.0918, 1e-4);
    EXPECT_NEAR(fresnel(1, 1 / 1.5) / sum, 0.436, 1e-3);
    expectLight(furnace(s_half + finish(0, 0, 0, 0.25, 0, 1.5)), 0.4 * 0.25, 0.001);
}

TEST(AppearanceFinish, F7_AMetalMirrorsInItsColour)
{
    expectLight(furnace(s_half + finish(0, 0, 0, 0.8, 0, 1)), 0.1712, 0.001);
    expectLight(furnace(colour(plain("1 0.5 0")) + finish(0, 0, 0, 0.8, 0, 1)), {0.8, 0.1712, 0},
                0.001);
    expectLight(furnace(s_half + finish(0.2, 0, 0, 0.8, 0, 1)), 0.1712 + 0.0428, 0.002);
    // Half of a metal: even, clear, mirrored and coarsely mirrored.
    expectLight(furnace(s_half + finish(0.4, 0, 0, 0.4, 0, 1.5)), 0.0428 + 0.08 + 0.0428 + 0.0428,
                0.003);
}

TEST(AppearanceFinish, F7_LightsInAMetalAreAtLeastHalfOfSpecular)
{
    Room room;
    Furnace furnace(room.surface(material(s_white + finish(0, 1, 0, 0.2, 0, 1))));
    furnace.inTheDark().scene.lights = {AreaLight{{0, -1, 0}, 1, 1, {1, 1, 1}, 0.05}};
    expectLight(furnace.middle(), 0.5, 0.001);
}

TEST(AppearanceFinish, F8_TheWholeBodyShowsTheColour)
{
    expectLight(furnace(s_half + finish(0, 0, 1, 0, 0, 1)), 0.2140, 0.002);
    Room room;
    const double seen = display(s_light * 0.2140);
    expectPixel(room.flat(s_half + finish(0, 0, 1, 0, 0, 1)).pixel(s_onLight), seen, seen, seen);
    // 0.96 enters, and all but 0.0015 of it comes out again.
    expectLight(furnace(s_white + finish(0, 0, 1, 0, 0, 1.5)), 0.958, 0.003);
    const Rgb quarter = afterGlass({0.5, 1, 0}, 0.25);
    expectLight(quarter, {std::pow(0.5, 0.25), 1, 0}, 1e-9);
}

TEST(AppearanceFinish, F9_LargerSumsAreNotScaledDown)
{
    expectLight(furnace(s_white + finish(0.9, 0, 0.5, 0, 0, 1)), 1.4, 0.002);
    for (const StarterFinish& each : starterFinishes())
        EXPECT_LE(each.factors.diffuse + each.factors.mirror + each.factors.transmission, 1 + 1e-6)
            << each.refName.toStdString();
}

TEST(AppearanceFinish, F10_WhatIsMissingIsAsInTheResetPreset)
{
    Room room;
    const auto picture = [&room](const QByteArray& text) {
        return room.picture(material(s_half + text), 48);
    };
    const QImage none = picture(QByteArray());
    EXPECT_EQ(none, picture("<finish shaderClass=\"lit appearance\"/>"));
    EXPECT_EQ(none, picture(finish(0.8, 0.2, 0, 0, 0.5, 1.5)));
    for (const StarterFinish& each : starterFinishes()) {
        if (each.refName != QLatin1String("finish.reset"))
            continue;
        const Factors absent;
        EXPECT_NEAR(each.factors.diffuse, absent.diffuse, 1e-6);
        EXPECT_NEAR(each.factors.specular, absent.specular, 1e-6);
        EXPECT_NEAR(each.factors.transmission, absent.transmission, 1e-6);
        EXPECT_NEAR(each.factors.mirror, absent.mirror, 1e-6);
        EXPECT_NEAR(each.factors.roughness, absent.roughness, 1e-6);
        EXPECT_NEAR(each.factors.refraction, absent.refraction, 1e-6);
        EXPECT_EQ(each.factors.light, 0);
    }
}

TEST(AppearanceFinish, F10_ANewFinishIsBlackAndClear)
{
    const QByteArray text = material(s_half + "<finish/>");
    const QDomDocument document = parsed(text.constData());
    {
        const RVOpenView<Finish> node(
            document.documentElement().firstChildElement(QStringLiteral("finish")));
        EXPECT_EQ(node->SetAndPopulateShaderClass(QStringLiteral("lit appearance")), StatusOk);
    }
    Room room;
    expectLight(Furnace(room.surface(document.toByteArray())).middle(), 0, 0.001);
}

TEST(AppearanceFinish, F11_AResetMakesTheMaterialOpaque)
{
    const QByteArray text = "<materialRepository>" + material(transparency(plain("0 0 0"), true)) +
                            "</materialRepository>";
    const QDomDocument document = parsed(text.constData());
    const RVOpenView<MaterialRepository> palette(document.documentElement());
    const QDomDocument finishes = parsed("<finish refname=\"b\" reset=\"1\"/>");
    const RVOpenView<Finish> reset(finishes.documentElement());
    palette->AddFinish(reset.get(), QString(), nullptr);
    Transparency* const put = palette->GetFirstMaterial()->GetTransparency(0);
    ASSERT_TRUE(put);
    int isInverted = 1;
    float white[3] = {0, 0, 0};
    put->GetInvertMask(&isInverted);
    ASSERT_TRUE(put->GetColour() && put->GetColour()->GetPlainColour(0));
    EXPECT_EQ(put->GetColour()->GetPlainColour(0)->GetColour(white), StatusOk);
    EXPECT_EQ(isInverted, 0);
    EXPECT_THAT(white, ::testing::ElementsAre(1, 1, 1));
}

TEST(AppearanceFinish, F12_KindsOfMaterialsAreWords)
{
    Room room;
    const auto picture = [&room](const char* kind) {
        QByteArray text = material(s_half + dull());
        text.replace("<material ", QByteArray("<material subcat=\"") + kind + "\" ");
        return room.picture(text, 64, true);
    };
    for (const char* const kind : {"Transparent", "Mask", "Light", ""})
        EXPECT_EQ(picture("Opaque"), picture(kind)) << kind;
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

#include <rvopen/RenderTarget.h>

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

Mist mistFrom(double nearDistance, double farDistance)
{
    Mist mist;
    mist.isOn = true;
    mist.colour = grey(1);
    mist.nearDistance = nearDistance;
    mist.farDistance = farDistance;
    return mist;
}

/// A black ball that begins 9 away, in white mist.
double ballInMist(double nearDistance, double farDistance)
{
    Room room;
    Furnace furnace(room.surface(material(s_half + matt(0))));
    furnace.inTheDark().scene.mist = mistFrom(nearDistance, farDistance);
    return furnace.middle().x;
}

QByteArray depthCue(const QByteArray& params)
{
    return "<foreground subcat=\"Depth Cue\">" + params + "</foreground>";
}

/// The light of the ground below a point, of which the light comes from the right alone.
double groundAt(double x, double contrast)
{
    Room room;
    const Surface surface = room.surface(material(s_half + matt(0)));
    Scene scene;
    scene.surroundings = [](const Vec&) { return Rgb(); };
    scene.ground = [](const Vec&) { return grey(0.5); };
    scene.shadowContrast = contrast;
    scene.lights = {AreaLight{normalised({1, 0, 1}), 0.02, 0.02, grey(100), 0.05}};
    Ball ball;
    ball.centre = {0, 0, 1};
    ball.surface = &surface;
    scene.balls = {ball};
    scene.view = viewFrom({x, 0, 10}, {x, 0, 0}, 0.5);
    Raster raster(1, 1);
    scene.draw(raster);
    return raster.at(0, 0).x;
}

/// The picture of a snapshot with a ball on the ground.
QImage withScenery(const QByteArray& params)
{
    Room room;
    return room.picture("<snapshot><scheme subcat=\"Exterior\"/><scenery>" + params +
                            "</scenery><naturalLightStudio/><materialRepository>" +
                            material(s_half + matt(1)) + "</materialRepository></snapshot>",
                        48);
}

/// Two values that pictures do not show apart.
void expectNoDifference(const QByteArray& params, const QByteArray& others)
{
    EXPECT_EQ(withScenery(params), withScenery(others));
    EXPECT_NE(withScenery(params), withScenery(params + flag("Drop Shadow", false)));
}

} // namespace

TEST(AppearanceGround, H1_MistThickensEvenlyWithTheDistance)
{
    EXPECT_NEAR(ballInMist(5, 13), 0.5, 0.002);
    EXPECT_NEAR(ballInMist(9, 13), 0, 0.001);
    EXPECT_NEAR(ballInMist(1, 9), 1, 0.001);
}

TEST(AppearanceGround, H1_InAParallelViewTheDistanceIsAlongTheLineOfSight)
{
    Room room;
    Furnace furnace(room.surface(material(s_half + matt(0))));
    Scene& scene = furnace.inTheDark().scene;
    scene.mist = mistFrom(5, 13);
    scene.view = view(camera("0 0 10", "0 10 10", 60, "0 0 1", true));
    scene.balls[0].centre = {0, 10, 10};
    scene.balls.push_back(scene.balls[0]);
    scene.balls[1].centre = {3, 10, 10};
    Raster raster = furnace.picture(200, 100);
    EXPECT_NEAR(raster.at(100, 50).x, 0.5, 0.005);
    EXPECT_NEAR(raster.at(152, 50).x, raster.at(100, 50).x, 0.002);
    // In perspective it is in a straight line.
    scene.view.isParallel = false;
    raster = furnace.picture(200, 100);
    EXPECT_NEAR(raster.at(152, 50).x, (std::sqrt(109) - 1 - 5) / 8, 0.01);
}

TEST(AppearanceGround, H1_PicturesOfMistHaveTheirDistances)
{
    Room room;
    const QImage image = room.picture(depthCue(param("Near", 5) + param("Far", 100) +
                                               param("Background Colour", "colour", "0 0 0")),
                                      256);
    // The tree at 50 has lost 45 of 95.
    expectPixel(image.pixel(151, 81), 45, 78, 41, 2);
}

TEST(AppearanceGround, H2_TheBackgroundIsNotInTheMist)
{
    Scene scene;
    scene.hasGround = false;
    scene.surroundings = [](const Vec&) { return Rgb(); };
    scene.backdrop = [](const Vec&, const Point&) { return Rgb{0, 0.5, 1}; };
    scene.mist = mistFrom(0, 1);
    scene.view = viewFrom({0, 0, 0}, {0, 1, 0}, 40);
    Raster raster(1, 1);
    scene.draw(raster);
    expectLight(raster.at(0, 0), {0, 0.5, 1}, 1e-9);
}

TEST(AppearanceGround, H3_MissingValuesAreThoseOfAPaleHundred)
{
    Room room;
    const QImage missing = room.picture(depthCue(QByteArray()), 64);
    EXPECT_EQ(missing, room.picture(depthCue(param("Near", 0) + param("Far", 100) +
                                             param("Background Colour", "colour", "0.9 0.9 0.9")),
                                    64));
    EXPECT_NE(missing, room.picture(depthCue(param("Far", 50)), 64));
}

TEST(AppearanceGround, S1_ContrastMixesTheShadowWithTheLight)
{
    // The shadow falls to the left.
    const double lit = groundAt(5, 1);
    EXPECT_GT(lit, 0.01);
    EXPECT_NEAR(groundAt(-1.8, 1) / lit, 0, 0.01);
    EXPECT_NEAR(groundAt(-1.8, 0.5) / lit, 0.5, 0.01);
    EXPECT_NEAR(groundAt(-1.8, 0) / lit, 1, 0.01);
    Room room;
    const auto contrast = [&room](bool hasShadow) {
        return room
            .snapShot("<scenery>" + flag("Drop Shadow", hasShadow) +
                      param("Drop Shadow Contrast", 0.75) + "</scenery>")
            .shadowContrast;
    };
    EXPECT_NEAR(contrast(true), 0.75, 1e-6);
    EXPECT_EQ(contrast(false), 0);
}

TEST(AppearanceGround, S2_PicturesDoNotShowDropSunlight)
{
    expectNoDifference(flag("Drop Sunlight", true) + param("Drop Sunlight Brightness", 1),
                       flag("Drop Sunlight", false) + param("Drop Sunlight Brightness", 0.2));
}

TEST(AppearanceGround, S3_PicturesDoNotShowDropReflections)
{
    expectNoDifference(flag("Drop Reflection", true) + param("Drop Reflection Brightness", 1),
                       flag("Drop Reflection", false) + param("Drop Reflection Blur", 0.5));
}

TEST(AppearanceGround, S4_PicturesDoNotShowTheSizeOfTheBase)
{
    expectNoDifference(param("Base Size", 3), param("Base Size", 0.5));
}

TEST(AppearanceGround, S5_QualityIsNoLook)
{
    expectNoDifference(param("Drop Shadow Quality", "integer", "1"),
                       param("Drop Shadow Quality", "integer", "10"));
}

TEST(AppearanceGround, S6_PicturesHaveNoSpotsToCatch)
{
    expectNoDifference(flag("Drop Shadow Catch Spots", true),
                       flag("Drop Shadow Catch Spots", false));
}

TEST(AppearanceGround, S7_TheModelHintIsALength)
{
    const QDomDocument document =
        parsed("<snapRoot unitsScale=\"1000\"><renderTarget subcat=\"Image\">"
               "<param name=\"Model Hint\" prop=\"D\" type=\"float\" val=\"420\"/>"
               "</renderTarget></snapRoot>");
    const RVOpenView<RenderTarget> target(document.documentElement().firstChildElement());
    float hint = 0;
    target->GetModelHint(&hint);
    EXPECT_NEAR(hint, 0.42, 1e-6);
}

} // namespace rvopen::test

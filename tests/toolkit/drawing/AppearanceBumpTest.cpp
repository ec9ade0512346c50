// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

constexpr double s_footprint = 1.0 / 256;

class AppearanceBump : public ::testing::Test {
protected:
    AppearanceBump()
    {
        room.keep("ramp.png", filled(256, 1, [](int x, int) { return qRgb(x, x, x); }));
        room.keep("corners.png", corners());
        room.keep("up.png", evenly(4, 4, qRgb(128, 218, 218)));
    }

    Surface bump(const QByteArray& content, const QByteArray& others = QByteArray())
    {
        return room.surface(material(others + "<bump>" + content + "</bump>"));
    }

    /// Heights that rise to the right, two units to an image.
    Vec onRamp(double height, double x, double y, const QByteArray& params = QByteArray())
    {
        return bump(param("Height", height) +
                    shader(map("ramp.png", param("Width", 2) + param("Height", 1) + params)))
            .normalAt(x, y, s_footprint);
    }

    Vec ofNormals(const char* file, double height, const QByteArray& params = QByteArray())
    {
        return bump(flag("Is Normal Map", true) + param("Height", height) +
                    shader(map(file, params)))
            .normalAt(0.3, 0.3, s_footprint);
    }

    QImage flat(const QByteArray& components)
    {
        return room.flat(s_half + components);
    }

    Room room;
};

} // namespace

TEST_F(AppearanceBump, B1_HeightIsATwentiethOfTheImage)
{
    // 0.05 scene units up over 2: the slope is 0.025.
    expectLight(onRamp(1, 1, 0.5), {-0.025, 0, 1}, 0.0005);
    expectLight(onRamp(-1, 1, 0.5), {0.025, 0, 1}, 0.0005);
    expectLight(onRamp(1, -0.5, 1, param("Rotation", 90)), {0, -0.025, 1}, 0.0005);
    expectLight(onRamp(1, -1, 0.5, flag("S Reflect", true)), {0.025, 0, 1}, 0.0005);
}

TEST_F(AppearanceBump, B2_NormalsLeanThreeTimesTheHeight)
{
    room.keep("lean.png", evenly(4, 4, qRgb(204, 128, 230)));
    expectLight(ofNormals("lean.png", 0), {0, 0, 1}, 0.01);
    expectLight(ofNormals("lean.png", 0.333333), {0.6, 0, 0.8}, 0.01);
    expectLight(ofNormals("lean.png", 1), {0.914, 0, 0.406}, 0.01);
}

TEST_F(AppearanceBump, B3_GreenIsUp)
{
    expectLight(ofNormals("up.png", 0.333333), {0, 0.71, 0.71}, 0.01);
    expectLight(ofNormals("up.png", 0.333333, flag("T Reflect", true)), {0, -0.71, 0.71}, 0.01);
    expectLight(ofNormals("up.png", 0.333333, param("Rotation", 90)), {-0.71, 0, 0.71}, 0.01);
    room.keep("right.png", evenly(4, 4, qRgb(218, 128, 218)));
    expectLight(ofNormals("right.png", 0.333333), {0.71, 0, 0.71}, 0.01);
}

TEST_F(AppearanceBump, B4_SoftnessBlursUpToASixteenth)
{
    room.keep("edge.png", filled(256, 256, [](int x, int) {
                  return x < 128 ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
              }));
    const auto lean = [this](double softness) {
        return bump(param("Height", 1) + param("Softness", softness) + shader(map("edge.png")))
            .normalAt(0.5, 0.5, s_footprint)
            .x;
    };
    // The edge rises by 0.05 within twice the blur.
    EXPECT_NEAR(lean(1), -0.371, 0.005);
    EXPECT_NEAR(lean(0.5), -0.848, 0.005);
}

TEST_F(AppearanceBump, B5_UseDiffuseReadsTheColourAsHeights)
{
    const auto relief = [this](bool isNormalMap, const QByteArray& components) {
        return room.flat(components + "<bump>" + flag("Use Diffuse", true) +
                         flag("Is Normal Map", isNormalMap) + param("Height", 1) + "</bump>");
    };
    const QByteArray image = colour(map("corners.png"));
    EXPECT_EQ(relief(false, image), relief(true, image));
    EXPECT_NE(relief(false, image), room.flat(image));
    EXPECT_EQ(relief(false, s_half), room.flat(s_half));
    const QByteArray bumps = flag("Use Diffuse", true) + param("Height", 1);
    EXPECT_FALSE(bump(bumps, s_half).bump.texture);
    EXPECT_FALSE(bump(bumps, colour(map("absent.png"))).bump.texture);
    const Surface turned = bump(
        bumps,
        colour(map("ramp.png", param("Width", 2) + param("Height", 1) + param("Rotation", 90))));
    expectLight(turned.normalAt(-0.5, 1, s_footprint), {0, -0.025, 1}, 0.0005);
}

TEST_F(AppearanceBump, B6_APlainColourMakesNoRelief)
{
    EXPECT_EQ(flat("<bump>" + param("Height", 1) + shader(plain("1 0 0")) + "</bump>"), flat(""));
}

TEST_F(AppearanceBump, B7_AMissingHeightIsAHalfAndNothingIsSoft)
{
    const auto relief = [this](const QByteArray& params) {
        return flat("<bump>" + params + shader(map("corners.png")) + "</bump>");
    };
    const QImage missing = relief(QByteArray());
    EXPECT_EQ(missing, relief(param("Height", 0.5) + param("Softness", 0)));
    EXPECT_NE(missing, relief(param("Height", 0.2) + param("Softness", 0)));
    EXPECT_NE(missing, relief(param("Height", 0.5) + param("Softness", 1)));
}

} // namespace rvopen::test

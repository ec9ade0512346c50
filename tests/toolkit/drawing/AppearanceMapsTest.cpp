// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

#include <algorithm>

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;
using Names = std::vector<std::string>;

/// Flat pieces with four quarters, from left to right and upwards: red and green, blue and white.
class AppearanceMaps : public ::testing::Test {
protected:
    AppearanceMaps()
    {
        room.keep("corners.png", corners());
    }

    QImage flat(const QByteArray& params, const QByteArray& before = QByteArray())
    {
        return room.flat(colour(before + map("corners.png", params)) + dull());
    }

    /// The quarters of the piece: upper right, upper left, lower right, lower left.
    Names of(const QByteArray& params, const QByteArray& before = QByteArray())
    {
        return quarters(flat(params, before));
    }

    Room room;
};

const Names s_asItIs{"red", "green", "blue", "white"};
const Names s_blue{"blue", "blue", "blue", "blue"};

} // namespace

TEST_F(AppearanceMaps, M1_TheLeftLowerCornerIsTheOrigin)
{
    EXPECT_EQ(of(QByteArray()), s_asItIs);
}

TEST_F(AppearanceMaps, M2_WidthAndHeightAreThoseOfOneImage)
{
    const QImage narrow = flat(param("Width", 0.5) + param("Height", 1));
    EXPECT_EQ(nameOf(narrow.pixel(40, 16)), "red");
    EXPECT_EQ(nameOf(narrow.pixel(56, 16)), "green");
    EXPECT_EQ(nameOf(narrow.pixel(40, 48)), "blue");
    const QImage low = flat(param("Width", 1) + param("Height", 0.5));
    EXPECT_EQ(nameOf(low.pixel(48, 24)), "red");
    EXPECT_EQ(nameOf(low.pixel(48, 8)), "blue");
    EXPECT_EQ(of(param("Width", 0) + param("Height", -3)), s_asItIs);
}

TEST_F(AppearanceMaps, M3_ReflectMirrorsTheImageInItself)
{
    const QByteArray s = flag("S Reflect", true);
    const QByteArray t = flag("T Reflect", true);
    EXPECT_EQ(of(s), (Names{"green", "red", "white", "blue"}));
    EXPECT_EQ(of(t), (Names{"blue", "white", "red", "green"}));
    EXPECT_EQ(of(s + t), (Names{"white", "blue", "green", "red"}));
}

TEST_F(AppearanceMaps, M4_RotationIsCounterClockwiseAboutTheCorner)
{
    EXPECT_EQ(of(param("Rotation", 90)), (Names{"blue", "red", "white", "green"}));
    EXPECT_EQ(of(param("Rotation", -90)), (Names{"green", "white", "red", "blue"}));
    const QImage leaning = flat(param("Rotation", 30));
    EXPECT_EQ(nameOf(leaning.pixel(40, 23)), "red");
    EXPECT_EQ(nameOf(leaning.pixel(23, 40)), "white");
}

TEST_F(AppearanceMaps, M5_OffsetsMoveToTheRightAndUpwards)
{
    const QImage right = flat(param("S Offset", 0.25) + param("T Offset", 0));
    EXPECT_EQ(nameOf(right.pixel(40, 16)), "green");
    EXPECT_EQ(nameOf(right.pixel(56, 16)), "red");
    const QImage upwards = flat(param("S Offset", 0) + param("T Offset", 0.25));
    EXPECT_EQ(nameOf(upwards.pixel(48, 24)), "blue");
    EXPECT_EQ(nameOf(upwards.pixel(48, 8)), "red");
}

TEST_F(AppearanceMaps, M6_AnImageIsScaledTurnedAndThenMoved)
{
    const QImage image = flat(param("Width", 0.5) + param("Height", 1) + param("Rotation", 90) +
                              param("S Offset", 0.25) + param("T Offset", 0));
    // S is 0.117 and T 0.383: (-0.133, 0.383), (0.383, 0.133), (0.766, 0.133).
    EXPECT_EQ(nameOf(image.pixel(39, 7)), "green");
}

TEST_F(AppearanceMaps, M7_TheImageCoversThePlainColour)
{
    EXPECT_EQ(of(QByteArray(), plain("0 0 1")), s_asItIs);
    room.keep("open.png", filled(64, 64, [](int x, int y) {
                  return x < 32 && y >= 32 ? qRgba(200, 0, 0, 0) : qRgba(0, 200, 0, 255);
              }));
    const QImage image =
        room.flat(colour(plain("0 0 1") + map("open.png", flag("Use Alpha", true))) + dull());
    EXPECT_EQ(quarters(image), (Names{"blue", "green", "green", "green"}));
    EXPECT_EQ(nameOf(image.pixel(s_onLight)), "blue");
}

TEST_F(AppearanceMaps, M8_WithoutTheImageThePlainColourCounts)
{
    const QByteArray ground = plain("0 0 1", false);
    EXPECT_EQ(
        quarters(room.flat(colour(ground + map("corners.png", QByteArray(), false)) + dull())),
        s_blue);
    EXPECT_EQ(quarters(room.flat(colour(ground + map("absent.png")) + dull())), s_blue);
}

TEST_F(AppearanceMaps, M9_WhatIsNotEnabledIsNotThere)
{
    const QByteArray red = shader(plain("0.8 0 0"));
    const QImage without = room.flat(dull());
    EXPECT_EQ(without,
              room.flat("<colour><diffuse enabled=\"0\">" + red + "</diffuse></colour>" + dull()));
    EXPECT_EQ(without,
              room.flat("<colour enabled=\"0\"><diffuse>" + red + "</diffuse></colour>" + dull()));
    EXPECT_NE(without, room.flat("<colour><diffuse>" + red + "</diffuse></colour>" + dull()));
}

TEST_F(AppearanceMaps, M9_TheBaseMaterialDoesNotComeInItsPlace)
{
    const struct {
        const char* name;
        QByteArray component;
    } cases[] = {
        {"finish", dull()},
        {"transparency", transparency(plain(rgb(0.5)))},
        {"bump", "<bump>" + param("Height", 1) + shader(map("corners.png")) + "</bump>"},
        {"colour", colour(plain("0.8 0 0"))},
    };
    for (const auto& each : cases) {
        QByteArray off = each.component;
        off.replace(0, int(qstrlen(each.name)) + 1, QByteArray("<") + each.name + " enabled=\"0\"");
        const QImage without = room.flat(QByteArray());
        const QByteArray base = "<material>" + each.component + "</material>";
        EXPECT_EQ(without, room.flat(off)) << each.name;
        EXPECT_EQ(without, room.flat(off + base)) << each.name;
        EXPECT_NE(without, room.flat(base)) << each.name;
    }
}

TEST_F(AppearanceMaps, AnImageThatIsNotThereIsDrawnAsChequers)
{
    const QImage image = room.flat(colour(map("none.png")) + dull());
    const auto brightness = [&image](int x, int y) { return qGray(image.pixel(x, y)); };
    EXPECT_GT(std::min(brightness(16, 16), brightness(48, 48)),
              std::max(brightness(48, 16), brightness(16, 48)));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

const QByteArray s_black = s_half + matt(0);
const char s_tint[] = "0.101961 0.301961 0.2";

/// A quarter of a mask is open: the one that is right of and above the origin.
QImage openQuarter()
{
    return filled(64, 64, [](int x, int y) {
        return x < 32 && y >= 32 ? qRgba(255, 255, 255, 0) : qRgba(0, 0, 0, 255);
    });
}

void expectThrough(QRgb pixel, const Rgb& opacity)
{
    expectPixel(pixel, display(s_light * (1 - opacity.x)), display(s_light * (1 - opacity.y)),
                display(s_light * (1 - opacity.z)));
}

} // namespace

TEST(AppearanceTransparency, T1_AnOpacityCountsForEachChannel)
{
    Room room;
    const QImage image = room.flat(s_black + transparency(plain(s_tint)));
    expectThrough(image.pixel(s_onLight), {0.101961, 0.301961, 0.2});
    expectPixel(image.pixel(s_onLight), 214, 191, 203);
}

TEST(AppearanceTransparency, T2_AMaskCanBeInverted)
{
    Room room;
    const QImage image = room.flat(s_black + transparency(plain(s_tint), true));
    expectThrough(image.pixel(s_onLight), {0.898039, 0.698039, 0.8});
    expectPixel(image.pixel(s_onLight), 79, 131, 108);
    room.keep("alpha.png", openQuarter());
    const QByteArray mask = map("alpha.png", flag("Use Alpha", true));
    const QImage masked = room.flat(s_black + transparency(mask, true));
    expectThrough(masked.pixel(s_onLight), grey(1));
    room.keep("mask.png", corners(255));
    const QImage coloured = room.flat(s_black + transparency(map("mask.png"), true));
    expectThrough(coloured.pixel(s_onLight), {0, 1, 1});
}

TEST(AppearanceTransparency, T3_AMapIsAnOpacityForEachChannel)
{
    Room room;
    room.keep("mask.png", corners(255));
    // Red covers red alone.
    const QImage image = room.flat(s_black + transparency(map("mask.png")));
    expectThrough(image.pixel(s_onLight), {1, 0, 0});
}

TEST(AppearanceTransparency, T3_WithUseAlphaAlphaIsTheOpacity)
{
    Room room;
    room.keep("alpha.png", openQuarter());
    const QImage image =
        room.flat(s_black + transparency(map("alpha.png", flag("Use Alpha", true))));
    expectThrough(image.pixel(s_onLight), grey(0));
    for (const QPoint& point : {QPoint(16, 16), QPoint(48, 48), QPoint(16, 48)})
        expectPixel(image.pixel(point), 0, 0, 0, 0);
}

TEST(AppearanceTransparency, T4_TheMapWinsOverThePlainColour)
{
    Room room;
    room.keep("white.png", evenly(4, 4, qRgb(255, 255, 255)));
    const auto through = [&room](const char* file, bool isEnabled) {
        return room
            .flat(s_black + transparency(plain("0 0 0") + map(file, QByteArray(), isEnabled)))
            .pixel(s_onLight);
    };
    expectThrough(through("white.png", true), grey(1));
    expectThrough(through("white.png", false), grey(0));
    expectThrough(through("absent.png", true), grey(0));
}

TEST(AppearanceTransparency, T5_AFilmHasGlossAndAHoleHasNone)
{
    Room room;
    room.keep("black.png", evenly(4, 4, qRgb(0, 0, 0)));
    const auto seen = [&room](const QByteArray& shaders) {
        Furnace furnace(
            room.surface(material(s_half + finish(0, 1, 0, 0, 0, 1.5) + transparency(shaders))));
        return furnace.lit([](const Vec& d) { return d.y < 0; }).middle();
    };
    expectLight(seen(plain("0 0 0")), 0.0400, 0.001);
    expectLight(seen(map("black.png")), 0, 0.001);
}

TEST(AppearanceTransparency, T6_BesideATransmissionAPlainOneDoesNotCount)
{
    Room room;
    room.keep("half.png", evenly(4, 4, qRgb(128, 128, 128)));
    const auto seen = [&room](const QByteArray& text) {
        return Furnace(room.surface(material(s_white + finish(0, 0, 0.2, 0, 0, 1) + text)))
            .middle();
    };
    expectLight(seen(QByteArray()), 0.2, 0.001);
    expectLight(seen(transparency(plain(rgb(0.5)))), 0.2, 0.001);
    // Half of the light goes straight through each side, beside the fifth of the other half.
    expectLight(seen(transparency(map("half.png"))), 0.502 * 0.2 + 0.498 * 0.498, 0.002);
}

TEST(AppearanceTransparency, T7_AlphaOfTheColourIsAnOpacityOfItsOwn)
{
    Room room;
    room.keep("leaf.png", filled(64, 64, [](int x, int) {
                  return x < 32 ? qRgba(0, 200, 0, 0) : qRgba(0, 200, 0, 255);
              }));
    const QByteArray leaf = map("leaf.png", flag("Use Alpha", true));
    for (const QByteArray& shaders : {leaf, plain("1 0 0", false) + leaf}) {
        const QImage image = room.flat(colour(shaders) + dull());
        expectThrough(image.pixel(s_onLight), grey(0));
        EXPECT_EQ(nameOf(image.pixel(16, 16)), "green");
    }
    const QImage grounded = room.flat(colour(plain("1 0 0") + leaf) + dull());
    EXPECT_EQ(nameOf(grounded.pixel(s_onLight)), "red");
    EXPECT_EQ(nameOf(grounded.pixel(16, 16)), "green");
    // It is multiplied with that of the transparency.
    const QImage both = room.flat(colour(leaf) + matt(0) + transparency(plain(rgb(0.5))));
    expectThrough(both.pixel(s_onLight), grey(0));
    EXPECT_NEAR(qRed(both.pixel(30, 22)), display(0.35 * 0.5), 1.5);
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

#include <QColorSpace>

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

QByteArray plainBackground(double value)
{
    return background("Plain", param("Colour", "colour", rgb(value)));
}

/// Columns that are black and white in turn.
QImage stripes()
{
    return filled(64, 64, [](int x, int) { return x % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0); });
}

/// How upright the normal is where a bump's map goes from red to a grey.
double uprightBetweenRedAnd(int value)
{
    Room room;
    room.keep("edge.png", filled(256, 4, [value](int x, int) {
                  return x < 128 ? qRgb(255, 0, 0) : qRgb(value, value, value);
              }));
    const Surface surface =
        room.surface(material("<bump>" + param("Height", 1) + shader(map("edge.png")) + "</bump>"));
    EXPECT_TRUE(surface.bump.texture);
    return surface.normalAt(0.5, 0.5, 1.0 / 256).z;
}

} // namespace

TEST(AppearanceColour, C1_PlainColoursAreDisplayValues)
{
    Room room;
    Furnace furnace(room.surface(material(colour(plain("0.6 0.6 0.6")) + matt(1))));
    Raster pixel(1, 1);
    pixel.at(0, 0) = furnace.middle();
    expectLight(pixel.at(0, 0), 0.3185, 0.0005);
    expectPixel(pixel.toImage().pixel(0, 0), 153, 153, 153, 0);
}

TEST(AppearanceColour, C2_ImagesAreDisplayValuesWhateverTheirProfile)
{
    Room room;
    QImage image = evenly(4, 4, qRgb(128, 128, 128));
    room.keep("plain.png", image);
    image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    room.keep("profile.png", image);
    for (const char* const file : {"plain.png", "profile.png"})
        expectLight(Furnace(room.surface(material(colour(map(file)) + matt(1)))).middle(), 0.2159,
                    0.0005);
}

TEST(AppearanceColour, C3_AnOpacityIsWhatIsStored)
{
    Room room;
    const QImage image = room.flat(s_half + matt(0) + transparency(plain(rgb(0.5))));
    const double seen = display(s_light * 0.5);
    EXPECT_NEAR(seen, 165, 0.5);
    expectPixel(image.pixel(s_onLight), seen, seen, seen);
}

TEST(AppearanceColour, C4_HeightsAreTheBrightnessAsItIsSeen)
{
    // Red has the luminance 0.2126, which is displayed as 0.4984 or 127.
    EXPECT_GT(uprightBetweenRedAnd(127), 0.9999);
    EXPECT_LT(uprightBetweenRedAnd(54), 0.9);
}

TEST(AppearanceColour, C5_NormalsAreWhatIsStored)
{
    Room room;
    room.keep("normals.png", evenly(4, 4, qRgb(128, 218, 218)));
    const Surface surface =
        room.surface(material("<bump>" + flag("Is Normal Map", true) + param("Height", 0.333333) +
                              shader(map("normals.png")) + "</bump>"));
    expectLight(surface.normalAt(0.3, 0.3, 1.0 / 256), {0, 0.71, 0.71}, 0.01);
}

TEST(AppearanceColour, C6_ColoursAreNotMultipliedByAlpha)
{
    Room room;
    room.keep("alpha.png", filled(64, 64, [](int x, int) {
                  return x < 32 ? qRgba(200, 0, 0, 0) : qRgba(0, 200, 0, 255);
              }));
    EXPECT_EQ(quarters(room.flat(colour(map("alpha.png")) + dull())),
              (std::vector<std::string>{"red", "green", "red", "green"}));
}

TEST(AppearanceColour, C7_DataAreAveragedAsNumbers)
{
    Room room;
    room.keep("stripes.png", stripes());
    const QImage image =
        room.picture(material(s_half + matt(0) + transparency(map("stripes.png"))), 16, true);
    // The pixel is on a light field.
    const double seen = display(s_light * 0.5);
    expectPixel(image.pixel(9, 5), seen, seen, seen, 2);
}

TEST(AppearanceColour, C7_ColoursAreAveragedAsLight)
{
    Room room;
    room.keep("stripes.png", stripes());
    const QImage mixture = room.picture(material(colour(map("stripes.png")) + dull()), 16, true);
    // 0.5 as light is displayed as 0.7373.
    const QImage even = room.picture(material(colour(plain(rgb(0.737255))) + dull()), 16, true);
    EXPECT_LE(difference(mixture, even), 2);
}

TEST(AppearanceColour, C8_GammaIsOfTheRenderedImageAlone)
{
    EXPECT_NEAR(encodedBy(0.5, 2.2) * 255, 186.1, 0.1);
    EXPECT_NEAR(encodedBy(0.5, 0) * 255, 187.5, 0.1);
    EXPECT_EQ(encodedBy(1, 1.8), 1);
    Room room;
    const auto picture = [&room](const QByteArray& params) {
        return room.picture("<snapshot>" + plainBackground(0.5) +
                                "<renderTargets><renderTarget subcat=\"Image\">" + params +
                                "</renderTarget></renderTargets></snapshot>",
                            32);
    };
    EXPECT_EQ(picture(param("Gamma", 1.8)), picture(param("Gamma", 2.6)));
    EXPECT_EQ(picture(param("Gamma", 1.8)), picture(QByteArray()));
}

TEST(AppearanceColour, C9_WhatNoLightFallsOnComesOutAsItIs)
{
    Room room;
    const QImage white = room.picture(plainBackground(1), 64);
    EXPECT_EQ(difference(white, evenly(64, 64, qRgb(255, 255, 255))), 0);
    const QImage pale = room.picture(plainBackground(0.95), 64);
    EXPECT_EQ(difference(pale, evenly(64, 64, qRgb(242, 242, 242))), 0);
}

} // namespace rvopen::test

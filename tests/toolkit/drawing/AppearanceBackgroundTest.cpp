// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

QByteArray graduated(double above, double below)
{
    return background("Graduated", param("Primary Colour", "colour", rgb(above)) +
                                       param("Secondary Colour", "colour", rgb(below)));
}

QByteArray ofFile(const char* kind, const char* file, const QByteArray& params = QByteArray())
{
    return background(kind, param("File Name", "string", file) + params);
}

Vec atAltitude(double altitude)
{
    return Orientation().towards(30, altitude);
}

const QByteArray s_ball =
    "<materialRepository>" + material(s_half + matt(1)) + "</materialRepository>";

class AppearanceBackground : public ::testing::Test {
protected:
    AppearanceBackground()
    {
        room.keep("red.png", evenly(64, 32, qRgb(200, 0, 0)));
        room.keep("green.png", evenly(64, 32, qRgb(0, 200, 0)));
        room.keep("compass.png", bands(256, 128));
    }

    Scene scene(const QByteArray& components)
    {
        m_values = room.snapShot(components);
        return snapShotScene(m_values, 4.0 / 3);
    }

    /// What is mirrored of a snapshot, from a direction of its picture.
    Rgb mirrored(const QByteArray& components, const Vec& direction = {0, 0.8, 0.6})
    {
        return scene(components).surroundings(direction);
    }

    Room room;

private:
    SnapShotValues m_values;
};

/// Values of the stored kind along the middle of a picture of 64 pixels.
int storedInRow(const QImage& image, int y)
{
    return qGreen(image.pixel(32, y));
}

} // namespace

TEST_F(AppearanceBackground, G1_APlateIsFixedToTheImage)
{
    for (const QByteArray& plate :
         {graduated(0.8, 0), ofFile("Image", "compass.png"),
          background("Plain", param("Colour", "colour", "0.2 0.4 0.6"))}) {
        const Scene level = scene(plate + camera("0 -20 0", "0 0 0", 40));
        const Rgb seen = level.backdrop({0, 1, 0}, {0.5, 0.1});
        expectLight(level.backdrop({0.6, 0, 0.8}, {0.5, 0.1}), seen, 0);
        expectLight(scene(plate + camera("0 -20 0", "0 0 10", 40)).backdrop({0, 1, 0}, {0.5, 0.1}),
                    seen, 0);
        EXPECT_GT(luminance(seen), 0.01);
    }
}

TEST_F(AppearanceBackground, G2_AGraduatedPlateHasEvenStepsOfDisplayValues)
{
    const QImage image = room.picture(graduated(0.8, 0), 64);
    EXPECT_NEAR(storedInRow(image, 0), 202, 1);
    EXPECT_NEAR(storedInRow(image, 16), 151, 1);
    EXPECT_NEAR(storedInRow(image, 63), 2, 1);
}

TEST_F(AppearanceBackground, G3_AHorizonChangesMostNearTheHorizon)
{
    const QByteArray horizon =
        background("Horizon", param("Sky Colour", "colour", rgb(0)) +
                                  param("Horizon Sky Colour", "colour", rgb(0.8)) +
                                  param("Horizon Ground Colour", "colour", rgb(0.4)) +
                                  param("Ground Colour", "colour", rgb(0)));
    const QImage image = room.picture(horizon, 64);
    EXPECT_NEAR(storedInRow(image, 15), 57.5, 1);
    EXPECT_NEAR(storedInRow(image, 31), 178.5, 1);
    EXPECT_NEAR(storedInRow(image, 32), 89, 1);
    // By direction, where the camera looks.
    const Rgb up = scene(horizon).backdrop({0, 0, 1}, {0.5, 0.5});
    const Rgb ahead = scene(horizon).backdrop({0, 1, 0}, {0.5, 0.5});
    expectLight(up, 0, 1e-9);
    expectLight(ahead, toLinear(0.8), 1e-6);
}

TEST_F(AppearanceBackground, G4_AnImageCoversThePictureInItsProportions)
{
    room.keep("wide.png", bands(128, 64));
    const QImage image = room.picture(ofFile("Image", "wide.png"), 64);
    EXPECT_EQ(nameOf(image.pixel(16, 32)), "green");
    EXPECT_EQ(nameOf(image.pixel(48, 32)), "blue");
    EXPECT_EQ(nameOf(image.pixel(1, 32)), "green");
    EXPECT_EQ(nameOf(image.pixel(62, 32)), "blue");
    // A high one loses above and below: its edges are outside.
    room.keep("high.png", filled(64, 128, [](int, int y) {
                  return y < 32 || y >= 96 ? qRgb(200, 0, 0) : qRgb(0, 200, 0);
              }));
    const QImage high = room.picture(ofFile("Image", "high.png"), 64);
    EXPECT_EQ(nameOf(high.pixel(32, 1)), "green");
    EXPECT_EQ(nameOf(high.pixel(32, 62)), "green");
}

TEST_F(AppearanceBackground, G5_APanoramaGoesFromNorthToTheEast)
{
    for (const char* const kind : {"Reflection", "Image3D"}) {
        const Backdrop backdrop = room.backdrop(ofFile(kind, "compass.png"));
        const auto at = [&backdrop](double azimuth) {
            return nameOf(backdrop.reflectedFrom(Orientation().towards(azimuth, 0)));
        };
        EXPECT_EQ(at(45), "red") << kind;
        EXPECT_EQ(at(135), "green") << kind;
        EXPECT_EQ(at(225), "blue") << kind;
        EXPECT_EQ(at(315), "white") << kind;
    }
}

TEST_F(AppearanceBackground, G5_TheEnvironmentStaysWhereItIsWhenTheCameraTurns)
{
    const QByteArray environment = settings(param("Reflected Env Path", "string", "compass.png") +
                                            param("Reflected Env Intensity", 1));
    // To the right of the line of sight, at the azimuths 45 and 225.
    const Vec right = Orientation().towards(45, 0);
    EXPECT_EQ(nameOf(mirrored(environment + s_ball + camera("0 -9 0", "0 0 0", 40), right)), "red");
    EXPECT_EQ(nameOf(mirrored(environment + s_ball + camera("0 9 0", "0 0 0", 40), right)), "blue");
}

TEST_F(AppearanceBackground, G6_DegreesOfAPanoramaAreSquare)
{
    const auto rows = [](int width) {
        return filled(width, 180, [](int, int y) {
            return y >= 95 && y <= 99     ? qRgb(200, 0, 0)
                   : y >= 104 && y <= 108 ? qRgb(0, 200, 0)
                   : y >= 86 && y <= 90   ? qRgb(0, 0, 200)
                   : y == 0               ? qRgb(200, 200, 200)
                                          : qRgb(0, 0, 0);
        });
    };
    room.keep("whole.png", rows(360));
    room.keep("half.png", rows(720));
    for (const double degrees : {9.0, 4.5}) {
        const Backdrop backdrop = room.backdrop(ofFile(
            "Image3D", degrees > 5 ? "whole.png" : "half.png", param("Horizon Position", 0.46)));
        EXPECT_EQ(nameOf(backdrop.seenIn(atAltitude(0))), "red");
        EXPECT_EQ(nameOf(backdrop.seenIn(atAltitude(-degrees))), "green");
        EXPECT_EQ(nameOf(backdrop.seenIn(atAltitude(degrees))), "blue");
        EXPECT_EQ(nameOf(backdrop.seenIn(atAltitude(3 * degrees))), "black");
    }
    // Beyond the upper edge the last row goes on.
    const Backdrop half =
        room.backdrop(ofFile("Image3D", "half.png", param("Horizon Position", 0.46)));
    EXPECT_EQ(nameOf(half.seenIn(atAltitude(60))), "white");
    EXPECT_EQ(nameOf(half.seenIn(atAltitude(-80))), "black");
}

TEST_F(AppearanceBackground, G7_APanoramaOfAFixedSizeIsOnASphere)
{
    const auto azimuth = [](const Vec& camera, double size) {
        return Orientation().azimuthOf(inFixedSize({0, 1, 0}, camera, size));
    };
    EXPECT_NEAR(azimuth({0, 0, 0}, 20), 0, 1e-9);
    EXPECT_NEAR(azimuth({5, 0, 0}, 20), 30, 1e-9);
    EXPECT_NEAR(azimuth({5, 0, 0}, 0), 0, 1e-9);
    // Outside of the sphere, which is behind.
    EXPECT_NEAR(azimuth({5, 30, 0}, 20), 0, 1e-9);
}

TEST_F(AppearanceBackground, G8_AReflectionIsNotSeenByTheCamera)
{
    const QByteArray reflection = ofFile("Reflection", "red.png");
    const QImage image = room.picture("<snapshot>" + reflection + s_ball + "</snapshot>", 64);
    EXPECT_LT(std::abs(qRed(image.pixel(0, 0)) - qBlue(image.pixel(0, 0))), 20);
    EXPECT_EQ(nameOf(mirrored(reflection + s_ball)), "red");
}

TEST_F(AppearanceBackground, G9_TheFirstThatThereIsIsMirrored)
{
    const QByteArray blue = s_ball + background("Plain", param("Colour", "colour", "0 0 0.8"));
    const auto with = [](const char* file, double intensity, bool reflectsBackPlate) {
        return settings(param("Reflected Env Path", "string", file) +
                        param("Reflected Env Intensity", intensity) +
                        flag("Reflect BackPlate", reflectsBackPlate));
    };
    const Rgb red = mirrored(with("red.png", 1, false) + blue);
    EXPECT_EQ(nameOf(red), "red");
    EXPECT_EQ(nameOf(mirrored(with("red.png", 1, true) + blue)), "blue");
    expectLight(mirrored(with("red.png", 0.5, false) + blue), red * 0.5, 1e-9);
    EXPECT_EQ(nameOf(mirrored(with("absent.png", 1, false) + blue)), "blue");
    EXPECT_EQ(nameOf(mirrored(with("", 1, false) + s_ball + ofFile("Reflection", "green.png"))),
              "green");
    EXPECT_EQ(nameOf(mirrored(blue)), "blue");
}

TEST_F(AppearanceBackground, G10_OfAMirroredPlateTheHeightCounts)
{
    const Backdrop plate = room.backdrop(graduated(0.8, 0));
    for (const double height : {-1.0, 0.0, 1.0})
        EXPECT_NEAR(toEncoded(plate.reflectedFrom({0, 0, height}).x), 0.4 * (height + 1), 1e-6);
    EXPECT_EQ(plate.at(0.3).x, plate.reflectedFrom({0.9, 0.3, 0.3}).x);
    room.keep("halves.png", filled(64, 64, [](int, int y) {
                  return y < 32 ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
              }));
    const Backdrop image = room.backdrop(ofFile("Image", "halves.png"));
    EXPECT_NEAR(image.at(-0.5).x, 0, 0.001);
    EXPECT_NEAR(image.at(0.5).x, 1, 0.001);
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

#include "toolkit/drawing/Studio.h"

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

QByteArray palette(int materials)
{
    QByteArray content;
    for (int i = 0; i < materials; ++i)
        content += material(s_half + matt(1));
    return "<materialRepository>" + content + "</materialRepository>";
}

QByteArray ofFile(const char* kind, const char* file)
{
    return background(kind, param("File Name", "string", file));
}

/// The picture's view of a ball.
View viewOfBall(const QByteArray& components, double aspect = 4.0 / 3)
{
    Room room;
    const SnapShotValues values = room.snapShot(components + palette(1));
    return snapShotScene(values, aspect).view;
}

/// Up the height of a picture of 4 to 3.
double upwardsOf(const View& view)
{
    return 2 * std::atan(view.halfTangent * 3 / 4) * 180 / Pi;
}

} // namespace

TEST(AppearancePictures, P1_LightAboveFourFifthsApproachesWhite)
{
    Raster raster(3, 1);
    raster.at(0, 0) = grey(0.8);
    raster.at(1, 0) = grey(1);
    raster.at(2, 0) = grey(100);
    const QImage cut = raster.toImage();
    expectPixel(cut.pixel(0, 0), 231, 231, 231);
    expectPixel(cut.pixel(1, 0), 255, 255, 255, 0);
    expectPixel(cut.pixel(2, 0), 255, 255, 255, 0);
    raster.rollOff();
    const QImage rolled = raster.toImage();
    expectPixel(rolled.pixel(0, 0), 231, 231, 231);
    expectPixel(rolled.pixel(1, 0), 243, 243, 243);
    expectPixel(rolled.pixel(2, 0), 255, 255, 255);
    // A lamp gives 1.3, of which 0.943 is shown.
    Room room;
    expectPixel(room.flat(s_white + lamp(1000)).pixel(32, 32), 248, 248, 248, 4);
}

TEST(AppearancePictures, P2_GlossOfLightsIsTwiceAsStrong)
{
    Room room;
    const auto mirrored = [&room](double specular, double mirror) {
        Furnace furnace(room.surface(material(s_half + finish(0, specular, 0, mirror, 0, 1.5))));
        furnace.inTheDark().scene.lights = {AreaLight{{0, -1, 0}, 1, 1, {1, 1, 1}, 0.05}};
        return furnace.middle();
    };
    expectLight(mirrored(1, 0), 0.0800, 0.001);
    expectLight(mirrored(1, 0.25), 0.1, 0.001);
}

TEST(AppearancePictures, P3_LampsOfAnyFluxCanBeToldApart)
{
    Room room;
    const auto ball = [&room](double flux) {
        Furnace furnace(room.surface(material(s_half + lamp(flux))));
        return furnace.inTheDark().picture();
    };
    Raster candle = ball(12);
    Raster bulb = ball(800);
    EXPECT_NEAR(candle.at(32, 32).x, 1.268, 0.002);
    EXPECT_NEAR(bulb.at(32, 32).x, 1.300, 0.002);
    // Where the cosine is 0.584.
    EXPECT_NEAR(candle.at(47, 32).x / candle.at(32, 32).x, 0.73, 0.01);
}

TEST(AppearancePictures, P4_TheBallIsAsLargeAsShowsItsImages)
{
    const auto diameter = [](double image) {
        Surface surface;
        surface.paint.texture = std::make_shared<const Texture>(evenly(1, 1, qRgb(0, 0, 0)));
        surface.paint.mapping.width = surface.paint.mapping.height = image;
        return studioBall(surface).scale * 2;
    };
    EXPECT_EQ(diameter(0.1), 0.25);
    EXPECT_EQ(diameter(0.3), 0.5);
    EXPECT_EQ(diameter(1), 1);
    EXPECT_EQ(diameter(5), 4);
}

TEST(AppearancePictures, P5_ASnapshotShowsSevenMaterialsFromItsCamera)
{
    Room room;
    EXPECT_EQ(room.snapShot(palette(9)).surfaces.size(), 7U);
    const auto pitch = [](const char* from) {
        return -Orientation().altitudeOf(viewOfBall(camera(from, "0 0 0", 40)).forward);
    };
    EXPECT_NEAR(pitch("0 -10 10"), 45, 1e-4);
    EXPECT_NEAR(pitch("0 0 10"), 50, 1e-4);
    EXPECT_NEAR(pitch("0 -10 0"), 7, 1e-4);
    EXPECT_NEAR(upwardsOf(viewOfBall(camera("0 -9 0", "0 0 0", 10))), 20, 1e-4);
    EXPECT_NEAR(upwardsOf(viewOfBall(camera("0 -9 0", "0 0 0", 50))), 27, 1e-4);
    EXPECT_NEAR(upwardsOf(viewOfBall(camera("0 -9 0", "0 0 0", 120))), 34, 1e-4);
    const View view = viewOfBall(
        camera("0 -9 0", "0 0 0", 40, "0 0 1", true, param("Near", 1) + param("Far", 2)) +
        settings(param("Twist", 90)));
    EXPECT_FALSE(view.isParallel);
    EXPECT_GE(view.farDistance, Endless);
    expectLight(view.up, {1, 0, 0}, 1e-6);
}

TEST(AppearancePictures, P6_PicturesOfPanoramasShowTheImageAsAPlate)
{
    Room room;
    room.keep("compass.png", bands(256, 128));
    EXPECT_EQ(room.picture(ofFile("Image3D", "compass.png"), 64),
              room.picture(ofFile("Image", "compass.png"), 64));
    const QByteArray far =
        background("Image3D", param("File Name", "string", "compass.png") + param("Fixed Size", 0));
    QByteArray close = far;
    close.replace("name=\"Fixed Size\" type=\"float\" val=\"0\"",
                  "name=\"Fixed Size\" type=\"float\" val=\"4\"");
    ASSERT_NE(far, close);
    const auto picture = [&room](const QByteArray& text) {
        return room.picture(
            "<snapshot>" + text + palette(1) + camera("3 -9 2", "0 0 1", 40) + "</snapshot>", 32);
    };
    EXPECT_EQ(picture(far), picture(close));
}

TEST(AppearancePictures, P7_StandInsAreThereForWhatIsAbsent)
{
    Room room;
    const QImage hills = room.picture(ofFile("Image", "absent.png"), 64);
    for (const QPoint& point : {QPoint(5, 2), QPoint(40, 60)}) {
        const Rgb expected = landscape({(point.x() + 0.5) / 64, (point.y() + 0.5) / 64}, 1);
        expectPixel(hills.pixel(point), display(expected.x), display(expected.y),
                    display(expected.z));
    }
    const QByteArray absent = map("absent.png");
    const auto surface = [&room](const QByteArray& text) { return room.surface(material(text)); };
    // Fields of half the image.
    const Paint chequers = surface(colour(absent)).paint;
    const double fine = 1.0 / 64;
    EXPECT_GT(
        std::fabs(chequers.at(0.25, 0.25, fine).colour.x - chequers.at(0.75, 0.25, fine).colour.x),
        0.05);
    EXPECT_EQ(surface(colour(plain("0 0 1") + absent)).paint.texture, nullptr);
    const Surface mask = surface(transparency(absent));
    EXPECT_LT(mask.opacityAt(0.125, 0.125, fine).x, 0.01);
    EXPECT_GT(mask.opacityAt(0.25, 0.25, fine).x, 0.99);
    const Surface grain = surface("<bump>" + param("Height", 1) + shader(absent) + "</bump>");
    EXPECT_LT(grain.normalAt(0.3, 0.3, fine).z, 1);
    expectLight(surface(matt(1)).paint.colour, fromHex(0xb4b2ae), 1e-9);
}

TEST(AppearancePictures, P8_ImagesHaveEightBits)
{
    Room room;
    const auto keep = [&room](const char* name, ushort value) {
        QImage image(4, 4, QImage::Format_RGBX64);
        image.fill(QColor::fromRgba64(value, value, value));
        room.keep(name, image);
    };
    keep("first.png", 0x8000);
    keep("second.png", 0x8020);
    keep("third.png", 0x9000);
    const auto seen = [&room](const char* file) {
        return room.surface(material(colour(map(file)))).paint.at(0.5, 0.5, 0.1).colour.x;
    };
    EXPECT_EQ(seen("first.png"), seen("second.png"));
    EXPECT_NE(seen("first.png"), seen("third.png"));
    EXPECT_NEAR(seen("first.png"), toLinear(128.0 / 255), 0.005);
}

TEST(AppearancePictures, P9_ASnapshotWithoutLightIsDarkAndSeen)
{
    Room room;
    const auto scene = [&room](const QByteArray& text) {
        const SnapShotValues values = room.snapShot(
            background("Horizon", param("Sky Colour", "colour", "1 1 1") +
                                      param("Horizon Sky Colour", "colour", "1 1 1")) +
            text);
        return snapShotScene(values, 1);
    };
    const auto lamps = [](double scale) {
        return "<artificialLightStudio>" + param("Intensity Scale", scale) + flag("Enabled", true) +
               "</artificialLightStudio>";
    };
    const Scene dark = scene(lamps(0));
    const Scene bright = scene(lamps(1));
    EXPECT_NEAR(dark.backdrop({0, 0, 1}, {}).x, 0.55, 1e-6);
    EXPECT_NEAR(dark.surroundings({0, 0, 1}).x, 0.55, 1e-6);
    EXPECT_NEAR(bright.backdrop({0, 0, 1}, {}).x, 1, 1e-6);
    const Rgb whole = studio(Surface()).lights.front().radiance;
    expectLight(dark.lights.front().radiance, whole * 0.25, 1e-9);
    expectLight(bright.lights.front().radiance, whole * Rgb{0.75, 0.68, 0.55}, 1e-9);
    // A palette alone has the studio's lights.
    const SnapShotValues alone = room.snapShot(lamps(0) + palette(1));
    expectLight(snapShotScene(alone, 1).lights.front().radiance, whole, 1e-9);
}

TEST(AppearancePictures, P10_AFlatPieceLetsThroughWhatIsBehindIt)
{
    Room room;
    const QImage image = room.flat(s_white + finish(0, 0, 1, 0, 0, 1.5));
    const double onLight = display(s_light);
    const double onDark = display(0.35);
    expectPixel(image.pixel(s_onLight), onLight, onLight, onLight);
    expectPixel(image.pixel(s_onDark), onDark, onDark, onDark);
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

#include <rvopen/Lens.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/RenderTarget.h>

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

/// On a wall at y = 10 in front of the eye.
bool isWithin(double coordinate, const Vec& direction, double half)
{
    return direction.y > 0 && std::fabs(coordinate / direction.y * 10) <= half;
}

/// A quarter of the width that 50 degrees show of a wall 10 away.
const double s_quarter = 10 * std::tan(radians(25)) / 2;

/// White from the first pixel to the last, black three away from them.
void expectBand(int count, int first, int last, const std::function<bool(int)>& isWhite,
                const std::function<bool(int)>& isBlack)
{
    for (int i = 0; i < count; ++i) {
        if (i >= first && i <= last) {
            EXPECT_TRUE(isWhite(i)) << i;
        } else if (i < first - 2 || i > last + 2) {
            EXPECT_TRUE(isBlack(i)) << i;
        }
    }
}

void expectColumns(Wall& wall, int y, int count, int first, int last)
{
    expectBand(
        count, first, last, [&](int x) { return wall.isWhite(x, y); },
        [&](int x) { return wall.isBlack(x, y); });
}

QByteArray ahead(double angle)
{
    return camera("0 0 0", "0 10 0", angle);
}

/// The shining ball of a furnace through a parallel view of 200 to 100, 10 units from the eye.
toolkit::drawing::Raster parallelBall(double distance)
{
    Room room;
    Furnace furnace(room.surface(material(lamp(1000))));
    furnace.inTheDark().scene.balls[0].centre = {0, distance, 10};
    furnace.scene.view = view(camera("0 0 10", "0 10 10", 60, "0 0 1", true));
    return furnace.picture(200, 100);
}

double clippedBall(double nearDistance, double farDistance)
{
    Room room;
    Furnace furnace(room.surface(material(lamp(1000))));
    furnace.inTheDark().scene.view =
        view(camera("0 -10 10", "0 0 10", 20, "0 0 1", false,
                    param("Near", nearDistance) + param("Far", farDistance)));
    return furnace.middle().x;
}

} // namespace

TEST(AppearanceView, V1_TheAngleIsAcrossTheWidth)
{
    const View camera = view(ahead(50));
    Wall half(camera, 200, 100, [](const Vec& d) { return isWithin(d.x, d, s_quarter); });
    expectColumns(half, 50, 200, 51, 148);
    Wall whole(camera, 200, 100, [](const Vec& d) { return isWithin(d.x, d, 2 * s_quarter); });
    for (int x = 1; x <= 198; ++x)
        EXPECT_TRUE(whole.isWhite(x, 50)) << x;
    EXPECT_NEAR(camera.halfWidth(), 2 * s_quarter, 1e-6);
}

TEST(AppearanceView, V1_PicturesOfLensesShowTheirAngle)
{
    Room room;
    const QImage image = room.picture("<lens>" + param("Angle", 84) + "</lens>", 256);
    const int paper = qBlue(image.pixel(10, 112));
    const auto differs = [&](int x) { return std::abs(qBlue(image.pixel(x, 112)) - paper) > 20; };
    int left = 0;
    int right = 255;
    while (left < 255 && !differs(left))
        ++left;
    while (right > 0 && !differs(right))
        --right;
    // The lens is 0.4005 of the picture below the row: 0.4005 tan 42 = 0.3606 to both sides.
    EXPECT_NEAR(left, 36, 3);
    EXPECT_NEAR(right, 220, 3);
}

TEST(AppearanceView, V2_PixelsAreSquareWhateverTheShape)
{
    const View camera = view(ahead(50));
    Wall across(camera, 100, 200, [](const Vec& d) { return isWithin(d.x, d, s_quarter); });
    expectColumns(across, 100, 100, 26, 73);
    Wall upright(camera, 100, 200, [](const Vec& d) { return isWithin(d.z, d, 2 * s_quarter); });
    expectBand(
        200, 51, 148, [&](int y) { return upright.isWhite(50, y); },
        [&](int y) { return upright.isBlack(50, y); });
    EXPECT_NEAR(scaledAngle(50, 2), 86.006, 0.001);
}

TEST(AppearanceView, V3_PicturesOfCamerasTakeAnImageOfThreeToTwo)
{
    Room room;
    const QImage image = room.picture(camera("0 -40 40", "0 0 0", 40), 256);
    const QRgb sky = image.pixel(130, 5);
    int y = 5;
    while (y < 255 && std::abs(qRed(image.pixel(130, y)) - qRed(sky)) <= 20 &&
           std::abs(qGreen(image.pixel(130, y)) - qGreen(sky)) <= 20 &&
           std::abs(qBlue(image.pixel(130, y)) - qBlue(sky)) <= 20)
        ++y;
    // The lens is at (0.21, 0.27), the upper edge of 27.28 degrees leads down at 31.36.
    EXPECT_NEAR(y, 116, 3);
}

TEST(AppearanceView, V4_AParallelViewShowsTheWidthInThePlaneOfItsAim)
{
    for (const double distance : {10.0, 5.0}) {
        toolkit::drawing::Raster raster = parallelBall(distance);
        expectBand(
            200, 84, 115, [&](int x) { return raster.at(x, 50).x > 0.1; },
            [&](int x) { return raster.at(x, 50).x <= 0; });
    }
}

TEST(AppearanceView, V4_TheFrontOfTheSampleProductHasItsWidth)
{
    QFile file(QStringLiteral(RVOPEN_DATA_DIR "/snapshots/product.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    const QDomDocument product = parsed(text.constData());
    const QDomNodeList snapShots = product.elementsByTagName(QStringLiteral("snapshot"));
    int found = 0;
    for (int i = 0; i < snapShots.size(); ++i) {
        const QDomElement element = snapShots.at(i).toElement();
        if (element.attribute(QStringLiteral("name")) != QLatin1String("Front view"))
            continue;
        ++found;
        const RVOpenView<Camera> node(element.firstChildElement(QStringLiteral("camera")));
        const View shown = viewOf(readCamera(node.get()), Orientation(), 0);
        EXPECT_TRUE(shown.isParallel);
        EXPECT_NEAR(2 * shown.halfWidth(), 0.4937, 1e-4);
    }
    EXPECT_EQ(found, 1);
}

TEST(AppearanceView, V5_ASphereFitsIntoTheNarrowerAngle)
{
    EXPECT_NEAR(fittingDistance(1, 60, 1, false), 2, 1e-4);
    EXPECT_NEAR(fittingDistance(1, 60, 4.0 / 3, false), 2.5166, 1e-4);
    EXPECT_NEAR(fittingDistance(1, 60, 3.0 / 4, false), 2, 1e-4);
    EXPECT_NEAR(fittingDistance(1, 60, 1, true), 1.7321, 1e-4);
    EXPECT_NEAR(fittingDistance(3, 60, 1, true), 3 * 1.7321, 3e-4);
}

TEST(AppearanceView, V6_UpIsTakenAtRightAnglesToTheSight)
{
    const auto isNorth = [](const Vec& d) { return d.y > 0; };
    for (const char* const up : {"0 1 0", "0 0 1", "0 0 0"}) {
        Wall wall(view(camera("0 0 0", "0 0 -10", 60, up)), 100, 100, isNorth);
        EXPECT_TRUE(wall.isWhite(50, 25)) << up;
        EXPECT_TRUE(wall.isBlack(50, 75)) << up;
    }
    const View straight = view(camera("0 0 0", "0 10 -10", 60, "0 0 1"));
    const View leaning = view(camera("0 0 0", "0 10 -10", 60, "0 5 7"));
    expectLight(leaning.up, straight.up, 1e-6);
    expectLight(leaning.right, {1, 0, 0}, 1e-6);
    expectLight(straight.up, {0, std::sqrt(0.5), std::sqrt(0.5)}, 1e-6);
}

TEST(AppearanceView, V6_UpOfTheModelTakesThePlaceOfNone)
{
    const QByteArray lying = settings(param("Orientation Up", "vector", "0 1 0") +
                                      param("Orientation North", "vector", "0 0 -1"));
    expectLight(view(camera("0 0 0", "1 0 0", 60, "0 0 0"), lying).up, {0, 1, 0}, 1e-6);
    expectLight(view(camera("0 9 0", "0 0 0", 60, "0 1 0"), lying).up, {0, 0, -1}, 1e-6);
}

TEST(AppearanceView, V7_TheTwistTurnsTheCameraClockwise)
{
    const auto twisted = [](double twist) { return settings(param("Twist", twist)); };
    Wall quarter(view(ahead(90), twisted(90)), 201, 201, [](const Vec& d) { return d.x > 0; });
    EXPECT_TRUE(quarter.isWhite(100, 50));
    EXPECT_TRUE(quarter.isBlack(100, 150));
    for (const double sign : {1.0, -1.0}) {
        Wall line(view(ahead(90), twisted(sign * 10)), 201, 201,
                  [](const Vec& d) { return isWithin(d.x, d, 0.2); });
        EXPECT_NEAR(line.middleOfRow(0), 100 - sign * 17.6, 1.5);
        EXPECT_NEAR(line.middleOfRow(200), 100 + sign * 17.6, 1.5);
    }
}

TEST(AppearanceView, V8_NothingIsDrawnBeforeNearOrBehindFar)
{
    // The ball begins 9 away.
    EXPECT_GT(clippedBall(5, 20), 0.9);
    EXPECT_EQ(clippedBall(12, 20), 0);
    EXPECT_EQ(clippedBall(1, 8), 0);
    EXPECT_GT(clippedBall(1, 12), 0.9);
    EXPECT_GT(clippedBall(0, 0), 0.9);
    EXPECT_EQ(clippedBall(12, 0), 0);
}

TEST(AppearanceView, V8_DistancesAreAlongTheLineOfSight)
{
    Room room;
    Furnace furnace(room.surface(material(lamp(1000))));
    furnace.inTheDark().scene.view = view(
        camera("0 -10 10", "0 0 10", 100, "0 0 1", false, param("Near", 8.9) + param("Far", 10.1)));
    // 12 away to the right of the line of sight: farther than "Far" in a straight line alone.
    furnace.scene.balls[0].centre = {8, 0, 10};
    toolkit::drawing::Raster raster = furnace.picture();
    const int column = int(std::lround(32 + 65 / 2.0 * 8 / (10 * std::tan(radians(50)))));
    EXPECT_GT(raster.at(column, 32).x, 0.3);
}

TEST(AppearanceView, V9_OfAnUpVectorTheDirectionCounts)
{
    Room room;
    const auto picture = [&room](const char* from, const char* up) {
        QByteArray text = camera(from, "1 2 3", 40, up);
        text.replace("<camera>", "<camera subcat=\"Up Vector\">");
        return room.picture(text, 64);
    };
    const QImage upright = picture("0 -10 0", "0 0 1");
    EXPECT_EQ(upright, picture("5 5 5", "0 0 1"));
    EXPECT_EQ(upright, picture("5 5 5", "0 0 7"));
    EXPECT_GT(difference(upright, picture("0 -10 0", "1 0 0")), 50);
    EXPECT_GT(difference(upright, room.picture(camera("0 -10 0", "1 2 3", 40), 64)), 50);
}

TEST(AppearanceView, V9_ACameraThatLooksAtItselfHasNoPlace)
{
    Room room;
    const QByteArray placeless = "<camera>" + param("Field Of View", 40) + "</camera>";
    const QImage angle = room.picture(placeless, 64);
    EXPECT_EQ(room.picture(camera("0 0 5", "0 0 5", 40), 64), angle);
    EXPECT_GT(difference(room.picture(camera("0 -10 0", "0 10 0", 40), 64), angle), 10);
}

TEST(AppearanceView, V10_ALensGivesItsAngleAndNothingElse)
{
    const QByteArray before = camera("1 2 3", "4 5 6", 40, "0 1 0", false, param("Near", 2));
    const QDomDocument document = parsed(before.constData());
    const RVOpenView<Camera> node(document.documentElement());
    const QByteArray lensText = "<lens>" + param("Angle", 84) + "</lens>";
    const QDomDocument lenses = parsed(lensText.constData());
    const RVOpenView<Lens> lens(lenses.documentElement());
    EXPECT_EQ(applyLens(lens.get(), node.get()), StatusOk);
    const QByteArray after = camera("1 2 3", "4 5 6", 84, "0 1 0", false, param("Near", 2));
    EXPECT_EQ(XmlText(document, 1), XmlText(parsed(after.constData()), 1));
    const QDomDocument none = parsed("<lens/>");
    const RVOpenView<Lens> empty(none.documentElement());
    EXPECT_EQ(applyLens(empty.get(), node.get()), StatusMissing);
    EXPECT_EQ(XmlText(document, 1), XmlText(parsed(after.constData()), 1));
}

TEST(AppearanceView, V11_TheLongSideLiesOrStands)
{
    const auto sizeOf = [](bool isLandscape) {
        const QByteArray text =
            "<renderTarget subcat=\"Image\">" + param("Width", "integer", "1000") +
            param("Height", "integer", "1000") + flag("Use Aspect Ratio", true) +
            param("Aspect Ratio", 1.5) + flag("Landscape", isLandscape) + "</renderTarget>";
        const QDomDocument document = parsed(text.constData());
        const RVOpenView<RenderTarget> target(document.documentElement());
        int width = 0;
        int height = 0;
        target->GetWidthHeightUsingAspectRatio(&width, &height);
        return QSize(width, height);
    };
    EXPECT_EQ(sizeOf(true), QSize(1000, 667));
    EXPECT_EQ(sizeOf(false), QSize(667, 1000));
    Room room;
    const QImage upright =
        room.picture("<aspectratioorient>" + flag("Portrait", true) + "</aspectratioorient>", 256);
    const QRgb paper = upright.pixel(2, 2);
    // The frame takes rows 26 to 230 and columns 60 to 196.
    EXPECT_NE(upright.pixel(128, 30), paper);
    EXPECT_EQ(upright.pixel(30, 128), paper);
}

} // namespace rvopen::test

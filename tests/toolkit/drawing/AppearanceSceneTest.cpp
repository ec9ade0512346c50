// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"
#include "toolkit/drawing/Photometry.h"

#include <rvopen/Finish.h>

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

Orientation orientation(const QByteArray& params)
{
    const QByteArray text = settings(params);
    const QDomDocument document = parsed(text.constData());
    const RVOpenView<SnapShotSettings> node(document.documentElement());
    return readOrientation(node.get());
}

QByteArray directions(const QByteArray& up, const QByteArray& north, const QByteArray& front)
{
    return param("Orientation Up", "vector", up) + param("Orientation North", "vector", north) +
           param("Orientation Front Face", "vector", front);
}

QByteArray sun(double azimuth)
{
    return "<naturalLightStudio>" + param("Sun Azimuth", azimuth) + param("Sun Altitude", 20) +
           "</naturalLightStudio>";
}

/// The luminance of the lamp in a document.
double lampIn(const QByteArray& text)
{
    const QDomDocument document = parsed(text.constData());
    const RVOpenView<Finish> node(
        document.elementsByTagName(QStringLiteral("finish")).at(0).toElement());
    return luminanceOf(node.get());
}

QByteArray lampOf(const QByteArray& area)
{
    return "<finish shaderClass=\"lit appearance\">" + param("light intensity", 800) +
           "<param name=\"object area\" prop=\"D\" type=\"float\" val=\"" + area + "\"/></finish>";
}

} // namespace

TEST(AppearanceScene, U1_LengthsAreMetresWhateverTheirUnitInTheFile)
{
    EXPECT_NEAR(lampIn("<snapRoot unitsScale=\"1000\">" + lampOf("11") + "</snapRoot>"), 23150, 5);
    EXPECT_NEAR(lampIn("<presets>" + lampOf("0.011") + "</presets>"), 23150, 5);
}

TEST(AppearanceScene, U2_UpIsZWhereTheOrientationIsNone)
{
    for (const QByteArray& params :
         {directions("1 1 1", "1 1 1", "1 1 1"), QByteArray(),
          directions("0 0 0", "1 0 0", "0 1 0"), directions("0 1 0", "0 -2 0", "0 1 0")}) {
        const Orientation is = orientation(params);
        expectLight(is.up, {0, 0, 1}, 1e-9);
        expectLight(is.north, {0, 1, 0}, 1e-9);
        expectLight(is.frontFace, {0, -1, 0}, 1e-9);
    }
    expectLight(orientation(directions("0 2 0", "0 0 -1", "1 0 0")).up, {0, 1, 0}, 1e-9);
}

TEST(AppearanceScene, U3_EastIsNorthTimesUp)
{
    expectLight(orientation(directions("0 1 0", "0 0 -1", "0 0 1")).east(), {1, 0, 0}, 1e-6);
    const Orientation tilted = orientation(directions("0 0 1", "0 1 1", "0 -1 0"));
    expectLight(tilted.north, {0, 1, 0}, 1e-6);
    expectLight(tilted.east(), {1, 0, 0}, 1e-6);
}

TEST(AppearanceScene, U4_TheFrontLooksAwayFromTheModel)
{
    expectLight(orientation(directions("0 0 1", "0 1 0", "0 3 0")).frontFace, {0, 1, 0}, 1e-6);
    // South of a model whose north is east.
    expectLight(orientation(directions("0 0 1", "1 0 0", "0 0 0")).frontFace, {-1, 0, 0}, 1e-6);
    // Cameras of the sample house look against the front that they show.
    QFile file(QStringLiteral(RVOPEN_DATA_DIR "/snapshots/house.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    const QDomDocument house = parsed(text.constData());
    const QDomNodeList snapShots = house.elementsByTagName(QStringLiteral("snapshot"));
    QHash<QString, double> products;
    for (int i = 0; i < snapShots.size(); ++i) {
        const QDomElement snapShot = snapShots.at(i).toElement();
        const RVOpenView<Camera> camera(snapShot.firstChildElement(QStringLiteral("camera")));
        const RVOpenView<SnapShotSettings> set(
            snapShot.firstChildElement(QStringLiteral("snapShotSettings")));
        const CameraValues values = readCamera(camera.get());
        const Vec front = readOrientation(set.get()).frontFace;
        products.insert(snapShot.attribute(QStringLiteral("name")),
                        dot(front, values.to - values.from));
    }
    EXPECT_NEAR(products.value(QStringLiteral("Street view")), -16, 1e-4);
    EXPECT_NEAR(products.value(QStringLiteral("Garden side")), -19, 1e-4);
}

TEST(AppearanceScene, U5_AnglesGoOnAfterAFullTurn)
{
    Room room;
    room.keep("corners.png", corners());
    const auto turned = [&room](double angle) {
        return room.flat(colour(map("corners.png", param("Rotation", angle))) + dull());
    };
    EXPECT_LE(difference(turned(30), turned(390)), 1);
    EXPECT_GT(difference(turned(30), turned(60)), 20);
    EXPECT_EQ(room.picture(sun(110), 64), room.picture(sun(470), 64));
    EXPECT_NE(room.picture(sun(110), 64), room.picture(sun(120), 64));
}

TEST(AppearanceScene, U6_ColoursAreTakenIntoZeroToOne)
{
    Room room;
    const auto of = [&room](const QByteArray& text) {
        return room.picture(background("Plain", param("Colour", "colour", text)), 16);
    };
    EXPECT_EQ(of("2 -1 nan"), of("1 0 0"));
    EXPECT_EQ(of("2 -1 nan").pixel(8, 8), qRgb(255, 0, 0));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"
#include "toolkit/drawing/Photometry.h"

#include <rvopen/Finish.h>

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

QByteArray sun(double azimuth, double altitude, bool isOn = true)
{
    return "<naturalLightStudio>" + flag("Enabled", isOn) + param("Sun Azimuth", azimuth) +
           param("Sun Altitude", altitude) + "</naturalLightStudio>";
}

QByteArray lamps(double scale, bool isOn = true)
{
    return "<artificialLightStudio>" + flag("Enabled", isOn) + param("Intensity Scale", scale) +
           "</artificialLightStudio>";
}

const QByteArray s_outside = "<scheme subcat=\"Exterior\"/>";

QByteArray palette(const QByteArray& components)
{
    return "<materialRepository>" + material(components) + "</materialRepository>";
}

class AppearanceLight : public ::testing::Test {
protected:
    /// The lights of a snapshot's picture.
    std::vector<AreaLight> lights(const QByteArray& components)
    {
        const SnapShotValues values = room.snapShot(components);
        return snapShotScene(values, 4.0 / 3).lights;
    }

    /// In the picture of a snapshot, where the camera looks along y.
    Vec towardsSun(const QByteArray& components)
    {
        return lights(components + palette(s_half + matt(1))).front().towards;
    }

    Room room;
};

/// A matt white ball, or another, in even light of such a scale.
double inAmbient(double scale, const QByteArray& finishText = matt(1))
{
    Room room;
    Furnace furnace(room.surface(material(s_white + finishText)));
    furnace.scene.ambient = scale;
    return furnace.middle().x;
}

/// The lamp of a preset of the starter installation.
struct StarterLamp {
    double luminance = 0;
    double area = 0;
    double size = 0;
};

StarterLamp starterLamp(const char* refName)
{
    QFile file(QStringLiteral(RVOPEN_DATA_DIR "/install/xml/Default.rvx"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    const QDomDocument document = parsed(text.constData());
    const QDomNodeList found = document.elementsByTagName(QStringLiteral("finish"));
    StarterLamp lamp;
    for (int i = 0; i < found.size(); ++i) {
        const QDomElement element = found.at(i).toElement();
        if (element.attribute(QStringLiteral("refname")) != QLatin1String(refName))
            continue;
        const RVOpenView<Finish> node(element);
        lamp.luminance = luminanceOf(node.get());
        float value = 0;
        EXPECT_EQ(node->GetParamHelper()->GetValFloat(QStringLiteral("object area"), &value), 0U);
        lamp.area = double(value);
        EXPECT_EQ(node->GetParamHelper()->GetValFloat(QStringLiteral("object size"), &value), 0U);
        lamp.size = double(value);
        break;
    }
    return lamp;
}

} // namespace

TEST_F(AppearanceLight, L1_TheSunIsCountedFromNorthToTheEast)
{
    expectLight(Orientation().towards(90, 30), {0.8660, 0, 0.5}, 1e-4);
    expectLight(Orientation().towards(180, 0), {0, -1, 0}, 1e-9);
    Orientation turned;
    turned.north = {1, 0, 0};
    expectLight(turned.towards(90, 30), {0, -0.8660, 0.5}, 1e-4);
    EXPECT_NEAR(turned.azimuthOf({0, -1, 0}), 90, 1e-9);
    EXPECT_NEAR(turned.altitudeOf({0, -1, 1}), 45, 1e-9);
    const Sun absent = room.snapShot("<naturalLightStudio/>").sun;
    EXPECT_EQ(absent.azimuth, 180);
    EXPECT_EQ(absent.altitude, 45);
    EXPECT_EQ(room.snapShot(sun(0, 100)).sun.altitude, 90);
}

TEST_F(AppearanceLight, L1_PicturesOfTheSkyHaveTheAzimuthAcross)
{
    const QImage image = room.picture(sun(90, 30), 256);
    double sum = 0;
    int count = 0;
    for (int y = 0; y < 189; ++y) {
        for (int x = 0; x < 256; ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qRed(pixel) > 235 && qGreen(pixel) > 235 && qBlue(pixel) > 235) {
                sum += x;
                ++count;
            }
        }
    }
    ASSERT_GT(count, 50);
    EXPECT_NEAR(sum / count, 64, 3);
}

TEST_F(AppearanceLight, L1_TheSunStandsWhereTheCameraSeesIt)
{
    const QByteArray fromSouth = camera("0 -20 6", "0 0 0", 40);
    const QByteArray fromNorth = camera("0 20 6", "0 0 0", 40);
    expectLight(towardsSun(fromSouth + sun(90, 30)), {0.8660, 0, 0.5}, 1e-4);
    expectLight(towardsSun(fromSouth + sun(270, 30)), {-0.8660, 0, 0.5}, 1e-4);
    expectLight(towardsSun(fromNorth + sun(90, 30)), {-0.8660, 0, 0.5}, 1e-4);
    // Looking to the east, where north is the y of a model.
    expectLight(towardsSun(camera("-9 0 0", "0 0 0", 40) + sun(90, 30)), {0, 0.8660, 0.5}, 1e-4);
    // Without a camera it looks north.
    expectLight(towardsSun(sun(180, 45)), {0, -0.7071, 0.7071}, 1e-4);
    // Straight from above the top of the picture counts.
    expectLight(towardsSun(camera("0 0 9", "0 0 0", 40, "1 0 0") + sun(90, 30)), {0, 0.8660, 0.5},
                1e-4);
    const QByteArray turned = settings(param("Orientation Up", "vector", "0 0 1") +
                                       param("Orientation North", "vector", "1 0 0"));
    expectLight(towardsSun(turned + fromSouth + sun(0, 30)), {0.8660, 0, 0.5}, 1e-4);
}

TEST_F(AppearanceLight, L2_WithoutDirectSunlightThereIsNoSun)
{
    for (const QByteArray& text : {sun(90, 45, false), sun(90, 0), sun(90, -1)})
        EXPECT_EQ(lights(s_outside + text).size(), 3U) << text.constData();
    const std::vector<AreaLight> low = lights(s_outside + sun(90, 5));
    ASSERT_EQ(low.size(), 1U);
    EXPECT_NEAR(low.front().towards.z, 0.0872, 1e-4);
}

TEST_F(AppearanceLight, L3_TheAmbientScaleIsAFactorOnTheEvenLight)
{
    EXPECT_NEAR(inAmbient(0), 0, 0.001);
    EXPECT_NEAR(inAmbient(0.5), 0.5, 0.001);
    EXPECT_NEAR(inAmbient(2), 2, 0.001);
    // What is mirrored stays.
    EXPECT_NEAR(inAmbient(0, finish(0, 0, 0, 1, 0, 1)), 1, 0.001);
    const auto scaleOf = [this](const QByteArray& text) {
        const SnapShotValues values = room.snapShot(text);
        return snapShotScene(values, 1).ambient;
    };
    EXPECT_NEAR(scaleOf(settings(param("Ambient Lights Intensity Scale", 0.25))), 0.25, 1e-6);
    EXPECT_EQ(scaleOf(QByteArray()), 1);
}

TEST_F(AppearanceLight, L4_TheIntensityScaleIsAFactorOnLamps)
{
    const double whole = lights(s_outside + lamps(1)).front().radiance.x;
    EXPECT_NEAR(lights(s_outside + lamps(0.5)).front().radiance.x, whole / 2, 1e-9);
    const double off = lights(s_outside + lamps(1, false)).front().radiance.x;
    EXPECT_NEAR(lights(s_outside + lamps(0)).front().radiance.x, off, 1e-9);
    EXPECT_LT(off, whole / 2);
    const auto fluxIn = [this](const QByteArray& text) {
        return room.snapShot(text + palette(lamp(800))).surfaces.front().factors.light;
    };
    EXPECT_NEAR(fluxIn(lamps(1)), 800, 1e-3);
    EXPECT_NEAR(fluxIn(lamps(0.25)), 200, 1e-3);
    EXPECT_EQ(fluxIn(lamps(1, false)), 0);
}

TEST_F(AppearanceLight, L5_TheColourOfTheMaterialDoesNotChangeItsLight)
{
    const auto seen = [this](const QByteArray& lightColour) {
        Furnace furnace(room.surface(material(
            colour(plain("0 1 0")) +
            finish(1, 0, 0, 0, 0, 1.5,
                   param("light intensity", 0.3) + param("light colour", "colour", lightColour)))));
        return furnace.inTheDark().middle();
    };
    expectLight(seen("1 1 1"), 0.65, 0.001);
    expectLight(seen("1 0 0"), {0.65, 0, 0}, 0.001);
}

TEST_F(AppearanceLight, L6_FluxAndAreaMakeALuminance)
{
    EXPECT_NEAR(starterLamp("finish.warm_white_lamp").luminance, 23150, 23);
    EXPECT_NEAR(starterLamp("finish.candle").luminance, 19100, 19);
    EXPECT_NEAR(starterLamp("finish.neutral_panel").luminance, 3183, 3);
    EXPECT_EQ(luminanceOf(800, 0), 0);
    EXPECT_EQ(luminanceOf(0, 1), 0);
}

TEST_F(AppearanceLight, L7_SizeAndAreaAreOfOneObject)
{
    // A ball and a square.
    const StarterLamp bulb = starterLamp("finish.warm_white_lamp");
    EXPECT_NEAR(Pi * bulb.size * bulb.size / bulb.area, 1, 0.03);
    const StarterLamp panel = starterLamp("finish.neutral_panel");
    EXPECT_NEAR(panel.size * panel.size / panel.area, 1, 0.03);
    const auto unlit = [this](double size) {
        return room.flat(s_half + finish(0.8, 0.2, 0, 0, 0.5, 1.5,
                                         param("object size", size) + param("object area", size)));
    };
    EXPECT_EQ(unlit(5), unlit(1));
}

} // namespace rvopen::test

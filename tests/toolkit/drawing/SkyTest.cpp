// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/drawing/Sky.h"

#include "../Parts.h"

#include <cmath>

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

Rgb skyIn(double azimuth, double altitude, const Sun& sun)
{
    const double a = radians(azimuth);
    const double h = radians(altitude);
    return clearSky({std::sin(a) * std::cos(h), std::cos(a) * std::cos(h), std::sin(h)}, sun);
}

} // namespace

TEST(Sky, IsBlueByDay)
{
    const Rgb zenith = skyIn(0, 90, Sun{true, 180, 45});
    EXPECT_GT(zenith.z, 1.5 * zenith.x);
    EXPECT_GT(zenith.z, zenith.y);
}

TEST(Sky, IsBrighterTowardsTheSun)
{
    for (const double azimuth : {0.0, 90.0, 180.0, 270.0}) {
        const Sun sun{true, azimuth, 30};
        EXPECT_GT(luminance(skyIn(azimuth, 35, sun)), 1.3 * luminance(skyIn(azimuth + 90, 35, sun)))
            << azimuth;
        EXPECT_NEAR(luminance(skyIn(azimuth + 90, 35, sun)),
                    luminance(skyIn(azimuth - 90, 35, sun)), 1e-9);
    }
}

TEST(Sky, DarkensAsTheSunGoesDown)
{
    double before = 10;
    for (const double altitude : {20.0, 0.0, -4.0, -8.0, -14.0}) {
        const double light = luminance(skyIn(0, 45, Sun{true, 180, altitude}));
        EXPECT_LT(light, before) << altitude;
        before = light;
    }
    EXPECT_LT(before, 0.05);
    EXPECT_GT(before, 0);
    EXPECT_DOUBLE_EQ(luminance(skyIn(0, 45, Sun{true, 180, -90})), before);
}

TEST(Sky, StaysWithinLight)
{
    for (double altitude = -90; altitude <= 90; altitude += 7.5) {
        for (double height = 0; height <= 90; height += 7.5) {
            const Rgb light = skyIn(120, height, Sun{true, 100, altitude});
            for (const double channel : {light.x, light.y, light.z})
                EXPECT_TRUE(channel >= 0 && channel < 1.5) << channel;
        }
    }
}

TEST(Sun, IsWhiteWhenHighAndOrangeWhenLow)
{
    const Rgb high = Sun{true, 0, 60}.colour();
    const Rgb low = Sun{true, 0, -2}.colour();
    EXPECT_GT(high.z, 0.8);
    EXPECT_LT(low.z, 0.15);
    EXPECT_GT(low.x, 0.9);
    EXPECT_LT(Sun({true, 0, 10}).colour().z, Sun({true, 0, 20}).colour().z);
}

TEST(Sun, IsOffWithoutAStudio)
{
    EXPECT_FALSE(readSun(nullptr).isOn);
}

TEST(Vectors, AreCalculatedWith)
{
    const Vec a{1, 2, 3};
    const Vec b{4, -5, 6};
    EXPECT_EQ(dot(a, b), 12);
    const Vec c = cross(a, b);
    EXPECT_EQ(c.x, 27);
    EXPECT_EQ(c.y, 6);
    EXPECT_EQ(c.z, -13);
    EXPECT_EQ(length(Vec{2, 3, 6}), 7);
    EXPECT_NEAR(length(normalised(b)), 1, 1e-12);
    EXPECT_EQ(length(normalised(Vec())), 0);
    EXPECT_EQ(mixed(2, 6, 0.25), 3);
    EXPECT_EQ(smoothStep(1, 3, 0), 0);
    EXPECT_EQ(smoothStep(1, 3, 2), 0.5);
    EXPECT_EQ(smoothStep(1, 3, 4), 1);
    EXPECT_EQ(clamped(std::nan("")), 0);
    EXPECT_EQ(clamped(-1, 0, 2), 0);
    EXPECT_EQ(clamped(1, 0, 2), 1);
    EXPECT_EQ(clamped(3, 0, 2), 2);
    EXPECT_NEAR(luminance(Rgb{1, 1, 1}), 1, 1e-12);
}

} // namespace rvopen::test

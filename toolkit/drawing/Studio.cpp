// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Studio.h"

namespace rvopen::toolkit::drawing {

namespace {

AreaLight softBox(double azimuth, double altitude, double halfWidth, double halfHeight,
                  double brightness)
{
    AreaLight light;
    const double a = radians(azimuth);
    const double h = radians(altitude);
    // Azimuth from the camera's side towards the right.
    light.towards = {std::sin(a) * std::cos(h), -std::cos(a) * std::cos(h), std::sin(h)};
    light.halfWidth = std::tan(radians(halfWidth));
    light.halfHeight = std::tan(radians(halfHeight));
    light.radiance = grey(brightness);
    return light;
}

/// A bright sheet behind the table, dark walls to the sides and behind the camera, a lit ceiling.
Rgb room(const Vec& direction)
{
    const double behind = smoothStep(0.1, 0.75, direction.y);
    const double up = direction.z;
    const double wall = mixed(0.10, 0.34, smoothStep(-0.1, 0.95, up));
    const double sheet = mixed(0.86, 0.62, smoothStep(0.0, 0.8, up));
    const double light = mixed(wall, sheet, behind);
    return {light, light, light * 1.01};
}

} // namespace

Scene studio(const Surface& surface)
{
    Scene scene;
    scene.lights = {softBox(-48, 48, 17, 21, 7.2), softBox(62, 28, 5, 24, 3.6),
                    softBox(150, 55, 22, 10, 2.4)};
    scene.surroundings = room;
    // What shines through shows best before strong chequers.
    const bool isClear = surface.isGlass() || surface.hasOpacity();
    scene.ground = [isClear](const Vec& point) {
        constexpr double side = 0.75;
        const bool isLight = isLightField(point, side);
        const double value = isLight ? 0.56 : isClear ? 0.27 : 0.48;
        return Rgb{value, value, value * 0.99};
    };
    scene.groundFadesFrom = 2.5;
    scene.groundFadesTo = 9;
    scene.groundFadesInto = room({0, 1, 0});
    scene.view = viewFrom({0, -8, 2.9}, {0, 0, 0.93}, 21.5);
    return scene;
}

Ball studioBall(const Surface& surface)
{
    Ball ball;
    ball.centre = {0, 0, 1};
    ball.surface = &surface;
    double diameter = 1;
    const double largest = surface.largestImage();
    if (largest > 0) {
        while (largest < diameter / 3)
            diameter /= 2;
        while (largest > diameter * 2)
            diameter *= 2;
    }
    ball.scale = diameter / 2;
    return ball;
}

} // namespace rvopen::toolkit::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ColourDistance.h"

#include "Raster.h"

#include <cmath>

namespace rvopen::toolkit::drawing {

namespace {

/// The compression of CIE L*a*b* (CIE 15).
double compressed(double t)
{
    constexpr double edge = 6.0 / 29;
    return t > edge * edge * edge ? std::cbrt(t) : t / (3 * edge * edge) + 4.0 / 29;
}

/// How far a chroma is from grey, for the two corrections that count for colours near or far from
/// it alone.
double saturation(double chroma)
{
    const double seventh = std::pow(chroma, 7);
    return std::sqrt(seventh / (seventh + std::pow(25.0, 7)));
}

/// In degrees from 0 to 360.
double hueOf(double a, double b)
{
    if (a == 0 && b == 0)
        return 0;
    const double hue = degrees(std::atan2(b, a));
    return hue < 0 ? hue + 360 : hue;
}

double square(double x)
{
    return x * x;
}

} // namespace

Lab labOf(const float (&srgb)[3])
{
    const Rgb light = toLinear(withinUnit(srgb));
    // Primaries and white of IEC 61966-2-1: each sum of a row is the white of D65.
    const double x = compressed((0.4124 * light.x + 0.3576 * light.y + 0.1805 * light.z) /
                                (0.4124 + 0.3576 + 0.1805));
    const double y = compressed(luminance(light));
    const double z = compressed((0.0193 * light.x + 0.1192 * light.y + 0.9505 * light.z) /
                                (0.0193 + 0.1192 + 0.9505));
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double colourDistance(const Lab& first, const Lab& second)
{
    const double meanChroma = (std::hypot(first.a, first.b) + std::hypot(second.a, second.b)) / 2;
    const double stretch = 1 + 0.5 * (1 - saturation(meanChroma));
    const double a1 = stretch * first.a;
    const double a2 = stretch * second.a;
    const double c1 = std::hypot(a1, first.b);
    const double c2 = std::hypot(a2, second.b);
    const double h1 = hueOf(a1, first.b);
    const double h2 = hueOf(a2, second.b);
    const bool hasGrey = c1 * c2 == 0;

    double turn = hasGrey ? 0 : h2 - h1;
    if (turn > 180)
        turn -= 360;
    else if (turn < -180)
        turn += 360;
    double hue = h1 + h2;
    if (!hasGrey && std::fabs(h1 - h2) <= 180)
        hue /= 2;
    else if (!hasGrey)
        hue = (hue < 360 ? hue + 360 : hue - 360) / 2;

    const double lightness = (first.l + second.l) / 2;
    const double chroma = (c1 + c2) / 2;
    const double t = 1 - 0.17 * std::cos(radians(hue - 30)) + 0.24 * std::cos(radians(2 * hue)) +
                     0.32 * std::cos(radians(3 * hue + 6)) - 0.20 * std::cos(radians(4 * hue - 63));
    const double fromMiddle = square(lightness - 50);
    const double dl = (second.l - first.l) / (1 + 0.015 * fromMiddle / std::sqrt(20 + fromMiddle));
    const double dc = (c2 - c1) / (1 + 0.045 * chroma);
    const double dh =
        2 * std::sqrt(c1 * c2) * std::sin(radians(turn / 2)) / (1 + 0.015 * chroma * t);
    const double blue = 30 * std::exp(-square((hue - 275) / 25));
    const double rotation = -2 * saturation(chroma) * std::sin(radians(2 * blue));
    return std::sqrt(dl * dl + dc * dc + dh * dh + rotation * dc * dh);
}

} // namespace rvopen::toolkit::drawing

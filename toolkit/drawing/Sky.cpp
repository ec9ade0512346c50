// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Sky.h"

#include "View.h"

#include <rvopen/NaturalLightStudio.h>

namespace rvopen::toolkit::drawing {

namespace {

/// Of the air: a clear day. All figures of the sky that depend on it are those of the appendix of
/// A. J. Preetham, P. Shirley and B. Smits, "A practical analytic model for daylight", 1999.
constexpr double s_turbidity = 2.6;

/// The distribution over the sky in the form of R. Perez, R. Seals and J. Michalsky, "All-weather
/// model for sky luminance distribution", 1993.
struct Perez {
    double a, b, c, d, e;

    double at(double zenith, double toSun) const
    {
        const double cosine = std::max(std::cos(zenith), 0.012);
        const double s = std::cos(toSun);
        return (1 + a * std::exp(b / cosine)) * (1 + c * std::exp(d * toSun) + e * s * s);
    }

    double relative(double zenith, double toSun, double sunZenith) const
    {
        return at(zenith, toSun) / at(0, sunZenith);
    }
};

Perez perez(const double (&slopes)[5], const double (&values)[5])
{
    const auto at = [&](int i) { return slopes[i] * s_turbidity + values[i]; };
    return {at(0), at(1), at(2), at(3), at(4)};
}

double cubic(double x, double a, double b, double c, double d)
{
    return ((a * x + b) * x + c) * x + d;
}

/// From chromaticity and luminance to the primaries of sRGB (IEC 61966-2-1).
Rgb fromChromaticity(double x, double y, double luminance)
{
    const double bigX = x / y * luminance;
    const double bigZ = (1 - x - y) / y * luminance;
    return {std::max(3.2406 * bigX - 1.5372 * luminance - 0.4986 * bigZ, 0.0),
            std::max(-0.9689 * bigX + 1.8758 * luminance + 0.0415 * bigZ, 0.0),
            std::max(0.0557 * bigX - 0.2040 * luminance + 1.0570 * bigZ, 0.0)};
}

Rgb daySky(const Vec& direction, double sunZenith, const Vec& towardsSun)
{
    static const Perez luminances = perez({0.1787, -0.3554, -0.0227, 0.1206, -0.0670},
                                          {-1.4630, 0.4275, 5.3251, -2.5771, 0.3703});
    static const Perez xs = perez({-0.0193, -0.0665, -0.0004, -0.0641, -0.0033},
                                  {-0.2592, 0.0008, 0.2125, -0.8989, 0.0452});
    static const Perez ys = perez({-0.0167, -0.0950, -0.0079, -0.0441, -0.0109},
                                  {-0.2608, 0.0092, 0.2102, -1.6537, 0.0529});
    const double t = s_turbidity;
    const double x = t * t * cubic(sunZenith, 0.00166, -0.00375, 0.00209, 0) +
                     t * cubic(sunZenith, -0.02903, 0.06377, -0.03202, 0.00394) +
                     cubic(sunZenith, 0.11693, -0.21196, 0.06052, 0.25886);
    const double y = t * t * cubic(sunZenith, 0.00275, -0.00610, 0.00317, 0) +
                     t * cubic(sunZenith, -0.04214, 0.08970, -0.04153, 0.00516) +
                     cubic(sunZenith, 0.15346, -0.26756, 0.06670, 0.26688);
    const double zenith = std::acos(clamped(direction.z, 0, 1));
    const double toSun = std::acos(clamped(dot(direction, towardsSun), -1, 1));
    return fromChromaticity(x * xs.relative(zenith, toSun, sunZenith),
                            y * ys.relative(zenith, toSun, sunZenith),
                            luminances.relative(zenith, toSun, sunZenith));
}

} // namespace

Rgb Sun::colour() const
{
    // White when high, orange through the long way in the air when low; by eye.
    return mixed(fromHex(0xff9a4a), fromHex(0xfff8ec), smoothStep(-2, 32, altitude));
}

Sun readSun(NaturalLightStudio* studio)
{
    Sun sun;
    int isOn = 1;
    float azimuth = 180;
    float altitude = 45;
    if (!studio)
        return sun;
    studio->GetEnabled(&isOn);
    studio->GetSunAzimuth(&azimuth);
    studio->GetSunAltitude(&altitude);
    sun.isOn = isOn != 0;
    if (std::isfinite(azimuth))
        sun.azimuth = std::fmod(double(azimuth), 360.0);
    if (sun.azimuth < 0)
        sun.azimuth += 360;
    if (std::isfinite(altitude))
        sun.altitude = clamped(double(altitude), -90, 90);
    return sun;
}

Rgb clearSky(const Vec& direction, const Sun& sun)
{
    const double shown = std::max(sun.altitude, 1.0);
    const Rgb relative =
        daySky(direction, radians(90 - shown), Orientation().towards(sun.azimuth, shown));
    // The zenith is darker the lower the sun; the exposure follows only in part, as eyes do.
    const double exposure = mixed(0.16, 0.34, smoothStep(-2, 45, sun.altitude));
    const auto exposed = [exposure](double light) { return 1 - std::exp(-light * exposure); };
    Rgb light{exposed(relative.x), exposed(relative.y), exposed(relative.z)};
    // What the exposure takes of the colour it gets back.
    light = mixed(grey(luminance(light)), light, 1.45);
    light = {std::max(light.x, 0.0), std::max(light.y, 0.0), std::max(light.z, 0.0)};
    const double night = 1 - smoothStep(-14, 3, sun.altitude);
    const Rgb dark = mixed(fromHex(0x24304e), fromHex(0x070b1a), std::sqrt(clamped(direction.z)));
    return mixed(light, dark, night);
}

void drawSky(Raster& raster, const Sun& sun)
{
    constexpr double horizon = 0.74;
    const double aspect = raster.aspect();
    const auto place = [&](double azimuth, double altitude) {
        return Point{azimuth / 360 * aspect, horizon * (1 - altitude / 90)};
    };
    const Point at = place(sun.azimuth, sun.altitude);
    raster.fill([&](const Point& point) {
        const double altitude = 90 * (1 - point.y / horizon);
        if (altitude < 0)
            return Rgb();
        const Vec direction = Orientation().towards(point.x / aspect * 360, altitude);
        if (!sun.isOn)
            return mixed(fromHex(0xd3d6d8), fromHex(0x9ba3aa), std::sqrt(direction.z));
        Rgb light = clearSky(direction, sun);
        // Larger than life, with a glow; over the edge it goes on at the other side.
        double across = std::fabs(point.x - at.x);
        across = std::min(across, aspect - across);
        const double off = std::sqrt(across * across + (point.y - at.y) * (point.y - at.y));
        return mixed(light, mixed(sun.colour(), {3, 3, 2.8}, 0.5),
                     1 - smoothStep(0.036, 0.042, off));
    });
    raster.rollOff();
    const double light = sun.isOn ? smoothStep(-10, 40, sun.altitude) : 0.55;
    const Rgb ground = mixed(fromHex(0x1b2126), fromHex(0x6f7a5c), light);
    raster.rectangle(0, horizon, aspect, 1, ground);
    // A compass, north above, with a ray from the sun.
    const Point centre{aspect / 2, (1 + horizon) / 2};
    const Rgb pale = mixed(ground, {0.9, 0.9, 0.88}, 0.75);
    raster.line(circle(centre, 0.105), 0.010, pale, true);
    for (int i = 0; i < 4; ++i) {
        const double angle = radians(90.0 * i);
        const Point out{std::sin(angle), -std::cos(angle)};
        const double from = i == 0 ? 0.066 : 0.086;
        raster.line({{centre.x + out.x * from, centre.y + out.y * from},
                     {centre.x + out.x * 0.105, centre.y + out.y * 0.105}},
                    i == 0 ? 0.02 : 0.010, pale);
    }
    if (sun.isOn) {
        const double angle = radians(sun.azimuth);
        const Point out{std::sin(angle), -std::cos(angle)};
        const Rgb colour = fromHex(0xffb429);
        raster.line({centre, {centre.x + out.x * 0.084, centre.y + out.y * 0.084}}, 0.018, colour);
        raster.disc({centre.x + out.x * 0.105, centre.y + out.y * 0.105}, 0.026, colour);
    }
    raster.disc(centre, 0.016, pale);
}

} // namespace rvopen::toolkit::drawing

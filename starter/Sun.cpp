// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Sun.h"

#include <cmath>

namespace rvopen::starter {

namespace {

const double s_pi = 3.14159265358979323846;

double radians(double degrees)
{
    return degrees * s_pi / 180;
}

double tenths(double value)
{
    // Adding 0 turns -0 into 0.
    return std::floor(value * 10 + 0.5) / 10 + 0.0;
}

} // namespace

SunPosition sunPosition(double latitude, int day, double hour)
{
    // Cooper (1969), "The absorption of radiation in solar stills", Solar Energy 12: the sun's
    // declination on a day of the year.
    const double declination = radians(23.45 * std::sin(2 * s_pi * (284 + day) / 365));
    const double hourAngle = radians(15 * (hour - 12));
    const double phi = radians(latitude);
    // Spherical triangle of pole, zenith and sun.
    const double sine = std::sin(phi) * std::sin(declination) +
                        std::cos(phi) * std::cos(declination) * std::cos(hourAngle);
    const double fromSouth =
        std::atan2(std::sin(hourAngle),
                   std::cos(hourAngle) * std::sin(phi) - std::tan(declination) * std::cos(phi));
    double azimuth = tenths(fromSouth * 180 / s_pi + 180);
    if (azimuth >= 360)
        azimuth -= 360;
    return {azimuth, tenths(std::asin(sine) * 180 / s_pi)};
}

} // namespace rvopen::starter

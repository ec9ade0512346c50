// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Sun.h"

#include <QDate>

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

/// The sun's declination at an hour of world time, in radians, by the "low-precision formulas for
/// the Sun's coordinates" of The Astronomical Almanac, section C.
double declinationOf(const QDate& day, double hour)
{
    // Noon of 1 January 2000, and of each day as a whole number.
    const qint64 epoch = 2451545;
    const double n = double(day.toJulianDay() - epoch) + (hour - 12) / 24;
    const double meanLongitude = 280.460 + 0.9856474 * n;
    const double meanAnomaly = radians(357.528 + 0.9856003 * n);
    const double longitude =
        radians(meanLongitude + 1.915 * std::sin(meanAnomaly) + 0.020 * std::sin(2 * meanAnomaly));
    const double obliquity = radians(23.439 - 0.0000004 * n);
    return std::asin(std::sin(obliquity) * std::sin(longitude));
}

} // namespace

SunPosition sunPosition(double latitude, const QDate& day, double hour)
{
    const double declination = declinationOf(day, hour);
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

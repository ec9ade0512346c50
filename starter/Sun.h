// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

class QDate;

namespace rvopen::starter {

/// Where the sun stands, in degrees: from north clockwise, and above the horizon.
struct SunPosition {
    double azimuth = 0;
    double altitude = 0;
};

/// For a latitude in degrees, a day and an hour of true solar time, on the meridian of Greenwich
/// and without the refraction of the air. Rounded to tenths; the formulae are exact to hundredths
/// from 1950 to 2050. Elsewhere on the earth the sun may stand up to 0.2 degrees higher or lower at
/// the same hour, since its declination changes by up to 0.4 in a day.
SunPosition sunPosition(double latitude, const QDate& day, double hour);

} // namespace rvopen::starter

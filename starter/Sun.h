// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen::starter {

/// Where the sun stands, in degrees: from north clockwise, and above the horizon.
struct SunPosition {
    double azimuth = 0;
    double altitude = 0;
};

/// For a latitude in degrees, a day of the year and an hour of true solar time. Rounded to tenths:
/// the formulae are not exact to more.
SunPosition sunPosition(double latitude, int day, double hour);

} // namespace rvopen::starter

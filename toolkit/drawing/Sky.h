// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Raster.h"

namespace rvopen {
class NaturalLightStudio;
}

namespace rvopen::toolkit::drawing {

/// Where the sun stands, in degrees: azimuth from north clockwise.
struct Sun {
    bool isOn = false;
    double azimuth = 180;
    double altitude = 45;

    Rgb colour() const;
};

Sun readSun(NaturalLightStudio* studio);

/// The clear sky in a direction (x east, y north, z up) under the sun, by day between 0 and about
/// 1; after A. J. Preetham, P. Shirley and B. Smits, "A practical analytic model for daylight",
/// 1999. Below the horizon the sun leaves dusk and night.
Rgb clearSky(const Vec& direction, const Sun& sun);

/// The sky all around, south in the middle, with the sun in it, and below a compass with its ray.
void drawSky(Raster& raster, const Sun& sun);

} // namespace rvopen::toolkit::drawing

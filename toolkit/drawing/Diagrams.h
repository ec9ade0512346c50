// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Backdrop.h"
#include "Raster.h"
#include "Scene.h"
#include "View.h"

namespace rvopen {
class Foreground;
class Scheme;
} // namespace rvopen

namespace rvopen::toolkit::drawing {

/// Mist as documents have it, in scene units; off for any other foreground.
Mist readMist(Foreground* foreground);

/// From above: the camera, its angle of view to scale, and who of a row of people is in it.
void drawAngle(Raster& raster, double degrees, bool isOrthographic = false);

/// From the side, to scale: where the camera is above the ground, where it looks to, and its angle
/// up the height of an image of 3 to 2; of an up vector where it points to.
void drawCamera(Raster& raster, const CameraValues& camera);

/// A frame of that ratio of width to height with a landscape in it, and its outline on edge.
void drawAspectRatio(Raster& raster, double ratio);
void drawOrientation(Raster& raster, bool isPortrait);

enum class SchemeKind { Other, Exterior, Interior, Product };
SchemeKind schemeKind(const Scheme& scheme);
void drawScheme(Raster& raster, SchemeKind kind, const Backdrop& backdrop);

/// Trees at 5 to 500 scene units in the mist.
void drawMist(Raster& raster, const Mist& mist);

} // namespace rvopen::toolkit::drawing

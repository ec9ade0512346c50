// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Vec.h"

namespace rvopen {
class Camera;
class Lens;
class SnapShotSettings;
} // namespace rvopen

namespace rvopen::toolkit::drawing {

/// How a model stands: up and north at right angles, of the length 1.
struct Orientation {
    Vec up{0, 0, 1};
    Vec north{0, 1, 0};
    /// In which direction its front looks.
    Vec frontFace{0, -1, 0};

    Vec east() const;
    /// In degrees: azimuth from north to the east, altitude above the horizon.
    Vec towards(double azimuth, double altitude) const;
    double azimuthOf(const Vec& direction) const;
    double altitudeOf(const Vec& direction) const;
};

/// Null gives the axes of a model without an orientation.
Orientation readOrientation(SnapShotSettings* settings);

/// In degrees; 0 where there is none.
double readTwist(SnapShotSettings* settings);

/// Beyond everything that a scene has.
inline constexpr double Endless = 1e30;

/// A camera as documents have it.
struct CameraValues {
    /// It has "From" and "To", and they are apart.
    bool hasPlace = false;
    bool isUpVector = false;
    Vec from;
    Vec to;
    Vec up{0, 0, 1};
    bool isParallel = false;
    /// Across the width of the image, in degrees.
    double angle = 45;
    double nearDistance = 0;
    double farDistance = Endless;
};

CameraValues readCamera(Camera* camera);

struct Ray {
    Vec from;
    /// Of the length 1.
    Vec direction;
};

/// What an image shows, by three directions at right angles.
struct View {
    Vec from;
    Vec to;
    Vec right;
    Vec up;
    Vec forward;
    /// Tangent of half the angle across the width of the image.
    double halfTangent = 1;
    bool isParallel = false;
    /// Along the line of sight, from the plane through \p from.
    double nearDistance = 0;
    double farDistance = Endless;

    double distance() const;
    /// Half of the width that the image shows in the plane through \p to.
    double halfWidth() const;
    /// Through a place in the image: from its middle to the right and upwards, in halves of its
    /// width.
    Ray rayAt(double x, double y) const;
    /// Rolled clockwise for who looks through the camera, in degrees.
    View twisted(double angle) const;
};

/// A perspective view. \p upwards need not be at right angles to the line of sight; null or along
/// it, up or north of the orientation takes its place. \p angle is across the width, in degrees.
View viewFrom(const Vec& from, const Vec& to, double angle, const Vec& upwards = {0, 0, 1},
              const Orientation& orientation = Orientation());

/// The view of a camera that has a place.
View viewOf(const CameraValues& camera, const Orientation& orientation, double twist);

/// An angle of which the tangent of half is \p ratio times that of half of \p angle, in degrees:
/// with height / width the angle up the height of an image from that across its width.
double scaledAngle(double angle, double ratio);

/// How far the middle of a sphere has to be away to fit into an image of that width to height.
double fittingDistance(double radius, double angle, double aspect, bool isParallel);

/// Gives the camera the angle of a lens; all else stays. StatusMissing, with nothing changed, when
/// the lens has no angle or the camera no "Field Of View".
unsigned int applyLens(Lens* lens, Camera* camera);

} // namespace rvopen::toolkit::drawing

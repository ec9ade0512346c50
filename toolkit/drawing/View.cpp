// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "View.h"

#include <rvopen/Camera.h>
#include <rvopen/Lens.h>
#include <rvopen/Param.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/SnapShotSettings.h>

namespace rvopen::toolkit::drawing {

namespace {

/// Angles at which something can be seen.
constexpr double s_minAngle = 0.5;
constexpr double s_maxAngle = 179;
/// Sines of angles below are taken for parallels.
constexpr double s_parallel = 1e-4;
constexpr double s_maxPlace = 1e9;

bool isPlace(const Vec& point)
{
    return std::fabs(point.x) < s_maxPlace && std::fabs(point.y) < s_maxPlace &&
           std::fabs(point.z) < s_maxPlace;
}

/// Null for what is no direction.
Vec directionOf(const float (&values)[3])
{
    const Vec direction{double(values[0]), double(values[1]), double(values[2])};
    return std::isfinite(length(direction)) ? normalised(direction) : Vec();
}

/// What of a direction is at right angles to an axis; null where that is next to nothing.
Vec across(const Vec& direction, const Vec& axis)
{
    const Vec unit = normalised(direction);
    const Vec rest = unit - axis * dot(unit, axis);
    return length(rest) > s_parallel ? normalised(rest) : Vec();
}

bool isNull(const Vec& vector)
{
    return length(vector) <= 0;
}

} // namespace

Vec Orientation::east() const
{
    return cross(north, up);
}

Vec Orientation::towards(double azimuth, double altitude) const
{
    const double a = radians(azimuth);
    const double h = radians(altitude);
    return (north * std::cos(a) + east() * std::sin(a)) * std::cos(h) + up * std::sin(h);
}

double Orientation::azimuthOf(const Vec& direction) const
{
    return degrees(std::atan2(dot(direction, east()), dot(direction, north)));
}

double Orientation::altitudeOf(const Vec& direction) const
{
    return degrees(std::asin(clamped(dot(normalised(direction), up), -1, 1)));
}

Orientation readOrientation(SnapShotSettings* settings)
{
    Orientation orientation;
    if (!settings)
        return orientation;
    float up[3] = {0, 0, 0};
    float north[3] = {0, 0, 0};
    float frontFace[3] = {0, 0, 0};
    settings->GetOrientationInfo(up, north, frontFace);
    const Vec upwards = directionOf(up);
    const Vec northwards = isNull(upwards) ? Vec() : across(directionOf(north), upwards);
    if (isNull(northwards))
        return orientation;
    orientation.up = upwards;
    orientation.north = northwards;
    const Vec front = directionOf(frontFace);
    orientation.frontFace = isNull(front) ? northwards * -1 : front;
    return orientation;
}

double readTwist(SnapShotSettings* settings)
{
    float twist = 0;
    if (settings)
        settings->GetTwist(&twist);
    return std::isfinite(twist) ? std::fmod(double(twist), 360.0) : 0;
}

CameraValues readCamera(Camera* camera)
{
    CameraValues values;
    if (!camera)
        return values;
    const float unset = 1e30F;
    float from[3] = {unset, 0, 0};
    float to[3] = {unset, 0, 0};
    float up[3] = {0, 0, 1};
    int isOrthographic = 0;
    float angle = 45;
    camera->GetPinhole(from, to, up, &isOrthographic, &angle);
    values.isUpVector = camera->IsUpVector() != 0;
    values.from = {from[0], from[1], from[2]};
    values.to = {to[0], to[1], to[2]};
    values.hasPlace =
        isPlace(values.from) && isPlace(values.to) && length(values.from - values.to) > 1e-6;
    values.up = directionOf(up);
    values.isParallel = isOrthographic != 0;
    if (std::isfinite(angle))
        values.angle = clamped(double(angle), s_minAngle, s_maxAngle);
    float nearDistance = 0;
    float farDistance = 0;
    ParamHelper* const params = camera->GetParamHelper();
    params->GetValFloat(QStringLiteral("Near"), &nearDistance);
    // Both are 0 in a new camera, which shows what there is.
    if (params->GetValFloat(QStringLiteral("Far"), &farDistance) == 0 && farDistance > nearDistance)
        values.farDistance = double(farDistance);
    values.nearDistance = clamped(double(nearDistance), 0, values.farDistance);
    return values;
}

double View::distance() const
{
    return length(to - from);
}

double View::halfWidth() const
{
    return distance() * halfTangent;
}

Ray View::rayAt(double x, double y) const
{
    if (isParallel)
        return {from + (right * x + up * y) * halfWidth(), forward};
    return {from, normalised(forward + right * (x * halfTangent) + up * (y * halfTangent))};
}

View View::twisted(double angle) const
{
    const double c = std::cos(radians(angle));
    const double s = std::sin(radians(angle));
    View view = *this;
    view.right = right * c - up * s;
    view.up = up * c + right * s;
    return view;
}

View viewFrom(const Vec& from, const Vec& to, double angle, const Vec& upwards,
              const Orientation& orientation)
{
    View view;
    view.from = from;
    view.to = to;
    view.forward = normalised(to - from);
    view.halfTangent = std::tan(radians(angle) / 2);
    for (const Vec& candidate : {upwards, orientation.up, orientation.north}) {
        const Vec up = across(candidate, view.forward);
        if (isNull(up))
            continue;
        view.right = normalised(cross(view.forward, up));
        break;
    }
    view.up = cross(view.right, view.forward);
    return view;
}

View viewOf(const CameraValues& camera, const Orientation& orientation, double twist)
{
    View view = viewFrom(camera.from, camera.to, camera.angle, camera.up, orientation);
    view.isParallel = camera.isParallel;
    view.nearDistance = camera.nearDistance;
    view.farDistance = camera.farDistance;
    return view.twisted(twist);
}

double scaledAngle(double angle, double ratio)
{
    return degrees(2 * std::atan(std::tan(radians(angle) / 2) * ratio));
}

double fittingDistance(double radius, double angle, double aspect, bool isParallel)
{
    const double narrower = radians(std::min(angle, scaledAngle(angle, 1 / aspect)));
    return radius / (isParallel ? std::tan(narrower / 2) : std::sin(narrower / 2));
}

unsigned int applyLens(Lens* lens, Camera* camera)
{
    float angle = 0;
    Param* const field = camera->GetParamHelper()->GetParam(QStringLiteral("Field Of View"));
    if (!field || lens->GetAngle(&angle) != StatusOk)
        return StatusMissing;
    return field->SetValFloat(angle);
}

} // namespace rvopen::toolkit::drawing

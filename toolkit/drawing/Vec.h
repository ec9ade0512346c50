// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cmath>

namespace rvopen::toolkit::drawing {

inline constexpr double Pi = 3.14159265358979323846;

/// A point, a direction, or linear light in red, green and blue.
struct Vec {
    double x = 0;
    double y = 0;
    double z = 0;
};

using Rgb = Vec;

inline Rgb grey(double value)
{
    return {value, value, value};
}

inline Vec operator+(const Vec& a, const Vec& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Vec operator-(const Vec& a, const Vec& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Vec operator*(const Vec& a, const Vec& b)
{
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}

inline Vec operator*(const Vec& a, double k)
{
    return {a.x * k, a.y * k, a.z * k};
}

inline Vec& operator+=(Vec& a, const Vec& b)
{
    a = a + b;
    return a;
}

inline double dot(const Vec& a, const Vec& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vec cross(const Vec& a, const Vec& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(const Vec& a)
{
    return std::sqrt(dot(a, a));
}

/// The null vector stays what it is.
inline Vec normalised(const Vec& a)
{
    const double l = length(a);
    return l > 0 ? a * (1 / l) : a;
}

inline Vec reflected(const Vec& direction, const Vec& normal)
{
    return direction - normal * (2 * dot(direction, normal));
}

/// What is not a number becomes \p low.
inline double clamped(double value, double low = 0, double high = 1)
{
    return value > low ? (value < high ? value : high) : low;
}

inline double mixed(double a, double b, double t)
{
    return a + (b - a) * t;
}

inline Vec mixed(const Vec& a, const Vec& b, double t)
{
    return a + (b - a) * t;
}

/// Channel by channel.
inline Rgb mixed(const Rgb& a, const Rgb& b, const Rgb& t)
{
    return a + (b - a) * t;
}

/// Whether a point on the ground is on a light field of chequers.
inline bool isLightField(const Vec& point, double side)
{
    const double sum = std::floor(point.x / side) + std::floor(point.y / side);
    return std::fmod(std::fabs(sum), 2) > 0.5;
}

/// The cubic step 3t^2 - 2t^3 between two edges.
inline double smoothStep(double low, double high, double value)
{
    const double t = clamped((value - low) / (high - low));
    return t * t * (3 - 2 * t);
}

inline double radians(double degrees)
{
    return degrees * Pi / 180;
}

inline double degrees(double radians)
{
    return radians * 180 / Pi;
}

/// Luminance of linear light with the primaries of sRGB (ITU-R BT.709).
inline double luminance(const Rgb& c)
{
    return 0.2126 * c.x + 0.7152 * c.y + 0.0722 * c.z;
}

/// A right-handed frame around a direction.
struct Frame {
    Vec u;
    Vec v;
    Vec w;

    explicit Frame(const Vec& axis)
        : w(axis)
    {
        const Vec up = std::fabs(axis.z) < 0.99 ? Vec{0, 0, 1} : Vec{0, 1, 0};
        u = normalised(cross(up, w));
        v = cross(w, u);
    }

    Vec toWorld(const Vec& local) const
    {
        return u * local.x + v * local.y + w * local.z;
    }
};

} // namespace rvopen::toolkit::drawing

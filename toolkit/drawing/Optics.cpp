// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Optics.h"

#include <array>

namespace rvopen::toolkit::drawing {

namespace {

/// The radical inverse in base 2 (J. G. van der Corput, 1935): a fixed sequence that fills 0 to 1
/// evenly.
double radicalInverse(unsigned int i)
{
    double result = 0;
    double digit = 0.5;
    for (; i > 0; i >>= 1U, digit /= 2) {
        if (i & 1U)
            result += digit;
    }
    return result;
}

} // namespace

double facetWidth(double roughness)
{
    return roughness * roughness;
}

Vec facet(double alpha, int sample, int ray)
{
    struct Turn {
        double c;
        double s;
    };
    constexpr int count = LobeSamples * RaysPerPixel;
    static const std::array<Turn, count> turns = [] {
        std::array<Turn, count> values{};
        for (unsigned int i = 0; i < values.size(); ++i) {
            const double angle = 2 * Pi * radicalInverse(i);
            values[i] = {std::cos(angle), std::sin(angle)};
        }
        return values;
    }();
    const int index = sample * RaysPerPixel + ray;
    const double u = (index + 0.5) / count;
    const Turn& turn = turns[std::size_t(index)];
    const double c = 1 / std::sqrt(1 + alpha * alpha * u / (1 - u));
    const double sine = std::sqrt(std::max(0.0, 1 - c * c));
    return {sine * turn.c, sine * turn.s, c};
}

double shadowing(double cosine, double alpha)
{
    const double c2 = cosine * cosine;
    return 2 / (1 + std::sqrt(1 + alpha * alpha * (1 - c2) / c2));
}

double towardsGrazing(double cosine)
{
    const double m = clamped(1 - cosine);
    return m * m * m * m * m;
}

double fresnel(double cosine, double ratio)
{
    const double s2 = ratio * ratio * (1 - cosine * cosine);
    if (s2 >= 1)
        return 1;
    const double t = std::sqrt(1 - s2);
    const double a = (cosine - ratio * t) / (cosine + ratio * t);
    const double b = (ratio * cosine - t) / (ratio * cosine + t);
    return (a * a + b * b) / 2;
}

bool refracted(const Vec& direction, const Vec& normal, double ratio, Vec& result)
{
    const double c = -dot(direction, normal);
    const double s2 = ratio * ratio * (1 - c * c);
    if (s2 >= 1)
        return false;
    result = normalised(direction * ratio + normal * (ratio * c - std::sqrt(1 - s2)));
    return true;
}

Rgb afterGlass(const Rgb& colour, double part)
{
    const auto channel = [part](double value) { return value <= 0 ? 0.0 : std::pow(value, part); };
    return {channel(colour.x), channel(colour.y), channel(colour.z)};
}

} // namespace rvopen::toolkit::drawing

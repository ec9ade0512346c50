// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Vec.h"

#include <QImage>

#include <functional>
#include <vector>

namespace rvopen::toolkit::drawing {

/// \name Transfer function of sRGB (IEC 61966-2-1)
/// @{
double toLinear(double encoded);
double toEncoded(double linear);
Rgb toLinear(const Vec& encoded);
/// A colour as documents have it, taken into 0 to 1; what is no number is 0.
Vec withinUnit(const float (&stored)[3]);
/// 0xrrggbb
Rgb fromHex(unsigned int rgb);
/// @}

struct Point {
    double x = 0;
    double y = 0;
};

using Polygon = std::vector<Point>;

/// The stored value of light in an image of that gamma, 0 to 1; without one, 0, that of sRGB.
double encodedBy(double light, double gamma);

/// A picture in linear light. Shapes are in the unit of its height, from the left upper corner.
class Raster {
public:
    Raster(int width, int height);

    int width() const;
    int height() const;
    /// Width in units of the height.
    double aspect() const;
    Rgb& at(int x, int y);

    /// \name Painting
    /// Edges are anti-aliased by the area that a shape covers of a pixel.
    /// @{
    void fill(const std::function<Rgb(const Point&)>& colourAt);
    /// What is inside by the even-odd rule.
    void fill(const Polygon& polygon, const Rgb& colour, double opacity = 1);
    void fill(const Polygon& polygon, const std::function<Rgb(const Point&)>& colourAt,
              double opacity = 1);
    void line(const Polygon& points, double width, const Rgb& colour, bool isClosed = false,
              double opacity = 1);
    void disc(const Point& centre, double radius, const Rgb& colour, double opacity = 1);
    void rectangle(double left, double top, double right, double bottom, const Rgb& colour,
                   double opacity = 1);
    /// @}

    /// Light of more than four fifths of white approaches white instead of being cut off.
    void rollOff();
    /// Encoded; light beyond white is cut off.
    QImage toImage() const;

private:
    std::vector<double> coverage(const Polygon& polygon, int& left, int& top, int& right,
                                 int& bottom) const;

    int m_width;
    int m_height;
    std::vector<Rgb> m_pixels;
};

Polygon circle(const Point& centre, double radius);
/// A part of a circle from one angle to another in degrees, clockwise from the right.
Polygon arc(const Point& centre, double radius, double from, double to);

} // namespace rvopen::toolkit::drawing

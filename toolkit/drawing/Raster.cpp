// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Raster.h"

#include "toolkit/documents/Stopping.h"

namespace rvopen::toolkit::drawing {

namespace {

/// Lines that each row of pixels is cut into; across a line coverage is exact.
constexpr int s_linesPerRow = 8;

/// 72 per inch.
constexpr int s_dotsPerMetre = 2835;

/// Light up to there is shown as it is; what is above approaches white.
constexpr double s_shoulder = 0.8;

double rolledOff(double light)
{
    if (light <= s_shoulder)
        return std::max(light, 0.0);
    const double above = (light - s_shoulder) / (1 - s_shoulder);
    return s_shoulder + (1 - s_shoulder) * above / (1 + above);
}

int quantised(double light)
{
    return int(toEncoded(clamped(light)) * 255 + 0.5);
}

} // namespace

double toLinear(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

double toEncoded(double linear)
{
    return linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

Rgb toLinear(const Vec& encoded)
{
    return {toLinear(encoded.x), toLinear(encoded.y), toLinear(encoded.z)};
}

Vec withinUnit(const float (&stored)[3])
{
    return {clamped(double(stored[0])), clamped(double(stored[1])), clamped(double(stored[2]))};
}

Rgb fromHex(unsigned int rgb)
{
    return {toLinear(double((rgb >> 16) & 255U) / 255), toLinear(double((rgb >> 8) & 255U) / 255),
            toLinear(double(rgb & 255U) / 255)};
}

double encodedBy(double light, double gamma)
{
    const double shown = clamped(light);
    return gamma > 0 ? std::pow(shown, 1 / gamma) : toEncoded(shown);
}

Raster::Raster(int width, int height)
    : m_width(width)
    , m_height(height)
    , m_pixels(std::size_t(width) * std::size_t(height))
{
}

int Raster::width() const
{
    return m_width;
}

int Raster::height() const
{
    return m_height;
}

double Raster::aspect() const
{
    return double(m_width) / m_height;
}

Rgb& Raster::at(int x, int y)
{
    return m_pixels[std::size_t(y) * std::size_t(m_width) + std::size_t(x)];
}

void Raster::fill(const std::function<Rgb(const Point&)>& colourAt)
{
    for (int y = 0; y < m_height && !isStopped(); ++y) {
        for (int x = 0; x < m_width; ++x)
            at(x, y) = colourAt({(x + 0.5) / m_height, (y + 0.5) / m_height});
    }
}

void Raster::fill(const Polygon& polygon, const Rgb& colour, double opacity)
{
    fill(
        polygon, [&colour](const Point&) { return colour; }, opacity);
}

void Raster::fill(const Polygon& polygon, const std::function<Rgb(const Point&)>& colourAt,
                  double opacity)
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    const std::vector<double> covered = coverage(polygon, left, top, right, bottom);
    std::size_t i = 0;
    for (int y = top; y < bottom && !isStopped(); ++y) {
        for (int x = left; x < right; ++x, ++i) {
            if (covered[i] <= 0)
                continue;
            const Rgb colour = colourAt({(x + 0.5) / m_height, (y + 0.5) / m_height});
            at(x, y) = mixed(at(x, y), colour, covered[i] * opacity);
        }
    }
}

void Raster::line(const Polygon& points, double width, const Rgb& colour, bool isClosed,
                  double opacity)
{
    const std::size_t count = points.size();
    for (std::size_t i = 0; i + (isClosed ? 0 : 1) < count; ++i) {
        const Point& a = points[i];
        const Point& b = points[(i + 1) % count];
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        const double l = std::sqrt(dx * dx + dy * dy);
        if (l <= 0)
            continue;
        const double nx = -dy / l * width / 2;
        const double ny = dx / l * width / 2;
        fill({{a.x + nx, a.y + ny},
              {b.x + nx, b.y + ny},
              {b.x - nx, b.y - ny},
              {a.x - nx, a.y - ny}},
             colour, opacity);
    }
    if (opacity < 1 || width * m_height < 2)
        return;
    // Round joints, which overlap what is there in the same colour.
    for (std::size_t i = isClosed ? 0 : 1; i + (isClosed ? 0 : 1) < count; ++i)
        disc(points[i], width / 2, colour);
}

void Raster::disc(const Point& centre, double radius, const Rgb& colour, double opacity)
{
    fill(circle(centre, radius), colour, opacity);
}

void Raster::rectangle(double left, double top, double right, double bottom, const Rgb& colour,
                       double opacity)
{
    fill({{left, top}, {right, top}, {right, bottom}, {left, bottom}}, colour, opacity);
}

void Raster::rollOff()
{
    for (Rgb& pixel : m_pixels)
        pixel = {rolledOff(pixel.x), rolledOff(pixel.y), rolledOff(pixel.z)};
}

QImage Raster::toImage() const
{
    QImage image(m_width, m_height, QImage::Format_RGB32);
    // What is not said would be taken from the screen.
    image.setDotsPerMeterX(s_dotsPerMetre);
    image.setDotsPerMeterY(s_dotsPerMetre);
    std::size_t i = 0;
    for (int y = 0; y < m_height; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < m_width; ++x, ++i)
            row[x] =
                qRgb(quantised(m_pixels[i].x), quantised(m_pixels[i].y), quantised(m_pixels[i].z));
    }
    return image;
}

std::vector<double> Raster::coverage(const Polygon& polygon, int& left, int& top, int& right,
                                     int& bottom) const
{
    double low[2] = {1e9, 1e9};
    double high[2] = {-1e9, -1e9};
    for (const Point& point : polygon) {
        low[0] = std::min(low[0], point.x * m_height);
        high[0] = std::max(high[0], point.x * m_height);
        low[1] = std::min(low[1], point.y * m_height);
        high[1] = std::max(high[1], point.y * m_height);
    }
    left = int(clamped(std::floor(low[0]), 0, m_width));
    right = int(clamped(std::ceil(high[0]), left, m_width));
    top = int(clamped(std::floor(low[1]), 0, m_height));
    bottom = int(clamped(std::ceil(high[1]), top, m_height));
    const std::size_t columns = std::size_t(right - left);
    std::vector<double> covered(columns * std::size_t(bottom - top));
    std::vector<double> crossings;
    for (int line = top * s_linesPerRow; line < bottom * s_linesPerRow; ++line) {
        const double y = (line + 0.5) / s_linesPerRow;
        crossings.clear();
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const Point& a = polygon[i];
            const Point& b = polygon[(i + 1) % polygon.size()];
            const double ay = a.y * m_height;
            const double by = b.y * m_height;
            if ((ay <= y) == (by <= y))
                continue;
            const double x = (a.x + (b.x - a.x) * (y - ay) / (by - ay)) * m_height;
            if (std::isfinite(x))
                crossings.push_back(x);
        }
        std::sort(crossings.begin(), crossings.end());
        double* const row = covered.data() + std::size_t(line / s_linesPerRow - top) * columns;
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const double from = clamped(crossings[i], left, right);
            const double to = clamped(crossings[i + 1], left, right);
            for (int x = int(from); x < right && x < to; ++x) {
                const double part = std::min(to, x + 1.0) - std::max(from, double(x));
                row[x - left] += std::max(part, 0.0) / s_linesPerRow;
            }
        }
    }
    return covered;
}

Polygon circle(const Point& centre, double radius)
{
    return arc(centre, radius, 0, 360);
}

Polygon arc(const Point& centre, double radius, double from, double to)
{
    const int steps = int(std::ceil(std::fabs(to - from) / 4)) + 1;
    Polygon points;
    for (int i = 0; i <= steps; ++i) {
        const double angle = radians(mixed(from, to, double(i) / steps));
        points.push_back(
            {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return points;
}

} // namespace rvopen::toolkit::drawing

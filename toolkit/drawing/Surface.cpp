// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Surface.h"

#include "Raster.h"
#include "toolkit/documents/Stopping.h"

#include <QImage>

#include <array>

namespace rvopen::toolkit::drawing {

namespace {

/// Larger images are reduced.
constexpr int s_maxSide = 1024;

/// Where a value lies within 0 to 1 when it repeats.
double repeated(double value)
{
    const double part = value - std::floor(value);
    return part < 1 ? part : 0;
}

const std::array<double, 256>& linearOfByte()
{
    static const std::array<double, 256> table = [] {
        std::array<double, 256> values{};
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = toLinear(double(i) / 255);
        return values;
    }();
    return table;
}

/// The colour of a picture element as what it stands for.
Rgb valueOf(QRgb stored, TextureUse use)
{
    const bool isGrey = qRed(stored) == qGreen(stored) && qRed(stored) == qBlue(stored);
    // The brightness of a grey is what is stored.
    if (use == TextureUse::Data || (use == TextureUse::Heights && isGrey))
        return {qRed(stored) / 255.0, qGreen(stored) / 255.0, qBlue(stored) / 255.0};
    const auto& table = linearOfByte();
    const Rgb light{table[std::size_t(qRed(stored))], table[std::size_t(qGreen(stored))],
                    table[std::size_t(qBlue(stored))]};
    return use == TextureUse::Colour ? light : grey(toEncoded(luminance(light)));
}

Texel average(const QImage& image, int left, int top, int block, TextureUse use)
{
    Texel sum;
    sum.alpha = 0;
    int count = 0;
    for (int y = top; y < std::min(top + block, image.height()); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = left; x < std::min(left + block, image.width()); ++x, ++count) {
            sum.colour += valueOf(row[x], use);
            sum.alpha += double(qAlpha(row[x])) / 255;
        }
    }
    return {sum.colour * (1.0 / count), sum.alpha / count};
}

Point mapped(const Mapping& mapping, double x, double y)
{
    const double angle = radians(-mapping.rotation);
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double px = x - mapping.sOffset;
    const double py = y - mapping.tOffset;
    Point result{(px * c - py * s) / mapping.width, (px * s + py * c) / mapping.height};
    if (mapping.isReflectedS)
        result.x = -result.x;
    if (mapping.isReflectedT)
        result.y = -result.y;
    return result;
}

} // namespace

Texture::Texture(const QImage& image, TextureUse use)
    : m_aspect(double(image.width()) / image.height())
{
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    // Blocks of so many pixels become one.
    const int block = (std::max(source.width(), source.height()) + s_maxSide - 1) / s_maxSide;
    Level level;
    level.width = std::max(source.width() / block, 1);
    level.height = std::max(source.height() / block, 1);
    for (int y = 0; y < level.height && !isStopped(); ++y) {
        for (int x = 0; x < level.width; ++x)
            level.add(average(source, x * block, y * block, block, use));
    }
    m_levels.push_back(std::move(level));
    while (!isStopped() && (m_levels.back().width > 1 || m_levels.back().height > 1)) {
        const Level& finer = m_levels.back();
        Level coarser;
        coarser.width = std::max(finer.width / 2, 1);
        coarser.height = std::max(finer.height / 2, 1);
        for (int y = 0; y < coarser.height; ++y) {
            for (int x = 0; x < coarser.width; ++x) {
                Texel sum;
                sum.alpha = 0;
                for (int i = 0; i < 4; ++i) {
                    const int fx = std::min(2 * x + i % 2, finer.width - 1);
                    const int fy = std::min(2 * y + i / 2, finer.height - 1);
                    const Texel texel = finer.at(fx, fy);
                    sum.colour += texel.colour * 0.25;
                    sum.alpha += texel.alpha * 0.25;
                }
                coarser.add(sum);
            }
        }
        m_levels.push_back(std::move(coarser));
    }
}

double Texture::aspect() const
{
    return m_aspect;
}

Texel Texture::Level::at(int x, int y) const
{
    const auto& c = texels[std::size_t(y) * std::size_t(width) + std::size_t(x)].channels;
    constexpr double unit = 1.0 / 65535;
    return {{c[0] * unit, c[1] * unit, c[2] * unit}, c[3] * unit};
}

void Texture::Level::add(const Texel& texel)
{
    const auto stored = [](double value) { return std::uint16_t(clamped(value) * 65535 + 0.5); };
    texels.push_back({{stored(texel.colour.x), stored(texel.colour.y), stored(texel.colour.z),
                       stored(texel.alpha)}});
}

const Texture::Level& Texture::levelFor(double footprint) const
{
    std::size_t i = 0;
    while (i + 1 < m_levels.size() &&
           footprint * std::max(m_levels[i].width, m_levels[i].height) > 1.5)
        ++i;
    return m_levels[i];
}

Texel Texture::at(double s, double t, double footprint) const
{
    const Level& level = levelFor(footprint);
    const double x = repeated(s) * level.width - 0.5;
    const double y = repeated(-t) * level.height - 0.5;
    const int left = int(std::floor(x));
    const int top = int(std::floor(y));
    Texel sum;
    sum.alpha = 0;
    for (int i = 0; i < 4; ++i) {
        const int dx = i % 2;
        const int dy = i / 2;
        const int tx = (left + dx + level.width) % level.width;
        const int ty = (top + dy + level.height) % level.height;
        const double weight = (dx ? x - left : 1 - (x - left)) * (dy ? y - top : 1 - (y - top));
        const Texel texel = level.at(tx, ty);
        sum.colour += texel.colour * weight;
        sum.alpha += texel.alpha * weight;
    }
    return sum;
}

Texel Texture::inRows(double s, double t, double footprint) const
{
    const double edge = 0.5 / levelFor(footprint).height;
    return at(s, clamped(t, edge, 1 - edge), footprint);
}

Texel Texture::within(double s, double t, double footprint) const
{
    const double edge = 0.5 / levelFor(footprint).width;
    return inRows(clamped(s, edge, 1 - edge), t, footprint);
}

Texel Paint::at(double x, double y, double footprint) const
{
    if (!texture)
        return {colour, 1};
    const Point place = mapped(mapping, x, y);
    Texel texel =
        texture->at(place.x, place.y, footprint / std::min(mapping.width, mapping.height));
    if (!usesAlpha)
        texel.alpha = 1;
    else if (hasColour) {
        texel.colour = mixed(colour, texel.colour, texel.alpha);
        texel.alpha = 1;
    }
    return texel;
}

double Surface::metalness() const
{
    if (factors.transmission > 0.05)
        return 0;
    // Finishes of metals have no refraction, or reflect more than any clear coat does.
    return factors.refraction <= 1.02 ? smoothStep(0.02, 0.1, factors.mirror)
                                      : smoothStep(0.3, 0.5, factors.mirror);
}

double Surface::dielectricReflectance() const
{
    // Fresnel's equations at right angles.
    const double r = (factors.refraction - 1) / (factors.refraction + 1);
    return r * r;
}

bool Surface::hasOpacity() const
{
    return opacity.hasColour || opacity.texture;
}

Rgb Surface::opacityAt(double x, double y, double footprint) const
{
    Rgb result = grey(1);
    // An even transparency beside a transmission says the same once more.
    if (hasOpacity() && (opacity.texture || factors.transmission <= 0)) {
        const Texel texel = opacity.at(x, y, footprint);
        result = opacity.usesAlpha ? grey(texel.alpha) : texel.colour;
        if (isMaskInverted)
            result = grey(1) - result;
    }
    if (paint.texture && paint.usesAlpha && !paint.hasColour)
        result = result * paint.at(x, y, footprint).alpha;
    return {clamped(result.x), clamped(result.y), clamped(result.z)};
}

Vec Surface::normalAt(double x, double y, double footprint) const
{
    if (!bump.texture)
        return {0, 0, 1};
    const Mapping& mapping = bump.mapping;
    const double tile = std::min(mapping.width, mapping.height);
    // Softness blurs by up to a sixteenth of the image.
    const double seen = std::max(footprint / tile, bumpSoftness * bumpSoftness / 16);
    const Point place = mapped(mapping, x, y);
    const double angle = radians(mapping.rotation);
    const auto onSurface = [&](double s, double t) {
        const double ms = mapping.isReflectedS ? -s : s;
        const double mt = mapping.isReflectedT ? -t : t;
        return Point{ms * std::cos(angle) - mt * std::sin(angle),
                     ms * std::sin(angle) + mt * std::cos(angle)};
    };
    if (isNormalMap) {
        const Vec coded = bump.texture->at(place.x, place.y, seen).colour;
        const Point lean = onSurface(coded.x * 2 - 1, coded.y * 2 - 1);
        // At a third of the height the map is as it was made.
        const double strength = 3 * bumpHeight;
        return normalised({lean.x * strength, lean.y * strength, std::max(coded.z * 2 - 1, 0.05)});
    }
    // J. F. Blinn, "Simulation of wrinkled surfaces", 1978: the normal leans against the slope of
    // the height.
    const double step = std::max(seen, 1.0 / 256);
    const auto heightAt = [&](double s, double t) { return bump.texture->at(s, t, seen).colour.x; };
    const double ds =
        (heightAt(place.x + step, place.y) - heightAt(place.x - step, place.y)) / (2 * step);
    const double dt =
        (heightAt(place.x, place.y + step) - heightAt(place.x, place.y - step)) / (2 * step);
    // A height of 1 is as deep as a twentieth of the image's side.
    const double depth = bumpHeight * tile / 20;
    const Point slope = onSurface(ds / mapping.width, dt / mapping.height);
    return normalised({-slope.x * depth, -slope.y * depth, 1});
}

bool Surface::isGlass() const
{
    return factors.transmission > 0.3;
}

double Surface::largestImage() const
{
    double largest = 0;
    for (const Paint* const each : {&paint, &opacity, &bump}) {
        if (each->texture)
            largest = std::max({largest, each->mapping.width, each->mapping.height});
    }
    return largest;
}

} // namespace rvopen::toolkit::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Scenes.h"

#include "Patterns.h"

#include <algorithm>
#include <cmath>

namespace rvopen::starter {

namespace {

struct Scene {
    QVector<QColor> colours;
    int count;
    unsigned int seed;
};

using Draw = QRgb (*)(const Scene& scene, double u, double v);

/// Few levels keep the files small.
int level(double value)
{
    return std::min(255, int(std::floor(value / 4 + 0.5)) * 4);
}

QRgb between(const QColor& a, const QColor& b, double t)
{
    const double at = std::min(1.0, std::max(0.0, t));
    return qRgb(level(a.red() + (b.red() - a.red()) * at),
                level(a.green() + (b.green() - a.green()) * at),
                level(a.blue() + (b.blue() - a.blue()) * at));
}

QRgb plain(const QColor& colour)
{
    return between(colour, colour, 0);
}

/// Sky above the horizon, ground below.
QRgb land(const Scene& scene, double v, double horizon)
{
    if (v < horizon) {
        const double t = v / horizon;
        return between(scene.colours[0], scene.colours[1], t * t);
    }
    return between(scene.colours[2], scene.colours[3], (v - horizon) / (1 - horizon) * 1.6);
}

QRgb trees(const Scene& scene, double u, double v)
{
    const double horizon = 0.54;
    const double crown = noise(u, 0, 9, 1, 4, scene.seed);
    const double top = horizon - 0.05 - 0.2 * crown;
    if (v >= top && v < horizon) {
        const double light = noise(u, v, 48, 24, 2, scene.seed + 1);
        return between(scene.colours[4], scene.colours[3], 0.7 * light);
    }
    return land(scene, v, horizon);
}

QRgb town(const Scene& scene, double u, double v)
{
    const double horizon = 0.56;
    const int houses = 16;
    const int house = int(u * houses) % houses;
    const double top = horizon - 0.08 - 0.24 * hashed(house, 0, scene.seed);
    if (v >= top && v < horizon) {
        const double x = u * houses * 4 - std::floor(u * houses * 4);
        const double y = v * 32 - std::floor(v * 32);
        const bool isWindow = x > 0.3 && x < 0.75 && y > 0.25 && y < 0.75;
        const bool isLit = hashed(int(u * houses * 4), int(v * 32), scene.seed + 1) > 0.55;
        if (isWindow && isLit)
            return plain(scene.colours[4]);
        return between(scene.colours[2], scene.colours[3],
                       0.2 + 0.6 * hashed(house, 1, scene.seed));
    }
    return land(scene, v, horizon);
}

/// Low houses side by side, their gables to the street.
QRgb village(const Scene& scene, double u, double v)
{
    const double horizon = 0.54;
    const int houses = 10;
    const int house = int(u * houses) % houses;
    const double x = u * houses - std::floor(u * houses);
    const double eaves = horizon - 0.07 - 0.04 * hashed(house, 0, scene.seed);
    const double ridge = eaves - 0.16 * (0.5 - std::abs(x - 0.5));
    const QColor roof(132, 74, 52);
    if (v >= ridge && v < eaves)
        return between(roof, scene.colours[2], 0.3 * hashed(house, 1, scene.seed));
    if (v < eaves || v >= horizon)
        return land(scene, v, horizon);
    const double across = x * 4 - std::floor(x * 4);
    const bool isWindow = across > 0.3 && across < 0.7 && v > eaves + 0.025 && v < eaves + 0.05;
    return isWindow
               ? between(scene.colours[3], scene.colours[0], 0.3)
               : between(scene.colours[4], scene.colours[2], 0.8 * hashed(house, 2, scene.seed));
}

QRgb sea(const Scene& scene, double u, double v)
{
    const double horizon = 0.5;
    const double shore = 0.78 + 0.04 * noise(u, 0, 4, 1, 3, scene.seed);
    if (v < horizon)
        return land(scene, v, horizon);
    if (v < shore) {
        const bool isCrest = noise(u, v, 24, 64, 2, scene.seed) > 0.8 - 0.3 * (v - horizon);
        return isCrest ? between(scene.colours[2], scene.colours[4], 0.5) : plain(scene.colours[2]);
    }
    return between(scene.colours[4], scene.colours[3], (v - shore) / 0.05);
}

QRgb hills(const Scene& scene, double u, double v)
{
    QRgb colour = land(scene, v, 0.6);
    const int ranges = 3;
    for (int range = 0; range < ranges; ++range) {
        const double crest =
            0.42 + 0.09 * range -
            0.16 * (noise(u, 0, 3 + 2 * range, 1, 4, scene.seed + unsigned(range)) - 0.3);
        if (v >= crest)
            colour = between(QColor(between(scene.colours[1], scene.colours[4], 0.5)),
                             scene.colours[3], double(range) / (ranges - 1));
    }
    return colour;
}

QRgb table(const Scene& scene, double u, double v)
{
    const double edge = 0.62;
    if (v < edge)
        return between(scene.colours[0], scene.colours[1], v / edge);
    const double grain = noise(u, v, 4, 96, 3, scene.seed);
    return between(scene.colours[2], scene.colours[3], 0.2 + 0.6 * grain);
}

/// Panels of light in a room that is darker below.
QRgb boxes(const Scene& scene, double u, double v)
{
    const double x = u * scene.count - std::floor(u * scene.count);
    const bool isPanel = x > 0.3 && x < 0.7 && v > 0.18 && v < 0.56;
    return isPanel ? plain(scene.colours[2]) : between(scene.colours[0], scene.colours[1], v);
}

struct Known {
    const char* name;
    Draw draw;
    int colours;
};

const Known s_scenes[] = {{"village", village, 5}, {"trees", trees, 5}, {"town", town, 5},
                          {"sea", sea, 5},         {"hills", hills, 5}, {"table", table, 5},
                          {"boxes", boxes, 3}};

} // namespace

QImage drawScene(const QString& name, int height, const QVector<QColor>& colours, int count,
                 unsigned int seed)
{
    const Known* const scene =
        std::find_if(std::begin(s_scenes), std::end(s_scenes),
                     [&name](const Known& known) { return name == QLatin1String(known.name); });
    if (scene == std::end(s_scenes) || int(colours.size()) != scene->colours)
        throw Failure(QStringLiteral("there is no scene \"%1\" of so many colours").arg(name));
    QImage image(2 * height, height, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y,
                           scene->draw({colours, count, seed}, (x + 0.5) / image.width(),
                                       (y + 0.5) / image.height()));
    }
    return image;
}

} // namespace rvopen::starter

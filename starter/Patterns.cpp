// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Patterns.h"

#include <algorithm>
#include <cmath>
#include <utility>

/// Only operations whose results IEEE 754 fixes: sums, products, quotients, roots and floors. So
/// the images are the same to the bit from every machine.
namespace rvopen::starter {

namespace {

double clamped(double value)
{
    return std::min(1.0, std::max(0.0, value));
}

double mixed(double a, double b, double t)
{
    return a + (b - a) * t;
}

double fraction(double value)
{
    return value - std::floor(value);
}

int wrapped(int value, int period)
{
    const int rest = value % period;
    return rest < 0 ? rest + period : rest;
}

double smooth(double t)
{
    return t * t * (3 - 2 * t);
}

/// 0 below the edge, 1 above it, smooth over the width around it.
double step(double edge, double width, double value)
{
    return smooth(clamped((value - edge) / width + 0.5));
}

/// One period of a wave from 0 to 1 and back, made of two parabolas.
double wave(double t)
{
    const double x = fraction(t);
    return x < 0.5 ? 0.5 + 8 * x * (0.5 - x) : 0.5 - 8 * (x - 0.5) * (1 - x);
}

/// A field of a grid and the place within it.
struct Field {
    int column;
    int row;
    double x;
    double y;
};

Field fieldAt(double s, double t, int columns, int rows)
{
    const int column = int(std::floor(s));
    const int row = int(std::floor(t));
    return {wrapped(column, columns), wrapped(row, rows), s - std::floor(s), t - std::floor(t)};
}

Field fieldOf(const PatternSize& size, double u, double v)
{
    return fieldAt(u * size.columns, v * size.rows, size.columns, size.rows);
}

double fineNoise(const PatternSize& size, double u, double v)
{
    return noise(u, v, 32, 32, 2, size.seed + 77);
}

double noisePattern(const PatternSize& size, double u, double v)
{
    return noise(u, v, size.columns, size.rows, int(size.detail), size.seed);
}

/// Distances to the nearest and the second nearest of points strewn over a grid (Worley, "A
/// Cellular Texture Basis Function", SIGGRAPH 1996), and the nearest one's field.
struct Nearest {
    double first = 4;
    double second = 4;
    int column = 0;
    int row = 0;
};

Nearest nearestPoint(const PatternSize& size, double u, double v)
{
    const double s = u * size.columns;
    const double t = v * size.rows;
    Nearest nearest;
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const int x = int(std::floor(s)) + dx;
            const int y = int(std::floor(t)) + dy;
            const int column = wrapped(x, size.columns);
            const int row = wrapped(y, size.rows);
            const double jitter = std::min(size.detail, 1.0);
            const double px = x + 0.5 + jitter * (hashed(column, row, size.seed) - 0.5);
            const double py = y + 0.5 + jitter * (hashed(column, row, size.seed + 1) - 0.5);
            const double distance = std::sqrt((px - s) * (px - s) + (py - t) * (py - t));
            if (distance < nearest.first) {
                nearest.second = nearest.first;
                nearest.first = distance;
                nearest.column = column;
                nearest.row = row;
            } else {
                nearest.second = std::min(nearest.second, distance);
            }
        }
    }
    return nearest;
}

/// Rounded stones, grains and scales: 0 where two of them meet.
double cells(const PatternSize& size, double u, double v)
{
    const Nearest nearest = nearestPoint(size, u, v);
    const double edge = smooth(clamped((nearest.second - nearest.first) * 2.6));
    const double own = hashed(nearest.column, nearest.row, size.seed + 2);
    return edge * (0.55 + 0.45 * own) * (0.85 + 0.15 * fineNoise(size, u, v));
}

double dents(const PatternSize& size, double u, double v)
{
    return clamped(nearestPoint(size, u, v).first * 1.3);
}

/// Each grain has a value of its own.
double speckles(const PatternSize& size, double u, double v)
{
    const Nearest nearest = nearestPoint(size, u, v);
    return clamped(hashed(nearest.column, nearest.row, size.seed + 2) * 0.92 +
                   0.08 * fineNoise(size, u, v));
}

/// Veins run where a noise passes its middle.
double marble(const PatternSize& size, double u, double v)
{
    const double bend = noise(u, v, size.columns, size.rows, 4, size.seed);
    const double vein =
        noise(u + 0.12 * bend, v + 0.2 * bend, size.columns, size.rows, 5, size.seed + 9);
    const double distance = std::abs(2 * vein - 1);
    const double cloud = noise(u, v, size.columns, size.rows, 3, size.seed + 21);
    return clamped(clamped(distance * (2 + 2 * size.detail)) * (0.72 + 0.28 * cloud));
}

double wood(const PatternSize& size, double u, double v)
{
    const Field board = fieldAt(u * size.columns, v, size.columns, 1);
    // Rings cut at a slant: bands of a slow noise, drawn out along the board.
    const unsigned int seed = size.seed + 13 * unsigned(board.column);
    const double slow = noise(u, v, 3 * size.columns, size.rows, 2, seed);
    const double ring = wave(slow * 5 * size.detail + 3 * hashed(board.column, 1, size.seed));
    const double fibre = noise(u, v, 64, 3, 2, size.seed + 5);
    const double tone = hashed(board.column, 0, size.seed);
    const double joint = size.columns > 1 ? step(0.035, 0.03, std::min(board.x, 1 - board.x)) : 1;
    return joint * clamped(0.2 + 0.32 * ring + 0.28 * fibre + 0.28 * tone);
}

double boards(const PatternSize& size, double u, double v)
{
    const Field board = fieldOf(size, u, v);
    return step(size.detail, 0.06, std::min(board.x, 1 - board.x));
}

/// A joint is 0, a brick or tile has a tone of its own above.
double tone(const PatternSize& size, const Field& field, double joint, double u, double v)
{
    const double own = hashed(field.column, field.row, size.seed);
    return joint * clamped(0.4 + 0.45 * own + 0.15 * fineNoise(size, u, v)) +
           (1 - joint) * 0.12 * fineNoise(size, u, v);
}

double jointAround(const Field& field, double width, double height)
{
    return step(width, 0.5 * width, std::min(field.x, 1 - field.x)) *
           step(height, 0.5 * height, std::min(field.y, 1 - field.y));
}

double bricks(const PatternSize& size, double u, double v)
{
    const int row = int(std::floor(v * size.rows));
    const double shift = row % 2 != 0 ? 0.5 : 0;
    const Field brick = fieldAt(u * size.columns + shift, v * size.rows, size.columns, size.rows);
    // Bricks are about three times as long as high; joints are equally wide both ways.
    return tone(size, brick, jointAround(brick, size.detail / 3, size.detail), u, v);
}

double tiles(const PatternSize& size, double u, double v)
{
    const Field tile = fieldOf(size, u, v);
    return tone(size, tile, jointAround(tile, size.detail, size.detail), u, v);
}

/// Tiles and shingles of which each row covers the upper part of the next.
double lapped(const PatternSize& size, double u, double v)
{
    const int row = int(std::floor(v * size.rows));
    const double shift = row % 2 != 0 ? 0.5 : 0;
    const Field tile = fieldAt(u * size.columns + shift, v * size.rows, size.columns, size.rows);
    const double gap = step(0.04, 0.04, std::min(tile.x, 1 - tile.x)) * step(0.08, 0.1, tile.y);
    const double own = hashed(tile.column, tile.row, size.seed);
    const double slope = 0.45 + 0.55 * tile.y;
    return gap *
           clamped(mixed(slope, slope * (0.45 + 0.55 * own), std::min(1.0, size.detail * 1.4)) *
                   (0.9 + 0.1 * fineNoise(size, u, v)));
}

double weave(const PatternSize& size, double u, double v)
{
    const Field field = fieldOf(size, u, v);
    const bool isOver = (field.column + field.row) % 2 == 0;
    const double across = isOver ? field.x : field.y;
    const double along = isOver ? field.y : field.x;
    const double thread = 4 * across * (1 - across) * (0.6 + 0.4 * 4 * along * (1 - along));
    const double own =
        isOver ? hashed(field.column, 0, size.seed) : hashed(0, field.row, size.seed);
    return clamped(thread * (1 - 0.5 * size.detail * own));
}

double twill(const PatternSize& size, double u, double v)
{
    const Field field = fieldOf(size, u, v);
    const bool isWarp = wrapped(field.column + field.row, 4) < 2;
    const double across = isWarp ? field.x : field.y;
    const double own =
        isWarp ? hashed(field.column, 0, size.seed) : hashed(0, field.row, size.seed);
    const double base = isWarp ? 0.22 : 0.72;
    return clamped((base + 0.5 * size.detail * (own - 0.5)) *
                   (0.7 + 0.3 * 4 * across * (1 - across)));
}

double tartan(const PatternSize& size, double u, double v)
{
    const auto sett = [](double t) {
        const double x = fraction(t);
        if (x < 0.36)
            return 0.4;
        if (x < 0.44 || (x > 0.52 && x < 0.56))
            return 0.0;
        return x > 0.74 && x < 0.78 ? 1.0 : 0.66;
    };
    const double warp = sett(u * size.columns / 2);
    const double weft = sett(v * size.rows / 2);
    const int threads = int(size.detail);
    const Field thread = fieldAt(u * threads, v * threads, threads, threads);
    const bool isWarp = wrapped(thread.column + thread.row, 4) < 2;
    return isWarp ? mixed(weft, warp, 0.8) : mixed(weft, warp, 0.2);
}

/// Blocks four times as long as wide, lying and standing in turn.
double herringbone(const PatternSize& size, double u, double v)
{
    const int length = 4;
    const Field field = fieldOf(size, u, v);
    const int place = wrapped(field.column - field.row, 2 * length);
    const bool isLying = place < length;
    const int column = isLying ? wrapped(field.column - place, size.columns) : field.column;
    const int row = isLying ? field.row : wrapped(field.row + place - length, size.rows);
    const double across = isLying ? field.y : field.x;
    const double along =
        isLying ? (place + field.x) / length : (2 * length - 1 - place + field.y) / length;
    const double joint =
        step(size.detail, size.detail, std::min(across, 1 - across)) *
        step(size.detail / length, size.detail / length, std::min(along, 1 - along));
    const double own = hashed(column, row, size.seed + (isLying ? 0U : 1U));
    const double grain =
        isLying ? noise(u, v, 8, 64, 2, size.seed) : noise(u, v, 64, 8, 2, size.seed);
    return joint * clamped(0.3 + 0.4 * own + 0.3 * grain);
}

double knurl(const PatternSize& size, double u, double v)
{
    const Field field = fieldOf(size, u, v);
    return 1 - 2 * std::max(std::abs(field.x - 0.5), std::abs(field.y - 0.5));
}

double waves(const PatternSize& size, double u, double)
{
    return wave(u * size.columns);
}

double stripes(const PatternSize& size, double u, double v)
{
    const double place = size.columns > 0 ? u * size.columns : v * size.rows;
    return fraction(place) < size.detail ? 0 : 1;
}

double holes(const PatternSize& size, double u, double v)
{
    const Field field = fieldOf(size, u, v);
    const double x = field.x - 0.5;
    const double y = field.y - 0.5;
    return 1 - step(size.detail, 0.12, std::sqrt(x * x + y * y));
}

double mesh(const PatternSize& size, double u, double v)
{
    const auto wire = [&size](double t) {
        return 1 - step(size.detail / 2, 0.06, std::min(fraction(t), 1 - fraction(t)));
    };
    return std::max(wire(u * size.columns + v * size.rows), wire(u * size.columns - v * size.rows));
}

double grid(const PatternSize& size, double u, double v)
{
    const Field field = fieldOf(size, u, v);
    return field.x < size.detail || field.y < size.detail ? 1 : 0;
}

double leaves(const PatternSize& size, double u, double v)
{
    const double s = u * size.columns;
    const double t = v * size.rows;
    double value = 0;
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const int x = int(std::floor(s)) + dx;
            const int y = int(std::floor(t)) + dy;
            const int column = wrapped(x, size.columns);
            const int row = wrapped(y, size.rows);
            const double px = s - x - 0.2 - 0.6 * hashed(column, row, size.seed);
            const double py = t - y - 0.2 - 0.6 * hashed(column, row, size.seed + 1);
            // The leaf's direction, not quite of length 1: leaves differ in size.
            const double a = 2 * hashed(column, row, size.seed + 2) - 1;
            const double b = std::sqrt(1 - a * a);
            const double along = px * a + py * b;
            const double across = std::abs(py * a - px * b);
            const double half = 0.2 * (1 - 4 * along * along / 1.2);
            if (half > 0 && across < half)
                value = std::max(value, 0.4 + 0.6 * hashed(column, row, size.seed + 3));
        }
    }
    return value;
}

double chequers(const PatternSize& size, double u, double v)
{
    const Field field = fieldOf(size, u, v);
    const double edge = std::min(std::min(field.x, 1 - field.x), std::min(field.y, 1 - field.y));
    if (edge < size.detail)
        return 0;
    return (field.column + field.row) % 2 != 0 ? 1 : 0.5;
}

double seams(const PatternSize& size, double u, double v)
{
    const Field field = fieldOf({size.columns, 1, 0, 0}, u, v);
    return 1 - step(size.detail, 0.04, std::min(field.x, 1 - field.x));
}

/// Boards of formwork and the holes of its ties.
double shuttered(const PatternSize& size, double u, double v)
{
    const Field panel = fieldOf(size, u, v);
    const double x = std::abs(panel.x - 0.5) - 0.25;
    const double y = (panel.y - 0.5) / 2;
    const double hole = step(0.03, 0.02, std::sqrt(x * x + y * y));
    const double cloud = noise(u, v, 5, 5, 4, size.seed);
    return clamped(tone(size, panel, jointAround(panel, 0.01, 0.02), u, v) * hole * 0.75 +
                   0.25 * cloud * hole);
}

const std::pair<const char*, Pattern> s_patterns[] = {
    {"noise", noisePattern}, {"cells", cells},         {"dents", dents},
    {"speckles", speckles},  {"marble", marble},       {"wood", wood},
    {"boards", boards},      {"bricks", bricks},       {"tiles", tiles},
    {"lapped", lapped},      {"weave", weave},         {"twill", twill},
    {"tartan", tartan},      {"knurl", knurl},         {"herringbone", herringbone},
    {"waves", waves},        {"stripes", stripes},     {"holes", holes},
    {"mesh", mesh},          {"grid", grid},           {"leaves", leaves},
    {"chequers", chequers},  {"shuttered", shuttered}, {"seams", seams},
};

} // namespace

Pattern patternOf(const QString& name)
{
    for (const auto& [known, pattern] : s_patterns) {
        if (name == QLatin1String(known))
            return pattern;
    }
    throw Failure(QStringLiteral("there is no pattern \"%1\"").arg(name));
}

double hashed(int x, int y, unsigned int seed)
{
    // Multiplications by large odd numbers and shifts until each bit depends on each.
    unsigned int h = unsigned(x) * 0x9E3779B1U ^ unsigned(y) * 0x85EBCA77U ^ seed * 0xC2B2AE3DU;
    for (int i = 0; i < 2; ++i) {
        h ^= h >> 15;
        h *= 0x2C1B3C6DU;
        h ^= h >> 12;
        h *= 0x297A2D39U;
        h ^= h >> 15;
    }
    return double(h >> 8) / double(1U << 24);
}

double noise(double u, double v, int columns, int rows, int octaves, unsigned int seed)
{
    double sum = 0;
    double total = 0;
    double strength = 1;
    for (int octave = 0; octave < octaves; ++octave) {
        const double s = u * columns;
        const double t = v * rows;
        const int x = int(std::floor(s));
        const int y = int(std::floor(t));
        const double fx = smooth(s - std::floor(s));
        const double fy = smooth(t - std::floor(t));
        const unsigned int own = seed * 31 + unsigned(octave);
        const auto at = [&](int dx, int dy) {
            return hashed(wrapped(x + dx, columns), wrapped(y + dy, rows), own);
        };
        sum += strength * mixed(mixed(at(0, 0), at(1, 0), fx), mixed(at(0, 1), at(1, 1), fx), fy);
        total += strength;
        strength /= 2;
        columns *= 2;
        rows *= 2;
    }
    // Sums of several octaves crowd around the middle.
    const double contrast = octaves > 1 ? 1.7 : 1.1;
    return clamped((sum / total - 0.5) * contrast + 0.5);
}

} // namespace rvopen::starter

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Textures.h"

#include "Patterns.h"
#include "Scenes.h"
#include "Tables.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>

#include <algorithm>
#include <cmath>

namespace rvopen::starter {

namespace {

/// Few colours keep the files small; more could hardly be told apart.
const int s_levels = 24;

QRgb rampColour(const QVector<QColor>& ramp, double value)
{
    const double place = value * double(ramp.size() - 1);
    const int index = std::min(int(place), int(ramp.size()) - 1);
    const QColor& a = ramp[index];
    const QColor& b = ramp[std::min(index + 1, int(ramp.size()) - 1)];
    const double t = place - index;
    const auto mix = [t](int from, int to) { return int(from + (to - from) * t + 0.5); };
    return qRgb(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

/// The values of a pattern, pixel by pixel.
class Values {
public:
    Values(const Row& row, int side)
        : m_pattern(patternOf(row.text("pattern")))
        , m_size{row.integer("columns"), row.integer("rows"), double(row.number("detail")),
                 unsigned(row.integer("seed"))}
        , m_side(side)
    {
    }

    double at(int x, int y) const
    {
        const auto place = [this](int i) { return ((i + m_side) % m_side + 0.5) / m_side; };
        return m_pattern(m_size, place(x), place(y));
    }

private:
    Pattern m_pattern;
    PatternSize m_size;
    int m_side;
};

QImage drawRamp(const Values& values, int side, const QVector<QColor>& ramp)
{
    QImage image(side, side, QImage::Format_Indexed8);
    QVector<QRgb> colours;
    for (int i = 0; i < s_levels; ++i)
        colours << rampColour(ramp, double(i) / (s_levels - 1));
    image.setColorTable(colours);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, uint(std::min(s_levels - 1, int(values.at(x, y) * s_levels))));
    }
    return image;
}

/// The surface's normal as red, green and blue: x to the right, y up and z out of the image, each
/// from -1 to 1.
QImage drawNormals(const Values& values, int side)
{
    const double steepness = 4;
    const int few = 8;
    const auto channel = [](double value) {
        return std::min(255, int(std::floor((value * 127.5 + 127.5) / few + 0.5)) * few);
    };
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double dx = steepness * (values.at(x - 1, y) - values.at(x + 1, y)) / 2;
            const double dy = steepness * (values.at(x, y + 1) - values.at(x, y - 1)) / 2;
            const double length = std::sqrt(dx * dx + dy * dy + 1);
            image.setPixel(x, y,
                           qRgb(channel(dx / length), channel(dy / length), channel(1 / length)));
        }
    }
    return image;
}

/// Cover in the alpha channel; the colour is there where nothing covers too.
QImage drawMask(const Values& values, int side, const QVector<QColor>& ramp)
{
    QImage image(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double value = values.at(x, y);
            const QRgb colour = rampColour(ramp, value);
            const int alpha = ramp.size() > 1 ? (value > 0 ? 255 : 0) : int(value * 255 + 0.5);
            image.setPixel(x, y, qRgba(qRed(colour), qGreen(colour), qBlue(colour), alpha));
        }
    }
    return image;
}

QImage draw(const Row& row)
{
    const QString mode = row.text("mode");
    const int side = row.integer("size");
    const QVector<QColor> ramp = row.colours("ramp");
    if (mode == QLatin1String("scene"))
        return drawScene(row.text("pattern"), side, ramp, int(row.number("detail")),
                         unsigned(row.integer("seed")));
    const Values values(row, side);
    if (mode == QLatin1String("normal"))
        return drawNormals(values, side);
    if (mode == QLatin1String("mask"))
        return drawMask(values, side, ramp);
    return drawRamp(values, side, ramp);
}

} // namespace

void makeTextures(const Tables& tables, const QString& folder)
{
    // The same in the files whatever screen there is: 96 dots per inch.
    const int dotsPerMetre = 3780;
    const int smallest = 0;
    for (const Row& row : tables.rows("textures")) {
        const QString path = folder + QLatin1Char('/') + row.text("file");
        QImage image = draw(row);
        image.setDotsPerMeterX(dotsPerMetre);
        image.setDotsPerMeterY(dotsPerMetre);
        if (!QDir().mkpath(QFileInfo(path).path()) || !image.save(path, "PNG", smallest))
            throw Failure(QStringLiteral("cannot write %1").arg(path));
    }
}

} // namespace rvopen::starter

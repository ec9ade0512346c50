// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "../Parts.h"
#include "toolkit/drawing/Drawing.h"
#include "toolkit/drawing/Reading.h"
#include "toolkit/drawing/Scene.h"
#include "toolkit/drawing/SnapShotPicture.h"
#include "toolkit/drawing/View.h"

#include <rvopen/Camera.h>
#include <rvopen/Material.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <functional>

/// What the tests on the rows of "Appearance" in docs/formats.md share. Each is named after the row
/// that it holds.
namespace rvopen::test {

/// \name Texts of elements
/// @{

inline QByteArray param(const char* name, const char* type, const QByteArray& value)
{
    return QByteArray("<param name=\"") + name + "\" type=\"" + type + "\" val=\"" + value + "\"/>";
}

inline QByteArray param(const char* name, double value)
{
    return param(name, "float", QByteArray::number(value, 'g', 9));
}

inline QByteArray flag(const char* name, bool value)
{
    return param(name, "boolean", value ? "1" : "0");
}

/// A shader parameter "Colour" that holds these shaders.
inline QByteArray shader(const QByteArray& shaders)
{
    return "<param name=\"Colour\" type=\"shader\" val=\"colour\">" + shaders + "</param>";
}

inline QByteArray plain(const QByteArray& rgb, bool isEnabled = true)
{
    return QByteArray("<plainColour enabled=\"") + (isEnabled ? "1" : "0") + "\">" +
           param("Colour", "colour", rgb) + "</plainColour>";
}

/// Of 1 to 1, unless \p params say otherwise.
inline QByteArray map(const QByteArray& file, const QByteArray& params = QByteArray(),
                      bool isEnabled = true)
{
    return QByteArray("<map enabled=\"") + (isEnabled ? "1" : "0") + "\">" +
           param("Texture", "string", file) + params + "</map>";
}

inline QByteArray colour(const QByteArray& shaders)
{
    return "<colour><diffuse enabled=\"1\">" + shader(shaders) + "</diffuse></colour>";
}

inline QByteArray transparency(const QByteArray& shaders, bool isInverted = false)
{
    return "<transparency>" + flag("InvertMask", isInverted) + shader(shaders) + "</transparency>";
}

/// By the letters of the chapter: D, S, T, M, r and n.
inline QByteArray finish(double diffuse, double specular, double transmission, double mirror,
                         double roughness, double refraction, const QByteArray& more = QByteArray())
{
    return "<finish shaderClass=\"lit appearance\">" + param("diffuse factor", diffuse) +
           param("specular factor", specular) + param("transmission factor", transmission) +
           param("mirror factor", mirror) + param("roughness", roughness) +
           param("refraction", refraction) + more + "</finish>";
}

/// Reflects nothing but its share of the colour, evenly.
inline QByteArray matt(double share)
{
    return finish(share, 0, 0, 0, 0, 1.5);
}

/// A fifth of the colour, so that nothing in studio light is too bright to be told apart.
inline QByteArray dull()
{
    return matt(0.2);
}

/// Gives that flux and nothing else.
inline QByteArray lamp(double flux)
{
    return finish(0, 0, 0, 0, 0, 1.5, param("light intensity", flux));
}

inline QByteArray material(const QByteArray& components)
{
    return "<material name=\"m\">" + components + "</material>";
}

/// Of the light 0.2140, which is the display value 0.5.
inline const QByteArray s_half = colour(plain("0.5 0.5 0.5"));
inline const QByteArray s_white = colour(plain("1 1 1"));

inline QByteArray camera(const QByteArray& from, const QByteArray& to, double angle,
                         const QByteArray& up = "0 0 1", bool isParallel = false,
                         const QByteArray& more = QByteArray())
{
    return "<camera>" + param("From", "point", from) + param("To", "point", to) +
           param("Up", "vector", up) + flag("Orthographic", isParallel) +
           param("Field Of View", angle) + more + "</camera>";
}

inline QByteArray settings(const QByteArray& params)
{
    return "<snapShotSettings>" + params + "</snapShotSettings>";
}

inline QByteArray background(const char* kind, const QByteArray& params)
{
    return QByteArray("<background subcat=\"") + kind + "\">" + params + "</background>";
}

/// Red, green and blue of a grey.
inline QByteArray rgb(double value)
{
    const QByteArray text = QByteArray::number(value, 'g', 9);
    return text + ' ' + text + ' ' + text;
}
/// @}

/// \name Images
/// @{

inline QImage filled(int width, int height, const std::function<QRgb(int x, int y)>& colourAt)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, colourAt(x, y));
    }
    return image;
}

inline QImage evenly(int width, int height, QRgb colour)
{
    return filled(width, height, [colour](int, int) { return colour; });
}

/// Four quarters: red lower left, green lower right, blue upper left, white upper right.
inline QImage corners(int bright = 200)
{
    return filled(64, 64, [bright](int x, int y) {
        if (y < 32)
            return x < 32 ? qRgb(0, 0, bright) : qRgb(bright, bright, bright);
        return x < 32 ? qRgb(bright, 0, 0) : qRgb(0, bright, 0);
    });
}

/// Four bands from the left: red, green, blue, white.
inline QImage bands(int width, int height)
{
    return filled(width, height, [width](int x, int) {
        const QRgb colours[] = {qRgb(200, 0, 0), qRgb(0, 200, 0), qRgb(0, 0, 200),
                                qRgb(200, 200, 200)};
        return colours[x * 4 / width];
    });
}

/// "red", "green", "blue", "white", "black", or what else is seen.
inline std::string nameOf(const toolkit::drawing::Rgb& light)
{
    const auto isOn = [](double value) { return value > 0.04; };
    const auto isOff = [](double value) { return value < 0.004; };
    const double values[] = {light.x, light.y, light.z};
    int on = 0;
    int off = 0;
    for (int i = 0; i < 3; ++i) {
        on += isOn(values[i]) ? 1 << i : 0;
        off += isOff(values[i]) ? 1 << i : 0;
    }
    const char* const names[] = {"black", "red", "green", "", "blue", "", "", "white"};
    if (on + off == 7 && *names[on])
        return names[on];
    return std::to_string(light.x) + ' ' + std::to_string(light.y) + ' ' + std::to_string(light.z);
}

inline toolkit::drawing::Rgb lightOf(QRgb pixel)
{
    return {toolkit::drawing::toLinear(qRed(pixel) / 255.0),
            toolkit::drawing::toLinear(qGreen(pixel) / 255.0),
            toolkit::drawing::toLinear(qBlue(pixel) / 255.0)};
}

inline std::string nameOf(QRgb pixel)
{
    return nameOf(lightOf(pixel));
}

/// The greatest difference of a channel in two pictures of one size.
inline int difference(const QImage& a, const QImage& b)
{
    EXPECT_EQ(a.size(), b.size());
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            greatest = std::max({greatest, std::abs(qRed(p) - qRed(q)),
                                 std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return greatest;
}
/// @}

/// A folder with images, and what is drawn and read with them.
class Room {
public:
    Room()
        : m_textures([this](const QString& reference) {
            const QString path = m_folder.filePath(reference);
            return QFile::exists(path) ? path : QString();
        })
    {
    }

    void keep(const char* name, const QImage& image)
    {
        EXPECT_TRUE(image.save(m_folder.filePath(QLatin1String(name)))) << name;
    }

    toolkit::drawing::TextureReader& textures()
    {
        return m_textures;
    }

    toolkit::drawing::Surface surface(const QByteArray& text)
    {
        const QDomDocument document = parsed(text.constData());
        const RVOpenView<Material> node(document.documentElement());
        return toolkit::drawing::SurfaceReader(m_textures).ofMaterial(node.get());
    }

    toolkit::drawing::Backdrop backdrop(const QByteArray& text)
    {
        return snapShot(text).backdrop;
    }

    /// Of a snapshot with these components.
    toolkit::drawing::SnapShotValues snapShot(const QByteArray& components)
    {
        const QByteArray text = "<snapshot>" + components + "</snapshot>";
        const QDomDocument document = parsed(text.constData());
        const RVOpenView<SnapShot> node(document.documentElement());
        return toolkit::drawing::readSnapShot(node.get(), m_textures);
    }

    QImage picture(const QByteArray& text, int size, bool isFlat = false)
    {
        const QDomDocument document = parsed(text.constData());
        toolkit::PictureWish wish;
        wish.size = size;
        wish.isFlat = isFlat;
        return toolkit::drawing::drawingOf(document.documentElement(), wish, m_textures)();
    }

    /// A flat piece of one scene unit, of 64 pixels, with the origin in the middle. Behind it are
    /// chequers: of the light 0.75 at s_onLight, of 0.35 at s_onDark.
    QImage flat(const QByteArray& components)
    {
        return picture(material(components), 64, true);
    }

private:
    QTemporaryDir m_folder;
    toolkit::drawing::TextureReader m_textures;
};

inline constexpr QPoint s_onLight(33, 22);
inline constexpr QPoint s_onDark(33, 30);
inline constexpr double s_light = 0.75;

/// A display value of light, 0 to 255.
inline double display(double light)
{
    return toolkit::drawing::toEncoded(light) * 255;
}

/// The names of the colours in the middle of the quarters of a flat piece: upper right, upper left,
/// lower right, lower left.
inline std::vector<std::string> quarters(const QImage& image)
{
    std::vector<std::string> names;
    for (const QPoint& point : {QPoint(48, 16), QPoint(16, 16), QPoint(48, 48), QPoint(16, 48)})
        names.push_back(nameOf(image.pixel(point)));
    return names;
}

/// A ball of the radius 1 in light of 1 from everywhere: what is seen of it is the share of the
/// light that it gives back. The eye is 10 in front of it.
class Furnace {
public:
    explicit Furnace(const toolkit::drawing::Surface& surface)
        : m_surface(surface)
    {
        scene.hasGround = false;
        scene.surroundings = [](const toolkit::drawing::Vec&) { return toolkit::drawing::grey(1); };
        scene.view = toolkit::drawing::viewFrom({0, -10, 10}, {0, 0, 10}, 20);
        toolkit::drawing::Ball ball;
        ball.centre = {0, 0, 10};
        ball.surface = &m_surface;
        scene.balls = {ball};
    }

    Furnace(const Furnace&) = delete;
    Furnace& operator=(const Furnace&) = delete;

    /// Without the light from everywhere.
    Furnace& inTheDark()
    {
        scene.surroundings = [](const toolkit::drawing::Vec&) { return toolkit::drawing::Rgb(); };
        return *this;
    }

    /// The light of 1 from where \p isLit says.
    Furnace& lit(const std::function<bool(const toolkit::drawing::Vec&)>& isLit)
    {
        scene.surroundings = [isLit](const toolkit::drawing::Vec& direction) {
            return toolkit::drawing::grey(isLit(direction) ? 1 : 0);
        };
        return *this;
    }

    toolkit::drawing::Raster picture(int width = s_side, int height = s_side)
    {
        toolkit::drawing::Raster raster(width, height);
        scene.draw(raster);
        return raster;
    }

    /// The pixel in the middle of a picture of s_side pixels, drawn alone.
    toolkit::drawing::Rgb middle()
    {
        const double whole = scene.view.halfTangent;
        scene.view.halfTangent = whole / s_side;
        toolkit::drawing::Raster raster = picture(1, 1);
        scene.view.halfTangent = whole;
        return raster.at(0, 0);
    }

    static constexpr int s_side = 65;

    toolkit::drawing::Scene scene;

private:
    toolkit::drawing::Surface m_surface;
};

/// The middle of a ball of a material in a furnace.
inline toolkit::drawing::Rgb furnace(const QByteArray& components)
{
    Room room;
    return Furnace(room.surface(material(components))).middle();
}

/// The view of a camera in an orientation.
inline toolkit::drawing::View view(const QByteArray& cameraText,
                                   const QByteArray& settingsText = settings(""))
{
    const QDomDocument cameras = parsed(cameraText.constData());
    const QDomDocument others = parsed(settingsText.constData());
    const RVOpenView<Camera> node(cameras.documentElement());
    const RVOpenView<SnapShotSettings> set(others.documentElement());
    return toolkit::drawing::viewOf(toolkit::drawing::readCamera(node.get()),
                                    toolkit::drawing::readOrientation(set.get()),
                                    toolkit::drawing::readTwist(set.get()));
}

/// A picture of nothing but directions, white where \p isWhite and black elsewhere.
class Wall {
public:
    Wall(const toolkit::drawing::View& view, int width, int height,
         const std::function<bool(const toolkit::drawing::Vec&)>& isWhite)
        : m_raster(width, height)
    {
        toolkit::drawing::Scene scene;
        scene.hasGround = false;
        scene.surroundings = [](const toolkit::drawing::Vec&) { return toolkit::drawing::Rgb(); };
        scene.backdrop = [isWhite](const toolkit::drawing::Vec& direction,
                                   const toolkit::drawing::Point&) {
            return toolkit::drawing::grey(isWhite(direction) ? 1 : 0);
        };
        scene.view = view;
        scene.draw(m_raster);
    }

    bool isWhite(int x, int y)
    {
        return m_raster.at(x, y).x > 0.9;
    }

    bool isBlack(int x, int y)
    {
        return m_raster.at(x, y).x < 0.1;
    }

    /// The middle of the light of a row, in columns.
    double middleOfRow(int y)
    {
        double sum = 0;
        double light = 0;
        for (int x = 0; x < m_raster.width(); ++x) {
            sum += m_raster.at(x, y).x * x;
            light += m_raster.at(x, y).x;
        }
        EXPECT_GT(light, 0);
        return sum / light;
    }

private:
    toolkit::drawing::Raster m_raster;
};

inline void expectLight(const toolkit::drawing::Rgb& light, const toolkit::drawing::Rgb& expected,
                        double tolerance)
{
    EXPECT_NEAR(light.x, expected.x, tolerance);
    EXPECT_NEAR(light.y, expected.y, tolerance);
    EXPECT_NEAR(light.z, expected.z, tolerance);
}

inline void expectLight(const toolkit::drawing::Rgb& light, double expected, double tolerance)
{
    expectLight(light, toolkit::drawing::grey(expected), tolerance);
}

/// A pixel, of display values.
inline void expectPixel(QRgb pixel, double red, double green, double blue, double tolerance = 1)
{
    EXPECT_NEAR(qRed(pixel), red, tolerance);
    EXPECT_NEAR(qGreen(pixel), green, tolerance);
    EXPECT_NEAR(qBlue(pixel), blue, tolerance);
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Backdrop.h"

#include "Scene.h"
#include "Studio.h"

#include <rvopen/Background.h>

#include <QImage>

namespace rvopen::toolkit::drawing {

namespace {

/// The reflections of three soft strips, for an image that is not there.
Rgb strips(const Vec& direction)
{
    const double around = std::atan2(direction.x, -direction.y);
    Rgb light{0.20, 0.21, 0.23};
    for (const double centre : {-1.1, 0.1, 1.3}) {
        const double off = std::fabs(around - centre);
        light += Rgb{1.1, 1.1, 1.1} * ((1 - smoothStep(0.16, 0.22, off)) *
                                       (1 - smoothStep(0.55, 0.65, std::fabs(direction.z - 0.25))));
    }
    return light;
}

void readImageOf(Backdrop& backdrop, const QString& file, TextureReader& textures)
{
    backdrop.image = textures.texture(file, TextureUse::Colour);
    if (backdrop.image)
        backdrop.imageAspect = backdrop.image->aspect();
}

} // namespace

Rgb Backdrop::at(double height) const
{
    switch (kind) {
    case Kind::Plain:
        return toLinear(colours[0]);
    case Kind::Graduated:
        return toLinear(mixed(colours[1], colours[0], clamped((height + 1) / 2)));
    case Kind::Horizon:
        // Most of the change is near the horizon, as outdoors.
        return toLinear(height >= 0 ? mixed(colours[1], colours[0], std::sqrt(clamped(height)))
                                    : mixed(colours[2], colours[3], std::sqrt(clamped(-height))));
    case Kind::Reflection:
        return mixed(fromHex(0x4c4f54), fromHex(0x8b8f95), clamped((height + 1) / 2));
    case Kind::Image:
    case Kind::Panorama:
        if (image)
            return image->inRows(0.5, horizon + height / 2, 0.5).colour;
        return landscape({0.5, clamped(0.6 - height / 2)}, 1);
    case Kind::None:
        break;
    }
    return fromHex(0xe8e8e6);
}

Rgb Backdrop::seenIn(const Vec& direction) const
{
    return kind == Kind::Panorama && image ? allAround(direction) : at(direction.z);
}

Rgb Backdrop::reflectedFrom(const Vec& direction) const
{
    if (kind == Kind::Reflection)
        return image ? allAround(direction) : strips(direction);
    return seenIn(direction);
}

Rgb Backdrop::onPlate(const Point& point, double aspect) const
{
    if (kind != Kind::Image && kind != Kind::Panorama)
        return at(1 - 2 * point.y);
    if (!image)
        return landscape(point, aspect);
    // The image covers the picture; what is too wide or too high is cut off on both sides.
    const double scale = std::max(aspect / imageAspect, 1.0);
    const double s = (point.x - aspect / 2) / (imageAspect * scale) + 0.5;
    const double t = 0.5 - (point.y - 0.5) / scale;
    return image->within(s, t, 1.0 / 256).colour;
}

bool Backdrop::isPlate() const
{
    return kind == Kind::Plain || kind == Kind::Graduated || kind == Kind::Image;
}

Rgb Backdrop::allAround(const Vec& direction) const
{
    // From north on the left edge to the east.
    const double s = std::atan2(direction.x, direction.y) / (2 * Pi);
    const double altitude = std::asin(clamped(direction.z, -1, 1));
    // A mirrored image is half a circle high, whatever its shape; degrees of a panorama are square.
    const double height = kind == Kind::Reflection ? Pi : 2 * Pi / imageAspect;
    return image->inRows(s, horizon + altitude / height, 1.0 / 512).colour;
}

Backdrop readBackdrop(Background* background, TextureReader& textures)
{
    Backdrop backdrop;
    if (!background)
        return backdrop;
    using Get = unsigned int (Background::*)(float* const);
    const auto read = [&](std::initializer_list<Get> getters) {
        std::size_t i = 0;
        Vec last{0.8, 0.8, 0.8};
        for (const Get get : getters) {
            float rgb[3] = {0, 0, 0};
            if ((background->*get)(rgb) == 0)
                last = withinUnit(rgb);
            backdrop.colours[i++] = last;
        }
    };
    QString file;
    if (background->IsPlainColour()) {
        backdrop.kind = Backdrop::Kind::Plain;
        read({&Background::GetPlainColour});
    } else if (background->IsGraduated()) {
        backdrop.kind = Backdrop::Kind::Graduated;
        read({&Background::GetPrimaryColour, &Background::GetSecondaryColour});
    } else if (background->IsHorizon()) {
        backdrop.kind = Backdrop::Kind::Horizon;
        read({&Background::GetSkyColour, &Background::GetHorizonSkyColour,
              &Background::GetHorizonGroundColour, &Background::GetGroundColour});
    } else if (background->IsImage() || background->IsImage3D()) {
        backdrop.kind = Backdrop::Kind::Image;
        file = background->GetImageBackground();
        if (background->IsImage3D()) {
            backdrop.kind = Backdrop::Kind::Panorama;
            backdrop.horizon = clamped(double(background->GetImage3DHorizonPosition()));
        }
    } else if (background->IsReflection()) {
        backdrop.kind = Backdrop::Kind::Reflection;
        file = background->GetReflectionBackground();
    }
    readImageOf(backdrop, file, textures);
    return backdrop;
}

Backdrop readEnvironment(const QString& file, TextureReader& textures)
{
    Backdrop environment;
    readImageOf(environment, file, textures);
    if (environment.image)
        environment.kind = Backdrop::Kind::Reflection;
    return environment;
}

Vec inFixedSize(const Vec& direction, const Vec& camera, double size)
{
    if (!(size > 0))
        return direction;
    const double radius = size / 2;
    const double b = dot(camera, direction);
    const double d = b * b - dot(camera, camera) + radius * radius;
    const double away = std::sqrt(std::max(d, 0.0)) - b;
    return d >= 0 && away > 0 ? normalised(camera + direction * away) : direction;
}

void drawBackdrop(Raster& raster, const Backdrop& backdrop)
{
    if (backdrop.kind != Backdrop::Kind::Reflection) {
        raster.fill([&](const Point& point) { return backdrop.onPlate(point, raster.aspect()); });
        return;
    }
    Surface chromium;
    chromium.paint.colour = {0.95, 0.95, 0.95};
    chromium.factors.diffuse = 0;
    chromium.factors.specular = 1;
    chromium.factors.mirror = 1;
    chromium.factors.roughness = 0;
    chromium.factors.refraction = 1;
    Scene scene = studio(chromium);
    scene.backdrop = [room = scene.surroundings](const Vec& direction, const Point&) {
        return room(direction);
    };
    scene.lights.clear();
    scene.surroundings = [&backdrop](const Vec& direction) {
        return backdrop.reflectedFrom(direction);
    };
    scene.groundFadesInto = scene.backdrop({0, 1, 0}, {});
    scene.balls.push_back(studioBall(chromium));
    scene.draw(raster);
    raster.rollOff();
}

Rgb landscape(const Point& point, double aspect)
{
    const double x = point.x / aspect;
    const double far = 0.50 + 0.05 * std::sin(x * 7 + 0.6) + 0.03 * std::sin(x * 17);
    const double middle = 0.62 + 0.05 * std::sin(x * 5 + 2.6) + 0.012 * std::sin(x * 23);
    const double front = 0.76 + 0.06 * std::sin(x * 4 + 4.4);
    const auto edge = [&point](double height) {
        return smoothStep(height - 0.004, height + 0.004, point.y);
    };
    Rgb colour = mixed(fromHex(0xa9c4dc), fromHex(0xf2e8d8), smoothStep(0.0, 0.55, point.y));
    const double dx = (x - 0.72) * aspect;
    const double dy = point.y - 0.24;
    colour = mixed(colour, fromHex(0xfff7e0),
                   1 - smoothStep(0.066, 0.074, std::sqrt(dx * dx + dy * dy)));
    colour = mixed(colour, fromHex(0x9fb3b8), edge(far));
    colour = mixed(colour, fromHex(0x7b9a83), edge(middle));
    return mixed(colour, fromHex(0x55735a), edge(front));
}

} // namespace rvopen::toolkit::drawing

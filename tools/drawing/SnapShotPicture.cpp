// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SnapShotPicture.h"

#include "Scene.h"
#include "Studio.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShot.h>

namespace rvopen::drawing {

namespace {

constexpr std::size_t s_maxBalls = 7;
constexpr double s_radius = 0.68;
constexpr double s_spacing = 1.55;

/// Where there is no background: what the scheme suggests.
Backdrop backdropFor(SchemeKind kind)
{
    Backdrop backdrop;
    const auto set = [&backdrop](Backdrop::Kind what, const std::vector<Vec>& colours) {
        backdrop.kind = what;
        std::copy(colours.begin(), colours.end(), backdrop.colours);
    };
    switch (kind) {
    case SchemeKind::Exterior:
        set(Backdrop::Kind::Horizon,
            {{0.36, 0.58, 0.84}, {0.86, 0.91, 0.96}, {0.66, 0.66, 0.58}, {0.45, 0.46, 0.38}});
        break;
    case SchemeKind::Interior:
        set(Backdrop::Kind::Horizon,
            {{0.96, 0.94, 0.90}, {0.90, 0.87, 0.81}, {0.66, 0.52, 0.38}, {0.72, 0.57, 0.42}});
        break;
    case SchemeKind::Product:
    case SchemeKind::Other:
        set(Backdrop::Kind::Graduated, {{0.95, 0.95, 0.95}, {0.82, 0.82, 0.82}});
        break;
    }
    return backdrop;
}

/// In a row, or in two rows with gaps to look through.
std::vector<Vec> places(std::size_t count)
{
    const std::size_t front = count <= 4 ? count : (count + 1) / 2;
    std::vector<Vec> result;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isFront = i < front;
        const std::size_t inRow = isFront ? front : count - front;
        const double at = double(isFront ? i : i - front) - (double(inRow) - 1) / 2;
        const double row = isFront ? 0 : 2.1;
        result.push_back({at * s_spacing, row, s_radius});
    }
    return result;
}

} // namespace

SnapShotValues readSnapShot(SnapShot* snapShot, TextureReader& textures)
{
    SnapShotValues values;
    values.hasCamera = snapShot->GetCamera() != nullptr;
    values.camera = readCamera(snapShot->GetCamera());
    values.backdrop = readBackdrop(snapShot->GetBackground(), textures);
    values.mist = readMist(snapShot->GetForeground());
    values.sun = readSun(snapShot->GetNaturalLightStudio());
    if (const Scheme* const scheme = snapShot->GetScheme()) {
        values.hasScheme = true;
        values.scheme = schemeKind(*scheme);
    }
    int isOn = 0;
    snapShot->GetArtificialLightStudio()->GetEnabled(&isOn);
    values.hasLamps = isOn != 0;
    if (Scenery* const scenery = snapShot->GetScenery()) {
        int hasShadow = 1;
        float contrast = 1;
        scenery->GetDropShadowEnabled(&hasShadow);
        scenery->GetDropShadowContrast(&contrast);
        values.shadowContrast =
            hasShadow && std::isfinite(contrast) ? clamped(double(contrast)) : 0;
    }
    SurfaceReader reader(textures);
    Material* material = snapShot->GetMaterialRepository()->GetFirstMaterial();
    for (; material && values.surfaces.size() < s_maxBalls; material = material->GetNext())
        values.surfaces.push_back(reader.ofMaterial(material));
    return values;
}

void drawSnapShot(Raster& raster, const SnapShotValues& values)
{
    const bool hasBackdrop = values.backdrop.kind != Backdrop::Kind::None;
    if (values.surfaces.empty() && !values.hasScheme) {
        if (values.hasCamera && !hasBackdrop) {
            drawCamera(raster, values.camera);
            return;
        }
        if (hasBackdrop && !values.hasCamera) {
            drawBackdrop(raster, values.backdrop);
            return;
        }
    }

    Surface plain;
    plain.paint.colour = {0.6, 0.6, 0.6};
    Scene scene = studio(plain);
    const std::size_t count = std::max<std::size_t>(values.surfaces.size(), 1);
    for (const Vec& place : places(count)) {
        const std::size_t i = scene.balls.size();
        const Surface& surface = values.surfaces.empty() ? plain : values.surfaces[i];
        Ball ball = studioBall(surface);
        ball.centre = place;
        ball.radius = s_radius;
        ball.scale /= ball.radius;
        scene.balls.push_back(ball);
    }

    // The camera's height over the model and its angle, within what leaves the balls in sight.
    const Vec sight = values.camera.to - values.camera.from;
    const double pitch =
        values.camera.hasPlace
            ? clamped(std::asin(clamped(-sight.z / length(sight), -1, 1)) * 180 / Pi, 7, 50)
            : 12;
    const double angle = mixed(20, 34, clamped((values.camera.angle - 20) / 60));
    // As far away as shows the whole first row.
    const double row = double(count <= 4 ? count : (count + 1) / 2);
    const double half = std::max((row - 1) / 2 * s_spacing + s_radius + 0.5, 2.1);
    const double away = half / (std::tan(radians(angle) / 2) * raster.aspect()) + s_radius;
    scene.view.to = {0, count > 4 ? 0.8 : 0.0, 0.95};
    scene.view.from =
        scene.view.to + Vec{0, -std::cos(radians(pitch)), std::sin(radians(pitch))} * away;
    scene.view.angle = angle;
    scene.shadowContrast = values.shadowContrast;

    const Backdrop backdrop = hasBackdrop ? values.backdrop : backdropFor(values.scheme);
    const bool isStudio = !hasBackdrop && !values.hasScheme && !values.sun.isOn;
    const double bearing = std::atan2(sight.x, sight.y) * 180 / Pi;
    Sun sun = values.sun;
    sun.azimuth -= values.camera.hasPlace ? bearing : 180;
    const bool isDay = sun.isOn && sun.altitude > -2;
    if (!isStudio) {
        const bool isDark = !isDay && !values.hasLamps;
        const double level = isDark ? 0.55 : 1;
        scene.surroundings = [backdrop, level](const Vec& direction) {
            return backdrop.reflectedFrom(direction) * level;
        };
        const Rgb soil =
            backdrop.kind == Backdrop::Kind::Image ? fromHex(0x8f8d84) : backdrop.at(-0.35);
        scene.ground = [soil](const Vec& point) {
            constexpr double side = 1.2;
            const bool isLight =
                (int(std::floor(point.x / side)) + int(std::floor(point.y / side))) % 2;
            return soil * (isLight ? 0.92 : 0.84);
        };
        scene.groundFadesFrom = 6;
        scene.groundFadesTo = 26;
        scene.groundFadesInto = values.mist.isOn ? values.mist.colour : backdrop.at(-0.001) * level;
        if (isDay) {
            const double a = radians(sun.azimuth);
            const double h = radians(std::max(sun.altitude, 3.0));
            AreaLight light;
            light.towards = {std::sin(a) * std::cos(h), std::cos(a) * std::cos(h), std::sin(h)};
            light.halfWidth = light.halfHeight = 0.07;
            light.softness = 0.4;
            const double strength = 3.6 / (4 * light.halfWidth * light.halfHeight) *
                                    mixed(0.45, 1, smoothStep(0, 35, sun.altitude));
            light.radiance = sun.colour() * strength;
            scene.lights = {light};
        } else if (values.hasLamps) {
            for (AreaLight& light : scene.lights)
                light.radiance = light.radiance * Rgb{0.75, 0.68, 0.55};
        } else {
            for (AreaLight& light : scene.lights)
                light.radiance = light.radiance * 0.25;
        }
        const Mist mist = values.mist;
        const double aspect = raster.aspect();
        const Vec towardsSun = scene.lights.front().towards;
        scene.backdrop = [=](const Vec& direction, const Point& point) {
            Rgb light = backdrop.isPlate() ? backdrop.onPlate({point.x, clamped(point.y)}, aspect)
                                           : backdrop.at(direction.z) * level;
            if (isDay) {
                const double off = std::acos(clamped(dot(direction, towardsSun), -1, 1));
                light += sun.colour() *
                         (1.6 * (1 - smoothStep(0.035, 0.05, off)) + 0.5 * std::exp(-off * 9));
            }
            if (mist.isOn)
                light = mixed(light, mist.colour, 1 - smoothStep(0.0, 0.18, direction.z));
            return light;
        };
    }
    if (values.mist.isOn) {
        // As far away as for the model: the camera's distance is that of the first row.
        const double scale = values.camera.hasPlace ? away / length(sight) : 1;
        scene.mist = values.mist;
        scene.mist.nearDistance *= scale;
        scene.mist.farDistance *= scale;
    }
    scene.draw(raster);
}

} // namespace rvopen::drawing

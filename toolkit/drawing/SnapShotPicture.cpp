// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SnapShotPicture.h"

#include "Studio.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>

namespace rvopen::toolkit::drawing {

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

/// How many of so many balls stand in the first row.
std::size_t inFirstRow(std::size_t count)
{
    return count <= 4 ? count : (count + 1) / 2;
}

/// In a row, or in two rows with gaps to look through.
std::vector<Vec> places(std::size_t count)
{
    const std::size_t front = inFirstRow(count);
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

/// For a palette of no materials.
const Surface& plainSurface()
{
    static const Surface surface = [] {
        Surface plain;
        plain.paint.colour = {0.6, 0.6, 0.6};
        return plain;
    }();
    return surface;
}

/// A factor from 0; what is no number counts as 1.
double factorOf(float value)
{
    return std::isfinite(value) ? clamped(double(value), 0, 1e3) : 1;
}

void readSettings(SnapShotSettings* settings, TextureReader& textures, SnapShotValues& values)
{
    values.orientation = readOrientation(settings);
    values.twist = readTwist(settings);
    if (!settings)
        return;
    float ambient = 1;
    float intensity = 1;
    int reflects = 0;
    settings->GetAmbientLightsIntensityScale(&ambient);
    settings->GetReflectBackPlate(&reflects);
    values.environment = readEnvironment(settings->GetBackgroundReflected(&intensity), textures);
    values.ambient = factorOf(ambient);
    values.environmentIntensity = factorOf(intensity);
    values.reflectsBackdrop = reflects != 0;
}

/// Azimuth of the line of sight; straight from above or below that of what is beyond the model.
double bearingOf(const SnapShotValues& values)
{
    if (!values.camera.hasPlace)
        return 0;
    const Orientation& orientation = values.orientation;
    const View view = viewOf(values.camera, orientation, 0);
    const double rise = dot(view.forward, orientation.up);
    const bool isSteep = std::fabs(rise) > 0.9999;
    return orientation.azimuthOf(isSteep ? view.up * (rise > 0 ? -1 : 1) : view.forward);
}

/// From directions of the picture to those of the compass.
class Compass {
public:
    explicit Compass(double bearing)
        : m_cosine(std::cos(radians(bearing)))
        , m_sine(std::sin(radians(bearing)))
    {
    }

    Vec of(const Vec& direction) const
    {
        return {direction.x * m_cosine + direction.y * m_sine,
                direction.y * m_cosine - direction.x * m_sine, direction.z};
    }

private:
    double m_cosine;
    double m_sine;
};

/// From above the horizon, with the angle up the height of the picture, as near as shows the whole
/// first row of so many balls.
View viewOfRows(const SnapShotValues& values, std::size_t count, double aspect)
{
    // The camera's height over the model and its angle, within what leaves the balls in sight.
    const Vec sight = values.camera.to - values.camera.from;
    const double pitch =
        values.camera.hasPlace ? clamped(-values.orientation.altitudeOf(sight), 7, 50) : 12;
    const double upwards = mixed(20, 34, clamped((values.camera.angle - 20) / 60));
    const double row = double(inFirstRow(count));
    const double half = std::max((row - 1) / 2 * s_spacing + s_radius + 0.5, 2.1);
    const double angle = scaledAngle(upwards, aspect);
    const double away = half / std::tan(radians(angle) / 2) + s_radius;
    const Vec to{0, inFirstRow(count) < count ? 0.8 : 0.0, 0.95};
    const Vec from = to + Vec{0, -std::cos(radians(pitch)), std::sin(radians(pitch))} * away;
    return viewFrom(from, to, angle).twisted(values.twist);
}

AreaLight sunlight(const Sun& sun, double bearing)
{
    AreaLight light;
    light.towards = Orientation().towards(sun.azimuth - bearing, sun.altitude);
    light.halfWidth = light.halfHeight = 0.07;
    light.softness = 0.4;
    const double strength = 3.6 / (4 * light.halfWidth * light.halfHeight) *
                            mixed(0.45, 1, smoothStep(0, 35, sun.altitude));
    light.radiance = sun.colour() * strength;
    return light;
}

bool isThere(const Backdrop& backdrop)
{
    return backdrop.kind != Backdrop::Kind::None;
}

/// What mirrors show, by directions of the picture: the first of what there is.
std::function<Rgb(const Vec&)> surroundingsOf(const SnapShotValues& values,
                                              const Backdrop& backdrop, const Compass& compass,
                                              double level)
{
    const bool showsEnvironment =
        isThere(values.environment) && !(values.reflectsBackdrop && isThere(values.backdrop));
    const double intensity = level * (showsEnvironment ? values.environmentIntensity : 1);
    return [shown = showsEnvironment ? values.environment : backdrop, compass,
            intensity](const Vec& direction) {
        return shown.reflectedFrom(compass.of(direction)) * intensity;
    };
}

/// Ground, light and what is behind, by what the snapshot says of them.
void placeOutside(Scene& scene, const SnapShotValues& values, const Backdrop& backdrop,
                  double aspect)
{
    const double bearing = bearingOf(values);
    const Compass compass(bearing);
    const Sun sun = values.sun;
    const bool isDay = sun.isOn && sun.altitude > 0;
    const double level = isDay ? 1 : mixed(0.55, 1, clamped(values.lamps));
    scene.surroundings = surroundingsOf(values, backdrop, compass, level);
    const bool isPhotograph =
        backdrop.kind == Backdrop::Kind::Image || backdrop.kind == Backdrop::Kind::Panorama;
    const Rgb soil = isPhotograph ? fromHex(0x8f8d84) : backdrop.at(-0.35);
    scene.ground = [soil](const Vec& point) {
        constexpr double side = 1.2;
        const bool isLight = isLightField(point, side);
        return soil * (isLight ? 0.92 : 0.84);
    };
    scene.groundFadesFrom = 6;
    scene.groundFadesTo = 26;
    // It is no larger than the model needs it: behind it is what is behind everything.
    scene.groundEndsInBackdrop = true;
    scene.groundFadesInto = values.mist.isOn
                                ? values.mist.colour
                                : backdrop.at(-0.001) * (backdrop.isPlate() ? 1 : level);
    if (isDay)
        scene.lights = {sunlight(sun, bearing)};
    else {
        // Some light there is without lamps too.
        const auto lit = [&values](double share) { return std::max(share * values.lamps, 0.25); };
        for (AreaLight& light : scene.lights)
            light.radiance = light.radiance * Rgb{lit(0.75), lit(0.68), lit(0.55)};
    }
    const Mist mist = values.mist;
    const Vec towardsSun = scene.lights.front().towards;
    scene.backdrop = [=](const Vec& direction, const Point& point) {
        if (backdrop.isPlate())
            return backdrop.onPlate({point.x, clamped(point.y)}, aspect);
        Rgb light = backdrop.seenIn(compass.of(direction)) * level;
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

} // namespace

SnapShotValues readSnapShot(SnapShot* snapShot, TextureReader& textures)
{
    SnapShotValues values;
    values.hasCamera = snapShot->GetCamera() != nullptr;
    values.camera = readCamera(snapShot->GetCamera());
    readSettings(snapShot->GetSnapShotSettings(), textures, values);
    values.backdrop = readBackdrop(snapShot->GetBackground(), textures);
    values.mist = readMist(snapShot->GetForeground());
    values.sun = readSun(snapShot->GetNaturalLightStudio());
    if (const Scheme* const scheme = snapShot->GetScheme()) {
        values.hasScheme = true;
        values.scheme = schemeKind(*scheme);
    }
    int isOn = 0;
    float scale = 1;
    ArtificialLightStudio* const studio = snapShot->GetArtificialLightStudio();
    studio->GetEnabled(&isOn);
    studio->GetIntensityScale(&scale);
    values.lamps = isOn ? factorOf(scale) : 0;
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
    for (Surface& surface : values.surfaces)
        surface.factors.light *= values.lamps;
    return values;
}

Scene snapShotScene(const SnapShotValues& values, double aspect)
{
    Scene scene = studio(plainSurface());
    const std::size_t count = std::max<std::size_t>(values.surfaces.size(), 1);
    for (const Vec& place : places(count)) {
        Ball ball = studioBall(values.surfaces.empty() ? plainSurface()
                                                       : values.surfaces[scene.balls.size()]);
        ball.centre = place;
        ball.radius = s_radius;
        ball.scale /= ball.radius;
        scene.balls.push_back(ball);
    }
    scene.view = viewOfRows(values, count, aspect);
    scene.shadowContrast = values.shadowContrast;
    scene.ambient = values.ambient;
    const bool hasBackdrop = isThere(values.backdrop);
    if (hasBackdrop || values.hasScheme || values.sun.isOn)
        placeOutside(scene, values, hasBackdrop ? values.backdrop : backdropFor(values.scheme),
                     aspect);
    else if (isThere(values.environment))
        scene.surroundings =
            surroundingsOf(values, values.environment, Compass(bearingOf(values)), 1);
    if (values.mist.isOn) {
        // As far away as for the model: the camera's distance is that of the first row.
        const double scale =
            values.camera.hasPlace
                ? scene.view.distance() / length(values.camera.to - values.camera.from)
                : 1;
        scene.mist = values.mist;
        scene.mist.nearDistance *= scale;
        scene.mist.farDistance *= scale;
    }
    return scene;
}

void drawSnapShot(Raster& raster, const SnapShotValues& values)
{
    const bool hasBackdrop = isThere(values.backdrop);
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
    snapShotScene(values, raster.aspect()).draw(raster);
    raster.rollOff();
}

} // namespace rvopen::toolkit::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Scene.h"

#include "Optics.h"
#include "toolkit/documents/Stopping.h"

namespace rvopen::toolkit::drawing {

namespace {

/// Within this distance a ray is where it starts.
constexpr double s_touching = 1e-6;

/// The place of the ray of a pixel in the picture, in pixels.
Point sampleOf(int x, int y, int ray)
{
    return {x + (ray % RaysPerSide + 0.5) / RaysPerSide,
            y + (ray / RaysPerSide + 0.5) / RaysPerSide};
}

/// What part of the light passes through a surface that is everywhere the same.
Rgb evenlyPassing(const Surface& surface)
{
    const double bent = surface.factors.transmission;
    if (!surface.hasOpacity() || surface.opacity.texture)
        return grey(bent);
    const Rgb straight = grey(1) - surface.opacityAt(0, 0, 1);
    return {std::max(bent, straight.x), std::max(bent, straight.y), std::max(bent, straight.z)};
}

} // namespace

bool Ball::meets(const Ray& ray, double& enter, double& leave) const
{
    const Vec to = ray.from - centre;
    const double b = dot(to, ray.direction);
    const double d = b * b - dot(to, to) + radius * radius;
    if (d <= 0)
        return false;
    const double root = std::sqrt(d);
    enter = -b - root;
    leave = -b + root;
    return leave > s_touching;
}

Rgb Mist::over(const Rgb& seen, double distance) const
{
    if (!isOn)
        return seen;
    const double depth = std::max(farDistance - nearDistance, 1e-9);
    return mixed(seen, colour, clamped((distance - nearDistance) / depth));
}

void Scene::draw(Raster& raster)
{
    prepare();
    m_facing = Frame(view.forward * -1);
    const double width = raster.width();
    const double height = raster.height();
    m_pixel = 2 * view.halfWidth() / width;
    for (int y = 0; y < raster.height() && !isStopped(); ++y) {
        for (int x = 0; x < raster.width(); ++x) {
            Rgb sum;
            for (m_ray = 0; m_ray < RaysPerPixel; ++m_ray) {
                const Point at = sampleOf(x, y, m_ray);
                const Ray ray = view.rayAt((2 * at.x - width) / width, (height - 2 * at.y) / width);
                const double along = dot(ray.direction, view.forward);
                const Met first =
                    met(ray, nullptr, view.nearDistance / along, view.farDistance / along);
                const bool isNothing = first.distance >= Endless;
                Rgb light = isNothing && backdrop ? Rgb() : seen(ray, first, 0);
                const double through = isNothing ? 1 : throughGround(ray, first);
                if (backdrop && through > 0)
                    light = mixed(light, backdrop(ray.direction, {at.x / height, at.y / height}),
                                  through);
                // A small light makes no larger blot than its pixel.
                light = {std::min(light.x, 4.0), std::min(light.y, 4.0), std::min(light.z, 4.0)};
                sum += light;
            }
            raster.at(x, y) = sum * (1.0 / RaysPerPixel);
        }
    }
}

void Scene::drawFlat(Raster& raster, const Surface& surface, double scale)
{
    prepare();
    m_facing = Frame({0, -1, 0});
    m_pixel = 2.0 / raster.height();
    Ball piece;
    piece.radius = 1;
    piece.scale = scale;
    piece.surface = &surface;
    for (int y = 0; y < raster.height() && !isStopped(); ++y) {
        for (int x = 0; x < raster.width(); ++x) {
            Rgb sum;
            for (m_ray = 0; m_ray < RaysPerPixel; ++m_ray) {
                const Point sample = sampleOf(x, y, m_ray);
                const double px = 2 * sample.x / raster.width() - 1;
                const double py = 1 - 2 * sample.y / raster.height();
                Hit hit;
                hit.ball = &piece;
                hit.surface = &surface;
                hit.point = {px, 0, py + 2};
                // Slightly domed, so that gloss shows.
                hit.flat = normalised({px * 0.35, -1, py * 0.35 + 0.25});
                hit.direction = normalised({px * 0.1, 1, py * 0.1});
                const double at[2] = {px * scale, py * scale};
                const double footprint = m_pixel * scale;
                hit.colour = surface.paint.at(at[0], at[1], footprint).colour;
                const Vec local = surface.normalAt(at[0], at[1], footprint);
                hit.normal = normalised(Vec{1, 0, 0} * local.x + Vec{0, 0, 1} * local.y +
                                        hit.flat * local.z);
                const bool isLight = isLightField({px, py, 0}, 0.25);
                const Rgb behind = isLight ? grey(0.75) : grey(0.35);
                const Rgb opacity = surface.opacityAt(at[0], at[1], footprint);
                const double through = surface.factors.transmission;
                Rgb light = diffuse(hit) + mirrored(hit, 1) + emission(surface);
                light += behind * afterGlass(hit.colour, 1) * through;
                sum += mixed(behind, light, opacity);
            }
            raster.at(x, y) = sum * (1.0 / RaysPerPixel);
        }
    }
}

void Scene::prepare()
{
    m_lightFrames.clear();
    m_lightSamples.clear();
    m_onGround.clear();
    for (const AreaLight& light : lights) {
        const Frame frame(light.towards);
        m_lightFrames.push_back(frame);
        // The samples of the rays of a pixel together make a fine square.
        for (int ray = 0; ray < RaysPerPixel; ++ray) {
            Rgb onGround;
            for (int i = 0; i < LightSamples; ++i) {
                const double a =
                    (i % LightSide + (ray % RaysPerSide + 0.5) / RaysPerSide) / LightSide;
                const double b =
                    (i / LightSide + (ray / RaysPerSide + 0.5) / RaysPerSide) / LightSide;
                m_lightSamples.push_back(normalised(frame.w +
                                                    frame.u * ((2 * a - 1) * light.halfWidth) +
                                                    frame.v * ((2 * b - 1) * light.halfHeight)));
                onGround += light.radiance * (std::max(m_lightSamples.back().z, 0.0) * 4 *
                                              light.halfWidth * light.halfHeight / LightSamples);
            }
            m_onGround.push_back(onGround);
        }
    }
    // The light of the sky on a level ground, by the midpoint rule.
    constexpr int rings = 8;
    constexpr int steps = 24;
    m_skyLight = Rgb();
    for (int i = 0; i < rings; ++i) {
        for (int j = 0; j < steps; ++j) {
            // Equal parts of the circle below the sky's dome have equal parts in the light.
            const double radius = std::sqrt((i + 0.5) / rings);
            const double angle = 2 * Pi * (j + 0.5) / steps;
            const Vec direction{radius * std::cos(angle), radius * std::sin(angle),
                                std::sqrt(1 - radius * radius)};
            m_skyLight += surroundings(direction) * (ambient * Pi / (rings * steps));
        }
    }
    m_groundLight = surroundings({0, -0.6, -0.8}) * (ambient * Pi);
    if (hasGround) {
        const Vec away{0, -1000 * view.distance(), 0};
        m_ray = 0;
        m_groundLight = ground(view.to) * groundLight(away, true);
    }
}

Scene::Met Scene::met(const Ray& ray, const Ball* except, double from, double to) const
{
    Met first;
    for (const Ball& ball : balls) {
        double enter = 0;
        double leave = 0;
        if (&ball == except || !ball.meets(ray, enter, leave) || enter <= s_touching)
            continue;
        if (enter >= from && enter <= to && enter < first.distance)
            first = {&ball, enter};
    }
    if (hasGround && ray.direction.z < 0 && ray.from.z > 0) {
        const double toGround = -ray.from.z / ray.direction.z;
        if (toGround >= from && toGround <= to && toGround <= first.distance)
            first = {nullptr, toGround};
    }
    return first;
}

Rgb Scene::trace(const Ray& ray, int depth, const Ball* except) const
{
    return seen(ray, met(ray, except), depth);
}

Rgb Scene::seen(const Ray& ray, const Met& first, int depth) const
{
    if (first.distance >= Endless)
        return depth == 0 ? surroundings(ray.direction) : farAway(ray.direction, 0.0);
    const Rgb light = first.ball
                          ? ballSeen(*first.ball, ray, first.distance, depth)
                          : groundSeen(ray.from + ray.direction * first.distance, depth == 0);
    return depth == 0 ? mist.over(light, first.distance) : light;
}

Rgb Scene::farAway(const Vec& direction, double blur) const
{
    Rgb light = surroundings(direction);
    for (std::size_t i = 0; i < lights.size(); ++i) {
        const AreaLight& each = lights[i];
        const Frame& frame = m_lightFrames[i];
        const double c = dot(direction, frame.w);
        if (c <= 0)
            continue;
        const double soft = each.softness + blur;
        const double a = std::fabs(dot(direction, frame.u) / c) / each.halfWidth;
        const double b = std::fabs(dot(direction, frame.v) / c) / each.halfHeight;
        light += each.radiance * ((1 - smoothStep(1 - soft, 1 + soft, a)) *
                                  (1 - smoothStep(1 - soft, 1 + soft, b)));
    }
    return light;
}

Rgb Scene::groundLight(const Vec& point, bool isExact) const
{
    Rgb fromSky = m_skyLight;
    Rgb emitted;
    for (const Ball& ball : balls) {
        // What a ball takes of the sky above a level point: the form factor of a sphere (J. R.
        // Howell, "A catalog of radiation heat transfer configuration factors").
        const Vec to = ball.centre - point;
        const double d2 = dot(to, to);
        const double factor = ball.radius * ball.radius / d2 * std::max(to.z, 0.0) / std::sqrt(d2);
        const Rgb through = evenlyPassing(*ball.surface);
        fromSky = fromSky * (grey(1) - (grey(1) - through * 0.7) * factor);
        emitted += emission(*ball.surface) * (Pi * factor);
    }
    Rgb direct;
    for (std::size_t n = 0; n < lights.size(); ++n) {
        const AreaLight& light = lights[n];
        const Rgb& whole = m_onGround[n * RaysPerPixel + std::size_t(m_ray)];
        if (light.towards.z <= 0 || !mayBeShadowed(point, light)) {
            direct += whole;
            continue;
        }
        const double angle = 4 * light.halfWidth * light.halfHeight;
        const int samples = isExact ? LightSamples : 1;
        Rgb rest;
        for (int i = 0; i < samples; ++i) {
            const Vec towards = isExact ? lightSample(n, i) : light.towards;
            Rgb share = light.radiance * (std::max(towards.z, 0.0) * angle / samples);
            for (const Ball& ball : balls)
                share = share * passing(ball, {point, towards});
            rest += share;
        }
        direct += mixed(whole, rest, shadowContrast);
    }
    return fromSky + direct + emitted;
}

/// Whether a ball comes near the cone from the point to the light.
bool Scene::mayBeShadowed(const Vec& point, const AreaLight& light) const
{
    const double spread = light.halfWidth + light.halfHeight;
    return std::any_of(balls.begin(), balls.end(), [&](const Ball& ball) {
        const Vec to = ball.centre - point;
        const double along = dot(to, light.towards);
        const double reach = ball.radius + std::max(along + ball.radius, 0.0) * spread;
        return along > -ball.radius && dot(to, to) - along * along < reach * reach;
    });
}

Rgb Scene::groundSeen(const Vec& point, bool isExact) const
{
    const Rgb lit = ground(point) * groundLight(point, isExact) * (1 / Pi);
    return isExact && groundEndsInBackdrop ? lit : mixed(lit, groundFadesInto, fading(point));
}

double Scene::fading(const Vec& point) const
{
    return smoothStep(groundFadesFrom, groundFadesTo,
                      std::sqrt(point.x * point.x + point.y * point.y));
}

/// What share of the backdrop the camera sees through what it meets.
double Scene::throughGround(const Ray& ray, const Met& first) const
{
    return groundEndsInBackdrop && !first.ball ? fading(ray.from + ray.direction * first.distance)
                                               : 0;
}

} // namespace rvopen::toolkit::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Optics.h"
#include "Scene.h"

namespace rvopen::toolkit::drawing {

namespace {

/// Reflections and refractions that are followed.
constexpr int s_maxDepth = 3;
/// Coarse facets of a metal, of the width 0.25, lose nine hundredths of the light among each other.
constexpr double s_givenBack = 1.1;

double greatest(const Rgb& colour)
{
    return std::max({colour.x, colour.y, colour.z});
}

} // namespace

Rgb Scene::ballSeen(const Ball& ball, const Ray& ray, double distance, int depth) const
{
    const auto hitAt = [&](const Vec& point, bool isInside) {
        Hit hit;
        hit.ball = &ball;
        hit.surface = ball.surface;
        hit.point = point;
        const Vec outwards = (point - ball.centre) * (1 / ball.radius);
        hit.flat = isInside ? outwards * -1 : outwards;
        hit.direction = ray.direction;
        const Point place = placeOn(ball, outwards);
        // A pixel sees more of a surface that it meets at an angle.
        const double footprint = m_pixel * ball.scale /
                                 std::max(std::sqrt(std::fabs(dot(ray.direction, outwards))), 0.3);
        hit.colour = hit.surface->paint.at(place.x, place.y, footprint).colour;
        const Vec local = hit.surface->normalAt(place.x, place.y, footprint);
        if (local.z < 1) {
            // The directions in which the image runs to the right and upwards.
            const Vec u = normalised(m_facing.u - outwards * dot(m_facing.u, outwards));
            const Vec v = cross(outwards, u);
            hit.normal = normalised(u * local.x + v * local.y + hit.flat * local.z);
        } else
            hit.normal = hit.flat;
        return hit;
    };
    const Hit front = hitAt(ray.from + ray.direction * distance, false);
    const Surface& surface = *ball.surface;
    const auto opacityAt = [&](const Vec& outwards) {
        const Point place = placeOn(ball, outwards);
        return surface.opacityAt(place.x, place.y, m_pixel * ball.scale);
    };
    const Rgb opacity = opacityAt(front.flat);
    Rgb light = greatest(opacity) > 0 ? shaded(front, depth) : Rgb();
    const Rgb open = grey(1) - opacity;
    if (greatest(open) <= 0)
        return light;
    double enter = 0;
    double leave = 0;
    ball.meets(ray, enter, leave);
    const Hit back = hitAt(ray.from + ray.direction * leave, true);
    const Rgb behind = opacityAt(back.flat * -1);
    const Rgb openBehind = grey(1) - behind;
    Rgb through;
    if (greatest(openBehind) > 0)
        through = trace({back.point, ray.direction}, depth + 1, &ball) * openBehind;
    through += diffuse(back) * behind * 0.8;
    // The gloss of a clear film stays.
    const Rgb gloss = surface.opacity.texture ? Rgb() : mirrored(front, depth);
    return light * opacity + through * open + gloss * open;
}

Rgb Scene::shaded(const Hit& hit, int depth) const
{
    Rgb light = diffuse(hit) + mirrored(hit, depth);
    // The glass of a lamp is brighter in the middle.
    light += emission(*hit.surface) * (0.35 + 0.65 * clamped(-dot(hit.direction, hit.flat)));
    if (hit.surface->factors.transmission > 0)
        light += transmitted(hit, depth);
    return light;
}

Rgb Scene::diffuse(const Hit& hit) const
{
    const double share = hit.surface->factors.diffuse * (1 - hit.surface->metalness());
    if (share <= 0)
        return {};
    Rgb light;
    for (std::size_t n = 0; n < lights.size(); ++n) {
        const AreaLight& each = lights[n];
        const double angle = 4 * each.halfWidth * each.halfHeight;
        for (int i = 0; i < LightSamples; ++i) {
            const Vec& towards = lightSample(n, i);
            if (dot(hit.flat, towards) <= 0)
                continue;
            light +=
                each.radiance * (std::max(dot(hit.normal, towards), 0.0) * angle / LightSamples);
        }
    }
    // The sky from above, the ground from below; near the ground the ball's own shadow.
    const double up = (1 + hit.normal.z) / 2;
    const double height = hit.point.z / (2 * hit.ball->radius);
    light += m_skyLight * up + m_groundLight * ((1 - up) * smoothStep(-0.1, 0.6, height));
    return hit.colour * light * (share / Pi);
}

Rgb Scene::mirrored(const Hit& hit, int depth) const
{
    const Factors& factors = hit.surface->factors;
    const double metal = hit.surface->metalness();
    const double alpha = std::max(facetWidth(factors.roughness), 0.001);
    Rgb light;
    if (metal > 0) {
        // The diffuse share of a metal is its reflection by coarser facets.
        const double sharp = std::max(factors.mirror, 0.0);
        const double blurred = std::max(factors.diffuse, 0.0) * s_givenBack;
        const double bright = std::max(factors.specular, factors.mirror);
        light += lobe(hit, alpha, hit.colour * std::max(sharp, 0.5 * bright), hit.colour * sharp,
                      grey(sharp), depth) *
                 metal;
        if (blurred > 0.01)
            light += lobe(hit, clamped(alpha * 1.5 + 0.25), hit.colour * blurred,
                          hit.colour * blurred, hit.colour * blurred, depth) *
                     metal;
    }
    if (metal < 1 && (factors.specular > 0 || factors.mirror > 0)) {
        const double normal = hit.surface->dielectricReflectance();
        // Lights are brighter than what can be shown: twice the share makes gloss visible.
        const double bright = std::max(factors.specular * normal * 2, factors.mirror * 0.4);
        const double sharp = std::max(factors.specular * normal, factors.mirror * 0.4);
        const double edge = std::max(factors.specular, factors.mirror) * (1 - factors.roughness);
        light += lobe(hit, alpha, grey(bright), grey(sharp), grey(std::max(edge, sharp)), depth) *
                 (1 - metal);
    }
    return light;
}

Rgb Scene::lobe(const Hit& hit, double alpha, const Rgb& ofLights, const Rgb& ofSurroundings,
                const Rgb& atGrazing, int depth) const
{
    const Vec eye = hit.direction * -1;
    const double facing = std::max(dot(hit.normal, eye), 0.02);
    const int samples = alpha < 0.004 ? 1 : depth == 0 ? LobeSamples : 2;
    const Frame frame(hit.normal);
    Rgb sum;
    for (int i = 0; i < samples; ++i) {
        // Few samples are spread over all that there are.
        const int sample = i * (LobeSamples / samples);
        const Vec half = samples == 1 ? hit.normal : frame.toWorld(facet(alpha, sample, m_ray));
        Vec towards = reflected(hit.direction, half);
        double c = dot(hit.normal, towards);
        if (c <= 0.001) {
            if (samples > 1)
                continue;
            // A bump must not mirror what is inside of the ball.
            towards = normalised(towards - hit.normal * (c - 0.01));
            c = 0.01;
        }
        const double toHalf = std::max(dot(eye, half), 0.0);
        const double weight = samples == 1
                                  ? 1
                                  : shadowing(facing, alpha) * shadowing(c, alpha) * toHalf /
                                        (facing * std::max(dot(hit.normal, half), 1e-6));
        const double grazing = towardsGrazing(toHalf);
        const Rgb base = ofSurroundings + (atGrazing - ofSurroundings) * grazing;
        const Rgb strong = ofLights + (atGrazing - ofLights) * grazing;
        Rgb found;
        const Ray ray{hit.point, towards};
        const Met first = met(ray, hit.ball);
        const bool meetsBall = depth < s_maxDepth && first.ball;
        if (meetsBall || (hasGround && towards.z < 0))
            found = seen(ray, first, depth + 1) * base;
        else {
            const Rgb dim = surroundings(towards);
            found = dim * base + (farAway(towards, alpha) - dim) * strong;
        }
        // A small light in few samples would be specks.
        const double most = samples > 1 ? 3 : 12;
        const Rgb light = found * weight;
        sum += {std::min(light.x, most), std::min(light.y, most), std::min(light.z, most)};
    }
    return sum * (1.0 / samples);
}

Rgb Scene::transmitted(const Hit& hit, int depth) const
{
    const Surface& surface = *hit.surface;
    const double index = std::max(surface.factors.refraction, 1.0);
    const double alpha = facetWidth(surface.factors.roughness);
    // Behind rough glass nothing is sharp: half the samples, and fewer ways through the ball, do.
    const bool isRough = alpha >= 0.004;
    const int samples = isRough && depth == 0 ? LobeSamples / 2 : 1;
    const int bounces = isRough ? 2 : 4;
    const Frame frame(hit.normal);
    Rgb sum;
    for (int i = 0; i < samples; ++i) {
        const Vec normal = samples == 1 ? hit.normal : frame.toWorld(facet(alpha, 2 * i, m_ray));
        Vec direction;
        if (!refracted(hit.direction, normal, 1 / index, direction))
            continue;
        double share = 1 - fresnel(clamped(-dot(hit.direction, normal)), 1 / index);
        Vec point = hit.point;
        double way = 0;
        for (int bounce = 0; bounce < bounces; ++bounce) {
            double enter = 0;
            double leave = 0;
            if (!hit.ball->meets({point, direction}, enter, leave))
                break;
            point = point + direction * leave;
            way += leave / (2 * hit.ball->radius);
            const Vec inwards = (hit.ball->centre - point) * (1 / hit.ball->radius);
            const double reflectance = fresnel(clamped(-dot(direction, inwards)), index);
            Vec out;
            if (refracted(direction, inwards, index, out)) {
                const Rgb found = depth < s_maxDepth ? trace({point, out}, depth + 1, hit.ball)
                                                     : surroundings(out);
                sum += found * afterGlass(hit.colour, way) * (share * (1 - reflectance));
            }
            share *= reflectance;
            if (share < 0.02)
                break;
            direction = reflected(direction, inwards);
        }
    }
    return sum * (surface.factors.transmission / samples);
}

/// What part of the light passes through a ball on its way.
Rgb Scene::passing(const Ball& ball, const Ray& ray) const
{
    double enter = 0;
    double leave = 0;
    if (!ball.meets(ray, enter, leave))
        return grey(1);
    const Surface& surface = *ball.surface;
    const double chord = (leave - enter) / (2 * ball.radius);
    Rgb result;
    if (surface.factors.transmission > 0) {
        // A ball of glass gathers the light in the middle of its shadow; the shape is by eye.
        const double gathered = 0.35 + 1.1 * std::pow(chord, 6) * (1 - surface.factors.roughness);
        result = afterGlass(surface.paint.at(0, 0, 1).colour, chord) *
                 (surface.factors.transmission * gathered);
    }
    if (surface.hasOpacity() || surface.paint.usesAlpha) {
        Rgb open = grey(1);
        for (const double distance : {enter, leave}) {
            const Vec outwards =
                (ray.from + ray.direction * distance - ball.centre) * (1 / ball.radius);
            const Point place = placeOn(ball, outwards);
            open = open * (grey(1) - surface.opacityAt(place.x, place.y, 2 * m_pixel * ball.scale));
        }
        result = mixed(result, grey(1), open);
    }
    return result;
}

const Vec& Scene::lightSample(std::size_t light, int i) const
{
    return m_lightSamples[(light * RaysPerPixel + std::size_t(m_ray)) * LightSamples +
                          std::size_t(i)];
}

/// Distances from the point that faces the camera are kept (the azimuthal equidistant projection).
/// The back is as the front: seen through holes, the opposite point would be a star of lines.
Point Scene::placeOn(const Ball& ball, const Vec& normal) const
{
    if (ball.surface->largestImage() <= 0)
        return {0, 0};
    const double x = dot(normal, m_facing.u);
    const double y = dot(normal, m_facing.v);
    const double s = std::sqrt(x * x + y * y);
    if (s < 1e-9)
        return {0, 0};
    const double angle = std::atan2(s, std::fabs(dot(normal, m_facing.w)));
    const double k = angle * ball.radius * ball.scale / s;
    return {x * k, y * k};
}

Rgb Scene::emission(const Surface& surface)
{
    const double light = surface.factors.light;
    // However strong a lamp is, its ball stays within what a picture can show.
    return light > 0 ? surface.factors.lightColour * (1.3 * light / (light + 0.3)) : Rgb();
}

} // namespace rvopen::toolkit::drawing

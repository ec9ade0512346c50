// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Scene.h"

#include <array>

namespace rvopen::drawing {

namespace {

/// Rays of a pixel are in a square of this side.
constexpr int s_raysPerSide = 3;
constexpr int s_rays = s_raysPerSide * s_raysPerSide;
/// Samples of a glossy reflection for each ray; those of all rays of a pixel make one set.
constexpr int s_lobeSamples = 8;
/// Samples of a light for each ray are in a square of this side.
constexpr int s_lightSide = 3;
constexpr int s_lightSamples = s_lightSide * s_lightSide;
constexpr int s_maxDepth = 3;
constexpr double s_near = 1e-6;

/// The radical inverse in base 2 (J. G. van der Corput, 1935): a fixed sequence that fills 0 to 1
/// evenly.
double radicalInverse(unsigned int i)
{
    double result = 0;
    double digit = 0.5;
    for (; i > 0; i >>= 1U, digit /= 2) {
        if (i & 1U)
            result += digit;
    }
    return result;
}

/// A half vector around z as often as the microfacets of a surface face that way: B. Walter and
/// others, "Microfacet models for refraction through rough surfaces", 2007 (GGX).
Vec facet(double alpha, int sample, int ray)
{
    struct Turn {
        double c;
        double s;
    };
    constexpr int count = s_lobeSamples * s_rays;
    static const std::array<Turn, count> turns = [] {
        std::array<Turn, count> values{};
        for (unsigned int i = 0; i < values.size(); ++i) {
            const double angle = 2 * Pi * radicalInverse(i);
            values[i] = {std::cos(angle), std::sin(angle)};
        }
        return values;
    }();
    const int index = sample * s_rays + ray;
    const double u = (index + 0.5) / count;
    const Turn& turn = turns[std::size_t(index)];
    const double c = 1 / std::sqrt(1 + alpha * alpha * u / (1 - u));
    const double sine = std::sqrt(std::max(0.0, 1 - c * c));
    return {sine * turn.c, sine * turn.s, c};
}

/// How much of the microfacets is not hidden by others, after B. Smith, in the form of the same
/// paper.
double shadowing(double cosine, double alpha)
{
    const double c2 = cosine * cosine;
    return 2 / (1 + std::sqrt(1 + alpha * alpha * (1 - c2) / c2));
}

/// C. Schlick, "An inexpensive BRDF model for physically-based rendering", 1994.
double towardsGrazing(double cosine)
{
    const double m = clamped(1 - cosine);
    return m * m * m * m * m;
}

/// Fresnel's equations for light without polarisation; 1 for total reflection.
double fresnel(double cosine, double ratio)
{
    const double s2 = ratio * ratio * (1 - cosine * cosine);
    if (s2 >= 1)
        return 1;
    const double t = std::sqrt(1 - s2);
    const double a = (cosine - ratio * t) / (cosine + ratio * t);
    const double b = (ratio * cosine - t) / (ratio * cosine + t);
    return (a * a + b * b) / 2;
}

/// W. Snell's law; \p ratio is that of the refraction indices, from where it comes to where it
/// goes.
bool refracted(const Vec& direction, const Vec& normal, double ratio, Vec& result)
{
    const double c = -dot(direction, normal);
    const double s2 = ratio * ratio * (1 - c * c);
    if (s2 >= 1)
        return false;
    result = normalised(direction * ratio + normal * (ratio * c - std::sqrt(1 - s2)));
    return true;
}

bool meets(const Vec& from, const Vec& direction, const Ball& ball, double& enter, double& leave)
{
    const Vec to = from - ball.centre;
    const double b = dot(to, direction);
    const double d = b * b - dot(to, to) + ball.radius * ball.radius;
    if (d <= 0)
        return false;
    const double root = std::sqrt(d);
    enter = -b - root;
    leave = -b + root;
    return leave > s_near;
}

Rgb power(const Rgb& base, double exponent)
{
    const auto channel = [exponent](double value) {
        return value <= 0 ? 0.0 : std::pow(value, exponent);
    };
    return {channel(base.x), channel(base.y), channel(base.z)};
}

Rgb grey(double value)
{
    return {value, value, value};
}

/// J. H. Lambert and A. Beer: what is left of white light after this part of the diameter of a
/// ball. Half the diameter shows the colour as it is.
Rgb afterGlass(const Rgb& colour, double part)
{
    return power(colour, part * 0.7);
}

} // namespace

/// Where a ray meets a surface.
struct Scene::Hit {
    const Ball* ball = nullptr;
    const Surface* surface = nullptr;
    Vec point;
    /// That of the ball, and as the bump has it.
    Vec flat;
    Vec normal;
    Vec direction;
    Rgb colour;
};

void Scene::draw(Raster& raster)
{
    prepare();
    const Vec forward = normalised(view.to - view.from);
    const Vec right = normalised(cross(forward, {0, 0, 1}));
    const Vec up = cross(right, forward);
    const double half = std::tan(radians(view.angle) / 2);
    m_facing = Frame(forward * -1);
    m_pixel = 2 * half * length(view.to - view.from) / raster.height();
    for (int y = 0; y < raster.height(); ++y) {
        for (int x = 0; x < raster.width(); ++x) {
            Rgb sum;
            for (m_ray = 0; m_ray < s_rays; ++m_ray) {
                const double px = x + (m_ray % s_raysPerSide + 0.5) / s_raysPerSide;
                const double py = y + (m_ray / s_raysPerSide + 0.5) / s_raysPerSide;
                const double sx = (2 * px - raster.width()) / raster.height() * half;
                const double sy = (1 - 2 * py / raster.height()) * half;
                const Vec direction = normalised(forward + right * sx + up * sy);
                double distance = 0;
                const Ball* const ball = nearest(view.from, direction, nullptr, distance);
                const bool isFar = !ball && (!hasGround || direction.z >= 0);
                Rgb light = isFar && backdrop
                                ? backdrop(direction, {px / raster.height(), py / raster.height()})
                                : trace(view.from, direction, 0, nullptr);
                // A small light makes no larger blot than its pixel.
                light = {std::min(light.x, 4.0), std::min(light.y, 4.0), std::min(light.z, 4.0)};
                sum += light;
            }
            raster.at(x, y) = sum * (1.0 / s_rays);
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
    for (int y = 0; y < raster.height(); ++y) {
        for (int x = 0; x < raster.width(); ++x) {
            Rgb sum;
            for (m_ray = 0; m_ray < s_rays; ++m_ray) {
                const double px =
                    2 * (x + (m_ray % s_raysPerSide + 0.5) / s_raysPerSide) / raster.width() - 1;
                const double py =
                    1 - 2 * (y + (m_ray / s_raysPerSide + 0.5) / s_raysPerSide) / raster.height();
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
                const bool isLight = (int(std::floor(px * 4)) + int(std::floor(py * 4))) % 2 == 0;
                const Rgb behind = isLight ? grey(0.75) : grey(0.35);
                const double opacity = surface.opacityAt(at[0], at[1], footprint);
                const double through = surface.factors.transmission;
                Rgb light = diffuse(hit) + mirrored(hit, 1) + emission(surface);
                light += behind * afterGlass(hit.colour, 0.5) * through;
                sum += mixed(behind, light, opacity);
            }
            raster.at(x, y) = sum * (1.0 / s_rays);
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
        for (int ray = 0; ray < s_rays; ++ray) {
            Rgb onGround;
            for (int i = 0; i < s_lightSamples; ++i) {
                const double a =
                    (i % s_lightSide + (ray % s_raysPerSide + 0.5) / s_raysPerSide) / s_lightSide;
                const double b =
                    (i / s_lightSide + (ray / s_raysPerSide + 0.5) / s_raysPerSide) / s_lightSide;
                m_lightSamples.push_back(normalised(frame.w +
                                                    frame.u * ((2 * a - 1) * light.halfWidth) +
                                                    frame.v * ((2 * b - 1) * light.halfHeight)));
                onGround += light.radiance * (std::max(m_lightSamples.back().z, 0.0) * 4 *
                                              light.halfWidth * light.halfHeight / s_lightSamples);
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
            m_skyLight += surroundings(direction) * (Pi / (rings * steps));
        }
    }
    m_groundLight = surroundings({0, -0.6, -0.8}) * Pi;
    if (hasGround) {
        const Vec away{0, -1000 * length(view.from - view.to), 0};
        m_ray = 0;
        m_groundLight = ground(view.to * 1.0) * groundLight(away, true);
    }
}

Rgb Scene::trace(const Vec& from, const Vec& direction, int depth, const Ball* except) const
{
    double distance = 0;
    const Ball* const ball = nearest(from, direction, except, distance);
    double toGround = 1e30;
    if (hasGround && direction.z < 0 && from.z > 0)
        toGround = -from.z / direction.z;
    Rgb light;
    if (ball && distance < toGround)
        light = ballSeen(*ball, from, direction, distance, depth);
    else if (toGround < 1e29) {
        distance = toGround;
        light = groundSeen(from, direction, toGround, depth == 0);
    } else
        return depth == 0 ? surroundings(direction) : farAway(direction, 0.0);
    if (mist.isOn && depth == 0)
        light = mixed(light, mist.colour,
                      clamped((distance - mist.nearDistance) /
                              std::max(mist.farDistance - mist.nearDistance, 1e-9)));
    return light;
}

const Ball* Scene::nearest(const Vec& from, const Vec& direction, const Ball* except,
                           double& distance) const
{
    const Ball* result = nullptr;
    for (const Ball& ball : balls) {
        double enter = 0;
        double leave = 0;
        if (&ball == except || !meets(from, direction, ball, enter, leave) || enter <= s_near)
            continue;
        if (!result || enter < distance) {
            result = &ball;
            distance = enter;
        }
    }
    return result;
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
    Rgb ambient = m_skyLight;
    Rgb emitted;
    for (const Ball& ball : balls) {
        // What a ball takes of the sky above a level point: the form factor of a sphere (J. R.
        // Howell, "A catalog of radiation heat transfer configuration factors").
        const Vec to = ball.centre - point;
        const double d2 = dot(to, to);
        const double factor = ball.radius * ball.radius / d2 * std::max(to.z, 0.0) / std::sqrt(d2);
        const double through = std::max(ball.surface->factors.transmission,
                                        ball.surface->hasOpacity && !ball.surface->opacity.texture
                                            ? 1 - ball.surface->opacityAt(0, 0, 1)
                                            : 0.0);
        ambient = ambient * (1 - factor * (1 - 0.7 * through));
        emitted += emission(*ball.surface) * (Pi * factor);
    }
    Rgb direct;
    for (std::size_t n = 0; n < lights.size(); ++n) {
        const AreaLight& light = lights[n];
        const Rgb& whole = m_onGround[n * s_rays + std::size_t(m_ray)];
        if (light.towards.z <= 0 || !mayBeShadowed(point, light)) {
            direct += whole;
            continue;
        }
        const double angle = 4 * light.halfWidth * light.halfHeight;
        const int samples = isExact ? s_lightSamples : 1;
        Rgb rest;
        for (int i = 0; i < samples; ++i) {
            const Vec towards = isExact ? lightSample(n, i) : light.towards;
            Rgb share = light.radiance * (std::max(towards.z, 0.0) * angle / samples);
            for (const Ball& ball : balls)
                share = share * passing(ball, point, towards);
            rest += share;
        }
        direct += mixed(whole, rest, shadowContrast);
    }
    return ambient + direct + emitted;
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

Rgb Scene::groundSeen(const Vec& from, const Vec& direction, double distance, bool isExact) const
{
    const Vec point = from + direction * distance;
    const Rgb lit = ground(point) * groundLight(point, isExact) * (1 / Pi);
    const double away = std::sqrt(point.x * point.x + point.y * point.y);
    if (away <= groundFadesFrom)
        return lit;
    return mixed(lit, groundFadesInto, smoothStep(groundFadesFrom, groundFadesTo, away));
}

Rgb Scene::ballSeen(const Ball& ball, const Vec& from, const Vec& direction, double distance,
                    int depth) const
{
    const auto hitAt = [&](const Vec& point, bool isInside) {
        Hit hit;
        hit.ball = &ball;
        hit.surface = ball.surface;
        hit.point = point;
        const Vec outwards = (point - ball.centre) * (1 / ball.radius);
        hit.flat = isInside ? outwards * -1 : outwards;
        hit.direction = direction;
        const Point place = placeOn(ball, outwards);
        // A pixel sees more of a surface that it meets at an angle.
        const double footprint =
            m_pixel * ball.scale / std::max(std::sqrt(std::fabs(dot(direction, outwards))), 0.3);
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
    const Hit front = hitAt(from + direction * distance, false);
    const Surface& surface = *ball.surface;
    const auto opacityAt = [&](const Vec& outwards) {
        const Point place = placeOn(ball, outwards);
        return surface.opacityAt(place.x, place.y, m_pixel * ball.scale);
    };
    const double opacity = opacityAt(front.flat);
    Rgb light = opacity > 0 ? shaded(front, depth) : Rgb();
    if (opacity >= 1)
        return light;
    double enter = 0;
    double leave = 0;
    meets(from, direction, ball, enter, leave);
    const Hit back = hitAt(from + direction * leave, true);
    const double behind = opacityAt(back.flat * -1);
    Rgb through;
    if (behind < 1)
        through = trace(back.point, direction, depth + 1, &ball) * (1 - behind);
    through += diffuse(back) * (behind * 0.8);
    // The gloss of a clear film stays.
    const Rgb gloss = surface.opacity.texture ? Rgb() : mirrored(front, depth);
    return light * opacity + through * (1 - opacity) + gloss * (1 - opacity);
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
        for (int i = 0; i < s_lightSamples; ++i) {
            const Vec& towards = lightSample(n, i);
            if (dot(hit.flat, towards) <= 0)
                continue;
            light +=
                each.radiance * (std::max(dot(hit.normal, towards), 0.0) * angle / s_lightSamples);
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
    // B. Burley, "Physically-based shading at Disney", 2012: roughness squared looks even.
    const double alpha = std::max(factors.roughness * factors.roughness, 0.001);
    Rgb light;
    if (metal > 0) {
        // The diffuse share of a metal is its reflection by coarser facets.
        const double sharp = std::max(factors.mirror, 0.0);
        const double blurred = std::max(factors.diffuse, 0.0) * 1.1;
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
    const int samples = alpha < 0.004 ? 1 : depth == 0 ? s_lobeSamples : 2;
    const Frame frame(hit.normal);
    Rgb sum;
    for (int i = 0; i < samples; ++i) {
        // Few samples are spread over all that there are.
        const int sample = i * (s_lobeSamples / samples);
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
        Rgb seen;
        double distance = 0;
        const bool meetsBall =
            depth < s_maxDepth && nearest(hit.point, towards, hit.ball, distance) != nullptr;
        if (meetsBall || (hasGround && towards.z < 0))
            seen = trace(hit.point, towards, depth + 1, hit.ball) * base;
        else {
            const Rgb dim = surroundings(towards);
            seen = dim * base + (farAway(towards, alpha) - dim) * strong;
        }
        // A small light in few samples would be specks.
        const double most = samples > 1 ? 3 : 12;
        const Rgb light = seen * weight;
        sum += {std::min(light.x, most), std::min(light.y, most), std::min(light.z, most)};
    }
    return sum * (1.0 / samples);
}

Rgb Scene::transmitted(const Hit& hit, int depth) const
{
    const Surface& surface = *hit.surface;
    const double index = std::max(surface.factors.refraction, 1.0);
    const double alpha = surface.factors.roughness * surface.factors.roughness;
    const int samples = alpha < 0.004 ? 1 : depth == 0 ? s_lobeSamples : 1;
    const Frame frame(hit.normal);
    Rgb sum;
    for (int i = 0; i < samples; ++i) {
        const Vec normal = samples == 1 ? hit.normal : frame.toWorld(facet(alpha, i, m_ray));
        Vec direction;
        if (!refracted(hit.direction, normal, 1 / index, direction))
            continue;
        double share = 1 - fresnel(clamped(-dot(hit.direction, normal)), 1 / index);
        Vec point = hit.point;
        double way = 0;
        for (int bounce = 0; bounce < 4; ++bounce) {
            double enter = 0;
            double leave = 0;
            if (!meets(point, direction, *hit.ball, enter, leave))
                break;
            point = point + direction * leave;
            way += leave / (2 * hit.ball->radius);
            const Vec inwards = (hit.ball->centre - point) * (1 / hit.ball->radius);
            const double reflectance = fresnel(clamped(-dot(direction, inwards)), index);
            Vec out;
            if (refracted(direction, inwards, index, out)) {
                const Rgb seen =
                    depth < s_maxDepth ? trace(point, out, depth + 1, hit.ball) : surroundings(out);
                sum += seen * afterGlass(hit.colour, way) * (share * (1 - reflectance));
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
Rgb Scene::passing(const Ball& ball, const Vec& from, const Vec& towards) const
{
    double enter = 0;
    double leave = 0;
    if (!meets(from, towards, ball, enter, leave))
        return {1, 1, 1};
    const Surface& surface = *ball.surface;
    const double chord = (leave - enter) / (2 * ball.radius);
    Rgb result;
    if (surface.factors.transmission > 0) {
        // A ball of glass gathers the light in the middle of its shadow; the shape is by eye.
        const double gathered = 0.35 + 1.1 * std::pow(chord, 6) * (1 - surface.factors.roughness);
        result = afterGlass(surface.paint.at(0, 0, 1).colour, chord) *
                 (surface.factors.transmission * gathered);
    }
    if (surface.hasOpacity || surface.paint.usesAlpha) {
        double open = 1;
        for (const double distance : {enter, leave}) {
            const Vec outwards = (from + towards * distance - ball.centre) * (1 / ball.radius);
            const Point place = placeOn(ball, outwards);
            open *= 1 - surface.opacityAt(place.x, place.y, 2 * m_pixel * ball.scale);
        }
        result = mixed(result, {1, 1, 1}, open);
    }
    return result;
}

const Vec& Scene::lightSample(std::size_t light, int i) const
{
    return m_lightSamples[(light * s_rays + std::size_t(m_ray)) * s_lightSamples + std::size_t(i)];
}

/// Distances from the point that faces the camera are kept (the azimuthal equidistant projection).
Point Scene::placeOn(const Ball& ball, const Vec& normal) const
{
    if (ball.surface->largestImage() <= 0)
        return {0, 0};
    const double x = dot(normal, m_facing.u);
    const double y = dot(normal, m_facing.v);
    const double s = std::sqrt(x * x + y * y);
    if (s < 1e-9)
        return {0, 0};
    const double angle = std::atan2(s, dot(normal, m_facing.w));
    const double k = angle * ball.radius * ball.scale / s;
    return {x * k, y * k};
}

Rgb Scene::emission(const Surface& surface)
{
    const double light = surface.factors.light;
    // However strong a lamp is, its ball stays within what a picture can show.
    return light > 0 ? surface.factors.lightColour * (1.3 * light / (light + 0.3)) : Rgb();
}

} // namespace rvopen::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Diagrams.h"

#include <rvopen/Foreground.h>
#include <rvopen/Scheme.h>

namespace rvopen::toolkit::drawing {

namespace {

/// Width to height of the image of a camera that has none.
constexpr double s_ratio = 1.5;

const Rgb& paper()
{
    static const Rgb colour = fromHex(0xf4f2ed);
    return colour;
}

const Rgb& ink()
{
    static const Rgb colour = fromHex(0x39424d);
    return colour;
}

const Rgb& faint()
{
    static const Rgb colour = fromHex(0xc9c7c0);
    return colour;
}

const Rgb& accent()
{
    static const Rgb colour = fromHex(0xd9762b);
    return colour;
}

void cover(Raster& raster, const Rgb& colour)
{
    raster.rectangle(0, 0, raster.aspect(), 1, colour);
}

/// Looking upwards from the lens at the point, turned clockwise by the angle in degrees.
void drawBody(Raster& raster, const Point& lens, double size, double turn)
{
    const double angle = radians(turn);
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto placed = [&](Polygon polygon) {
        for (Point& point : polygon)
            point = {lens.x + (point.x * c - point.y * s) * size,
                     lens.y + (point.x * s + point.y * c) * size};
        return polygon;
    };
    raster.fill(placed({{-0.30, 0}, {0.30, 0}, {0.22, 0.42}, {-0.22, 0.42}}), ink());
    raster.fill(placed({{-0.62, 0.36}, {0.62, 0.36}, {0.62, 1.2}, {-0.62, 1.2}}), ink());
}

/// What a camera sees between the two directions, as far as \p reach.
void drawWedge(Raster& raster, const Point& lens, double from, double to, double reach)
{
    Polygon wedge = arc(lens, reach, from, to);
    wedge.insert(wedge.begin(), lens);
    raster.fill(wedge, accent(), 0.30);
    raster.line({lens, wedge[1]}, 0.008, accent());
    raster.line({lens, wedge.back()}, 0.008, accent());
}

/// An arrow on a level ground that is seen from the south-east and above.
void drawUpVector(Raster& raster, const Vec& up)
{
    const Point foot{raster.aspect() / 2, 0.60};
    const auto place = [&foot](const Vec& point) {
        return Point{foot.x + 0.36 * point.x - 0.22 * point.y,
                     foot.y + 0.10 * point.x - 0.14 * point.y - 0.40 * point.z};
    };
    cover(raster, paper());
    raster.fill({place({-1, -1, 0}), place({1, -1, 0}), place({1, 1, 0}), place({-1, 1, 0})},
                faint());
    for (int i = -1; i <= 1; ++i) {
        raster.line({place({i * 1.0, -1, 0}), place({i * 1.0, 1, 0})}, 0.006, paper());
        raster.line({place({-1, i * 1.0, 0}), place({1, i * 1.0, 0})}, 0.006, paper());
    }
    const Vec along = length(up) > 0 ? up : Orientation().up;
    const Point tip = place(along);
    const double dx = tip.x - foot.x;
    const double dy = tip.y - foot.y;
    const double reach = std::max(std::sqrt(dx * dx + dy * dy), 1e-6);
    const Point ahead{dx / reach * 0.09, dy / reach * 0.09};
    raster.line({foot, tip}, 0.026, accent());
    raster.fill({{tip.x + ahead.x, tip.y + ahead.y},
                 {tip.x - ahead.y * 0.6, tip.y + ahead.x * 0.6},
                 {tip.x + ahead.y * 0.6, tip.y - ahead.x * 0.6}},
                accent());
    raster.disc(foot, 0.024, ink());
}

Polygon rectangleOf(const Point& centre, double width, double height)
{
    return {{centre.x - width / 2, centre.y - height / 2},
            {centre.x + width / 2, centre.y - height / 2},
            {centre.x + width / 2, centre.y + height / 2},
            {centre.x - width / 2, centre.y + height / 2}};
}

void drawFrames(Raster& raster, double width, double height)
{
    cover(raster, paper());
    const Point centre{raster.aspect() / 2, 0.5};
    const double scale = 0.80 / std::max(width, height);
    const double w = width * scale;
    const double h = height * scale;
    const Polygon frame = rectangleOf(centre, w, h);
    raster.fill(rectangleOf({centre.x + 0.012, centre.y + 0.016}, w, h), faint());
    raster.fill(frame, [&](const Point& point) {
        return landscape({(point.x - centre.x + w / 2) / h, (point.y - centre.y + h / 2) / h},
                         w / h);
    });
    raster.line(frame, 0.014, ink(), true);
    if (w != h)
        raster.line(rectangleOf(centre, h, w), 0.007, ink(), true, 0.45);
}

void drawHouse(Raster& raster, double aspect, bool isNight)
{
    const double middle = aspect / 2;
    const auto x = [middle](double offset) { return middle + offset; };
    const auto lit = [isNight](unsigned int rgb) { return fromHex(rgb) * (isNight ? 0.22 : 1); };
    raster.fill({{0, 0.74}, {aspect, 0.70}, {aspect, 1}, {0, 1}}, lit(0x8fa372));
    raster.fill({{x(-0.02), 0.77}, {x(0.10), 0.77}, {x(0.26), 1}, {x(-0.06), 1}}, lit(0xd8cdb8));
    raster.rectangle(x(0.335), 0.56, x(0.36), 0.78, lit(0x6b5440));
    raster.disc({x(0.348), 0.47}, 0.12, lit(0x5e8450));
    raster.rectangle(x(-0.30), 0.46, x(0.22), 0.79, lit(0xf1ebe0));
    raster.rectangle(x(0.10), 0.46, x(0.22), 0.79, lit(0xdcd3c4));
    raster.rectangle(x(-0.23), 0.24, x(-0.17), 0.40, lit(0xa4583f));
    raster.fill({{x(-0.36), 0.475}, {x(-0.10), 0.24}, {x(0.14), 0.24}, {x(0.28), 0.475}},
                lit(0xb5533c));
    raster.rectangle(x(0.0), 0.58, x(0.075), 0.79, lit(0x5f4a3a));
    for (const double left : {-0.25, -0.125}) {
        raster.rectangle(x(left), 0.55, x(left + 0.09), 0.68,
                         isNight ? fromHex(0xf4c768) : fromHex(0x6f93b0));
        raster.line(rectangleOf({x(left + 0.045), 0.615}, 0.09, 0.13), 0.010, lit(0xffffff), true);
    }
}

void drawRoom(Raster& raster, double aspect, const Backdrop& backdrop)
{
    // Behind the window, or the walls in the light of the backdrop.
    const Rgb wall = fromHex(0xe9e2d4);
    const double l = aspect * 0.24;
    const double r = aspect * 0.76;
    raster.fill({{0, 0}, {aspect, 0}, {r, 0.20}, {l, 0.20}}, fromHex(0xf7f3ea));
    raster.fill({{0, 0}, {l, 0.20}, {l, 0.68}, {0, 1}}, wall * 0.78);
    raster.fill({{aspect, 0}, {r, 0.20}, {r, 0.68}, {aspect, 1}}, wall * 0.88);
    raster.rectangle(l, 0.20, r, 0.68, wall);
    raster.fill({{0, 1}, {l, 0.68}, {r, 0.68}, {aspect, 1}}, fromHex(0xb98f63));
    for (int i = 1; i < 8; ++i) {
        const double t = i / 8.0;
        raster.line({{mixed(l, r, t), 0.68}, {aspect * t, 1}}, 0.005, fromHex(0x9c744c));
    }
    const Polygon window = {{l + 0.07, 0.28}, {l + 0.27, 0.28}, {l + 0.27, 0.52}, {l + 0.07, 0.52}};
    raster.fill(window, [&](const Point& point) {
        const double t = (point.y - 0.28) / 0.24;
        return backdrop.kind == Backdrop::Kind::None
                   ? mixed(fromHex(0x8fb6d8), fromHex(0xe6eff2), t)
                   : backdrop.at(1 - 2 * t);
    });
    raster.line(window, 0.014, {1, 1, 1}, true);
    raster.line({{l + 0.17, 0.28}, {l + 0.17, 0.52}}, 0.010, {1, 1, 1});
    const double lamp = r - 0.12;
    raster.line({{lamp, 0.09}, {lamp, 0.27}}, 0.008, ink());
    raster.fill(
        {{lamp - 0.035, 0.27}, {lamp + 0.035, 0.27}, {lamp + 0.085, 0.36}, {lamp - 0.085, 0.36}},
        fromHex(0xe3a23c));
    raster.disc({lamp, 0.365}, 0.025, {1.2, 1.1, 0.8});
    raster.rectangle(l + 0.12, 0.60, r - 0.03, 0.74, fromHex(0x54708a));
    raster.rectangle(l + 0.09, 0.66, r, 0.82, fromHex(0x3f586f));
    raster.rectangle(l + 0.09, 0.62, l + 0.15, 0.82, fromHex(0x5d7a95));
    raster.rectangle(r - 0.06, 0.62, r, 0.82, fromHex(0x5d7a95));
}

Polygon ellipse(const Point& centre, double halfWidth, double halfHeight)
{
    Polygon points = circle({0, 0}, 1);
    for (Point& point : points)
        point = {centre.x + point.x * halfWidth, centre.y + point.y * halfHeight};
    return points;
}

void drawProduct(Raster& raster, double aspect)
{
    const double x = aspect / 2;
    raster.fill(ellipse({x + 0.07, 0.855}, 0.40, 0.09), {0, 0, 0}, 0.14);
    raster.fill(ellipse({x, 0.82}, 0.34, 0.085), fromHex(0xb9bcc0));
    raster.rectangle(x - 0.34, 0.755, x + 0.34, 0.82, fromHex(0xb9bcc0));
    raster.fill(ellipse({x, 0.755}, 0.34, 0.085), fromHex(0xeceef0));
    raster.fill(ellipse({x + 0.04, 0.765}, 0.17, 0.04), {0, 0, 0}, 0.18);
    // A bottle, lit from the left.
    const auto side = [x](double half) {
        const double shoulder = 0.42;
        return Polygon{{x - half, 0.755},       {x - half, shoulder},    {x - half * 0.9, 0.37},
                       {x - half * 0.36, 0.31}, {x - half * 0.36, 0.20}, {x + half * 0.36, 0.20},
                       {x + half * 0.36, 0.31}, {x + half * 0.9, 0.37},  {x + half, shoulder},
                       {x + half, 0.755}};
    };
    const double half = 0.135;
    const auto lit = [x, half](const Rgb& colour) {
        return [x, half, colour](const Point& point) {
            const double across = (point.x - x) / half;
            const double off = (across + 0.45) / 0.35;
            return colour * (0.55 + 0.45 * std::sqrt(std::max(0.0, 1 - across * across))) +
                   Rgb{0.5, 0.5, 0.5} * std::exp(-off * off);
        };
    };
    raster.fill(ellipse({x, 0.755}, half, 0.033), lit(fromHex(0x2f6f73)));
    raster.fill(side(half), lit(fromHex(0x2f6f73)));
    raster.rectangle(x - 0.058, 0.13, x + 0.058, 0.215, fromHex(0x2b2f34));
    raster.fill({{x - half, 0.50}, {x + half, 0.50}, {x + half, 0.66}, {x - half, 0.66}},
                lit(fromHex(0xe9e0cc)));
}

void drawTree(Raster& raster, const Point& foot, double height, const Rgb& crown, const Rgb& trunk)
{
    raster.rectangle(foot.x - height * 0.035, foot.y - height * 0.4, foot.x + height * 0.035,
                     foot.y, trunk);
    raster.disc({foot.x, foot.y - height * 0.68}, height * 0.26, crown);
    raster.disc({foot.x - height * 0.14, foot.y - height * 0.5}, height * 0.18, crown);
    raster.disc({foot.x + height * 0.15, foot.y - height * 0.52}, height * 0.18, crown);
}

} // namespace

Mist readMist(Foreground* foreground)
{
    Mist mist;
    if (!foreground || !foreground->IsDepthCue())
        return mist;
    float nearDistance = 0;
    float farDistance = 100;
    float colour[3] = {0.9F, 0.9F, 0.9F};
    foreground->GetDepthCueNear(&nearDistance);
    foreground->GetDepthCueFar(&farDistance);
    foreground->GetDepthCueBackgroundColour(colour);
    mist.isOn = std::isfinite(nearDistance) && std::isfinite(farDistance);
    mist.nearDistance = double(nearDistance);
    mist.farDistance = double(farDistance);
    mist.colour = toLinear(withinUnit(colour));
    return mist;
}

void drawAngle(Raster& raster, double degrees, bool isOrthographic)
{
    cover(raster, paper());
    const Point lens{raster.aspect() / 2, 0.84};
    constexpr double reach = 0.76;
    for (const double part : {1.0 / 3, 2.0 / 3, 1.0})
        raster.line(arc(lens, reach * part, -180, 0), 0.004, faint());
    constexpr double half = 0.24;
    if (isOrthographic) {
        raster.fill({{lens.x - half, 0.08},
                     {lens.x + half, 0.08},
                     {lens.x + half, lens.y},
                     {lens.x - half, lens.y}},
                    accent(), 0.30);
        raster.line({{lens.x - half, lens.y}, {lens.x - half, 0.08}}, 0.008, accent());
        raster.line({{lens.x + half, lens.y}, {lens.x + half, 0.08}}, 0.008, accent());
    } else {
        drawWedge(raster, lens, -90 - degrees / 2, -90 + degrees / 2, reach);
        raster.line(arc(lens, 0.17, -90 - degrees / 2, -90 + degrees / 2), 0.012, accent());
    }
    // A row of people, seen from above.
    const double row = lens.y - reach * 2 / 3;
    for (int i = -6; i <= 6; ++i) {
        const double offset = i * 0.095;
        const bool isSeen =
            isOrthographic ? std::fabs(offset) <= half
                           : std::fabs(std::atan2(offset, lens.y - row)) <= radians(degrees / 2);
        const Rgb colour = isSeen ? ink() : mixed(faint(), ink(), 0.12);
        raster.fill(ellipse({lens.x + offset, row}, 0.034, 0.019), colour);
        raster.disc({lens.x + offset, row}, 0.017, isSeen ? mixed(ink(), paper(), 0.35) : faint());
    }
    drawBody(raster, lens, 0.10, 0);
}

void drawCamera(Raster& raster, const CameraValues& camera)
{
    if (camera.isUpVector) {
        drawUpVector(raster, camera.up);
        return;
    }
    if (!camera.hasPlace) {
        drawAngle(raster, camera.angle, camera.isParallel);
        return;
    }
    const Vec sight = camera.to - camera.from;
    const double away = std::sqrt(sight.x * sight.x + sight.y * sight.y);
    // Distance to the right, height upwards, with the ground and a little of both sides.
    const double low = std::min({camera.from.z, camera.to.z, 0.0});
    const double high = std::max({camera.from.z, camera.to.z, 0.0});
    const double extent = std::max({away, high - low, 1e-6});
    const double scale = 0.58 / extent;
    const double left = (raster.aspect() - away * scale) / 2;
    const double bottom = 0.5 + (high + low) / 2 * scale + 0.06;
    const auto place = [&](double distance, double height) {
        return Point{left + distance * scale, bottom - height * scale};
    };
    const Point lens = place(0, camera.from.z);
    const Point aim = place(away, camera.to.z);
    const double ground = place(0, 0).y;
    const double aspect = raster.aspect();
    cover(raster, fromHex(0xe9f0f4));
    const double direction = degrees(std::atan2(aim.y - lens.y, aim.x - lens.x));
    const double turn = radians(direction);
    const Point across{-std::sin(turn), std::cos(turn)};
    raster.rectangle(0, ground, aspect, std::max(1.0, ground), fromHex(0xcbc3ae));
    // What is looked at: a block that ends a little above the point.
    const double top = std::max(camera.to.z * 1.25, extent * 0.22);
    const double wide = extent * 0.09;
    const Point corner = place(away - wide, top);
    const Point foot = place(away + wide, 0);
    if (foot.y > corner.y) {
        raster.rectangle(corner.x, corner.y, foot.x, foot.y, fromHex(0x9aa7b1));
        raster.rectangle(corner.x, corner.y, (corner.x + foot.x) / 2, foot.y, fromHex(0xb4bfc7));
    }
    const double angle = scaledAngle(camera.angle, 1 / s_ratio);
    if (camera.isParallel) {
        const double half = length(sight) * std::tan(radians(angle) / 2) * scale;
        const double along = 1.0;
        const Point end{std::cos(turn) * along, std::sin(turn) * along};
        raster.fill({{lens.x + across.x * half, lens.y + across.y * half},
                     {lens.x + across.x * half + end.x, lens.y + across.y * half + end.y},
                     {lens.x - across.x * half + end.x, lens.y - across.y * half + end.y},
                     {lens.x - across.x * half, lens.y - across.y * half}},
                    accent(), 0.30);
        for (const double side : {-half, half}) {
            const Point start{lens.x + across.x * side, lens.y + across.y * side};
            raster.line({start, {start.x + end.x, start.y + end.y}}, 0.008, accent());
        }
    } else
        drawWedge(raster, lens, direction - angle / 2, direction + angle / 2, 1.6);
    raster.line({{0, ground}, {aspect, ground}}, 0.008, mixed(fromHex(0xcbc3ae), ink(), 0.5));
    const double dx = aim.x - lens.x;
    const double dy = aim.y - lens.y;
    for (int i = 0; i < 12; ++i) {
        const double from = i / 12.0 + 0.02;
        raster.line({{lens.x + dx * from, lens.y + dy * from},
                     {lens.x + dx * (from + 0.045), lens.y + dy * (from + 0.045)}},
                    0.007, ink());
    }
    raster.disc(aim, 0.020, accent());
    drawBody(raster, lens, 0.075, direction + 90);
}

void drawAspectRatio(Raster& raster, double ratio)
{
    const double sane = std::isfinite(ratio) && ratio > 0 ? clamped(ratio, 0.05, 20) : 1;
    drawFrames(raster, sane, 1);
}

void drawOrientation(Raster& raster, bool isPortrait)
{
    drawFrames(raster, isPortrait ? 2 : 3, isPortrait ? 3 : 2);
}

SchemeKind schemeKind(const Scheme& scheme)
{
    return scheme.IsExterior()   ? SchemeKind::Exterior
           : scheme.IsInterior() ? SchemeKind::Interior
           : scheme.IsProduct()  ? SchemeKind::Product
                                 : SchemeKind::Other;
}

void drawScheme(Raster& raster, SchemeKind kind, const Backdrop& backdrop)
{
    const double aspect = raster.aspect();
    raster.fill([&](const Point& point) {
        if (backdrop.kind != Backdrop::Kind::None)
            return backdrop.onPlate({point.x, point.y}, aspect);
        return kind == SchemeKind::Exterior
                   ? mixed(fromHex(0x7fb0dc), fromHex(0xeaf2f6), point.y / 0.74)
                   : mixed(fromHex(0xf7f6f3), fromHex(0xdcdad5), point.y);
    });
    switch (kind) {
    case SchemeKind::Exterior:
        drawHouse(raster, aspect,
                  backdrop.kind != Backdrop::Kind::None && luminance(backdrop.at(0.3)) < 0.04);
        break;
    case SchemeKind::Interior:
        drawRoom(raster, aspect, backdrop);
        break;
    case SchemeKind::Product:
        drawProduct(raster, aspect);
        break;
    case SchemeKind::Other:
        break;
    }
}

void drawMist(Raster& raster, const Mist& mist)
{
    const double aspect = raster.aspect();
    constexpr double horizon = 0.42;
    // The first row of the picture is 4 away, the horizon is endlessly far.
    const auto distanceOf = [&](double y) {
        return 4 * (1 - horizon) / std::max(y - horizon, 1e-4);
    };
    raster.fill([&](const Point& point) {
        if (point.y > horizon)
            return mist.over(fromHex(0x7d9062), distanceOf(point.y));
        return mixed(fromHex(0x6f9fce), mist.over(fromHex(0xe3edf2), 1e9),
                     smoothStep(0, horizon, point.y));
    });
    // Smaller with the distance, but not so fast that the last could not be seen.
    struct Tree {
        double distance;
        double x;
        double foot;
        double height;
    };
    for (const Tree& tree :
         {Tree{500, 0.90, horizon + 0.015, 0.15}, Tree{150, 0.76, horizon + 0.04, 0.21},
          Tree{50, 0.59, horizon + 0.09, 0.31}, Tree{16, 0.385, horizon + 0.20, 0.47},
          Tree{5, 0.15, horizon + 0.46, 0.74}})
        drawTree(raster, {tree.x * aspect, tree.foot}, tree.height,
                 mist.over(fromHex(0x3f6a3a), tree.distance),
                 mist.over(fromHex(0x5b4634), tree.distance));
}

} // namespace rvopen::toolkit::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Raster.h"
#include "Surface.h"
#include "Vec.h"
#include "View.h"

#include <functional>
#include <vector>

namespace rvopen::toolkit::drawing {

/// A ball with a material. Images are laid on it around the point that faces the camera, where they
/// are not distorted.
struct Ball {
    Vec centre;
    double radius = 1;
    const Surface* surface = nullptr;
    /// Scene units of the material for one unit of the picture.
    double scale = 1;

    /// At which distances along a ray it is entered and left; false where the ray meets it nowhere
    /// before it.
    bool meets(const Ray& ray, double& enter, double& leave) const;
};

/// A rectangle of light far away.
struct AreaLight {
    Vec towards{0, 0, 1};
    /// Tangents of half its angles.
    double halfWidth = 0.3;
    double halfHeight = 0.3;
    Rgb radiance{1, 1, 1};
    /// Of its sides, blurred.
    double softness = 0.05;
};

/// Mist that thickens from one distance from the camera to another.
struct Mist {
    bool isOn = false;
    Rgb colour;
    double nearDistance = 0;
    double farDistance = 1;

    /// What is seen of a colour that is that far away.
    Rgb over(const Rgb& seen, double distance) const;
};

/// Balls on a ground under a sky; z is up, whatever the view calls so. Drawn by tracing rays in a
/// fixed pattern, so that the same scene is the same picture every time.
class Scene {
public:
    std::vector<Ball> balls;
    std::vector<AreaLight> lights;
    /// Light from a direction, without the lights.
    std::function<Rgb(const Vec&)> surroundings;
    /// What the camera sees behind everything, by direction and place in the picture; the
    /// surroundings when there is none.
    std::function<Rgb(const Vec&, const Point&)> backdrop;
    bool hasGround = true;
    /// What part of the light the ground reflects.
    std::function<Rgb(const Vec&)> ground;
    /// From where on the ground fades into what is behind it.
    double groundFadesFrom = 1e9;
    double groundFadesTo = 2e9;
    Rgb groundFadesInto;
    /// The camera sees the backdrop where the ground has faded; in reflections it stays as above.
    bool groundEndsInBackdrop = false;
    /// 1 for shadows as dark as they are, 0 for none.
    double shadowContrast = 1;
    /// A factor on the even light from all around, not on what is mirrored.
    double ambient = 1;
    Mist mist;
    /// A ball that its bounds cut is left out.
    View view;

    /// In linear light, which may be above 1.
    void draw(Raster& raster);
    /// A square piece of the material in front of the camera instead of the scene.
    void drawFlat(Raster& raster, const Surface& surface, double scale);

private:
    /// Where a ray meets a surface.
    struct Hit {
        const Ball* ball = nullptr;
        const Surface* surface = nullptr;
        Vec point;
        /// That of the ball, and as the bump has it.
        Vec flat;
        Vec normal;
        Vec direction;
        Rgb colour;
    };

    /// What a ray meets first: a ball, the ground when there is none, or nothing.
    struct Met {
        const Ball* ball = nullptr;
        double distance = Endless;
    };

    void prepare();
    Met met(const Ray& ray, const Ball* except, double from = 0, double to = Endless) const;
    Rgb trace(const Ray& ray, int depth, const Ball* except) const;
    Rgb seen(const Ray& ray, const Met& first, int depth) const;
    Rgb farAway(const Vec& direction, double blur) const;
    Rgb groundLight(const Vec& point, bool isExact) const;
    bool mayBeShadowed(const Vec& point, const AreaLight& light) const;
    Rgb groundSeen(const Vec& point, bool isExact) const;
    double fading(const Vec& point) const;
    double throughGround(const Ray& ray, const Met& first) const;
    Rgb ballSeen(const Ball& ball, const Ray& ray, double distance, int depth) const;
    Rgb shaded(const Hit& hit, int depth) const;
    Rgb diffuse(const Hit& hit) const;
    Rgb mirrored(const Hit& hit, int depth) const;
    Rgb lobe(const Hit& hit, double alpha, const Rgb& ofLights, const Rgb& ofSurroundings,
             const Rgb& atGrazing, int depth) const;
    Rgb transmitted(const Hit& hit, int depth) const;
    Rgb passing(const Ball& ball, const Ray& ray) const;
    const Vec& lightSample(std::size_t light, int i) const;
    Point placeOn(const Ball& ball, const Vec& normal) const;
    static Rgb emission(const Surface& surface);

    /// Which of the rays of a pixel is traced.
    int m_ray = 0;
    /// From the scene to the camera.
    Frame m_facing{{0, -1, 0}};
    std::vector<Frame> m_lightFrames;
    /// Directions, by light, ray and sample.
    std::vector<Vec> m_lightSamples;
    /// Light on level ground without shadows, by light and ray.
    std::vector<Rgb> m_onGround;
    Rgb m_skyLight;
    Rgb m_groundLight;
    double m_pixel = 0;
};

} // namespace rvopen::toolkit::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Vec.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

class QImage;

namespace rvopen::toolkit::drawing {

/// One picture element of a texture.
struct Texel {
    Rgb colour;
    double alpha = 1;
};

/// What the numbers of an image stand for.
enum class TextureUse {
    Colour, ///< Display values, which are read as light.
    Data,   ///< Themselves.
    Heights ///< The brightness of the colour as it is seen, in all channels.
};

/// An image file with its reductions by halves, which are means of what the numbers stand for.
class Texture {
public:
    explicit Texture(const QImage& image, TextureUse use = TextureUse::Colour);

    /// Width to height of the image.
    double aspect() const;
    /// Repeats; \p s and \p t in repeats of the image with t upwards. \p footprint is the part of
    /// the image's side that a pixel sees.
    Texel at(double s, double t, double footprint) const;
    /// As at(), but does not repeat upwards and downwards: beyond the edges the last row goes on.
    Texel inRows(double s, double t, double footprint) const;
    /// As at(), but does not repeat at all.
    Texel within(double s, double t, double footprint) const;

private:
    /// From 0 to 65535.
    struct Stored {
        std::uint16_t channels[4];
    };

    struct Level {
        int width = 0;
        int height = 0;
        std::vector<Stored> texels;

        Texel at(int x, int y) const;
        void add(const Texel& texel);
    };

    const Level& levelFor(double footprint) const;

    double m_aspect;
    std::vector<Level> m_levels;
};

/// Where an image lies on a surface.
struct Mapping {
    double width = 1;
    double height = 1;
    double sOffset = 0;
    double tOffset = 0;
    /// In degrees, counter-clockwise.
    double rotation = 0;
    /// The image is mirrored.
    bool isReflectedS = false;
    bool isReflectedT = false;
};

/// A plain colour, an image, or an image over the colour.
struct Paint {
    bool hasColour = false;
    Rgb colour{0.5, 0.5, 0.5};
    /// Null without.
    std::shared_ptr<const Texture> texture;
    Mapping mapping;
    bool usesAlpha = false;

    Texel at(double x, double y, double footprint) const;
};

/// The factors of a finish; what is not said is as in the preset "finish.reset".
struct Factors {
    double diffuse = 0.8;
    double specular = 0.2;
    double transmission = 0;
    double mirror = 0;
    double roughness = 0.5;
    double refraction = 1.5;
    double light = 0;
    Rgb lightColour{1, 1, 1};
};

/// What a material makes of a surface. Lengths are in scene units.
struct Surface {
    Paint paint;
    Factors factors;

    /// White is opaque.
    Paint opacity;
    bool isMaskInverted = false;

    /// Without texture there is none.
    Paint bump;
    bool isNormalMap = false;
    double bumpHeight = 0;
    double bumpSoftness = 0;

    /// How much of a metal it is, 0 to 1: metals reflect in their own colour.
    double metalness() const;
    /// Reflectance of a clear coat or of glass at right angles.
    double dielectricReflectance() const;
    /// Whether a transparency says how opaque it is.
    bool hasOpacity() const;
    /// By channel: 0 where nothing is, 1 where nothing shines through.
    Rgb opacityAt(double x, double y, double footprint) const;
    /// The normal in the frame of the surface: x to the right, y upwards, z out of it.
    Vec normalAt(double x, double y, double footprint) const;
    /// Whether light goes through it bent, as through glass.
    bool isGlass() const;
    /// The longest side of its images, 0 without.
    double largestImage() const;
};

} // namespace rvopen::toolkit::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Raster.h"
#include "Reading.h"

#include <functional>

namespace rvopen {
class Background;
}

namespace rvopen::toolkit::drawing {

/// What stands behind a model.
struct Backdrop {
    /// A panorama is an image all around; so is a reflection, which only mirrors show.
    enum class Kind { None, Plain, Graduated, Horizon, Image, Panorama, Reflection };

    Kind kind = Kind::None;
    /// Encoded, from above to below: one when plain, two when graduated, four with a horizon.
    Vec colours[4];
    /// Null when the file is not there; a stand-in is drawn then.
    std::shared_ptr<const Texture> image;
    double imageAspect = 1;
    /// Height of the horizon in the image.
    double horizon = 0.5;

    /// By height, from -1 straight down to 1 straight up.
    Rgb at(double height) const;
    /// What the camera sees in a direction: x east, y north, z up.
    Rgb seenIn(const Vec& direction) const;
    /// What a mirror shows of it, as above.
    Rgb reflectedFrom(const Vec& direction) const;
    /// On a plate that fills the picture.
    Rgb onPlate(const Point& point, double aspect) const;
    /// Whether it is fixed to the picture, whatever the direction.
    bool isPlate() const;

private:
    Rgb allAround(const Vec& direction) const;
};

Backdrop readBackdrop(Background* background, TextureReader& textures);

/// An image as what mirrors show, with the horizon in its middle; of no kind when it is not there.
Backdrop readEnvironment(const QString& file, TextureReader& textures);

/// In which direction from the middle of a model a camera sees a panorama of a fixed size, which is
/// the diameter of a sphere around the middle. \p camera is its place, counted from there. As
/// \p direction where the size is 0, and where the sphere is nowhere before the camera.
Vec inFixedSize(const Vec& direction, const Vec& camera, double size);

/// The backdrop alone; a reflection on a ball of chromium.
void drawBackdrop(Raster& raster, const Backdrop& backdrop);

/// Hills before a sky, for an image that is not there.
Rgb landscape(const Point& point, double aspect);

} // namespace rvopen::toolkit::drawing

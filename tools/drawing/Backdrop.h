// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Raster.h"
#include "Reading.h"

#include <functional>

namespace rvopen {
class Background;
}

namespace rvopen::drawing {

/// What stands behind a model.
struct Backdrop {
    enum class Kind { None, Plain, Graduated, Horizon, Image, Reflection };

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
    /// What a mirror shows of it.
    Rgb reflectedFrom(const Vec& direction) const;
    /// On a plate that fills the picture.
    Rgb onPlate(const Point& point, double aspect) const;
    bool isPlate() const;
};

Backdrop readBackdrop(Background* background, TextureReader& textures);

/// The backdrop alone; a reflection on a ball of chromium.
void drawBackdrop(Raster& raster, const Backdrop& backdrop);

/// Hills before a sky, for an image that is not there.
Rgb landscape(const Point& point, double aspect);

} // namespace rvopen::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Backdrop.h"
#include "Diagrams.h"
#include "Sky.h"
#include "Surface.h"

#include <vector>

namespace rvopen {
class SnapShot;
}

namespace rvopen::drawing {

/// What a snapshot's picture shows of it.
struct SnapShotValues {
    bool hasCamera = false;
    CameraValues camera;
    Backdrop backdrop;
    Mist mist;
    Sun sun;
    bool hasLamps = false;
    SchemeKind scheme = SchemeKind::Other;
    bool hasScheme = false;
    double shadowContrast = 1;
    /// Of its palette, the first ones.
    std::vector<Surface> surfaces;
};

SnapShotValues readSnapShot(SnapShot* snapShot, TextureReader& textures);

/// Balls of the palette on the ground, before the background, in mist and light, seen from the
/// camera's height and with its angle. What has only a camera or a background is drawn as that.
void drawSnapShot(Raster& raster, const SnapShotValues& values);

} // namespace rvopen::drawing

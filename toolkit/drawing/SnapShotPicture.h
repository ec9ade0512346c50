// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Backdrop.h"
#include "Diagrams.h"
#include "Scene.h"
#include "Sky.h"
#include "Surface.h"
#include "View.h"

#include <vector>

namespace rvopen {
class SnapShot;
}

namespace rvopen::toolkit::drawing {

/// What a snapshot's picture shows of it.
struct SnapShotValues {
    bool hasCamera = false;
    CameraValues camera;
    double twist = 0;
    Orientation orientation;
    Backdrop backdrop;
    /// What mirrors show instead of the backdrop; of no kind without.
    Backdrop environment;
    double environmentIntensity = 1;
    bool reflectsBackdrop = false;
    /// A factor on the even light.
    double ambient = 1;
    Mist mist;
    Sun sun;
    /// A factor on the lamps, 0 when they are off.
    double lamps = 1;
    SchemeKind scheme = SchemeKind::Other;
    bool hasScheme = false;
    double shadowContrast = 1;
    /// Of its palette, the first ones.
    std::vector<Surface> surfaces;
};

SnapShotValues readSnapShot(SnapShot* snapShot, TextureReader& textures);

/// Balls of the palette on the ground, before the background, in mist and light, seen from the
/// camera's height and with its angle, in a picture of that width to height. The camera looks along
/// y. The scene refers to the surfaces of the values.
Scene snapShotScene(const SnapShotValues& values, double aspect);

/// The scene; what has only a camera or a background is drawn as that.
void drawSnapShot(Raster& raster, const SnapShotValues& values);

} // namespace rvopen::toolkit::drawing

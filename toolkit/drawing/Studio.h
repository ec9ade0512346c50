// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Scene.h"

namespace rvopen::toolkit::drawing {

/// A photographer's table: a light ground with chequers that runs out into a bright
/// background, a large soft box on the left, a strip on the right and one behind.
Scene studio(const Surface& surface);

/// The ball for which the images of the surface are neither specks nor larger than the ball.
Ball studioBall(const Surface& surface);

} // namespace rvopen::toolkit::drawing

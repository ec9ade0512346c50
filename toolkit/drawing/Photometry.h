// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen {
class Finish;
}

namespace rvopen::toolkit::drawing {

/// Luminance of a surface that gives \p flux in lumen off evenly from \p area in square metres, in
/// candela per square metre. 0 without light or area.
double luminanceOf(double flux, double area);

/// That of an object with the finish.
double luminanceOf(Finish* finish);

} // namespace rvopen::toolkit::drawing

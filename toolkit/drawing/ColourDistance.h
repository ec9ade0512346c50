// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen::toolkit::drawing {

/// A colour in CIE L*a*b*.
struct Lab {
    double l = 0;
    double a = 0;
    double b = 0;
};

/// The colour of display values of sRGB, 0 to 1, under D65. What is outside counts as the nearest
/// that is not.
Lab labOf(const float (&srgb)[3]);

/// How different two colours look, by CIEDE2000: below 1 hardly, 100 between black and white.
/// After G. Sharma, W. Wu and E. N. Dalal, "The CIEDE2000 color-difference formula: Implementation
/// notes, supplementary test data, and mathematical observations", Color Research and Application
/// 30 (2005).
double colourDistance(const Lab& first, const Lab& second);

} // namespace rvopen::toolkit::drawing

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Tables.h"

#include <QString>

namespace rvopen::starter {

/// What a row of the table of textures says about a pattern.
struct PatternSize {
    int columns = 1;
    int rows = 1;
    double detail = 0;
    unsigned int seed = 0;
};

/// A value from 0 to 1 at a place; u and v go from 0 to 1 across the image, to the right and down.
using Pattern = double (*)(const PatternSize& size, double u, double v);

/// The pattern of that name; each repeats without a seam. Fails when there is none.
Pattern patternOf(const QString& name);

/// A number from 0 to 1 that is the same for the same place and seed.
double hashed(int x, int y, unsigned int seed);

/// Smooth values between random ones on a grid that repeats; each octave is twice as fine and half
/// as strong as the one before.
double noise(double u, double v, int columns, int rows, int octaves, unsigned int seed);

} // namespace rvopen::starter

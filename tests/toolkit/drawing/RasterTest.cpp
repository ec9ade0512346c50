// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/drawing/Raster.h"

namespace rvopen::test {

using namespace toolkit::drawing;

TEST(Raster, CornersOnALineThatIsCountedAreCountedOnce)
{
    // Each row is eight lines at odd sixteenths of its height.
    const double line = (4 + 1.0 / 16) / 8;
    const Polygon pointed = {{0, line}, {0.9, 0.1}, {0.9, 0.9}};
    for (const bool isTurned : {false, true}) {
        Raster raster(8, 8);
        raster.fill(isTurned ? Polygon(pointed.rbegin(), pointed.rend()) : pointed, {1, 1, 1});
        for (int row = 2; row < 6; ++row)
            EXPECT_DOUBLE_EQ(raster.at(6, row).x, 1) << row << isTurned;
        EXPECT_NEAR(raster.at(7, 4).x, 0.2, 1e-9);
    }
}

TEST(Raster, HolesAreWhereASecondOutlineGoesAroundAgain)
{
    // Even-odd: an outline that goes around twice leaves what is inside both.
    Raster raster(8, 8);
    raster.fill({{0, 0},
                 {1, 0},
                 {1, 1},
                 {0, 1},
                 {0, 0},
                 {0.25, 0.25},
                 {0.75, 0.25},
                 {0.75, 0.75},
                 {0.25, 0.75},
                 {0.25, 0.25}},
                {1, 1, 1});
    EXPECT_DOUBLE_EQ(raster.at(1, 1).x, 1);
    EXPECT_DOUBLE_EQ(raster.at(4, 4).x, 0);
    EXPECT_DOUBLE_EQ(raster.at(6, 4).x, 1);
}

} // namespace rvopen::test

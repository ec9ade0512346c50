// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/Foreground.h>

namespace {

using namespace rvopen;
using namespace rvopen::test;

TEST(ForegroundOfAnotherKind, HasNoValuesAfterPopulating)
{
    const Bound<Foreground> foreground("<foreground subcat=\"\"/>");
    foreground->PopulateParams();
    float out[3];
    EXPECT_EQ(foreground->GetDepthCueNear(out), 2u);
    EXPECT_EQ(foreground->GetDepthCueFar(out), 2u);
    EXPECT_EQ(foreground->GetDepthCueBackgroundColour(out), 2u);
}

} // namespace

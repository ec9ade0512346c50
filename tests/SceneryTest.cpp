// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/Scenery.h>

namespace {

using namespace rvopen;
using namespace rvopen::test;

TEST(SceneryBaseSize, IsReadBackAfterItWasCreated)
{
    const Bound<Scenery> scenery("<scenery/>");
    scenery->SetBaseSize(5.0f);
    float size = 77;
    EXPECT_EQ(scenery->GetBaseSize(&size), 0u);
    EXPECT_EQ(size, 5.0f);
}

TEST(SceneryBaseSize, ThatCannotBeReadIsTheDefaultInSceneUnits)
{
    const Bound<RVOpenNode> root("<snapRoot unitsScale=\"2\"><scenery>"
                                 "<param name=\"Base Size\" type=\"float\" prop=\"D\"/>"
                                 "</scenery></snapRoot>");
    const auto scenery = bind<Scenery>(root.element().firstChildElement());
    float size = 77;
    EXPECT_EQ(scenery->GetBaseSize(&size), 2u);
    EXPECT_EQ(size, 3.0f);
}

TEST(SceneryCatchSpots, AreReadBackAfterTheyWereCreated)
{
    const Bound<Scenery> scenery("<scenery/>");
    scenery->SetDropShadowCatchSpots(0);
    int catchSpots = 77;
    EXPECT_EQ(scenery->GetDropShadowCatchSpots(&catchSpots), 0u);
    EXPECT_EQ(catchSpots, 0);
}

} // namespace

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/Background.h>
#include <rvopen/Scheme.h>

namespace {

using namespace rvopen;
using namespace rvopen::test;

TEST(SchemeKind, IsNoneOfThreeWhenSpeltInLowerCase)
{
    const Bound<Scheme> scheme("<scheme subcat=\"exterior\"/>");
    EXPECT_FALSE(scheme->IsExterior() || scheme->IsInterior() || scheme->IsProduct());
}

TEST(SchemeKind, IsOnlyOneOfThree)
{
    const Bound<Scheme> scheme("<scheme subcat=\"Interior\"/>");
    EXPECT_FALSE(scheme->IsExterior() || scheme->IsProduct());
}

TEST(SchemeGetBackground, GivesTheFirstBackgroundAmongTheChildren)
{
    const Bound<Scheme> scheme("<scheme><camera/><background name=\"A\"/><background name=\"B\"/>"
                               "</scheme>");
    ASSERT_NE(scheme->GetBackground(), nullptr);
    EXPECT_EQ(scheme->GetBackground()->GetName(), QStringLiteral("A"));
}

TEST(SchemeGetBackground, GivesTheSameObjectEachTime)
{
    const Bound<Scheme> scheme("<scheme><background/></scheme>");
    EXPECT_EQ(scheme->GetBackground(), scheme->GetBackground());
}

TEST(SchemeGetBackground, GivesAChildOfTheScheme)
{
    const Bound<Scheme> scheme("<scheme><camera/><background/></scheme>");
    ASSERT_NE(scheme->GetBackground(), nullptr);
    EXPECT_EQ(scheme->GetBackground()->GetParent(), scheme.get());
}

TEST(SchemeGetBackground, GivesNullWithoutChildren)
{
    const Bound<Scheme> scheme("<scheme/>");
    EXPECT_EQ(scheme->GetBackground(), nullptr);
}

TEST(SchemeGetBackground, GivesNullWithoutABackgroundAmongTheChildren)
{
    const Bound<Scheme> scheme("<scheme><camera/><Background/><dir><background/></dir></scheme>");
    EXPECT_EQ(scheme->GetBackground(), nullptr);
}

} // namespace

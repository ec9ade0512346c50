// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Foreground.h>
#include <rvopen/Scheme.h>

#include <functional>

// Kinds that are told by the sub-category.

namespace {

using namespace rvopen;
using namespace rvopen::test;

struct Kind {
    const char* name;
    const char* subCategory;
    /// Whether a node of that sub-category is of the kind.
    std::function<bool(const QString& subCategory)> test;
};

void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.name;
}

template <typename Class, typename Result>
Kind kind(const char* name, const char* subCategory, Result (Class::*test)() const)
{
    const auto testOn = [=](const QString& text) {
        const Bound<Class> node("<node/>");
        node->SetSubCat(text);
        return static_cast<bool>((node.get()->*test)());
    };
    return {name, subCategory, testOn};
}

class SubCategory : public testing::TestWithParam<Kind> {};

TEST_P(SubCategory, TellsTheKind)
{
    EXPECT_TRUE(GetParam().test(QString::fromUtf8(GetParam().subCategory)));
}

TEST_P(SubCategory, IsComparedWithLetterCase)
{
    EXPECT_FALSE(GetParam().test(QString::fromUtf8(GetParam().subCategory).toLower()));
}

TEST_P(SubCategory, IsComparedWhole)
{
    EXPECT_FALSE(GetParam().test(QString::fromUtf8(GetParam().subCategory) + QLatin1Char('s')));
}

TEST_P(SubCategory, TellsNoKindWhenEmpty)
{
    EXPECT_FALSE(GetParam().test(QString()));
}

INSTANTIATE_TEST_SUITE_P(
    All, SubCategory,
    testing::Values(kind("CameraIsUpVector", "Up Vector", &Camera::IsUpVector),
                    kind("ForegroundIsDepthCue", "Depth Cue", &Foreground::IsDepthCue),
                    kind("SchemeIsExterior", "Exterior", &Scheme::IsExterior),
                    kind("SchemeIsInterior", "Interior", &Scheme::IsInterior),
                    kind("SchemeIsProduct", "Product", &Scheme::IsProduct),
                    kind("BackgroundIsPlainColour", "Plain", &Background::IsPlainColour),
                    kind("BackgroundIsGraduated", "Graduated", &Background::IsGraduated),
                    kind("BackgroundIsHorizon", "Horizon", &Background::IsHorizon),
                    kind("BackgroundIsImage", "Image", &Background::IsImage),
                    kind("BackgroundIsImage3D", "Image3D", &Background::IsImage3D),
                    kind("BackgroundIsReflection", "Reflection", &Background::IsReflection)),
    RowName());

} // namespace

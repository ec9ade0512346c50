// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/RenderTarget.h>

#include <optional>

namespace {

using namespace rvopen;
using namespace rvopen::test;

/// The five parameters that decide about the size; one that is not set is missing.
struct Size {
    std::string name;
    std::optional<const char*> width = "1000";
    std::optional<const char*> height = "800";
    std::optional<const char*> aspectRatio = "1.5";
    std::optional<const char*> useAspectRatio = "1";
    std::optional<const char*> landscape = "1";
    /// What comes out; outputs hold 77 before.
    unsigned int status = 0;
    int widthOut = 0;
    int heightOut = 0;

    QString target() const
    {
        QString params;
        const auto add = [&](const char* paramName, const char* type, auto val) {
            if (val)
                params += param(paramName, type, *val);
        };
        add("Width", "integer", width);
        add("Height", "integer", height);
        add("Aspect Ratio", "float", aspectRatio);
        add("Use Aspect Ratio", "boolean", useAspectRatio);
        add("Landscape", "boolean", landscape);
        return QStringLiteral("<renderTarget>%1</renderTarget>").arg(params);
    }
};

void PrintTo(const Size& size, std::ostream* out)
{
    *out << size.name;
}

template <typename Change>
Size size(const char* name, unsigned int status, int widthOut, int heightOut, Change change)
{
    Size result;
    result.name = name;
    result.status = status;
    result.widthOut = widthOut;
    result.heightOut = heightOut;
    change(result);
    return result;
}

class RenderTargetSize : public testing::TestWithParam<Size> {};

TEST_P(RenderTargetSize, FollowsTheAspectRatioWhereItCan)
{
    const Bound<RenderTarget> target(GetParam().target());
    int width = 77;
    int height = 77;
    const unsigned int status = target->GetWidthHeightUsingAspectRatio(&width, &height);
    EXPECT_EQ(std::make_tuple(status, width, height),
              std::make_tuple(GetParam().status, GetParam().widthOut, GetParam().heightOut));
}

INSTANTIATE_TEST_SUITE_P(
    All, RenderTargetSize,
    testing::Values(
        size("LandscapeRoundsUp", 0, 1000, 667, [](Size&) {}),
        size("LandscapeExactly", 0, 1500, 1000, [](Size& s) { s.width = "1500"; }),
        size("LandscapeRoundsDown", 0, 1000, 333, [](Size& s) { s.aspectRatio = "3"; }),
        size("LandscapeRoundsHalfUp", 0, 5, 3,
             [](Size& s) {
                 s.width = "5";
                 s.aspectRatio = "2";
             }),
        size("PortraitRoundsUp", 0, 667, 1000,
             [](Size& s) {
                 s.height = "1000";
                 s.landscape = "0";
             }),
        size("PortraitExactly", 0, 1000, 1500,
             [](Size& s) {
                 s.height = "1500";
                 s.landscape = "0";
             }),
        size("NegativeSideIsTruncatedTowardZero", 0, -1000, -666,
             [](Size& s) { s.width = "-1000"; }),
        size("AspectRatioNotUsed", 0, 1000, 800, [](Size& s) { s.useAspectRatio = "0"; }),
        size("AspectRatioOfZero", 0, 1000, 800, [](Size& s) { s.aspectRatio = "0"; }),
        size("NegativeAspectRatio", 0, 1000, 800, [](Size& s) { s.aspectRatio = "-1.5"; }),
        size("AspectRatioThatIsNoNumber", 0, 1000, 800, [](Size& s) { s.aspectRatio = "nan"; }),
        size("SideThatNoIntHolds", 0, 1000, 800, [](Size& s) { s.aspectRatio = "1e-30"; }),
        size("NegativeSideThatNoIntHolds", 0, -1000, 800,
             [](Size& s) {
                 s.width = "-1000";
                 s.aspectRatio = "1e-30";
             }),
        size("PortraitSideThatNoIntHolds", 0, 1000, 800,
             [](Size& s) {
                 s.landscape = "0";
                 s.aspectRatio = "1e-30";
             }),
        size("AspectRatioMissing", 2, 1000, 800, [](Size& s) { s.aspectRatio.reset(); }),
        size("UseAspectRatioMissing", 2, 1000, 800, [](Size& s) { s.useAspectRatio.reset(); }),
        size("LandscapeMissing", 2, 1000, 800, [](Size& s) { s.landscape.reset(); }),
        size("WidthMissing", 2, 77, 800, [](Size& s) { s.width.reset(); }),
        size("HeightMissing", 2, 1000, 77, [](Size& s) { s.height.reset(); }),
        size("WidthEmpty", 2, 77, 800, [](Size& s) { s.width = ""; }),
        size("BothMissing", 2, 77, 77,
             [](Size& s) {
                 s.width.reset();
                 s.height.reset();
             })),
    RowName());

TEST(RenderTargetSizeWithNull, GivesTheStoredWidthAlone)
{
    const Bound<RenderTarget> target(Size().target());
    int width = 77;
    EXPECT_EQ(target->GetWidthHeightUsingAspectRatio(&width, nullptr), 0u);
    EXPECT_EQ(width, 1000);
}

TEST(RenderTargetSizeWithNull, GivesTheStoredHeightAlone)
{
    const Bound<RenderTarget> target(Size().target());
    int height = 77;
    EXPECT_EQ(target->GetWidthHeightUsingAspectRatio(nullptr, &height), 0u);
    EXPECT_EQ(height, 800);
}

TEST(RenderTargetSizeWithNull, GivesTheStatusAlone)
{
    const Bound<RenderTarget> target("<renderTarget/>");
    EXPECT_EQ(target->GetWidthHeightUsingAspectRatio(nullptr, nullptr), 2u);
}

TEST(RenderTargetConstruction, SetsTheSubCategoryOfTheElement)
{
    const Bound<RenderTarget> target("<renderTarget subcat=\"Other\"/>");
    EXPECT_EQ(xmlOf(target.element()), xmlOf("<renderTarget subcat=\"Image\"/>"));
}

TEST(RenderTargetConstruction, SetsTheSubCategoryOfACloneAlone)
{
    const QDomDocument document = parse(QStringLiteral("<renderTarget subcat=\"Other\"/>"));
    const auto source = bind<RVOpenNode>(document.documentElement());
    const RenderTarget clone(source.get());
    EXPECT_EQ(xmlOf(clone.GetDomNode()), xmlOf("<renderTarget subcat=\"Image\"/>"));
    EXPECT_EQ(xmlOf(document), xmlOf("<renderTarget subcat=\"Other\"/>"));
}

TEST(RenderTargetModelHint, IsStoredInDocumentUnits)
{
    const Bound<RVOpenNode> root("<snapRoot unitsScale=\"2\"><renderTarget>"
                                 "<param name=\"Model Hint\" type=\"float\" val=\"1\"/>"
                                 "</renderTarget></snapRoot>");
    const auto target = bind<RenderTarget>(root.element().firstChildElement());
    target->SetModelHint(5.0f);
    EXPECT_EQ(paramsOf(root.element().firstChildElement()), "Model Hint: float = 10 [D]\n");
}

TEST(RenderTargetModelHint, IsReadInSceneUnits)
{
    const Bound<RVOpenNode> root("<snapRoot unitsScale=\"2\"><renderTarget>"
                                 "<param name=\"Model Hint\" type=\"float\" val=\"10\" prop=\"D\"/>"
                                 "</renderTarget></snapRoot>");
    const auto target = bind<RenderTarget>(root.element().firstChildElement());
    float hint = 77;
    target->GetModelHint(&hint);
    EXPECT_EQ(hint, 5.0f);
}

TEST(RenderTargetModelHint, KeepsTheLettersOfALength)
{
    const Bound<RenderTarget> target("<renderTarget>"
                                     "<param name=\"Model Hint\" type=\"float\" prop=\"RD\"/>"
                                     "</renderTarget>");
    target->SetModelHint(5.0f);
    EXPECT_EQ(paramsOf(target.element()), "Model Hint: float = 5 [RD]\n");
}

TEST(RenderTargetModelHint, ReplacesTheLettersOfWhatWasNoLength)
{
    const Bound<RenderTarget> target("<renderTarget>"
                                     "<param name=\"Model Hint\" type=\"float\" prop=\"R\"/>"
                                     "</renderTarget>");
    target->SetModelHint(5.0f);
    EXPECT_EQ(paramsOf(target.element()), "Model Hint: float = 5 [D]\n");
}

TEST(RenderTargetModelHint, LeavesTheLettersOfAnotherTypeAlone)
{
    const Bound<RenderTarget> target("<renderTarget>"
                                     "<param name=\"Model Hint\" type=\"integer\" val=\"1\" "
                                     "prop=\"R\"/></renderTarget>");
    EXPECT_EQ(target->SetModelHint(5.0f), 2u);
    EXPECT_EQ(paramsOf(target.element()), "Model Hint: integer = 1 [R]\n");
}

} // namespace

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Foreground.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/Scenery.h>
#include <rvopen/SnapShotSettings.h>

#include <functional>

// The parameters that each class creates.

namespace {

using namespace rvopen;
using namespace rvopen::test;

struct Populated {
    const char* name;
    const char* subCategory;
    /// Calls PopulateParams() so many times on an object over an element with that content, and
    /// tells the parameters that the element has then.
    std::function<std::string(const QString& content, int times)> populate;
    const char* params;
};

void PrintTo(const Populated& populated, std::ostream* out)
{
    *out << populated.name;
}

template <typename Class>
Populated populated(const char* name, const char* subCategory, const char* params)
{
    const auto populate = [=](const QString& content, int times) {
        const Bound<Class> node(QStringLiteral("<node subcat=\"%1\">%2</node>")
                                    .arg(QString::fromUtf8(subCategory), content));
        for (int i = 0; i < times; ++i)
            node->PopulateParams();
        return paramsOf(node.element());
    };
    return {name, subCategory, populate, params};
}

class PopulateParams : public testing::TestWithParam<Populated> {};

TEST_P(PopulateParams, CreatesTheParametersInOrder)
{
    EXPECT_EQ(GetParam().populate(QString(), 1), GetParam().params);
}

TEST_P(PopulateParams, AddsNothingTheSecondTime)
{
    EXPECT_EQ(GetParam().populate(QString(), 2), GetParam().params);
}

TEST_P(PopulateParams, AddsNothingWhereTheElementHasAnyParameter)
{
    EXPECT_EQ(GetParam().populate(param("Anything", "float", "1"), 1), "Anything: float = 1\n");
}

TEST_P(PopulateParams, AddsNothingWhereAParameterIsHiddenBehindOtherChildren)
{
    for (const char* other : {"<!-- c -->", "<?pi?>", "<other/>", "ink"}) {
        EXPECT_EQ(GetParam().populate(other + param("Anything", "float", "1"), 1),
                  "Anything: float = 1\n");
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, PopulateParams,
    testing::Values(populated<ArtificialLightStudio>("ArtificialLightStudio", "",
                                                     "Enabled: boolean = 1\n"
                                                     "Intensity Scale: float = 0\n"),
                    populated<NaturalLightStudio>("NaturalLightStudio", "",
                                                  "Enabled: boolean = 1\n"
                                                  "Sun Azimuth: float = 0\n"
                                                  "Sun Altitude: float = 0\n"),
                    populated<Camera>("Camera", "",
                                      "From: point = 1 1 1\n"
                                      "To: point = 1 1 1\n"
                                      "Up: vector = 1 1 1\n"
                                      "Orthographic: boolean = 1\n"
                                      "Field Of View: float = 0\n"
                                      "Near: float = 0\n"
                                      "Far: float = 0\n"
                                      "View Fit: boolean = 0\n"),
                    populated<Camera>("CameraUpVector", "Up Vector",
                                      "From: point = 1 1 1\n"
                                      "To: point = 1 1 1\n"
                                      "Up: vector = 1 1 1\n"
                                      "Orthographic: boolean = 1\n"
                                      "Field Of View: float = 0\n"
                                      "Near: float = 0\n"
                                      "Far: float = 0\n"
                                      "View Fit: boolean = 0\n"),
                    populated<Foreground>("ForegroundDepthCue", "Depth Cue",
                                          "Near: float = 0\n"
                                          "Far: float = 0\n"
                                          "Background Colour: colour = 1 1 1\n"),
                    populated<Foreground>("ForegroundWithoutKind", "", ""),
                    populated<Foreground>("ForegroundOfAnotherKind", "depth cue", ""),
                    populated<Background>("BackgroundPlain", "Plain", "Colour: colour = 1 1 1\n"),
                    populated<Background>("BackgroundGraduated", "Graduated",
                                          "Primary Colour: colour = 1 1 1\n"
                                          "Secondary Colour: colour = 1 1 1\n"),
                    populated<Background>("BackgroundHorizon", "Horizon",
                                          "Sky Colour: colour = 1 1 1\n"
                                          "Horizon Sky Colour: colour = 1 1 1\n"
                                          "Horizon Ground Colour: colour = 1 1 1\n"
                                          "Ground Colour: colour = 1 1 1\n"),
                    populated<Background>("BackgroundImage", "Image", "File Name: string = \n"),
                    populated<Background>("BackgroundImage3D", "Image3D",
                                          "File Name: string = \n"
                                          "Horizon Position: float = 0\n"
                                          "Fixed Size: float = 0\n"),
                    populated<Background>("BackgroundReflection", "Reflection",
                                          "File Name: string = \n"),
                    populated<Background>("BackgroundOfNoKnownKind", "plain", ""),
                    populated<RenderTarget>("RenderTarget", "",
                                            "Lighting Quality: integer = 1\n"
                                            "Material Quality: integer = 0\n"
                                            "Render Quality: string = Progressive Preview\n"
                                            "Model Hint: float = 0 [D]\n"
                                            "Width: integer = 0\n"
                                            "Height: integer = 0\n"
                                            "Use Aspect Ratio: boolean = 1\n"
                                            "Aspect Ratio: float = 1.5\n"
                                            "Landscape: boolean = 1\n"
                                            "Filename: string = \n"
                                            "Short Filename: string = \n"
                                            "Output Format: string = \n"
                                            "Gamma: float = 0\n"),
                    populated<Scenery>("Scenery", "",
                                       "Drop Shadow: boolean = 1\n"
                                       "Drop Sunlight: boolean = 1\n"
                                       "Drop Reflection: boolean = 1\n"
                                       "Drop Shadow Quality: integer = 0\n"
                                       "Drop Shadow Contrast: float = 0\n"
                                       "Drop Sunlight Brightness: float = 0\n"
                                       "Drop Reflection Brightness: float = 0\n"
                                       "Drop Reflection Blur: float = 0\n"
                                       "Base Size: float = 0\n"),
                    populated<SnapShotSettings>("SnapShotSettings", "",
                                                "Ambient Lights Intensity Scale: float = 0\n"
                                                "Twist: float = 0\n"
                                                "Orientation Up: vector = 1 1 1\n"
                                                "Orientation North: vector = 1 1 1\n"
                                                "Orientation Front Face: vector = 1 1 1\n"
                                                "Image File Name: string = \n"
                                                "Session Folder: string = \n"
                                                "Reflected Env Path: string = \n"
                                                "Reflected Env Intensity: float = 0\n")),
    RowName());

TEST(BackgroundPopulateParams, AddsNothingToAHorizonThatHasItsSkyColour)
{
    const Bound<Background> background("<background subcat=\"Horizon\">"
                                       "<param name=\"Sky Colour\" type=\"colour\" val=\"0 0 1\"/>"
                                       "</background>");
    background->PopulateParams();
    EXPECT_EQ(paramsOf(background.element()), "Sky Colour: colour = 0 0 1\n");
}

TEST(BackgroundPopulateParams, MakesTheObjectsOfABackgroundOfNoKnownKind)
{
    const Bound<Background> background("<background subcat=\"Sketch\">"
                                       "<param name=\"Colour\" type=\"colour\" val=\"0 0 1\"/>"
                                       "</background>");
    background->PopulateParams();
    EXPECT_NE(background->GetParamHelper()->FindParam(QStringLiteral("Colour")), nullptr);
}

} // namespace

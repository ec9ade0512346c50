// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/SnapShotSettings.h>

namespace {

using namespace rvopen;
using namespace rvopen::test;
using testing::Each;
using testing::ElementsAre;

TEST(SnapShotSettingsSelected, IsReadBackAfterItWasCreated)
{
    const Bound<SnapShotSettings> settings("<snapShotSettings/>");
    EXPECT_EQ(settings->SetSelected(1), 0u);
    int selected = 77;
    EXPECT_EQ(settings->IsSelected(&selected), 0u);
    EXPECT_EQ(selected, 1);
}

TEST(SnapShotSettingsReflected, IsReadBackFromFreshSettings)
{
    const Bound<SnapShotSettings> settings("<snapShotSettings/>");
    settings->PopulateParams();
    EXPECT_EQ(settings->SetBackgroundReflected(QStringLiteral("env.hdr"), 2.5f), 0u);
    float intensity = 77;
    EXPECT_EQ(settings->GetBackgroundReflected(&intensity), QStringLiteral("env.hdr"));
    EXPECT_EQ(intensity, 2.5f);
}

TEST(SnapShotSettingsReflected, CreatesTheIntensityBeforeThePath)
{
    const Bound<SnapShotSettings> settings("<snapShotSettings/>");
    EXPECT_EQ(settings->SetBackgroundReflected(QStringLiteral("env.hdr"), 2.5f), 0u);
    EXPECT_EQ(paramsOf(settings.element()), "Reflected Env Intensity: float = 2.5\n"
                                            "Reflected Env Path: string = env.hdr\n");
}

TEST(SnapShotSettingsReflected, HidesAFailureOfTheIntensityBehindThePath)
{
    const Bound<SnapShotSettings> settings(
        "<snapShotSettings><param name=\"Reflected Env Intensity\" type=\"integer\" val=\"1\"/>"
        "</snapShotSettings>");
    EXPECT_EQ(settings->SetBackgroundReflected(QStringLiteral("env.hdr"), 2.5f), 0u);
    EXPECT_EQ(paramsOf(settings.element()), "Reflected Env Intensity: integer = 1\n"
                                            "Reflected Env Path: string = env.hdr\n");
}

TEST(SnapShotSettingsReflected, AnswersMissingWhereThePathIsOfAnotherType)
{
    const Bound<SnapShotSettings> settings(
        "<snapShotSettings><param name=\"Reflected Env Path\" type=\"integer\" val=\"1\"/>"
        "</snapShotSettings>");
    EXPECT_EQ(settings->SetBackgroundReflected(QStringLiteral("env.hdr"), 2.5f), 2u);
    EXPECT_EQ(paramsOf(settings.element()), "Reflected Env Path: integer = 1\n"
                                            "Reflected Env Intensity: float = 2.5\n");
}

TEST(SnapShotSettingsReflected, HasAnEmptyPathAndNoIntensityWhenMissing)
{
    const Bound<SnapShotSettings> settings("<snapShotSettings/>");
    float intensity = 77;
    EXPECT_EQ(settings->GetBackgroundReflected(&intensity), QString());
    EXPECT_EQ(intensity, 77.0f);
}

TEST(SnapShotSettingsReflected, GivesThePathWithANullIntensity)
{
    const Bound<SnapShotSettings> settings("<snapShotSettings/>");
    settings->SetBackgroundReflected(QStringLiteral("env.hdr"), 2.5f);
    EXPECT_EQ(settings->GetBackgroundReflected(nullptr), QStringLiteral("env.hdr"));
}

TEST(SnapShotSettingsReflected, ReadingAddsNothing)
{
    const Bound<SnapShotSettings> settings("<snapShotSettings/>");
    float intensity = 77;
    settings->GetBackgroundReflected(&intensity);
    EXPECT_EQ(xmlOf(settings.element()), xmlOf("<snapShotSettings/>"));
}

/// Some of the three orientation parameters; the status of setting and getting all three.
struct Orientation {
    const char* name;
    const char* settings;
    unsigned int status;
    const char* paramsAfter;
};

void PrintTo(const Orientation& orientation, std::ostream* out)
{
    *out << orientation.name;
}

class SnapShotSettingsOrientation : public testing::TestWithParam<Orientation> {};

TEST_P(SnapShotSettingsOrientation, IsSetAsFarAsItExistsWithTheStatusOfTheLast)
{
    const Bound<SnapShotSettings> settings(GetParam().settings);
    float up[] = {0, 0, 1};
    float north[] = {0, 1, 0};
    float frontFace[] = {1, 0, 0};
    EXPECT_EQ(settings->SetOrientationInfo(up, north, frontFace), GetParam().status);
    EXPECT_EQ(paramsOf(settings.element()), GetParam().paramsAfter);
}

TEST_P(SnapShotSettingsOrientation, IsReadWithTheStatusOfTheLast)
{
    const Bound<SnapShotSettings> settings(GetParam().settings);
    float out[3];
    EXPECT_EQ(settings->GetOrientationInfo(out, out, out), GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(
    All, SnapShotSettingsOrientation,
    testing::Values(
        Orientation{"All",
                    "<snapShotSettings>"
                    "<param name=\"Orientation Up\" type=\"vector\" val=\"9 9 9\"/>"
                    "<param name=\"Orientation North\" type=\"vector\" val=\"9 9 9\"/>"
                    "<param name=\"Orientation Front Face\" type=\"vector\" val=\"9 9 9\"/>"
                    "</snapShotSettings>",
                    0,
                    "Orientation Up: vector = 0 0 1\n"
                    "Orientation North: vector = 0 1 0\n"
                    "Orientation Front Face: vector = 1 0 0\n"},
        Orientation{"None", "<snapShotSettings/>", 2, ""},
        Orientation{"OnlyNorth",
                    "<snapShotSettings>"
                    "<param name=\"Orientation North\" type=\"vector\" val=\"9 9 9\"/>"
                    "</snapShotSettings>",
                    0, "Orientation North: vector = 0 1 0\n"},
        Orientation{"OnlyNorthOfAnotherType",
                    "<snapShotSettings>"
                    "<param name=\"Orientation North\" type=\"point\" val=\"9 9 9\"/>"
                    "</snapShotSettings>",
                    2, "Orientation North: point = 9 9 9\n"},
        Orientation{"EarlierOfAnotherType",
                    "<snapShotSettings>"
                    "<param name=\"Orientation Up\" type=\"point\" val=\"9 9 9\"/>"
                    "<param name=\"Orientation North\" type=\"vector\" val=\"9 9 9\"/>"
                    "</snapShotSettings>",
                    0, "Orientation Up: point = 9 9 9\nOrientation North: vector = 0 1 0\n"},
        Orientation{"LastOfAnotherType",
                    "<snapShotSettings>"
                    "<param name=\"Orientation Front Face\" type=\"point\" val=\"9 9 9\"/>"
                    "<param name=\"Orientation Up\" type=\"vector\" val=\"9 9 9\"/>"
                    "</snapShotSettings>",
                    2, "Orientation Front Face: point = 9 9 9\nOrientation Up: vector = 0 0 1\n"}),
    RowName());

TEST(SnapShotSettingsGetOrientation, GivesEachVectorToItsOutput)
{
    const Bound<SnapShotSettings> settings(
        "<snapShotSettings>"
        "<param name=\"Orientation Up\" type=\"vector\" val=\"1 2 3\"/>"
        "<param name=\"Orientation North\" type=\"vector\" val=\"4 5 6\"/>"
        "<param name=\"Orientation Front Face\" type=\"vector\" val=\"7 8 9\"/>"
        "</snapShotSettings>");
    float up[3];
    float north[3];
    float frontFace[3];
    settings->GetOrientationInfo(up, north, frontFace);
    EXPECT_THAT(up, ElementsAre(1, 2, 3));
    EXPECT_THAT(north, ElementsAre(4, 5, 6));
    EXPECT_THAT(frontFace, ElementsAre(7, 8, 9));
}

TEST(SnapShotSettingsGetOrientation, LeavesOutputsWithoutParameterUntouched)
{
    const Bound<SnapShotSettings> settings(
        "<snapShotSettings><param name=\"Orientation North\" type=\"vector\" val=\"4 5 6\"/>"
        "</snapShotSettings>");
    float up[] = {77, 77, 77};
    float north[] = {77, 77, 77};
    float frontFace[] = {77, 77, 77};
    EXPECT_EQ(settings->GetOrientationInfo(up, north, frontFace), 0u);
    EXPECT_THAT(up, Each(77));
    EXPECT_THAT(north, ElementsAre(4, 5, 6));
    EXPECT_THAT(frontFace, Each(77));
}

} // namespace

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/Background.h>

namespace {

using namespace rvopen;
using namespace rvopen::test;

/// Two backgrounds of kinds and with parameters; whether the first equals the second.
struct Pair {
    const char* name;
    const char* kindA;
    QString paramsA;
    const char* kindB;
    QString paramsB;
    bool equal;
};

void PrintTo(const Pair& pair, std::ostream* out)
{
    *out << pair.name;
}

QString background(const char* kind, const QString& params)
{
    return QStringLiteral("<background subcat=\"%1\">%2</background>")
        .arg(QString::fromUtf8(kind), params);
}

QString colour(const char* name, const char* val)
{
    return param(name, "colour", val);
}

QString file(const char* val)
{
    return param("File Name", "string", val);
}

QString sky(const char* val)
{
    return colour("Sky Colour", val);
}

QString horizonSky(const char* val)
{
    return colour("Horizon Sky Colour", val);
}

QString horizonGround(const char* val)
{
    return colour("Horizon Ground Colour", val);
}

QString ground(const char* val)
{
    return colour("Ground Colour", val);
}

Pair alike(const char* name, const char* kind, const QString& paramsA, const QString& paramsB)
{
    return {name, kind, paramsA, kind, paramsB, true};
}

Pair different(const char* name, const char* kind, const QString& paramsA, const QString& paramsB)
{
    return {name, kind, paramsA, kind, paramsB, false};
}

class BackgroundEqual : public testing::TestWithParam<Pair> {};

TEST_P(BackgroundEqual, ComparesWhatTheKindShows)
{
    const Bound<Background> a(background(GetParam().kindA, GetParam().paramsA));
    const Bound<Background> b(background(GetParam().kindB, GetParam().paramsB));
    EXPECT_EQ(a->Equal(b.get()), GetParam().equal);
}

INSTANTIATE_TEST_SUITE_P(
    Kind, BackgroundEqual,
    testing::Values(Pair{"PlainAndGraduated", "Plain", colour("Colour", "1 0 0"), "Graduated",
                         colour("Primary Colour", "1 0 0") + colour("Secondary Colour", "1 0 0"),
                         false},
                    Pair{"KindsThatDifferInLetterCase", "Plain", colour("Colour", "1 0 0"), "plain",
                         colour("Colour", "1 0 0"), false},
                    Pair{"ImageAndReflectionOfOneFile", "Image", file("a.jpg"), "Reflection",
                         file("a.jpg"), false},
                    different("SameUnknownKind", "Sketch", colour("Colour", "1 0 0"),
                              colour("Colour", "1 0 0")),
                    different("NoKind", "", QString(), QString())),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Plain, BackgroundEqual,
    testing::Values(
        alike("SameColour", "Plain", colour("Colour", "1 0 0"), colour("Colour", "1 0 0")),
        different("SlightlyOtherColour", "Plain", colour("Colour", "1 0 0"),
                  colour("Colour", "1 0 0.0001")),
        different("OtherFirstComponent", "Plain", colour("Colour", "1 0 0"),
                  colour("Colour", "0 0 0")),
        different("OtherSecondComponent", "Plain", colour("Colour", "1 0 0"),
                  colour("Colour", "1 1 0")),
        different("FirstWithoutColour", "Plain", QString(), colour("Colour", "1 0 0")),
        different("SecondWithoutColour", "Plain", colour("Colour", "1 0 0"), QString()),
        different("BothWithoutColour", "Plain", QString(), QString()),
        different("BothWithEmptyColour", "Plain", colour("Colour", ""), colour("Colour", "")),
        different("NotANumber", "Plain", colour("Colour", "nan 0 0"), colour("Colour", "nan 0 0")),
        alike("SameInfinite", "Plain", colour("Colour", "inf 0 -inf"),
              colour("Colour", "inf 0 -inf")),
        alike("InfiniteAndTooLargeForAFloat", "Plain", colour("Colour", "0 inf 0"),
              colour("Colour", "0 1e39 0")),
        different("InfiniteBothWays", "Plain", colour("Colour", "0 0 inf"),
                  colour("Colour", "0 0 -inf")),
        different("InfiniteOnOneSide", "Plain", colour("Colour", "inf 0 0"),
                  colour("Colour", "3.4e38 0 0")),
        alike("TooLargeForANumberIsZero", "Plain", colour("Colour", "1e999 0 1"),
              colour("Colour", "0 0 1"))),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Graduated, BackgroundEqual,
    testing::Values(
        alike("SameColours", "Graduated",
              colour("Primary Colour", "1 0 0") + colour("Secondary Colour", "0 1 0"),
              colour("Primary Colour", "1 0 0") + colour("Secondary Colour", "0 1 0")),
        different("OtherPrimary", "Graduated",
                  colour("Primary Colour", "1 0 0") + colour("Secondary Colour", "0 1 0"),
                  colour("Primary Colour", "1 0 1") + colour("Secondary Colour", "0 1 0")),
        different("OtherSecondary", "Graduated",
                  colour("Primary Colour", "1 0 0") + colour("Secondary Colour", "0 1 0"),
                  colour("Primary Colour", "1 0 0") + colour("Secondary Colour", "0 1 1")),
        different("WithoutPrimary", "Graduated", colour("Secondary Colour", "0 1 0"),
                  colour("Secondary Colour", "0 1 0")),
        different("WithoutSecondary", "Graduated", colour("Primary Colour", "1 0 0"),
                  colour("Primary Colour", "1 0 0")),
        alike("SameInfinite", "Graduated",
              colour("Primary Colour", "inf 0 0") + colour("Secondary Colour", "0 -inf 0"),
              colour("Primary Colour", "inf 0 0") + colour("Secondary Colour", "0 -inf 0")),
        different("InfiniteBothWays", "Graduated",
                  colour("Primary Colour", "inf 0 0") + colour("Secondary Colour", "0 -inf 0"),
                  colour("Primary Colour", "inf 0 0") + colour("Secondary Colour", "0 inf 0"))),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Horizon, BackgroundEqual,
    testing::Values(
        alike("OnlyGroundColours", "Horizon", ground("0 1 0"), ground("0 1 0")),
        different("OtherGround", "Horizon", ground("0 1 0"), ground("0 1 1")),
        different("GroundMissingInOne", "Horizon", sky("0 0 1") + ground("0 1 0"), sky("0 0 1")),
        different("GroundMissingInBoth", "Horizon", sky("0 0 1"), sky("0 0 1")),
        alike("SameSky", "Horizon", sky("0 0 1") + ground("0 1 0"), sky("0 0 1") + ground("0 1 0")),
        different("OtherSky", "Horizon", sky("0 0 1") + ground("0 1 0"),
                  sky("0 0 0.5") + ground("0 1 0")),
        alike("SkyMissingInOne", "Horizon", sky("0 0 1") + ground("0 1 0"), ground("0 1 0")),
        alike("SameHorizonSky", "Horizon", horizonSky("0 0 1") + ground("0 1 0"),
              horizonSky("0 0 1") + ground("0 1 0")),
        different("OtherHorizonSky", "Horizon", horizonSky("0 0 1") + ground("0 1 0"),
                  horizonSky("0 0 0.5") + ground("0 1 0")),
        alike("HorizonSkyMissingInOne", "Horizon", horizonSky("0 0 1") + ground("0 1 0"),
              ground("0 1 0")),
        alike("HorizonGroundLikeTheOthersSky", "Horizon",
              sky("0 0 1") + horizonGround("0 0 1") + ground("0 1 0"),
              sky("0 0 1") + horizonGround("1 1 0") + ground("0 1 0")),
        different("HorizonGroundUnlikeTheOthersSky", "Horizon",
                  sky("0 0 1") + horizonGround("1 1 0") + ground("0 1 0"),
                  sky("0 0 1") + horizonGround("1 1 0") + ground("0 1 0")),
        alike("HorizonGroundsThatHaveNoSkyToMeet", "Horizon",
              horizonGround("1 1 0") + ground("0 1 0"), horizonGround("0 1 1") + ground("0 1 0")),
        alike("HorizonGroundMissingInTheFirst", "Horizon", sky("0 0 1") + ground("0 1 0"),
              sky("0 0 1") + horizonGround("1 1 0") + ground("0 1 0")),
        alike("SameInfinite", "Horizon",
              sky("0 0 inf") + horizonGround("0 0 inf") + ground("inf 1 0"),
              sky("0 0 inf") + ground("inf 1 0")),
        different("InfiniteSkiesBothWays", "Horizon", sky("0 0 inf") + ground("0 1 0"),
                  sky("0 0 -inf") + ground("0 1 0")),
        different("InfiniteGroundsBothWays", "Horizon", ground("0 inf 0"), ground("0 -inf 0"))),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Images, BackgroundEqual,
    testing::Values(alike("ImagesThatDifferInLetterCase", "Image", file("C:\\A\\Sky.JPG"),
                          file("c:\\a\\sky.jpg")),
                    alike("ImagesWithoutFile", "Image", QString(), QString()),
                    different("OtherImages", "Image", file("a.jpg"), file("b.jpg")),
                    different("ImageMissingInOne", "Image", file("a.jpg"), QString()),
                    alike("Images3DPlacedElsewhere", "Image3D",
                          file("a.jpg") + param("Horizon Position", "float", "0.25") +
                              param("Fixed Size", "float", "1"),
                          file("A.jpg") + param("Horizon Position", "float", "0.75") +
                              param("Fixed Size", "float", "2")),
                    different("OtherImages3D", "Image3D", file("a.jpg"), file("b.jpg")),
                    alike("ReflectionsThatDifferInLetterCase", "Reflection", file("a.jpg"),
                          file("A.JPG")),
                    different("OtherReflections", "Reflection", file("a.jpg"), file("b.jpg"))),
    RowName());

TEST(BackgroundEqualTo, NullIsFalse)
{
    const Bound<Background> a("<background subcat=\"Image\"/>");
    EXPECT_FALSE(a->Equal(nullptr));
}

TEST(BackgroundEqualTo, ItselfIsTrue)
{
    const Bound<Background> a(background("Plain", colour("Colour", "1 0 0")));
    EXPECT_TRUE(a->Equal(a.get()));
}

TEST(BackgroundImage3D, PositionThatCannotBeReadIsTheDefaultInSceneUnits)
{
    const Bound<Background> a("<snapRoot unitsScale=\"2\"><param name=\"Horizon Position\" "
                              "type=\"float\" prop=\"D\"/></snapRoot>");
    EXPECT_EQ(a->GetImage3DHorizonPosition(), 0.5f);
}

TEST(BackgroundImages, ShareOneFileName)
{
    const Bound<Background> a(background("Image", file("")));
    a->SetReflectionBackground(QStringLiteral("a.jpg"));
    EXPECT_EQ(a->GetImage3DBackground(), QStringLiteral("a.jpg"));
}

} // namespace

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/drawing/ColourDistance.h"

#include "../Parts.h"

namespace rvopen::test {

namespace {

using namespace toolkit::drawing;

struct DistanceCase {
    Lab first;
    Lab second;
    double distance;
};

void PrintTo(const DistanceCase& one, std::ostream* out)
{
    *out << one.first.a << ' ' << one.first.b << " to " << one.second.a << ' ' << one.second.b;
}

class PublishedDistance : public ::testing::TestWithParam<DistanceCase> {};

} // namespace

TEST_P(PublishedDistance, IsMetInBothDirections)
{
    const DistanceCase& one = GetParam();
    EXPECT_NEAR(colourDistance(one.first, one.second), one.distance, 5e-5);
    EXPECT_NEAR(colourDistance(one.second, one.first), one.distance, 5e-5);
}

/// The first of the test data of Sharma, Wu and Dalal (2005), table 1.
INSTANTIATE_TEST_SUITE_P(
    Table, PublishedDistance,
    ::testing::Values(DistanceCase{{50, 2.6772, -79.7751}, {50, 0, -82.7485}, 2.0425},
                      DistanceCase{{50, 3.1571, -77.2803}, {50, 0, -82.7485}, 2.8615},
                      DistanceCase{{50, 2.8361, -74.0200}, {50, 0, -82.7485}, 3.4412}));

TEST(ColourDistance, OfTheSameColourIsNothing)
{
    for (const Lab& lab : {Lab{0, 0, 0}, Lab{50, 0, 0}, Lab{60, -30, 40}, Lab{30, 20, -70}})
        EXPECT_EQ(colourDistance(lab, lab), 0);
}

TEST(ColourDistance, OfGreysIsTheirLightnessAroundTheMiddle)
{
    EXPECT_NEAR(colourDistance({50, 0, 0}, {50.001, 0, 0}), 0.001, 1e-6);
    EXPECT_NEAR(colourDistance({0, 0, 0}, {100, 0, 0}), 100, 1e-9);
}

TEST(ColourDistance, OfBlackAndWhiteIsAHundred)
{
    const float black[3] = {0, 0, 0};
    const float white[3] = {1, 1, 1};
    EXPECT_NEAR(colourDistance(labOf(black), labOf(white)), 100, 1e-3);
}

TEST(Lab, OfGreysHasNoHue)
{
    const float grey[3] = {0.5f, 0.5f, 0.5f};
    EXPECT_NEAR(labOf(grey).l, 53.389, 0.001);
    EXPECT_NEAR(labOf(grey).a, 0, 0.02);
    EXPECT_NEAR(labOf(grey).b, 0, 0.02);
}

TEST(Lab, OfTheRedPrimaryIsKnown)
{
    const float red[3] = {1, 0, 0};
    EXPECT_NEAR(labOf(red).l, 53.24, 0.05);
    EXPECT_NEAR(labOf(red).a, 80.09, 0.1);
    EXPECT_NEAR(labOf(red).b, 67.20, 0.1);
}

TEST(Lab, OfWhatIsOutsideIsThatOfTheNearest)
{
    const float beyond[3] = {2, -1, 0};
    const float red[3] = {1, 0, 0};
    EXPECT_EQ(labOf(beyond).a, labOf(red).a);
}

} // namespace rvopen::test

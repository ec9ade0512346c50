// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "StarterSupport.h"

#include <rvopen/ParamHelper.h>

#include <QDate>
#include <QMap>
#include <QRegularExpression>

#include <cmath>

/// The suns of the starter installation, held to an ephemeris that their maker does not know.
namespace rvopen::test {
namespace {

const double s_degree = std::acos(-1.0) / 180;

/// The sun seen from the middle of the earth.
struct Ephemeris {
    /// In degrees.
    double declination;
    /// True solar time less mean solar time, in minutes.
    double equationOfTime;
};

/// J. Meeus, "Astronomical Algorithms", chapter 25, "low accuracy": to a hundredth of a degree.
Ephemeris ephemeris(const QDate& day, double hour)
{
    const double t = (double(day.toJulianDay()) - 2451545 + (hour - 12) / 24) / 36525;
    const double meanLongitude = 280.46646 + 36000.76983 * t + 0.0003032 * t * t;
    const double anomaly = (357.52911 + 35999.05029 * t - 0.0001537 * t * t) * s_degree;
    const double centre = (1.914602 - 0.004817 * t) * std::sin(anomaly) +
                          (0.019993 - 0.000101 * t) * std::sin(2 * anomaly) +
                          0.000289 * std::sin(3 * anomaly);
    const double node = (125.04 - 1934.136 * t) * s_degree;
    const double longitude =
        (meanLongitude + centre - 0.00569 - 0.00478 * std::sin(node)) * s_degree;
    const double obliquity =
        (23.0 + 26.0 / 60 + (21.448 - 46.8150 * t) / 3600 + 0.00256 * std::cos(node)) * s_degree;
    const double ascension =
        std::atan2(std::cos(obliquity) * std::sin(longitude), std::cos(longitude));
    const double difference = meanLongitude - 0.0057183 - ascension / s_degree;
    return {std::asin(std::sin(obliquity) * std::sin(longitude)) / s_degree,
            4 * std::remainder(difference, 360)};
}

TEST(Ephemeris, KnowsEquinoxesAndSolstices)
{
    EXPECT_NEAR(ephemeris(QDate(2026, 3, 20), 14.77).declination, 0, 0.01);
    EXPECT_NEAR(ephemeris(QDate(2026, 6, 21), 8.4).declination, 23.44, 0.01);
    EXPECT_NEAR(ephemeris(QDate(2026, 9, 23), 0.08).declination, 0, 0.01);
    EXPECT_NEAR(ephemeris(QDate(2026, 12, 21), 20.83).declination, -23.44, 0.01);
}

TEST(Ephemeris, KnowsTheEquationOfTime)
{
    EXPECT_NEAR(ephemeris(QDate(2026, 2, 11), 12).equationOfTime, -14.2, 0.1);
    EXPECT_NEAR(ephemeris(QDate(2026, 5, 14), 12).equationOfTime, 3.7, 0.1);
    EXPECT_NEAR(ephemeris(QDate(2026, 7, 26), 12).equationOfTime, -6.5, 0.1);
    EXPECT_NEAR(ephemeris(QDate(2026, 11, 3), 12).equationOfTime, 16.4, 0.1);
}

struct Position {
    double azimuth;
    double altitude;
};

/// From the axes of the equator, turned by the latitude.
Position seenFrom(double latitude, const QDate& day, double solarHour)
{
    // World time is mean time at Greenwich.
    const double worldTime = solarHour - ephemeris(day, solarHour).equationOfTime / 60;
    const double declination = ephemeris(day, worldTime).declination * s_degree;
    const double angle = (solarHour - 12) * 15 * s_degree;
    const double outwards = std::cos(declination) * std::cos(angle);
    const double west = std::cos(declination) * std::sin(angle);
    const double pole = std::sin(declination);
    const double phi = latitude * s_degree;
    const double up = outwards * std::cos(phi) + pole * std::sin(phi);
    const double north = pole * std::cos(phi) - outwards * std::sin(phi);
    const double azimuth = std::atan2(-west, north) / s_degree;
    return {azimuth < 0 ? azimuth + 360 : azimuth, std::asin(up) / s_degree};
}

struct Moment {
    double latitude;
    QDate day;
    double hour;
};

/// Of the suns that have a name of their own.
const QMap<QString, Moment> s_named{
    {"sun.midsummer_noon", {47, QDate(2026, 6, 21), 12}},
    {"sun.midsummer_evening", {47, QDate(2026, 6, 21), 18.5}},
    {"sun.equinox_morning", {47, QDate(2026, 3, 20), 8}},
    {"sun.midwinter_noon", {47, QDate(2026, 12, 21), 12}},
};

/// The others say it in their reference names: place, day and hour.
Moment momentOf(const QString& refName)
{
    if (s_named.contains(refName))
        return s_named[refName];
    const QMap<QString, double> latitudes{{"0", 0},    {"s20", -20}, {"s34", -34}, {"n23", 23.4},
                                          {"n35", 35}, {"n47", 47},  {"n55", 55},  {"n65", 65}};
    const QMap<QString, QDate> days{{"march", QDate(2026, 3, 20)},
                                    {"june", QDate(2026, 6, 21)},
                                    {"november", QDate(2026, 11, 7)},
                                    {"december", QDate(2026, 12, 21)}};
    const QStringList parts = refName.section('.', 1).split('_');
    EXPECT_TRUE(parts.size() == 3 && latitudes.contains(parts[0]) && days.contains(parts[1]))
        << refName.toStdString();
    return {latitudes.value(parts[0]), days.value(parts[1]), parts[2].mid(1).toDouble()};
}

Position positionOf(RVOpenNode* preset)
{
    float azimuth = -1;
    float altitude = -1;
    ParamHelper* const params = preset->GetParamHelper();
    EXPECT_EQ(params->GetValFloat(QStringLiteral("Sun Azimuth"), &azimuth), 0U);
    EXPECT_EQ(params->GetValFloat(QStringLiteral("Sun Altitude"), &altitude), 0U);
    return {double(azimuth), double(altitude)};
}

TEST_F(StarterTest, SunsStandWhereTheAlmanacHasThem)
{
    // Rounded to tenths, and as much again of what the day's hours make.
    const double near = 0.05 + 0.03;
    int count = 0;
    for (const Preset& preset : presets()) {
        if (preset.section != QLatin1String("naturalLights"))
            continue;
        ++count;
        const Moment moment = momentOf(preset.node->GetRefName());
        const Position expected = seenFrom(moment.latitude, moment.day, moment.hour);
        const Position sun = positionOf(preset.node);
        EXPECT_NEAR(sun.altitude, expected.altitude, near) << preset.name();
        // Near the zenith a small way is a large angle.
        const double across = std::cos(expected.altitude * s_degree);
        EXPECT_LT(std::fabs(std::remainder(sun.azimuth - expected.azimuth, 360)) * across, near)
            << preset.name() << ": " << sun.azimuth << " instead of " << expected.azimuth;
    }
    EXPECT_EQ(count, 115);
}

TEST_F(StarterTest, SunsStandAtNoonAsHighAsLatitudeAndDeclinationSay)
{
    const auto expectNoon = [](const char* name, double azimuth, double altitude) {
        const Position sun = positionOf(find(name));
        EXPECT_NEAR(sun.azimuth, azimuth, 0.05) << name;
        EXPECT_NEAR(sun.altitude, altitude, 0.06) << name;
    };
    expectNoon("sun.n47_june_h12", 180, 90 - 47 + 23.44);
    expectNoon("sun.n47_march_h12", 180, 90 - 47);
    expectNoon("sun.n65_june_h12", 180, 90 - 65 + 23.44);
    expectNoon("sun.n47_december_h12", 180, 90 - 47 - 23.44);
    expectNoon("sun.s34_december_h12", 0, 90 - 34 + 23.44);
    expectNoon("sun.s34_june_h12", 0, 90 - 34 - 23.44);
}

TEST_F(StarterTest, SunsRiseInTheEastAndSetInTheWest)
{
    for (const Preset& preset : presets()) {
        if (preset.section != QLatin1String("naturalLights"))
            continue;
        const double hour = momentOf(preset.node->GetRefName()).hour;
        const double azimuth = positionOf(preset.node).azimuth;
        if (hour != 12) {
            EXPECT_EQ(azimuth < 180, hour < 12) << preset.name();
        }
    }
}

TEST_F(StarterTest, LightComesFromWhereTheDescriptionSays)
{
    const QStringList points{"north", "north-north-east", "north-east", "east-north-east",
                             "east",  "east-south-east",  "south-east", "south-south-east",
                             "south", "south-south-west", "south-west", "west-south-west",
                             "west",  "west-north-west",  "north-west", "north-north-west"};
    const QRegularExpression from(QStringLiteral("from the ([a-z-]+)"));
    int count = 0;
    for (const Preset& preset : presets()) {
        const auto told = from.match(preset.node->GetDescription());
        if (preset.section != QLatin1String("naturalLights") || !told.hasMatch())
            continue;
        ++count;
        const int point = int(std::lround(positionOf(preset.node).azimuth / 22.5)) % 16;
        EXPECT_EQ(told.captured(1), points[point]) << preset.name();
    }
    EXPECT_EQ(count, 1);
}

} // namespace
} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "StarterSupport.h"

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Lens.h>
#include <rvopen/Material.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/Transparency.h>

#include <QColor>
#include <QHash>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTextStream>

#include <array>
#include <cmath>

/// The values of the starter installation, held to what optics, geometry and standards say of them.
/// Nothing here knows the program that made them.
namespace rvopen::test {
namespace {

double degrees(double radians)
{
    return radians * 180 / std::acos(-1.0);
}

/// Across a frame of a width, with a lens of a focal length.
double angleAcross(double width, double focalLength)
{
    return degrees(2 * std::atan(width / (2 * focalLength)));
}

double linear(double display)
{
    return display <= 0.04045 ? display / 12.92 : std::pow((display + 0.055) / 1.055, 2.4);
}

double factorOf(Finish* finish, const char* name)
{
    float value = -1;
    EXPECT_EQ(finish->GetParamHelper()->GetValFloat(QLatin1String(name), &value), 0U) << name;
    return double(value);
}

TEST_F(StarterTest, LensesSeeTheAngleOfTheirFocalLengthAcrossTheirFrame)
{
    // ISO 1007 for 35 mm film; nominal widths otherwise.
    const QMap<QString, double> widths{{"Full frame", 36},    {"APS-C", 23.6},
                                       {"Four Thirds", 17.3}, {"Medium format", 43.8},
                                       {"Film 6 by 6", 56},   {"Sheet film 4 by 5", 120},
                                       {"Super 35", 24.89},   {"Super 16", 12.52}};
    QSet<QString> seen;
    for (const Preset& preset : presets()) {
        Lens* const lens = RVOpenSchema::isNodeLens(preset.node);
        if (!lens)
            continue;
        const QString format = lens->GetParent()->GetParent()->GetName();
        ASSERT_TRUE(widths.contains(format)) << format.toStdString();
        seen.insert(format);
        const auto focal =
            QRegularExpression(QStringLiteral("([0-9.]+) mm")).match(lens->GetName());
        ASSERT_TRUE(focal.hasMatch()) << preset.name();
        float angle = 0;
        EXPECT_EQ(lens->GetAngle(&angle), 0U);
        EXPECT_NEAR(double(angle), angleAcross(widths[format], focal.captured(1).toDouble()), 1e-3)
            << preset.name();
    }
    EXPECT_EQ(seen.size(), widths.size());
}

/// How much of their length the three axes keep in a parallel view.
std::array<double, 3> shortenings(RVOpenNode* preset)
{
    Camera* const camera = RVOpenSchema::isNodeCamera(preset);
    float from[3];
    float to[3];
    float up[3];
    float angle = 0;
    int isParallel = 0;
    EXPECT_EQ(camera->GetPinhole(from, to, up, &isParallel, &angle), 0U);
    EXPECT_EQ(isParallel, 1);
    std::array<double, 3> towards{};
    double square = 0;
    for (int i = 0; i < 3; ++i) {
        towards[std::size_t(i)] = double(to[i]) - double(from[i]);
        square += towards[std::size_t(i)] * towards[std::size_t(i)];
    }
    std::array<double, 3> result{};
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = std::sqrt(1 - towards[i] * towards[i] / square);
    return result;
}

TEST_F(StarterTest, TheIsometricViewShortensAllAxesAlike)
{
    for (const double axis : shortenings(find("camera.isometric")))
        EXPECT_NEAR(axis, std::sqrt(2.0 / 3), 1e-5);
}

TEST_F(StarterTest, TheDimetricViewShortensTwoAxesAlikeAndTheThirdToHalfOfThat)
{
    const auto axes = shortenings(find("camera.dimetric"));
    EXPECT_NEAR(axes[1], axes[2], 1e-5);
    EXPECT_NEAR(axes[0], axes[1] / 2, 1e-5);
}

TEST_F(StarterTest, ViewsFromPersonsHaveTheAngleOfTheirLens)
{
    const QMap<QString, double> focalLengths{{"camera.eye_level", 50},
                                             {"camera.three_quarter", 35},
                                             {"camera.worms_eye", 20},
                                             {"camera.table_top", 85},
                                             {"camera.drone", 35}};
    for (auto it = focalLengths.cbegin(); it != focalLengths.cend(); ++it) {
        Camera* const camera = RVOpenSchema::isNodeCamera(find(it.key().toStdString()));
        float angle = 0;
        EXPECT_EQ(camera->GetParamHelper()->GetValFloat(QStringLiteral("Field Of View"), &angle),
                  0U);
        EXPECT_NEAR(double(angle), angleAcross(36, it.value()), 1e-3) << it.key().toStdString();
    }
}

/// Each finish: the presets, and those of the materials.
std::vector<std::pair<std::string, Finish*>> finishesOf(const std::vector<Preset>& presets)
{
    std::vector<std::pair<std::string, Finish*>> finishes;
    for (const Preset& preset : presets) {
        if (Finish* const finish = RVOpenSchema::isNodeFinish(preset.node))
            finishes.emplace_back(preset.name(), finish);
        else if (Material* const material = RVOpenSchema::isNodeMaterial(preset.node))
            finishes.emplace_back(preset.name(), material->GetFinish());
    }
    return finishes;
}

TEST_F(StarterTest, NoFinishGivesBackMoreLightThanFallsOnIt)
{
    for (const auto& [name, finish] : finishesOf(presets()))
        EXPECT_LE(factorOf(finish, "diffuse factor") + factorOf(finish, "mirror factor") +
                      factorOf(finish, "transmission factor"),
                  1 + 1e-6)
            << name;
}

TEST_F(StarterTest, ClearFinishesMirrorWhatTheirRefractionSays)
{
    int count = 0;
    for (const Preset& preset : presets()) {
        Finish* const finish = RVOpenSchema::isNodeFinish(preset.node);
        if (!finish || factorOf(finish, "transmission factor") <= 0)
            continue;
        ++count;
        const double n = factorOf(finish, "refraction");
        const double reflectance = (n - 1) * (n - 1) / ((n + 1) * (n + 1));
        EXPECT_NEAR(factorOf(finish, "mirror factor"), reflectance, 0.006) << preset.name();
    }
    EXPECT_GE(count, 16);
}

/// Indices at 589 nm, by reference name of a finish or of a material.
const QMap<QString, double> s_indices{
    {"finish.water_surface", 1.333},
    {"finish.ice", 1.309},
    {"finish.alcohol", 1.361},
    {"finish.quartz", 1.4585},
    {"finish.borosilicate", 1.473},
    {"finish.oil", 1.47},
    {"finish.acrylic", 1.491},
    {"finish.window_glass", 1.52},
    {"finish.lead_crystal", 1.55},
    {"finish.amber", 1.54},
    {"finish.emerald", 1.58},
    {"finish.polycarbonate", 1.585},
    {"finish.sapphire", 1.768},
    {"finish.cubic_zirconia", 2.15},
    {"finish.diamond", 2.417},
    {"finish.wet", 1.333},
    {"finish.polished", 1},
    {"finish.mirror", 1},
    {"material.still_water", 1.333},
    {"material.sea_water", 1.34},
    {"material.red_wine", 1.345},
    {"material.milk", 1.35},
    {"material.honey", 1.49},
    {"material.olive_oil", 1.47},
    {"material.window_pane", 1.52},
    {"material.laboratory_glass", 1.473},
    {"material.crystal_glass", 1.55},
    {"material.clear_acrylic", 1.491},
    {"material.frosted_acrylic", 1.49},
    {"material.white_polystyrene", 1.59},
    {"material.red_abs", 1.53},
    {"material.grey_pvc", 1.53},
    {"material.melamine", 1.6},
    {"material.silicone_orange", 1.41},
    {"material.cut_diamond", 2.417},
    {"material.sapphire_glass", 1.768},
    {"material.gold", 1},
};

TEST_F(StarterTest, RefractionIsThatOfTheSubstance)
{
    int count = 0;
    for (const auto& [name, finish] : finishesOf(presets())) {
        const auto index = s_indices.constFind(QString::fromStdString(name));
        if (index == s_indices.cend())
            continue;
        ++count;
        EXPECT_NEAR(factorOf(finish, "refraction"), *index, 0.003) << name;
    }
    EXPECT_EQ(count, s_indices.size());
}

TEST_F(StarterTest, PolishedStoneRefractsAsCalciteInAllDirections)
{
    // The ordinary ray counts twice: it has two of the three directions.
    const double mean = (2 * 1.658 + 1.486) / 3;
    EXPECT_NEAR(factorOf(RVOpenSchema::isNodeFinish(find("finish.polished_stone")), "refraction"),
                mean, 0.005);
    EXPECT_NEAR(factorOf(RVOpenSchema::isNodeMaterial(find("material.carrara_marble"))->GetFinish(),
                         "refraction"),
                mean, 0.005);
}

/// The matching functions of the CIE's observer of 1931, by the sums of bells of C. Wyman, P.-P.
/// Sloan and P. Shirley, "Simple analytic approximations to the CIE XYZ color matching functions",
/// 2013.
std::array<double, 3> observer(double wavelength)
{
    const auto bell = [wavelength](double centre, double below, double above) {
        const double t = (wavelength - centre) * (wavelength < centre ? below : above);
        return std::exp(-t * t / 2);
    };
    return {0.362 * bell(442.0, 0.0624, 0.0374) + 1.056 * bell(599.8, 0.0264, 0.0323) -
                0.065 * bell(501.1, 0.0490, 0.0382),
            0.821 * bell(568.8, 0.0213, 0.0247) + 0.286 * bell(530.9, 0.0613, 0.0322),
            1.217 * bell(437.0, 0.0845, 0.0278) + 0.681 * bell(459.0, 0.0385, 0.0725)};
}

/// The display colour of a black body, the strongest channel at its full.
std::array<double, 3> blackBody(double kelvin)
{
    double x = 0;
    double y = 0;
    double z = 0;
    for (double wavelength = 380; wavelength <= 780; wavelength += 5) {
        const double power =
            std::pow(wavelength, -5) / (std::exp(1.438777e7 / (wavelength * kelvin)) - 1);
        const auto seen = observer(wavelength);
        x += power * seen[0];
        y += power * seen[1];
        z += power * seen[2];
    }
    std::array<double, 3> light{3.2406 * x - 1.5372 * y - 0.4986 * z,
                                -0.9689 * x + 1.8758 * y + 0.0415 * z,
                                0.0557 * x - 0.2040 * y + 1.0570 * z};
    const double most = *std::max_element(light.begin(), light.end());
    for (double& channel : light) {
        const double value = std::max(channel / most, 0.0);
        channel = value <= 0.0031308 ? 12.92 * value : 1.055 * std::pow(value, 1 / 2.4) - 0.055;
    }
    return light;
}

TEST_F(StarterTest, LampsHaveTheColourOfTheirTemperature)
{
    int count = 0;
    for (const Preset& preset : presets()) {
        const auto kelvin = QRegularExpression(QStringLiteral("([0-9]+) kelvin"))
                                .match(preset.node->GetDescription());
        if (!kelvin.hasMatch())
            continue;
        ++count;
        float colour[3];
        EXPECT_EQ(
            preset.node->GetParamHelper()->GetValColour(QStringLiteral("light colour"), colour),
            0U);
        const auto expected = blackBody(kelvin.captured(1).toDouble());
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(double(colour[i]), expected[i], 6.0 / 255) << preset.name() << ' ' << i;
    }
    EXPECT_EQ(count, 5);
}

/// What a plain transparency lets through of red, green and blue.
std::array<double, 3> transmitted(RVOpenNode* preset)
{
    float opacity[3];
    EXPECT_EQ(RVOpenSchema::isNodeTransparency(preset)->GetColour()->GetPlainColour(0)->GetColour(
                  opacity),
              0U);
    return {1 - double(opacity[0]), 1 - double(opacity[1]), 1 - double(opacity[2])};
}

TEST_F(StarterTest, TintsLetTheirOwnColourThrough)
{
    const double much = 0.05;
    const auto green = transmitted(find("transparency.green_tint"));
    EXPECT_GT(green[1], green[0] + much);
    EXPECT_GT(green[1], green[2] + much);
    const auto blue = transmitted(find("transparency.blue_tint"));
    EXPECT_GT(blue[2], blue[0] + much);
    EXPECT_GT(blue[2], blue[1] + much);
    const auto amber = transmitted(find("transparency.amber_tint"));
    EXPECT_GT(amber[0], amber[1] + much);
    EXPECT_GT(amber[1], amber[2] + much);
    const auto rose = transmitted(find("transparency.rose"));
    EXPECT_GT(rose[0], rose[2] + much);
    EXPECT_GT(rose[2], rose[1] + much);
}

TEST_F(StarterTest, GreysReflectWhatTheySay)
{
    const auto reflectance = [](const char* name) {
        float colour[3];
        EXPECT_EQ(RVOpenSchema::isNodeBackground(find(name))->GetPlainColour(colour), 0U);
        return linear(double(colour[0]));
    };
    ASSERT_TRUE(find("background.light_grey")->GetDescription().contains("36 percent less"));
    EXPECT_NEAR(reflectance("background.light_grey"), 1 - 0.36, 0.005);
    ASSERT_TRUE(find("background.middle_grey")->GetDescription().contains("18 percent"));
    EXPECT_NEAR(reflectance("background.middle_grey"), 0.18, 0.002);
}

TEST_F(StarterTest, ColoursOfPaintsAreThoseOfTheirStandard)
{
    const auto hex = [](const char* name) {
        float colour[3];
        Colour* const preset = RVOpenSchema::isNodeColour(find(name));
        EXPECT_EQ(preset->GetDiffuse()->GetColour()->GetPlainColour(0)->GetColour(colour), 0U);
        const auto level = [](float value) { return int(double(value) * 255 + 0.5); };
        return QColor(level(colour[0]), level(colour[1]), level(colour[2])).name();
    };
    EXPECT_TRUE(find("colour.signal_white")->GetDescription().contains("RAL 9003"));
    EXPECT_EQ(hex("colour.signal_white"), QStringLiteral("#ecece7"));
    EXPECT_TRUE(find("colour.traffic_yellow")->GetDescription().contains("RAL 1023"));
    EXPECT_EQ(hex("colour.traffic_yellow"), QStringLiteral("#f7b500"));
}

/// What is in a preset, without its own name and place.
QString contentOf(RVOpenNode* preset)
{
    QString text;
    QTextStream stream(&text);
    const QDomNodeList children = preset->GetDomNode().childNodes();
    for (int i = 0; i < children.size(); ++i)
        children.at(i).save(stream, 0);
    stream.flush();
    return preset->GetNodeName() + text;
}

TEST_F(StarterTest, NoTwoPresetsAreAlikeThatDoNotSaySo)
{
    const QSet<QString> kinds{"colours", "finishes",    "transparencies",
                              "bumps",   "backgrounds", "materials"};
    const auto declares = [](RVOpenNode* one, RVOpenNode* other) {
        return one->GetDescription().contains(QRegularExpression(
            QStringLiteral("the same as \"%1\"").arg(QRegularExpression::escape(other->GetName())),
            QRegularExpression::CaseInsensitiveOption));
    };
    QHash<QString, RVOpenNode*> known;
    int doubled = 0;
    for (const Preset& preset : presets()) {
        if (!kinds.contains(preset.section))
            continue;
        const QString content = contentOf(preset.node);
        RVOpenNode* const other = known.value(content);
        known.insert(content, preset.node);
        if (!other)
            continue;
        ++doubled;
        EXPECT_TRUE(declares(preset.node, other) || declares(other, preset.node))
            << preset.name() << " and " << other->GetRefName().toStdString();
    }
    // Seven greys in two spellings, aqua and cyan, fuchsia and magenta.
    EXPECT_EQ(doubled, 9);
}

TEST_F(StarterTest, DescriptionsAreEnglish)
{
    // Letters and words that English has not, but for the coffee.
    const QRegularExpression strange(
        QStringLiteral("[äöüÄÖÜß]|\\b(aus|der|das|und|mit|von|für|ein|eine)\\b"));
    for (const Preset& preset : presets())
        EXPECT_FALSE(preset.node->GetDescription().contains(strange)) << preset.name();
}

} // namespace
} // namespace rvopen::test

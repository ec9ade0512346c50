// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/AlbumInfo.h>
#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/AspectRatio.h>
#include <rvopen/AspectRatioOrient.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/Scenery.h>
#include <rvopen/SnapShotSettings.h>

#include <functional>

// Accessors of one parameter, driven through every state that the parameter can be in.

namespace {

using namespace rvopen;
using namespace rvopen::test;

/// What an output holds before a getter is called.
constexpr int untouched = 77;

bool isTriple(const std::string& type)
{
    return type == "colour" || type == "vector" || type == "point";
}

/// A node that has the parameter between two others, or these two alone.
QString nodeWith(const QString& param)
{
    return QStringLiteral("<node>"
                          "<param name=\"Before\" type=\"string\" val=\"a\"/>%1"
                          "<param name=\"After\" type=\"float\" val=\"1\"/>"
                          "</node>")
        .arg(param);
}

/// What stands in "val", readable and not.
struct Texts {
    const char* good;
    const char* malformed;
    const char* malformedReadsAs;
    const char* otherType;
};

Texts textsOf(const std::string& type)
{
    if (type == "float")
        return {"2.5", "abc", "0", "integer"};
    if (type == "integer")
        return {"7", "abc", "0", "float"};
    if (type == "boolean")
        return {"1", "yes", "0", "integer"};
    if (type == "string")
        return {"text", "&lt;1 2&gt;", "<1 2>", "shader"};
    return {"0.25 0.5 1", "a b c", "0 0 0", type == "colour" ? "vector" : "colour"};
}

/// An accessor's parameter.
struct Target {
    const char* accessor;
    const char* parameter;
    const char* type;

    QString present() const
    {
        return withValue(textsOf(type).good);
    }
    QString withValue(const char* val) const
    {
        return param(parameter, type, val);
    }
    QString withoutValue() const
    {
        return QStringLiteral("<param name=\"%1\" type=\"%2\"/>")
            .arg(QString::fromUtf8(parameter), QString::fromUtf8(type));
    }
    QString ofOtherType() const
    {
        return param(parameter, textsOf(type).otherType, "3");
    }
    QString ofOtherName() const
    {
        return QString(present()).replace(QString::fromUtf8(parameter),
                                          QString::fromUtf8(parameter).toUpper());
    }
};

/// Names the tests by their accessors.
struct AccessorName {
    template <typename Row>
    std::string operator()(const testing::TestParamInfo<Row>& row) const
    {
        return QString::fromUtf8(row.param.target.accessor)
            .replace(QLatin1Char('.'), QLatin1Char('_'))
            .toStdString();
    }
};

std::string number(float value)
{
    return QString::number(static_cast<double>(value), 'g', 6).toStdString();
}

std::string quoted(const QString& text)
{
    return "'" + text.toStdString() + "'";
}

// Getters

struct Getter {
    Target target;
    /// Calls the getter on a node with these parameters; tells the status and what the output holds
    /// then.
    std::function<std::string(const QString& params)> call;
    /// Calls it with a null output and tells the status; empty for a getter that returns its value.
    std::function<std::string(const QString& params)> callWithNull;
    /// The answer where there is nothing to read.
    std::string unreadable;
    /// The same for a parameter that does not exist at all.
    std::string missing;

    Getter answering(const std::string& answer) const
    {
        Getter changed = *this;
        changed.unreadable = answer;
        changed.missing = answer;
        return changed;
    }
    Getter answeringWhenMissing(const std::string& answer) const
    {
        Getter changed = *this;
        changed.missing = answer;
        return changed;
    }
    std::string success(const char* value) const
    {
        if (callWithNull)
            return std::string("0 ") + value;
        return std::string(target.type) == "string" ? quoted(QString::fromUtf8(value)) : value;
    }
};

void PrintTo(const Getter& getter, std::ostream* out)
{
    *out << getter.target.accessor;
}

template <typename Class>
Getter getter(const char* accessor, const char* parameter, const char* type,
              unsigned int (Class::*get)(float*))
{
    const bool triple = isTriple(type);
    const auto call = [=](const QString& params) {
        float out[] = {untouched, untouched, untouched};
        const unsigned int status = (Bound<Class>(nodeWith(params)).get()->*get)(out);
        std::string answer = std::to_string(status) + " " + number(out[0]);
        if (triple)
            answer += " " + number(out[1]) + " " + number(out[2]);
        return answer;
    };
    const auto callWithNull = [=](const QString& params) {
        return std::to_string((Bound<Class>(nodeWith(params)).get()->*get)(nullptr));
    };
    const std::string unreadable = triple ? "2 77 77 77" : "2 77";
    return {{accessor, parameter, type}, call, callWithNull, unreadable, unreadable};
}

template <typename Class>
Getter getter(const char* accessor, const char* parameter, const char* type,
              unsigned int (Class::*get)(int*))
{
    const auto call = [=](const QString& params) {
        int out = untouched;
        const unsigned int status = (Bound<Class>(nodeWith(params)).get()->*get)(&out);
        return std::to_string(status) + " " + std::to_string(out);
    };
    const auto callWithNull = [=](const QString& params) {
        return std::to_string((Bound<Class>(nodeWith(params)).get()->*get)(nullptr));
    };
    return {{accessor, parameter, type}, call, callWithNull, "2 77", "2 77"};
}

template <typename Class>
Getter getter(const char* accessor, const char* parameter, QString (Class::*get)())
{
    const auto call = [=](const QString& params) {
        return quoted((Bound<Class>(nodeWith(params)).get()->*get)());
    };
    return {{accessor, parameter, "string"}, call, nullptr, "''", "''"};
}

template <typename Class>
Getter getter(const char* accessor, const char* parameter, float (Class::*get)(),
              const char* valueWhenMissing)
{
    const auto call = [=](const QString& params) {
        return number((Bound<Class>(nodeWith(params)).get()->*get)());
    };
    return {{accessor, parameter, "float"}, call, nullptr, valueWhenMissing, valueWhenMissing};
}

class ParamGetter : public testing::TestWithParam<Getter> {};

TEST_P(ParamGetter, AnswersForEveryStateOfItsParameter)
{
    const Getter& get = GetParam();
    const Target& target = get.target;
    const Texts texts = textsOf(target.type);

    EXPECT_EQ("present: " + get.call(target.present()) + "\nmissing: " + get.call(QString()) +
                  "\nof another name: " + get.call(target.ofOtherName()) +
                  "\nempty: " + get.call(target.withValue("")) +
                  "\nwithout value: " + get.call(target.withoutValue()) +
                  "\nof another type: " + get.call(target.ofOtherType()) +
                  "\nmalformed: " + get.call(target.withValue(texts.malformed)),
              "present: " + get.success(texts.good) + "\nmissing: " + get.missing +
                  "\nof another name: " + get.missing + "\nempty: " + get.unreadable +
                  "\nwithout value: " + get.unreadable + "\nof another type: " + get.unreadable +
                  "\nmalformed: " + get.success(texts.malformedReadsAs));
}

class ParamGetterWithOutput : public testing::TestWithParam<Getter> {};

TEST_P(ParamGetterWithOutput, AnswersMissingForANullOutput)
{
    const Getter& get = GetParam();
    EXPECT_EQ("present: " + get.callWithNull(get.target.present()) +
                  "\nmissing: " + get.callWithNull(QString()),
              "present: 2\nmissing: 2");
}

const std::vector<Getter>& getters()
{
    static const std::vector<Getter> all = {
        getter("AlbumInfo.GetLocation", "Location", &AlbumInfo::GetLocation),

        getter("ArtificialLightStudio.GetEnabled", "Enabled", "boolean",
               &ArtificialLightStudio::GetEnabled),
        getter("ArtificialLightStudio.GetIntensityScale", "Intensity Scale", "float",
               &ArtificialLightStudio::GetIntensityScale),

        getter("AspectRatio.GetAspectRatio", "Aspect Ratio", "float", &AspectRatio::GetAspectRatio),

        getter("AspectRatioOrient.IsPortrait", "Portrait", "boolean",
               &AspectRatioOrient::IsPortrait),

        getter("Camera.GetViewFit", "View Fit", "boolean", &Camera::GetViewFit).answering("2 0"),

        getter("Foreground.GetDepthCueBackgroundColour", "Background Colour", "colour",
               &Foreground::GetDepthCueBackgroundColour),
        getter("Foreground.GetDepthCueNear", "Near", "float", &Foreground::GetDepthCueNear),
        getter("Foreground.GetDepthCueFar", "Far", "float", &Foreground::GetDepthCueFar),

        getter("Lens.GetAngle", "Angle", "float", &Lens::GetAngle),

        getter("NaturalLightStudio.GetEnabled", "Enabled", "boolean",
               &NaturalLightStudio::GetEnabled),
        getter("NaturalLightStudio.GetSunAzimuth", "Sun Azimuth", "float",
               &NaturalLightStudio::GetSunAzimuth),
        getter("NaturalLightStudio.GetSunAltitude", "Sun Altitude", "float",
               &NaturalLightStudio::GetSunAltitude),

        getter("Background.GetPlainColour", "Colour", "colour", &Background::GetPlainColour),
        getter("Background.GetPrimaryColour", "Primary Colour", "colour",
               &Background::GetPrimaryColour),
        getter("Background.GetSecondaryColour", "Secondary Colour", "colour",
               &Background::GetSecondaryColour),
        getter("Background.GetSkyColour", "Sky Colour", "colour", &Background::GetSkyColour),
        getter("Background.GetHorizonSkyColour", "Horizon Sky Colour", "colour",
               &Background::GetHorizonSkyColour),
        getter("Background.GetHorizonGroundColour", "Horizon Ground Colour", "colour",
               &Background::GetHorizonGroundColour),
        getter("Background.GetGroundColour", "Ground Colour", "colour",
               &Background::GetGroundColour),
        getter("Background.GetImageBackground", "File Name", &Background::GetImageBackground),
        getter("Background.GetImage3DBackground", "File Name", &Background::GetImage3DBackground),
        getter("Background.GetReflectionBackground", "File Name",
               &Background::GetReflectionBackground),
        getter("Background.GetImage3DHorizonPosition", "Horizon Position",
               &Background::GetImage3DHorizonPosition, "0.5"),
        getter("Background.GetImage3DFixedSize", "Fixed Size", &Background::GetImage3DFixedSize,
               "0"),

        getter("RenderTarget.GetLightingQuality", "Lighting Quality", "integer",
               &RenderTarget::GetLightingQuality),
        getter("RenderTarget.GetMaterialQuality", "Material Quality", "integer",
               &RenderTarget::GetMaterialQuality),
        getter("RenderTarget.GetRenderQuality", "Render Quality", &RenderTarget::GetRenderQuality),
        getter("RenderTarget.GetModelHint", "Model Hint", "float", &RenderTarget::GetModelHint),
        getter("RenderTarget.GetAspectRatio", "Aspect Ratio", "float",
               &RenderTarget::GetAspectRatio),
        getter("RenderTarget.GetGamma", "Gamma", "float", &RenderTarget::GetGamma),
        getter("RenderTarget.GetUseAspectRatio", "Use Aspect Ratio", "boolean",
               &RenderTarget::GetUseAspectRatio),
        getter("RenderTarget.GetLandscape", "Landscape", "boolean", &RenderTarget::GetLandscape)
            .answering("2 1"),
        getter("RenderTarget.GetWidth", "Width", "integer", &RenderTarget::GetWidth),
        getter("RenderTarget.GetHeight", "Height", "integer", &RenderTarget::GetHeight),
        getter("RenderTarget.GetOutputFormat", "Output Format", &RenderTarget::GetOutputFormat),
        getter("RenderTarget.GetFileName", "Filename", &RenderTarget::GetFileName),
        getter("RenderTarget.GetShortFileName", "Short Filename", &RenderTarget::GetShortFileName),

        getter("Scenery.GetDropShadowEnabled", "Drop Shadow", "boolean",
               &Scenery::GetDropShadowEnabled),
        getter("Scenery.GetDropSunLightEnabled", "Drop Sunlight", "boolean",
               &Scenery::GetDropSunLightEnabled),
        getter("Scenery.GetDropReflectionEnabled", "Drop Reflection", "boolean",
               &Scenery::GetDropReflectionEnabled),
        getter("Scenery.GetDropShadowQuality", "Drop Shadow Quality", "integer",
               &Scenery::GetDropShadowQuality),
        getter("Scenery.GetDropShadowContrast", "Drop Shadow Contrast", "float",
               &Scenery::GetDropShadowContrast),
        getter("Scenery.GetDropSunLightBrightness", "Drop Sunlight Brightness", "float",
               &Scenery::GetDropSunLightBrightness),
        getter("Scenery.GetDropReflectionBrightness", "Drop Reflection Brightness", "float",
               &Scenery::GetDropReflectionBrightness),
        getter("Scenery.GetDropReflectionBlur", "Drop Reflection Blur", "float",
               &Scenery::GetDropReflectionBlur),
        getter("Scenery.GetBaseSize", "Base Size", "float", &Scenery::GetBaseSize).answering("2 3"),
        getter("Scenery.GetDropShadowCatchSpots", "Drop Shadow Catch Spots", "boolean",
               &Scenery::GetDropShadowCatchSpots)
            .answering("2 1"),

        getter("SnapShotSettings.IsSelected", "Selected", "boolean", &SnapShotSettings::IsSelected),
        getter("SnapShotSettings.GetTwist", "Twist", "float", &SnapShotSettings::GetTwist),
        getter("SnapShotSettings.GetReflectBackPlate", "Reflect BackPlate", "boolean",
               &SnapShotSettings::GetReflectBackPlate)
            .answeringWhenMissing("2 0"),
        getter("SnapShotSettings.GetAmbientLightsIntensityScale", "Ambient Lights Intensity Scale",
               "float", &SnapShotSettings::GetAmbientLightsIntensityScale),
        getter("SnapShotSettings.GetSessionName", "Session Folder",
               &SnapShotSettings::GetSessionName),
    };
    return all;
}

std::vector<Getter> gettersWithOutput()
{
    std::vector<Getter> result;
    for (const Getter& get : getters()) {
        if (get.callWithNull)
            result.push_back(get);
    }
    return result;
}

INSTANTIATE_TEST_SUITE_P(All, ParamGetter, testing::ValuesIn(getters()), AccessorName());
INSTANTIATE_TEST_SUITE_P(All, ParamGetterWithOutput, testing::ValuesIn(gettersWithOutput()),
                         AccessorName());

// Setters

enum class WhenMissing { Fails, Creates };

struct Setter {
    Target target;
    /// Sets the good value of the type on a node with these parameters; tells the status and the
    /// parameters that the node has then.
    std::function<std::string(const QString& params)> call;
    WhenMissing whenMissing;
    /// Property letters that the setter gives its parameter, as paramsOf() shows them.
    std::string letters;

    Setter creating() const
    {
        Setter changed = *this;
        changed.whenMissing = WhenMissing::Creates;
        return changed;
    }
    Setter markingAsLength() const
    {
        Setter changed = *this;
        changed.letters = " [D]";
        return changed;
    }
};

void PrintTo(const Setter& setter, std::ostream* out)
{
    *out << setter.target.accessor;
}

template <typename Class, typename Value>
Setter setter(const char* accessor, const char* parameter, const char* type,
              unsigned int (Class::*set)(Value), Value value)
{
    const auto call = [=](const QString& params) {
        const Bound<Class> node(nodeWith(params));
        const unsigned int status = (node.get()->*set)(value);
        return std::to_string(status) + "\n" + paramsOf(node.element());
    };
    return {{accessor, parameter, type}, call, WhenMissing::Fails, ""};
}

template <typename Class>
Setter floatSetter(const char* accessor, const char* parameter, unsigned int (Class::*set)(float))
{
    return setter(accessor, parameter, "float", set, 2.5f);
}

template <typename Class>
Setter intSetter(const char* accessor, const char* parameter, unsigned int (Class::*set)(int))
{
    return setter(accessor, parameter, "integer", set, 7);
}

/// Any number but 0 is true.
template <typename Class>
Setter boolSetter(const char* accessor, const char* parameter, unsigned int (Class::*set)(int))
{
    return setter(accessor, parameter, "boolean", set, 7);
}

template <typename Class>
Setter stringSetter(const char* accessor, const char* parameter,
                    unsigned int (Class::*set)(QString))
{
    return setter(accessor, parameter, "string", set, QStringLiteral("text"));
}

template <typename Class>
Setter colourSetter(const char* accessor, const char* parameter, unsigned int (Class::*set)(float*))
{
    static float rgb[] = {0.25f, 0.5f, 1.0f};
    return setter(accessor, parameter, "colour", set, static_cast<float*>(rgb));
}

class ParamSetter : public testing::TestWithParam<Setter> {};

TEST_P(ParamSetter, WritesForEveryStateOfItsParameter)
{
    const Setter& set = GetParam();
    const Target& target = set.target;
    const Texts texts = textsOf(target.type);

    const std::string name = target.parameter;
    const std::string before = "Before: string = a\n";
    const std::string after = "After: float = 1\n";
    const std::string written = name + ": " + target.type + " = " + texts.good + set.letters + "\n";
    const std::string done = "0\n" + before + written + after;
    const std::string missing = set.whenMissing == WhenMissing::Creates
                                    ? "0\n" + before + after + written
                                    : "2\n" + before + after;
    const std::string otherType = "2\n" + before + name + ": " + texts.otherType + " = 3\n" + after;

    EXPECT_EQ("present: " + set.call(target.withValue(texts.malformed)) +
                  "empty: " + set.call(target.withValue("")) + "without value: " +
                  set.call(target.withoutValue()) + "missing: " + set.call(QString()) +
                  "of another type: " + set.call(target.ofOtherType()),
              "present: " + done + "empty: " + done + "without value: " + done +
                  "missing: " + missing + "of another type: " + otherType);
}

std::vector<Setter> setters()
{
    return {
        stringSetter("AlbumInfo.SetLocation", "Location", &AlbumInfo::SetLocation),

        boolSetter("ArtificialLightStudio.SetEnabled", "Enabled",
                   &ArtificialLightStudio::SetEnabled),
        floatSetter("ArtificialLightStudio.SetIntensityScale", "Intensity Scale",
                    &ArtificialLightStudio::SetIntensityScale),

        boolSetter("Camera.SetViewFit", "View Fit", &Camera::SetViewFit).creating(),

        floatSetter("Lens.SetAngle", "Angle", &Lens::SetAngle),

        boolSetter("NaturalLightStudio.SetEnabled", "Enabled", &NaturalLightStudio::SetEnabled),
        floatSetter("NaturalLightStudio.SetSunAzimuth", "Sun Azimuth",
                    &NaturalLightStudio::SetSunAzimuth),
        floatSetter("NaturalLightStudio.SetSunAltitude", "Sun Altitude",
                    &NaturalLightStudio::SetSunAltitude),

        colourSetter("Background.SetPlainColour", "Colour", &Background::SetPlainColour),
        colourSetter("Background.SetPrimaryColour", "Primary Colour",
                     &Background::SetPrimaryColour),
        colourSetter("Background.SetSecondaryColour", "Secondary Colour",
                     &Background::SetSecondaryColour),
        colourSetter("Background.SetSkyColour", "Sky Colour", &Background::SetSkyColour),
        colourSetter("Background.SetHorizonSkyColour", "Horizon Sky Colour",
                     &Background::SetHorizonSkyColour),
        colourSetter("Background.SetHorizonGroundColour", "Horizon Ground Colour",
                     &Background::SetHorizonGroundColour),
        colourSetter("Background.SetGroundColour", "Ground Colour", &Background::SetGroundColour),
        stringSetter("Background.SetImageBackground", "File Name", &Background::SetImageBackground),
        stringSetter("Background.SetImage3DBackground", "File Name",
                     &Background::SetImage3DBackground),
        stringSetter("Background.SetReflectionBackground", "File Name",
                     &Background::SetReflectionBackground),
        floatSetter("Background.SetImage3DHorizonPosition", "Horizon Position",
                    &Background::SetImage3DHorizonPosition)
            .creating(),
        floatSetter("Background.SetImage3DFixedSize", "Fixed Size",
                    &Background::SetImage3DFixedSize)
            .creating(),

        intSetter("RenderTarget.SetLightingQuality", "Lighting Quality",
                  &RenderTarget::SetLightingQuality),
        intSetter("RenderTarget.SetMaterialQuality", "Material Quality",
                  &RenderTarget::SetMaterialQuality),
        stringSetter("RenderTarget.SetRenderQuality", "Render Quality",
                     &RenderTarget::SetRenderQuality),
        floatSetter("RenderTarget.SetModelHint", "Model Hint", &RenderTarget::SetModelHint)
            .markingAsLength(),
        floatSetter("RenderTarget.SetAspectRatio", "Aspect Ratio", &RenderTarget::SetAspectRatio),
        floatSetter("RenderTarget.SetGamma", "Gamma", &RenderTarget::SetGamma).creating(),
        boolSetter("RenderTarget.SetUseAspectRatio", "Use Aspect Ratio",
                   &RenderTarget::SetUseAspectRatio),
        boolSetter("RenderTarget.SetLandscape", "Landscape", &RenderTarget::SetLandscape)
            .creating(),
        intSetter("RenderTarget.SetWidth", "Width", &RenderTarget::SetWidth),
        intSetter("RenderTarget.SetHeight", "Height", &RenderTarget::SetHeight),
        stringSetter("RenderTarget.SetOutputFormat", "Output Format",
                     &RenderTarget::SetOutputFormat),
        stringSetter("RenderTarget.SetFileName", "Filename", &RenderTarget::SetFileName),
        stringSetter("RenderTarget.SetShortFileName", "Short Filename",
                     &RenderTarget::SetShortFileName),

        boolSetter("Scenery.EnableDropShadow", "Drop Shadow", &Scenery::EnableDropShadow),
        boolSetter("Scenery.EnableDropSunLight", "Drop Sunlight", &Scenery::EnableDropSunLight),
        boolSetter("Scenery.EnableDropReflection", "Drop Reflection",
                   &Scenery::EnableDropReflection),
        intSetter("Scenery.SetDropShadowQuality", "Drop Shadow Quality",
                  &Scenery::SetDropShadowQuality),
        floatSetter("Scenery.SetDropShadowContrast", "Drop Shadow Contrast",
                    &Scenery::SetDropShadowContrast),
        floatSetter("Scenery.SetDropSunLightBrightness", "Drop Sunlight Brightness",
                    &Scenery::SetDropSunLightBrightness),
        floatSetter("Scenery.SetDropReflectionBrightness", "Drop Reflection Brightness",
                    &Scenery::SetDropReflectionBrightness),
        floatSetter("Scenery.SetDropReflectionBlur", "Drop Reflection Blur",
                    &Scenery::SetDropReflectionBlur),
        floatSetter("Scenery.SetBaseSize", "Base Size", &Scenery::SetBaseSize).creating(),
        boolSetter("Scenery.SetDropShadowCatchSpots", "Drop Shadow Catch Spots",
                   &Scenery::SetDropShadowCatchSpots)
            .creating(),

        boolSetter("SnapShotSettings.SetSelected", "Selected", &SnapShotSettings::SetSelected)
            .creating(),
        floatSetter("SnapShotSettings.SetTwist", "Twist", &SnapShotSettings::SetTwist),
        boolSetter("SnapShotSettings.SetReflectBackPlate", "Reflect BackPlate",
                   &SnapShotSettings::SetReflectBackPlate)
            .creating(),
        floatSetter("SnapShotSettings.SetAmbientLightsIntensityScale",
                    "Ambient Lights Intensity Scale",
                    &SnapShotSettings::SetAmbientLightsIntensityScale),
        stringSetter("SnapShotSettings.SetSessionName", "Session Folder",
                     &SnapShotSettings::SetSessionName),
    };
}

INSTANTIATE_TEST_SUITE_P(All, ParamSetter, testing::ValuesIn(setters()), AccessorName());

} // namespace

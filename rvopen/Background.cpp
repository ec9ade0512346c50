// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Background.h>

#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Rows.h>

namespace rvopen {

namespace {

constexpr ParamSpec s_plainParams[] = {
    {names::parameter::colour, ParamType::Colour},
};

constexpr ParamSpec s_graduatedParams[] = {
    {names::parameter::primaryColour, ParamType::Colour},
    {names::parameter::secondaryColour, ParamType::Colour},
};

constexpr ParamSpec s_horizonParams[] = {
    {names::parameter::skyColour, ParamType::Colour},
    {names::parameter::horizonSkyColour, ParamType::Colour},
    {names::parameter::horizonGroundColour, ParamType::Colour},
    {names::parameter::groundColour, ParamType::Colour},
};

constexpr ParamSpec s_imageParams[] = {
    {names::parameter::backgroundFileName, ParamType::String},
};

constexpr ParamSpec s_image3DParams[] = {
    {names::parameter::backgroundFileName, ParamType::String},
    {names::parameter::horizonPosition, ParamType::Float},
    {names::parameter::fixedSize, ParamType::Float},
};

float floatParam(Background* background, names::Name name, float valueWhenMissing)
{
    float value = 0.0f;
    onParamOrDefault(background, name, &Param::GetValFloat, &value, valueWhenMissing);
    return value;
}

enum class Comparison { Equal, Different, Unreadable };

Comparison compareColours(Background* a, names::Name nameInA, Background* b, names::Name nameInB)
{
    float colourA[3];
    float colourB[3];
    if (onParam(a, nameInA, &Param::GetValColour, colourA) != StatusOk ||
        onParam(b, nameInB, &Param::GetValColour, colourB) != StatusOk)
        return Comparison::Unreadable;
    for (int i = 0; i < 3; ++i) {
        if (colourA[i] != colourB[i])
            return Comparison::Different;
    }
    return Comparison::Equal;
}

bool haveEqualColour(Background* a, Background* b, names::Name name)
{
    return compareColours(a, name, b, name) == Comparison::Equal;
}

bool areEqualHorizons(Background* a, Background* b)
{
    namespace name = names::parameter;
    const Comparison sky = compareColours(a, name::skyColour, b, name::skyColour);
    const Comparison horizonSky =
        compareColours(a, name::horizonSkyColour, b, name::horizonSkyColour);
    // The promised comparison, as odd as it looks.
    const Comparison horizonGround =
        compareColours(a, name::horizonGroundColour, b, name::skyColour);
    return sky != Comparison::Different && horizonSky != Comparison::Different &&
           horizonGround != Comparison::Different && haveEqualColour(a, b, name::groundColour);
}

bool showSameImage(Background* a, Background* b)
{
    const auto image = [](Background* background) {
        return stringParam(background, names::parameter::backgroundFileName).toLower();
    };
    return image(a) == image(b);
}

} // namespace

Background::Background(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Background::~Background() = default;

void Background::PopulateParams()
{
    GetParamHelper()->Populate();
    if (IsPlainColour())
        populateParams(this, s_plainParams);
    else if (IsGraduated())
        populateParams(this, s_graduatedParams);
    else if (IsHorizon())
        populateParams(this, s_horizonParams);
    else if (IsImage3D())
        populateParams(this, s_image3DParams);
    else if (IsImage() || IsReflection())
        populateParams(this, s_imageParams);
}

RVOPEN_IS_KIND(Background, IsPlainColour, plain)
RVOPEN_IS_KIND(Background, IsGraduated, graduated)
RVOPEN_IS_KIND(Background, IsHorizon, horizon)
RVOPEN_IS_KIND(Background, IsImage, image)
RVOPEN_IS_KIND(Background, IsImage3D, image3D)
RVOPEN_IS_KIND(Background, IsReflection, reflection)
RVOPEN_GET(Background, GetPlainColour, colour, Colour, float*)
RVOPEN_SET(Background, SetPlainColour, colour, Colour, float*)
RVOPEN_GET(Background, GetPrimaryColour, primaryColour, Colour, float*)
RVOPEN_SET(Background, SetPrimaryColour, primaryColour, Colour, float*)
RVOPEN_GET(Background, GetSecondaryColour, secondaryColour, Colour, float*)
RVOPEN_SET(Background, SetSecondaryColour, secondaryColour, Colour, float*)
RVOPEN_GET(Background, GetSkyColour, skyColour, Colour, float*)
RVOPEN_SET(Background, SetSkyColour, skyColour, Colour, float*)
RVOPEN_GET(Background, GetHorizonSkyColour, horizonSkyColour, Colour, float*)
RVOPEN_SET(Background, SetHorizonSkyColour, horizonSkyColour, Colour, float*)
RVOPEN_GET(Background, GetHorizonGroundColour, horizonGroundColour, Colour, float*)
RVOPEN_SET(Background, SetHorizonGroundColour, horizonGroundColour, Colour, float*)
RVOPEN_GET(Background, GetGroundColour, groundColour, Colour, float*)
RVOPEN_SET(Background, SetGroundColour, groundColour, Colour, float*)
RVOPEN_SET(Background, SetImageBackground, backgroundFileName, String, QString)
RVOPEN_GET_TEXT(Background, GetImageBackground, backgroundFileName)

unsigned int Background::SetImage3DBackground(QString fileName)
{
    return SetImageBackground(fileName);
}

QString Background::GetImage3DBackground()
{
    return GetImageBackground();
}

unsigned int Background::SetReflectionBackground(QString fileName)
{
    return SetImageBackground(fileName);
}

QString Background::GetReflectionBackground()
{
    return GetImageBackground();
}

RVOPEN_SET_OR_NEW(Background, SetImage3DHorizonPosition, horizonPosition, Float, float)

float Background::GetImage3DHorizonPosition()
{
    return floatParam(this, names::parameter::horizonPosition, 0.5f);
}

RVOPEN_SET_OR_NEW(Background, SetImage3DFixedSize, fixedSize, Float, float)

float Background::GetImage3DFixedSize()
{
    return floatParam(this, names::parameter::fixedSize, 0.0f);
}

bool Background::Equal(Background* other)
{
    if (!other || GetSubCat() != other->GetSubCat())
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByArchive(this, other))
        return *decided;
    if (IsPlainColour())
        return haveEqualColour(this, other, names::parameter::colour);
    if (IsGraduated())
        return haveEqualColour(this, other, names::parameter::primaryColour) &&
               haveEqualColour(this, other, names::parameter::secondaryColour);
    if (IsHorizon())
        return areEqualHorizons(this, other);
    if (IsImage() || IsImage3D() || IsReflection())
        return showSameImage(this, other);
    return false;
}

} // namespace rvopen

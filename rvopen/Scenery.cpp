// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Scenery.h>

#include <rvopen/model/ParamAccess.h>

namespace rvopen {

namespace {

constexpr ParamSpec s_params[] = {
    {names::parameter::dropShadow, ParamType::Bool},
    {names::parameter::dropSunlight, ParamType::Bool},
    {names::parameter::dropReflection, ParamType::Bool},
    {names::parameter::dropShadowQuality, ParamType::Int},
    {names::parameter::dropShadowContrast, ParamType::Float},
    {names::parameter::dropSunlightBrightness, ParamType::Float},
    {names::parameter::dropReflectionBrightness, ParamType::Float},
    {names::parameter::dropReflectionBlur, ParamType::Float},
    {names::parameter::baseSize, ParamType::Float},
};

} // namespace

Scenery::Scenery(QDomNode node)
{
    SetDomNode(node);
}

Scenery::Scenery(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Scenery::~Scenery() = default;

void Scenery::PopulateParams()
{
    populateParams(this, s_params);
}

unsigned int Scenery::EnableDropShadow(int enabled)
{
    return onParam(this, names::parameter::dropShadow, &Param::SetValBool, enabled);
}

unsigned int Scenery::GetDropShadowEnabled(int* out)
{
    return onParam(this, names::parameter::dropShadow, &Param::GetValBool, out);
}

unsigned int Scenery::EnableDropSunLight(int enabled)
{
    return onParam(this, names::parameter::dropSunlight, &Param::SetValBool, enabled);
}

unsigned int Scenery::GetDropSunLightEnabled(int* out)
{
    return onParam(this, names::parameter::dropSunlight, &Param::GetValBool, out);
}

unsigned int Scenery::EnableDropReflection(int enabled)
{
    return onParam(this, names::parameter::dropReflection, &Param::SetValBool, enabled);
}

unsigned int Scenery::GetDropReflectionEnabled(int* out)
{
    return onParam(this, names::parameter::dropReflection, &Param::GetValBool, out);
}

unsigned int Scenery::SetDropShadowQuality(int quality)
{
    return onParam(this, names::parameter::dropShadowQuality, &Param::SetValInt, quality);
}

unsigned int Scenery::GetDropShadowQuality(int* out)
{
    return onParam(this, names::parameter::dropShadowQuality, &Param::GetValInt, out);
}

unsigned int Scenery::SetDropShadowContrast(float contrast)
{
    return onParam(this, names::parameter::dropShadowContrast, &Param::SetValFloat, contrast);
}

unsigned int Scenery::GetDropShadowContrast(float* out)
{
    return onParam(this, names::parameter::dropShadowContrast, &Param::GetValFloat, out);
}

unsigned int Scenery::SetDropSunLightBrightness(float brightness)
{
    return onParam(this, names::parameter::dropSunlightBrightness, &Param::SetValFloat, brightness);
}

unsigned int Scenery::GetDropSunLightBrightness(float* out)
{
    return onParam(this, names::parameter::dropSunlightBrightness, &Param::GetValFloat, out);
}

unsigned int Scenery::SetDropReflectionBrightness(float brightness)
{
    return onParam(this, names::parameter::dropReflectionBrightness, &Param::SetValFloat,
                   brightness);
}

unsigned int Scenery::GetDropReflectionBrightness(float* out)
{
    return onParam(this, names::parameter::dropReflectionBrightness, &Param::GetValFloat, out);
}

unsigned int Scenery::SetDropReflectionBlur(float blur)
{
    return onParam(this, names::parameter::dropReflectionBlur, &Param::SetValFloat, blur);
}

unsigned int Scenery::GetDropReflectionBlur(float* out)
{
    return onParam(this, names::parameter::dropReflectionBlur, &Param::GetValFloat, out);
}

unsigned int Scenery::SetBaseSize(float size)
{
    return onParamOrNew(this, {names::parameter::baseSize, ParamType::Float}, &Param::SetValFloat,
                        size);
}

unsigned int Scenery::GetBaseSize(float* out)
{
    return onParamOrDefault(this, names::parameter::baseSize, &Param::GetValFloat, out, 3.0f);
}

unsigned int Scenery::SetDropShadowCatchSpots(int catchSpots)
{
    return onParamOrNew(this, {names::parameter::dropShadowCatchSpots, ParamType::Bool},
                        &Param::SetValBool, catchSpots);
}

unsigned int Scenery::GetDropShadowCatchSpots(int* out)
{
    return onParamOrDefault(this, names::parameter::dropShadowCatchSpots, &Param::GetValBool, out,
                            1);
}

} // namespace rvopen

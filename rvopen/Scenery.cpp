// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Scenery.h>

#include <rvopen/model/Rows.h>

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

RVOPEN_SET(Scenery, EnableDropShadow, dropShadow, Bool, int)
RVOPEN_GET(Scenery, GetDropShadowEnabled, dropShadow, Bool, int*)
RVOPEN_SET(Scenery, EnableDropSunLight, dropSunlight, Bool, int)
RVOPEN_GET(Scenery, GetDropSunLightEnabled, dropSunlight, Bool, int*)
RVOPEN_SET(Scenery, EnableDropReflection, dropReflection, Bool, int)
RVOPEN_GET(Scenery, GetDropReflectionEnabled, dropReflection, Bool, int*)
RVOPEN_SET(Scenery, SetDropShadowQuality, dropShadowQuality, Int, int)
RVOPEN_GET(Scenery, GetDropShadowQuality, dropShadowQuality, Int, int*)
RVOPEN_SET(Scenery, SetDropShadowContrast, dropShadowContrast, Float, float)
RVOPEN_GET(Scenery, GetDropShadowContrast, dropShadowContrast, Float, float*)
RVOPEN_SET(Scenery, SetDropSunLightBrightness, dropSunlightBrightness, Float, float)
RVOPEN_GET(Scenery, GetDropSunLightBrightness, dropSunlightBrightness, Float, float*)
RVOPEN_SET(Scenery, SetDropReflectionBrightness, dropReflectionBrightness, Float, float)
RVOPEN_GET(Scenery, GetDropReflectionBrightness, dropReflectionBrightness, Float, float*)
RVOPEN_SET(Scenery, SetDropReflectionBlur, dropReflectionBlur, Float, float)
RVOPEN_GET(Scenery, GetDropReflectionBlur, dropReflectionBlur, Float, float*)
RVOPEN_SET_OR_NEW(Scenery, SetBaseSize, baseSize, Float, float)

unsigned int Scenery::GetBaseSize(float* out)
{
    return onParamOrDefault(this, names::parameter::baseSize, &Param::GetValFloat, out, 3.0f);
}

RVOPEN_SET_OR_NEW(Scenery, SetDropShadowCatchSpots, dropShadowCatchSpots, Bool, int)

unsigned int Scenery::GetDropShadowCatchSpots(int* out)
{
    return onParamOrDefault(this, names::parameter::dropShadowCatchSpots, &Param::GetValBool, out,
                            1);
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/NaturalLightStudio.h>

#include <rvopen/model/Rows.h>

namespace rvopen {

namespace {

constexpr ParamSpec s_params[] = {
    {names::parameter::enabled, ParamType::Bool},
    {names::parameter::sunAzimuth, ParamType::Float},
    {names::parameter::sunAltitude, ParamType::Float},
};

} // namespace

NaturalLightStudio::NaturalLightStudio(RVOpenNode* source)
    : RVOpenNode(source)
{
}

NaturalLightStudio::~NaturalLightStudio() = default;

void NaturalLightStudio::PopulateParams()
{
    populateParams(this, s_params);
}

RVOPEN_SET(NaturalLightStudio, SetEnabled, enabled, Bool, int)
RVOPEN_GET(NaturalLightStudio, GetEnabled, enabled, Bool, int*)
RVOPEN_SET(NaturalLightStudio, SetSunAzimuth, sunAzimuth, Float, float)
RVOPEN_GET(NaturalLightStudio, GetSunAzimuth, sunAzimuth, Float, float*)
RVOPEN_SET(NaturalLightStudio, SetSunAltitude, sunAltitude, Float, float)
RVOPEN_GET(NaturalLightStudio, GetSunAltitude, sunAltitude, Float, float*)

} // namespace rvopen

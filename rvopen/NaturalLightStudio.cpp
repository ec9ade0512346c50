// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/NaturalLightStudio.h>

#include <rvopen/model/ParamAccess.h>

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

unsigned int NaturalLightStudio::SetEnabled(int enabled)
{
    return onParam(this, names::parameter::enabled, &Param::SetValBool, enabled);
}

unsigned int NaturalLightStudio::GetEnabled(int* out)
{
    return onParam(this, names::parameter::enabled, &Param::GetValBool, out);
}

unsigned int NaturalLightStudio::SetSunAzimuth(float azimuth)
{
    return onParam(this, names::parameter::sunAzimuth, &Param::SetValFloat, azimuth);
}

unsigned int NaturalLightStudio::GetSunAzimuth(float* out)
{
    return onParam(this, names::parameter::sunAzimuth, &Param::GetValFloat, out);
}

unsigned int NaturalLightStudio::SetSunAltitude(float altitude)
{
    return onParam(this, names::parameter::sunAltitude, &Param::SetValFloat, altitude);
}

unsigned int NaturalLightStudio::GetSunAltitude(float* out)
{
    return onParam(this, names::parameter::sunAltitude, &Param::GetValFloat, out);
}

} // namespace rvopen

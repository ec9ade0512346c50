// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ArtificialLightStudio.h>

#include <rvopen/model/ParamAccess.h>

namespace rvopen {

namespace {

constexpr ParamSpec s_params[] = {
    {names::parameter::enabled, ParamType::Bool},
    {names::parameter::intensityScale, ParamType::Float},
};

} // namespace

ArtificialLightStudio::ArtificialLightStudio(RVOpenNode* source)
    : RVOpenNode(source)
{
}

ArtificialLightStudio::~ArtificialLightStudio() = default;

void ArtificialLightStudio::PopulateParams()
{
    populateParams(this, s_params);
}

unsigned int ArtificialLightStudio::SetEnabled(int enabled)
{
    return onParam(this, names::parameter::enabled, &Param::SetValBool, enabled);
}

unsigned int ArtificialLightStudio::GetEnabled(int* out)
{
    return onParam(this, names::parameter::enabled, &Param::GetValBool, out);
}

unsigned int ArtificialLightStudio::SetIntensityScale(float scale)
{
    return onParam(this, names::parameter::intensityScale, &Param::SetValFloat, scale);
}

unsigned int ArtificialLightStudio::GetIntensityScale(float* out)
{
    return onParam(this, names::parameter::intensityScale, &Param::GetValFloat, out);
}

} // namespace rvopen

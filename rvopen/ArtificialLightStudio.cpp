// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ArtificialLightStudio.h>

#include <rvopen/model/Rows.h>

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

RVOPEN_SET(ArtificialLightStudio, SetEnabled, enabled, Bool, int)
RVOPEN_GET(ArtificialLightStudio, GetEnabled, enabled, Bool, int*)
RVOPEN_SET(ArtificialLightStudio, SetIntensityScale, intensityScale, Float, float)
RVOPEN_GET(ArtificialLightStudio, GetIntensityScale, intensityScale, Float, float*)

} // namespace rvopen

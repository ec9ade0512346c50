// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Foreground.h>

#include <rvopen/model/Rows.h>

namespace rvopen {

namespace {

constexpr ParamSpec s_depthCueParams[] = {
    {names::parameter::nearDistance, ParamType::Float},
    {names::parameter::farDistance, ParamType::Float},
    {names::parameter::backgroundColour, ParamType::Colour},
};

} // namespace

Foreground::Foreground(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Foreground::~Foreground() = default;

void Foreground::PopulateParams()
{
    GetParamHelper()->Populate();
    if (IsDepthCue())
        populateParams(this, s_depthCueParams);
}

RVOPEN_IS_KIND(Foreground, IsDepthCue, depthCue)
RVOPEN_GET(Foreground, GetDepthCueBackgroundColour, backgroundColour, Colour, float*)
RVOPEN_GET(Foreground, GetDepthCueNear, nearDistance, Float, float*)
RVOPEN_GET(Foreground, GetDepthCueFar, farDistance, Float, float*)

} // namespace rvopen

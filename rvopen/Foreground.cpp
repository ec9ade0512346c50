// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Foreground.h>

#include <rvopen/model/ParamAccess.h>

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

int Foreground::IsDepthCue() const
{
    return GetSubCat() == names::subCategory::depthCue();
}

unsigned int Foreground::GetDepthCueBackgroundColour(float* const out)
{
    return onParam(this, names::parameter::backgroundColour, &Param::GetValColour, out);
}

unsigned int Foreground::GetDepthCueNear(float* out)
{
    return onParam(this, names::parameter::nearDistance, &Param::GetValFloat, out);
}

unsigned int Foreground::GetDepthCueFar(float* out)
{
    return onParam(this, names::parameter::farDistance, &Param::GetValFloat, out);
}

} // namespace rvopen

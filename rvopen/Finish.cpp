// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Finish.h>

#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/ParamAccess.h>

namespace rvopen {

namespace {

constexpr ParamSpec s_litAppearance[] = {
    {names::parameter::diffuseFactor, ParamType::Float},
    {names::parameter::specularFactor, ParamType::Float},
    {names::parameter::transmissionFactor, ParamType::Float},
    {names::parameter::mirrorFactor, ParamType::Float},
    {names::parameter::roughness, ParamType::Float},
    {names::parameter::refraction, ParamType::Float},
    {names::parameter::lightIntensity, ParamType::Float},
    {names::parameter::objectArea, ParamType::Float, true},
    {names::parameter::objectSize, ParamType::Float, true},
    {names::parameter::lightColour, ParamType::Colour},
};

} // namespace

Finish::Finish(Finish* source)
    : RVOpenNode(source)
{
}

Finish::~Finish() = default;

unsigned int Finish::SetAndPopulateShaderClass(QString shaderClass)
{
    if (shaderClass != names::value::litAppearance())
        return StatusUnknownShaderClass;
    const changes::Block block;
    SetShaderClass(shaderClass);
    for (const ParamSpec& spec : s_litAppearance)
        addParam(this, spec);
    return StatusOk;
}

bool Finish::Equal(Finish* other)
{
    return other && equalByRefName(this, other).value_or(true);
}

} // namespace rvopen

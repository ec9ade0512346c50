// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Bump.h>

#include <rvopen/ShaderColour.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/ParamAccess.h>

namespace rvopen {

Bump::Bump(Bump* source)
    : RVOpenNode(source)
{
}

Bump::~Bump() = default;

unsigned int Bump::GetUseDiffuse(int* out)
{
    return onParam(this, names::parameter::useDiffuse, &Param::GetValBool, out);
}

unsigned int Bump::SetUseDiffuse(int value)
{
    return onParamOrNew(this, {names::parameter::useDiffuse, ParamType::Bool}, &Param::SetValBool,
                        value);
}

unsigned int Bump::GetIsNormalMap(int* out)
{
    return onParam(this, names::parameter::isNormalMap, &Param::GetValBool, out);
}

unsigned int Bump::SetIsNormalMap(int value)
{
    return onParamOrNew(this, {names::parameter::isNormalMap, ParamType::Bool}, &Param::SetValBool,
                        value);
}

unsigned int Bump::GetHeight(float* out)
{
    return onParam(this, names::parameter::height, &Param::GetValFloat, out);
}

unsigned int Bump::SetHeight(float value)
{
    return onParamOrNew(this, {names::parameter::height, ParamType::Float}, &Param::SetValFloat,
                        value);
}

unsigned int Bump::GetSoftness(float* out)
{
    return onParam(this, names::parameter::softness, &Param::GetValFloat, out);
}

unsigned int Bump::SetSoftness(float value)
{
    return onParamOrNew(this, {names::parameter::softness, ParamType::Float}, &Param::SetValFloat,
                        value);
}

ShaderColour* Bump::GetColour()
{
    return shaderColourOrNew(this);
}

bool Bump::Equal(Bump* other)
{
    if (!other)
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByReference(this, other))
        return *decided;
    return equalWhereReadable(this, other, &Bump::GetHeight) &&
           equalWhereReadable(this, other, &Bump::GetSoftness) &&
           equalWhereReadable(this, other, &Bump::GetUseDiffuse) &&
           equalWhereReadable(this, other, &Bump::GetIsNormalMap) &&
           equalOrBothAbsent(GetColour(), other->GetColour());
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Transparency.h>

#include <rvopen/ShaderColour.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/ParamAccess.h>

namespace rvopen {

Transparency::Transparency(Transparency* source)
    : RVOpenNode(source)
{
}

Transparency::~Transparency() = default;

unsigned int Transparency::GetInvertMask(int* out)
{
    return onParam(this, names::parameter::invertMask, &Param::GetValBool, out);
}

unsigned int Transparency::SetInvertMask(int value)
{
    return onParamOrNew(this, {names::parameter::invertMask, ParamType::Bool}, &Param::SetValBool,
                        value);
}

ShaderColour* Transparency::GetColour()
{
    return shaderColourOrNew(this);
}

bool Transparency::Equal(Transparency* other)
{
    if (!other)
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByReference(this, other))
        return *decided;
    return equalWhereReadable(this, other, &Transparency::GetInvertMask) &&
           equalOrBothAbsent(GetColour(), other->GetColour());
}

} // namespace rvopen

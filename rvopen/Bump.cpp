// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Bump.h>

#include <rvopen/ShaderColour.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/Rows.h>

namespace rvopen {

Bump::Bump(Bump* source)
    : RVOpenNode(source)
{
}

Bump::~Bump() = default;

RVOPEN_GET(Bump, GetUseDiffuse, useDiffuse, Bool, int*)
RVOPEN_SET_OR_NEW(Bump, SetUseDiffuse, useDiffuse, Bool, int)
RVOPEN_GET(Bump, GetIsNormalMap, isNormalMap, Bool, int*)
RVOPEN_SET_OR_NEW(Bump, SetIsNormalMap, isNormalMap, Bool, int)
RVOPEN_GET(Bump, GetHeight, height, Float, float*)
RVOPEN_SET_OR_NEW(Bump, SetHeight, height, Float, float)
RVOPEN_GET(Bump, GetSoftness, softness, Float, float*)
RVOPEN_SET_OR_NEW(Bump, SetSoftness, softness, Float, float)

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

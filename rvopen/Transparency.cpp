// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Transparency.h>

#include <rvopen/ShaderColour.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/Rows.h>

namespace rvopen {

Transparency::Transparency(Transparency* source)
    : RVOpenNode(source)
{
}

Transparency::~Transparency() = default;

RVOPEN_GET(Transparency, GetInvertMask, invertMask, Bool, int*)
RVOPEN_SET_OR_NEW(Transparency, SetInvertMask, invertMask, Bool, int)

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

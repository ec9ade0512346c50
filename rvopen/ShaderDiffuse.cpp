// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ShaderDiffuse.h>

#include <rvopen/ShaderColour.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Components.h>

namespace rvopen {

ShaderDiffuse::ShaderDiffuse() = default;

ShaderDiffuse::~ShaderDiffuse() = default;

ShaderColour* ShaderDiffuse::GetColour()
{
    return shaderColourOrNew(this);
}

bool ShaderDiffuse::Equal(ShaderDiffuse* other)
{
    if (!other)
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByArchive(this, other))
        return *decided;
    ShaderColour* const colour = GetColour();
    ShaderColour* const otherColour = other->GetColour();
    return colour && colour->Equal(otherColour);
}

} // namespace rvopen

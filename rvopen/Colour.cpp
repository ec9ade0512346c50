// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Colour.h>

#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Components.h>

namespace rvopen {

Colour::Colour(Colour* source)
    : RVOpenNode(source)
{
}

Colour::~Colour() = default;

ShaderDiffuse* Colour::GetDiffuse()
{
    return childOrNewEnabled(this, s_diffuse, 1);
}

unsigned int Colour::SetDiffuse(ShaderDiffuse* diffuse)
{
    replaceChild(this, findAmongAll(this, s_diffuse), diffuse);
    return StatusOk;
}

bool Colour::Equal(Colour* other)
{
    if (!other)
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByReference(this, other))
        return *decided;
    ShaderDiffuse* const diffuse = GetDiffuse();
    ShaderDiffuse* const otherDiffuse = other->GetDiffuse();
    return diffuse && diffuse->Equal(otherDiffuse);
}

} // namespace rvopen

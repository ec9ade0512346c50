// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ShaderColour.h>

#include <rvopen/RVOpenSchema.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/Names.h>

namespace rvopen {

namespace {

constexpr ChildKind<ShaderPlainColour> s_plainColour{RVOpenSchema::isNodeShaderPlainColour,
                                                     names::element::plainColour};
constexpr ChildKind<ShaderMap> s_map{RVOpenSchema::isNodeShaderMap, names::element::map};

} // namespace

ShaderColour::ShaderColour() = default;

ShaderColour::~ShaderColour() = default;

ShaderPlainColour* ShaderColour::GetPlainColour(int create)
{
    return childOrNewEnabled(this, s_plainColour, create);
}

ShaderMap* ShaderColour::GetMap(int create)
{
    return childOrNewEnabled(this, s_map, create);
}

bool ShaderColour::Equal(ShaderColour* other)
{
    if (!other)
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByArchive(this, other))
        return *decided;
    ShaderPlainColour* const plain = GetPlainColour(0);
    ShaderMap* const map = GetMap(0);
    return (plain || map) && equalOrBothAbsent(plain, other->GetPlainColour(0)) &&
           equalOrBothAbsent(map, other->GetMap(0));
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Material.h>

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/Transparency.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeCast.h>

namespace rvopen {

namespace {

constexpr ChildKind<Colour> s_colour{RVOpenSchema::isNodeColour, names::element::colour};
constexpr ChildKind<Finish> s_finish{RVOpenSchema::isNodeFinish, names::element::finish};
constexpr ChildKind<Transparency> s_transparency{RVOpenSchema::isNodeTransparency,
                                                 names::element::transparency};
constexpr ChildKind<Bump> s_bump{RVOpenSchema::isNodeBump, names::element::bump};
constexpr ChildKind<Material> s_baseMaterial{RVOpenSchema::isNodeMaterial,
                                             names::element::material};

/// The component of the base material for one that lacks it.
template <typename Component>
void inherit(Material* material, const ChildKind<Component>& kind, Material* base)
{
    if (!findAmongAll<Component>(material, kind))
        material->AddNode(cloneOf(findChild<Component>(base, kind)), true);
}

} // namespace

Material::Material(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Material::~Material()
{
    NodeAccess::endReferences(this);
    if (!NodeAccess::leavesDocument(this))
        removeOwnChild(this, names::element::material);
}

Material* Material::GetNext()
{
    return nodeCast<Material>(GetNext(1));
}

QString Material::GetLinkName() const
{
    return NodeAccess::attribute(this, names::attribute::linkName());
}

void Material::SetLinkName(QString linkName)
{
    NodeAccess::setAttribute(this, names::attribute::linkName(), linkName);
}

Colour* Material::GetColour(int create)
{
    return childOrNew(this, s_colour, create);
}

Finish* Material::GetFinish()
{
    return findChild(this, s_finish);
}

Transparency* Material::GetTransparency(int create)
{
    return childOrNew(this, s_transparency, create);
}

Bump* Material::GetBump(int create)
{
    return childOrNew(this, s_bump, create);
}

Material* Material::GetBaseMaterial()
{
    return findChild(this, s_baseMaterial);
}

void Material::SetColour(Colour* colour)
{
    Colour* const current = findAmongAll(this, s_colour);
    if (colour != current)
        replaceChild(this, current, colour);
}

void Material::SetFinish(Finish* finish)
{
    replaceChild(this, findAmongAll(this, s_finish), finish);
}

void Material::SetTransparency(Transparency* transparency)
{
    Transparency* const current = findAmongAll(this, s_transparency);
    if (transparency != current)
        replaceChild(this, current, transparency);
}

void Material::SetBump(Bump* bump)
{
    replaceChild(this, findAmongAll(this, s_bump), bump);
}

void Material::SetBaseMaterial(Material* baseMaterial)
{
    replaceChild(this, findAmongAll(this, s_baseMaterial), baseMaterial);
}

bool Material::Equal(Material* other, bool compareBase)
{
    if (!other)
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByReference(this, other))
        return *decided;
    if (!equalOrBothAbsent(GetColour(0), other->GetColour(0)) ||
        !equalOrBothAbsent(GetFinish(), other->GetFinish()) ||
        !equalOrBothAbsent(GetBump(0), other->GetBump(0)) ||
        !equalOrBothAbsent(GetTransparency(0), other->GetTransparency(0)))
        return false;
    return !compareBase || equalOrBothAbsent(GetBaseMaterial(), other->GetBaseMaterial(), false);
}

void Material::ConsolidateBaseMaterial()
{
    Material* const base = GetBaseMaterial();
    if (!base)
        return;
    const changes::Block block;
    inherit(this, s_colour, base);
    inherit(this, s_finish, base);
    inherit(this, s_transparency, base);
    inherit(this, s_bump, base);
    SetBaseMaterial(nullptr);
}

} // namespace rvopen

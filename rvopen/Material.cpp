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

Material::Material(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Material::~Material()
{
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
    return childOrNew(this, RVOpenSchema::isNodeColour, names::element::colour, create);
}

Finish* Material::GetFinish()
{
    return findChild(this, RVOpenSchema::isNodeFinish);
}

Transparency* Material::GetTransparency(int create)
{
    return childOrNew(this, RVOpenSchema::isNodeTransparency, names::element::transparency, create);
}

Bump* Material::GetBump(int create)
{
    return childOrNew(this, RVOpenSchema::isNodeBump, names::element::bump, create);
}

Material* Material::GetBaseMaterial()
{
    return findChild(this, RVOpenSchema::isNodeMaterial);
}

void Material::SetColour(Colour* colour)
{
    Colour* const current = GetColour(0);
    if (colour != current)
        replaceChild(this, current, colour);
}

void Material::SetFinish(Finish* finish)
{
    replaceChild(this, GetFinish(), finish);
}

void Material::SetTransparency(Transparency* transparency)
{
    Transparency* const current = GetTransparency(0);
    if (transparency != current)
        replaceChild(this, current, transparency);
}

void Material::SetBump(Bump* bump)
{
    replaceChild(this, GetBump(0), bump);
}

void Material::SetBaseMaterial(Material* baseMaterial)
{
    replaceChild(this, GetBaseMaterial(), baseMaterial);
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
    if (!GetColour(0))
        SetColour(cloneOf(base->GetColour(0)));
    if (!GetFinish())
        SetFinish(cloneOf(base->GetFinish()));
    if (!GetTransparency(0))
        SetTransparency(cloneOf(base->GetTransparency(0)));
    if (!GetBump(0))
        SetBump(cloneOf(base->GetBump(0)));
    SetBaseMaterial(nullptr);
}

} // namespace rvopen

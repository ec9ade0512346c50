// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/TemporaryItems.h>

#include <rvopen/Bump.h>
#include <rvopen/ChildComponents.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/Names.h>
#include <rvopen/Transparency.h>

namespace rvopen {

namespace {

template <typename Component>
void hold(Component*& held, Component* component)
{
    if (component == held)
        return;
    delete held;
    held = cloneOf(component);
}

} // namespace

TemporaryItems::TemporaryItems() = default;

TemporaryItems::TemporaryItems(const TemporaryItems& other) = default;

TemporaryItems& TemporaryItems::operator=(const TemporaryItems& other) = default;

TemporaryItems::~TemporaryItems()
{
    delete m_material;
    delete m_colour;
    delete m_finish;
    delete m_transparency;
    delete m_bump;
}

Material* TemporaryItems::GetMaterial() const
{
    return m_material;
}

void TemporaryItems::SetMaterial(Material* material)
{
    Material* const copy = cloneOf(material);
    delete m_material;
    m_material = copy;
    // Only what is in the copy itself: where the original stands for an archive, that stays whole.
    if (copy)
        removeOwnChild(copy, names::element::material);
}

Colour* TemporaryItems::GetColour() const
{
    return m_colour;
}

void TemporaryItems::SetColour(Colour* colour)
{
    hold(m_colour, colour);
}

Finish* TemporaryItems::GetFinish() const
{
    return m_finish;
}

void TemporaryItems::SetFinish(Finish* finish)
{
    hold(m_finish, finish);
}

Transparency* TemporaryItems::GetTransparency() const
{
    return m_transparency;
}

void TemporaryItems::SetTransparency(Transparency* transparency)
{
    hold(m_transparency, transparency);
}

Bump* TemporaryItems::GetBump() const
{
    return m_bump;
}

void TemporaryItems::SetBump(Bump* bump)
{
    hold(m_bump, bump);
}

QString TemporaryItems::GetRefname() const
{
    return m_refName;
}

void TemporaryItems::SetRefName(QString refName)
{
    m_refName = refName;
}

TemporaryItems::ComponentType TemporaryItems::GetType() const
{
    return m_type;
}

void TemporaryItems::SetType(ComponentType type)
{
    m_type = type;
}

bool TemporaryItems::IsEmpty() const
{
    return !m_colour && !m_finish && !m_bump && !m_transparency && m_refName.isEmpty();
}

} // namespace rvopen

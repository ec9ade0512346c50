// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/TemporaryItems.h>

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/Transparency.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/Names.h>

namespace rvopen {

namespace {

/// The copy is made first: what is copied may be what is held.
template <typename Component>
void hold(std::shared_ptr<Component>& held, Component* component)
{
    held.reset(cloneOf(component));
}

template <typename Component>
void holdUnlessHeld(std::shared_ptr<Component>& held, Component* component)
{
    if (component != held.get())
        hold(held, component);
}

} // namespace

TemporaryItems::TemporaryItems() = default;

TemporaryItems::TemporaryItems(const TemporaryItems& other) = default;

TemporaryItems& TemporaryItems::operator=(const TemporaryItems& other) = default;

TemporaryItems::~TemporaryItems() = default;

Material* TemporaryItems::GetMaterial() const
{
    return m_material.get();
}

void TemporaryItems::SetMaterial(Material* material)
{
    hold(m_material, material);
    // Only what is in the copy itself: where the original stands for an archive, that stays whole.
    if (m_material)
        removeOwnChild(m_material.get(), names::element::material);
}

Colour* TemporaryItems::GetColour() const
{
    return m_colour.get();
}

void TemporaryItems::SetColour(Colour* colour)
{
    holdUnlessHeld(m_colour, colour);
}

Finish* TemporaryItems::GetFinish() const
{
    return m_finish.get();
}

void TemporaryItems::SetFinish(Finish* finish)
{
    holdUnlessHeld(m_finish, finish);
}

Transparency* TemporaryItems::GetTransparency() const
{
    return m_transparency.get();
}

void TemporaryItems::SetTransparency(Transparency* transparency)
{
    holdUnlessHeld(m_transparency, transparency);
}

Bump* TemporaryItems::GetBump() const
{
    return m_bump.get();
}

void TemporaryItems::SetBump(Bump* bump)
{
    holdUnlessHeld(m_bump, bump);
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

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
#include <rvopen/model/HeldObject.h>
#include <rvopen/model/Names.h>

namespace rvopen {

namespace {

/// The copy is made first: what is copied may be what is held.
template <typename Component>
using Item = std::shared_ptr<HeldObject<Component, ObjectDeleter>>;

template <typename Component>
Component* heldIn(const Item<Component>& item)
{
    return item ? item->get() : nullptr;
}

template <typename Component>
void hold(Item<Component>& item, Component* component)
{
    Component* const copy = cloneOf(component);
    item = copy ? std::make_shared<HeldObject<Component, ObjectDeleter>>(copy) : nullptr;
}

template <typename Component>
void holdUnlessHeld(Item<Component>& item, Component* component)
{
    if (!component || component != heldIn(item))
        hold(item, component);
}

} // namespace

TemporaryItems::TemporaryItems() = default;

TemporaryItems::TemporaryItems(const TemporaryItems& other) = default;

TemporaryItems& TemporaryItems::operator=(const TemporaryItems& other) = default;

TemporaryItems::~TemporaryItems() = default;

Material* TemporaryItems::GetMaterial() const
{
    return heldIn(m_material);
}

void TemporaryItems::SetMaterial(Material* material)
{
    hold(m_material, material);
    // Only what is in the copy itself: where the original stands for an archive, that stays whole.
    if (Material* const copy = heldIn(m_material))
        removeOwnChild(copy, names::element::material);
}

Colour* TemporaryItems::GetColour() const
{
    return heldIn(m_colour);
}

void TemporaryItems::SetColour(Colour* colour)
{
    holdUnlessHeld(m_colour, colour);
}

Finish* TemporaryItems::GetFinish() const
{
    return heldIn(m_finish);
}

void TemporaryItems::SetFinish(Finish* finish)
{
    holdUnlessHeld(m_finish, finish);
}

Transparency* TemporaryItems::GetTransparency() const
{
    return heldIn(m_transparency);
}

void TemporaryItems::SetTransparency(Transparency* transparency)
{
    holdUnlessHeld(m_transparency, transparency);
}

Bump* TemporaryItems::GetBump() const
{
    return heldIn(m_bump);
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
    return !GetColour() && !GetFinish() && !GetBump() && !GetTransparency() && m_refName.isEmpty();
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/TemporaryItems.h>

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/Transparency.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/HeldObject.h>
#include <rvopen/model/Names.h>

/// Definitions of a component's getter and setter, a row each.
#define RVOPEN_ITEM(Component, item)                                                               \
    Component* TemporaryItems::Get##Component() const                                              \
    {                                                                                              \
        return heldIn(item);                                                                       \
    }                                                                                              \
    void TemporaryItems::Set##Component(Component* component)                                      \
    {                                                                                              \
        holdUnlessHeld(item, component);                                                           \
    }

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
    const changes::Block block;
    hold(m_material, material);
    // Only what is in the copy itself: where the original stands for an archive, that stays whole.
    if (Material* const copy = heldIn(m_material))
        removeOwnChild(copy, names::element::material);
}

RVOPEN_ITEM(Colour, m_colour)
RVOPEN_ITEM(Finish, m_finish)
RVOPEN_ITEM(Transparency, m_transparency)
RVOPEN_ITEM(Bump, m_bump)

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

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <QDomElement>

/// Components that a node keeps as child elements, the first one of each kind being the one that
/// counts.
namespace rvopen {

/// A kind of component: the test of RVOpenSchema for it and the name of its elements.
template <typename Component>
struct ChildKind {
    Component* (*isKind)(RVOpenNode*);
    names::Name elementName;
};

inline constexpr ChildKind<ShaderColour> s_shaderColour{RVOpenSchema::isNodeShaderColour,
                                                        names::element::param};
inline constexpr ChildKind<ShaderDiffuse> s_diffuse{RVOpenSchema::isNodeShaderDiffuse,
                                                    names::element::diffuse};

/// The first child of the kind that a walk comes to, or null. A null owner has none.
template <typename Component>
Component* findChild(RVOpenNode* owner, const ChildKind<Component>& kind)
{
    if (!owner)
        return nullptr;
    // All children at once: look-ups of the owner's parameters see only the objects that exist.
    owner->GetParamHelper()->Populate();
    for (RVOpenNode* child = owner->GetChild(1, 1); child; child = child->GetNext(1)) {
        if (Component* const found = kind.isKind(child))
            return found;
    }
    return nullptr;
}

/// The first of the kind among all child elements, also where no walk comes to it, since a walk
/// ends at a child that has no class. Who would create or replace a component asks this, so that a
/// document that is loaded, set and saved does not grow.
template <typename Component>
Component* findAmongAll(RVOpenNode* owner, const ChildKind<Component>& kind)
{
    if (Component* const found = findChild(owner, kind))
        return found;
    const RVOpenNode* const holder = NodeAccess::childOwner(owner);
    QDomElement element =
        holder ? holder->GetDomNode().firstChildElement(kind.elementName()) : QDomElement();
    for (; !element.isNull(); element = element.nextSiblingElement(kind.elementName())) {
        RVOpenNode* const made = NodeAccess::make(element);
        if (Component* const found = kind.isKind(made)) {
            NodeAccess::placeView(owner, found);
            return found;
        }
        NodeAccess::dropView(made);
    }
    return nullptr;
}

/// As findChild(); with \p create not zero as findAmongAll(), and where there is none, a new one
/// with an element of its own, set up by \p prepare, is appended. Null, with nothing added, when
/// memory is exhausted or the owner stands for an archive that cannot be opened.
template <typename Component, typename Prepare>
Component* childOrNew(RVOpenNode* owner, const ChildKind<Component>& kind, int create,
                      Prepare prepare)
{
    Component* const found = create ? findAmongAll(owner, kind) : findChild(owner, kind);
    if (found || !create || !NodeAccess::childOwner(owner))
        return found;
    const changes::Block block;
    Component* const made = newElement<Component>(owner, kind.elementName);
    if (!made)
        return nullptr;
    prepare(*made);
    owner->AddNode(made, true);
    return made;
}

template <typename Component>
Component* childOrNew(RVOpenNode* owner, const ChildKind<Component>& kind, int create)
{
    return childOrNew(owner, kind, create, [](Component&) {});
}

/// As childOrNew(); a new child is marked as enabled.
template <typename Component>
Component* childOrNewEnabled(RVOpenNode* owner, const ChildKind<Component>& kind, int create)
{
    return childOrNew(owner, kind, create, [](Component& made) { made.SetEnabled(1); });
}

/// The first shader colour among the children; a new one, named "Colour", where there is none.
inline ShaderColour* shaderColourOrNew(RVOpenNode* owner)
{
    return childOrNew(owner, s_shaderColour, 1, [](ShaderColour& made) {
        made.SetName(names::parameter::colour());
        made.SetTypeShader(names::paramType::colour());
    });
}

/// True when deleting \p node deletes \p wanted too. \p wanted is not looked into: it may have been
/// detached from a parent that is gone.
inline bool deletesAlong(const RVOpenNode* node, const RVOpenNode* wanted)
{
    if (node == wanted)
        return true;
    for (const RVOpenNode* child = NodeAccess::firstChild(node); child;
         child = NodeAccess::next(child)) {
        if (deletesAlong(child, wanted))
            return true;
    }
    return false;
}

/// Deletes \p current, which findAmongAll() gave, and appends \p replacement, which may be null or
/// belong to \p current: a copy of it goes in then. An archive that \p current stands for stays.
template <typename Component>
void replaceChild(RVOpenNode* owner, Component* current, Component* replacement)
{
    const changes::Block block;
    if (current) {
        if (replacement && deletesAlong(current, replacement))
            replacement = cloneOf(replacement);
        NodeAccess::removeChild(owner, current);
    }
    owner->AddNode(replacement, true);
}

/// Takes the first child element of that name out of the node's own element, together with its
/// object. No archive is opened for it and no archive's file is deleted.
inline void removeOwnChild(RVOpenNode* owner, names::Name elementName)
{
    const QDomElement wanted = owner->GetDomNode().firstChildElement(elementName());
    if (wanted.isNull())
        return;
    if (RVOpenNode* const child = NodeAccess::viewOf(owner, wanted)) {
        NodeAccess::detachOwn(owner, child);
        delete child;
    } else {
        changes::remove(wanted);
    }
}

} // namespace rvopen

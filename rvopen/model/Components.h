// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <QDomElement>

/// Components that a node keeps as child elements, the first one of each kind being the one that
/// counts.
namespace rvopen {

/// One of the kind tests of RVOpenSchema.
template <typename Component>
using KindTest = Component* (*)(RVOpenNode*);

/// The first child of the kind, or null. A null owner has none.
template <typename Component>
Component* findChild(RVOpenNode* owner, KindTest<Component> isKind)
{
    if (!owner)
        return nullptr;
    // All children at once: look-ups of the owner's parameters see only the objects that exist.
    owner->GetParamHelper()->Populate();
    for (RVOpenNode* child = owner->GetChild(1, 1); child; child = child->GetNext(1)) {
        if (Component* const found = isKind(child))
            return found;
    }
    return nullptr;
}

/// The first child of the kind. Where there is none and \p create is not zero, a new one with an
/// element of the given name, set up by \p prepare, is appended. Null, with nothing added, when
/// memory is exhausted or the owner stands for an archive that cannot be opened.
template <typename Component, typename Prepare>
Component* childOrNew(RVOpenNode* owner, KindTest<Component> isKind, names::Name elementName,
                      int create, Prepare prepare)
{
    if (Component* const found = findChild(owner, isKind))
        return found;
    if (!create || !NodeAccess::childOwner(owner))
        return nullptr;
    Component* const made = newElement<Component>(owner, elementName);
    if (!made)
        return nullptr;
    prepare(*made);
    owner->AddNode(made, true);
    return made;
}

template <typename Component>
Component* childOrNew(RVOpenNode* owner, KindTest<Component> isKind, names::Name elementName,
                      int create)
{
    return childOrNew(owner, isKind, elementName, create, [](Component&) {});
}

/// As childOrNew(); a new child is marked as enabled.
template <typename Component>
Component* childOrNewEnabled(RVOpenNode* owner, KindTest<Component> isKind, names::Name elementName,
                             int create)
{
    return childOrNew(owner, isKind, elementName, create,
                      [](Component& made) { made.SetEnabled(1); });
}

/// The first shader colour among the children; a new one, named "Colour", where there is none.
inline ShaderColour* shaderColourOrNew(RVOpenNode* owner)
{
    return childOrNew(owner, RVOpenSchema::isNodeShaderColour, names::element::param, 1,
                      [](ShaderColour& made) {
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

/// Deletes \p current, a child of \p owner or null, and appends \p replacement, which may be null
/// or belong to \p current: a copy of it goes in then. An archive that \p current stands for stays.
template <typename Component>
void replaceChild(RVOpenNode* owner, Component* current, Component* replacement)
{
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
    QDomNode element = owner->GetDomNode();
    const QDomElement wanted = element.firstChildElement(elementName());
    if (wanted.isNull())
        return;
    for (RVOpenNode* child = NodeAccess::firstChild(owner); child;
         child = NodeAccess::next(child)) {
        if (child->GetDomNode() == wanted) {
            NodeAccess::detachOwn(owner, child);
            delete child;
            return;
        }
    }
    element.removeChild(wanted);
}

} // namespace rvopen

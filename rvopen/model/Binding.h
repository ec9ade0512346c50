// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <QDomDocument>
#include <QDomElement>

#include <type_traits>

/// Making objects over nodes of a document. Each belongs to the caller, and is null when memory is
/// exhausted.
namespace rvopen {

/// A new object of the class, bound to \p node, which may be an element as well. Classes that read
/// their element when they are made have done so.
template <typename Class, typename Node>
Class* newBound(const Node& node)
{
    if constexpr (std::is_constructible_v<Class, QDomNode>) {
        return new Class(node);
    } else {
        Class* object = nullptr;
        if constexpr (std::is_default_constructible_v<Class>)
            object = new Class();
        else
            object = new Class(nullptr);
        if (object)
            NodeAccess::bind(object, node);
        return object;
    }
}

/// A new object with an element of its own in that document, standing nowhere yet.
template <typename Class>
Class* newElement(QDomDocument document, names::Name elementName)
{
    return newBound<Class>(document.createElement(elementName()));
}

/// The same in the document of \p owner.
template <typename Class>
Class* newElement(const RVOpenNode* owner, names::Name elementName)
{
    return newElement<Class>(owner->GetDomNode().ownerDocument(), elementName);
}

/// A free-standing deep copy with the objects that the class's own clone constructor makes. Null
/// for null.
template <typename Class>
Class* cloneOf(Class* source)
{
    if (!source)
        return nullptr;
    if constexpr (std::is_constructible_v<Class, RVOpenNode*>)
        return new Class(static_cast<RVOpenNode*>(source));
    else if constexpr (std::is_constructible_v<Class, Class*>)
        return new Class(source);
    else
        return newBound<Class>(RVOpenNode(source).GetDomNode());
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/model/FoundNodes.h>
#include <rvopen/model/LookUp.h>
#include <rvopen/model/NodeAccess.h>

#include <QDomNode>

namespace rvopen {

/// A place in the chain of a node's children. Everything up to it stands in document order.
class ChildChainPlace {
public:
    explicit ChildChainPlace(RVOpenNode* owner)
        : m_owner(owner)
        , m_element(owner->GetDomNode())
    {
    }

    /// Moves to the object that is bound to \p child, taking it here from further along the chain
    /// where it does not come next. False, with the place at the end of the objects that stand for
    /// no child of the element, when there is none.
    bool moveTo(const QDomNode& child)
    {
        while (next() && next()->GetDomNode() != child && isForeign(next()))
            m_last = next();
        if (!next() || (next()->GetDomNode() != child && !bringForward(child)))
            return false;
        m_last = next();
        return true;
    }

    /// Links \p node here and moves to it.
    void insert(RVOpenNode* node)
    {
        node->SetParent(m_owner);
        NodeAccess::link(m_owner, m_last, node);
        m_last = node;
    }

private:
    RVOpenNode* next() const
    {
        return m_last ? NodeAccess::next(m_last) : NodeAccess::firstChild(m_owner);
    }

    bool isForeign(const RVOpenNode* node) const
    {
        return node->GetDomNode().parentNode() != m_element;
    }

    bool bringForward(const QDomNode& child)
    {
        RVOpenNode* found = NodeAccess::next(next());
        while (found && found->GetDomNode() != child)
            found = NodeAccess::next(found);
        if (!found)
            return false;
        NodeAccess::unlink(found);
        NodeAccess::link(m_owner, m_last, found);
        FoundNodes::childrenChanged(m_owner);
        return true;
    }

    RVOpenNode* m_owner;
    QDomNode m_element;
    RVOpenNode* m_last = nullptr; ///< Null: before the first child.
};

/// Gives every child node of \p owner's element but blank text its object, in document order.
///
/// Objects that are there already are kept. \p make is called as make(QDomNode) for a child without
/// object and returns a new object bound to it, which becomes a child of \p owner, or null to stop.
/// Objects whose element is no child of \p owner's element stay in the chain where they are.
///
/// Linear while the chain follows the document; a child whose object is missing or out of order
/// costs a search of the rest of the chain.
template <typename Make>
void populateChildren(RVOpenNode* owner, Make make)
{
    NodeAccess::skipBlanks(owner);
    ChildChainPlace place(owner);
    for (QDomNode child = owner->GetDomNode().firstChild(); !child.isNull();
         child = child.nextSibling()) {
        if (isBlankText(child) || place.moveTo(child))
            continue;
        RVOpenNode* const made = make(child);
        if (!made)
            return;
        place.insert(made);
    }
}

} // namespace rvopen

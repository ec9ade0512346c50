// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/FoundNodes.h>
#include <rvopen/model/HeldObject.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeAside.h>

namespace rvopen {

void NodeAccess::setFirstChild(RVOpenNode* node, RVOpenNode* child)
{
    if (node->m_firstChild && !node->m_sharesChild)
        node->m_firstChild->cut();
    node->m_sharesChild = 0;
    node->m_firstChild = nullptr;
    if (child)
        node->own(child);
}

RVOpenNode* NodeAccess::viewOf(const RVOpenNode* owner, const QDomNode& element)
{
    RVOpenNode* view = owner->m_firstChild;
    while (view && view->m_node != element)
        view = view->m_next;
    return view;
}

void NodeAccess::placeView(RVOpenNode* node, RVOpenNode* view)
{
    RVOpenNode* const owner = childOwner(node);
    retireView(owner, view->m_node);
    RVOpenNode* previous = nullptr;
    for (QDomNode before = view->m_node.previousSibling(); !previous && !before.isNull();
         before = before.previousSibling())
        previous = viewOf(owner, before);
    view->showParent(owner);
    link(owner, previous, view);
    FoundNodes::childrenChanged(owner);
    node->shareChildrenOf(owner);
}

RVOpenNode* NodeAccess::retireView(RVOpenNode* owner, const QDomNode& element)
{
    RVOpenNode* const view = owner->m_sharesChild ? nullptr : viewOf(owner, element);
    if (view) {
        view->unlink();
        owner->keep(view);
    }
    return view;
}

void NodeAccess::holdComponent(RVOpenNode* snapShot, RVOpenNode* component)
{
    component->showParent(nullptr);
    component->setHolder(snapShot, RVOpenNode::HeldAside);
}

void NodeAccess::withdraw(RVOpenNode* node)
{
    changes::Removal removal(node->m_node);
    RVOpenNode* const snapShot = node->m_heldAs == RVOpenNode::HeldAside ? node->holder() : nullptr;
    node->takeOut();
    if (snapShot)
        retireView(snapShot, node->m_node);
    removal.carryOut();
}

void NodeAccess::remake(RVOpenNode* owner, RVOpenNode* previous, const QDomNode& element)
{
    // Making the object may lead to the link that it is made for, as it may in a walk.
    const auto mark = [&](quint32 value) {
        if (previous)
            previous->m_makesNext = value & 1U;
        else
            owner->m_makesChild = value & 1U;
    };
    mark(1);
    RVOpenNode* const made = make(element);
    mark(0);
    if (!made)
        return;
    made->showParent(owner);
    link(owner, previous, made);
}

bool RVOpenNode::canTake(const RVOpenNode* child) const
{
    if (!child)
        return false;
    for (const RVOpenNode* node = this; node; node = node->holder()) {
        if (node == child)
            return false;
    }
    // The element may stand above this one where no object knows it.
    if (!child->m_node.hasChildNodes())
        return true;
    QDomNode node = m_node;
    while (!node.isNull() && node != child->m_node)
        node = node.parentNode();
    return node.isNull();
}

bool RVOpenNode::standsOutside(const RVOpenNode* parent) const
{
    return !m_node.parentNode().isNull() &&
           m_node.ownerDocument() != parent->m_node.ownerDocument();
}

/// True when deleting \p other would delete this node, or when it comes before this node.
bool RVOpenNode::belongsTo(const RVOpenNode* other) const
{
    if (other->m_next && !other->m_sharesNext && m_heldAs == HeldInChain) {
        for (const RVOpenNode* node = this; node != chainOwner()->m_firstChild;) {
            node = node->m_previous;
            if (node == other)
                return true;
        }
    }
    const RVOpenNode* top = this;
    for (const RVOpenNode* node = this; node; node = node->holder()) {
        if (node == other)
            return true;
        top = node;
    }
    if (!other->m_next)
        return false;
    while (top && top != other)
        top = top->m_previous;
    return top != nullptr;
}

/// Takes a node that is to become a child out of wherever it is. Its element comes with it unless
/// that stands in another document, which is answered with false: the chain that it stays in gets
/// another object for it.
bool RVOpenNode::fetch(RVOpenNode* child)
{
    // What the child has behind it may have this node in it, which then goes on alone.
    if (child->m_next && !child->m_previous && child->m_heldAs != HeldInChain && belongsTo(child)) {
        RVOpenNode* top = this;
        while (RVOpenNode* const holder = top->holder())
            top = holder;
        top->cut();
    }
    if (child->m_node.parentNode().isNull()) {
        child->takeOut();
        return true;
    }
    if (!child->standsOutside(this)) {
        const bool isTwin = child->chainOwner() != this && child->m_node.parentNode() == m_node;
        const QDomNode element = child->m_node;
        NodeAccess::withdraw(child);
        if (isTwin)
            NodeAccess::retireView(this, element);
        return true;
    }
    RVOpenNode* const holder = child->holder();
    RVOpenNode* const owner = child->chainOwner();
    RVOpenNode* const previous =
        owner && owner->m_firstChild == child ? nullptr : child->m_previous;
    child->takeOut();
    if (holder || previous)
        NodeAccess::restoreView(holder, owner, previous, child->m_node);
    return false;
}

/// Where this is a copy that shows the children of another object.
void RVOpenNode::shareChildrenOf(const RVOpenNode* owner)
{
    if (m_sharesChild && owner != this)
        m_firstChild = owner->m_firstChild;
}

bool RVOpenNode::isHeldByNode() const
{
    return m_heldAs == HeldInChain || m_heldAs == HeldAside;
}

/// The object that this one belongs to, alive as long as it does: the node whose chain it is in or
/// the snapshot whose component it is.
RVOpenNode* RVOpenNode::holder() const
{
    if (!isHeldByNode())
        return nullptr;
    return m_hasAside ? m_aside->holder : m_parent;
}

RVOpenNode* RVOpenNode::chainOwner() const
{
    return m_heldAs == HeldInChain ? holder() : nullptr;
}

/// What the host is shown as parent stays as it is.
void RVOpenNode::setHolder(RVOpenNode* holder, HeldAs as)
{
    RVOpenNode* const parent = shownParent();
    m_heldAs = as & 3U;
    if (m_hasAside)
        m_aside->holder = holder;
    else if (parent == (as == HeldInChain ? holder : nullptr))
        m_parent = holder;
    else
        aside()->holder = holder;
}

void RVOpenNode::clearHolder()
{
    if (m_hasAside)
        m_aside->holder = nullptr;
    else if (m_heldAs == HeldAside)
        m_parent = nullptr;
    m_heldAs = HeldByNobody;
}

RVOpenNode::Aside* RVOpenNode::aside()
{
    if (!m_hasAside) {
        auto* const made = new Aside;
        made->parent = m_heldAs == HeldAside ? nullptr : m_parent;
        made->holder = isHeldByNode() ? m_parent : nullptr;
        m_aside = made;
        m_hasAside = 1;
    }
    return m_aside;
}

RVOpenNode* RVOpenNode::shownParent() const
{
    if (m_hasAside)
        return m_aside->parent;
    return m_heldAs == HeldAside ? nullptr : m_parent;
}

void RVOpenNode::showParent(RVOpenNode* parent)
{
    if (parent == shownParent())
        return;
    if (m_hasAside || isHeldByNode())
        aside()->parent = parent;
    else
        m_parent = parent;
}

/// The last of the objects that were made in the chain of a node's children, of which this is the
/// first.
RVOpenNode* RVOpenNode::lastMade() const
{
    return m_previous ? m_previous : const_cast<RVOpenNode*>(this);
}

/// The last child, with all up to it made, where this is the first one.
RVOpenNode* RVOpenNode::endOfChain()
{
    RVOpenNode* last = lastMade();
    while (RVOpenNode* const next = last->GetNext(1))
        last = next;
    return last;
}

/// Links a node that is in no chain behind \p previous; null makes it the first child of the owner.
/// A chain that nobody owns has a null owner.
void RVOpenNode::link(RVOpenNode* owner, RVOpenNode* previous, RVOpenNode* node)
{
    RVOpenNode* const next = previous ? previous->m_next : owner->m_firstChild;
    node->m_next = next;
    node->m_previous = previous;
    if (previous)
        previous->m_next = node;
    if (owner) {
        node->setHolder(owner, HeldInChain);
        if (!previous) {
            owner->m_firstChild = node;
            owner->m_sharesChild = 0;
            node->m_previous = next ? next->lastMade() : nullptr;
        } else if (!next) {
            owner->m_firstChild->m_previous = node;
        }
    }
    if (next)
        next->m_previous = node;
}

/// Leaves the chain that this node is in to the others.
void RVOpenNode::unlink()
{
    RVOpenNode* const next = m_sharesNext ? nullptr : m_next;
    RVOpenNode* const owner = chainOwner();
    RVOpenNode* const first = owner ? owner->m_firstChild : nullptr;
    if (owner && first == this) {
        owner->m_firstChild = next;
        if (next)
            next->m_previous = m_previous == next ? nullptr : m_previous;
    } else {
        if (m_previous)
            m_previous->m_next = next;
        if (next)
            next->m_previous = m_previous;
        else if (owner)
            first->m_previous = m_previous == first ? nullptr : m_previous;
    }
    clearHolder();
    m_next = nullptr;
    m_previous = nullptr;
    m_sharesNext = 0;
}

/// Makes this node and what stands behind it a chain of its own.
void RVOpenNode::cut()
{
    if (RVOpenNode* const owner = chainOwner()) {
        RVOpenNode* const first = owner->m_firstChild;
        if (first == this) {
            owner->m_firstChild = nullptr;
        } else {
            m_previous->m_next = nullptr;
            first->m_previous = m_previous == first ? nullptr : m_previous;
        }
        for (RVOpenNode* node = this; node; node = node->m_next)
            node->clearHolder();
    } else if (m_previous) {
        m_previous->m_next = nullptr;
    }
    m_previous = nullptr;
}

/// Takes this node out of whatever it is in. What a walk from a free node made behind it stays
/// valid as long as the node.
void RVOpenNode::takeOut()
{
    if (m_heldAs == HeldOutside)
        Holder::lose(this);
    if (m_heldAs == HeldAside)
        NodeAccess::forgetComponent(holder(), this);
    if (m_next && !m_sharesNext && !m_previous && m_heldAs != HeldInChain) {
        RVOpenNode* const behind = m_next;
        behind->cut();
        keep(behind);
    }
    unlink();
}

/// Takes a chain that nobody owns over as the children of this node, which has none.
void RVOpenNode::own(RVOpenNode* first)
{
    m_firstChild = first;
    RVOpenNode* last = first;
    for (RVOpenNode* node = first; node; node = node->m_next) {
        node->setHolder(this, HeldInChain);
        last = node;
    }
    first->m_previous = last == first ? nullptr : last;
    FoundNodes::childrenChanged(this);
}

/// Keeps a chain that nobody owns until this node is deleted.
void RVOpenNode::keep(RVOpenNode* first)
{
    auto* const keeper = new RVOpenNode();
    if (!keeper)
        return;
    // What is kept must not take the node in that keeps it.
    keeper->setHolder(this, HeldAside);
    keeper->own(first);
    keeper->m_next = aside()->kept;
    m_aside->kept = keeper;
}

/// Gives an object that is kept, by whichever node, to nobody.
void RVOpenNode::leaveKeeper()
{
    RVOpenNode* const keeper = chainOwner();
    unlink();
    if (keeper->m_firstChild)
        return;
    RVOpenNode** link = &keeper->holder()->m_aside->kept;
    while (*link != keeper)
        link = &(*link)->m_next;
    *link = keeper->m_next;
    keeper->m_next = nullptr;
    keeper->clearHolder();
    NodeAccess::dropView(keeper);
}

/// The children leave the tree: they stay valid until this node is deleted.
void RVOpenNode::keepChildren()
{
    if (!m_firstChild || m_sharesChild)
        return;
    RVOpenNode* const first = m_firstChild;
    first->cut();
    keep(first);
}

void RVOpenNode::deleteKept()
{
    if (!m_hasAside)
        return;
    while (RVOpenNode* const keeper = m_aside->kept) {
        m_aside->kept = keeper->m_next;
        keeper->m_next = nullptr;
        keeper->clearHolder();
        NodeAccess::dropView(keeper);
    }
    delete m_aside;
    m_hasAside = 0;
    m_parent = nullptr;
}

void RVOpenNode::deleteAlone(bool leavesDocument)
{
    m_next = nullptr;
    m_previous = nullptr;
    clearHolder();
    if (leavesDocument)
        m_leavesDocument = 1;
    delete this;
}

/// Takes the siblings behind this node out of chain and document, one by one from the end, so that
/// whoever is told of it finds objects for all elements that stand there still.
std::vector<RVOpenNode*> RVOpenNode::takeOutBehind()
{
    std::vector<RVOpenNode*> behind;
    for (RVOpenNode* node = this; !node->m_sharesNext && node->m_next; node = node->m_next)
        behind.push_back(node->m_next);
    for (auto node = behind.rbegin(); node != behind.rend(); ++node) {
        changes::Removal removal((*node)->m_leavesDocument ? QDomNode() : (*node)->m_node);
        (*node)->unlink();
        removal.carryOut();
    }
    return behind;
}

void RVOpenNode::shareWith(const RVOpenNode& other)
{
    ORVBase::operator=(other);
    m_node = other.m_node;
    m_element = other.m_element;
    m_document = other.m_document;
    m_paramHelper = other.m_paramHelper;
    m_firstChild = other.m_firstChild;
    m_sharesChild = 1;
    m_leavesDocument = 1;
    if (m_heldAs == HeldByNobody && !m_previous) {
        m_next = other.m_next;
        m_sharesNext = 1;
        showParent(other.shownParent());
    }
}

/// Binds this node and all objects below to the corresponding nodes of a deep copy.
void RVOpenNode::rebindSubtree(const QDomNode& copy)
{
    // Other objects own what a copy shows, and stay where they are.
    if (m_sharesChild)
        m_firstChild = nullptr;
    m_sharesChild = 0;
    QDomNode from = m_node.firstChild();
    QDomNode to = copy.firstChild();
    const auto rebind = [&](RVOpenNode* child) {
        if (child->m_node.parentNode() != m_node)
            return;
        // Objects follow the document nearly always: the search goes on where the last one ended.
        while (from != child->m_node) {
            from = from.nextSibling();
            to = to.nextSibling();
            if (from.isNull()) {
                from = m_node.firstChild();
                to = copy.firstChild();
            }
        }
        child->rebindSubtree(to);
    };
    for (RVOpenNode* child = m_firstChild; child; child = child->m_next)
        rebind(child);
    for (RVOpenNode* const component : NodeAccess::components(this))
        rebind(component);
    RVOpenNode::SetDomNode(copy);
    m_leavesDocument = 0;
}

/// After the element came to stand in another document.
void RVOpenNode::holdDocument()
{
    const QDomDocument document = m_node.ownerDocument();
    if (document == m_document)
        return;
    m_document = document;
    for (RVOpenNode* child = m_firstChild; child; child = child->m_next)
        child->holdDocument();
    for (RVOpenNode* const component : NodeAccess::components(this))
        component->holdDocument();
}

} // namespace rvopen

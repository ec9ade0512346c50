// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/model/References.h>

#include <optional>
#include <typeinfo>
#include <vector>

namespace rvopen {

struct TakenView;

/// The links of a node, for the classes that keep chains of their own.
struct NodeAccess {
    static RVOpenNode* firstChild(const RVOpenNode* node)
    {
        return node->m_firstChild;
    }
    /// Makes a chain that nobody owns the children of the node; what it had is nobody's then.
    static void setFirstChild(RVOpenNode* node, RVOpenNode* child);
    /// Whether the chain is another object's, of which this one is a copy.
    static bool sharesChildren(const RVOpenNode* node)
    {
        return node->m_sharesChild;
    }
    static RVOpenNode* next(const RVOpenNode* node)
    {
        return node->m_next;
    }
    /// The last child of the node's own chain, with all up to it made; null when none is made.
    static RVOpenNode* lastChild(const RVOpenNode* node)
    {
        return node->m_firstChild ? node->m_firstChild->endOfChain() : nullptr;
    }
    /// Links a node that is in no chain behind \p previous, which is null or a child of \p owner.
    static void link(RVOpenNode* owner, RVOpenNode* previous, RVOpenNode* child)
    {
        RVOpenNode::link(owner, previous, child);
    }
    /// The same, with its element as the last child.
    static void append(RVOpenNode* owner, RVOpenNode* last, RVOpenNode* child)
    {
        child->showParent(owner);
        RVOpenNode::link(owner, last, child);
        child->placeUnder(owner);
    }
    /// From now on text of white space alone gets no object among the node's children.
    static void skipBlanks(RVOpenNode* node)
    {
        node->m_skipsBlanks = 1;
    }
    /// Takes a child out of the chain that it is in; its element stays.
    static void unlink(RVOpenNode* child)
    {
        child->unlink();
    }
    /// True when the node may be taken over: it is neither \p owner nor above it.
    static bool canTake(const RVOpenNode* owner, const RVOpenNode* node)
    {
        return owner->canTake(node);
    }
    /// Takes a node with its element out of wherever it is: a chain of any tree, a snapshot. What a
    /// walk from a free node made behind it stays valid as long as the node.
    static void withdraw(RVOpenNode* node);
    /// The object of that element in the chain of the owner's children, as far as it is made; null
    /// when there is none.
    static RVOpenNode* viewOf(const RVOpenNode* owner, const QDomNode& element);
    /// Puts an object of a child element, which belongs to nobody, in its place among the children
    /// of the node or of the archive that it stands for. One that the element has already stays
    /// valid until the owner is deleted.
    static void placeView(RVOpenNode* node, RVOpenNode* view);
    /// Takes the object of that element out of the chain of the owner's children if there is one.
    /// It stays valid until the owner is deleted. The object, null where there is none.
    static RVOpenNode* retireView(RVOpenNode* owner, const QDomNode& element);
    /// Keeps an object that nobody holds valid until the owner is deleted.
    static void retire(RVOpenNode* owner, RVOpenNode* object)
    {
        owner->keep(object);
    }
    /// \name Objects that were kept and come back
    /// @{
    /// What a root knows of those below it, from the first to the last one taken out.
    static std::vector<TakenView>& taken(RVOpenNode* root);
    static bool isKept(const RVOpenNode* object)
    {
        const RVOpenNode* const keeper = object->chainOwner();
        return keeper && keeper->m_node.isNull() && keeper->m_heldAs == RVOpenNode::HeldAside;
    }
    /// The node that keeps the object, which is kept.
    static RVOpenNode* keptBy(const RVOpenNode* object)
    {
        return object->chainOwner()->holder();
    }
    /// Whether the objects below, as far as they are made, are those of the document.
    static bool followsDocument(RVOpenNode* object);
    /// Whether a walk behind \p previous, for null from the start, would come to the child next.
    static bool comesNext(const RVOpenNode* owner, const RVOpenNode* previous,
                          const QDomNode& child)
    {
        const QDomNode next =
            previous ? previous->m_node.nextSibling() : owner->m_node.firstChild();
        return RVOpenNode::shown(next, owner) == child;
    }
    static void leaveKeeper(RVOpenNode* object)
    {
        object->leaveKeeper();
    }
    /// Puts one that is kept behind \p previous in the chain of the owner's children.
    static void linkAgain(RVOpenNode* owner, RVOpenNode* previous, RVOpenNode* object)
    {
        object->leaveKeeper();
        object->showParent(owner);
        RVOpenNode::link(owner, previous, object);
    }
    /// Makes one that is kept a component of the snapshot. False, with nothing done, where the
    /// snapshot has such a component or \p snapShot is none.
    static bool holdAgain(RVOpenNode* snapShot, RVOpenNode* component);
    /// @}
    /// An object for an element that lost its own: behind \p previous in the chain of the children
    /// of \p owner, or, without an owner, a component of \p holder.
    static void restoreView(RVOpenNode* holder, RVOpenNode* owner, RVOpenNode* previous,
                            const QDomNode& element);
    /// The same, of the class that stands for the element.
    static void remake(RVOpenNode* owner, RVOpenNode* previous, const QDomNode& element);
    /// Detaches a child of the node's own chain, without looking at archives.
    static void detachOwn(RVOpenNode* node, RVOpenNode* child)
    {
        node->detachHere(child);
    }
    /// Takes a child of the node, or of the archive that it stands for, out and deletes it with its
    /// element. The file of an archive that the child itself stands for stays.
    static void removeChild(RVOpenNode* node, RVOpenNode* child)
    {
        node->DetachNode(child, true);
        delete child;
    }
    /// The node whose chain holds the children: the node itself, or the root of the archive that it
    /// stands for; null when that archive cannot be opened.
    static RVOpenNode* childOwner(RVOpenNode* node);
    /// \name The components of a snapshot, which are in no chain
    /// @{
    static void holdComponent(RVOpenNode* snapShot, RVOpenNode* component);
    static void releaseComponent(RVOpenNode* component)
    {
        component->clearHolder();
    }
    /// The snapshot has the component no more.
    static void forgetComponent(RVOpenNode* snapShot, RVOpenNode* component);
    /// Those that the node holds if it is a snapshot.
    static std::vector<RVOpenNode*> components(RVOpenNode* node);
    /// The component of that class, null where \p node, a snapshot, has no element for it; nothing
    /// where it is no snapshot or the class is that of no component.
    static std::optional<RVOpenNode*> findComponent(RVOpenNode* node, const std::type_info& type);
    /// @}

    /// \name Objects held by what is no node
    /// @{
    static void holdOutside(RVOpenNode* object)
    {
        object->m_heldAs = RVOpenNode::HeldOutside;
    }
    static void releaseOutside(RVOpenNode* object)
    {
        object->m_heldAs = RVOpenNode::HeldByNobody;
    }
    /// @}

    /// After the element was moved to another document by hand.
    static void holdDocument(RVOpenNode* node)
    {
        node->holdDocument();
    }

    /// A new object of the class that stands for the node: RVOpenSchema::createNode().
    static RVOpenNode* make(const QDomNode& node);
    /// What is known to be an element need not be asked whether it is one.
    static void bind(RVOpenNode* node, const QDomElement& element)
    {
        node->bind(element, element);
    }
    static void bind(RVOpenNode* object, const QDomNode& node)
    {
        object->SetDomNode(node);
    }

    /// \name Handles to the object
    /// @{
    /// Whether there are some.
    static void setReferred(RVOpenNode* node, bool isReferred)
    {
        node->m_isReferred.store(isReferred, std::memory_order_relaxed);
    }
    /// They are null from now on.
    static void endReferences(RVOpenNode* node)
    {
        if (node->m_isReferred.load(std::memory_order_relaxed))
            host::References::end(node);
    }
    /// @}

    /// \name What FoundNodes knows
    /// @{
    static bool hasNotes(const RVOpenNode* node)
    {
        return node->m_hasNotes;
    }
    static void setHasNotes(RVOpenNode* node)
    {
        node->m_hasNotes = 1;
    }
    static bool isOfDocument(const RVOpenNode* node, const RVOpenNode* other)
    {
        return node->m_document == other->m_document;
    }
    static const RVOpenNode* chainOwner(const RVOpenNode* node)
    {
        return node->chainOwner();
    }
    /// @}

    /// Attributes by the names of Names.h.
    static QString attribute(const RVOpenNode* node, const QString& name)
    {
        return node->attribute(name);
    }
    static void setAttribute(RVOpenNode* node, const QString& name, const QString& value)
    {
        node->setAttribute(name, value);
    }

    /// Deletes the object with its subtree and the siblings after it, leaving every element in the
    /// document: what goes is the view, not the data.
    static void dropView(RVOpenNode* node);
    /// The end of the object leaves the document alone.
    static void leaveDocument(RVOpenNode* node)
    {
        node->m_leavesDocument = 1;
    }
    /// True of a copy and of a view that is being dropped: their destructors leave the document
    /// alone.
    static bool leavesDocument(const RVOpenNode* node)
    {
        return node->m_leavesDocument;
    }
};

/// An object over an element for the time of a scope, whose end leaves the element in place.
template <typename Class>
class ViewOf {
public:
    explicit ViewOf(const QDomElement& element)
    {
        NodeAccess::bind(&m_object, element);
        NodeAccess::leaveDocument(&m_object);
    }
    ViewOf(const ViewOf&) = delete;
    ViewOf& operator=(const ViewOf&) = delete;

    Class& object()
    {
        return m_object;
    }

private:
    Class m_object;
};

/// For as long as it lives, archive references reach the archives that are open already: none is
/// opened on demand.
class ArchivesStayClosed {
public:
    ArchivesStayClosed();
    ~ArchivesStayClosed();
    ArchivesStayClosed(const ArchivesStayClosed&) = delete;
    ArchivesStayClosed& operator=(const ArchivesStayClosed&) = delete;

private:
    bool m_outer;
};

} // namespace rvopen

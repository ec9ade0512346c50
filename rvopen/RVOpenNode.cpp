// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/files/Containment.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/FoundNodes.h>
#include <rvopen/model/HeldObject.h>
#include <rvopen/model/LookUp.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <QDomElement>

namespace rvopen {

namespace {

/// Deep inside a comparison the look-ups of components ask references for their children; a
/// parameter would have to go through all of the public interface.
thread_local bool t_archivesStayClosed = false;

int chainLength(RVOpenNode* node)
{
    int length = 0;
    for (; node; node = node->GetNext(1))
        ++length;
    return length;
}

} // namespace

/// Where the children of an archive reference live.
struct RVOpenNode::ArchiveReference {
    bool isReference = false;   ///< The element names an archive.
    RVOpenNode* root = nullptr; ///< The archive's root node, null if it cannot be opened.
};

RVOpenNode* NodeAccess::childOwner(RVOpenNode* node)
{
    if (node->m_firstChild)
        return node->m_sharesChild ? node->m_firstChild->chainOwner() : node;
    const RVOpenNode::ArchiveReference archive = node->openArchive();
    return archive.isReference ? archive.root : node;
}

void NodeAccess::dropView(RVOpenNode* node)
{
    if (node)
        node->m_leavesDocument = 1;
    delete node;
}

ArchivesStayClosed::ArchivesStayClosed()
    : m_outer(t_archivesStayClosed)
{
    t_archivesStayClosed = true;
}

ArchivesStayClosed::~ArchivesStayClosed()
{
    t_archivesStayClosed = m_outer;
}

RVOpenNode::RVOpenNode()
    : m_paramHelper(this)
    , m_heldAs(HeldByNobody)
    , m_hasAside(0)
    , m_leavesDocument(0)
    , m_sharesNext(0)
    , m_sharesChild(0)
    , m_skipsBlanks(0)
    , m_makesNext(0)
    , m_makesChild(0)
    , m_hasNotes(0)
{
}

RVOpenNode::RVOpenNode(RVOpenNode* source)
    : RVOpenNode()
{
    if (!source)
        return;
    QDomDocument document = source->m_node.ownerDocument();
    m_node = document.importNode(source->m_node, true);
    m_element = m_node.toElement();
    m_document = document;
}

RVOpenNode::RVOpenNode(const RVOpenNode& other)
    : RVOpenNode()
{
    shareWith(other);
}

RVOpenNode& RVOpenNode::operator=(const RVOpenNode& other)
{
    if (this == &other)
        return *this;
    forgetNotes();
    keepChildren();
    if (m_heldAs != HeldInChain && !m_previous && m_next && !m_sharesNext) {
        RVOpenNode* const behind = m_next;
        behind->cut();
        keep(behind);
    }
    shareWith(other);
    return *this;
}

RVOpenNode::~RVOpenNode()
{
    NodeAccess::endReferences(this);
    const changes::Block block;
    if (m_hasNotes)
        FoundNodes::forget(this);
    const std::vector<RVOpenNode*> behind =
        changes::areObserved() && !m_leavesDocument ? takeOutBehind() : std::vector<RVOpenNode*>();
    changes::Removal removal(m_leavesDocument ? QDomNode() : m_node);
    if (m_heldAs == HeldOutside)
        Holder::lose(this);
    if (m_heldAs == HeldAside) {
        RVOpenNode* const snapShot = holder();
        NodeAccess::forgetComponent(snapShot, this);
        clearHolder();
        if (!m_leavesDocument)
            NodeAccess::retireView(snapShot, m_node);
    }
    if (m_heldAs == HeldInChain || m_previous)
        cut();
    removal.carryOut();
    while (RVOpenNode* const child = m_sharesChild ? nullptr : m_firstChild) {
        RVOpenNode* const next = child->m_next;
        m_firstChild = next;
        if (next)
            next->m_previous = child->m_previous == next ? nullptr : child->m_previous;
        child->deleteAlone(m_leavesDocument);
    }
    // A loop: one destructor calling the next would need a stack as deep as the chain is long.
    while (RVOpenNode* const sibling = m_sharesNext ? nullptr : m_next) {
        m_next = sibling->m_next;
        if (m_next)
            m_next->m_previous = this;
        sibling->deleteAlone(m_leavesDocument);
    }
    for (RVOpenNode* const sibling : behind)
        delete sibling;
    deleteKept();
}

RVOpenNode* RVOpenNode::GetChild(int create, int followArchive)
{
    if (!create || m_firstChild)
        return m_firstChild;
    if (followArchive) {
        const ArchiveReference archive = openArchive();
        if (archive.isReference)
            return archive.root ? archive.root->GetChild(1, 0) : nullptr;
    }
    // Making an object can populate its children and follow archive references, which may lead
    // back to the very same link in a document that refers to itself.
    if (m_makesChild)
        return nullptr;
    const QDomNode first = shown(m_node.firstChild(), this);
    if (first.isNull())
        return nullptr;
    m_makesChild = 1;
    RVOpenNode* const child = NodeAccess::make(first);
    m_makesChild = 0;
    if (child) {
        m_firstChild = child;
        m_sharesChild = 0;
        child->m_parent = this;
        child->m_heldAs = HeldInChain;
    }
    return child;
}

QDomNode RVOpenNode::GetDomNode() const
{
    return m_node;
}

void RVOpenNode::SetDomNode(QDomNode node)
{
    bind(node, node.toElement());
}

QString RVOpenNode::GetNodeName() const
{
    return m_node.nodeName();
}

RVOpenNode* RVOpenNode::GetParent() const
{
    return shownParent();
}

void RVOpenNode::SetParent(RVOpenNode* parent)
{
    placeUnder(parent);
}

RVOpenNode* RVOpenNode::GetNext(int create)
{
    if (m_next || !create)
        return m_next;
    return materialiseNext();
}

void RVOpenNode::SetNext(RVOpenNode* next)
{
    if (next == m_next || (next && belongsTo(next)))
        return;
    if (m_next && !m_sharesNext)
        m_next->cut();
    m_next = next;
    m_sharesNext = 0;
    FoundNodes::childrenChanged(chainOwner());
    if (!next)
        return;
    if (next->m_heldAs == HeldAside) {
        NodeAccess::forgetComponent(next->holder(), next);
        next->clearHolder();
    }
    next->cut();
    next->m_previous = this;
    m_next = next;
    if (RVOpenNode* const owner = chainOwner()) {
        RVOpenNode* last = next;
        for (RVOpenNode* node = next; node; node = node->m_next) {
            node->setHolder(owner, HeldInChain);
            last = node;
        }
        owner->m_firstChild->m_previous = last;
    }
}

ParamHelper* RVOpenNode::GetParamHelper()
{
    return &m_paramHelper;
}

int RVOpenNode::GetNumSiblings()
{
    return chainLength(this);
}

int RVOpenNode::GetNumChildren()
{
    return chainLength(m_firstChild);
}

int RVOpenNode::GetChildPos(RVOpenNode* child)
{
    int position = 0;
    for (RVOpenNode* node = GetChild(1, 1); node && node != child; node = node->GetNext(1))
        ++position;
    return position;
}

void RVOpenNode::AddNode(RVOpenNode* child, bool followArchive)
{
    if (!canTake(child))
        return;
    const changes::Block block;
    RVOpenNode* owner = nullptr;
    if (RVOpenNode* const first = GetChild(1, 1)) {
        owner = first->chainOwner();
    } else {
        const ArchiveReference archive = followArchive ? openArchive() : ArchiveReference{};
        if (archive.root) {
            archive.root->AddNode(child, false);
            return;
        }
        if (!archive.isReference)
            owner = this;
    }
    RVOpenNode* const parent = owner ? owner : this;
    if (parent != this && !parent->canTake(child))
        return;
    const bool copies = !parent->fetch(child);
    child->showParent(parent);
    if (owner) {
        RVOpenNode* const first = owner->GetChild(1, 0);
        link(owner, first ? first->endOfChain() : nullptr, child);
        FoundNodes::childrenChanged(owner);
    }
    if (copies) {
        child->m_leavesDocument = 1;
        changes::append(parent->m_node,
                        parent->m_node.ownerDocument().importNode(child->m_node, true));
    } else {
        child->placeUnder(parent);
    }
    shareChildrenOf(parent);
}

void RVOpenNode::InsertNode(RVOpenNode* child, int index)
{
    if (!canTake(child))
        return;
    const changes::Block block;
    RVOpenNode* const owner = NodeAccess::childOwner(this);
    RVOpenNode* const parent = owner ? owner : this;
    if (parent != this && !parent->canTake(child))
        return;
    if (owner) {
        parent->fetch(child);
        owner->insertHere(child, index);
        shareChildrenOf(owner);
    } else {
        fetch(child);
        placeElement(child, index, nullptr);
    }
}

void RVOpenNode::DetachNode(RVOpenNode* child, bool)
{
    // The flag has nothing left to decide: the chain belongs to this node or to the archive's root,
    // and only its owner can take a link out of it.
    if (!child || !GetChild(1, 1))
        return;
    RVOpenNode* const owner = NodeAccess::childOwner(this);
    owner->detachHere(child);
    shareChildrenOf(owner);
}

void RVOpenNode::DeleteNode(RVOpenNode* child)
{
    if (!child)
        return;
    const changes::Block block;
    DetachNode(child, true);
    const QString archive = child->GetArchiveFilename();
    if (!archive.isEmpty() && child->isArchiveInPlace())
        GetDirectoryHandler()->RemoveArchive(archive);
    delete child;
}

void RVOpenNode::ReplaceNode(RVOpenNode* oldChild, RVOpenNode* newChild)
{
    RVOpenNode* const owner = NodeAccess::childOwner(this);
    if (owner && oldChild && oldChild != newChild && canTake(newChild) && owner->canTake(newChild))
        owner->replaceHere(oldChild, newChild);
}

void RVOpenNode::bind(const QDomNode& node, const QDomElement& element)
{
    forgetNotes();
    m_document = node.ownerDocument();
    m_node = node;
    m_element = element;
}

/// Before this node stands for something else.
void RVOpenNode::forgetNotes()
{
    if (m_hasNotes)
        FoundNodes::forget(this);
    FoundNodes::childrenChanged(holder());
}

void RVOpenNode::placeUnder(RVOpenNode* parent)
{
    showParent(parent);
    if (!parent || m_node.isNull() || parent->m_node.isNull())
        return;
    if (m_node.parentNode() == parent->m_node)
        return;
    changes::append(parent->m_node, m_node);
    holdDocument();
}

RVOpenNode::ArchiveReference RVOpenNode::openArchive() const
{
    if (attribute(names::attribute::archiveFilename()).isEmpty())
        return {};
    if (!isArchiveInPlace())
        return {true, nullptr};
    const QString file = GetArchiveFilename();
    return {true, t_archivesStayClosed ? GetDirectoryHandler()->openArchive(file)
                                       : GetDirectoryHandler()->LoadArchive(file)};
}

bool RVOpenNode::isArchiveInPlace() const
{
    const QString folder =
        GetDirectoryHandler()->GetFolder(attribute(names::attribute::archiveType()));
    return !folder.isEmpty() && StaysInside(GetPath()) && StaysInside(GetShortArchiveFilename()) &&
           liesBelow(GetArchiveFilename(), folder);
}

/// A child of \p owner, or, where that gives blank text no object, the first behind it that is
/// none.
QDomNode RVOpenNode::shown(QDomNode child, const RVOpenNode* owner)
{
    while (owner && owner->m_skipsBlanks && isBlankText(child))
        child = child.nextSibling();
    return child;
}

RVOpenNode* RVOpenNode::materialiseNext()
{
    RVOpenNode* const owner = chainOwner();
    const QDomNode sibling = shown(m_node.nextSibling(), owner);
    if (sibling.isNull() || m_makesNext)
        return nullptr;
    // A child that was added from another document kept its element there: that element's siblings
    // are not this node's.
    if (owner && m_node.parentNode() != owner->m_node)
        return nullptr;
    m_makesNext = 1;
    RVOpenNode* const made = NodeAccess::make(sibling);
    m_makesNext = 0;
    if (!made)
        return nullptr;
    m_next = made;
    m_sharesNext = 0;
    made->m_previous = this;
    if (owner) {
        made->m_parent = owner;
        made->m_heldAs = HeldInChain;
        owner->m_firstChild->m_previous = made;
    } else {
        made->m_parent = shownParent();
    }
    return made;
}

void RVOpenNode::insertHere(RVOpenNode* child, int index)
{
    RVOpenNode* previous = nullptr;
    RVOpenNode* next = GetChild(1, 0);
    int position = 0;
    for (; next && position < index; ++position) {
        previous = next;
        next = next->GetNext(1);
    }
    child->showParent(this);
    link(this, previous, child);
    FoundNodes::childrenChanged(this);
    placeElement(child, index, position == index ? previous : nullptr);
}

/// Behind the element of \p previous where that stands here; otherwise all nodes count.
void RVOpenNode::placeElement(RVOpenNode* child, int index, const RVOpenNode* previous)
{
    if (child->standsOutside(this))
        child->rebindSubtree(m_node.ownerDocument().importNode(child->m_node, true));
    child->showParent(this);
    QDomNode before;
    if (previous && previous->m_node.parentNode() == m_node) {
        before = previous->m_node;
    } else if (index > 0) {
        before = m_node.firstChild();
        for (int position = 1; position < index && !before.isNull(); ++position)
            before = before.nextSibling();
        if (before.isNull())
            before = m_node.lastChild();
    }
    changes::insertBehind(m_node, child->m_node, before);
    child->holdDocument();
}

void RVOpenNode::detachHere(RVOpenNode* node)
{
    changes::Removal removal(m_node, node->m_node);
    if (node->chainOwner() == this) {
        node->GetNext(1);
        node->unlink();
    } else if (node->m_heldAs == HeldByNobody && !node->m_previous) {
        node->SetNext(nullptr);
    }
    Q_ASSERT(!m_node.isNull());
    Q_ASSERT(!node->GetDomNode().isNull());
    node->RVOpenNode::SetDomNode(removal.carryOut());
}

void RVOpenNode::replaceHere(RVOpenNode* oldChild, RVOpenNode* newChild)
{
    if (oldChild->chainOwner() != this)
        return;
    const changes::Block block;
    fetch(newChild);
    int position = 0;
    for (const RVOpenNode* node = m_firstChild; node != oldChild; node = node->m_next)
        ++position;
    detachHere(oldChild);
    insertHere(newChild, position);
    delete oldChild;
}

} // namespace rvopen

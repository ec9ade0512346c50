// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/files/Containment.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/ValueText.h>

#include <QDir>
#include <QDomElement>

#include <atomic>
#include <new>
#include <vector>

namespace rvopen {

namespace {

/// A chain of siblings on its way out. The head's destructor runs the loop; the destructor of each
/// sibling hands its element and the rest of the chain over instead of going on by itself, so that
/// a chain of any length needs one stack frame.
struct ChainTeardown {
    const RVOpenNode* current = nullptr;
    RVOpenNode* rest = nullptr;
    std::vector<QDomNode> elements;
    ChainTeardown* outer = nullptr;
};

/// A link whose object is being made. Making an object can populate its children and follow
/// archive references, which may lead back to the very same link in a document that refers to
/// itself.
struct Materialising {
    const RVOpenNode* node;
    bool child;
    const Materialising* outer;
};

thread_local ChainTeardown* t_teardown = nullptr;
thread_local const Materialising* t_materialising = nullptr;
thread_local bool t_droppingView = false;
thread_local bool t_archivesStayClosed = false;

RVOpenNode* makeLinked(const RVOpenNode* from, bool child, const QDomNode& node)
{
    const Materialising*& innermost = t_materialising;
    for (const Materialising* m = innermost; m; m = m->outer) {
        if (m->node == from && m->child == child)
            return nullptr;
    }
    const Materialising entry{from, child, innermost};
    innermost = &entry;
    RVOpenNode* const made = NodeAccess::make(node);
    innermost = entry.outer;
    return made;
}

/// A walk along a chain that is longer than this leaves notes, so that the next one is short:
/// appending to a chain and taking its last node away need not walk along it each time.
///
/// A note never decides what is in a chain or in which order; it only says where to look, and is
/// about a node that is there and has the link that it was noted for. So each link change keeps the
/// notes about its neighbours in order, and whatever could leave a wrong one ends the epoch, and
/// with it all notes: SetNext() and assignment, which change links in any way, and the death of a
/// node that a note may lead to.
constexpr int s_longWalk = 16;
constexpr quint32 s_lastEpoch = 0x7FFFFFFF; ///< Has no notes.
std::atomic<quint32> s_epoch{1};
std::atomic<bool> s_epochHasNotes{false};

void endEpoch()
{
    if (!s_epochHasNotes)
        return;
    s_epochHasNotes = false;
    if (s_epoch != s_lastEpoch)
        ++s_epoch;
}

void removeFromParent(const QDomNode& node)
{
    if (!node.isNull())
        node.parentNode().removeChild(node);
}

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
        return node;
    const RVOpenNode::ArchiveReference archive = node->openArchive();
    return archive.isReference ? archive.root : node;
}

void NodeAccess::setFirstChild(RVOpenNode* node, RVOpenNode* child)
{
    if (node->m_firstChild)
        endEpoch();
    node->m_firstChild = child;
    if (child)
        child->m_noted = nullptr;
}

void NodeAccess::dropView(RVOpenNode* node)
{
    const bool outer = t_droppingView;
    t_droppingView = true;
    delete node;
    t_droppingView = outer;
}

bool NodeAccess::isDroppingView()
{
    return t_droppingView;
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
    , m_notedIn(0)
    , m_isNoted(0)
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
    *this = other;
}

RVOpenNode& RVOpenNode::operator=(const RVOpenNode& other)
{
    if (m_next)
        endEpoch();
    ORVBase::operator=(other);
    m_node = other.m_node;
    m_element = other.m_element;
    m_document = other.m_document;
    m_next = other.m_next;
    m_firstChild = other.m_firstChild;
    m_parent = other.m_parent;
    m_paramHelper = other.m_paramHelper;
    m_noted = nullptr;
    return *this;
}

RVOpenNode::~RVOpenNode()
{
    if (m_isNoted)
        endEpoch();
    delete m_firstChild;
    m_firstChild = nullptr;

    if (t_teardown && t_teardown->current == this) {
        t_teardown->rest = m_next;
        m_next = nullptr;
        try {
            if (!t_droppingView)
                t_teardown->elements.push_back(m_node);
        } catch (const std::bad_alloc&) {
            removeElement();
        }
        return;
    }

    if (m_next) {
        ChainTeardown chain;
        chain.outer = t_teardown;
        t_teardown = &chain;
        for (RVOpenNode* sibling = m_next; sibling; sibling = chain.rest) {
            chain.current = sibling;
            chain.rest = nullptr;
            delete sibling;
        }
        t_teardown = chain.outer;
        m_next = nullptr;
        // The last sibling's element goes first, as it would if each destructor deleted the next.
        for (auto element = chain.elements.rbegin(); element != chain.elements.rend(); ++element)
            removeFromParent(*element);
    }
    removeElement();
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
    const QDomNode first = m_node.firstChild();
    if (first.isNull())
        return nullptr;
    RVOpenNode* const child = makeLinked(this, true, first);
    if (child) {
        m_firstChild = child;
        child->m_parent = this;
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
    return m_parent;
}

void RVOpenNode::SetParent(RVOpenNode* parent)
{
    // The note is about a chain of the parent's.
    if (parent != m_parent)
        m_noted = nullptr;
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
    if (m_next && m_next != next)
        endEpoch();
    m_next = next;
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
    RVOpenNode* parent = this;
    if (RVOpenNode* const first = GetChild(1, 1)) {
        RVOpenNode* const last = first->endOfChain();
        first->linkBehind(last, child);
        if (first->m_parent)
            parent = first->m_parent;
    } else {
        const ArchiveReference archive = followArchive ? openArchive() : ArchiveReference{};
        if (archive.root) {
            archive.root->AddNode(child, false);
            return;
        }
        if (!archive.isReference)
            NodeAccess::setFirstChild(this, child);
    }

    if (child->standsOutside(parent)) {
        // What stands in another document belongs to that document: it keeps its element.
        child->m_parent = parent;
        parent->m_node.appendChild(parent->m_node.ownerDocument().importNode(child->m_node, true));
    } else {
        child->placeUnder(parent);
    }
}

void RVOpenNode::InsertNode(RVOpenNode* child, int index)
{
    if (!canTake(child))
        return;
    const ArchiveReference archive = m_firstChild ? ArchiveReference{} : openArchive();
    if (archive.root)
        archive.root->insertHere(child, index);
    else if (archive.isReference)
        placeElement(child, this, index);
    else
        insertHere(child, index);
}

void RVOpenNode::DetachNode(RVOpenNode* child, bool)
{
    // The flag has nothing left to decide: the chain belongs to this node or to the archive's root,
    // and only its owner can take a link out of it.
    if (child && GetChild(1, 1))
        NodeAccess::childOwner(this)->detachHere(child);
}

void RVOpenNode::DeleteNode(RVOpenNode* child)
{
    if (!child)
        return;
    DetachNode(child, true);
    const QString archive = child->GetArchiveFilename();
    if (!archive.isEmpty() && child->isArchiveInPlace())
        GetDirectoryHandler()->RemoveArchive(archive);
    delete child;
}

void RVOpenNode::ReplaceNode(RVOpenNode* oldChild, RVOpenNode* newChild)
{
    RVOpenNode* const owner = NodeAccess::childOwner(this);
    if (owner && oldChild && oldChild != newChild && canTake(newChild))
        owner->replaceHere(oldChild, newChild);
}

unsigned int RVOpenNode::GetAttributeFloat(const char* name, float* out) const
{
    return valueText::toFloat(GetAttributeString(name), out);
}

unsigned int RVOpenNode::GetAttributeInt(const char* name, int* out) const
{
    return valueText::toInt(GetAttributeString(name), out);
}

unsigned int RVOpenNode::GetAttributeBool(const char* name, int* out) const
{
    return valueText::toBool(GetAttributeString(name), out);
}

QString RVOpenNode::GetAttributeString(const char* name) const
{
    return attribute(QString::fromLatin1(name));
}

void RVOpenNode::SetAttributeFloat(const char* name, float value)
{
    SetAttributeString(name, valueText::fromFloat(value));
}

void RVOpenNode::SetAttributeInt(const char* name, int value)
{
    SetAttributeString(name, QString::number(value));
}

void RVOpenNode::SetAttributeBool(const char* name, int value)
{
    SetAttributeString(name, valueText::fromBool(value));
}

void RVOpenNode::SetAttributeString(const char* name, QString value)
{
    setAttribute(QString::fromLatin1(name), value);
}

QString RVOpenNode::GetName() const
{
    return attribute(names::attribute::name());
}

void RVOpenNode::SetName(QString value)
{
    setAttribute(names::attribute::name(), value);
}

QString RVOpenNode::GetCat() const
{
    return attribute(names::attribute::cat());
}

void RVOpenNode::SetCat(QString value)
{
    setAttribute(names::attribute::cat(), value);
}

QString RVOpenNode::GetDescription() const
{
    return attribute(names::attribute::description());
}

void RVOpenNode::SetDescription(QString value)
{
    setAttribute(names::attribute::description(), value);
}

QString RVOpenNode::GetSubCat() const
{
    return attribute(names::attribute::subCat());
}

void RVOpenNode::SetSubCat(QString value)
{
    setAttribute(names::attribute::subCat(), value);
}

QString RVOpenNode::GetShaderClass() const
{
    return attribute(names::attribute::shaderClass());
}

void RVOpenNode::SetShaderClass(QString value)
{
    setAttribute(names::attribute::shaderClass(), value);
}

QString RVOpenNode::GetPath() const
{
    return attribute(names::attribute::path());
}

void RVOpenNode::SetPath(QString value)
{
    setAttribute(names::attribute::path(), value);
}

QString RVOpenNode::GetRefName() const
{
    return attribute(names::attribute::refName());
}

void RVOpenNode::SetRefName(QString value)
{
    setAttribute(names::attribute::refName(), value);
}

QString RVOpenNode::GetImageName() const
{
    return attribute(names::attribute::imageName());
}

void RVOpenNode::SetImageName(QString value)
{
    setAttribute(names::attribute::imageName(), value);
}

QString RVOpenNode::GetShortArchiveFilename() const
{
    return attribute(names::attribute::archiveFilename());
}

void RVOpenNode::SetShortArchiveFilename(QString value)
{
    setAttribute(names::attribute::archiveFilename(), value);
}

RVOpenNode::ImageBorder RVOpenNode::GetImageBorder() const
{
    int value = ImageBorderNone;
    valueText::toInt(attribute(names::attribute::imageBorder()), &value);
    return static_cast<ImageBorder>(value);
}

void RVOpenNode::SetImageBorder(ImageBorder value)
{
    setAttribute(names::attribute::imageBorder(), QString::number(static_cast<int>(value)));
}

int RVOpenNode::IsEnabled() const
{
    return flag(names::attribute::enabled(), 1);
}

void RVOpenNode::SetEnabled(int value)
{
    setAttribute(names::attribute::enabled(), valueText::fromBool(value));
}

int RVOpenNode::IsTranslationDisabled() const
{
    return flag(names::attribute::translationDisabled(), 0);
}

void RVOpenNode::SetTranslationDisabled(int value)
{
    setAttribute(names::attribute::translationDisabled(), valueText::fromBool(value));
}

int RVOpenNode::IsCustom() const
{
    return flag(names::attribute::custom(), 0);
}

void RVOpenNode::SetCustom(int value)
{
    setAttribute(names::attribute::custom(), valueText::fromBool(value));
}

int RVOpenNode::IsReset() const
{
    return flag(names::attribute::reset(), 0);
}

void RVOpenNode::SetReset(int value)
{
    setAttribute(names::attribute::reset(), valueText::fromBool(value));
}

int RVOpenNode::ThumbnailRegenerated() const
{
    return flag(names::attribute::thumbRegenerated(), 1);
}

void RVOpenNode::SetThumbnailRegenerated(int value)
{
    setAttribute(names::attribute::thumbRegenerated(), valueText::fromBool(value));
}

QString RVOpenNode::EncodeFloat3(float a, float b, float c) const
{
    return valueText::fromTriple(a, b, c);
}

void RVOpenNode::DecodeFloat3(QString text, float* a, float* b, float* c) const
{
    valueText::toTriple(text, a, b, c);
}

QString RVOpenNode::GetArchiveFilename() const
{
    const QString fileName = GetShortArchiveFilename();
    if (fileName.isEmpty())
        return QString();
    QString full = GetDirectoryHandler()->GetFolder(attribute(names::attribute::archiveType()));
    const QString path = GetPath();
    if (!path.isEmpty())
        full += QDir::separator() + path;
    return full + QDir::separator() + fileName + names::value::archiveExtension();
}

QString RVOpenNode::GetArchiveFolder() const
{
    const QString path = GetPath();
    if (path.isEmpty())
        return QString();
    const QString folder =
        GetDirectoryHandler()->GetFolder(attribute(names::attribute::archiveType()));
    return folder + QDir::separator() + path;
}

void RVOpenNode::bind(const QDomNode& node, const QDomElement& element)
{
    m_document = node.ownerDocument();
    m_node = node;
    m_element = element;
}

void RVOpenNode::placeUnder(RVOpenNode* parent)
{
    m_parent = parent;
    if (!parent || m_node.isNull() || parent->m_node.isNull())
        return;
    if (m_node.parentNode() == parent->m_node)
        return;
    parent->m_node.appendChild(m_node);
    holdDocument();
}

QString RVOpenNode::attribute(const QString& name) const
{
    return m_element.attribute(name);
}

void RVOpenNode::setAttribute(const QString& name, const QString& value)
{
    m_element.setAttribute(name, value);
}

int RVOpenNode::flag(const QString& name, int valueWhenAbsent) const
{
    int value = valueWhenAbsent;
    valueText::toBool(attribute(name), &value);
    return value;
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

RVOpenNode* RVOpenNode::materialiseNext()
{
    const QDomNode sibling = m_node.nextSibling();
    if (sibling.isNull())
        return nullptr;
    // A child that was added from another document kept its element there: that element's siblings
    // are not this node's.
    if (m_parent && m_node.parentNode() != m_parent->m_node)
        return nullptr;
    RVOpenNode* const made = makeLinked(this, false, sibling);
    if (made) {
        m_next = made;
        made->m_parent = m_parent;
        if (hasNote())
            made->note(this);
    }
    return made;
}

bool RVOpenNode::canTake(const RVOpenNode* child) const
{
    if (!child)
        return false;
    for (const RVOpenNode* node = this; node; node = node->m_parent) {
        if (node == child)
            return false;
        // A detached node keeps its parent link, but that parent is not above it any more and may
        // be gone.
        if (node->m_node.parentNode().isNull())
            break;
    }
    return true;
}

bool RVOpenNode::standsOutside(const RVOpenNode* parent) const
{
    return !m_node.parentNode().isNull() &&
           m_node.ownerDocument() != parent->m_node.ownerDocument();
}

bool RVOpenNode::hasNote() const
{
    return m_noted && m_notedIn == s_epoch;
}

void RVOpenNode::note(RVOpenNode* previous)
{
    const quint32 epoch = s_epoch;
    m_noted = nullptr;
    if (previous == this || epoch == s_lastEpoch)
        return;
    if (!s_epochHasNotes)
        s_epochHasNotes = true;
    m_noted = previous;
    m_notedIn = epoch & s_lastEpoch;
    previous->m_isNoted = 1;
}

/// Of the first node of a chain.
void RVOpenNode::noteChain()
{
    RVOpenNode* last = this;
    for (RVOpenNode* node = m_next; node; node = node->m_next) {
        node->note(last);
        last = node;
    }
    note(last);
}

/// Of the first node of a chain: the last one, with all up to it made.
RVOpenNode* RVOpenNode::endOfChain()
{
    const bool isNoted = hasNote();
    RVOpenNode* last = isNoted ? m_noted : this;
    int steps = 0;
    for (; RVOpenNode* const next = last->GetNext(1); ++steps) {
        if (isNoted)
            next->note(last);
        last = next;
    }
    if (isNoted && steps > 0)
        note(last);
    else if (steps > s_longWalk)
        noteChain();
    return last;
}

/// Of the first node of a chain that ends with \p last: links \p child there.
void RVOpenNode::linkBehind(RVOpenNode* last, RVOpenNode* child)
{
    last->m_next = child;
    child->m_noted = nullptr;
    if (hasNote()) {
        child->note(last);
        note(child);
    }
}

/// The one that has \p node as its next one, in the chain that starts with \p first, another node;
/// null when there is none.
RVOpenNode* RVOpenNode::before(RVOpenNode* first, const RVOpenNode* node) const
{
    if (node->m_parent == this && node->hasNote() && node->m_noted->m_next == node)
        return node->m_noted;
    RVOpenNode* before = first;
    int steps = 0;
    for (; before && before->GetNext(1) != node; ++steps)
        before = before->m_next;
    if (before && steps > s_longWalk)
        first->noteChain();
    return before;
}

/// Takes \p node out of the chain if it is there. Its next link is cleared in any case.
void RVOpenNode::unlinkHere(RVOpenNode* node)
{
    RVOpenNode* const first = GetChild(1, 0);
    if (first == node) {
        RVOpenNode* const next = node->GetNext(1);
        m_firstChild = next;
        if (next && node->hasNote())
            next->note(node->m_noted);
        else if (next)
            next->m_noted = nullptr;
    } else if (RVOpenNode* const previous = before(first, node)) {
        RVOpenNode* const next = node->GetNext(1);
        previous->m_next = next;
        const bool isNoted = first->hasNote();
        if (next)
            next->m_noted = nullptr;
        if (next && isNoted)
            next->note(previous);
        if (isNoted && first->m_noted == node)
            first->note(next ? next : previous);
    } else {
        if (node->m_next)
            endEpoch();
        node->m_next = nullptr;
        return;
    }
    node->m_next = nullptr;
    node->m_noted = nullptr;
    node->m_isNoted = 0;
}

void RVOpenNode::insertHere(RVOpenNode* child, int index)
{
    RVOpenNode* parent = this;
    RVOpenNode* const first = GetChild(1, 0);
    if (child->m_next)
        endEpoch();
    child->m_noted = nullptr;
    if (!first || index <= 0) {
        child->m_next = first;
        m_firstChild = child;
        if (first && first->hasNote()) {
            child->note(first->m_noted);
            first->note(child);
        }
    } else {
        RVOpenNode* before = first;
        for (int position = 1; position < index; ++position) {
            RVOpenNode* const next = before->GetNext(1);
            if (!next)
                break;
            before = next;
        }
        RVOpenNode* const next = before->GetNext(1);
        child->m_next = next;
        before->m_next = child;
        if (next)
            next->m_noted = nullptr;
        if (first->hasNote()) {
            child->note(before);
            (next ? next : first)->note(child);
        }
        if (first->m_parent)
            parent = first->m_parent;
    }
    placeElement(child, parent, index);
}

void RVOpenNode::placeElement(RVOpenNode* child, RVOpenNode* parent, int index)
{
    if (child->standsOutside(this)) {
        child->rebindSubtree(m_node.ownerDocument().importNode(child->m_node, true));
        child->m_parent = parent;
    } else {
        child->placeUnder(parent);
    }

    if (index <= 0) {
        m_node.insertBefore(child->m_node, m_node.firstChild());
        return;
    }
    QDomNode before = m_node.firstChild();
    for (int position = 1; position < index && !before.isNull(); ++position)
        before = before.nextSibling();
    m_node.insertAfter(child->m_node, before);
}

void RVOpenNode::detachHere(RVOpenNode* node)
{
    unlinkHere(node);
    Q_ASSERT(!m_node.isNull());
    Q_ASSERT(!node->GetDomNode().isNull());
    node->SetDomNode(m_node.removeChild(node->m_node));
}

void RVOpenNode::replaceHere(RVOpenNode* oldChild, RVOpenNode* newChild)
{
    int position = 0;
    for (RVOpenNode* node = m_firstChild; node; node = node->GetNext(1), ++position) {
        if (node != oldChild)
            continue;
        detachHere(oldChild);
        insertHere(newChild, position);
        delete oldChild;
        return;
    }
}

void RVOpenNode::rebindSubtree(const QDomNode& copy)
{
    QDomNode from = m_node.firstChild();
    QDomNode to = copy.firstChild();
    for (RVOpenNode* child = m_firstChild; child; child = child->m_next) {
        while (!from.isNull() && from != child->m_node) {
            from = from.nextSibling();
            to = to.nextSibling();
        }
        if (from.isNull())
            break;
        child->rebindSubtree(to);
    }
    SetDomNode(copy);
}

void RVOpenNode::holdDocument()
{
    const QDomDocument document = m_node.ownerDocument();
    if (document == m_document)
        return;
    m_document = document;
    for (RVOpenNode* child = m_firstChild; child; child = child->m_next)
        child->holdDocument();
}

void RVOpenNode::removeElement()
{
    if (!t_droppingView)
        removeFromParent(m_node);
}

} // namespace rvopen

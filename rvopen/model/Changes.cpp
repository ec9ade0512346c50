// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/Changes.h>

#include <QtGlobal>

namespace rvopen::changes {

namespace {

/// Whether a change is to be told, which must not be made by who is being told.
bool isHeard()
{
    if (!areObserved() || !Observers::areListening())
        return false;
    Q_ASSERT(!Observers::areBeingTold());
    return true;
}

template <typename Make>
void change(const QDomElement& element, const QString& name, Make make)
{
    if (!isHeard() || element.isNull()) {
        make();
        return;
    }
    RVOpenChange change;
    change.before = attributeOf(element, name);
    make();
    change.after = attributeOf(element, name);
    if (change.before.isNull() == change.after.isNull() && change.before == change.after)
        return;
    change.document = element.ownerDocument();
    change.node = element;
    change.name = name;
    Observers::tell(change);
}

RVOpenChange ofChild(RVOpenChange::Kind kind, const QDomNode& parent, const QDomNode& child)
{
    RVOpenChange change;
    change.kind = kind;
    change.document = parent.ownerDocument();
    change.node = child;
    change.parent = parent;
    change.previous = child.previousSibling();
    return change;
}

} // namespace

QString attributeOf(const QDomElement& element, const QString& name)
{
    if (!element.hasAttribute(name))
        return QString();
    const QString value = element.attribute(name);
    return value.isNull() ? QLatin1String("") : value;
}

void setAttribute(QDomElement& element, const QString& name, const QString& value)
{
    change(element, name, [&] { element.setAttribute(name, value); });
}

void removeAttribute(QDomElement& element, const QString& name)
{
    change(element, name, [&] { element.removeAttribute(name); });
}

void insertBehind(const QDomNode& parent, const QDomNode& child, const QDomNode& previous)
{
    if (parent.isNull() || child.isNull() || child == previous)
        return;
    if (!isHeard()) {
        insertUntold(parent, child, previous);
        return;
    }
    const Block block;
    remove(child);
    insertUntold(parent, child, previous);
    Observers::tell(ofChild(RVOpenChange::ChildInserted, parent, child));
}

void insertUntold(const QDomNode& parent, const QDomNode& child, const QDomNode& previous)
{
    QDomNode place = parent;
    if (previous.isNull())
        place.insertBefore(child, QDomNode());
    else
        place.insertAfter(child, previous);
}

void tellOfInserted(const QDomNode& parent, const QDomNode& child)
{
    if (isHeard())
        Observers::tell(ofChild(RVOpenChange::ChildInserted, parent, child));
}

void append(const QDomNode& parent, const QDomNode& child)
{
    insertBehind(parent, child, parent.lastChild());
}

void remove(const QDomNode& node)
{
    Removal(node).carryOut();
}

QDomNode Removal::carryOut()
{
    const QDomNode removed = m_parent.removeChild(m_node);
    if (m_change) {
        m_change->kind = RVOpenChange::ChildRemoved;
        Observers::tell(*m_change);
    }
    return removed;
}

void Removal::announce()
{
    if (m_parent.isNull() || m_node.parentNode() != m_parent || !isHeard())
        return;
    m_change = std::make_unique<RVOpenChange>(
        ofChild(RVOpenChange::ChildAboutToBeRemoved, m_parent, m_node));
    // Both halves are one block, also where this is all that happens.
    Observers::beginBlock();
    Observers::tell(*m_change);
}

Reset::Reset(const QDomDocument& document)
    : m_isTold(isHeard())
{
    if (!m_isTold)
        return;
    m_change.kind = RVOpenChange::DocumentAboutToBeReset;
    m_change.document = document;
    Observers::beginBlock();
    Observers::tell(m_change);
    Observers::beginQuiet();
}

Reset::~Reset()
{
    if (!m_isTold)
        return;
    Observers::endQuiet();
    m_change.kind = RVOpenChange::DocumentReset;
    Observers::tell(m_change);
    Observers::endBlock();
}

void Reset::replaceBy(const QDomDocument& document)
{
    m_change.replacement = document;
}

} // namespace rvopen::changes

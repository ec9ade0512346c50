// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/TakingBack.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/FoundNodes.h>
#include <rvopen/model/NodeAccess.h>

#include <utility>

namespace rvopen {

namespace {

bool isSame(const QString& a, const QString& b)
{
    return a.isNull() == b.isNull() && a == b;
}

bool isIn(const QDomNode& node, QDomNode other)
{
    while (!other.isNull() && other != node)
        other = other.parentNode();
    return !other.isNull();
}

/// An object for a node that was put among the children of an object's element, where a walk would
/// not make it by itself.
void placeObject(RVOpenNode* owner, const QDomNode& node)
{
    // The components of a snapshot, which has other objects for the same elements in its chain.
    NodeAccess::restoreView(owner, nullptr, nullptr, node);
    if (NodeAccess::viewOf(owner, node))
        return;
    RVOpenNode* previous = nullptr;
    for (QDomNode before = node.previousSibling(); !previous && !before.isNull();
         before = before.previousSibling())
        previous = NodeAccess::viewOf(owner, before);
    // What was added from another document kept its element there.
    RVOpenNode* next = previous ? NodeAccess::next(previous) : NodeAccess::firstChild(owner);
    while (next && next->GetDomNode().parentNode() != node.parentNode()) {
        previous = next;
        next = NodeAccess::next(next);
    }
    const bool isOnly = node.previousSibling().isNull() && node.nextSibling().isNull();
    if (next || isOnly || (previous && previous->GetDomNode() == node.previousSibling()))
        NodeAccess::restoreView(owner, owner, previous, node);
}

} // namespace

TakingBack::TakingBack(std::vector<RVOpenNode*> roots)
    : m_roots(std::move(roots))
{
}

bool TakingBack::takeBack(RVOpenChange change)
{
    const changes::Block block;
    switch (change.kind) {
    case RVOpenChange::AttributeSet:
        return setBefore(change);
    case RVOpenChange::ChildInserted:
        return takeOut(change);
    case RVOpenChange::ChildAboutToBeRemoved:
        return true;
    case RVOpenChange::ChildRemoved:
        return putBack(change);
    default:
        return false;
    }
}

bool TakingBack::setBefore(const RVOpenChange& change)
{
    QDomElement element = change.node.toElement();
    if (element.isNull() || !isSame(changes::attributeOf(element, change.name), change.after))
        return false;
    ViewOf<RVOpenNode> view(element);
    FoundNodes::attributeChanged(&view.object(), change.name);
    if (change.before.isNull())
        changes::removeAttribute(element, change.name);
    else
        changes::setAttribute(element, change.name, change.before);
    return true;
}

bool TakingBack::takeOut(const RVOpenChange& change)
{
    if (change.node.isNull() || change.node.parentNode() != change.parent)
        return false;
    changes::Removal removal(change.parent, change.node);
    for (RVOpenNode* const owner : objectsOf(change.parent)) {
        for (RVOpenNode* const component : NodeAccess::components(owner)) {
            if (component->GetDomNode() != change.node)
                continue;
            NodeAccess::forgetComponent(owner, component);
            NodeAccess::releaseComponent(component);
            NodeAccess::retire(owner, component);
        }
        NodeAccess::retireView(owner, change.node);
    }
    removal.carryOut();
    return true;
}

bool TakingBack::putBack(const RVOpenChange& change)
{
    if (change.node.isNull() || !change.node.parentNode().isNull() || change.parent.isNull() ||
        (!change.previous.isNull() && change.previous.parentNode() != change.parent) ||
        isIn(change.node, change.parent))
        return false;
    const std::vector<RVOpenNode*> owners = objectsOf(change.parent);
    changes::insertUntold(change.parent, change.node, change.previous);
    for (RVOpenNode* const owner : owners) {
        placeObject(owner, change.node);
        FoundNodes::childrenChanged(owner);
    }
    changes::tellOfInserted(change.parent, change.node);
    return true;
}

/// Those that are made, from the top down.
std::vector<RVOpenNode*> TakingBack::objectsOf(const QDomNode& node) const
{
    std::vector<QDomNode> path;
    for (QDomNode at = node; !at.isNull(); at = at.parentNode())
        path.push_back(at);
    std::vector<RVOpenNode*> objects;
    for (auto at = path.rbegin(); at != path.rend(); ++at) {
        std::vector<RVOpenNode*> here;
        for (RVOpenNode* const root : m_roots) {
            if (root && root->GetDomNode() == *at)
                here.push_back(root);
        }
        for (RVOpenNode* const above : objects) {
            if (RVOpenNode* const view =
                    NodeAccess::sharesChildren(above) ? nullptr : NodeAccess::viewOf(above, *at))
                here.push_back(view);
            for (RVOpenNode* const component : NodeAccess::components(above)) {
                if (component->GetDomNode() == *at)
                    here.push_back(component);
            }
        }
        objects = std::move(here);
    }
    return objects;
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/TakingBack.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/FoundNodes.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeAside.h>

#include <algorithm>
#include <iterator>
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

/// Objects of a node that comes back, for which places are looked for.
class Returning {
public:
    Returning(std::vector<TakenView> views, const std::vector<TakingBack::Owner>& owners)
        : m_views(std::move(views))
        , m_owners(owners)
    {
    }

    /// One that the owner had, or, where it moved, one that none of them had; null without. It is
    /// given once.
    RVOpenNode* giveTo(const RVOpenNode* owner, bool asComponent)
    {
        RVOpenNode* const own =
            give(asComponent, [owner](const RVOpenNode* keeper) { return keeper == owner; });
        return own ? own : give(asComponent, [this](const RVOpenNode* keeper) {
            return std::none_of(
                m_owners.begin(), m_owners.end(),
                [keeper](const TakingBack::Owner& other) { return other.object == keeper; });
        });
    }

private:
    template <typename Fits>
    RVOpenNode* give(bool asComponent, Fits fits)
    {
        for (auto view = m_views.rbegin(); view != m_views.rend(); ++view) {
            RVOpenNode* const object = view->object.get();
            if (view->isComponent != asComponent || !fits(NodeAccess::keptBy(object)))
                continue;
            m_views.erase(std::next(view).base());
            return object;
        }
        return nullptr;
    }

    std::vector<TakenView> m_views;
    const std::vector<TakingBack::Owner>& m_owners;
};

bool isComponent(RVOpenNode* owner, const QDomNode& node)
{
    const std::vector<RVOpenNode*> components = NodeAccess::components(owner);
    return std::any_of(components.begin(), components.end(), [&node](const RVOpenNode* component) {
        return component->GetDomNode() == node;
    });
}

/// An object for a node that was put among the children of an object's element, where a walk would
/// not make it by itself.
void placeObject(RVOpenNode* owner, const QDomNode& node, Returning& returning)
{
    // The components of a snapshot, which has other objects for the same elements in its chain.
    if (RVOpenNode* const component = returning.giveTo(owner, true))
        NodeAccess::holdAgain(owner, component);
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
    RVOpenNode* const object = next || NodeAccess::comesNext(owner, previous, node)
                                   ? returning.giveTo(owner, false)
                                   : nullptr;
    const bool isOnly =
        node.previousSibling().isNull() && node.nextSibling().isNull() && !isComponent(owner, node);
    if (object)
        NodeAccess::linkAgain(owner, previous, object);
    else if (next || isOnly || (previous && previous->GetDomNode() == node.previousSibling()))
        NodeAccess::restoreView(owner, owner, previous, node);
}

/// Forgets those that are gone, or somewhere else by now, when there is no room for another.
void remember(std::vector<TakenView>& taken, RVOpenNode* object, bool isComponent)
{
    if (taken.size() == taken.capacity()) {
        taken.erase(std::remove_if(taken.begin(), taken.end(),
                                   [](const TakenView& view) {
                                       return !view.object ||
                                              !NodeAccess::isKept(view.object.get());
                                   }),
                    taken.end());
    }
    taken.push_back({object, isComponent});
}

} // namespace

TakingBack::TakingBack(std::vector<RVOpenNode*> roots)
    : m_roots(std::move(roots))
{
    m_roots.erase(std::remove(m_roots.begin(), m_roots.end(), nullptr), m_roots.end());
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
    for (const Owner& owner : objectsOf(change.parent)) {
        std::vector<TakenView>& taken = NodeAccess::taken(owner.root);
        for (RVOpenNode* const component : NodeAccess::components(owner.object)) {
            if (component->GetDomNode() != change.node)
                continue;
            NodeAccess::forgetComponent(owner.object, component);
            NodeAccess::releaseComponent(component);
            NodeAccess::retire(owner.object, component);
            remember(taken, component, true);
        }
        if (RVOpenNode* const view = NodeAccess::retireView(owner.object, change.node))
            remember(taken, view, false);
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
    const std::vector<Owner> owners = objectsOf(change.parent);
    Returning returning(takenOf(change.node), owners);
    changes::insertUntold(change.parent, change.node, change.previous);
    for (const Owner& owner : owners) {
        placeObject(owner.object, change.node, returning);
        FoundNodes::childrenChanged(owner.object);
    }
    changes::tellOfInserted(change.parent, change.node);
    return true;
}

/// Those that are made, from the top down. Of what stands in no tree the ones that were taken out.
std::vector<TakingBack::Owner> TakingBack::objectsOf(const QDomNode& node) const
{
    std::vector<QDomNode> path;
    for (QDomNode at = node; !at.isNull(); at = at.parentNode())
        path.push_back(at);
    std::vector<Owner> objects;
    for (auto at = path.rbegin(); at != path.rend(); ++at) {
        std::vector<Owner> here;
        for (RVOpenNode* const root : m_roots) {
            if (root->GetDomNode() == *at)
                here.push_back({root, root});
            if (at != path.rbegin() || at->isDocument())
                continue;
            for (const TakenView& view : NodeAccess::taken(root)) {
                if (view.object && view.object->GetDomNode() == *at &&
                    NodeAccess::isKept(view.object.get()))
                    here.push_back({view.object.get(), root});
            }
        }
        for (const Owner& above : objects) {
            if (RVOpenNode* const view = NodeAccess::sharesChildren(above.object)
                                             ? nullptr
                                             : NodeAccess::viewOf(above.object, *at))
                here.push_back({view, above.root});
            for (RVOpenNode* const component : NodeAccess::components(above.object)) {
                if (component->GetDomNode() == *at)
                    here.push_back({component, above.root});
            }
        }
        objects = std::move(here);
    }
    return objects;
}

/// What waits for the node and can stand for it again; nothing waits for it any more.
std::vector<TakenView> TakingBack::takenOf(const QDomNode& node) const
{
    std::vector<TakenView> views;
    for (RVOpenNode* const root : m_roots) {
        std::vector<TakenView>& taken = NodeAccess::taken(root);
        for (auto view = taken.end(); view != taken.begin();) {
            --view;
            RVOpenNode* const object = view->object.get();
            if (!object || object->GetDomNode() != node)
                continue;
            const auto isObject = [object](const TakenView& other) {
                return other.object == object;
            };
            if (NodeAccess::isKept(object) && NodeAccess::followsDocument(object) &&
                std::none_of(views.begin(), views.end(), isObject))
                views.push_back(*view);
            view = taken.erase(view);
        }
    }
    std::reverse(views.begin(), views.end());
    return views;
}

std::vector<TakenView>& NodeAccess::taken(RVOpenNode* root)
{
    return root->aside()->taken;
}

bool NodeAccess::followsDocument(RVOpenNode* object)
{
    if (object->m_leavesDocument || object->m_sharesChild)
        return false;
    QDomNode expected = RVOpenNode::shown(object->m_node.firstChild(), object);
    for (RVOpenNode* child = object->m_firstChild; child; child = child->m_next) {
        if (child->m_node != expected || !followsDocument(child))
            return false;
        expected = RVOpenNode::shown(expected.nextSibling(), object);
    }
    for (RVOpenNode* const component : components(object)) {
        if (component->m_node.parentNode() != object->m_node || !followsDocument(component))
            return false;
    }
    return true;
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/SnapShot.h>

#include <rvopen/MaterialRepository.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scheme.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <type_traits>
#include <typeinfo>

namespace rvopen {

template <typename Component>
Component* createWithParams(const RVOpenNode* owner, names::Name name)
{
    auto* const component = newElement<Component>(owner, name);
    if (component)
        component->PopulateParams();
    return component;
}

template <typename Component>
Component* cloneOrCreate(const RVOpenNode* owner, names::Name name, Component* source)
{
    return source ? cloneOf(source) : createWithParams<Component>(owner, name);
}

/// What a component needs after it was bound to an element of a document.
template <typename Component>
void readChildren(Component* component)
{
    if constexpr (std::is_same_v<Component, MaterialRepository> ||
                  std::is_same_v<Component, RenderTargets>)
        component->Populate();
    else if constexpr (!std::is_same_v<Component, Scheme>)
        component->GetParamHelper()->Populate();
}

/// The operations on components, each once for all of them.
struct SnapShot::Components {
    /// Deletes the component held and removes its element and no other.
    template <typename Component>
    static void remove(SnapShot* snapShot, Held<Component>& held)
    {
        destroy(snapShot, held,
                [snapShot](const QDomNode& element) { NodeAccess::retireView(snapShot, element); });
    }

    /// Only the component's own element is taken out: what a host moved out of the component by
    /// other objects of the same elements stays where it was put.
    template <typename Component, typename LetGo>
    static void destroy(const SnapShot* snapShot, Held<Component>& held, LetGo letGo)
    {
        if (!held.object)
            return;
        const QDomNode element = held.object->GetDomNode();
        // A snapshot that was taken out of its document by hand may be bound to nothing.
        changes::Removal removal(
            NodeAccess::leavesDocument(snapShot) ? QDomNode() : snapShot->GetDomNode(), element);
        letGo(element);
        drop(held);
        removal.carryOut();
    }

    /// At the end of the snapshot, when what a copy shows may be gone.
    template <typename Component>
    static void end(const SnapShot* snapShot, Held<Component>& held)
    {
        if (held.owned)
            destroy(snapShot, held, [](const QDomNode&) {});
    }

    /// Deletes the object held, leaving its element. What a copy shows is another one's.
    template <typename Component>
    static void drop(Held<Component>& held)
    {
        if (held.object && held.owned) {
            NodeAccess::releaseComponent(held.object);
            NodeAccess::dropView(held.object);
        }
        held = {};
    }

    /// Stores an object that is held by nobody.
    template <typename Component>
    static void hold(SnapShot* snapShot, Held<Component>& held, Component* fresh)
    {
        held.object = fresh;
        held.owned = true;
        NodeAccess::holdComponent(snapShot, fresh);
    }

    /// Removes the component held and stores \p fresh, its element as the last child.
    template <typename Component>
    static Component* replace(SnapShot* snapShot, Held<Component>& held, Component* fresh)
    {
        const changes::Block block;
        remove(snapShot, held);
        if (fresh) {
            hold(snapShot, held, fresh);
            changes::append(snapShot->GetDomNode(), fresh->GetDomNode());
            NodeAccess::holdDocument(fresh);
        }
        return fresh;
    }

    /// Stores a deep copy of \p source, for null nothing. Null, with nothing changed, also when
    /// memory is exhausted.
    template <typename Component>
    static Component* addCopy(SnapShot* snapShot, Held<Component>& held, Component* source)
    {
        return addCopy(snapShot, held, source, [](Component&) {});
    }

    template <typename Component, typename Prepare>
    static Component* addCopy(SnapShot* snapShot, Held<Component>& held, Component* source,
                              Prepare prepare)
    {
        const changes::Block block;
        // The copy comes first: the source may be the component held.
        auto* const copy = cloneOf(source);
        if (copy)
            prepare(*copy);
        return source && !copy ? nullptr : replace(snapShot, held, copy);
    }

    /// Makes the object of a component's element, unless the one held is that already.
    template <typename Component, Held<Component> SnapShot::*member>
    static void bind(SnapShot* snapShot, const QDomNode& node)
    {
        Held<Component>& held = snapShot->*member;
        if (!held.object || held.object->GetDomNode() != node) {
            Component* const made = newBound<Component>(node);
            if (!made)
                return;
            drop(held);
            hold(snapShot, held, made);
        }
        readChildren(held.object);
    }

    /// The component held; where none is, of the last of its elements, if there is one.
    template <typename Component, Held<Component> SnapShot::*member>
    static Component* find(SnapShot* snapShot, names::Name name)
    {
        const Held<Component>& held = snapShot->*member;
        const QDomElement element =
            held.object ? QDomElement() : snapShot->GetDomNode().lastChildElement(name());
        if (!element.isNull())
            bind<Component, member>(snapShot, element);
        return held.object;
    }

    template <typename Component, Held<Component> SnapShot::*member>
    static Component* getOrCreate(SnapShot* snapShot, names::Name name)
    {
        Component* const found = find<Component, member>(snapShot, name);
        return found ? found
                     : replace(snapShot, snapShot->*member, newElement<Component>(snapShot, name));
    }

    /// The component leaves the snapshot, which may be shown it still by others.
    template <typename Component, Held<Component> SnapShot::*member>
    static bool forget(SnapShot* snapShot, const RVOpenNode* component)
    {
        Held<Component>& held = snapShot->*member;
        if (held.object != component)
            return false;
        held = {};
        return true;
    }

    /// Holds a component that is kept, where none is held and a look-up would find that one.
    template <typename Component, Held<Component> SnapShot::*member>
    static bool holdAgain(SnapShot* snapShot, names::Name name, RVOpenNode* component)
    {
        Held<Component>& held = snapShot->*member;
        if (held.object ||
            snapShot->GetDomNode().lastChildElement(name()) != component->GetDomNode())
            return false;
        NodeAccess::leaveKeeper(component);
        hold(snapShot, held, static_cast<Component*>(component));
        return true;
    }

    template <typename Component, Held<Component> SnapShot::*member>
    static RVOpenNode* owned(const SnapShot* snapShot)
    {
        const Held<Component>& held = snapShot->*member;
        return held.owned ? held.object : nullptr;
    }

    /// The component leaves the snapshot for good; it stays valid as long as the snapshot.
    template <typename Component, Held<Component> SnapShot::*member>
    static void retire(SnapShot* snapShot)
    {
        Held<Component>& held = snapShot->*member;
        if (held.object && held.owned) {
            NodeAccess::releaseComponent(held.object);
            NodeAccess::retire(snapShot, held.object);
        }
        held = {};
    }

    template <typename Component, Held<Component> SnapShot::*member>
    static RVOpenNode* findAny(SnapShot* snapShot, names::Name name)
    {
        return find<Component, member>(snapShot, name);
    }

    /// What is done to each component in turn.
    struct Row {
        names::Name name;
        void (*bind)(SnapShot* snapShot, const QDomNode& node);
        bool (*forget)(SnapShot* snapShot, const RVOpenNode* component);
        bool (*holdAgain)(SnapShot* snapShot, names::Name name, RVOpenNode* component);
        RVOpenNode* (*owned)(const SnapShot* snapShot);
        void (*retire)(SnapShot* snapShot);
        const std::type_info* type;
        RVOpenNode* (*find)(SnapShot* snapShot, names::Name name);
    };
    template <typename Component, Held<Component> SnapShot::*member>
    static constexpr Row row(names::Name name)
    {
        return {name,
                bind<Component, member>,
                forget<Component, member>,
                holdAgain<Component, member>,
                owned<Component, member>,
                retire<Component, member>,
                &typeid(Component),
                findAny<Component, member>};
    }
    static const Row s_rows[10];
};

} // namespace rvopen

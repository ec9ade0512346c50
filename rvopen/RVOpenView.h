// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>

#include <QDomNode>

#include <type_traits>
#include <utility>

namespace rvopen {

/// Deletes \p object with the objects below and behind it and leaves every element where it stands,
/// where delete would take them out of the document. Null is ignored.
RVOPEN_EXPORT void DropView(RVOpenNode* object);

/// An object over a node of a document for the time of a scope, the way to look at a document that
/// is somebody's own: at its end the objects go and the document stays as it is.
///
/// RVOpenView<> makes the object that the factory makes for the node. RVOpenView<Scenery> makes one
/// of that class, whatever the name of the element is, with the objects that its Populate() gives.
/// Over a null node the object is bound to nothing: its getters report absence.
template <typename Class = RVOpenNode>
class RVOpenView {
public:
    /// Makes the object over \p node, which may be null.
    explicit RVOpenView(const QDomNode& node)
        : m_object(make(node))
    {
    }
    /// Takes the object of \p other, which has none then.
    RVOpenView(RVOpenView&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    /// Swaps the objects: the one that was here goes with \p other.
    RVOpenView& operator=(RVOpenView&& other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    /// Drops the object; the document stays as it is.
    ~RVOpenView()
    {
        DropView(m_object);
    }
    RVOpenView(const RVOpenView&) = delete;
    RVOpenView& operator=(const RVOpenView&) = delete;

    /// Owned by the view and valid as long as it, as are the children and siblings that a walk from
    /// it makes. Null only in a view that was moved from, and when memory is exhausted.
    Class* get() const
    {
        return m_object;
    }
    /// The object, which is the caller's then: its end takes its element out of the document, as
    /// that of any other object does.
    [[nodiscard]] Class* release()
    {
        return std::exchange(m_object, nullptr);
    }
    /// As get().
    Class* operator->() const
    {
        return m_object;
    }
    /// As get(), for a view that has an object.
    Class& operator*() const
    {
        return *m_object;
    }

private:
    template <typename Object, typename = void>
    struct HasPopulate : std::false_type {
    };
    template <typename Object>
    struct HasPopulate<Object, std::void_t<decltype(std::declval<Object&>().Populate())>>
        : std::true_type {
    };

    static Class* make(const QDomNode& node)
    {
        if constexpr (std::is_same_v<Class, RVOpenNode>) {
            return RVOpenSchema::createNode(node);
        } else {
            Class* object = nullptr;
            if constexpr (std::is_constructible_v<Class, QDomNode>)
                object = new Class(node);
            else if constexpr (std::is_default_constructible_v<Class>)
                object = new Class();
            else
                object = new Class(nullptr);
            if (!object)
                return nullptr;
            if constexpr (!std::is_constructible_v<Class, QDomNode>)
                object->SetDomNode(node);
            if constexpr (HasPopulate<Class>::value)
                object->Populate();
            return object;
        }
    }

    Class* m_object;
};

} // namespace rvopen

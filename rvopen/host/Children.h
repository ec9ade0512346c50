// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/host/Ref.h>

#include <cstddef>
#include <iterator>

namespace rvopen::host {

/// The children of a class, for a loop; see children().
template <typename Class>
class Children {
public:
    /// Goes from child to child. It is at the end where its child would be null.
    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag; ///< It goes once, and forward.
        using value_type = Class*;                         ///< A child.
        using difference_type = std::ptrdiff_t;            ///< As iterators have it.
        using pointer = Class* const*;                     ///< As iterators have it.
        using reference = Class*;                          ///< Children are given by value.

        /// The end.
        Iterator() = default;
        /// At the first one of the class from \p first on.
        explicit Iterator(RVOpenNode* first)
            : m_next(first)
            , m_hasNext(first != nullptr)
            , m_parent(first ? first->GetParent() : nullptr)
        {
            ++*this;
        }

        /// Owned by its parent.
        Class* operator*() const
        {
            return m_child;
        }
        /// To the next one of the class, or to the end.
        Iterator& operator++()
        {
            m_child = nullptr;
            for (RVOpenNode* node = following(); node && !m_child; node = following()) {
                m_child = dynamic_cast<Class*>(node);
                m_current = node;
                m_next = node->GetNext(1);
                m_hasNext = bool(m_next);
            }
            return *this;
        }
        /// Whether both are at the same child, or at the end.
        bool operator==(const Iterator& other) const
        {
            return m_child == other.m_child;
        }
        /// Whether they are not.
        bool operator!=(const Iterator& other) const
        {
            return m_child != other.m_child;
        }

    private:
        bool isChild(const Ref<>& node) const
        {
            return node && node->GetParent() == m_parent &&
                   !node->GetDomNode().parentNode().isNull();
        }
        RVOpenNode* following() const
        {
            if (!m_hasNext || isChild(m_next))
                return m_next.get();
            return isChild(m_current) ? m_current->GetNext(1) : nullptr;
        }

        Class* m_child = nullptr;
        Ref<> m_current; ///< Of any class: what was met last.
        Ref<> m_next;    ///< What stood behind it then.
        bool m_hasNext = false;
        RVOpenNode* m_parent = nullptr;
    };

    /// Of \p parent, which may be null.
    explicit Children(RVOpenNode* parent)
        : m_parent(parent)
    {
    }

    /// Makes the first child, and opens the archive that the parent stands for.
    Iterator begin() const
    {
        return Iterator(m_parent ? m_parent->GetChild(1, 1) : nullptr);
    }
    /// Where the loop ends.
    Iterator end() const
    {
        return Iterator();
    }

private:
    RVOpenNode* m_parent;
};

/// The children of that class, made as the loop comes to them; all of them where none is named:
/// `for (Material* material : host::children<Material>(palette))`. Of an archive reference they are
/// those of its archive. None for null.
///
/// The body of the loop may delete, detach or move the child that it has, or the one behind it; who
/// takes both away ends the loop. What it adds right behind the child that it has is not met. What
/// the parent is a part of has to last as long as the loop. A walk over a snapshot gives objects of
/// its own for the elements of its components: find() gives those that the getters give.
template <typename Class = RVOpenNode>
[[nodiscard]] Children<Class> children(RVOpenNode* parent)
{
    return Children<Class>(parent);
}

} // namespace rvopen::host

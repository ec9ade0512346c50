// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/RVOpenNode.h>

#include <type_traits>

namespace rvopen::host {

/// What handles of all classes have in common: an object until it goes.
class RVOPEN_EXPORT RefBase {
protected:
    /// To none.
    RefBase() = default;
    /// To \p object, which may be null.
    explicit RefBase(RVOpenNode* object);
    /// A second handle to the same object.
    RefBase(const RefBase& other);
    /// The other one is to none then.
    RefBase(RefBase&& other) noexcept;
    /// As the copy.
    RefBase& operator=(const RefBase& other);
    /// As the move.
    RefBase& operator=(RefBase&& other) noexcept;
    ~RefBase();

    /// Null once it is gone.
    RVOpenNode* object() const
    {
        return m_object;
    }

private:
    friend struct References;

    void leave();

    RVOpenNode* m_object = nullptr;
    RefBase* m_next = nullptr;
    RefBase* m_previous = nullptr;
};

/// A handle to an object of the library that is null once the object is gone, however it goes: with
/// its parent, its document, its archive or its manager, or because a setter replaced it. The end
/// of the object itself says so: a new object at the same address is never taken for it. A handle
/// owns nothing and keeps nothing alive; an object without handles costs nothing.
///
/// An object that moved or was detached is not gone, nor is one that the library keeps for whoever
/// holds it. Where an operation puts a new object over an element that stays, the handle does not
/// follow. Of an object on its way out, what an observer is told before its element is removed
/// still finds it; of what is told later, nothing does.
///
/// A handle belongs to the thread of its object.
template <typename Class = RVOpenNode>
class Ref : private RefBase {
public:
    /// Null.
    Ref() = default;
    /// To \p object, which may be null and has to be alive.
    Ref(Class* object)
        : RefBase(object)
    {
    }
    /// To the object of a handle of a derived class.
    template <typename Other, typename = std::enable_if_t<std::is_convertible_v<Other*, Class*> &&
                                                          !std::is_same_v<Other, Class>>>
    Ref(const Ref<Other>& other)
        : RefBase(other.get())
    {
    }

    /// Null once the object is gone. Owned as ever.
    [[nodiscard]] Class* get() const
    {
        return static_cast<Class*>(object());
    }
    /// As get(), for a handle that is not null.
    Class* operator->() const
    {
        return get();
    }
    /// As get(), for a handle that is not null.
    Class& operator*() const
    {
        return *get();
    }
    /// Whether the object is there.
    explicit operator bool() const
    {
        return object() != nullptr;
    }

    /// \name Comparing
    /// Equal are handles to the same object, and those to none. A handle is no key of
    /// a container, since it becomes null.
    /// @{
    /// Whether both are to the same object, or to none.
    friend bool operator==(const Ref& a, const Ref& b)
    {
        return a.get() == b.get();
    }
    /// Whether they are not.
    friend bool operator!=(const Ref& a, const Ref& b)
    {
        return a.get() != b.get();
    }
    /// Whether both are to the same object, or to none.
    friend bool operator==(const Ref& a, const Class* b)
    {
        return a.get() == b;
    }
    /// Whether they are not.
    friend bool operator!=(const Ref& a, const Class* b)
    {
        return a.get() != b;
    }
    /// Whether both are to the same object, or to none.
    friend bool operator==(const Class* a, const Ref& b)
    {
        return a == b.get();
    }
    /// Whether they are not.
    friend bool operator!=(const Class* a, const Ref& b)
    {
        return a != b.get();
    }
    /// @}
};

} // namespace rvopen::host

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/model/NodeAccess.h>

namespace rvopen {

/// What holds an object and is no node. A host that deletes the object, or gives it a place in a
/// tree, takes it away: the holder has null then, instead of what is gone or somebody else's.
class Holder {
public:
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    /// To be called when an object that is held dies or is taken over.
    static void lose(RVOpenNode* object);

protected:
    Holder() = default;
    ~Holder() = default;

    void hold(RVOpenNode* object);
    /// Gives the object away, without telling anybody.
    RVOpenNode* giveAway();
    void takeFrom(Holder& other);
    RVOpenNode* held() const
    {
        return m_object;
    }

private:
    RVOpenNode* m_object = nullptr;
};

/// Deletes an object and leaves its elements where they are.
struct ViewDeleter {
    void operator()(RVOpenNode* object) const
    {
        NodeAccess::dropView(object);
    }
};

/// Deletes an object with its element.
struct ObjectDeleter {
    void operator()(RVOpenNode* object) const
    {
        delete object;
    }
};

/// Owns an object as std::unique_ptr does.
template <typename Class, typename Deleter>
class HeldObject : private Holder {
public:
    HeldObject() = default;
    explicit HeldObject(Class* object)
    {
        hold(object);
    }
    HeldObject(HeldObject&& other) noexcept
    {
        takeFrom(other);
    }
    /// From one that holds a derived class.
    template <typename Other>
    HeldObject(HeldObject<Other, Deleter>&& other)
    {
        hold(other.release());
    }
    HeldObject& operator=(HeldObject&& other) noexcept
    {
        if (this != &other) {
            reset();
            takeFrom(other);
        }
        return *this;
    }
    ~HeldObject()
    {
        reset();
    }

    Class* get() const
    {
        return static_cast<Class*>(held());
    }
    Class* operator->() const
    {
        return get();
    }
    explicit operator bool() const
    {
        return held() != nullptr;
    }
    Class* release()
    {
        return static_cast<Class*>(giveAway());
    }
    void reset(Class* object = nullptr)
    {
        RVOpenNode* const old = giveAway();
        hold(object);
        Deleter()(old);
    }
};

/// An object over an element that belongs to a document and stays in it.
template <typename Class>
using View = HeldObject<Class, ViewDeleter>;

} // namespace rvopen

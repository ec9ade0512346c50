// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Ref.h>

#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/References.h>

#include <mutex>
#include <unordered_map>

namespace rvopen::host {

namespace {

/// The first handle to each object that has some. Objects may live in different threads. Never
/// deleted, since the registry of archives lives as long as the library.
struct Referred {
    std::mutex mutex;
    std::unordered_map<const RVOpenNode*, RefBase*> first;
};

Referred& referred()
{
    static auto* const all = new Referred;
    return *all;
}

} // namespace

RefBase::RefBase(RVOpenNode* object)
    : m_object(object)
{
    if (object)
        References::add(this);
}

RefBase::RefBase(const RefBase& other)
    : RefBase(other.m_object)
{
}

// A handle beside another one to the same object needs no memory.
RefBase::RefBase(RefBase&& other) noexcept
    : RefBase(other.m_object)
{
    other.leave();
}

RefBase& RefBase::operator=(const RefBase& other)
{
    if (m_object == other.m_object)
        return *this;
    leave();
    m_object = other.m_object;
    if (m_object)
        References::add(this);
    return *this;
}

RefBase& RefBase::operator=(RefBase&& other) noexcept
{
    if (this != &other) {
        *this = static_cast<const RefBase&>(other);
        other.leave();
    }
    return *this;
}

RefBase::~RefBase()
{
    leave();
}

void RefBase::leave()
{
    if (m_object)
        References::remove(this);
    m_object = nullptr;
}

void References::add(RefBase* handle)
{
    const std::lock_guard<std::mutex> lock(referred().mutex);
    RefBase*& first = referred().first[handle->m_object];
    handle->m_previous = nullptr;
    handle->m_next = first;
    if (first)
        first->m_previous = handle;
    first = handle;
    NodeAccess::setReferred(handle->m_object, true);
}

void References::remove(RefBase* handle)
{
    const std::lock_guard<std::mutex> lock(referred().mutex);
    if (handle->m_next)
        handle->m_next->m_previous = handle->m_previous;
    if (handle->m_previous) {
        handle->m_previous->m_next = handle->m_next;
    } else if (handle->m_next) {
        referred().first[handle->m_object] = handle->m_next;
    } else {
        referred().first.erase(handle->m_object);
        NodeAccess::setReferred(handle->m_object, false);
    }
}

void References::end(RVOpenNode* object)
{
    const std::lock_guard<std::mutex> lock(referred().mutex);
    const auto found = referred().first.find(object);
    if (found == referred().first.end())
        return;
    for (RefBase* handle = found->second; handle; handle = handle->m_next)
        handle->m_object = nullptr;
    referred().first.erase(found);
    NodeAccess::setReferred(object, false);
}

} // namespace rvopen::host

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/HeldObject.h>

#include <mutex>
#include <unordered_map>

namespace rvopen {

namespace {

/// The holders of the process by what they hold: a few for each manager. Managers may live in
/// different threads. Never deleted, since the registry of archives lives as long as the library.
struct Holders {
    std::mutex mutex;
    std::unordered_map<RVOpenNode*, Holder*> byObject;
};

Holders& holders()
{
    static auto* const all = new Holders();
    return *all;
}

} // namespace

void Holder::lose(RVOpenNode* object)
{
    const std::lock_guard lock(holders().mutex);
    const auto found = holders().byObject.find(object);
    if (found == holders().byObject.end())
        return;
    found->second->m_object = nullptr;
    holders().byObject.erase(found);
}

void Holder::hold(RVOpenNode* object)
{
    m_object = object;
    if (!object)
        return;
    const std::lock_guard lock(holders().mutex);
    holders().byObject[object] = this;
    NodeAccess::holdOutside(object);
}

RVOpenNode* Holder::giveAway()
{
    RVOpenNode* const object = m_object;
    m_object = nullptr;
    if (!object)
        return nullptr;
    const std::lock_guard lock(holders().mutex);
    holders().byObject.erase(object);
    NodeAccess::releaseOutside(object);
    return object;
}

void Holder::takeFrom(Holder& other)
{
    hold(other.giveAway());
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenStatus.h>

#include <optional>

/// What the comparisons of the material classes have in common.
namespace rvopen {

/// Where either node has a reference name, whether the two are the same; nothing where neither has
/// one and the content decides.
inline std::optional<bool> equalByRefName(const RVOpenNode* one, const RVOpenNode* other)
{
    const QString name = one->GetRefName();
    const QString otherName = other->GetRefName();
    if (name.isEmpty() && otherName.isEmpty())
        return std::nullopt;
    return name == otherName;
}

/// Equal() where both are there; else whether both are absent.
template <typename Component, typename... Arguments>
bool equalOrBothAbsent(Component* one, Component* other, Arguments... arguments)
{
    return one && other ? one->Equal(other, arguments...) : one == other;
}

/// Compares two values exactly; a value that cannot be read on either side counts as equal.
template <typename Class, typename Value>
bool equalWhereReadable(Class* one, Class* other, unsigned int (Class::*getter)(Value*))
{
    Value value{};
    Value otherValue{};
    return (one->*getter)(&value) != StatusOk || (other->*getter)(&otherValue) != StatusOk ||
           value == otherValue;
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

#include <typeinfo>

namespace rvopen {

/// The node as an object of the class; null for null and for another class. Nearly all objects are
/// of that very class, which takes no walk through the hierarchy to see.
template <typename Class>
Class* nodeCast(RVOpenNode* node)
{
    if (node && typeid(*node) == typeid(Class))
        return static_cast<Class*>(node);
    return dynamic_cast<Class*>(node);
}

} // namespace rvopen

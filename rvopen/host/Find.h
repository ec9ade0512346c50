// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/host/Children.h>

#include <optional>
#include <typeinfo>

namespace rvopen::host {

/// What find() asks first: the component of that class where \p node is a snapshot, null where it
/// lacks it; nothing where it is none, or the class is that of no component.
[[nodiscard]] RVOPEN_EXPORT std::optional<RVOpenNode*> findComponent(RVOpenNode* node,
                                                                     const std::type_info& type);

/// The object of that class in \p parent, null where there is none and for null: of a snapshot the
/// component, which its getter gives as well from then on; of anything else the first child of the
/// class, which may be in an archive that the parent stands for. No element is ever created, also
/// where the getter would, so that looking at a document leaves it as it is. Owned by the parent.
template <typename Class>
[[nodiscard]] Class* find(RVOpenNode* parent)
{
    if (const std::optional<RVOpenNode*> component = findComponent(parent, typeid(Class)))
        return static_cast<Class*>(*component);
    return *children<Class>(parent).begin();
}

} // namespace rvopen::host

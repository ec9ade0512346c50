// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Find.h>

#include <rvopen/model/NodeAccess.h>

namespace rvopen::host {

std::optional<RVOpenNode*> findComponent(RVOpenNode* node, const std::type_info& type)
{
    return NodeAccess::findComponent(node, type);
}

} // namespace rvopen::host

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenView.h>

#include <rvopen/model/NodeAccess.h>

namespace rvopen {

void DropView(RVOpenNode* object)
{
    NodeAccess::dropView(object);
}

} // namespace rvopen

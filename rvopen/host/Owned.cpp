// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Owned.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/NodeAccess.h>

namespace rvopen::host {

bool give(RVOpenNode* parent, RVOpenNode* child)
{
    if (!parent || !NodeAccess::canTake(parent, child) || parent->GetDomNode().isNull())
        return false;
    RVOpenNode* const owner = NodeAccess::childOwner(parent);
    if (!owner || !NodeAccess::canTake(owner, child))
        return false;
    const QDomNode element = child->GetDomNode();
    const changes::Block block;
    // AddNode() would leave the object with the element of the other document.
    if (!element.parentNode().isNull() &&
        element.ownerDocument() != owner->GetDomNode().ownerDocument()) {
        parent->InsertNode(child, owner->GetChildPos(nullptr));
    } else {
        parent->AddNode(child, true);
    }
    return true;
}

} // namespace rvopen::host

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenView.h>

#include <memory>

namespace rvopen::host {

/// An object that is the caller's and stands in no tree. It goes with its element at the end,
/// unless release() gives it away. For a look at a document that is somebody else's see RVOpenView.
template <typename Class = RVOpenNode>
using Owned = std::unique_ptr<Class>;

/// A free-standing deep copy in the same document, of that class; with Class RVOpenNode of the one
/// that stands for the element. Null for null, and where no class stands for the element.
template <typename Class>
[[nodiscard]] Owned<Class> clone(Class* source)
{
    if (!source)
        return nullptr;
    return Owned<Class>(RVOpenView<Class>(RVOpenNode(source).GetDomNode()).release());
}

/// Makes \p child the last child of \p parent, or of the archive that this stands for, and its
/// property. An element that stands in another document stays there; the child shows the copy that
/// was added. False, with nothing changed, for no parent or child, a parent bound to nothing, a
/// child that is the parent or above it, and an archive that cannot be opened.
[[nodiscard]] RVOPEN_EXPORT bool give(RVOpenNode* parent, RVOpenNode* child);

/// The same, with the ownership in sight: the child, which is the parent's then, or null where
/// nothing was added, and \p child has it still.
template <typename Class>
Class* append(RVOpenNode* parent, Owned<Class>&& child)
{
    return give(parent, child.get()) ? child.release() : nullptr;
}

/// Takes \p child out of the children of \p parent, or of the archive that this stands for: it is
/// the caller's then, with its element. Null, with nothing changed, for what is no child there; a
/// component that a getter of a snapshot gave is none, a child of that snapshot from a walk is.
template <typename Class>
[[nodiscard]] Owned<Class> detach(RVOpenNode* parent, Class* child)
{
    RVOpenNode* node = parent && child ? parent->GetChild(1, 1) : nullptr;
    while (node && node != child)
        node = node->GetNext(1);
    if (!node)
        return nullptr;
    parent->DetachNode(child, true);
    return Owned<Class>(child);
}

} // namespace rvopen::host

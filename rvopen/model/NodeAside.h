// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/host/Ref.h>

#include <vector>

namespace rvopen {

/// An object whose element was taken out, which waits to stand in its tree again.
struct TakenView {
    host::Ref<> object;
    bool isComponent; ///< Of a snapshot, in no chain.
};

/// What few nodes need, so that the others need no room for it.
struct RVOpenNode::Aside {
    RVOpenNode* parent = nullptr; ///< Shown to the host.
    RVOpenNode* holder = nullptr; ///< What holds the node, where that is not the parent shown.
    /// Nodes bound to nothing, each with a chain of objects that have left this node's tree, or the
    /// chain that it was in, and that the host may still hold.
    RVOpenNode* kept = nullptr;
    /// Of those in the whole tree below this node what taking changes back took out.
    std::vector<TakenView> taken;
};

} // namespace rvopen

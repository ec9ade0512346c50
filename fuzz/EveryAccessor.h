// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

namespace rvopen {
class RVOpenNode;
}

namespace rvopen::fuzz {

class FuzzInput;

/// Makes the objects of everything below \p node, the components that snapshots hold included.
/// Archive references are not followed.
void materialise(RVOpenNode* node);

/// Appends \p node and all that is below it; of a snapshot the components, not the children: one
/// object for each element.
void collect(RVOpenNode* node, std::vector<RVOpenNode*>& nodes);

/// Calls everything that only reads, on \p node and all that is below it.
void readEverything(RVOpenNode* node);

/// Calls everything that changes the document or creates what is missing, on \p node and all that
/// is below it, with values from \p values. Nothing is removed.
void writeEverything(RVOpenNode* node, FuzzInput& values);

} // namespace rvopen::fuzz

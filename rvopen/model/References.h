// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen {

class RVOpenNode;

namespace host {

class RefBase;

/// Which handles lead to which objects.
struct References {
    static void add(RefBase* handle);
    static void remove(RefBase* handle);
    /// The object goes: its handles are null from now on.
    static void end(RVOpenNode* object);
};

} // namespace host
} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// A folder of presets in an archive: it may hold presets of any kind and further folders.
class RVOPEN_EXPORT Directory : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit Directory(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    Directory(const Directory& other) = default;
    Directory& operator=(const Directory& other) = default;
    ~Directory() override;
};

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// Preset of which way up a picture is.
class RVOPEN_EXPORT AspectRatioOrient : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit AspectRatioOrient(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    AspectRatioOrient(const AspectRatioOrient& other) = default;
    AspectRatioOrient& operator=(const AspectRatioOrient& other) = default;
    ~AspectRatioOrient() override;

    /// Parameter "Portrait": 1 upright, 0 landscape. StatusMissing, with the output untouched, when
    /// it is missing or no boolean.
    virtual unsigned int IsPortrait(int* out);
};

} // namespace rvopen

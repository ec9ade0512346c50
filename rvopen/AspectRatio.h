// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// Preset of the proportions of a picture.
class RVOPEN_EXPORT AspectRatio : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit AspectRatio(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    AspectRatio(const AspectRatio& other) = default;
    AspectRatio& operator=(const AspectRatio& other) = default;
    ~AspectRatio() override;

    /// Parameter "Aspect Ratio": long side to short side. StatusMissing, with the output untouched,
    /// when it is missing or no float.
    virtual unsigned int GetAspectRatio(float* out);
};

} // namespace rvopen

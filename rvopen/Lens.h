// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// Preset of a camera's angle of view.
class RVOPEN_EXPORT Lens : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit Lens(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    Lens(const Lens& other) = default;
    Lens& operator=(const Lens& other) = default;
    ~Lens() override;

    /// Parameter "Angle": across the width of the image, in degrees. StatusMissing, with the output
    /// untouched, when it is missing or no float.
    virtual unsigned int GetAngle(float* out);
    /// StatusMissing, with nothing changed, when "Angle" is missing or no float.
    unsigned int SetAngle(float angle);
};

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// The lamps of a snapshot: whether they are on, and how bright they are as a whole.
///
/// Getters and setters return StatusMissing when the parameter is missing or of another type;
/// outputs are untouched then.
class RVOPEN_EXPORT ArtificialLightStudio : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit ArtificialLightStudio(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    ArtificialLightStudio(const ArtificialLightStudio& other) = default;
    ArtificialLightStudio& operator=(const ArtificialLightStudio& other) = default;
    ~ArtificialLightStudio() override;

    /// Creates all parameters, on a node that has no parameter at all.
    void PopulateParams();

    /// Parameter "Enabled", 0 or 1; not the node's own flag.
    unsigned int SetEnabled(int enabled);
    unsigned int GetEnabled(int* out);
    /// Parameter "Intensity Scale", a factor: 1 leaves the lamps as they are.
    unsigned int SetIntensityScale(float scale);
    unsigned int GetIntensityScale(float* out);
};

} // namespace rvopen

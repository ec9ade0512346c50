// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// The sun of a snapshot: whether it shines, and from where.
///
/// Getters and setters return StatusMissing when the parameter is missing or of another type;
/// outputs are untouched then. Angles are in degrees.
class RVOPEN_EXPORT NaturalLightStudio : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit NaturalLightStudio(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    NaturalLightStudio(const NaturalLightStudio& other) = default;
    NaturalLightStudio& operator=(const NaturalLightStudio& other) = default;
    ~NaturalLightStudio() override;

    /// Creates all parameters, on a node that has no parameter at all.
    void PopulateParams();

    /// Parameter "Enabled", 0 or 1; not the node's own flag.
    unsigned int SetEnabled(int enabled);
    unsigned int GetEnabled(int* out);
    /// Parameter "Sun Azimuth": from north, clockwise.
    unsigned int SetSunAzimuth(float azimuth);
    unsigned int GetSunAzimuth(float* out);
    /// Parameter "Sun Altitude": above the horizon.
    unsigned int SetSunAltitude(float altitude);
    unsigned int GetSunAltitude(float* out);
};

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// Effects on the ground under the model: drop shadow, drop sunlight, drop reflection, and the size
/// of the base that they fall on.
///
/// Getters and setters return StatusMissing when the parameter is missing or of another type, with
/// outputs untouched unless the operation says otherwise.
class RVOPEN_EXPORT Scenery : public RVOpenNode {
public:
    /// Binds to \p node.
    explicit Scenery(QDomNode node);
    /// A free-standing clone; null gives an object bound to nothing.
    explicit Scenery(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    Scenery(const Scenery& other) = default;
    Scenery& operator=(const Scenery& other) = default;
    ~Scenery() override;

    /// Creates all parameters but "Drop Shadow Catch Spots", on a node that has no parameter at
    /// all.
    void PopulateParams();

    /// \name Switches
    /// Parameters "Drop Shadow", "Drop Sunlight" and "Drop Reflection", 0 or 1.
    /// @{
    unsigned int EnableDropShadow(int enabled);
    unsigned int GetDropShadowEnabled(int* out);
    unsigned int EnableDropSunLight(int enabled);
    unsigned int GetDropSunLightEnabled(int* out);
    unsigned int EnableDropReflection(int enabled);
    unsigned int GetDropReflectionEnabled(int* out);
    /// @}

    /// \name Look
    /// @{

    /// Parameter "Drop Shadow Quality": the host's steps.
    unsigned int SetDropShadowQuality(int quality);
    unsigned int GetDropShadowQuality(int* out);
    /// Parameter "Drop Shadow Contrast": 1 for a shadow as dark as it is, 0 for none.
    unsigned int SetDropShadowContrast(float contrast);
    unsigned int GetDropShadowContrast(float* out);
    /// Parameter "Drop Sunlight Brightness": the part of the sunlight, 0 to 1.
    unsigned int SetDropSunLightBrightness(float brightness);
    unsigned int GetDropSunLightBrightness(float* out);
    /// Parameter "Drop Reflection Brightness": the part that is mirrored, 0 to 1.
    unsigned int SetDropReflectionBrightness(float brightness);
    unsigned int GetDropReflectionBrightness(float* out);
    /// Parameter "Drop Reflection Blur": roughness of the reflection, 0 to 1.
    unsigned int SetDropReflectionBlur(float blur);
    unsigned int GetDropReflectionBlur(float* out);
    /// @}

    /// \name What older documents lack
    /// Setters create the parameter when it is missing; getters answer what such a document means.
    /// @{

    /// Parameter "Base Size": in lengths of the model's longest horizontal side.
    unsigned int SetBaseSize(float size);
    /// 3 with StatusMissing when it cannot be read.
    unsigned int GetBaseSize(float* out);
    /// Parameter "Drop Shadow Catch Spots", 0 or 1.
    unsigned int SetDropShadowCatchSpots(int catchSpots);
    /// 1 with StatusMissing when it cannot be read.
    unsigned int GetDropShadowCatchSpots(int* out);
    /// @}
};

} // namespace rvopen

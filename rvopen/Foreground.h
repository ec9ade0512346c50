// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// What lies between the camera and the model. The kind is the sub-category; only a depth cue,
/// which fades the model into a colour with growing distance, has parameters.
///
/// Getters return StatusMissing, with the output untouched, when the parameter is missing or of
/// another type.
class RVOPEN_EXPORT Foreground : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit Foreground(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    Foreground(const Foreground& other) = default;
    Foreground& operator=(const Foreground& other) = default;
    ~Foreground() override;

    /// Creates the parameters of a depth cue, on a depth cue that has no parameter at all.
    void PopulateParams();

    /// 1 if the sub-category says so.
    int IsDepthCue() const;
    /// Parameter "Background Colour": the colour that the model fades into, three floats.
    unsigned int GetDepthCueBackgroundColour(float* const out);
    /// Parameter "Near": the distance at which fading starts.
    unsigned int GetDepthCueNear(float* out);
    /// Parameter "Far": the distance from which only the colour is left.
    unsigned int GetDepthCueFar(float* out);
};

} // namespace rvopen

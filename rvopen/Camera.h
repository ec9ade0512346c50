// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// A view of the model: position, direction, lens and clipping.
///
/// Points and vectors are arrays of three floats. They are in scene units, as are distances; angles
/// are in degrees. Only parameters that a document marks as lengths are converted between document
/// and scene units.
class RVOPEN_EXPORT Camera : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit Camera(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    Camera(const Camera& other) = default;
    Camera& operator=(const Camera& other) = default;
    ~Camera() override;

    /// Sets "From", "To", "Up", "Orthographic" and "Field Of View", as far as they exist.
    /// The status is that of the last one that exists, StatusMissing when none does: a failure of
    /// an earlier one does not show.
    virtual unsigned int SetPinhole(float* const from, float* const to, float* const up,
                                    int orthographic, float fieldOfView);
    /// Reads what SetPinhole() sets. An output whose value cannot be read is untouched. The status
    /// is that of "Field Of View" alone.
    virtual unsigned int GetPinhole(float* const from, float* const to, float* const up,
                                    int* orthographic, float* fieldOfView);
    /// Sets "Near" and "Far", the distances between which something is drawn, as far as they exist.
    /// StatusMissing when "Near" is missing or either is no float; a missing "Far" does not show.
    virtual unsigned int SetClipping(float nearDistance, float farDistance);

    /// Creates all parameters, on a node that has no parameter at all.
    void PopulateParams();

    /// Parameter "View Fit": whether the view is fitted to the model. Created when missing;
    /// StatusMissing when it is no boolean.
    unsigned int SetViewFit(int viewFit);
    /// 0 with StatusMissing when missing or no boolean.
    unsigned int GetViewFit(int* out);

    /// 1 if the sub-category says that this camera is only an up vector.
    int IsUpVector() const;
    /// Always StatusOk.
    unsigned int SetSubCatAsUpVector();
};

} // namespace rvopen

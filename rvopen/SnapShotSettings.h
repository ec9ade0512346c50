// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// Settings of a snapshot that are no component of their own: selection in the host's list, twist
/// of the camera, orientation of the model, reflected environment, ambient light and the session
/// folder.
///
/// Getters and setters return StatusMissing when the parameter is missing or of another type, with
/// outputs untouched unless the operation says otherwise.
class RVOPEN_EXPORT SnapShotSettings : public RVOpenNode {
public:
    /// Binds to \p node.
    explicit SnapShotSettings(QDomNode node);
    /// A free-standing clone; null gives an object bound to nothing.
    explicit SnapShotSettings(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    SnapShotSettings(const SnapShotSettings& other) = default;
    SnapShotSettings& operator=(const SnapShotSettings& other) = default;
    ~SnapShotSettings() override;

    /// Creates all parameters but "Selected" and "Reflect BackPlate", on a node that has no
    /// parameter at all.
    void PopulateParams();

    /// Parameter "Selected", 0 or 1.
    unsigned int IsSelected(int* out);
    /// Created when missing.
    unsigned int SetSelected(int selected);

    /// Parameter "Twist": the roll of the camera in degrees, clockwise for who looks through it.
    unsigned int SetTwist(float twist);
    unsigned int GetTwist(float* out);

    /// Parameter "Reflect BackPlate", 0 or 1. Created when missing.
    unsigned int SetReflectBackPlate(int reflect);
    /// 0 with StatusMissing when it is missing.
    unsigned int GetReflectBackPlate(int* out);

    /// Parameter "Ambient Lights Intensity Scale", a factor.
    unsigned int SetAmbientLightsIntensityScale(float scale);
    unsigned int GetAmbientLightsIntensityScale(float* out);

    /// Parameter "Session Folder"; empty when missing.
    unsigned int SetSessionName(QString name);
    QString GetSessionName();

    /// Path and intensity of the reflected environment: parameters "Reflected Env Path" and
    /// "Reflected Env Intensity". Both are created when missing. The status is that of the path.
    unsigned int SetBackgroundReflected(QString path, float intensity);
    /// The path, empty when missing. An intensity that cannot be read leaves the output untouched.
    QString GetBackgroundReflected(float* intensity);

    /// \name Orientation of the model
    /// Parameters "Orientation Up", "Orientation North" and "Orientation Front Face": three arrays
    /// of three floats, as far as the parameters exist. The status is that of the last one that
    /// exists, StatusMissing when none does: a failure of an earlier one does not show.
    /// @{
    unsigned int SetOrientationInfo(float* const up, float* const north, float* const frontFace);
    unsigned int GetOrientationInfo(float* const up, float* const north, float* const frontFace);
    /// @}
};

} // namespace rvopen

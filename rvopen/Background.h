// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// The backdrop of a snapshot. The kind is the sub-category, the values are parameters.
///
/// Colours are arrays of three floats. Setters and colour getters return StatusMissing when the
/// parameter is missing or of another type; outputs are untouched then.
class RVOPEN_EXPORT Background : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit Background(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    Background(const Background& other) = default;
    Background& operator=(const Background& other) = default;
    ~Background() override;

    /// Creates the parameters of the kind, on a background that has no parameter at all. A
    /// background of no known kind gets none.
    void PopulateParams();

    /// \name Kind
    /// 1 if the sub-category, compared exactly, is that kind, else 0.
    /// @{
    int IsPlainColour() const;
    int IsGraduated() const;
    int IsHorizon() const;
    int IsImage() const;
    int IsImage3D() const;
    int IsReflection() const;
    /// @}

    /// \name Plain colour
    /// Parameter "Colour": red, green and blue, three floats.
    /// @{
    unsigned int GetPlainColour(float* const out);
    unsigned int SetPlainColour(float* const rgb);
    /// @}

    /// \name Gradient of two colours
    /// @{

    /// Parameter "Primary Colour": red, green and blue, three floats.
    unsigned int GetPrimaryColour(float* const out);
    unsigned int SetPrimaryColour(float* const rgb);
    /// Parameter "Secondary Colour": red, green and blue, three floats.
    unsigned int GetSecondaryColour(float* const out);
    unsigned int SetSecondaryColour(float* const rgb);
    /// @}

    /// \name Horizon: four colours from the top down
    /// @{

    /// Parameter "Sky Colour": overhead; red, green and blue, three floats.
    unsigned int GetSkyColour(float* const out);
    unsigned int SetSkyColour(float* const rgb);
    /// Parameter "Horizon Sky Colour": the sky at the horizon, as above.
    unsigned int GetHorizonSkyColour(float* const out);
    unsigned int SetHorizonSkyColour(float* const rgb);
    /// Parameter "Horizon Ground Colour": the ground at the horizon, as above.
    unsigned int GetHorizonGroundColour(float* const out);
    unsigned int SetHorizonGroundColour(float* const rgb);
    /// Parameter "Ground Colour": underfoot, as above.
    unsigned int GetGroundColour(float* const out);
    unsigned int SetGroundColour(float* const rgb);
    /// @}

    /// \name Images
    /// The path of the image: parameter "File Name", one for all three kinds. Empty when missing.
    /// @{
    unsigned int SetImageBackground(QString fileName);
    QString GetImageBackground();
    unsigned int SetImage3DBackground(QString fileName);
    QString GetImage3DBackground();
    unsigned int SetReflectionBackground(QString fileName);
    QString GetReflectionBackground();
    /// @}

    /// \name Placing a 3D image
    /// Setters create the parameter when it is missing.
    /// @{

    /// Parameter "Horizon Position": where in the image the horizon lies.
    unsigned int SetImage3DHorizonPosition(float position);
    /// 0.5 when missing or no float.
    float GetImage3DHorizonPosition();
    /// Parameter "Fixed Size".
    unsigned int SetImage3DFixedSize(float size);
    /// 0 when missing or no float.
    float GetImage3DFixedSize();
    /// @}

    /// Whether \p other shows the same thing: it is of the same known kind, and the colours are
    /// exactly equal or the image paths are equal but for letter case. False for null.
    ///
    /// Of horizons, colours that one side lacks are not compared except the ground colour, which
    /// both must have; this background's horizon ground colour is compared with the *sky* colour of
    /// \p other. The placing of 3D images is not compared.
    bool Equal(Background* other);
};

} // namespace rvopen

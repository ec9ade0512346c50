// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class ShaderColour;

/// The bump of a material, element "bump": a relief given by a shader colour, which belongs to it.
///
/// Getters return StatusMissing when the parameter is absent; setters create it.
class RVOPEN_EXPORT Bump : public RVOpenNode {
public:
    /// A free-standing clone of \p source; bound to nothing for null.
    explicit Bump(Bump* source);
    /// Shallow, as RVOpenNode's.
    Bump(const Bump&) = default;
    Bump& operator=(const Bump&) = default;
    ~Bump() override;

    /// "Use Diffuse", 0 or 1: the relief follows the diffuse colour.
    unsigned int GetUseDiffuse(int* out);
    unsigned int SetUseDiffuse(int value);
    /// "Is Normal Map", 0 or 1: the map holds normals, not heights.
    unsigned int GetIsNormalMap(int* out);
    unsigned int SetIsNormalMap(int value);
    /// "Height", a factor: no length.
    unsigned int GetHeight(float* out);
    unsigned int SetHeight(float value);
    /// "Softness", a factor.
    unsigned int GetSoftness(float* out);
    unsigned int SetSoftness(float value);

    /// The first shader colour; where there is none an empty one is added. Null when it cannot be,
    /// with the document unchanged. Valid until the bump is deleted.
    ShaderColour* GetColour();

    /// By reference name where either bump has one, else by the parameters that both have and the
    /// colours, which are added where they are missing; archives as in Material::Equal(). False for
    /// null.
    bool Equal(Bump* other);
};

} // namespace rvopen

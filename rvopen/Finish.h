// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// The finish of a material, element "finish": a shader class (GetShaderClass()) and its
/// parameters.
class RVOPEN_EXPORT Finish : public RVOpenNode {
public:
    /// A free-standing clone of \p source; bound to nothing for null.
    explicit Finish(Finish* source);
    /// Shallow, as RVOpenNode's.
    Finish(const Finish&) = default;
    Finish& operator=(const Finish&) = default;
    ~Finish() override;

    /// Takes the shader class and appends its parameters, also when the finish has some already.
    /// The one class known is "lit appearance", spelt exactly so: the factors "diffuse factor",
    /// "specular factor", "transmission factor" and "mirror factor", "roughness", "refraction" and
    /// "light intensity", the lengths "object area" and "object size", all 0, and "light colour",
    /// white. StatusUnknownShaderClass for any other, with nothing changed.
    unsigned int SetAndPopulateShaderClass(QString shaderClass);

    /// By reference name where either finish has one; otherwise any two finishes are equal. False
    /// for null.
    bool Equal(Finish* other);
};

} // namespace rvopen

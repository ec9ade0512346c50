// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class ShaderDiffuse;

/// The colour of a material, element "colour": holds one diffuse shader, which belongs to it.
class RVOPEN_EXPORT Colour : public RVOpenNode {
public:
    /// A free-standing clone of \p source; bound to nothing for null.
    explicit Colour(Colour* source);
    /// Shallow, as RVOpenNode's.
    Colour(const Colour&) = default;
    Colour& operator=(const Colour&) = default;
    ~Colour() override;

    /// The first diffuse shader; where there is none an enabled one is added. Null when it cannot
    /// be, with the document unchanged. Valid until it is replaced or the colour is deleted.
    ShaderDiffuse* GetDiffuse();
    /// Deletes the present diffuse shader and takes over \p diffuse; null just removes. The
    /// colour's own is deleted like any other: a copy takes its place. Always StatusOk.
    unsigned int SetDiffuse(ShaderDiffuse* diffuse);

    /// By reference name where either colour has one, else by the diffuse shaders, which are added
    /// where they are missing; archives as in Material::Equal(). False for null.
    bool Equal(Colour* other);
};

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class ShaderColour;

/// The transparency of a material, element "transparency": a mask given by a shader colour, which
/// belongs to it.
class RVOPEN_EXPORT Transparency : public RVOpenNode {
public:
    /// A free-standing clone of \p source; bound to nothing for null.
    explicit Transparency(Transparency* source);
    /// Shallow, as RVOpenNode's.
    Transparency(const Transparency&) = default;
    Transparency& operator=(const Transparency&) = default;
    ~Transparency() override;

    /// "InvertMask", 0 or 1: the mask is read the other way round. StatusMissing when absent; the
    /// setter creates it.
    unsigned int GetInvertMask(int* out);
    unsigned int SetInvertMask(int value);

    /// The first shader colour; where there is none an empty one is added. Null when it cannot be,
    /// with the document unchanged. Valid until the transparency is deleted.
    ShaderColour* GetColour();

    /// By reference name where either has one, else by "InvertMask", where both have it, and the
    /// colours, which are added where they are missing; archives as in Material::Equal(). False for
    /// null.
    bool Equal(Transparency* other);
};

} // namespace rvopen

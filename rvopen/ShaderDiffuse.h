// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class ShaderColour;

/// The diffuse shader of a colour, element "diffuse": holds one shader colour, which belongs to it.
class RVOPEN_EXPORT ShaderDiffuse : public RVOpenNode {
public:
    /// Bound to nothing.
    ShaderDiffuse();
    /// Shallow, as RVOpenNode's.
    ShaderDiffuse(const ShaderDiffuse&) = default;
    ShaderDiffuse& operator=(const ShaderDiffuse&) = default;
    ~ShaderDiffuse() override;

    /// The first shader colour; where there is none an empty one is added. Null when it cannot be,
    /// with the document unchanged. Valid until the shader is deleted.
    ShaderColour* GetColour();

    /// Compares the shader colours, which are added where they are missing. False for null.
    bool Equal(ShaderDiffuse* other);
};

} // namespace rvopen

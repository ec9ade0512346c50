// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/Param.h>

namespace rvopen {

class ShaderMap;
class ShaderPlainColour;

/// A colour that comes from a plain colour, a texture map or both: a shader parameter with the
/// value "colour". The two shaders are children that belong to it.
class RVOPEN_EXPORT ShaderColour : public Param {
public:
    /// Bound to nothing.
    ShaderColour();
    /// Shallow, as RVOpenNode's.
    ShaderColour(const ShaderColour&) = default;
    ShaderColour& operator=(const ShaderColour&) = default;
    ~ShaderColour() override;

    /// \name Shaders
    /// The first of its kind, or null. With \p create non-zero a missing one is added, enabled;
    /// null then means that it could not be, and the document is unchanged. Valid until the shader
    /// colour is deleted.
    /// @{
    ShaderPlainColour* GetPlainColour(int create);
    ShaderMap* GetMap(int create);
    /// @}

    /// Both must have the same kinds of shaders, at least one of them, and these must be equal: two
    /// empty shader colours are different. False for null.
    bool Equal(ShaderColour* other);
};

} // namespace rvopen

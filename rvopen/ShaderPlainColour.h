// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// One colour for a whole surface, element "plainColour".
class RVOPEN_EXPORT ShaderPlainColour : public RVOpenNode {
public:
    /// Bound to nothing.
    ShaderPlainColour();
    /// Shallow, as RVOpenNode's.
    ShaderPlainColour(const ShaderPlainColour&) = default;
    ShaderPlainColour& operator=(const ShaderPlainColour&) = default;
    ~ShaderPlainColour() override;

    /// "Colour": red, green and blue, three floats. StatusMissing when absent; the setter creates
    /// it.
    unsigned int GetColour(float* const out);
    unsigned int SetColour(float* const rgb);

    /// The same enabled flag and, where both have one, exactly the same colour. False for null.
    bool Equal(ShaderPlainColour* other);
};

} // namespace rvopen

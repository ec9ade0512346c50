// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class Background;

/// What kind of scene a snapshot shows. The kind is the sub-category; a scheme of an archive may
/// hold a background as a child.
class RVOPEN_EXPORT Scheme : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit Scheme(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    Scheme(const Scheme& other) = default;
    Scheme& operator=(const Scheme& other) = default;
    ~Scheme() override;

    /// \name Kind
    /// The sub-category, compared exactly.
    /// @{
    bool IsExterior() const;
    bool IsInterior() const;
    bool IsProduct() const;
    /// @}

    /// The first background among the children, null if there is none. It belongs to the scheme and
    /// is valid until it is removed from it or the scheme is deleted.
    Background* GetBackground();
};

} // namespace rvopen

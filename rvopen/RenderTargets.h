// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class RenderTarget;

/// The images to be rendered from a snapshot. Every child of its element counts as a render target,
/// whatever its name. The targets belong to the collection.
class RVOPEN_EXPORT RenderTargets : public RVOpenNode {
public:
    /// Binds to \p node without reading its children.
    explicit RenderTargets(QDomNode node);
    /// Shallow: both objects wrap the same element.
    RenderTargets(const RenderTargets& other) = default;
    RenderTargets& operator=(const RenderTargets& other) = default;
    ~RenderTargets() override;

    /// Makes one object per child node of the element, in document order, with the parameters that
    /// the child has. Objects that are there already are kept.
    void Populate();

    /// The first target among the objects already made; null if there is none or the first object
    /// is no render target.
    RenderTarget* GetFirstRenderTarget();

    /// A free-standing target that belongs to the caller until it is added: a deep copy of
    /// \p source, or for null a new one with all parameters. Null when memory is exhausted.
    RenderTarget* CreateRenderTarget(RenderTarget* source);

    /// Deletes the targets with their elements, up to the first child that is no render target.
    void Clear();
};

} // namespace rvopen

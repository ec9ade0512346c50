// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Surface.h"

#include <rvopen/toolkit/drawing/Picture.h>

#include <QHash>
#include <QPair>
#include <QString>

#include <memory>

namespace rvopen {
class Bump;
class Colour;
class Finish;
class Material;
class ShaderColour;
class Transparency;
} // namespace rvopen

namespace rvopen::toolkit::drawing {

/// Images that documents refer to.
class TextureReader {
public:
    explicit TextureReader(FindFile find);
    virtual ~TextureReader();
    TextureReader(const TextureReader&) = delete;
    TextureReader& operator=(const TextureReader&) = delete;

    /// Null when the file is not there or cannot be decoded.
    virtual std::shared_ptr<const Texture> texture(const QString& reference, TextureUse use);

private:
    FindFile m_find;
    /// By file and use.
    QHash<QPair<QString, int>, std::shared_ptr<const Texture>> m_known;
};

/// Surfaces of the library's materials and their components. Where a component is absent or not
/// enabled the surface has a plain, fitting one; where an image is absent the plain colour or a
/// stand-in.
class SurfaceReader {
public:
    explicit SurfaceReader(TextureReader& textures);

    /// \name One each
    /// @{
    Surface ofMaterial(Material* material);
    Surface ofColour(Colour* colour);
    Surface ofFinish(Finish* finish);
    Surface ofTransparency(Transparency* transparency);
    Surface ofBump(Bump* bump);
    /// @}

private:
    void read(Material* material, Surface& surface);
    void read(Colour* colour, Surface& surface);
    void read(Finish* finish, Surface& surface);
    void read(Transparency* transparency, Surface& surface);
    /// \p colour, null for none, is that of the surface.
    void read(Bump* bump, Colour* colour, Surface& surface);
    /// \p standIn is taken for an image that is not there, unless there is a plain colour.
    Paint paintOf(ShaderColour* shader, TextureUse use,
                  const std::shared_ptr<const Texture>& standIn);

    TextureReader& m_textures;
};

} // namespace rvopen::toolkit::drawing

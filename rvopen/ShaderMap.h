// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// A texture and how it lies on a surface, element "map".
///
/// Getters return StatusMissing when the parameter is absent; setters create it. Lengths are in
/// scene units.
class RVOPEN_EXPORT ShaderMap : public RVOpenNode {
public:
    /// Bound to nothing.
    ShaderMap();
    /// Shallow, as RVOpenNode's.
    ShaderMap(const ShaderMap&) = default;
    ShaderMap& operator=(const ShaderMap&) = default;
    ~ShaderMap() override;

    /// "S Reflect" and "T Reflect", 0 or 1: the texture is mirrored along that axis. The result is
    /// the one of "T Reflect"; when setting, the one of "S Reflect" where "T Reflect" could not be
    /// created.
    unsigned int GetMapping(int* s, int* t);
    unsigned int SetMapping(int s, int t);
    /// "S Offset" and "T Offset", lengths. The result is the one of "T Offset" where that parameter
    /// exists or could be created, else the one of "S Offset".
    unsigned int GetOffset(float* s, float* t);
    unsigned int SetOffset(float s, float t);
    /// "Rotation", an angle.
    unsigned int GetRotation(float* out);
    unsigned int SetRotation(float value);
    /// "Texture", the path of the image file; empty when absent.
    QString GetTexture();
    unsigned int SetTexture(QString path);
    /// "Width" of one tile, a length.
    unsigned int GetWidth(float* out);
    unsigned int SetWidth(float value);
    /// "Height" of one tile, a length.
    unsigned int GetHeight(float* out);
    unsigned int SetHeight(float value);
    /// "Use Alpha", 0 or 1: the image's alpha channel counts.
    unsigned int GetUseAlpha(int* out);
    unsigned int SetUseAlpha(int value);

    /// The same enabled flag and texture and, where both have them, exactly the same width, height,
    /// rotation and use of alpha. Mirroring and offsets are not compared with the other map's:
    /// where both maps have them, each must be the same along both axes of its own map, one that
    /// cannot be read counting as 0. False for null.
    bool Equal(ShaderMap* other);
};

} // namespace rvopen

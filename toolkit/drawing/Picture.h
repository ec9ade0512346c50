// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QImage>
#include <QString>

#include <functional>

namespace rvopen::toolkit {

/// What a picture is to be like.
struct PictureWish {
    /// Of the longer side in pixels, from MinPictureSize to MaxPictureSize.
    int size = 256;
    /// Materials and their components as a flat piece instead of a ball.
    bool isFlat = false;
};

/// The least size of a picture.
inline constexpr int MinPictureSize = 16;
/// The greatest.
inline constexpr int MaxPictureSize = 2048;

/// The file that a document's reference means; empty when it is not there. TextureFinder() makes
/// one.
using FindFile = std::function<QString(const QString& reference)>;

/// Whether there is a picture for an element of that kind: a preset, a component or a snapshot.
RVOPEN_TOOLKIT_EXPORT bool IsDrawable(const QDomElement& element);

/// Draws a preset, a component or a snapshot from its values alone, the same picture every time.
/// The document is not changed. Images are looked for by \p find; without, surfaces have stand-ins
/// for them. Null for an element that there is no picture for.
RVOPEN_TOOLKIT_EXPORT QImage DrawPicture(const QDomElement& element, const PictureWish& wish = {},
                                         const FindFile& find = {});

} // namespace rvopen::toolkit

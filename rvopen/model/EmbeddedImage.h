// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QString>

namespace rvopen {

/// Bounds of a preview embedded in a document, checked before the memory is taken.
inline constexpr qint64 EmbeddedImageMaxCompressed = 16 * 1024 * 1024;
inline constexpr qint64 EmbeddedImageMaxBytes = 64 * 1024 * 1024;
inline constexpr int EmbeddedImageMaxSide = 8192;
inline constexpr qint64 EmbeddedImageMaxPixels = 16 * 1024 * 1024;

/// The image in the text of "xmlImage": hexadecimal digits of a four-byte big-endian length and a
/// zlib stream of an image file in any format that Qt reads. Null when it cannot be decoded or
/// passes a bound.
QImage embeddedImage(const QString& text);

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Reading.h"

#include <rvopen/toolkit/drawing/Picture.h>

#include <QDomElement>
#include <QImage>

#include <functional>
#include <vector>

namespace rvopen::toolkit::drawing {

/// Whether there is a drawing of an element of that kind.
bool isDrawable(const QString& kind);

/// Reads the values of the element and answers with what draws its picture from them, in any
/// thread. The document is not changed. Null for an element that has no picture.
using Draw = std::function<QImage()>;
Draw drawingOf(const QDomElement& element, const PictureWish& wish, TextureReader& textures);

/// Draws pictures on all processors, each by its drawing.
std::vector<QImage> drawnTogether(const std::vector<Draw>& drawings);

} // namespace rvopen::toolkit::drawing

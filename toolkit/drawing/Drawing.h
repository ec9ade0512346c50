// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Reading.h"

#include <QDomElement>
#include <QImage>
#include <QSize>

#include <functional>
#include <vector>

namespace rvopen::drawing {

struct Wish {
    /// Of the longer side in pixels.
    int size = 256;
    /// Materials and their components as a flat piece instead of a ball.
    bool isFlat = false;
};

inline constexpr int MinSize = 16;
inline constexpr int MaxSize = 2048;

/// Whether there is a picture for an element of that kind: a preset, a component or a snapshot.
bool isDrawable(const QDomElement& element);

/// Reads the values of the element and answers with what draws its picture from them, in any
/// thread. The document is not changed. Null for an element that has no picture.
using Draw = std::function<QImage()>;
Draw drawingOf(const QDomElement& element, const Wish& wish, TextureReader& textures);

/// Draws pictures on all processors, each by its drawing.
std::vector<QImage> drawnTogether(const std::vector<Draw>& drawings);

} // namespace rvopen::drawing

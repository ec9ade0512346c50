// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Reading.h"

#include <rvopen/toolkit/drawing/Picture.h>

#include <QDomDocument>
#include <QDomElement>
#include <QImage>

#include <functional>
#include <vector>

namespace rvopen::toolkit::drawing {

/// Whether there is a drawing of an element of that kind.
bool isDrawable(const QString& kind);

/// A copy of an element in a document of its own, so that objects made from it may add to it and
/// go, in any thread. Of the element's document there is the first "snapRoot" alone, which says in
/// which unit lengths are. References to other archives are left out: a preset stands in its own.
class FreeCopy {
public:
    explicit FreeCopy(const QDomElement& element);

    /// Stands nowhere; valid as long as the copy is there.
    QDomElement element() const;

private:
    QDomDocument m_document;
    QDomElement m_element;
};

/// Reads the values of the element and answers with what draws its picture from them, in any
/// thread. The document is not changed. Null for an element that has no picture.
using Draw = std::function<QImage()>;
Draw drawingOf(const QDomElement& element, const PictureWish& wish, TextureReader& textures);

/// With a size that pictures can have.
PictureWish possible(const PictureWish& wish);

/// Draws pictures on all processors, each by its drawing.
std::vector<QImage> drawnTogether(const std::vector<Draw>& drawings);

} // namespace rvopen::toolkit::drawing

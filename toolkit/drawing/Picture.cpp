// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/drawing/Picture.h>

#include "Drawing.h"
#include "toolkit/images/PictureApplication.h"

namespace rvopen::toolkit {

bool IsDrawable(const QDomElement& element)
{
    return drawing::isDrawable(element.tagName());
}

QImage DrawPicture(const QDomElement& element, const PictureWish& wish, const FindFile& find)
{
    preparePictures();
    drawing::TextureReader textures(find ? find : [](const QString&) { return QString(); });
    const drawing::Draw draw = drawing::drawingOf(element, drawing::possible(wish), textures);
    return draw ? draw() : QImage();
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/drawing/Picture.h>

#include "Drawing.h"
#include "toolkit/images/PictureApplication.h"

#include <algorithm>

namespace rvopen::toolkit {

bool IsDrawable(const QDomElement& element)
{
    return drawing::isDrawable(element.tagName());
}

QImage DrawPicture(const QDomElement& element, const PictureWish& wish, const FindFile& find)
{
    preparePictures();
    PictureWish possible = wish;
    possible.size = std::clamp(wish.size, MinPictureSize, MaxPictureSize);
    drawing::TextureReader textures(find ? find : [](const QString&) { return QString(); });
    const drawing::Draw draw = drawing::drawingOf(element, possible, textures);
    return draw ? draw() : QImage();
}

} // namespace rvopen::toolkit

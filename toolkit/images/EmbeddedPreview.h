// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDomElement>
#include <QImage>
#include <QPixmap>
#include <QString>

namespace rvopen::tools {

/// \name Pictures
/// The first call makes the application that pictures need; no screen is needed.
/// @{
void preparePictures();

/// The same with fonts; throws a Failure when there are none. To be called before
/// preparePictures().
void prepareTexts();

/// The preview of the element: the embedded one, else the one in the host's folders. The document
/// is empty afterwards: its objects go, and with them their elements.
QPixmap pictureOf(const QDomElement& element, const QString& installFolder);
/// The picture in the text of an "xmlImage"; null when it cannot be decoded.
QImage embeddedPicture(const QString& text);
/// The picture in a format, named as QImage::save() takes it, as the quality is. Throws a Failure
/// when it cannot be written like that.
QByteArray encodedPicture(const QImage& image, const QByteArray& format, int quality = -1);
/// Whether an embedded preview can be decoded.
bool hasPicture(const QDomElement& element);
/// Whether the file begins like a picture of a format that can be read.
bool isPictureFile(const QString& path);
/// @}

} // namespace rvopen::tools

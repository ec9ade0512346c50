// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace rvopen::toolkit {

/// The image in a file, which comes from anywhere: beyond 8192 pixels a side or 16 million pixels
/// it is not decoded. Null then, and when the work of the thread is stopped.
QImage readImage(const QString& path);

/// Whether the file can be decoded as a picture, whatever its name.
bool isPictureFile(const QString& path);

/// Of pictures of presets in JPEG, as QImage::save() takes it.
constexpr int PreviewQuality = 92;

/// The picture in a format, named as QImage::save() takes it, as the quality is. Throws a Failure
/// when it cannot be written like that.
QByteArray encodedPicture(const QImage& image, const QByteArray& format, int quality = -1);

} // namespace rvopen::toolkit

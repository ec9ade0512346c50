// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ImageFiles.h"

#include "PictureApplication.h"
#include "toolkit/documents/Stopping.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace rvopen::toolkit {

namespace {

constexpr int s_maxSide = 8192;
constexpr qint64 s_maxPixels = 16 * 1024 * 1024;

/// Ends where the work of the thread is stopped, and with it the decoding.
class StoppableFile : public QFile {
public:
    using QFile::QFile;

protected:
    qint64 readData(char* data, qint64 size) override
    {
        return isStopped() ? -1 : QFile::readData(data, size);
    }
};

} // namespace

QImage readImage(const QString& path)
{
    StoppableFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QImage();
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    // A format that does not tell its size before it is decoded cannot be bounded.
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > s_maxSide || size.height() > s_maxSide ||
        qint64(size.width()) * size.height() > s_maxPixels)
        return QImage();
    const QImage image = reader.read();
    return isStopped() ? QImage() : image;
}

bool isPictureFile(const QString& path)
{
    preparePictures();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return !reader.read().isNull();
}

QByteArray encodedPicture(const QImage& image, const QByteArray& format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (format.isEmpty() || !image.save(&buffer, format.constData(), quality))
        throw Failure(QStringLiteral("pictures cannot be written as \"%1\"; take png, jpg or bmp")
                          .arg(QString::fromLatin1(format)));
    return bytes;
}

} // namespace rvopen::toolkit

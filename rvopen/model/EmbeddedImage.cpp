// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/EmbeddedImage.h>

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QSize>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>

namespace rvopen {

namespace {

constexpr int s_lengthBytes = 4;

/// Empty when the stream is broken or longer than EmbeddedImageMaxBytes, whatever length it
/// announces: a stream of a few kilobytes can hold gigabytes.
QByteArray uncompress(const QByteArray& data)
{
    if (data.size() <= s_lengthBytes || data.size() > EmbeddedImageMaxCompressed)
        return QByteArray();
    const qint64 announced = qFromBigEndian<quint32>(data.constData());
    if (announced > EmbeddedImageMaxBytes)
        return QByteArray();

    z_stream stream{};
    if (inflateInit(&stream) != Z_OK)
        return QByteArray();
    QByteArray input = data.mid(s_lengthBytes);
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());

    QByteArray output;
    qint64 capacity = std::max<qint64>(announced, 1024);
    int status = Z_OK;
    while (status == Z_OK && output.size() < EmbeddedImageMaxBytes) {
        const auto filled = output.size();
        capacity = std::min(std::max<qint64>(capacity, 2 * filled), EmbeddedImageMaxBytes);
        output.resize(static_cast<decltype(output.size())>(capacity));
        stream.next_out = reinterpret_cast<Bytef*>(output.data() + filled);
        stream.avail_out = static_cast<uInt>(capacity - filled);
        status = inflate(&stream, Z_NO_FLUSH);
        output.resize(output.size() - static_cast<decltype(output.size())>(stream.avail_out));
        if (output.size() == filled && status == Z_OK)
            break;
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END ? output : QByteArray();
}

bool isWithinBounds(const QSize& size)
{
    return !size.isEmpty() && size.width() <= EmbeddedImageMaxSide &&
           size.height() <= EmbeddedImageMaxSide &&
           qint64(size.width()) * size.height() <= EmbeddedImageMaxPixels;
}

} // namespace

QImage embeddedImage(const QString& text)
{
    if (text.size() > 2 * EmbeddedImageMaxCompressed)
        return QImage();
    QByteArray file = uncompress(QByteArray::fromHex(text.toLatin1()));
    if (file.isEmpty())
        return QImage();
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    // A format that does not tell its size before it is decoded cannot be bounded.
    return isWithinBounds(reader.size()) ? reader.read() : QImage();
}

} // namespace rvopen

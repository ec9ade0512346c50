// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/TextDecoding.h>

#include <rvopen/QtCompat.h>

#include <QtEndian>

#include <algorithm>

namespace rvopen {

namespace {

using compat::Size;

enum class ByteOrder { Little, Big };

bool decodeUtf8(const QByteArray& bytes, QString& text)
{
    // With a size, since Qt 5 takes a byte array only up to its first 0; one that GCC, too, sees is
    // not the -1 that stands for no size.
    text = QString::fromUtf8(bytes.constData(), std::max<Size>(bytes.size(), 0));
    const QChar replacement(QChar::ReplacementCharacter);
    if (!text.contains(replacement))
        return true;
    // A replacement character may stand in the file itself. Any other one took the place of
    // malformed bytes, and differs from them when it is encoded again.
    const QByteArray mark("\xEF\xBB\xBF");
    const char* byte = bytes.constData() + (bytes.startsWith(mark) ? mark.size() : 0);
    const char* const end = bytes.constData() + bytes.size();
    const QByteArray encoded = text.toUtf8();
    if (std::equal(byte, end, encoded.cbegin(), encoded.cend()))
        return true;
    const QByteArray encodedReplacement = QString(replacement).toUtf8();
    for (Size i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == replacement && !std::equal(encodedReplacement.cbegin(), encodedReplacement.cend(),
                                            byte, byte + std::min<qptrdiff>(3, end - byte))) {
            text.truncate(i);
            return false;
        }
        byte += c.unicode() < 0x80 ? 1 : c.unicode() < 0x800 || c.isSurrogate() ? 2 : 3;
    }
    return true;
}

bool decodeUtf16(const char* bytes, Size size, ByteOrder order, QString& text)
{
    const Size units = size / 2;
    text.resize(units);
    if (order == ByteOrder::Little)
        qFromLittleEndian<quint16>(bytes, units, text.data());
    else
        qFromBigEndian<quint16>(bytes, units, text.data());
    return size % 2 == 0;
}

bool decodeUtf32(const char* bytes, Size size, ByteOrder order, QString& text)
{
    text.clear();
    text.reserve(size / 4);
    for (Size i = 0; i + 4 <= size; i += 4) {
        const quint32 c = order == ByteOrder::Little ? qFromLittleEndian<quint32>(bytes + i)
                                                     : qFromBigEndian<quint32>(bytes + i);
        if (c > 0x10FFFF || (c >= 0xD800 && c < 0xE000))
            return false;
        if (QChar::requiresSurrogates(c)) {
            text += QChar(QChar::highSurrogate(c));
            text += QChar(QChar::lowSurrogate(c));
        } else {
            text += QChar(static_cast<char16_t>(c));
        }
    }
    return size % 4 == 0;
}

} // namespace

bool decodeText(const QByteArray& bytes, QString& text)
{
    const char* const start = bytes.constData();
    const Size size = bytes.size();
    // The mark of UTF-32 starts with that of UTF-16.
    if (bytes.startsWith(QByteArray("\xFF\xFE\0\0", 4)))
        return decodeUtf32(start + 4, size - 4, ByteOrder::Little, text);
    if (bytes.startsWith(QByteArray("\0\0\xFE\xFF", 4)))
        return decodeUtf32(start + 4, size - 4, ByteOrder::Big, text);
    if (bytes.startsWith("\xFF\xFE"))
        return decodeUtf16(start + 2, size - 2, ByteOrder::Little, text);
    if (bytes.startsWith("\xFE\xFF"))
        return decodeUtf16(start + 2, size - 2, ByteOrder::Big, text);
    return decodeUtf8(bytes, text);
}

} // namespace rvopen

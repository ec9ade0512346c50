// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/TextDecoding.h>

#include <rvopen/QtCompat.h>

#include <QtEndian>

#include <algorithm>

namespace rvopen {

namespace {

using compat::Size;

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
    const char* byte = bytes.constData() + encodingOf(bytes).markSize;
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

bool decodeUtf16(const char* bytes, Size size, bool isBigEndian, QString& text)
{
    const Size units = size / 2;
    text.resize(units);
    if (isBigEndian)
        qFromBigEndian<quint16>(bytes, units, text.data());
    else
        qFromLittleEndian<quint16>(bytes, units, text.data());
    return size % 2 == 0;
}

bool decodeUtf32(const char* bytes, Size size, bool isBigEndian, QString& text)
{
    text.clear();
    text.reserve(size / 4);
    for (Size i = 0; i + 4 <= size; i += 4) {
        const quint32 c = isBigEndian ? qFromBigEndian<quint32>(bytes + i)
                                      : qFromLittleEndian<quint32>(bytes + i);
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

Encoding encodingOf(const QByteArray& bytes)
{
    // The mark of UTF-32 starts with that of UTF-16.
    if (bytes.startsWith(QByteArray("\xFF\xFE\0\0", 4)))
        return {4, false, 4};
    if (bytes.startsWith(QByteArray("\0\0\xFE\xFF", 4)))
        return {4, true, 4};
    if (bytes.startsWith("\xFF\xFE"))
        return {2, false, 2};
    if (bytes.startsWith("\xFE\xFF"))
        return {2, true, 2};
    return {1, false, bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0};
}

bool decodeText(const QByteArray& bytes, QString& text)
{
    const Encoding encoding = encodingOf(bytes);
    const char* const start = bytes.constData() + encoding.markSize;
    const Size size = bytes.size() - encoding.markSize;
    switch (encoding.unitWidth) {
    case 2:
        return decodeUtf16(start, size, encoding.isBigEndian, text);
    case 4:
        return decodeUtf32(start, size, encoding.isBigEndian, text);
    default:
        return decodeUtf8(bytes, text);
    }
}

void normaliseLineEnds(QString& text)
{
    const QChar cr = QLatin1Char('\r');
    const QChar lf = QLatin1Char('\n');
    const auto first = text.indexOf(cr);
    if (first < 0)
        return;
    QChar* const begin = text.data();
    const QChar* const end = begin + text.size();
    QChar* to = begin + first;
    for (const QChar* from = to; from != end; ++from) {
        if (*from != cr)
            *to++ = *from;
        else if (from + 1 == end || from[1] != lf)
            *to++ = lf;
    }
    text.truncate(static_cast<Size>(to - begin));
}

} // namespace rvopen

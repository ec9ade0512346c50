// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/BytePlaces.h>

#include <rvopen/xml/TextDecoding.h>

#include <algorithm>

namespace rvopen::xml {

namespace {

/// Bytes of the characters in UTF-8; of half a surrogate pair half of that of the pair. In short
/// numbers, with which the compiler takes many characters at once.
qint64 utf8Length(const char16_t* from, const char16_t* to)
{
    qint64 length = to - from;
    while (from != to) {
        const char16_t* const end = from + std::min<std::ptrdiff_t>(to - from, 8192);
        quint16 more = 0;
        for (; from != end; ++from) {
            const quint16 c = *from;
            more = static_cast<quint16>(more + (c >= 0x80 ? 1 : 0));
            more = static_cast<quint16>(more + (c >= 0x800 ? 1 : 0));
            more = static_cast<quint16>(more - ((c & 0xF800) == 0xD800 ? 1 : 0));
        }
        length += more;
    }
    return length;
}

} // namespace

BytePlaces::BytePlaces(const QByteArray& bytes, View text)
    : m_bytes(bytes)
    , m_text(text)
{
    const Encoding encoding = encodingOf(bytes);
    m_width = encoding.unitWidth;
    m_isBigEndian = encoding.isBigEndian;
    m_start = encoding.markSize;
    // No character takes less than a byte, and no line end less than its line feed.
    m_isEven = m_width == 1 && bytes.size() - m_start == qint64(text.size());
    m_hasReturns = bytes.contains('\r');
    m_at = text.data();
    m_offset = m_start;
}

qint64 BytePlaces::offsetOf(const char16_t* place)
{
    if (m_isEven)
        return m_start + (place - m_text.data());
    if (place < m_at) {
        m_at = m_text.data();
        m_offset = m_start;
    }
    if (m_width == 1 && !m_hasReturns) {
        m_offset += utf8Length(m_at, place);
        m_at = place;
    }
    for (; m_at != place; ++m_at) {
        if (*m_at == u'\n' && unitAt(m_offset) == U'\r') {
            m_offset += m_width;
            m_offset += unitAt(m_offset) == U'\n' ? m_width : 0;
        } else {
            m_offset += lengthOf(*m_at);
        }
    }
    return m_offset;
}

/// 0 behind the end.
char32_t BytePlaces::unitAt(qint64 offset) const
{
    char32_t unit = 0;
    for (qint64 i = 0; i < m_width && offset + m_width <= m_bytes.size(); ++i) {
        const qint64 at = offset + (m_isBigEndian ? i : m_width - 1 - i);
        unit = unit << 8 | static_cast<unsigned char>(m_bytes.constData()[at]);
    }
    return unit;
}

/// Half of that of the pair for a surrogate.
qint64 BytePlaces::lengthOf(char16_t c) const
{
    const bool isSurrogate = isHighSurrogate(c) || isLowSurrogate(c);
    switch (m_width) {
    case 2:
        return 2;
    case 4:
        return isSurrogate ? 2 : 4;
    default:
        return c < 0x80 ? 1 : c < 0x800 || isSurrogate ? 2 : 3;
    }
}

} // namespace rvopen::xml

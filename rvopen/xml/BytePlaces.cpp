// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/BytePlaces.h>

#include <rvopen/xml/TextDecoding.h>

#include <algorithm>
#include <cstring>

namespace rvopen::xml {

namespace {

/// Of the first byte from there on that is no ASCII; the size where there is none.
qint64 otherThanAscii(const QByteArray& bytes, qint64 offset)
{
    const quint64 highBits = 0x8080808080808080;
    const char* const data = bytes.constData();
    const qint64 size = bytes.size();
    quint64 eight = 0;
    for (; offset + 8 <= size; offset += 8) {
        std::memcpy(&eight, data + offset, 8);
        if ((eight & highBits) != 0)
            break;
    }
    while (offset < size && static_cast<unsigned char>(data[offset]) < 0x80)
        ++offset;
    return offset;
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
    m_other = m_start;
}

qint64 BytePlaces::offsetOf(const char16_t* place)
{
    if (m_isEven)
        return m_start + (place - m_text.data());
    if (place < m_at) {
        m_at = m_text.data();
        m_offset = m_start;
        m_other = m_start;
    }
    const bool isUtf8 = m_width == 1 && !m_hasReturns;
    for (; m_at != place; ++m_at) {
        if (isUtf8) {
            if (m_other <= m_offset)
                m_other = otherThanAscii(m_bytes, m_offset);
            const qint64 same = std::min<qint64>(place - m_at, m_other - m_offset);
            m_at += same;
            m_offset += same;
            if (m_at == place)
                break;
        }
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

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/xml/XmlCharacters.h>

#include <QByteArray>

#include <cstddef>

namespace rvopen::xml {

/// Where the characters of a text stand in the bytes that it was decoded from. Cheap for places
/// that are asked for in their order.
class BytePlaces {
public:
    /// \p text is what decodeText() and normaliseLineEnds() made of \p bytes. Both have to stay.
    BytePlaces(const QByteArray& bytes, View text);

    /// Of the character at \p place, or of the end of the text.
    qint64 offsetOf(const char16_t* place);

private:
    char32_t unitAt(qint64 offset) const;
    qint64 lengthOf(char16_t c) const;

    const QByteArray& m_bytes;
    const View m_text;
    /// Bytes of the smallest unit of the encoding.
    qint64 m_width = 1;
    bool m_isBigEndian = false;
    qint64 m_start = 0;
    /// Each character is one byte.
    bool m_isEven = false;
    /// Line ends may have been others.
    bool m_hasReturns = false;

    /// What was asked for last.
    const char16_t* m_at;
    qint64 m_offset;
    /// From there to here, in UTF-8, is nothing but ASCII.
    qint64 m_other;
};

} // namespace rvopen::xml

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace rvopen {

/// What the first bytes say.
struct Encoding {
    /// Bytes of its smallest unit: 1 for UTF-8, 2 for UTF-16, 4 for UTF-32.
    int unitWidth = 1;
    bool isBigEndian = false;
    /// Bytes of the byte order mark.
    int markSize = 0;
};

/// UTF-8 unless the bytes start with the byte order mark of UTF-16 or UTF-32.
Encoding encodingOf(const QByteArray& bytes);

/// The text that \p bytes encode, without byte order mark, in encodingOf() them. False when they
/// are malformed; \p text then ends before the first bytes that stand for no character.
bool decodeText(const QByteArray& bytes, QString& text);

/// Each line end becomes a line feed.
void normaliseLineEnds(QString& text);

} // namespace rvopen

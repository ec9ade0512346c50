// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace rvopen {

/// The text that \p bytes encode, without byte order mark: UTF-8 unless they start with the mark of
/// UTF-16 or UTF-32. False when they are malformed; \p text then ends before the first bytes that
/// stand for no character.
bool decodeText(const QByteArray& bytes, QString& text);

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string_view>

namespace rvopen::toolkit {

/// All of the text. QString::fromUtf8() takes U+FEFF at its beginning for the mark of the encoding,
/// which it is in a file alone: a name may begin with it.
inline QString fromUtf8(std::string_view text)
{
    const std::string_view mark = "\xEF\xBB\xBF";
    QString marks;
    for (; text.substr(0, mark.size()) == mark; text.remove_prefix(mark.size()))
        marks += QChar(QChar::ByteOrderMark);
    return marks + QString::fromUtf8(text.data(), int(text.size()));
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "TypedText.h"

#include <rvopen/toolkit/schema/ValueText.h>

namespace rvopen::toolkit {

bool toTriple(const QString& text, float (&triple)[3])
{
    QString blanks = text;
    blanks.replace(QLatin1Char(','), QLatin1Char(' '));
    return ToTriple(blanks, triple);
}

bool toBoolean(const QString& text, bool& value)
{
    const QString lower = text.toLower();
    for (const char* word : {"true", "yes", "on", "1"}) {
        if (lower == QLatin1String(word)) {
            value = true;
            return true;
        }
    }
    for (const char* word : {"false", "no", "off", "0"}) {
        if (lower == QLatin1String(word)) {
            value = false;
            return true;
        }
    }
    return false;
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "TypedText.h"

#include <rvopen/toolkit/schema/ValueText.h>

#include <QRegularExpression>

namespace rvopen::toolkit {

namespace {

bool toHexColour(const QString& text, float (&triple)[3])
{
    static const QRegularExpression hex(QStringLiteral("^#[0-9a-fA-F]{6}$"));
    if (!hex.match(text).hasMatch())
        return false;
    for (int i = 0; i < 3; ++i)
        triple[i] = float(text.mid(1 + 2 * i, 2).toInt(nullptr, 16)) / 255.0f;
    return true;
}

} // namespace

bool toTriple(const QString& text, float (&triple)[3])
{
    QString blanks = text;
    blanks.replace(QLatin1Char(','), QLatin1Char(' '));
    return ToTriple(blanks, triple);
}

bool toColour(const QString& text, float (&colour)[3])
{
    return toTriple(text, colour) || toHexColour(text, colour);
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

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

/// With the commas between numbers as blanks.
QString withBlanks(QString text)
{
    return text.replace(QLatin1Char(','), QLatin1Char(' '));
}

} // namespace

bool toTriple(const QString& text, float (&triple)[3])
{
    return ToTriple(withBlanks(text), triple);
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

QString tripleText(const float (&triple)[3])
{
    return NumberText(double(triple[0])) + QLatin1Char(' ') + NumberText(double(triple[1])) +
           QLatin1Char(' ') + NumberText(double(triple[2]));
}

QString storedText(ValueType type, const QString& text)
{
    bool truth = false;
    float colour[3] = {};
    switch (type) {
    case ValueType::Boolean:
        if (!toBoolean(text, truth))
            return QString();
        return truth ? QStringLiteral("1") : QStringLiteral("0");
    case ValueType::Colour:
        return toHexColour(text, colour) ? tripleText(colour) : withBlanks(text);
    case ValueType::Vector:
    case ValueType::Point:
        return withBlanks(text);
    default:
        return text;
    }
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/schema/ValueText.h>

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace rvopen::toolkit {

QString NumberText(double value)
{
    return QString::number(value, 'g', 6);
}

bool ToNumber(const QString& text, double& value)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(float(number)))
        return false;
    value = number;
    return true;
}

bool ToInteger(const QString& text, int& value)
{
    bool isInteger = false;
    const int integer = text.toInt(&isInteger);
    if (isInteger)
        value = integer;
    return isInteger;
}

bool ToTriple(const QString& text, float (&triple)[3])
{
    const QStringList parts = text.simplified().split(QLatin1Char(' '));
    if (parts.size() != 3)
        return false;
    float numbers[3];
    for (int i = 0; i < 3; ++i) {
        double number = 0;
        if (!ToNumber(parts[i], number))
            return false;
        numbers[i] = float(number);
    }
    std::copy(numbers, numbers + 3, triple);
    return true;
}

bool IsXmlText(const QString& text)
{
    return text.isValidUtf16() && std::all_of(text.cbegin(), text.cend(), [](QChar character) {
               const auto c = character.unicode();
               return c >= 0x20 ? c != 0xfffe && c != 0xffff : c == 9 || c == 10 || c == 13;
           });
}

} // namespace rvopen::toolkit

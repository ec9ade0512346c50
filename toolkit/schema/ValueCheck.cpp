// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/schema/ValueCheck.h>

#include <rvopen/toolkit/schema/ValueText.h>

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace rvopen::toolkit {

namespace {

/// The numbers of a text: one, or those of a colour, vector or point.
QStringList numbersIn(const QString& text)
{
    return text.simplified().split(QLatin1Char(' '));
}

Fault checkNumber(const QString& text)
{
    double number = 0;
    if (ToNumber(text, number))
        return Fault::None;
    bool isNumber = false;
    // What is too large even for double precision is no number to Qt, but an infinite one.
    if (std::isinf(text.toDouble(&isNumber)) || isNumber)
        return Fault::NotFinite;
    QString withPoint = text;
    withPoint.replace(QLatin1Char(','), QLatin1Char('.'));
    withPoint.toDouble(&isNumber);
    return isNumber ? Fault::DecimalComma : Fault::NoNumber;
}

Fault checkInteger(const QString& text)
{
    int integer = 0;
    if (ToInteger(text, integer))
        return Fault::None;
    const Fault fault = checkNumber(text);
    return fault == Fault::None ? Fault::NoInteger : fault;
}

ValueFault checkTriple(const QString& text)
{
    const QStringList parts = numbersIn(text);
    for (const QString& part : parts) {
        const Fault fault = checkNumber(part);
        if (fault != Fault::None)
            return {fault, part};
    }
    return parts.size() == 3 ? ValueFault() : ValueFault{Fault::NotThreeNumbers, text};
}

bool isHexadecimal(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar character) {
        const auto c = character.unicode();
        return character.isSpace() || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') ||
               (c >= 'A' && c <= 'F');
    });
}

bool isNumeric(ValueType type)
{
    return type == ValueType::Float || type == ValueType::Integer || type == ValueType::Colour ||
           type == ValueType::Vector || type == ValueType::Point;
}

/// Whether the texts are the same numbers, however they are written.
bool areEqualNumbers(const QStringList& a, const QStringList& b)
{
    return std::equal(
        a.cbegin(), a.cend(), b.cbegin(), b.cend(),
        [](const QString& x, const QString& y) { return x.toDouble() == y.toDouble(); });
}

ValueFault checkRange(const ParamInfo& info, const QString& text)
{
    const QStringList parts = numbersIn(text);
    if (!info.createdValue.isNull() &&
        areEqualNumbers(parts, numbersIn(info.createdValue.toString())))
        return {};
    for (const QString& part : parts) {
        if (!info.hard.Contains(part.toDouble()))
            return {Fault::OutsideRange, part};
    }
    return {};
}

QString choicesText(const Choices& choices)
{
    QStringList texts;
    for (const QStringView choice : choices)
        texts << QLatin1Char('"') + choice.toString() + QLatin1Char('"');
    return texts.join(QLatin1String(", "));
}

} // namespace

ValueFault CheckText(ValueType type, const QString& text)
{
    const bool mayBeEmpty =
        type == ValueType::String || type == ValueType::Shader || type == ValueType::Bytes;
    if (!mayBeEmpty && text.trimmed().isEmpty())
        return {Fault::Empty, text};
    Fault fault = Fault::None;
    switch (type) {
    case ValueType::Float:
        fault = checkNumber(text);
        break;
    case ValueType::Integer:
    case ValueType::Boolean:
        fault = checkInteger(text);
        break;
    case ValueType::String:
    case ValueType::Shader:
        fault = IsXmlText(text) ? Fault::None : Fault::ForbiddenCharacter;
        break;
    case ValueType::Colour:
    case ValueType::Vector:
    case ValueType::Point:
        return checkTriple(text);
    case ValueType::Bytes:
        fault = isHexadecimal(text) ? Fault::None : Fault::NoHexadecimal;
        break;
    }
    return fault == Fault::None ? ValueFault() : ValueFault{fault, text};
}

ValueFault CheckValue(const ParamInfo& info, const QString& text)
{
    if (info.isAttribute && text.isEmpty())
        return {};
    const ValueFault fault = CheckText(info.type, text);
    if (fault)
        return fault;
    if (info.choices.count > 0 && !info.choices.areOpen && !info.choices.Contains(text))
        return {Fault::NoChoice, text};
    return isNumeric(info.type) ? checkRange(info, text) : ValueFault();
}

QString FaultMessage(const ParamInfo& info, const ValueFault& fault)
{
    const QString part = QLatin1Char('"') + fault.part + QLatin1Char('"');
    switch (fault.fault) {
    case Fault::None:
        break;
    case Fault::Empty:
        return QStringLiteral("There is no value");
    case Fault::NoNumber:
        return part + QLatin1String(" is no number");
    case Fault::DecimalComma:
        return part + QLatin1String(" has a comma where a number has its decimal point: ") +
               QString(fault.part).replace(QLatin1Char(','), QLatin1Char('.'));
    case Fault::NotFinite:
        return part + QLatin1String(" is no finite number");
    case Fault::NoInteger:
        return part + QLatin1String(" is no whole number of 32 bits");
    case Fault::NotThreeNumbers:
        return part + QLatin1String(" is not three numbers");
    case Fault::NoHexadecimal:
        return QStringLiteral("The text is not hexadecimal");
    case Fault::ForbiddenCharacter:
        return QStringLiteral("The text has a character that no document may contain");
    case Fault::OutsideRange:
        return fault.part + QLatin1String(" is not ") + RangeText(info.hard);
    case Fault::NoChoice:
        return part + QLatin1String(" is none of ") + choicesText(info.choices);
    }
    return QString();
}

} // namespace rvopen::toolkit

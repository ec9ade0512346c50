// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/ParamValues.h>

#include "TypedText.h"

#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/toolkit/schema/ValueCheck.h>
#include <rvopen/toolkit/schema/ValueText.h>

namespace rvopen::toolkit {

namespace {

QString name(const QDomElement& element, const char* attribute)
{
    return element.attribute(QLatin1String(attribute));
}

/// A float as the number that it was written as.
double plain(float value)
{
    return NumberText(double(value)).toDouble();
}

bool isTriple(const Param& param)
{
    return param.IsColour() || param.IsVector() || param.IsPoint();
}

unsigned int getTriple(const Param& param, float (&triple)[3])
{
    if (param.IsColour())
        return param.GetValColour(triple);
    return param.IsVector() ? param.GetValVector(triple) : param.GetValPoint(triple);
}

/// What is wrong with a text that is no value of the type, and how one is written.
QString wrongText(ValueType type, const ValueFault& fault, const QString& text)
{
    const QString given = QLatin1Char('"') + text + QLatin1Char('"');
    switch (type) {
    case ValueType::Boolean:
        return given + QLatin1String(" is neither true nor false");
    case ValueType::Colour:
        return given + QLatin1String(" is no colour: write \"0.5 0 0\" or \"#800000\"");
    case ValueType::Vector:
    case ValueType::Point:
        return given + QLatin1String(" is not three numbers: write \"0 0.5 1\"");
    default:
        break;
    }
    const QString problem = FaultMessage(ParamInfo(), fault);
    if (fault.fault == Fault::DecimalComma)
        return problem;
    return problem + (type == ValueType::Integer ? QLatin1String(": write it as 3")
                                                 : QLatin1String(": write it as 0.5"));
}

QString outsideRange(const QDomElement& param, double value)
{
    const Range own = OwnRange(param);
    if (own.Contains(value))
        return QString();
    return QStringLiteral("%1 is outside of %2 to %3")
        .arg(NumberText(value),
             own.HasMinimum() ? NumberText(own.minimum) : QStringLiteral("-infinity"),
             own.HasMaximum() ? NumberText(own.maximum) : QStringLiteral("infinity"));
}

} // namespace

ParamValues::ParamValues() = default;

/// The parameter goes, its element stays.
ParamValues::~ParamValues()
{
    m_param.SetDomNode(QDomNode());
}

QString ParamValues::Text(const QDomElement& param)
{
    m_param.SetDomNode(param);
    float number = 0;
    int integer = 0;
    float triple[3] = {};
    if (m_param.IsFloat())
        return m_param.GetValFloat(&number) == 0 ? NumberText(double(number)) : QString();
    if (m_param.IsInt())
        return m_param.GetValInt(&integer) == 0 ? QString::number(integer) : QString();
    if (m_param.IsBool()) {
        if (m_param.GetValBool(&integer) != 0)
            return QString();
        return integer ? QStringLiteral("true") : QStringLiteral("false");
    }
    if (isTriple(m_param))
        return getTriple(m_param, triple) == 0 ? tripleText(triple) : QString();
    return name(param, "val");
}

QVariant ParamValues::Value(const QDomElement& param)
{
    m_param.SetDomNode(param);
    float number = 0;
    int integer = 0;
    float triple[3] = {};
    if (m_param.IsFloat())
        return m_param.GetValFloat(&number) == 0 ? QVariant(plain(number)) : QVariant();
    if (m_param.IsInt())
        return m_param.GetValInt(&integer) == 0 ? QVariant(integer) : QVariant();
    if (m_param.IsBool())
        return m_param.GetValBool(&integer) == 0 ? QVariant(integer != 0) : QVariant();
    if (isTriple(m_param)) {
        if (getTriple(m_param, triple) != 0)
            return QVariant();
        return QVariantList{plain(triple[0]), plain(triple[1]), plain(triple[2])};
    }
    return name(param, "val");
}

QString ParamValues::Check(const QDomElement& param, const QString& text)
{
    m_param.SetDomNode(param);
    const std::optional<ValueType> type = TypeNamed(name(param, "type"));
    if (!type)
        return QStringLiteral("the parameter has no type that the host knows");
    if (m_param.IsShader()) {
        return text == QLatin1String("colour")
                   ? QString()
                   : QStringLiteral("\"colour\" is the only kind of shader that the host knows");
    }
    const QString stored = storedText(*type, text);
    const ValueFault fault = CheckText(*type, stored);
    if (fault.fault == Fault::ForbiddenCharacter)
        return QStringLiteral("it has a character that no document may contain");
    if (fault)
        return wrongText(*type, fault, text);
    // Ranges of lengths hold in any units.
    const ParamInfo* const info = FindParam(m_param);
    const QString problem =
        info && info->type == *type ? FaultMessage(*info, CheckValue(*info, stored)) : QString();
    if (!problem.isEmpty())
        return problem;
    return m_param.IsFloat() || m_param.IsInt() ? outsideRange(param, text.toDouble()) : QString();
}

void ParamValues::Set(const QDomElement& param, const QString& text)
{
    m_param.SetDomNode(param);
    double number = 0;
    int integer = 0;
    bool truth = false;
    float triple[3] = {};
    if (m_param.IsFloat() && ToNumber(text, number)) {
        m_param.SetValFloat(float(number));
    } else if (m_param.IsInt() && ToInteger(text, integer)) {
        m_param.SetValInt(integer);
    } else if (m_param.IsBool() && toBoolean(text, truth)) {
        m_param.SetValBool(truth ? 1 : 0);
    } else if (isTriple(m_param)) {
        toColour(text, triple);
        if (m_param.IsColour())
            m_param.SetValColour(triple);
        else if (m_param.IsVector())
            m_param.SetValVector(triple);
        else
            m_param.SetValPoint(triple);
    } else if (m_param.IsString()) {
        m_param.SetValString(text);
    } else if (m_param.IsShader()) {
        m_param.SetValShaderType(text);
    }
}

} // namespace rvopen::toolkit

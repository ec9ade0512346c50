// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Condition.h"

#include "Folding.h"
#include "Labels.h"
#include "TypedText.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QVector>

#include <cmath>

namespace rvopen::toolkit {

namespace {

/// Without the quotes around it.
QString unquoted(const QString& text)
{
    const bool isQuoted = text.size() > 1 && text[0] == text[text.size() - 1] &&
                          (text[0] == QLatin1Char('\'') || text[0] == QLatin1Char('"'));
    return isQuoted ? text.mid(1, text.size() - 2) : text;
}

/// What operators are made of.
const QLatin1String s_signs("=!<>~");

/// Where the operator begins: at the first of its characters outside of quotes; -1 without.
int operatorAt(const QString& text)
{
    QChar quote;
    for (int i = 0; i < int(text.size()); ++i) {
        const QChar c = text[i];
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (i == 0 && (c == QLatin1Char('\'') || c == QLatin1Char('"'))) {
            quote = c;
        } else if (s_signs.contains(c)) {
            return i;
        }
    }
    return -1;
}

/// Half of what 8 bits tell apart, for colours that are written as #rrggbb.
constexpr float s_halfStep = 0.5f / 255;
/// What single precision and six digits leave of a number.
constexpr float s_rounding = 1e-5f;

bool isNear(const float (&a)[3], const float (&b)[3], float tolerance)
{
    for (int i = 0; i < 3; ++i) {
        if (!(std::fabs(a[i] - b[i]) <= tolerance * std::fmax(1.0f, std::fabs(b[i]))))
            return false;
    }
    return true;
}

} // namespace

Condition::Condition(const QString& text)
{
    parse(text);
}

void Condition::parse(const QString& text)
{
    const auto fail = [&text](const QString& why) {
        throw Failure(QStringLiteral("\"%1\" is no condition: %2").arg(text, why));
    };
    const int at = operatorAt(text);
    QString name = (at < 0 ? text : text.left(at)).trimmed();
    m_isAttribute = name.startsWith(QLatin1Char('@'));
    if (m_isAttribute || name.startsWith(QLatin1Char(':')))
        name.remove(0, 1);
    name = unquoted(name);
    if (name.isEmpty())
        fail(QStringLiteral("it begins with a parameter's name or an attribute, as in \"@cat\""));
    m_writtenName = name;
    m_name = m_isAttribute ? name : folded(name);
    if (at < 0)
        return;

    struct Sign {
        const char* text;
        Operator meaning;
    };
    // The longer ones first.
    const Sign signs[] = {{"!=", Operator::Different},
                          {"<=", Operator::LessOrEqual},
                          {">=", Operator::GreaterOrEqual},
                          {"=", Operator::Equal},
                          {"<", Operator::Less},
                          {">", Operator::Greater},
                          {"~", Operator::Contains}};
    QString rest = text.mid(at);
    for (const Sign& sign : signs) {
        if (rest.startsWith(QLatin1String(sign.text))) {
            m_operator = sign.meaning;
            rest.remove(0, int(qstrlen(sign.text)));
            break;
        }
    }
    if (m_operator == Operator::Exists)
        fail(QStringLiteral("the operators are = != < <= > >= ~"));
    rest = rest.trimmed();
    if (!rest.isEmpty() && s_signs.contains(rest[0]))
        fail(QStringLiteral("the operators are = != < <= > >= ~; a text that begins with one is "
                            "quoted"));
    m_value = unquoted(rest);
    m_isNumber = ToNumber(m_value, m_number);
    const bool isOrder = m_operator == Operator::Less || m_operator == Operator::LessOrEqual ||
                         m_operator == Operator::Greater || m_operator == Operator::GreaterOrEqual;
    if (isOrder && !m_isNumber)
        fail(QStringLiteral("a number follows \"<\" and \">\""));
    if (m_operator == Operator::Contains)
        m_value = folded(m_value);
}

bool Condition::holds(const QDomElement& element, ParamValues& values) const
{
    if (m_isAttribute) {
        return m_operator == Operator::Exists ? element.hasAttribute(m_name)
                                              : holdsText(element.attribute(m_name));
    }
    bool isFound = false;
    QVector<QDomElement> level{element};
    while (!level.isEmpty() && !isFound) {
        QVector<QDomElement> below;
        for (const QDomElement& parent : level) {
            for (QDomElement child = parent.firstChildElement(); !child.isNull();
                 child = child.nextSiblingElement()) {
                below.append(child);
                if (!isParam(child) || folded(child.attribute(QStringLiteral("name"))) != m_name)
                    continue;
                isFound = true;
                if (holdsParam(child, values))
                    return true;
            }
        }
        level = below;
    }
    return false;
}

bool Condition::isAboutAttribute() const
{
    return m_isAttribute;
}

QString Condition::name() const
{
    return m_writtenName;
}

bool Condition::holdsParam(const QDomElement& param, ParamValues& values) const
{
    const QString type = param.attribute(QStringLiteral("type"));
    const QString text = values.Text(param);
    bool truth = false;
    if (type == QLatin1String("boolean") && toBoolean(m_value, truth)) {
        const bool isEqual = text == (truth ? QLatin1String("true") : QLatin1String("false"));
        if (m_operator == Operator::Equal)
            return isEqual;
        if (m_operator == Operator::Different)
            return !isEqual;
    }
    float wanted[3] = {};
    float given[3] = {};
    if ((m_operator == Operator::Equal || m_operator == Operator::Different) &&
        toColour(m_value, wanted) && toTriple(text, given)) {
        const float tolerance = m_value.startsWith(QLatin1Char('#')) ? s_halfStep : s_rounding;
        return isNear(given, wanted, tolerance) == (m_operator == Operator::Equal);
    }
    return holdsText(text);
}

bool Condition::holdsText(const QString& text) const
{
    double value = 0;
    const bool isNumber = ToNumber(text, value);
    switch (m_operator) {
    case Operator::Exists:
        return true;
    case Operator::Contains:
        return folded(text).contains(m_value);
    case Operator::Equal:
        return m_isNumber && isNumber ? holdsOrder(value) : text == m_value;
    case Operator::Different:
        return m_isNumber && isNumber ? holdsOrder(value) : text != m_value;
    case Operator::Less:
    case Operator::LessOrEqual:
    case Operator::Greater:
    case Operator::GreaterOrEqual:
        break;
    }
    return isNumber && holdsOrder(value);
}

bool Condition::holdsOrder(double value) const
{
    // Equal is what is printed alike.
    const bool isEqual = NumberText(value) == NumberText(m_number);
    switch (m_operator) {
    case Operator::Equal:
        return isEqual;
    case Operator::Different:
        return !isEqual;
    case Operator::Less:
        return !isEqual && value < m_number;
    case Operator::LessOrEqual:
        return isEqual || value < m_number;
    case Operator::Greater:
        return !isEqual && value > m_number;
    case Operator::GreaterOrEqual:
        return isEqual || value > m_number;
    case Operator::Exists:
    case Operator::Contains:
        break;
    }
    return false;
}

} // namespace rvopen::toolkit

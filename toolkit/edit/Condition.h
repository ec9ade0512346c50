// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>

namespace rvopen::toolkit {

class ParamValues;

/// What an element has to fulfil: "roughness > 0.8", "'diffuse factor' >= 0.5", "@cat = Metals",
/// "@desc ~ grey", or "@custom" and "roughness" alone for an attribute or a
/// parameter that is there.
class Condition {
public:
    /// Throws a Failure when the text is no condition.
    explicit Condition(const QString& text);

    /// Whether the element fulfils it. A parameter is looked for by its name in any case: in the
    /// element itself, else in its components, and so on downwards; where it is nearest, one that
    /// fulfils the condition is enough, and without any it is not fulfilled. An attribute is the
    /// element's own, and empty where it is absent.
    bool holds(const QDomElement& element, ParamValues& values) const;

    /// Else about a parameter.
    bool isAboutAttribute() const;
    /// Of the attribute, or of the parameter, as it was written.
    QString name() const;

private:
    enum class Operator {
        Exists,
        Equal,
        Different,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        Contains
    };

    void parse(const QString& text);
    bool holdsText(const QString& text) const;
    bool holdsParam(const QDomElement& param, ParamValues& values) const;
    bool holdsOrder(double value) const;

    bool m_isAttribute = false;
    QString m_writtenName;
    /// Folded, for a parameter.
    QString m_name;
    Operator m_operator = Operator::Exists;
    QString m_value;
    bool m_isNumber = false;
    double m_number = 0;
};

} // namespace rvopen::toolkit

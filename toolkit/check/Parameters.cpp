// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Parameters.h"

#include "Inspecting.h"
#include "References.h"
#include "RuleTable.h"
#include "toolkit/images/ReferencedTextures.h"

#include <rvopen/toolkit/schema/ValueCheck.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <algorithm>
#include <cmath>

namespace rvopen::toolkit {

Parameters::Parameters(Inspecting& inspecting, References& references, const QDomElement& owner,
                       const QString& tag)
    : m_inspecting(inspecting)
    , m_references(references)
    , m_tag(tag)
    , m_infos(ParamsOf(tag, KindOf(owner)))
{
}

void Parameters::inspect(const QDomElement& param, int ordinal, bool isBehindOther)
{
    const Words& words = m_inspecting.words;
    const QString name = param.attribute(words.name);
    const QString type = param.attribute(words.type);
    const QString text = param.attribute(words.val);
    inspectName(param, ordinal, name);
    if (isBehindOther)
        m_inspecting.report(
            rules::hiddenParam, param, ordinal,
            QStringLiteral("\"%1\" is hidden behind another child of \"%2\"").arg(name, m_tag));
    const auto info = std::find_if(m_infos.cbegin(), m_infos.cend(), [&name](const ParamInfo* row) {
        return row->name == QStringView(name);
    });
    const bool isExpected = info != m_infos.cend();
    if (!isExpected && !m_infos.isEmpty() && !name.isEmpty())
        m_inspecting.report(rules::unknownParam, param, ordinal,
                            QStringLiteral("Unknown parameter \"%1\" of \"%2\"").arg(name, m_tag));
    const std::optional<ValueType> valueType = TypeNamed(type);
    const bool isOfType = !isExpected || valueType == (*info)->type;
    // Most have these three attributes and no others; the rest is looked up where there is more.
    const int usual = (name.isNull() ? 0 : 1) + (type.isNull() ? 0 : 1) + (text.isNull() ? 0 : 1);
    const bool hasMore = param.attributes().count() > usual;
    if (type.isEmpty())
        m_inspecting.report(rules::missingType, param, ordinal,
                            QStringLiteral("\"%1\" has no type").arg(name));
    else if (!valueType)
        m_inspecting.report(rules::wrongType, param, ordinal,
                            QStringLiteral("\"%1\" has the unknown type \"%2\"").arg(name, type));
    else if (!isOfType)
        m_inspecting.report(rules::wrongType, param, ordinal,
                            QStringLiteral("\"%1\" has type \"%2\" instead of \"%3\"")
                                .arg(name, type, TypeName((*info)->type)));
    else
        inspectValue(param, ordinal, name, *valueType, isExpected ? *info : nullptr, text, hasMore);
    if (!isOfType)
        m_inspecting.findings.last().expectedType = TypeName((*info)->type);
    if (type == words.string && !text.isEmpty() && isTextureParam(m_tag, name))
        m_references.inspectTexture(param, text, ordinal);
    if (hasMore)
        m_inspecting.inspectAttributes(param, words.param, ordinal);
    if (type == words.shader && text != words.colour)
        m_inspecting.report(rules::shaderEndsList, param, ordinal,
                            QStringLiteral("A shader parameter of kind \"%1\"").arg(text));
}

void Parameters::inspectName(const QDomElement& param, int ordinal, const QString& name)
{
    if (name.isEmpty())
        m_inspecting.report(rules::paramWithoutName, param, ordinal,
                            QStringLiteral("A parameter without name"));
    else if (std::find(m_names.cbegin(), m_names.cend(), name) != m_names.cend())
        m_inspecting.report(rules::duplicateParam, param, ordinal,
                            QStringLiteral("Another parameter \"%1\"").arg(name));
    m_names.append(name);
}

void Parameters::inspectValue(const QDomElement& param, int ordinal, const QString& name,
                              ValueType type, const ParamInfo* info, const QString& text,
                              bool hasMore)
{
    const ValueFault fault = info ? CheckValue(*info, text) : CheckText(type, text);
    if (fault.fault == Fault::OutsideRange)
        m_inspecting.report(rules::outOfRange, param, ordinal,
                            QStringLiteral("\"%1\": %2").arg(name, FaultMessage(*info, fault)));
    else if (fault && fault.fault != Fault::NoChoice)
        m_inspecting.report(rules::badValue, param, ordinal,
                            text.isEmpty()
                                ? QStringLiteral("\"%1\" has no value").arg(name)
                                : QStringLiteral("\"%1\": \"%2\" is no value of type \"%3\"")
                                      .arg(name, text, TypeName(type)));
    else if (type == ValueType::Float && hasMore)
        inspectRange(param, ordinal, name, text);
}

void Parameters::inspectRange(const QDomElement& param, int ordinal, const QString& name,
                              const QString& text)
{
    const Words& words = m_inspecting.words;
    const Range own = OwnRange(param);
    if (!own.HasMinimum() && !own.HasMaximum())
        return;
    double value = text.toDouble();
    if (param.attribute(words.prop).contains(QLatin1Char('D')))
        value /= m_inspecting.unitsScale;
    const auto isLess = [](double a, double b) { return a < b - std::abs(b) * 1e-6; };
    if ((own.HasMinimum() && isLess(value, own.minimum)) ||
        (own.HasMaximum() && isLess(own.maximum, value)))
        m_inspecting.report(
            rules::outOfRange, param, ordinal,
            QStringLiteral("\"%1\": %2 is outside of %3 to %4")
                .arg(name, NumberText(value),
                     own.HasMinimum() ? NumberText(own.minimum) : QStringLiteral("?"),
                     own.HasMaximum() ? NumberText(own.maximum) : QStringLiteral("?")));
}

} // namespace rvopen::toolkit

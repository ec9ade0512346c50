// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/check/Inspection.h>

#include "RuleTable.h"
#include "toolkit/edit/Labels.h"

#include <rvopen/toolkit/schema/ValueCheck.h>

namespace rvopen::toolkit {

namespace {

/// Whether the text is a value of the type, as the host would read it. \p type is one.
bool isValueOf(const QString& type, const QString& text)
{
    const std::optional<ValueType> valueType = TypeNamed(type);
    return valueType && !CheckText(*valueType, text);
}

/// In front of the first child that is no parameter.
void bringForward(const QDomElement& param)
{
    QDomNode parent = param.parentNode();
    QDomNode node = parent.firstChild();
    while (node.isElement() && isParam(node.toElement()) && node != param)
        node = node.nextSibling();
    if (node != param)
        parent.insertBefore(param, node);
}

bool mendOne(const Finding& finding)
{
    QDomElement element = finding.element;
    if (finding.rule == &rules::oldCollectionName) {
        element.setAttribute(QStringLiteral("name"), QStringLiteral("Model SnapShots"));
        return true;
    }
    if (finding.rule == &rules::hiddenParam) {
        bringForward(element);
        return true;
    }
    if (finding.rule == &rules::missingType || finding.rule == &rules::wrongType) {
        const QString text = element.attribute(QStringLiteral("val"));
        // A text may be any string, and a shader is more than its value.
        const bool isSafe = !finding.expectedType.isEmpty() &&
                            finding.expectedType != QLatin1String("shader") &&
                            element.attribute(QStringLiteral("type")) != QLatin1String("shader") &&
                            isValueOf(finding.expectedType, text);
        if (isSafe)
            element.setAttribute(QStringLiteral("type"), finding.expectedType);
        return isSafe;
    }
    return false;
}

} // namespace

int Mend(QVector<Finding>& findings)
{
    int count = 0;
    for (Finding& finding : findings) {
        finding.isFixed = mendOne(finding);
        count += finding.isFixed ? 1 : 0;
    }
    return count;
}

} // namespace rvopen::toolkit

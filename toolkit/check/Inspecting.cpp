// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Inspecting.h"

#include "RuleTable.h"
#include "toolkit/schema/Vocabulary.h"

namespace rvopen::toolkit {

Inspecting::Inspecting(const Document& inspected, const Surroundings& around)
    : document(inspected)
    , surroundings(around)
{
}

void Inspecting::report(const Rule& rule, const QDomElement& element, int ordinal,
                        const QString& message)
{
    Finding finding;
    finding.rule = &rule;
    finding.element = element;
    finding.ordinal = ordinal;
    finding.message = message;
    findings.append(finding);
}

void Inspecting::inspectAttributes(const QDomElement& element, const QString& tag, int ordinal,
                                   const QStringList& others)
{
    const QDomNamedNodeMap attributes = element.attributes();
    const int count = attributes.count();
    for (int i = 0; i < count; ++i) {
        const QString name = attributes.item(i).nodeName();
        if (!others.contains(name) && !Vocabulary::instance().isAttribute(tag, name))
            report(rules::unknownAttribute, element, ordinal,
                   QStringLiteral("Unknown attribute \"%1\"").arg(name));
    }
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "../../TestSupport.h"

#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/toolkit/schema/ValueCheck.h>

#include <QDomElement>

namespace rvopen::test {

inline const toolkit::ParamInfo& rowOf(const char* element, const char* kind, const char* name)
{
    static const toolkit::ParamInfo none;
    const toolkit::ParamInfo* const info =
        toolkit::FindParam(QLatin1String(element), QLatin1String(kind), QLatin1String(name));
    EXPECT_TRUE(info) << element << " has no " << name;
    return info ? *info : none;
}

inline std::string nameOf(const toolkit::ParamInfo& info)
{
    return (info.element.toString() + QLatin1Char('[') + info.kind.toString() +
            QLatin1String("]:") + info.name.toString())
        .toStdString();
}

/// What the schema has against the parameters below an element, each in a line: those that it does
/// not know, those of another type or with other property letters, and wrong values. \p count rises
/// by the number of parameters.
inline QStringList complaints(const QDomElement& element, int& count)
{
    QStringList result;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        result += complaints(child, count);
        if (child.tagName() != QLatin1String("param"))
            continue;
        ++count;
        const QString name = child.attribute(QStringLiteral("name"));
        const QString where = element.tagName() + QLatin1Char(':') + name;
        const toolkit::ParamInfo* const info =
            toolkit::FindParam(element.tagName(), toolkit::KindOf(element), name);
        if (!info) {
            result << where + QLatin1String(" is not known");
            continue;
        }
        if (child.attribute(QStringLiteral("type")) != toolkit::TypeName(info->type))
            result << where + QLatin1String(" has another type");
        if (child.attribute(QStringLiteral("prop")).contains(QLatin1Char('D')) != info->isLength)
            result << where + QLatin1String(" is stored in another unit");
        const toolkit::ValueFault fault =
            toolkit::CheckValue(*info, child.attribute(QStringLiteral("val")));
        if (fault)
            result << where + QLatin1String(": ") + toolkit::FaultMessage(*info, fault);
    }
    return result;
}

} // namespace rvopen::test

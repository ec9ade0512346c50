// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/schema/ParamInfo.h>

#include "ParamRows.h"
#include "Vocabulary.h"

#include <rvopen/Param.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QDomElement>
#include <QHash>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

using Rows = QVector<const ParamInfo*>;

/// For each element the rows of each of its kinds, complete: those that hold for every kind stand
/// under the empty one, and with every other.
using Index = QHash<QString, QHash<QString, Rows>>;

/// Puts the row in, in the place of one of the same name.
void put(Rows& rows, const ParamInfo& info)
{
    const auto same = std::find_if(rows.begin(), rows.end(), [&info](const ParamInfo* other) {
        return other->name == info.name;
    });
    if (same == rows.end())
        rows.append(&info);
    else
        *same = &info;
}

Index makeIndex()
{
    Index result;
    for (const ParamInfo& info : AllParams())
        result[info.element.toString()][info.kind.toString()];
    for (auto kinds = result.begin(); kinds != result.end(); ++kinds) {
        for (auto rows = kinds->begin(); rows != kinds->end(); ++rows) {
            for (const ParamInfo& info : AllParams()) {
                if (info.element == QStringView(kinds.key()) &&
                    (info.kind.isEmpty() || info.kind == QStringView(rows.key())))
                    put(*rows, info);
            }
        }
    }
    return result;
}

const Index& index()
{
    static const Index result = makeIndex();
    return result;
}

const Rows& rowsOf(const QString& element, const QString& kind)
{
    static const Rows none;
    const auto kinds = index().constFind(element);
    if (kinds == index().cend())
        return none;
    auto rows = kinds->constFind(kind);
    if (rows == kinds->cend())
        rows = kinds->constFind(QString());
    return rows == kinds->cend() ? none : *rows;
}

const ParamInfo* attributeOf(QStringView element, QStringView name)
{
    for (const ParamInfo& info : AllAttributes()) {
        if (info.element == element && info.name == name)
            return &info;
    }
    return nullptr;
}

QString endText(const char* included, const char* excluded, bool isExcluded, double end)
{
    return QLatin1String(isExcluded ? excluded : included) + QLatin1Char(' ') + NumberText(end);
}

} // namespace

bool Choices::Contains(QStringView text) const
{
    return std::find(begin(), end(), text) != end();
}

QString KindOf(const QDomElement& element)
{
    switch (kindSourceOf(element.tagName())) {
    case KindSource::ShaderClass:
        return element.attribute(QStringLiteral("shaderClass"));
    case KindSource::Grandparent:
        return element.parentNode().parentNode().toElement().tagName();
    case KindSource::SubCategory:
        break;
    }
    return element.attribute(QStringLiteral("subcat"));
}

QString KindOf(const RVOpenNode& node)
{
    return KindOf(node.GetDomNode().toElement());
}

bool HasParams(const QString& element)
{
    return index().contains(element);
}

QVector<const ParamInfo*> ParamsOf(const QString& element, const QString& kind)
{
    return rowsOf(element, kind);
}

const ParamInfo* FindParam(const QString& element, const QString& kind, const QString& name)
{
    for (const ParamInfo* const info : rowsOf(element, kind)) {
        if (info->name == QStringView(name))
            return info;
    }
    return nullptr;
}

const ParamInfo* FindParam(const RVOpenNode& owner, const QString& name)
{
    return FindParam(owner.GetNodeName(), KindOf(owner), name);
}

const ParamInfo* FindParam(const Param& param)
{
    const QDomElement owner = param.GetDomNode().parentNode().toElement();
    return FindParam(owner.tagName(), KindOf(owner), param.GetName());
}

const ParamInfo* FindAttribute(const QString& element, const QString& name)
{
    const ParamInfo* const own = attributeOf(element, name);
    // A parameter is no node of the tree and has none of the others.
    if (own || element == QLatin1String("param"))
        return own;
    return attributeOf(QStringView(), name);
}

QString TypeName(ValueType type)
{
    return type == ValueType::Bytes ? QStringLiteral("bytes") : typeNames[int(type)].toString();
}

std::optional<ValueType> TypeNamed(const QString& name)
{
    const auto* const found =
        std::find(std::begin(typeNames), std::end(typeNames), QStringView(name));
    if (found == std::end(typeNames))
        return std::nullopt;
    return ValueType(found - std::begin(typeNames));
}

QString UnitName(Unit unit)
{
    switch (unit) {
    case Unit::None:
        break;
    case Unit::Factor:
        return QStringLiteral("factor");
    case Unit::Ratio:
        return QStringLiteral("ratio");
    case Unit::Percent:
        return QStringLiteral("percent");
    case Unit::Degrees:
        return QStringLiteral("degrees");
    case Unit::SceneLength:
        return QStringLiteral("scene units");
    case Unit::SceneArea:
        return QStringLiteral("square scene units");
    case Unit::Pixels:
        return QStringLiteral("pixels");
    case Unit::Steps:
        return QStringLiteral("steps");
    case Unit::Lumens:
        return QStringLiteral("lumens");
    case Unit::RefractiveIndex:
        return QStringLiteral("index");
    case Unit::Exponent:
        return QStringLiteral("exponent");
    }
    return QString();
}

QString ColourSpaceName(ColourSpace space)
{
    switch (space) {
    case ColourSpace::None:
        break;
    case ColourSpace::Srgb:
        return QStringLiteral("srgb");
    case ColourSpace::Data:
        return QStringLiteral("data");
    }
    return QString();
}

Range OwnRange(const QDomElement& param)
{
    Range range;
    ToNumber(param.attribute(QStringLiteral("rangeMin")), range.minimum);
    ToNumber(param.attribute(QStringLiteral("rangeMax")), range.maximum);
    return range;
}

QString RangeText(const Range& range)
{
    if (range.HasMinimum() && range.HasMaximum() && !range.excludesMinimum &&
        !range.excludesMaximum)
        return NumberText(range.minimum) + QLatin1String(" to ") + NumberText(range.maximum);
    QString text;
    if (range.HasMinimum())
        text = endText("from", "above", range.excludesMinimum, range.minimum);
    if (range.HasMinimum() && range.HasMaximum())
        text += QLatin1String(" and ");
    if (range.HasMaximum())
        text += endText("up to", "below", range.excludesMaximum, range.maximum);
    return text;
}

} // namespace rvopen::toolkit

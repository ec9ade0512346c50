// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/ParamFacts.h>

#include <rvopen/Param.h>
#include <rvopen/RVOpenView.h>

#include <algorithm>
#include <optional>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

/// What is in both. An end that only one of them leaves out stays out.
Range common(const Range& a, const Range& b)
{
    Range range;
    range.minimum = std::max(a.minimum, b.minimum);
    range.maximum = std::min(a.maximum, b.maximum);
    range.excludesMinimum = (a.excludesMinimum && a.minimum >= b.minimum) ||
                            (b.excludesMinimum && b.minimum >= a.minimum);
    range.excludesMaximum = (a.excludesMaximum && a.maximum <= b.maximum) ||
                            (b.excludesMaximum && b.maximum <= a.maximum);
    return range;
}

void addSchema(const ParamInfo& info, ParamFacts& facts)
{
    facts.label = info.label.toString();
    facts.help = info.help.toString();
    if (info.type != facts.type)
        return;
    facts.unit = UnitName(info.unit);
    facts.content = info.content;
    facts.hard = info.hard;
    facts.soft = info.soft;
    facts.step = info.step;
    for (const QStringView choice : info.choices)
        facts.choices << choice.toString();
    facts.areChoicesOpen = info.choices.areOpen;
}

} // namespace

ParamFacts FactsOf(const QDomElement& param)
{
    ParamFacts facts;
    const RVOpenView<Param> view(param);
    const std::optional<ValueType> type = TypeNamed(param.attribute(QStringLiteral("type")));
    facts.type = type.value_or(ValueType::String);
    facts.isReadOnly = !type || view->IsReadOnly() != 0;
    facts.label = param.attribute(QStringLiteral("name"));
    const QDomElement owner = param.parentNode().toElement();
    if (const ParamInfo* const info = FindParam(owner.tagName(), KindOf(owner), facts.label))
        addSchema(*info, facts);
    if (facts.type == ValueType::Float || facts.type == ValueType::Integer) {
        facts.hard = common(facts.hard, OwnRange(param));
        Range usual = facts.soft;
        float low = 0;
        float high = 0;
        if (view->GetFloatRange(&low, &high) == 0) {
            usual.minimum = double(low);
            usual.maximum = double(high);
        }
        facts.soft = common(usual, facts.hard);
    }
    return facts;
}

Triple Triple::Of(const QVariant& value)
{
    Triple triple;
    const QVariantList list = value.toList();
    if (list.size() == 3) {
        for (int i = 0; i < 3; ++i)
            triple.numbers[i] = list[i].toDouble();
    }
    return triple;
}

QVariant Triple::ToVariant() const
{
    return QVariantList{numbers[0], numbers[1], numbers[2]};
}

} // namespace rvopen::widgets

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/schema/ParamInfo.h>

/// How the tables of the schema are written down. Not installed.
namespace rvopen::toolkit {

/// In the order of ValueType.
inline constexpr QStringView typeNames[] = {u"float",  u"integer", u"boolean", u"string",
                                            u"shader", u"colour",  u"vector",  u"point"};

constexpr Range from(double minimum)
{
    Range range;
    range.minimum = minimum;
    return range;
}

constexpr Range above(double minimum)
{
    Range range = from(minimum);
    range.excludesMinimum = true;
    return range;
}

constexpr Range within(double minimum, double maximum)
{
    Range range = from(minimum);
    range.maximum = maximum;
    return range;
}

/// Without its ends.
constexpr Range between(double minimum, double maximum)
{
    Range range = within(minimum, maximum);
    range.excludesMinimum = true;
    range.excludesMaximum = true;
    return range;
}

/// A row that is being put together: each operation gives one that knows more.
class ParamRow {
    // Before its callers: clang evaluates no constant by a template that it has yet to read.
    template <class Value>
    constexpr ParamRow with(Value ParamInfo::*member, const Value& value) const
    {
        ParamRow row = *this;
        row.m_info.*member = value;
        return row;
    }

public:
    constexpr ParamRow(QStringView element, QStringView kind, QStringView name, QStringView label,
                       QStringView help, ValueType type)
    {
        m_info.element = element;
        m_info.kind = kind;
        m_info.name = name;
        m_info.label = label;
        m_info.help = help;
        m_info.type = type;
    }

    constexpr operator ParamInfo() const
    {
        return m_info;
    }

    constexpr ParamRow counting(Unit unit) const
    {
        return with(&ParamInfo::unit, unit);
    }

    constexpr ParamRow hard(Range range) const
    {
        return with(&ParamInfo::hard, range);
    }

    constexpr ParamRow soft(double minimum, double maximum, double step) const
    {
        return with(&ParamInfo::soft, within(minimum, maximum)).with(&ParamInfo::step, step);
    }

    /// Stored in document units.
    constexpr ParamRow length() const
    {
        return with(&ParamInfo::isLength, true);
    }

    constexpr ParamRow holds(Content content) const
    {
        return with(&ParamInfo::content, content);
    }

    constexpr ParamRow in(ColourSpace space) const
    {
        return with(&ParamInfo::colourSpace, space);
    }

    template <int count>
    constexpr ParamRow among(const QStringView (&choices)[count]) const
    {
        return with(&ParamInfo::choices, Choices{choices, count, false});
    }

    /// These, or anything else.
    template <int count>
    constexpr ParamRow amongOthers(const QStringView (&choices)[count]) const
    {
        ParamRow row = among(choices);
        row.m_info.choices.areOpen = true;
        return row;
    }

    /// Created with its element, and reset, to this value.
    constexpr ParamRow made(QStringView value) const
    {
        return usual(value).with(&ParamInfo::createdValue, value);
    }

    /// Reset to this value.
    constexpr ParamRow usual(QStringView value) const
    {
        return with(&ParamInfo::defaultValue, value);
    }

    constexpr ParamRow absentAs(QStringView value) const
    {
        return with(&ParamInfo::absentValue, value);
    }

    constexpr ParamRow later() const
    {
        return with(&ParamInfo::isLater, true);
    }

    constexpr ParamRow attribute() const
    {
        return with(&ParamInfo::isAttribute, true);
    }

private:
    ParamInfo m_info;
};

/// An element, or one of its kinds, and its rows.
struct Owner {
    QStringView element;
    QStringView kind = {};

    constexpr ParamRow row(QStringView name, QStringView label, QStringView help,
                           ValueType type) const
    {
        return ParamRow(element, kind, name, label, help, type);
    }

    constexpr ParamRow number(QStringView name, QStringView label, QStringView help,
                              Unit unit) const
    {
        return row(name, label, help, ValueType::Float).counting(unit);
    }

    constexpr ParamRow whole(QStringView name, QStringView label, QStringView help, Unit unit) const
    {
        return row(name, label, help, ValueType::Integer).counting(unit);
    }

    constexpr ParamRow flag(QStringView name, QStringView label, QStringView help) const
    {
        return row(name, label, help, ValueType::Boolean);
    }

    constexpr ParamRow text(QStringView name, QStringView label, QStringView help) const
    {
        return row(name, label, help, ValueType::String).usual(u"");
    }

    constexpr ParamRow image(QStringView name, QStringView label, QStringView help) const
    {
        return text(name, label, help).holds(Content::ImageFile).in(ColourSpace::Srgb);
    }

    constexpr ParamRow shader(QStringView name, QStringView label, QStringView help) const
    {
        return row(name, label, help, ValueType::Shader).among(s_shaders).made(s_shaders[0]);
    }

    /// Custom has each number from 0 to 1, but nobody enforces that, and light may be brighter.
    constexpr ParamRow colour(QStringView name, QStringView label, QStringView help) const
    {
        return row(name, label, help, ValueType::Colour)
            .in(ColourSpace::Srgb)
            .hard(from(0))
            .soft(0, 1, 0.01);
    }

    constexpr ParamRow direction(QStringView name, QStringView label, QStringView help) const
    {
        return row(name, label, help, ValueType::Vector);
    }

    constexpr ParamRow point(QStringView name, QStringView label, QStringView help) const
    {
        return row(name, label, help, ValueType::Point).counting(Unit::SceneLength);
    }

    /// The only kind of shader that the library knows.
    static constexpr QStringView s_shaders[] = {u"colour"};
};

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/NodePath.h>

#include "Labels.h"
#include "PathSegment.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/ParamValues.h>

#include <QStringList>

#include <vector>

namespace rvopen::toolkit {

QString IdentityOf(const QDomElement& element)
{
    for (const auto& attribute :
         {QStringLiteral("name"), QStringLiteral("refname"), QStringLiteral("linkname")}) {
        const QString value = element.attribute(attribute);
        if (!value.isEmpty())
            return value;
    }
    return QString();
}

QString PathOf(const QDomElement& element)
{
    const QDomElement parent = element.parentNode().toElement();
    if (parent.isNull())
        return QString();
    Labels labels;
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString label = labels.next(child);
        if (child == element)
            return joined(PathOf(parent), label);
    }
    return QString();
}

void Walk(const QDomElement& parent, const QString& parentPath,
          const std::function<bool(const QDomElement&, const QString&)>& visit)
{
    Labels labels;
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString path = joined(parentPath, labels.next(child));
        if (visit(child, path))
            Walk(child, path, visit);
    }
}

PathPattern::PathPattern(const QString& text)
    : m_text(text)
{
    parse();
}

void PathPattern::parse()
{
    const auto fail = [this](const QString& why) {
        throw Failure(QStringLiteral("\"%1\" is no path: %2").arg(m_text, why));
    };
    std::vector<Segment> segments;
    int at = 0;
    const int size = int(m_text.size());
    const auto isAt = [this, &at, size](char c) {
        return at < size && m_text[at] == QLatin1Char(c);
    };
    /// Up to one of the characters, without the backslashes, in parts between the stars.
    const auto take = [this, &at, size](const char* stops) {
        QStringList parts{QString()};
        while (at < size && !QLatin1String(stops).contains(m_text[at])) {
            if (m_text[at] == EscapeSign && at + 1 < size) {
                ++at;
                if (m_text[at] == QLatin1Char('n'))
                    parts.last() += QLatin1Char('\n');
                else if (m_text[at] == QLatin1Char('t'))
                    parts.last() += QLatin1Char('\t');
                else
                    parts.last() += m_text[at];
            } else if (m_text[at] == AnySign) {
                parts << QString();
            } else {
                parts.last() += m_text[at];
            }
            ++at;
        }
        return parts;
    };
    bool isDeep = m_text.startsWith(QLatin1String("//"));
    if (isDeep) {
        at = 2;
    } else if (isAt('/')) {
        m_isAnchored = true;
        ++at;
    }
    bool needsSegment = isDeep;
    while (at < size) {
        if (isAt('@')) {
            m_attribute = m_text.mid(at + 1);
            if (m_attribute.isEmpty() || isDeep)
                fail(QStringLiteral("no attribute follows the \"@\""));
            at = size;
            needsSegment = false;
            break;
        }
        Segment segment;
        segment.isDeep = isDeep;
        if (isAt(':')) {
            ++at;
            segment.isParam = true;
            segment.hasName = true;
            segment.name = take("/:@#");
        } else {
            segment.kind = take("/:@#[").join(AnySign);
            if (segment.kind.isEmpty() && !isAt('['))
                fail(QStringLiteral("a part of it is empty"));
            while (isAt('[')) {
                ++at;
                const bool isCondition = isAt('@') || isAt(':');
                const QStringList content = take("]");
                if (at == size)
                    fail(QStringLiteral("a \"]\" is missing"));
                ++at;
                if (isCondition) {
                    segment.conditions.emplace_back(content.join(AnySign));
                } else if (segment.hasName) {
                    fail(QStringLiteral("it has two names for one element"));
                } else {
                    segment.hasName = true;
                    segment.name = content;
                }
            }
        }
        if (isAt('#')) {
            ++at;
            bool isNumber = false;
            segment.number = take("/:@").join(AnySign).toInt(&isNumber);
            if (!isNumber || segment.number < 1)
                fail(QStringLiteral("a number from 1 follows a \"#\""));
        }
        segments.push_back(segment);
        needsSegment = isAt('/');
        isDeep = false;
        if (needsSegment) {
            ++at;
            isDeep = isAt('/');
            if (isDeep)
                ++at;
        } else if (at < size && !isAt(':') && !isAt('@')) {
            fail(QStringLiteral("\"/\", \":\" or \"@\" follows a name"));
        }
    }
    if (needsSegment || (segments.empty() && m_attribute.isEmpty()))
        fail(QStringLiteral("its end is missing"));
    m_segments = std::make_shared<const std::vector<Segment>>(std::move(segments));
}

std::vector<PathPattern::Steps> PathPattern::Steps::of(const PathPattern& pattern)
{
    std::vector<Steps> all{{*pattern.m_segments, pattern.m_isAnchored}};
    const Segment& first = pattern.m_segments->front();
    if (first.hasName || first.kind.isEmpty() || first.kind == AnySign)
        return all;
    std::vector<Segment> named = *pattern.m_segments;
    named.front().hasName = true;
    named.front().name = first.kind.split(AnySign);
    named.front().kind.clear();
    all.emplace_back(std::move(named), pattern.m_isAnchored);
    return all;
}

/// One search through one document.
class PathPattern::Finder {
public:
    explicit Finder(const Steps& steps)
        : m_steps(steps)
    {
    }

    /// \p reached: of \p parent.
    void find(const QDomElement& parent, const QString& parentPath, const QVector<int>& reached)
    {
        Labels labels;
        for (QDomElement child = parent.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            const QString label = labels.next(child);
            bool isMatch = false;
            const QVector<int> next = m_steps.next(reached, isMatch, [&](const Segment& segment) {
                return isOf(segment, child, label);
            });
            const QString path = joined(parentPath, label);
            if (isMatch)
                matches.append({child, path});
            if (!next.isEmpty())
                find(child, path, next);
        }
    }

    QVector<Match> matches;

private:
    bool isOf(const Segment& segment, const QDomElement& element, const QString& label)
    {
        if (!segment.fits(element.tagName(),
                          [&element](QLatin1String name) { return element.attribute(name); }))
            return false;
        for (const Condition& condition : segment.conditions) {
            if (!condition.holds(element, m_values))
                return false;
        }
        if (segment.number == 0)
            return true;
        const QString suffix = QLatin1Char('#') + QString::number(segment.number);
        return segment.number == 1 ? label == labelOf(element) : label == labelOf(element) + suffix;
    }

    const Steps& m_steps;
    ParamValues m_values;
};

QVector<PathPattern::Match> PathPattern::Find(const QDomElement& root) const
{
    if (m_segments->empty())
        return {{root, QString()}};
    for (const Steps& steps : Steps::of(*this)) {
        Finder finder(steps);
        finder.find(root, QString(), Steps::start());
        if (!finder.matches.isEmpty())
            return finder.matches;
    }
    return {};
}

QString PathPattern::Attribute() const
{
    return m_attribute;
}

QString PathPattern::Text() const
{
    return m_text;
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/NodePath.h>

#include "Condition.h"
#include "Labels.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/ParamValues.h>

#include <QStringList>

#include <vector>

namespace rvopen::toolkit {

namespace {

const QLatin1Char s_star('*');

} // namespace

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

struct PathPattern::Segment {
    bool isParam = false;
    /// Behind "//": elements may stand between this and the one before.
    bool isDeep = false;
    /// "*" for any, empty for any but a parameter.
    QString kind;
    bool hasName = false;
    /// The parts of the name between its stars.
    QStringList name;
    std::vector<Condition> conditions;
    int number = 0;
};

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
            } else if (m_text[at] == s_star) {
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
            segment.kind = take("/:@#[").join(s_star);
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
                    segment.conditions.emplace_back(content.join(s_star));
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
            segment.number = take("/:@").join(s_star).toInt(&isNumber);
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

/// One search through one document.
class PathPattern::Finder {
public:
    Finder(const std::vector<Segment>& segments, bool isAnchored)
        : m_segments(segments)
        , m_isAnchored(isAnchored)
    {
    }

    /// \p reached: how many segments the elements down to \p parent have matched, in every way that
    /// they can.
    void find(const QDomElement& parent, const QString& parentPath, const QVector<int>& reached)
    {
        Labels labels;
        for (QDomElement child = parent.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            const QString label = labels.next(child);
            QVector<int> next;
            const auto reach = [&next](int count) {
                if (!next.contains(count))
                    next.append(count);
            };
            bool isMatch = false;
            for (const int count : reached) {
                const Segment& segment = m_segments[std::size_t(count)];
                if (segment.isDeep)
                    reach(count);
                if (!isOf(segment, child, label))
                    continue;
                if (count + 1 == int(m_segments.size()))
                    isMatch = true;
                else
                    reach(count + 1);
            }
            const QString path = joined(parentPath, label);
            if (isMatch)
                matches.append({child, path});
            if (!m_isAnchored)
                reach(0);
            if (!next.isEmpty())
                find(child, path, next);
        }
    }

    QVector<Match> matches;

private:
    bool isOf(const Segment& segment, const QDomElement& element, const QString& label)
    {
        const bool isAnyKind = segment.kind == s_star;
        if (segment.isParam != isParam(element) && !isAnyKind)
            return false;
        if (!segment.isParam && !isAnyKind && !segment.kind.isEmpty() &&
            segment.kind != element.tagName())
            return false;
        if (segment.hasName && !isNamed(segment, element))
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

    static bool isNamed(const Segment& segment, const QDomElement& element)
    {
        if (hasParts(element.attribute(QStringLiteral("name")), segment.name))
            return true;
        return !segment.isParam &&
               (hasParts(element.attribute(QStringLiteral("refname")), segment.name) ||
                hasParts(element.attribute(QStringLiteral("linkname")), segment.name));
    }

    const std::vector<Segment>& m_segments;
    bool m_isAnchored;
    ParamValues m_values;
};

QVector<PathPattern::Match> PathPattern::Find(const QDomElement& root) const
{
    if (m_segments->empty())
        return {{root, QString()}};
    Finder finder(*m_segments, m_isAnchored);
    finder.find(root, QString(), {0});
    const Segment& first = m_segments->front();
    if (!finder.matches.isEmpty() || first.hasName || first.kind.isEmpty() || first.kind == s_star)
        return finder.matches;
    std::vector<Segment> named = *m_segments;
    named.front().hasName = true;
    named.front().name = first.kind.split(s_star);
    named.front().kind.clear();
    Finder byName(named, m_isAnchored);
    byName.find(root, QString(), {0});
    return byName.matches;
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

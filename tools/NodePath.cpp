// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "NodePath.h"

#include "Failure.h"
#include "Values.h"

namespace rvopen::tools {

namespace {

const QLatin1Char s_escape('\\');
const QLatin1Char s_star('*');

QString escaped(const QString& text, const char* special)
{
    QString result;
    for (const QChar c : text) {
        if (c == s_escape || QLatin1String(special).contains(c))
            result += s_escape;
        if (c == QLatin1Char('\n'))
            result += QLatin1String("\\n");
        else if (c == QLatin1Char('\t'))
            result += QLatin1String("\\t");
        else
            result += c;
    }
    return result;
}

QString labelOf(const QDomElement& element)
{
    if (isParam(element))
        return QLatin1Char(':') + escaped(element.attribute(QStringLiteral("name")), "/:@#=*");
    const QString identity = identityOf(element);
    if (identity.isEmpty())
        return element.tagName();
    QString name = escaped(identity, "]*");
    // What a condition begins with.
    if (name[0] == QLatin1Char('@') || name[0] == QLatin1Char(':'))
        name.prepend(s_escape);
    return element.tagName() + QLatin1Char('[') + name + QLatin1Char(']');
}

} // namespace

bool isParam(const QDomElement& element)
{
    return element.tagName() == QLatin1String("param");
}

QString identityOf(const QDomElement& element)
{
    for (const auto& attribute :
         {QStringLiteral("name"), QStringLiteral("refname"), QStringLiteral("linkname")}) {
        const QString value = element.attribute(attribute);
        if (!value.isEmpty())
            return value;
    }
    return QString();
}

QString Labels::next(const QDomElement& child)
{
    const QString label = labelOf(child);
    const int count = ++m_counts[label];
    return count == 1 ? label : label + QLatin1Char('#') + QString::number(count);
}

QString joined(const QString& parentPath, const QString& label)
{
    if (parentPath.isEmpty() || label.startsWith(QLatin1Char(':')))
        return parentPath + label;
    return parentPath + QLatin1Char('/') + label;
}

QString attributePath(const QString& path, const QString& attribute)
{
    return path + QLatin1Char('@') + attribute;
}

QString pathOf(const QDomElement& element)
{
    const QDomElement parent = element.parentNode().toElement();
    if (parent.isNull())
        return QString();
    Labels labels;
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString label = labels.next(child);
        if (child == element)
            return joined(pathOf(parent), label);
    }
    return QString();
}

void walk(const QDomElement& parent, const QString& parentPath,
          const std::function<bool(const QDomElement&, const QString&)>& visit)
{
    Labels labels;
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString path = joined(parentPath, labels.next(child));
        if (visit(child, path))
            walk(child, path, visit);
    }
}

bool hasParts(const QString& text, const QStringList& parts)
{
    if (parts.size() == 1)
        return text == parts.first();
    int at = int(parts.first().size());
    const int end = int(text.size() - parts.last().size());
    if (!text.startsWith(parts.first()) || end < at || !text.endsWith(parts.last()))
        return false;
    for (int i = 1; i + 1 < int(parts.size()); ++i) {
        const int found = int(text.indexOf(parts[i], at));
        at = found + int(parts[i].size());
        if (found < 0 || at > end)
            return false;
    }
    return true;
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
    int at = 0;
    const int size = int(m_text.size());
    const auto isAt = [this, &at, size](char c) {
        return at < size && m_text[at] == QLatin1Char(c);
    };
    /// Up to one of the characters, without the backslashes, in parts between the stars.
    const auto take = [this, &at, size](const char* stops) {
        QStringList parts{QString()};
        while (at < size && !QLatin1String(stops).contains(m_text[at])) {
            if (m_text[at] == s_escape && at + 1 < size) {
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
        m_segments.push_back(segment);
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
    if (needsSegment || (m_segments.empty() && m_attribute.isEmpty()))
        fail(QStringLiteral("its end is missing"));
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

QVector<PathPattern::Match> PathPattern::find(const QDomElement& root) const
{
    if (m_segments.empty())
        return {{root, QString()}};
    Finder finder(m_segments, m_isAnchored);
    finder.find(root, QString(), {0});
    const Segment& first = m_segments.front();
    if (!finder.matches.isEmpty() || first.hasName || first.kind.isEmpty() || first.kind == s_star)
        return finder.matches;
    std::vector<Segment> named = m_segments;
    named.front().hasName = true;
    named.front().name = first.kind.split(s_star);
    named.front().kind.clear();
    Finder byName(named, m_isAnchored);
    byName.find(root, QString(), {0});
    return byName.matches;
}

QString PathPattern::attribute() const
{
    return m_attribute;
}

QString PathPattern::text() const
{
    return m_text;
}

bool splitAssignment(const QString& text, QString& path, QString& value)
{
    bool isInBrackets = false;
    for (int i = 0; i < int(text.size()); ++i) {
        const QChar c = text[i];
        if (c == s_escape)
            ++i;
        else if (c == QLatin1Char('[') && !isInBrackets)
            isInBrackets = true;
        else if (c == QLatin1Char(']'))
            isInBrackets = false;
        else if (c == QLatin1Char('=') && !isInBrackets) {
            path = text.left(i);
            value = text.mid(i + 1);
            return true;
        }
    }
    return false;
}

} // namespace rvopen::tools

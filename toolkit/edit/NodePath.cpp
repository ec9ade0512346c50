// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "NodePath.h"

#include "Failure.h"

namespace rvopen::tools {

namespace {

const QLatin1Char s_escape('\\');

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
        return QLatin1Char(':') + escaped(element.attribute(QStringLiteral("name")), "/:@#=");
    const QString identity = identityOf(element);
    if (identity.isEmpty())
        return element.tagName();
    return element.tagName() + QLatin1Char('[') + escaped(identity, "]") + QLatin1Char(']');
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
    /// Up to one of the characters, without the backslashes.
    const auto take = [this, &at, size](const char* stops) {
        QString part;
        while (at < size && !QLatin1String(stops).contains(m_text[at])) {
            if (m_text[at] == s_escape && at + 1 < size) {
                ++at;
                if (m_text[at] == QLatin1Char('n'))
                    part += QLatin1Char('\n');
                else if (m_text[at] == QLatin1Char('t'))
                    part += QLatin1Char('\t');
                else
                    part += m_text[at];
            } else {
                part += m_text[at];
            }
            ++at;
        }
        return part;
    };
    if (m_text.startsWith(QLatin1Char('/'))) {
        m_isAnchored = true;
        ++at;
    }
    bool needsSegment = false;
    while (at < size) {
        if (m_text[at] == QLatin1Char('@')) {
            m_attribute = m_text.mid(at + 1);
            if (m_attribute.isEmpty())
                fail(QStringLiteral("no attribute follows the \"@\""));
            at = size;
            needsSegment = false;
            break;
        }
        Segment segment;
        if (m_text[at] == QLatin1Char(':')) {
            ++at;
            segment.isParam = true;
            segment.hasName = true;
            segment.name = take("/:@#");
        } else {
            segment.kind = take("/:@#[");
            if (segment.kind.isEmpty())
                fail(QStringLiteral("a part of it is empty"));
            if (at < size && m_text[at] == QLatin1Char('[')) {
                ++at;
                segment.hasName = true;
                segment.name = take("]");
                if (at == size)
                    fail(QStringLiteral("a \"]\" is missing"));
                ++at;
            }
        }
        if (at < size && m_text[at] == QLatin1Char('#')) {
            ++at;
            bool isNumber = false;
            segment.number = take("/:@").toInt(&isNumber);
            if (!isNumber || segment.number < 1)
                fail(QStringLiteral("a number from 1 follows a \"#\""));
        }
        m_segments.append(segment);
        needsSegment = at < size && m_text[at] == QLatin1Char('/');
        if (needsSegment)
            ++at;
        else if (at < size && m_text[at] != QLatin1Char(':') && m_text[at] != QLatin1Char('@'))
            fail(QStringLiteral("\"/\", \":\" or \"@\" follows a name"));
    }
    if (needsSegment || (m_segments.isEmpty() && m_attribute.isEmpty()))
        fail(QStringLiteral("its end is missing"));
}

bool PathPattern::matches(const Segment& segment, const QDomElement& element,
                          const QString& label) const
{
    const QLatin1String any("*");
    if (segment.isParam != isParam(element) && segment.kind != any)
        return false;
    if (!segment.isParam && segment.kind != any && segment.kind != element.tagName())
        return false;
    if (segment.hasName && segment.name != any &&
        segment.name != element.attribute(QStringLiteral("name")) &&
        (segment.isParam || (segment.name != element.attribute(QStringLiteral("refname")) &&
                             segment.name != element.attribute(QStringLiteral("linkname")))))
        return false;
    if (segment.number == 0)
        return true;
    const QString suffix = QLatin1Char('#') + QString::number(segment.number);
    return segment.number == 1 ? label == labelOf(element) : label == labelOf(element) + suffix;
}

/// \p reached: how many segments the elements down to \p parent have matched, in every way that
/// they can.
void PathPattern::find(const QDomElement& parent, const QString& parentPath,
                       const QVector<int>& reached, QVector<Match>& matches) const
{
    Labels labels;
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString label = labels.next(child);
        QVector<int> next;
        bool isMatch = false;
        for (const int count : reached) {
            if (count >= int(m_segments.size()) || !this->matches(m_segments[count], child, label))
                continue;
            if (count + 1 == int(m_segments.size()))
                isMatch = true;
            else
                next.append(count + 1);
        }
        const QString path = joined(parentPath, label);
        if (isMatch)
            matches.append({child, path});
        if (!m_isAnchored)
            next.append(0);
        if (!next.isEmpty())
            find(child, path, next, matches);
    }
}

QVector<PathPattern::Match> PathPattern::find(const QDomElement& root) const
{
    QVector<Match> matches;
    if (m_segments.isEmpty())
        matches.append({root, QString()});
    else
        find(root, QString(), {0}, matches);
    return matches;
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

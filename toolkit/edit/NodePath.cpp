// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/NodePath.h>

#include "Labels.h"

#include <rvopen/toolkit/documents/Failure.h>

namespace rvopen::toolkit {

namespace {

const QLatin1Char s_escape('\\');

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
void PathPattern::descend(const QDomElement& parent, const QString& parentPath,
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
            descend(child, path, next, matches);
    }
}

QVector<PathPattern::Match> PathPattern::Find(const QDomElement& root) const
{
    QVector<Match> matches;
    if (m_segments.isEmpty())
        matches.append({root, QString()});
    else
        descend(root, QString(), {0}, matches);
    return matches;
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

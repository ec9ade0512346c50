// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Condition.h"
#include "Labels.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <QLatin1String>
#include <QString>
#include <QStringList>
#include <QVector>

#include <utility>
#include <vector>

namespace rvopen::toolkit {

/// Stands for anything in a path.
const QLatin1Char AnySign('*');

/// A part of a path as the user wrote it.
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

    /// Whether an element of that kind is meant, but for conditions and number. \p attribute gives
    /// the value of one.
    template <typename Attribute>
    bool fits(const QString& tag, const Attribute& attribute) const
    {
        const bool isAnyKind = kind == AnySign;
        if (!isAnyKind && (isParam != (tag == QLatin1String("param")) ||
                           (!isParam && !kind.isEmpty() && kind != tag)))
            return false;
        return !hasName || hasParts(attribute(QLatin1String("name")), name) ||
               (!isParam && (hasParts(attribute(QLatin1String("refname")), name) ||
                             hasParts(attribute(QLatin1String("linkname")), name)));
    }
};

/// A path on its way down a document.
class PathPattern::Steps {
public:
    Steps(std::vector<Segment> segments, bool isAnchored)
        : m_segments(std::move(segments))
        , m_isAnchored(isAnchored)
    {
    }

    /// The pattern, and what it is tried as where it finds nothing.
    static std::vector<Steps> of(const PathPattern& pattern);

    /// Of the root.
    static QVector<int> start()
    {
        return {0};
    }

    /// How many segments the elements down to a child have matched, in every way that they can;
    /// \p reached is that of its parent, and \p isOf tells whether the child is of a segment.
    template <typename IsOf>
    QVector<int> next(const QVector<int>& reached, bool& isMatch, const IsOf& isOf) const
    {
        QVector<int> next;
        const auto reach = [&next](int count) {
            if (!next.contains(count))
                next.append(count);
        };
        isMatch = false;
        for (const int count : reached) {
            const Segment& segment = m_segments[std::size_t(count)];
            if (segment.isDeep)
                reach(count);
            if (!isOf(segment))
                continue;
            if (count + 1 == int(m_segments.size()))
                isMatch = true;
            else
                reach(count + 1);
        }
        if (!m_isAnchored)
            reach(0);
        return next;
    }

    const std::vector<Segment>& segments() const
    {
        return m_segments;
    }

private:
    std::vector<Segment> m_segments;
    bool m_isAnchored;
};

} // namespace rvopen::toolkit

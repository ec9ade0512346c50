// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/Condition.h"

#include <QDomElement>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <vector>

namespace rvopen::tools {

/// \name Readable paths
/// Elements are "kind" or "kind[name]", joined by "/"; the second with the same text is "...#2". A
/// parameter is ":name" behind its element, an attribute "@name" behind its element or parameter:
/// "snapshots[Model SnapShots]/snapshot[Garden side]/camera:Field Of View". The root element is not
/// named. A backslash takes the meaning from the character after it.
/// @{

bool isParam(const QDomElement& element);
/// "name", else "refname", else "linkname".
QString identityOf(const QDomElement& element);

/// The texts of the children of one element, asked for in document order.
class Labels {
public:
    QString next(const QDomElement& child);

private:
    QHash<QString, int> m_counts;
};

QString joined(const QString& parentPath, const QString& label);
QString attributePath(const QString& path, const QString& attribute);
/// One element alone; for many, walk with Labels.
QString pathOf(const QDomElement& element);

/// Calls \p visit for each element below \p parent in document order, with its path; where it
/// answers false what is below the element is left out.
void walk(const QDomElement& parent, const QString& parentPath,
          const std::function<bool(const QDomElement&, const QString&)>& visit);

/// Whether the text consists of the parts with anything between them; of one part alone, whether it
/// is that.
bool hasParts(const QString& text, const QStringList& parts);

/// A path as the user wrote it. Without a leading "/" it may start at any element, and "//" steps
/// over any number of them; "*" as kind takes any, in a name any characters, and a kind without
/// brackets any name. What stands in brackets is the name, the reference name or the link name, or
/// behind "@" or ":" a condition; there may be several. A path that finds nothing, and whose first
/// part is no kind with brackets, is tried with that part as a name.
class PathPattern {
public:
    /// Throws a Failure when the text is no path.
    explicit PathPattern(const QString& text);

    struct Match {
        QDomElement element;
        QString path;
    };
    /// In document order.
    QVector<Match> find(const QDomElement& root) const;

    /// Empty without.
    QString attribute() const;
    QString text() const;

private:
    struct Segment {
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
    class Finder;

    void parse();

    QString m_text;
    bool m_isAnchored = false;
    std::vector<Segment> m_segments;
    QString m_attribute;
};

/// Splits "path=value" at the first "=" that is no part of a name; false when there is none.
bool splitAssignment(const QString& text, QString& path, QString& value);
/// @}

} // namespace rvopen::tools

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QString>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

namespace rvopen::toolkit {

class PathScan;

/// What an element is told by: its "name", else its "refname", else its "linkname".
RVOPEN_TOOLKIT_EXPORT QString IdentityOf(const QDomElement& element);

/// The readable path of an element; for many, Walk() is quicker.
///
/// Elements are "kind" or "kind[name]", joined by "/"; the second with the same text is "...#2". A
/// parameter is ":name" behind its element, an attribute "@name" behind its element or parameter:
/// "snapshots[Model SnapShots]/snapshot[Garden side]/camera:Field Of View". The root element is not
/// named. A backslash takes the meaning from the character after it.
RVOPEN_TOOLKIT_EXPORT QString PathOf(const QDomElement& element);

/// Calls \p visit for each element below \p parent in document order, with its path; where it
/// answers false what is below the element is left out.
RVOPEN_TOOLKIT_EXPORT void
Walk(const QDomElement& parent, const QString& parentPath,
     const std::function<bool(const QDomElement&, const QString&)>& visit);

/// A path as the user wrote it, in the form of PathOf(). Without a leading "/" it may start at any
/// element, and "//" steps over any number of them; "*" as kind takes any, in a name any
/// characters, and a kind without brackets any name. What stands in brackets is the name, the
/// reference name or the link name, or behind "@" or ":" a condition; there may be several. A path
/// that finds nothing, and whose first part is no kind with brackets, is tried with that part as a
/// name.
class RVOPEN_TOOLKIT_EXPORT PathPattern {
public:
    /// Throws a Failure when the text is no path.
    explicit PathPattern(const QString& text);

    /// What a path fits.
    struct Match {
        /// In the document.
        QDomElement element;
        /// As PathOf() has it.
        QString path;
    };
    /// What it fits below the root, or the root itself for an attribute alone, in document order.
    QVector<Match> Find(const QDomElement& root) const;

    /// The attribute at its end; empty without.
    QString Attribute() const;
    /// As the user wrote it.
    QString Text() const;

private:
    friend class PathScan;
    struct Segment;
    class Steps;
    class Finder;

    void parse();

    QString m_text;
    bool m_isAnchored = false;
    /// Copies share them.
    std::shared_ptr<const std::vector<Segment>> m_segments;
    QString m_attribute;
};

} // namespace rvopen::toolkit

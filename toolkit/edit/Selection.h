// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Condition.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <vector>

namespace rvopen::toolkit {

class ParamValues;

/// What a user says of what he means; empty where he said nothing.
struct SelectionTexts {
    /// Paths of elements, of which one is enough.
    QStringList paths;
    /// Kind or section, in any case of letters.
    QString type;
    /// Folded they are those of the element.
    QString subCategory;
    QString category;
    /// Words that all occur in names, category, folder or description.
    QString text;
    /// Conditions, which are all needed.
    QStringList conditions;
};

/// What of a selection is about the presets' own attributes and folders; empty where nothing was
/// said.
struct AttributeFilter {
    /// Kind or section, in any case of letters.
    QString type;
    /// \name Folded
    /// @{
    QString subCategory;
    QString category;
    QStringList words;
    /// @}

    bool isEmpty() const
    {
        return type.isEmpty() && subCategory.isEmpty() && category.isEmpty() && words.isEmpty();
    }
};

/// The elements of one document that are selected.
class Scope {
public:
    /// All of the document.
    Scope() = default;
    /// What the paths lead to; of those inside of others the outermost.
    Scope(const QDomElement& root, const QVector<PathPattern::Match>& matches, bool isExact);

    bool isEverything() const;
    /// Outermost, in document order; none when everything is selected.
    QVector<PathPattern::Match> elements() const;
    /// Whether the element of that path is selected, or stands inside of one that is.
    bool covers(const QString& path) const;
    /// Whether something below it is selected.
    bool leadsTo(const QString& path) const;
    /// Whether a preset is meant: it is selected, or a part of it is by its path alone.
    bool takes(const QString& path) const;

private:
    bool m_isEverything = true;
    bool m_isExact = false;
    QVector<PathPattern::Match> m_elements;
    QSet<QString> m_paths;
    /// Of everything above them.
    QSet<QString> m_above;
};

/// Selects presets of archives; in documents of snapshots the snapshots, and in them what archives
/// have as presets, or elements of the kind that is asked for.
class Selection {
public:
    /// Everything.
    Selection() = default;
    /// Throws a Failure when a path or condition is none.
    explicit Selection(const SelectionTexts& texts);

    bool isEverything() const;
    /// False where more is asked for than \p filter can say.
    bool isAttributeFilter(AttributeFilter& filter) const;
    /// Hears what is not selected, where that is known without the document.
    void noteOthers(const QString& kind, const QString& subCategory, const QString& category) const;
    Scope in(const QDomElement& root) const;
    /// The presets or other such elements that are selected, whole, in document order.
    QVector<PathPattern::Match> items(const QDomElement& root) const;
    /// When nothing was selected in any document asked about, what may be mistyped, and what was
    /// meant: a sentence without its point. Empty when nothing is like it.
    QString misspelling() const;

private:
    struct Record;

    void note(bool isFound, const QDomElement& root) const;
    Scope scopeIn(const QDomElement& root) const;
    QVector<PathPattern::Match> itemsIn(const QDomElement& root) const;
    bool hasFilter() const;
    bool isCandidate(const QDomElement& element) const;
    bool isOfType(const QDomElement& element) const;
    bool passes(const QDomElement& element, ParamValues& values) const;
    QVector<PathPattern::Match> filtered(const QDomElement& root) const;

    /// As they were typed.
    SelectionTexts m_texts;
    std::vector<PathPattern> m_paths;
    QString m_subCategory;
    QString m_category;
    QStringList m_words;
    std::vector<Condition> m_conditions;
    /// Of all copies.
    std::shared_ptr<Record> m_record;
};

/// All words, which are folded, occur in the name, reference name, category, folders or description
/// of the element.
bool hasWords(const QDomElement& element, const QStringList& words);

} // namespace rvopen::toolkit

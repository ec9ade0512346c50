// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/compare/Members.h"

#include <rvopen/toolkit/compare/Comparer.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/exchange/Exchange.h>

#include <QDomElement>
#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

namespace rvopen::toolkit {

class Document;

/// Merges what became of a document in two places. Presets are told by their reference names
/// wherever they stand, else by name and place; values by their paths. What one side alone changed
/// is taken, and what both changed alike; else ours stays. So does its order; what theirs has
/// besides comes behind the neighbour that it has there.
///
/// References to images stay as they stand: all three are taken for versions of one file.
class Merger {
public:
    /// Without a base nothing was there before. Throws a Failure unless all are of one kind. They
    /// outlive this.
    Merger(const Document* base, const Document& ours, const Document& theirs);

    /// Changes ours in memory, and the others, too, which are of no use afterwards. To be called
    /// once.
    QVector<MergeConflict> run();
    /// How much ours took from theirs: elements that came, went or moved, values, attributes.
    int taken() const;

private:
    /// A preset and where it stands.
    struct Standing {
        QDomElement element;
        QString place;
        QString path;
    };
    using Standings = QHash<QString, Standing>;
    enum class Choice { Ours, Theirs, Neither };

    static Choice choiceOf(const MergeText& base, const MergeText& ours, const MergeText& theirs);
    static Standings standingsOf(const QDomElement& root, QSet<QString>& repeated);
    void settleUnits();
    void settlePlaces();
    void settlePlace(const Standing& base, const Standing& ours, const Standing& theirs);
    void mergeElements(const QDomElement& base, const QDomElement& ours, const QDomElement& theirs,
                       const QString& path);
    void mergeValue(const QDomElement& base, QDomElement ours, const QDomElement& theirs,
                    const QString& path);
    void mergeAttributes(const QDomElement& base, QDomElement ours, const QDomElement& theirs,
                         const QString& path);
    void mergeMembers(const QDomElement& base, const QDomElement& ours, const QDomElement& theirs,
                      const QString& path);
    void lose(const QDomElement& base, const Member& ours);
    void reportLost(const QDomElement& base, const Member& theirs);
    QDomElement add(const QDomElement& theirs, QDomElement shelf, const QDomElement& neighbour);

    QDomElement m_base;
    QDomElement m_ours;
    QDomElement m_theirs;
    ParamValues m_baseValues;
    ParamValues m_ourValues;
    ParamValues m_theirValues;
    Comparer m_comparer;
    QVector<MergeConflict> m_conflicts;
    int m_taken = 0;
};

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace rvopen::toolkit {

class Document;

/// What becomes of what is there with another content.
enum class ChangedImports {
    Left,
    Renamed, ///< The new one comes under another name.
    Replaced
};

/// How many snapshots or presets became what, by an import.
struct ImportOutcome {
    /// They were not there.
    int added = 0;
    /// They came in the place of what was there.
    int replaced = 0;
    /// They came beside what was there, under another name.
    int renamed = 0;
    /// They were there with the same content.
    int same = 0;
    /// They are there with another content, and stayed as they were.
    int left = 0;
    /// What cannot go there, each with the reason.
    QStringList refused;
};

/// Takes snapshots or presets over into a document of the same kind, as `rvopen import` does:
/// snapshots are told apart by their names, presets by their reference names; both go where they
/// stood. Relative references to image files lead to the same files from the new place.
///
/// The documents are changed in memory alone, the source, too, and pictures beside them are not
/// copied. Throws a Failure unless both are snapshot documents, or both archives.
RVOPEN_TOOLKIT_EXPORT ImportOutcome Import(const Document& source, const Document& target,
                                           ChangedImports changed = ChangedImports::Left);

/// What one of three documents says in one place: a value with lengths in scene units, the text of
/// an attribute, the place of a preset, or for a whole element "there" or "changed". Nothing where
/// it has none.
using MergeText = std::optional<QString>;

/// What both sides changed, each in its own way. Ours stays.
struct MergeConflict {
    /// In ours; in theirs for what ours has not.
    QString path;
    /// What it was before.
    MergeText base;
    /// What stays.
    MergeText ours;
    /// What was not taken.
    MergeText theirs;
};

/// What a merge did.
struct MergeOutcome {
    /// How much ours took from theirs: elements that came, went or moved, values, attributes.
    int taken = 0;
    /// What somebody has to decide.
    QVector<MergeConflict> conflicts;
};

/// Merges what became of a document in two places into \p ours, as `rvopen merge` does: what one
/// side alone changed is taken, and what both changed alike; else ours stays. Without a base, null,
/// nothing was there before.
///
/// All of them are changed in memory, and only ours is of use afterwards. Throws a Failure unless
/// they are of one kind.
RVOPEN_TOOLKIT_EXPORT MergeOutcome Merge(const Document* base, const Document& ours,
                                         const Document& theirs);

} // namespace rvopen::toolkit

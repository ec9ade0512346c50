// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QMimeData>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::browser {

class EditedFile;

/// What is done to presets, folders and snapshots of a file, each as one step to undo, with the
/// names and rules of the place that things come to.
namespace edits {

/// False where nothing was written: an empty name, and what has no row, such as a part of a
/// snapshot.
bool rename(EditedFile& file, const QDomElement& element, const QString& name);
/// How many went.
int remove(EditedFile& file, const QVector<QDomElement>& elements);
/// A copy behind it, called otherwise; null where there is none.
QDomElement duplicate(EditedFile& file, const QDomElement& element);
/// So many places down among its neighbours, or up below 0. False where there is no such place.
bool move(EditedFile& file, const QDomElement& element, int by);
/// Everything that the data has, at the end of the shelf, null for the top. False where it cannot
/// stand there.
bool paste(EditedFile& file, const QMimeData& data, const QDomElement& shelf);
/// A preset of that kind, or for "dir" a folder, at the end of the shelf; null where it cannot
/// stand there.
QDomElement add(EditedFile& file, const QString& kind, const QDomElement& shelf);
/// What presets may be added there, and folders.
QStringList kindsFor(const QDomElement& shelf);
/// The section or folder that an element is or stands in; null without.
QDomElement shelfOf(const EditedFile& file, const QDomElement& element);
/// The presets and folders of the shelf in the order of their names; folders first. False where
/// they are that already.
bool sort(EditedFile& file, const QDomElement& shelf);

} // namespace edits
} // namespace rvopen::browser

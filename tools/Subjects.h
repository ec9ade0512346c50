// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "drawing/Reading.h"

#include <QDomElement>
#include <QString>
#include <QVector>

namespace rvopen::tools {

class Document;
class Scope;
struct Folders;

/// Something that a host shows in a list with a picture: a preset of an archive, or a member of a
/// collection of snapshots.
struct Subject {
    QDomElement element;
    QString path;
    QString name;
    /// What it stands under in a list, from outside inwards, joined by " / ".
    QString heading;
};

/// Those that there are pictures for, in document order.
QVector<Subject> subjectsOf(const Document& document);

/// The materials of the current snapshot's palette and of those in the collection of palettes.
QVector<Subject> paletteSubjects(const Document& document);

/// Those that are selected.
QVector<Subject> selectedOf(const QVector<Subject>& subjects, const Scope& scope);

/// Finds the image files that a document refers to: where it says, beside the document, or in one
/// of the host's folders.
drawing::FindFile textureFinder(const Document& document, const Folders& folders);

} // namespace rvopen::tools

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>
#include <rvopen/toolkit/drawing/Picture.h>

#include <QDomElement>
#include <QString>
#include <QVector>

namespace rvopen::toolkit {

class Document;
struct Folders;

/// Something that a host shows in a list with a picture: a preset of an archive, or a member of a
/// collection of snapshots.
struct Subject {
    /// In the document.
    QDomElement element;
    /// As PathOf() has it.
    QString path;
    /// As IdentityOf() has it.
    QString name;
    /// What it stands under in a list, from outside inwards, joined by " / ".
    QString heading;
};

/// Those that there are pictures for, in document order.
RVOPEN_TOOLKIT_EXPORT QVector<Subject> SubjectsOf(const Document& document);

/// The materials of the current snapshot's palette and of those in the collection of palettes.
RVOPEN_TOOLKIT_EXPORT QVector<Subject> PaletteSubjects(const Document& document);

/// Finds the image files that a document refers to: where it says, beside the document, or in one
/// of the host's folders.
RVOPEN_TOOLKIT_EXPORT FindFile TextureFinder(const Document& document, const Folders& folders);

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>
#include <QVector>

namespace rvopen::toolkit {

/// Whether a path of a document starts at a root or drive of any system.
bool isAbsoluteReference(const QString& reference);
/// The reference from a folder that leads to the file: relative, with separators of the kind that
/// \p like has.
QString relativeReference(const QString& file, const QString& folder, const QString& like);
/// The reference with another beginning, its folders kept; null where it does not begin with the
/// whole names of \p from. Separators of both kinds and the case of letters make no difference.
QString withOtherPrefix(const QString& reference, const QString& from, const QString& to);

/// A relative reference to an image file and what became of it.
struct Rebased {
    QString reference;
    /// Empty when it stays as it is.
    QString became;
    /// Why it could not follow; empty when it did.
    QString note;
};

/// Relative references to image files in and below \p element lead to the same files from another
/// folder as they did from the one that their document was in; what leads there anyway is left
/// alone and not in the list. A file that was not there is in the list with a note.
QVector<Rebased> rebaseTextures(const QDomElement& element, const QString& from, const QString& to);

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QVector>

/// What changes in an element when it comes into another document, or beside another one.
namespace rvopen::tools {

/// Document units per scene unit; 1 where nothing usable is said.
double unitsScale(const QDomElement& root);
/// Lengths are stored in the units of their document.
void convertLengths(const QDomElement& element, double ratio);

/// What a preset is told by within its section, a snapshot within its collection, a material within
/// its palette and a folder among its neighbours; empty without.
QString keyOf(const QDomElement& element, const QDomElement& shelf);

/// Names and reference names that nothing in a document has.
class FreeNames {
public:
    explicit FreeNames(const QDomElement& root);

    /// Gives the element a name, and if it has one a reference name, that are free; from then on
    /// they are taken.
    void rename(QDomElement element);

private:
    QSet<QString> m_taken;
};

/// Makes a material of a palette one that stands by itself: no object of the host has it, and it
/// has a name and a reference name.
void makePreset(QDomElement material);

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

} // namespace rvopen::tools

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QSet>
#include <QString>

/// What changes in an element when it comes into another document, or beside another one.
namespace rvopen::toolkit {

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

    /// Gives the element a name, and if it has them a reference name and one of its picture, that
    /// are free; from then on they are taken.
    void rename(QDomElement element);

private:
    QSet<QString> m_taken;
};

/// Makes a material of a palette one that stands by itself: no object of the host has it, and it
/// has a name and a reference name.
void makePreset(QDomElement material);

} // namespace rvopen::toolkit

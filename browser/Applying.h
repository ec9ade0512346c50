// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>
#include <QVector>

namespace rvopen::browser {

class EditedFile;

/// What a preset can be applied to.
struct ApplyTarget {
    QString path; ///< Of a snapshot, or of a material in its palette.
    QString text; ///< For people.
};

/// Of a snapshot document those for presets of that kind: of a component each snapshot, of a
/// material each material of a palette, by its link name.
QVector<ApplyTarget> applyTargets(const EditedFile& file, const QString& kind);

/// Puts a copy of the preset there as one step to undo: in the place of the component that the
/// snapshot has, or of the material, whose link name it gets. False where it does not fit.
bool applyPreset(const QDomElement& preset, EditedFile& file, const QString& path);

} // namespace rvopen::browser

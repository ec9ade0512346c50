// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen {

/// A container of presets of one kind, below the root of an archive.
struct ArchiveSection {
    /// Of the section, such as "schemes".
    QString element;
    /// What the section of a new archive is called, such as "Schemes".
    QString title;
    /// Of its presets, such as "scheme"; never empty.
    QStringList presets;
};

/// Every section that archives have, in the order in which a new archive has them.
RVOPEN_EXPORT QVector<ArchiveSection> ArchiveSections();

} // namespace rvopen

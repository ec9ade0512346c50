// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::toolkit {
class Catalogue;
}

namespace rvopen::browser {

/// By what the presets of a catalogue can be told apart, and how many there are of each.
struct Facets {
    using Counts = QVector<QPair<QString, int>>;

    /// Reads all of it; in any thread.
    static Facets of(const toolkit::Catalogue& catalogue);

    /// Element names, as people sort them, as are the rest.
    Counts kinds;
    Counts categories;
    Counts tags;
    /// Of each file the folders in it.
    QHash<QString, QStringList> folders;
    /// Of each file how many presets it has.
    QHash<QString, int> files;
};

} // namespace rvopen::browser

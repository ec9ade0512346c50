// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QHash>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace rvopen::browser {

/// By what the presets of a catalogue can be told apart, and how many there are of each.
struct Facets {
    using Counts = QVector<QPair<QString, int>>;

    /// Reads all of it, which it shares then; in any thread.
    static Facets of(const std::shared_ptr<const toolkit::Catalogue>& catalogue);

    /// The first preset of that kind and reference name; empty where there is none.
    toolkit::ListedPreset presetCalled(const QString& kind, const QString& refName) const;

    /// Element names, as people sort them, as are the rest.
    Counts kinds;
    Counts categories;
    Counts tags;
    /// Of each file the folders in it.
    QHash<QString, QStringList> folders;
    /// Of each file how many presets it has.
    QHash<QString, int> files;

private:
    static QString keyOf(const QString& kind, const QString& refName);

    std::shared_ptr<const toolkit::Catalogue> m_catalogue;
    /// By kind and reference name where a preset is in it.
    QHash<QString, int> m_named;
};

} // namespace rvopen::browser

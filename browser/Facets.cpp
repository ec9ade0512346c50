// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Facets.h"

#include <QSet>

#include <algorithm>

namespace rvopen::browser {

namespace {

Facets::Counts sorted(const QHash<QString, int>& counts)
{
    Facets::Counts all;
    for (auto count = counts.begin(); count != counts.end(); ++count) {
        if (!count.key().isEmpty())
            all.append({count.key(), count.value()});
    }
    std::sort(all.begin(), all.end(), [](const auto& a, const auto& b) {
        const int order = QString::localeAwareCompare(a.first, b.first);
        return order != 0 ? order < 0 : a.first < b.first;
    });
    return all;
}

} // namespace

Facets Facets::of(const std::shared_ptr<const toolkit::Catalogue>& catalogue)
{
    Facets facets;
    facets.m_catalogue = catalogue;
    QHash<QString, int> kinds;
    QHash<QString, int> categories;
    QHash<QString, int> tags;
    QHash<QString, QSet<QString>> known;
    for (int place = 0; place < catalogue->Count(); ++place) {
        const toolkit::ListedPreset preset = catalogue->At(place);
        ++kinds[preset.kind];
        ++categories[preset.category];
        ++tags[preset.subCategory];
        ++facets.files[preset.file];
        const QString key = keyOf(preset.kind, preset.refName);
        if (!preset.refName.isEmpty() && !facets.m_named.contains(key))
            facets.m_named.insert(key, place);
        // The innermost, by which presets are looked for.
        const QString folder = preset.folder.section(QLatin1String(" / "), -1);
        QSet<QString>& folders = known[preset.file];
        if (!folder.isEmpty() && !folders.contains(folder)) {
            folders.insert(folder);
            facets.folders[preset.file].append(folder);
        }
    }
    facets.kinds = sorted(kinds);
    facets.categories = sorted(categories);
    facets.tags = sorted(tags);
    return facets;
}

toolkit::ListedPreset Facets::presetCalled(const QString& kind, const QString& refName) const
{
    const auto found = m_named.constFind(keyOf(kind, refName));
    return found == m_named.constEnd() ? toolkit::ListedPreset() : m_catalogue->At(*found);
}

QString Facets::keyOf(const QString& kind, const QString& refName)
{
    return kind + QLatin1Char('/') + refName;
}

} // namespace rvopen::browser

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/manager/Retired.h>

#include <QDomDocument>
#include <QString>

#include <memory>

namespace rvopen {

/// The default archives of an installation and the archive that a host chose: where a manager looks
/// presets up.
class PresetArchives {
public:
    /// What a host may still hold of archives that are read again goes to \p retired.
    explicit PresetArchives(Retired& retired);
    ~PresetArchives();
    PresetArchives(const PresetArchives&) = delete;
    PresetArchives& operator=(const PresetArchives&) = delete;

    /// Reads the default archive once and the two extra archives at each call, below \p folder.
    void read(const QString& folder);
    /// The root of the archive in the registry, or null when it cannot be read.
    RVOpenNode* choose(const QString& name, const QString& type);
    /// The type last given to choose().
    QString type() const;
    /// The section of that element name, with that of an extra archive merged into it, or null.
    RVOpenNode* section(const QString& type, bool fromDefault);
    /// The first preset of that reference name and, unless it is empty, that sub-category, or null.
    RVOpenNode* find(const QString& type, const QString& subcat, const QString& refName);

private:
    void readExtra(View<RVOpenNode>& root, const QString& path);
    RVOpenNode* chosen() const;
    RVOpenNode* extra() const;

    Retired& m_retired;
    std::unique_ptr<QDomDocument> m_defaultDocument;
    View<RVOpenNode> m_defaultRoot;
    View<RVOpenNode> m_productRoot;
    View<RVOpenNode> m_architecturalRoot;
    QString m_path; ///< The registry's name of the chosen archive, which may be closed at any time.
    QString m_type;
    QString m_zorvaneName;
    QString m_customName;
};

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Archive.h"
#include "Tables.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QVector>

#include <memory>

namespace rvopen {
class Background;
class Bump;
class Colour;
class Finish;
class Transparency;
} // namespace rvopen

namespace rvopen::starter {

/// The three default archives, filled from the tables.
class Presets {
public:
    Presets(RVOpenManager& manager, const Tables& tables);

    /// The preset of a reference name; fails when there is none.
    RVOpenNode* find(const QString& refName) const;

    /// Writes the archives into a folder.
    void save(const QString& folder) const;

private:
    using Rows = QHash<QString, Row>;

    Archive& archiveOf(const Row& row);
    Rows rowsByName(const char* table) const;
    const Row& rowOf(const Rows& rows, const QString& refName, const Row& user) const;
    /// Names the preset as its row does and places it.
    void place(const Row& row, const ArchiveSection& section, const QString& category,
               const QString& folders, RVOpenNode* preset);
    void placeIn(Archive& archive, const ArchiveSection& section, const QString& category,
                 const QString& folders, RVOpenNode* preset);

    void addColours();
    void addFinishes();
    void addTransparencies();
    void addBumps();
    void addMaterials();
    void addBackgrounds();
    void addSchemes();
    void addForegrounds();
    void addCameras();
    void addLenses();
    void addAspectRatios();
    void addNaturalLights();

    const Tables& m_tables;
    QMap<QString, std::shared_ptr<Archive>> m_archives;
    QHash<QString, RVOpenNode*> m_presets;
    Rows m_finishes;
    Rows m_transparencies;
    Rows m_bumps;
    Rows m_backgrounds;
};

} // namespace rvopen::starter

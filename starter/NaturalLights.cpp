// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Presets.h"
#include "Sun.h"

#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RVOpenNode.h>

#include <QDomDocument>

#include <cmath>

namespace rvopen::starter {

void Presets::addNaturalLights()
{
    const ArchiveSection section = sectionOf("naturalLights");
    const QString category = QStringLiteral("Natural light");
    const auto add = [&](Archive& archive, const QString& folder, double latitude, QDate day,
                         double hour, const QString& name, const QString& refName,
                         const QString& image, const QString& description) {
        // Lower than this the sun is hardly seen from among houses and trees.
        const double lowest = 2;
        const SunPosition sun = sunPosition(latitude, day, hour);
        if (sun.altitude < lowest)
            return;
        auto* const studio = new NaturalLightStudio(nullptr);
        QDomDocument document = archive.root()->GetDomNode().ownerDocument();
        studio->SetDomNode(document.createElement(QStringLiteral("naturalLightStudio")));
        studio->PopulateParams();
        studio->SetEnabled(1);
        studio->SetSunAzimuth(float(sun.azimuth));
        studio->SetSunAltitude(float(sun.altitude));
        studio->SetName(name);
        studio->SetRefName(refName);
        studio->SetImageName(image);
        studio->SetDescription(description);
        placeIn(archive, section, category, folder, studio);
    };
    Archive& archive = **m_archives.constFind(QStringLiteral("Default"));
    for (const Row& place : m_tables.rows("places")) {
        const double latitude = double(place.number("latitude"));
        const bool hasSeasons = std::abs(latitude) > 10;
        for (const Row& day : m_tables.rows("days")) {
            const QString season = day.text(!hasSeasons    ? "equator"
                                            : latitude > 0 ? "north"
                                                           : "south");
            for (const Row& hour : m_tables.rows("hours")) {
                const QString id =
                    QStringList{place.text("refname"), day.text("refname"), hour.text("refname")}
                        .join(QLatin1Char('_'));
                add(archive, place.text("folder"), latitude, day.date("date"),
                    double(hour.number("hour")),
                    QStringLiteral("%1, %2").arg(season, hour.text("name")),
                    QLatin1String("sun.") + id, id,
                    QStringLiteral("The sun over %1 on %2, %3 in true solar time.")
                        .arg(place.text("place"), day.text("words"), hour.text("name")));
            }
        }
    }
    for (const Row& row : m_tables.rows("suns"))
        add(archiveOf(row), row.text("folder"), double(row.number("latitude")), row.date("date"),
            double(row.number("hour")), row.text("name"), row.text("refname"), row.text("image"),
            row.text("description"));
}

} // namespace rvopen::starter

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/Arriving.h>

#include "Carrying.h"
#include "Placement.h"
#include "Things.h"

#include <QDomDocument>
#include <QSet>

#include <optional>

namespace rvopen::toolkit {

QString ProblemOfPlace(const QDomElement& element, const QDomElement& shelf)
{
    if (element.isNull() || shelf.isNull())
        return QStringLiteral("there is nothing");
    return problemOfPlace(element, shelf);
}

QDomElement CopyFor(const QDomElement& element, const QDomElement& shelf)
{
    QDomDocument document = shelf.ownerDocument();
    const QDomElement root = document.documentElement();
    QDomElement copy = document.importNode(element, true).toElement();
    const double ratio = unitsScale(root) / unitsScale(element.ownerDocument().documentElement());
    if (ratio != 1)
        convertLengths(copy, ratio);
    const QDomElement section = sectionOf(shelf);
    if (!section.isNull() && thingOf(element) == Thing::PaletteMaterial)
        makePreset(copy);

    // A preset is told by its name within the whole section, the rest among its neighbours.
    QSet<QString> taken;
    for (QDomElement child = shelf.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        taken.insert(keyOf(child, shelf));
    if (!section.isNull())
        forEachPreset(root, [&](const Preset& preset) {
            if (preset.section == section.tagName())
                taken.insert(keyOf(preset.element, shelf));
        });
    taken.remove(QString());
    std::optional<FreeNames> names;
    QVector<QDomElement> named{copy};
    if (copy.tagName() == QLatin1String("dir"))
        named += leavesOf(copy);
    for (const QDomElement& each : named) {
        if (!taken.contains(keyOf(each, shelf)))
            continue;
        if (!names)
            names.emplace(root);
        names->rename(each);
    }
    return copy;
}

} // namespace rvopen::toolkit

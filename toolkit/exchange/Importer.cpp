// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Importer.h"

#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Things.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <QHash>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

const QString s_name = QStringLiteral("name");

/// What importing itself sets is no difference.
Comparison importComparison()
{
    Comparison comparison;
    comparison.ignoredAttributes << QStringLiteral("ImageBorder");
    return comparison;
}

/// What a preset is told by within its section; empty without.
QString identity(const Preset& preset)
{
    const QString key = keyOf(preset.element, preset.element.parentNode().toElement());
    return key.isEmpty() ? key : preset.section + key;
}

} // namespace

bool ImportItem::isSnapShot() const
{
    return source.tagName() == QLatin1String("snapshot");
}

Importer::Importer(const Document& source, const Document& target)
    : m_source(source)
    , m_target(target)
    , m_comparer(importComparison())
{
    if (source.Kind() != target.Kind() || source.Kind() == DocumentKind::Unknown)
        throw Failure(QStringLiteral("both have to be snapshot documents, or both archives"));
}

QVector<ImportItem> Importer::items(const QStringList& paths)
{
    m_isEverything = paths.isEmpty();
    for (const QString& text : paths) {
        for (const PathPattern::Match& match : PathPattern(text).Find(m_source.Root()))
            m_selected.append(match.element);
    }
    // What was imported before is told by what its references lead to.
    m_textures = rebaseTextures(m_source.Root(), m_source.Folder(), m_target.Folder());
    return m_source.Kind() == DocumentKind::SnapShots ? snapShotItems() : presetItems();
}

const QVector<Rebased>& Importer::textures() const
{
    return m_textures;
}

void Importer::apply(QVector<ImportItem>& items, ChangedImports changed)
{
    const double ratio = unitsScale(m_target.Root()) / unitsScale(m_source.Root());
    for (ImportItem& item : items)
        apply(item, changed, ratio);
}

QVector<ImportItem> Importer::snapShotItems()
{
    QVector<ImportItem> items;
    QHash<QString, QDomElement> existing;
    const QDomElement into = mainCollection(m_target.Root());
    for (QDomElement element = into.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement())
        existing.insert(element.attribute(s_name), element);
    const QDomElement from = mainCollection(m_source.Root());
    Labels labels;
    for (QDomElement element = from.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        const QString path = joined(PathOf(from), labels.next(element));
        if (!isSelected(element))
            continue;
        ImportItem item;
        item.source = element;
        item.sourcePath = path;
        item.existing = existing.value(element.attribute(s_name));
        if (element.tagName() != QLatin1String("snapshot")) {
            item.state = ImportState::Refused;
            item.note = QStringLiteral("it is no snapshot");
        } else {
            judge(item, element.attribute(s_name));
        }
        items.append(item);
    }
    return items;
}

QVector<ImportItem> Importer::presetItems()
{
    QVector<ImportItem> items;
    QHash<QString, QDomElement> existing;
    forEachPreset(m_target.Root(), [&existing](const Preset& preset) {
        const QString key = identity(preset);
        if (!key.isEmpty() && !existing.contains(key))
            existing.insert(key, preset.element);
    });
    forEachPreset(m_source.Root(), [&](const Preset& preset) {
        if (!isSelected(preset.element))
            return;
        ImportItem item;
        item.source = preset.element;
        item.sourcePath = preset.path;
        item.preset = preset;
        item.existing = existing.value(identity(preset));
        if (!sectionTakes(preset.section, preset.element.tagName())) {
            item.state = ImportState::Refused;
            item.note = QStringLiteral("\"%1\" takes no \"%2\"")
                            .arg(preset.section, preset.element.tagName());
        } else {
            judge(item, identity(preset));
        }
        items.append(item);
    });
    return items;
}

void Importer::judge(ImportItem& item, const QString& key)
{
    if (!key.isEmpty() && m_seen.contains(key)) {
        item.state = ImportState::Refused;
        item.note = QStringLiteral("another one of that name comes first");
        return;
    }
    m_seen.insert(key);
    if (item.existing.isNull())
        item.state = ImportState::New;
    else
        item.state = m_comparer.Run(item.source, item.existing).isEmpty() ? ImportState::Same
                                                                          : ImportState::Changed;
}

void Importer::apply(ImportItem& item, ChangedImports changed, double ratio)
{
    if (item.state == ImportState::Same || item.state == ImportState::Refused ||
        (item.state == ImportState::Changed && changed == ChangedImports::Left))
        return;
    QDomDocument document = m_target.Dom();
    item.result = document.importNode(item.source, true).toElement();
    if (ratio != 1)
        convertLengths(item.result, ratio);
    // As the host marks what came from another document.
    if (item.isSnapShot())
        item.result.setAttribute(QStringLiteral("ImageBorder"), 1);
    if (item.state == ImportState::Changed && changed == ChangedImports::Replaced) {
        item.action = ImportAction::Replaced;
        QDomNode parent = item.existing.parentNode();
        parent.replaceChild(item.result, item.existing);
        return;
    }
    item.action = ImportAction::Added;
    QDomElement place = standingPlace(item.source, document);
    if (item.state == ImportState::Changed) {
        item.action = ImportAction::Renamed;
        if (!m_freeNames)
            m_freeNames.emplace(m_target.Root());
        m_freeNames->rename(item.result);
    }
    place.appendChild(item.result);
}

bool Importer::isSelected(const QDomElement& element) const
{
    return m_isEverything || m_selected.contains(element);
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Importer.h"

#include "toolkit/edit/Labels.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QHash>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

const QString s_name = QStringLiteral("name");
const QString s_refName = QStringLiteral("refname");

/// What importing itself sets is no difference.
Comparison importComparison()
{
    Comparison comparison;
    comparison.ignoredAttributes << QStringLiteral("ImageBorder");
    return comparison;
}

/// The collection that holds the snapshots of a model; null without.
QDomElement mainCollection(const QDomElement& root)
{
    QDomElement found;
    for (QDomElement child = root.firstChildElement(QStringLiteral("snapshots")); !child.isNull();
         child = child.nextSiblingElement(QStringLiteral("snapshots"))) {
        const QString name = child.attribute(s_name);
        // A later one takes the place of an earlier one when the host loads the document.
        if (name == QLatin1String("Model SnapShots") || name == QLatin1String("SnapShots"))
            found = child;
    }
    return found;
}

/// What a preset is told by within its section; empty without.
QString identity(const Preset& preset)
{
    const QString refName = preset.element.attribute(s_refName);
    const QString name = preset.element.attribute(s_name);
    if (refName.isEmpty() && name.isEmpty())
        return QString();
    return preset.section + (refName.isEmpty() ? QLatin1String("/name/") + name
                                               : QLatin1String("/refname/") + refName);
}

double unitsScale(const Document& document)
{
    double scale = 1;
    const bool isScale =
        ToNumber(document.Root().attribute(QStringLiteral("unitsScale")), scale) && scale > 0;
    return isScale ? scale : 1;
}

/// Lengths are stored in the units of their document.
void convertLengths(const QDomElement& element, double ratio)
{
    Walk(element, QString(), [ratio](QDomElement part, const QString&) {
        double length = 0;
        if (isParam(part) && part.attribute(QStringLiteral("type")) == QLatin1String("float") &&
            part.attribute(QStringLiteral("prop")).contains(QLatin1Char('D')) &&
            ToNumber(part.attribute(QStringLiteral("val")), length))
            part.setAttribute(QStringLiteral("val"), NumberText(length * ratio));
        return true;
    });
}

/// The library has rules for the sections that it knows; others take what they had.
bool isPlaceFor(const Preset& preset)
{
    const Vocabulary& vocabulary = Vocabulary::instance();
    const QString dir = QStringLiteral("dir");
    return !vocabulary.canAdd(preset.section, dir) ||
           vocabulary.canAdd(preset.section, preset.element.tagName());
}

QDomElement collectionIn(QDomDocument& document)
{
    QDomElement collection = mainCollection(document.documentElement());
    if (collection.isNull()) {
        collection = document.createElement(QStringLiteral("snapshots"));
        collection.setAttribute(s_name, QStringLiteral("Model SnapShots"));
        document.documentElement().appendChild(collection);
    }
    return collection;
}

/// The section and the folders that the preset stood in, made where they are missing. A folder
/// that stands for another archive has its presets there: it takes none.
QDomElement folderFor(const Preset& preset, const QDomElement& source, QDomDocument& document)
{
    QVector<QDomElement> line;
    for (QDomElement element = source.parentNode().toElement(); !element.parentNode().isDocument();
         element = element.parentNode().toElement())
        line.prepend(element);
    QDomElement place = document.documentElement();
    for (const QDomElement& wanted : line) {
        QDomElement found;
        const bool isSection = wanted.tagName() == preset.section;
        for (QDomElement child = place.firstChildElement(wanted.tagName()); !child.isNull();
             child = child.nextSiblingElement(wanted.tagName())) {
            if ((isSection || child.attribute(s_name) == wanted.attribute(s_name)) &&
                child.attribute(QStringLiteral("archiveFilename")).isEmpty()) {
                found = child;
                break;
            }
        }
        if (found.isNull()) {
            found = document.importNode(wanted, false).toElement();
            found.removeAttribute(QStringLiteral("archiveFilename"));
            place.appendChild(found);
        }
        place = found;
    }
    return place;
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
    return m_source.Kind() == DocumentKind::SnapShots ? snapShotItems() : presetItems();
}

void Importer::apply(QVector<ImportItem>& items, ChangedImports changed)
{
    const double ratio = unitsScale(m_target) / unitsScale(m_source);
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
        if (!isPlaceFor(preset)) {
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
    const bool isSnapShot = item.isSnapShot();
    // As the host marks what came from another document.
    if (isSnapShot)
        item.result.setAttribute(QStringLiteral("ImageBorder"), 1);
    if (item.state == ImportState::Changed && changed == ChangedImports::Replaced) {
        item.action = ImportAction::Replaced;
        QDomNode parent = item.existing.parentNode();
        parent.replaceChild(item.result, item.existing);
        return;
    }
    item.action = ImportAction::Added;
    QDomElement place =
        isSnapShot ? collectionIn(document) : folderFor(item.preset, item.source, document);
    if (item.state == ImportState::Changed) {
        item.action = ImportAction::Renamed;
        rename(item, document);
    }
    place.appendChild(item.result);
}

/// To names that nothing in the target has.
void Importer::rename(ImportItem& item, const QDomDocument& document)
{
    if (m_taken.isEmpty()) {
        Walk(document.documentElement(), QString(),
             [this](const QDomElement& element, const QString&) {
                 m_taken.insert(element.attribute(s_name));
                 m_taken.insert(element.attribute(s_refName));
                 return !isParam(element);
             });
    }
    const QString name = item.result.attribute(s_name);
    const QString refName = item.result.attribute(s_refName);
    for (int number = 2;; ++number) {
        const QString newName = QStringLiteral("%1 (%2)").arg(name).arg(number);
        const QString newRefName = QStringLiteral("%1_%2").arg(refName).arg(number);
        if (m_taken.contains(newName) || (!refName.isEmpty() && m_taken.contains(newRefName)))
            continue;
        item.result.setAttribute(s_name, newName);
        m_taken.insert(newName);
        if (!refName.isEmpty())
            item.result.setAttribute(s_refName, newRefName);
        m_taken.insert(newRefName);
        return;
    }
}

bool Importer::isSelected(const QDomElement& element) const
{
    return m_isEverything || m_selected.contains(element);
}

} // namespace rvopen::toolkit

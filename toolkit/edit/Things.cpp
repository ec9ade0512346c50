// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Things.h"

#include "Labels.h"
#include "Likeness.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ElementInfo.h>

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

const QString s_name = QStringLiteral("name");
const QLatin1String s_dir("dir");
const QLatin1String s_snapShots("snapshots");
const QLatin1String s_snapShot("snapshot");
const QLatin1String s_palette("materialRepository");
const QLatin1String s_material("material");
const QLatin1String s_materials("materials");

bool isRoot(const QDomNode& node)
{
    return node.parentNode().isDocument();
}

bool isReference(const QDomElement& element)
{
    return !element.attribute(QStringLiteral("archiveFilename")).isEmpty();
}

bool isCollection(const QDomElement& element)
{
    return element.tagName() == s_snapShots && isRoot(element.parentNode());
}

bool isPalette(const QDomElement& element)
{
    return element.tagName() == s_palette &&
           element.parentNode().toElement().tagName() == s_snapShot;
}

QDomElement appended(QDomElement parent, const QString& tag, const QString& name)
{
    QDomElement element = parent.ownerDocument().createElement(tag);
    element.setAttribute(s_name, name);
    parent.appendChild(element);
    return element;
}

/// "materials" is shown as "Materials".
QString sectionTitle(const QString& tag)
{
    return tag.left(1).toUpper() + tag.mid(1);
}

QDomElement sectionNamed(const QDomDocument& document, const QString& tag)
{
    const QDomElement found = document.documentElement().firstChildElement(tag);
    return found.isNull() ? appended(document.documentElement(), tag, sectionTitle(tag)) : found;
}

bool isMainCollection(const QDomElement& element)
{
    const QString name = element.attribute(s_name);
    return name == QLatin1String("Model SnapShots") || name == QLatin1String("SnapShots");
}

QDomElement makeLike(const QDomElement& wanted, const QDomElement& parent)
{
    QDomElement made = parent.ownerDocument().importNode(wanted, false).toElement();
    made.removeAttribute(QStringLiteral("archiveFilename"));
    QDomElement(parent).appendChild(made);
    return made;
}

/// What the path leads to, by the paths of the things.
void choose(const QDomElement& root, const QString& path, Matches matches,
            QHash<QString, Thing>& named)
{
    const PathPattern pattern(path);
    if (!pattern.Attribute().isEmpty())
        throw Failure(QStringLiteral("\"%1\" is an attribute").arg(path));
    QVector<Chosen> found;
    int count = 0;
    bool isCurrent = false;
    const QVector<PathPattern::Match> all = pattern.Find(root);
    for (const PathPattern::Match& match : all) {
        isCurrent = isCurrent || thingOf(match.element) == Thing::CurrentSnapShot;
        const QVector<Chosen> things = thingsOf(match);
        count += things.isEmpty() ? 0 : 1;
        found += things;
    }
    if (all.isEmpty())
        throw Failure(nothingHas(path, root));
    if (found.isEmpty() && isCurrent)
        throw Failure(QStringLiteral("\"%1\": the current snapshot stays in its document, under "
                                     "its name")
                          .arg(path));
    if (found.isEmpty())
        throw Failure(QStringLiteral("\"%1\" is no preset, folder, snapshot or palette with "
                                     "materials")
                          .arg(path));
    if (count > 1 && matches == Matches::OneForEachPath)
        throw Failure(QStringLiteral("\"%1\" leads to %2 things; --all takes them all")
                          .arg(path, QString::number(count)));
    for (const Chosen& one : found)
        named.insert(one.path, one.thing);
}

} // namespace

Thing thingOf(const QDomElement& element)
{
    const QDomElement parent = element.parentNode().toElement();
    if (element.isNull() || parent.isNull() || isParam(element))
        return Thing::Other;
    if (isPalette(element))
        return Thing::Palette;
    if (isPalette(parent))
        return element.tagName() == s_material ? Thing::PaletteMaterial : Thing::Other;
    if (element.tagName() == s_snapShot && isCollection(parent))
        return Thing::SnapShot;
    if (element.tagName() == s_snapShot && isRoot(parent))
        return Thing::CurrentSnapShot;
    if (sectionOf(element).isNull() || sectionOf(element) == element ||
        (parent.tagName() != s_dir && sectionOf(element) != parent))
        return Thing::Other;
    return element.tagName() == s_dir ? Thing::Folder : Thing::Preset;
}

bool goesByRefName(const QDomElement& element)
{
    const ElementInfo* const info = FindElement(element.tagName());
    return info && info->isPreset && !element.attribute(QStringLiteral("refname")).isEmpty() &&
           thingOf(element) != Thing::Preset;
}

QString thingName(Thing thing)
{
    switch (thing) {
    case Thing::Preset:
        return QStringLiteral("preset");
    case Thing::Folder:
        return QStringLiteral("folder");
    case Thing::SnapShot:
    case Thing::CurrentSnapShot:
        return QStringLiteral("snapshot");
    case Thing::Palette:
        return QStringLiteral("palette");
    case Thing::PaletteMaterial:
        return QStringLiteral("material");
    case Thing::Other:
        break;
    }
    return QStringLiteral("other");
}

bool isShelf(const QDomElement& element)
{
    return isCollection(element) || isPalette(element) || isArchiveShelf(element);
}

bool isArchiveShelf(const QDomElement& element)
{
    const QDomElement section = sectionOf(element);
    return !section.isNull() &&
           (section == element || (thingOf(element) == Thing::Folder && !isReference(element)));
}

QDomElement sectionOf(const QDomElement& element)
{
    QDomElement section = element;
    while (!section.isNull() && !isRoot(section.parentNode()))
        section = section.parentNode().toElement();
    const QDomElement root = section.parentNode().toElement();
    return root.isNull() || root.tagName() == QLatin1String("snapRoot") ? QDomElement() : section;
}

QString problemOfPlace(const QDomElement& element, const QDomElement& shelf)
{
    const QString tag = element.tagName();
    const QString refused = QStringLiteral("\"%1\" takes no \"%2\"").arg(shelf.tagName(), tag);
    if (isCollection(shelf))
        return tag == s_snapShot ? QString() : refused;
    if (isPalette(shelf))
        return tag == s_material ? QString() : refused;
    if (!isArchiveShelf(shelf))
        return QStringLiteral("\"%1\" is no place for presets or snapshots").arg(PathOf(shelf));
    for (QDomNode node = shelf; !node.isNull(); node = node.parentNode()) {
        if (node == element)
            return QStringLiteral("a folder does not go into itself");
    }
    if (tag == s_snapShot)
        return refused;
    const QString section = sectionOf(shelf).tagName();
    for (const QDomElement& leaf : leavesOf(element)) {
        if (!sectionTakes(section, leaf.tagName()))
            return QStringLiteral("\"%1\" takes no \"%2\"").arg(section, leaf.tagName());
    }
    return QString();
}

bool sectionTakes(const QString& section, const QString& tag)
{
    const Vocabulary& vocabulary = Vocabulary::instance();
    return !vocabulary.canAdd(section, s_dir) || vocabulary.canAdd(section, tag);
}

QDomElement shelfAt(const QString& path, const QDomDocument& document)
{
    const QDomElement root = document.documentElement();
    QVector<QDomElement> shelves;
    for (const PathPattern::Match& match : PathPattern(path).Find(root)) {
        if (isShelf(match.element))
            shelves.append(match.element);
    }
    if (shelves.size() > 1)
        throw Failure(
            QStringLiteral("\"%1\" leads to %2 places").arg(path, QString::number(shelves.size())));
    if (shelves.size() == 1)
        return shelves.first();
    static const QRegularExpression folder(
        QStringLiteral("^(.+)/dir\\[((?:[^\\]\\\\]|\\\\.)+)\\]$"));
    const QRegularExpressionMatch match = folder.match(path);
    if (match.hasMatch() && root.tagName() != QLatin1String("snapRoot")) {
        static const QRegularExpression escape(QStringLiteral("\\\\(.)"));
        QString name = match.captured(2);
        name.replace(escape, QStringLiteral("\\1"));
        return appended(shelfAt(match.captured(1), document), s_dir, name);
    }
    const QString tag = path.startsWith(QLatin1Char('/')) ? path.mid(1) : path;
    if (Vocabulary::instance().isSection(tag) && root.tagName() != QLatin1String("snapRoot"))
        return sectionNamed(document, tag);
    throw Failure(QStringLiteral("\"%1\" is no section, folder, collection or palette").arg(path));
}

QDomElement standingPlace(const QDomElement& element, const QDomDocument& document)
{
    const QDomElement root = document.documentElement();
    const bool isIntoArchive = root.tagName() != QLatin1String("snapRoot");
    if (isIntoArchive && isPalette(element.parentNode().toElement()))
        return sectionNamed(document, s_materials);
    if (!isIntoArchive && element.tagName() == s_material)
        return root.firstChildElement(s_snapShot).firstChildElement(s_palette);
    if (isIntoArchive == sectionOf(element).isNull())
        return QDomElement();
    if (element.tagName() == s_snapShot && isMainCollection(element.parentNode().toElement())) {
        const QDomElement main = mainCollection(root);
        return main.isNull() ? appended(root, s_snapShots, QStringLiteral("Model SnapShots"))
                             : main;
    }
    QVector<QDomElement> line;
    for (QDomElement above = element.parentNode().toElement(); !above.isNull() && !isRoot(above);
         above = above.parentNode().toElement())
        line.prepend(above);
    QDomElement place = root;
    for (const QDomElement& wanted : line) {
        QDomElement found;
        const bool isSection = isIntoArchive && place == root;
        for (QDomElement child = place.firstChildElement(wanted.tagName());
             found.isNull() && !child.isNull();
             child = child.nextSiblingElement(wanted.tagName())) {
            if ((isSection || child.attribute(s_name) == wanted.attribute(s_name)) &&
                !isReference(child))
                found = child;
        }
        place = found.isNull() ? makeLike(wanted, place) : found;
    }
    return place;
}

QDomElement mainCollection(const QDomElement& root)
{
    QDomElement found;
    for (QDomElement child = root.firstChildElement(s_snapShots); !child.isNull();
         child = child.nextSiblingElement(s_snapShots)) {
        // A later one takes the place of an earlier one when the host loads the document.
        if (isMainCollection(child))
            found = child;
    }
    return found;
}

QVector<Chosen> thingsOf(const PathPattern::Match& match)
{
    const Thing thing = thingOf(match.element);
    if (thing == Thing::Other || thing == Thing::CurrentSnapShot)
        return {};
    if (thing != Thing::Palette)
        return {{match.element, match.path, thing}};
    QVector<Chosen> materials;
    Labels labels;
    for (QDomElement child = match.element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString path = joined(match.path, labels.next(child));
        if (thingOf(child) == Thing::PaletteMaterial)
            materials.append({child, path, Thing::PaletteMaterial});
    }
    return materials;
}

QVector<Chosen> chosenThings(const QDomElement& root, const QStringList& paths, Matches matches)
{
    QHash<QString, Thing> named;
    for (const QString& path : paths)
        choose(root, path, matches, named);
    QVector<Chosen> chosen;
    Walk(root, QString(), [&](const QDomElement& element, const QString& path) {
        const auto thing = named.constFind(path);
        if (thing == named.cend())
            return !isParam(element);
        chosen.append({element, path, *thing});
        return false;
    });
    return chosen;
}

QVector<QDomElement> leavesOf(const QDomElement& element)
{
    if (element.tagName() != s_dir)
        return {element};
    QVector<QDomElement> leaves;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (!isParam(child))
            leaves += leavesOf(child);
    }
    return leaves;
}

QVector<QDomNode> nodesBefore(const QDomElement& element)
{
    QVector<QDomNode> nodes;
    for (QDomNode node = element.previousSibling(); !node.isNull() && !node.isElement();
         node = node.previousSibling())
        nodes.prepend(node);
    return nodes;
}

} // namespace rvopen::toolkit

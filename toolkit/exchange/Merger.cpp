// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Merger.h"

#include "toolkit/edit/Carrying.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/edit/Things.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QHash>
#include <QStringList>

namespace rvopen::toolkit {

namespace {

const QString s_unitsScale = QStringLiteral("unitsScale");
const QString s_type = QStringLiteral("type");
const QString s_val = QStringLiteral("val");

MergeText textOf(const QDomElement& element, const QString& attribute)
{
    return element.hasAttribute(attribute) ? MergeText(element.attribute(attribute)) : MergeText();
}

void setText(QDomElement& element, const QString& attribute, const MergeText& text)
{
    if (text)
        element.setAttribute(attribute, *text);
    else
        element.removeAttribute(attribute);
}

/// Two texts of a parameter are the same value only in the same type.
MergeText typed(const QDomElement& param, const MergeText& value)
{
    return value ? MergeText(param.attribute(s_type) + QLatin1Char(' ') + *value) : MergeText();
}

MergeText valueOf(const QDomElement& param, ParamValues& values)
{
    return param.isNull() ? MergeText() : MergeText(values.Text(param));
}

MergeText placeText(const QString& place)
{
    return place.isEmpty() ? MergeText() : MergeText(place);
}

/// Puts the nodes behind the neighbour, or without one in front of what is in the shelf.
void insertBehind(const QVector<QDomNode>& nodes, QDomElement shelf, const QDomElement& neighbour)
{
    const QDomElement first = shelf.firstChildElement();
    if (!neighbour.isNull()) {
        QDomNode last = neighbour;
        for (const QDomNode& node : nodes)
            last = shelf.insertAfter(node, last);
        return;
    }
    // A comment in front of the first one is about that.
    const QVector<QDomNode> about = first.isNull() ? QVector<QDomNode>() : nodesBefore(first);
    const QDomNode next = about.isEmpty() ? QDomNode(first) : about.first();
    for (const QDomNode& node : nodes) {
        if (next.isNull())
            shelf.appendChild(node);
        else
            shelf.insertBefore(node, next);
    }
}

/// The element with the comments in front of it.
QVector<QDomNode> withComments(const QDomElement& element)
{
    QVector<QDomNode> nodes;
    if (isArchiveShelf(element.parentNode().toElement()))
        nodes = nodesBefore(element);
    nodes.append(element);
    return nodes;
}

QHash<QString, QDomElement> byKey(const QVector<Member>& members)
{
    QHash<QString, QDomElement> result;
    for (const Member& member : members)
        result.insert(member.key, member.element);
    return result;
}

/// What stands nearest before \p like among its neighbours and in the shelf, too.
QDomElement neighbourIn(const QDomElement& shelf, const QDomElement& like)
{
    const QHash<QString, QDomElement> there = byKey(membersOf(shelf, QString()));
    QDomElement neighbour;
    for (const Member& member : membersOf(like.parentNode().toElement(), QString())) {
        if (member.element == like)
            break;
        if (there.contains(member.key))
            neighbour = there.value(member.key);
    }
    return neighbour;
}

/// Puts a preset where another document has it.
void moveLike(const QDomElement& element, const QDomElement& like)
{
    const QDomElement shelf = standingPlace(like, element.ownerDocument());
    insertBehind(withComments(element), shelf, neighbourIn(shelf, like));
}

} // namespace

Merger::Merger(const Document* base, const Document& ours, const Document& theirs)
    : m_base(base ? base->Root() : QDomElement())
    , m_ours(ours.Root())
    , m_theirs(theirs.Root())
{
    const DocumentKind kind = ours.Kind();
    if (kind == DocumentKind::Unknown || theirs.Kind() != kind || (base && base->Kind() != kind))
        throw Failure(QStringLiteral("all have to be snapshot documents, or all archives"));
}

QVector<MergeConflict> Merger::run()
{
    settleUnits();
    settlePlaces();
    mergeElements(m_base, m_ours, m_theirs, QString());
    return m_conflicts;
}

int Merger::taken() const
{
    return m_taken;
}

Merger::Choice Merger::choiceOf(const MergeText& base, const MergeText& ours,
                                const MergeText& theirs)
{
    if (ours == theirs || theirs == base)
        return Choice::Ours;
    return ours == base ? Choice::Theirs : Choice::Neither;
}

Merger::Standings Merger::standingsOf(const QDomElement& root, QSet<QString>& repeated)
{
    Standings standings;
    if (root.tagName() == QLatin1String("snapRoot"))
        return standings;
    forEachPreset(root, [&](const Preset& preset) {
        const QString key = presetKey(preset.element);
        if (key.isEmpty())
            return;
        if (standings.contains(key))
            repeated.insert(key);
        const QString place = preset.folder.isEmpty()
                                  ? preset.section
                                  : preset.section + QLatin1String(" / ") + preset.folder;
        standings.insert(key, {preset.element, place, preset.path});
    });
    return standings;
}

/// From here on all lengths are in the same units.
void Merger::settleUnits()
{
    const MergeText base = textOf(m_base, s_unitsScale);
    const MergeText ours = textOf(m_ours, s_unitsScale);
    const MergeText theirs = textOf(m_theirs, s_unitsScale);
    const Choice choice = choiceOf(base, ours, theirs);
    if (choice == Choice::Neither)
        m_conflicts.append({attributePath(QString(), s_unitsScale), base, ours, theirs});
    if (choice == Choice::Theirs)
        ++m_taken;
    const QDomElement chosen = choice == Choice::Theirs ? m_theirs : m_ours;
    const double scale = unitsScale(chosen);
    const MergeText text = textOf(chosen, s_unitsScale);
    for (QDomElement root : {m_base, m_ours, m_theirs}) {
        if (root.isNull())
            continue;
        if (unitsScale(root) != scale)
            convertLengths(root, scale / unitsScale(root));
        setText(root, s_unitsScale, text);
    }
}

/// From here on every preset that several documents have stands in the same place.
void Merger::settlePlaces()
{
    QSet<QString> repeated;
    const Standings base = standingsOf(m_base, repeated);
    const Standings ours = standingsOf(m_ours, repeated);
    const Standings theirs = standingsOf(m_theirs, repeated);
    QStringList keys = base.keys() + ours.keys() + theirs.keys();
    keys.sort();
    keys.removeDuplicates();
    for (const QString& key : keys) {
        if (!repeated.contains(key))
            settlePlace(base.value(key), ours.value(key), theirs.value(key));
    }
}

void Merger::settlePlace(const Standing& base, const Standing& ours, const Standing& theirs)
{
    if (ours.element.isNull() || theirs.element.isNull()) {
        const Standing& left = ours.element.isNull() ? theirs : ours;
        if (base.element.isNull() || left.element.isNull() || base.place == left.place)
            return;
        const MergeText changed = QStringLiteral("changed");
        const bool isOurs = theirs.element.isNull();
        m_conflicts.append({left.path, QStringLiteral("there"), isOurs ? changed : MergeText(),
                            isOurs ? MergeText() : changed});
        // Neither side's place is to be told of again.
        base.element.parentNode().removeChild(base.element);
        if (!isOurs)
            theirs.element.parentNode().removeChild(theirs.element);
        return;
    }
    const Choice choice =
        choiceOf(placeText(base.place), placeText(ours.place), placeText(theirs.place));
    if (choice == Choice::Neither)
        m_conflicts.append(
            {ours.path, placeText(base.place), placeText(ours.place), placeText(theirs.place)});
    const Standing& chosen = choice == Choice::Theirs ? theirs : ours;
    if (choice == Choice::Theirs)
        ++m_taken;
    for (const Standing& other : {base, ours, theirs}) {
        if (!other.element.isNull() && other.place != chosen.place)
            moveLike(other.element, chosen.element);
    }
}

void Merger::mergeElements(const QDomElement& base, const QDomElement& ours,
                           const QDomElement& theirs, const QString& path)
{
    if (isParam(ours))
        mergeValue(base, ours, theirs, path);
    mergeAttributes(base, ours, theirs, path);
    mergeMembers(base, ours, theirs, path);
}

void Merger::mergeValue(const QDomElement& base, QDomElement ours, const QDomElement& theirs,
                        const QString& path)
{
    const MergeText before = valueOf(base, m_baseValues);
    const MergeText own = valueOf(ours, m_ourValues);
    const MergeText other = valueOf(theirs, m_theirValues);
    switch (choiceOf(typed(base, before), typed(ours, own), typed(theirs, other))) {
    case Choice::Ours:
        break;
    case Choice::Theirs:
        setText(ours, s_type, textOf(theirs, s_type));
        setText(ours, s_val, textOf(theirs, s_val));
        ++m_taken;
        break;
    case Choice::Neither:
        m_conflicts.append({path, before, own, other});
        break;
    }
}

void Merger::mergeAttributes(const QDomElement& base, QDomElement ours, const QDomElement& theirs,
                             const QString& path)
{
    QSet<QString> names;
    for (const QDomElement& element : {base, ours, theirs}) {
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.count(); ++i)
            names.insert(attributes.item(i).nodeName());
    }
    if (isParam(ours))
        names -= {s_type, s_val};
    QStringList sorted = names.values();
    sorted.sort();
    for (const QString& name : sorted) {
        const MergeText before = textOf(base, name);
        const MergeText own = textOf(ours, name);
        const MergeText other = textOf(theirs, name);
        switch (choiceOf(before, own, other)) {
        case Choice::Ours:
            break;
        case Choice::Theirs:
            setText(ours, name, other);
            ++m_taken;
            break;
        case Choice::Neither:
            m_conflicts.append({attributePath(path, name), before, own, other});
            break;
        }
    }
}

void Merger::mergeMembers(const QDomElement& base, const QDomElement& ours,
                          const QDomElement& theirs, const QString& path)
{
    const QHash<QString, QDomElement> before = byKey(membersOf(base, QString()));
    const QVector<Member> own = membersOf(ours, path);
    const QVector<Member> others = membersOf(theirs, path);
    const QHash<QString, QDomElement> ownByKey = byKey(own);
    const QHash<QString, QDomElement> othersByKey = byKey(others);
    for (const Member& member : own) {
        const QDomElement was = before.value(member.key);
        const QDomElement other = othersByKey.value(member.key);
        if (!other.isNull())
            mergeElements(was, member.element, other, member.path);
        else if (!was.isNull())
            lose(was, member);
    }
    QDomElement neighbour;
    for (const Member& member : others) {
        const QDomElement was = before.value(member.key);
        const QDomElement mine = ownByKey.value(member.key);
        if (!mine.isNull())
            neighbour = mine;
        else if (was.isNull())
            neighbour = add(member.element, ours, neighbour);
        else
            reportLost(was, member);
    }
}

/// Theirs has it no more.
void Merger::lose(const QDomElement& base, const Member& ours)
{
    if (!m_comparer.Run(base, ours.element).isEmpty()) {
        m_conflicts.append(
            {ours.path, QStringLiteral("there"), QStringLiteral("changed"), MergeText()});
        return;
    }
    QDomNode shelf = ours.element.parentNode();
    for (const QDomNode& node : withComments(ours.element))
        shelf.removeChild(node);
    ++m_taken;
}

/// Ours has it no more.
void Merger::reportLost(const QDomElement& base, const Member& theirs)
{
    if (!m_comparer.Run(base, theirs.element).isEmpty())
        m_conflicts.append(
            {theirs.path, QStringLiteral("there"), MergeText(), QStringLiteral("changed")});
}

QDomElement Merger::add(const QDomElement& theirs, QDomElement shelf, const QDomElement& neighbour)
{
    QVector<QDomNode> nodes;
    for (const QDomNode& node : withComments(theirs))
        nodes.append(shelf.ownerDocument().importNode(node, true));
    insertBehind(nodes, shelf, neighbour);
    ++m_taken;
    return nodes.last().toElement();
}

} // namespace rvopen::toolkit

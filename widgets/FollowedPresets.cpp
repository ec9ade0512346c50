// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FollowedPresets.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QString>

#include <algorithm>
#include <utility>

namespace rvopen::widgets {

using toolkit::PresetsIn;

namespace {

/// The last preset in the element, or itself; null for none.
QDomElement lastPresetIn(const QDomElement& element)
{
    // Of a folder nothing is looked at but its end.
    QDomElement child =
        element.tagName() == QLatin1String("dir") ? element.lastChildElement() : QDomElement();
    if (child.isNull()) {
        const QVector<QDomElement> presets = PresetsIn(element);
        return presets.isEmpty() ? QDomElement() : presets.last();
    }
    for (; !child.isNull(); child = child.previousSiblingElement()) {
        const QDomElement preset = lastPresetIn(child);
        if (!preset.isNull())
            return preset;
    }
    return QDomElement();
}

/// The last preset in front of the node; null for none.
QDomElement presetBefore(QDomNode node)
{
    for (; !node.isNull(); node = node.parentNode()) {
        for (QDomElement before = node.previousSiblingElement(); !before.isNull();
             before = before.previousSiblingElement()) {
            const QDomElement preset = lastPresetIn(before);
            if (!preset.isNull())
                return preset;
        }
    }
    return QDomElement();
}

/// The preset that the node is or stands in; null for none.
QDomElement presetAround(QDomNode node)
{
    for (; !node.isNull(); node = node.parentNode()) {
        const QVector<QDomElement> presets = PresetsIn(node.toElement());
        if (!presets.isEmpty())
            return presets[0] == node ? presets[0] : QDomElement();
    }
    return QDomElement();
}

bool isIdentity(const QString& attribute)
{
    return attribute == QLatin1String("name") || attribute == QLatin1String("refname") ||
           attribute == QLatin1String("linkname");
}

} // namespace

FollowedPresets::FollowedPresets(Listener& listener, const QDomDocument& document)
    : RVOpenObserver(document)
    , m_listener(listener)
    , m_document(document)
    , m_presets(PresetsIn(document.documentElement()))
{
}

QDomDocument FollowedPresets::document() const
{
    return m_document;
}

const QVector<QDomElement>& FollowedPresets::presets() const
{
    return m_presets;
}

int FollowedPresets::indexOf(const QDomNode& node) const
{
    const QDomElement preset = presetAround(node);
    return preset.isNull() ? -1 : int(m_presets.indexOf(preset));
}

bool FollowedPresets::takeChanged()
{
    return std::exchange(m_isChanged, false);
}

void FollowedPresets::setChanged()
{
    m_isChanged = true;
}

void FollowedPresets::Changed(const RVOpenChange& change)
{
    m_isChanged = true;
    switch (change.kind) {
    case RVOpenChange::AttributeSet:
        attributeSet(change);
        break;
    case RVOpenChange::ChildInserted:
        inserted(change);
        break;
    case RVOpenChange::ChildAboutToBeRemoved:
        m_going = PresetsIn(change.node.toElement());
        break;
    case RVOpenChange::ChildRemoved:
        removed(change);
        break;
    case RVOpenChange::DocumentAboutToBeReset:
        m_listener.documentGoes();
        break;
    case RVOpenChange::DocumentReset:
        m_listener.documentWent(QDomDocument(change.replacement));
        break;
    }
}

void FollowedPresets::BlockEnded()
{
    tell(PresetsIn(std::exchange(m_renumbered, {})));
}

void FollowedPresets::attributeSet(const RVOpenChange& change)
{
    const QVector<QDomElement> presets = PresetsIn(change.node.toElement());
    if (presets.isEmpty()) {
        tellAround(change.node);
        return;
    }
    tell(presets);
    if (isIdentity(change.name))
        renumber(change.node.parentNode());
}

void FollowedPresets::inserted(const RVOpenChange& change)
{
    const QVector<QDomElement> presets = PresetsIn(change.node.toElement());
    if (presets.isEmpty()) {
        tellAround(change.parent);
        return;
    }
    const QDomElement before = presetBefore(change.node);
    const int first = before.isNull() ? 0 : int(m_presets.indexOf(before)) + 1;
    m_listener.presetsAboutToCome(first, int(presets.size()));
    m_presets.insert(first, int(presets.size()), QDomElement());
    std::copy(presets.begin(), presets.end(), m_presets.begin() + first);
    m_listener.presetsCame();
    renumber(change.parent);
}

void FollowedPresets::removed(const RVOpenChange& change)
{
    const QVector<QDomElement> presets = std::exchange(m_going, {});
    const int first = presets.isEmpty() ? -1 : int(m_presets.indexOf(presets.first()));
    if (first < 0) {
        tellAround(change.parent);
        return;
    }
    m_listener.presetsAboutToGo(first, int(presets.size()));
    m_presets.remove(first, int(presets.size()));
    m_listener.presetsWent();
    renumber(change.parent);
}

/// Presets that are called the same are told apart by their number, which is said once at the end
/// of the block: in one that sorts, there are many changes.
void FollowedPresets::renumber(const QDomNode& parent)
{
    if (m_renumbered.isNull())
        m_renumbered = parent.toElement();
    else if (m_renumbered != parent)
        m_renumbered = m_document.documentElement();
}

void FollowedPresets::tell(const QVector<QDomElement>& presets)
{
    const int first = presets.isEmpty() ? -1 : int(m_presets.indexOf(presets.first()));
    if (first >= 0)
        m_listener.presetsChanged(first, int(presets.size()));
}

void FollowedPresets::tellAround(const QDomNode& node)
{
    const int index = indexOf(node);
    if (index >= 0)
        m_listener.presetsChanged(index, 1);
}

} // namespace rvopen::widgets

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FollowedPlaces.h"

#include "Becoming.h"
#include "EditedFile.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <algorithm>

namespace rvopen::browser {

namespace {

bool isIn(const QDomDocument& document, QDomNode node)
{
    while (!node.parentNode().isNull())
        node = node.parentNode();
    return node == document;
}

} // namespace

FollowedPlaces::FollowedPlaces(Memory& memory, const EditedFile& file)
    : m_memory(memory)
    , m_file(file)
{
    lookUp();
}

void FollowedPlaces::lookUp()
{
    for (const toolkit::PresetPlace& place : m_memory.favourites() + m_memory.recent()) {
        const bool isKnown =
            std::any_of(m_places.begin(), m_places.end(),
                        [&place](const Place& known) { return known.now == place.path; });
        if (isKnown || place.file != m_file.file())
            continue;
        const QDomElement element = elementAt(m_file.dom(), place.path);
        if (!element.isNull())
            m_places.append({element, place.path, place.path});
    }
}

void FollowedPlaces::follow()
{
    Memory::Moves moves;
    for (Place& place : m_places) {
        // What was deleted may come back where it was.
        const QString now =
            isIn(m_file.dom(), place.element) ? toolkit::PathOf(place.element) : place.now;
        moves.append({{m_file.file(), place.now}, {m_file.file(), now}});
        place.now = now;
    }
    take(moves);
}

void FollowedPlaces::keep()
{
    // The last edit may not have been told yet.
    follow();
    for (Place& place : m_places)
        place.saved = place.now;
}

void FollowedPlaces::goBack()
{
    Memory::Moves moves;
    for (Place& place : m_places) {
        moves.append({{m_file.file(), place.now}, {m_file.file(), place.saved}});
        place.now = place.saved;
    }
    take(moves);
}

void FollowedPlaces::take(const Memory::Moves& moves)
{
    const bool isAny = std::any_of(moves.begin(), moves.end(),
                                   [](const auto& one) { return !isSame(one.first, one.second); });
    if (isAny)
        m_memory.move(moves);
}

} // namespace rvopen::browser

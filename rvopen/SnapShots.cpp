// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/SnapShots.h>

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/SnapShot.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeCast.h>
#include <rvopen/model/Population.h>

namespace rvopen {

SnapShots::SnapShots(QDomNode node)
{
    SetDomNode(node);
}

SnapShots::SnapShots(const SnapShots& other) = default;

SnapShots& SnapShots::operator=(const SnapShots& other) = default;

SnapShots::~SnapShots() = default;

void SnapShots::Populate()
{
    populateChildren(this, [](const QDomNode& child) { return newBound<SnapShot>(child); });
}

SnapShot* SnapShots::GetFirstSnapShot()
{
    return nodeCast<SnapShot>(GetChild(0, 1));
}

void SnapShots::Clear()
{
    const changes::Block block;
    while (auto* const snapShot = nodeCast<SnapShot>(GetChild(1, 1)))
        NodeAccess::removeChild(this, snapShot);
}

SnapShot* SnapShots::CreateSnapShot(SnapShot* source)
{
    return source ? cloneOf(source) : newElement<SnapShot>(this, names::element::snapShot);
}

Background* SnapShots::CreateBackground(Background* source)
{
    return cloneOf(source);
}

Camera* SnapShots::CreateCamera(Camera* source)
{
    return cloneOf(source);
}

MaterialRepository* SnapShots::CreateMaterialRepository(MaterialRepository* source)
{
    return cloneOf(source);
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/SnapShots.h>

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/SnapShot.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeCast.h>
#include <rvopen/model/Population.h>

#include <QDomDocument>

namespace rvopen {

namespace {

template <typename Component>
Component* cloneOf(Component* source)
{
    return source ? new Component(static_cast<RVOpenNode*>(source)) : nullptr;
}

} // namespace

SnapShots::SnapShots(QDomNode node)
{
    SetDomNode(node);
}

SnapShots::SnapShots(const SnapShots& other) = default;

SnapShots& SnapShots::operator=(const SnapShots& other) = default;

SnapShots::~SnapShots() = default;

void SnapShots::Populate()
{
    populateChildren(this, [](const QDomNode& child) { return new SnapShot(child); });
}

SnapShot* SnapShots::GetFirstSnapShot()
{
    return nodeCast<SnapShot>(GetChild(0, 1));
}

void SnapShots::Clear()
{
    while (auto* const snapShot = nodeCast<SnapShot>(GetChild(1, 1)))
        DeleteNode(snapShot);
}

SnapShot* SnapShots::CreateSnapShot(SnapShot* source)
{
    if (source)
        return cloneOf(source);
    QDomDocument document = GetDomNode().ownerDocument();
    return new SnapShot(document.createElement(names::element::snapShot()));
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

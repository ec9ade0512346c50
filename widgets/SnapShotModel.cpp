// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/SnapShotModel.h>

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/SnapShots.h>

namespace rvopen::widgets {

SnapShotModel::SnapShotModel(QObject* parent)
    : NodeModel(parent)
{
}

SnapShotModel::~SnapShotModel() = default;

void SnapShotModel::SetManager(RVOpenManager* manager)
{
    m_manager = manager;
    RVOpenNode* const root = manager ? manager->GetRootNode() : nullptr;
    setRoot(findRoot(), root ? root->GetDomNode().ownerDocument() : QDomDocument());
}

bool SnapShotModel::isShown(const QDomElement& element) const
{
    return element.tagName() == QLatin1String("snapshot");
}

bool SnapShotModel::isShelf(const QDomElement& /*element*/) const
{
    return false;
}

RVOpenNode* SnapShotModel::findRoot() const
{
    return m_manager ? m_manager->GetSnapShots() : nullptr;
}

} // namespace rvopen::widgets

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RenderTargets.h>

#include <rvopen/RenderTarget.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeCast.h>
#include <rvopen/model/Population.h>

namespace rvopen {

RenderTargets::RenderTargets(QDomNode node)
{
    SetDomNode(node);
}

RenderTargets::~RenderTargets() = default;

void RenderTargets::Populate()
{
    populateChildren(this, [](const QDomNode& child) {
        auto* const target = new RenderTarget(child);
        if (target)
            target->GetParamHelper()->Populate();
        return target;
    });
}

RenderTarget* RenderTargets::GetFirstRenderTarget()
{
    return nodeCast<RenderTarget>(GetChild(0, 1));
}

RenderTarget* RenderTargets::CreateRenderTarget(RenderTarget* source)
{
    if (source)
        return cloneOf(source);
    const changes::Block block;
    auto* const target = newElement<RenderTarget>(this, names::element::renderTarget);
    if (target)
        target->PopulateParams();
    return target;
}

void RenderTargets::Clear()
{
    const changes::Block block;
    while (RenderTarget* const target = GetFirstRenderTarget())
        NodeAccess::removeChild(this, target);
}

} // namespace rvopen

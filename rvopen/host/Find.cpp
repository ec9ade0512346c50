// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Find.h>

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Foreground.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <algorithm>

namespace rvopen::host {

namespace {

using NodeOf = RVOpenNode* (*)(SnapShot* snapShot);

struct ComponentClass {
    const std::type_info* type;
    NodeOf find;
};

template <typename Class, Class* (SnapShot::*getter)() const>
ComponentClass held()
{
    return {&typeid(Class),
            [](SnapShot* snapShot) -> RVOpenNode* { return (snapShot->*getter)(); }};
}

/// A getter that makes what the snapshot lacks, element and object, or the object alone.
template <typename Class, Class* (SnapShot::*getter)(), names::Name name>
ComponentClass made()
{
    return {&typeid(Class), [](SnapShot* snapShot) -> RVOpenNode* {
                const std::vector<RVOpenNode*> components = NodeAccess::components(snapShot);
                const bool isHeld =
                    std::any_of(components.begin(), components.end(), [](RVOpenNode* component) {
                        return dynamic_cast<Class*>(component) != nullptr;
                    });
                const bool isThere =
                    isHeld || !snapShot->GetDomNode().firstChildElement(name()).isNull();
                return isThere ? (snapShot->*getter)() : nullptr;
            }};
}

} // namespace

std::optional<RVOpenNode*> findComponent(RVOpenNode* node, const std::type_info& type)
{
    static const ComponentClass s_classes[] = {
        held<Scheme, &SnapShot::GetScheme>(),
        held<Background, &SnapShot::GetBackground>(),
        held<Foreground, &SnapShot::GetForeground>(),
        held<Camera, &SnapShot::GetCamera>(),
        held<SnapShotSettings, &SnapShot::GetSnapShotSettings>(),
        held<Scenery, &SnapShot::GetScenery>(),
        held<NaturalLightStudio, &SnapShot::GetNaturalLightStudio>(),
        made<ArtificialLightStudio, &SnapShot::GetArtificialLightStudio,
             names::element::artificialLightStudio>(),
        made<RenderTargets, &SnapShot::GetRenderTargets, names::element::renderTargets>(),
        made<MaterialRepository, &SnapShot::GetMaterialRepository,
             names::element::materialRepository>(),
    };
    auto* const snapShot = dynamic_cast<SnapShot*>(node);
    if (!snapShot)
        return std::nullopt;
    const auto* const found =
        std::find_if(std::begin(s_classes), std::end(s_classes),
                     [&](const ComponentClass& known) { return *known.type == type; });
    if (found == std::end(s_classes))
        return std::nullopt;
    return found->find(snapShot);
}

} // namespace rvopen::host

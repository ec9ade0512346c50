// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenSchema.h>

#include <rvopen/AspectRatio.h>
#include <rvopen/AspectRatioOrient.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Directory.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/Transparency.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeCast.h>

#include <QDomElement>

/// Definitions of the kind tests, a row each.
#define RVOPEN_GROUP(Operation, name)                                                              \
    RVOpenNode* RVOpenSchema::Operation(RVOpenNode* node)                                          \
    {                                                                                              \
        return isNamed(node, names::element::name) ? node : nullptr;                               \
    }
#define RVOPEN_CLASS(Class, Operation, name)                                                       \
    Class* RVOpenSchema::Operation(RVOpenNode* node)                                               \
    {                                                                                              \
        return isNamed(node, names::element::name) ? nodeCast<Class>(node) : nullptr;              \
    }

namespace rvopen {

namespace {

template <typename Class>
RVOpenNode* make(const QDomElement& element)
{
    return newBound<Class>(element);
}

template <typename Class>
RVOpenNode* makeWithParams(const QDomElement& element)
{
    auto* const object = newBound<Class>(element);
    if (object)
        object->GetParamHelper()->Populate();
    return object;
}

RVOpenNode* makeParam(const QDomElement& element)
{
    if (element.attribute(names::attribute::type()) != names::paramType::shader())
        return newBound<Param>(element);
    if (element.attribute(names::attribute::val()) == names::paramType::colour())
        return newBound<ShaderColour>(element);
    return nullptr;
}

struct Maker {
    names::Name name;
    RVOpenNode* (*make)(const QDomElement& element);
};

constexpr Maker s_makers[] = {
    {names::element::param, makeParam},
    {names::element::scheme, make<Scheme>},
    {names::element::background, makeWithParams<Background>},
    {names::element::foreground, makeWithParams<Foreground>},
    {names::element::camera, makeWithParams<Camera>},
    {names::element::lens, makeWithParams<Lens>},
    {names::element::dir, make<Directory>},
    {names::element::aspectRatio, makeWithParams<AspectRatio>},
    {names::element::aspectRatioOrient, makeWithParams<AspectRatioOrient>},
    {names::element::material, make<Material>},
    {names::element::colour, make<Colour>},
    {names::element::finish, make<Finish>},
    {names::element::transparency, make<Transparency>},
    {names::element::bump, make<Bump>},
    {names::element::diffuse, makeWithParams<ShaderDiffuse>},
    {names::element::plainColour, makeWithParams<ShaderPlainColour>},
    {names::element::map, makeWithParams<ShaderMap>},
    {names::element::snapShot, make<SnapShot>},
    {names::element::snapShots, make<SnapShots>},
};

bool isNamed(const RVOpenNode* node, names::Name name)
{
    return node && node->GetNodeName() == name();
}

/// A group element and the kind of preset that it holds.
struct Group {
    names::Name name;
    bool (*accepts)(RVOpenNode* child);
};

template <typename Class, Class* (*isKind)(RVOpenNode*)>
bool accepts(RVOpenNode* child)
{
    return isKind(child) != nullptr;
}

constexpr Group s_groups[] = {
    {names::element::schemes, accepts<Scheme, RVOpenSchema::isNodeScheme>},
    {names::element::materials, accepts<Material, RVOpenSchema::isNodeMaterial>},
    {names::element::colours, accepts<Colour, RVOpenSchema::isNodeColour>},
    {names::element::finishes, accepts<Finish, RVOpenSchema::isNodeFinish>},
    {names::element::transparencies, accepts<Transparency, RVOpenSchema::isNodeTransparency>},
    {names::element::bumps, accepts<Bump, RVOpenSchema::isNodeBump>},
    {names::element::backgrounds, accepts<Background, RVOpenSchema::isNodeBackground>},
    {names::element::foregrounds, accepts<Foreground, RVOpenSchema::isNodeForeground>},
    {names::element::cameras, accepts<Camera, RVOpenSchema::isNodeCamera>},
};

} // namespace

RVOpenNode* NodeAccess::make(const QDomNode& node)
{
    const QDomElement element = node.toElement();
    if (!element.isNull()) {
        const QString name = element.tagName();
        for (const Maker& maker : s_makers) {
            const QString itsName = maker.name();
            if (name.size() == itsName.size() && name == itsName)
                return maker.make(element);
        }
    }
    return newBound<RVOpenNode>(node);
}

void NodeAccess::restoreView(RVOpenNode* holder, RVOpenNode* owner, RVOpenNode* previous,
                             const QDomNode& element)
{
    // Collections and snapshots make objects of classes of their own choice.
    if (auto* const snapShot = owner ? nullptr : nodeCast<SnapShot>(holder))
        snapShot->Populate();
    else if (auto* const palette = nodeCast<MaterialRepository>(owner))
        palette->Populate();
    else if (auto* const targets = nodeCast<RenderTargets>(owner))
        targets->Populate();
    else if (auto* const snapShots = nodeCast<SnapShots>(owner))
        snapShots->Populate();
    else if (owner || previous)
        remake(owner, previous, element);
}

RVOpenNode* RVOpenSchema::createNode(QDomNode node)
{
    return NodeAccess::make(node);
}

RVOPEN_GROUP(isNodeSchemes, schemes)
RVOPEN_GROUP(isNodeMaterials, materials)
RVOPEN_GROUP(isNodeColours, colours)
RVOPEN_GROUP(isNodeFinishes, finishes)
RVOPEN_GROUP(isNodeTransparencies, transparencies)
RVOPEN_GROUP(isNodeBumps, bumps)
RVOPEN_GROUP(isNodeBackgrounds, backgrounds)
RVOPEN_GROUP(isNodeForegrounds, foregrounds)
RVOPEN_GROUP(isNodeCameras, cameras)
RVOPEN_GROUP(isNodeDir, dir)
RVOPEN_CLASS(Lens, isNodeLens, lens)
RVOPEN_CLASS(AspectRatio, isNodeAspectRatio, aspectRatio)
RVOPEN_CLASS(AspectRatioOrient, isNodeAspectRatioOrient, aspectRatioOrient)
RVOPEN_CLASS(Scheme, isNodeScheme, scheme)
RVOPEN_CLASS(Material, isNodeMaterial, material)
RVOPEN_CLASS(Colour, isNodeColour, colour)

ShaderColour* RVOpenSchema::isNodeShaderColour(RVOpenNode* node)
{
    ShaderColour* const colour = nodeCast<ShaderColour>(node);
    return isNodeParam(colour) && colour->GetValShaderType() == names::paramType::colour()
               ? colour
               : nullptr;
}

RVOPEN_CLASS(ShaderPlainColour, isNodeShaderPlainColour, plainColour)
RVOPEN_CLASS(ShaderMap, isNodeShaderMap, map)
RVOPEN_CLASS(ShaderDiffuse, isNodeShaderDiffuse, diffuse)
RVOPEN_CLASS(Finish, isNodeFinish, finish)
RVOPEN_CLASS(Transparency, isNodeTransparency, transparency)
RVOPEN_CLASS(Bump, isNodeBump, bump)
RVOPEN_CLASS(MaterialRepository, isNodeMaterialRepository, materialRepository)
RVOPEN_CLASS(Background, isNodeBackground, background)
RVOPEN_CLASS(Foreground, isNodeForeground, foreground)
RVOPEN_CLASS(Param, isNodeParam, param)
RVOPEN_CLASS(SnapShot, isNodeSnapShot, snapShot)
RVOPEN_CLASS(SnapShots, isNodeSnapShots, snapShots)
RVOPEN_CLASS(NaturalLightStudio, isNodeNaturalLightStudio, naturalLightStudio)
RVOPEN_CLASS(Camera, isNodeCamera, camera)
RVOPEN_CLASS(SnapShotSettings, isNodeSnapShotSettings, snapShotSettings)
RVOPEN_CLASS(RenderTargets, isNodeRenderTargets, renderTargets)
RVOPEN_CLASS(RenderTarget, isNodeRenderTarget, renderTarget)
RVOPEN_CLASS(Scenery, isNodeScenery, scenery)

int RVOpenSchema::canAddNode(RVOpenNode* parent, RVOpenNode* child)
{
    if (isNodeDir(parent))
        return 1;
    for (const Group& group : s_groups) {
        if (isNamed(parent, group.name))
            return isNodeDir(child) || group.accepts(child) ? 1 : 0;
    }
    if (!isNodeMaterial(parent))
        return 0;
    return isNodeFinish(child) || isNodeBump(child) || isNodeColour(child) ||
                   isNodeTransparency(child)
               ? 1
               : 0;
}

} // namespace rvopen

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

RVOpenNode* asKind(RVOpenNode* node, names::Name name)
{
    return isNamed(node, name) ? node : nullptr;
}

template <typename Class>
Class* asClass(RVOpenNode* node, names::Name name)
{
    return isNamed(node, name) ? nodeCast<Class>(node) : nullptr;
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

RVOpenNode* RVOpenSchema::isNodeSchemes(RVOpenNode* node)
{
    return asKind(node, names::element::schemes);
}

RVOpenNode* RVOpenSchema::isNodeMaterials(RVOpenNode* node)
{
    return asKind(node, names::element::materials);
}

RVOpenNode* RVOpenSchema::isNodeColours(RVOpenNode* node)
{
    return asKind(node, names::element::colours);
}

RVOpenNode* RVOpenSchema::isNodeFinishes(RVOpenNode* node)
{
    return asKind(node, names::element::finishes);
}

RVOpenNode* RVOpenSchema::isNodeTransparencies(RVOpenNode* node)
{
    return asKind(node, names::element::transparencies);
}

RVOpenNode* RVOpenSchema::isNodeBumps(RVOpenNode* node)
{
    return asKind(node, names::element::bumps);
}

RVOpenNode* RVOpenSchema::isNodeBackgrounds(RVOpenNode* node)
{
    return asKind(node, names::element::backgrounds);
}

RVOpenNode* RVOpenSchema::isNodeForegrounds(RVOpenNode* node)
{
    return asKind(node, names::element::foregrounds);
}

RVOpenNode* RVOpenSchema::isNodeCameras(RVOpenNode* node)
{
    return asKind(node, names::element::cameras);
}

RVOpenNode* RVOpenSchema::isNodeDir(RVOpenNode* node)
{
    return asKind(node, names::element::dir);
}

Lens* RVOpenSchema::isNodeLens(RVOpenNode* node)
{
    return asClass<Lens>(node, names::element::lens);
}

AspectRatio* RVOpenSchema::isNodeAspectRatio(RVOpenNode* node)
{
    return asClass<AspectRatio>(node, names::element::aspectRatio);
}

AspectRatioOrient* RVOpenSchema::isNodeAspectRatioOrient(RVOpenNode* node)
{
    return asClass<AspectRatioOrient>(node, names::element::aspectRatioOrient);
}

Scheme* RVOpenSchema::isNodeScheme(RVOpenNode* node)
{
    return asClass<Scheme>(node, names::element::scheme);
}

Material* RVOpenSchema::isNodeMaterial(RVOpenNode* node)
{
    return asClass<Material>(node, names::element::material);
}

Colour* RVOpenSchema::isNodeColour(RVOpenNode* node)
{
    return asClass<Colour>(node, names::element::colour);
}

ShaderColour* RVOpenSchema::isNodeShaderColour(RVOpenNode* node)
{
    ShaderColour* const colour = nodeCast<ShaderColour>(node);
    return isNodeParam(colour) && colour->GetValShaderType() == names::paramType::colour()
               ? colour
               : nullptr;
}

ShaderPlainColour* RVOpenSchema::isNodeShaderPlainColour(RVOpenNode* node)
{
    return asClass<ShaderPlainColour>(node, names::element::plainColour);
}

ShaderMap* RVOpenSchema::isNodeShaderMap(RVOpenNode* node)
{
    return asClass<ShaderMap>(node, names::element::map);
}

ShaderDiffuse* RVOpenSchema::isNodeShaderDiffuse(RVOpenNode* node)
{
    return asClass<ShaderDiffuse>(node, names::element::diffuse);
}

Finish* RVOpenSchema::isNodeFinish(RVOpenNode* node)
{
    return asClass<Finish>(node, names::element::finish);
}

Transparency* RVOpenSchema::isNodeTransparency(RVOpenNode* node)
{
    return asClass<Transparency>(node, names::element::transparency);
}

Bump* RVOpenSchema::isNodeBump(RVOpenNode* node)
{
    return asClass<Bump>(node, names::element::bump);
}

MaterialRepository* RVOpenSchema::isNodeMaterialRepository(RVOpenNode* node)
{
    return asClass<MaterialRepository>(node, names::element::materialRepository);
}

Background* RVOpenSchema::isNodeBackground(RVOpenNode* node)
{
    return asClass<Background>(node, names::element::background);
}

Foreground* RVOpenSchema::isNodeForeground(RVOpenNode* node)
{
    return asClass<Foreground>(node, names::element::foreground);
}

Param* RVOpenSchema::isNodeParam(RVOpenNode* node)
{
    return asClass<Param>(node, names::element::param);
}

SnapShot* RVOpenSchema::isNodeSnapShot(RVOpenNode* node)
{
    return asClass<SnapShot>(node, names::element::snapShot);
}

SnapShots* RVOpenSchema::isNodeSnapShots(RVOpenNode* node)
{
    return asClass<SnapShots>(node, names::element::snapShots);
}

NaturalLightStudio* RVOpenSchema::isNodeNaturalLightStudio(RVOpenNode* node)
{
    return asClass<NaturalLightStudio>(node, names::element::naturalLightStudio);
}

Camera* RVOpenSchema::isNodeCamera(RVOpenNode* node)
{
    return asClass<Camera>(node, names::element::camera);
}

SnapShotSettings* RVOpenSchema::isNodeSnapShotSettings(RVOpenNode* node)
{
    return asClass<SnapShotSettings>(node, names::element::snapShotSettings);
}

RenderTargets* RVOpenSchema::isNodeRenderTargets(RVOpenNode* node)
{
    return asClass<RenderTargets>(node, names::element::renderTargets);
}

RenderTarget* RVOpenSchema::isNodeRenderTarget(RVOpenNode* node)
{
    return asClass<RenderTarget>(node, names::element::renderTarget);
}

Scenery* RVOpenSchema::isNodeScenery(RVOpenNode* node)
{
    return asClass<Scenery>(node, names::element::scenery);
}

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

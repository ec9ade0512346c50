// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QDomNode>

namespace rvopen {

class AspectRatio;
class AspectRatioOrient;
class Background;
class Bump;
class Camera;
class Colour;
class Finish;
class Foreground;
class Lens;
class Material;
class MaterialRepository;
class NaturalLightStudio;
class Param;
class RenderTarget;
class RenderTargets;
class Scenery;
class Scheme;
class ShaderColour;
class ShaderDiffuse;
class ShaderMap;
class ShaderPlainColour;
class SnapShot;
class SnapShotSettings;
class SnapShots;
class Transparency;
class RVOpenNode;

/// The vocabulary of the documents: which class stands for an element, and what may be placed
/// where. Names are case-sensitive. There are no objects of this class.
class RVOPEN_EXPORT RVOpenSchema {
public:
    RVOpenSchema() = delete;

    /// A new object of the class that stands for \p node, bound to that very node; a plain
    /// RVOpenNode for an unknown element or a node that is no element. The caller owns it, in
    /// practice by linking it into a tree. Objects of parameter-backed classes come with the
    /// objects of their parameters. Null for a shader parameter whose value is not "colour", and
    /// when memory is exhausted.
    static RVOpenNode* createNode(QDomNode node);

    /// \name Kinds that have no class of their own
    /// The node itself if its element has the kind's name, else null. Null for null.
    /// @{
    static RVOpenNode* isNodeSchemes(RVOpenNode* node);
    static RVOpenNode* isNodeMaterials(RVOpenNode* node);
    static RVOpenNode* isNodeColours(RVOpenNode* node);
    static RVOpenNode* isNodeFinishes(RVOpenNode* node);
    static RVOpenNode* isNodeTransparencies(RVOpenNode* node);
    static RVOpenNode* isNodeBumps(RVOpenNode* node);
    static RVOpenNode* isNodeBackgrounds(RVOpenNode* node);
    static RVOpenNode* isNodeForegrounds(RVOpenNode* node);
    static RVOpenNode* isNodeCameras(RVOpenNode* node);
    static RVOpenNode* isNodeDir(RVOpenNode* node);
    /// @}

    /// \name Kinds that have a class
    /// The node as that class if its element has the kind's name and the object is of the class,
    /// else null. Null for null.
    /// @{
    static Lens* isNodeLens(RVOpenNode* node);
    static AspectRatio* isNodeAspectRatio(RVOpenNode* node);
    static AspectRatioOrient* isNodeAspectRatioOrient(RVOpenNode* node);
    static Scheme* isNodeScheme(RVOpenNode* node);
    static Material* isNodeMaterial(RVOpenNode* node);
    static Colour* isNodeColour(RVOpenNode* node);
    /// A parameter whose shader type is "colour".
    static ShaderColour* isNodeShaderColour(RVOpenNode* node);
    static ShaderPlainColour* isNodeShaderPlainColour(RVOpenNode* node);
    static ShaderMap* isNodeShaderMap(RVOpenNode* node);
    static ShaderDiffuse* isNodeShaderDiffuse(RVOpenNode* node);
    static Finish* isNodeFinish(RVOpenNode* node);
    static Transparency* isNodeTransparency(RVOpenNode* node);
    static Bump* isNodeBump(RVOpenNode* node);
    static MaterialRepository* isNodeMaterialRepository(RVOpenNode* node);
    static Background* isNodeBackground(RVOpenNode* node);
    static Foreground* isNodeForeground(RVOpenNode* node);
    static Param* isNodeParam(RVOpenNode* node);
    static SnapShot* isNodeSnapShot(RVOpenNode* node);
    static SnapShots* isNodeSnapShots(RVOpenNode* node);
    static NaturalLightStudio* isNodeNaturalLightStudio(RVOpenNode* node);
    static Camera* isNodeCamera(RVOpenNode* node);
    static SnapShotSettings* isNodeSnapShotSettings(RVOpenNode* node);
    static RenderTargets* isNodeRenderTargets(RVOpenNode* node);
    static RenderTarget* isNodeRenderTarget(RVOpenNode* node);
    static Scenery* isNodeScenery(RVOpenNode* node);
    /// @}

    /// 1 if \p child may be placed under \p parent, else 0: a "dir" takes anything, a group takes a
    /// "dir" or its own kind, a material takes a finish, bump, colour or transparency.
    static int canAddNode(RVOpenNode* parent, RVOpenNode* child);
};

} // namespace rvopen

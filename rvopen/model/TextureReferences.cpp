// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/TextureReferences.h>

#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Material.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/ParamAccess.h>

#include <QVector>

namespace rvopen {

namespace {

class Walk {
public:
    Walk(BaseMaterials baseMaterials, const TextureVisitor& visit)
        : m_baseMaterials(baseMaterials)
        , m_visit(visit)
    {
    }

    void dispatch(RVOpenNode* node)
    {
        if (auto* const material = RVOpenSchema::isNodeMaterial(node)) {
            enter(material, [this, material](RVOpenNode*) { visitMaterial(material); });
        } else if (auto* const background = RVOpenSchema::isNodeBackground(node)) {
            visitBackground(background);
        } else {
            if (auto* const snapShot = RVOpenSchema::isNodeSnapShot(node))
                visitReflectedEnvironment(snapShot->GetSnapShotSettings());
            enter(node, [this](const RVOpenNode* owner) { visitChildren(owner); });
        }
    }

private:
    template <typename Setter>
    void visitReference(const QString& reference, Setter set)
    {
        if (reference.isEmpty())
            return;
        const QString replacement = m_visit(reference);
        if (replacement != reference)
            set(replacement);
    }

    /// Calls \p visit with the node that holds the children of \p node, unless its children are
    /// being looked at already: archives may refer to each other in a circle.
    template <typename Visit>
    void enter(RVOpenNode* node, Visit visit)
    {
        RVOpenNode* const owner = NodeAccess::childOwner(node);
        if (!owner || m_owners.contains(owner))
            return;
        m_owners.append(owner);
        visit(owner);
        m_owners.removeLast();
    }

    /// Children are looked at through views of the moment: lasting ones would wrap the elements of
    /// a snapshot's components and their subtrees a second time.
    void visitChildren(const RVOpenNode* owner)
    {
        for (QDomNode child = owner->GetDomNode().firstChild(); !child.isNull();
             child = child.nextSibling()) {
            const RVOpenView<> view(child);
            if (!view.get())
                break;
            dispatch(view.get());
        }
    }

    void visitReflectedEnvironment(SnapShotSettings* settings)
    {
        if (!settings)
            return;
        // The path alone is set: SetBackgroundReflected() would create a missing intensity.
        visitReference(stringParam(settings, names::parameter::reflectedEnvPath),
                       [settings](const QString& path) {
                           onParam(settings, names::parameter::reflectedEnvPath,
                                   &Param::SetValString, path);
                       });
    }

    void visitBackground(Background* background)
    {
        if (background->IsImage()) {
            visitReference(background->GetImageBackground(), [background](const QString& path) {
                background->SetImageBackground(path);
            });
        } else if (background->IsImage3D()) {
            visitReference(background->GetImage3DBackground(), [background](const QString& path) {
                background->SetImage3DBackground(path);
            });
        }
    }

    void visitMaterial(Material* material)
    {
        Material* const base =
            m_baseMaterials == BaseMaterials::Visited ? material->GetBaseMaterial() : nullptr;
        if (base)
            enter(base, [this, base](RVOpenNode*) { visitMaterial(base); });
        Colour* const colour = material->GetColour(0);
        visitShaderColour(findChild(findChild(colour, s_diffuse), s_shaderColour));
        visitShaderColour(findChild(material->GetBump(0), s_shaderColour));
    }

    void visitShaderColour(ShaderColour* colour)
    {
        ShaderMap* const map = colour ? colour->GetMap(0) : nullptr;
        if (map) {
            visitReference(map->GetTexture(),
                           [map](const QString& path) { map->SetTexture(path); });
        }
    }

    BaseMaterials m_baseMaterials;
    const TextureVisitor& m_visit;
    QVector<const RVOpenNode*> m_owners;
};

} // namespace

void visitTextureReferences(RVOpenNode* node, BaseMaterials baseMaterials,
                            const TextureVisitor& visit)
{
    if (node)
        Walk(baseMaterials, visit).dispatch(node);
}

} // namespace rvopen

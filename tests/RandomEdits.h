// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ManagerSupport.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShotSettings.h>

#include <memory>
#include <random>
#include <vector>

namespace rvopen::test {

/// A document that is edited at random, the same way for the same seed.
class RandomEdits {
public:
    explicit RandomEdits(unsigned int seed)
        : m_random(seed)
    {
        for (int i = 0; i < 4; ++i)
            addSnapShot();
        m_manager.GetCurrentSnapShot()->AddCamera(one(snapShots())->GetCamera());
    }

    /// One of the operations, on a node that may be anywhere in the document.
    void edit()
    {
        SnapShot* const snapShot = one(snapShots());
        MaterialRepository* const palette = snapShot->GetMaterialRepository();
        switch (number(22)) {
        case 0:
            if (snapShots().size() < 8)
                addSnapShot();
            break;
        case 1:
            if (snapShots().size() > 2)
                m_manager.GetSnapShots()->DeleteNode(snapShot);
            break;
        case 2:
            m_manager.GetSnapShots()->InsertNode(snapShot, number(6));
            break;
        case 3:
            m_manager.GetSnapShots()->AddNode(snapShot, true);
            break;
        case 4:
            snapShot->AddCamera(one(snapShots())->GetCamera());
            break;
        case 5:
            snapShot->AddBackground(m_manager.GetOriginalBackground());
            break;
        case 6:
            snapShot->ClearBackground();
            break;
        case 7:
            snapShot->CreateAndAddNaturalLightStudio();
            break;
        case 8:
            snapShot->GetArtificialLightStudio()->SetIntensityScale(float(number(9)));
            break;
        case 9:
            palette->AddMaterial(material());
            break;
        case 10:
            palette->AddMaterial(one(materials(snapShot)));
            break;
        case 11:
            if (Material* const removed = one(materials(snapShot)))
                palette->RemoveMaterial(removed);
            break;
        case 12:
            palette->ApplyMaterial(one(materials(one(snapShots()))), name(), nullptr);
            break;
        case 13:
            palette->AddBaseMaterial(one(materials(snapShot)), name());
            break;
        case 14:
            if (Material* const base = one(materials(snapShot)))
                base->ConsolidateBaseMaterial();
            break;
        case 15:
            if (Material* const changed = one(materials(snapShot)))
                changed->SetColour(nullptr);
            break;
        case 16:
            snapShot->GetRenderTargets()->AddNode(
                snapShot->GetRenderTargets()->CreateRenderTarget(nullptr), true);
            break;
        case 17:
            snapShot->GetRenderTargets()->Clear();
            break;
        case 18:
            m_manager.SetUnitsScale(float(number(5)));
            break;
        case 19:
            one(snapShots())->AddSnapShotSettings(snapShot->CreateSnapShotSettings(nullptr));
            break;
        case 20:
            if (RenderTarget* const target = snapShot->GetRenderTargets()->GetFirstRenderTarget())
                snapShot->GetRenderTargets()->ReplaceNode(
                    target, snapShot->GetRenderTargets()->CreateRenderTarget(target));
            break;
        default:
            snapShot->SetName(name());
        }
    }

    QString text() const
    {
        return m_manager.GetSnapShotDocumentAsString();
    }
    RVOpenManager& manager()
    {
        return m_manager;
    }
    QDomDocument document()
    {
        return m_manager.GetRootNode()->GetDomNode().ownerDocument();
    }

private:
    int number(std::size_t below)
    {
        return int(m_random() % below);
    }
    QString name()
    {
        return QString::number(number(5));
    }
    template <typename Class>
    Class* one(const std::vector<Class*>& from)
    {
        return from.empty() ? nullptr : from[std::size_t(number(from.size()))];
    }
    std::vector<SnapShot*> snapShots() const
    {
        std::vector<SnapShot*> all;
        SnapShot* snapShot = m_manager.GetSnapShots()->GetFirstSnapShot();
        for (; snapShot; snapShot = snapShot->GetNext())
            all.push_back(snapShot);
        return all;
    }
    static std::vector<Material*> materials(SnapShot* snapShot)
    {
        std::vector<Material*> all;
        Material* found = snapShot->GetMaterialRepository()->GetFirstMaterial();
        for (; found; found = found->GetNext())
            all.push_back(found);
        return all;
    }
    Material* material()
    {
        Material* const made =
            m_manager.GetCurrentSnapShot()->GetMaterialRepository()->CreateMaterial();
        made->SetLinkName(name());
        made->GetColour(1)->SetName(name());
        return made;
    }
    void addSnapShot()
    {
        SnapShot* const made = m_manager.GetSnapShots()->CreateSnapShot(nullptr);
        const std::unique_ptr<Camera> camera(made->CreateCamera());
        made->AddCamera(camera.get());
        made->GetMaterialRepository()->AddMaterial(material());
        m_manager.GetSnapShots()->AddNode(made, true);
    }

    RVOpenManager m_manager;
    std::mt19937 m_random;
};

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/MaterialRepository.h>

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/Transparency.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/FoundNodes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeCast.h>
#include <rvopen/model/Population.h>

namespace rvopen {

namespace {

void setFlag(int* flag, int value)
{
    if (flag)
        *flag = value;
}

/// A copy for \p target to take over; null where the target can take none.
template <typename Component>
Component* cloneFor(Material* target, Component* source)
{
    return NodeAccess::childOwner(target) ? cloneOf(source) : nullptr;
}

/// \p current where \p incoming equals it. Otherwise hands a copy of \p incoming to \p install,
/// which replaces the target's component of that kind, and returns it.
template <typename Component, typename Install>
Component* addComponent(Material* target, Component* incoming, Component* current,
                        int* alreadyPresent, Install install)
{
    if (incoming && current && incoming->Equal(current)) {
        setFlag(alreadyPresent, 1);
        return current;
    }
    const changes::Block block;
    Component* const copy = cloneFor(target, incoming);
    install(copy);
    return copy;
}

/// Opaque: a plain white mask that is not inverted.
void resetTransparency(Material* target)
{
    target->SetTransparency(nullptr);
    Transparency* const transparency = target->GetTransparency(1);
    if (!transparency)
        return;
    ShaderColour* const colour = transparency->GetColour();
    if (ShaderPlainColour* const plain = colour ? colour->GetPlainColour(1) : nullptr) {
        float white[] = {1.0f, 1.0f, 1.0f};
        plain->SetColour(white);
    }
    transparency->SetInvertMask(0);
}

Colour* addColour(Material* target, Colour* colour, int* alreadyPresent)
{
    return addComponent(target, colour, target->GetColour(0), alreadyPresent,
                        [target](Colour* copy) { target->SetColour(copy); });
}

Finish* addFinish(Material* target, Finish* finish, int* alreadyPresent)
{
    return addComponent(target, finish, target->GetFinish(), alreadyPresent,
                        [target, finish](Finish* copy) {
                            if (finish && finish->IsReset())
                                resetTransparency(target);
                            target->SetFinish(copy);
                        });
}

Transparency* addTransparency(Material* target, Transparency* transparency, int* alreadyPresent)
{
    return addComponent(target, transparency, target->GetTransparency(0), alreadyPresent,
                        [target](Transparency* copy) { target->SetTransparency(copy); });
}

Bump* addBump(Material* target, Bump* bump, int* alreadyPresent)
{
    return addComponent(target, bump, target->GetBump(0), alreadyPresent,
                        [target](Bump* copy) { target->SetBump(copy); });
}

} // namespace

MaterialRepository::MaterialRepository(RVOpenNode* source)
    : RVOpenNode(source)
{
    Populate();
}

MaterialRepository::~MaterialRepository() = default;

void MaterialRepository::Populate()
{
    populateChildren(this, [](const QDomNode& child) { return newBound<Material>(child); });
}

Material* MaterialRepository::CreateMaterial()
{
    return newElement<Material>(this, names::element::material);
}

void MaterialRepository::AddMaterial(Material* material)
{
    if (!material || !NodeAccess::canTake(this, material))
        return;
    if (!GetChild(0, 0))
        Populate();
    const changes::Block block;
    // The end is looked for without the element, which would get a second object otherwise.
    NodeAccess::withdraw(material);
    RVOpenNode* const last = NodeAccess::lastChild(this);
    FoundNodes::childrenChanged(this);
    NodeAccess::append(this, last, material);
}

void MaterialRepository::RemoveMaterial(Material* material)
{
    if (!material)
        return;
    const changes::Block block;
    changes::Removal removal(material->GetDomNode());
    const bool isFirst = GetChild(0, 0) == material;
    RVOpenNode* const rest = isFirst && !material->GetNext() ? material->GetNext(0) : nullptr;
    if (rest) {
        material->SetNext(nullptr);
        NodeAccess::setFirstChild(this, nullptr);
        NodeAccess::dropView(rest);
    } else {
        NodeAccess::unlink(material);
    }
    removal.carryOut();
    delete material;
}

void MaterialRepository::Clear()
{
    const changes::Block block;
    while (Material* const material = GetFirstMaterial())
        RemoveMaterial(material);
}

Material* MaterialRepository::GetFirstMaterial()
{
    return nodeCast<Material>(GetChild(0, 0));
}

unsigned int MaterialRepository::GetNumMaterials()
{
    unsigned int count = 0;
    for (Material* material = GetFirstMaterial(); material; material = material->GetNext())
        ++count;
    return count;
}

Material* MaterialRepository::GetMaterial(QString linkName)
{
    if (auto* const noted = nodeCast<Material>(FoundNodes::find(this, linkName)))
        return noted;
    const bool isNoting =
        FoundNodes::begin(this, FoundNodes::Below::Children, names::attribute::linkName());
    Material* found = nullptr;
    for (Material* material = GetFirstMaterial(); material && (!found || isNoting);
         material = material->GetNext()) {
        const QString itsName = NodeAccess::attribute(material, names::attribute::linkName());
        if (isNoting)
            FoundNodes::note(this, itsName, material);
        if (!found && itsName.size() == linkName.size() && itsName == linkName)
            found = material;
    }
    return found;
}

Material* MaterialRepository::AddBaseMaterial(Material* material, QString linkName)
{
    Material* const target = GetMaterial(linkName);
    if (!target)
        return nullptr;
    Material* const copy = cloneFor(target, material);
    target->SetBaseMaterial(copy);
    return copy;
}

Colour* MaterialRepository::AddColour(Colour* colour, QString linkName, int* alreadyPresent)
{
    Material* const target = GetMaterial(linkName);
    return target ? addColour(target, colour, alreadyPresent) : nullptr;
}

Finish* MaterialRepository::AddFinish(Finish* finish, QString linkName, int* alreadyPresent)
{
    setFlag(alreadyPresent, 0);
    Material* const target = GetMaterial(linkName);
    return target ? addFinish(target, finish, alreadyPresent) : nullptr;
}

Transparency* MaterialRepository::AddTransparency(Transparency* transparency, QString linkName,
                                                  int* alreadyPresent)
{
    setFlag(alreadyPresent, 0);
    Material* const target = GetMaterial(linkName);
    return target ? addTransparency(target, transparency, alreadyPresent) : nullptr;
}

Bump* MaterialRepository::AddBump(Bump* bump, QString linkName, int* alreadyPresent)
{
    setFlag(alreadyPresent, 0);
    Material* const target = GetMaterial(linkName);
    return target ? addBump(target, bump, alreadyPresent) : nullptr;
}

Material* MaterialRepository::ApplyMaterial(Material* material, QString linkName,
                                            int* alreadyPresent)
{
    setFlag(alreadyPresent, 0);
    Material* const target = GetMaterial(linkName);
    if (!target || !material)
        return nullptr;
    const changes::Block block;
    // Two objects may stand for one element.
    const bool itself = material->GetDomNode() == target->GetDomNode();
    if (itself || target->Equal(material, false)) {
        setFlag(alreadyPresent, 1);
        return target;
    }

    target->SetColour(nullptr);
    target->SetFinish(nullptr);
    target->SetTransparency(nullptr);
    target->SetBump(nullptr);
    if (Colour* const colour = material->GetColour(0))
        addColour(target, colour, nullptr);
    if (Finish* const finish = material->GetFinish())
        addFinish(target, finish, nullptr);
    if (Transparency* const transparency = material->GetTransparency(0))
        addTransparency(target, transparency, nullptr);
    if (Bump* const bump = material->GetBump(0))
        addBump(target, bump, nullptr);
    target->SetRefName(material->GetRefName());
    target->SetSubCat(material->GetSubCat());
    return target;
}

} // namespace rvopen

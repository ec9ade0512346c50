// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/SnapShot.h>

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/XMLUtils.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeCast.h>
#include <rvopen/model/ValueText.h>
#include <rvopen/xml/DomWriter.h>

#include <QDir>
#include <QDomDocument>
#include <QDomElement>

#include <type_traits>

namespace rvopen {

namespace {

template <typename Component>
Component* createWithParams(const RVOpenNode* owner, names::Name name)
{
    auto* const component = newElement<Component>(owner, name);
    if (component)
        component->PopulateParams();
    return component;
}

template <typename Component>
Component* cloneOrCreate(const RVOpenNode* owner, names::Name name, Component* source)
{
    return source ? cloneOf(source) : createWithParams<Component>(owner, name);
}

/// What a component needs after it was bound to an element of a document.
template <typename Component>
void readChildren(Component* component)
{
    if constexpr (std::is_same_v<Component, MaterialRepository> ||
                  std::is_same_v<Component, RenderTargets>)
        component->Populate();
    else if constexpr (!std::is_same_v<Component, Scheme>)
        component->GetParamHelper()->Populate();
}

} // namespace

/// The operations on components, each once for all of them.
struct SnapShot::Components {
    /// Deletes the component held and removes its element and no other.
    template <typename Component>
    static void remove(SnapShot* snapShot, Component*& held)
    {
        if (!held)
            return;
        keepWalkGoing(snapShot, held->GetDomNode());
        destroy(snapShot, held);
    }

    /// Only the component's own element is taken out: what a host moved out of the component by
    /// other objects of the same elements stays where it was put.
    template <typename Component>
    static void destroy(const SnapShot* snapShot, Component*& held)
    {
        if (!held)
            return;
        const QDomNode element = held->GetDomNode();
        NodeAccess::dropView(held);
        held = nullptr;
        // A snapshot that was taken out of its document by hand may be bound to nothing.
        QDomNode own = snapShot->GetDomNode();
        if (!NodeAccess::isDroppingView() && !own.isNull() && element.parentNode() == own)
            own.removeChild(element);
    }

    /// Removes the component held and stores \p fresh, its element as the last child.
    template <typename Component>
    static Component* replace(SnapShot* snapShot, Component*& held, Component* fresh)
    {
        remove(snapShot, held);
        held = fresh;
        if (fresh) {
            snapShot->GetDomNode().appendChild(fresh->GetDomNode());
            NodeAccess::holdDocument(fresh);
        }
        return fresh;
    }

    /// Stores a deep copy of \p source, for null nothing. Null, with nothing changed, also when
    /// memory is exhausted.
    template <typename Component>
    static Component* addCopy(SnapShot* snapShot, Component*& held, Component* source)
    {
        return addCopy(snapShot, held, source, [](Component&) {});
    }

    template <typename Component, typename Prepare>
    static Component* addCopy(SnapShot* snapShot, Component*& held, Component* source,
                              Prepare prepare)
    {
        // The copy comes first: the source may be the component held.
        auto* const copy = cloneOf(source);
        if (copy)
            prepare(*copy);
        return source && !copy ? nullptr : replace(snapShot, held, copy);
    }

    template <typename Component>
    static Component* getOrCreate(SnapShot* snapShot, Component*& held, names::Name name)
    {
        return held ? held : replace(snapShot, held, newElement<Component>(snapShot, name));
    }

    /// Makes the object of a component's element, unless the one held is that already.
    template <typename Component, Component* SnapShot::*member>
    static void bind(SnapShot* snapShot, const QDomNode& node)
    {
        Component*& held = snapShot->*member;
        if (!held || held->GetDomNode() != node) {
            Component* const made = newBound<Component>(node);
            if (!made)
                return;
            NodeAccess::dropView(held);
            held = made;
        }
        readChildren(held);
    }

    /// A walk over the snapshot's children may have wrapped the component's element a second time;
    /// once the element is out of the document that object could not find its next sibling.
    static void keepWalkGoing(SnapShot* snapShot, const QDomNode& element)
    {
        RVOpenNode* view = snapShot->GetChild(0, 0);
        while (view && view->GetDomNode() != element)
            view = view->GetNext(0);
        if (view)
            view->GetNext(1);
    }

    struct Binder {
        names::Name name;
        void (*bind)(SnapShot* snapShot, const QDomNode& node);
    };
    static const Binder s_binders[10];
};

const SnapShot::Components::Binder SnapShot::Components::s_binders[10] = {
    {names::element::camera, bind<Camera, &SnapShot::m_camera>},
    {names::element::snapShotSettings, bind<SnapShotSettings, &SnapShot::m_snapShotSettings>},
    {names::element::naturalLightStudio, bind<NaturalLightStudio, &SnapShot::m_naturalLightStudio>},
    {names::element::artificialLightStudio,
     bind<ArtificialLightStudio, &SnapShot::m_artificialLightStudio>},
    {names::element::scheme, bind<Scheme, &SnapShot::m_scheme>},
    {names::element::background, bind<Background, &SnapShot::m_background>},
    {names::element::foreground, bind<Foreground, &SnapShot::m_foreground>},
    {names::element::materialRepository, bind<MaterialRepository, &SnapShot::m_materialRepository>},
    {names::element::renderTargets, bind<RenderTargets, &SnapShot::m_renderTargets>},
    {names::element::scenery, bind<Scenery, &SnapShot::m_scenery>},
};

SnapShot::SnapShot(QDomNode node)
{
    SetDomNode(node);
    Populate();
    m_snapShotPath = GetDirectoryHandler()->GetSnapshotsFolder();
}

SnapShot::SnapShot(RVOpenNode* source)
    : RVOpenNode(source)
{
    Populate();
    m_snapShotPath = GetDirectoryHandler()->GetSnapshotsFolder();
}

SnapShot::SnapShot(const SnapShot& other) = default;

SnapShot& SnapShot::operator=(const SnapShot& other) = default;

SnapShot::~SnapShot()
{
    Components::destroy(this, m_scheme);
    Components::destroy(this, m_background);
    Components::destroy(this, m_foreground);
    Components::destroy(this, m_camera);
    Components::destroy(this, m_naturalLightStudio);
    Components::destroy(this, m_artificialLightStudio);
    Components::destroy(this, m_snapShotSettings);
    Components::destroy(this, m_renderTargets);
    Components::destroy(this, m_scenery);
    Components::destroy(this, m_materialRepository);
}

SnapShot* SnapShot::GetNext()
{
    return nodeCast<SnapShot>(GetNext(1));
}

void SnapShot::Populate()
{
    constexpr std::size_t count = std::extent_v<decltype(Components::s_binders)>;
    QDomNode last[count];
    for (QDomNode child = GetDomNode().firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (!child.isElement())
            continue;
        const QString name = child.nodeName();
        for (std::size_t i = 0; i < count; ++i) {
            if (name == Components::s_binders[i].name()) {
                last[i] = child;
                break;
            }
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!last[i].isNull())
            Components::s_binders[i].bind(this, last[i]);
    }
}

Scheme* SnapShot::GetScheme() const
{
    return m_scheme;
}

Background* SnapShot::GetBackground() const
{
    return m_background;
}

Foreground* SnapShot::GetForeground() const
{
    return m_foreground;
}

Camera* SnapShot::GetCamera() const
{
    return m_camera;
}

SnapShotSettings* SnapShot::GetSnapShotSettings() const
{
    return m_snapShotSettings;
}

Scenery* SnapShot::GetScenery() const
{
    return m_scenery;
}

NaturalLightStudio* SnapShot::GetNaturalLightStudio() const
{
    return m_naturalLightStudio;
}

ArtificialLightStudio* SnapShot::GetArtificialLightStudio()
{
    if (m_artificialLightStudio)
        return m_artificialLightStudio;
    auto* const studio =
        createWithParams<ArtificialLightStudio>(this, names::element::artificialLightStudio);
    if (!studio)
        return nullptr;
    studio->SetEnabled(1);
    studio->SetIntensityScale(1.0f);
    return Components::replace(this, m_artificialLightStudio, studio);
}

RenderTargets* SnapShot::GetRenderTargets()
{
    return Components::getOrCreate(this, m_renderTargets, names::element::renderTargets);
}

MaterialRepository* SnapShot::GetMaterialRepository()
{
    return Components::getOrCreate(this, m_materialRepository, names::element::materialRepository);
}

unsigned int SnapShot::IsSelected(int* out)
{
    return m_snapShotSettings ? m_snapShotSettings->IsSelected(out) : StatusMissing;
}

unsigned int SnapShot::SetSelected(int value)
{
    return m_snapShotSettings ? m_snapShotSettings->SetSelected(value) : StatusMissing;
}

Camera* SnapShot::CreateCamera()
{
    return createWithParams<Camera>(this, names::element::camera);
}

SnapShotSettings* SnapShot::CreateSnapShotSettings(SnapShotSettings* source)
{
    return cloneOrCreate(this, names::element::snapShotSettings, source);
}

Scenery* SnapShot::CreateScenery(Scenery* source)
{
    return cloneOrCreate(this, names::element::scenery, source);
}

Scheme* SnapShot::AddScheme(Scheme* scheme)
{
    if (!Components::addCopy(this, m_scheme, scheme))
        return nullptr;
    ClearBackground();
    ClearForeground();
    ClearNaturalLightStudio();
    return m_scheme;
}

Background* SnapShot::AddBackground(Background* background)
{
    return Components::addCopy(this, m_background, background,
                               [](Background& copy) { copy.PopulateParams(); });
}

Foreground* SnapShot::AddForeground(Foreground* foreground)
{
    return Components::addCopy(this, m_foreground, foreground);
}

Camera* SnapShot::AddCamera(Camera* camera)
{
    return Components::addCopy(this, m_camera, camera);
}

MaterialRepository* SnapShot::AddMaterialRepository(MaterialRepository* repository)
{
    return Components::addCopy(this, m_materialRepository, repository);
}

NaturalLightStudio* SnapShot::AddNaturalLightStudio(NaturalLightStudio* studio)
{
    return Components::addCopy(this, m_naturalLightStudio, studio);
}

void SnapShot::AddScenery(Scenery* scenery)
{
    Components::addCopy(this, m_scenery, scenery);
}

void SnapShot::AddSnapShotSettings(SnapShotSettings* settings)
{
    if (settings != m_snapShotSettings)
        Components::replace(this, m_snapShotSettings, settings);
}

NaturalLightStudio* SnapShot::CreateAndAddNaturalLightStudio()
{
    auto* const studio =
        createWithParams<NaturalLightStudio>(this, names::element::naturalLightStudio);
    return studio ? Components::replace(this, m_naturalLightStudio, studio) : nullptr;
}

void SnapShot::ClearScheme()
{
    Components::remove(this, m_scheme);
}

void SnapShot::ClearBackground()
{
    Components::remove(this, m_background);
}

void SnapShot::ClearNaturalLightStudio()
{
    Components::remove(this, m_naturalLightStudio);
}

void SnapShot::ClearScenery()
{
    Components::remove(this, m_scenery);
}

void SnapShot::SetupSnapShotForSerialise()
{
    Material* material = m_materialRepository ? m_materialRepository->GetFirstMaterial() : nullptr;
    for (; material; material = material->GetNext())
        material->SetBaseMaterial(nullptr);
}

void SnapShot::SetSnapShotPath(QString path)
{
    if (!path.isEmpty())
        m_snapShotPath = path;
}

QString SnapShot::GetThumbFilename() const
{
    return imageFilename(QLatin1String("icon_") + fileSafeName() + QLatin1String(".jpg"));
}

QString SnapShot::GetRealTimeFilename() const
{
    return imageFilename(QLatin1String("real_time_") + fileSafeName() + QLatin1String(".jpg"));
}

QString SnapShot::GetPhotoFilename()
{
    RenderTargets* const targets = m_snapShotPath.isEmpty() ? nullptr : GetRenderTargets();
    RenderTarget* const target = targets ? targets->GetFirstRenderTarget() : nullptr;
    if (!target)
        return QString();
    QString fileName = target->GetShortFileName();
    return imageFilename(XMLUtils::ReplaceIllegalCharacters(fileName));
}

QString SnapShot::CreateSnapShotDocumentAsString() const
{
    QDomDocument document;
    QDomElement root = document.createElement(names::element::snapRoot());
    root.setAttribute(names::attribute::name(), names::value::snapRootName());
    root.setAttribute(names::attribute::unitsScale(), valueText::fromFloat(1.0f));
    document.appendChild(root);
    QDomElement collection = document.createElement(names::element::snapShots());
    collection.setAttribute(names::attribute::name(), names::value::modelSnapShots());
    root.appendChild(collection);
    collection.appendChild(document.importNode(GetDomNode(), true));
    return documentText(document, SnapShotFileIndent);
}

void SnapShot::ClearForeground()
{
    Components::remove(this, m_foreground);
}

void SnapShot::ClearCamera()
{
    Components::remove(this, m_camera);
}

void SnapShot::ClearSnapShotSettings()
{
    Components::remove(this, m_snapShotSettings);
}

void SnapShot::ClearMaterialRepository()
{
    Components::remove(this, m_materialRepository);
}

void SnapShot::ClearArtificialLightStudio()
{
    Components::remove(this, m_artificialLightStudio);
}

void SnapShot::ClearRenderTargets()
{
    Components::remove(this, m_renderTargets);
}

QString SnapShot::fileSafeName() const
{
    QString name = GetName();
    return XMLUtils::ReplaceIllegalCharacters(name);
}

QString SnapShot::imageFilename(const QString& fileName) const
{
    return m_snapShotPath.isEmpty() ? QString() : m_snapShotPath + QDir::separator() + fileName;
}

} // namespace rvopen

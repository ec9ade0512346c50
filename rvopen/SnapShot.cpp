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
#include <rvopen/model/Changes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeCast.h>
#include <rvopen/model/SnapShotComponents.h>
#include <rvopen/model/ValueText.h>
#include <rvopen/xml/DomWriter.h>

#include <QDir>
#include <QDomDocument>
#include <QDomElement>

/// Definitions of the operations that are alike for several components, a row each.
#define RVOPEN_COMPONENT(Component, member)                                                        \
    Component* SnapShot::Get##Component() const                                                    \
    {                                                                                              \
        return member.object;                                                                      \
    }
#define RVOPEN_ADD(Component, member)                                                              \
    Component* SnapShot::Add##Component(Component* source)                                         \
    {                                                                                              \
        return Components::addCopy(this, member, source);                                          \
    }
#define RVOPEN_CLEAR(Operation, member)                                                            \
    void SnapShot::Operation()                                                                     \
    {                                                                                              \
        Components::remove(this, member);                                                          \
    }

namespace rvopen {

const SnapShot::Components::Row SnapShot::Components::s_rows[10] = {
    row<Camera, &SnapShot::m_camera>(names::element::camera),
    row<SnapShotSettings, &SnapShot::m_snapShotSettings>(names::element::snapShotSettings),
    row<NaturalLightStudio, &SnapShot::m_naturalLightStudio>(names::element::naturalLightStudio),
    row<ArtificialLightStudio, &SnapShot::m_artificialLightStudio>(
        names::element::artificialLightStudio),
    row<Scheme, &SnapShot::m_scheme>(names::element::scheme),
    row<Background, &SnapShot::m_background>(names::element::background),
    row<Foreground, &SnapShot::m_foreground>(names::element::foreground),
    row<MaterialRepository, &SnapShot::m_materialRepository>(names::element::materialRepository),
    row<RenderTargets, &SnapShot::m_renderTargets>(names::element::renderTargets),
    row<Scenery, &SnapShot::m_scenery>(names::element::scenery),
};

void NodeAccess::forgetComponent(RVOpenNode* snapShot, RVOpenNode* component)
{
    if (auto* const holder = nodeCast<SnapShot>(snapShot))
        holder->forget(component);
}

std::vector<RVOpenNode*> NodeAccess::components(RVOpenNode* node)
{
    auto* const snapShot = nodeCast<SnapShot>(node);
    return snapShot ? snapShot->components() : std::vector<RVOpenNode*>();
}

bool NodeAccess::holdAgain(RVOpenNode* snapShot, RVOpenNode* component)
{
    auto* const holder = nodeCast<SnapShot>(snapShot);
    if (!holder)
        return false;
    for (const SnapShot::Components::Row& row : SnapShot::Components::s_rows) {
        if (*row.type == typeid(*component))
            return row.holdAgain(holder, row.name, component);
    }
    return false;
}

std::optional<RVOpenNode*> NodeAccess::findComponent(RVOpenNode* node, const std::type_info& type)
{
    auto* const snapShot = nodeCast<SnapShot>(node);
    if (!snapShot)
        return std::nullopt;
    for (const SnapShot::Components::Row& row : SnapShot::Components::s_rows) {
        if (*row.type == type)
            return row.find(snapShot, row.name);
    }
    return std::nullopt;
}

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

SnapShot& SnapShot::operator=(const SnapShot& other)
{
    if (this == &other)
        return *this;
    for (const Components::Row& row : Components::s_rows)
        row.retire(this);
    RVOpenNode::operator=(other);
    m_scheme = other.m_scheme;
    m_background = other.m_background;
    m_foreground = other.m_foreground;
    m_naturalLightStudio = other.m_naturalLightStudio;
    m_artificialLightStudio = other.m_artificialLightStudio;
    m_camera = other.m_camera;
    m_snapShotSettings = other.m_snapShotSettings;
    m_materialRepository = other.m_materialRepository;
    m_renderTargets = other.m_renderTargets;
    m_scenery = other.m_scenery;
    m_snapShotPath = other.m_snapShotPath;
    return *this;
}

SnapShot::~SnapShot()
{
    // Whoever is told that the components go must not get at a snapshot that is half gone.
    NodeAccess::endReferences(this);
    const changes::Block block;
    Components::end(this, m_scheme);
    Components::end(this, m_background);
    Components::end(this, m_foreground);
    Components::end(this, m_camera);
    Components::end(this, m_naturalLightStudio);
    Components::end(this, m_artificialLightStudio);
    Components::end(this, m_snapShotSettings);
    Components::end(this, m_renderTargets);
    Components::end(this, m_scenery);
    Components::end(this, m_materialRepository);
}

SnapShot* SnapShot::GetNext()
{
    return nodeCast<SnapShot>(GetNext(1));
}

void SnapShot::Populate()
{
    constexpr std::size_t count = std::extent_v<decltype(Components::s_rows)>;
    QDomNode last[count];
    for (QDomNode child = GetDomNode().firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (!child.isElement())
            continue;
        const QString name = child.nodeName();
        for (std::size_t i = 0; i < count; ++i) {
            if (name == Components::s_rows[i].name()) {
                last[i] = child;
                break;
            }
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!last[i].isNull())
            Components::s_rows[i].bind(this, last[i]);
    }
}

RVOPEN_COMPONENT(Scheme, m_scheme)
RVOPEN_COMPONENT(Background, m_background)
RVOPEN_COMPONENT(Foreground, m_foreground)
RVOPEN_COMPONENT(Camera, m_camera)
RVOPEN_COMPONENT(SnapShotSettings, m_snapShotSettings)
RVOPEN_COMPONENT(Scenery, m_scenery)
RVOPEN_COMPONENT(NaturalLightStudio, m_naturalLightStudio)

ArtificialLightStudio* SnapShot::GetArtificialLightStudio()
{
    constexpr names::Name name = names::element::artificialLightStudio;
    if (auto* const found =
            Components::find<ArtificialLightStudio, &SnapShot::m_artificialLightStudio>(this, name))
        return found;
    const changes::Block block;
    auto* const studio = createWithParams<ArtificialLightStudio>(this, name);
    if (!studio)
        return nullptr;
    studio->SetEnabled(1);
    studio->SetIntensityScale(1.0f);
    return Components::replace(this, m_artificialLightStudio, studio);
}

RenderTargets* SnapShot::GetRenderTargets()
{
    return Components::getOrCreate<RenderTargets, &SnapShot::m_renderTargets>(
        this, names::element::renderTargets);
}

MaterialRepository* SnapShot::GetMaterialRepository()
{
    return Components::getOrCreate<MaterialRepository, &SnapShot::m_materialRepository>(
        this, names::element::materialRepository);
}

unsigned int SnapShot::IsSelected(int* out)
{
    return m_snapShotSettings.object ? m_snapShotSettings.object->IsSelected(out) : StatusMissing;
}

unsigned int SnapShot::SetSelected(int value)
{
    return m_snapShotSettings.object ? m_snapShotSettings.object->SetSelected(value)
                                     : StatusMissing;
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
    const changes::Block block;
    if (!Components::addCopy(this, m_scheme, scheme))
        return nullptr;
    ClearBackground();
    ClearForeground();
    ClearNaturalLightStudio();
    return m_scheme.object;
}

Background* SnapShot::AddBackground(Background* background)
{
    return Components::addCopy(this, m_background, background,
                               [](Background& copy) { copy.PopulateParams(); });
}

RVOPEN_ADD(Foreground, m_foreground)
RVOPEN_ADD(Camera, m_camera)
RVOPEN_ADD(MaterialRepository, m_materialRepository)
RVOPEN_ADD(NaturalLightStudio, m_naturalLightStudio)

void SnapShot::AddScenery(Scenery* scenery)
{
    Components::addCopy(this, m_scenery, scenery);
}

void SnapShot::AddSnapShotSettings(SnapShotSettings* settings)
{
    if (settings == m_snapShotSettings.object || (settings && !NodeAccess::canTake(this, settings)))
        return;
    const changes::Block block;
    if (settings)
        NodeAccess::withdraw(settings);
    Components::replace(this, m_snapShotSettings, settings);
}

NaturalLightStudio* SnapShot::CreateAndAddNaturalLightStudio()
{
    const changes::Block block;
    auto* const studio =
        createWithParams<NaturalLightStudio>(this, names::element::naturalLightStudio);
    return studio ? Components::replace(this, m_naturalLightStudio, studio) : nullptr;
}

RVOPEN_CLEAR(ClearScheme, m_scheme)
RVOPEN_CLEAR(ClearBackground, m_background)
RVOPEN_CLEAR(ClearNaturalLightStudio, m_naturalLightStudio)
RVOPEN_CLEAR(ClearScenery, m_scenery)

void SnapShot::SetupSnapShotForSerialise()
{
    const changes::Block block;
    Material* material =
        m_materialRepository.object ? m_materialRepository.object->GetFirstMaterial() : nullptr;
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

RVOPEN_CLEAR(ClearForeground, m_foreground)
RVOPEN_CLEAR(ClearCamera, m_camera)
RVOPEN_CLEAR(ClearSnapShotSettings, m_snapShotSettings)
RVOPEN_CLEAR(ClearMaterialRepository, m_materialRepository)
RVOPEN_CLEAR(ClearArtificialLightStudio, m_artificialLightStudio)
RVOPEN_CLEAR(ClearRenderTargets, m_renderTargets)

void SnapShot::forget(const RVOpenNode* component)
{
    for (const Components::Row& row : Components::s_rows) {
        if (row.forget(this, component))
            return;
    }
}

std::vector<RVOpenNode*> SnapShot::components() const
{
    std::vector<RVOpenNode*> all;
    for (const Components::Row& row : Components::s_rows) {
        if (RVOpenNode* const component = row.owned(this))
            all.push_back(component);
    }
    return all;
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

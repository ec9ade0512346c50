// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/manager/SnapShotDocument.h>

#include <rvopen/Background.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/Scenery.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Components.h>
#include <rvopen/model/NodeCast.h>
#include <rvopen/model/TakingBack.h>
#include <rvopen/model/ValueText.h>
#include <rvopen/xml/DomWriter.h>

#include <algorithm>
#include <iterator>

namespace rvopen {

SnapShotDocument::SnapShotDocument(Retired& retired)
    : m_retired(retired)
{
}

SnapShotDocument::~SnapShotDocument()
{
    clear();
}

void SnapShotDocument::initialise(unsigned int major, unsigned int minor)
{
    changes::Reset reset(document());
    m_retired.keep(std::move(m_rootNode));
    for (Collection* const collection :
         {&m_main, &m_cameras, &m_backgrounds, &m_materialPalettes, &m_temporary})
        m_retired.keep(std::move(*collection));
    m_retired.keep(std::move(m_current));
    for (View<RVOpenNode>& replaced : m_replaced)
        m_retired.keep(std::move(replaced));
    m_replaced.clear();
    m_retired.keep(std::move(m_document));

    m_document = std::make_unique<QDomDocument>();
    m_root = m_document->createElement(names::element::snapRoot());
    m_document->appendChild(m_document->createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"utf-8\"")));
    m_root.setAttribute(names::attribute::type(), names::value::snapStudio());
    m_root.setAttribute(names::attribute::version(), QStringLiteral("%1.%2").arg(major).arg(minor));
    m_root.setAttribute(names::attribute::name(), names::value::snapRootName());
    setUnitsScale(1.0f);
    m_document->appendChild(m_root);
    mainOnDemand();
    m_current.reset(createSnapShot());
    if (m_current)
        addDefaultComponents();
    reset.replaceBy(document());
}

void SnapShotDocument::clear()
{
    if (!m_document)
        return;
    const changes::Reset reset(document());
    m_rootNode.reset();
    for (Collection* const collection :
         {&m_main, &m_cameras, &m_backgrounds, &m_materialPalettes, &m_temporary})
        collection->reset();
    m_reset.reset();
    m_current.reset();
    m_originalBackground.reset();
    m_replaced.clear();
    // A handle to an element would keep all that is in it.
    m_root = QDomElement();
    m_document.reset();
}

void SnapShotDocument::load(std::unique_ptr<QDomDocument> document)
{
    changes::Reset reset(this->document());
    clear();
    m_document = std::move(document);
    reset.replaceBy(*m_document);
    m_root = m_document->documentElement();
    for (QDomElement child = m_root.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString tag = child.nodeName();
        if (tag == names::element::snapShots()) {
            adoptCollection(child);
        } else if (tag == names::element::snapShot()) {
            replaceView(m_current, newBound<SnapShot>(child));
        } else if (tag == names::element::background()) {
            adoptBackground(child);
        }
    }
}

bool SnapShotDocument::takeBack(RVOpenChange change)
{
    if (!m_document || change.document != *m_document)
        return false;
    const changes::Block block;
    TakingBack back(objects());
    if (change.kind == RVOpenChange::ChildInserted && change.node.parentNode() == change.parent)
        giveUp(change.node);
    if (!back.takeBack(change))
        return false;
    if (change.kind == RVOpenChange::ChildRemoved && change.parent == m_root)
        adopt(change.node.toElement());
    return true;
}

bool SnapShotDocument::exists() const
{
    return m_document != nullptr;
}

QString SnapShotDocument::text() const
{
    if (!m_document || m_document->documentElement().isNull())
        return QString();
    return documentText(*m_document, SnapShotFileIndent);
}

void SnapShotDocument::setUnitsScale(float scale)
{
    changes::setAttribute(m_root, names::attribute::unitsScale(), valueText::fromFloat(scale));
}

RVOpenNode* SnapShotDocument::rootNode()
{
    const QDomElement root = m_document ? m_document->documentElement() : QDomElement();
    if (root.isNull())
        return nullptr;
    if (!m_rootNode || m_rootNode->GetDomNode() != root)
        replaceView(m_rootNode, NodeAccess::make(root));
    return m_rootNode.get();
}

SnapShot* SnapShotDocument::current() const
{
    return m_current.get();
}

SnapShot* SnapShotDocument::reset() const
{
    return m_reset.get();
}

SnapShot* SnapShotDocument::setReset(SnapShot* snapShot)
{
    SnapShot* const previous = m_reset.release();
    m_reset.reset(snapShot);
    return previous;
}

bool SnapShotDocument::owns(const SnapShot* snapShot) const
{
    const auto holds = [snapShot](const RVOpenNode* object) {
        return object && deletesAlong(object, snapShot);
    };
    return snapShot == m_reset.get() || holds(m_current.get()) || holds(m_rootNode.get()) ||
           holds(m_main.get()) || holds(m_cameras.get()) || holds(m_backgrounds.get()) ||
           holds(m_materialPalettes.get()) || holds(m_temporary.get()) ||
           std::any_of(m_replaced.begin(), m_replaced.end(),
                       [holds](const auto& replaced) { return holds(replaced.get()); });
}

SnapShot* SnapShotDocument::createSnapShot()
{
    if (!m_document)
        return nullptr;
    QDomElement element = m_document->createElement(names::element::snapShot());
    element.setAttribute(names::attribute::name(), names::value::currentSnapShot());
    auto* const snapShot = newBound<SnapShot>(element);
    if (snapShot)
        changes::append(m_root, element);
    return snapShot;
}

SnapShots* SnapShotDocument::main() const
{
    return m_main.get();
}

SnapShots* SnapShotDocument::mainOnDemand()
{
    return onDemand(m_main, names::value::modelSnapShots);
}

SnapShots* SnapShotDocument::backgrounds()
{
    return onDemand(m_backgrounds, names::value::modelBackgrounds);
}

SnapShots* SnapShotDocument::cameras()
{
    return onDemand(m_cameras, names::value::modelCameras);
}

SnapShots* SnapShotDocument::materialPalettes()
{
    return onDemand(m_materialPalettes, names::value::modelMaterialPalettes);
}

SnapShots* SnapShotDocument::temporary()
{
    return onDemand(m_temporary, names::value::tempSnapShots);
}

SnapShots* SnapShotDocument::ofType(SnapShots::SnapShotType type) const
{
    if (type == SnapShots::TypeMaterialPalettes)
        return m_materialPalettes.get();
    if (type == SnapShots::TypeBackgrounds)
        return m_backgrounds.get();
    return type == SnapShots::TypeCameras ? m_cameras.get() : m_main.get();
}

Background* SnapShotDocument::originalBackground()
{
    if (m_originalBackground || !m_document)
        return m_originalBackground.get();
    const changes::Block block;
    auto* const background = newElement<Background>(*m_document, names::element::background);
    if (!background)
        return nullptr;
    m_originalBackground.reset(background);
    background->SetSubCat(names::subCategory::horizon());
    background->PopulateParams();
    changes::append(m_root, background->GetDomNode());
    return background;
}

QDomDocument SnapShotDocument::document() const
{
    return m_document ? *m_document : QDomDocument();
}

void SnapShotDocument::addDefaultComponents()
{
    if (SnapShotSettings* const settings = m_current->CreateSnapShotSettings(nullptr)) {
        settings->SetAmbientLightsIntensityScale(1.0f);
        settings->SetBackgroundReflected(QLatin1String(""), 1.0f);
        settings->SetReflectBackPlate(0);
        settings->SetTwist(0.0f);
        m_current->AddSnapShotSettings(settings);
    }
    const std::unique_ptr<Scenery> scenery(m_current->CreateScenery(nullptr));
    if (!scenery)
        return;
    scenery->EnableDropShadow(1);
    scenery->SetDropShadowQuality(10);
    scenery->SetDropShadowContrast(0.8f);
    scenery->EnableDropSunLight(1);
    scenery->SetDropSunLightBrightness(0.5f);
    scenery->EnableDropReflection(0);
    scenery->SetDropReflectionBrightness(0.5f);
    scenery->SetDropReflectionBlur(0.0f);
    scenery->SetBaseSize(3.0f);
    scenery->SetDropShadowCatchSpots(1);
    m_current->AddScenery(scenery.get());
}

/// What came back under the root gets the object that it had, unless another element has it now.
void SnapShotDocument::adopt(const QDomElement& element)
{
    const QString tag = element.nodeName();
    if (tag == names::element::snapShot() && !m_current) {
        m_current.reset(givenUp<SnapShot>(element));
        if (!m_current)
            m_current.reset(newBound<SnapShot>(element));
    } else if (tag == names::element::background() && !m_originalBackground) {
        m_originalBackground.reset(givenUp<Background>(element));
        if (!m_originalBackground)
            adoptBackground(element);
    } else if (tag == names::element::snapShots()) {
        Collection* const held = collectionOf(element);
        if (!held || *held)
            return;
        held->reset(givenUp<SnapShots>(element));
        if (!*held)
            held->reset(newBound<SnapShots>(element));
        if (*held)
            (*held)->Populate();
    }
}

/// The object that was given up with the element; null without one that can stand for it again.
template <typename Class>
Class* SnapShotDocument::givenUp(const QDomElement& element)
{
    for (auto view = m_replaced.rbegin(); view != m_replaced.rend(); ++view) {
        auto* const object = nodeCast<Class>(view->get());
        if (!object || object->GetDomNode() != element || !NodeAccess::followsDocument(object))
            continue;
        view->release();
        m_replaced.erase(std::next(view).base());
        return object;
    }
    return nullptr;
}

void SnapShotDocument::adoptBackground(const QDomElement& element)
{
    replaceView(m_originalBackground, newBound<Background>(element));
    if (m_originalBackground)
        m_originalBackground->GetParamHelper()->Populate();
}

void SnapShotDocument::adoptCollection(const QDomElement& element)
{
    Collection* const held = collectionOf(element);
    // A load does not read what is temporary.
    if (!held || held == &m_temporary)
        return;
    auto* const collection = newBound<SnapShots>(element);
    if (!collection)
        return;
    replaceView(*held, collection);
    if (held == &m_main)
        collection->SetName(names::value::modelSnapShots());
    collection->Populate();
}

/// Null for one of another name.
SnapShotDocument::Collection* SnapShotDocument::collectionOf(const QDomElement& element)
{
    const QString name = element.attribute(names::attribute::name());
    if (isMainCollection(element))
        return &m_main;
    if (name == names::value::modelCameras())
        return &m_cameras;
    if (name == names::value::modelMaterialPalettes())
        return &m_materialPalettes;
    if (name == names::value::modelBackgrounds())
        return &m_backgrounds;
    return name == names::value::tempSnapShots() ? &m_temporary : nullptr;
}

/// All that the manager has, null where it has none.
std::vector<RVOpenNode*> SnapShotDocument::objects() const
{
    std::vector<RVOpenNode*> all{
        m_rootNode.get(), m_current.get(),     m_reset.get(),   m_originalBackground.get(),
        m_main.get(),     m_backgrounds.get(), m_cameras.get(), m_materialPalettes.get(),
        m_temporary.get()};
    for (const View<RVOpenNode>& replaced : m_replaced)
        all.push_back(replaced.get());
    return all;
}

/// The objects of an element that goes are given to nobody from now on.
void SnapShotDocument::giveUp(const QDomNode& node)
{
    const auto retire = [&](auto& held) {
        if (held && held->GetDomNode() == node)
            m_replaced.push_back(std::move(held));
    };
    retire(m_current);
    retire(m_originalBackground);
    for (Collection* const collection :
         {&m_main, &m_cameras, &m_backgrounds, &m_materialPalettes, &m_temporary})
        retire(*collection);
}

template <typename Class>
void SnapShotDocument::replaceView(View<Class>& held, Class* fresh)
{
    if (!fresh)
        return;
    if (held)
        m_replaced.push_back(std::move(held));
    held.reset(fresh);
}

SnapShots* SnapShotDocument::onDemand(Collection& collection, names::Name name)
{
    if (collection || !m_document)
        return collection.get();
    const changes::Block block;
    collection.reset(newElement<SnapShots>(*m_document, names::element::snapShots));
    if (collection) {
        collection->SetName(name());
        changes::append(m_root, collection->GetDomNode());
    }
    return collection.get();
}

bool isMainCollection(const QDomElement& element)
{
    const QString name = element.attribute(names::attribute::name());
    return name == names::value::modelSnapShots() || name == names::value::oldModelSnapShots();
}

} // namespace rvopen

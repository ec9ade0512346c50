// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/Scenery.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/XMLUtils.h>
#include <rvopen/files/AtomicWrite.h>
#include <rvopen/files/DocumentFiles.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/TextureReferences.h>
#include <rvopen/model/ValueText.h>
#include <rvopen/xml/DomWriter.h>

#include <QDir>
#include <QSet>

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace rvopen {

namespace {

template <typename Object>
void destroy(Object*& object)
{
    delete object;
    object = nullptr;
}

/// For objects whose document goes with them: taking each element out first would be for nothing.
template <typename Object>
void dropWithDocument(Object*& object)
{
    NodeAccess::dropView(object);
    object = nullptr;
}

void dropViews(QVector<RVOpenNode*>& views)
{
    for (RVOpenNode* const view : std::as_const(views))
        NodeAccess::dropView(view);
    views.clear();
}

/// A node over the document's root; the node's handle keeps the document.
RVOpenNode* rootNodeOf(const QDomDocument& document)
{
    auto* const node = new RVOpenNode();
    if (node)
        node->SetDomNode(document.documentElement());
    return node;
}

RVOpenNode* firstChildNamed(RVOpenNode* parent, const QString& name)
{
    RVOpenNode* child = parent ? parent->GetChild(1, 1) : nullptr;
    while (child && child->GetNodeName() != name)
        child = child->GetNext(1);
    return child;
}

/// Depth first. \p archives are the chains that were entered through an archive reference: archives
/// may refer to each other in a circle.
RVOpenNode* findPreset(RVOpenNode* node, const QString& subcat, const QString& refName,
                       QSet<const RVOpenNode*>& archives)
{
    RVOpenNode* child = NodeAccess::firstChild(node);
    if (!child)
        child = node->GetChild(1, 1);
    if (child && child->GetParent() != node) {
        if (archives.contains(child))
            return nullptr;
        archives.insert(child);
    }
    for (; child; child = child->GetNext(1)) {
        const QString itsName = NodeAccess::attribute(child, names::attribute::refName());
        if (itsName.size() == refName.size() && itsName == refName &&
            (subcat.isEmpty() || child->GetSubCat() == subcat))
            return child;
        if (RVOpenNode* const found = findPreset(child, subcat, refName, archives))
            return found;
    }
    return nullptr;
}

/// The collection of the model's snapshots, by its name or the one that older documents use.
bool isMainCollection(const QDomElement& element)
{
    const QString name = element.attribute(names::attribute::name());
    return name == names::value::modelSnapShots() || name == names::value::oldModelSnapShots();
}

/// The folder of an imported document, where its thumbnails lie; a path without any separator
/// counts as a folder.
QString folderOf(const QString& path)
{
    const QString native = QDir::toNativeSeparators(PathToOpen(path));
    const auto end = native.lastIndexOf(QDir::separator());
    return end < 0 ? native : native.left(end);
}

/// The number that follows \p base in \p name, written as QString::number writes it; 0 for any
/// other name.
int numberAfter(const QString& base, const QString& name)
{
    if (!name.startsWith(base) || name.size() == base.size() ||
        name.at(base.size()) == QLatin1Char('0'))
        return 0;
    qint64 number = 0;
    for (auto it = name.cbegin() + base.size(); it != name.cend(); ++it) {
        if (*it < QLatin1Char('0') || *it > QLatin1Char('9'))
            return 0;
        number = 10 * number + (it->unicode() - u'0');
        if (number > std::numeric_limits<int>::max())
            return 0;
    }
    return int(number);
}

/// The first number above \p last that with \p base before it names none of \p collection.
int firstFreeNumber(const QString& base, SnapShots* collection, int last)
{
    std::vector<int> numbers;
    SnapShot* snapShot = collection ? collection->GetFirstSnapShot() : nullptr;
    for (; snapShot; snapShot = snapShot->GetNext()) {
        const int number = numberAfter(base, snapShot->GetName());
        if (number > last)
            numbers.push_back(number);
    }
    // Among one number more than there are, one is free.
    std::vector<bool> isTaken(numbers.size() + 1);
    for (const int number : numbers) {
        const auto place = std::size_t(number - last - 1);
        if (place < isTaken.size())
            isTaken[place] = true;
    }
    return last + 1 + int(std::find(isTaken.begin(), isTaken.end(), false) - isTaken.begin());
}

} // namespace

RVOpenManager::RVOpenManager()
{
    InitialiseSnapShotDoc();
}

RVOpenManager::RVOpenManager(const RVOpenManager& other) = default;

RVOpenManager& RVOpenManager::operator=(const RVOpenManager& other) = default;

RVOpenManager::~RVOpenManager()
{
    destroy(m_defaultArchiveRoot);
    destroy(m_defaultArchiveDocument);
    dropWithDocument(m_snapShots);
    dropWithDocument(m_backgrounds);
    dropWithDocument(m_cameras);
    dropWithDocument(m_materialPalettes);
    dropWithDocument(m_tempSnapShots);
    destroy(m_resetSnapShot);
    dropWithDocument(m_currentSnapShot);
    dropWithDocument(m_originalBackground);
    dropDocument();
    destroy(m_importDocument);
    destroy(m_importCurrentSnapShot);
    destroy(m_productArchiveRoot);
    destroy(m_architecturalArchiveRoot);
    dropViews(m_retiredViews);
    dropViews(m_retiredNodes);
    qDeleteAll(m_retiredDocuments);
    qDeleteAll(m_loadedArchiveDocuments);
}

unsigned int RVOpenManager::Initialise(unsigned int major, unsigned int minor, QString folder)
{
    m_majorVersion = major;
    m_minorVersion = minor;
    if (!m_defaultArchiveDocument)
        m_defaultArchiveDocument = readDocument(folder + QLatin1String("\\xml\\Default.rvx"));
    if (m_defaultArchiveDocument)
        retireNode(m_defaultArchiveRoot, rootNodeOf(*m_defaultArchiveDocument));
    readExtraArchive(m_productArchiveRoot, folder + QLatin1String("\\xml\\Product_extra.rvx"));
    readExtraArchive(m_architecturalArchiveRoot,
                     folder + QLatin1String("\\xml\\Architectural_extra.rvx"));
    return StatusOk;
}

void RVOpenManager::Terminate() {}

void RVOpenManager::InitialiseSnapShotDoc()
{
    retireDocument();

    m_snapShotDocument = new QDomDocument();
    m_rootElement = m_snapShotDocument->createElement(names::element::snapRoot());
    m_snapShotDocument->insertBefore(
        m_snapShotDocument->createProcessingInstruction(
            QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"utf-8\"")),
        m_snapShotDocument->firstChild());
    m_rootElement.setAttribute(names::attribute::type(), names::value::snapStudio());
    m_rootElement.setAttribute(names::attribute::version(),
                               QStringLiteral("%1.%2").arg(m_majorVersion).arg(m_minorVersion));
    m_rootElement.setAttribute(names::attribute::name(), names::value::snapRootName());
    SetUnitsScale(1.0f);
    m_snapShotDocument->appendChild(m_rootElement);
    appendMainCollection();

    m_currentSnapShot = CreateInternalSnapShot(nullptr);
    if (!m_currentSnapShot)
        return;
    if (SnapShotSettings* const settings = m_currentSnapShot->CreateSnapShotSettings(nullptr)) {
        settings->SetAmbientLightsIntensityScale(1.0f);
        settings->SetBackgroundReflected(QLatin1String(""), 1.0f);
        settings->SetReflectBackPlate(0);
        settings->SetTwist(0.0f);
        m_currentSnapShot->AddSnapShotSettings(settings);
    }
    if (Scenery* const scenery = m_currentSnapShot->CreateScenery(nullptr)) {
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
        m_currentSnapShot->AddScenery(scenery);
        delete scenery;
    }
}

void RVOpenManager::ClearSnapShotDoc()
{
    dropWithDocument(m_snapShots);
    dropWithDocument(m_cameras);
    dropWithDocument(m_backgrounds);
    dropWithDocument(m_materialPalettes);
    dropWithDocument(m_tempSnapShots);
    destroy(m_resetSnapShot);
    dropWithDocument(m_currentSnapShot);
    dropWithDocument(m_originalBackground);
    dropViews(m_retiredViews);
    dropDocument();
}

int RVOpenManager::LoadSnapShotDocFromFile(QString path)
{
    QDomDocument* const document = path.isEmpty() ? nullptr : readDocument(path);
    return document ? LoadSnapShotDoc(document) : 0;
}

int RVOpenManager::LoadSnapShotDocFromString(QString xml)
{
    QDomDocument* const document = parseDocument(xml, Namespaces::Ignored);
    return document ? LoadSnapShotDoc(document) : 0;
}

QString RVOpenManager::GetSnapShotDocumentAsString() const
{
    return m_snapShotDocument ? documentText(*m_snapShotDocument, SnapShotFileIndent) : QString();
}

void RVOpenManager::SetUnitsScale(float scale)
{
    m_rootElement.setAttribute(names::attribute::unitsScale(), valueText::fromFloat(scale));
}

SnapShot* RVOpenManager::GetCurrentSnapShot() const
{
    return m_currentSnapShot;
}

SnapShot* RVOpenManager::GetResetSnapShot() const
{
    return m_resetSnapShot;
}

void RVOpenManager::SetResetSnapShot(SnapShot* snapShot)
{
    m_retiredNodes.removeAll(snapShot);
    retireNode(m_resetSnapShot, snapShot);
}

SnapShot* RVOpenManager::GetImportCurrentSnapShot() const
{
    return m_importCurrentSnapShot;
}

SnapShots* RVOpenManager::GetSnapShots() const
{
    return m_snapShots;
}

int RVOpenManager::GetNumSnapShots() const
{
    int number = 0;
    SnapShot* snapShot = m_snapShots ? m_snapShots->GetFirstSnapShot() : nullptr;
    for (; snapShot; snapShot = snapShot->GetNext())
        ++number;
    return number;
}

SnapShot* RVOpenManager::CreateInternalSnapShot(SnapShot* source)
{
    if (source)
        return new SnapShot(static_cast<RVOpenNode*>(source));
    if (!m_snapShotDocument)
        return nullptr;
    QDomElement element = m_snapShotDocument->createElement(names::element::snapShot());
    element.setAttribute(names::attribute::name(), names::value::currentSnapShot());
    auto* const snapShot = new SnapShot(element);
    if (snapShot)
        m_rootElement.appendChild(element);
    return snapShot;
}

QString RVOpenManager::GetNextSnapShotName(QString base, SnapShots::SnapShotType type)
{
    int* counter = &m_snapShotCounter;
    SnapShots* collection = m_snapShots;
    if (type == SnapShots::TypeMaterialPalettes) {
        counter = &m_materialPaletteCounter;
        collection = m_materialPalettes;
    } else if (type == SnapShots::TypeBackgrounds) {
        counter = &m_backgroundCounter;
        collection = m_backgrounds;
    } else if (type == SnapShots::TypeCameras) {
        counter = &m_cameraCounter;
        collection = m_cameras;
    }
    *counter = firstFreeNumber(base, collection, *counter);
    return base + QString::number(*counter);
}

SnapShots* RVOpenManager::GetSnapShotsBackgrounds()
{
    return collectionOnDemand(m_backgrounds, names::value::modelBackgrounds());
}

SnapShots* RVOpenManager::GetSnapShotsCameras()
{
    return collectionOnDemand(m_cameras, names::value::modelCameras());
}

SnapShots* RVOpenManager::GetSnapShotsMaterialRepositories()
{
    return collectionOnDemand(m_materialPalettes, names::value::modelMaterialPalettes());
}

SnapShots* RVOpenManager::GetTempSnapShots()
{
    return collectionOnDemand(m_tempSnapShots, names::value::tempSnapShots());
}

Background* RVOpenManager::GetOriginalBackground()
{
    if (m_originalBackground || !m_snapShotDocument)
        return m_originalBackground;
    auto* const background = new Background(nullptr);
    if (!background)
        return nullptr;
    QDomElement element = m_snapShotDocument->createElement(names::element::background());
    element.setAttribute(names::attribute::subCat(), names::subCategory::horizon());
    background->SetDomNode(element);
    background->PopulateParams();
    m_originalBackground = background;
    m_rootElement.appendChild(element);
    return m_originalBackground;
}

void RVOpenManager::ImportSnapShotDoc(QString path, bool useCurrentCamera, bool addSnapShots)
{
    m_importName = path;
    QDomDocument* const document = readDocument(path);
    if (!document)
        return;
    if (m_importDocument)
        m_retiredDocuments.append(m_importDocument);
    m_importDocument = document;
    m_importNode = QDomNode();

    for (QDomElement child = document->documentElement().firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString tag = child.nodeName();
        if (tag == names::element::snapShots()) {
            if (!isMainCollection(child))
                continue;
            child.setAttribute(names::attribute::name(), names::value::modelSnapShots());
            m_importNode = child;
        } else if (tag == names::element::snapShot()) {
            auto* const snapShot = new SnapShot(child);
            if (snapShot)
                retireNode(m_importCurrentSnapShot, snapShot);
        }
    }
    if (addSnapShots)
        AddImportedSnapShot(useCurrentCamera);
}

void RVOpenManager::AddImportedSnapShot(bool useCurrentCamera)
{
    if (!m_snapShots && m_snapShotDocument && !m_importNode.firstChild().isNull())
        appendMainCollection();
    if (!m_snapShots || !NodeAccess::childOwner(m_snapShots))
        return;

    Camera* const currentCamera =
        useCurrentCamera && m_currentSnapShot ? m_currentSnapShot->GetCamera() : nullptr;
    const QString folder = folderOf(m_importName);
    for (QDomNode child = m_importNode.firstChild(); !child.isNull(); child = child.nextSibling()) {
        auto* const snapShot = new SnapShot(child.ownerDocument().importNode(child, true));
        if (!snapShot)
            return;
        if (currentCamera)
            snapShot->AddCamera(currentCamera);
        copyImportedThumbnail(snapShot, folder);
        snapShot->SetImageBorder(RVOpenNode::ImageBorderImported);
        m_snapShots->AddNode(snapShot, true);
    }
}

RVOpenNode* RVOpenManager::SetArchiveNode(QString name, QString type)
{
    m_archiveType = type;
    QString* remembered = nullptr;
    if (type == names::value::productArchives())
        remembered = &m_zorvaneArchiveName;
    else if (type == names::value::customArchives())
        remembered = &m_customArchiveName;
    if (remembered) {
        if (name.isEmpty())
            name = *remembered;
        else
            *remembered = name;
    }
    QString path = GetDirectoryHandler()->GetFolder(type);
    if (!path.isEmpty())
        path += QDir::separator();
    m_archivePath = path + name;
    return GetDirectoryHandler()->LoadArchive(m_archivePath);
}

QString RVOpenManager::GetArchiveType() const
{
    return m_archiveType;
}

RVOpenNode* RVOpenManager::GetRVOpenNodeFromType(QString type, bool fromDefault)
{
    RVOpenNode* const result =
        firstChildNamed(fromDefault ? m_defaultArchiveRoot : chosenArchive(), type);
    RVOpenNode* const extra = result ? extraArchive() : nullptr;
    RVOpenNode* const section = firstChildNamed(extra, type);
    if (!section)
        return result;
    QDomNode target = result->GetDomNode();
    QDomDocument document = target.ownerDocument();
    for (RVOpenNode* child = section->GetChild(1, 1); child; child = child->GetNext(1))
        target.appendChild(document.importNode(child->GetDomNode(), true));
    extra->DeleteNode(section);
    return result;
}

RVOpenNode* RVOpenManager::FindRVOpenNodeFromType(QString type, QString subcat, QString refName)
{
    for (const bool fromDefault : {false, true}) {
        RVOpenNode* const section = GetRVOpenNodeFromType(type, fromDefault);
        RVOpenNode* const preset =
            section ? RecursiveFindRVOpenNode(section, subcat, refName) : nullptr;
        if (preset)
            return preset;
    }
    return nullptr;
}

bool RVOpenManager::SaveArchive(QString path, RVOpenNode* rootNode)
{
    Q_ASSERT(rootNode != 0);
    if (!rootNode)
        return false;
    const QDomDocument doc = rootNode->GetDomNode().ownerDocument();
    Q_ASSERT(!doc.isNull());
    if (doc.isNull())
        return false;
    const SaveResult result = saveDocument(doc, path);
    if (result == SaveResult::NotOpened)
        Q_ASSERT(0);
    return result == SaveResult::Saved;
}

RVOpenNode* RVOpenManager::LoadArchive(QString path)
{
    QDomDocument* const document = readDocument(path);
    if (!document)
        return nullptr;
    m_loadedArchiveDocuments.append(document);
    return rootNodeOf(*document);
}

RVOpenNode* RVOpenManager::DecodeXML(QString xml)
{
    QDomDocument* document = parseDocument(xml, Namespaces::Ignored);
    if (!document)
        document = new QDomDocument();
    m_loadedArchiveDocuments.append(document);
    return RVOpenSchema::createNode(document->documentElement());
}

int RVOpenManager::FindRVOpenNodeTextures(RVOpenNode* node, QStringList& textures)
{
    visitTextureReferences(node, BaseMaterials::Visited, [&textures](const QString& reference) {
        textures.append(reference);
        return reference;
    });
    return static_cast<int>(textures.size());
}

void RVOpenManager::StripTexturePaths(RVOpenNode* node)
{
    visitTextureReferences(node, BaseMaterials::Skipped, &RVOpenManager::StripPath);
}

TemporaryItems* RVOpenManager::GetTemporaryItems()
{
    return &m_temporaryItems;
}

int RVOpenManager::LoadSnapShotDoc(QDomDocument* doc)
{
    ClearSnapShotDoc();
    if (!doc) {
        InitialiseSnapShotDoc();
        return 0;
    }
    m_snapShotDocument = doc;
    m_rootElement = doc->documentElement();
    for (QDomElement child = m_rootElement.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString tag = child.nodeName();
        if (tag == names::element::snapShots()) {
            adoptCollection(child);
        } else if (tag == names::element::snapShot()) {
            replaceView(m_currentSnapShot, new SnapShot(child));
        } else if (tag == names::element::background()) {
            auto* const background = new Background(nullptr);
            if (!background)
                continue;
            background->SetDomNode(child);
            background->GetParamHelper()->Populate();
            replaceView(m_originalBackground, background);
        }
    }
    return 1;
}

void RVOpenManager::adoptCollection(const QDomElement& element)
{
    const QString name = element.attribute(names::attribute::name());
    SnapShots** held = nullptr;
    if (isMainCollection(element))
        held = &m_snapShots;
    else if (name == names::value::modelCameras())
        held = &m_cameras;
    else if (name == names::value::modelMaterialPalettes())
        held = &m_materialPalettes;
    else if (name == names::value::modelBackgrounds())
        held = &m_backgrounds;
    else
        return;
    auto* const collection = new SnapShots(element);
    if (!collection)
        return;
    replaceView(*held, collection);
    if (held == &m_snapShots) {
        collection->SetName(names::value::modelSnapShots());
        m_snapShotsElement = element;
    }
    collection->Populate();
}

template <typename Object>
void RVOpenManager::replaceView(Object*& held, Object* fresh)
{
    if (!fresh)
        return;
    if (held)
        m_retiredViews.append(held);
    held = fresh;
}

template <typename Object>
void RVOpenManager::retireNode(Object*& held, Object* fresh)
{
    if (held && held != fresh)
        m_retiredNodes.append(held);
    held = fresh;
}

void RVOpenManager::dropDocument()
{
    // A handle to an element would keep all that is in it.
    m_rootElement = QDomElement();
    m_snapShotsElement = QDomNode();
    destroy(m_snapShotDocument);
}

void RVOpenManager::retireDocument()
{
    retireNode<SnapShots>(m_snapShots, nullptr);
    retireNode<SnapShots>(m_cameras, nullptr);
    retireNode<SnapShots>(m_backgrounds, nullptr);
    retireNode<SnapShots>(m_materialPalettes, nullptr);
    retireNode<SnapShots>(m_tempSnapShots, nullptr);
    retireNode<SnapShot>(m_currentSnapShot, nullptr);
    m_retiredNodes += m_retiredViews;
    m_retiredViews.clear();
    if (m_snapShotDocument)
        m_retiredDocuments.append(m_snapShotDocument);
}

SnapShots* RVOpenManager::appendCollection(const QString& name)
{
    QDomElement element = m_snapShotDocument->createElement(names::element::snapShots());
    element.setAttribute(names::attribute::name(), name);
    auto* const collection = new SnapShots(element);
    if (collection)
        m_rootElement.appendChild(element);
    return collection;
}

void RVOpenManager::appendMainCollection()
{
    m_snapShots = appendCollection(names::value::modelSnapShots());
    if (m_snapShots)
        m_snapShotsElement = m_snapShots->GetDomNode();
}

SnapShots* RVOpenManager::collectionOnDemand(SnapShots*& collection, const QString& name)
{
    if (!collection && m_snapShotDocument)
        collection = appendCollection(name);
    return collection;
}

void RVOpenManager::copyImportedThumbnail(SnapShot* snapShot, const QString& folder)
{
    const QString target = snapShot->GetThumbFilename();
    if (target.isEmpty()) {
        snapShot->SetSnapShotPath(folder);
        return;
    }
    QString safeName = snapShot->GetName();
    if (folder.isEmpty() || !StaysInside(safeName) ||
        !StaysInside(XMLUtils::ReplaceIllegalCharacters(safeName)))
        return;
    const QString source = folder + QDir::separator() + QLatin1String("icon_") +
                           snapShot->GetName() + QLatin1String(".jpg");
    if (!copyFile(PathToOpen(source), PathToOpen(target)))
        return;
    SnapShotSettings* const settings = snapShot->GetSnapShotSettings();
    SnapShotSettings* const current =
        m_currentSnapShot ? m_currentSnapShot->GetSnapShotSettings() : nullptr;
    if (settings && current)
        settings->SetSessionName(current->GetSessionName());
}

void RVOpenManager::readExtraArchive(RVOpenNode*& root, const QString& path)
{
    const std::unique_ptr<QDomDocument> document(readDocument(path));
    if (document)
        retireNode(root, rootNodeOf(*document));
}

RVOpenNode* RVOpenManager::chosenArchive() const
{
    return GetDirectoryHandler()->openArchive(m_archivePath);
}

RVOpenNode* RVOpenManager::extraArchive() const
{
    if (m_archiveType != names::value::productArchives())
        return nullptr;
    if (m_productArchiveRoot && m_zorvaneArchiveName.contains(QLatin1String("Product")))
        return m_productArchiveRoot;
    if (m_zorvaneArchiveName.contains(QLatin1String("Architectural")))
        return m_architecturalArchiveRoot;
    return nullptr;
}

RVOpenNode* RVOpenManager::RecursiveFindRVOpenNode(RVOpenNode* node, QString subcat,
                                                   QString refName)
{
    QSet<const RVOpenNode*> archives;
    return findPreset(node, subcat, refName, archives);
}

QString RVOpenManager::StripPath(QString path)
{
    return LastPathComponent(path);
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/SnapShot.h>
#include <rvopen/files/DocumentFiles.h>
#include <rvopen/manager/ImportedDocument.h>
#include <rvopen/manager/PresetArchives.h>
#include <rvopen/manager/SnapShotDocument.h>
#include <rvopen/manager/SnapShotNames.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/TextureReferences.h>

namespace rvopen {

/// What the copies of a manager share.
struct RVOpenManager::Parts {
    Retired retired;
    PresetArchives archives{retired};
    SnapShotDocument document{retired};
    SnapShotNames names;
    ImportedDocument imported{retired};
    TemporaryItems temporaryItems;
    unsigned int majorVersion = 0;
    unsigned int minorVersion = 0;
};

RVOpenManager::RVOpenManager()
    : m_parts(std::make_shared<Parts>())
{
    InitialiseSnapShotDoc();
}

RVOpenManager::RVOpenManager(const RVOpenManager& other) = default;

RVOpenManager& RVOpenManager::operator=(const RVOpenManager& other) = default;

RVOpenManager::~RVOpenManager() = default;

unsigned int RVOpenManager::Initialise(unsigned int major, unsigned int minor, QString folder)
{
    m_parts->majorVersion = major;
    m_parts->minorVersion = minor;
    m_parts->archives.read(folder);
    return StatusOk;
}

void RVOpenManager::Terminate() {}

void RVOpenManager::InitialiseSnapShotDoc()
{
    m_parts->document.initialise(m_parts->majorVersion, m_parts->minorVersion);
}

void RVOpenManager::ClearSnapShotDoc()
{
    m_parts->document.clear();
}

int RVOpenManager::LoadSnapShotDocFromFile(QString path)
{
    return load(readDocument(path));
}

int RVOpenManager::LoadSnapShotDocFromString(QString xml)
{
    return load(parseDocument(xml, Namespaces::Ignored));
}

QString RVOpenManager::GetSnapShotDocumentAsString() const
{
    return m_parts->document.text();
}

RVOpenNode* RVOpenManager::GetRootNode()
{
    return m_parts->document.rootNode();
}

bool RVOpenManager::TakeBack(const RVOpenChange& change)
{
    return m_parts->document.takeBack(change);
}

void RVOpenManager::SetUnitsScale(float scale)
{
    m_parts->document.setUnitsScale(scale);
}

SnapShot* RVOpenManager::GetCurrentSnapShot() const
{
    return m_parts->document.current();
}

SnapShot* RVOpenManager::GetResetSnapShot() const
{
    return m_parts->document.reset();
}

SnapShot* RVOpenManager::SetResetSnapShot(SnapShot* snapShot)
{
    if (snapShot && (m_parts->document.owns(snapShot) || m_parts->retired.holds(snapShot) ||
                     snapShot == m_parts->imported.current()))
        return nullptr;
    return m_parts->document.setReset(snapShot);
}

SnapShot* RVOpenManager::GetImportCurrentSnapShot() const
{
    return m_parts->imported.current();
}

SnapShots* RVOpenManager::GetSnapShots() const
{
    return m_parts->document.main();
}

SnapShots* RVOpenManager::FindSnapShots(SnapShots::SnapShotType type) const
{
    return m_parts->document.ofType(type);
}

int RVOpenManager::GetNumSnapShots() const
{
    int number = 0;
    SnapShots* const collection = GetSnapShots();
    SnapShot* snapShot = collection ? collection->GetFirstSnapShot() : nullptr;
    for (; snapShot; snapShot = snapShot->GetNext())
        ++number;
    return number;
}

SnapShot* RVOpenManager::CreateInternalSnapShot(SnapShot* source)
{
    return source ? cloneOf(source) : m_parts->document.createSnapShot();
}

QString RVOpenManager::GetNextSnapShotName(QString base, SnapShots::SnapShotType type)
{
    return m_parts->names.next(base, type, m_parts->document.ofType(type));
}

SnapShots* RVOpenManager::GetSnapShotsBackgrounds()
{
    return m_parts->document.backgrounds();
}

SnapShots* RVOpenManager::GetSnapShotsCameras()
{
    return m_parts->document.cameras();
}

SnapShots* RVOpenManager::GetSnapShotsMaterialRepositories()
{
    return m_parts->document.materialPalettes();
}

SnapShots* RVOpenManager::GetTempSnapShots()
{
    return m_parts->document.temporary();
}

Background* RVOpenManager::GetOriginalBackground()
{
    return m_parts->document.originalBackground();
}

void RVOpenManager::ImportSnapShotDoc(QString path, bool useCurrentCamera, bool addSnapShots)
{
    if (m_parts->imported.read(path) && addSnapShots)
        AddImportedSnapShot(useCurrentCamera);
}

void RVOpenManager::AddImportedSnapShot(bool useCurrentCamera)
{
    tellOfWriting(WriteError());
    const changes::Block block;
    const bool isNeeded = m_parts->imported.hasSnapShots();
    SnapShots* const collection = isNeeded ? m_parts->document.mainOnDemand() : GetSnapShots();
    if (!collection || !NodeAccess::childOwner(collection))
        return;
    SnapShot* const current = GetCurrentSnapShot();
    tellOfWriting(m_parts->imported.addTo(
        collection, current && useCurrentCamera ? current->GetCamera() : nullptr,
        current ? current->GetSnapShotSettings() : nullptr));
}

RVOpenNode* RVOpenManager::SetArchiveNode(QString name, QString type)
{
    return m_parts->archives.choose(name, type);
}

QString RVOpenManager::GetArchiveType() const
{
    return m_parts->archives.type();
}

RVOpenNode* RVOpenManager::GetRVOpenNodeFromType(QString type, bool fromDefault)
{
    return m_parts->archives.section(type, fromDefault);
}

RVOpenNode* RVOpenManager::FindRVOpenNodeFromType(QString type, QString subcat, QString refName)
{
    return m_parts->archives.find(type, subcat, refName);
}

RVOpenNode* RVOpenManager::FindRVOpenNodeInAllArchives(QString type, QString subcat,
                                                       QString refName)
{
    return m_parts->archives.findInAll(type, subcat, refName);
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
    std::unique_ptr<QDomDocument> document(readDocument(path));
    if (!document)
        return nullptr;
    const QDomElement root = document->documentElement();
    m_parts->retired.keep(std::move(document));
    return newBound<RVOpenNode>(root);
}

RVOpenNode* RVOpenManager::DecodeXML(QString xml)
{
    std::unique_ptr<QDomDocument> document(parseDocument(xml, Namespaces::Ignored));
    const QDomElement root = document ? document->documentElement() : QDomElement();
    m_parts->retired.keep(std::move(document));
    return RVOpenSchema::createNode(root);
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
    const changes::Block block;
    visitTextureReferences(node, BaseMaterials::Skipped, LastPathComponent);
}

TemporaryItems* RVOpenManager::GetTemporaryItems()
{
    return &m_parts->temporaryItems;
}

int RVOpenManager::load(QDomDocument* document)
{
    if (!document)
        return 0;
    m_parts->document.load(std::unique_ptr<QDomDocument>(document));
    return 1;
}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "EveryAccessor.h"
#include "FuzzInput.h"
#include "FuzzSupport.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/TemporaryItems.h>
#include <rvopen/Transparency.h>
#include <rvopen/XMLUtils.h>

#include <QDir>
#include <QDomElement>
#include <QFile>
#include <QPixmap>
#include <QStringList>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

/// A byte string as a host's session with the manager: load, edit, copy and paste, import, look
/// presets up, save. The input starts with two texts, each up to a NUL: a snapshot document and a
/// document to import or to open as an archive; then come the host's choices.
namespace rvopen::fuzz {

namespace {

constexpr std::size_t nodeLimit = 500;
constexpr int stepLimit = 100;

/// \name What the documents are made of
/// @{

QByteArray camera(const QByteArray& name)
{
    return "<camera name=\"" + name +
           "\"><param name=\"From\" type=\"point\" val=\"1 2 3\"/></camera>";
}

QByteArray colour(const QByteArray& shader)
{
    return "<colour><diffuse enabled=\"1\"><param name=\"Colour\" type=\"shader\" val=\"colour\">" +
           shader + "</param></diffuse></colour>";
}

QByteArray plainColour(const QByteArray& value)
{
    return colour("<plainColour><param name=\"Colour\" type=\"colour\" val=\"" + value +
                  "\"/></plainColour>");
}

QByteArray texture(const QByteArray& path)
{
    return colour("<map><param name=\"Texture\" type=\"string\" val=\"" + path + "\"/></map>");
}

/// An element that stands for an archive of the custom folder.
QByteArray reference(const QByteArray& element, const QByteArray& archive)
{
    return "<" + element + " archiveType=\"Custom\" archiveFilename=\"" + archive + "\"/>";
}

/// Of materials with components of their own and in archives.
QByteArray palette()
{
    return "<materialRepository><material linkname=\"A\">" + plainColour("1 0 0") +
           "<finish reset=\"1\"/></material><material linkname=\"B\">" + texture("C:\\t\\oak.png") +
           "<material>" + texture("/t/base.png") + "<bump/></material></material>" +
           reference("material", "Mine") + "<material linkname=\"D\">" +
           reference("colour", "Fuzz") + reference("bump", "Mine") +
           "</material></materialRepository>";
}

QByteArray settings()
{
    return "<snapShotSettings><param name=\"Reflected Env Path\" type=\"string\" "
           "val=\"C:\\e\\sky.hdr\"/><param name=\"Session Folder\" type=\"string\" val=\"S\"/>"
           "</snapShotSettings>";
}

QByteArray background()
{
    return "<background subcat=\"Image\"><param name=\"File Name\" type=\"string\" "
           "val=\"/b/sea.jpg\"/></background>";
}

/// @}

/// Documents for a session that brings none: an empty one, a usual one and an old one with more of
/// everything than there should be.
const std::array<QByteArray, 3>& documents()
{
    static const std::array<QByteArray, 3> all = {
        "<snapRoot/>",
        "<snapRoot unitsScale=\"2\"><snapshots name=\"Model SnapShots\"><snapshot name=\"A\">" +
            camera("c") + palette() + settings() + "</snapshot><snapshot name=\"B\">" +
            background() +
            "<scheme subcat=\"Exterior\"/><foreground subcat=\"Depth Cue\"/></snapshot>"
            "</snapshots><snapshots name=\"Model Cameras\"><snapshot name=\"C1\">" +
            camera("x") + "</snapshot></snapshots><snapshot name=\"CurrSnapshot\">" + camera("y") +
            palette() + settings() +
            "<scenery/><naturalLightStudio/><renderTargets><renderTarget>"
            "<param name=\"Short Filename\" type=\"string\" val=\"a:b.png\"/></renderTarget>"
            "</renderTargets></snapshot>" +
            background() + "</snapRoot>",
        "<snapRoot><snapshots name=\"SnapShots\"><!-- old --><snapshot name=\"A\">" + settings() +
            camera("1") + camera("2") +
            "</snapshot></snapshots><snapshots name=\"SnapShots\"/>"
            "<snapshot name=\"CurrSnapshot\"/><snapshot name=\"Later\">" +
            palette() + "</snapshot></snapRoot>",
    };
    return all;
}

QByteArray defaultArchive()
{
    return "<presets><materials><dir><material refname=\"m1\" subcat=\"Opaque\">" +
           plainColour("0 0 1") + "<finish/></material></dir><material refname=\"m2\">" +
           texture("oak.png") +
           "<bump/><transparency/></material></materials><backgrounds>"
           "<background refname=\"b1\" subcat=\"Plain\"/></backgrounds><cameras>" +
           camera("a") + "</cameras><schemes><scheme refname=\"s1\">" + background() +
           "</scheme></schemes></presets>";
}

QByteArray extraArchive()
{
    return "<presets><materials><material refname=\"m3\"/></materials><lenses/></presets>";
}

/// Its root knows its own file.
QByteArray productArchive()
{
    return "<presets type=\"Zorvane\" archiveType=\"Zorvane\" archiveFilename=\"Product\">"
           "<materials><material refname=\"m4\">" +
           plainColour("0 1 0") + "</material></materials></presets>";
}

/// One preset stands for another archive, one for this very archive.
QByteArray customArchive()
{
    return "<presets type=\"UserArchives\"><materials><dir archiveType=\"Custom\" "
           "archiveFilename=\"Fuzz\"/><material refname=\"m5\" archiveType=\"Custom\" "
           "archiveFilename=\"Mine\"/></materials></presets>";
}

QString installFolder()
{
    return scratch() + QStringLiteral("/install");
}

QString importFolder()
{
    return scratch() + QStringLiteral("/import");
}

class Session {
public:
    explicit Session(FuzzInput& input)
        : m_input(input)
        , m_document(input.section())
        , m_otherDocument(input.section())
        , m_manager(std::make_unique<RVOpenManager>())
    {
        QDir().mkpath(installFolder() + QStringLiteral("/xml"));
        QDir().mkpath(importFolder());
        writeFile(installFolder() + QStringLiteral("/xml/Default.rvx"), defaultArchive());
        writeFile(installFolder() + QStringLiteral("/xml/Product_extra.rvx"), extraArchive());
        writeFile(importFolder() + QStringLiteral("/icon_A.jpg"), "thumbnail");
        writeFile(productFolder() + QStringLiteral("/Product.rvx"), productArchive());
        writeFile(customFolder() + QStringLiteral("/Mine.rvx"), customArchive());
        writeFile(customFolder() + QStringLiteral("/Fuzz.rvx"), otherDocument());
        if (!m_document.isEmpty())
            m_manager->LoadSnapShotDocFromString(QString::fromUtf8(m_document));
    }

    ~Session()
    {
        if (!text().isEmpty())
            requireTextLoadsEqual(text());
        // What the host owns outlives the manager and its documents.
        const bool outlives = m_input.flag();
        if (outlives)
            m_manager.reset();
        for (RVOpenNode* const node : m_owned) {
            if (outlives)
                readEverything(node);
            delete node;
        }
        m_manager.reset();
        for (const QString& archive : archives())
            GetDirectoryHandler()->CloseArchive(archive);
        for (const QString& folder : {snapShotsFolder(), productFolder(), customFolder()}) {
            QDir(folder).removeRecursively();
            QDir().mkpath(folder);
        }
        require(nothingEscaped(), "nothing is made outside of the host's folders");
    }

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void step()
    {
        struct Operation {
            const char* name;
            void (Session::*run)();
        };
        static constexpr Operation operations[] = {
            {"load", &Session::load},
            {"start afresh", &Session::startAfresh},
            {"copy by value", &Session::copyByValue},
            {"write an object", &Session::writeObject},
            {"read an object", &Session::readObject},
            {"add a component", &Session::addComponent},
            {"add settings", &Session::addSettings},
            {"create components", &Session::createComponents},
            {"clear a component", &Session::clearComponent},
            {"make a snapshot", &Session::makeSnapShot},
            {"edit a collection", &Session::editCollection},
            {"name a snapshot", &Session::nameSnapShot},
            {"reset", &Session::setReset},
            {"edit a palette", &Session::editPalette},
            {"change a target", &Session::changeTarget},
            {"edit a material", &Session::editMaterial},
            {"copy", &Session::copy},
            {"clone", &Session::clone},
            {"forget", &Session::forget},
            {"import", &Session::import},
            {"textures", &Session::textures},
            {"initialise", &Session::initialise},
            {"choose an archive", &Session::chooseArchive},
            {"find a preset", &Session::findPreset},
            {"save and open", &Session::saveAndOpen},
            {"close an archive", &Session::closeArchive},
            {"serialise", &Session::serialise},
            {"preview", &Session::preview},
            {"units scale", &Session::setUnitsScale},
            {"render targets", &Session::editRenderTargets},
        };
        const Operation& operation = operations[m_input.below(std::size(operations))];
        trace(QLatin1String("* ") + QLatin1String(operation.name));
        const QStringList before = openableArchives();
        m_deletesNode = false;
        (this->*operation.run)();
        for (const QString& archive : before) {
            require(m_deletesNode || QFile::exists(archive),
                    "only deleting a node deletes an archive's file");
        }
        verify();
    }

private:
    /// \name Finding objects
    /// @{

    QByteArray otherDocument() const
    {
        return m_otherDocument.isEmpty() ? documents()[1] : m_otherDocument;
    }

    static QStringList archives()
    {
        return {productFolder() + QStringLiteral("/Product.rvx"),
                customFolder() + QStringLiteral("/Mine.rvx"),
                customFolder() + QStringLiteral("/Fuzz.rvx")};
    }

    static QStringList openableArchives()
    {
        QStringList result = archives();
        const auto gone = std::remove_if(result.begin(), result.end(),
                                         [](const QString& path) { return !QFile::exists(path); });
        result.erase(gone, result.end());
        return result;
    }

    /// The collections that the document or this host has made; none is made.
    std::vector<SnapShots*> collections()
    {
        std::vector<SnapShots*> result;
        if (m_manager->GetSnapShots())
            result.push_back(m_manager->GetSnapShots());
        for (SnapShots* const collection : m_collections)
            result.push_back(collection);
        return result;
    }

    std::vector<SnapShot*> snapShots()
    {
        std::vector<SnapShot*> result;
        const auto append = [&result](SnapShot* snapShot) {
            if (snapShot)
                result.push_back(snapShot);
        };
        append(m_manager->GetCurrentSnapShot());
        append(m_manager->GetResetSnapShot());
        append(m_manager->GetImportCurrentSnapShot());
        for (SnapShots* const collection : collections()) {
            SnapShot* snapShot = collection->GetFirstSnapShot();
            for (; snapShot; snapShot = snapShot->GetNext())
                append(snapShot);
        }
        for (RVOpenNode* const node : m_owned)
            append(dynamic_cast<SnapShot*>(node));
        return result;
    }

    /// Every object that the host can reach, each once.
    std::vector<RVOpenNode*> nodes()
    {
        std::vector<RVOpenNode*> result;
        for (SnapShot* const snapShot : snapShots())
            collect(snapShot, result);
        for (RVOpenNode* const node : m_owned) {
            if (!dynamic_cast<SnapShot*>(node))
                collect(node, result);
        }
        const TemporaryItems& items = *m_manager->GetTemporaryItems();
        for (RVOpenNode* const item : {static_cast<RVOpenNode*>(items.GetMaterial()),
                                       static_cast<RVOpenNode*>(items.GetColour()),
                                       static_cast<RVOpenNode*>(items.GetFinish()),
                                       static_cast<RVOpenNode*>(items.GetTransparency()),
                                       static_cast<RVOpenNode*>(items.GetBump())}) {
            if (item)
                collect(item, result);
        }
        // Deleting a reference to an archive deletes the archive with its presets.
        if (m_preset && openableArchives() != m_presetArchives)
            m_preset = nullptr;
        if (m_preset)
            collect(m_preset, result);
        return result;
    }

    bool isFull()
    {
        return nodes().size() > nodeLimit;
    }

    SnapShot* pickSnapShot()
    {
        const std::vector<SnapShot*> candidates = snapShots();
        return candidates.empty() ? nullptr : candidates[m_input.below(candidates.size())];
    }

    /// An object of the class, or null: one choice more than there are objects.
    template <typename Class>
    Class* pick()
    {
        std::vector<Class*> candidates;
        for (RVOpenNode* const node : nodes()) {
            if (auto* const object = dynamic_cast<Class*>(node))
                candidates.push_back(object);
        }
        const unsigned choice = m_input.below(candidates.size() + 1);
        return choice < candidates.size() ? candidates[choice] : nullptr;
    }

    /// One of the objects that belong to this host and to no tree; it belongs to the caller then.
    template <typename Class>
    Class* takeOwned()
    {
        std::vector<std::size_t> candidates;
        for (std::size_t i = 0; i < m_owned.size(); ++i) {
            if (dynamic_cast<Class*>(m_owned[i]))
                candidates.push_back(i);
        }
        if (candidates.empty())
            return nullptr;
        const std::size_t index = candidates[m_input.below(candidates.size())];
        auto* const object = dynamic_cast<Class*>(m_owned[index]);
        m_owned.erase(m_owned.begin() + static_cast<std::ptrdiff_t>(index));
        return object;
    }

    void own(RVOpenNode* node)
    {
        if (node)
            m_owned.push_back(node);
    }

    /// A node that stands for an archive that cannot be opened leaves the object to the host.
    void ownUnlessChild(RVOpenNode* node, RVOpenNode* parent)
    {
        RVOpenNode* child = parent->GetChild(1, 1);
        while (child && child != node)
            child = child->GetNext(1);
        if (!child)
            own(node);
    }

    QString pickLinkName()
    {
        const Material* const material = pick<Material>();
        return material ? material->GetLinkName() : m_input.text();
    }

    MaterialRepository* pickPalette()
    {
        SnapShot* const snapShot = pickSnapShot();
        return snapShot ? snapShot->GetMaterialRepository() : nullptr;
    }

    QString text() const
    {
        return m_manager->GetSnapShotDocumentAsString();
    }

    /// @}

    /// \name The document
    /// @{

    void forgetDocumentObjects()
    {
        m_collections.clear();
    }

    void load()
    {
        const unsigned choice = m_input.below(documents().size() + 2);
        const QByteArray bytes = choice < documents().size()    ? documents()[choice]
                                 : choice == documents().size() ? m_document
                                                                : m_otherDocument;
        const QString before = text();
        int loaded = 0;
        if (m_input.flag()) {
            const QString path = scratch() + QStringLiteral("/document.xml");
            writeFile(path, bytes);
            loaded = m_manager->LoadSnapShotDocFromFile(path);
            require(readFile(path) == bytes, "loading leaves the file as it is");
        } else {
            loaded = m_manager->LoadSnapShotDocFromString(QString::fromUtf8(bytes));
        }
        if (loaded)
            forgetDocumentObjects();
        else
            requireEqual(before, text(), "what does not load leaves the document as it is");
    }

    void startAfresh()
    {
        m_manager->ClearSnapShotDoc();
        forgetDocumentObjects();
        require(text().isEmpty(), "a cleared document has no text");
        if (m_input.flag())
            m_manager->InitialiseSnapShotDoc();
    }

    /// A copy by value shows the same, and which of the two goes first is all the same.
    void copyByValue()
    {
        auto other = std::make_unique<RVOpenManager>(*m_manager);
        require(other->GetCurrentSnapShot() == m_manager->GetCurrentSnapShot() &&
                    other->GetSnapShots() == m_manager->GetSnapShots() &&
                    other->GetRootNode() == m_manager->GetRootNode(),
                "a copy shows the same objects");
        if (m_input.flag() && other->LoadSnapShotDocFromString(QString::fromUtf8(otherDocument())))
            forgetDocumentObjects();
        if (m_input.flag())
            m_manager.swap(other);
        TemporaryItems items(*m_manager->GetTemporaryItems());
        if (m_input.flag())
            items.SetColour(nullptr);
        const DirectoryHandler registry(*GetDirectoryHandler());
        readEverything(m_manager->GetRootNode());
    }

    void setUnitsScale()
    {
        m_manager->SetUnitsScale(m_input.number());
    }

    void import()
    {
        if (isFull())
            return;
        const QString path = importFolder() + QStringLiteral("/import.xml");
        const unsigned choice = m_input.below(documents().size() + 1);
        writeFile(path, choice < documents().size() ? documents()[choice] : m_otherDocument);
        SnapShot* const earlier = m_manager->GetImportCurrentSnapShot();
        if (m_input.flag())
            m_manager->ImportSnapShotDoc(path, m_input.flag(), m_input.flag());
        const int number = m_manager->GetNumSnapShots();
        if (m_input.flag())
            m_manager->AddImportedSnapShot(m_input.flag());
        require(m_manager->GetNumSnapShots() >= number, "an import takes nothing away");
        readEverything(earlier);
    }

    void serialise()
    {
        SnapShot* const snapShot = pickSnapShot();
        if (!snapShot)
            return;
        if (m_input.flag())
            snapShot->SetupSnapShotForSerialise();
        const QString before = text();
        const QString alone = snapShot->CreateSnapShotDocumentAsString();
        requireEqual(before, text(), "writing a snapshot leaves the document as it is");
        RVOpenManager other;
        require(other.LoadSnapShotDocFromString(alone) == 1, "a snapshot's own document loads",
                [&alone] { return alone; });
        require(other.GetNumSnapShots() == 1, "it holds that snapshot");
    }

    /// @}

    /// \name Objects
    /// @{

    void writeObject()
    {
        if (RVOpenNode* const node = pick<RVOpenNode>())
            writeEverything(node, m_input);
    }

    void readObject()
    {
        const QString before = text();
        if (RVOpenNode* const node = pick<RVOpenNode>())
            readEverything(node);
        requireEqual(before, text(), "reading leaves the document as it is");
    }

    void clone()
    {
        if (isFull())
            return;
        RVOpenNode* const node = pick<RVOpenNode>();
        if (auto* const snapShot = dynamic_cast<SnapShot*>(node))
            own(m_manager->CreateInternalSnapShot(snapShot));
        else if (dynamic_cast<Material*>(node))
            own(new Material(node));
        else if (dynamic_cast<MaterialRepository*>(node))
            own(new MaterialRepository(node));
        else if (dynamic_cast<Camera*>(node))
            own(new Camera(node));
        else if (auto* const colour = dynamic_cast<Colour*>(node))
            own(new Colour(colour));
        else if (auto* const finish = dynamic_cast<Finish*>(node))
            own(new Finish(finish));
        else if (auto* const bump = dynamic_cast<Bump*>(node))
            own(new Bump(bump));
        else if (auto* const transparency = dynamic_cast<Transparency*>(node))
            own(new Transparency(transparency));
        else if (node)
            own(new RVOpenNode(node));
    }

    void forget()
    {
        delete takeOwned<RVOpenNode>();
    }

    void preview()
    {
        RVOpenNode* const node = pick<RVOpenNode>();
        XMLUtils().QPixmapFromRVOpenNode(node, installFolder());
    }

    void textures()
    {
        RVOpenNode* const node = pick<RVOpenNode>();
        const QString before = text();
        QStringList found{QStringLiteral("earlier")};
        require(m_manager->FindRVOpenNodeTextures(node, found) == found.size() &&
                    found.first() == QLatin1String("earlier"),
                "textures are appended to the list");
        requireEqual(before, text(), "listing textures adds nothing");
        if (m_input.flag())
            return;
        m_manager->StripTexturePaths(node);
        const QString stripped = text();
        m_manager->StripTexturePaths(node);
        requireEqual(stripped, text(), "stripping twice is stripping once");
    }

    /// @}

    /// \name Snapshots
    /// @{

    static int countChildren(SnapShot* snapShot, const char* tag)
    {
        int number = 0;
        const QString name = QLatin1String(tag);
        QDomElement child = snapShot->GetDomNode().firstChildElement(name);
        for (; !child.isNull(); child = child.nextSiblingElement(name))
            ++number;
        return number;
    }

    /// Replaces a component: one element goes if one was held, one comes if one was given.
    template <typename Component, typename Result>
    void addCopy(SnapShot* snapShot, Result (SnapShot::*add)(Component*),
                 Component* (SnapShot::*held)() const, const char* tag)
    {
        Component* const source = pick<Component>();
        const int expected = countChildren(snapShot, tag) - ((snapShot->*held)() ? 1 : 0) +
                             (source && source->GetNodeName() == QLatin1String(tag) ? 1 : 0);
        (snapShot->*add)(source);
        require(((snapShot->*held)() != nullptr) == (source != nullptr), "what is added is held");
        require(countChildren(snapShot, tag) == expected, "adding replaces the component held");
    }

    void addComponent()
    {
        SnapShot* const snapShot = pickSnapShot();
        if (!snapShot || isFull())
            return;
        using S = SnapShot;
        switch (m_input.below(7)) {
        case 0:
            addCopy(snapShot, &S::AddScheme, &S::GetScheme, "scheme");
            require(!snapShot->GetScheme() ||
                        (!snapShot->GetBackground() && !snapShot->GetForeground() &&
                         !snapShot->GetNaturalLightStudio()),
                    "a new scheme discards what belonged to the old one");
            break;
        case 1:
            addCopy(snapShot, &S::AddBackground, &S::GetBackground, "background");
            break;
        case 2:
            addCopy(snapShot, &S::AddForeground, &S::GetForeground, "foreground");
            break;
        case 3:
            addCopy(snapShot, &S::AddCamera, &S::GetCamera, "camera");
            break;
        case 4:
            addCopy(snapShot, &S::AddNaturalLightStudio, &S::GetNaturalLightStudio,
                    "naturalLightStudio");
            break;
        case 5:
            addCopy(snapShot, &S::AddScenery, &S::GetScenery, "scenery");
            break;
        default:
            snapShot->AddMaterialRepository(pick<MaterialRepository>());
            break;
        }
    }

    void addSettings()
    {
        SnapShot* const snapShot = pickSnapShot();
        if (!snapShot)
            return;
        SnapShotSettings* const settings =
            m_input.flag() ? snapShot->CreateSnapShotSettings(pick<SnapShotSettings>())
                           : snapShot->GetSnapShotSettings();
        snapShot->AddSnapShotSettings(settings);
        require(snapShot->GetSnapShotSettings() == settings, "settings are taken over");
    }

    void createComponents()
    {
        SnapShot* const snapShot = pickSnapShot();
        if (!snapShot || isFull())
            return;
        switch (m_input.below(6)) {
        case 0:
            own(snapShot->CreateCamera());
            break;
        case 1:
            own(snapShot->CreateScenery(pick<Scenery>()));
            break;
        case 2:
            own(snapShot->CreateSnapShotSettings(pick<SnapShotSettings>()));
            break;
        case 3:
            require(snapShot->CreateAndAddNaturalLightStudio() == snapShot->GetNaturalLightStudio(),
                    "a new studio is held");
            break;
        case 4:
            require(snapShot->GetArtificialLightStudio() == snapShot->GetArtificialLightStudio(),
                    "a studio is created once");
            break;
        default:
            require(snapShot->GetRenderTargets() == snapShot->GetRenderTargets(),
                    "render targets are created once");
            break;
        }
    }

    void clearComponent()
    {
        SnapShot* const snapShot = pickSnapShot();
        if (!snapShot)
            return;
        using S = SnapShot;
        static constexpr void (S::*clear[])() = {&S::ClearScheme, &S::ClearBackground,
                                                 &S::ClearNaturalLightStudio, &S::ClearScenery};
        (snapShot->*clear[m_input.below(std::size(clear))])();
    }

    void editRenderTargets()
    {
        SnapShot* const snapShot = pickSnapShot();
        if (!snapShot || isFull())
            return;
        RenderTargets* const targets = snapShot->GetRenderTargets();
        switch (m_input.below(4)) {
        case 0:
            if (RenderTarget* const target = targets->CreateRenderTarget(pick<RenderTarget>())) {
                targets->AddNode(target, true);
                ownUnlessChild(target, targets);
            }
            break;
        case 1:
            targets->Populate();
            break;
        case 2:
            targets->Clear();
            break;
        default:
            snapShot->GetPhotoFilename();
            break;
        }
    }

    SnapShots* pickCollection()
    {
        using M = RVOpenManager;
        static constexpr SnapShots* (M::*onDemand[])() = {
            &M::GetSnapShotsBackgrounds, &M::GetSnapShotsCameras,
            &M::GetSnapShotsMaterialRepositories, &M::GetTempSnapShots};
        const unsigned choice = m_input.below(std::size(onDemand) + 1);
        if (choice == std::size(onDemand))
            return m_manager->GetSnapShots();
        SnapShots* const collection = (m_manager.get()->*onDemand[choice])();
        if (collection && std::find(m_collections.begin(), m_collections.end(), collection) ==
                              m_collections.end())
            m_collections.push_back(collection);
        return collection;
    }

    void makeSnapShot()
    {
        if (isFull())
            return;
        SnapShots* const collection = pickCollection();
        if (collection && m_input.flag())
            own(collection->CreateSnapShot(m_input.flag() ? pickSnapShot() : nullptr));
        else
            own(m_manager->CreateInternalSnapShot(m_input.flag() ? pickSnapShot() : nullptr));
        m_manager->GetOriginalBackground();
    }

    void editCollection()
    {
        SnapShots* const collection = pickCollection();
        if (!collection || isFull())
            return;
        std::vector<SnapShot*> members;
        SnapShot* first = collection->GetFirstSnapShot();
        for (; first; first = first->GetNext())
            members.push_back(first);
        SnapShot* const member = members.empty() ? nullptr : members[m_input.below(members.size())];
        switch (m_input.below(6)) {
        case 0:
            addTo(collection, members.size());
            break;
        case 1:
            if (SnapShot* const snapShot = takeOwned<SnapShot>()) {
                // A walk from it went along the elements beside its own.
                if (snapShot->GetNext(0)) {
                    own(snapShot);
                    break;
                }
                collection->InsertNode(snapShot, m_input.integer());
                ownUnlessChild(snapShot, collection);
            }
            break;
        case 2:
            m_deletesNode = true;
            if (member)
                collection->DeleteNode(member);
            break;
        case 3:
            if (member) {
                collection->DetachNode(member, true);
                own(member);
            }
            break;
        case 4:
            collection->Populate();
            break;
        default:
            collection->Clear();
            break;
        }
    }

    void addTo(SnapShots* collection, std::size_t number)
    {
        SnapShot* const snapShot = takeOwned<SnapShot>();
        if (!snapShot)
            return;
        collection->AddNode(snapShot, true);
        require(collection->GetChildPos(snapShot) >= static_cast<int>(number),
                "what is added stands last");
        ownUnlessChild(snapShot, collection);
    }

    void nameSnapShot()
    {
        const auto type = static_cast<SnapShots::SnapShotType>(m_input.below(5));
        const QString name = m_manager->GetNextSnapShotName(m_input.text(), type);
        if (type == SnapShots::TypeSnapShots && m_manager->GetSnapShots()) {
            SnapShot* snapShot = m_manager->GetSnapShots()->GetFirstSnapShot();
            for (; snapShot; snapShot = snapShot->GetNext())
                require(snapShot->GetName() != name, "a new name is not taken");
        }
        if (SnapShot* const snapShot = pickSnapShot())
            snapShot->SetName(name);
    }

    void setReset()
    {
        SnapShot* const earlier = m_manager->GetResetSnapShot();
        if (m_input.flag()) {
            for (SnapShot* const owned : {earlier, m_manager->GetCurrentSnapShot(),
                                          m_manager->GetImportCurrentSnapShot()}) {
                require(!owned || (!m_manager->SetResetSnapShot(owned) &&
                                   m_manager->GetResetSnapShot() == earlier),
                        "what is owned is not owned twice");
            }
            return;
        }
        require(m_manager->SetResetSnapShot(takeOwned<SnapShot>()) == earlier,
                "the earlier one is handed back");
        own(earlier);
    }

    /// @}

    /// \name Materials
    /// @{

    void editPalette()
    {
        MaterialRepository* const palette = pickPalette();
        if (!palette || isFull())
            return;
        switch (m_input.below(7)) {
        case 6: {
            MaterialRepository* const other = pickPalette();
            Material* const material = other ? other->GetFirstMaterial() : nullptr;
            palette->AddMaterial(material);
            require(!material || palette->GetChildPos(material) == palette->GetNumChildren() - 1,
                    "a material moves to the end");
            break;
        }
        case 0: {
            Material* const material = palette->CreateMaterial();
            material->SetLinkName(m_input.text());
            own(material);
            break;
        }
        case 1:
        case 2: {
            Material* const material = takeOwned<Material>();
            const unsigned number = palette->GetNumMaterials();
            palette->AddMaterial(material);
            require(!material || palette->GetChildPos(material) >= static_cast<int>(number),
                    "a material is added last");
            palette->AddMaterial(material);
            break;
        }
        case 3:
            palette->RemoveMaterial(m_input.flag() ? palette->GetMaterial(pickLinkName())
                                                   : takeOwned<Material>());
            break;
        case 4:
            palette->Clear();
            break;
        default:
            palette->Populate();
            break;
        }
    }

    /// \p flag is 0 or 1 as the operation promises, whatever it was before.
    template <typename Component>
    void changeBy(MaterialRepository* palette,
                  Component* (MaterialRepository::*change)(Component*, QString, int*))
    {
        const QString linkName = pickLinkName();
        Component* const component = pick<Component>();
        int flag = 0;
        Component* const result =
            (palette->*change)(component, linkName, m_input.flag() ? &flag : nullptr);
        require(flag == 0 || result, "what is already present is given back");
        require(palette->GetMaterial(linkName) || !result, "without a target nothing happens");
        require(result == nullptr || component != nullptr, "null is no component");
    }

    void changeTarget()
    {
        MaterialRepository* const palette = pickPalette();
        if (!palette || isFull())
            return;
        using R = MaterialRepository;
        switch (m_input.below(6)) {
        case 0:
            changeBy(palette, &R::AddColour);
            break;
        case 1:
            changeBy(palette, &R::AddFinish);
            break;
        case 2:
            changeBy(palette, &R::AddTransparency);
            break;
        case 3:
            changeBy(palette, &R::AddBump);
            break;
        case 4:
            changeBy(palette, &R::ApplyMaterial);
            break;
        default:
            palette->AddBaseMaterial(pick<Material>(), pickLinkName());
            break;
        }
    }

    /// Hands over a free object, the one held or null.
    template <typename Component, typename Held>
    void hand(Material* material, void (Material::*set)(Component*), Held held)
    {
        Component* const present = held();
        Component* const free = m_input.flag() ? takeOwned<Component>() : nullptr;
        Component* const component = free || m_input.flag() ? free : present;
        (material->*set)(component);
        if (free)
            ownUnlessChild(free, material);
    }

    void editMaterial()
    {
        Material* const material = pick<Material>();
        // What is owned could be handed to itself.
        if (!material || isFull() || isOwned(material))
            return;
        using M = Material;
        switch (m_input.below(9)) {
        case 0:
            hand(material, &M::SetColour, [material] { return material->GetColour(0); });
            break;
        case 1:
            hand(material, &M::SetFinish, [material] { return material->GetFinish(); });
            break;
        case 2:
            hand(material, &M::SetTransparency,
                 [material] { return material->GetTransparency(0); });
            break;
        case 3:
            hand(material, &M::SetBump, [material] { return material->GetBump(0); });
            break;
        case 4:
            hand(material, &M::SetBaseMaterial, [material] { return material->GetBaseMaterial(); });
            break;
        case 5:
            material->ConsolidateBaseMaterial();
            break;
        case 6:
            if (Colour* const colour = material->GetColour(1))
                colour->SetDiffuse(m_input.flag() ? colour->GetDiffuse() : nullptr);
            break;
        case 7:
            material->Equal(pick<Material>(), m_input.flag());
            break;
        default:
            material->SetLinkName(m_input.text());
            break;
        }
    }

    bool isOwned(RVOpenNode* node) const
    {
        for (; node; node = node->GetParent()) {
            if (std::find(m_owned.begin(), m_owned.end(), node) != m_owned.end())
                return true;
        }
        return false;
    }

    void copy()
    {
        TemporaryItems* const items = m_manager->GetTemporaryItems();
        switch (m_input.below(6)) {
        case 0: {
            Material* const material = pick<Material>();
            items->SetMaterial(material);
            require((items->GetMaterial() != nullptr) == (material != nullptr),
                    "a copied material is held");
            break;
        }
        case 1:
            items->SetColour(pick<Colour>());
            break;
        case 2:
            items->SetFinish(pick<Finish>());
            break;
        case 3:
            items->SetTransparency(pick<Transparency>());
            break;
        case 4:
            items->SetBump(pick<Bump>());
            break;
        default:
            items->SetRefName(m_input.text());
            items->SetType(static_cast<TemporaryItems::ComponentType>(m_input.integer()));
            require(items->IsEmpty() ==
                        (items->GetRefname().isEmpty() && !items->GetColour() &&
                         !items->GetFinish() && !items->GetTransparency() && !items->GetBump()),
                    "a clipboard is empty without components and name");
            break;
        }
    }

    /// @}

    /// \name Archives
    /// @{

    void initialise()
    {
        m_preset = nullptr;
        m_manager->Initialise(m_input.byte(), m_input.byte(),
                              m_input.flag() ? installFolder() : scratch());
    }

    void chooseArchive()
    {
        static constexpr const char* names[] = {"Product.rvx", "Mine.rvx", "Fuzz.rvx", "", "none"};
        static constexpr const char* types[] = {"Zorvane", "Custom", "other"};
        const QString type = QLatin1String(types[m_input.below(std::size(types))]);
        m_manager->SetArchiveNode(QLatin1String(names[m_input.below(std::size(names))]), type);
        require(m_manager->GetArchiveType() == type, "the archive type is the last one given");
    }

    /// A preset serves as a source until the archives change.
    void findPreset()
    {
        static constexpr const char* types[] = {"materials", "backgrounds", "cameras", "schemes",
                                                "lenses"};
        static constexpr const char* refNames[] = {"m1", "m2", "m3", "m4", "m5", "b1", "s1", ""};
        const QString type = QLatin1String(types[m_input.below(std::size(types))]);
        if (m_input.flag()) {
            RVOpenNode* const section = m_manager->GetRVOpenNodeFromType(type, m_input.flag());
            require(!section || section->GetNodeName() == type, "a section has its name");
            return;
        }
        const QString refName = QLatin1String(refNames[m_input.below(std::size(refNames))]);
        const QString subCat = m_input.flag() ? QStringLiteral("Opaque") : QString();
        m_preset = m_manager->FindRVOpenNodeFromType(type, subCat, refName);
        m_presetArchives = openableArchives();
        require(!m_preset || (m_preset->GetRefName() == refName &&
                              (subCat.isEmpty() || m_preset->GetSubCat() == subCat)),
                "a preset is what was looked for");
    }

    void saveAndOpen()
    {
        RVOpenNode* const node = pick<RVOpenNode>();
        if (!node || isFull() || node->GetDomNode().isNull())
            return;
        const QString path = scratch() + QStringLiteral("/saved.rvx");
        const bool isSaved = m_manager->SaveArchive(path, node);
        RVOpenNode* const root = m_manager->LoadArchive(path);
        const bool empty = node->GetDomNode().ownerDocument().documentElement().isNull();
        require(isSaved != empty, "a node's document can be saved as long as it has a root");
        require(root || empty, "what was saved loads",
                [&path] { return QString::fromUtf8(readFile(path)); });
        own(root);
        if (m_input.flag())
            own(m_manager->DecodeXML(QString::fromUtf8(readFile(path))));
    }

    void closeArchive()
    {
        m_preset = nullptr;
        const QStringList known = archives();
        const QString archive =
            known[static_cast<int>(m_input.below(static_cast<std::size_t>(known.size())))];
        DirectoryHandler* const registry = GetDirectoryHandler();
        switch (m_input.below(3)) {
        case 0:
            registry->CloseArchive(archive);
            break;
        case 1:
            registry->SaveArchive(archive);
            break;
        default:
            if (RVOpenNode* const node = pick<RVOpenNode>()) {
                registry->SaveArchive(node);
                registry->ArchiveWritable(node);
            }
            break;
        }
    }

    /// @}

    /// Each chain of objects follows the document, each element has one object in it, and a
    /// snapshot's components are its children.
    void verify()
    {
        for (RVOpenNode* const node : nodes()) {
            const QDomNode element = node->GetDomNode();
            QDomNode expected = element.firstChild();
            for (RVOpenNode* child = node->GetChild(0, 0); child; child = child->GetNext(0)) {
                const QDomNode childElement = child->GetDomNode();
                if (childElement.parentNode() != element)
                    continue;
                while (!expected.isNull() && expected != childElement)
                    expected = expected.nextSibling();
                require(!expected.isNull(), "the chain of objects follows the document");
                expected = expected.nextSibling();
                require(child->GetParent() == node, "a child knows its parent");
            }
        }
        for (SnapShot* const snapShot : snapShots()) {
            for (RVOpenNode* const component :
                 {static_cast<RVOpenNode*>(snapShot->GetCamera()),
                  static_cast<RVOpenNode*>(snapShot->GetBackground()),
                  static_cast<RVOpenNode*>(snapShot->GetSnapShotSettings()),
                  static_cast<RVOpenNode*>(snapShot->GetScenery())}) {
                require(!component ||
                            component->GetDomNode().parentNode() == snapShot->GetDomNode(),
                        "a component stands in its snapshot");
            }
        }
    }

    FuzzInput& m_input;
    QByteArray m_document;
    QByteArray m_otherDocument;
    std::unique_ptr<RVOpenManager> m_manager;
    std::vector<SnapShots*> m_collections; ///< Asked for, so that asking again makes nothing.
    std::vector<RVOpenNode*> m_owned;
    bool m_deletesNode = false;
    RVOpenNode* m_preset = nullptr;
    QStringList m_presetArchives;
};

} // namespace

} // namespace rvopen::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace rvopen::fuzz;
    prepareWithApplication();
    FuzzInput input(data, size);
    Session session(input);
    for (int i = 0; i < stepLimit && !input.isEmpty(); ++i)
        session.step();
    return 0;
}

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FuzzInput.h"
#include "FuzzSupport.h"
#include "TreeModel.h"

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Material.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/SnapShot.h>

#include <QDomDocument>
#include <QDomElement>
#include <QFile>
#include <QStringList>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

/// A byte string as operations of a host on trees of nodes, compared after each with a model.
///
/// The host keeps to what RVOpenNode's header asks of it: of what was deleted it keeps no pointer.
namespace rvopen::fuzz {

namespace {

constexpr std::size_t itemLimit = 300;

struct ArchiveFile {
    const char* name;
    const char* text; ///< Null: there is no such file.
};

/// "Loop" refers to itself, "Chain" to another; the root of "Self" knows its own file.
constexpr ArchiveFile archiveFiles[] = {
    {"Full", R"(<presets id="f0"><material id="f1"><colour id="f2"/></material>)"
             R"(<camera id="f3"><param id="f4" name="A" type="float" val="1"/></camera>)"
             R"(<x id="f5"/></presets>)"},
    {"Empty", R"(<presets id="e0"/>)"},
    {"Loop", R"(<presets id="l0"><dir id="l1" archiveType="Custom" archiveFilename="Loop"/>)"
             R"(<camera id="l2" archiveType="Custom" archiveFilename="Loop"/></presets>)"},
    {"Chain", R"(<presets id="c0"><dir id="c1" archiveType="Custom" archiveFilename="Full"/>)"
              R"(</presets>)"},
    {"Self", R"(<presets id="s0" archiveType="Custom" archiveFilename="Self"><x id="s1"/>)"
             R"(</presets>)"},
    {"Malformed", R"(<presets>)"},
    {"Missing", nullptr},
};

/// The archives that earlier inputs have changed or deleted.
std::array<bool, std::size(archiveFiles)> changedFiles = [] {
    std::array<bool, std::size(archiveFiles)> all;
    all.fill(true);
    return all;
}();

class World {
public:
    explicit World(FuzzInput& input)
        : m_input(input)
    {
        for (std::size_t i = 0; i < std::size(archiveFiles); ++i) {
            Archive& archive = m_archives[i];
            archive.path = customFolder() + QLatin1Char('/') + QLatin1String(archiveFiles[i].name) +
                           QLatin1String(".rvx");
            if (changedFiles[i] && archiveFiles[i].text)
                writeFile(archive.path, archiveFiles[i].text);
            changedFiles[i] = false;
        }
        for (Document& document : m_documents)
            fill(document);
    }

    ~World()
    {
        if (m_input.flag())
            deleteDocuments();
        while (!m_free.empty()) {
            delete m_free.back().node;
            m_free.pop_back();
            verify();
        }
        deleteDocuments();
        for (Archive& archive : m_archives)
            GetDirectoryHandler()->CloseArchive(archive.path);
    }

    World(const World&) = delete;
    World& operator=(const World&) = delete;

    void step()
    {
        struct Operation {
            const char* name;
            void (World::*run)();
        };
        static constexpr Operation operations[] = {
            {"create", &World::create},
            {"add", &World::add},
            {"insert", &World::insert},
            {"detach", &World::detach},
            {"delete", &World::remove},
            {"replace", &World::replace},
            {"clone", &World::clone},
            {"set parent", &World::setParent},
            {"count", &World::count},
            {"edit the DOM", &World::editDom},
            {"refer", &World::refer},
            {"archive", &World::archiveOperation},
            {"delete free", &World::removeFree},
            {"drop document", &World::dropDocument},
            {"wrap and add", &World::wrapAndAdd},
            {"detach stranger", &World::detachStranger},
            {"move", &World::move},
            {"copy by value", &World::copyByValue},
            {"assign", &World::assign},
            {"look up", &World::lookUp},
        };
        const Operation& operation = operations[m_input.below(std::size(operations))];
        if (isTracing())
            trace(toString() + QLatin1String("\n* ") + QLatin1String(operation.name));
        (this->*operation.run)();
        verify();
    }

private:
    struct Document {
        QDomDocument dom;
        RVOpenNode* root = nullptr;
        std::unique_ptr<Item> item;
    };
    struct Free {
        RVOpenNode* node;
        std::unique_ptr<Item> item;
    };
    struct Archive {
        QString path;
        std::unique_ptr<Item> item; ///< Null while nobody here has looked into it.
    };
    struct Place {
        RVOpenNode* node = nullptr;
        Item* item = nullptr; ///< Null when the host has taken the element out of the document.
    };
    struct Children {
        Item* owner = nullptr; ///< Whose children they are; null when an archive cannot be opened.
        std::vector<RVOpenNode*> nodes;
    };
    struct Target {
        Item* item;
        bool linked; ///< False when the host keeps the object.
    };

    /// \name Making nodes
    /// @{

    QString newId()
    {
        return QLatin1Char('n') + QString::number(m_lastId++);
    }

    QDomNode newDomNode(QDomDocument document)
    {
        static constexpr const char* tags[] = {
            "x",       "dir",      "material",           "camera",        "param",
            "colour",  "snapshot", "background",         "snapshots",     "materials",
            "finish",  "map",      "materialRepository", "renderTargets", "renderTarget",
            "scenery", "diffuse",  "plainColour",        "bump",          "scheme",
        };
        const unsigned choice = m_input.below(std::size(tags) + 3);
        if (choice == std::size(tags))
            return document.createTextNode(newId());
        if (choice == std::size(tags) + 1)
            return document.createComment(newId());
        const bool shader = choice == std::size(tags) + 2;
        QDomElement element =
            document.createElement(shader ? QStringLiteral("param") : QLatin1String(tags[choice]));
        element.setAttribute(QStringLiteral("id"), newId());
        if (shader) {
            element.setAttribute(QStringLiteral("type"), QStringLiteral("shader"));
            element.setAttribute(QStringLiteral("val"), m_input.flag() ? QStringLiteral("colour")
                                                                       : QStringLiteral("other"));
        }
        return element;
    }

    QDomElement newElement(QDomDocument document)
    {
        for (;;) {
            const QDomNode node = newDomNode(document);
            if (node.isElement() && !hasNoObject(node))
                return node.toElement();
        }
    }

    void addDomChildren(QDomElement element, int depth)
    {
        for (unsigned i = m_input.below(4); i > 0; --i) {
            const QDomNode child = newDomNode(element.ownerDocument());
            element.appendChild(child);
            if (child.isElement() && depth > 0)
                addDomChildren(child.toElement(), depth - 1);
        }
    }

    void fill(Document& document)
    {
        document.dom = QDomDocument();
        QDomElement element = document.dom.createElement(QStringLiteral("root"));
        element.setAttribute(QStringLiteral("id"), newId());
        document.dom.appendChild(element);
        document.root = RVOpenSchema::createNode(element);
        document.item = itemsOf(element);
    }

    void deleteDocuments()
    {
        for (Document& document : m_documents) {
            delete document.root;
            document = Document();
        }
        verify();
    }

    /// @}

    /// \name Finding nodes
    /// @{

    Archive* archiveNamed(const QString& path)
    {
        for (Archive& archive : m_archives) {
            if (archive.path == path)
                return &archive;
        }
        return nullptr;
    }

    /// The root of an archive, opened as the library would open it. Null when it cannot be.
    RVOpenNode* open(Archive& archive)
    {
        RVOpenNode* const root = GetDirectoryHandler()->LoadArchive(archive.path);
        if (!root) {
            require(!archive.item, "an archive stays open until it is closed or removed");
            return nullptr;
        }
        if (!archive.item)
            archive.item = itemsOf(root->GetDomNode());
        return root;
    }

    /// The archive that \p node stands for, opened. Null when it cannot be.
    RVOpenNode* archiveRootOf(RVOpenNode* node)
    {
        Archive* const archive = archiveNamed(node->GetArchiveFilename());
        return archive ? open(*archive) : nullptr;
    }

    Item* itemOf(const QDomNode& node)
    {
        const QDomNode parent = node.parentNode();
        if (!parent.isNull() && !parent.isDocument()) {
            Item* const item = itemOf(parent);
            return item ? item->children[positionOf(node)].get() : nullptr;
        }
        for (const Document& document : m_documents) {
            if (document.root && document.root->GetDomNode() == node)
                return document.item.get();
        }
        for (const Free& free : m_free) {
            if (free.node->GetDomNode() == node)
                return free.item.get();
        }
        for (Archive& archive : m_archives) {
            if (archive.item && open(archive)->GetDomNode() == node)
                return archive.item.get();
        }
        return nullptr;
    }

    /// Where the children of \p place are.
    Item* ownerOf(const Place& place)
    {
        if (place.node->GetChild(0, 0) || place.node->GetArchiveFilename().isEmpty())
            return place.item;
        RVOpenNode* const root = archiveRootOf(place.node);
        return root ? itemOf(root->GetDomNode()) : nullptr;
    }

    /// Makes all children.
    Children childrenOf(const Place& place)
    {
        Children children;
        children.owner = ownerOf(place);
        for (RVOpenNode* child = place.node->GetChild(1, 1); child; child = child->GetNext(1)) {
            children.nodes.push_back(child);
            require(children.nodes.size() < 10 * itemLimit, "a chain of siblings ends");
        }
        if (!children.owner) {
            require(children.nodes.empty() || !place.item,
                    "an archive that cannot be opened has no children");
        } else if (!children.owner->loose) {
            require(children.nodes.size() == children.owner->children.size(),
                    "every DOM child has its object");
        }
        return children;
    }

    Place placeOf(RVOpenNode* node)
    {
        return {node, itemOf(node->GetDomNode())};
    }

    Place pickRoot()
    {
        const std::size_t count = m_documents.size() + m_free.size();
        // One choice more for the archives.
        const unsigned choice = m_input.below(count + 1);
        if (choice < m_documents.size())
            return {m_documents[choice].root, m_documents[choice].item.get()};
        if (choice < count) {
            const Free& free = m_free[choice - m_documents.size()];
            return {free.node, free.item.get()};
        }
        Archive& archive = m_archives[m_input.below(m_archives.size())];
        RVOpenNode* const root = open(archive);
        return root ? Place{root, archive.item.get()}
                    : Place{m_documents[0].root, m_documents[0].item.get()};
    }

    /// Any node whose element is in a document, an archive or a free tree.
    Place pick()
    {
        Place place = pickRoot();
        for (int depth = 0; depth < 6; ++depth) {
            const unsigned choice = m_input.byte();
            if (choice % 4 == 0)
                break;
            const Children children = childrenOf(place);
            if (children.nodes.empty())
                break;
            const Place below = placeOf(children.nodes[choice / 4 % children.nodes.size()]);
            if (!below.item)
                break;
            place = below;
        }
        trace(QLatin1String("  at ") + place.item->id);
        return place;
    }

    /// Any free node; the number of them when there is none.
    std::size_t pickFree()
    {
        const std::size_t choice = m_input.below(m_free.size());
        if (choice < m_free.size())
            trace(QLatin1String("  free ") + m_free[choice].item->id);
        return choice;
    }

    Free takeFree(std::size_t index)
    {
        Free free = std::move(m_free[index]);
        m_free.erase(m_free.begin() + static_cast<std::ptrdiff_t>(index));
        return free;
    }

    std::size_t size() const
    {
        std::size_t result = 0;
        for (const Document& document : m_documents)
            result += document.item->count();
        for (const Free& free : m_free)
            result += free.item->count();
        return result;
    }

    /// @}

    /// \name Operations
    /// @{

    void create()
    {
        if (size() > itemLimit)
            return;
        Document& document = m_documents[m_input.below(m_documents.size())];
        const QDomElement element = newElement(document.dom);
        addDomChildren(element, 1);
        RVOpenNode* const node = RVOpenSchema::createNode(element);
        require(node != nullptr, "an element has its object");
        m_free.push_back({node, itemsOf(element)});
    }

    Target targetOfAdd(const Place& place, bool follow)
    {
        if (place.node->GetChild(0, 0) || place.node->GetArchiveFilename().isEmpty())
            return {place.item, true};
        RVOpenNode* const root = archiveRootOf(place.node);
        if (root && (follow || root->GetChild(1, 0)))
            return {itemOf(root->GetDomNode()), true};
        if (follow)
            return {place.item, false};
        // The child becomes the first object, whatever elements there are before its own.
        if (!place.item->children.empty())
            place.item->loose = true;
        return {place.item, true};
    }

    Target targetOfInsert(const Place& place)
    {
        Item* const owner = ownerOf(place);
        return owner ? Target{owner, true} : Target{place.item, false};
    }

    /// After \p free was put under a node that could not take the object.
    void finishUnlinked(Free free, Item* item)
    {
        verify();
        free.item = item->take();
        if (m_input.flag()) {
            delete free.node;
            return;
        }
        QDomNode element = free.node->GetDomNode();
        element.parentNode().removeChild(element);
        m_free.push_back(std::move(free));
    }

    void put(Free free, const Target& target, std::size_t position)
    {
        Item* const item = target.item->insert(position, std::move(free.item));
        if (!target.linked)
            finishUnlinked(std::move(free), item);
    }

    void add()
    {
        const std::size_t index = pickFree();
        if (index == m_free.size())
            return;
        const Place place = pick();
        const bool follow = m_input.flag();
        if (place.item->isWithin(m_free[index].item.get())) {
            place.node->AddNode(m_free[index].node, follow);
            return;
        }
        const Target target = targetOfAdd(place, follow);
        place.node->AddNode(m_free[index].node, follow);
        put(takeFree(index), target, target.item->children.size());
    }

    int pickIndex(const Item* item)
    {
        return static_cast<int>(m_input.below(item->children.size() + 3)) - 1;
    }

    static std::size_t clamped(int index)
    {
        return static_cast<std::size_t>(std::max(index, 0));
    }

    /// What a child that is inserted at \p index comes to stand behind: the object there, where its
    /// element stands there too. Null where all nodes of the element count.
    Item* previousOf(const Place& place, const Target& target, int index, const RVOpenNode* moved)
    {
        if (!target.linked || index <= 0)
            return nullptr;
        std::vector<RVOpenNode*> nodes = childrenOf(place).nodes;
        nodes.erase(std::remove(nodes.begin(), nodes.end(), moved), nodes.end());
        if (nodes.size() < static_cast<std::size_t>(index))
            return nullptr;
        Item* const item = itemOf(nodes[static_cast<std::size_t>(index) - 1]->GetDomNode());
        return item && item->parent == target.item ? item : nullptr;
    }

    static std::size_t placeBehind(const Item* previous, int index)
    {
        return previous ? previous->position() + 1 : clamped(index);
    }

    void insert()
    {
        const std::size_t index = pickFree();
        if (index == m_free.size())
            return;
        const Place place = pick();
        if (place.item->isWithin(m_free[index].item.get())) {
            place.node->InsertNode(m_free[index].node, 0);
            return;
        }
        const Target target = targetOfInsert(place);
        const int position = pickIndex(target.item);
        const Item* const previous = previousOf(place, target, position, nullptr);
        place.node->InsertNode(m_free[index].node, position);
        put(takeFree(index), target, placeBehind(previous, position));
    }

    void detach()
    {
        const Place place = pick();
        const Children children = childrenOf(place);
        if (children.nodes.empty())
            return;
        RVOpenNode* const child = children.nodes[m_input.below(children.nodes.size())];
        Item* const item = itemOf(child->GetDomNode());
        RVOpenNode* const parent = child->GetParent();
        place.node->DetachNode(child, m_input.flag());
        require(!child->GetNext(0), "a detached node has no next");
        require(child->GetParent() == parent, "a detached node keeps its parent link");
        if (!item) {
            require(child->GetDomNode().isNull(), "what was no DOM child ends up bound to nothing");
            delete child;
            return;
        }
        require(!child->GetDomNode().isNull(), "a detached child keeps its element");
        m_free.push_back({child, item->take()});
        if (m_input.flag())
            child->SetParent(nullptr);
    }

    /// What DeleteNode() did beyond the node: \p path is the archive that the node stood for.
    void forgetRemoved(const QString& path)
    {
        Archive* const archive = archiveNamed(path);
        if (!archive)
            return;
        const bool isFile = QFile::exists(path);
        require(!isFile || !archive->item,
                "deleting a reference to an open archive deletes the archive's file");
        if (isFile)
            return;
        archive->item.reset();
        markChanged(*archive);
    }

    /// The archive that goes with a child that is about to be deleted.
    QString takeItemOf(RVOpenNode* child)
    {
        Item* const item = itemOf(child->GetDomNode());
        if (!item)
            return QString();
        item->take();
        return child->GetArchiveFilename();
    }

    void remove()
    {
        const Place place = pick();
        const Children children = childrenOf(place);
        if (children.nodes.empty())
            return;
        RVOpenNode* const child = children.nodes[m_input.below(children.nodes.size())];
        const QString archive = takeItemOf(child);
        place.node->DeleteNode(child);
        forgetRemoved(archive);
    }

    void replace()
    {
        const std::size_t index = pickFree();
        if (index == m_free.size())
            return;
        const Place place = pick();
        const Children children = childrenOf(place);
        const unsigned position = m_input.below(children.nodes.size() + 1);
        if (position == children.nodes.size()) {
            // No child: nothing happens.
            place.node->ReplaceNode(m_documents[0].root, m_free[index].node);
            return;
        }
        if (place.item->isWithin(m_free[index].item.get())) {
            place.node->ReplaceNode(children.nodes[position], m_free[index].node);
            return;
        }
        RVOpenNode* const old = children.nodes[position];
        // The archive that it stood for stays, and stays open.
        takeItemOf(old);
        place.node->ReplaceNode(old, m_free[index].node);
        children.owner->insert(position, takeFree(index).item);
    }

    static RVOpenNode* cloneOf(RVOpenNode* node)
    {
        if (dynamic_cast<SnapShot*>(node))
            return new SnapShot(node);
        if (dynamic_cast<Material*>(node))
            return new Material(node);
        if (dynamic_cast<Camera*>(node))
            return new Camera(node);
        if (dynamic_cast<Background*>(node))
            return new Background(node);
        return new RVOpenNode(node);
    }

    void clone()
    {
        const Place place = pick();
        if (size() + place.item->count() > itemLimit)
            return;
        m_free.push_back({cloneOf(place.node), place.item->clone()});
    }

    void setParent()
    {
        const std::size_t index = pickFree();
        if (index == m_free.size())
            return;
        if (m_input.flag()) {
            m_free[index].node->SetParent(nullptr);
            return;
        }
        const Place place = pick();
        if (place.item->isWithin(m_free[index].item.get()))
            return;
        m_free[index].node->SetParent(place.node);
        put(takeFree(index), {place.item, false}, place.item->children.size());
    }

    void count()
    {
        const Place place = pick();
        if (m_input.flag())
            place.node->GetChild(1, 0);
        if (!place.node->GetChild(0, 1))
            require(place.node->GetNumChildren() == 0, "children that are not made do not count");
        const Children children = childrenOf(place);
        const int number = static_cast<int>(children.nodes.size());
        require(place.node->GetChildPos(nullptr) == number,
                "the position of a stranger is the number of children");
        if (children.nodes.empty())
            return;
        const unsigned position = m_input.below(children.nodes.size());
        RVOpenNode* const child = children.nodes[position];
        require(place.node->GetChildPos(child) == static_cast<int>(position),
                "a child knows its position");
        require(child->GetNumSiblings() == number - static_cast<int>(position),
                "a chain is counted from where it is asked");
        RVOpenNode* const owner = child->GetParent();
        require(owner->GetNumChildren() == number, "made children count");
        if (itemOf(child->GetDomNode()))
            child->SetParent(owner);
    }

    static std::size_t madeChildren(RVOpenNode* node)
    {
        std::size_t result = 0;
        for (node = node->GetChild(0, 0); node; node = node->GetNext(0))
            ++result;
        return result;
    }

    void editDom()
    {
        const Place place = pick();
        QDomNode element = place.node->GetDomNode();
        if (!element.isElement())
            return;
        const bool removing = m_input.flag();
        const std::size_t number = place.item->children.size();
        const std::size_t position = m_input.below(removing ? number : number + 1);
        // Beyond the objects that are made, the walk to come sees what it should.
        const bool behindTheirBack = position < madeChildren(place.node);
        if (removing) {
            if (number == 0)
                return;
            element.removeChild(element.childNodes().at(static_cast<int>(position)));
            place.item->children[position]->take();
        } else {
            if (size() > itemLimit)
                return;
            const QDomNode child = newDomNode(element.ownerDocument());
            element.insertBefore(child, element.childNodes().at(static_cast<int>(position)));
            if (position == number)
                element.appendChild(child);
            place.item->insert(position, itemsOf(child));
        }
        if (behindTheirBack)
            place.item->loose = true;
    }

    void refer()
    {
        const Place place = pick();
        // An archive whose root stands for another one forwards twice, which is not modelled.
        for (const Archive& archive : m_archives) {
            if (archive.item.get() == place.item)
                return;
        }
        const unsigned choice = m_input.below(std::size(archiveFiles) + 1);
        if (choice == std::size(archiveFiles)) {
            place.node->SetShortArchiveFilename(QString());
            return;
        }
        place.node->SetAttributeString("archiveType", QStringLiteral("Custom"));
        place.node->SetShortArchiveFilename(QLatin1String(archiveFiles[choice].name));
    }

    void markChanged(const Archive& archive)
    {
        changedFiles[static_cast<std::size_t>(&archive - m_archives.data())] = true;
    }

    void archiveOperation()
    {
        Archive& archive = m_archives[m_input.below(m_archives.size())];
        trace(QLatin1String("  ") + archive.path);
        DirectoryHandler* const registry = GetDirectoryHandler();
        switch (m_input.below(3)) {
        case 0:
            require(open(archive) == open(archive), "an archive is opened once");
            return;
        case 1:
            registry->CloseArchive(archive.path);
            archive.item.reset();
            return;
        default:
            break;
        }
        if (!open(archive))
            return;
        markChanged(archive);
        require(registry->SaveArchive(archive.path), "an open archive can be saved");
        const bool onlyElements = holdsOnlyElements(open(archive)->GetDomNode());
        const std::unique_ptr<Item> saved = std::move(archive.item);
        registry->CloseArchive(archive.path);
        require(open(archive) != nullptr, "what was saved can be opened");
        if (onlyElements) {
            requireEqual(saved->clone()->toString(), archive.item->clone()->toString(),
                         "what was saved comes back as it was");
        }
    }

    /// The layout of a saved file adds blanks beside texts.
    static bool holdsOnlyElements(const QDomNode& node)
    {
        for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
            if (!child.isElement() || !holdsOnlyElements(child))
                return false;
        }
        return true;
    }

    void removeFree()
    {
        const std::size_t index = pickFree();
        if (index < m_free.size())
            delete takeFree(index).node;
    }

    void dropDocument()
    {
        Document& document = m_documents[m_input.below(m_documents.size())];
        delete document.root;
        fill(document);
    }

    /// The host wraps an element that has no object yet and adds or deletes that object.
    void wrapAndAdd()
    {
        const Place from = pick();
        if (from.node->GetChild(0, 0) || from.item->children.empty())
            return;
        const std::size_t position = m_input.below(from.item->children.size());
        Item* const item = from.item->children[position].get();
        const QDomNode element =
            from.node->GetDomNode().childNodes().at(static_cast<int>(position));
        if (isInSnapShot(element))
            return;
        auto* const node = new RVOpenNode();
        node->SetDomNode(element);
        if (m_input.flag()) {
            delete node;
            item->take();
            return;
        }
        const Place to = pick();
        // What is added must be in no tree: making the children there may have made its object.
        const bool isThere = childrenOf(to).owner == from.item || to.item == from.item;
        if (isThere || to.item->isWithin(item) || from.node->GetChild(0, 0) ||
            size() + item->count() > itemLimit) {
            node->SetDomNode(QDomNode());
            delete node;
            return;
        }
        const bool copies = element.ownerDocument() != to.node->GetDomNode().ownerDocument();
        trace(copies ? QStringLiteral("  copies") : QStringLiteral("  moves"));
        m_input.flag() ? insertWrapped(node, item, to) : addWrapped(node, item, to);
    }

    /// A snapshot may have objects for what is in its components that no walk comes across.
    static bool isInSnapShot(QDomNode node)
    {
        while (!node.isNull() && node.nodeName() != QLatin1String("snapshot"))
            node = node.parentNode();
        return !node.isNull();
    }

    void insertWrapped(RVOpenNode* node, Item* item, const Place& to)
    {
        const Target target = targetOfInsert(to);
        // Which document counts is that of the children's owner.
        const bool copies = !sameDocument(node, target.item);
        const int position = pickIndex(target.item);
        const Item* const previous = previousOf(to, target, position, node);
        to.node->InsertNode(node, position);
        Free free{node, copies ? item->clone() : item->take()};
        put(std::move(free), target, placeBehind(previous, position));
    }

    void addWrapped(RVOpenNode* node, Item* item, const Place& to)
    {
        const bool follow = m_input.flag();
        const Target target = targetOfAdd(to, follow);
        const bool copies = !sameDocument(node, target.item);
        to.node->AddNode(node, follow);
        if (!copies) {
            put({node, item->take()}, target, target.item->children.size());
            return;
        }
        target.item->append(item->clone());
        if (target.linked) {
            // The object in the chain still wraps the element in the other document.
            if (m_input.flag()) {
                to.node->DeleteNode(node);
                return;
            }
            to.node->DetachNode(node, true);
            require(node->GetDomNode().isNull(), "what was no DOM child ends up bound to nothing");
        }
        node->SetDomNode(QDomNode());
        delete node;
    }

    /// The host adds what is in a tree already: again, to another tree or to another document.
    void move()
    {
        const Place from = pick();
        const Children children = childrenOf(from);
        if (children.nodes.empty())
            return;
        RVOpenNode* const child = children.nodes[m_input.below(children.nodes.size())];
        Item* const item = itemOf(child->GetDomNode());
        if (!item || isInSnapShot(child->GetDomNode().parentNode()) || isLoose(*item))
            return;
        const Place to = pick();
        if (isInSnapShot(to.node->GetDomNode()) || size() + item->count() > itemLimit)
            return;
        const bool inserts = m_input.flag();
        const bool follow = m_input.flag();
        const Target target = inserts ? targetOfInsert(to) : targetOfAdd(to, follow);
        if (to.item->isWithin(item) || target.item->isWithin(item)) {
            inserts ? to.node->InsertNode(child, 0) : to.node->AddNode(child, follow);
            return;
        }
        const bool copies = !sameDocument(child, target.item);
        trace(copies ? QStringLiteral("  copies") : QStringLiteral("  moves"));
        if (inserts) {
            const int position = pickIndex(target.item);
            const Item* const previous = previousOf(to, target, position, child);
            to.node->InsertNode(child, position);
            Free free{child, copies ? item->clone() : item->take()};
            put(std::move(free), target, placeBehind(previous, position));
            return;
        }
        to.node->AddNode(child, follow);
        if (!copies) {
            Free free{child, item->take()};
            put(std::move(free), target, target.item->children.size());
            return;
        }
        target.item->append(item->clone());
        if (target.linked && m_input.flag())
            to.node->DeleteNode(child);
        else
            delete child;
    }

    static bool isLoose(const Item& item)
    {
        bool loose = item.loose;
        for (const auto& child : item.children)
            loose = loose || isLoose(*child);
        return loose;
    }

    template <typename Class>
    void copyAs(Class* node)
    {
        auto copy = std::make_unique<Class>(*node);
        require(copy->GetChild(0, 0) == node->GetChild(0, 0) &&
                    copy->GetDomNode() == node->GetDomNode(),
                "a copy shows what its source shows");
        std::vector<Class> more(1, *copy);
        more.push_back(*node);
        copy.reset();
        verify();
    }

    void copyByValue()
    {
        RVOpenNode* const node = pick().node;
        if (auto* const snapShot = dynamic_cast<SnapShot*>(node))
            copyAs(snapShot);
        else if (auto* const material = dynamic_cast<Material*>(node))
            copyAs(material);
        else
            copyAs(node);
    }

    /// A free node becomes a copy of another one, and then goes.
    void assign()
    {
        const std::size_t index = pickFree();
        if (index == m_free.size())
            return;
        const Place place = pick();
        if (place.item->isWithin(m_free[index].item.get()))
            return;
        const Free free = takeFree(index);
        *free.node = *place.node;
        delete free.node;
    }

    /// Comments and the like hide no parameter, any other child does.
    void lookUp()
    {
        const Place place = pick();
        const Children children = childrenOf(place);
        if (!place.node->GetChild(0, 0) || place.item->loose || children.owner != place.item)
            return;
        const auto isHidden = [](RVOpenNode* node) {
            return node->GetDomNode().isComment() || node->GetDomNode().isProcessingInstruction();
        };
        const auto first = std::find_if_not(children.nodes.begin(), children.nodes.end(), isHidden);
        RVOpenNode* const expected = first == children.nodes.end() ? nullptr : *first;
        require(place.node->GetParamHelper()->GetFirstParam() == dynamic_cast<Param*>(expected),
                "look-ups step over comments and nothing else");
    }

    bool sameDocument(RVOpenNode* node, const Item* item)
    {
        const Item* root = item;
        while (root->parent)
            root = root->parent;
        QDomDocument document;
        for (const Document& candidate : m_documents) {
            if (candidate.item.get() == root)
                document = candidate.dom;
        }
        for (const Free& free : m_free) {
            if (free.item.get() == root)
                document = free.node->GetDomNode().ownerDocument();
        }
        for (Archive& archive : m_archives) {
            if (archive.item.get() == root)
                document = open(archive)->GetDomNode().ownerDocument();
        }
        return node->GetDomNode().ownerDocument() == document;
    }

    void detachStranger()
    {
        const std::size_t index = pickFree();
        if (index == m_free.size())
            return;
        const Place place = pick();
        if (place.item->isWithin(m_free[index].item.get()))
            return;
        const bool hasChildren = place.node->GetChild(1, 1) != nullptr;
        RVOpenNode* const node = m_free[index].node;
        place.node->DetachNode(node, m_input.flag());
        require(node->GetDomNode().isNull() == hasChildren,
                "what is no child ends up bound to nothing");
        if (hasChildren)
            delete takeFree(index).node;
    }

    /// @}

    /// \name Comparing
    /// @{

    void verify()
    {
        for (const Document& document : m_documents) {
            if (document.root)
                verifyTree(document.root, *document.item);
        }
        for (const Free& free : m_free) {
            require(free.node->GetDomNode().parentNode().isNull(), "a free node stands nowhere");
            verifyTree(free.node, *free.item);
        }
        for (Archive& archive : m_archives) {
            if (archive.item)
                verifyTree(open(archive), *archive.item);
        }
    }

    void verifyTree(RVOpenNode* root, Item& item)
    {
        require(idOf(root->GetDomNode()) == item.id, "a root stays what it is");
        verifyDom(root->GetDomNode(), item);
        verifyObjects(root, item);
    }

    void verifyDom(const QDomNode& node, Item& item)
    {
        std::size_t position = 0;
        for (QDomNode child = node.firstChild(); !child.isNull();
             child = child.nextSibling(), ++position) {
            require(position < item.children.size() && idOf(child) == item.children[position]->id,
                    "the document holds what the operations left, in that order",
                    [&] { return described(node, item); });
            verifyDom(child, *item.children[position]);
            if (hasNoObject(child))
                item.loose = true;
        }
        require(position == item.children.size(), "nothing is lost",
                [&] { return described(node, item); });
    }

    QString described(const QDomNode& node, const Item& item)
    {
        return QLatin1String("expected ") + item.toString() + QLatin1String("\nfound    ") +
               itemsOf(node)->toString();
    }

    void verifyObjects(RVOpenNode* node, Item& item)
    {
        std::size_t position = 0;
        for (RVOpenNode* child = node->GetChild(0, 0); child;
             child = child->GetNext(0), ++position) {
            require(position < 10 * itemLimit, "a chain of siblings ends");
            require(child->GetParent() == node, "a child knows its parent");
            const QDomNode element = child->GetDomNode();
            const bool isChild = element.parentNode() == node->GetDomNode();
            if (item.loose) {
                if (isChild)
                    verifyObjects(child, *item.children[positionOf(element)]);
                continue;
            }
            require(isChild && position < item.children.size() && positionOf(element) == position,
                    "the chain of objects follows the document");
            verifyObjects(child, *item.children[position]);
        }
    }

    QString toString() const
    {
        QStringList texts;
        for (const Document& document : m_documents)
            texts << QLatin1String("document ") + document.item->toString();
        for (const Free& free : m_free)
            texts << QLatin1String("free ") + free.item->toString();
        for (const Archive& archive : m_archives) {
            if (archive.item)
                texts << QLatin1String("archive ") + archive.item->toString();
        }
        return texts.join(QLatin1Char('\n'));
    }

    /// @}

    FuzzInput& m_input;
    int m_lastId = 0;
    std::array<Document, 2> m_documents;
    std::vector<Free> m_free;
    std::array<Archive, std::size(archiveFiles)> m_archives;
};

} // namespace

} // namespace rvopen::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace rvopen::fuzz;
    prepare();
    FuzzInput input(data, size);
    World world(input);
    while (!input.isEmpty())
        world.step();
    return 0;
}

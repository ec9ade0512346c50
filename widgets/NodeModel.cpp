// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/NodeModel.h>

#include "NodeMime.h"
#include "NodeRows.h"
#include "Nodes.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/host/Owned.h>
#include <rvopen/toolkit/edit/Arriving.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/images/FollowedImages.h>

#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

/// The element of that row is written past the objects of the tree, which read it anew.
class View {
public:
    explicit View(const QDomElement& element)
    {
        node.SetDomNode(element);
    }
    ~View()
    {
        node.SetDomNode(QDomNode());
    }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    RVOpenNode node;
};

/// Which of the objects below the parent comes behind \p before, null for the first.
int placeBehind(RVOpenNode* parent, const QDomElement& before)
{
    int place = 0;
    if (before.isNull())
        return place;
    for (RVOpenNode* child = parent->GetChild(1, 0); child; child = child->GetNext(1)) {
        ++place;
        if (child->GetDomNode() == before)
            return place;
    }
    return place;
}

} // namespace

NodeModel::NodeModel(QObject* parent)
    : QAbstractItemModel(parent)
{
}

NodeModel::~NodeModel() = default;

void NodeModel::SetFile(const QString& file)
{
    m_file = file;
}

QString NodeModel::File() const
{
    return m_file;
}

QDomElement NodeModel::Root() const
{
    return m_rows ? m_rows->top().element : QDomElement();
}

QDomElement NodeModel::Element(const QModelIndex& index) const
{
    return m_rows ? m_rows->rowOf(index).element : QDomElement();
}

QModelIndex NodeModel::IndexOf(const QDomElement& element) const
{
    const NodeRows::Row* const row = m_rows ? m_rows->find(element) : nullptr;
    return row ? m_rows->indexOf(*row) : QModelIndex();
}

QModelIndex NodeModel::Fetch(const QDomElement& element)
{
    NodeRows::Row* row = m_rows ? m_rows->find(element) : nullptr;
    while (row && !row->isFetched) {
        m_rows->fetch(*row);
        row = m_rows->find(element);
    }
    return row ? m_rows->indexOf(*row) : QModelIndex();
}

RVOpenNode* NodeModel::Node(const QModelIndex& index) const
{
    return index.isValid() ? nodeOf(Element(index)) : nullptr;
}

QString NodeModel::MimeType()
{
    return NodeMime::type();
}

QModelIndex NodeModel::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent)
               ? createIndex(row, column, m_rows->rowOf(parent).rows[std::size_t(row)].get())
               : QModelIndex();
}

QModelIndex NodeModel::parent(const QModelIndex& index) const
{
    return index.isValid() ? m_rows->indexOf(*m_rows->rowOf(index).parent) : QModelIndex();
}

int NodeModel::rowCount(const QModelIndex& parent) const
{
    return m_rows && parent.column() <= 0 ? int(m_rows->rowOf(parent).rows.size()) : 0;
}

int NodeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return ColumnCount;
}

bool NodeModel::hasChildren(const QModelIndex& parent) const
{
    return m_rows && parent.column() <= 0 && m_rows->hasRows(m_rows->rowOf(parent));
}

bool NodeModel::canFetchMore(const QModelIndex& parent) const
{
    return hasChildren(parent) && !m_rows->rowOf(parent).isFetched;
}

void NodeModel::fetchMore(const QModelIndex& parent)
{
    if (canFetchMore(parent))
        m_rows->fetch(m_rows->rowOf(parent));
}

QVariant NodeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const QDomElement element = Element(index);
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == Kind || IdentityOf(element).isEmpty() ? element.tagName()
                                                                       : IdentityOf(element);
    case Qt::EditRole:
        return index.column() == Kind ? element.tagName()
                                      : element.attribute(QStringLiteral("name"));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return element.attribute(QStringLiteral("desc"));
    case PathRole:
        return PathOf(element);
    case RefNameRole:
        return element.attribute(QStringLiteral("refname"));
    case LinkNameRole:
        return element.attribute(QStringLiteral("linkname"));
    case CategoryRole:
        return element.attribute(QStringLiteral("cat"));
    case SubCategoryRole:
        return element.attribute(QStringLiteral("subcat"));
    default:
        return QVariant();
    }
}

bool NodeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const QString name = value.toString();
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable) || name.isEmpty() ||
        m_rows->isTold())
        return false;
    const QDomElement element = Element(index);
    View(element).node.SetName(name);
    return element.attribute(QStringLiteral("name")) == name;
}

Qt::ItemFlags NodeModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (!index.isValid())
        return flags | Qt::ItemIsDropEnabled;
    // What holds rows at the top stays there: sections of archives.
    const bool isSection = !index.parent().isValid() && isShelf(Element(index));
    Qt::ItemFlags more = index.column() == Name ? Qt::ItemIsEditable : Qt::NoItemFlags;
    if (!isSection)
        more |= Qt::ItemIsDragEnabled;
    more |= isShelf(Element(index)) ? Qt::ItemIsDropEnabled : Qt::ItemNeverHasChildren;
    return flags | more;
}

QVariant NodeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractItemModel::headerData(section, orientation, role);
    return section == Name ? tr("Name") : section == Kind ? tr("Kind") : QVariant();
}

bool NodeModel::removeRows(int row, int count, const QModelIndex& parent)
{
    if (row < 0 || count <= 0 || row + count > rowCount(parent) || m_rows->isTold())
        return false;
    RVOpenNode* const owner = nodeOf(Element(parent));
    std::vector<RVOpenNode*> nodes;
    for (int i = row; i < row + count; ++i)
        nodes.push_back(Node(index(i, 0, parent)));
    if (!owner || std::find(nodes.begin(), nodes.end(), nullptr) != nodes.end())
        return false;
    const RVOpenBlock block;
    for (RVOpenNode* const node : nodes) {
        // An archive that a folder stands for keeps its file.
        const host::Owned<> gone = host::detach(owner, node);
    }
    return true;
}

Qt::DropActions NodeModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

QStringList NodeModel::mimeTypes() const
{
    return {MimeType()};
}

QMimeData* NodeModel::mimeData(const QModelIndexList& indexes) const
{
    std::vector<QDomElement> elements;
    for (const QModelIndex& index : indexes) {
        const QDomElement element = Element(index);
        if (std::find(elements.begin(), elements.end(), element) == elements.end())
            elements.push_back(element);
    }
    std::vector<QDomElement> outermost;
    for (const QDomElement& element : elements) {
        if (std::none_of(elements.begin(), elements.end(), [&element](const QDomElement& other) {
                return other != element && isInside(element, other);
            }))
            outermost.push_back(element);
    }
    QStringList files;
    for (std::size_t i = 0; i < outermost.size(); ++i)
        files << m_file;
    return new NodeMime(this, outermost, files);
}

bool NodeModel::canDropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int /*row*/,
                                int /*column*/, const QModelIndex& parent) const
{
    const QDomElement shelf = Element(parent);
    if (!data || shelf.isNull() || !data->hasFormat(MimeType()))
        return false;
    const NodeMime* const own = qobject_cast<const NodeMime*>(data);
    QDomDocument document;
    const std::vector<QDomElement> elements =
        own ? own->elements() : NodeMime::read(*data, document);
    return !elements.empty() &&
           std::all_of(elements.begin(), elements.end(), [&shelf](const QDomElement& element) {
               return ProblemOfPlace(element, shelf).isEmpty();
           });
}

bool NodeModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                             const QModelIndex& parent)
{
    if (!canDropMimeData(data, action, row, column, parent) || m_rows->isTold())
        return false;
    fetchMore(parent);
    const QDomElement shelf = Element(parent);
    RVOpenNode* const owner = nodeOf(shelf);
    if (!owner)
        return false;
    const NodeMime* const own = qobject_cast<const NodeMime*>(data);
    const bool isMove = own && own->source() == this && action == Qt::MoveAction;
    QDomDocument document;
    const std::vector<QDomElement> elements =
        own ? own->elements() : NodeMime::read(*data, document);
    const int rows = rowCount(parent);
    const int place = row < 0 || row > rows ? rows : row;
    // What stays where it is, so that the place behind it does.
    QModelIndex before = index(place - 1, 0, parent);
    while (isMove && before.isValid() &&
           std::find(elements.begin(), elements.end(), Element(before)) != elements.end())
        before = index(before.row() - 1, 0, parent);
    QDomElement behind = before.isValid() ? Element(before) : QDomElement();

    const QStringList files = NodeMime::filesOf(*data);
    const RVOpenBlock block;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const QDomElement& element = elements[i];
        host::Owned<> node;
        if (isMove) {
            RVOpenNode* const from = nodeOf(element.parentNode().toElement());
            node = host::detach(from, nodeOf(element));
        } else {
            const QDomElement copy = CopyFor(element, shelf);
            const QString from = files.value(int(i));
            if (!from.isEmpty() && !m_file.isEmpty())
                FollowImages(copy, from, m_file);
            node.reset(RVOpenSchema::createNode(copy));
        }
        if (!node)
            return false;
        const QDomElement added = node->GetDomNode().toElement();
        owner->InsertNode(node.release(), placeBehind(owner, behind));
        behind = added;
    }
    return !isMove;
}

RVOpenNode* NodeModel::findRoot() const
{
    return nullptr;
}

void NodeModel::setRoot(RVOpenNode* root, const QDomDocument& document)
{
    const QDomDocument observed = root ? root->GetDomNode().ownerDocument() : document;
    beginResetModel();
    m_rows = observed.isNull() ? nullptr : std::make_unique<NodeRows>(*this, root, observed);
    endResetModel();
}

RVOpenNode* NodeModel::nodeOf(const QDomElement& element) const
{
    RVOpenNode* node = m_rows ? m_rows->root() : nullptr;
    std::vector<QDomNode> path;
    QDomNode at = element;
    for (; !at.isNull() && at != Root(); at = at.parentNode())
        path.push_back(at);
    if (at.isNull())
        return nullptr;
    for (auto step = path.rbegin(); node && step != path.rend(); ++step) {
        node = node->GetChild(1, 0);
        while (node && node->GetDomNode() != *step)
            node = node->GetNext(1);
    }
    return node;
}

} // namespace rvopen::widgets

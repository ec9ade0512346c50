// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "NodeRows.h"

#include "Nodes.h"

#include <algorithm>
#include <utility>

namespace rvopen::widgets {

namespace {

QDomElement elementOf(const RVOpenNode* root)
{
    return root ? root->GetDomNode().toElement() : QDomElement();
}

} // namespace

NodeRows::NodeRows(NodeModel& model, RVOpenNode* root, const QDomDocument& document)
    : RVOpenObserver(document)
    , m_model(model)
    , m_root(root)
    , m_document(document)
    , m_top(std::make_unique<Row>())
{
    m_top->element = elementOf(root);
    m_top->isFetched = true;
    addRows(*m_top, m_top->rows);
}

const NodeRows::Row& NodeRows::top() const
{
    return *m_top;
}

NodeRows::Row& NodeRows::rowOf(const QModelIndex& index) const
{
    return index.isValid() ? *static_cast<Row*>(index.internalPointer()) : *m_top;
}

NodeRows::Row* NodeRows::find(const QDomNode& node) const
{
    std::vector<QDomNode> path;
    QDomNode at = node;
    for (; !at.isNull() && at != m_top->element; at = at.parentNode())
        path.push_back(at);
    if (at.isNull())
        return nullptr;
    Row* row = m_top.get();
    for (auto step = path.rbegin(); step != path.rend(); ++step) {
        const auto next = std::find_if(row->rows.begin(), row->rows.end(),
                                       [&](const auto& each) { return each->element == *step; });
        if (next == row->rows.end())
            break;
        row = next->get();
    }
    return row;
}

QModelIndex NodeRows::indexOf(const Row& row, int column) const
{
    if (!row.parent)
        return QModelIndex();
    const auto& rows = row.parent->rows;
    const auto at = std::find_if(rows.begin(), rows.end(),
                                 [&row](const auto& each) { return each.get() == &row; });
    return m_model.createIndex(int(at - rows.begin()), column, const_cast<Row*>(&row));
}

bool NodeRows::hasRows(const Row& row) const
{
    if (row.isFetched)
        return !row.rows.empty();
    if (row.parent && !m_model.isShelf(row.element))
        return false;
    QDomElement child = row.element.firstChildElement();
    while (!child.isNull() && !m_model.isShown(child))
        child = child.nextSiblingElement();
    return !child.isNull();
}

void NodeRows::fetch(Row& row)
{
    if (row.isFetched)
        return;
    std::vector<std::unique_ptr<Row>> rows;
    addRows(row, rows);
    // Who is told that they come may ask for more.
    row.isFetched = true;
    if (!rows.empty())
        m_model.beginInsertRows(indexOf(row), 0, int(rows.size()) - 1);
    row.rows = std::move(rows);
    if (!row.rows.empty())
        m_model.endInsertRows();
}

RVOpenNode* NodeRows::root() const
{
    if (m_root)
        return m_root.get();
    // Another object stands for the element now.
    RVOpenNode* const root = m_model.findRoot();
    return root && root->GetDomNode() == m_top->element ? root : nullptr;
}

bool NodeRows::isTold() const
{
    return m_isTold;
}

void NodeRows::Changed(const RVOpenChange& change)
{
    const bool wasTold = std::exchange(m_isTold, true);
    switch (change.kind) {
    case RVOpenChange::AttributeSet:
        if (const Row* const row = find(change.node))
            tell(*row);
        break;
    case RVOpenChange::ChildInserted:
        inserted(change);
        break;
    case RVOpenChange::ChildRemoved:
        removed(change);
        break;
    case RVOpenChange::DocumentAboutToBeReset:
        m_model.beginResetModel();
        m_top = std::make_unique<Row>();
        m_model.endResetModel();
        break;
    case RVOpenChange::DocumentReset:
        m_document = change.replacement;
        // Who had the document that went may be going as well.
        if (!m_document.isNull())
            show(m_model.findRoot());
        break;
    default:
        break;
    }
    m_isTold = wasTold;
}

bool NodeRows::isShown(const QDomNode& node) const
{
    return node.isElement() && m_model.isShown(node.toElement());
}

void NodeRows::addRows(Row& row, std::vector<std::unique_ptr<Row>>& rows) const
{
    if (row.parent && !m_model.isShelf(row.element))
        return;
    for (QDomElement child = row.element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (!m_model.isShown(child))
            continue;
        rows.push_back(std::make_unique<Row>());
        rows.back()->element = child;
        rows.back()->parent = &row;
    }
}

/// Of a row that nobody has seen yet: who sees it come may look at all of it at once.
void NodeRows::fill(Row& row) const
{
    row.isFetched = true;
    addRows(row, row.rows);
    for (const auto& below : row.rows)
        fill(*below);
}

/// There are no rows.
void NodeRows::show(RVOpenNode* root)
{
    m_root = host::Ref<>(root);
    m_top->element = elementOf(root);
    m_top->isFetched = false;
    if (!m_top->element.isNull())
        fetch(*m_top);
}

void NodeRows::hide()
{
    const int count = int(m_top->rows.size());
    if (count > 0)
        m_model.beginRemoveRows(QModelIndex(), 0, count - 1);
    m_top->rows.clear();
    m_top->element = QDomElement();
    if (count > 0)
        m_model.endRemoveRows();
}

void NodeRows::inserted(const RVOpenChange& change)
{
    if (m_top->element.isNull()) {
        show(m_model.findRoot());
        return;
    }
    Row* const row = find(change.parent);
    if (!row)
        return;
    if (row->element != change.parent || !isShown(change.node) || !row->isFetched) {
        // It may have rows now, or look otherwise.
        tell(*row);
        return;
    }
    QDomElement before = change.node.previousSiblingElement();
    while (!before.isNull() && !m_model.isShown(before))
        before = before.previousSiblingElement();
    auto& rows = row->rows;
    const auto previous = std::find_if(rows.begin(), rows.end(),
                                       [&](const auto& each) { return each->element == before; });
    const int place = previous == rows.end() ? 0 : int(previous - rows.begin()) + 1;
    auto added = std::make_unique<Row>();
    added->element = change.node.toElement();
    added->parent = row;
    fill(*added);
    m_model.beginInsertRows(indexOf(*row), place, place);
    rows.insert(rows.begin() + place, std::move(added));
    m_model.endInsertRows();
}

void NodeRows::removed(const RVOpenChange& change)
{
    if (!m_top->element.isNull() && isInside(m_top->element, change.node)) {
        hide();
        return;
    }
    Row* const row = find(change.parent);
    if (!row)
        return;
    auto& rows = row->rows;
    const auto gone = std::find_if(rows.begin(), rows.end(), [&](const auto& each) {
        return row->element == change.parent && each->element == change.node;
    });
    if (gone == rows.end()) {
        tell(*row);
        return;
    }
    const int place = int(gone - rows.begin());
    m_model.beginRemoveRows(indexOf(*row), place, place);
    rows.erase(rows.begin() + place);
    m_model.endRemoveRows();
}

void NodeRows::tell(const Row& row)
{
    if (row.parent)
        Q_EMIT m_model.dataChanged(indexOf(row), indexOf(row, NodeModel::ColumnCount - 1));
}

} // namespace rvopen::widgets

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Sidebar.h"

#include "Workspace.h"

#include <QFileInfo>
#include <QFont>
#include <QScrollBar>
#include <QSet>
#include <QSignalBlocker>

namespace rvopen::browser {

using toolkit::CatalogueQuery;

namespace {

/// Of all items below; the callee answers whether to go on.
template <typename Visit>
bool forEachItem(QStandardItem* item, const Visit& visit)
{
    for (int row = 0; row < item->rowCount(); ++row) {
        if (!visit(item->child(row)) || !forEachItem(item->child(row), visit))
            return false;
    }
    return true;
}

} // namespace

Sidebar::Sidebar(Workspace& workspace, QWidget* parent)
    : QTreeView(parent)
    , m_workspace(workspace)
{
    setModel(&m_model);
    setHeaderHidden(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setUniformRowHeights(true);
    setAccessibleName(tr("Filters"));
    setAccessibleDescription(tr("Files, kinds, categories and tags to choose presets by"));
    connect(&workspace, &Workspace::facetsChanged, this, &Sidebar::fill);
    connect(&workspace, &Workspace::changedChanged, this, &Sidebar::fill);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &Sidebar::queryChanged);
    connect(this, &QTreeView::activated, this, [this](const QModelIndex& index) {
        const QString file = index.data(FileRole).toString();
        if (!file.isEmpty())
            Q_EMIT fileActivated(file);
    });
    fill();
}

CatalogueQuery Sidebar::query() const
{
    CatalogueQuery query;
    const auto addPlaces = [&query](const Memory::Places& places) {
        query.presets += places;
        // Of none there are none.
        if (query.presets.isEmpty())
            query.presets.append(toolkit::PresetPlace());
    };
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    for (const QModelIndex& index : selected) {
        const QString value = index.data(ValueRole).toString();
        switch (Group(index.data(GroupRole).toInt())) {
        case Everything:
            break;
        case Favourites:
            addPlaces(m_workspace.memory().favourites());
            break;
        case Recent:
            addPlaces(m_workspace.memory().recent());
            break;
        case Place:
            query.files += m_workspace.filesIn(value);
            break;
        case File:
            query.files.append(value);
            break;
        case Folder:
            query.files.append(index.data(FileRole).toString());
            query.folder = value;
            break;
        case Kind:
            query.kind = value;
            break;
        case Category:
            query.category = value;
            break;
        case Tag:
            query.subCategory = value;
            break;
        }
    }
    return query;
}

QStringList Sidebar::selectedFiles() const
{
    QStringList files;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        if (index.data(GroupRole) == File)
            files.append(index.data(ValueRole).toString());
    }
    return files;
}

QStringList Sidebar::selectedPlaces() const
{
    QStringList places;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        const QString value = index.data(ValueRole).toString();
        if (m_workspace.opened().contains(value))
            places.append(value);
    }
    return places;
}

void Sidebar::showFile(const QString& file)
{
    if (QStandardItem* const item = find(File, file))
        setCurrentIndex(item->index());
}

void Sidebar::showEverything()
{
    if (QStandardItem* const item = find(Everything, QString()))
        setCurrentIndex(item->index());
}

/// What was selected and open stays so, as far as it is there.
void Sidebar::fill()
{
    QSet<QString> known;
    QSet<QString> open;
    QSet<QString> selected;
    const auto keyOf = [](const QStandardItem* item) {
        return QStringList{item->data(GroupRole).toString(), item->data(FileRole).toString(),
                           item->data(ValueRole).toString(), item->data(KeyRole).toString()}
            .join(QLatin1Char('\n'));
    };
    const QString current = m_model.rowCount() == 0 || !currentIndex().isValid()
                                ? QString()
                                : keyOf(m_model.itemFromIndex(currentIndex()));
    forEachItem(m_model.invisibleRootItem(), [&](QStandardItem* item) {
        if (item->hasChildren())
            known.insert(keyOf(item));
        if (isExpanded(item->index()))
            open.insert(keyOf(item));
        if (selectionModel()->isSelected(item->index()))
            selected.insert(keyOf(item));
        return true;
    });

    const int scrolled = verticalScrollBar()->value();
    {
        const QSignalBlocker quiet(selectionModel());
        m_model.clear();
        const Facets& facets = m_workspace.facets();
        QStandardItem* const root = m_model.invisibleRootItem();
        int all = 0;
        for (const int count : facets.files)
            all += count;
        add(root, tr("All presets"), Everything, QString(), all);
        add(root, tr("Favourites"), Favourites, QString());
        add(root, tr("Recent"), Recent, QString());
        addPlaces();
        const auto addCounts = [&](const QString& text, Group group, const Facets::Counts& counts) {
            QStandardItem* const parent = header(text, group == Kind);
            for (const auto& [value, count] : counts)
                add(parent, value, group, value, count);
        };
        addCounts(tr("Kinds"), Kind, facets.kinds);
        addCounts(tr("Categories"), Category, facets.categories);
        addCounts(tr("Tags"), Tag, facets.tags);
        forEachItem(root, [&](QStandardItem* item) {
            const QString key = keyOf(item);
            setExpanded(item->index(),
                        known.contains(key) ? open.contains(key) : item->data(OpenRole).toBool());
            if (key == current)
                selectionModel()->setCurrentIndex(item->index(), QItemSelectionModel::NoUpdate);
            if (selected.contains(key))
                selectionModel()->select(item->index(), QItemSelectionModel::Select);
            return true;
        });
        if (!selectionModel()->hasSelection())
            setCurrentIndex(m_model.index(0, 0));
    }
    verticalScrollBar()->setValue(scrolled);
    Q_EMIT queryChanged();
}

QStandardItem* Sidebar::header(const QString& text, bool isOpen)
{
    QStandardItem* const item = add(m_model.invisibleRootItem(), text, Everything, QString());
    item->setFlags(Qt::ItemIsEnabled);
    QFont font = item->font();
    font.setBold(true);
    item->setFont(font);
    item->setData(isOpen, OpenRole);
    return item;
}

QStandardItem* Sidebar::add(QStandardItem* parent, const QString& text, Group group,
                            const QString& value, int count)
{
    auto* const item =
        new QStandardItem(count < 0 ? text : QStringLiteral("%1 (%2)").arg(text).arg(count));
    item->setData(group, GroupRole);
    item->setData(value, ValueRole);
    item->setData(value.isEmpty() ? text : QString(), KeyRole);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    parent->appendRow(item);
    return item;
}

void Sidebar::addPlaces()
{
    const Facets& facets = m_workspace.facets();
    QStandardItem* const places = header(tr("Files"), true);
    QSet<QString> shown;
    for (const QString& place : m_workspace.opened()) {
        QStandardItem* parent = places;
        const bool isFolder = QFileInfo(place).isDir();
        if (isFolder) {
            parent = add(places, QFileInfo(place).fileName(), Place, place);
            parent->setToolTip(place);
            parent->setData(true, OpenRole);
        }
        for (const QString& file : m_workspace.filesIn(place)) {
            if (shown.contains(file))
                continue;
            shown.insert(file);
            const EditedFile* const edited = m_workspace.edited(file);
            const QString name = isFolder ? file.mid(place.size() + 1) : QFileInfo(file).fileName();
            QStandardItem* const item =
                add(parent, edited && edited->isChanged() ? name + QLatin1String(" *") : name, File,
                    file, facets.files.value(file));
            item->setData(file, FileRole);
            item->setToolTip(file);
            for (const QString& folder : facets.folders.value(file)) {
                QStandardItem* const inner = add(item, folder, Folder, folder);
                inner->setData(file, FileRole);
            }
        }
    }
}

QStandardItem* Sidebar::find(Group group, const QString& value) const
{
    QStandardItem* found = nullptr;
    forEachItem(m_model.invisibleRootItem(), [&](QStandardItem* item) {
        if (item->flags().testFlag(Qt::ItemIsSelectable) && item->data(GroupRole) == group &&
            item->data(ValueRole).toString() == value)
            found = item;
        return !found;
    });
    return found;
}

} // namespace rvopen::browser

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/PresetModel.h>

#include "PresetRows.h"

#include <QStringList>

#include <utility>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

QString shownName(const ListedPreset& preset)
{
    return preset.name.isEmpty() ? preset.refName : preset.name;
}

QString toolTip(const ListedPreset& preset)
{
    QStringList lines{shownName(preset)};
    if (!preset.description.isEmpty())
        lines << preset.description;
    lines << (preset.folder.isEmpty() ? preset.kind
                                      : preset.kind + QLatin1String(", ") + preset.folder);
    lines << preset.file;
    return lines.join(QLatin1Char('\n'));
}

} // namespace

PresetModel::PresetModel(QObject* parent)
    : QAbstractTableModel(parent)
    , m_rows(std::make_unique<PresetRows>(*this))
{
}

PresetModel::~PresetModel() = default;

void PresetModel::SetCatalogue(std::shared_ptr<const Catalogue> catalogue)
{
    beginResetModel();
    m_rows->setCatalogue(std::move(catalogue));
    endResetModel();
}

std::shared_ptr<const Catalogue> PresetModel::CurrentCatalogue() const
{
    return m_rows->current();
}

void PresetModel::Follow(const QString& file, const QDomDocument& document)
{
    m_rows->follow(file, document);
}

void PresetModel::Reread(const QString& file)
{
    m_rows->reread(file);
}

ListedPreset PresetModel::Preset(const QModelIndex& index) const
{
    return m_rows->preset(index.row());
}

QDomElement PresetModel::Element(const QModelIndex& index) const
{
    return m_rows->element(index.row());
}

OpenPreset PresetModel::Open(const QModelIndex& index) const
{
    return m_rows->open(index.row());
}

QModelIndex PresetModel::IndexOf(const QString& file, const QString& path) const
{
    return index(m_rows->rowOf(file, path), 0);
}

QModelIndex PresetModel::IndexOf(const QDomElement& element) const
{
    return index(m_rows->rowOf(element), 0);
}

int PresetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows->count();
}

int PresetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant PresetModel::data(const QModelIndex& index, int role) const
{
    const ListedPreset preset = Preset(index);
    switch (role) {
    case PresetRole:
        return preset.file.isEmpty() ? QVariant() : QVariant::fromValue(preset);
    case Qt::ToolTipRole:
        return toolTip(preset);
    case Qt::AccessibleDescriptionRole:
        return preset.description;
    case Qt::DisplayRole:
        break;
    default:
        return QVariant();
    }
    switch (index.column()) {
    case Name:
        return shownName(preset);
    case Kind:
        return preset.kind;
    case Category:
        return preset.category;
    case SubCategory:
        return preset.subCategory;
    case Folder:
        return preset.folder;
    default:
        return preset.file;
    }
}

Qt::ItemFlags PresetModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemNeverHasChildren : flags;
}

QVariant PresetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Name:
        return tr("Name");
    case Kind:
        return tr("Kind");
    case Category:
        return tr("Category");
    case SubCategory:
        return tr("Sub-category");
    case Folder:
        return tr("Folder");
    case File:
        return tr("File");
    default:
        return QVariant();
    }
}

} // namespace rvopen::widgets

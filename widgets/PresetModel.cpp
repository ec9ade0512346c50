// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/PresetModel.h>

#include "NodeMime.h"
#include "PresetRows.h"

#include <rvopen/widgets/Thumbnails.h>

#include <QPainter>
#include <QStringList>

#include <utility>
#include <vector>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

/// More than wait for their pictures at once.
constexpr int s_mostAsked = 2000;

QString shownName(const ListedPreset& preset)
{
    return preset.name.isEmpty() ? preset.refName : preset.name;
}

QString askedKey(const ListedPreset& preset)
{
    return preset.file + QChar(0) + preset.path;
}

QImage squared(const QImage& image, int size)
{
    if (image.size() == QSize(size, size))
        return image;
    QImage square(size, size, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter(&square).drawImage((size - image.width()) / 2, (size - image.height()) / 2, image);
    return square;
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
    if (m_thumbnails)
        m_thumbnails->SetCatalogue(catalogue);
    m_asked.clear();
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

void PresetModel::SetThumbnails(Thumbnails* thumbnails, int size)
{
    if (m_thumbnails)
        m_thumbnails->disconnect(this);
    m_thumbnails = thumbnails;
    m_pictureSize = size;
    m_placeholder = Thumbnails::Placeholder(size);
    m_asked.clear();
    if (!thumbnails)
        return;
    thumbnails->SetCatalogue(m_rows->current());
    connect(thumbnails, &Thumbnails::ElementChanged, this,
            [this](const QDomElement& element) { tellOfPicture(IndexOf(element)); });
    connect(thumbnails, &Thumbnails::PresetChanged, this,
            [this](const ListedPreset& preset) { tellOfPicture(m_asked.take(askedKey(preset))); });
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
    case Qt::DecorationRole:
        return index.column() == Name ? picture(index) : QVariant();
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
    return index.isValid() ? flags | Qt::ItemNeverHasChildren | Qt::ItemIsDragEnabled : flags;
}

QStringList PresetModel::mimeTypes() const
{
    return {NodeMime::type()};
}

QMimeData* PresetModel::mimeData(const QModelIndexList& indexes) const
{
    std::vector<OpenPreset> presets;
    std::vector<QDomElement> elements;
    QStringList files;
    for (const QModelIndex& index : indexes) {
        // A view gives each column of a row.
        if (index.column() != Name)
            continue;
        QDomElement preset = Element(index);
        if (preset.isNull()) {
            presets.push_back(Open(index));
            preset = presets.back().element;
        }
        if (preset.isNull())
            continue;
        elements.push_back(preset);
        files << Preset(index).file;
    }
    return new NodeMime(this, elements, files);
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

QVariant PresetModel::picture(const QModelIndex& index) const
{
    if (!m_thumbnails)
        return QVariant();
    const ListedPreset preset = Preset(index);
    const QDomElement element = Element(index);
    QImage picture;
    if (element.isNull()) {
        picture = m_thumbnails->Picture(preset, m_pictureSize);
        // Those that waited too long are told of no more.
        if (m_asked.size() > s_mostAsked)
            m_asked.clear();
        m_asked.insert(askedKey(preset), index);
    } else {
        picture = m_thumbnails->Picture(element, preset.file, m_pictureSize);
    }
    return picture.isNull() ? m_placeholder : squared(picture, m_pictureSize);
}

void PresetModel::tellOfPicture(const QModelIndex& index)
{
    if (index.isValid())
        Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
}

} // namespace rvopen::widgets

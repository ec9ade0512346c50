// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SnapShotStrip.h"

#include "EditedFile.h"

#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/widgets/NodeModel.h>
#include <rvopen/widgets/Thumbnails.h>

#include <QPixmap>
#include <QPointer>
#include <QStyledItemDelegate>

namespace rvopen::browser {

namespace {

constexpr int s_side = 96;

QDomElement cameraOf(const QDomElement& snapShot)
{
    return snapShot.firstChildElement(QStringLiteral("camera"));
}

} // namespace

/// Pictures stand above their names.
class SnapShotStrip::Delegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationPosition = QStyleOptionViewItem::Top;
        option->decorationAlignment = Qt::AlignCenter;
        option->displayAlignment = Qt::AlignCenter;
    }
};

/// The rows of the document, with what a strip shows of each.
class SnapShotStrip::Model : public QIdentityProxyModel {
public:
    Model(widgets::Thumbnails& thumbnails, QListView& view)
        : QIdentityProxyModel(&view)
        , m_thumbnails(thumbnails)
        , m_view(view)
    {
        connect(&thumbnails, &widgets::Thumbnails::ElementChanged, this,
                [this](const QDomElement& element) {
                    const QModelIndex row =
                        m_nodes ? mapFromSource(m_nodes->IndexOf(element)) : QModelIndex();
                    if (row.isValid())
                        Q_EMIT dataChanged(row, row, {Qt::DecorationRole});
                });
    }

    void setFile(EditedFile* file)
    {
        const bool hasSnapShots = file && file->kind() == toolkit::DocumentKind::SnapShots;
        m_nodes = hasSnapShots ? &file->tree() : nullptr;
        m_file = hasSnapShots ? file->file() : QString();
        setSourceModel(m_nodes);
        if (m_nodes)
            m_nodes->fetchMore(QModelIndex());
    }

    QDomElement element(const QModelIndex& index) const
    {
        return m_nodes && index.isValid() ? m_nodes->Element(mapToSource(index)) : QDomElement();
    }

    int columnCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return m_nodes && !parent.isValid() ? 1 : 0;
    }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return nameOf(index);
        case Qt::ToolTipRole:
            return tipOf(element(index));
        case Qt::DecorationRole:
            return pictureOf(element(index));
        default:
            return QIdentityProxyModel::data(index, role);
        }
    }

private:
    QString nameOf(const QModelIndex& index) const
    {
        const QString name = QIdentityProxyModel::data(index, Qt::DisplayRole).toString();
        const QDomElement camera = cameraOf(element(index));
        return camera.isNull() ? name : name + QLatin1Char('\n') + toolkit::IdentityOf(camera);
    }

    static QString tipOf(const QDomElement& snapShot)
    {
        QString tip = toolkit::IdentityOf(snapShot);
        toolkit::ParamValues values;
        for (QDomElement param = cameraOf(snapShot).firstChildElement(); !param.isNull();
             param = param.nextSiblingElement()) {
            if (param.tagName() == QLatin1String("param"))
                tip += QStringLiteral("\n%1: %2")
                           .arg(param.attribute(QStringLiteral("name")), values.Text(param));
        }
        return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(tip.toHtmlEscaped());
    }

    QVariant pictureOf(const QDomElement& snapShot) const
    {
        const double ratio = m_view.devicePixelRatioF();
        const int size = int(s_side * ratio);
        QImage picture = m_thumbnails.Picture(snapShot, m_file, size);
        if (picture.isNull())
            picture = widgets::Thumbnails::Placeholder(size);
        picture.setDevicePixelRatio(ratio);
        return QPixmap::fromImage(picture);
    }

    widgets::Thumbnails& m_thumbnails;
    QListView& m_view;
    QPointer<widgets::NodeModel> m_nodes;
    QString m_file;
};

SnapShotStrip::SnapShotStrip(widgets::Thumbnails& thumbnails, QWidget* parent)
    : QListView(parent)
    , m_model(new Model(thumbnails, *this))
{
    // As icons they would be moved about freely, and not among each other.
    setViewMode(ListMode);
    setFlow(LeftToRight);
    setWrapping(false);
    setItemDelegate(new Delegate(this));
    setIconSize({s_side, s_side});
    setUniformItemSizes(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedHeight(s_side + 4 * fontMetrics().height());
    setSpacing(4);
    setEditTriggers(EditKeyPressed);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setAccessibleName(tr("Snapshots"));
    setModel(m_model);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (index.isValid())
                    Q_EMIT chosen(m_model->element(index));
            });
}

SnapShotStrip::~SnapShotStrip()
{
    setModel(nullptr);
}

void SnapShotStrip::showFile(EditedFile* file)
{
    m_model->setFile(file);
}

} // namespace rvopen::browser

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Details.h"

#include "EditedFile.h"
#include "Labels.h"
#include "Workspace.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/drawing/Subjects.h>
#include <rvopen/toolkit/edit/Links.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/widgets/ParamDelegate.h>

#include <QHeaderView>
#include <QListWidget>
#include <QResizeEvent>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace rvopen::browser {

using namespace toolkit;

namespace {

constexpr int s_largestPicture = 256;
constexpr int s_leastPicture = 96;

/// Of a reference: where it leads.
constexpr int s_fileRole = Qt::UserRole;
constexpr int s_pathRole = Qt::UserRole + 1;

/// Not by going there: arrows have to lead on.
constexpr QAbstractItemView::EditTriggers s_editTriggers =
    QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
    QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed;

} // namespace

Details::Details(Workspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_picture(new QLabel)
    , m_title(new QLabel)
    , m_tabs(new QTabWidget)
    , m_view(new QTreeView)
    , m_images(new QListWidget)
    , m_references(new QListWidget)
    , m_labels(new Labels)
{
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setMinimumHeight(s_leastPicture);
    m_picture->setAccessibleName(tr("Preview"));
    m_title->setWordWrap(true);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_view->setModel(&m_values);
    auto* const delegate = new widgets::ParamDelegate(m_view);
    m_view->setItemDelegateForColumn(widgets::ParamModel::Value, delegate);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(false);
    m_view->setAlternatingRowColors(true);
    m_view->hideColumn(widgets::ParamModel::Meaning);
    m_view->setAccessibleName(tr("Values"));
    m_images->setAccessibleName(tr("Images"));
    m_references->setAccessibleName(tr("References"));
    m_tabs->setAccessibleName(tr("Values, images, references and labels"));
    m_tabs->tabBar()->setAccessibleName(tr("Values, images, references and labels"));
    m_tabs->addTab(m_view, tr("Values"));
    m_tabs->addTab(m_images, tr("Images"));
    m_tabs->addTab(m_references, tr("References"));
    m_tabs->addTab(m_labels, tr("Labels"));
    connect(m_labels, &Labels::changed, this, &Details::describe);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_picture);
    layout->addWidget(m_title);
    layout->addWidget(m_tabs, 1);
    connect(&m_values, &widgets::ParamModel::Refused, this,
            [this](const QModelIndex&, const QString& reason) { Q_EMIT refused(reason); });
    // The keyboard is where there is something to edit, whatever of the row was clicked.
    connect(
        m_view->selectionModel(), &QItemSelectionModel::currentChanged, m_view,
        [this](const QModelIndex& index) {
            if (index.isValid() && index.column() != widgets::ParamModel::Value)
                m_view->setCurrentIndex(index.siblingAtColumn(widgets::ParamModel::Value));
        },
        Qt::QueuedConnection);
    connect(m_view, &QTreeView::activated, this, [this] {
        if (!m_isEdited && !m_element.isNull())
            Q_EMIT editWanted();
    });
    connect(m_references, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
        const QString target = item->data(s_fileRole).toString();
        if (!target.isEmpty())
            Q_EMIT presetWanted(target, item->data(s_pathRole).toString());
    });
    connect(&workspace.thumbnails(), &widgets::Thumbnails::ElementChanged, this,
            [this](const QDomElement& element) {
                if (element == m_element)
                    showPicture();
            });
    connect(&workspace, &Workspace::fileEdited, this, [this](EditedFile* file) {
        if (m_isEdited && file->file() == m_file)
            showTexts();
    });
    connect(&workspace, &Workspace::facetsChanged, this, &Details::showReferences);
    showNothing();
}

void Details::showNothing()
{
    m_document = QDomDocument();
    show(QString(), QDomElement(), false);
}

void Details::showPreset(const ListedPreset& preset, const OpenPreset& opened)
{
    m_document = opened.dom;
    show(preset.file, opened.element, false);
}

void Details::showElement(EditedFile& file, const QDomElement& element)
{
    m_document = file.dom();
    show(file.file(), element, true);
}

QDomElement Details::element() const
{
    return m_element;
}

QString Details::editedFile() const
{
    return m_isEdited ? m_file : QString();
}

widgets::ParamModel& Details::values()
{
    return m_values;
}

QTreeView& Details::view()
{
    return *m_view;
}

QListWidget& Details::references()
{
    return *m_references;
}

QDomElement Details::chosenParam() const
{
    return m_values.Param(m_view->currentIndex());
}

void Details::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    showPicture();
}

void Details::show(const QString& file, const QDomElement& element, bool isEdited)
{
    m_file = file;
    m_element = element;
    m_isEdited = isEdited;
    m_values.SetElement(element, widgets::ParamModel::Below);
    m_view->setEditTriggers(isEdited ? s_editTriggers : QAbstractItemView::NoEditTriggers);
    m_view->resizeColumnToContents(widgets::ParamModel::Name);
    showPicture();
    showTexts();
}

void Details::showPicture()
{
    if (m_element.isNull()) {
        m_picture->clear();
        return;
    }
    const double ratio = devicePixelRatioF();
    const int side = std::clamp(width(), s_leastPicture, s_largestPicture);
    QImage picture = m_workspace.thumbnails().Picture(m_element, m_file, int(side * ratio),
                                                      widgets::Thumbnails::Drawn);
    if (picture.isNull())
        picture = widgets::Thumbnails::Placeholder(int(side * ratio));
    picture.setDevicePixelRatio(ratio);
    m_picture->setPixmap(QPixmap::fromImage(picture));
}

void Details::showTexts()
{
    m_labels->showElement(m_element, m_isEdited);
    showImages();
    showReferences();
    if (m_element.isNull()) {
        m_title->setText(tr("Nothing is chosen"));
        return;
    }
    m_title->setText(
        QStringLiteral("%1\n%2 – %3")
            .arg(IdentityOf(m_element), m_element.tagName(), LastPathComponent(m_file)));
    m_title->setToolTip(m_file + QLatin1Char('\n') + PathOf(m_element));
}

void Details::showImages()
{
    m_images->clear();
    const auto document = Document::Of(m_file, m_document);
    const FindFile find = TextureFinder(*document, m_workspace.folders());
    Walk(m_element, QString(), [&](const QDomElement& param, const QString& path) {
        const QDomElement owner = param.parentNode().toElement();
        const ParamInfo* const info =
            FindParam(owner.tagName(), KindOf(owner), param.attribute(QStringLiteral("name")));
        const QString reference = param.attribute(QStringLiteral("val"));
        if (param.tagName() != QLatin1String("param") || !info ||
            info->content != Content::ImageFile || reference.isEmpty())
            return true;
        const QString file = find(reference);
        auto* const item = new QListWidgetItem(
            file.isEmpty() ? tr("%1 is missing").arg(reference) : reference, m_images);
        item->setToolTip(path + QLatin1Char('\n') + (file.isEmpty() ? reference : file));
        item->setIcon(style()->standardIcon(file.isEmpty() ? QStyle::SP_MessageBoxWarning
                                                           : QStyle::SP_FileIcon));
        return true;
    });
    m_tabs->setTabText(1, tr("Images (%1)").arg(m_images->count()));
}

void Details::showReferences()
{
    m_references->clear();
    for (const Link& link : LinksFrom(m_element)) {
        const ListedPreset preset = m_workspace.facets().presetCalled(link.kind, link.refName);
        const bool isMissing = preset.file.isEmpty();
        auto* const item = new QListWidgetItem(
            isMissing ? tr("%1 %2 is missing").arg(link.kind, link.refName)
                      : QStringLiteral("%1 %2 – %3")
                            .arg(link.kind, preset.name, LastPathComponent(preset.file)),
            m_references);
        item->setToolTip(link.path + QLatin1Char('\n') + link.refName);
        item->setIcon(style()->standardIcon(isMissing ? QStyle::SP_MessageBoxWarning
                                                      : QStyle::SP_FileLinkIcon));
        item->setData(s_fileRole, preset.file);
        item->setData(s_pathRole, preset.path);
    }
    m_tabs->setTabText(2, tr("References (%1)").arg(m_references->count()));
}

void Details::describe(const QString& attribute, const QString& text)
{
    EditedFile* const file = m_isEdited ? m_workspace.edited(m_file) : nullptr;
    if (!file)
        return;
    if (!setLabel(*file, m_element, attribute, text))
        Q_EMIT refused(tr("%1 is the reference name of another preset").arg(text));
    m_labels->showElement(m_element, m_isEdited);
}

} // namespace rvopen::browser

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "CompareWindow.h"

#include "Workspace.h"

#include <rvopen/toolkit/compare/Comparer.h>

#include <QGridLayout>
#include <QLabel>
#include <QShortcut>
#include <QTreeWidget>

namespace rvopen::browser {

namespace {

constexpr int s_comparedSize = 200;

QString textOf(toolkit::DifferenceKind kind)
{
    switch (kind) {
    case toolkit::DifferenceKind::Added:
        return CompareWindow::tr("new");
    case toolkit::DifferenceKind::Removed:
        return CompareWindow::tr("gone");
    case toolkit::DifferenceKind::Moved:
        return CompareWindow::tr("moved");
    case toolkit::DifferenceKind::Changed:
        break;
    }
    return CompareWindow::tr("changed");
}

} // namespace

CompareWindow::CompareWindow(Workspace& workspace, const Side& before, const Side& after,
                             QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_workspace(workspace)
    , m_sides{before, after}
    , m_list(new QTreeWidget)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("%1 and %2").arg(before.title, after.title));
    auto* const layout = new QGridLayout(this);
    for (int i = 0; i < 2; ++i) {
        m_pictures[i] = new QLabel;
        m_pictures[i]->setAlignment(Qt::AlignCenter);
        m_pictures[i]->setAccessibleName(tr("Picture of %1").arg(m_sides[i].title));
        auto* const title = new QLabel(m_sides[i].title);
        title->setTextFormat(Qt::PlainText);
        title->setAlignment(Qt::AlignCenter);
        title->setWordWrap(true);
        title->setToolTip(m_sides[i].file);
        layout->addWidget(m_pictures[i], 0, i);
        layout->addWidget(title, 1, i);
    }
    m_list->setHeaderLabels({tr("Where"), tr("What"), before.title, after.title});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setAccessibleName(tr("Differences"));
    layout->addWidget(m_list, 2, 0, 1, 2);
    layout->setRowStretch(2, 1);
    const QVector<toolkit::Difference> all = toolkit::Comparer().Run(before.element, after.element);
    for (const toolkit::Difference& difference : all)
        new QTreeWidgetItem(m_list,
                            {difference.path, textOf(difference.kind),
                             difference.kind == toolkit::DifferenceKind::Moved ? difference.from
                                                                               : difference.before,
                             difference.after});
    if (all.isEmpty())
        new QTreeWidgetItem(m_list, {tr("Nothing differs"), QString(), QString(), QString()});
    for (int column = 0; column < m_list->columnCount(); ++column)
        m_list->resizeColumnToContents(column);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
            &QWidget::close);
    connect(&workspace.thumbnails(), &widgets::Thumbnails::ElementChanged, this,
            &CompareWindow::showPictures);
    showPictures();
    resize(720, 560);
}

int CompareWindow::differences() const
{
    return m_list->topLevelItem(0)->text(1).isEmpty() ? 0 : m_list->topLevelItemCount();
}

void CompareWindow::showPictures()
{
    const double ratio = devicePixelRatioF();
    for (int i = 0; i < 2; ++i) {
        // Of whole documents there is none.
        if (m_sides[i].element == m_sides[i].document.documentElement())
            continue;
        QImage picture = m_workspace.thumbnails().Picture(m_sides[i].element, m_sides[i].file,
                                                          int(s_comparedSize * ratio),
                                                          widgets::Thumbnails::Drawn);
        if (picture.isNull())
            continue;
        picture.setDevicePixelRatio(ratio);
        m_pictures[i]->setPixmap(QPixmap::fromImage(picture));
    }
}

} // namespace rvopen::browser

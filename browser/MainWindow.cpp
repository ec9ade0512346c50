// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MainWindow.h"

#include "Details.h"
#include "FileTexts.h"
#include "Grid.h"
#include "MessageLine.h"
#include "Sidebar.h"
#include "SnapShotStrip.h"

#include <QAction>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QScreen>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace rvopen::browser {

namespace {

/// So long the choice has to stay before its file is opened to be edited.
constexpr int s_choiceSettled = 250;

/// Files beyond are opened to be edited when somebody asks for it.
constexpr qint64 s_openedAtOnce = 2 * 1024 * 1024;

/// No edit for so long: what was edited is checked.
constexpr int s_checkDelay = 800;

} // namespace

MainWindow::MainWindow(Workspace& workspace, QWidget* parent)
    : QMainWindow(parent)
    , m_workspace(workspace)
{
    setObjectName(QStringLiteral("rvopenBrowser"));
    setAcceptDrops(true);
    setDockNestingEnabled(true);
    resize(QSize(1280, 800).boundedTo(screen()->availableSize()));
    makeParts();
    makeDocks();
    makeToolBar();
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    follow();
    m_grid->setPictureSize(workspace.memory().pictureSize());
    restoreGeometry(workspace.memory().geometry());
    restoreState(workspace.memory().layout());
    update();
}

MainWindow::~MainWindow()
{
    m_strip->showFile(nullptr);
    m_tree->setModel(nullptr);
}

void MainWindow::offerRecovery()
{
    for (const Journal::Left& left : m_workspace.leftOver()) {
        m_messages->ask(left.folder,
                        tr("%1 was edited until %2 and not saved.")
                            .arg(QFileInfo(left.file).fileName(),
                                 locale().toString(left.time, QLocale::ShortFormat)),
                        {{tr("Recover"),
                          [this, left] {
                              if (EditedFile* const file = m_workspace.recover(left))
                                  showTree(file);
                          }},
                         {tr("Discard"), [this, left] { m_workspace.discard(left); }}});
    }
}

Sidebar& MainWindow::sidebar()
{
    return *m_sidebar;
}

Grid& MainWindow::grid()
{
    return *m_grid;
}

Details& MainWindow::details()
{
    return *m_details;
}

Findings& MainWindow::findings()
{
    return *m_findings;
}

MessageLine& MainWindow::messages()
{
    return *m_messages;
}

QLineEdit& MainWindow::search()
{
    return *m_search;
}

QTreeView& MainWindow::tree()
{
    return *m_tree;
}

SnapShotStrip& MainWindow::strip()
{
    return *m_strip;
}

QAction* MainWindow::action(const char* name) const
{
    return findChild<QAction*>(QLatin1String(name));
}

bool MainWindow::saveAll()
{
    bool isSaved = true;
    for (EditedFile* const file : m_workspace.changed())
        isSaved = m_workspace.save(*file) && isSaved;
    return isSaved;
}

/// Whoever opens it may type at once.
void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        m_search->setFocus();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    const int changed = int(m_workspace.changed().size());
    if (changed > 0 && !m_mayClose) {
        event->ignore();
        m_messages->ask(QStringLiteral("close"), tr("%n file(s) were edited.", nullptr, changed),
                        {{tr("Save and close"),
                          [this] {
                              m_mayClose = saveAll();
                              close();
                          }},
                         {tr("Close without saving"),
                          [this] {
                              m_mayClose = true;
                              close();
                          }},
                         {tr("Stay"), [] {}}});
        m_mayClose = false;
        return;
    }
    m_workspace.memory().setWindow(saveGeometry(), saveState());
    m_workspace.memory().setPictureSize(m_grid->pictureSize());
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    m_workspace.open(localFiles(*event->mimeData()));
}

QAction* MainWindow::make(QMenu* menu, const char* name, const QString& text,
                          const QKeySequence& keys, void (MainWindow::*act)())
{
    auto* const action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, act);
    menu->addAction(action);
    return action;
}

void MainWindow::makeParts()
{
    m_grid = new Grid;
    m_grid->presets().setPresets(&m_workspace.presets(), &m_workspace.filter());
    m_messages = new MessageLine;
    auto* const centre = new QWidget;
    auto* const layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_messages);
    layout->addWidget(m_grid, 1);
    setCentralWidget(centre);
    m_sidebar = new Sidebar(m_workspace);
    m_details = new Details(m_workspace);
    m_findings = new Findings(m_workspace);
    m_strip = new SnapShotStrip(m_workspace.thumbnails());
    m_tree = new QTreeView;
    m_tree->setDragDropMode(QAbstractItemView::DragDrop);
    m_tree->setDefaultDropAction(Qt::MoveAction);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setEditTriggers(QAbstractItemView::EditKeyPressed);
    m_tree->setUniformRowHeights(true);
    m_tree->setHeaderHidden(true);
    m_tree->setAccessibleName(tr("File that is edited"));
    m_progress = new QProgressBar;
    m_progress->setRange(0, 0);
    m_progress->setMaximumWidth(160);
    m_progress->setAccessibleName(tr("Progress"));
    m_progress->hide();
    m_cancel = new QToolButton;
    m_cancel->setText(tr("Cancel"));
    m_cancel->hide();
    statusBar()->addPermanentWidget(m_progress);
    statusBar()->addPermanentWidget(m_cancel);
}

void MainWindow::makeDocks()
{
    const auto add = [this](const char* name, const QString& title, QWidget* widget,
                            Qt::DockWidgetArea area) {
        auto* const dock = new QDockWidget(title, this);
        dock->setObjectName(QLatin1String(name));
        dock->setWidget(widget);
        addDockWidget(area, dock);
        return dock;
    };
    add("filtersDock", tr("Filters"), m_sidebar, Qt::LeftDockWidgetArea);
    m_treeDock = add("fileDock", tr("File"), m_tree, Qt::LeftDockWidgetArea);
    QDockWidget* const details =
        add("detailsDock", tr("Preset"), m_details, Qt::RightDockWidgetArea);
    QDockWidget* const findings =
        add("findingsDock", tr("Findings"), m_findings, Qt::BottomDockWidgetArea);
    m_stripDock = add("snapshotsDock", tr("Snapshots"), m_strip, Qt::TopDockWidgetArea);
    m_stripDock->hide();
    setCorner(Qt::TopLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::TopRightCorner, Qt::RightDockWidgetArea);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    resizeDocks({m_treeDock, details}, {250, 360}, Qt::Horizontal);
    resizeDocks({findings}, {120}, Qt::Vertical);
}

void MainWindow::makeToolBar()
{
    QToolBar* const bar = addToolBar(tr("Search"));
    bar->setObjectName(QStringLiteral("searchBar"));
    m_search = new QLineEdit;
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setPlaceholderText(tr("Search names, categories, descriptions"));
    m_search->setAccessibleName(tr("Search"));
    m_search->setClearButtonEnabled(true);
    bar->addWidget(m_search);
    m_colourButton = new QToolButton;
    m_colourButton->setText(tr("Colour"));
    m_colourButton->setToolTip(
        tr("Look for a colour, the nearest first; a colour or a picture can be dropped on the "
           "presets, too"));
    m_colourButton->setCheckable(true);
    m_colourButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_colourButton->setFocusPolicy(Qt::StrongFocus);
    bar->addWidget(m_colourButton);
    m_size = new QSlider(Qt::Horizontal);
    m_size->setRange(Grid::s_leastSize, Grid::s_greatestSize);
    m_size->setMaximumWidth(140);
    m_size->setToolTip(tr("Size of the pictures"));
    m_size->setAccessibleName(tr("Size of the pictures"));
    bar->addWidget(m_size);
}

void MainWindow::follow()
{
    m_openTimer.setSingleShot(true);
    m_openTimer.setInterval(s_choiceSettled);
    m_checkTimer.setSingleShot(true);
    m_checkTimer.setInterval(s_checkDelay);
    connect(&m_openTimer, &QTimer::timeout, this, [this] { openForEditing(false); });
    connect(&m_checkTimer, &QTimer::timeout, this, &MainWindow::checkCurrent);
    connect(m_search, &QLineEdit::textChanged, this, &MainWindow::searchNow);
    connect(m_search, &QLineEdit::returnPressed, m_grid, qOverload<>(&QWidget::setFocus));
    connect(m_sidebar, &Sidebar::queryChanged, this, [this] {
        searchNow();
        update();
    });
    connect(m_sidebar, &Sidebar::fileActivated, this, [this](const QString& file) {
        if (EditedFile* const edited = m_workspace.edit(file))
            showTree(edited);
    });
    connect(m_colourButton, &QToolButton::clicked, this, &MainWindow::pickColour);
    connect(m_size, &QSlider::valueChanged, m_grid, &Grid::setPictureSize);
    connect(m_grid, &Grid::pictureSizeChanged, this, [this](int size) {
        m_size->setValue(size);
        m_workspace.presets().SetThumbnails(&m_workspace.thumbnails(), size);
    });
    connect(m_grid, &Grid::colourDropped, this, &MainWindow::setColour);
    connect(m_grid, &Grid::filesDropped, &m_workspace, &Workspace::open);
    connect(m_grid->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::showChosen);
    connect(m_grid->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::update);
    connect(m_grid, &QListView::activated, this, [this] { openForEditing(true); });
    connect(m_details, &Details::editWanted, this, [this] { openForEditing(true); });
    connect(m_details, &Details::refused, this, &MainWindow::say);
    connect(m_details, &Details::presetWanted, this, &MainWindow::showInFile);
    connect(m_strip, &SnapShotStrip::chosen, this, [this](const QDomElement& snapShot) {
        if (m_treeFile)
            m_details->showElement(*m_treeFile, snapShot);
    });
    connect(m_findings, &Findings::chosen, this, &MainWindow::showInFile);
    connect(m_findings, &Findings::runningChanged, this, &MainWindow::showBusy);
    connect(&m_workspace, &Workspace::scanningChanged, this, &MainWindow::showBusy);
    connect(m_cancel, &QToolButton::clicked, this, [this] {
        m_findings->stop();
        if (m_work)
            m_work->stop();
    });
    connect(&m_workspace, &Workspace::failed, this, &MainWindow::say);
    connect(&m_workspace, &Workspace::changedChanged, this, &MainWindow::update);
    connect(&m_workspace, &Workspace::openedChanged, this, [this] {
        update();
        // What is only looked at may be another; what is edited stays as it is.
        if (m_details->editedFile().isEmpty())
            showChosen();
    });
    connect(&m_workspace, &Workspace::changedOutside, this, &MainWindow::askAboutOutside);
    connect(&m_workspace, &Workspace::fileEdited, this, [this](EditedFile* file) {
        m_checkTimer.start();
        // Those that are remembered may be called otherwise.
        if (!m_sidebar->query().presets.isEmpty())
            searchNow();
        if (!file->journalProblem().isEmpty())
            m_messages->ask(
                QStringLiteral("journal"),
                tr("Edits are not kept for after a crash: %1").arg(file->journalProblem()),
                {{tr("OK"), [] {}}});
    });
    connect(&m_workspace, &Workspace::fileClosed, this, [this](const QString& file) {
        if (m_treeFile && m_treeFile->file() == file) {
            m_treeFile = nullptr;
            m_tree->setModel(nullptr);
            m_strip->showFile(nullptr);
            m_stripDock->hide();
            m_details->showNothing();
        }
        showChosen();
    });
    connect(&m_workspace.filter(), &widgets::PresetFilter::QueryChanged, this, &MainWindow::update);
}

/// What people see of what can be done, and how much there is.
void MainWindow::update()
{
    const int changed = int(m_workspace.changed().size());
    statusBar()->showMessage(tr("%n preset(s)", nullptr, m_workspace.filter().rowCount()));
    setWindowModified(changed > 0);
    setWindowTitle(tr("%1[*] – rvopen").arg(m_treeFile ? m_treeFile->name() : tr("Presets")));
    action("fileSave")->setEnabled(m_treeFile && m_treeFile->isChanged());
    action("fileSaveAll")->setEnabled(changed > 0);
    action("fileClose")->setEnabled(m_treeFile);
    action("fileForget")->setEnabled(!m_sidebar->selectedPlaces().isEmpty());
    action("toolsCompare")
        ->setEnabled(chosenPresets().size() == 2 || m_sidebar->selectedFiles().size() == 2);
}

/// What takes longer can be seen, and ended where that leaves nothing half done.
void MainWindow::showBusy()
{
    const bool canBeStopped = m_findings->isRunning() || m_work;
    m_progress->setRange(0, m_work ? m_work->count() : 0);
    m_progress->setValue(m_work ? m_work->done() : 0);
    m_progress->setVisible(canBeStopped || m_workspace.isScanning());
    m_cancel->setVisible(canBeStopped);
    for (QAction* const action : m_workActions)
        action->setEnabled(!m_work);
}

void MainWindow::say(const QString& text)
{
    m_messages->say(text);
}

void MainWindow::showChosen()
{
    const QModelIndex index = m_grid->currentPreset();
    if (!index.isValid())
        return;
    const toolkit::ListedPreset preset = m_workspace.presets().Preset(index);
    if (EditedFile* const file = m_workspace.edited(preset.file)) {
        showTree(file);
        m_tree->setCurrentIndex(file->tree().Fetch(m_workspace.presets().Element(index)));
        m_details->showElement(*file, m_workspace.presets().Element(index));
        return;
    }
    m_details->showPreset(preset, m_workspace.presets().Open(index));
    m_openTimer.start();
}

/// What is chosen can be edited from here on. Without being asked for it only where that is quick.
void MainWindow::openForEditing(bool isWanted)
{
    m_openTimer.stop();
    const QModelIndex index = m_grid->currentPreset();
    if (!index.isValid())
        return;
    const toolkit::ListedPreset preset = m_workspace.presets().Preset(index);
    if (!isWanted && QFileInfo(preset.file).size() > s_openedAtOnce)
        return;
    if (!m_workspace.edit(preset.file))
        return;
    if (isWanted)
        m_workspace.addRecent({preset.file, preset.path});
    showChosen();
    if (isWanted)
        m_details->view().setFocus();
}

void MainWindow::showTree(EditedFile* file)
{
    if (file == m_treeFile)
        return;
    m_treeFile = file;
    m_treeDock->setWindowTitle(file->name());
    m_tree->setModel(&file->tree());
    m_tree->hideColumn(widgets::NodeModel::Kind);
    m_tree->expandToDepth(0);
    m_strip->showFile(file);
    m_stripDock->setVisible(file->kind() == toolkit::DocumentKind::SnapShots);
    m_workspace.undo().setActiveStack(&file->stack());
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (m_treeFile && index.isValid() && m_tree->hasFocus())
                    m_details->showElement(*m_treeFile, m_treeFile->tree().Element(index));
            });
    update();
    m_checkTimer.start();
}

} // namespace rvopen::browser

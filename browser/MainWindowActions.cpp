// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// What the menus of the window offer. They are in one place so that a shortcut is given once.

#include "MainWindow.h"

#include "Applying.h"
#include "Becoming.h"
#include "Details.h"
#include "Edits.h"
#include "FileTexts.h"
#include "Grid.h"
#include "MessageLine.h"
#include "Sidebar.h"

#include <rvopen/RVOpenVersion.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QToolButton>
#include <QTreeView>

namespace rvopen::browser {

void MainWindow::makeFileMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&File"));
    make(menu, "fileNewArchive", tr("New &Archive…"), QKeySequence::New, &MainWindow::newArchive);
    make(menu, "fileNewDocument", tr("New &Snapshot Document…"), QKeySequence(),
         &MainWindow::newDocument);
    make(menu, "fileOpen", tr("&Open Files…"), QKeySequence::Open, &MainWindow::openFiles);
    make(menu, "fileOpenFolder", tr("Open &Folder…"),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O), &MainWindow::openFolder);
    menu->addSeparator();
    make(menu, "fileSave", tr("&Save"), QKeySequence::Save, &MainWindow::save);
    QAction* const all = new QAction(tr("Save A&ll"), this);
    all->setObjectName(QStringLiteral("fileSaveAll"));
    all->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    connect(all, &QAction::triggered, this, &MainWindow::saveAll);
    menu->addAction(all);
    menu->addSeparator();
    makeForWork(menu, "fileImport", tr("&Import…"), QKeySequence(Qt::CTRL | Qt::Key_I),
                &MainWindow::importFile);
    makeForWork(menu, "fileMerge", tr("Mer&ge…"), QKeySequence(), &MainWindow::mergeFile);
    makeForWork(menu, "fileCollect", tr("Collect with I&mages…"), QKeySequence(),
                &MainWindow::collect);
    makeForWork(menu, "fileExportPictures", tr("&Export Pictures…"),
                QKeySequence(Qt::CTRL | Qt::Key_P), &MainWindow::exportPictures);
    makeForWork(menu, "fileExportSheet", tr("Export S&heet…"),
                QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P), &MainWindow::exportSheet);
    makeForWork(menu, "fileExportPage", tr("Export Page for &Browsers…"), QKeySequence(),
                &MainWindow::exportPage);
    menu->addSeparator();
    make(menu, "fileClose", tr("&Close File"), QKeySequence::Close, &MainWindow::closeCurrent);
    make(menu, "fileForget", tr("&Remove from the List"), QKeySequence(),
         &MainWindow::forgetPlaces);
    auto* const quit = new QAction(tr("&Quit"), this);
    quit->setObjectName(QStringLiteral("fileQuit"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &QWidget::close);
    menu->addAction(quit);
}

void MainWindow::makeEditMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&Edit"));
    const auto addStep = [&](QAction* action, const char* name, QKeySequence::StandardKey key) {
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        menu->addAction(action);
    };
    addStep(m_workspace.undo().createUndoAction(this, tr("&Undo")), "editUndo", QKeySequence::Undo);
    addStep(m_workspace.undo().createRedoAction(this, tr("&Redo")), "editRedo", QKeySequence::Redo);
    menu->addSeparator();
    makeForPresets(menu, "editCut", tr("Cu&t"), QKeySequence::Cut, &MainWindow::cut);
    makeForPresets(menu, "editCopy", tr("&Copy"), QKeySequence::Copy, &MainWindow::copy);
    makeForPresets(menu, "editPaste", tr("&Paste"), QKeySequence::Paste, &MainWindow::paste);
    menu->addSeparator();
    m_newMenu = menu->addMenu(tr("&New"));
    connect(m_newMenu, &QMenu::aboutToShow, this, &MainWindow::fillNewMenu);
    makeForPresets(menu, "editDuplicate", tr("&Duplicate"), QKeySequence(Qt::CTRL | Qt::Key_D),
                   &MainWindow::duplicate);
    makeForPresets(menu, "editRename", tr("Rena&me"), QKeySequence(Qt::Key_F2),
                   &MainWindow::rename);
    makeForPresets(menu, "editDelete", tr("De&lete"), QKeySequence::Delete, &MainWindow::remove);
    makeForPresets(menu, "editUp", tr("Move U&p"), QKeySequence(Qt::ALT | Qt::Key_Up),
                   &MainWindow::moveUp);
    makeForPresets(menu, "editDown", tr("Move Do&wn"), QKeySequence(Qt::ALT | Qt::Key_Down),
                   &MainWindow::moveDown);
    makeForPresets(menu, "editSort", tr("&Sort by Name"), QKeySequence(), &MainWindow::sort);
    menu->addSeparator();
    makeForPresets(menu, "editFavourite", tr("&Favourite"), QKeySequence(Qt::CTRL | Qt::Key_B),
                   &MainWindow::toggleFavourite);
    auto* const find = new QAction(tr("F&ind"), this);
    find->setObjectName(QStringLiteral("editFind"));
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    menu->addAction(find);

    QMenu* const tools = menuBar()->addMenu(tr("&Tools"));
    make(tools, "toolsCheck", tr("&Check File"), QKeySequence(Qt::Key_F7),
         &MainWindow::checkCurrent);
    make(tools, "toolsCheckAll", tr("Check &All Files"), QKeySequence(Qt::SHIFT | Qt::Key_F7),
         &MainWindow::checkAll);
    make(tools, "toolsMend", tr("&Mend"), QKeySequence(Qt::CTRL | Qt::Key_M), &MainWindow::mend);
    make(tools, "toolsCompare", tr("C&ompare"), QKeySequence(Qt::CTRL | Qt::Key_E),
         &MainWindow::compare);
    tools->addSeparator();
    makeForWork(tools, "toolsFindUses", tr("Find &Uses"), QKeySequence(Qt::CTRL | Qt::Key_U),
                &MainWindow::findUses);
    makeForWork(tools, "toolsFindImages", tr("Find Missing &Images…"), QKeySequence(),
                &MainWindow::findImages);
    makeForWork(tools, "toolsEmbed", tr("&Embed Pictures"), QKeySequence(),
                &MainWindow::embedPictures);
    makeForWork(tools, "toolsSetForAll", tr("&Set the Value for All Chosen"),
                QKeySequence(Qt::CTRL | Qt::Key_Return), &MainWindow::setForAll);
    tools->addSeparator();
    m_applyMenu = tools->addMenu(tr("Apply &to"));
    connect(m_applyMenu, &QMenu::aboutToShow, this, &MainWindow::fillApplyMenu);
}

/// Where something else has the keyboard its keys are for that: Delete in the values, and F2.
void MainWindow::makeForPresets(QMenu* menu, const char* name, const QString& text,
                                const QKeySequence& keys, void (MainWindow::*act)())
{
    QAction* const action = make(menu, name, text, keys, act);
    action->setShortcutContext(Qt::WidgetShortcut);
    m_grid->addAction(action);
    m_tree->addAction(action);
}

void MainWindow::makeViewMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&View"));
    const QList<QDockWidget*> docks = findChildren<QDockWidget*>();
    for (QDockWidget* const dock : docks)
        menu->addAction(dock->toggleViewAction());
    menu->addSeparator();
    auto* const appearances = new QActionGroup(this);
    const auto add = [&](const char* name, const QString& text, Appearance appearance) {
        QAction* const action = menu->addAction(text);
        action->setObjectName(QLatin1String(name));
        action->setCheckable(true);
        action->setChecked(m_workspace.memory().appearance() == appearance);
        appearances->addAction(action);
        connect(action, &QAction::triggered, this, [this, appearance] {
            m_workspace.memory().setAppearance(appearance);
            setAppearance(appearance);
        });
    };
    add("viewSystem", tr("As the &Desktop"), Appearance::System);
    add("viewLight", tr("&Light"), Appearance::Light);
    add("viewDark", tr("Dar&k"), Appearance::Dark);
    QMenu* const help = menuBar()->addMenu(tr("&Help"));
    make(help, "helpAbout", tr("&About rvopen"), QKeySequence(), &MainWindow::about);
}

// Choosing.

void MainWindow::searchNow()
{
    toolkit::CatalogueQuery query = m_sidebar->query();
    query.text = m_search->text();
    if (m_colour.isValid())
        query.colour = m_colour.name();
    m_workspace.filter().SetQuery(query);
}

void MainWindow::setColour(const QColor& colour)
{
    m_colour = colour;
    m_colourButton->setChecked(colour.isValid());
    if (colour.isValid()) {
        QPixmap swatch(16, 16);
        swatch.fill(colour);
        QPainter(&swatch).drawRect(0, 0, 15, 15);
        m_colourButton->setIcon(swatch);
        m_colourButton->setText(colour.name());
    } else {
        m_colourButton->setIcon(QIcon());
        m_colourButton->setText(tr("Colour"));
    }
    searchNow();
}

void MainWindow::pickColour()
{
    if (m_colour.isValid()) {
        setColour(QColor());
        return;
    }
    m_colourButton->setChecked(false);
    auto* const dialog = new QColorDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this, &MainWindow::setColour);
    dialog->open();
}

void MainWindow::showInFile(const QString& file, const QString& path)
{
    EditedFile* const edited = m_workspace.edit(file);
    if (!edited)
        return;
    showTree(edited);
    const QDomElement element = elementAt(edited->dom(), path);
    if (!element.isNull())
        choose(*edited, element);
}

/// The element in the tree, the grid and the details, as far as they show it.
void MainWindow::choose(EditedFile& file, const QDomElement& element)
{
    showTree(&file);
    m_tree->setCurrentIndex(file.tree().Fetch(element));
    // What has just come is found with the next search.
    searchNow();
    const QModelIndex row = m_workspace.presets().IndexOf(element);
    const QModelIndex shown = m_grid->presets().indexOf(row);
    if (shown.isValid())
        m_grid->setCurrentIndex(shown);
    m_details->showElement(file, row.isValid() ? m_workspace.presets().Element(row) : element);
}

QVector<toolkit::ListedPreset> MainWindow::chosenPresets() const
{
    QVector<toolkit::ListedPreset> chosen;
    for (const QModelIndex& row : m_grid->selectedPresets())
        chosen.append(m_workspace.presets().Preset(row));
    return chosen;
}

/// Where the tree has the keyboard what is chosen there, else in the grid; opened to be edited.
MainWindow::Choice MainWindow::choice()
{
    Choice choice;
    if (m_tree->hasFocus() && m_treeFile) {
        choice.file = m_treeFile;
        choice.element = m_tree->currentIndex().isValid()
                             ? m_treeFile->tree().Element(m_tree->currentIndex())
                             : QDomElement();
        return choice;
    }
    const QModelIndex index = m_grid->currentPreset();
    if (!index.isValid())
        return choice;
    choice.preset = m_workspace.presets().Preset(index);
    choice.file = m_workspace.edit(choice.preset.file);
    if (choice.file)
        choice.element = m_workspace.presets().Element(m_grid->currentPreset());
    return choice;
}

/// All that is selected where the keyboard is, by the files that it is of.
std::map<EditedFile*, QVector<QDomElement>> MainWindow::chosenElements()
{
    std::map<EditedFile*, QVector<QDomElement>> elements;
    if (m_tree->hasFocus() && m_treeFile) {
        for (const QModelIndex& row : m_tree->selectionModel()->selectedRows())
            elements[m_treeFile].append(m_treeFile->tree().Element(row));
        return elements;
    }
    // Files that are opened give their presets other rows.
    for (const toolkit::ListedPreset& preset : chosenPresets()) {
        EditedFile* const file = m_workspace.edit(preset.file);
        const QModelIndex row = m_workspace.presets().IndexOf(preset.file, preset.path);
        if (file && row.isValid())
            elements[file].append(m_workspace.presets().Element(row));
    }
    return elements;
}

EditedFile* MainWindow::currentFile()
{
    const QModelIndex index = m_grid->currentPreset();
    if (m_treeFile || !index.isValid())
        return m_treeFile;
    return m_workspace.edit(m_workspace.presets().Preset(index).file);
}

// Edits.

void MainWindow::fillNewMenu()
{
    m_newMenu->clear();
    const Choice current = choice();
    const QDomElement shelf =
        current ? edits::shelfOf(*current.file, current.element) : QDomElement();
    for (const QString& kind : edits::kindsFor(shelf)) {
        QAction* const action =
            m_newMenu->addAction(kind == QLatin1String("dir") ? tr("Folder") : kind);
        connect(action, &QAction::triggered, this,
                [this, kind, shelf, file = current.file->file()] {
                    EditedFile* const edited = m_workspace.edited(file);
                    if (!edited)
                        return;
                    const QDomElement added = edits::add(*edited, kind, shelf);
                    if (!added.isNull())
                        choose(*edited, added);
                });
    }
    if (m_newMenu->isEmpty())
        m_newMenu->addAction(tr("Choose a preset, a folder or a section first"))->setEnabled(false);
}

void MainWindow::rename()
{
    const Choice current = choice();
    if (!current)
        return;
    // In a line, where the name is seen; the tree renames in its row.
    choose(*current.file, current.element);
    if (m_treeFile->tree().Element(m_tree->currentIndex()) != current.element)
        return say(tr("This cannot be renamed"));
    m_treeDock->show();
    m_tree->setFocus();
    m_tree->edit(m_tree->currentIndex());
}

void MainWindow::remove()
{
    int removed = 0;
    for (const auto& [file, elements] : chosenElements())
        removed += edits::remove(*file, elements);
    if (removed == 0)
        return;
    say(tr("%n element(s) were deleted; Undo brings them back", nullptr, removed));
    m_details->showNothing();
}

void MainWindow::duplicate()
{
    const Choice current = choice();
    if (!current)
        return;
    const QDomElement copy = edits::duplicate(*current.file, current.element);
    if (copy.isNull())
        return say(tr("This cannot be duplicated"));
    choose(*current.file, copy);
}

void MainWindow::moveUp()
{
    move(-1);
}

void MainWindow::moveDown()
{
    move(1);
}

void MainWindow::move(int by)
{
    const Choice current = choice();
    if (current && edits::move(*current.file, current.element, by))
        choose(*current.file, current.element);
}

void MainWindow::sort()
{
    const Choice current = choice();
    const QDomElement shelf =
        current ? edits::shelfOf(*current.file, current.element) : QDomElement();
    if (!shelf.isNull())
        edits::sort(*current.file, shelf);
}

void MainWindow::copy()
{
    QAbstractItemModel* model = m_grid->model();
    QItemSelectionModel* selection = m_grid->selectionModel();
    if (m_tree->hasFocus() && m_tree->model()) {
        model = m_tree->model();
        selection = m_tree->selectionModel();
    }
    const QModelIndexList chosen = selection->selectedIndexes();
    if (!chosen.isEmpty())
        QApplication::clipboard()->setMimeData(model->mimeData(chosen));
}

void MainWindow::cut()
{
    copy();
    remove();
}

void MainWindow::paste()
{
    const QMimeData* const given = QApplication::clipboard()->mimeData();
    if (given && given->hasColor())
        return setColour(given->colorData().value<QColor>());
    if (given && given->hasImage())
        return setColour(Grid::colourOf(given->imageData().value<QImage>()));
    EditedFile* const file = currentFile();
    if (!given || !file)
        return;
    const Choice current = choice();
    const QDomElement shelf =
        current.file == file && current ? edits::shelfOf(*file, current.element) : QDomElement();
    if (!edits::paste(*file, *given, shelf))
        say(tr("That cannot stand here: choose a section or a folder for it"));
}

void MainWindow::toggleFavourite()
{
    for (const toolkit::ListedPreset& preset : chosenPresets()) {
        const toolkit::PresetPlace place{preset.file, preset.path};
        const bool isFavourite = !m_workspace.memory().isFavourite(place);
        m_workspace.setFavourite(place, isFavourite);
        say(isFavourite ? tr("%1 is a favourite").arg(preset.name)
                        : tr("%1 is no favourite any more").arg(preset.name));
    }
    searchNow();
}

void MainWindow::mend()
{
    EditedFile* const file = currentFile();
    if (!file)
        return;
    const int mended = Findings::mend(*file, m_workspace.folders());
    say(tr("%n finding(s) were mended; Undo brings them back", nullptr, mended));
}

void MainWindow::checkCurrent()
{
    if (EditedFile* const file = currentFile())
        m_findings->check(*file);
}

void MainWindow::checkAll()
{
    m_checkTimer.stop();
    m_findings->check(m_workspace.files());
}

/// The snapshots of the documents that are open, and in them what the preset can become.
void MainWindow::fillApplyMenu()
{
    m_applyMenu->clear();
    const QVector<toolkit::ListedPreset> chosen = chosenPresets();
    for (EditedFile* const file : m_workspace.allEdited()) {
        if (chosen.size() != 1 || file->kind() != toolkit::DocumentKind::SnapShots)
            continue;
        for (const ApplyTarget& target : applyTargets(*file, chosen.first().kind)) {
            QAction* const action =
                m_applyMenu->addAction(file->name() + QLatin1String(": ") + target.text);
            connect(action, &QAction::triggered, this,
                    [this, name = file->file(), path = target.path] { apply(name, path); });
        }
    }
    if (m_applyMenu->isEmpty())
        m_applyMenu
            ->addAction(tr("Choose one preset, and open the document that it is to be used in"))
            ->setEnabled(false);
}

void MainWindow::apply(const QString& document, const QString& path)
{
    EditedFile* const file = m_workspace.edited(document);
    const QModelIndexList chosen = m_grid->selectedPresets();
    const toolkit::OpenPreset preset =
        chosen.size() == 1 ? m_workspace.presets().Open(chosen.first()) : toolkit::OpenPreset();
    if (!file || !preset)
        return;
    if (applyPreset(preset.element, *file, path))
        say(tr("%1 was applied to %2").arg(toolkit::IdentityOf(preset.element), path));
    else
        say(tr("%1 cannot be applied there").arg(toolkit::IdentityOf(preset.element)));
}

void MainWindow::about()
{
    say(tr("rvopen %1: presets and snapshots to choose from, and to edit")
            .arg(QLatin1String(RVOPEN_VERSION_STRING)));
}

} // namespace rvopen::browser

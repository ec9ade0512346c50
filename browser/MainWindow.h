// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Findings.h"
#include "LongWork.h"
#include "Workspace.h"

#include <rvopen/toolkit/exchange/Exchange.h>
#include <rvopen/toolkit/images/DocumentTextures.h>

#include <QColor>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <map>

QT_BEGIN_NAMESPACE
class QAction;
class QDockWidget;
class QLineEdit;
class QListView;
class QMenu;
class QProgressBar;
class QSlider;
class QToolButton;
class QTreeView;
QT_END_NAMESPACE

namespace rvopen::browser {

class Details;
class Grid;
class MessageLine;
class Sidebar;
class SnapShotStrip;

/// The window: filters, pictures to choose from, the preset that is chosen with its values, and
/// what is to be said of its file.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Workspace& workspace, QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Asks about what a program that ended otherwise than by itself has left.
    void offerRecovery();

    /// \name Parts
    /// @{
    Sidebar& sidebar();
    Grid& grid();
    Details& details();
    Findings& findings();
    MessageLine& messages();
    QLineEdit& search();
    QTreeView& tree();
    SnapShotStrip& strip();
    /// By its name, "fileSave"; null for none.
    QAction* action(const char* name) const;
    /// @}

public Q_SLOTS:
    /// Saves all that is changed; false when something could not be.
    bool saveAll();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// What is chosen in the grid or the tree.
    struct Choice {
        toolkit::ListedPreset preset;
        EditedFile* file = nullptr;
        QDomElement element;

        explicit operator bool() const
        {
            return file && !element.isNull();
        }
    };

    QAction* make(QMenu* menu, const char* name, const QString& text, const QKeySequence& keys,
                  void (MainWindow::*act)());
    /// Of something that takes long: one of these is done at a time.
    void makeForWork(QMenu* menu, const char* name, const QString& text, const QKeySequence& keys,
                     void (MainWindow::*act)());
    void makeForPresets(QMenu* menu, const char* name, const QString& text,
                        const QKeySequence& keys, void (MainWindow::*act)());
    void makeParts();
    void makeDocks();
    void makeToolBar();
    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void follow();

    // Choosing.
    void searchNow();
    void setColour(const QColor& colour);
    void showChosen();
    void openForEditing(bool isWanted);
    void showTree(EditedFile* file);
    void showInFile(const QString& file, const QString& path);
    Choice choice();
    std::map<EditedFile*, QVector<QDomElement>> chosenElements();
    EditedFile* currentFile();
    QVector<toolkit::ListedPreset> chosenPresets() const;
    void choose(EditedFile& file, const QDomElement& element);

    // Files.
    void openFiles();
    void openFolder();
    void newArchive();
    void newDocument();
    void newFile(const QString& title, const QString& names, const QString& suffix,
                 const std::function<bool(const QString&)>& write);
    void save();
    void closeCurrent();
    void forgetPlaces();
    void askAboutOutside(EditedFile* file);
    void reload(EditedFile& file);
    void keep(EditedFile& file);
    void compareWithDisk(EditedFile& file);

    // Edits.
    void rename();
    void remove();
    void duplicate();
    void moveUp();
    void moveDown();
    void move(int by);
    void sort();
    void copy();
    void cut();
    void paste();
    void fillNewMenu();
    void toggleFavourite();
    void mend();
    void checkCurrent();
    void checkAll();
    void compare();
    void compareFiles(const QStringList& files);
    void fillApplyMenu();
    void apply(const QString& document, const QString& path);
    void pickColour();
    void about();

    // Whole files, and many presets.
    void exportPictures();
    void exportSheet();
    void exportPage();
    void importFile();
    void importFrom(const QString& file, const QString& source, toolkit::ChangedImports changed);
    void mergeFile();
    void askForBase(const QString& file, const QString& theirs);
    void mergeFrom(const QString& file, const QString& theirs, const QString& base);
    void collect();
    void askAboutElsewhere(const QString& file, const QString& folder);
    void collectInto(const QString& file, const QString& folder, toolkit::CollectedTextures which);
    void findImages();
    void embedPictures();
    void setForAll();
    void findUses();
    QVector<toolkit::ListedPreset> chosenOrAllPresets() const;
    QVector<toolkit::PresetPlace> chosenPlaces() const;
    void askForFile(const QString& title, const std::function<void(const QString&)>& act);
    void askForFolder(const QString& title, const std::function<void(const QString&)>& act);
    /// The one that is chosen; null, with a word to the person, without.
    EditedFile* fileToWorkOn();
    /// What shows lines in the place of findings.
    std::function<void(const QVector<Findings::Line>&)> linesShown();
    void begin(const LongWork::Work& work);

    void update();
    void showBusy();
    void say(const QString& text);

    Workspace& m_workspace;
    Sidebar* m_sidebar = nullptr;
    Grid* m_grid = nullptr;
    QTreeView* m_tree = nullptr;
    QDockWidget* m_treeDock = nullptr;
    SnapShotStrip* m_strip = nullptr;
    QDockWidget* m_stripDock = nullptr;
    Details* m_details = nullptr;
    Findings* m_findings = nullptr;
    MessageLine* m_messages = nullptr;
    QLineEdit* m_search = nullptr;
    QToolButton* m_colourButton = nullptr;
    QSlider* m_size = nullptr;
    QProgressBar* m_progress = nullptr;
    QToolButton* m_cancel = nullptr;
    QMenu* m_newMenu = nullptr;
    QMenu* m_applyMenu = nullptr;
    QColor m_colour;
    QTimer m_openTimer;
    QTimer m_checkTimer;
    QPointer<EditedFile> m_treeFile;
    QPointer<LongWork> m_work;
    QVector<QAction*> m_workActions;
    bool m_mayClose = false;
};

} // namespace rvopen::browser

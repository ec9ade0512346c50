// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// A browser of presets: browser <folder of archives>
// A search over all archives, a grid of pictures, the tree of the archive that the chosen preset is
// in, and its values. Edits can be undone, presets dragged, and archives saved. With --picture
// <file> first the window is written to the file.

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/host/OpenArchive.h>
#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/widgets/ArchiveModel.h>
#include <rvopen/widgets/ParamDelegate.h>
#include <rvopen/widgets/ParamModel.h>
#include <rvopen/widgets/PresetFilter.h>
#include <rvopen/widgets/PresetModel.h>
#include <rvopen/widgets/Thumbnails.h>
#include <rvopen/widgets/UndoRecorder.h>

#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>
#include <QUndoGroup>
#include <QUndoStack>

#include <map>
#include <memory>

using namespace rvopen;
using namespace rvopen::widgets;

/// An archive that is edited.
struct Edited {
    explicit Edited(const QString& file)
        : archive(file)
    {
        if (archive)
            recorder = std::make_unique<UndoRecorder>(archive.root(), &stack);
    }

    host::OpenArchive archive;
    QUndoStack stack;
    std::unique_ptr<UndoRecorder> recorder;
};

class Browser : public QMainWindow {
public:
    explicit Browser(const QString& folder)
    {
        GetDirectoryHandler()->SetCustomArchivesFolder(folder);
        toolkit::Folders folders;
        folders.custom = folder;
        m_thumbnails.SetFolders(folders);
        QVector<ReadError> problems;
        const QStringList files = toolkit::DocumentsBelow(folder, problems);
        m_presets.SetThumbnails(&m_thumbnails, s_pictureSize);
        m_presets.SetCatalogue(std::make_shared<const toolkit::Catalogue>(files));
        m_filter.setSourceModel(&m_presets);

        auto* const bar = addToolBar(tr("Archive"));
        auto* const search = new QLineEdit;
        search->setPlaceholderText(tr("Search"));
        search->setClearButtonEnabled(true);
        bar->addWidget(search);
        const QList<QAction*> actions{m_undo.createUndoAction(this), m_undo.createRedoAction(this),
                                      new QAction(tr("Save"), this)};
        actions[0]->setShortcut(QKeySequence::Undo);
        actions[1]->setShortcut(QKeySequence::Redo);
        actions[2]->setShortcut(QKeySequence::Save);
        bar->addActions(actions);

        m_grid.setModel(&m_filter);
        m_grid.setViewMode(QListView::IconMode);
        m_grid.setResizeMode(QListView::Adjust);
        m_grid.setIconSize({s_pictureSize, s_pictureSize});
        m_grid.setGridSize({s_pictureSize + 32, s_pictureSize + 40});
        m_grid.setUniformItemSizes(true);
        m_grid.setDragEnabled(true);
        m_tree.setModel(&m_archive);
        m_tree.setDragDropMode(QAbstractItemView::DragDrop);
        m_tree.setDefaultDropAction(Qt::MoveAction);
        m_tree.setUniformRowHeights(true);
        m_tree.hideColumn(ArchiveModel::Kind);
        m_values.setModel(&m_params);
        m_values.setItemDelegateForColumn(ParamModel::Value, new ParamDelegate(&m_values));
        m_values.setEditTriggers(QAbstractItemView::AllEditTriggers);
        m_values.setRootIsDecorated(false);
        m_values.hideColumn(ParamModel::Meaning);
        auto* const splitter = new QSplitter;
        splitter->addWidget(&m_tree);
        splitter->addWidget(&m_grid);
        splitter->addWidget(&m_values);
        splitter->setSizes({250, 600, 400});
        setCentralWidget(splitter);
        resize(1250, 700);
        showCount();
        connect(search, &QLineEdit::textChanged, &m_filter, &PresetFilter::SetWords);
        connect(&m_filter, &PresetFilter::QueryChanged, this, [this] { showCount(); });
        connect(actions[2], &QAction::triggered, this, [this] { saveAll(); });
        connect(m_grid.selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this](const QModelIndex& index) { edit(m_filter.mapToSource(index)); });
        connect(m_tree.selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this](const QModelIndex& index) { showValues(m_archive.Element(index)); });
        connect(&m_params, &ParamModel::Refused, this,
                [this](const QModelIndex&, const QString& reason) {
                    statusBar()->showMessage(reason);
                });
    }

    /// Once all pictures are there.
    void writePicture(const QString& file)
    {
        m_grid.setCurrentIndex(m_filter.index(2, 0));
        auto* const timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [this, file] {
            if (m_thumbnails.Waiting() == 0)
                QCoreApplication::exit(grab().save(file) ? 0 : 1);
        });
        timer->start(200);
    }

private:
    /// Opens the archive of the preset, which is edited in it from now on.
    void edit(const QModelIndex& index)
    {
        if (!index.isValid())
            return;
        const toolkit::ListedPreset preset = m_presets.Preset(index);
        std::unique_ptr<Edited>& edited = m_edited[preset.file];
        if (!edited) {
            edited = std::make_unique<Edited>(preset.file);
            if (!edited->archive)
                return statusBar()->showMessage(tr("%1 cannot be opened").arg(preset.file));
            m_undo.addStack(&edited->stack);
            m_presets.Follow(preset.file, edited->archive.root()->GetDomNode().ownerDocument());
        }
        m_undo.setActiveStack(&edited->stack);
        m_archive.SetArchive(edited->archive.root());
        const QDomElement element = m_presets.Element(m_presets.IndexOf(preset.file, preset.path));
        m_tree.setCurrentIndex(m_archive.Fetch(element));
    }

    void showValues(const QDomElement& element)
    {
        m_params.SetElement(element, ParamModel::Below);
        m_values.header()->resizeSections(QHeaderView::ResizeToContents);
    }

    void showCount()
    {
        statusBar()->showMessage(tr("%n preset(s)", nullptr, m_filter.rowCount()));
    }

    void saveAll()
    {
        for (const auto& [file, edited] : m_edited) {
            const WriteError error =
                edited->stack.isClean() ? WriteError() : edited->archive.save();
            if (error)
                statusBar()->showMessage(error.file + QLatin1String(": ") + error.message);
            else
                edited->stack.setClean();
        }
    }

    static constexpr int s_pictureSize = 96;
    // In this order, so that models go before what they follow.
    std::map<QString, std::unique_ptr<Edited>> m_edited;
    QUndoGroup m_undo;
    Thumbnails m_thumbnails;
    PresetModel m_presets;
    PresetFilter m_filter;
    ArchiveModel m_archive;
    ParamModel m_params;
    QTreeView m_tree;
    QListView m_grid;
    QTreeView m_values;
};

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const bool isPicture = argc > 3 && qstrcmp(argv[1], "--picture") == 0;
    Browser browser(QFile::decodeName(argc > 1 ? argv[argc - 1] : "."));
    browser.show();
    if (isPicture)
        browser.writePicture(QFile::decodeName(argv[2]));
    return QApplication::exec();
}

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// What is opened, made, saved and compared.

#include "MainWindow.h"

#include "CompareWindow.h"
#include "FileTexts.h"
#include "Grid.h"
#include "MessageLine.h"
#include "Sidebar.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/toolkit/documents/NewDocuments.h>

#include <QFileDialog>

namespace rvopen::browser {

void MainWindow::openFiles()
{
    auto* const dialog = new QFileDialog(this, tr("Open Files"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setNameFilters({tr("Archives and documents (*.rvx *.xml)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::filesSelected, &m_workspace, &Workspace::open);
    dialog->open();
}

void MainWindow::openFolder()
{
    auto* const dialog = new QFileDialog(this, tr("Open Folder"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::filesSelected, &m_workspace, &Workspace::open);
    dialog->open();
}

void MainWindow::newArchive()
{
    newFile(tr("New Archive"), tr("Archives (*.rvx)"), QStringLiteral("rvx"),
            [](const QString& file) {
                return WriteXmlDocument(toolkit::NewArchive(file), file, ArchiveFileIndent);
            });
}

void MainWindow::newDocument()
{
    newFile(tr("New Snapshot Document"), tr("Snapshot documents (*.xml)"), QStringLiteral("xml"),
            [](const QString& file) {
                return WriteXmlDocument(toolkit::NewSnapShots(), file, SnapShotFileIndent);
            });
}

void MainWindow::newFile(const QString& title, const QString& names, const QString& suffix,
                         const std::function<bool(const QString&)>& write)
{
    auto* const dialog = new QFileDialog(this, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(suffix);
    dialog->setNameFilter(names);
    connect(dialog, &QFileDialog::fileSelected, this, [this, write](const QString& file) {
        if (!write(file))
            return say(messageOf(WriteError{file, LastWriteError()}));
        m_workspace.open({file});
        if (EditedFile* const edited = m_workspace.edit(file))
            showTree(edited);
    });
    dialog->open();
}

void MainWindow::save()
{
    if (m_treeFile)
        m_workspace.save(*m_treeFile);
}

void MainWindow::closeCurrent()
{
    EditedFile* const file = m_treeFile;
    if (!file)
        return;
    const QString name = file->file();
    if (!file->isChanged())
        return m_workspace.closeFile(name);
    m_messages->ask(name, tr("%1 was edited.").arg(file->name()),
                    {{tr("Save and close"),
                      [this, name] {
                          EditedFile* const edited = m_workspace.edited(name);
                          if (edited && m_workspace.save(*edited))
                              m_workspace.closeFile(name);
                      }},
                     {tr("Close without saving"), [this, name] { m_workspace.closeFile(name); }},
                     {tr("Stay"), [] {}}});
}

void MainWindow::forgetPlaces()
{
    for (const QString& place : m_sidebar->selectedPlaces())
        m_workspace.close(place);
}

void MainWindow::askAboutOutside(EditedFile* file)
{
    const QString name = file->file();
    const auto ofFile = [this, name](void (MainWindow::*act)(EditedFile&)) {
        return [this, name, act] {
            if (EditedFile* const edited = m_workspace.edited(name))
                (this->*act)(*edited);
        };
    };
    m_messages->ask(name + QLatin1String("\noutside"),
                    tr("%1 was changed by another program.").arg(file->name()),
                    {{tr("Reload"), ofFile(&MainWindow::reload)},
                     {tr("Keep mine"), ofFile(&MainWindow::keep)},
                     {tr("Compare"), ofFile(&MainWindow::compareWithDisk)}});
}

void MainWindow::reload(EditedFile& file)
{
    const QString name = file.file();
    m_workspace.reload(file);
    if (EditedFile* const again = m_workspace.edited(name))
        showTree(again);
}

void MainWindow::keep(EditedFile& file)
{
    file.keepMine();
    update();
}

void MainWindow::compareWithDisk(EditedFile& file)
{
    const toolkit::Load load = toolkit::LoadDocument(file.file());
    // What was asked is to be answered still.
    askAboutOutside(&file);
    if (!load)
        return say(messageOf(load.error));
    (new CompareWindow(
         m_workspace,
         {file.file(), load.document->Dom(), load.document->Root(),
          tr("%1 on disk").arg(file.name())},
         {file.file(), file.dom(), file.dom().documentElement(), tr("%1 here").arg(file.name())},
         this))
        ->show();
}

void MainWindow::compare()
{
    const QStringList files = m_sidebar->selectedFiles();
    if (chosenPresets().size() != 2 && files.size() == 2)
        return compareFiles(files);
    QVector<CompareWindow::Side> sides;
    for (const QModelIndex& row : m_grid->selectedPresets()) {
        const toolkit::ListedPreset preset = m_workspace.presets().Preset(row);
        const toolkit::OpenPreset opened = m_workspace.presets().Open(row);
        if (opened)
            sides.append({preset.file, opened.dom, opened.element, preset.name});
    }
    if (sides.size() == 2)
        (new CompareWindow(m_workspace, sides[0], sides[1], this))->show();
}

/// Whole documents, as they are here where they are open.
void MainWindow::compareFiles(const QStringList& files)
{
    QVector<CompareWindow::Side> sides;
    for (const QString& file : files) {
        const EditedFile* const edited = m_workspace.edited(file);
        const toolkit::Load load = edited ? toolkit::Load() : toolkit::LoadDocument(file);
        if (!edited && !load)
            return say(messageOf(load.error));
        const QDomDocument document = edited ? edited->dom() : load.document->Dom();
        sides.append({file, document, document.documentElement(), LastPathComponent(file)});
    }
    (new CompareWindow(m_workspace, sides[0], sides[1], this))->show();
}

} // namespace rvopen::browser

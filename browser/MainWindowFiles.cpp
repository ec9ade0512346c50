// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// What the menu of files offers: what is opened, made, saved, and exported.

#include "MainWindow.h"

#include "CompareWindow.h"
#include "Exports.h"
#include "FileTexts.h"
#include "Grid.h"
#include "MessageLine.h"
#include "Sidebar.h"

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

void MainWindow::exportPictures()
{
    const QVector<toolkit::ListedPreset> presets = chosenOrAllPresets();
    askForFolder(tr("Folder for %n picture(s)", nullptr, int(presets.size())),
                 [this, presets](const QString& folder) {
                     begin(picturesOf(m_workspace, presets, folder));
                 });
}

/// With pictures as large as they are in the window.
void MainWindow::exportSheet()
{
    const QVector<toolkit::ListedPreset> presets = chosenOrAllPresets();
    auto* const dialog =
        new QFileDialog(this, tr("Sheet of %n picture(s)", nullptr, int(presets.size())));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({tr("To print (*.pdf)"), tr("One picture (*.png)")});
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        const bool isPng = filter.contains(QLatin1String("*.png"));
        dialog->setDefaultSuffix(isPng ? QStringLiteral("png") : QStringLiteral("pdf"));
    });
    connect(dialog, &QFileDialog::fileSelected, this, [this, presets](const QString& file) {
        const bool isPng = file.endsWith(QLatin1String(".png"), Qt::CaseInsensitive);
        toolkit::SheetWish wish;
        wish.size = m_grid->pictureSize();
        begin(sheetOf(m_workspace, presets,
                      isPng ? toolkit::SheetFormat::Png : toolkit::SheetFormat::Pdf, wish, file));
    });
    dialog->open();
}

void MainWindow::exportPage()
{
    const QVector<toolkit::ListedPreset> presets = chosenOrAllPresets();
    askForFolder(tr("Empty folder for a page of %n picture(s)", nullptr, int(presets.size())),
                 [this, presets](const QString& folder) {
                     toolkit::SheetWish wish;
                     wish.size = m_grid->pictureSize();
                     begin(sheetOf(m_workspace, presets, toolkit::SheetFormat::Page, wish, folder));
                 });
}

void MainWindow::askForFolder(const QString& title, const std::function<void(const QString&)>& act)
{
    auto* const dialog = new QFileDialog(this, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::fileSelected, this, act);
    dialog->open();
}

void MainWindow::begin(const LongWork::Work& work)
{
    if (m_work)
        return;
    m_work = new LongWork(this);
    connect(m_work, &LongWork::progressed, this, &MainWindow::showBusy);
    connect(m_work, &LongWork::finished, this, [this](const QString& message) {
        m_work = nullptr;
        showBusy();
        if (!message.isEmpty())
            say(message);
    });
    m_work->start(work);
    showBusy();
}

} // namespace rvopen::browser

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// What is done to whole files and to many presets, while all else goes on.

#include "MainWindow.h"

#include "Details.h"
#include "Exports.h"
#include "FileWorks.h"
#include "Grid.h"
#include "MessageLine.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <QFileDialog>

namespace rvopen::browser {

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

void MainWindow::importFile()
{
    EditedFile* const file = fileToWorkOn();
    if (!file)
        return;
    askForFile(tr("Import into %1").arg(file->name()),
               [this, name = file->file()](const QString& source) {
                   importFrom(name, source, toolkit::ChangedImports::Left);
               });
}

void MainWindow::importFrom(const QString& file, const QString& source,
                            toolkit::ChangedImports changed)
{
    const auto ask = [this, file, source](int count) {
        const auto again = [this, file, source](toolkit::ChangedImports how) {
            return [this, file, source, how] { importFrom(file, source, how); };
        };
        m_messages->ask(QStringLiteral("import"),
                        tr("%n element(s) are there with another content.", nullptr, count),
                        {{tr("Replace"), again(toolkit::ChangedImports::Replaced)},
                         {tr("Take under other names"), again(toolkit::ChangedImports::Renamed)},
                         {tr("Leave"), [] {}}});
    };
    begin(works::importInto(m_workspace, file, source, changed, ask, linesShown()));
}

void MainWindow::mergeFile()
{
    EditedFile* const file = fileToWorkOn();
    if (!file)
        return;
    askForFile(tr("Merge into %1").arg(file->name()),
               [this, name = file->file()](const QString& theirs) { askForBase(name, theirs); });
}

void MainWindow::askForBase(const QString& file, const QString& theirs)
{
    const auto choose = [this, file, theirs] {
        askForFile(tr("What both come from"),
                   [this, file, theirs](const QString& base) { mergeFrom(file, theirs, base); });
    };
    m_messages->ask(
        QStringLiteral("merge"), tr("Is there a version that both come from?"),
        {{tr("Choose it…"), choose},
         {tr("There is none"), [this, file, theirs] { mergeFrom(file, theirs, QString()); }},
         {tr("Do not merge"), [] {}}});
}

void MainWindow::mergeFrom(const QString& file, const QString& theirs, const QString& base)
{
    begin(works::mergeInto(m_workspace, file, theirs, base, linesShown()));
}

void MainWindow::collect()
{
    EditedFile* const file = fileToWorkOn();
    if (!file)
        return;
    askForFolder(
        tr("Folder for %1 and its images").arg(file->name()),
        [this, name = file->file()](const QString& folder) { askAboutElsewhere(name, folder); });
}

void MainWindow::askAboutElsewhere(const QString& file, const QString& folder)
{
    using toolkit::CollectedTextures;
    if (!works::hasImagesElsewhere(m_workspace, file))
        return collectInto(file, folder, CollectedTextures::Ours);
    const auto into = [this, file, folder](CollectedTextures which) {
        return [this, file, folder, which] { collectInto(file, folder, which); };
    };
    m_messages->ask(QStringLiteral("collect"), tr("Some images lie elsewhere on this machine."),
                    {{tr("Take them along"), into(CollectedTextures::Everywhere)},
                     {tr("Leave them out"), into(CollectedTextures::Ours)},
                     {tr("Do not collect"), [] {}}});
}

void MainWindow::collectInto(const QString& file, const QString& folder,
                             toolkit::CollectedTextures which)
{
    begin(works::collect(m_workspace, file, folder, which, linesShown()));
}

void MainWindow::findImages()
{
    EditedFile* const file = fileToWorkOn();
    if (!file)
        return;
    askForFolder(tr("Folder that the missing images are in, or below"),
                 [this, name = file->file()](const QString& folder) {
                     begin(works::findImages(m_workspace, name, folder, linesShown()));
                 });
}

void MainWindow::embedPictures()
{
    const QVector<toolkit::PresetPlace> places = chosenPlaces();
    if (places.isEmpty())
        return say(tr("Choose presets first"));
    begin(works::embedPictures(m_workspace, places));
}

/// The value that has been chosen, or edited last.
void MainWindow::setForAll()
{
    const QDomElement param = m_details->chosenParam();
    const QVector<toolkit::PresetPlace> places = chosenPlaces();
    const QString file = m_details->editedFile();
    if (param.isNull() || places.size() < 2 || file.isEmpty())
        return say(tr("Choose several presets, and the value that all of them are to have"));
    begin(works::setForAll(m_workspace, {file, toolkit::PathOf(m_details->element())},
                           toolkit::PathOf(param), places));
}

void MainWindow::findUses()
{
    const QVector<toolkit::ListedPreset> chosen = chosenPresets();
    if (chosen.size() != 1 || chosen.first().refName.isEmpty())
        return say(tr("Choose one preset that has a reference name"));
    begin(works::findUses(m_workspace, chosen.first(), linesShown()));
}

/// What is chosen; all that the filters leave where nothing is.
QVector<toolkit::ListedPreset> MainWindow::chosenOrAllPresets() const
{
    QVector<toolkit::ListedPreset> presets = chosenPresets();
    if (presets.isEmpty()) {
        for (int row = 0; row < m_workspace.filter().rowCount(); ++row)
            presets.append(m_workspace.presets().Preset(
                m_workspace.filter().mapToSource(m_workspace.filter().index(row, 0))));
    }
    return presets;
}

QVector<toolkit::PresetPlace> MainWindow::chosenPlaces() const
{
    QVector<toolkit::PresetPlace> places;
    for (const toolkit::ListedPreset& preset : chosenPresets())
        places.append({preset.file, preset.path});
    return places;
}

void MainWindow::askForFile(const QString& title, const std::function<void(const QString&)>& act)
{
    auto* const dialog = new QFileDialog(this, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Archives and documents (*.rvx *.xml)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this, act);
    dialog->open();
}

void MainWindow::askForFolder(const QString& title, const std::function<void(const QString&)>& act)
{
    auto* const dialog = new QFileDialog(this, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::fileSelected, this, act);
    dialog->open();
}

void MainWindow::makeForWork(QMenu* menu, const char* name, const QString& text,
                             const QKeySequence& keys, void (MainWindow::*act)())
{
    m_workActions.append(make(menu, name, text, keys, act));
}

EditedFile* MainWindow::fileToWorkOn()
{
    EditedFile* const file = currentFile();
    if (!file)
        say(tr("Choose a preset or a file first"));
    return file;
}

std::function<void(const QVector<Findings::Line>&)> MainWindow::linesShown()
{
    return [this](const QVector<Findings::Line>& lines) {
        // They stay until something else is asked for.
        m_checkTimer.stop();
        m_findings->showLines(lines);
    };
}

void MainWindow::begin(const LongWork::Work& work)
{
    if (!work)
        return;
    if (m_work)
        return say(tr("Something else is being done: try again when it has ended"));
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

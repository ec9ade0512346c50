// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Editing.h"
#include "Input.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/compare/SameElements.h"
#include "toolkit/documents/Interruption.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/edit/Things.h"
#include "toolkit/exchange/ImportedPictures.h"
#include "toolkit/exchange/Importer.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/compare/Comparer.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>

namespace rvopen::command {

using namespace toolkit;

namespace {

QString stateName(ImportState state)
{
    switch (state) {
    case ImportState::New:
        return QStringLiteral("new");
    case ImportState::Same:
        return QStringLiteral("same");
    case ImportState::Changed:
        return QStringLiteral("changed");
    case ImportState::Refused:
        break;
    }
    return QStringLiteral("refused");
}

QString actionName(ImportAction action)
{
    switch (action) {
    case ImportAction::Added:
        return QStringLiteral("added");
    case ImportAction::Replaced:
        return QStringLiteral("replaced");
    case ImportAction::Renamed:
        return QStringLiteral("renamed");
    case ImportAction::None:
        break;
    }
    return QStringLiteral("none");
}

class Import : public Command {
public:
    const char* name() const override
    {
        return "import";
    }

    const char* summary() const override
    {
        return "Take snapshots or presets over from another file";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Snapshots are told apart by their names, presets by their reference names; both go "
            "where they stood, presets into sections and folders that take their kind. What is "
            "there "
            "with the same content is left alone. What is there with another content stops the "
            "import, unless it is said what to do with it. Thumbnails of snapshots are copied from "
            "beside the source to --snapshots, or beside the output, those of presets to where the "
            "host looks for them; relative references to image files lead to the same files from "
            "the new place. What was written is read back.");
        arguments.positional("source", m_source, "Document or archive to take from");
        arguments.positional("target", m_targetFile,
                             "Document or archive of the same kind to add to");
        arguments.option("--select", m_select, "PATH",
                         "Only snapshots or presets with this path, as for get; may be repeated");
        arguments.flag("--skip", m_skip, "Leave out what was changed");
        arguments.flag("--rename", m_rename, "Take over what was changed under another name");
        arguments.flag("--replace", m_replace, "Put what was changed in the place of the old");
        arguments.onlyOne(
            {QStringLiteral("--skip"), QStringLiteral("--rename"), QStringLiteral("--replace")});
        m_target.declare(arguments);
        arguments.example("rvopen import snapshots/import_me.xml snapshots/house.xml -o both.xml",
                          "the neighbour's snapshots beside one's own, with their pictures");
        arguments.example("rvopen import --dry-run archives/Custom/Sub/Studio.rvx "
                          "archives/Custom/MyPresets.rvx",
                          "what would come into an archive");
    }

    int run(Session& session) override
    {
        if (m_source == QLatin1String("-") && m_targetFile == m_source)
            throw Failure(QStringLiteral("standard input can be one of the two only"));
        const std::unique_ptr<Document> source = readOrFail(m_source, session);
        m_target.lock(m_targetFile);
        const std::unique_ptr<Document> target = readOrFail(m_targetFile, session);
        m_target.check(*target);
        if (!m_target.isDryRun() && m_target.isStandardOutput())
            throw Failure(QStringLiteral("an import writes to a file, to read it back"));
        if (!m_target.isDryRun() && isSameFile(m_target.file(*target), source->Path()))
            throw Failure(QStringLiteral("the source cannot be the output"));
        Importer importer(*source, *target);
        QVector<ImportItem> items = importer.items(m_select);
        if (items.isEmpty())
            throw Failure(
                QStringLiteral("there is nothing to import in \"%1\"").arg(source->Name()));
        const bool isStopped = isAnyChanged(items) && !m_skip && !m_rename && !m_replace;
        if (!isStopped)
            importer.apply(items, m_replace  ? ChangedImports::Replaced
                                  : m_rename ? ChangedImports::Renamed
                                             : ChangedImports::Left);
        if (!isStopped)
            complainOf(importer.textures(), *source, session);
        if (!m_target.isDryRun() && !isStopped)
            write(items, *source, *target, session);
        report(items, isStopped, *target, session);
        const bool isRefused =
            std::any_of(items.cbegin(), items.cend(),
                        [](const ImportItem& item) { return item.state == ImportState::Refused; });
        return session.result(isStopped || isRefused ? ExitFindings : ExitFine);
    }

private:
    static bool isAnyChanged(const QVector<ImportItem>& items)
    {
        return std::any_of(items.cbegin(), items.cend(), [](const ImportItem& item) {
            return item.state == ImportState::Changed;
        });
    }

    // Writing.

    void write(QVector<ImportItem>& items, const Document& source, const Document& target,
               Session& session) const
    {
        const bool isNothing =
            std::all_of(items.cbegin(), items.cend(),
                        [](const ImportItem& item) { return item.action == ImportAction::None; });
        if (isNothing && m_target.isInPlace())
            return;
        const Uninterrupted writing;
        const QString output = m_target.file(target);
        ImportedPictures pictures(source,
                                  session.folders.snapshots.isEmpty()
                                      ? QFileInfo(PathToOpen(output)).absolutePath()
                                      : session.folders.snapshots,
                                  [&session](const QString& file, const QString& message) {
                                      session.error(file, message);
                                  });
        for (ImportItem& item : items) {
            if (item.action != ImportAction::None && item.isSnapShot())
                pictures.copy(item);
        }
        PictureMoves thumbnails(m_replace || m_target.isForced());
        followThumbnails(items, source, target, thumbnails, session);
        thumbnails.make();
        if (isInterrupted())
            throw Failure(QStringLiteral("interrupted; nothing was imported"));
        m_target.write(target, target, session);
        pictures.finish([this](const QString& file) { return m_target.problemOfBackup(file); });
        finishPictures(thumbnails, m_target, session);
        readBack(target, output);
    }

    /// Of presets. Where another picture is there, it stays.
    void followThumbnails(const QVector<ImportItem>& items, const Document& source,
                          const Document& target, PictureMoves& thumbnails, Session& session) const
    {
        const Folders before = foldersOf(source, session.folders, source.Folder());
        const Folders after = foldersOf(target, session.folders, outputFolder(target, m_target));
        for (const ImportItem& item : items) {
            if (item.action != ImportAction::None && thingOf(item.source) == Thing::Preset)
                thumbnails.follow(pictureIn(item.source, source, before),
                                  pictureIn(item.result, target, after), PictureMoves::Old::Kept);
        }
        complainOf(thumbnails, target, session);
    }

    static void readBack(const Document& target, const QString& output)
    {
        // What is as it was given to the writer takes no third document to see.
        if (hasSameElements(output, target.Root()))
            return;
        ReadError error;
        const std::unique_ptr<Document> written = Document::Read(output, error);
        if (!written || !Comparer().Run(target.Root(), written->Root()).isEmpty())
            throw Failure(QStringLiteral("\"%1\" was written, but does not read back").arg(output));
    }

    // What is said.

    void report(const QVector<ImportItem>& items, bool isStopped, const Document& target,
                Session& session) const
    {
        if (session.json) {
            QJsonArray list;
            for (const ImportItem& item : items) {
                list.append(QJsonObject{
                    {QStringLiteral("path"), item.sourcePath},
                    {QStringLiteral("state"), stateName(item.state)},
                    {QStringLiteral("action"), actionName(item.action)},
                    {QStringLiteral("name"), (item.result.isNull() ? item.source : item.result)
                                                 .attribute(QStringLiteral("name"))},
                    {QStringLiteral("note"),
                     item.note.isEmpty() ? QJsonValue() : QJsonValue(item.note)}});
            }
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("target"), target.Name());
            result.insert(QStringLiteral("written"), m_target.isDryRun() || isStopped
                                                         ? QJsonValue()
                                                         : QJsonValue(m_target.file(target)));
            result.insert(QStringLiteral("items"), list);
            session.out.json(result);
        } else {
            Table table;
            for (const ImportItem& item : items)
                table.row(
                    {{stateName(item.state), item.state == ImportState::New    ? Style::Green
                                             : item.state == ImportState::Same ? Style::Dim
                                                                               : Style::Yellow},
                     {item.action == ImportAction::None ? QStringLiteral("left out")
                                                        : actionName(item.action)},
                     {item.sourcePath, Style::Bold},
                     {item.action == ImportAction::Renamed
                          ? QLatin1String("as ") + item.result.attribute(QStringLiteral("name"))
                          : item.note}});
            table.print(session.out);
        }
        if (isStopped)
            session.warning(
                target.Name(),
                QStringLiteral("nothing was imported: say --skip, --rename or --replace "
                               "for what was changed"));
    }

    QString m_source;
    QString m_targetFile;
    QStringList m_select;
    bool m_skip = false;
    bool m_rename = false;
    bool m_replace = false;
    Target m_target;
};

} // namespace

std::unique_ptr<Command> makeImport()
{
    return std::make_unique<Import>();
}

} // namespace rvopen::command

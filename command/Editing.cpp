// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Editing.h"

#include "Arguments.h"
#include "Input.h"
#include "Output.h"
#include "Target.h"
#include "toolkit/documents/FileTransaction.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/ForeignFormat.h"
#include "toolkit/documents/Interruption.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/edit/Uses.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>

#include <algorithm>

namespace rvopen::command {

using namespace toolkit;

namespace {

QJsonValue orNull(const QString& text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

/// The archives of the host, and the documents beside those that have files: their pictures may lie
/// in the same folder.
QStringList othersOf(const QVector<const Document*>& documents, const Folders& folders)
{
    QStringList files = archivesIn(folders);
    for (const Document* const document : documents) {
        if (document->IsStream())
            continue;
        for (const QFileInfo& file : QDir(document->Folder()).entryInfoList(QDir::Files)) {
            if (isDocumentName(file.fileName()))
                files << file.filePath();
        }
    }
    files.removeDuplicates();
    return files;
}

/// Puts back what was written before something else could not be.
void putBack(const QVector<QPair<QString, QByteArray>>& files, Session& session)
{
    for (const auto& file : files) {
        const QString problem = problemOfWriting(file.second, file.first);
        if (!problem.isEmpty())
            session.error(file.first, problem + QLatin1String("; it is changed"));
    }
}

/// The things that are selected as a whole. The current snapshot is none of them, nor are parts of
/// snapshots.
QVector<Chosen> thingsIn(const QDomElement& root, const Selection& selection)
{
    const Scope scope = selection.in(root);
    QVector<Chosen> things;
    for (const PathPattern::Match& match : selection.items(root)) {
        if (scope.covers(match.path))
            things += thingsOf(match);
    }
    return things;
}

QStringList notesOf(const QVector<Rebased>& textures)
{
    QStringList notes;
    for (const Rebased& texture : textures) {
        if (!texture.note.isEmpty())
            notes << QStringLiteral("\"%1\": %2").arg(texture.reference, texture.note);
    }
    return notes;
}

} // namespace

void EditReport::print(const char* command, const Document& document, const Target& target,
                       Session& session) const
{
    if (target.isStandardOutput())
        return;
    if (!session.json) {
        Table table;
        for (const Edit& edit : edits) {
            QString rest = edit.became.isEmpty() ? QString() : QLatin1String("-> ") + edit.became;
            if (!edit.note.isEmpty())
                rest += (rest.isEmpty() ? QString() : QStringLiteral(": ")) + edit.note;
            table.row(
                {{edit.action, edit.action == QLatin1String("none") ? Style::Yellow : Style::Green},
                 {edit.path, Style::Bold},
                 {rest}});
        }
        table.print(session.out);
        return;
    }
    QJsonArray items;
    for (const Edit& edit : edits)
        items.append(QJsonObject{{QStringLiteral("path"), edit.path},
                                 {QStringLiteral("kind"), edit.kind},
                                 {QStringLiteral("action"), edit.action},
                                 {QStringLiteral("became"), orNull(edit.became)},
                                 {QStringLiteral("note"), orNull(edit.note)}});
    QJsonArray images;
    for (const Rebased& texture : textures)
        images.append(QJsonObject{{QStringLiteral("reference"), texture.reference},
                                  {QStringLiteral("became"), orNull(texture.became)},
                                  {QStringLiteral("note"), orNull(texture.note)}});
    QJsonArray moves;
    for (const PictureMoves::Move& move : pictures)
        moves.append(QJsonObject{{QStringLiteral("from"), move.from},
                                 {QStringLiteral("to"), orNull(move.to)},
                                 {QStringLiteral("kept"), move.old == PictureMoves::Old::Kept}});
    QJsonObject result = Session::envelope(command);
    result.insert(QStringLiteral("file"), document.Name());
    result.insert(QStringLiteral("written"), QJsonArray::fromStringList(written));
    result.insert(QStringLiteral("items"), items);
    result.insert(QStringLiteral("textures"), images);
    result.insert(QStringLiteral("pictures"), moves);
    session.out.json(result);
}

QVector<Chosen> selectedThings(const QDomElement& root, const QStringList& paths,
                               const Selection& selection, bool isAll)
{
    const Matches matches = isAll ? Matches::All : Matches::OneForEachPath;
    if (selection.isEverything() && paths.isEmpty())
        throw Failure(QStringLiteral("say which: paths, or what is to be selected"));
    if (selection.isEverything())
        return chosenThings(root, paths, matches);
    QVector<Chosen> chosen;
    if (paths.isEmpty()) {
        chosen = thingsIn(root, selection);
        if (chosen.size() > 1 && !isAll)
            throw Failure(
                QStringLiteral("%1 things are selected; --all takes them all").arg(chosen.size()));
    } else {
        const Scope scope = selection.in(root);
        for (const Chosen& one : chosenThings(root, paths, matches)) {
            if (scope.covers(one.path))
                chosen.append(one);
        }
    }
    if (chosen.isEmpty()) {
        const QString misspelling = selection.misspelling();
        throw Failure(misspelling.isEmpty() ? QStringLiteral("nothing is selected") : misspelling);
    }
    return chosen;
}

QStringList writeTogether(const QVector<const Document*>& documents, const Target& target,
                          PictureMoves& pictures, Session& session)
{
    if (target.isDryRun())
        return {};
    const Uninterrupted writing;
    if (!target.isStandardOutput())
        pictures.make();
    if (isInterrupted())
        throw Failure(QStringLiteral("interrupted; nothing was changed"));
    QStringList files;
    QVector<QPair<QString, QByteArray>> written;
    try {
        for (const Document* const document : documents) {
            const QString file = target.file(*document);
            // The last one is written or not; nothing comes after it.
            const bool isLast = document == documents.last();
            QByteArray before;
            if (!isLast && !readWhole(PathToOpen(file), before))
                throw Failure(
                    QStringLiteral("\"%1\": it could not be read; nothing was changed").arg(file));
            target.write(*document, *document, session);
            if (!isLast)
                written.append({file, before});
            if (!file.isEmpty())
                files << file;
        }
    } catch (const Failure&) {
        putBack(written, session);
        throw;
    }
    if (!target.isStandardOutput())
        finishPictures(pictures, target, session);
    return files;
}

void finishPictures(PictureMoves& pictures, const Target& target, Session& session)
{
    pictures.finish(
        [&target](const QString& file) { return target.problemOfBackup(file); },
        [&session](const QString& file, const QString& message) { session.error(file, message); });
}

QString problemOf(PictureLack lack)
{
    switch (lack) {
    case PictureLack::CustomFolder:
        return QStringLiteral("pictures of a user's archive lie below --custom DIR");
    case PictureLack::InstallFolder:
        return QStringLiteral("pictures of presets lie below --install DIR");
    case PictureLack::Names:
        return QStringLiteral("its names give no place for a picture");
    case PictureLack::Nothing:
        break;
    }
    return QString();
}

void declareUsers(Arguments& arguments, QStringList& users)
{
    arguments.option("--users", users, "FILE",
                     "Look for uses in this document, too, or in those in this folder; may be "
                     "repeated");
}

QVector<Use> usesInFiles(const Uses& uses, OfArchive ofArchive, const QStringList& users,
                         Session& session)
{
    QVector<Use> found;
    if (!uses.canBeElsewhere())
        return found;
    forEachDocument(archivesIn(session.folders) + users, session, [&](Document& other) {
        found += uses.inOther(other);
        if (ofArchive == OfArchive::Counted)
            found += uses.ofArchive(other);
    });
    return found;
}

void complainOf(const QVector<Use>& uses, Session& session)
{
    QHash<QString, int> counts;
    const auto key = [](const Use& use) { return use.file + QLatin1Char('\n') + use.what; };
    for (const Use& use : uses)
        ++counts[key(use)];
    for (const Use& use : uses) {
        // The first one of them speaks for all of a file.
        const int others = counts.take(key(use)) - 1;
        if (others < 0)
            continue;
        QString message = QStringLiteral("%1 uses %2").arg(use.path, use.what);
        if (others > 0)
            message += QLatin1String("; so ") +
                       (others == 1 ? QStringLiteral("does ") : QStringLiteral("do ")) +
                       counted(others, QStringLiteral("other place"));
        session.warning(use.file, message);
    }
}

bool complainOf(const PictureMoves& pictures, const Document& document, Session& session)
{
    for (const PictureLack lack : pictures.lacks())
        session.warning(document.Name(),
                        QLatin1String("no pictures were looked for: ") + problemOf(lack));
    for (const QString& note : pictures.notes())
        session.warning(document.Name(), note);
    for (const PictureMoves::Stray& stray : pictures.strays())
        session.warning(
            document.Name(),
            QStringLiteral("\"%1\" has no new place: %2").arg(stray.file, problemOf(stray.lack)));
    for (const QString& problem : pictures.problems())
        session.warning(document.Name(), problem);
    return !pictures.problems().isEmpty() || !pictures.strays().isEmpty();
}

void complainOf(const QVector<Rebased>& textures, const Document& document, Session& session)
{
    for (const QString& note : notesOf(textures))
        session.warning(document.Name(), note);
}

QSet<QString> picturesOfOthers(const QVector<const Document*>& documents, Session& session)
{
    QSet<QString> files;
    forEachDocument(othersOf(documents, session.folders), session, [&](Document& other) {
        const bool isOne =
            std::any_of(documents.cbegin(), documents.cend(), [&other](const Document* one) {
                return isSameFile(one->Path(), other.Path());
            });
        if (!isOne)
            files += picturesOf(other, foldersOf(other, session.folders, other.Folder()));
    });
    return files;
}

QStringList takeAlong(const Document& document, const Document& input, const QString& file,
                      const Folders& folders)
{
    const QFileInfo output(PathToOpen(file));
    const bool isDevice = output.exists() && !output.isFile();
    const QString folder = output.absolutePath();
    if (isDevice || input.IsStream() ||
        QFileInfo(folder).canonicalFilePath() == QFileInfo(input.Folder()).canonicalFilePath())
        return {};
    QStringList left = notesOf(rebaseTextures(document.Root(), input.Folder(), folder));
    const int count = picturesLeft(document, input, folder, folders);
    if (count > 0)
        left << QStringLiteral("%1 left where the document was")
                    .arg(counted(count, QStringLiteral("picture is"),
                                 QStringLiteral("pictures are")));
    return left;
}

QString outputFolder(const Document& document, const Target& target)
{
    const QString file = target.file(document);
    return file.isEmpty() || target.isInPlace() ? document.Folder()
                                                : QFileInfo(PathToOpen(file)).absolutePath();
}

} // namespace rvopen::command

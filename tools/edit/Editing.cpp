// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Editing.h"

#include "../Failure.h"
#include "../FileWriting.h"
#include "../Input.h"
#include "../Interrupts.h"
#include "../Presets.h"
#include "../Target.h"
#include "Uses.h"

#include <rvopen/RVOpenPaths.h>

#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>

namespace rvopen::tools {

namespace {

QJsonValue orNull(const QString& text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
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

/// How many pictures nobody finds who looks for them from a document in another folder.
int picturesLeft(const Document& document, const Document& input, const QString& folder,
                 const Folders& named)
{
    const Folders folders = foldersOf(input, named, input.folder());
    const bool isSnapShots = document.kind() == DocumentKind::SnapShots;
    const bool isCustom =
        document.root().attribute(QStringLiteral("type")) == QLatin1String("UserArchives");
    if (isSnapShots ? !named.snapshots.isEmpty() : !isCustom || isBelow(folder, folders.custom))
        return 0;
    int count = 0;
    for (const QString& file : picturesOf(document, folders)) {
        // A picture may have been put there already.
        const QString there =
            folder + file.mid((isSnapShots ? folders.snapshots : folders.custom).size());
        if (QFileInfo::exists(file) && !QFileInfo::exists(there))
            ++count;
    }
    return count;
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
    result.insert(QStringLiteral("file"), document.name());
    result.insert(QStringLiteral("written"), QJsonArray::fromStringList(written));
    result.insert(QStringLiteral("items"), items);
    result.insert(QStringLiteral("textures"), images);
    result.insert(QStringLiteral("pictures"), moves);
    session.out.json(result);
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
        pictures.finish(target, session);
    return files;
}

void complainOf(const QVector<Use>& uses, Session& session)
{
    for (const Use& use : uses)
        session.warning(use.file, QStringLiteral("%1 uses %2").arg(use.path, use.what));
}

bool complainOf(const PictureMoves& pictures, const Document& document, Session& session)
{
    for (const QString& note : pictures.notes())
        session.warning(document.name(), note);
    for (const QString& problem : pictures.problems())
        session.warning(document.name(), problem);
    return !pictures.problems().isEmpty();
}

void complainOf(const QVector<Rebased>& textures, const Document& document, Session& session)
{
    for (const Rebased& texture : textures) {
        if (!texture.note.isEmpty())
            session.warning(document.name(),
                            QStringLiteral("\"%1\": %2").arg(texture.reference, texture.note));
    }
}

QSet<QString> picturesOfOthers(const QVector<const Document*>& documents, Session& session)
{
    QSet<QString> files;
    forEachDocument(archivesIn(session.folders), session, [&](Document& other) {
        const bool isOne =
            std::any_of(documents.cbegin(), documents.cend(), [&other](const Document* one) {
                return isSameFile(one->path(), other.path());
            });
        if (!isOne)
            files += picturesOf(other, foldersOf(other, session.folders, other.folder()));
    });
    return files;
}

void takeAlong(const Document& document, const Document& input, const QString& file,
               Session& session)
{
    const QFileInfo output(PathToOpen(file));
    const bool isDevice = output.exists() && !output.isFile();
    const QString folder = output.absolutePath();
    if (isDevice || input.isStream() ||
        QFileInfo(folder).canonicalFilePath() == QFileInfo(input.folder()).canonicalFilePath())
        return;
    complainOf(rebaseTextures(document.root(), input.folder(), folder), input, session);
    const int count = picturesLeft(document, input, folder, session.folders);
    if (count > 0)
        session.warning(input.name(), QStringLiteral("%1 left where the document was")
                                          .arg(counted(count, QStringLiteral("picture is"),
                                                       QStringLiteral("pictures are"))));
}

QString outputFolder(const Document& document, const Target& target)
{
    const QString file = target.file(document);
    return file.isEmpty() || target.isInPlace() ? document.folder()
                                                : QFileInfo(PathToOpen(file)).absolutePath();
}

} // namespace rvopen::tools

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PictureMoves.h"

#include "ImageFiles.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/edit/Things.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

bool isSomething(const QString& path)
{
    return QFileInfo::exists(path) || QFileInfo(path).isSymLink();
}

} // namespace

Folders foldersOf(const Document& document, const Folders& named, const QString& snapShots)
{
    Folders folders = named;
    if (folders.snapshots.isEmpty())
        folders.snapshots = snapShots;
    if (!folders.custom.isEmpty() && isBelow(document.Folder(), folders.custom))
        return folders;
    folders.custom = document.Folder();
    QString below = document.Root().attribute(QStringLiteral("path"));
    below.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (below.endsWith(QLatin1Char('/')))
        below.chop(1);
    if (!below.isEmpty() && StaysInside(below) && folders.custom.endsWith(QLatin1Char('/') + below))
        folders.custom.chop(int(below.size()) + 1);
    return folders;
}

PictureFolders::PictureFolders(const Document& document, const Folders& named)
    : m_folders(named)
    , m_before(GetDirectoryHandler()->GetCustomArchivesFolder())
{
    // What comes through a pipe has no place.
    if (m_folders.custom.isEmpty() && !document.IsStandardInput() && !document.IsStream())
        m_folders.custom = foldersOf(document, named, document.Folder()).custom;
    GetDirectoryHandler()->SetCustomArchivesFolder(m_folders.custom);
}

PictureFolders::~PictureFolders()
{
    GetDirectoryHandler()->SetCustomArchivesFolder(m_before);
}

const Folders& PictureFolders::folders() const
{
    return m_folders;
}

PictureLocation pictureIn(const QDomElement& element, const Document& document,
                          const Folders& folders)
{
    const Thing thing = thingOf(element);
    if (thing != Thing::Preset && thing != Thing::SnapShot)
        return {};
    const PictureFolders told(document, folders);
    return LocatePicture(element, document, told.folders());
}

QSet<QString> picturesOf(const Document& document, const Folders& folders)
{
    QSet<QString> files;
    const auto take = [&](const QDomElement& element) {
        const QString file = pictureIn(element, document, folders).file;
        if (!file.isEmpty())
            files.insert(file);
    };
    if (document.Kind() == DocumentKind::SnapShots) {
        for (QDomElement collection = document.Root().firstChildElement(); !collection.isNull();
             collection = collection.nextSiblingElement()) {
            for (QDomElement member = collection.firstChildElement(); !member.isNull();
                 member = member.nextSiblingElement())
                take(member);
        }
    } else {
        forEachPreset(document.Root(), [&take](const Preset& preset) { take(preset.element); });
    }
    return files;
}

int picturesLeft(const Document& document, const Document& input, const QString& folder,
                 const Folders& named)
{
    const Folders folders = foldersOf(input, named, input.Folder());
    const bool isSnapShots = document.Kind() == DocumentKind::SnapShots;
    const bool isCustom =
        document.Root().attribute(QStringLiteral("type")) == QLatin1String("UserArchives");
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

PictureMoves::PictureMoves(bool mayReplace)
    : m_mayReplace(mayReplace)
{
}

void PictureMoves::follow(const PictureLocation& before, const PictureLocation& after, Old old)
{
    // A folder that is a link to the other, or names that differ in what does not matter here, lead
    // to the one file, which stays.
    const bool isPlain = before.lack == PictureLack::Nothing &&
                         (before.file == after.file || isSameFile(before.file, after.file));
    if (isPlain || !isWhole(before))
        return;
    if (after.file.isEmpty()) {
        m_strays.append({before.file, after.lack});
        return;
    }
    const QString link = linkInTheWay(after.file, after.folder);
    if (!link.isEmpty())
        m_problems << QStringLiteral("\"%1\": %2").arg(after.file, link);
    else if (isSomething(after.file) && !haveSameBytes(before.file, after.file) && !m_mayReplace)
        m_problems << QStringLiteral("another picture \"%1\" is there").arg(after.file);
    else
        add({before.file, after.file, old, before.folder});
}

void PictureMoves::remove(const PictureLocation& place)
{
    if (isWhole(place))
        add({place.file, QString(), Old::Removed, place.folder});
}

void PictureMoves::keep(const QSet<QString>& files)
{
    QVector<Move> moves;
    for (Move move : m_moves) {
        if (files.contains(move.from))
            move.old = Old::Kept;
        if (move.old == Old::Removed || !move.to.isEmpty())
            moves.append(move);
    }
    m_moves = moves;
}

const QVector<PictureMoves::Move>& PictureMoves::moves() const
{
    return m_moves;
}

const QStringList& PictureMoves::problems() const
{
    return m_problems;
}

const QVector<PictureMoves::Stray>& PictureMoves::strays() const
{
    return m_strays;
}

const QStringList& PictureMoves::notes() const
{
    return m_notes;
}

const QVector<PictureLack>& PictureMoves::lacks() const
{
    return m_lacks;
}

void PictureMoves::make()
{
    for (const Move& move : m_moves) {
        if (move.to.isEmpty())
            continue;
        if (isSomething(move.to)) {
            if (haveSameBytes(move.from, move.to))
                continue;
            QByteArray bytes;
            if (!readWhole(move.from, bytes))
                throw Failure(
                    QStringLiteral("the picture \"%1\": it could not be read; nothing was changed")
                        .arg(move.from));
            m_replacing.append({move, bytes});
            continue;
        }
        if (!m_made.makeFolder(QFileInfo(move.to).path()) || !m_made.copy(move.from, move.to))
            throw Failure(QStringLiteral("the picture \"%1\": %2; nothing was changed")
                              .arg(move.to, m_made.problem()));
    }
}

void PictureMoves::finish(const Backup& backUp, const Complaint& complain)
{
    m_made.keep();
    QSet<QString> left;
    for (const auto& replacing : m_replacing) {
        const Move& move = replacing.first;
        QString problem = backUp(move.to);
        if (problem.isEmpty())
            problem = problemOfWriting(replacing.second, move.to);
        if (!problem.isEmpty()) {
            complain(move.to, problem);
            left.insert(move.from);
        }
    }
    for (const Move& move : m_moves) {
        if (move.old == Old::Kept || left.contains(move.from) || !isSomething(move.from))
            continue;
        QString problem = move.to.isEmpty() ? backUp(move.from) : QString();
        QFile file(move.from);
        if (problem.isEmpty() && !file.remove())
            problem = QStringLiteral("it could not be removed: ") + file.errorString();
        if (!problem.isEmpty()) {
            complain(move.from, problem);
            continue;
        }
        // Of the category's folders those go that hold nothing any more.
        QString folder = QFileInfo(move.from).path();
        while (!isSameFile(folder, move.folder) &&
               QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System |
                                    QDir::NoDotAndDotDot) &&
               QDir().rmdir(folder))
            folder = QFileInfo(folder).path();
    }
}

/// Whether there is a picture that may be taken along: a document may come from anybody and name
/// any file.
bool PictureMoves::isWhole(const PictureLocation& place)
{
    if (place.lack != PictureLack::Nothing && !m_lacks.contains(place.lack))
        m_lacks.append(place.lack);
    if (place.file.isEmpty() || !isSomething(place.file))
        return false;
    if (QFileInfo(place.file).isSymLink() || !isBelow(place.file, place.folder) ||
        !QFileInfo(place.file).isFile() || !isPictureFile(place.file)) {
        m_notes
            << QStringLiteral("\"%1\" is no picture of its folder, and is left").arg(place.file);
        return false;
    }
    return true;
}

void PictureMoves::add(const Move& move)
{
    const auto known = std::find_if(m_moves.begin(), m_moves.end(), [&move](const Move& other) {
        return other.from == move.from && other.to == move.to;
    });
    if (known == m_moves.end()) {
        const bool isTaken =
            !move.to.isEmpty() &&
            std::any_of(m_moves.cbegin(), m_moves.cend(), [&move](const Move& other) {
                return other.to == move.to && !haveSameBytes(other.from, move.from);
            });
        if (isTaken)
            m_problems << QStringLiteral("two pictures would be \"%1\"").arg(move.to);
        else
            m_moves.append(move);
    } else if (move.old == Old::Kept) {
        known->old = Old::Kept;
    }
}

} // namespace rvopen::toolkit

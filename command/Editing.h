// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Session.h"
#include "toolkit/edit/Selection.h"
#include "toolkit/edit/Things.h"
#include "toolkit/images/PictureMoves.h"
#include "toolkit/images/TextureReferences.h"

#include <rvopen/toolkit/documents/Document.h>

#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::toolkit {
class Uses;
struct Use;
} // namespace rvopen::toolkit

namespace rvopen::command {

class Arguments;
class Target;

/// What becomes of one thing.
struct Edit {
    /// Where it was.
    QString path;
    /// "preset", "folder", "snapshot" or "material".
    QString kind;
    /// "removed", "moved", ..., or "none".
    QString action;
    /// Where it is now; empty when it is nowhere, or not yet.
    QString became;
    QString note;
};

/// All that a command did, for the user and as JSON.
struct EditReport {
    QVector<Edit> edits;
    QVector<toolkit::Rebased> textures;
    QVector<toolkit::PictureMoves::Move> pictures;
    /// Files that were written; empty where nothing was.
    QStringList written;

    /// Nothing when the document itself went to standard output.
    void print(const char* command, const toolkit::Document& document, const Target& target,
               Session& session) const;
};

/// The things with these paths, as far as they are selected; without paths all that is selected, in
/// document order. Throws a Failure where that is nothing, or several for one path or none and
/// \p isAll does not allow that.
QVector<toolkit::Chosen> selectedThings(const QDomElement& root, const QStringList& paths,
                                        const toolkit::Selection& selection, bool isAll);

/// Writes the documents, each of which is its own input, and lets the pictures follow: all of it or
/// nothing. Throws a Failure when that cannot be done. What was written is in the answer.
QStringList writeTogether(const QVector<const toolkit::Document*>& documents, const Target& target,
                          toolkit::PictureMoves& pictures, Session& session);

/// Ends moves whose documents were written, with the backups that the user wants.
void finishPictures(toolkit::PictureMoves& pictures, const Target& target, Session& session);

/// Why there is no place for a picture; empty when there is one.
QString problemOf(toolkit::PictureLack lack);

/// What \p users gets: documents and folders in which uses are looked for, too.
void declareUsers(Arguments& arguments, QStringList& users);

/// Whether folders that stand for the archive as a whole use what is in it.
enum class OfArchive { Left, Counted };

/// Who uses what is about to go, or get another name, in the archives of the host's folders and in
/// \p users. A document that cannot be read is an error of the session.
QVector<toolkit::Use> usesInFiles(const toolkit::Uses& uses, OfArchive ofArchive,
                                  const QStringList& users, Session& session);

/// Says who uses what is about to go.
void complainOf(const QVector<toolkit::Use>& uses, Session& session);

/// Says what stays behind. Answers whether something speaks against the pictures' new places.
bool complainOf(const toolkit::PictureMoves& pictures, const toolkit::Document& document,
                Session& session);
void complainOf(const QVector<toolkit::Rebased>& textures, const toolkit::Document& document,
                Session& session);

/// Pictures that presets and snapshots of other documents show: of the archives in the folders of
/// the host, and of those that lie beside the documents. Those that cannot be read are errors.
QSet<QString> picturesOfOthers(const QVector<const toolkit::Document*>& documents,
                               Session& session);

/// Before a document that was read as \p input is written to another file: relative references to
/// image files lead to the same files from there. In the answer is what stays behind, to be said
/// once it is written.
QStringList takeAlong(const toolkit::Document& document, const toolkit::Document& input,
                      const QString& file, const toolkit::Folders& folders);

/// The folder that a document is written into.
QString outputFolder(const toolkit::Document& document, const Target& target);

} // namespace rvopen::command

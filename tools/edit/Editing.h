// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Carrying.h"
#include "PictureMoves.h"

#include <QDomElement>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::tools {

class Document;
class Session;
class Target;
struct Use;

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
    QVector<Rebased> textures;
    QVector<PictureMoves::Move> pictures;
    /// Files that were written; empty where nothing was.
    QStringList written;

    /// Nothing when the document itself went to standard output.
    void print(const char* command, const Document& document, const Target& target,
               Session& session) const;
};

/// Writes the documents, each of which is its own input, and lets the pictures follow: all of it or
/// nothing. Throws a Failure when that cannot be done. What was written is in the answer.
QStringList writeTogether(const QVector<const Document*>& documents, const Target& target,
                          PictureMoves& pictures, Session& session);

/// Says who uses what is about to go.
void complainOf(const QVector<Use>& uses, Session& session);

/// Says what stays behind. Answers whether something speaks against the pictures' new places.
bool complainOf(const PictureMoves& pictures, const Document& document, Session& session);
void complainOf(const QVector<Rebased>& textures, const Document& document, Session& session);

/// Pictures that presets and snapshots of other documents show: of the archives in the folders of
/// the host. Documents that cannot be read are errors.
QSet<QString> picturesOfOthers(const QVector<const Document*>& documents, Session& session);

/// Before a document that was read as \p input is written to another file: relative references to
/// image files lead to the same files from there, and what stays behind is said.
void takeAlong(const Document& document, const Document& input, const QString& file,
               Session& session);

/// The folder that a document is written into.
QString outputFolder(const Document& document, const Target& target);

} // namespace rvopen::tools

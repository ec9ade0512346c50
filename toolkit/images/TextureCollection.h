// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/documents/FileTransaction.h"

#include <rvopen/toolkit/images/DocumentTextures.h>

#include <QHash>
#include <QPair>
#include <QString>
#include <QVector>

#include <functional>

namespace rvopen::toolkit {

class Document;
struct Folders;
struct ReferencedTexture;

/// A folder into which a document and the images that it refers to are copied, to hand them on: all
/// of them, or nothing.
class TextureCollection {
public:
    /// What speaks against handing a file on: a document may come from anybody and name any file of
    /// the machine.
    enum class Objection {
        None,
        NotThere,
        NoImage,
        Outside ///< Neither in the document's folder nor in one of the host's.
    };

    /// The name that a document with that path has in the folder.
    static QString copyOf(const QString& document, const QString& folder);

    /// Hears which file is about to be written over; throws a Failure where it must not be.
    using Overwriting = std::function<void(const QString& file)>;
    /// For a document with that path. Without \p overwriting nothing is written over; with it the
    /// document's copy and pictures are, never images that it refers to: these have free names.
    /// Throws a Failure when the document's copy must not be written over or the folder cannot be
    /// made.
    TextureCollection(const QString& folder, const QString& document,
                      Overwriting overwriting = nullptr);

    static Objection objectionTo(const ReferencedTexture& texture, const Document& document,
                                 const Folders& folders, CollectedTextures which);

    /// Takes the image along and has the document refer to its name in the folder, unless there is
    /// an objection, which is the problem then. Throws a Failure when it cannot be copied.
    DocumentTexture take(const ReferencedTexture& texture, const Document& document,
                         const Folders& folders, CollectedTextures which);

    /// Copies the file, unless the folder has it. The name that it has there: its own, or with a
    /// number where that is taken by another file. Throws a Failure when it cannot be copied.
    QString add(const QString& file);

    /// Hears which pictures are left, and why.
    using Complaint = std::function<void(const QString& file, const QString& message)>;
    /// Copies the pictures of presets and snapshots, which lie beside the document or below folders
    /// there, to where a host looks for them beside the copy. \p named are the host's folders.
    /// Throws a Failure when one cannot be copied.
    void addPictures(const Document& document, const Folders& named, const Complaint& complain);

    /// Writes over what is to be written over, and the document, which refers to these names by
    /// now. Throws a Failure when that cannot be done.
    void write(const Document& document);
    /// Unless it is called, all that was copied and written goes again.
    void keep();

private:
    void replace(const QByteArray& bytes, const QString& target);

    QString m_folder;
    /// The document's copy.
    QString m_copy;
    Overwriting m_overwriting;
    /// Pictures, and the files that they replace.
    QVector<QPair<QString, QString>> m_replacing;
    FileTransaction m_files;
    /// Names in lower case and the files in the folder that have them.
    QHash<QString, QString> m_taken;
};

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::toolkit {

class Document;
struct Folders;

/// An image file that a document refers to, and what became of the reference.
struct DocumentTexture {
    /// As it stood in the document.
    QString reference;
    /// Empty when it is not there.
    QString file;
    /// The parameters that refer to it, as PathOf() has them.
    QStringList paths;
    /// Empty when it stays as it is.
    QString became;
    /// Why it could not be found or taken along; empty when it could.
    QString problem;
    /// It lies neither in the folder of the document nor in one of the host's, so that it is taken
    /// along by CollectedTextures::Everywhere alone.
    bool isElsewhere = false;
};

/// The image files that a document refers to, each once, in the order in which they come first.
RVOPEN_TOOLKIT_EXPORT QVector<DocumentTexture> TexturesOf(const Document& document,
                                                          const Folders& folders);

/// Finds images that are missing in and below the folders, by their file names in any case of
/// letters, and has the document refer to them, in memory; relative where it was. Those that were
/// missing, with a problem where none was found, or several. Throws a Failure for what is no
/// folder.
RVOPEN_TOOLKIT_EXPORT QVector<DocumentTexture> RelinkTextures(const Document& document,
                                                              const QStringList& folders);

/// What is handed on.
enum class CollectedTextures {
    Ours,      ///< What lies in the folder of the document or in those of the host.
    Everywhere ///< Any file of this machine that the document names, if it is an image.
};

/// Copies the document, the images that it refers to and the pictures of its presets and snapshots
/// into a folder, which is made, to hand them on: all of them, or nothing. The copy refers to bare
/// file names there, and so does \p document afterwards, in memory. Nothing is written over. What
/// was not taken along has a problem. Throws a Failure when something cannot be written.
RVOPEN_TOOLKIT_EXPORT QVector<DocumentTexture>
CollectTextures(const Document& document, const QString& folder, const Folders& folders,
                CollectedTextures which = CollectedTextures::Ours);

} // namespace rvopen::toolkit

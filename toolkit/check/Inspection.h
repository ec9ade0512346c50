// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/ToolkitExport.h>
#include <rvopen/toolkit/check/Rules.h>
#include <rvopen/toolkit/documents/Folders.h>

#include <QDomElement>
#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

#include <atomic>
#include <functional>

namespace rvopen::toolkit {

class Document;

/// Something that is to be said of a document.
struct Finding {
    /// Never null.
    const Rule* rule = nullptr;
    /// What is wrong here, for the user.
    QString message;
    /// What it is said of, in the document; null when the document could not be read.
    QDomElement element;
    /// Which element of the document it is, in document order; -1 without.
    int ordinal = -1;
    /// As the user named the document.
    QString file;
    /// Of the element's start tag, from 1; 0 where that is not known.
    int line = 0;
    /// In characters from 1.
    int column = 0;
    /// As PathOf() has it.
    QString path;
    /// Whether Mend() has mended it.
    bool isFixed = false;
    /// For the rules about types: the one that the host expects.
    QString expectedType;
};

/// What is known besides the document.
struct Surroundings {
    /// Where archives, thumbnails and pictures are looked for; what is in a folder that is not
    /// named is not missed.
    Folders folders;
    /// Of the newest version of documents that the host knows, its first part.
    int knownMajor = 3;
    /// Its second part.
    int knownMinor = 1;
    /// "kind/reference name" of all presets in the folders of the host; where there are none
    /// references to presets are not judged.
    QSet<QString> presets;
    /// By "kind/reference name" the file, as the user named it, of each preset in archives that
    /// TakeNames() was called for: no other file may have the name as well.
    QHash<QString, QString> taken;
};

/// What is in the folders: reads all archives there, or what Catalogue keeps of them. Those that
/// cannot be read are told to \p failed, and left out.
RVOPEN_TOOLKIT_EXPORT Surroundings
LookAround(const Folders& folders, const std::function<void(const ReadError&)>& failed = {});

/// The reference names of an archive are its own from now on: Inspect() tells of other files that
/// have them as well. Of what is no archive nothing is taken.
RVOPEN_TOOLKIT_EXPORT void TakeNames(const Document& archive, Surroundings& surroundings);

/// What is to be said of the document, in document order, with places and paths. Previews
/// are decoded, which needs a QGuiApplication; a program without any application gets one. Once
/// \p stop, null for never, is true, which it has to stay, the work ends with the element that it
/// is at, and there is nothing.
RVOPEN_TOOLKIT_EXPORT QVector<Finding> Inspect(const Document& document,
                                               const Surroundings& surroundings = {},
                                               const std::atomic<bool>* stop = nullptr);

/// The finding for a document that could not be read.
RVOPEN_TOOLKIT_EXPORT Finding FindingOf(const ReadError& error);

/// Mends what can be mended without guessing, in the document in memory, and marks it as fixed. How
/// many findings that are.
RVOPEN_TOOLKIT_EXPORT int Mend(QVector<Finding>& findings);

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QImage>
#include <QString>

namespace rvopen::toolkit {

class Document;
struct Folders;

/// What there is not, where a picture has no place.
enum class PictureLack {
    Nothing,
    InstallFolder, ///< Pictures of presets lie below it.
    CustomFolder,  ///< Pictures of a user's archive lie below it.
    Names          ///< The names of the element give no place.
};

/// Where the file of a picture is or would be.
struct PictureLocation {
    /// Whether it is there or not.
    QString file;
    /// The host's or the document's folder that the file lies below.
    QString folder;
    /// Why there is no such place; file and folder are empty then.
    PictureLack lack = PictureLack::Nothing;
};

/// Where the library looks for the picture of a preset or of a member of a snapshot collection,
/// when none is embedded. Snapshots without a named folder have theirs beside the document.
RVOPEN_TOOLKIT_EXPORT PictureLocation LocatePicture(const QDomElement& element,
                                                    const Document& document,
                                                    const Folders& folders);

/// Whether the library finds a picture for the element: the embedded one if there is one at all,
/// else that file.
RVOPEN_TOOLKIT_EXPORT bool FindsPicture(const QDomElement& element, const QString& file);

/// The picture that there is of a preset or a snapshot: the embedded one if there is one at all,
/// else the one in its file. Null where there is none or it cannot be decoded.
RVOPEN_TOOLKIT_EXPORT QImage ExistingPicture(const QDomElement& element, const Document& document,
                                             const Folders& folders);

} // namespace rvopen::toolkit

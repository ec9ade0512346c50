// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>

namespace rvopen::tools {

class Document;
struct Folders;

struct PicturePlace {
    QString file;
    /// The host's or the document's folder that the file lies below.
    QString folder;
    /// Why there is no such place; file and folder are empty then.
    QString problem;
};

/// Where the library looks for the picture of a preset or of a member of a snapshot collection,
/// when none is embedded. Snapshots without a named folder have theirs beside the document.
PicturePlace pictureFileOf(const QDomElement& element, const Document& document,
                           const Folders& folders);

/// Whether the library finds a picture for the element: the embedded one if there is one at all,
/// else that file.
bool findsPicture(const QDomElement& element, const QString& file);

/// Whether a file or folder that is there lies below the folder, once all links are followed.
bool isBelow(const QString& path, const QString& folder);

/// Why a file whose name was made from what stands in a document is not written below \p folder:
/// a link may lead anywhere. Empty when there is no link in the way.
QString linkInTheWay(const QString& file, const QString& folder);

} // namespace rvopen::tools

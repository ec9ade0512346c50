// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>

namespace rvopen::tools {

class Document;
struct Folders;

/// The file in which the library looks for the picture of a preset or of a member of a snapshot
/// collection, when none is embedded. Snapshots without a named folder have theirs beside the
/// document. Empty, with \p problem set to what stands in the way, when there is no such place.
QString pictureFileOf(const QDomElement& element, const Document& document, const Folders& folders,
                      QString& problem);

/// Whether the library finds a picture for the element: the embedded one if there is one at all,
/// else that file.
bool findsPicture(const QDomElement& element, const QString& file);

} // namespace rvopen::tools

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/FileReplacement.h>

#include <QDomDocument>
#include <QString>

namespace rvopen {

/// Indentation of archives and of the snapshot document handed out as text.
inline constexpr int ArchiveIndent = 3;
inline constexpr int SnapShotIndent = 2;

/// All text that the library writes comes from here: what QDomDocument::toString() gives with this
/// indentation, but the same in every process and with every version of Qt, and such that it can be
/// read again:
/// - attributes, notations and entities stand in the order of their names, by code point;
/// - the XML declaration has double quotes and no other encoding than UTF-8;
/// - all characters stand as themselves; one that no document may contain becomes U+FFFD, in names
///   "_x0007_" with its code, as do the others that no name may contain;
/// - what would end a CDATA section or processing instruction early, or break a comment, is broken
///   up;
/// - a reference to an entity that is not declared becomes text.
QString documentText(const QDomDocument& document, int indent);

/// The same for a file: a prefix that nothing declares gets a declaration, since files are read
/// with namespace processing. Null for a document that could not be read again (without root
/// element, nested too deeply).
QString fileText(const QDomDocument& document, int indent);

/// Writes fileText() to \p path as UTF-8. A document without such a text is not written. On any
/// result but Saved the file is as it was.
SaveResult saveDocument(const QDomDocument& document, const QString& path,
                        int indent = ArchiveIndent);

} // namespace rvopen

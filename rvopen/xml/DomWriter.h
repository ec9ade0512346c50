// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenWriter.h>
#include <rvopen/files/AtomicWrite.h>

#include <QDomDocument>
#include <QString>

namespace rvopen {

/// All text that the library writes comes from here: what QDomDocument::toString() gives with this
/// indentation, but the same in every process and with every version of Qt, and such that it loads
/// again, equal:
/// - attributes stand in the order of their names by UTF-16 code units, declarations of namespaces
///   among them; so do notations and entities;
/// - a character that no document may contain becomes U+FFFD; one that no name may contain becomes
///   its code, as in "_x0020_";
/// - the XML declaration has double quotes and names no other encoding than UTF-8, and all
///   characters of the text stand as themselves;
/// - what would end a CDATA section, comment or processing instruction early is broken up;
/// - of two attributes with the same name one is renamed, of two declarations of a prefix one is
///   left out, and a prefix that nothing declares gets a declaration;
/// - text behind a processing instruction follows without a line feed, which would become a part of
///   it; so does a reference to an entity that the reader would not know, which becomes text.
///
/// XML has no way to keep white space without other text between tags, or carriage returns in CDATA
/// sections, comments and processing instructions: reading drops the one, and makes line feeds of
/// the others.
QString documentText(const QDomDocument& document, int indent);

/// The same, or null for a document that could not be read again (without root element, nested too
/// deeply, with impossible namespaces).
QString fileText(const QDomDocument& document, int indent);

/// Writes fileText() to \p path as UTF-8. A document without such a text, or with one that is too
/// large to be read, is not written. On any result but Saved the file is as it was.
SaveResult saveDocument(const QDomDocument& document, const QString& path,
                        int indent = ArchiveFileIndent);

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenWriter.h>

#include <QDomDocument>
#include <QString>

namespace rvopen {

/// All text that the library writes comes from here: what QDomDocument::toString() gives with this
/// indentation, but the same in every process and with every version of Qt, and such that it loads
/// again, equal:
/// - attributes stand in the order of their names by UTF-16 code units, declarations of namespaces
///   among them;
/// - namespaces are declared where the document has attributes that declare them, and where a name
///   needs a declaration that is not in scope;
/// - a character that no document may contain becomes U+FFFD; one that no name may contain becomes
///   its code, as in "_x0020_";
/// - the XML declaration has double quotes and names no other encoding than UTF-8, and all
///   characters of the text stand as themselves;
/// - what would end a CDATA section, comment or processing instruction early is broken up;
/// - of two attributes with the same name one is renamed, and a prefix that nothing declares gets a
///   declaration;
/// - line feeds and indentation stand only where the reader takes them for layout: not beside text,
///   CDATA sections and references to entities, and nowhere within xml:space="preserve". White
///   space of the document that the reader would take for layout gives way to it;
/// - a reference to an entity that the reader would not know becomes text.
///
/// XML has no way to keep carriage returns in CDATA sections, comments and processing instructions:
/// reading makes line feeds of them.
QString documentText(const QDomDocument& document, int indent);

/// The same, or null for a document that could not be read again (without root element, nested too
/// deeply).
QString fileText(const QDomDocument& document, int indent);

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>

#include <QString>

/// The judge of what is a document. Qt's parsers differ in what they take, from version to version,
/// and build what they are given whatever its depth; so one scan over the text decides, before
/// anything is built: well-formed by XML 1.0 (names with at most one colon, as namespaces want
/// them), within the bounds of RVOpenLimits.h. External entities and subsets are not read.
namespace rvopen::xml {

/// Stands at the end of character data and CDATA sections that the parser would take for white
/// space and leave out.
inline constexpr char16_t SpacesMark = 0xFDD0;

/// Whether a text of such characters alone gets the mark: the parser would leave it out, or what it
/// ends with would be taken for the mark.
inline bool isMarkable(QChar c)
{
    return c.isSpace() || c == QChar(SpacesMark);
}

/// Target of the processing instruction that stands for a reference to an external entity, with
/// the name of the entity as its data.
inline constexpr char ReferenceMark[] = "rvopen-external-entity-reference";

/// A text that the guard lets pass.
struct GuardedText {
    /// What the parser is to read: blanks for the XML declaration, internal entities replaced by
    /// what they stand for, and of the declarations only those that the document keeps or that give
    /// attributes their defaults.
    QString text;
    /// Data of the XML declaration as normalDeclaration() gives it; null when there is none.
    QString declaration;
    /// Whether there are marks in the text, which do not belong into the document.
    bool isMarked = false;
};

/// Line ends in \p text have to be line feeds. False when the text is refused; message, line and
/// column of \p error then say why.
bool guard(QString text, GuardedText& guarded, ReadError& error);

/// Whether guard() would let the text pass.
bool isAccepted(const QString& text);

/// Whether the guard takes this for a name without colon.
bool isName(const QString& name);

/// Gives the error the place of the character with this index.
void setPlace(ReadError& error, const QString& text, qsizetype index);

/// The data of an XML declaration in the form that the library writes: double quotes, and UTF-8
/// where another encoding is declared. Data that is none gives `version="1.0" encoding="utf-8"`.
QString normalDeclaration(const QString& data);

} // namespace rvopen::xml

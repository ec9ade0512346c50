// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/files/AtomicWrite.h>
#include <rvopen/xml/DomBuilder.h>

#include <QByteArray>
#include <QDomDocument>
#include <QString>

namespace rvopen {

/// Everything that the library builds a document of goes through these two. Null when the text is
/// not a well-formed document or passes a bound of RVOpenLimits.h; \p error, if given, and
/// LastReadError() say why. The caller owns the result.
///
/// Text in files is UTF-8 unless it starts with the byte order mark of UTF-16 or UTF-32; the
/// encoding that an XML declaration states is ignored.
QDomDocument* readDocument(const QString& path, ReadError* error = nullptr);
QDomDocument* parseDocument(const QString& text, Namespaces namespaces, ReadError* error = nullptr);

/// The text of the file, with the line ends that it has there, and the bytes that it was decoded
/// from. False where there is none, for the reason in \p failure.
bool readText(const QString& path, QByteArray& bytes, QString& text, ReadError& failure);
/// The two steps of it.
/// @{
bool readBytes(const QString& path, QByteArray& bytes, ReadError& failure);
bool readText(const QByteArray& bytes, QString& text, ReadError& failure);
/// @}

/// Sets what LastReadError() answers, and \p error if given.
void tellOfReading(const ReadError& result, ReadError* error);

/// Writes fileText() to \p path as UTF-8. A document without such a text, or with one that is too
/// large to be read, is not written. On any result but Saved the file is as it was.
SaveResult saveDocument(const QDomDocument& document, const QString& path,
                        int indent = ArchiveFileIndent);

/// What LastWriteError() answers, with the file.
WriteError lastWriteError();
/// Sets it.
void tellOfWriting(const WriteError& error);
/// Of an archive that was to be saved.
WriteError notOpen(const QString& archive);

} // namespace rvopen

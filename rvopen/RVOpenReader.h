// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QString>

class QDomDocument;

namespace rvopen {

/// Where and why a document could not be read.
struct ReadError {
    /// The path as it was given; empty for a text that came from no file.
    QString file;
    /// Empty when there was no error.
    QString message;
    /// From 1; 0 when the error has no place in the text, as for a file that cannot be opened.
    int line = 0;
    /// In characters from 1; 0 when the error has no place in the text.
    int column = 0;
};

/// The error of the thread's last attempt to read a document, by whichever operation of the
/// library; without message when that attempt succeeded.
RVOPEN_EXPORT ReadError LastReadError();

/// The document in the file, as XMLUtils::ReadXmlDocument() reads it; null when it cannot be read.
/// \p error, if given, is set either way. The caller owns the result.
///
/// Elements and attributes know their namespaces, and the declarations are attributes as well, so
/// that each comes back where it stood. XmlText() counts on that; QDomDocument::toString(), which
/// makes declarations of its own, would write them twice. Nodes have no line numbers.
RVOPEN_EXPORT QDomDocument* ReadXmlDocument(const QString& path, ReadError* error = nullptr);

/// The document in the text, read without namespace processing as
/// RVOpenManager::LoadSnapShotDocFromString() reads it; null when it cannot be read. \p error, if
/// given, is set either way. The caller owns the result.
RVOPEN_EXPORT QDomDocument* ParseXmlDocument(const QString& text, ReadError* error = nullptr);

} // namespace rvopen

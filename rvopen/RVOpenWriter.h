// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QByteArray>
#include <QString>

class QDomDocument;

namespace rvopen {

/// Why something was not written. It is true where there is an error.
struct [[nodiscard]] WriteError {
    /// The path as it was given.
    QString file;
    /// The system's own words, such as "No space left on device", where the system refused. Empty
    /// when there was no error.
    QString message;

    /// Whether there is an error.
    explicit operator bool() const
    {
        return !message.isEmpty();
    }
};

/// \name Indentation
/// Blanks for each level of elements.
/// @{

/// Of archives.
inline constexpr int ArchiveFileIndent = 3;
/// Of snapshot documents, as text or in files.
inline constexpr int SnapShotFileIndent = 2;
/// @}

/// The document as text, the same in every process and with every version of Qt, and such that it
/// can be read again, equal: with each declaration of a namespace once, and no white space added to
/// text. Null for a document that could not be read: without root element, or nested too deeply.
RVOPEN_EXPORT QString XmlText(const QDomDocument& document, int indent);

/// Writes XmlText() to the file as UTF-8. The file is replaced whole: on false it is as it was, and
/// nothing is left beside it.
RVOPEN_EXPORT bool WriteXmlDocument(const QDomDocument& document, const QString& path, int indent);

/// Makes the bytes the content of the file in the same way.
RVOPEN_EXPORT bool WriteFile(const QByteArray& bytes, const QString& path);

/// The message of the WriteError of the thread's last attempt to write a document or bytes to a
/// file, by one of the above or by an operation of the library that saves or copies. Empty when
/// that attempt succeeded.
RVOPEN_EXPORT QString LastWriteError();

} // namespace rvopen

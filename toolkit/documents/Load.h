// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/ToolkitExport.h>
#include <rvopen/toolkit/documents/Document.h>

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace rvopen::toolkit {

/// What became of loading a document.
struct RVOPEN_TOOLKIT_EXPORT Load {
    /// Null when there is none, or when it is of another kind than was asked for.
    std::unique_ptr<Document> document;
    /// Why there is none: the file with line and column as far as there is a place, and a message
    /// for the user. Without message when there is one.
    ReadError error;
    /// What was read, also when it was refused.
    DocumentKind kind = DocumentKind::Unknown;
    /// What a file is that is no document at all: "a JPEG picture". Empty where that is not known.
    QString foreignFormat;

    /// Whether there is a document.
    explicit operator bool() const;
};

/// Loads a snapshot document or an archive; with \p wanted, only one of that kind. Nothing is
/// thrown; all that can be wrong stands in what is returned.
RVOPEN_TOOLKIT_EXPORT Load LoadDocument(const QString& path,
                                        DocumentKind wanted = DocumentKind::Unknown);

/// The files in the folder and below it whose names end like those of documents, ".rvx" or ".xml",
/// in the order of their paths. What cannot be listed, and names that are not UTF-8, are added to
/// \p problems.
RVOPEN_TOOLKIT_EXPORT QStringList DocumentsBelow(const QString& folder,
                                                 QVector<ReadError>& problems);

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QString>

namespace rvopen {

/// Where and why a text could not be read.
struct ReadError {
    QString file;
    QString message;
    int line = 0;
    int column = 0;
};

enum class Namespaces { Ignored, Processed };

/// Everything that the library opens or parses goes through these two.
/// Null when the text is not a well-formed document; \p error, if given, says why.
/// The caller owns the result.
QDomDocument* readDocument(const QString& path, ReadError* error = nullptr);
QDomDocument* parseDocument(const QString& text, Namespaces namespaces, ReadError* error = nullptr);

} // namespace rvopen

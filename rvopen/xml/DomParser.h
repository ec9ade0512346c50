// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>

#include <QDomDocument>
#include <QString>

namespace rvopen {

enum class Namespaces { Ignored, Processed };

/// Everything that the library opens or parses goes through these two. Null when the text is not a
/// well-formed document or passes a bound of RVOpenLimits.h; \p error, if given, and
/// LastReadError() say why. The caller owns the result.
///
/// Text in files is UTF-8 unless it starts with the byte order mark of UTF-16 or UTF-32; the
/// encoding that an XML declaration states is ignored.
QDomDocument* readDocument(const QString& path, ReadError* error = nullptr);
QDomDocument* parseDocument(const QString& text, Namespaces namespaces, ReadError* error = nullptr);

/// Whether they would read the text.
bool isReadable(const QString& text, Namespaces namespaces);

} // namespace rvopen

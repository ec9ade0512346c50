// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen::toolkit {

/// What else than a document a file is by its first bytes, with its article: "a JPEG picture".
/// Empty where that cannot be told.
QString foreignFormatOf(const QString& path);

/// Whether the name ends like that of a document.
bool isDocumentName(const QString& name);

} // namespace rvopen::toolkit

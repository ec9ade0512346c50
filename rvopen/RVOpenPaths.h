// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QString>

namespace rvopen {

/// \name Paths in documents
/// Documents and hosts use backslashes on every platform; the library treats their paths in these
/// ways.
/// @{

/// The path to open for \p path: the literal path if it exists; elsewhere than on Windows otherwise
/// the same with a slash for each backslash.
RVOPEN_EXPORT QString PathToOpen(const QString& path);

/// What follows the last separator of either kind: documents travel from Windows.
RVOPEN_EXPORT QString LastPathComponent(const QString& path);

/// Whether a name or path that stands in a document, put behind a folder, stays inside of it: no
/// component is "..", with separators of either kind.
RVOPEN_EXPORT bool StaysInside(const QString& relative);
/// @}

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen {

/// The path to open for \p path. Documents and hosts use backslashes on every platform, so the
/// literal path is taken if it exists; elsewhere than on Windows otherwise the same with a slash
/// for each backslash.
QString pathToOpen(const QString& path);

/// What follows the last separator of either kind: documents travel from Windows.
QString lastPathComponent(const QString& path);

/// Whether a name or path that stands in a document, put behind a folder, stays inside of it: no
/// component is "..", with separators of either kind.
bool staysInside(const QString& relative);

} // namespace rvopen

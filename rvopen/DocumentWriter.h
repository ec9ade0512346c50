// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QString>

namespace rvopen {

/// Indentation of archives and of the snapshot document handed out as text.
inline constexpr int ArchiveIndent = 3;
inline constexpr int SnapShotIndent = 2;

/// All text that the library writes comes from here.
QString documentText(const QDomDocument& document, int indent);

enum class SaveResult { Saved, NotOpened, NotWritten };

/// Writes the document to \p path as UTF-8, indented as an archive. On any result but Saved the
/// file is as it was.
SaveResult saveDocument(const QDomDocument& document, const QString& path);

} // namespace rvopen

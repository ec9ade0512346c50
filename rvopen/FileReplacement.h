// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace rvopen {

enum class SaveResult {
    Saved,
    /// There is no such folder, the path names a folder, or the file may not be written.
    NotOpened,
    /// Writing failed.
    NotWritten
};

/// Makes \p bytes the content of the file at \p path. The new content is written to a file beside
/// it and flushed to the disk before it takes the place of the old one, so that at any moment the
/// path gives the one or the other, whole. Symbolic links stay, and so do mode, group and, where
/// the process may, owner; hard links, access control lists and extended attributes do not.
///
/// Where the folder does not allow that but the file itself may be written, it is written in place.
/// An error then brings the old content back; but a crash of the machine or the end of the process
/// in the middle leaves a mixture.
///
/// On any result but Saved the file is as it was, and nothing is left beside it.
SaveResult replaceFile(const QString& path, const QByteArray& bytes);

} // namespace rvopen

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

/// Makes \p bytes the content of the file at \p path. They are written to a new file beside it,
/// flushed to the disk and read back, every one of them, before that file takes the place of the
/// old one: at any moment the path gives the one or the other, whole. Symbolic links stay, and so
/// do mode, POSIX access control list, group and, where the process may give it away, owner; hard
/// links and extended attributes do not.
///
/// On any result but Saved the file is as it was, and nothing is left beside it. The end of the
/// process in the middle may leave the new file, ".rvopen-*.tmp", beside the old one.
///
/// Where the folder does not allow that, or group or list cannot be kept, but the file itself may
/// be written, it is written in place, flushed and read back. An error then brings the old content
/// back, unless the disk refuses that too; but the end of the process, or a crash of the machine,
/// in the middle leaves a mixture.
///
/// On any result but Saved \p reason says why.
SaveResult replaceFile(const QString& path, const QByteArray& bytes, QString& reason);

/// Copies a file, with its permissions, to a path where there is nothing yet. False when it does
/// not arrive as a whole, or is larger than what the library reads; then there still is nothing,
/// and \p reason says why. It says nothing where there is no such file, or something is at the
/// target, which stays.
bool copyFile(const QString& source, const QString& target, QString& reason);

/// What is said of files that are larger than what the library reads.
QString tooLarge();

} // namespace rvopen

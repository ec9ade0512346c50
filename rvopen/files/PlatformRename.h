// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace rvopen {

/// The steps of replaceFile() that differ between systems; each has a source of its own.
/// @{

enum class Substitution {
    Done,
    /// It failed, and nothing has changed.
    Failed,
    /// There is no such folder, or the file may not be written.
    NotOpened,
    /// There can be no other file in its place, but it may allow writing.
    InPlace,
    /// What is at the path is no file, but may take bytes, as a pipe does.
    NoFile
};

/// Lets a new file with that content take the place of the one at the path. On Failed and NotOpened
/// \p reason says why.
Substitution substituteFile(const QString& path, const QByteArray& bytes, QString& reason);

/// Hands what was written to the disk, as far as the system lets the library ask for it; \p reason
/// is set when it answers no.
bool flushToDisk(QFile& file, QString& reason);

/// @}

/// Writes all of it, or until the system says why it takes no more: what fits on a full disk still
/// is written without a reason.
bool writeAll(QFileDevice& file, const char* bytes, qint64 count);

/// Whether reading it back shows that the file holds these bytes and nothing else.
bool holds(QFile& file, const QByteArray& bytes);

/// Why writing to the file, or reading it back, came to nothing.
QString reasonOf(const QFile& file);

} // namespace rvopen

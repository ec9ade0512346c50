// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "FileLock.h"

#include <QString>

namespace rvopen::tools {

class Arguments;
class Document;
class Session;

/// Where a changed document goes: over the input, to another file, or to standard output for "-".
/// Nothing is written over an input unless that is asked for, and every file is replaced whole.
class Target {
public:
    /// \p force is what "--force" is good for.
    void declare(Arguments& arguments,
                 const char* force = "Write over another file than the input");
    /// The part of it that has to do with what is lost by writing: for commands with outputs of
    /// their own.
    void declareSafety(Arguments& arguments, const char* force);
    /// Before an input that may be written over is read: from now on nobody else changes it.
    void lock(const QString& input);
    /// Throws a Failure unless the user said where to write what is made of \p input.
    void check(const Document& input) const;
    /// Empty for standard output.
    QString file(const Document& input) const;
    bool isGiven() const;
    bool isInPlace() const;
    /// Not in a dry run, which prints what it would do.
    bool isStandardOutput() const;
    bool isDryRun() const;
    bool isForced() const;
    /// Throws a Failure when the file is there already and the user did not say to write over it.
    void checkFree(const QString& output) const;
    /// Keeps what is about to be written over or removed, if the user wants that. Empty when that
    /// went well, else why not.
    QString problemOfBackup(const QString& path) const;
    /// Throws a Failure when it could not be written; the file is as it was then. A dry run writes
    /// nothing.
    void write(const Document& document, const Document& input, Session& session) const;

private:
    QString m_output;
    bool m_inPlace = false;
    bool m_isDryRun = false;
    bool m_isForced = false;
    /// Follows the names of files that are kept; empty when none are.
    QString m_backup;
    FileLock m_lock;
};

} // namespace rvopen::tools

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "OutputOptions.h"
#include "toolkit/documents/FileLock.h"

#include <QString>

namespace rvopen::toolkit {
class Document;
}

namespace rvopen::command {

class Arguments;
class Session;

/// Where a changed document goes: over the input, to another file, or to standard output for "-".
/// Nothing is written over an input unless that is asked for, nor over another file, and every file
/// is replaced whole.
class Target {
public:
    /// \p force: what --force is good for, if for more than writing over a file.
    void declare(Arguments& arguments, const char* force = nullptr);
    /// Before an input that may be written over is read: from now on nobody else changes it.
    void lock(const QString& input);
    /// Throws a Failure unless the user said where to write what is made of \p input.
    void check(const toolkit::Document& input) const;
    /// Throws a Failure when that file is there and the user did not say --force.
    void checkFile(const QString& path) const;
    /// Empty for standard output.
    QString file(const toolkit::Document& input) const;
    bool isGiven() const;
    bool isInPlace() const;
    /// Not in a dry run, which prints what it would do.
    bool isStandardOutput() const;
    bool isForced() const;
    /// Nothing is written then, and no target is needed.
    bool isDryRun() const;
    /// Keeps what is about to be written over or removed, if the user wants that. Empty when that
    /// went well, else why not.
    QString problemOfBackup(const QString& path) const;
    /// Keeps what is there already, if that is asked for. Throws a Failure when it could not be
    /// written; the file is as it was then. A dry run writes nothing.
    void write(const toolkit::Document& document, const toolkit::Document& input,
               Session& session) const;
    /// Before something else is written there: keeps what is there, if that is asked for. Throws a
    /// Failure when it cannot.
    void backUp(const QString& path) const;

private:
    QString m_output;
    bool m_inPlace = false;
    OutputOptions m_options;
    toolkit::FileLock m_lock;
};

} // namespace rvopen::command

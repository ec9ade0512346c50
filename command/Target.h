// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/documents/FileLock.h"

#include <QString>

namespace rvopen::toolkit {
class Document;
}

namespace rvopen::command {

class Arguments;
class Session;

/// Where a changed document goes: over the input, to another file, or to standard output for "-".
/// Nothing is written over an input unless that is asked for, and every file is replaced whole.
class Target {
public:
    void declare(Arguments& arguments);
    /// Before an input that may be written over is read: from now on nobody else changes it.
    void lock(const QString& input);
    /// Throws a Failure unless the user said where to write what is made of \p input.
    void check(const toolkit::Document& input) const;
    /// Empty for standard output.
    QString file(const toolkit::Document& input) const;
    bool isGiven() const;
    bool isInPlace() const;
    bool isStandardOutput() const;
    /// Throws a Failure when it could not be written; the file is as it was then.
    void write(const toolkit::Document& document, const toolkit::Document& input,
               Session& session) const;

private:
    QString m_output;
    bool m_inPlace = false;
    toolkit::FileLock m_lock;
};

} // namespace rvopen::command

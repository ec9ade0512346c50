// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen::command {

class Arguments;

/// What a command does with files that are there already, the same for all that write.
class OutputOptions {
public:
    /// \p force: what --force is good for, if for more than writing over a file.
    void declare(Arguments& arguments, const char* force = nullptr);
    bool isForced() const;
    /// Nothing is written then.
    bool isDryRun() const;
    /// Throws a Failure when something would be lost by writing there, unless that is asked for.
    void check(const QString& path) const;
    /// Before something is written there: keeps what is there, if that is asked for. Throws a
    /// Failure when it cannot.
    void backUp(const QString& path) const;
    /// The same; empty when it went well, else why not.
    QString problemOfBackup(const QString& path) const;

private:
    bool m_isForced = false;
    bool m_isDryRun = false;
    QString m_backup;
};

} // namespace rvopen::command

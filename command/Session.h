// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Output.h"

#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/documents/Folders.h>

#include <QJsonObject>
#include <QString>

namespace rvopen::command {

/// What all commands share while one of them runs.
class Session {
public:
    toolkit::Folders folders;
    bool json = false;
    bool quiet = false;
    Output out;

    /// Tells the library the folders. Archives and snapshots that the host does not know stay
    /// unknown.
    void announceFolders() const;

    /// \name Errors
    /// On standard error, "file:line:column: message" as far as there is a place. The program then
    /// ends with ExitFailed.
    /// @{
    void error(const ReadError& error);
    void error(const QString& file, const QString& message);
    void warning(const QString& file, const QString& message);
    bool hasFailed() const;
    /// \p code, or ExitFailed when there was an error.
    int result(int code) const;
    /// @}

    /// What every JSON output begins with.
    static QJsonObject envelope(const char* command);
    static QJsonObject errorObject(const ReadError& error);

    /// \name Progress
    /// A line on the terminal that goes with the next output.
    /// @{
    void progress(int at, int of, const QString& what);
    void clearProgress();
    /// @}

private:
    void complain(const QString& text);

    bool m_hasFailed = false;
    bool m_hasProgress = false;
};

} // namespace rvopen::command

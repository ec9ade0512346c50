// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Command.h"
#include "Session.h"

#include <memory>
#include <vector>

namespace rvopen::command {

class CommandLine;

/// What stands on the command line besides the sub-command's own.
struct GlobalOptions {
    QString colour = QStringLiteral("auto");
    QString generated;
    /// The command that help is asked about; empty for all of them.
    QString explained;
};

/// Declares the program with all its sub-commands. The parser refers to what it is given.
void declareProgram(CommandLine& line, const std::vector<std::unique_ptr<Command>>& commands,
                    Session& session, GlobalOptions& options);

} // namespace rvopen::command

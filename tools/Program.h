// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Command.h"
#include "Session.h"

#include <memory>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

namespace rvopen::tools {

/// What stands on the command line besides the sub-command's own.
struct GlobalOptions {
    QString colour = QStringLiteral("auto");
    QString generated;
};

/// Declares the program with all its sub-commands. The parser refers to what it is given.
void declareProgram(CLI::App& app, const std::vector<std::unique_ptr<Command>>& commands,
                    Session& session, GlobalOptions& options);

/// What is generated from the parser, so that it says what the parser takes.
/// @{
QString helpText(const CLI::App& app);
QString manualPage(const CLI::App& app);
QString bashCompletion(const CLI::App& app);
QString zshCompletion(const CLI::App& app);
QString fishCompletion(const CLI::App& app);
/// @}

} // namespace rvopen::tools

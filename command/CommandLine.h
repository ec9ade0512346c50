// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Arguments.h"
#include "Documentation.h"

#include <QString>

#include <memory>

namespace rvopen::command {

/// What stood on a command line.
struct ParsedLine {
    /// Why it cannot be taken; the rest is empty then.
    QString problem;
    /// What the parser itself answers, help or version.
    QString answer;
    /// Name of the sub-command; empty when there was none.
    QString command;
};

/// The parser of the program. The sources of both of its classes are one, so that the library
/// behind them is compiled once: it takes longer than all of a command.
class CommandLine {
public:
    CommandLine(const char* name, const char* description, const char* version);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// What goes with every sub-command.
    Arguments global();
    Arguments command(const char* name, const char* summary);
    /// Fills the targets of all that was declared.
    ParsedLine parse(int argc, char** argv);
    CommandDoc documentation() const;

private:
    std::unique_ptr<CLI::App> m_app;
};

} // namespace rvopen::command

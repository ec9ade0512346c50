// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <vector>

namespace rvopen::command {

class Arguments;
class Session;

/// What the program answers with.
enum ExitCode : int {
    ExitFine = 0,
    ExitFindings = 1, ///< Findings or differences.
    ExitFailed = 2    ///< It could not be done.
};

/// One sub-command.
class Command {
public:
    virtual ~Command() = default;
    virtual const char* name() const = 0;
    virtual const char* summary() const = 0;
    /// Declares what the command takes; the values live in the command.
    virtual void declare(Arguments& arguments) = 0;
    virtual int run(Session& session) = 0;
};

/// \name One file each
/// @{
std::unique_ptr<Command> makeInfo();
std::unique_ptr<Command> makeTree();
std::unique_ptr<Command> makeList();
std::unique_ptr<Command> makeFind();
std::unique_ptr<Command> makeGet();
std::unique_ptr<Command> makeSet();
std::unique_ptr<Command> makeCheck();
std::unique_ptr<Command> makeTextures();
std::unique_ptr<Command> makeImport();
std::unique_ptr<Command> makeCopy();
std::unique_ptr<Command> makeMove();
std::unique_ptr<Command> makeRemove();
std::unique_ptr<Command> makeRename();
std::unique_ptr<Command> makeSort();
std::unique_ptr<Command> makeDiff();
std::unique_ptr<Command> makeMerge();
std::unique_ptr<Command> makeFormat();
std::unique_ptr<Command> makePreview();
std::unique_ptr<Command> makeRender();
std::unique_ptr<Command> makeSheet();
std::unique_ptr<Command> makeThumbnail();
std::unique_ptr<Command> makeNew();
std::unique_ptr<Command> makeParams();
/// @}

} // namespace rvopen::command

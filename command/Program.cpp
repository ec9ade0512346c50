// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include "CommandLine.h"

namespace rvopen::command {

void declareProgram(CommandLine& line, const std::vector<std::unique_ptr<Command>>& commands,
                    Session& session, GlobalOptions& options)
{
    Arguments global = line.global();
    global.flag("--json", session.json, "Print JSON, for programs");
    global.flag("-q,--quiet", session.quiet, "No line of progress");
    global.choice("--color", options.colour,
                  {QStringLiteral("auto"), QStringLiteral("always"), QStringLiteral("never")},
                  "Colours: auto, always or never; NO_COLOR turns auto off");
    global.folder("--install", session.folders.install, "RVOPEN_INSTALL",
                  "The host's installation, with xml/ and sethumbs/");
    global.folder("--archives", session.folders.archives, "RVOPEN_ARCHIVES",
                  "The archives that came with the host");
    global.folder("--custom", session.folders.custom, "RVOPEN_CUSTOM", "The user's own archives");
    global.folder("--snapshots", session.folders.snapshots, "RVOPEN_SNAPSHOTS",
                  "The pictures of snapshots");
    global.hidden("--generate", options.generated);
    global.example("rvopen info snapshots", "what the files in a folder are");
    global.example("rvopen check --install install snapshots/house.xml",
                   "what is wrong with a document; \"rvopen check --help\" tells more");

    QStringList names;
    for (const auto& command : commands) {
        Arguments arguments = line.command(command->name(), command->summary());
        command->declare(arguments);
        names << QLatin1String(command->name());
    }
    Arguments help = line.command("help", "Explain a command");
    help.description("The same as --help behind the command; without one, what there is.");
    help.positional("command", options.explained, "Name of a command", false, names);
    help.example("rvopen help", "all commands");
    help.example("rvopen help check", "what check takes");
}

} // namespace rvopen::command

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include "Arguments.h"

#include <rvopen/RVOpenVersion.h>

#include <CLI/CLI.hpp>

namespace rvopen::tools {

namespace {

class HelpFormatter : public CLI::FormatterBase {
public:
    std::string make_help(const CLI::App* app, std::string, CLI::AppFormatMode) const override
    {
        return helpText(*app).toStdString();
    }
};

} // namespace

void declareProgram(CLI::App& app, const std::vector<std::unique_ptr<Command>>& commands,
                    Session& session, GlobalOptions& options)
{
    app.name("rvopen");
    app.description("Works on snapshot documents and preset archives: looks into them, checks, "
                    "changes, compares and draws them.\n\n"
                    "Exit codes: 0 fine, 1 findings or differences, 2 it could not be done.");
    app.formatter(std::make_shared<HelpFormatter>());
    app.set_help_flag("-h,--help", "Print this help");
    app.set_version_flag("--version", "rvopen " RVOPEN_VERSION_STRING, "Print the version");
    app.require_subcommand(0, 1);
    Arguments global(app);
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

    for (const auto& command : commands) {
        CLI::App* const sub = app.add_subcommand(command->name(), command->summary());
        sub->footer(std::string());
        sub->fallthrough();
        Arguments arguments(*sub);
        command->declare(arguments);
    }
}

} // namespace rvopen::tools

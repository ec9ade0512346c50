// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Command.h"
#include "Failure.h"
#include "Interrupts.h"
#include "Program.h"
#include "Session.h"

#include <CLI/CLI.hpp>

#include <QtGlobal>

#include <clocale>
#include <cstdio>
#include <cstring>
#include <sstream>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#else
#include <langinfo.h>
#endif

namespace {

using namespace rvopen::tools;

/// Names of files are UTF-8 whatever the locale, so that every file can be named; on Windows the
/// program's manifest says so. Documents go through standard input and output byte by byte.
void useUtf8()
{
#if defined(_WIN32)
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
#else
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
        std::setlocale(LC_CTYPE, "C.UTF-8");
    }
#endif
}

std::vector<std::unique_ptr<Command>> allCommands()
{
    std::vector<std::unique_ptr<Command>> commands;
    for (const auto make :
         {makeInfo, makeTree, makeList, makeGet, makeSet, makeCheck, makeTextures, makeImport,
          makeDiff, makeFormat, makePreview, makeRender, makeSheet, makeThumbnail, makeNew})
        commands.push_back(make());
    return commands;
}

int complain(const QString& message)
{
    if (!message.isEmpty())
        std::fprintf(stderr, "rvopen: %s\n", qPrintable(visible(message)));
    return ExitFailed;
}

int generate(const CLI::App& app, const QString& what, Output& out)
{
    if (what == QLatin1String("man"))
        out.text(manualPage(app));
    else if (what == QLatin1String("bash"))
        out.text(bashCompletion(app));
    else if (what == QLatin1String("zsh"))
        out.text(zshCompletion(app));
    else if (what == QLatin1String("fish"))
        out.text(fishCompletion(app));
    else
        throw Failure(QStringLiteral("--generate takes man, bash, zsh or fish"));
    out.flush();
    return ExitFine;
}

/// Qt would open another file than the one whose name is meant.
void refuseOtherEncodings(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArray bytes(argv[i]);
        if (QString::fromUtf8(bytes).toUtf8() != bytes) {
            throw Failure(QStringLiteral("\"%1\" is not UTF-8; rename the file to use it here")
                              .arg(QString::fromUtf8(bytes)));
        }
    }
}

int run(int argc, char** argv)
{
    refuseOtherEncodings(argc, argv);
    const std::vector<std::unique_ptr<Command>> commands = allCommands();
    Session session;
    GlobalOptions options;
    CLI::App app;
    declareProgram(app, commands, session, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            std::ostringstream text;
            app.exit(error, text, text);
            session.out.text(QString::fromStdString(text.str()));
            session.out.flush();
            return ExitFine;
        }
        return complain(QString::fromLocal8Bit(error.what()) +
                        QStringLiteral("; --help tells what there is"));
    }
    if (!options.generated.isEmpty())
        return generate(app, options.generated, session.out);
    session.out.setColour(options.colour);
    session.announceFolders();
    for (const auto& command : commands) {
        if (!app.got_subcommand(command->name()))
            continue;
        const int code = command->run(session);
        session.out.flush();
        return code;
    }
    session.out.text(QString::fromStdString(app.help()));
    session.out.flush();
    return ExitFine;
}

} // namespace

int main(int argc, char** argv)
{
    useUtf8();
    handleInterrupts();
    try {
        return run(argc, argv);
    } catch (const Failure& failure) {
        return complain(failure.message());
    } catch (const std::exception& error) {
        return complain(QString::fromLocal8Bit(error.what()));
    }
}

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Command.h"
#include "CommandLine.h"
#include "Interrupts.h"
#include "ParamTables.h"
#include "Program.h"
#include "Session.h"

#include <rvopen/RVOpenVersion.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QtGlobal>

#include <clocale>
#include <cstdio>
#include <cstring>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#else
#include <langinfo.h>
#endif

namespace {

using namespace rvopen::command;
using rvopen::toolkit::Failure;

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
         {makeInfo,   makeTree,     makeList,      makeFind,  makeGet,    makeSet,
          makeCheck,  makeTextures, makeImport,    makeCopy,  makeMove,   makeRename,
          makeRemove, makeSort,     makeDiff,      makeMerge, makeFormat, makePreview,
          makeRender, makeSheet,    makeThumbnail, makeNew,   makeParams})
        commands.push_back(make());
    return commands;
}

int complain(const QString& message)
{
    if (!message.isEmpty())
        std::fprintf(stderr, "rvopen: %s\n", qPrintable(visible(message)));
    return ExitFailed;
}

int generate(const CommandDoc& program, const QString& what, Output& out)
{
    if (what == QLatin1String("man"))
        out.text(manualPage(program));
    else if (what == QLatin1String("bash"))
        out.text(bashCompletion(program));
    else if (what == QLatin1String("zsh"))
        out.text(zshCompletion(program));
    else if (what == QLatin1String("fish"))
        out.text(fishCompletion(program));
    else if (what == QLatin1String("tables"))
        out.text(parameterTables());
    else
        throw Failure(QStringLiteral("--generate takes man, bash, zsh, fish or tables"));
    out.flush();
    return ExitFine;
}

int explain(const CommandDoc& program, const QString& name, Output& out)
{
    const CommandDoc* explained = name.isEmpty() ? &program : nullptr;
    for (const CommandDoc& command : program.commands) {
        if (command.name == name)
            explained = &command;
    }
    if (!explained)
        throw Failure(noCommand(name, program));
    out.text(helpText(*explained));
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
    CommandLine line("rvopen",
                     "Works on snapshot documents and preset archives: looks into them, checks, "
                     "changes, compares and draws them.\n\n"
                     "Exit codes: 0 fine, 1 findings or differences, 2 it could not be done.",
                     "rvopen " RVOPEN_VERSION_STRING);
    declareProgram(line, commands, session, options);
    const ParsedLine parsed = line.parse(argc, argv);
    if (!parsed.problem.isEmpty())
        return complain(parsed.problem);
    if (!parsed.answer.isEmpty()) {
        session.out.text(parsed.answer);
        session.out.flush();
        return ExitFine;
    }
    if (!options.generated.isEmpty())
        return generate(line.documentation(), options.generated, session.out);
    session.out.setColour(options.colour);
    session.announceFolders();
    for (const auto& command : commands) {
        if (parsed.command != QLatin1String(command->name()))
            continue;
        const int code = command->run(session);
        session.out.flush();
        return code;
    }
    return explain(line.documentation(), options.explained, session.out);
}

} // namespace

int main(int argc, char** argv)
{
    useUtf8();
    handleInterrupts();
    try {
        return run(argc, argv);
    } catch (const Failure& failure) {
        return complain(failure.Message());
    } catch (const std::exception& error) {
        return complain(QString::fromLocal8Bit(error.what()));
    }
}

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QRegularExpression>

namespace rvopen::test {

namespace {

/// The names of all commands, as the program's own help lists them.
QStringList commands()
{
    const Workspace workspace;
    const QString help = workspace.run("--help").out;
    const QString list =
        help.section(QStringLiteral("Commands:\n"), 1).section(QStringLiteral("\n\n"), 0, 0);
    QStringList names;
    for (const QString& line : list.split(QLatin1Char('\n')))
        names << line.trimmed().section(QLatin1Char(' '), 0, 0);
    return names;
}

QStringList examplesIn(const QString& help)
{
    QStringList examples;
    for (const QString& line :
         help.section(QStringLiteral("Examples:\n"), 1).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("  rvopen ")))
            examples << line.trimmed();
    }
    return examples;
}

} // namespace

TEST(Help, ListsEveryCommand)
{
    EXPECT_EQ(commands(), QStringLiteral(RVOPEN_COMMANDS).split(QLatin1Char(' ')));
}

TEST(Help, ExamplesRun)
{
    const QStringList all = QStringList(QString()) + commands();
    for (const QString& command : all) {
        SCOPED_TRACE(command.toStdString());
        Workspace workspace;
        workspace.copySamples();
        const Outcome help = workspace.shell(QStringLiteral("rvopen %1 --help").arg(command));
        EXPECT_EQ(help.code, 0);
        const QStringList examples = examplesIn(help.out);
        EXPECT_EQ(examples.size(), 2);
        for (const QString& example : examples) {
            const Outcome run = workspace.shell(example);
            EXPECT_TRUE(run.code == 0 || run.code == 1) << example.toStdString() << '\n'
                                                        << run.err.toStdString();
            EXPECT_FALSE(run.err.contains(QLatin1String("rvopen: "))) << example.toStdString();
        }
    }
}

TEST(Help, FitsInto80ColumnsBesidesExamples)
{
    const Workspace workspace;
    for (const QString& command : commands()) {
        const QString help = workspace.run({command, QStringLiteral("--help")}).out;
        for (const QString& line :
             help.section(QStringLiteral("Examples:"), 0, 0).split(QLatin1Char('\n')))
            EXPECT_LE(line.size(), 80) << line.toStdString();
    }
}

TEST(Help, WithoutArgumentsItIsPrinted)
{
    const Workspace workspace;
    EXPECT_EQ(workspace.run("").out, workspace.run("--help").out);
}

TEST(Help, OfACommandIsPrintedByHelpToo)
{
    const Workspace workspace;
    for (const QString& command : commands()) {
        const Outcome run = workspace.run({QStringLiteral("help"), command});
        EXPECT_EQ(run.out, workspace.run({command, QStringLiteral("--help")}).out);
        EXPECT_EQ(run.code, 0);
    }
    EXPECT_EQ(workspace.run("help").out, workspace.run("--help").out);
}

TEST(Help, AsksWhichCommandWasMeant)
{
    const Outcome run = Workspace().run("help chekc");
    EXPECT_EQ(run.err,
              QStringLiteral("rvopen: there is no command \"chekc\"; did you mean \"check\"?\n"));
    EXPECT_EQ(run.code, 2);
}

TEST(CommandLine, TellsTheVersionByEachOfItsNames)
{
    const Workspace workspace;
    const QString version = workspace.run("--version").out;
    EXPECT_TRUE(version.startsWith(QLatin1String("rvopen "))) << version.toStdString();
    EXPECT_EQ(workspace.run("-V").out, version);
    EXPECT_EQ(workspace.run("-v").out, version);
}

TEST(CommandLine, AsksWhatWasMeantOrTellsWhereItStands)
{
    const Workspace workspace;
    const QVector<QPair<const char*, const char*>> cases{
        {"lst", "there is no command \"lst\"; did you mean \"list\"?"},
        {"frobnicate", "there is no command \"frobnicate\"; \"rvopen --help\" tells what there is"},
        {"list --tpye camera", "list has no option \"--tpye\"; did you mean \"--type\"?"},
        {"--colour=always list", "list has no option \"--colour\"; did you mean \"--color\"?"},
        {"info --wrong",
         "info has no option \"--wrong\"; \"rvopen info --help\" tells what there is"},
        {"params camera a b",
         "params takes no further argument \"b\"; \"rvopen params --help\" tells what there is"},
        {"--color awlays list", "--color: \"awlays\" is none of auto, always, never; did you mean "
                                "\"always\"?"},
        {"sheet a.rvx --size 0,5",
         "--size: \"0,5\" has a comma where a number has its decimal point: 0.5; \"rvopen sheet "
         "--help\" tells what there is"},
        {"sheet a.rvx --size=-5",
         "--size: \"-5\" is below 0; \"rvopen sheet --help\" tells what there is"}};
    for (const auto& given : cases) {
        const Outcome run = workspace.run(given.first);
        EXPECT_EQ(run.code, 2) << given.first;
        EXPECT_EQ(run.out, QString()) << given.first;
        EXPECT_EQ(run.err, QStringLiteral("rvopen: %1\n").arg(QLatin1String(given.second)));
    }
}

TEST(CommandLine, OptionsThatDoNotGoTogetherAreRefused)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    const QStringList before = workspace.files();
    for (const char* const line :
         {"textures a.xml --relink . --collect out", "textures a.xml --relink . -o out --in-place",
          "set a.xml -o out --in-place snapshots/@name=x", "check a.xml --fix -o out --in-place",
          "format a.xml --check -o out", "format a.xml --check --in-place",
          "format a.xml -o out --in-place", "import a.xml a.xml -o out --in-place",
          "render a.xml --missing --all --embed", "render a.xml --all --embed -o out"}) {
        const Outcome run = workspace.run(line);
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_TRUE(run.err.contains(QLatin1String("excludes"))) << line << run.err.toStdString();
        EXPECT_EQ(workspace.files(), before) << line;
        EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), smallDocument()) << line;
    }
}

TEST(CommandLine, AFolderOfTheHostMustExist)
{
    const Workspace workspace;
    EXPECT_EQ(workspace.run("--install none list").code, 2);
}

TEST(CommandLine, FoldersComeFromTheEnvironment)
{
    Workspace workspace;
    workspace.write(QStringLiteral("mine/a.rvx"), smallArchive());
    workspace.environment.insert(QStringLiteral("RVOPEN_CUSTOM"), QStringLiteral("mine"));
    EXPECT_EQ(workspace.run("list").lines().size(), 4);
}

TEST(Output, IsColouredOnDemandOnly)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    const QStringList arguments = words("tree a.xml");
    EXPECT_FALSE(workspace.run(arguments).out.contains(QChar(27)));
    EXPECT_TRUE(
        workspace.run(arguments + QStringList{QStringLiteral("--color"), QStringLiteral("always")})
            .out.contains(QChar(27)));
}

TEST(Output, ControlCharactersOfADocumentDoNotReachTheTerminal)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "<snapRoot name=\"a&#x9b;31m&#x85;b&#x202e;c\"/>");
    const QString out = workspace.run("info a.xml").out;
    EXPECT_THAT(out.toStdString(), ::testing::HasSubstr("a\\u009b31m\\u0085b\\u202ec"));
}

TEST(Output, ThatCannotBeWrittenAnswersTwo)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    EXPECT_EQ(workspace.shell(QStringLiteral("rvopen tree -p a.xml > /dev/full")).code, 2);
}

TEST(Output, APipeThatCloseEarlyIsNoTrouble)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(5000));
    const Outcome run = workspace.shell(QStringLiteral("rvopen list a.rvx | head -n 1"));
    EXPECT_EQ(run.lines().size(), 1);
    EXPECT_EQ(run.err, QString());
}

} // namespace rvopen::test

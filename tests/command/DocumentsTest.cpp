// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

namespace rvopen::test {

namespace {

QString document(const QString& name)
{
    QFile file(QStringLiteral(RVOPEN_SOURCE_DIR "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The fenced blocks of a kind in a document.
QStringList blocks(const QString& name, const QString& kind)
{
    QStringList result;
    const QStringList parts = document(name).split(QStringLiteral("```%1\n").arg(kind));
    for (int i = 1; i < parts.size(); ++i)
        result << parts[i].section(QStringLiteral("```\n"), 0, 0);
    return result;
}

/// What bash offers at the end of the words.
QString offered(const Workspace& workspace, const char* words)
{
    return workspace
        .shell(QStringLiteral("rvopen --generate bash > c; bash -c 'source ./c; "
                              "COMP_WORDS=(rvopen %1); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                              "_rvopen; echo ${COMPREPLY[@]}'")
                   .arg(QLatin1String(words)))
        .out;
}

bool hasProgram(const char* name)
{
    return !QStandardPaths::findExecutable(QLatin1String(name)).isEmpty();
}

} // namespace

TEST(Git, IsSetUpAsDocumented)
{
    if (!hasProgram("git"))
        GTEST_SKIP() << "there is no git";
    Workspace workspace;
    workspace.environment.insert(QStringLiteral("HOME"), workspace.path());
    workspace.environment.insert(QStringLiteral("GIT_CONFIG_NOSYSTEM"), QStringLiteral("1"));
    const auto git = [&workspace](const QString& arguments) {
        return workspace.shell(QStringLiteral("git -c user.name=T -c user.email=t@t ") + arguments);
    };
    ASSERT_EQ(git(QStringLiteral("init -q .")).code, 0);
    const QStringList shell = blocks(QStringLiteral("docs/command.md"), QStringLiteral("sh"));
    ASSERT_EQ(shell.size(), 4);
    ASSERT_EQ(workspace.shell(shell[0]).code, 0);
    ASSERT_EQ(workspace.shell(shell[2]).code, 0);

    const QString name = QStringLiteral("MyPresets.rvx");
    workspace.write(name, smallArchive());
    const Outcome commit =
        git(QStringLiteral("add . && git -c user.name=T -c user.email=t@t commit -qm 1"));
    ASSERT_EQ(commit.code, 0) << commit.err.toStdString();

    workspace.write(name, smallArchive().replace("val=\"30\"", "val=\"35\""));
    EXPECT_THAT(git(QStringLiteral("diff")).out.toStdString(),
                ::testing::HasSubstr("+cameras[Cameras]/camera[Above]:Field Of View = 35\n"));
    EXPECT_EQ(workspace.shell(shell[1]).out,
              QStringLiteral("~ cameras[Cameras]/camera[Above]:Field Of View: \"30\" -> \"35\"\n"));

    workspace.write(name, smallArchive().replace("   <cameras", "<cameras"));
    const Outcome refused = git(QStringLiteral("commit -qam 2"));
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.err.toStdString(), ::testing::HasSubstr("not canonical: MyPresets.rvx"));
    EXPECT_EQ(git(QStringLiteral("log --oneline")).lines().size(), 1);
}

TEST(Git, MergesAsDocumented)
{
    if (!hasProgram("git"))
        GTEST_SKIP() << "there is no git";
    Workspace workspace;
    workspace.environment.insert(QStringLiteral("HOME"), workspace.path());
    workspace.environment.insert(QStringLiteral("GIT_CONFIG_NOSYSTEM"), QStringLiteral("1"));
    ASSERT_EQ(workspace
                  .shell(QStringLiteral("git init -q . && git config user.name T && "
                                        "git config user.email t@t"))
                  .code,
              0);
    ASSERT_EQ(
        workspace.shell(blocks(QStringLiteral("docs/command.md"), QStringLiteral("sh")).last())
            .code,
        0);
    const QString name = QStringLiteral("presets/MyPresets.rvx");
    const auto commit = [&workspace, &name](const QByteArray& archive, const QString& branch) {
        workspace.write(name, archive);
        const Outcome run = workspace.shell(
            QStringLiteral("git add . && git commit -qm x && git branch %1").arg(branch));
        EXPECT_EQ(run.code, 0) << run.err.toStdString();
    };
    commit(smallArchive(), QStringLiteral("base"));
    // In one line, which git by itself could not merge: ours has it with another name.
    commit(smallArchive().replace("desc=\"Grey\"", "desc=\"Blue\""), QStringLiteral("fine"));
    ASSERT_EQ(workspace.shell(QStringLiteral("git reset -q --hard base")).code, 0);
    commit(smallArchive().replace("val=\"30\"", "val=\"40\""), QStringLiteral("conflict"));
    ASSERT_EQ(workspace.shell(QStringLiteral("git reset -q --hard base")).code, 0);
    const QByteArray ours = smallArchive()
                                .replace("val=\"30\"", "val=\"35\"")
                                .replace("name=\"Zinc\"", "name=\"Zink\"");
    commit(ours, QStringLiteral("ours"));

    const Outcome fine = workspace.shell(QStringLiteral("git merge -q -m m fine"));
    EXPECT_EQ(fine.code, 0) << fine.out.toStdString() << fine.err.toStdString();
    const QByteArray merged = QByteArray(ours).replace("desc=\"Grey\"", "desc=\"Blue\"");
    workspace.write(QStringLiteral("wanted.rvx"), merged);
    EXPECT_EQ(workspace.run("diff wanted.rvx presets/MyPresets.rvx").out, QString());

    const Outcome conflict = workspace.shell(QStringLiteral("git merge -m m conflict 2>&1"));
    EXPECT_EQ(conflict.code, 1);
    EXPECT_THAT(
        conflict.out.toStdString(),
        ::testing::HasSubstr("! cameras[Cameras]/camera[Above]:Field Of View: \"30\" -> ours "
                             "\"35\", theirs \"40\"\n"));
    EXPECT_EQ(workspace.shell(QStringLiteral("git ls-files --unmerged | wc -l")).out.trimmed(),
              QStringLiteral("3"));
    EXPECT_EQ(workspace.run("diff wanted.rvx presets/MyPresets.rvx").out, QString());
}

// What is made from the parser.

TEST(ManualPage, HasEveryCommandAndOption)
{
    const Workspace workspace;
    const QString page = workspace.run("--generate man").out.remove(QLatin1Char('\\'));
    for (const QString& command : QStringLiteral(RVOPEN_COMMANDS).split(QLatin1Char(' '))) {
        EXPECT_TRUE(page.contains(QStringLiteral(".SS \"rvopen %1 ").arg(command)));
        const QString help = workspace.run({command, QStringLiteral("--help")}).out;
        QRegularExpressionMatchIterator it =
            QRegularExpression(QStringLiteral("^  (?:-., )?(--[a-z-]+)"),
                               QRegularExpression::MultilineOption)
                .globalMatch(help);
        while (it.hasNext()) {
            const QString option = it.next().captured(1);
            EXPECT_TRUE(page.contains(option)) << option.toStdString();
        }
    }
}

TEST(ManualPage, HasTheEnvironment)
{
    const QString section = Workspace()
                                .run("--generate man")
                                .out.section(QStringLiteral(".SH ENVIRONMENT\n"), 1)
                                .section(QStringLiteral(".SH "), 0, 0);
    EXPECT_EQ(section,
              QStringLiteral(".TP\n.B RVOPEN_INSTALL\nThe host's installation, with xml/ and "
                             "sethumbs/. \\fB\\-\\-install\\fR goes before it.\n"
                             ".TP\n.B RVOPEN_ARCHIVES\nThe archives that came with the host. "
                             "\\fB\\-\\-archives\\fR goes before it.\n"
                             ".TP\n.B RVOPEN_CUSTOM\nThe user's own archives. "
                             "\\fB\\-\\-custom\\fR goes before it.\n"
                             ".TP\n.B RVOPEN_SNAPSHOTS\nThe pictures of snapshots. "
                             "\\fB\\-\\-snapshots\\fR goes before it.\n"
                             ".TP\n.B RVOPEN_CATALOGUE\nWith off, no index of presets is read or "
                             "written.\n"
                             ".TP\n.B NO_COLOR\nWhere it is not empty, nothing is coloured unless "
                             "\\-\\-color asks for it.\n"));
}

TEST(ManualPage, IsWellFormed)
{
    if (!hasProgram("groff"))
        GTEST_SKIP() << "there is no groff";
    const Outcome run =
        Workspace().shell(QStringLiteral("rvopen --generate man | groff -man -ww -z"));
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, QString());
}

TEST(Completion, OfBashOffersCommandsOptionsAndChoices)
{
    const Workspace workspace;
    EXPECT_EQ(offered(workspace, "te"), QStringLiteral("textures\n"));
    EXPECT_EQ(offered(workspace, "tree --pa"), QStringLiteral("--params --paths\n"));
    EXPECT_EQ(offered(workspace, "tree --qu"), QStringLiteral("--quiet\n"));
    EXPECT_EQ(offered(workspace, "check --severity w"), QStringLiteral("warning\n"));
}

TEST(Completion, OfBashOffersUsualValues)
{
    const Workspace workspace;
    EXPECT_EQ(offered(workspace, "list --type foregrounds"), QStringLiteral("foregrounds\n"));
    EXPECT_EQ(offered(workspace, "list --subcat De"), QStringLiteral("Depth Cue\n"));
    EXPECT_EQ(offered(workspace, "check --only missing-te"), QStringLiteral("missing-texture\n"));
    EXPECT_EQ(offered(workspace, "help te"), QStringLiteral("textures\n"));
    EXPECT_EQ(offered(workspace, "new sn"), QStringLiteral("snapshots\n"));
    EXPECT_EQ(offered(workspace, "params naturalLightS"), QStringLiteral("naturalLightStudio\n"));
}

TEST(Completion, OfBashTellsFoldersFromFilesAndFromWords)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("x/in"), "");
    workspace.write(QStringLiteral("xy"), "");
    EXPECT_EQ(offered(workspace, "check --custom x"), QStringLiteral("x\n"));
    EXPECT_EQ(offered(workspace, "format --output x"), QStringLiteral("x xy\n"));
    EXPECT_EQ(offered(workspace, "tree --depth x"), QStringLiteral("\n"));
}

TEST(Completion, OfZshTellsFoldersFromFilesAndFromWords)
{
    const QString zsh = Workspace().run("--generate zsh").out;
    for (const char* const option :
         {"--custom[The user'\\''s own archives]:folder:_files -/'",
          "--in-place[Write over the input]'", ":n: '",
          "--subcat[Presets of one sub-category]:value:(", " Depth\\ Cue",
          "'1:value:(snapshots archive)'", "-o[Write to this file, .png or .pdf]:file:_files'",
          "--severity[Leave out findings below this one]:value:(note warning error)'"})
        EXPECT_TRUE(zsh.contains(QLatin1String(option))) << option;
}

TEST(Completion, OfFishOffersEveryChoice)
{
    const Workspace workspace;
    const QString fish = workspace.run("--generate fish").out;
    EXPECT_TRUE(fish.contains(QLatin1String(" -l color -x -a 'auto always never' ")));
    EXPECT_TRUE(fish.contains(QLatin1String(" -l severity -x -a 'note warning error' ")));
    EXPECT_TRUE(fish.contains(QLatin1String("'__fish_seen_subcommand_from new' -f -a 'snapshots "
                                            "archive'")));
}

TEST(Completion, OfFishIsTakenByFish)
{
    if (!hasProgram("fish"))
        GTEST_SKIP() << "there is no fish";
    Workspace workspace;
    workspace.environment.insert(QStringLiteral("HOME"), workspace.path());
    workspace.run("--generate fish");
    EXPECT_EQ(
        workspace
            .shell(QStringLiteral("rvopen --generate fish > c; fish --no-config -c 'source c; "
                                  "complete -C \"rvopen check --severity \"' | cut -f1 | sort"))
            .out,
        QStringLiteral("error\nnote\nwarning\n"));
}

class CompletionSyntax : public ::testing::TestWithParam<const char*> {};

TEST_P(CompletionSyntax, IsTakenByTheShell)
{
    if (!hasProgram(GetParam()))
        GTEST_SKIP() << "there is no " << GetParam();
    const Outcome run = Workspace().shell(
        QStringLiteral("rvopen --generate %1 > c && %1 -n c").arg(QLatin1String(GetParam())));
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, QString());
}

INSTANTIATE_TEST_SUITE_P(Shells, CompletionSyntax, ::testing::Values("bash", "zsh", "fish"));

} // namespace rvopen::test

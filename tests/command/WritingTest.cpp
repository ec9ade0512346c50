// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QElapsedTimer>

/// What is said, and left behind, where something cannot be written.
namespace rvopen::test {

namespace {

struct Writing {
    const char* name;
    /// A line of the shell that writes "out".
    const char* line;
};

const Writing s_writings[] = {
    {"set", "rvopen set -o out hidden.xml 'snapshot/@name=x'"},
    {"format", "rvopen format -o out a.xml"},
    {"import", "rvopen import -o out b.xml a.xml"},
    {"copy", "rvopen copy -o out c.rvx 'colour[Red]'"},
    {"rename", "rvopen rename -o out c.rvx 'colour[Red]' Rose"},
    {"remove", "rvopen remove -o out c.rvx 'colour[Red]'"},
    {"sort", "rvopen sort -o out c.rvx"},
    {"check", "rvopen check --fix -o out hidden.xml"},
    {"new", "rvopen new archive out"},
    {"preview", "rvopen preview --force -o out.png c.rvx 'colour[Red]'"},
    {"thumbnail", "rvopen thumbnail c.rvx out"},
    {"sheet", "rvopen sheet -o out.png c.rvx"},
    {"render", "rvopen render --size 16 --all -o out c.rvx"},
    {"collect", "rvopen textures --collect out d.xml"},
};

/// The inputs of the lines.
void prepare(const Workspace& workspace)
{
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    workspace.write(
        QStringLiteral("b.xml"),
        "<snapRoot><snapshots name=\"Model SnapShots\"><snapshot name=\"New\"/></snapshots>"
        "</snapRoot>");
    workspace.write(
        QStringLiteral("c.rvx"),
        "<presets type=\"UserArchives\"><colours><colour name=\"Red\"/></colours></presets>");
    workspace.write(QStringLiteral("hidden.xml"),
                    "<snapRoot><snapshot><camera><param name=\"Field Of View\" type=\"string\" "
                    "val=\"20\"/></camera></snapshot></snapRoot>");
    workspace.write(QStringLiteral("image.png"), pictureOf("abc"));
    workspace.write(QStringLiteral("d.xml"),
                    "<snapRoot><snapshot><background subcat=\"Image\"><param name=\"File Name\" "
                    "type=\"string\" val=\"image.png\"/></background></snapshot></snapRoot>");
    workspace.shell(QStringLiteral("rvopen render --size 16 --all --embed c.rvx"));
}

class FailedWriting : public ::testing::TestWithParam<Writing> {};

} // namespace

TEST_P(FailedWriting, SaysTheSystemsReasonAndLeavesNothing)
{
    const Workspace workspace;
    prepare(workspace);
    const QStringList before = workspace.files();
    const QString line = QLatin1String(GetParam().line);
    const Outcome refused = workspace.shell(QStringLiteral("ulimit -f 0; ") + line);
    EXPECT_EQ(refused.code, 2);
    EXPECT_TRUE(refused.err.contains(QLatin1String("File too large"))) << refused.err.toStdString();
    EXPECT_EQ(workspace.files(), before);

    // It was the limit that stopped it.
    const Outcome run = workspace.shell(line);
    EXPECT_LT(run.code, 2) << run.err.toStdString();
    EXPECT_GT(workspace.files().size(), before.size());
}

INSTANTIATE_TEST_SUITE_P(Commands, FailedWriting, ::testing::ValuesIn(s_writings),
                         [](const auto& writing) { return std::string(writing.param.name); });

TEST(Writing, AMissingFolderIsTheReason)
{
    const Workspace workspace;
    prepare(workspace);
    const Outcome run = workspace.shell(QStringLiteral("rvopen format -o none/a.xml a.xml"));
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(run.err.contains(QLatin1String("No such file or directory")))
        << run.err.toStdString();
}

TEST(Writing, AFolderIsNoFileToWriteTo)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    workspace.write(QStringLiteral("b.png/x"), "");
    for (const char* const line :
         {"set a.xml @unitsScale=2 -o b.png", "check a.xml --fix -o b.png",
          "textures a.xml --relink . -o b.png", "import a.xml a.xml --rename -o b.png"})
        EXPECT_EQ(workspace.run(line).err, QStringLiteral("rvopen: \"b.png\" is a folder\n"))
            << line;
    for (const char* const line :
         {"format a.xml -o b.png", "sheet a.rvx -o b.png --force", "new snapshots b.png"}) {
        const Outcome run = workspace.run(line);
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("b.png")) << line;
    }
    EXPECT_EQ(workspace.files().join(QLatin1Char(' ')), QStringLiteral("a.rvx a.xml b.png/x"));
}

TEST(Writing, AFullDeviceAsStandardOutputIsTheReason)
{
    const Workspace workspace;
    prepare(workspace);
    const Outcome run = workspace.shell(QStringLiteral("rvopen list c.rvx > /dev/full"));
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(run.err.contains(QLatin1String("No space left on device")))
        << run.err.toStdString();
}

TEST(Writing, APipeThatSomebodyReadsLaterGetsItAll)
{
    const Workspace workspace;
    prepare(workspace);
    const Outcome run =
        workspace.shell(QStringLiteral("mkfifo pipe; (sleep 1; cat pipe > copy) & "
                                       "rvopen format -o pipe a.xml && wait; rvopen format a.xml"));
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("copy")), run.out.toUtf8());
    EXPECT_FALSE(run.out.isEmpty());
}

TEST(Writing, APipeThatNobodyReadsEndsWithAMessage)
{
    const Workspace workspace;
    prepare(workspace);
    for (const char* const line :
         {"rvopen set -o pipe hidden.xml 'snapshot/@name=x'", "rvopen thumbnail c.rvx pipe"}) {
        const Outcome run =
            workspace.shell(QStringLiteral("mkfifo pipe; timeout 60 ") + QLatin1String(line));
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_TRUE(run.err.contains(QLatin1String("nobody reads"))) << run.err.toStdString();
        workspace.shell(QStringLiteral("rm pipe"));
    }
}

TEST(Writing, WaitingForAReaderEndsWithASignal)
{
    const Workspace workspace;
    prepare(workspace);
    for (const char* const signal : {"INT", "TERM", "HUP"}) {
        QElapsedTimer timer;
        timer.start();
        const Outcome run = workspace.shell(
            QStringLiteral("mkfifo pipe; env --default-signal=%1 timeout -s %1 1 "
                           "rvopen format -o pipe a.xml; code=$?; rm pipe; exit $code")
                .arg(QLatin1String(signal)));
        EXPECT_EQ(run.code, 124) << signal;
        EXPECT_TRUE(run.err.contains(QLatin1String("interrupted"))) << run.err.toStdString();
        EXPECT_FALSE(run.err.contains(QLatin1String("nobody"))) << run.err.toStdString();
    }
}

TEST(Writing, AReaderWhoDoesNotReadHoldsNobodyUp)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("large.rvx"), largeArchive(2000));
    const Outcome run =
        workspace.shell(QStringLiteral("mkfifo pipe; sleep 30 < pipe & "
                                       "timeout -k 10 -s TERM 2 rvopen format -o pipe large.rvx; "
                                       "code=$?; kill $!; exit $code"));
    // 137, where only what cannot be handled ended it.
    EXPECT_EQ(run.code, 124);
    EXPECT_TRUE(run.err.contains(QLatin1String("interrupted"))) << run.err.toStdString();
}

TEST(Writing, AFolderThatCannotBeMadeIsTheReason)
{
    const Workspace workspace;
    prepare(workspace);
    for (const char* const line :
         {"render --size 16 --all -o a.xml/out c.rvx", "textures --collect a.xml/out d.xml"}) {
        const Outcome run = workspace.run(line);
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_TRUE(run.err.contains(QLatin1String("Not a directory")) ||
                    run.err.contains(QLatin1String("File exists")))
            << line << run.err.toStdString();
    }
}

} // namespace rvopen::test

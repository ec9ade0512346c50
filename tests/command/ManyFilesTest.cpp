// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

const char* const s_view = "'camera[Above]:Field Of View";

/// Archives in a folder, whose cameras are told apart by their field of view.
class ManyFiles : public ::testing::Test {
protected:
    ManyFiles()
    {
        for (int i = 10; i < 40; ++i)
            write(QStringLiteral("in/%1.rvx").arg(i), i);
        workspace.write(QStringLiteral("in/sub/none.rvx"), "<presets/>");
    }

    void write(const QString& name, int fieldOfView) const
    {
        workspace.write(name, smallArchive().replace(
                                  "val=\"30\"", "val=\"" + QByteArray::number(fieldOfView) + '"'));
    }

    /// The last words of the lines, which are the values.
    static std::string valuesOf(const Outcome& run)
    {
        QStringList values;
        for (const QString& line : run.lines())
            values << line.section(QLatin1Char(' '), -1);
        return values.join(QLatin1Char(' ')).toStdString();
    }

    Outcome run(const QByteArray& line, const QByteArray& input = QByteArray()) const
    {
        return workspace.run(words(line.constData()), input);
    }

    Workspace workspace;
};

} // namespace

TEST_F(ManyFiles, PatternsTakeWhatFits)
{
    EXPECT_EQ(valuesOf(run(QByteArray("get in/1[0-2].rvx ") + s_view + "'")), "10 11 12");
    EXPECT_EQ(valuesOf(run(QByteArray("get i?/*5.rvx ") + s_view + "'")), "15 25 35");
    const Outcome nothing = run("check in/x*.rvx");
    EXPECT_EQ(nothing.code, 2);
    EXPECT_TRUE(nothing.err.contains(QLatin1String("No file fits"))) << nothing.err.toStdString();
}

TEST_F(ManyFiles, AFileWhoseNameLooksLikeAPatternIsItself)
{
    write(QStringLiteral("a[1].rvx"), 77);
    write(QStringLiteral("a1.rvx"), 78);
    EXPECT_EQ(valuesOf(run(QByteArray("get a[1].rvx ") + s_view + "'")), "77");
}

TEST_F(ManyFiles, DocumentsComeBeforePaths)
{
    EXPECT_EQ(valuesOf(run(QByteArray("get in/12.rvx in/11.rvx ") + s_view + "'")), "12 11");
}

TEST_F(ManyFiles, PatternsAndFoldersWithASlashComeBeforePaths)
{
    const QByteArray rest = QByteArray(" ") + s_view + "'";
    EXPECT_EQ(valuesOf(run("get in/12.rvx in/1[01].rvx" + rest)), "12 10 11");
    workspace.write(QStringLiteral("more/x.rvx"), workspace.read(QStringLiteral("in/11.rvx")));
    EXPECT_EQ(valuesOf(run("get in/12.rvx more/ in/10.rvx" + rest)), "12 11 10");
    // Without it the name may be that of a preset.
    EXPECT_EQ(run("get in/12.rvx more" + rest).code, 1);
}

TEST_F(ManyFiles, ComeFromAList)
{
    const QByteArray rest = QByteArray(" ") + s_view + "'";
    EXPECT_EQ(valuesOf(run("get --files-from -" + rest, "in/12.rvx\r\nin/10.rvx\n")), "12 10");
    EXPECT_EQ(valuesOf(run("get -0 --files-from -" + rest, QByteArray("in/12.rvx\0in/10.rvx", 19))),
              "12 10");
    workspace.write(QStringLiteral("list"), "in/12.rvx\n\n");
    EXPECT_EQ(run("get --files-from list" + rest).out, QStringLiteral("in/12.rvx  "
                                                                      "cameras[Cameras]/camera"
                                                                      "[Above]:Field Of View  "
                                                                      "12\n"));
    for (const char* const command : {"check", "format --check"})
        EXPECT_NE(run(QByteArray(command) + " --files-from list").code, 2) << command;
    EXPECT_EQ(run("check --files-from none").code, 2);
    EXPECT_EQ(run("check -0 in/12.rvx").code, 2);
    EXPECT_EQ(run("check - --files-from -").code, 2);
}

TEST_F(ManyFiles, ComeInTheirOrderWhateverIsReadAtATime)
{
    const QByteArray line = QByteArray("get in ") + s_view + "'";
    const Outcome one = run(line);
    EXPECT_EQ(one.lines().size(), 30);
    EXPECT_EQ(run(line + " --jobs 4").out, one.out);
    EXPECT_EQ(run(line + " --jobs 0").out, one.out);
    EXPECT_EQ(run("check --json --jobs 8 in").out, run("check --json in").out);
    EXPECT_EQ(run("format --check --jobs 3 in").out, run("format --check in").out);
}

TEST_F(ManyFiles, GetIsOfItsSchema)
{
    const Outcome get = run(QByteArray("get --json in ") + s_view + "'");
    EXPECT_EQ(get.code, 0);
    EXPECT_TRUE(isOfSchema(get, QStringLiteral("get")));
    EXPECT_EQ(get.json()[QStringLiteral("files")].toArray().size(), 31);
}

TEST_F(ManyFiles, SetPassesOverThoseWithoutThePath)
{
    const QByteArray none = workspace.read(QStringLiteral("in/sub/none.rvx"));
    const Outcome set = run(QByteArray("set in ") + s_view + "=50' --in-place --json");
    EXPECT_EQ(set.code, 0) << set.err.toStdString();
    EXPECT_TRUE(isOfSchema(set, QStringLiteral("set")));
    EXPECT_EQ(set.json()[QStringLiteral("files")].toArray().size(), 30);
    EXPECT_EQ(workspace.read(QStringLiteral("in/39.rvx")),
              smallArchive().replace("val=\"30\"", "val=\"50\""));
    EXPECT_EQ(workspace.read(QStringLiteral("in/sub/none.rvx")), none);
}

TEST_F(ManyFiles, SetSaysWhatNoneHas)
{
    const Outcome set = run("set in camera:None=1 --in-place");
    EXPECT_EQ(set.code, 2);
    EXPECT_TRUE(set.err.contains(QLatin1String("camera:None=1"))) << set.err.toStdString();
}

TEST_F(ManyFiles, SetLeavesOutADocumentInWhichItCannotBeDone)
{
    workspace.write(QStringLiteral("in/bad.rvx"),
                    smallArchive().replace("type=\"float\" val=\"30\"",
                                           "rangeMax=\"40\" type=\"float\" val=\"30\""));
    const QByteArray bad = workspace.read(QStringLiteral("in/bad.rvx"));
    EXPECT_EQ(run(QByteArray("set in ") + s_view + "=50' --in-place").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("in/bad.rvx")), bad);
    EXPECT_TRUE(workspace.read(QStringLiteral("in/10.rvx")).contains("val=\"50\""));
}

TEST_F(ManyFiles, OneOutputTakesOneDocument)
{
    EXPECT_EQ(run(QByteArray("set in ") + s_view + "=50' -o out.rvx").code, 2);
    EXPECT_FALSE(workspace.exists(QStringLiteral("out.rvx")));
}

TEST_F(ManyFiles, GetOfAnElementIsAllInIt)
{
    EXPECT_EQ(run("get in/30.rvx camera[Above]").out,
              QStringLiteral("cameras[Cameras]/camera[Above]@cat            Cameras\n"
                             "cameras[Cameras]/camera[Above]@name           Above\n"
                             "cameras[Cameras]/camera[Above]@refname        c.above\n"
                             "cameras[Cameras]/camera[Above]:Field Of View  30\n"));
    EXPECT_EQ(run("get in/30.rvx c.above").out, run("get in/30.rvx camera").out);
    EXPECT_EQ(run("get in/30.rvx --type camera").out, run("get in/30.rvx camera").out);
    EXPECT_EQ(run("get in/30.rvx").code, 2);
    EXPECT_EQ(run("get in/30.rvx --type lens").code, 1);
}

TEST_F(ManyFiles, GetTakesOfThePathsWhatIsSelected)
{
    EXPECT_EQ(run("get in/30.rvx @name --type camera").code, 1);
    EXPECT_EQ(run("get in/30.rvx *@refname --where roughness<1").out, QStringLiteral("m.brass\n"));
}

// writing

TEST_F(ManyFiles, ADryRunWritesNothing)
{
    const QStringList before = workspace.files();
    const Outcome set = run(QByteArray("set in/30.rvx ") + s_view + "=50' --dry-run");
    EXPECT_EQ(set.code, 0) << set.err.toStdString();
    EXPECT_EQ(valuesOf(set), "50");
    EXPECT_EQ(run(QByteArray("set in/30.rvx ") + s_view + "=50' --dry-run -o new.rvx").code, 0);
    EXPECT_EQ(run("format --dry-run --in-place in/sub").out, QStringLiteral("in/sub/none.rvx\n"));
    EXPECT_EQ(workspace.files(), before);
    EXPECT_EQ(workspace.read(QStringLiteral("in/30.rvx")), smallArchive());
    EXPECT_EQ(workspace.read(QStringLiteral("in/sub/none.rvx")), QByteArray("<presets/>"));
}

TEST_F(ManyFiles, ABackupKeepsWhatWasThere)
{
    EXPECT_EQ(run(QByteArray("set in/30.rvx ") + s_view + "=50' --in-place --backup").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("in/30.rvx~")), smallArchive());
    EXPECT_TRUE(workspace.read(QStringLiteral("in/30.rvx")).contains("val=\"50\""));
    EXPECT_EQ(run("format --in-place --backup=.old in/sub").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("in/sub/none.rvx.old")), QByteArray("<presets/>"));
    EXPECT_EQ(run(QByteArray("set in/31.rvx ") + s_view + "=50' --in-place --backup=/x").code, 2);
}

TEST_F(ManyFiles, AnotherFileIsWrittenOverByForceAlone)
{
    workspace.write(QStringLiteral("there.xml"), "<old/>");
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    for (const char* const line : {"set a.xml @unitsScale=2", "format a.xml", "check --fix a.xml",
                                   "textures --relink . a.xml", "import --rename a.xml a.xml"}) {
        const QByteArray into = QByteArray(line) + " -o there.xml";
        const Outcome refused = run(into);
        EXPECT_EQ(refused.code, 2) << line;
        EXPECT_TRUE(refused.err.contains(QLatin1String("--force"))) << refused.err.toStdString();
        EXPECT_EQ(workspace.read(QStringLiteral("there.xml")), QByteArray("<old/>")) << line;
        EXPECT_LT(run(into + " --force --backup=.old").code, 2) << line;
        EXPECT_NE(workspace.read(QStringLiteral("there.xml")), QByteArray("<old/>")) << line;
        EXPECT_EQ(workspace.read(QStringLiteral("there.xml.old")), QByteArray("<old/>")) << line;
        workspace.write(QStringLiteral("there.xml"), "<old/>");
    }
}

TEST_F(ManyFiles, APictureOrNewDocumentGoesOverAnotherByForceAlone)
{
    for (const char* const line : {"sheet --size 16 in/30.rvx -o old.png", "new snapshots old.png",
                                   "render --all --size 16 --type camera in/30.rvx -o ."}) {
        const QString there = QByteArray(line).startsWith("render")
                                  ? QStringLiteral("camera Above.png")
                                  : QStringLiteral("old.png");
        workspace.write(there, "old");
        const Outcome refused = run(line);
        EXPECT_EQ(refused.code, 2) << line;
        EXPECT_TRUE(refused.err.contains(QLatin1String("--force"))) << refused.err.toStdString();
        EXPECT_EQ(run(QByteArray(line) + " --force --dry-run").code, 0) << line;
        EXPECT_EQ(workspace.read(there), QByteArray("old")) << line;
        EXPECT_EQ(run(QByteArray(line) + " --force --backup").code, 0) << line;
        EXPECT_NE(workspace.read(there), QByteArray("old")) << line;
        EXPECT_EQ(workspace.read(there + QLatin1Char('~')), QByteArray("old")) << line;
    }
}

TEST_F(ManyFiles, ADryRunOfCollectingLeavesNoFolder)
{
    workspace.write(QStringLiteral("sky.pgm"), pictureOf("picture"));
    workspace.write(QStringLiteral("a.xml"),
                    smallDocument().replace("C:\\env\\sky.hdr", "sky.pgm"));
    const QStringList before = workspace.files();
    EXPECT_EQ(run("textures --collect out --dry-run a.xml").out,
              QStringLiteral("sky.pgm -> sky.pgm\n"));
    EXPECT_EQ(workspace.files(), before);
    EXPECT_FALSE(workspace.exists(QStringLiteral("out")));
}

TEST_F(ManyFiles, ADryRunOfPicturesMakesNoFolder)
{
    const QStringList before = workspace.files();
    EXPECT_EQ(run("render --all --size 16 --dry-run in/30.rvx -o out/deep").out,
              QStringLiteral("in/30.rvx  4 pictures\n"));
    EXPECT_EQ(workspace.files(), before);
    EXPECT_FALSE(workspace.exists(QStringLiteral("out")));
}

} // namespace rvopen::test

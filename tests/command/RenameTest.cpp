// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

/// An archive with two colours of a category, and the pictures of both.
class Rename : public ::testing::Test {
protected:
    Rename()
    {
        workspace.write(QStringLiteral("a.rvx"), archive());
        workspace.write(QStringLiteral("C/thumbs/Red.jpg"), pictureOf("red"));
        workspace.write(QStringLiteral("C/thumbs/Blue.jpg"), pictureOf("blue"));
    }

    static QByteArray archive(const QByteArray& red = "cat=\"C\" name=\"Red\" refname=\"c.red\"",
                              const QByteArray& category = "C")
    {
        return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<presets type=\"UserArchives\">\n"
               "   <colours>\n      <!-- kept -->\n      <colour " +
               red + "/>\n      <colour cat=\"" + category +
               "\" name=\"Blue\" refname=\"c.blue\"/>\n   </colours>\n</presets>\n";
    }

    QString files() const
    {
        return workspace.files().join(QLatin1Char(' '));
    }

    Workspace workspace;
};

} // namespace

TEST_F(Rename, APresetKeepsItsPictureAndItsReferenceName)
{
    const Outcome run = workspace.run("rename a.rvx colour[Red] Rose --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("renamed  colours/colour[Red]  -> colours/colour[Rose]\n"));
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")),
              archive("cat=\"C\" name=\"Rose\" refname=\"c.red\""));
    EXPECT_EQ(files(), QStringLiteral("C/thumbs/Blue.jpg C/thumbs/Rose.jpg a.rvx"));
    EXPECT_EQ(workspace.read(QStringLiteral("C/thumbs/Rose.jpg")), pictureOf("red"));
}

TEST_F(Rename, ACopyLeavesTheInputItsPicture)
{
    EXPECT_EQ(workspace.run("rename a.rvx colour[Red] Rose -o b.rvx").code, 0);
    EXPECT_EQ(files(),
              QStringLiteral("C/thumbs/Blue.jpg C/thumbs/Red.jpg C/thumbs/Rose.jpg a.rvx b.rvx"));
}

TEST_F(Rename, ACategoryTakesItsFolderAlong)
{
    const Outcome run = workspace.run("rename --category a.rvx C D --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_TRUE(run.lines().first().endsWith(QLatin1String("colour[Red]: its category is \"D\"")))
        << run.out.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")),
              archive("cat=\"D\" name=\"Red\" refname=\"c.red\"", "D"));
    EXPECT_EQ(files(), QStringLiteral("D/thumbs/Blue.jpg D/thumbs/Red.jpg a.rvx"));
    EXPECT_FALSE(workspace.exists(QStringLiteral("C")));
}

TEST_F(Rename, ACategoryLeavesWhatAnotherArchiveShows)
{
    workspace.write(QStringLiteral("b.rvx"),
                    "<presets type=\"UserArchives\"><colours><colour cat=\"C\" name=\"Red\"/>"
                    "</colours></presets>");
    EXPECT_EQ(workspace.run("rename --custom . --category a.rvx C D --in-place").code, 0);
    EXPECT_EQ(files(),
              QStringLiteral("C/thumbs/Red.jpg D/thumbs/Blue.jpg D/thumbs/Red.jpg a.rvx b.rvx"));
}

TEST_F(Rename, ACategoryGoesNowhereElse)
{
    EXPECT_EQ(workspace.run("rename --category a.rvx C ../D --in-place").code, 2);
    EXPECT_EQ(workspace.run("rename --category a.rvx None D --in-place").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), archive());
}

TEST_F(Rename, ASnapShotKeepsItsPicture)
{
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    workspace.write(QString::fromUtf8("icon_Größe.jpg"), pictureOf("x"));
    EXPECT_EQ(workspace.run("rename a.xml snapshot[Größe] 'Side: left' --in-place").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")),
              smallDocument().replace("Größe", "Side: left"));
    EXPECT_EQ(workspace.read(QStringLiteral("icon_Side%3a left.jpg")), pictureOf("x"));
    EXPECT_FALSE(workspace.exists(QString::fromUtf8("icon_Größe.jpg")));
}

TEST_F(Rename, RefusesANameThatIsTaken)
{
    const Outcome run = workspace.run("rename a.rvx colour[Red] Blue --in-place");
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err.toStdString(),
                ::testing::HasSubstr("colours/colour[Blue] has the name \"Blue\""));
    EXPECT_EQ(workspace.run("rename --refname a.rvx colour[Red] c.blue --in-place").code, 1);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), archive());
    EXPECT_EQ(workspace.read(QStringLiteral("C/thumbs/Blue.jpg")), pictureOf("blue"));
}

TEST_F(Rename, RefusesToTakeThePlaceOfAnotherPicture)
{
    workspace.write(QStringLiteral("C/thumbs/Rose.jpg"), pictureOf("another"));
    EXPECT_EQ(workspace.run("rename a.rvx colour[Red] Rose --in-place").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), archive());
    EXPECT_EQ(workspace.read(QStringLiteral("C/thumbs/Rose.jpg")), pictureOf("another"));
    EXPECT_EQ(workspace.run("rename --force --backup a.rvx colour[Red] Rose --in-place").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("C/thumbs/Rose.jpg")), pictureOf("red"));
    EXPECT_EQ(workspace.read(QStringLiteral("C/thumbs/Rose.jpg~")), pictureOf("another"));
}

TEST_F(Rename, AReferenceNameThatIsUsedAsksForForceAndTakesTheUsesAlong)
{
    const QByteArray before =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<presets>\n   <materials>\n      <material "
        "refname=\"m.a\"/>\n      <material refname=\"m.b\">\n         <material "
        "refname=\"m.a\"/>\n      </material>\n   </materials>\n</presets>\n";
    workspace.write(QStringLiteral("m.rvx"), before);
    const Outcome run = workspace.run("rename --refname m.rvx /materials/material[m.a] m.c "
                                      "--in-place");
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err.toStdString(),
                ::testing::HasSubstr("materials/material[m.b]/material[m.a] uses material m.a"));
    EXPECT_EQ(workspace.read(QStringLiteral("m.rvx")), before);
    EXPECT_EQ(workspace
                  .run("rename --force --refname m.rvx /materials/material[m.a] m.c "
                       "--in-place")
                  .code,
              0);
    EXPECT_EQ(workspace.read(QStringLiteral("m.rvx")), QByteArray(before).replace("m.a", "m.c"));
}

TEST_F(Rename, ALinkNameBelongsToAnObject)
{
    const QByteArray before = "<snapRoot><snapshot name=\"CurrSnapshot\"><materialRepository>"
                              "<material linkname=\"Door\"/></materialRepository></snapshot>"
                              "</snapRoot>";
    workspace.write(QStringLiteral("a.xml"), before);
    EXPECT_EQ(workspace.run("rename --linkname a.xml material[Door] Gate --in-place").code, 1);
    EXPECT_EQ(workspace.run("rename a.xml snapshot[CurrSnapshot] Other --in-place").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), before);
    EXPECT_EQ(workspace.run("rename --force --linkname a.xml material[Door] Gate --in-place").code,
              0);
    EXPECT_EQ(workspace.run("get a.xml material@linkname").out, QStringLiteral("Gate\n"));
}

TEST_F(Rename, ThatCannotBeWrittenLeavesEverythingAsItWas)
{
    const QByteArray large = archive().replace("kept", QByteArray(3000, 'x'));
    workspace.write(QStringLiteral("a.rvx"), large);
    const QString before = files();
    const Outcome run = workspace.shell(
        QStringLiteral("ulimit -f 1; trap '' XFSZ; rvopen rename --category a.rvx C D --in-place"));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(files(), before);
    EXPECT_FALSE(workspace.exists(QStringLiteral("D")));
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), large);
}

TEST_F(Rename, DryRunChangesNothing)
{
    const QString before = files();
    const Outcome run = workspace.run("rename --dry-run --json --category a.rvx C D");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("rename")));
    EXPECT_EQ(run.json()[QStringLiteral("pictures")].toArray().size(), 2);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), archive());
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

QByteArray colours(const QByteArray& content)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<presets type=\"UserArchives\">\n"
           "   <colours>\n" +
           content + "   </colours>\n</presets>\n";
}

const QByteArray s_red = "      <colour cat=\"C\" name=\"Red\" refname=\"c.red\"/>\n";
const QByteArray s_blue = "      <colour cat=\"C\" name=\"Blue\" refname=\"c.blue\"/>\n";
const QByteArray s_rest = "      <!-- a comment -->\n      <odd x=\"1\"/>\n";

} // namespace

TEST(Remove, LeavesTheRestByteForByte)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), colours(s_red + s_rest + s_blue));
    const Outcome run = workspace.run("remove a.rvx colour[Red] --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("removed  colours/colour[Red]\n"));
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), colours(s_rest + s_blue));
}

TEST(Remove, TakesSeveralPathsAndFoldersWithWhatIsInThem)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), colours("      <dir name=\"d\">\n         <colour "
                                                     "name=\"In\"/>\n      </dir>\n" +
                                                     s_red + s_blue));
    const Outcome run = workspace.run("remove a.rvx colour[Red] dir[d] colour[In] --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().size(), 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), colours(s_blue));
}

TEST(Remove, AsksForAllWhereAPathLeadsToSeveral)
{
    const Workspace workspace;
    const QByteArray before = colours(s_red + s_blue);
    workspace.write(QStringLiteral("a.rvx"), before);
    EXPECT_EQ(workspace.run("remove a.rvx /colours/* --in-place").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), before);
    EXPECT_EQ(workspace.run("remove --all a.rvx /colours/* --in-place").code, 0);
    EXPECT_EQ(workspace.run("list a.rvx").lines().size(), 0);
}

TEST(Remove, TakesThePictureUnlessAnotherPresetShowsIt)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    colours(s_red + s_blue + "      <colour cat=\"C\" imgname=\"Red\"/>\n"));
    workspace.write(QStringLiteral("C/thumbs/Red.jpg"), pictureOf("red"));
    workspace.write(QStringLiteral("C/thumbs/Blue.jpg"), pictureOf("blue"));
    EXPECT_EQ(workspace.run("remove a.rvx colour[Red] colour[Blue] --in-place").code, 0);
    EXPECT_EQ(workspace.files().join(QLatin1Char(' ')), QStringLiteral("C/thumbs/Red.jpg a.rvx"));
}

TEST(Remove, LeavesThePicturesThatADocumentBesideItShows)
{
    const Workspace workspace;
    for (const char* const name : {"a.rvx", "b.rvx"})
        workspace.write(QLatin1String(name), colours(s_red));
    for (const char* const name : {"a.xml", "b.xml"})
        workspace.write(QLatin1String(name), smallDocument());
    workspace.write(QStringLiteral("C/thumbs/Red.jpg"), pictureOf("red"));
    workspace.write(QString::fromUtf8("icon_Größe.jpg"), pictureOf("x"));
    const QStringList before = workspace.files();
    EXPECT_EQ(workspace.run("remove a.rvx colour[Red] --in-place").code, 0);
    EXPECT_EQ(workspace.run("remove a.xml snapshot[Größe] --in-place").code, 0);
    EXPECT_EQ(workspace.files(), before);
    // Nobody is left to show them.
    EXPECT_EQ(workspace.run("remove b.rvx colour[Red] --in-place").code, 0);
    EXPECT_EQ(workspace.run("remove b.xml snapshot[Größe] --in-place").code, 0);
    EXPECT_EQ(workspace.files().join(QLatin1Char(' ')), QStringLiteral("a.rvx a.xml b.rvx b.xml"));
}

TEST(Remove, TakesThePictureOfASnapShot)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    workspace.write(QString::fromUtf8("icon_Größe.jpg"), pictureOf("x"));
    EXPECT_EQ(workspace.run("remove a.xml snapshot[Größe] --in-place").code, 0);
    EXPECT_EQ(workspace.files(), QStringList(QStringLiteral("a.xml")));
}

TEST(Remove, KeepsBackupsOfDocumentAndPicture)
{
    const Workspace workspace;
    const QByteArray before = colours(s_red);
    workspace.write(QStringLiteral("a.rvx"), before);
    workspace.write(QStringLiteral("C/thumbs/Red.jpg"), pictureOf("red"));
    EXPECT_EQ(workspace.run("remove --backup a.rvx colour[Red] --in-place").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx~")), before);
    EXPECT_EQ(workspace.read(QStringLiteral("C/thumbs/Red.jpg~")), pictureOf("red"));
    workspace.write(QStringLiteral("a.rvx"), before);
    EXPECT_EQ(workspace.run("remove --backup=.old a.rvx colour[Red] --in-place").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx.old")), before);
}

TEST(Remove, TellsOfTheUsesInOneFileOnce)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><materials><material name=\"Base\" refname=\"m.base\"/>"
                    "<material name=\"A\"><material refname=\"m.base\"/></material>"
                    "<material name=\"B\"><material refname=\"m.base\"/></material>"
                    "<material name=\"C\"><material refname=\"m.base\"/></material>"
                    "</materials></presets>");
    EXPECT_EQ(workspace.run("remove a.rvx material[Base] --dry-run").err,
              QStringLiteral("a.rvx: materials/material[A]/material[m.base] uses material m.base; "
                             "so do 2 other places\n"
                             "a.rvx: nothing was removed: --force removes what is used\n"));
    EXPECT_EQ(workspace.run("remove a.rvx material[Base] material[A] --dry-run")
                  .err.count(QStringLiteral("; so does 1 other place\n")),
              1);
}

TEST(Remove, RefusesWhatIsUsedAndSaysByWhom)
{
    const Workspace workspace;
    const QByteArray before =
        "<presets type=\"UserArchives\"><materials><material name=\"Base\" refname=\"m.base\"/>"
        "<material name=\"Top\" refname=\"m.top\"><material refname=\"m.base\"/></material>"
        "</materials></presets>";
    workspace.write(QStringLiteral("a.rvx"), before);
    workspace.write(QStringLiteral("C/thumbs/Base.jpg"), pictureOf("x"));
    const Outcome run = workspace.run("remove a.rvx material[Base] --in-place");
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err.toStdString(),
                ::testing::HasSubstr("a.rvx: materials/material[Top]/material[m.base] uses "
                                     "material m.base\n"));
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), before);
    // Both at once leave nobody behind.
    EXPECT_EQ(workspace.run("remove a.rvx material[Base] material[Top] --in-place").code, 0);
    workspace.write(QStringLiteral("a.rvx"), before);
    EXPECT_EQ(workspace.run("remove --force a.rvx material[Base] --in-place").code, 0);
    EXPECT_EQ(workspace.run("list a.rvx").lines().size(), 1);
}

TEST(Remove, LooksForUsesInOtherFiles)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("mine/a.rvx"), colours(s_red));
    workspace.write(QStringLiteral("mine/b.rvx"),
                    "<presets><colours><dir archiveFilename=\"a\" archiveType=\"Custom\" "
                    "name=\"Shown\"/></colours></presets>");
    workspace.write(QStringLiteral("a.xml"),
                    "<snapRoot><snapshot><materialRepository><material linkname=\"Door\"><colour "
                    "refname=\"c.red\"/></material></materialRepository></snapshot></snapRoot>");
    const Outcome archive = workspace.run("remove --custom mine mine/a.rvx colour[Red] --in-place");
    EXPECT_EQ(archive.code, 1);
    EXPECT_THAT(archive.err.toStdString(),
                ::testing::HasSubstr("b.rvx: colours/dir[Shown] uses the archive\n"));
    const Outcome document =
        workspace.run("remove mine/a.rvx colour[Red] --users a.xml --in-place");
    EXPECT_EQ(document.code, 1);
    EXPECT_THAT(document.err.toStdString(),
                ::testing::HasSubstr("material[Door]/colour[c.red] uses colour c.red\n"));
    const Outcome object = workspace.run("remove a.xml material[Door] --in-place");
    EXPECT_EQ(object.code, 1);
    EXPECT_THAT(object.err.toStdString(), ::testing::HasSubstr("the link name \"Door\""));
}

TEST(Remove, LeavesTheCurrentSnapShotAndSectionsAlone)
{
    const Workspace workspace;
    const QByteArray before = "<snapRoot><snapshot name=\"CurrSnapshot\"/></snapRoot>";
    workspace.write(QStringLiteral("a.xml"), before);
    workspace.write(QStringLiteral("a.rvx"), colours(s_red));
    for (const char* const line :
         {"remove a.xml snapshot[CurrSnapshot] --in-place", "remove a.rvx colours --in-place",
          "remove a.rvx colour[None] --in-place", "remove a.rvx colour[Red]@name --in-place",
          "remove a.rvx colour[Red]"}) {
        const Outcome run = workspace.run(line);
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_FALSE(run.err.isEmpty()) << line;
    }
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), before);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), colours(s_red));
}

TEST(Remove, OverAnotherFileAsksForForce)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), colours(s_red));
    workspace.write(QStringLiteral("b.rvx"), "mine");
    EXPECT_EQ(workspace.run("remove a.rvx colour[Red] -o b.rvx").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")), QByteArray("mine"));
    EXPECT_EQ(workspace.run("remove a.rvx colour[Red] -o b.rvx --force --backup").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("b.rvx~")), QByteArray("mine"));
    EXPECT_EQ(workspace.run("list b.rvx").lines().size(), 0);
}

TEST(Remove, DryRunChangesNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), colours(s_red));
    workspace.write(QStringLiteral("C/thumbs/Red.jpg"), pictureOf("red"));
    const QStringList before = workspace.files();
    const Outcome run = workspace.run("remove --dry-run a.rvx colour[Red] --in-place");
    EXPECT_EQ(run.out, QStringLiteral("removed  colours/colour[Red]\n"));
    EXPECT_EQ(workspace.files(), before);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), colours(s_red));
}

TEST(Remove, ThatCannotBeWrittenLeavesThePicture)
{
    const Workspace workspace;
    const QByteArray large =
        colours(s_red + "      <!-- " + QByteArray(3000, 'x') + " -->\n" + s_blue);
    workspace.write(QStringLiteral("a.rvx"), large);
    workspace.write(QStringLiteral("C/thumbs/Red.jpg"), pictureOf("red"));
    const QStringList before = workspace.files();
    const Outcome run = workspace.shell(
        QStringLiteral("ulimit -f 1; trap '' XFSZ; rvopen remove a.rvx 'colour[Red]' --in-place"));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(workspace.files(), before);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), large);
}

TEST(Remove, SaysWhereNoPicturesWereLookedFor)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    colours(s_red + s_blue).replace("UserArchives", "Zorvane"));
    workspace.write(QStringLiteral("host/x"), "");
    EXPECT_EQ(workspace.run("remove a.rvx colour[Red] --dry-run").err,
              QStringLiteral("a.rvx: no pictures were looked for: pictures of presets lie below "
                             "--install DIR\n"));
    EXPECT_EQ(workspace.run("remove a.rvx colour[Red] --dry-run --install host").err, QString());
}

TEST(Remove, IsOfItsSchema)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), colours(s_red));
    workspace.write(QStringLiteral("C/thumbs/Red.jpg"), pictureOf("red"));
    const Outcome run = workspace.run("remove --json a.rvx colour[Red] --in-place");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("remove")));
    const QJsonObject picture = run.json()[QStringLiteral("pictures")].toArray().at(0).toObject();
    EXPECT_TRUE(
        picture[QStringLiteral("from")].toString().endsWith(QLatin1String("C/thumbs/Red.jpg")));
    EXPECT_TRUE(picture[QStringLiteral("to")].isNull());
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

/// The commands copy and move.
namespace rvopen::test {

namespace {

QByteArray colours(const QByteArray& content)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<presets type=\"UserArchives\">\n"
           "   <colours name=\"Colours\">\n" +
           content + "   </colours>\n</presets>\n";
}

QByteArray colour(const QByteArray& name, const QByteArray& refName, const QByteArray& indent = "")
{
    return indent + "      <colour cat=\"C\" name=\"" + name + "\" refname=\"" + refName + "\"/>\n";
}

QByteArray textured(const QByteArray& texture)
{
    return "      <colour name=\"T\" refname=\"c.t\">\n         <diffuse>\n            <param "
           "name=\"Colour\" type=\"shader\" val=\"colour\">\n               <map>\n"
           "                  <param name=\"Texture\" type=\"string\" val=\"" +
           texture +
           "\"/>\n               </map>\n            </param>\n         </diffuse>\n"
           "      </colour>\n";
}

QString joined(const Workspace& workspace)
{
    return workspace.files().join(QLatin1Char(' '));
}

} // namespace

TEST(Copy, WithinAFileGetsFreeNamesAndAPictureOfItsOwn)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), colours(colour("Red", "c.red")));
    workspace.write(QStringLiteral("C/thumbs/Red.jpg"), pictureOf("red"));
    const Outcome run = workspace.run("copy a.rvx colour[Red] --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.out,
              QStringLiteral(
                  "copied  colours[Colours]/colour[Red]  -> colours[Colours]/colour[Red (2)]\n"));
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")),
              colours(colour("Red", "c.red") + colour("Red (2)", "c.red_2")));
    EXPECT_EQ(joined(workspace), QStringLiteral("C/thumbs/Red (2).jpg C/thumbs/Red.jpg a.rvx"));
    EXPECT_EQ(workspace.read(QStringLiteral("C/thumbs/Red (2).jpg")), pictureOf("red"));
}

TEST(Copy, ReadsStandardInputAsOneOfTheTwo)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("b.rvx"), colours(QByteArray()));
    const QByteArray input = colours(colour("Red", "c.red"));
    const Outcome run = workspace.run(words("copy - colour[Red] --into b.rvx --in-place"), input);
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")), input);
    EXPECT_EQ(workspace.run(words("copy - colour[Red] --into -"), input).code, 2);
}

TEST(Copy, APictureOfAnotherNameIsNotShared)
{
    const Workspace workspace;
    workspace.write(
        QStringLiteral("a.rvx"),
        colours("      <colour cat=\"C\" imgname=\"r\" name=\"Red\" refname=\"c.red\"/>\n"));
    workspace.write(QStringLiteral("C/thumbs/r.jpg"), pictureOf("red"));
    EXPECT_EQ(workspace.run("copy a.rvx colour[Red] --in-place").code, 0);
    EXPECT_EQ(workspace.run("get a.rvx 'Red (2)@imgname'").out, QStringLiteral("r_2\n"));
    EXPECT_EQ(joined(workspace), QStringLiteral("C/thumbs/r.jpg C/thumbs/r_2.jpg a.rvx"));
    EXPECT_EQ(workspace.read(QStringLiteral("C/thumbs/r_2.jpg")), pictureOf("red"));
}

TEST(Copy, OnlyFoldersAndSectionsTakePresets)
{
    const Workspace workspace;
    const QByteArray before = colours(colour("Red", "c.red") + colour("Blue", "c.blue"));
    workspace.write(QStringLiteral("a.rvx"), before);
    const Outcome run =
        workspace.run("copy a.rvx colour[Red] --to colours[Colours]/colour[Blue] --in-place");
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), before);
}

TEST(Copy, AFolderGivesThePresetsInItFreeNames)
{
    const Workspace workspace;
    workspace.write(
        QStringLiteral("a.rvx"),
        colours("      <dir name=\"d\">\n" + colour("Red", "c.red", "   ") + "      </dir>\n"));
    EXPECT_EQ(workspace.run("copy a.rvx dir[d] --in-place").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")),
              colours("      <dir name=\"d\">\n" + colour("Red", "c.red", "   ") +
                      "      </dir>\n      <dir name=\"d (2)\">\n" +
                      colour("Red (2)", "c.red_2", "   ") + "      </dir>\n"));
}

TEST(Copy, IntoAnotherArchiveStopsAtWhatIsThereAlready)
{
    const Workspace workspace;
    const QByteArray target =
        colours("      <dir name=\"x\">\n" + colour("Old", "c.red", "   ") + "      </dir>\n");
    workspace.write(QStringLiteral("a.rvx"),
                    colours(colour("Red", "c.red") + colour("Blue", "c.blue")));
    workspace.write(QStringLiteral("b.rvx"), target);
    const Outcome stopped =
        workspace.run("copy a.rvx colour[Red] colour[Blue] --into b.rvx --in-place");
    EXPECT_EQ(stopped.code, 1);
    EXPECT_THAT(stopped.out.toStdString(),
                ::testing::HasSubstr("colours[Colours]/dir[x]/colour[Old] is there already"));
    EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")), target);
    const struct {
        const char* option;
        QByteArray result;
    } cases[] = {
        {"--skip", colours("      <dir name=\"x\">\n" + colour("Old", "c.red", "   ") +
                           "      </dir>\n" + colour("Blue", "c.blue"))},
        {"--replace", colours("      <dir name=\"x\">\n" + colour("Red", "c.red", "   ") +
                              "      </dir>\n" + colour("Blue", "c.blue"))},
        {"--rename",
         colours("      <dir name=\"x\">\n" + colour("Old", "c.red", "   ") + "      </dir>\n" +
                 colour("Red (2)", "c.red_2") + colour("Blue", "c.blue"))},
    };
    for (const auto& one : cases) {
        workspace.write(QStringLiteral("b.rvx"), target);
        const Outcome run =
            workspace.run(words("copy a.rvx colour[Red] colour[Blue] --into b.rvx --in-place") +
                          QStringList(QLatin1String(one.option)));
        EXPECT_EQ(run.code, 0) << one.option << run.err.toStdString();
        EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")), one.result) << one.option;
    }
}

TEST(Copy, MakesNoFolderForWhatItLeavesOut)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    colours("      <dir name=\"d\">\n" + colour("Red", "c.red", "   ") +
                            "      </dir>\n" + colour("Blue", "c.blue")));
    workspace.write(QStringLiteral("b.rvx"), colours(colour("Old", "c.red")));
    const Outcome run =
        workspace.run("copy a.rvx colour[Red] colour[Blue] --into b.rvx --skip --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")),
              colours(colour("Old", "c.red") + colour("Blue", "c.blue")));
}

TEST(Copy, RelativeTexturesLeadToTheSameFiles)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("one/a.rvx"), colours(textured("tex\\wood.png")));
    workspace.write(QStringLiteral("one/tex/wood.png"), pictureOf("wood"));
    workspace.write(QStringLiteral("two/b.rvx"), colours(""));
    EXPECT_EQ(workspace.run("copy one/a.rvx colour[T] --into two/b.rvx --in-place").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("two/b.rvx")),
              colours(textured("..\\one\\tex\\wood.png")));
    EXPECT_EQ(workspace.run("textures --missing two/b.rvx").code, 0);
}

TEST(Copy, SaysWhichTexturesAreLeft)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("one/a.rvx"), colours(textured("tex\\wood.png")));
    workspace.write(QStringLiteral("two/b.rvx"), colours(""));
    const Outcome run = workspace.run("copy one/a.rvx colour[T] --into two/b.rvx --in-place");
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("\"tex\\wood.png\": it is not there"));
    EXPECT_EQ(workspace.read(QStringLiteral("two/b.rvx")), colours(textured("tex\\wood.png")));
}

TEST(Copy, APaletteBecomesPresets)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"),
                    "<snapRoot unitsScale=\"10\"><snapshot><materialRepository><material "
                    "linkname=\"Front door\"><finish><param name=\"object size\" prop=\"D\" "
                    "type=\"float\" val=\"20\"/></finish></material><material name=\"Oak\" "
                    "refname=\"m.oak\"/></materialRepository></snapshot></snapRoot>");
    workspace.write(QStringLiteral("b.rvx"),
                    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<presets/>\n");
    const Outcome run = workspace.run("copy a.xml materialRepository --into b.rvx --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")),
              QByteArray("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<presets>\n   <materials "
                         "name=\"Materials\">\n      <material name=\"Front door\" "
                         "refname=\"material.front_door\">\n         <finish>\n            <param "
                         "name=\"object size\" prop=\"D\" type=\"float\" val=\"2\"/>\n"
                         "         </finish>\n      </material>\n      <material name=\"Oak\" "
                         "refname=\"m.oak\"/>\n   </materials>\n</presets>\n"));
}

TEST(Move, KeepsReferenceNameCommentAndOrderOfAllElse)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    colours("      <!-- of Red -->\n" + colour("Red", "c.red") +
                            "      <!-- of Blue -->\n" + colour("Blue", "c.blue")));
    const Outcome run = workspace.run("move a.rvx colour[Red] --to colours/dir[New] --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")),
              colours("      <!-- of Blue -->\n" + colour("Blue", "c.blue") +
                      "      <dir name=\"New\">\n         <!-- of Red -->\n" +
                      colour("Red", "c.red", "   ") + "      </dir>\n"));
}

TEST(Move, BetweenFilesChangesBothAndTakesThePicture)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("one/a.rvx"),
                    colours(colour("Red", "c.red") + colour("Blue", "c.blue")));
    workspace.write(QStringLiteral("two/b.rvx"), colours(""));
    workspace.write(QStringLiteral("one/C/thumbs/Red.jpg"), pictureOf("red"));
    const Outcome run =
        workspace.run("move --json one/a.rvx colour[Red] --into two/b.rvx --in-place");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("move")));
    EXPECT_EQ(workspace.read(QStringLiteral("one/a.rvx")), colours(colour("Blue", "c.blue")));
    EXPECT_EQ(workspace.read(QStringLiteral("two/b.rvx")), colours(colour("Red", "c.red")));
    EXPECT_EQ(joined(workspace), QStringLiteral("one/a.rvx two/C/thumbs/Red.jpg two/b.rvx"));
}

TEST(Move, OfASnapShotTakesItsPicture)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("one/a.xml"), smallDocument());
    workspace.write(QString::fromUtf8("one/icon_Größe.jpg"), pictureOf("x"));
    workspace.write(QStringLiteral("two/b.xml"), "<snapRoot/>");
    const Outcome run = workspace.run("move one/a.xml snapshot[Größe] --into two/b.xml --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.run("get two/b.xml \"/snapshots[Model SnapShots]/snapshot@name\"").out,
              QString::fromUtf8("Größe\n"));
    EXPECT_EQ(workspace.run("get one/a.xml /snapshots/snapshot@name").out,
              QStringLiteral("Front / left\n"));
    EXPECT_TRUE(workspace.exists(QString::fromUtf8("two/icon_Größe.jpg")));
    EXPECT_FALSE(workspace.exists(QString::fromUtf8("one/icon_Größe.jpg")));
}

TEST(Move, ThatCannotBeWrittenLeavesBothFilesAndThePicture)
{
    const Workspace workspace;
    const QByteArray large = colours(colour("Red", "c.red") + "      <!-- " +
                                     QByteArray(3000, 'x') + " -->\n" + colour("Blue", "c.blue"));
    const QByteArray target = colours("");
    workspace.write(QStringLiteral("one/a.rvx"), large);
    workspace.write(QStringLiteral("two/b.rvx"), target);
    workspace.write(QStringLiteral("one/C/thumbs/Red.jpg"), pictureOf("red"));
    const QString before = joined(workspace);
    // The target can be written, the source cannot.
    const Outcome run = workspace.shell(
        QStringLiteral("ulimit -f 1; trap '' XFSZ; rvopen move one/a.rvx 'colour[Red]' --into "
                       "two/b.rvx --in-place"));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(joined(workspace), before);
    EXPECT_EQ(workspace.read(QStringLiteral("one/a.rvx")), large);
    EXPECT_EQ(workspace.read(QStringLiteral("two/b.rvx")), target);
}

TEST(Move, SkippedPresetsStayWhereTheyAre)
{
    const Workspace workspace;
    const QByteArray source = colours("      <dir name=\"d\">\n" + colour("Red", "c.red", "   ") +
                                      "      </dir>\n" + colour("Blue", "c.blue"));
    const QByteArray target = colours(colour("A", "c.red") + colour("B", "c.blue"));
    workspace.write(QStringLiteral("a.rvx"), source);
    workspace.write(QStringLiteral("b.rvx"), target);
    const Outcome run =
        workspace.run("move a.rvx dir[d] colour[Blue] --into b.rvx --skip --in-place");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), source);
    EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")), target);
}

TEST(Move, RefusesWhatHasNoPlace)
{
    const Workspace workspace;
    const QByteArray source = colours("      <dir name=\"d\"/>\n" + colour("Red", "c.red"));
    workspace.write(QStringLiteral("a.rvx"), source);
    workspace.write(QStringLiteral("b.xml"), "<snapRoot/>");
    const struct {
        const char* line;
        int code;
    } cases[] = {
        {"move a.rvx colour[Red] --in-place", 2},
        {"move a.rvx colour[Red] --to none --in-place", 2},
        {"move a.rvx colour[Red] --to bumps --in-place", 1},
        {"move a.rvx dir[d] --to colours/dir[d] --in-place", 1},
        {"move a.rvx colour[Red] --into b.xml --in-place", 1},
        {"move a.rvx colour[Red] --into b.xml -o c.xml", 2},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(workspace.run(one.line).code, one.code) << one.line;
        EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), source) << one.line;
        EXPECT_EQ(workspace.read(QStringLiteral("b.xml")), QByteArray("<snapRoot/>")) << one.line;
    }
}

TEST(Move, DryRunChangesNothing)
{
    const Workspace workspace;
    const QByteArray source = colours(colour("Red", "c.red"));
    workspace.write(QStringLiteral("a.rvx"), source);
    workspace.write(QStringLiteral("b.rvx"), colours(""));
    const Outcome run = workspace.run("move --dry-run a.rvx colour[Red] --into b.rvx");
    EXPECT_EQ(run.out, QStringLiteral("moved  colours[Colours]/colour[Red]  -> "
                                      "colours[Colours]/colour[Red]\n"));
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), source);
    EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")), colours(""));
    EXPECT_TRUE(isOfSchema(workspace.run("copy --dry-run --json a.rvx colour[Red]"),
                           QStringLiteral("copy")));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

QByteArray snapShots(const QByteArray& members)
{
    return "<snapRoot>\n  <snapshots name=\"Model SnapShots\">" + members +
           "</snapshots>\n</snapRoot>\n";
}

QByteArray snapShot(const QByteArray& name, const QByteArray& twist)
{
    return "<snapshot name=\"" + name +
           "\"><snapShotSettings><param name=\"Twist\" type=\"float\" val=\"" + twist +
           "\"/></snapShotSettings></snapshot>";
}

/// Two files of which the second has one snapshot of the first with another content, and one with
/// the same.
class Import : public ::testing::Test {
protected:
    Import()
    {
        workspace.write(
            QStringLiteral("from/source.xml"),
            snapShots(snapShot("New", "1") + snapShot("Changed", "2") + snapShot("Same", "3")));
        workspace.write(QStringLiteral("target.xml"), target());
    }

    static QByteArray target()
    {
        return snapShots(snapShot("Changed", "9") + snapShot("Same", "3"));
    }

    Outcome import(const QStringList& options) const
    {
        return workspace.run(words("import from/source.xml target.xml") + options);
    }

    /// Names and twists of the snapshots in the file.
    QStringList contents(const QString& file) const
    {
        QStringList list;
        for (const QString& line : workspace
                                       .run({QStringLiteral("get"), file, QStringLiteral("*:Twist"),
                                             QStringLiteral("snapshot@name")})
                                       .lines())
            list << line.section(QStringLiteral("  "), -1).trimmed();
        return list;
    }

    Workspace workspace;
};

} // namespace

TEST_F(Import, StopsAtWhatWasChanged)
{
    const Outcome run = import(words("--in-place"));
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(workspace.read(QStringLiteral("target.xml")), target());
    EXPECT_TRUE(run.out.contains(QLatin1String("changed")));
}

TEST_F(Import, SkipTakesWhatIsNew)
{
    EXPECT_EQ(import(words("--skip --in-place")).code, 0);
    EXPECT_EQ(
        contents(QStringLiteral("target.xml")),
        QStringList({QStringLiteral("9"), QStringLiteral("3"), QStringLiteral("1"),
                     QStringLiteral("Changed"), QStringLiteral("Same"), QStringLiteral("New")}));
}

TEST_F(Import, ReplacePutsTheChangedInThePlaceOfTheOld)
{
    EXPECT_EQ(import(words("--replace --in-place")).code, 0);
    EXPECT_EQ(
        contents(QStringLiteral("target.xml")),
        QStringList({QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("1"),
                     QStringLiteral("Changed"), QStringLiteral("Same"), QStringLiteral("New")}));
}

TEST_F(Import, RenameTakesTheChangedBesideTheOld)
{
    EXPECT_EQ(import(words("--rename -o out.xml")).code, 0);
    EXPECT_EQ(contents(QStringLiteral("out.xml")).mid(4),
              QStringList({QStringLiteral("Changed"), QStringLiteral("Same"), QStringLiteral("New"),
                           QStringLiteral("Changed (2)")}));
    EXPECT_EQ(workspace.read(QStringLiteral("target.xml")), target());
}

TEST_F(Import, DryRunWritesNothing)
{
    const QStringList before = workspace.files();
    EXPECT_EQ(import(words("--dry-run --replace --in-place")).code, 0);
    EXPECT_EQ(workspace.files(), before);
    EXPECT_EQ(workspace.read(QStringLiteral("target.xml")), target());
}

TEST_F(Import, AgainIsNothing)
{
    import(words("--replace --in-place"));
    const QByteArray once = workspace.read(QStringLiteral("target.xml"));
    EXPECT_EQ(import(words("--in-place")).code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("target.xml")), once);
}

TEST_F(Import, MarksSnapShotsAsTheHostDoes)
{
    import(words("--skip --in-place"));
    EXPECT_EQ(workspace.run("get target.xml snapshot[New]@ImageBorder").out, QStringLiteral("1\n"));
}

TEST_F(Import, TakesSelectedOnesOnly)
{
    EXPECT_EQ(import(words("--select snapshot[Same] --in-place")).code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("target.xml")), target());
}

TEST_F(Import, CopiesThumbnailsBesideTheOutput)
{
    workspace.write(QStringLiteral("from/icon_New.jpg"), pictureOf("picture"));
    import(words("--skip --in-place"));
    EXPECT_EQ(workspace.read(QStringLiteral("icon_New.jpg")), pictureOf("picture"));
}

TEST_F(Import, CopiesThumbnailsIntoTheFolderOfTheHost)
{
    workspace.write(QStringLiteral("from/icon_Changed.jpg"), pictureOf("picture"));
    workspace.write(QStringLiteral("pictures/icon_Changed.jpg"), pictureOf("old"));
    import(words("--rename --snapshots pictures --in-place"));
    EXPECT_EQ(workspace.read(QStringLiteral("pictures/icon_Changed (2).jpg")),
              pictureOf("picture"));
    EXPECT_EQ(workspace.read(QStringLiteral("pictures/icon_Changed.jpg")), pictureOf("old"));
}

TEST_F(Import, ReplacesTheThumbnailOfWhatIsReplaced)
{
    workspace.write(QStringLiteral("from/icon_Changed.jpg"), pictureOf("picture"));
    workspace.write(QStringLiteral("icon_Changed.jpg"), pictureOf("old"));
    import(words("--replace --in-place"));
    EXPECT_EQ(workspace.read(QStringLiteral("icon_Changed.jpg")), pictureOf("picture"));
}

TEST_F(Import, KeepsABackupOfTheThumbnailThatIsReplaced)
{
    workspace.write(QStringLiteral("from/icon_Changed.jpg"), pictureOf("picture"));
    workspace.write(QStringLiteral("icon_Changed.jpg"), pictureOf("old"));
    EXPECT_EQ(import(words("--replace --backup --in-place")).code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("icon_Changed.jpg")), pictureOf("picture"));
    EXPECT_EQ(workspace.read(QStringLiteral("icon_Changed.jpg~")), pictureOf("old"));
    EXPECT_EQ(workspace.read(QStringLiteral("target.xml~")), target());
}

TEST_F(Import, ThatCannotBeWrittenLeavesEverythingAsItWas)
{
    workspace.write(QStringLiteral("from/icon_New.jpg"), pictureOf("picture"));
    QByteArray large = snapShots(snapShot("New", "1") + snapShot(QByteArray(300000, 'x'), "1"));
    workspace.write(QStringLiteral("from/source.xml"), large);
    const QStringList before = workspace.files();
    const Outcome run = workspace.shell(QStringLiteral(
        "ulimit -f 100; trap '' XFSZ; rvopen import from/source.xml target.xml --in-place"));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(workspace.files(), before);
    EXPECT_EQ(workspace.read(QStringLiteral("target.xml")), target());
    EXPECT_EQ(workspace.read(QStringLiteral("from/source.xml")), large);
}

TEST_F(Import, DoesNotTakeTheSourceForTheOutput)
{
    const QByteArray source = workspace.read(QStringLiteral("from/source.xml"));
    EXPECT_EQ(import(words("--skip -o from/source.xml")).code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("from/source.xml")), source);
}

TEST_F(Import, KeepsLengthsWhereTheUnitsDiffer)
{
    workspace.write(QStringLiteral("from/source.xml"),
                    "<snapRoot unitsScale=\"1000\"><snapshots name=\"Model SnapShots\"><snapshot "
                    "name=\"New\"><renderTargets><renderTarget><param name=\"Model Hint\" "
                    "prop=\"D\" type=\"float\" val=\"250\"/></renderTarget></renderTargets>"
                    "</snapshot></snapshots></snapRoot>");
    EXPECT_EQ(import(words("--in-place")).code, 0);
    EXPECT_EQ(workspace.run("get target.xml ':Model Hint'").out, QStringLiteral("0.25\n"));
    EXPECT_TRUE(import(words("--dry-run")).out.startsWith(QLatin1String("same")));
}

TEST_F(Import, KeepsWhatIsNoLengthAsItIs)
{
    workspace.write(QStringLiteral("from/source.xml"),
                    "<snapRoot unitsScale=\"1000\"><snapshots name=\"Model SnapShots\"><snapshot "
                    "name=\"New\"><camera><param name=\"Near\" prop=\"D\" type=\"float\" "
                    "val=\"250\"/><param name=\"Twist\" type=\"float\" val=\"30\"/><param "
                    "name=\"Count\" prop=\"D\" type=\"integer\" val=\"40\"/><param name=\"To\" "
                    "prop=\"R\" type=\"float\" val=\"50\"/></camera></snapshot></snapshots>"
                    "</snapRoot>");
    EXPECT_EQ(import(words("--in-place")).code, 0);
    const QByteArray xml = workspace.read(QStringLiteral("target.xml"));
    for (const char* const param : {"name=\"Near\" prop=\"D\" type=\"float\" val=\"0.25\"",
                                    "name=\"Twist\" type=\"float\" val=\"30\"",
                                    "name=\"Count\" prop=\"D\" type=\"integer\" val=\"40\"",
                                    "name=\"To\" prop=\"R\" type=\"float\" val=\"50\""})
        EXPECT_TRUE(xml.contains(param)) << param << '\n' << xml.toStdString();
}

TEST_F(Import, TakesTheFirstOfTwoOfOneName)
{
    workspace.write(QStringLiteral("from/source.xml"),
                    snapShots(snapShot("New", "1") + snapShot("New", "2")));
    EXPECT_EQ(import(words("--in-place")).code, 1);
    EXPECT_EQ(contents(QStringLiteral("target.xml")).mid(2),
              QStringList({QStringLiteral("1"), QStringLiteral("Changed"), QStringLiteral("Same"),
                           QStringLiteral("New")}));
}

TEST_F(Import, NeedsTwoOfAKind)
{
    workspace.write(QStringLiteral("target.xml"), smallArchive());
    EXPECT_EQ(import(words("--in-place")).code, 2);
}

TEST_F(Import, IsOfItsSchema)
{
    EXPECT_TRUE(isOfSchema(import(words("--json --in-place")), QStringLiteral("import")));
    EXPECT_TRUE(isOfSchema(import(words("--json --skip --in-place")), QStringLiteral("import")));
}

// Presets

namespace {

Outcome importPresets(const Workspace& workspace, const QByteArray& source,
                      const QByteArray& target, const QStringList& options)
{
    workspace.write(QStringLiteral("source.rvx"), source);
    workspace.write(QStringLiteral("target.rvx"), target);
    return workspace.run(words("import source.rvx target.rvx") + options);
}

} // namespace

TEST(ImportPresets, GoWhereTheyStood)
{
    const Workspace workspace;
    EXPECT_EQ(importPresets(workspace, smallArchive(),
                            "<presets><materials name=\"Stuff\"/></presets>", words("--in-place"))
                  .code,
              0);
    const Outcome run = workspace.run(
        "get target.rvx /materials[Stuff]/dir[Metals]/material[Brass]/finish:roughness");
    EXPECT_EQ(run.out, QStringLiteral("0.1\n"));
}

TEST(ImportPresets, AreToldByReferenceNameWhereverTheyStand)
{
    const Workspace workspace;
    const Outcome run = importPresets(
        workspace, "<presets><colours><colour name=\"A\" refname=\"r\"/></colours></presets>",
        "<presets><colours><dir name=\"x\"><colour name=\"A\" "
        "refname=\"r\"/></dir></colours></presets>",
        words("--json --in-place"));
    EXPECT_EQ(
        run.json()[QStringLiteral("items")].toArray().at(0).toObject()[QStringLiteral("state")],
        QJsonValue(QStringLiteral("same")));
}

TEST(ImportPresets, RenamedOnesGetTheirOwnReferenceName)
{
    const Workspace workspace;
    importPresets(
        workspace,
        "<presets><colours><colour name=\"A\" refname=\"r\" desc=\"new\"/></colours></presets>",
        "<presets><colours><colour name=\"A\" refname=\"r\"/></colours></presets>",
        words("--rename --in-place"));
    EXPECT_EQ(workspace.run("get target.rvx 'colour[A (2)]@refname'").out, QStringLiteral("r_2\n"));
}

TEST(ImportPresets, RenamedOnesTakeNoNameThatIsThere)
{
    const QByteArray source =
        "<presets><colours><colour name=\"A\" refname=\"r\" desc=\"new\"/></colours></presets>";
    const struct {
        const char* what;
        const char* others;
        const char* name;
        const char* refName;
    } cases[] = {
        {"neither", "", "A (2)", "r_2"},
        {"the reference name", "<colour name='B' refname='r_2'/>", "A (3)", "r_3"},
        {"the name", "<colour name='A (2)' refname='s'/>", "A (3)", "r_3"},
        {"one of each", "<colour name='A (2)' refname='s'/><colour name='B' refname='r_3'/>",
         "A (4)", "r_4"},
        {"in a folder", "<dir name='d'><colour name='B' refname='r_2'/></dir>", "A (3)", "r_3"},
    };
    for (const auto& one : cases) {
        const Workspace workspace;
        importPresets(workspace, source,
                      QByteArray("<presets><colours><colour name=\"A\" refname=\"r\"/>") +
                          one.others + "</colours></presets>",
                      words("--rename --in-place"));
        EXPECT_EQ(workspace.run("get target.rvx colour@name")
                      .lines()
                      .last()
                      .trimmed()
                      .section(QStringLiteral("  "), -1)
                      .trimmed(),
                  QLatin1String(one.name))
            << one.what;
        EXPECT_EQ(workspace.run("get target.rvx colour@refname")
                      .lines()
                      .last()
                      .section(QStringLiteral("  "), -1)
                      .trimmed(),
                  QLatin1String(one.refName))
            << one.what;
    }
}

TEST(ImportPresets, RenamedOnesAreKeptApartFromEachOther)
{
    // Of the second both names are what the first got, of the third the reference name alone.
    const Workspace workspace;
    importPresets(workspace,
                  "<presets><colours><colour name=\"A\" refname=\"r\" desc=\"new\"/></colours>"
                  "<bumps><bump name=\"A\" refname=\"r\" desc=\"new\"/></bumps><lenses><lens "
                  "name=\"B\" refname=\"r\" desc=\"new\"/></lenses></presets>",
                  "<presets><colours><colour name=\"A\" refname=\"r\"/></colours><bumps><bump "
                  "name=\"A\" refname=\"r\"/></bumps><lenses><lens name=\"B\" refname=\"r\"/>"
                  "</lenses></presets>",
                  words("--rename --in-place"));
    EXPECT_EQ(workspace.run("get target.rvx 'colour[r_2]@name'").out, QStringLiteral("A (2)\n"));
    EXPECT_EQ(workspace.run("get target.rvx 'bump[r_3]@name'").out, QStringLiteral("A (3)\n"));
    EXPECT_EQ(workspace.run("get target.rvx 'lens[r_4]@name'").out, QStringLiteral("B (4)\n"));
}

TEST(ImportPresets, ObeyThePlacementRule)
{
    const Workspace workspace;
    const QByteArray target = "<presets><colours/></presets>";
    const Outcome run =
        importPresets(workspace, "<presets><colours><bump refname=\"b\"/></colours></presets>",
                      target, words("--in-place"));
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.out.contains(QLatin1String("refused")));
    EXPECT_EQ(workspace.read(QStringLiteral("target.rvx")), target);
}

TEST(ImportPresets, DoNotGoIntoFoldersThatStandForAnotherArchive)
{
    const Workspace workspace;
    importPresets(
        workspace,
        "<presets><colours><dir name=\"x\"><colour refname=\"r\"/></dir></colours></presets>",
        "<presets><colours><dir name=\"x\" archiveType=\"Custom\" "
        "archiveFilename=\"other\"/></colours></presets>",
        words("--in-place"));
    EXPECT_EQ(workspace.run("get target.rvx /colours/dir[x]#2/colour@refname").out,
              QStringLiteral("r\n"));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QDir>
#include <QThread>

namespace rvopen::test {

namespace {

class Selecting : public ::testing::Test {
protected:
    Selecting()
    {
        workspace.write(QStringLiteral("a.rvx"), smallArchive());
        workspace.write(QStringLiteral("a.xml"), smallDocument());
    }

    /// The reference names that list prints.
    std::string listed(const QStringList& options) const
    {
        const Outcome run = workspace.run(words("list --json a.rvx") + options);
        QStringList names;
        for (const auto& preset : run.json()[QStringLiteral("presets")].toArray())
            names << preset.toObject()[QStringLiteral("refname")].toString();
        EXPECT_EQ(run.code, names.isEmpty() ? 1 : 0) << run.err.toStdString();
        return names.join(QLatin1Char(' ')).toStdString();
    }

    Workspace workspace;
};

} // namespace

TEST_F(Selecting, ByPaths)
{
    EXPECT_EQ(listed(words("--select dir[Metals]")), "m.brass m.zinc");
    EXPECT_EQ(listed(words("--select material[B*]")), "m.brass");
    EXPECT_EQ(listed(words("--select material[@cat=Glass] --select camera")), "c.above m.window");
    EXPECT_EQ(listed(words("--select Zinc")), "m.zinc");
}

TEST_F(Selecting, ByPathsOfParts)
{
    EXPECT_EQ(listed(words("--select finish")), "m.brass");
    EXPECT_EQ(listed(words("--select materials//finish:roughness")), "m.brass");
}

TEST_F(Selecting, ByValues)
{
    EXPECT_EQ(listed(words("--where roughness<0.5")), "m.brass");
    EXPECT_EQ(listed(words("--where roughness>0.5")), "");
    EXPECT_EQ(listed(words("--where 'field of view = 30'")), "c.above");
    EXPECT_EQ(listed(words("--where @cat=Metals --where @desc~GREY")), "m.zinc");
    EXPECT_EQ(listed(words("--where roughness<0.5 --where roughness>0.5")), "");
}

TEST_F(Selecting, ByWordsOfNamesCategoriesAndFolders)
{
    EXPECT_EQ(listed(words("--text METALS")), "m.brass m.zinc");
    EXPECT_EQ(listed(words("--text c.above")), "c.above");
    EXPECT_EQ(listed(words("--text 'glass window'")), "m.window");
}

TEST_F(Selecting, NeedsEverythingThatIsSaid)
{
    EXPECT_EQ(listed(words("--type material --category metals --select B*")), "m.brass");
    EXPECT_EQ(listed(words("--type camera --select dir[Metals]")), "");
}

TEST_F(Selecting, ByWhatIsNoPathOrConditionAnswersTwo)
{
    for (const char* const line :
         {"list a.rvx --where roughness>high", "list a.rvx --select a[b", "tree a.rvx --where =1",
          "check a.rvx --where ''", "list a.rvx --select camera@name"}) {
        const Outcome run = workspace.run(line);
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_EQ(run.out, QString()) << line;
    }
}

TEST_F(Selecting, TreePrintsWhatItIsInAndNothingElse)
{
    EXPECT_EQ(workspace.run("tree --params --paths a.rvx --type camera").out,
              QStringLiteral("cameras[Cameras]/camera[Above]\n"
                             "cameras[Cameras]/camera[Above]@cat = Cameras\n"
                             "cameras[Cameras]/camera[Above]@name = Above\n"
                             "cameras[Cameras]/camera[Above]@refname = c.above\n"
                             "cameras[Cameras]/camera[Above]:Field Of View = 30\n"));
    const QStringList lines = workspace.run("tree a.rvx --where @name=Zinc").lines();
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines[3].contains(QLatin1String("material[Zinc]")));
    EXPECT_EQ(workspace.run("tree a.rvx --text nothing").code, 1);
}

TEST_F(Selecting, InSnapshotDocumentsTakesTheKindThatIsAskedFor)
{
    EXPECT_EQ(workspace.run("tree --paths a.xml --type camera --where 'Field Of View < 40'").out,
              QString::fromUtf8("snapshots[Model SnapShots]/snapshot[Größe]/camera\n"));
    EXPECT_EQ(workspace.run("tree --paths --depth 2 a.xml --where 'Field Of View < 40'").out,
              QString::fromUtf8("snapshots[Model SnapShots]/snapshot[Größe]\n"));
}

TEST_F(Selecting, CheckFindsInsideAlone)
{
    workspace.write(
        QStringLiteral("b.rvx"),
        smallArchive().replace("val=\"0.1\"", "val=\"x\"").replace("val=\"30\"", "val=\"y\""));
    const auto findings = [this](const char* line) {
        return workspace.run(line).json()[QStringLiteral("findings")].toArray();
    };
    EXPECT_EQ(findings("check --json --only bad-value b.rvx").size(), 2);
    const QJsonArray found = findings("check --json --only bad-value b.rvx --type camera");
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().toObject()[QStringLiteral("path")].toString(),
              QStringLiteral("cameras[Cameras]/camera[Above]:Field Of View"));
}

TEST_F(Selecting, TexturesAreThoseInside)
{
    const char* const line = "textures --json a.xml --select snapshot[Front*]";
    EXPECT_EQ(workspace.run(line).json()[QStringLiteral("textures")].toArray().size(), 0);
    EXPECT_EQ(workspace.run("textures --json a.xml --select snapshot[G*]")
                  .json()[QStringLiteral("textures")]
                  .toArray()
                  .size(),
              1);
}

TEST_F(Selecting, RenderDrawsThese)
{
    EXPECT_EQ(workspace.run("render --all --size 16 -o out a.rvx --where roughness<0.5").code, 0);
    EXPECT_EQ(workspace.files().filter(QStringLiteral("out/")),
              QStringList(QStringLiteral("out/material Brass.png")));
}

TEST_F(Selecting, SheetShowsThese)
{
    EXPECT_EQ(workspace.run("sheet --json --size 16 -o s.png a.rvx --category metals")
                  .json()[QStringLiteral("pictures")]
                  .toInt(),
              2);
}

TEST_F(Selecting, RemoveTakesTheseAway)
{
    EXPECT_EQ(workspace.run("remove a.rvx --category metals --in-place").code, 2);
    EXPECT_EQ(workspace.run("remove a.rvx --category metals --in-place").err,
              QStringLiteral("rvopen: 2 things are selected; --all takes them all\n"));
    EXPECT_EQ(listed({}), "c.above m.brass m.window m.zinc");
    const Outcome one = workspace.run("remove a.rvx --where roughness<0.5 --in-place");
    EXPECT_EQ(one.code, 0) << one.err.toStdString();
    EXPECT_EQ(listed({}), "c.above m.window m.zinc");
    EXPECT_EQ(workspace.run("remove a.rvx --all --type material --in-place").code, 0);
    EXPECT_EQ(listed({}), "c.above");
}

TEST_F(Selecting, RemoveTakesOfThePathsWhatIsSelected)
{
    EXPECT_EQ(workspace.run("remove a.rvx --all material --text grey --in-place").code, 0);
    EXPECT_EQ(listed({}), "c.above m.brass m.window");
    // A preset is not meant by a part of it.
    for (const char* const options :
         {"--select finish", "--text grey", "material[Brass] --text window"}) {
        const Outcome run = workspace.run(words("remove a.rvx --in-place --all") + words(options));
        EXPECT_EQ(run.code, 2) << options;
    }
    EXPECT_EQ(workspace.run("remove a.rvx --all --in-place").code, 2);
    EXPECT_EQ(listed({}), "c.above m.brass m.window");
}

TEST_F(Selecting, RemoveLeavesTheCurrentSnapshot)
{
    workspace.write(QStringLiteral("s.xml"),
                    "<snapRoot><snapshots name=\"Model SnapShots\"><snapshot name=\"A\"/>"
                    "</snapshots><snapshot name=\"CurrSnapshot\"/></snapRoot>");
    const Outcome run = workspace.run("remove s.xml --type snapshot --in-place");
    EXPECT_EQ(run.out, QStringLiteral("removed  snapshots[Model SnapShots]/snapshot[A]\n"));
    EXPECT_TRUE(workspace.read(QStringLiteral("s.xml")).contains("CurrSnapshot"));
}

TEST_F(Selecting, CopyAndMoveTakeThese)
{
    workspace.write(QStringLiteral("b.rvx"), "<presets type=\"UserArchives\"/>");
    const Outcome copied =
        workspace.run("copy a.rvx --all --subcat opaque --into b.rvx --in-place");
    EXPECT_EQ(copied.out,
              QStringLiteral("copied  materials[Materials]/dir[Metals]/material[Brass]  -> "
                             "materials[Materials]/dir[Metals]/material[Brass]\n"
                             "copied  materials[Materials]/dir[Metals]/material[Zinc]   -> "
                             "materials[Materials]/dir[Metals]/material[Zinc]\n"))
        << copied.err.toStdString();
    EXPECT_EQ(workspace.run("move a.rvx --type camera --into b.rvx --in-place").code, 0);
    EXPECT_EQ(listed({}), "m.brass m.window m.zinc");
    EXPECT_EQ(workspace.run("list b.rvx").lines().size(), 3);
}

TEST(Selection, AsksWhichKindWasMeant)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const Outcome run = workspace.run("list --type materail a.rvx");
    EXPECT_EQ(run.err, QStringLiteral(
                           "rvopen: there is no kind \"materail\"; did you mean \"material\"?\n"));
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(workspace.run("list --type MATERIAL a.rvx").err, QString());
}

namespace {

struct Misspelt {
    const char* options;
    const char* meant;
};

void PrintTo(const Misspelt& row, std::ostream* out)
{
    *out << row.options;
}

class SelectionMisspelt : public ::testing::TestWithParam<Misspelt> {};

} // namespace

TEST_P(SelectionMisspelt, AsksWhatWasMeant)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    workspace.write(QStringLiteral("empty.rvx"), "<presets/>");
    const QStringList options = words(GetParam().options);
    for (const char* const command : {"list a.rvx empty.rvx", "find --text brass empty.rvx a.rvx",
                                      "tree a.rvx", "textures a.rvx", "check a.rvx"}) {
        const Outcome run = workspace.run(words(command) + options);
        EXPECT_EQ(run.err,
                  QLatin1String("rvopen: ") + QLatin1String(GetParam().meant) + QLatin1Char('\n'))
            << command;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Words, SelectionMisspelt,
    ::testing::Values(
        Misspelt{"--category Metal", "there is no category \"Metal\"; did you mean \"Metals\"?"},
        Misspelt{"--subcat Opake", "there is no sub-category \"Opake\"; did you mean \"Opaque\"?"},
        Misspelt{"--where roughnes>0.8",
                 "there is no parameter \"roughnes\"; did you mean \"roughness\"?"},
        Misspelt{"--where @dessc~grey", "there is no attribute \"dessc\"; did you mean \"desc\"?"},
        Misspelt{"--select material[Bras]",
                 "nothing has the path \"material[Bras]\"; did you mean \"material[Brass]\"?"}));

TEST(Selection, SaysNothingOfWhatThereIsWhereSomethingElseLeftItOut)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    workspace.write(QStringLiteral("b.rvx"),
                    "<presets><colours><colour name=\"A\" cat=\"Metal\"/></colours></presets>");
    const Outcome run = workspace.run("list --category Metal --type material a.rvx b.rvx");
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, QString());
}

TEST(Selection, IsNotMisspeltWhereOneDocumentHasIt)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    workspace.write(QStringLiteral("b.rvx"),
                    "<presets><colours><colour name=\"A\" cat=\"Metal\"/></colours></presets>");
    EXPECT_EQ(workspace.run("list --category Metal a.rvx b.rvx").err, QString());
}

/// Archives of which some have nothing that is selected, and a document of snapshots.
class SelectingOfMany : public ::testing::Test {
protected:
    SelectingOfMany()
    {
        write(QByteArray());
    }

    /// With a declaration of a prefix in them all archives are built.
    void write(const QByteArray& declaration) const
    {
        const auto declared = [&declaration](QByteArray archive) {
            return archive.replace("<presets", "<presets" + declaration);
        };
        workspace.write(QStringLiteral("in/a.rvx"), declared(smallArchive()));
        workspace.write(QStringLiteral("in/b.rvx"),
                        declared("<presets name=\"&lt;O&#x27;ther&gt;\"><colours><colour "
                                 "name=\"A\" cat=\"Metal\"/></colours></presets>"));
        workspace.write(QStringLiteral("in/c.rvx"), declared("<presets/>"));
        workspace.write(QStringLiteral("in/d.xml"), smallDocument());
        workspace.write(QStringLiteral("in/e.rvx"), declared(largeArchive(8000)));
        workspace.write(QStringLiteral("in/f.rvx"), declared("<presets><colours/></presets>"));
        // The second of the same name, and one whose section is not the first of its kind.
        workspace.write(
            QStringLiteral("in/g.rvx"),
            declared("<presets name=\"G\"><colours name=\"First\"/><colours name=\"Second\">"
                     "<dir name=\"D\"><colour name=\"late\" imgname=\"x\"/></dir></colours>"
                     "<bumps/><colours name=\"First\"><colour name=\"later\"/><dir name=\"E\"/>"
                     "<dir name=\"E\"><colour name=\"deep\"/></dir><colour name=\"same\"/>"
                     "<colour name=\"same\"/></colours><lenses>" +
                     QByteArray(2000, ' ') + "</lenses></presets>"));
    }

    /// All that the lines print and leave.
    QStringList left(const QList<const char*>& lines) const
    {
        QStringList all;
        for (const char* const line : lines) {
            const Outcome run = workspace.run(line);
            all << QString::number(run.code) << run.out << run.err;
        }
        for (const QString& name : workspace.files()) {
            if (name.startsWith(QLatin1String("out")))
                all << name << QString::fromLatin1(workspace.read(name).toHex());
        }
        QDir(workspace.path(QStringLiteral("out"))).removeRecursively();
        return all;
    }

    /// Of archives that are built, that are read, and that are in the index.
    void expectTheSame(const QList<const char*>& lines)
    {
        write(" xmlns:p=\"p\"");
        const QStringList wanted = left(lines);
        write(QByteArray());
        EXPECT_EQ(left(lines), wanted);
        workspace.environment.remove(QStringLiteral("RVOPEN_CATALOGUE"));
        workspace.environment.insert(QStringLiteral("XDG_CACHE_HOME"),
                                     workspace.path(QStringLiteral("caches")));
        // What is younger than the step of a clock is not kept.
        QThread::msleep(2100);
        EXPECT_EQ(left(lines), wanted);
        EXPECT_EQ(workspace.files().filter(QStringLiteral("caches/")).size(), 1);
        EXPECT_EQ(left(lines), wanted);
    }

    Workspace workspace;
};

TEST_F(SelectingOfMany, SheetsAreTheSameWhatArchivesAreBuilt)
{
    workspace.environment.insert(QStringLiteral("SOURCE_DATE_EPOCH"), QStringLiteral("0"));
    expectTheSame({"sheet --text yellow --size 40 in -o out/a.png",
                   "sheet --type colour --size 40 --json in --html out/page",
                   "sheet --text la --size 40 in --html out/late",
                   "sheet --text 'material 4711' --size 40 in --html out/one",
                   "sheet --type lens in -o out/none.png",
                   "sheet --type materail in -o out/none.png"});
}

TEST_F(SelectingOfMany, PicturesAreTheSameWhatArchivesAreBuilt)
{
    expectTheSame({"render --all --text yellow --size 40 in -o out/yellow",
                   "render --all --type colour --size 40 --json in -o out/colours",
                   "render --all --text 'm.471' --size 20 --json in -o out/few",
                   "render --all --text late --size 40 --json --install out in",
                   "render --all --text deep --size 40 --json in -o out/deep",
                   "render --missing --embed --type colour --size 40 --dry-run in",
                   "render --all --type lens in", "render --all --type materail in"});
}

TEST_F(SelectingOfMany, WhatIsRefusedIsRefused)
{
    workspace.write(QStringLiteral("in/b.rvx"), "<presets>");
    for (const char* const line : {"render --all --text yellow --size 40 in -o out",
                                   "sheet --text yellow --size 40 in -o out.png"}) {
        const Outcome run = workspace.run(line);
        EXPECT_EQ(run.code, 2);
        EXPECT_TRUE(run.err.startsWith(QLatin1String("in/b.rvx:1:10: "))) << run.err.toStdString();
    }
    EXPECT_EQ(workspace.files().filter(QStringLiteral("out")),
              QStringList(QStringLiteral("out/material Brass.png")));
}

} // namespace rvopen::test

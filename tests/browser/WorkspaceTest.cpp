// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "BrowserSupport.h"
#include "Waiting.h"

#include <QSignalSpy>

namespace rvopen::test {

using namespace browser;

namespace {

class WorkspaceTest : public BrowserTest {
protected:
    void SetUp() override
    {
        write("archives/a.rvx", sampleArchive());
        write("archives/below/b.rvx", sampleArchive());
        write("archives/c.xml", sampleDocument());
    }

    void openAll()
    {
        workspace.open({path("archives")});
        ASSERT_TRUE(comes([&] { return !workspace.isScanning(); }));
    }

    QStringList shown()
    {
        QStringList names;
        for (int row = 0; row < workspace.filter().rowCount(); ++row)
            names << workspace.filter().index(row, 0).data().toString();
        return names;
    }

    Memory memory{path("settings.ini")};
    Workspace workspace{memory, journals()};
};

TEST_F(WorkspaceTest, FindsWhatIsInFolders)
{
    openAll();
    EXPECT_EQ(workspace.files(), (QStringList{path("archives/a.rvx"), path("archives/below/b.rvx"),
                                              path("archives/c.xml")}));
    EXPECT_EQ(workspace.filesIn(path("archives/below")), QStringList{path("archives/below/b.rvx")});
    EXPECT_EQ(workspace.filesIn(path("archives/a.rvx")), QStringList{path("archives/a.rvx")});
    EXPECT_EQ(workspace.filesIn(path("arch")), QStringList());
    EXPECT_EQ(workspace.presets().rowCount(), 8);
    const Facets& facets = workspace.facets();
    EXPECT_EQ(facets.kinds, (Facets::Counts{{"colour", 2}, {"material", 4}, {"snapshot", 2}}));
    EXPECT_EQ(facets.categories, (Facets::Counts{{"Polished", 4}}));
    EXPECT_EQ(facets.tags, (Facets::Counts{{"Metal", 2}}));
    EXPECT_EQ(facets.folders.value(path("archives/a.rvx")), QStringList{"Metals"});
    EXPECT_EQ(Memory(path("settings.ini")).opened(), QStringList{path("archives")});
}

TEST_F(WorkspaceTest, TellsOfWhatIsNotThereOrCannotBeRead)
{
    QSignalSpy failed(&workspace, &Workspace::failed);
    workspace.open({path("nothing")});
    ASSERT_EQ(failed.size(), 1);
    EXPECT_TRUE(failed[0][0].toString().contains("nothing"));
    write("broken.rvx", "<presets>");
    EXPECT_FALSE(workspace.edit(path("broken.rvx")));
    ASSERT_EQ(failed.size(), 2);
    EXPECT_TRUE(failed[1][0].toString().contains("broken.rvx:1:"));
}

TEST_F(WorkspaceTest, FollowsWhatIsEdited)
{
    openAll();
    EditedFile* const file = workspace.edit(path("archives/a.rvx"));
    ASSERT_TRUE(file);
    EXPECT_EQ(workspace.edit(path("archives/a.rvx")), file);
    edits::rename(*file, at(*file, "//material[Brass]"), "Bronze");
    EXPECT_EQ(workspace.changed(), std::vector<EditedFile*>{file});
    toolkit::CatalogueQuery query;
    query.text = "bronze";
    workspace.filter().SetQuery(query);
    EXPECT_EQ(shown(), QStringList{"Bronze"});
    EXPECT_TRUE(comes([&] { return workspace.facets().kinds.size() == 3; }));
    workspace.closeFile(file->file());
    workspace.filter().SetQuery(query);
    EXPECT_EQ(shown(), QStringList());
    EXPECT_TRUE(workspace.changed().empty());
}

TEST_F(WorkspaceTest, SavesWholeAndIsNotDisturbedByItsOwnSave)
{
    openAll();
    QSignalSpy outside(&workspace, &Workspace::changedOutside);
    EditedFile* const file = workspace.edit(path("archives/a.rvx"));
    edits::rename(*file, at(*file, "//material[Brass]"), "Bronze");
    EXPECT_TRUE(workspace.save(*file));
    EXPECT_FALSE(file->isChanged());
    EXPECT_TRUE(bytesOf(file->file()).contains("Bronze"));
    QTest::qWait(100);
    EXPECT_EQ(outside.size(), 0);
}

TEST_F(WorkspaceTest, ASaveThatFailsLeavesTheFileAndTheEdit)
{
    const QString file = write("archives/a.rvx", sampleArchive());
    EditedFile* const edited = workspace.edit(file);
    edits::rename(*edited, at(*edited, "//material[Brass]"), "Bronze");
    QDir(path("archives")).removeRecursively();
    QSignalSpy failed(&workspace, &Workspace::failed);
    EXPECT_FALSE(workspace.save(*edited));
    EXPECT_EQ(failed.size(), 1);
    EXPECT_TRUE(edited->isChanged());
    EXPECT_FALSE(QFileInfo::exists(file));
}

TEST_F(WorkspaceTest, NoticesWhatOthersWrite)
{
    openAll();
    QSignalSpy outside(&workspace, &Workspace::changedOutside);
    EditedFile* file = workspace.edit(path("archives/a.rvx"));
    write("archives/a.rvx", sampleArchive().replace("Brass", "Theirs"));
    ASSERT_TRUE(comes([&] { return outside.size() > 0; }));
    EXPECT_TRUE(file->isChangedOutside());
    file->keepMine();
    EXPECT_FALSE(file->isChangedOutside());
    EXPECT_TRUE(file->isChanged());
    workspace.reload(*file);
    file = workspace.edited(path("archives/a.rvx"));
    ASSERT_TRUE(file);
    EXPECT_FALSE(at(*file, "//material[Theirs]").isNull());
    EXPECT_FALSE(file->isChanged());
}

/// Also before anybody could have been told of it.
TEST_F(WorkspaceTest, WritesOverNothingThatAnotherProgramWrote)
{
    openAll();
    EditedFile* const file = workspace.edit(path("archives/a.rvx"));
    edits::rename(*file, at(*file, "//material[Brass]"), "Mine");
    const QByteArray theirs = sampleArchive().replace("Brass", "Theirs");
    write("archives/a.rvx", theirs);
    QSignalSpy outside(&workspace, &Workspace::changedOutside);
    EXPECT_FALSE(workspace.save(*file));
    EXPECT_EQ(outside.size(), 1);
    EXPECT_EQ(bytesOf(file->file()), theirs);
    EXPECT_TRUE(file->isChanged());
    file->keepMine();
    EXPECT_TRUE(workspace.save(*file));
    EXPECT_TRUE(bytesOf(file->file()).contains("Mine"));
    // One that is gone is written again.
    edits::rename(*file, at(*file, "//material[Mine]"), "Ours");
    QFile::remove(file->file());
    EXPECT_TRUE(workspace.save(*file));
    EXPECT_TRUE(bytesOf(file->file()).contains("Ours"));
}

TEST_F(WorkspaceTest, KeepsEditsWhereTheFileCannotBeReadAgain)
{
    openAll();
    EditedFile* const file = workspace.edit(path("archives/a.rvx"));
    edits::rename(*file, at(*file, "//material[Brass]"), "Mine");
    write("archives/a.rvx", "<presets>");
    QSignalSpy failed(&workspace, &Workspace::failed);
    workspace.reload(*file);
    EXPECT_EQ(failed.size(), 1);
    ASSERT_EQ(workspace.edited(path("archives/a.rvx")), file);
    EXPECT_FALSE(at(*file, "//material[Mine]").isNull());
    EXPECT_TRUE(file->isChanged());
}

TEST_F(WorkspaceTest, ForgetsAPlaceButNotWhatIsNotSaved)
{
    openAll();
    workspace.edit(path("archives/below/b.rvx"));
    EditedFile* const file = workspace.edit(path("archives/a.rvx"));
    edits::rename(*file, at(*file, "//material[Brass]"), "Mine");
    workspace.close(path("archives"));
    ASSERT_TRUE(comes([&] { return !workspace.isScanning(); }));
    EXPECT_EQ(workspace.files(), QStringList());
    EXPECT_EQ(Memory(path("settings.ini")).opened(), QStringList());
    EXPECT_EQ(workspace.allEdited(), std::vector<EditedFile*>{file});
    EXPECT_TRUE(comes([&] { return shown().contains("Mine"); }));
}

TEST_F(WorkspaceTest, AnInstallationSaysWhereImagesAre)
{
    write("here/xml/Default.rvx", sampleArchive());
    workspace.open({path("here")});
    EXPECT_EQ(workspace.folders().install, path("here"));
    EXPECT_EQ(Memory(path("settings.ini")).folders().install, path("here"));
    ASSERT_TRUE(comes([&] { return !workspace.isScanning(); }));
}

TEST_F(WorkspaceTest, TellsOfAllFilesThatCannotBeReadAtOnce)
{
    for (const char* const name : {"archives/x1.rvx", "archives/x2.rvx"})
        write(name, "<presets>");
    QSignalSpy failed(&workspace, &Workspace::failed);
    openAll();
    ASSERT_EQ(failed.size(), 1);
    const QStringList lines = failed[0][0].toString().split('\n');
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].contains("x1.rvx:1:"));
    EXPECT_TRUE(lines[1].contains("x2.rvx:1:"));
}

TEST_F(WorkspaceTest, NoticesFilesThatComeAndGo)
{
    openAll();
    write("archives/d.rvx", sampleArchive());
    EXPECT_TRUE(comes([&] { return workspace.files().size() == 4; }));
    QFile::remove(path("archives/a.rvx"));
    EXPECT_TRUE(comes([&] { return workspace.files().size() == 3; }));
}

TEST_F(WorkspaceTest, SearchesAmongSomeFilesAndPresets)
{
    openAll();
    toolkit::CatalogueQuery query;
    query.files = QStringList{path("archives/below/b.rvx")};
    workspace.filter().SetQuery(query);
    EXPECT_EQ(shown(), (QStringList{"Brass", "Copper", "Red"}));
    query.presets = {{path("archives/below/b.rvx"), "colours[Colours]/colour[Red]"}};
    workspace.filter().SetQuery(query);
    EXPECT_EQ(shown(), QStringList{"Red"});
}

TEST_F(WorkspaceTest, RemembersFavouritesAndWhatWasUsed)
{
    const toolkit::PresetPlace red{"a.rvx", "colours/colour[Red]"};
    const toolkit::PresetPlace blue{"b.rvx", "colours/colour[Blue]"};
    memory.setFavourite(red, true);
    memory.setFavourite(red, true);
    memory.setFavourite(blue, true);
    memory.setFavourite(red, false);
    for (const toolkit::PresetPlace& place : {red, blue, red})
        memory.addRecent(place);
    const Memory again(path("settings.ini"));
    ASSERT_EQ(again.favourites().size(), 1);
    EXPECT_TRUE(again.isFavourite(blue));
    EXPECT_FALSE(again.isFavourite(red));
    ASSERT_EQ(again.recent().size(), 2);
    EXPECT_TRUE(isSame(again.recent()[0], red));
    EXPECT_TRUE(isSame(again.recent()[1], blue));
}

} // namespace

TEST_F(WorkspaceTest, KnowsPresetsByTheirReferenceNames)
{
    openAll();
    const auto pathOf = [this](const char* kind, const char* refName) {
        const toolkit::ListedPreset preset = workspace.facets().presetCalled(kind, refName);
        return preset.file + ' ' + preset.path;
    };
    const QString brass = "materials[Materials]/dir[Metals]/material[Brass]";
    EXPECT_EQ(pathOf("material", "m.brass"), path("archives/a.rvx") + ' ' + brass);
    EXPECT_EQ(pathOf("colour", "m.brass"), " ");
    EXPECT_EQ(pathOf("material", ""), " ");
    EditedFile* const file = workspace.edit(path("archives/a.rvx"));
    edits::remove(*file, {at(*file, "//material[Brass]")});
    EXPECT_TRUE(comes([&] {
        return pathOf("material", "m.brass") == path("archives/below/b.rvx") + ' ' + brass;
    }));
}

TEST_F(WorkspaceTest, ThePointerTellsOfLongReadingAlone)
{
    const QString large = write("large.rvx", QByteArray(5 * 1024 * 1024, ' '));
    {
        const Waiting quick(path("archives/a.rvx"));
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        const Waiting slow(large);
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(WorkspaceTest, WhatIsRememberedGoesAlongWithItsPreset)
{
    openAll();
    const QString file = path("archives/a.rvx");
    const QString metals = "materials[Materials]/dir[Metals]/";
    const auto favourites = [this] {
        QStringList paths;
        for (const toolkit::PresetPlace& place : memory.favourites())
            paths << place.path;
        return paths;
    };
    workspace.setFavourite({file, metals + "material[Brass]"}, true);
    EditedFile* edited = workspace.edit(file);
    ASSERT_TRUE(edited);
    workspace.setFavourite({file, metals + "material[Copper]"}, true);
    workspace.setFavourite({path("archives/below/b.rvx"), metals + "material[Brass]"}, true);
    const QStringList before = favourites();

    // Each takes the name that the other had.
    edits::rename(*edited, at(*edited, "//material[Brass]"), "Third");
    edits::rename(*edited, at(*edited, "//material[Copper]"), "Brass");
    edits::rename(*edited, at(*edited, "//material[Third]"), "Copper");
    const QStringList renamed{metals + "material[Copper]", metals + "material[Brass]",
                              metals + "material[Brass]"};
    EXPECT_TRUE(comes([&] { return favourites() == renamed; }));
    edits::rename(*edited, at(*edited, "//dir[Metals]"), "Ores");
    EXPECT_TRUE(comes(
        [&] { return favourites()[0] == "materials[Materials]/dir[Ores]/material[Copper]"; }));
    // What was deleted comes back where it was.
    edits::remove(*edited, {at(*edited, "//dir[Ores]")});
    QTest::qWait(1);
    edited->stack().undo();
    QTest::qWait(1);
    EXPECT_EQ(favourites()[0], "materials[Materials]/dir[Ores]/material[Copper]");

    workspace.closeFile(file);
    EXPECT_EQ(favourites(), before);
    edited = workspace.edit(file);
    edits::rename(*edited, at(*edited, "//dir[Metals]"), "Ores");
    EXPECT_TRUE(workspace.save(*edited));
    QTest::qWait(1);
    workspace.closeFile(file);
    EXPECT_EQ(favourites()[0], "materials[Materials]/dir[Ores]/material[Brass]");
    EXPECT_EQ(favourites()[2], before[2]);
}

} // namespace rvopen::test

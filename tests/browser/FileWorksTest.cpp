// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileWorks.h"
#include "BrowserSupport.h"

#include <rvopen/toolkit/images/EmbeddedPreview.h>

#include <QSignalSpy>

namespace rvopen::test {

using namespace browser;
using toolkit::ChangedImports;

namespace {

class FileWorksTest : public BrowserTest {
protected:
    void SetUp() override
    {
        write("a.rvx", sampleArchive());
        write("b.rvx", sampleArchive()
                           .replace("0.8 0.6 0.2", "0.5 0.5 0.5")
                           .replace("<dir name='Woods'/>",
                                    "<material name='Tin' refname='m.tin'>"
                                    "<base><material refname='m.brass'/></base></material>"));
        workspace.open({path("a.rvx"), path("b.rvx")});
        ASSERT_TRUE(
            comes([&] { return !workspace.isScanning() && workspace.files().size() == 2; }));
        file = workspace.edit(path("a.rvx"));
        ASSERT_TRUE(file);
        before = textOf(*file);
    }

    QString ended(const LongWork::Work& work, const std::function<void()>& meanwhile = {})
    {
        auto* const running = new LongWork(nullptr);
        QSignalSpy finished(running, &LongWork::finished);
        running->start(work);
        if (meanwhile)
            meanwhile();
        return comes([&] { return finished.size() == 1; }) ? finished[0][0].toString()
                                                           : QStringLiteral("nothing came");
    }

    works::Show show()
    {
        return [this](const QVector<Findings::Line>& told) { lines = told; };
    }

    std::function<void(int)> asked()
    {
        return [this](int count) { questions.append(count); };
    }

    LongWork::Work import(ChangedImports changed)
    {
        return works::importInto(workspace, file->file(), path("b.rvx"), changed, asked(), show());
    }

    QString colourOf(const char* preset)
    {
        return at(*file, preset).elementsByTagName("param").at(0).toElement().attribute("val");
    }

    static toolkit::PresetPlace place(const QString& name, const char* preset)
    {
        return {name, QString::fromUtf8(preset)};
    }

    /// It was one step, and taking it back leaves nothing of it.
    void expectOneStep(const char* text)
    {
        EXPECT_EQ(file->stack().count(), 1);
        EXPECT_EQ(file->stack().undoText(), text);
        file->stack().undo();
        EXPECT_EQ(textOf(*file), before);
        file->stack().redo();
    }

    Memory memory{path("settings.ini")};
    Workspace workspace{memory, journals()};
    EditedFile* file = nullptr;
    QString before;
    QVector<Findings::Line> lines;
    QVector<int> questions;
};

} // namespace

TEST_F(FileWorksTest, AnImportAsksAboutWhatIsThereOtherwise)
{
    EXPECT_EQ(ended(import(ChangedImports::Left)), "");
    EXPECT_EQ(questions, QVector<int>{1});
    EXPECT_FALSE(at(*file, "/materials/material[Tin]").isNull());
    EXPECT_EQ(colourOf("//material[Brass]"), "0.8 0.6 0.2");
    expectOneStep("Import");
    EXPECT_EQ(ended(import(ChangedImports::Replaced)), "1 element(s) were taken over");
    EXPECT_EQ(colourOf("//material[Brass]"), "0.5 0.5 0.5");
    // There is nothing left to be done, and no step to undo.
    const int steps = file->stack().count();
    EXPECT_EQ(ended(import(ChangedImports::Replaced)), "0 element(s) were taken over");
    EXPECT_EQ(file->stack().count(), steps);
}

TEST_F(FileWorksTest, AnEditInThePlaceOfOneThatWasUndoneIsAnEditMeanwhile)
{
    EXPECT_TRUE(edits::rename(*file, at(*file, "//material[Brass]"), "First"));
    const QString told = ended(import(ChangedImports::Replaced), [this] {
        file->stack().undo();
        EXPECT_TRUE(edits::rename(*file, at(*file, "//material[Brass]"), "Second"));
    });
    EXPECT_EQ(told, "a.rvx was edited meanwhile: nothing was done");
    EXPECT_FALSE(at(*file, "//material[Second]").isNull());
}

TEST_F(FileWorksTest, WhatWasEditedMeanwhileStays)
{
    const QString told = ended(import(ChangedImports::Replaced), [this] {
        EXPECT_TRUE(edits::rename(*file, at(*file, "//material[Brass]"), "Mine"));
    });
    EXPECT_EQ(told, "a.rvx was edited meanwhile: nothing was done");
    EXPECT_TRUE(at(*file, "/materials/material[Tin]").isNull());
    EXPECT_FALSE(at(*file, "//material[Mine]").isNull());
}

TEST_F(FileWorksTest, AMergeTakesWhatTheOtherSideChangedAndShowsConflicts)
{
    write("base.rvx", sampleArchive());
    EXPECT_EQ(
        ended(works::mergeInto(workspace, file->file(), path("b.rvx"), path("base.rvx"), show())),
        "3 change(s) were taken, 0 conflict(s) are to be looked at");
    EXPECT_EQ(colourOf("//material[Brass]"), "0.5 0.5 0.5");
    expectOneStep("Merge");
    file->stack().undo();

    EXPECT_THAT(ended(works::mergeInto(workspace, file->file(), path("b.rvx"), QString(), show()))
                    .toStdString(),
                ::testing::HasSubstr("1 conflict(s)"));
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0].file, path("a.rvx"));
    EXPECT_THAT(lines[0].path.toStdString(), ::testing::HasSubstr("material[Brass]"));
    EXPECT_THAT(lines[0].message.toStdString(), ::testing::HasSubstr("0.5 0.5 0.5"));
    EXPECT_EQ(colourOf("//material[Brass]"), "0.8 0.6 0.2");
}

TEST_F(FileWorksTest, WhatCannotBeReadIsSaidAndNothingIsEdited)
{
    write("broken.rvx", "<presets>");
    EXPECT_THAT(ended(works::importInto(workspace, file->file(), path("broken.rvx"),
                                        ChangedImports::Left, asked(), show()))
                    .toStdString(),
                ::testing::HasSubstr("broken.rvx"));
    write("other.xml", sampleDocument());
    EXPECT_THAT(
        ended(works::mergeInto(workspace, file->file(), path("other.xml"), QString(), show()))
            .toStdString(),
        ::testing::HasSubstr("all archives"));
    EXPECT_EQ(textOf(*file), before);
    EXPECT_EQ(file->stack().count(), 0);
}

TEST_F(FileWorksTest, MissingImagesAreFoundAgain)
{
    write("c.rvx", "<presets name='C'><maps name='Maps'><map name='M' refname='t.m'>"
                   "<param name='Texture' type='string' val='oak.png'/>"
                   "<param name='Other' type='string' val='x'/></map><map name='N'>"
                   "<param name='Texture' type='string' val='lost.png'/></map></maps></presets>");
    paint("woods/oak.png", qRgb(90, 60, 30));
    EditedFile* const maps = workspace.edit(path("c.rvx"));
    ASSERT_TRUE(maps);
    EXPECT_EQ(ended(works::findImages(workspace, maps->file(), path("woods"), show())),
              "1 image(s) were found, 1 are missing still");
    EXPECT_EQ(at(*maps, "//map[M]").firstChildElement().attribute("val"), "woods\\oak.png");
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0].message, "\"lost.png\" was not found");
    EXPECT_EQ(maps->stack().count(), 1);
}

TEST_F(FileWorksTest, AFileIsHandedOnWithItsImages)
{
    write("house/c.rvx", "<presets name='C'><maps name='Maps'><map name='M' refname='t.m'>"
                         "<param name='Texture' type='string' val='oak.png'/></map></maps>"
                         "</presets>");
    paint("house/oak.png", qRgb(90, 60, 30));
    EditedFile* const maps = workspace.edit(path("house/c.rvx"));
    ASSERT_TRUE(maps);
    EXPECT_FALSE(works::hasImagesElsewhere(workspace, maps->file()));
    EXPECT_TRUE(edits::rename(*maps, at(*maps, "//map[M]"), "Renamed"));
    EXPECT_EQ(ended(works::collect(workspace, maps->file(), path("parcel"),
                                   toolkit::CollectedTextures::Ours, show())),
              "parcel has the file and 1 image(s)");
    EXPECT_TRUE(bytesOf(path("parcel/c.rvx")).contains("Renamed"));
    EXPECT_EQ(bytesOf(path("parcel/oak.png")), bytesOf(path("house/oak.png")));
    EXPECT_EQ(maps->stack().count(), 1);

    write("house/d.rvx",
          bytesOf(path("house/c.rvx")).replace("oak.png", paint("far/ash.png", 1).toUtf8()));
    ASSERT_TRUE(workspace.edit(path("house/d.rvx")));
    EXPECT_TRUE(works::hasImagesElsewhere(workspace, path("house/d.rvx")));
    EXPECT_THAT(ended(works::collect(workspace, path("house/d.rvx"), path("ours"),
                                     toolkit::CollectedTextures::Ours, show()))
                    .toStdString(),
                ::testing::HasSubstr("0 image(s)"));
    EXPECT_EQ(lines.size(), 1);
    EXPECT_FALSE(QFileInfo::exists(path("ours/ash.png")));
    ended(works::collect(workspace, path("house/d.rvx"), path("all"),
                         toolkit::CollectedTextures::Everywhere, show()));
    EXPECT_TRUE(QFileInfo::exists(path("all/ash.png")));
}

TEST_F(FileWorksTest, PicturesAreEmbeddedInAllThatAreChosen)
{
    EXPECT_EQ(
        ended(works::embedPictures(
            workspace, {place(path("a.rvx"), "materials[Materials]/dir[Metals]/material[Brass]"),
                        place(path("b.rvx"), "colours[Colours]/colour[Red]")})),
        "2 picture(s) were embedded");
    const auto embedded = [](const QDomElement& preset) {
        return toolkit::EmbeddedPreview(preset.attribute("xmlImage")).size();
    };
    EXPECT_EQ(embedded(at(*file, "//material[Brass]")), QSize(256, 256));
    EXPECT_FALSE(embedded(at(*workspace.edit(path("b.rvx")), "//colour[Red]")).isEmpty());
    expectOneStep("Embed Pictures");
}

TEST_F(FileWorksTest, AValueIsGivenToAllThatCanHaveIt)
{
    const QDomElement brass = at(*file, "//material[Brass]");
    const QDomElement param = brass.elementsByTagName("param").at(0).toElement();
    const QString metals = "materials[Materials]/dir[Metals]/";
    EXPECT_EQ(ended(works::setForAll(workspace, {path("a.rvx"), metals + "material[Brass]"},
                                     toolkit::PathOf(param),
                                     {{path("a.rvx"), metals + "material[Brass]"},
                                      {path("a.rvx"), metals + "material[Copper]"},
                                      {path("b.rvx"), metals + "material[Brass]"}})),
              "The value was set in 2 preset(s), and 1 cannot have it");
    EditedFile* const other = workspace.edit(path("b.rvx"));
    EXPECT_EQ(at(*other, "//material[Brass]")
                  .elementsByTagName("param")
                  .at(0)
                  .toElement()
                  .attribute("val"),
              "0.8 0.6 0.2");
    EXPECT_EQ(other->stack().count(), 1);
    EXPECT_EQ(textOf(*file), before);
}

TEST_F(FileWorksTest, UsesAreFoundInAllFilesSavedOrNot)
{
    toolkit::ListedPreset brass;
    brass.kind = "material";
    brass.name = "Brass";
    brass.refName = "m.brass";
    EXPECT_EQ(ended(works::findUses(workspace, brass, show())), "Brass is used in 1 place(s)");
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0].file, path("b.rvx"));
    EXPECT_EQ(lines[0].path, "materials[Materials]/material[Tin]/base/material[m.brass]");
    EditedFile* const other = workspace.edit(path("b.rvx"));
    EXPECT_EQ(edits::remove(*other, {at(*other, "//material[Tin]")}), 1);
    EXPECT_EQ(ended(works::findUses(workspace, brass, show())), "Brass is used in 0 place(s)");
}

} // namespace rvopen::test

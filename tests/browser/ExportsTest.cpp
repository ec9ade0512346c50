// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Exports.h"
#include "BrowserSupport.h"

#include <QSignalSpy>

namespace rvopen::test {

using namespace browser;
using toolkit::SheetFormat;

namespace {

class ExportsTest : public BrowserTest {
protected:
    void SetUp() override
    {
        write("a.rvx", sampleArchive());
        m_wish.size = 32;
    }

    QVector<toolkit::ListedPreset> presets() const
    {
        QVector<toolkit::ListedPreset> list;
        for (const char* const preset :
             {"materials[Materials]/dir[Metals]/material[Brass]", "colours[Colours]/colour[Red]"}) {
            toolkit::ListedPreset listed;
            listed.file = path("a.rvx");
            listed.path = QLatin1String(preset);
            list.append(listed);
        }
        return list;
    }

    QString sheet(SheetFormat format, const char* place)
    {
        return ended(sheetOf(workspace, presets(), format, m_wish, path(place)));
    }

    /// What the person is told.
    static QString ended(const LongWork::Work& work, bool isStopped = false)
    {
        auto* const running = new LongWork(nullptr);
        QSignalSpy finished(running, &LongWork::finished);
        if (isStopped)
            running->stop();
        running->start(work);
        return comes([&] { return finished.size() == 1; }) ? finished[0][0].toString()
                                                           : QStringLiteral("nothing came");
    }

    Memory memory{path("settings.ini")};
    Workspace workspace{memory, journals()};
    toolkit::SheetWish m_wish;
};

} // namespace

TEST_F(ExportsTest, PicturesGetFreeNames)
{
    write("pictures/c.red.png", "somebody else's");
    EXPECT_EQ(ended(picturesOf(workspace, presets(), path("pictures"))),
              "2 picture(s) were written");
    EXPECT_EQ(bytesOf(path("pictures/c.red.png")), "somebody else's");
    EXPECT_EQ(QImage(path("pictures/c.red-2.png")).width(), 512);
    EXPECT_EQ(QImage(path("pictures/m.brass.png")).height(), 512);
    EXPECT_TRUE(ended(picturesOf(workspace, presets(), path("pictures/c.red.png/no")))
                    .contains("c.red.png/no"));
}

TEST_F(ExportsTest, WhatIsStoppedWritesNothing)
{
    EXPECT_EQ(ended(picturesOf(workspace, presets(), path("pictures")), true),
              "0 picture(s) were written");
    EXPECT_EQ(ended(sheetOf(workspace, presets(), SheetFormat::Pdf, m_wish, path("s.pdf")), true),
              "");
    EXPECT_EQ(ended(sheetOf(workspace, presets(), SheetFormat::Page, m_wish, path("page")), true),
              "");
    EXPECT_EQ(QDir(path(".")).entryList({"pictures", "s.pdf", "page"}), QStringList());
}

TEST_F(ExportsTest, SheetsHaveWhatWasChosen)
{
    EXPECT_EQ(sheet(SheetFormat::Pdf, "s.pdf"), "s.pdf has 2 picture(s)");
    EXPECT_TRUE(bytesOf(path("s.pdf")).startsWith("%PDF"));
    EXPECT_EQ(sheet(SheetFormat::Page, "page"), "page has 2 picture(s)");
    const QByteArray data = bytesOf(path("page/data.js"));
    EXPECT_TRUE(data.contains("Brass") && data.contains("Red"));
    EXPECT_FALSE(data.contains("Copper"));
    // A page is made anew, and somebody's folder is not written into.
    EXPECT_EQ(sheet(SheetFormat::Page, "page"), "page has 2 picture(s)");
    write("mine/notes.txt", "mine");
    EXPECT_TRUE(sheet(SheetFormat::Page, "mine").contains("has other files"));
    EXPECT_EQ(QDir(path("mine")).entryList(QDir::Files), QStringList("notes.txt"));
}

TEST_F(ExportsTest, ASheetShowsWhatIsInMemory)
{
    EXPECT_EQ(sheet(SheetFormat::Page, "before"), "before has 2 picture(s)");
    EditedFile* const file = workspace.edit(path("a.rvx"));
    ASSERT_TRUE(file);
    QDomElement param = at(*file, "//colour[Red]").elementsByTagName("param").at(0).toElement();
    ASSERT_FALSE(param.isNull());
    param.setAttribute("val", "0 0 1");
    EXPECT_EQ(sheet(SheetFormat::Page, "after"), "after has 2 picture(s)");
    EXPECT_NE(bytesOf(path("after/data.js")), bytesOf(path("before/data.js")));
    EXPECT_TRUE(bytesOf(path("after/data.js")).contains("#0000ff"));
}

TEST_F(ExportsTest, WhatDoesNotFitOnePictureSaysWhatDoes)
{
    QByteArray text = "<presets name='Large'><colours>";
    QVector<toolkit::ListedPreset> many;
    for (int i = 0; i < 1500; ++i) {
        const QByteArray name = "c" + QByteArray::number(i);
        text += "<colour name='" + name + "'/>";
        toolkit::ListedPreset listed;
        listed.file = path("large.rvx");
        listed.path = QString::fromLatin1("colours/colour[" + name + "]");
        many.append(listed);
    }
    write("large.rvx", text + "</colours></presets>");
    m_wish.size = 512;
    const QString told = ended(sheetOf(workspace, many, SheetFormat::Png, m_wish, path("s.png")));
    EXPECT_THAT(told.toStdString(), ::testing::MatchesRegex("That is too much for one picture: "
                                                            "take PDF, or smaller pictures, of "
                                                            "[0-9]+ pixels"));
    EXPECT_FALSE(QFileInfo::exists(path("s.png")));
}

TEST_F(ExportsTest, AFileThatCannotBeReadIsSaid)
{
    write("a.rvx", "<presets>");
    EXPECT_TRUE(sheet(SheetFormat::Pdf, "s.pdf").contains("a.rvx"));
    EXPECT_FALSE(QFileInfo::exists(path("s.pdf")));
}

} // namespace rvopen::test

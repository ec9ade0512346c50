// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../InAFolder.h"
#include "../Parts.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/Folders.h>
#include <rvopen/toolkit/sheets/PictureSheet.h>

#include <QDir>
#include <QImage>

#include <atomic>

namespace rvopen::test {

namespace {

using namespace toolkit;

std::unique_ptr<Document> archiveOf(int colours)
{
    QString text = QStringLiteral("<presets name=\"Mine\"><colours>");
    for (int i = 0; i < colours; ++i)
        text += QStringLiteral("<colour name=\"c%1\" refname=\"c%1\"><diffuse enabled=\"1\">"
                               "<param name=\"Colour\" type=\"shader\" val=\"colour\">"
                               "<plainColour enabled=\"1\"><param name=\"Colour\" "
                               "type=\"colour\" val=\"0.%2 0.5 0.2\"/></plainColour></param>"
                               "</diffuse></colour>")
                    .arg(i)
                    .arg(i * 20, 3, 10, QLatin1Char('0'));
    QDomDocument dom;
    dom.setContent(text + QStringLiteral("</colours></presets>"));
    return Document::Of(QStringLiteral("mine.rvx"), dom);
}

void addAll(PictureSheet& sheet, const Document& document)
{
    sheet.Add(document, SubjectsOf(document), Folders());
}

class PictureSheetFolder : public InAFolder {};

SheetWish small()
{
    SheetWish wish;
    wish.size = 16;
    return wish;
}

} // namespace

TEST(PictureSheet, OfWhatIsInMemoryIsTheSameEachTime)
{
    const auto document = archiveOf(5);
    PictureSheet sheet(SheetFormat::Png, small());
    addAll(sheet, *document);
    EXPECT_EQ(sheet.Count(), 5);
    EXPECT_EQ(sheet.DrawnCount(), 5);
    EXPECT_EQ(sheet.Title(), QStringLiteral("Mine"));
    const QByteArray bytes = sheet.Bytes();
    EXPECT_FALSE(QImage::fromData(bytes, "PNG").isNull());
    EXPECT_EQ(sheet.Bytes(), bytes);
    EXPECT_EQ(sheet.PageCount(), 1);
}

TEST(PictureSheet, TakesWhatIsOutOfRangeAsTheNearest)
{
    const auto document = archiveOf(2);
    const auto bytesWith = [&](int size, int columns) {
        PictureSheet sheet(SheetFormat::Png, {size, columns, false});
        addAll(sheet, *document);
        return sheet.Bytes();
    };
    EXPECT_EQ(bytesWith(0, 0), bytesWith(MinPictureSize, 1));
    EXPECT_EQ(bytesWith(MinPictureSize, 1000), bytesWith(MinPictureSize, MaxSheetColumns));
}

TEST(PictureSheet, HasPagesOnPaper)
{
    const auto document = archiveOf(40);
    PictureSheet sheet(SheetFormat::Pdf, {100, 2, false});
    addAll(sheet, *document);
    EXPECT_TRUE(sheet.Bytes().startsWith("%PDF"));
    EXPECT_GT(sheet.PageCount(), 1);
}

TEST(PictureSheet, TellsHowFarItIsAndEndsWhenItIsStopped)
{
    const auto document = archiveOf(50);
    for (const SheetFormat format : {SheetFormat::Png, SheetFormat::Pdf}) {
        PictureSheet sheet(format, small());
        addAll(sheet, *document);
        std::atomic<bool> stop{false};
        QVector<int> told;
        const auto progress = [&](int done) { told.append(done); };
        EXPECT_FALSE(sheet.Bytes(progress, &stop).isEmpty());
        EXPECT_GT(told.size(), 2);
        EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
        told.clear();
        const auto stopping = [&](int done) {
            told.append(done);
            stop = true;
        };
        EXPECT_TRUE(sheet.Bytes(stopping, &stop).isEmpty());
        EXPECT_EQ(told.size(), 1);
    }
}

TEST_F(PictureSheetFolder, WhenStoppedLeavesTheFolderAsItWas)
{
    const auto document = archiveOf(50);
    PictureSheet sheet(SheetFormat::Page, small());
    addAll(sheet, *document);
    std::atomic<bool> stop{false};
    const auto stopping = [&](int done) { stop = done > 0; };
    EXPECT_FALSE(sheet.WriteFolder(path("page"), false, stopping, &stop));
    EXPECT_FALSE(QFileInfo::exists(path("page")));
    stop = false;
    EXPECT_TRUE(sheet.WriteFolder(path("page"), false, {}, &stop));
    EXPECT_EQ(QDir(path("page/pictures")).entryList(QDir::Files).size(), 50);
    EXPECT_THROW(PictureSheet::CheckFolder(path("page"), false), Failure);
    EXPECT_NO_THROW(PictureSheet::CheckFolder(path("page"), true));
    EXPECT_TRUE(sheet.WriteFolder(path("page"), true));
}

TEST(PictureSheet, SaysWhichSizeGoesIntoOnePicture)
{
    const auto document = archiveOf(400);
    const auto sheetOf = [&](int size) {
        auto sheet = std::make_unique<PictureSheet>(SheetFormat::Png, SheetWish{size, 1, false});
        addAll(*sheet, *document);
        return sheet;
    };
    const int fitting = sheetOf(100)->FittingSize();
    EXPECT_LT(fitting, 100);
    EXPECT_THROW(sheetOf(100)->Bytes(), Failure);
    EXPECT_THROW(sheetOf(fitting + 1)->Bytes(), Failure);
    EXPECT_EQ(sheetOf(fitting)->FittingSize(), fitting);
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/drawing/PicturePlan.h>

#include "../../RecordingObserver.h"
#include "toolkit/documents/Stopping.h"
#include "toolkit/drawing/Optics.h"
#include "toolkit/drawing/Raster.h"
#include "toolkit/drawing/Scene.h"
#include "toolkit/images/ImageFiles.h"

#include <rvopen/toolkit/documents/Folders.h>

#include <QDateTime>
#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <future>

namespace rvopen::test {

namespace {

using namespace toolkit;

QDomElement elementOf(QDomDocument& document, const char* xml)
{
    document.setContent(QString::fromLatin1(xml));
    return document.documentElement();
}

const char* const s_plain = R"(<colour><diffuse enabled="1">
  <param name="Colour" type="shader" val="colour"><plainColour enabled="1">
    <param name="Colour" type="colour" val="0.8 0.1 0"/></plainColour></param></diffuse></colour>)";

const char* const s_image = R"(<material><colour><diffuse enabled="1">
  <param name="Colour" type="shader" val="colour"><map enabled="1">
    <param name="Texture" type="string" val="stripes.png"/>
    <param name="Width" type="float" val="0.5"/><param name="Height" type="float" val="0.5"/>
  </map></param></diffuse></colour></material>)";

const char* const s_backdrop = R"(<background subcat="Image">
  <param name="File Name" type="string" val="stripes.png"/></background>)";

/// A folder with an image, which "stripes.png" is found in.
class PicturePlanTest : public ::testing::TestWithParam<const char*> {
protected:
    PicturePlanTest()
    {
        wish.size = 48;
        QImage image(64, 40, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, x % 16 < 8 ? 0xff2060c0 : 0xfff0e020);
        }
        image.save(folder.filePath(QStringLiteral("stripes.png")));
        find = [this](const QString& reference) {
            ++finds;
            return folder.filePath(reference);
        };
    }

    QTemporaryDir folder;
    QDomDocument document;
    PictureWish wish;
    FindFile find;
    int finds = 0;
};

} // namespace

TEST_P(PicturePlanTest, DrawsTheSamePictureInAnotherThread)
{
    const QDomElement element = elementOf(document, GetParam());
    const QImage whole = DrawPicture(element, wish, find);
    EXPECT_NE(whole, DrawPicture(element, wish));
    finds = 0;
    const PicturePlan plan(element, wish, find);
    EXPECT_EQ(finds, 0);
    document.clear();
    const auto drawn = [&plan] {
        return std::async(std::launch::async, [&plan] { return plan.Draw(); }).get();
    };
    EXPECT_EQ(drawn(), whole);
    EXPECT_EQ(finds, 1);
    // Reading adds to what it reads.
    EXPECT_EQ(drawn(), whole);
}

INSTANTIATE_TEST_SUITE_P(Images, PicturePlanTest, ::testing::Values(s_image, s_backdrop));

TEST_F(PicturePlanTest, ReadsTheElementWhenItIsMade)
{
    QDomElement element = elementOf(document, s_plain);
    const QImage before = DrawPicture(element, wish);
    const PicturePlan plan(element, wish);
    document.setContent(QStringLiteral("<other/>"));
    EXPECT_EQ(plan.Draw(), before);
}

TEST_F(PicturePlanTest, IsNoChangeOfTheDocument)
{
    document.setContent(QStringLiteral("<snapRoot unitsScale='2'><snapshot name='a'/></snapRoot>"));
    const RecordingObserver observer(document);
    const PicturePlan plan(document.documentElement().firstChildElement(), wish);
    EXPECT_FALSE(plan.Draw().isNull());
    EXPECT_EQ(observer.lines, QStringList());
}

TEST_F(PicturePlanTest, DrawsLengthsInTheUnitOfTheDocument)
{
    const auto drawn = [&](const char* around, const char* distance) {
        const QString foreground =
            QStringLiteral("<foreground subcat='Depth Cue'>"
                           "<param name='Near' prop='D' type='float' val='%1'/></foreground>");
        document.setContent(
            QString::fromLatin1(around).arg(foreground.arg(QLatin1String(distance))));
        return PicturePlan(document.elementsByTagName("foreground").at(0).toElement(), wish).Draw();
    };
    const char* const metres = "<snapRoot unitsScale='1'>%1</snapRoot>";
    const QImage picture = drawn(metres, "2");
    EXPECT_NE(picture, drawn(metres, "20"));
    EXPECT_EQ(picture, drawn("<snapRoot unitsScale='10'>%1</snapRoot>", "20"));
    EXPECT_EQ(picture, drawn("<presets><a/><snapRoot unitsScale='10'/>%1</presets>", "20"));
    EXPECT_EQ(picture, drawn("<presets>%1</presets>", "2"));
}

TEST_F(PicturePlanTest, HasNoPictureOfWhatIsNotDrawn)
{
    const PicturePlan plan(elementOf(document, "<renderTarget/>"), wish);
    EXPECT_TRUE(plan.Draw().isNull());
}

TEST_F(PicturePlanTest, GivesNothingWhenItIsStopped)
{
    std::atomic<bool> stop{true};
    const PicturePlan stopped(elementOf(document, s_image), wish, find);
    EXPECT_TRUE(stopped.Draw(&stop).isNull());
    EXPECT_EQ(finds, 0);
    EXPECT_FALSE(stopped.Draw().isNull());
    stop = false;
    const PicturePlan late(elementOf(document, s_image), wish, [&](const QString& reference) {
        stop = true;
        return find(reference);
    });
    EXPECT_TRUE(late.Draw(&stop).isNull());
}

TEST_F(PicturePlanTest, GivesNothingOfAPictureThatIsHalfDone)
{
    wish.size = MaxPictureSize;
    std::atomic<bool> stop{false};
    const PicturePlan plan(elementOf(document, s_plain), wish);
    std::future<QImage> picture = std::async(std::launch::async, [&] { return plan.Draw(&stop); });
    picture.wait_for(std::chrono::milliseconds(50));
    stop = true;
    EXPECT_TRUE(picture.get().isNull());
}

TEST_F(PicturePlanTest, StopsAtTheNextRowOfPixels)
{
    std::atomic<bool> stop{false};
    const Stoppable stoppable(&stop);
    drawing::Raster raster(20, 10);
    int pixels = 0;
    raster.fill([&](const drawing::Point&) {
        ++pixels;
        stop = true;
        return drawing::Rgb();
    });
    EXPECT_EQ(pixels, 20);
}

TEST_F(PicturePlanTest, StopsAtTheNextRowOfAScene)
{
    std::atomic<bool> stop{true};
    const Stoppable stoppable(&stop);
    drawing::Raster raster(20, 10);
    drawing::Scene scene;
    scene.hasGround = false;
    int looks = 0;
    int toStopAfter = 0;
    scene.surroundings = [&](const drawing::Vec&) {
        stop = ++looks > toStopAfter;
        return drawing::Rgb();
    };
    scene.draw(raster);
    // It looks all around before the first row.
    const int around = looks;
    toStopAfter = around;
    looks = 0;
    stop = false;
    scene.draw(raster);
    EXPECT_EQ(looks, around + 20 * drawing::RaysPerPixel);
    looks = 0;
    stop = true;
    toStopAfter = 0;
    const drawing::Surface surface;
    scene.drawFlat(raster, surface, 1);
    EXPECT_EQ(looks, around);
}

TEST_F(PicturePlanTest, TellsWhenAnImageIsAnother)
{
    const QDomElement element = elementOf(document, s_image);
    const PicturePlan plan(element, wish, find);
    const QByteArray state = plan.ImageState();
    EXPECT_TRUE(state.startsWith("stripes.png\n"));
    EXPECT_EQ(PicturePlan(element, wish, find).ImageState(), state);
    EXPECT_EQ(PicturePlan(element, wish).ImageState(), QByteArray());
    QFile file(folder.filePath(QStringLiteral("stripes.png")));
    ASSERT_TRUE(file.open(QIODevice::Append));
    const QDateTime changed = file.fileTime(QFileDevice::FileModificationTime);
    file.write("more");
    file.flush();
    file.setFileTime(changed, QFileDevice::FileModificationTime);
    const QByteArray larger = plan.ImageState();
    EXPECT_NE(larger, state);
    file.setFileTime(changed.addSecs(1), QFileDevice::FileModificationTime);
    EXPECT_NE(plan.ImageState(), larger);
    EXPECT_EQ(PicturePlan(elementOf(document, s_plain), wish, find).ImageState(), QByteArray());
}

TEST_F(PicturePlanTest, StopsDecoding)
{
    std::atomic<bool> stop{false};
    const Stoppable stoppable(&stop);
    const QString path = folder.filePath(QStringLiteral("stripes.png"));
    EXPECT_FALSE(readImage(path).isNull());
    stop = true;
    EXPECT_TRUE(readImage(path).isNull());
    EXPECT_TRUE(ReadPicture(path, &stop).isNull());
    EXPECT_EQ(ReadPicture(path).size(), QSize(64, 40));
    const Stoppable endless(nullptr);
    EXPECT_FALSE(readImage(path).isNull());
}

TEST(PicturePlan, ShowsWhatExistsElseWhatIsDrawn)
{
    QTemporaryDir folder;
    const QString file = folder.filePath("a.xml");
    Folders folders;
    folders.snapshots = folder.path();
    PictureWish wish;
    wish.size = 32;
    QDomDocument document;
    elementOf(document, "<snapRoot><snapshots name='Views'><snapshot name='House'/></snapshots>"
                        "</snapRoot>");
    QDomElement house = document.documentElement().firstChildElement().firstChildElement();
    const QImage drawn = DrawPicture(house, wish);
    const PicturePlan without = PicturePlan::Shown(house, file, folders, wish);
    EXPECT_EQ(without.Draw(), drawn);
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(0xff00ff00);
    ASSERT_TRUE(image.save(folder.filePath("icon_House.jpg")));
    const PicturePlan shown = PicturePlan::Shown(house, file, folders, wish);
    EXPECT_EQ(shown.Draw().size(), image.size());
    EXPECT_EQ(PicturePlan::Drawn(house, file, folders, wish).Draw(), drawn);
    const QByteArray state = shown.ImageState();
    ASSERT_TRUE(QFile::remove(folder.filePath("icon_House.jpg")));
    EXPECT_NE(shown.ImageState(), state);
    EXPECT_EQ(shown.Draw(), drawn);
    // What cannot be read is as if it were not there.
    house.setAttribute("xmlImage", "none");
    EXPECT_EQ(PicturePlan::Shown(house, file, folders, wish).Draw(), drawn);
    const std::atomic<bool> stop{true};
    EXPECT_TRUE(shown.Draw(&stop).isNull());
}

} // namespace rvopen::test

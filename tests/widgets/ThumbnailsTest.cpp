// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/SnapShot.h>
#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/widgets/Thumbnails.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDomDocument>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

namespace rvopen::widgets {

namespace {

using namespace toolkit;

constexpr int s_size = 48;

QByteArray colour(const char* name, const char* value, const char* attributes = "")
{
    return QByteArray("<colour name='") + name + "' " + attributes +
           "><diffuse enabled='1'><param name='Colour' type='shader' val='colour'><plainColour "
           "enabled='1'><param name='Colour' type='colour' val='" +
           value + "'/></plainColour></param></diffuse></colour>";
}

/// The value of such a preset.
QDomElement value(const QDomElement& colour)
{
    return colour.elementsByTagName("plainColour").at(0).firstChildElement();
}

QImage plain(QRgb rgb, int width = 20, int height = 10)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(rgb);
    return image;
}

/// As documents embed pictures.
QString textOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return QString::fromLatin1(qCompress(bytes).toHex());
}

QByteArray embedded(const QImage& image)
{
    return "xmlImage='" + textOf(image).toLatin1() + "'";
}

class ThumbnailsTest : public ::testing::Test {
protected:
    ThumbnailsTest()
    {
        qputenv("RVOPEN_CATALOGUE", "off");
        connect(*thumbnails);
    }

    ~ThumbnailsTest() override
    {
        qunsetenv("RVOPEN_CATALOGUE");
    }

    void connect(Thumbnails& of)
    {
        QObject::connect(&of, &Thumbnails::ElementChanged,
                         [this](const QDomElement& element) { told << element.attribute("name"); });
        QObject::connect(&of, &Thumbnails::PresetChanged,
                         [this](const ListedPreset& preset) { told << preset.name; });
    }

    /// The archive with these presets in one section.
    QDomElement section(const QByteArray& presets)
    {
        EXPECT_TRUE(document.setContent("<presets version='3.1'><colours>" + presets +
                                        "</colours></presets>"));
        return document.documentElement().firstChildElement();
    }

    QImage ask(const QDomElement& element, Thumbnails::Source source = Thumbnails::Shown)
    {
        return thumbnails->Picture(element, file, s_size, source);
    }

    /// Until nothing waits.
    void wait()
    {
        QElapsedTimer timer;
        timer.start();
        do
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        while (thumbnails->Waiting() > 0 && timer.elapsed() < 60000);
        QCoreApplication::processEvents();
        EXPECT_EQ(thumbnails->Waiting(), 0);
    }

    /// What is there once it is made.
    QImage picture(const QDomElement& element, Thumbnails::Source source = Thumbnails::Shown)
    {
        ask(element, source);
        wait();
        return ask(element, source);
    }

    static QImage drawn(const QDomElement& element)
    {
        PictureWish wish;
        wish.size = s_size;
        return DrawPicture(element, wish);
    }

    QTemporaryDir folder;
    QString file = folder.filePath("a.rvx");
    QDomDocument document;
    QStringList told;
    std::unique_ptr<Thumbnails> thumbnails = std::make_unique<Thumbnails>();
};

} // namespace

TEST_F(ThumbnailsTest, AreMadeElsewhereAndTold)
{
    const QDomElement red = section(colour("red", "1 0 0")).firstChildElement();
    EXPECT_TRUE(ask(red).isNull());
    EXPECT_EQ(thumbnails->Waiting(), 1);
    EXPECT_TRUE(ask(red).isNull());
    EXPECT_EQ(thumbnails->Waiting(), 1);
    EXPECT_EQ(told, QStringList());
    wait();
    EXPECT_EQ(told, QStringList{"red"});
    EXPECT_EQ(ask(red), drawn(red));
    EXPECT_EQ(thumbnails->Waiting(), 0);
    EXPECT_TRUE(thumbnails->Picture(red, file, 32).isNull());
    wait();
    EXPECT_EQ(thumbnails->Picture(red, file, 32).width(), 32);
    EXPECT_EQ(ask(red).width(), s_size);
    EXPECT_TRUE(ask(QDomElement()).isNull());
    EXPECT_EQ(thumbnails->Waiting(), 0);
}

TEST_F(ThumbnailsTest, AreMadeOnceForEqualElements)
{
    const QDomElement colours = section(colour("a", "1 0 0") + colour("a", "1 0 0"));
    const QDomElement first = colours.firstChildElement();
    const QDomElement second = first.nextSiblingElement();
    ask(first);
    ask(second);
    EXPECT_EQ(thumbnails->Waiting(), 1);
    wait();
    EXPECT_EQ(told, (QStringList{"a", "a"}));
    EXPECT_EQ(ask(first).cacheKey(), ask(second).cacheKey());
}

TEST_F(ThumbnailsTest, AreAnotherAfterAnEdit)
{
    const QDomElement red = section(colour("red", "1 0 0")).firstChildElement();
    const QImage before = picture(red);
    told.clear();
    const QDomElement param = value(red);
    ParamValues values;
    values.Set(param, "0 0 1");
    EXPECT_EQ(told, QStringList()) << "in the middle of the edit";
    QCoreApplication::processEvents();
    EXPECT_EQ(told, QStringList{"red"});
    // Meanwhile there is the one of before.
    EXPECT_EQ(ask(red), before);
    EXPECT_EQ(thumbnails->Waiting(), 1);
    wait();
    EXPECT_EQ(ask(red), drawn(red));
    EXPECT_NE(ask(red), before);
    values.Set(param, "1 0 0");
    EXPECT_EQ(ask(red).cacheKey(), before.cacheKey());
    wait();
}

TEST_F(ThumbnailsTest, OfADragAreTheFirstAndTheLast)
{
    const QDomElement red = section(colour("red", "1 0 0")).firstChildElement();
    picture(red);
    ParamValues values;
    for (int i = 1; i <= 40; ++i) {
        values.Set(value(red), QString("%1 0 0").arg(i / 100.0));
        ask(red);
        EXPECT_LE(thumbnails->Waiting(), 1);
    }
    wait();
    EXPECT_EQ(ask(red), drawn(red));
    EXPECT_EQ(thumbnails->Waiting(), 0);
}

TEST_F(ThumbnailsTest, AreThoseThatTheDocumentEmbedsUntilItIsEdited)
{
    const QDomElement red = section(colour("red", "1 0 0", embedded(plain(0xff00ff00)).constData()))
                                .firstChildElement();
    EXPECT_EQ(picture(red).convertToFormat(QImage::Format_RGB32), plain(0xff00ff00));
    EXPECT_EQ(picture(red, Thumbnails::Drawn), drawn(red));
    // Another name is no other picture.
    RVOpenNode node;
    node.SetDomNode(red);
    node.SetName("scarlet");
    EXPECT_EQ(picture(red).size(), QSize(20, 10));
    ParamValues().Set(value(red), "0 0 1");
    EXPECT_EQ(picture(red), drawn(red));
    node.SetDomNode(QDomNode());
}

TEST_F(ThumbnailsTest, AreDrawnWhereWhatIsEmbeddedCannotBeRead)
{
    const QDomElement red =
        section(colour("red", "1 0 0", "xmlImage='no picture'")).firstChildElement();
    EXPECT_EQ(picture(red), drawn(red));
}

TEST_F(ThumbnailsTest, AreMadeSmallerAndNeverLarger)
{
    const QDomElement red =
        section(colour("red", "1 0 0", embedded(plain(0xff00ff00, 200, 100)).constData()))
            .firstChildElement();
    EXPECT_EQ(picture(red).size(), QSize(s_size, s_size / 2));
}

TEST_F(ThumbnailsTest, AreThoseOfTheHostsFilesAndLookedAtAgain)
{
    Folders folders;
    folders.snapshots = folder.path();
    thumbnails->SetFolders(folders);
    const QString path = folder.filePath("icon_House.jpg");
    ASSERT_TRUE(plain(0xff0000ff).save(path, nullptr, 100));
    ASSERT_TRUE(document.setContent(
        QByteArray("<snapRoot><snapshots name='Views'><snapshot name='House'/></snapshots>"
                   "</snapRoot>")));
    const QDomElement house = document.documentElement().firstChildElement().firstChildElement();
    const QImage first = picture(house);
    ASSERT_EQ(first.size(), QSize(20, 10));
    EXPECT_GT(qBlue(first.pixel(0, 0)), 200);
    ASSERT_TRUE(plain(0xffff0000, 22, 10).save(path, nullptr, 100));
    EXPECT_EQ(ask(house).cacheKey(), first.cacheKey());
    EXPECT_EQ(thumbnails->Waiting(), 0);
    thumbnails->Refresh();
    EXPECT_EQ(ask(house).cacheKey(), first.cacheKey());
    EXPECT_EQ(thumbnails->Waiting(), 1);
    wait();
    EXPECT_EQ(ask(house).size(), QSize(22, 10));
    EXPECT_GT(qRed(ask(house).pixel(0, 0)), 200);
    // What has not changed is not made again.
    const QImage second = ask(house);
    thumbnails->Refresh();
    EXPECT_EQ(picture(house).cacheKey(), second.cacheKey());
}

TEST_F(ThumbnailsTest, AreNullOnceAndForGoodWhereThereAreNone)
{
    ASSERT_TRUE(document.setContent(QByteArray("<presets><others><other name='o'/></others>"
                                               "</presets>")));
    const QDomElement other = document.documentElement().firstChildElement().firstChildElement();
    EXPECT_TRUE(picture(other).isNull());
    EXPECT_EQ(thumbnails->Waiting(), 0);
    EXPECT_EQ(told, QStringList{"o"});
}

TEST_F(ThumbnailsTest, AreOfPresetsOfACatalogue)
{
    QFile archive(file);
    ASSERT_TRUE(archive.open(QIODevice::WriteOnly));
    archive.write("<presets version='3.1'><colours>" + colour("red", "1 0 0") +
                  colour("green", "0 1 0") + "</colours></presets>");
    archive.close();
    const auto catalogue = std::make_shared<const Catalogue>(QStringList{file});
    const ListedPreset green = catalogue->At(1);
    EXPECT_TRUE(thumbnails->Picture(green, s_size).isNull());
    EXPECT_EQ(thumbnails->Waiting(), 0) << "without catalogue";
    thumbnails->SetCatalogue(catalogue);
    EXPECT_TRUE(thumbnails->Picture(green, s_size).isNull());
    wait();
    EXPECT_EQ(told, QStringList{"green"});
    const OpenPreset opened = catalogue->Open(green);
    EXPECT_EQ(thumbnails->Picture(green, s_size), drawn(opened.element));
    // One that is not there any more.
    ListedPreset gone = green;
    gone.path = "colours/colour[gone]";
    gone.name = "gone";
    EXPECT_TRUE(thumbnails->Picture(gone, s_size).isNull());
    wait();
    EXPECT_TRUE(thumbnails->Picture(gone, s_size).isNull());
    EXPECT_EQ(told.last(), "gone");
    EXPECT_EQ(thumbnails->Waiting(), 0);
}

TEST_F(ThumbnailsTest, NeverKeepTheWindowWaiting)
{
    const QDomElement colours = section(
        "<material name='slow'><colour><diffuse enabled='1'><param name='Colour' type='shader' "
        "val='colour'><plainColour enabled='1'><param name='Colour' type='colour' val='1 0 0'/>"
        "</plainColour></param></diffuse></colour></material>");
    thumbnails->Picture(colours.firstChildElement(), file, MaxPictureSize, Thumbnails::Drawn);
    // Events come and go while one is made, which nobody has to wait for at the end either.
    int turns = 0;
    while (turns < 100 && thumbnails->Waiting() > 0) {
        QCoreApplication::processEvents();
        ++turns;
    }
    EXPECT_EQ(turns, 100);
    EXPECT_EQ(thumbnails->Waiting(), 1);
    thumbnails.reset();
    EXPECT_EQ(told, QStringList());
}

TEST_F(ThumbnailsTest, OfWhatWasAskedForLastComeFirst)
{
    // Pictures that take long keep all threads, so that what is asked for meanwhile waits.
    const int threads = std::max(QThread::idealThreadCount() - 1, 1);
    QByteArray presets;
    for (int i = 0; i < threads; ++i)
        presets += colour("slow", (QByteArray::number(i) + " 0 0").constData());
    for (int i = 0; i < 700; ++i)
        presets += colour(QByteArray::number(i).constData(),
                          (QByteArray::number(i / 700.0) + " 0 0").constData());
    const QDomElement colours = section(presets);
    std::vector<QDomElement> slow;
    std::vector<QDomElement> quick;
    for (QDomElement each = colours.firstChildElement(); !each.isNull();
         each = each.nextSiblingElement())
        (each.attribute("name") == "slow" ? slow : quick).push_back(each);
    for (const QDomElement& each : slow)
        thumbnails->Picture(each, file, MaxPictureSize);
    QThread::msleep(300);
    for (const QDomElement& each : quick)
        thumbnails->Picture(each, file, MinPictureSize);
    // What waits too long does so no more.
    EXPECT_LT(thumbnails->Waiting(), 600);
    EXPECT_GT(thumbnails->Waiting(), 400);
    // What is asked for again is the next.
    thumbnails->Picture(quick[400], file, MinPictureSize);
    // The slow ones are stopped, since there is another picture now.
    for (const QDomElement& each : slow) {
        RVOpenNode node;
        node.SetDomNode(each);
        node.SetAttributeString("xmlImage", textOf(plain(0xff00ff00)));
        node.SetDomNode(QDomNode());
        thumbnails->Picture(each, file, MaxPictureSize);
    }
    wait();
    told.removeAll("slow");
    // A few may have been made before all had been asked for.
    const int few = 20;
    EXPECT_LT(told.indexOf("400"), few);
    EXPECT_GE(told.indexOf("400"), 0);
    EXPECT_LT(told.indexOf("699"), few);
    int early = 0;
    for (int i = 0; i < 150; ++i)
        early += told.contains(QString::number(i)) ? 1 : 0;
    EXPECT_LT(early, few);
    EXPECT_GT(told.size(), 400);
    // The view shows it, and so asks.
    EXPECT_FALSE(picture(quick[0]).isNull());
}

TEST_F(ThumbnailsTest, KeepNoMoreThanTheirLimit)
{
    QByteArray presets;
    for (int i = 0; i < 8; ++i)
        presets += colour("any", "1 0 0", embedded(plain(QRgb(i), 256, 256)).constData());
    thumbnails->SetCacheLimit(0);
    const QDomElement colours = section(presets);
    for (QDomElement each = colours.firstChildElement(); !each.isNull();
         each = each.nextSiblingElement()) {
        thumbnails->Picture(each, file, 256);
        wait();
    }
    // Of 256 KiB each, in the 1 MiB that there is at least.
    EXPECT_FALSE(thumbnails->Picture(colours.lastChildElement(), file, 256).isNull());
    EXPECT_TRUE(thumbnails->Picture(colours.firstChildElement(), file, 256).isNull());
    EXPECT_EQ(thumbnails->Waiting(), 1);
}

TEST_F(ThumbnailsTest, KeepNoMoreThanTheirLimitOfLargeOnesEither)
{
    // Of 4 MiB each, of which two fit.
    thumbnails->SetCacheLimit(9 * 1024 * 1024);
    QByteArray presets;
    for (int i = 0; i < 4; ++i)
        presets += colour("any", "1 0 0", embedded(plain(QRgb(i), 1024, 1024)).constData());
    std::vector<QDomElement> all;
    for (QDomElement each = section(presets).firstChildElement(); !each.isNull();
         each = each.nextSiblingElement()) {
        all.push_back(each);
        thumbnails->Picture(each, file, 1024);
        wait();
    }
    const auto isKept = [this](const QDomElement& each) {
        return !thumbnails->Picture(each, file, 1024).isNull();
    };
    EXPECT_TRUE(isKept(all[3]));
    EXPECT_TRUE(isKept(all[2]));
    EXPECT_FALSE(isKept(all[1]));
    EXPECT_FALSE(isKept(all[0]));
    wait();
    // One that alone is more is kept all the same, as long as it is the last.
    thumbnails->SetCacheLimit(0);
    EXPECT_FALSE(isKept(all[0]));
    wait();
    EXPECT_TRUE(isKept(all[0]));
    EXPECT_EQ(thumbnails->Waiting(), 0);
}

TEST_F(ThumbnailsTest, AreOfTheValuesHoweverManyOthersWereSeenSinceTheEdit)
{
    QByteArray others;
    for (int i = 0; i < 5000; ++i)
        others += "<other name='" + QByteArray::number(i) + "'/>";
    const QByteArray green = embedded(plain(0xff00ff00));
    const QDomElement colours = section(colour("seen", "1 0 0", green.constData()) +
                                        colour("unseen", "1 0 0", green.constData()));
    const QDomElement seen = colours.firstChildElement();
    const QDomElement unseen = colours.lastChildElement();
    QDomDocument many;
    ASSERT_TRUE(many.setContent("<presets><others>" + others + "</others></presets>"));
    picture(seen);
    ASSERT_EQ(picture(unseen).size(), QSize(20, 10));
    ParamValues().Set(value(seen), "0 0 1");
    ParamValues().Set(value(unseen), "0 0 1");
    QCoreApplication::processEvents();
    ASSERT_EQ(picture(seen), drawn(seen));
    const QDomElement first = many.documentElement().firstChildElement().firstChildElement();
    for (QDomElement each = first; !each.isNull(); each = each.nextSiblingElement())
        ask(each);
    wait();
    EXPECT_EQ(picture(seen), drawn(seen));
    EXPECT_EQ(picture(unseen), drawn(unseen));
}

TEST_F(ThumbnailsTest, AreInTheUnitOfTheDocument)
{
    const auto foreground = [this](const char* around, const char* distance) {
        const QString element =
            QStringLiteral("<foreground subcat='Depth Cue' name='f'>"
                           "<param name='Near' prop='D' type='float' val='%1'/></foreground>");
        EXPECT_TRUE(document.setContent(
            QString::fromLatin1(around).arg(element.arg(QLatin1String(distance)))));
        file += QLatin1Char('x');
        const QDomElement found = document.elementsByTagName("foreground").at(0).toElement();
        const QImage image = picture(found);
        EXPECT_EQ(image, drawn(found)) << around;
        return image;
    };
    const char* const inner = "<presets><foregrounds>%1</foregrounds><a><snapRoot "
                              "unitsScale='10'/><snapRoot unitsScale='5'/></a></presets>";
    const QImage metres = foreground("<snapRoot unitsScale='1'>%1</snapRoot>", "2");
    EXPECT_EQ(metres, foreground("<snapRoot unitsScale='10'>%1</snapRoot>", "20"));
    EXPECT_EQ(metres, foreground(inner, "20"));
    EXPECT_NE(metres, foreground(inner, "2"));
    EXPECT_EQ(metres, foreground("<presets><foregrounds>%1</foregrounds></presets>", "2"));
    // The unit changes while the document is looked at.
    foreground(inner, "20");
    QDomElement unit = document.elementsByTagName("snapRoot").at(0).toElement();
    RVOpenNode node;
    node.SetDomNode(unit);
    node.SetAttributeString("unitsScale", "1");
    node.SetDomNode(QDomNode());
    const QDomElement edited = document.elementsByTagName("foreground").at(0).toElement();
    thumbnails->Refresh();
    ParamValues().Set(edited.firstChildElement(), "3");
    EXPECT_EQ(picture(edited), drawn(edited));
}

TEST_F(ThumbnailsTest, LetADocumentGoThatIsReset)
{
    RVOpenManager manager;
    ASSERT_NE(manager.GetCurrentSnapShot(), nullptr);
    QDomElement element = manager.GetCurrentSnapShot()->GetDomNode().toElement();
    picture(element);
    told.clear();
    manager.GetCurrentSnapShot()->SetName("told");
    QCoreApplication::processEvents();
    EXPECT_EQ(told, QStringList{"told"});
    manager.GetCurrentSnapShot()->SetName("not told");
    manager.ClearSnapShotDoc();
    QCoreApplication::processEvents();
    EXPECT_EQ(told, QStringList{"told"});
}

} // namespace rvopen::widgets

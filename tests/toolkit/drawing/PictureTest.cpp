// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/drawing/Picture.h>

#include "../InAFolder.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/toolkit/documents/Folders.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>
#include <rvopen/toolkit/images/PictureLocations.h>

#include <QBuffer>
#include <QDir>
#include <QFileInfo>

namespace rvopen::test {

namespace {

using namespace toolkit;

QDomDocument colour()
{
    return parsed("<colour><diffuse enabled='1'>"
                  "<param name='Colour' type='shader' val='colour'><plainColour enabled='1'>"
                  "<param name='Colour' type='colour' val='1 0 0'/>"
                  "</plainColour></param></diffuse></colour>");
}

/// The text of an "xmlImage" with a picture of one colour.
QString embedded(QRgb colour)
{
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, "PNG"));
    return QString::fromLatin1(qCompress(bytes).toHex());
}

const char* const s_archive =
    "<presets type='UserArchives'><colours><colour name='a'/></colours></presets>";

class PresetPicture : public InAFolder {};

} // namespace

TEST(Picture, IsDrawnOfTheValuesInTheSizeThatIsWished)
{
    const QDomDocument document = colour();
    const QDomElement element = document.documentElement();
    ASSERT_TRUE(IsDrawable(element));
    PictureWish wish;
    wish.size = 32;
    wish.isFlat = true;
    const QImage picture = DrawPicture(element, wish);
    EXPECT_EQ(picture.size(), QSize(32, 32));
    const QColor middle = picture.pixelColor(16, 16);
    EXPECT_GT(middle.red(), middle.green() + 50);
    EXPECT_EQ(DrawPicture(element, wish), picture);
}

TEST(Picture, HasASizeThatIsPossible)
{
    const QDomDocument document = colour();
    PictureWish wish;
    wish.size = -5;
    EXPECT_EQ(DrawPicture(document.documentElement(), wish).width(), MinPictureSize);
}

TEST(Picture, IsNullForWhatHasNone)
{
    const QDomDocument document = parsed("<directory/>");
    EXPECT_FALSE(IsDrawable(document.documentElement()));
    EXPECT_TRUE(DrawPicture(document.documentElement()).isNull());
}

TEST_F(PresetPicture, ThatIsEmbeddedIsTheOneThatThereIs)
{
    const auto archive = read(s_archive);
    ASSERT_TRUE(archive);
    QDomElement element = archive->Root().firstChildElement().firstChildElement();
    EXPECT_TRUE(ExistingPicture(element, *archive, Folders()).isNull());
    element.setAttribute(QStringLiteral("xmlImage"), embedded(qRgb(255, 0, 0)));
    EXPECT_TRUE(HasEmbeddedPreview(element));
    const QImage picture = ExistingPicture(element, *archive, Folders());
    EXPECT_EQ(picture.size(), QSize(4, 2));
    EXPECT_EQ(picture.pixelColor(1, 1), QColor(255, 0, 0));
    EXPECT_TRUE(EmbeddedPreview(QStringLiteral("00")).isNull());
}

TEST_F(PresetPicture, InItsFileIsFoundWhereNoneIsEmbedded)
{
    const auto archive = read(s_archive);
    ASSERT_TRUE(archive);
    QDomElement element = archive->Root().firstChildElement().firstChildElement();
    Folders folders;
    folders.custom = path(".");
    GetDirectoryHandler()->SetCustomArchivesFolder(folders.custom);
    const QString file = LocatePicture(element, *archive, folders).file;
    QImage blue(2, 3, QImage::Format_RGB32);
    blue.fill(QColor(0, 0, 255));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    ASSERT_TRUE(blue.save(file, "PNG"));
    EXPECT_EQ(ExistingPicture(element, *archive, folders).size(), QSize(2, 3));
    element.setAttribute(QStringLiteral("xmlImage"), embedded(qRgb(255, 0, 0)));
    EXPECT_EQ(ExistingPicture(element, *archive, folders).size(), QSize(4, 2));
    GetDirectoryHandler()->SetCustomArchivesFolder(QString());
}

TEST_F(PresetPicture, OfAUsersPresetHasNoPlaceWithoutTheFolderOfHisArchives)
{
    const auto archive = read(s_archive);
    ASSERT_TRUE(archive);
    const QDomElement element = archive->Root().firstChildElement().firstChildElement();
    const PictureLocation nowhere = LocatePicture(element, *archive, Folders());
    EXPECT_EQ(nowhere.lack, PictureLack::CustomFolder);
    EXPECT_TRUE(nowhere.file.isEmpty());
    EXPECT_FALSE(FindsPicture(element, QString()));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ManagerSupport.h"

#include <rvopen/XMLUtils.h>

#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <QtEndian>

#include <gtest/gtest.h>

/// What the text of a document cannot make the library do: reach files outside of the host's
/// folders, or take memory out of all proportion.
namespace rvopen::test {
namespace {

/// An archive reference that leads out of the folder of its type.
class StrayReferenceTest : public ::testing::TestWithParam<const char*> {
protected:
    StrayReferenceTest()
        : m_stray(m_folders.root() + "/stray.rvx")
    {
        writeFile(m_stray, "<presets><dir/></presets>");
        m_folders.closeAtEnd(reference()->GetArchiveFilename());
    }

    std::unique_ptr<RVOpenNode> reference()
    {
        return create(parse(GetParam()).documentElement());
    }

    ArchiveFolders m_folders;
    QString m_stray;
};

TEST_P(StrayReferenceTest, HasNoChildren)
{
    EXPECT_EQ(reference()->GetChild(1, 1), nullptr);
}

TEST_P(StrayReferenceTest, LeavesTheFileWhenItIsDeleted)
{
    QDomDocument document = parse(QString("<presets>%1</presets>").arg(GetParam()));
    const auto root = bind(document.documentElement());
    RVOpenNode* const child = root->GetChild(1, 1);
    // The host itself may open what it likes.
    GetDirectoryHandler()->LoadArchive(child->GetArchiveFilename());

    root->DeleteNode(child);

    EXPECT_EQ(readFile(m_stray), QByteArray("<presets><dir/></presets>"));
    EXPECT_FALSE(document.documentElement().hasChildNodes());
}

INSTANTIATE_TEST_SUITE_P(
    References, StrayReferenceTest,
    ::testing::Values(R"(<dir archiveType="Custom" archiveFilename="../stray"/>)",
                      R"(<dir archiveType="Custom" archiveFilename="..\stray"/>)",
                      R"(<dir archiveType="Custom" path=".." archiveFilename="stray"/>)",
                      R"(<dir archiveType="Custom" path="sub/../.." archiveFilename="stray"/>)",
                      R"(<dir archiveType="Custom" path="sub\..\.." archiveFilename="stray"/>)",
                      R"(<dir archiveType="Nowhere" archiveFilename="stray"/>)"));

TEST(ArchiveReference, NamesItsFileAsTheDocumentSaysEvenOutsideOfItsFolder)
{
    const ArchiveFolders folders;
    const auto node =
        create(parse(R"(<dir archiveType="Custom" path=".." archiveFilename="stray"/>)")
                   .documentElement());

    EXPECT_EQ(node->GetArchiveFilename(), folders.custom() + "/../stray.rvx");
}

/// Previews whose names lead to a picture outside of the folders.
class StrayPreviewTest : public ::testing::Test {
protected:
    StrayPreviewTest()
    {
        QDir(m_folders.snapshots()).mkpath("icon_");
        QDir(m_folders.root()).mkpath("archive/sethumbs");
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(Qt::white);
        EXPECT_TRUE(image.save(m_folders.root() + "/stray.jpg"));
    }

    bool hasPreview(const QString& xml)
    {
        QDomDocument document = parse(xml);
        const auto root = create(document.documentElement());
        RVOpenNode* const child = root->GetChild(1, 1);
        return !XMLUtils()
                    .QPixmapFromRVOpenNode(child ? child : root.get(),
                                           m_folders.root() + "/archive")
                    .isNull();
    }

    ArchiveFolders m_folders;
};

TEST_F(StrayPreviewTest, OfAMemberIsNotLoaded)
{
    EXPECT_FALSE(hasPreview(R"(<snapshots name="x"><dir name="/../../../stray"/></snapshots>)"));
}

TEST_F(StrayPreviewTest, OfASnapShotIsNotLoaded)
{
    EXPECT_FALSE(hasPreview(R"(<snapshots><snapshot name="\..\..\stray"/></snapshots>)"));
}

TEST_F(StrayPreviewTest, OfAPresetIsNotLoaded)
{
    EXPECT_FALSE(hasPreview(R"(<material cat=".." path=".." name="stray"/>)"));
    EXPECT_FALSE(hasPreview(R"(<material name="..\..\stray"/>)"));
}

TEST_F(StrayPreviewTest, MakesNoFolderOutsideOfTheSnapShotsFolder)
{
    hasPreview(R"(<snapshots name="../made"><dir name="x"/></snapshots>)");
    hasPreview(R"(<snapshots name="..\made"><dir name="x"/></snapshots>)");

    EXPECT_FALSE(QDir(m_folders.root() + "/made").exists());
}

/// Imports whose snapshots have names that lead out of the folders.
class StrayThumbnailTest : public ::testing::TestWithParam<const char*> {};

TEST_P(StrayThumbnailTest, IsNotCopied)
{
    ArchiveFolders folders;
    QDir(folders.root()).mkpath("documents/icon_");
    QDir(folders.snapshots()).mkpath("icon_");
    writeFile(folders.root() + "/stray.jpg", "stray");
    const QString path = folders.root() + "/documents/import.xml";
    writeFile(path, QByteArray(R"(<snapRoot><snapshots name="Model SnapShots"><snapshot name=")") +
                        GetParam() + R"("/></snapshots></snapRoot>)");
    RVOpenManager manager;
    manager.ImportSnapShotDoc(path, false, true);

    EXPECT_EQ(namesIn(manager.GetSnapShots()), GetParam());
    EXPECT_TRUE(QDir(folders.snapshots()).entryList(QDir::Files).isEmpty());
    EXPECT_EQ(QDir(folders.root()).entryList(QDir::Files), QStringList("stray.jpg"));
}

INSTANTIATE_TEST_SUITE_P(Names, StrayThumbnailTest,
                         ::testing::Values("/../../stray", "\\..\\..\\stray"));

/// The attribute "xmlImage" of a node.
QString embedded(const QByteArray& file)
{
    return QString::fromLatin1(qCompress(file).toHex());
}

QByteArray pngOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, "PNG"));
    return bytes;
}

QPixmap preview(const QString& text)
{
    QDomDocument document = parse("<material/>");
    document.documentElement().setAttribute("xmlImage", text);
    return XMLUtils().QPixmapFromRVOpenNode(create(document.documentElement()).get(), QString());
}

QImage blackImage(int width, int height)
{
    QImage image(width, height, QImage::Format_Mono);
    image.fill(0);
    return image;
}

TEST(EmbeddedImage, IsDecodedUpToTheLargestSide)
{
    EXPECT_EQ(preview(embedded(pngOf(blackImage(8192, 1)))).size(), QSize(8192, 1));
    EXPECT_TRUE(preview(embedded(pngOf(blackImage(8193, 1)))).isNull());
    EXPECT_TRUE(preview(embedded(pngOf(blackImage(1, 8193)))).isNull());
}

TEST(EmbeddedImage, IsDecodedUpToTheMostPixels)
{
    EXPECT_FALSE(preview(embedded(pngOf(blackImage(4096, 4096)))).isNull());
    EXPECT_TRUE(preview(embedded(pngOf(blackImage(4096, 4097)))).isNull());
}

TEST(EmbeddedImage, IsNullWhenItAnnouncesTooMuch)
{
    QByteArray data = qCompress(pngOf(blackImage(2, 2)));
    qToBigEndian(quint32(64 * 1024 * 1024 + 1), data.data());

    EXPECT_TRUE(preview(QString::fromLatin1(data.toHex())).isNull());
}

TEST(EmbeddedImage, IsDecodedWhateverLengthWithinBoundsItAnnounces)
{
    for (const quint32 announced : {0u, 1u, 4096u}) {
        QByteArray data = qCompress(pngOf(blackImage(2, 2)));
        qToBigEndian(announced, data.data());

        EXPECT_FALSE(preview(QString::fromLatin1(data.toHex())).isNull()) << announced;
    }
}

TEST(EmbeddedImage, IsNullWhenItGrowsBeyondWhatItAnnounces)
{
    // A picture followed by more than fits: it would decode if it were uncompressed whole.
    QByteArray data = qCompress(pngOf(blackImage(2, 2)) + QByteArray(64 * 1024 * 1024, '\0'));
    qToBigEndian(quint32(100), data.data());

    EXPECT_TRUE(preview(QString::fromLatin1(data.toHex())).isNull());
}

TEST(EmbeddedImage, IsNullWhenItIsCutOff)
{
    const QString whole = embedded(pngOf(blackImage(200, 200)));

    for (int length = 0; length < whole.size(); length += 2)
        EXPECT_TRUE(preview(whole.left(length)).isNull()) << length;
}

} // namespace
} // namespace rvopen::test

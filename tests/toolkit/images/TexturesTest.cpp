// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../InAFolder.h"
#include "toolkit/documents/FileTransaction.h"
#include "toolkit/edit/Selection.h"
#include "toolkit/images/FileIndex.h"
#include "toolkit/images/ReferencedTextures.h"
#include "toolkit/images/TextureCollection.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/Folders.h>

namespace rvopen::test {

namespace {

using namespace toolkit;
using Objection = TextureCollection::Objection;

/// A document beside images, and folders of others.
class DocumentTextures : public InAFolder {
protected:
    /// With one texture for each reference.
    std::unique_ptr<Document> documentWith(const QStringList& references) const
    {
        QString text = QStringLiteral("<snapRoot>");
        for (const QString& reference : references)
            text += QStringLiteral("<map><param name='Texture' type='string' val='%1'/></map>")
                        .arg(reference);
        ReadError error;
        return Document::Read(write("house/a.xml", (text + QStringLiteral("</snapRoot>")).toUtf8()),
                              error);
    }
};

} // namespace

TEST_F(DocumentTextures, AreListedOnceWithAllThatRefersToThem)
{
    const QString file = paint("house/b.png", qRgb(1, 2, 3));
    const auto document = documentWith({QStringLiteral("b.png"), QStringLiteral("absent.png"),
                                        QStringLiteral("b.png"), QString()});
    ASSERT_TRUE(document);
    const QVector<ReferencedTexture> textures = texturesOf(*document);
    ASSERT_EQ(textures.size(), 2);
    EXPECT_EQ(textures[0].file, file);
    EXPECT_EQ(joinedBy(" ", textures[0].paths), "map:Texture map#3:Texture");
    EXPECT_EQ(textures[1].reference, QStringLiteral("absent.png"));
    EXPECT_TRUE(textures[1].file.isEmpty());
    textures[0].refer(QStringLiteral("c.png"));
    for (const QDomElement& param : textures[0].params)
        EXPECT_EQ(param.attribute(QStringLiteral("val")), QStringLiteral("c.png"));
}

TEST_F(DocumentTextures, AreFoundAgainByNameAndByTheFoldersThatAgree)
{
    paint("x/oak/B.png", qRgb(1, 0, 0));
    paint("x/ash/b.png", qRgb(2, 0, 0));
    paint("x/copy/c.png", qRgb(3, 0, 0));
    paint("x/other/c.png", qRgb(3, 0, 0));
    FileIndex index({path("x")});
    EXPECT_EQ(index.find(QStringLiteral("D:\\Woods\\OAK\\b.PNG")),
              QStringList(path("x/oak/B.png")));
    EXPECT_EQ(index.find(QStringLiteral("b.png")).size(), 2);
    EXPECT_EQ(index.find(QStringLiteral("c.png")), QStringList(path("x/copy/c.png")));
    EXPECT_TRUE(index.find(QStringLiteral("d.png")).isEmpty());
    EXPECT_THROW(FileIndex({path("nowhere")}), Failure);
}

TEST_F(DocumentTextures, AreHandedOnUnlessTheyAreNoImagesOrLieOutside)
{
    paint("house/b.png", qRgb(1, 2, 3));
    write("house/text.png", "text");
    const QString outside = paint("elsewhere/c.png", qRgb(4, 5, 6));
    const auto document = documentWith({QStringLiteral("b.png"), QStringLiteral("absent.png"),
                                        QStringLiteral("text.png"), outside});
    ASSERT_TRUE(document);
    const QVector<ReferencedTexture> textures = texturesOf(*document);
    ASSERT_EQ(textures.size(), 4);
    const CollectedTextures ours = CollectedTextures::Ours;
    const CollectedTextures everywhere = CollectedTextures::Everywhere;
    const auto objection = [&](int i, const Folders& folders, CollectedTextures which) {
        return TextureCollection::objectionTo(textures[i], *document, folders, which);
    };
    EXPECT_EQ(objection(0, Folders(), ours), Objection::None);
    EXPECT_EQ(objection(1, Folders(), everywhere), Objection::NotThere);
    EXPECT_EQ(objection(2, Folders(), everywhere), Objection::NoImage);
    EXPECT_EQ(objection(3, Folders(), ours), Objection::Outside);
    EXPECT_EQ(objection(3, Folders(), everywhere), Objection::None);
    Folders folders;
    folders.install = path("elsewhere");
    EXPECT_EQ(objection(3, folders, ours), Objection::None);
}

TEST_F(DocumentTextures, AreCollectedUnderNamesOfTheirOwnOrNotAtAll)
{
    const QString first = paint("house/b.png", qRgb(1, 2, 3));
    const QString other = paint("elsewhere/B.png", qRgb(4, 5, 6));
    const QString same = paint("copies/b.png", qRgb(1, 2, 3));
    const auto document = documentWith({});
    ASSERT_TRUE(document);
    {
        TextureCollection dropped(path("parcel"), document->Path());
        EXPECT_EQ(dropped.add(first), QStringLiteral("b.png"));
        EXPECT_TRUE(QFile::exists(path("parcel/b.png")));
    }
    EXPECT_FALSE(QFile::exists(path("parcel")));
    TextureCollection collection(path("parcel"), document->Path());
    EXPECT_EQ(collection.add(first), QStringLiteral("b.png"));
    EXPECT_EQ(collection.add(other), QStringLiteral("B (2).png"));
    EXPECT_EQ(collection.add(same), QStringLiteral("b.png"));
    collection.write(*document);
    collection.keep();
    EXPECT_EQ(joinedBy(" ", QDir(path("parcel")).entryList(QDir::Files, QDir::Name)),
              "B (2).png a.xml b.png");
    EXPECT_THROW(TextureCollection(path("parcel"), document->Path()), Failure);
}

TEST_F(DocumentTextures, OfASelectionAreWhatIsSelectedRefersTo)
{
    ReadError error;
    const auto document = Document::Read(
        write("house/a.xml", "<snapRoot><map name='A'><param name='Texture' type='string' "
                             "val='b.png'/></map><map name='B'><param name='Texture' "
                             "type='string' val='b.png'/></map><map name='C'><param "
                             "name='Texture' type='string' val='c.png'/></map></snapRoot>"),
        error);
    ASSERT_TRUE(document);
    SelectionTexts texts;
    texts.paths << QStringLiteral("map[B]");
    const auto textures = texturesOf(*document, Selection(texts).in(document->Root()));
    ASSERT_EQ(textures.size(), 1);
    EXPECT_EQ(joinedBy(" ", textures.first().paths), "map[B]:Texture");
}

TEST_F(DocumentTextures, AreCollectedWithThePicturesOfSnapshotsAndGoAgainUnlessKept)
{
    paint("house/icon_A.jpg", qRgb(1, 2, 3));
    paint("house/icon_B.jpg", qRgb(4, 5, 6));
    const QString other = paint("parcel/icon_B.jpg", qRgb(7, 8, 9));
    ReadError error;
    const auto document =
        Document::Read(write("house/a.xml", "<snapRoot><snapshots name='S'><snapshot name='A'/>"
                                            "<snapshot name='B'/></snapshots></snapRoot>"),
                       error);
    ASSERT_TRUE(document);
    QStringList left;
    const auto collect = [&](bool isKept) {
        TextureCollection collection(path("parcel"), document->Path());
        collection.addPictures(*document, Folders(), [&left](const QString& file, const QString&) {
            left << QFileInfo(file).fileName();
        });
        collection.write(*document);
        if (isKept)
            collection.keep();
    };
    const auto files = [this]() {
        return joinedBy(" ", QDir(path("parcel")).entryList(QDir::Files, QDir::Name));
    };
    collect(false);
    EXPECT_EQ(files(), "icon_B.jpg");
    collect(true);
    EXPECT_EQ(files(), "a.xml icon_A.jpg icon_B.jpg");
    EXPECT_EQ(joinedBy(" ", left), "icon_B.jpg icon_B.jpg");
    EXPECT_FALSE(haveSameBytes(other, path("house/icon_B.jpg")));
}

TEST_F(DocumentTextures, AreFoundAgainForADocumentInMemory)
{
    const QString found = paint("moved/a/b.png", qRgb(1, 2, 3));
    paint("moved/x/c.png", qRgb(1, 2, 3));
    paint("moved/y/c.png", qRgb(4, 5, 6));
    paint("house/there.png", qRgb(1, 2, 3));
    const auto document =
        documentWith({QStringLiteral("b.png"), QStringLiteral("there.png"), QStringLiteral("c.png"),
                      QStringLiteral("D:\\lost\\B.PNG")});
    ASSERT_TRUE(document);
    EXPECT_EQ(TexturesOf(*document, Folders()).size(), 4);
    const QVector<DocumentTexture> textures = RelinkTextures(*document, {path("moved")});
    ASSERT_EQ(textures.size(), 3);
    EXPECT_EQ(textures[0].became, QStringLiteral("..\\moved\\a\\b.png"));
    EXPECT_EQ(textures[0].file, found);
    EXPECT_EQ(textures[0].problem, QString());
    EXPECT_THAT(textures[1].problem.toStdString(), ::testing::HasSubstr("could be any of"));
    EXPECT_EQ(textures[1].became, QString());
    EXPECT_EQ(QDir::fromNativeSeparators(textures[2].became), found);
    QStringList now;
    for (const DocumentTexture& texture : TexturesOf(*document, Folders()))
        now << texture.reference;
    EXPECT_EQ(joinedBy(" ", now),
              joinedBy(" ", {QStringLiteral("..\\moved\\a\\b.png"), QStringLiteral("there.png"),
                             QStringLiteral("c.png"), textures[2].became}));
    EXPECT_THROW(RelinkTextures(*document, {path("nowhere")}), Failure);
}

TEST_F(DocumentTextures, AreHandedOnWithTheDocumentAsItIsInMemory)
{
    paint("house/b.png", qRgb(1, 2, 3));
    const QString outside = paint("elsewhere/c.png", qRgb(4, 5, 6));
    const auto before = documentWith({QStringLiteral("b.png"), outside});
    ASSERT_TRUE(before);
    before->Root().setAttribute(QStringLiteral("edited"), QStringLiteral("1"));
    const QVector<DocumentTexture> found = TexturesOf(*before, Folders());
    EXPECT_FALSE(found[0].isElsewhere);
    EXPECT_TRUE(found[1].isElsewhere);
    Folders host;
    host.install = path("elsewhere");
    EXPECT_FALSE(TexturesOf(*before, host)[1].isElsewhere);
    const QVector<DocumentTexture> ours = CollectTextures(*before, path("parcel"), Folders());
    ASSERT_EQ(ours.size(), 2);
    EXPECT_EQ(ours[0].became, QStringLiteral("b.png"));
    EXPECT_TRUE(ours[1].isElsewhere);
    EXPECT_NE(ours[1].problem, QString());
    EXPECT_TRUE(haveSameBytes(path("parcel/b.png"), path("house/b.png")));
    EXPECT_FALSE(QFileInfo::exists(path("parcel/c.png")));
    ReadError error;
    const auto copy = Document::Read(path("parcel/a.xml"), error);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->Root().attribute(QStringLiteral("edited")), QStringLiteral("1"));
    // Nothing is written over.
    EXPECT_THROW(CollectTextures(*before, path("parcel"), Folders()), Failure);

    const auto again = documentWith({QStringLiteral("b.png"), outside});
    CollectTextures(*again, path("all"), Folders(), CollectedTextures::Everywhere);
    EXPECT_TRUE(haveSameBytes(path("all/c.png"), outside));
    QStringList now;
    for (const DocumentTexture& texture : TexturesOf(*again, Folders()))
        now << texture.reference;
    EXPECT_EQ(joinedBy(" ", now), "b.png c.png");
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QFile>
#include <QFileInfo>

namespace rvopen::test {

namespace {

/// A document that refers to the images with these paths, one snapshot each.
QByteArray referringTo(const QStringList& references)
{
    QByteArray xml = "<snapRoot>\n  <snapshots name=\"Model SnapShots\">\n";
    for (const QString& reference : references)
        xml += "    <snapshot>\n      <background subcat=\"Image\">\n        <param name=\"File "
               "Name\" type=\"string\" val=\"" +
               reference.toUtf8() + "\"/>\n      </background>\n    </snapshot>\n";
    return xml + "  </snapshots>\n</snapRoot>\n";
}

Outcome textures(const Workspace& workspace, const QStringList& arguments)
{
    return workspace.run(words("textures") + arguments);
}

/// The references of the document, in order.
QStringList references(const Workspace& workspace, const QString& file)
{
    const Outcome run = textures(workspace, {QStringLiteral("--json"), file});
    QStringList list;
    for (const auto& texture : run.json()[QStringLiteral("textures")].toArray())
        list << texture.toObject()[QStringLiteral("reference")].toString();
    return list;
}

} // namespace

TEST(Textures, AreListedWithWhatRefersToThem)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"),
                    referringTo({QStringLiteral("C:\\x.png"), QStringLiteral("C:\\x.png")}));
    const QJsonArray list =
        textures(workspace, words("--json a.xml")).json()[QStringLiteral("textures")].toArray();
    ASSERT_EQ(list.size(), 1);
    EXPECT_EQ(list.at(0).toObject()[QStringLiteral("uses")].toArray().size(), 2);
}

TEST(Textures, OfEveryKindAreListed)
{
    const Workspace workspace;
    workspace.write(
        QStringLiteral("a.xml"),
        "<snapRoot><snapshot><snapShotSettings><param name=\"Reflected Env Path\" type=\"string\" "
        "val=\"env\"/></snapShotSettings><background subcat=\"Reflection\"><param name=\"File "
        "Name\" "
        "type=\"string\" val=\"back\"/></background><materialRepository><material><transparency>"
        "<param name=\"Colour\" type=\"shader\" val=\"colour\"><map><param name=\"Texture\" "
        "type=\"string\" val=\"map\"/></map></param></transparency></material></materialRepository>"
        "<renderTargets><renderTarget><param name=\"Filename\" type=\"string\" val=\"picture\"/>"
        "</renderTarget></renderTargets></snapshot></snapRoot>");
    EXPECT_EQ(references(workspace, QStringLiteral("a.xml")),
              QStringList({QStringLiteral("env"), QStringLiteral("back"), QStringLiteral("map")}));
}

TEST(Textures, MissingOnesAnswerOne)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("here.png"), "here");
    workspace.write(QStringLiteral("a.xml"),
                    referringTo({QStringLiteral("here.png"), QStringLiteral("gone.png")}));
    const Outcome run = textures(workspace, words("--missing a.xml"));
    EXPECT_EQ(run.code, 1);
    EXPECT_FALSE(run.out.contains(QLatin1String("here.png")));
    EXPECT_TRUE(run.out.contains(QLatin1String("gone.png")));
}

TEST(Textures, RelinkFindsByNameInAnyCaseAndEitherSeparator)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("lib/deep/Wood Grain.PNG"), "wood");
    workspace.write(QStringLiteral("a.xml"),
                    referringTo({QStringLiteral("D:\\T\\wood grain.png")}));
    const Outcome run = textures(workspace, words("--relink lib a.xml -o b.xml"));
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(references(workspace, QStringLiteral("b.xml")),
              QStringList(QFileInfo(workspace.path(QStringLiteral("lib/deep/Wood Grain.PNG")))
                              .absoluteFilePath()));
}

TEST(Textures, RelinkTakesTheFileWhoseFoldersAgree)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("lib/oak/a.png"), "oak");
    workspace.write(QStringLiteral("lib/elm/a.png"), "elm");
    workspace.write(QStringLiteral("a.xml"), referringTo({QStringLiteral("D:\\Elm\\a.png")}));
    textures(workspace, words("--relink lib a.xml --in-place"));
    EXPECT_TRUE(references(workspace, QStringLiteral("a.xml"))
                    .first()
                    .endsWith(QLatin1String("lib/elm/a.png")));
}

TEST(Textures, RelinkDoesNotGuess)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("lib/oak/a.png"), "oak");
    workspace.write(QStringLiteral("lib/elm/a.png"), "elm");
    workspace.write(QStringLiteral("a.xml"), referringTo({QStringLiteral("D:\\a.png")}));
    const Outcome run = textures(workspace, words("--relink lib a.xml --in-place"));
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(references(workspace, QStringLiteral("a.xml")),
              QStringList(QStringLiteral("D:\\a.png")));
}

TEST(Textures, RelinkTakesTheFirstOfEqualCopies)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("lib/elm/a.png"), "same");
    workspace.write(QStringLiteral("lib/oak/a.png"), "same");
    workspace.write(QStringLiteral("lib/oak/b/a.png"), "same");
    workspace.write(QStringLiteral("a.xml"), referringTo({QStringLiteral("D:\\a.png")}));
    const Outcome run = textures(workspace, words("--relink lib a.xml --in-place"));
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_TRUE(references(workspace, QStringLiteral("a.xml"))
                    .first()
                    .endsWith(QLatin1String("lib/elm/a.png")));
    // One that differs among them makes it a guess again.
    workspace.write(QStringLiteral("lib/oak/b/a.png"), "other");
    workspace.write(QStringLiteral("a.xml"), referringTo({QStringLiteral("D:\\a.png")}));
    const Outcome guess = textures(workspace, words("--relink lib a.xml --in-place"));
    EXPECT_EQ(guess.code, 1);
    EXPECT_THAT(guess.err.toStdString(), ::testing::HasSubstr("lib/elm/a.png"));
    EXPECT_THAT(guess.err.toStdString(), ::testing::HasSubstr("lib/oak/b/a.png"));
    EXPECT_THAT(guess.err.toStdString(), ::testing::Not(::testing::HasSubstr("lib/oak/a.png")));
}

TEST(Textures, CollectCopiesTheDocumentAndAllOfIt)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("maps/one.png"), pictureOf("one"));
    workspace.write(QStringLiteral("maps/zwei größer.png"), pictureOf("two"));
    const QByteArray xml =
        referringTo({QStringLiteral("maps\\one.png"), QStringLiteral("maps/zwei größer.png")});
    workspace.write(QStringLiteral("a.xml"), xml);
    const Outcome run = textures(workspace, words("--collect out/deep a.xml"));
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("out/deep/one.png")), pictureOf("one"));
    EXPECT_EQ(workspace.read(QStringLiteral("out/deep/zwei größer.png")), pictureOf("two"));
    EXPECT_EQ(references(workspace, QStringLiteral("out/deep/a.xml")),
              QStringList({QStringLiteral("one.png"), QStringLiteral("zwei größer.png")}));
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), xml);
}

TEST(Textures, CollectKeepsDifferentFilesOfOneNameApart)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("x/a.png"), pictureOf("x"));
    workspace.write(QStringLiteral("y/A.png"), pictureOf("y"));
    workspace.write(QStringLiteral("z/a.png"), pictureOf("x"));
    workspace.write(QStringLiteral("a.xml"),
                    referringTo({QStringLiteral("x/a.png"), QStringLiteral("y/A.png"),
                                 QStringLiteral("z/a.png")}));
    textures(workspace, words("--collect out a.xml"));
    EXPECT_EQ(references(workspace, QStringLiteral("out/a.xml")),
              QStringList({QStringLiteral("a.png"), QStringLiteral("A (2).png")}));
    EXPECT_EQ(workspace.read(QStringLiteral("out/A (2).png")), pictureOf("y"));
}

TEST(Textures, CollectOverwritesNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("x/a.png"), pictureOf("new"));
    workspace.write(QStringLiteral("out/a.png"), pictureOf("old"));
    workspace.write(QStringLiteral("secret"), "secret");
    QFile::link(workspace.path(QStringLiteral("secret")),
                workspace.path(QStringLiteral("out/a (2).png")));
    workspace.write(QStringLiteral("a.xml"), referringTo({QStringLiteral("x/a.png")}));
    textures(workspace, words("--collect out a.xml"));
    EXPECT_EQ(workspace.read(QStringLiteral("out/a.png")), pictureOf("old"));
    EXPECT_EQ(workspace.read(QStringLiteral("secret")), QByteArray("secret"));
    EXPECT_EQ(workspace.read(QStringLiteral("out/a (3).png")), pictureOf("new"));
}

TEST(Textures, CollectDoesNotTakeTheDocumentsOwnFolder)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), referringTo({}));
    EXPECT_EQ(textures(workspace, words("--collect . a.xml")).code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), referringTo({}));
}

TEST(Textures, CollectAgainAsksForForce)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("x/a.png"), pictureOf("new"));
    workspace.write(QStringLiteral("out/a.png"), pictureOf("old"));
    workspace.write(QStringLiteral("out/a.xml"), "what was there");
    workspace.write(QStringLiteral("a.xml"), referringTo({QStringLiteral("x/a.png")}));
    const Outcome refused = textures(workspace, words("--collect out a.xml"));
    EXPECT_EQ(refused.code, 2);
    EXPECT_THAT(refused.err.toStdString(), ::testing::HasSubstr("--force writes over it"));
    EXPECT_EQ(textures(workspace, words("--collect out --force --dry-run a.xml")).code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("out/a.xml")), QByteArray("what was there"));
    EXPECT_FALSE(workspace.exists(QStringLiteral("out/a (2).png")));
    EXPECT_EQ(textures(workspace, words("--collect out --force --backup a.xml")).code, 0);
    EXPECT_EQ(references(workspace, QStringLiteral("out/a.xml")),
              QStringList(QStringLiteral("a (2).png")));
    EXPECT_EQ(workspace.read(QStringLiteral("out/a.xml~")), QByteArray("what was there"));
    // Another document may refer to an image that is there.
    EXPECT_EQ(workspace.read(QStringLiteral("out/a.png")), pictureOf("old"));
    EXPECT_EQ(workspace.read(QStringLiteral("out/a (2).png")), pictureOf("new"));
}

TEST(Textures, CollectWritesOverPicturesWithForce)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("in/a.xml"), smallDocument());
    EXPECT_EQ(workspace.run("render --all --size 16 in/a.xml").code, 0);
    const QByteArray drawn = workspace.read(QStringLiteral("in/icon_Größe.jpg"));
    workspace.write(QStringLiteral("out/icon_Größe.jpg"), pictureOf("old"));
    EXPECT_THAT(textures(workspace, words("--collect out in/a.xml")).err.toStdString(),
                ::testing::HasSubstr("it is left, another"));
    EXPECT_EQ(workspace.read(QStringLiteral("out/icon_Größe.jpg")), pictureOf("old"));
    EXPECT_THAT(textures(workspace, words("--collect out --force in/a.xml")).err.toStdString(),
                ::testing::Not(::testing::HasSubstr("it is left")));
    EXPECT_EQ(workspace.read(QStringLiteral("out/icon_Größe.jpg")), drawn);
}

TEST(Textures, CollectDoesNotWriteOverItsInput)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), referringTo({}));
    QFile::link(workspace.path(QStringLiteral(".")), workspace.path(QStringLiteral("here")));
    for (const char* const folder : {".", "here"}) {
        const Outcome run = textures(workspace, words("--force a.xml --collect") +
                                                    QStringList(QLatin1String(folder)));
        EXPECT_EQ(run.code, 2) << folder;
        EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("is the input")) << folder;
    }
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), referringTo({}));
}

TEST(Textures, CollectWritesThroughNoLink)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), referringTo({}));
    workspace.write(QStringLiteral("mine"), "mine");
    workspace.write(QStringLiteral("out/x"), "x");
    for (const char* const target : {"mine", "nowhere"}) {
        const QString link = workspace.path(QStringLiteral("out/a.xml"));
        QFile::remove(link);
        ASSERT_TRUE(QFile::link(workspace.path(QLatin1String(target)), link));
        const Outcome run = textures(workspace, words("--collect out --force a.xml"));
        EXPECT_EQ(run.code, 2) << target;
        EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("is a link")) << target;
    }
    EXPECT_EQ(workspace.read(QStringLiteral("mine")), QByteArray("mine"));
    EXPECT_FALSE(workspace.exists(QStringLiteral("nowhere")));
}

TEST(Textures, CollectLeavesOutWhatIsMissing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), referringTo({QStringLiteral("D:\\gone.png"),
                                                          QStringLiteral("..\\..\\gone.png")}));
    const Outcome run = textures(workspace, words("--collect out a.xml"));
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(workspace.files(),
              QStringList({QStringLiteral("a.xml"), QStringLiteral("out/a.xml")}));
}

TEST(Textures, CollectDoesAllOrNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("small.png"), pictureOf("small"));
    workspace.write(QStringLiteral("large.png"), "P5\n500 400\n255\n" + QByteArray(200000, 'x'));
    workspace.write(QStringLiteral("a.xml"),
                    referringTo({QStringLiteral("small.png"), QStringLiteral("large.png")}));
    const QStringList before = workspace.files();
    const Outcome run = workspace.shell(
        QStringLiteral("ulimit -f 100; trap '' XFSZ; rvopen textures --collect out/deep a.xml"));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(workspace.files(), before);
    EXPECT_FALSE(workspace.exists(QStringLiteral("out")));
}

TEST(Textures, IsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    EXPECT_TRUE(
        isOfSchema(textures(workspace, words("--json snapshots")), QStringLiteral("textures")));
}

} // namespace rvopen::test

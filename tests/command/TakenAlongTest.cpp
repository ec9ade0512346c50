// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QDir>

/// What a document loses on its way into another folder: nothing without a word.
namespace rvopen::test {

namespace {

QByteArray document(const QByteArray& texture)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<snapRoot>\n  <snapshots name=\"Model "
           "SnapShots\">\n    <snapshot name=\"A\">\n      <background subcat=\"Image\">\n"
           "        <param name=\"File Name\" type=\"string\" val=\"" +
           texture + "\"/>\n      </background>\n    </snapshot>\n  </snapshots>\n</snapRoot>\n";
}

/// A document with an image and a picture in "in", and a folder "out".
class TakenAlong : public ::testing::Test {
protected:
    TakenAlong()
    {
        workspace.write(QStringLiteral("in/a.xml"), document("tex\\sky.png"));
        workspace.write(QStringLiteral("in/tex/sky.png"), pictureOf("sky"));
        workspace.write(QStringLiteral("in/icon_A.jpg"), pictureOf("a"));
        workspace.write(QStringLiteral("out/x"), "");
    }

    Workspace workspace;
};

} // namespace

TEST_F(TakenAlong, RelativeReferencesLeadToTheSameFiles)
{
    for (const char* const line : {"set in/a.xml snapshot[A]@desc=x -o out/b.xml",
                                   "format in/a.xml -o out/c.xml", "sort in/a.xml -o out/d.xml"}) {
        const Outcome run = workspace.run(line);
        EXPECT_EQ(run.code, 0) << line << run.err.toStdString();
        EXPECT_THAT(run.err.toStdString(),
                    ::testing::HasSubstr("1 picture is left where the document was"))
            << line;
    }
    for (const char* const file : {"out/b.xml", "out/c.xml", "out/d.xml"})
        EXPECT_TRUE(workspace.read(QLatin1String(file)).contains("val=\"..\\in\\tex\\sky.png\""))
            << file;
    EXPECT_EQ(workspace.read(QStringLiteral("in/a.xml")), document("tex\\sky.png"));
}

TEST_F(TakenAlong, WhatStaysInItsFolderStaysAsItIs)
{
    const Outcome run = workspace.run("format in/a.xml -o in/b.xml");
    EXPECT_EQ(run.err, QString());
    EXPECT_EQ(workspace.read(QStringLiteral("in/b.xml")), document("tex\\sky.png"));
}

TEST_F(TakenAlong, AReferenceThatLeadsNowhereIsNamed)
{
    workspace.write(QStringLiteral("in/a.xml"), document("gone.png"));
    const Outcome run = workspace.run("format in/a.xml -o out/b.xml");
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("\"gone.png\": it is not there"));
    EXPECT_EQ(workspace.read(QStringLiteral("out/b.xml")), document("gone.png"));
}

TEST_F(TakenAlong, AnotherFileThanTheInputAsksForForce)
{
    workspace.write(QStringLiteral("out/b.xml"), "mine");
    const Outcome refused = workspace.run("set in/a.xml snapshot[A]@desc=x -o out/b.xml");
    EXPECT_EQ(refused.code, 2);
    EXPECT_THAT(refused.err.toStdString(), ::testing::HasSubstr("--force"));
    EXPECT_EQ(workspace.read(QStringLiteral("out/b.xml")), QByteArray("mine"));
    EXPECT_EQ(
        workspace.run("set in/a.xml snapshot[A]@desc=x -o out/b.xml --force --backup=.1").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("out/b.xml.1")), QByteArray("mine"));
}

TEST_F(TakenAlong, FormatKeepsWhatIsThere)
{
    const QByteArray before = "<snapRoot  name='x'/>";
    workspace.write(QStringLiteral("b.xml"), before);
    EXPECT_EQ(workspace.run("format in/a.xml -o b.xml").code, 2);
    EXPECT_EQ(workspace.run("format --dry-run b.xml --in-place").out, QStringLiteral("b.xml\n"));
    EXPECT_EQ(workspace.read(QStringLiteral("b.xml")), before);
    EXPECT_EQ(workspace.run("format --backup b.xml --in-place").code, 0);
    EXPECT_NE(workspace.read(QStringLiteral("b.xml")), before);
    EXPECT_EQ(workspace.read(QStringLiteral("b.xml~")), before);
}

TEST_F(TakenAlong, ADryRunOfSetWritesNothing)
{
    const QStringList before = workspace.files();
    const Outcome run =
        workspace.run("set --dry-run --json in/a.xml snapshot[A]@desc=x -o out/b.xml");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("set")));
    EXPECT_TRUE(run.json()[QStringLiteral("written")].isNull());
    EXPECT_EQ(workspace.files(), before);
}

TEST_F(TakenAlong, ImportingTwiceIsImportingOnce)
{
    workspace.write(QStringLiteral("out/b.xml"), "<snapRoot/>");
    EXPECT_EQ(workspace.run("import in/a.xml out/b.xml --in-place").code, 0);
    const QByteArray once = workspace.read(QStringLiteral("out/b.xml"));
    EXPECT_TRUE(once.contains("val=\"..\\in\\tex\\sky.png\"")) << once.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("out/icon_A.jpg")), pictureOf("a"));
    const Outcome again = workspace.run("import in/a.xml out/b.xml --in-place");
    EXPECT_EQ(again.code, 0);
    EXPECT_TRUE(again.out.startsWith(QLatin1String("same"))) << again.out.toStdString();
    EXPECT_EQ(workspace.read(QStringLiteral("out/b.xml")), once);
}

TEST_F(TakenAlong, ImportingTakesThumbnailsOfPresets)
{
    workspace.write(QStringLiteral("in/a.rvx"),
                    "<presets type=\"UserArchives\"><colours><colour cat=\"C\" name=\"Red\"/>"
                    "</colours></presets>");
    workspace.write(QStringLiteral("in/C/thumbs/Red.jpg"), pictureOf("red"));
    workspace.write(QStringLiteral("out/b.rvx"), "<presets type=\"UserArchives\"/>");
    EXPECT_EQ(workspace.run("import in/a.rvx out/b.rvx --in-place").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("out/C/thumbs/Red.jpg")), pictureOf("red"));
    EXPECT_TRUE(workspace.exists(QStringLiteral("in/C/thumbs/Red.jpg")));
}

TEST_F(TakenAlong, NothingIsSaidOfWhatWasNotWritten)
{
    const Outcome run = workspace.run("set in/a.xml snapshot[A]@desc=x -o none/b.xml");
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(run.err.startsWith(QStringLiteral("rvopen: \"none/b.xml\": ")))
        << run.err.toStdString();
    EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1);
}

TEST_F(TakenAlong, CollectingTakesPictures)
{
    EXPECT_EQ(workspace.run("textures --collect parcel in/a.xml").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("parcel/icon_A.jpg")), pictureOf("a"));
    const QStringList before = workspace.files();
    EXPECT_EQ(workspace.run("textures --dry-run --collect other in/a.xml").code, 0);
    EXPECT_EQ(workspace.files(), before);
}

TEST_F(TakenAlong, CollectedPicturesLieBesideTheDocumentHoweverTheirFolderIsNamed)
{
    workspace.write(QStringLiteral("in/a.rvx"),
                    "<presets type=\"UserArchives\"><colours><colour cat=\"C\" imgname=\"Red\" "
                    "name=\"Red\"/></colours></presets>");
    workspace.write(QStringLiteral("in/C/thumbs/Red.jpg"), pictureOf("red"));
    for (const char* const line :
         {"textures --collect parcel in/a.rvx", "textures --collect parcel in/a.rvx --custom in",
          "textures --collect parcel in/a.rvx --custom ./in/../in"}) {
        EXPECT_EQ(workspace.run(line).code, 0) << line;
        EXPECT_EQ(workspace.files().filter(QStringLiteral("parcel/")),
                  QStringList(
                      {QStringLiteral("parcel/C/thumbs/Red.jpg"), QStringLiteral("parcel/a.rvx")}))
            << line;
        QDir(workspace.path(QStringLiteral("parcel"))).removeRecursively();
    }
}

TEST_F(TakenAlong, RelinkingKeepsRelativeReferencesRelative)
{
    workspace.write(QStringLiteral("out/a.xml"), document("tex\\sky.png"));
    EXPECT_EQ(workspace.run("textures --relink in out/a.xml --in-place").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("out/a.xml")), document("..\\in\\tex\\sky.png"));
}

TEST_F(TakenAlong, RelinkingByPrefixKeepsFolders)
{
    const struct {
        const char* before;
        const char* prefix;
        const char* after;
    } cases[] = {
        {"D:\\tex\\a\\b.png", "D:\\tex=E:\\new", "E:\\new\\a\\b.png"},
        {"d:/TEX/a/b.png", "D:\\tex\\=E:\\new\\", "E:\\new\\a\\b.png"},
        {"D:\\texture\\b.png", "D:\\tex=E:\\new", "D:\\texture\\b.png"},
        {"tex\\a\\b.png", "tex=img", "img\\a\\b.png"},
    };
    for (const auto& one : cases) {
        workspace.write(QStringLiteral("out/a.xml"), document(one.before));
        EXPECT_EQ(workspace
                      .run({QStringLiteral("textures"), QStringLiteral("--relink"),
                            QLatin1String(one.prefix), QStringLiteral("out/a.xml"),
                            QStringLiteral("--in-place")})
                      .code,
                  0)
            << one.before;
        EXPECT_EQ(workspace.read(QStringLiteral("out/a.xml")), document(one.after)) << one.before;
    }
}

} // namespace rvopen::test

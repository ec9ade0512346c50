// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QRegularExpression>

namespace rvopen::test {

namespace {

/// Pixels that are darker than any picture's frame or ground.
int inkIn(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qGray(image.pixel(x, y)) < 80 ? 1 : 0;
    }
    return count;
}

/// What the script in "page" gives to the page.
QJsonObject dataOf(const Workspace& workspace)
{
    const QByteArray script = workspace.read(QStringLiteral("page/data.js"));
    const int begin = int(script.indexOf('(')) + 1;
    const QByteArray json = script.mid(begin, int(script.lastIndexOf(')')) - begin);
    return QJsonDocument::fromJson(json).object();
}

} // namespace

TEST(Sheet, IsAsWideAsItsColumns)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(5));
    EXPECT_EQ(workspace.run("sheet a.rvx -o a.png --size 64 --columns 4").code, 0);
    EXPECT_EQ(workspace.run("sheet a.rvx -o b.png --size 64 --columns 2").code, 0);
    const QSize wide = QImage(workspace.path(QStringLiteral("a.png"))).size();
    const QSize narrow = QImage(workspace.path(QStringLiteral("b.png"))).size();
    EXPECT_GE(wide.width(), 4 * 64);
    EXPECT_LT(wide.width(), 5 * 64 + 64);
    EXPECT_EQ(wide.width() - narrow.width(), 2 * (64 + 8));
    EXPECT_GE(narrow.height() - wide.height(), 64);
}

TEST(Sheet, WritesNames)
{
    const Workspace workspace;
    const QByteArray one = "<presets><lenses><lens name=\"\"/></lenses></presets>";
    workspace.write(QStringLiteral("a.rvx"), one);
    workspace.write(QStringLiteral("b.rvx"),
                    QByteArray(one).replace("name=\"\"", "name=\"MMMMMMMM\""));
    for (const char* const name : {"a", "b"}) {
        const QString file = QLatin1String(name);
        EXPECT_EQ(workspace
                      .run({QStringLiteral("sheet"), file + QLatin1String(".rvx"),
                            QStringLiteral("-o"), file + QLatin1String(".png")})
                      .code,
                  0);
    }
    EXPECT_GT(inkIn(QImage(workspace.path(QStringLiteral("b.png")))),
              inkIn(QImage(workspace.path(QStringLiteral("a.png")))) + 100);
}

TEST(Sheet, ShowsPicturesThatAreThere)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    EXPECT_TRUE(image.save(workspace.path(QStringLiteral("icon_Größe.jpg"))));
    const Outcome run = workspace.run("sheet --json a.xml -o a.png --size 40");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("sheet")));
    EXPECT_EQ(run.json().value(QStringLiteral("pictures")).toInt(), 2);
    EXPECT_EQ(run.json().value(QStringLiteral("drawn")).toInt(), 1);
    const QImage sheet(workspace.path(QStringLiteral("a.png")));
    int magenta = 0;
    for (int y = 0; y < sheet.height(); ++y) {
        for (int x = 0; x < sheet.width(); ++x) {
            const QColor colour(sheet.pixel(x, y));
            magenta += colour.red() > 240 && colour.green() < 20 && colour.blue() > 240 ? 1 : 0;
        }
    }
    EXPECT_GT(magenta, 900);
}

TEST(Sheet, HasAPaletteForEachSnapShotThatIsOne)
{
    const Workspace workspace;
    const Outcome run =
        workspace.run({QStringLiteral("sheet"), QStringLiteral("--json"),
                       QStringLiteral(RVOPEN_GOLDEN_DIR "/snapshots.xml"), QStringLiteral("--size"),
                       QStringLiteral("32"), QStringLiteral("-o"), QStringLiteral("a.png")});
    EXPECT_EQ(run.json().value(QStringLiteral("pictures")).toInt(), 12) << run.err.toStdString();
}

TEST(Sheet, APageThatIsInterruptedLeavesNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(400));
    // Once the first picture is there.
    const Outcome run = workspace.shell(QStringLiteral(
        "rvopen sheet --drawn --html out --size 100 a.rvx & until ls out/pictures/*.png >&2 || ! "
        "kill -0 $!; do sleep 0.1; done; kill -TERM $!; wait $!"));
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("interrupted"));
    EXPECT_EQ(workspace.files(), QStringList(QStringLiteral("a.rvx")));
}

TEST(Sheet, AsPdfHasThePagesThatItSays)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(30));
    const Outcome run = workspace.run("sheet --json a.rvx -o a.pdf --size 32 --columns 3");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    const QByteArray pdf = workspace.read(QStringLiteral("a.pdf"));
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    const int pages = run.json().value(QStringLiteral("pages")).toInt();
    EXPECT_GT(pages, 1);
    QByteArray flat = pdf;
    flat.replace("/Type /Pages", "");
    EXPECT_EQ(int(flat.count("/Type /Page")), pages);
}

TEST(Sheet, OverwritesNothingUnlessForced)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(1));
    workspace.write(QStringLiteral("a.png"), "old");
    EXPECT_EQ(workspace.run("sheet a.rvx -o a.png").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.png")), QByteArray("old"));
    EXPECT_EQ(workspace.run("sheet a.rvx -o a.png --force --size 16").code, 0);
    EXPECT_NE(workspace.read(QStringLiteral("a.png")), QByteArray("old"));
}

TEST(Sheet, IsNotWrittenOverItsInput)
{
    const Workspace workspace;
    const QByteArray archive = largeArchive(1);
    workspace.write(QStringLiteral("a.png"), archive);
    workspace.write(QStringLiteral("b.rvx"), archive);
    workspace.shell(QStringLiteral("ln -s b.rvx link.png; mkdir d"));
    for (const char* const line :
         {"sheet --force a.png -o a.png", "sheet --force a.png -o d/../a.png",
          "sheet --force b.rvx a.png -o a.png", "sheet --force b.rvx -o link.png"}) {
        const Outcome run = workspace.run(line);
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr(".png")) << line;
        EXPECT_EQ(workspace.read(QStringLiteral("a.png")), archive) << line;
        EXPECT_EQ(workspace.read(QStringLiteral("b.rvx")), archive) << line;
    }
}

TEST(Sheet, RefusesFormatsThatItDoesNotWrite)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(1));
    for (const char* const file : {"a.gif", "a", "a.svg"})
        EXPECT_EQ(workspace.run(words("sheet a.rvx -o") + QStringList(QLatin1String(file))).code, 2)
            << file;
    EXPECT_EQ(workspace.files(), QStringList(QStringLiteral("a.rvx")));
}

TEST(Sheet, TooLongForOnePictureAnswersTwo)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(1000));
    const Outcome run = workspace.run("sheet a.rvx -o a.png --columns 1 --size 100");
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("PDF"));
    EXPECT_FALSE(workspace.exists(QStringLiteral("a.png")));
}

TEST(Sheet, OfNothingAnswersTwo)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), "<presets/>");
    EXPECT_EQ(workspace.run("sheet a.rvx -o a.png").code, 2);
}

TEST(Sheet, AsPageHasItsFilesAndAPictureOfEach)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const Outcome run = workspace.run("sheet --json a.rvx --html page --size 16");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("sheet")));
    EXPECT_EQ(run.json().value(QStringLiteral("pictures")).toInt(), 4);
    for (const char* const name : {"index.html", "style.css", "script.js"}) {
        QFile file(QStringLiteral(RVOPEN_SOURCE_DIR "/toolkit/sheets/html/") + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(workspace.read(QLatin1String("page/") + QLatin1String(name)), file.readAll())
            << name;
    }
    const QJsonObject page = dataOf(workspace);
    EXPECT_EQ(page.value(QStringLiteral("title")).toString(), QStringLiteral("Mine"));
    const QJsonArray items = page.value(QStringLiteral("items")).toArray();
    ASSERT_EQ(items.size(), 4);
    for (const QJsonValue& item : items) {
        const QString picture = item.toObject().value(QStringLiteral("picture")).toString();
        EXPECT_EQ(QImage(workspace.path(QLatin1String("page/pictures/") + picture)).size(),
                  QSize(16, 16))
            << picture.toStdString();
    }
    EXPECT_EQ(items.at(0).toObject().value(QStringLiteral("search")).toString(),
              QStringLiteral("brass\nmaterials / metals\nm.brass\nmetals\nopaque\nshiny and "
                             "yellow"));
}

TEST(Sheet, OfTheSamePresetsThePageHasTheSameBytes)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    EXPECT_EQ(workspace.run("sheet a.rvx --html page --size 16").code, 0);
    EXPECT_EQ(workspace.run("sheet a.rvx --html other --size 16").code, 0);
    const Outcome run = workspace.shell(QStringLiteral("diff -r page other && find page | wc -l"));
    EXPECT_EQ(run.code, 0) << run.out.toStdString();
    EXPECT_GE(run.out.trimmed().toInt(), 9);
}

TEST(Sheet, OfAPageNoTextEndsTheScript)
{
    const Workspace workspace;
    workspace.write(
        QStringLiteral("a.rvx"),
        smallArchive().replace("name=\"Zinc\"", "name=\"&lt;/script>&lt;img onerror=x>&#x2028;\""));
    EXPECT_EQ(workspace.run("sheet a.rvx --html page --size 16").code, 0);
    const QByteArray data = workspace.read(QStringLiteral("page/data.js"));
    EXPECT_TRUE(data.contains("\\u003c/script>\\u003cimg onerror=x>\\u2028"));
    EXPECT_FALSE(data.contains('<'));
    EXPECT_EQ(data.count('\n'), 1);
}

TEST(Sheet, APageIsWrittenOverAPageAlone)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    workspace.write(QStringLiteral("b.rvx"), smallArchive().replace("Above", "Below"));
    workspace.write(QStringLiteral("mine/notes.txt"), "mine");
    EXPECT_EQ(workspace.run("sheet a.rvx --html mine --force").code, 2);
    EXPECT_EQ(workspace.files().filter(QStringLiteral("mine/")).size(), 1);
    EXPECT_EQ(workspace.run("sheet a.rvx --html page --size 16").code, 0);
    const QByteArray before = workspace.read(QStringLiteral("page/data.js"));
    EXPECT_EQ(workspace.run("sheet b.rvx --html page --size 16").code, 2);
    EXPECT_EQ(workspace.run("sheet b.rvx --html page --size 16 --force --dry-run").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("page/data.js")), before);
    EXPECT_EQ(workspace.run("sheet b.rvx --html page --size 16 --force").code, 0);
    EXPECT_EQ(workspace.run("sheet b.rvx --html other --size 16").code, 0);
    EXPECT_EQ(workspace.shell(QStringLiteral("diff -r page other")).out, QString());
}

TEST(Sheet, ADryRunMakesNoPage)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    EXPECT_EQ(workspace.run("sheet a.rvx --html page --dry-run").code, 0);
    EXPECT_FALSE(workspace.exists(QStringLiteral("page")));
}

TEST(Sheet, OfAPageHasWhatIsSelected)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    EXPECT_EQ(workspace.run("sheet a.rvx --html page --size 16 --type camera").code, 0);
    const QJsonArray items = dataOf(workspace).value(QStringLiteral("items")).toArray();
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items.at(0).toObject().value(QStringLiteral("path")).toString(),
              QStringLiteral("cameras[Cameras]/camera[Above]"));
}

TEST(Sheet, WithoutAnyFontSaysSo)
{
    Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(1));
    workspace.write(QStringLiteral("fonts.conf"),
                    "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">"
                    "<fontconfig><dir>none</dir><cachedir>cache</cachedir></fontconfig>");
    workspace.environment.insert(QStringLiteral("FONTCONFIG_FILE"),
                                 workspace.path(QStringLiteral("fonts.conf")));
    const Outcome run = workspace.run("sheet a.rvx -o a.png");
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("font"));
    EXPECT_FALSE(workspace.exists(QStringLiteral("a.png")));
}

TEST(Sheet, ThatIsTooLargeIsToldASizeThatFits)
{
    const Workspace workspace;
    // Cameras are drawn fastest.
    QByteArray cameras;
    for (int i = 0; i < 450; ++i)
        cameras += "<camera name=\"C" + QByteArray::number(i) + "\"/>";
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><cameras>" + cameras + "</cameras></presets>");
    const QString line = QStringLiteral("sheet --dry-run a.rvx -o a.png --columns 1 --size %1");
    const auto runAt = [&](int size) {
        return workspace.run(line.arg(size).split(QLatin1Char(' ')));
    };
    const Outcome refused = runAt(200);
    EXPECT_EQ(refused.code, 2);
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("^rvopen: that is too much for one picture: take PDF, "
                                          "--size (\\d+), or more --columns\n$"))
            .match(refused.err);
    ASSERT_TRUE(match.hasMatch()) << refused.err.toStdString();
    const int fitting = match.captured(1).toInt();
    EXPECT_EQ(runAt(fitting).code, 0);
    EXPECT_EQ(runAt(fitting + 1).code, 2);
}

} // namespace rvopen::test

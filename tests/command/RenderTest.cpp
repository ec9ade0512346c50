// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QDir>
#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace rvopen::test {

namespace {

QString golden(const QString& name)
{
    return QStringLiteral(RVOPEN_GOLDEN_DIR "/") + name;
}

/// How far two pictures are apart: the mean difference of a channel, of 255.
double distance(const QImage& a, const QImage& b)
{
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
                   std::abs(qBlue(p) - qBlue(q));
        }
    }
    return double(sum) / (3.0 * a.width() * a.height());
}

/// An archive of one colour that is a texture.
QByteArray textured(const QByteArray& name, const QByteArray& texture)
{
    return "<presets><colours><colour name=\"" + name +
           "\"><diffuse><param name=\"Colour\" type=\"shader\" val=\"colour\"><map enabled=\"1\">"
           "<param name=\"Texture\" type=\"string\" val=\"" +
           texture + "\"/></map></param></diffuse></colour></colours></presets>";
}

/// The mean colour of the middle of a picture.
QColor middle(const QImage& image)
{
    const QImage one = image.copy(image.width() * 3 / 8, image.height() * 3 / 8, image.width() / 4,
                                  image.height() / 4);
    qint64 sums[3] = {0, 0, 0};
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            sums[0] += qRed(one.pixel(x, y));
            sums[1] += qGreen(one.pixel(x, y));
            sums[2] += qBlue(one.pixel(x, y));
        }
    }
    const int count = one.width() * one.height();
    return QColor(int(sums[0] / count), int(sums[1] / count), int(sums[2] / count));
}

const char s_colours[] = R"(<presets><colours name="Colours">
<colour name="Red" cat="House" path="Warm"><diffuse enabled="1"><param name="Colour" type="shader" val="colour"><plainColour enabled="1"><param name="Colour" type="colour" val="0.9 0.1 0.1"/></plainColour></param></diffuse></colour>
<colour name="Blue"><diffuse enabled="1"><param name="Colour" type="shader" val="colour"><plainColour enabled="1"><param name="Colour" type="colour" val="0.1 0.1 0.9"/></plainColour></param></diffuse></colour>
</colours></presets>)";

} // namespace

class Golden : public ::testing::TestWithParam<const char*> {};

/// The pictures were made by: rvopen render --all --size 64 -o . presets.rvx snapshots.xml
TEST_P(Golden, PictureIsAsItWas)
{
    const QString name = QString::fromLatin1(GetParam());
    static const Workspace workspace;
    static const Outcome run = workspace.run(
        {QStringLiteral("render"), QStringLiteral("--all"), QStringLiteral("--size"),
         QStringLiteral("64"), QStringLiteral("-o"), QStringLiteral("."),
         golden(QStringLiteral("presets.rvx")), golden(QStringLiteral("snapshots.xml"))});
    ASSERT_EQ(run.code, 0) << run.err.toStdString();
    const QImage is(workspace.path(name + QLatin1String(".png")));
    const QImage was(golden(name + QLatin1String(".png")));
    ASSERT_EQ(is.size(), was.size());
    EXPECT_LT(distance(is, was), 1.0);
}

INSTANTIATE_TEST_SUITE_P(
    Pictures, Golden,
    ::testing::Values("material Matt paint", "material Red plastic", "material Brushed steel",
                      "material Chromium", "material Gold", "material Glass",
                      "material Frosted green glass", "material Planks",
                      "material Planks turned and mirrored", "material Lamp", "material Varnished",
                      "colour Orange", "finish Gloss", "transparency Half",
                      "transparency Perforated", "bump Dots", "bump Absent", "background Graduated",
                      "background Horizon", "background Image", "background Absent image",
                      "background Reflection", "foreground Mist", "naturalLightStudio Morning",
                      "camera From above", "camera Elevation", "camera Turned up", "lens Wide",
                      "aspectratio Screen", "aspectratioorient Portrait", "scheme Outside",
                      "scheme Inside", "scheme On a table", "snapshot Outside", "snapshot In mist",
                      "snapshot Palette", "snapshot Two rows inside", "snapshot Bare outside",
                      "snapshot Bare product", "snapshot Four in a row", "snapshot Camera alone",
                      "snapshot Background alone"));

TEST(Render, DrawsTheSameBytesEveryTime)
{
    const Workspace workspace;
    for (const char* const folder : {"a", "b"}) {
        EXPECT_EQ(workspace
                      .run({QStringLiteral("render"), QStringLiteral("--all"),
                            QStringLiteral("--size"), QStringLiteral("48"), QStringLiteral("-o"),
                            QLatin1String(folder), golden(QStringLiteral("presets.rvx"))})
                      .code,
                  0);
    }
    const QStringList names = QDir(workspace.path(QStringLiteral("a"))).entryList(QDir::Files);
    EXPECT_EQ(names.size(), 33);
    for (const QString& name : names)
        EXPECT_EQ(workspace.read(QStringLiteral("a/") + name),
                  workspace.read(QStringLiteral("b/") + name))
            << name.toStdString();
}

TEST(Render, WritesWhereTheHostLooks)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("host/x"), "");
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    const Outcome run = workspace.run("render --all --size 32 --install host a.rvx");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(workspace.files(),
              (QStringList{QStringLiteral("a.rvx"), QStringLiteral("host/sethumbs/Blue.jpg"),
                           QStringLiteral("host/sethumbs/House/Warm/Red.jpg"),
                           QStringLiteral("host/x")}));
    const Outcome found = workspace.run("preview --install host a.rvx colour[Red] -o red.png");
    EXPECT_EQ(found.code, 0) << found.err.toStdString();
    const QColor colour = middle(QImage(workspace.path(QStringLiteral("red.png"))));
    EXPECT_GT(colour.red(), 2 * colour.blue());
}

TEST(Render, OfPresetsThatShareAPictureTheFirstIsDrawn)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("host/x"), "");
    QByteArray shared = s_colours;
    shared.replace("name=\"Red\" cat=\"House\" path=\"Warm\"", "name=\"Red\" imgname=\"one\"");
    shared.replace("name=\"Blue\"", "name=\"Blue\" imgname=\"one\"");
    workspace.write(QStringLiteral("a.rvx"), shared);
    const Outcome run = workspace.run("render --json --all --size 32 --install host a.rvx");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.json().value(QStringLiteral("pictures")).toArray().size(), 1);
    EXPECT_EQ(run.json().value(QStringLiteral("kept")).toInt(), 1);
    const QColor colour = middle(QImage(workspace.path(QStringLiteral("host/sethumbs/one.jpg"))));
    EXPECT_GT(colour.red(), 2 * colour.blue());
}

TEST(Render, WritesAUsersPicturesBelowTheCustomFolder)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("mine/a.rvx"), smallArchive());
    EXPECT_EQ(workspace.run("render --all --size 16 --custom mine mine/a.rvx").code, 0);
    EXPECT_TRUE(workspace.exists(QStringLiteral("mine/Metals/thumbs/Brass.jpg")));
    EXPECT_TRUE(workspace.exists(QStringLiteral("mine/Cameras/thumbs/Above.jpg")));
}

TEST(Render, WritesAUsersPicturesBesideTheArchiveWhereNoFolderIsNamed)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("mine/Sub/a.rvx"),
                    smallArchive().replace("<presets", "<presets path=\"Sub\\\""));
    EXPECT_EQ(workspace.run("render --missing --size 16 mine/Sub/a.rvx").code, 0);
    const QString picture = QStringLiteral("mine/Metals/thumbs/Brass.jpg");
    ASSERT_TRUE(workspace.exists(picture));
    // Who looks for it finds it there: what is missing, what is shown, and what is copied.
    EXPECT_EQ(workspace.run("render --missing --size 16 --json mine/Sub/a.rvx")
                  .json()
                  .value(QStringLiteral("pictures"))
                  .toArray()
                  .size(),
              0);
    EXPECT_EQ(workspace.run("preview mine/Sub/a.rvx material[Brass] -o brass.png").code, 0);
    EXPECT_FALSE(QImage(workspace.path(QStringLiteral("brass.png"))).isNull());
    EXPECT_EQ(workspace.run("sheet --json mine/Sub/a.rvx -o sheet.png")
                  .json()
                  .value(QStringLiteral("drawn"))
                  .toInt(-1),
              0);
    EXPECT_EQ(workspace.run("rename mine/Sub/a.rvx material[Brass] Bronze --in-place").code, 0);
    EXPECT_FALSE(workspace.exists(picture));
    EXPECT_TRUE(workspace.exists(QStringLiteral("mine/Metals/thumbs/Bronze.jpg")));
}

TEST(Render, AUsersArchiveFromAPipeHasNoPlaceForPictures)
{
    const Workspace workspace;
    const Outcome run = workspace.run(words("render --missing --size 16 -"), smallArchive());
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("--custom"));
    EXPECT_TRUE(workspace.files().isEmpty());
}

TEST(Render, WritesPicturesOfSnapShotsBesideTheDocument)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("in/a.xml"), smallDocument());
    EXPECT_EQ(workspace.run("render --all --size 32 in/a.xml").code, 0);
    EXPECT_EQ(QImage(workspace.path(QStringLiteral("in/icon_Front %2f left.jpg"))).size(),
              QSize(32, 24));
}

TEST(Render, WritesPicturesOfSnapShotsIntoTheirFolder)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    workspace.write(QStringLiteral("pictures/x"), "");
    EXPECT_EQ(workspace.run("render --all --size 16 --snapshots pictures a.xml").code, 0);
    EXPECT_TRUE(workspace.exists(QStringLiteral("pictures/icon_Größe.jpg")));
}

TEST(Render, MissingLeavesPicturesThatAreThere)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("host/x"), "");
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    const QStringList missing = words("render --missing --json --size 16 --install host a.rvx");
    EXPECT_EQ(workspace.run(missing).json().value(QStringLiteral("pictures")).toArray().size(), 2);
    const QByteArray blue = workspace.read(QStringLiteral("host/sethumbs/Blue.jpg"));
    workspace.write(QStringLiteral("host/sethumbs/House/Warm/Red.jpg"), blue);
    const Outcome again = workspace.run(missing);
    EXPECT_EQ(again.json().value(QStringLiteral("pictures")).toArray().size(), 0);
    EXPECT_EQ(again.json().value(QStringLiteral("kept")).toInt(), 2);
    EXPECT_EQ(workspace.read(QStringLiteral("host/sethumbs/House/Warm/Red.jpg")), blue);
}

TEST(Render, MissingDrawsWhatCannotBeDecoded)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    workspace.write(QStringLiteral("host/sethumbs/Blue.jpg"), "no picture");
    EXPECT_EQ(workspace.run("render --missing --size 16 --install host a.rvx").code, 0);
    EXPECT_FALSE(QImage(workspace.path(QStringLiteral("host/sethumbs/Blue.jpg"))).isNull());
}

TEST(Render, EmbedsPicturesThatTheLibraryDecodes)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    EXPECT_EQ(workspace.run("render --all --embed --size 24 a.rvx").code, 0);
    EXPECT_EQ(workspace.files(), QStringList(QStringLiteral("a.rvx")));
    EXPECT_EQ(workspace.run("preview a.rvx colour[Blue] -o b.png").code, 0);
    EXPECT_EQ(QImage(workspace.path(QStringLiteral("b.png"))).size(), QSize(24, 24));
}

TEST(Render, ChangesNoDocumentWithoutEmbed)
{
    Workspace workspace;
    workspace.copySamples();
    const QString file = QStringLiteral("archives/Custom/MyPresets.rvx");
    const QByteArray before = workspace.read(file);
    EXPECT_EQ(workspace
                  .run({QStringLiteral("render"), QStringLiteral("--all"), QStringLiteral("--size"),
                        QStringLiteral("16"), QStringLiteral("--custom"),
                        QStringLiteral("archives/Custom"), file})
                  .code,
              0);
    EXPECT_EQ(workspace.read(file), before);
}

TEST(Render, WritesADocumentOnlyWhenItChanged)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    const QStringList embed = words("render --all --embed --size 16 a.rvx");
    EXPECT_EQ(workspace.run(embed).code, 0);
    const QByteArray once = workspace.read(QStringLiteral("a.rvx")) + "\n<!-- kept -->\n";
    workspace.write(QStringLiteral("a.rvx"), once);
    EXPECT_EQ(workspace.run(embed).code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), once);
}

TEST(Render, TellsProgramsWhatItDrew)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    const Outcome run = workspace.run("render --json --all --size 20 -o out a.rvx");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("render")));
    const QJsonObject first =
        run.json().value(QStringLiteral("pictures")).toArray().at(0).toObject();
    EXPECT_EQ(first.value(QStringLiteral("path")).toString(),
              QStringLiteral("colours[Colours]/colour[Red]"));
    EXPECT_EQ(first.value(QStringLiteral("written")).toString(),
              QStringLiteral("out/colour Red.png"));
    EXPECT_EQ(first.value(QStringLiteral("width")).toInt(), 20);
}

TEST(Render, NamesTheSecondOfANameApart)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    workspace.write(QStringLiteral("b.rvx"), QByteArray(s_colours).replace("Red", "RED"));
    EXPECT_EQ(workspace.run("render --all --size 16 -o out a.rvx b.rvx").code, 0);
    EXPECT_EQ(
        QDir(workspace.path(QStringLiteral("out")))
            .entryList(QDir::Files)
            .join(QStringLiteral(", ")),
        QStringLiteral("colour Blue (2).png, colour Blue.png, colour RED (2).png, colour Red.png"));
}

TEST(Render, NamesOfFilesAreShortenedBetweenLetters)
{
    const Workspace workspace;
    // Of 2 bytes each: 7 of "colour " leave room for 96 letters and a half.
    const QByteArray name = QStringLiteral("\u00e4").repeated(150).toUtf8();
    workspace.write(QStringLiteral("a.rvx"), QByteArray(s_colours).replace("Red", name));
    EXPECT_EQ(workspace.run("render --all --size 16 -o out a.rvx").code, 0);
    EXPECT_TRUE(workspace.exists(QStringLiteral("out/colour ") +
                                 QStringLiteral("\u00e4").repeated(96) + QStringLiteral(".png")));
}

TEST(Render, NamesOfFilesHaveNoSignThatASystemRefuses)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    QByteArray(s_colours).replace("Red", "a\\b/c:d*e?f&quot;g&lt;h>i|j%k&#127;l"));
    EXPECT_EQ(workspace.run("render --all --size 16 -o out a.rvx").code, 0);
    EXPECT_TRUE(workspace.exists(QStringLiteral("out/colour a-b-c-d-e-f-g-h-i-j-k-l.png")));
}

TEST(Render, FlatColoursAreThemselves)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    EXPECT_EQ(workspace.run("render --all --flat --size 32 -o . a.rvx").code, 0);
    const QColor colour = middle(QImage(workspace.path(QStringLiteral("colour Red.png"))));
    EXPECT_NEAR(colour.red(), 230, 26);
    EXPECT_LT(colour.green(), 90);
}

TEST(Render, FindsTexturesInTheHostsFolders)
{
    const Workspace workspace;
    QImage green(4, 4, QImage::Format_RGB32);
    green.fill(QColor(20, 200, 20));
    workspace.write(QStringLiteral("host/textures/x"), "");
    EXPECT_TRUE(green.save(workspace.path(QStringLiteral("host/textures/green.png"))));
    workspace.write(QStringLiteral("in/a.rvx"), textured("Green", "textures\\green.png"));
    EXPECT_EQ(workspace.run("render --all --size 32 --install host -o . in/a.rvx").code, 0);
    const QColor colour = middle(QImage(workspace.path(QStringLiteral("colour Green.png"))));
    EXPECT_GT(colour.green(), 2 * colour.red());
}

TEST(Render, TexturesAreWhatTheyHoldWhateverTheirName)
{
    const Workspace workspace;
    QImage green(4, 4, QImage::Format_RGB32);
    green.fill(QColor(20, 200, 20));
    EXPECT_TRUE(green.save(workspace.path(QStringLiteral("green.png")), "BMP"));
    workspace.write(QStringLiteral("a.rvx"), textured("Green", "green.png"));
    EXPECT_EQ(workspace.run("render --all --size 32 -o . a.rvx").code, 0);
    const QColor colour = middle(QImage(workspace.path(QStringLiteral("colour Green.png"))));
    EXPECT_GT(colour.green(), 2 * colour.red());
}

TEST(Render, ATextureThatIsTooLargeIsNotDecoded)
{
    const Workspace workspace;
    QImage wide(8193, 2, QImage::Format_RGB32);
    wide.fill(QColor(20, 200, 20));
    EXPECT_TRUE(wide.save(workspace.path(QStringLiteral("huge.png"))));
    workspace.write(QStringLiteral("a.rvx"), textured("Huge", "huge.png"));
    EXPECT_EQ(workspace.run("render --all --size 16 -o . a.rvx").code, 0);
    const QColor colour = middle(QImage(workspace.path(QStringLiteral("colour Huge.png"))));
    EXPECT_LT(colour.green() - colour.red(), 20);
}

TEST(Render, NamesLeadOutOfNoFolder)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("in/host/x"), "");
    workspace.write(QStringLiteral("in/a.rvx"),
                    "<presets><colours><colour name=\"..\\..\\up\"/><colour cat=\"..\" "
                    "path=\"..\\..\" name=\"b\"/><colour imgname=\"..\\..\\c\" name=\"c\"/>"
                    "</colours></presets>");
    const Outcome run = workspace.run("render --all --size 16 --install in/host in/a.rvx");
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.err.count(QLatin1String("give no place")), 1);
    EXPECT_TRUE(run.err.endsWith(
        QLatin1String(": its names give no place for a picture; the same goes for 2 others\n")))
        << run.err.toStdString();
    EXPECT_EQ(workspace.files(),
              (QStringList{QStringLiteral("in/a.rvx"), QStringLiteral("in/host/x")}));
    EXPECT_EQ(workspace.run("render --all --size 16 -o in/out in/a.rvx").code, 0);
    for (const QString& file : workspace.files())
        EXPECT_TRUE(file.startsWith(QLatin1String("in/"))) << file.toStdString();
}

TEST(Render, TellsOneOfThePicturesThatAreRefusedAlike)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    EXPECT_EQ(workspace.run("render --all --size 16 -o out a.rvx").code, 0);
    const Outcome run = workspace.run("render --all --size 16 -o out a.rvx");
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.out, QStringLiteral("a.rvx  0 pictures\n"));
    EXPECT_EQ(run.err, QStringLiteral("out/material Brass.png: \"out/material Brass.png\" is there "
                                      "already: --force writes over it; the same goes for 3 "
                                      "others\n"));
}

TEST(Render, ValuesThatAreNoNumbersAreDrawnToo)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), R"(<presets><materials><material name="a"><colour>
<diffuse><param name="Colour" type="shader" val="colour"><plainColour enabled="1">
<param name="Colour" type="colour" val="nan -inf 1e38"/></plainColour></param></diffuse></colour>
<finish shaderClass="lit appearance"><param name="roughness" type="float" val="nan"/>
<param name="refraction" type="float" val="-1e30"/><param name="mirror factor" type="float" val="inf"/>
</finish></material></materials><lenses><lens name="b"><param name="Angle" type="float" val="inf"/>
</lens></lenses><aspectratios><aspectratio name="c"><param name="Aspect Ratio" type="float" val="0"/>
</aspectratio></aspectratios><cameras><camera name="d"><param name="From" type="point" val="nan 1e38 0"/>
<param name="To" type="point" val="0 -1e38 inf"/><param name="Field Of View" type="float" val="-5"/>
</camera></cameras><naturalLights><naturalLightStudio name="e">
<param name="Sun Azimuth" type="float" val="1e30"/><param name="Sun Altitude" type="float" val="nan"/>
</naturalLightStudio></naturalLights></presets>)");
    const Outcome run = workspace.run("render --json --all --size 16 -o out a.rvx");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.json().value(QStringLiteral("pictures")).toArray().size(), 5);
}

TEST(Render, WithoutTheHostsFolderAnswersTwo)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    const Outcome run = workspace.run("render --all a.rvx");
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("--install"));
    EXPECT_EQ(workspace.files(), QStringList(QStringLiteral("a.rvx")));
}

TEST(Render, RefusesSizesThatNobodyNeeds)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    for (const char* const size : {"15", "2049", "100000"})
        EXPECT_EQ(
            workspace
                .run(words("render --all -o out a.rvx --size") + QStringList(QLatin1String(size)))
                .code,
            2)
            << size;
}

TEST(Render, TakesTheGreatestSizeThereIs)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), "<presets><colours/></presets>");
    EXPECT_EQ(workspace.run("render --all --size 2048 -o out a.rvx").out,
              QStringLiteral("a.rvx  0 pictures\n"));
}

TEST(Render, AsksForMissingOrAll)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    EXPECT_EQ(workspace.run("render -o out a.rvx").code, 2);
    EXPECT_EQ(workspace.run("render --all --missing -o out a.rvx").code, 2);
}

TEST(Render, AFileThatCannotBeWrittenAnswersTwo)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), s_colours);
    workspace.write(QStringLiteral("host/sethumbs"), "a file where a folder should be");
    EXPECT_EQ(workspace.run("render --all --size 16 --install host a.rvx").code, 2);
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImage>

/// What comes from a stranger, a full disk, and two at work at once.
namespace rvopen::test {

namespace {

QByteArray namedSnapShots(const QStringList& names)
{
    QByteArray xml = "<snapRoot>\n  <snapshots name=\"Model SnapShots\">\n";
    for (const QString& name : names)
        xml += "    <snapshot name=\"" + name.toUtf8() + "\"/>\n";
    return xml + "  </snapshots>\n</snapRoot>\n";
}

QByteArray withImage(const QString& reference)
{
    return "<snapRoot><snapshot><background subcat=\"Image\"><param name=\"File Name\" "
           "type=\"string\" val=\"" +
           reference.toUtf8() + "\"/></background></snapshot></snapRoot>";
}

} // namespace

TEST(Strangers, LinksUnderTheNamesOfPicturesAreNotWrittenThrough)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("home/profile"), "mine");
    workspace.write(QStringLiteral("packed/a.xml"),
                    namedSnapShots({QStringLiteral("Front"), QStringLiteral("Back")}));
    workspace.shell(QStringLiteral("ln -s ../home/profile packed/icon_Front.jpg; "
                                   "ln -s ../home/made packed/icon_Back.jpg"));
    for (const char* const which : {"--missing", "--all"}) {
        const Outcome run = workspace.shell(
            QStringLiteral("rvopen render --size 16 %1 packed/a.xml").arg(QLatin1String(which)));
        EXPECT_EQ(run.code, 2) << which;
        EXPECT_TRUE(run.err.contains(QLatin1String("link"))) << run.err.toStdString();
        EXPECT_EQ(workspace.read(QStringLiteral("home/profile")), QByteArray("mine"));
        EXPECT_FALSE(workspace.exists(QStringLiteral("home/made")));
    }
}

TEST(Strangers, LinksAmongTheFoldersOfPicturesLeadNowhere)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("host/xml/x"), "");
    workspace.write(QStringLiteral("home/x"), "");
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"Red\" cat=\"C\"/></colours></presets>");
    workspace.shell(QStringLiteral("mkdir host/sethumbs; ln -s ../../home host/sethumbs/C"));
    const QStringList before = workspace.files();
    const Outcome run =
        workspace.shell(QStringLiteral("rvopen render --size 16 --all --install host a.rvx"));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(workspace.files(), before);
}

TEST(Strangers, LinksAmongPicturesToLookAtAreNotWrittenThrough)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("mine"), "mine");
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"Red\"/></colours></presets>");
    workspace.shell(QStringLiteral("mkdir out; ln -s ../mine 'out/colour Red.png'"));
    EXPECT_EQ(workspace.shell(QStringLiteral("rvopen render --size 16 --all -o out a.rvx")).code,
              2);
    EXPECT_EQ(workspace.read(QStringLiteral("mine")), QByteArray("mine"));
}

TEST(Strangers, FilesWhoseNamesAreNotUtf8AreRefusedByName)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"Red\"/></colours></presets>");
    const QByteArray replaced = "o\xef\xbf\xbd.txt";
    workspace.write(QString::fromUtf8(replaced), "mine");
    const Outcome run =
        workspace.shell(QStringLiteral("rvopen thumbnail a.rvx \"$(printf 'o\\377.txt')\""));
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(run.err.contains(QLatin1String("UTF-8"))) << run.err.toStdString();
    EXPECT_EQ(workspace.read(QString::fromUtf8(replaced)), QByteArray("mine"));

    workspace.shell(QStringLiteral("mkdir d; cp a.rvx \"d/$(printf 'o\\377.rvx')\""));
    for (const char* const command : {"check", "format --check", "info", "list"}) {
        const Outcome of =
            workspace.shell(QStringLiteral("rvopen %1 d").arg(QLatin1String(command)));
        EXPECT_EQ(of.code, 2) << command;
        EXPECT_TRUE(of.err.contains(QLatin1String("UTF-8"))) << of.err.toStdString();
    }
}

TEST(Strangers, FoldersThatCannotBeListedAreNotPassedOver)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("d/a.xml"), smallDocument());
    workspace.shell(QStringLiteral("ln -s nowhere.xml d/b.xml"));
    for (const char* const command : {"check", "format --check", "info"}) {
        const Outcome run =
            workspace.shell(QStringLiteral("rvopen %1 d").arg(QLatin1String(command)));
        EXPECT_EQ(run.code, 2) << command;
        EXPECT_TRUE(run.err.contains(QLatin1String("b.xml"))) << run.err.toStdString();
    }
}

TEST(Strangers, ExtensionsInCapitalsAreFoundInFolders)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("d/A.RVX"), "<presets/>");
    workspace.write(QStringLiteral("d/e/B.Xml"), "<snapRoot/>");
    EXPECT_TRUE(workspace.shell(QStringLiteral("rvopen info --json d"))
                    .json()[QStringLiteral("files")]
                    .toArray()
                    .size() == 2);
}

TEST(Strangers, OneLongLineIsCheckedAsFastAsManyShortOnes)
{
    const Workspace workspace;
    QByteArray xml = "<snapRoot><snapshots name=\"Model SnapShots\"><snapshot name=\"A\">";
    for (int i = 0; i < 20000; ++i)
        xml += "<camera><param name=\"x\" type=\"odd\" val=\"1\"/></camera>";
    workspace.write(QStringLiteral("a.xml"), xml + "</snapshot></snapshots></snapRoot>");
    workspace.write(QStringLiteral("b.xml"),
                    QByteArray(xml).replace("><", ">\n<") + "\n</snapshot></snapshots></snapRoot>");
    qint64 times[2];
    QStringList lastLines;
    for (int i = 0; i < 2; ++i) {
        QElapsedTimer timer;
        timer.start();
        const Outcome run = workspace.shell(
            QStringLiteral("rvopen check --json %1").arg(QLatin1String(i ? "b.xml" : "a.xml")));
        times[i] = timer.elapsed();
        EXPECT_GT(run.json()[QStringLiteral("findings")].toArray().size(), 20000);
    }
    // Squared it would be a thousand times.
    EXPECT_LT(times[0], 20 * times[1] + 1000);
}

TEST(Strangers, PipesAreReadOnce)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"),
                    "<snapRoot><snapshots name=\"SnapShots\"/></snapRoot>");
    const Outcome run = workspace.shell(
        QStringLiteral("mkfifo f.xml; cat a.xml > f.xml & timeout 20 rvopen check --json f.xml"));
    EXPECT_EQ(run.code, 1) << run.err.toStdString();
    const QJsonObject finding = run.json()[QStringLiteral("findings")].toArray().first().toObject();
    EXPECT_EQ(finding[QStringLiteral("file")].toString(), QStringLiteral("f.xml"));
    EXPECT_EQ(finding[QStringLiteral("column")].toInt(), 11);
}

TEST(Strangers, WhatCannotBePrintedIsNoSuccess)
{
    const Workspace workspace;
    for (const char* const arguments : {"--help", "--version", "", "list --help"}) {
        const Outcome run =
            workspace.shell(QStringLiteral("rvopen %1 > /dev/full").arg(QLatin1String(arguments)));
        EXPECT_EQ(run.code, 2) << arguments;
        EXPECT_FALSE(run.err.isEmpty()) << arguments;
    }
}

TEST(Strangers, ControlCharactersReachNoTerminal)
{
    const Workspace workspace;
    // ESC, CSI as one character, and what turns the direction of text round.
    const QString evil = QStringLiteral("e\u001b[31m\u009b2J\u202e\u2067x");
    workspace.write(evil + QLatin1String(".rvx"), "<presets><colours><colour name=\"\xc2\x9b"
                                                  "2J\xe2\x81\xa6\"/></colours></presets>");
    for (const char* const command :
         {"list", "list --json", "info", "tree", "render --size 16 --all -o out", "check",
          "check --json", "check --format sarif", "format --check", "textures"}) {
        const Outcome run =
            workspace.shell(QStringLiteral("rvopen %1 *.rvx").arg(QLatin1String(command)));
        for (const QString& text : {run.out, run.err}) {
            for (const char16_t c : {u'\x1b', u'\x9b', u'\x202e', u'\x2066', u'\x2067'})
                EXPECT_FALSE(text.contains(QChar(c))) << command << " U+" << std::hex << int(c);
        }
    }
}

TEST(Strangers, TwoAtOnceLoseNoChange)
{
    const Workspace workspace;
    for (int round = 0; round < 12; ++round) {
        workspace.write(QStringLiteral("a.xml"), smallDocument());
        const Outcome run = workspace.shell(
            QStringLiteral("rvopen set a.xml \"camera[Eye]:Field Of View=50\" --in-place & "
                           "rvopen set a.xml @name=Other --in-place; a=$?; wait $! && exit $a"));
        EXPECT_EQ(run.code, 0) << run.err.toStdString();
        const QByteArray left = workspace.read(QStringLiteral("a.xml"));
        EXPECT_TRUE(left.contains("val=\"50\"") && left.contains("name=\"Other\""))
            << left.toStdString();
        EXPECT_EQ(workspace.files(), QStringList(QStringLiteral("a.xml")));
    }
}

TEST(Strangers, TwoAtOnceDoNotOverwriteWhatTheOtherMade)
{
    const Workspace workspace;
    int taken = 0;
    for (int round = 0; round < 10; ++round) {
        const Outcome run =
            workspace.shell(QStringLiteral("rvopen new archive x%1.rvx --name One & a=$!; "
                                           "rvopen new archive x%1.rvx --name Two; b=$?; wait $a; "
                                           "[ $(($? + b)) -eq 2 ]")
                                .arg(round));
        taken += run.code == 0 ? 1 : 0;
    }
    EXPECT_EQ(taken, 10);
}

TEST(Strangers, CollectTakesImagesOnly)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("secret.png"), "root:x:0:0");
    workspace.write(QStringLiteral("a.xml"), withImage(QStringLiteral("secret.png")));
    workspace.write(QStringLiteral("b.xml"), withImage(QStringLiteral("/proc/self/environ")));
    workspace.write(QStringLiteral("c.xml"), withImage(QStringLiteral("/dev/zero")));
    for (const char* const file : {"a.xml", "b.xml", "c.xml"}) {
        const Outcome run = workspace.shell(
            QStringLiteral("timeout 20 rvopen textures --everywhere --collect out-%1 %1")
                .arg(QLatin1String(file)));
        EXPECT_EQ(run.code, 1) << file;
        EXPECT_EQ(workspace.shell(QStringLiteral("ls out-%1").arg(QLatin1String(file))).out,
                  QLatin1String(file) + QLatin1Char('\n'));
    }
}

TEST(Strangers, CollectStaysInTheFoldersOfTheDocumentAndTheHost)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("elsewhere/x.png"), pictureOf("x"));
    workspace.write(QStringLiteral("here/a.xml"), withImage(QStringLiteral("../elsewhere/x.png")));
    workspace.write(QStringLiteral("here/b.xml"), withImage(QStringLiteral("link.png")));
    workspace.shell(QStringLiteral("ln -s ../elsewhere/x.png here/link.png"));
    EXPECT_EQ(workspace.shell(QStringLiteral("rvopen textures --collect o1 here/a.xml")).code, 1);
    EXPECT_FALSE(workspace.exists(QStringLiteral("o1/x.png")));
    EXPECT_EQ(workspace.shell(QStringLiteral("rvopen textures --collect o2 here/b.xml")).code, 1);
    EXPECT_EQ(
        workspace.shell(QStringLiteral("rvopen textures --everywhere --collect o3 here/a.xml"))
            .code,
        0);
    EXPECT_EQ(workspace.read(QStringLiteral("o3/x.png")), pictureOf("x"));
    EXPECT_EQ(
        workspace
            .shell(QStringLiteral("rvopen textures --install elsewhere --collect o4 here/a.xml"))
            .code,
        0);
}

TEST(Strangers, ImportTakesPicturesOnlyAndFromTheSourceOnly)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("home/secret"), pictureOf("secret"));
    workspace.write(QStringLiteral("from/a.xml"),
                    namedSnapShots({QStringLiteral("A"), QStringLiteral("B")}));
    workspace.write(QStringLiteral("from/icon_A.jpg"), "no picture");
    workspace.shell(QStringLiteral("ln -s ../home/secret from/icon_B.jpg"));
    workspace.write(QStringLiteral("b.xml"), namedSnapShots({}));
    const Outcome run = workspace.shell(QStringLiteral("rvopen import from/a.xml b.xml -o c.xml"));
    EXPECT_EQ(run.code, 2);
    EXPECT_FALSE(workspace.exists(QStringLiteral("icon_A.jpg")));
    EXPECT_FALSE(workspace.exists(QStringLiteral("icon_B.jpg")));
}

TEST(Strangers, NoPictureNeedsADisplay)
{
    Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"Red\"/></colours></presets>");
    for (const char* const platform : {"xcb", "offscreen", "nonsense", "minimal"}) {
        workspace.environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QLatin1String(platform));
        for (const char* const command :
             {"thumbnail a.rvx t.png", "sheet --force --size 32 a.rvx -o s.png",
              "render --force --all --size 16 a.rvx -o o"})
            EXPECT_EQ(workspace.shell(QStringLiteral("rvopen ") + QLatin1String(command)).code, 0)
                << platform << ' ' << command;
    }
}

TEST(Strangers, ALimitOnFilesIsAnErrorLikeOthers)
{
    const Workspace workspace;
    QStringList names;
    for (int i = 0; i < 5000; ++i)
        names << QStringLiteral("Snapshot %1").arg(i);
    workspace.write(QStringLiteral("a.xml"), namedSnapShots(names));
    const Outcome run =
        workspace.shell(QStringLiteral("ulimit -f 20; rvopen set a.xml @name=x -o b.xml"));
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(run.err.contains(QLatin1String("b.xml"))) << run.err.toStdString();
    EXPECT_EQ(workspace.files(), QStringList(QStringLiteral("a.xml")));
}

TEST(Strangers, WhatTheCallerIgnoresStaysIgnored)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    for (const char* const signal : {"HUP", "INT", "TERM"}) {
        const Outcome run = workspace.shell(
            QStringLiteral("mkfifo f; (trap '' %1; exec rvopen info f) & sleep 0.5; "
                           "kill -%1 $!; cat a.xml > f; wait $!; c=$?; rm f; exit $c")
                .arg(QLatin1String(signal)));
        EXPECT_EQ(run.code, 0) << signal << run.err.toStdString();
    }
}

TEST(Strangers, ScalesAreNumbersAboveZero)
{
    const Workspace workspace;
    for (const char* const scale : {"nan", "inf", "0", "-1", "1e39", "1e-60"}) {
        EXPECT_EQ(workspace
                      .shell(QStringLiteral("rvopen new snapshots a.xml --units-scale=%1")
                                 .arg(QLatin1String(scale)))
                      .code,
                  2)
            << scale;
        EXPECT_FALSE(workspace.exists(QStringLiteral("a.xml"))) << scale;
    }
}

TEST(Strangers, WhatIsNoPictureIsMissing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), namedSnapShots({QStringLiteral("A")}));
    // A beginning that promises a picture, and no more.
    workspace.write(QStringLiteral("icon_A.jpg"), pictureOf("x").left(9).replace('1', '9'));
    EXPECT_EQ(workspace.shell(QStringLiteral("rvopen render --missing --size 16 a.xml")).code, 0);
    EXPECT_FALSE(QImage(workspace.path(QStringLiteral("icon_A.jpg"))).isNull());
}

TEST(Strangers, ThousandsOfEqualCandidatesAreReadOnceEach)
{
    const Workspace workspace;
    workspace.shell(QStringLiteral("i=0; while [ $i -lt 1000 ]; do mkdir -p l/$i; "
                                   "echo same > l/$i/a.png; i=$((i + 1)); done"));
    QByteArray xml = "<snapRoot>";
    for (int i = 0; i < 50; ++i)
        xml += "<snapshot><background subcat=\"Image\"><param name=\"File Name\" type=\"string\" "
               "val=\"D:\\" +
               QByteArray::number(i) + "\\x\\a.png\"/></background></snapshot>";
    workspace.write(QStringLiteral("a.xml"), xml + "</snapRoot>");
    QString trace;
    const Outcome run =
        workspace.traced(QStringLiteral("-e trace=openat"),
                         QStringLiteral("rvopen textures --relink l a.xml -o b.xml"), trace);
    EXPECT_EQ(run.code, 0) << run.err.left(300).toStdString();
    EXPECT_GE(trace.count(QLatin1String("/a.png\"")), 1000);
    EXPECT_LT(trace.count(QLatin1String("openat(")), 4000);
}

TEST(Strangers, StandardInputCannotBeWrittenOver)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("source.xml"), namedSnapShots({QStringLiteral("A")}));
    workspace.write(QStringLiteral("lib/x.png"), "x");
    const QStringList before = workspace.files();
    for (const char* const line :
         {"set - @name=x --in-place", "format - --in-place", "import source.xml - --in-place",
          "check --fix --in-place -", "textures --relink lib - --in-place",
          "render --all --embed -"}) {
        const Outcome run = workspace.run(
            line, "<snapRoot  name='y'><snapshots name='SnapShots'><snapshot name='B'/></snapshots>"
                  "</snapRoot>");
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("standard input")) << line;
        EXPECT_EQ(workspace.files(), before) << line;
    }
}

TEST(Strangers, NoEmptyFolderIsLeft)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "<broken");
    EXPECT_EQ(workspace.shell(QStringLiteral("rvopen render --all a.xml -o out/deep")).code, 2);
    EXPECT_FALSE(workspace.exists(QStringLiteral("out")));
}

TEST(Strangers, OtherFilesAreToldForWhatTheyAre)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("picture.xml"), QByteArray("\xff\xd8\xff\xe0\0\x10JFIF", 10));
    workspace.write(QStringLiteral("packed.rvx"), QByteArray("\x1f\x8b\x08\0", 4));
    for (const char* const command : {"tree", "list", "format --check", "check"}) {
        const QString name = QLatin1String(command);
        const Outcome picture = workspace.run(name.split(QLatin1Char(' ')) +
                                              QStringList(QStringLiteral("picture.xml")));
        EXPECT_THAT((picture.out + picture.err).toStdString(),
                    ::testing::HasSubstr(": This is a JPEG picture, no document"))
            << command;
        const Outcome packed =
            workspace.run(name.split(QLatin1Char(' ')) + QStringList(QStringLiteral("packed.rvx")));
        EXPECT_THAT((packed.out + packed.err).toStdString(),
                    ::testing::HasSubstr(": This is a gzip file, no document"))
            << command;
    }
    const Outcome input = workspace.run("tree -", QByteArray("\x1f\x8b\x08\0", 4));
    EXPECT_THAT(input.err.toStdString(),
                ::testing::HasSubstr(": This is a gzip file, no document"));
}

} // namespace rvopen::test

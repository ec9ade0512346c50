// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

QJsonObject infoOf(const QByteArray& xml)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), xml);
    const Outcome run = workspace.run("info --json a.xml");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    return run.json()[QStringLiteral("files")].toArray().first().toObject();
}

} // namespace

TEST(Info, IsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    workspace.write(QStringLiteral("bad.xml"), "<a><b></a>");
    EXPECT_TRUE(isOfSchema(workspace.run("info --json ."), QStringLiteral("info")));
}

TEST(Info, TellsASnapShotDocument)
{
    const QJsonObject info = infoOf(smallDocument());
    EXPECT_EQ(info[QStringLiteral("kind")], QStringLiteral("snapshots"));
    EXPECT_EQ(info[QStringLiteral("version")], QStringLiteral("3.1"));
    EXPECT_EQ(info[QStringLiteral("unitsScale")], 10);
    EXPECT_EQ(info[QStringLiteral("size")], smallDocument().size());
    EXPECT_EQ(info[QStringLiteral("elements")][QStringLiteral("camera")], 2);
}

TEST(Info, CountsTheSnapShotsOfCollections)
{
    const QJsonObject group =
        infoOf(smallDocument())[QStringLiteral("groups")].toArray().first().toObject();
    EXPECT_EQ(group[QStringLiteral("name")], QStringLiteral("Model SnapShots"));
    EXPECT_EQ(group[QStringLiteral("members")], 2);
}

TEST(Info, CountsThePresetsOfSectionsInFoldersToo)
{
    const QJsonObject info = infoOf(smallArchive());
    EXPECT_EQ(info[QStringLiteral("kind")], QStringLiteral("archive"));
    EXPECT_EQ(info[QStringLiteral("presets")], 4);
    EXPECT_EQ(info[QStringLiteral("groups")].toArray().first()[QStringLiteral("members")], 3);
}

TEST(Info, TellsWhatIsUnknown)
{
    const QJsonObject unknown =
        infoOf("<snapRoot colour=\"1\"><snapshot><camera><param name=\"Zoom\" type=\"float\" "
               "val=\"1\"/></camera><gadget/></snapshot></snapRoot>")[QStringLiteral("unknown")]
            .toObject();
    EXPECT_EQ(unknown[QStringLiteral("elements")].toObject().keys(),
              QStringList(QStringLiteral("gadget")));
    EXPECT_EQ(unknown[QStringLiteral("attributes")].toObject().keys(),
              QStringList(QStringLiteral("snapRoot@colour")));
    EXPECT_EQ(unknown[QStringLiteral("parameters")].toObject().keys(),
              QStringList(QStringLiteral("camera:Zoom")));
}

// A file is looked through as text, standard input as a document.
TEST(Info, TellsOfAFileWhatItTellsOfADocument)
{
    Workspace workspace;
    workspace.copySamples();
    workspace.write(QStringLiteral("odd.xml"),
                    "<root unitsScale='&#50;'><materials refname='a&amp;b'><dir><dir/><material>"
                    "<param name='x&amp;' type='&lt;'/><finish shaderClass='plain'><param "
                    "name='zz'/></finish></material></dir><param><material/></param></materials>"
                    "<materials refname='a&amp;b'/><param name='q'><dir/></param><snapshots "
                    "name=''><x/></snapshots><colours><colour subcat='plain'><plainColour a='1'>"
                    "<param name='Colour' type='colour'/></plainColour></colour></colours></root>");
    workspace.write(QStringLiteral("prefixes.rvx"),
                    "<presets xmlns:p='u' p:name='r' p:zorvane_version='3'><p:materials p:name='n'>"
                    "<material p:subcat='opaque'><param p:name='Zoom' p:type='float'/></material>"
                    "</p:materials><p:materials p:name='n'/></presets>");
    int count = 0;
    for (const QString& file : workspace.files()) {
        if (!file.endsWith(QLatin1String(".rvx")) && !file.endsWith(QLatin1String(".xml")))
            continue;
        const auto only = [](const Outcome& run) {
            QJsonObject object = run.json()[QStringLiteral("files")].toArray().first().toObject();
            object.remove(QStringLiteral("file"));
            return object;
        };
        EXPECT_EQ(only(workspace.run({QStringLiteral("info"), QStringLiteral("--json"), file})),
                  only(workspace.run("info --json -", workspace.read(file))))
            << file.toStdString();
        ++count;
    }
    EXPECT_GT(count, 10);
}

TEST(Info, KnowsAnArchiveByItsTypeOrItsSections)
{
    EXPECT_EQ(infoOf("<a type='Zorvane'/>")[QStringLiteral("kind")], QStringLiteral("archive"));
    EXPECT_EQ(infoOf("<a><b/><cameras/></a>")[QStringLiteral("kind")], QStringLiteral("archive"));
    EXPECT_EQ(infoOf("<a><b><cameras/></b></a>")[QStringLiteral("kind")],
              QStringLiteral("unknown"));
}

TEST(Info, SampleDocumentsHaveNothingUnknown)
{
    Workspace workspace;
    workspace.copySamples();
    const QString out = workspace.run("info .").out;
    EXPECT_FALSE(out.contains(QLatin1String("unknown")));
}

TEST(Info, ReadsStandardInput)
{
    const Workspace workspace;
    const Outcome run = workspace.run("info -", smallDocument());
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out.toStdString(), ::testing::HasSubstr("snapshot document"));
}

TEST(Info, GoesIntoFolders)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("x/y/a.rvx"), smallArchive());
    workspace.write(QStringLiteral("x/b.xml"), smallDocument());
    workspace.write(QStringLiteral("x/c.txt"), "no document");
    const Outcome run = workspace.run("info --json x");
    EXPECT_EQ(run.json()[QStringLiteral("files")].toArray().size(), 2);
}

TEST(Info, NamesFileLineAndColumnOfAnError)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("bad.xml"), "<a>\n  <b></c>\n</a>");
    const Outcome run = workspace.run("info bad.xml");
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err.toStdString(), ::testing::MatchesRegex("bad.xml:2:[0-9]+: .+\n"));
}

TEST(Info, AMissingFileDoesNotStopTheOthers)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("b.xml"), smallDocument());
    const Outcome run = workspace.run("info a.xml b.xml");
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err.toStdString(), ::testing::StartsWith("a.xml: "));
    EXPECT_THAT(run.out.toStdString(), ::testing::StartsWith("b.xml\n"));
}

TEST(Info, TakesNamesWithBlanksBackslashesAndOtherLetters)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("Häuser & Gärten/a b.xml"), smallDocument());
    const Outcome run = workspace.run("info 'Häuser & Gärten\\a b.xml'");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
}

TEST(Info, TakesNamesWithOtherLettersInAnyLocale)
{
    Workspace workspace;
    workspace.environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    workspace.write(QStringLiteral("雪.xml"), smallDocument());
    const Outcome run = workspace.run("info 雪.xml");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_THAT(run.out.toStdString(), ::testing::StartsWith("雪.xml\n"));
}

class BadInput : public ::testing::TestWithParam<const char*> {};

TEST_P(BadInput, IsAnErrorWithoutCrash)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), QByteArray(GetParam()));
    for (const char* command : {"info", "tree", "list", "format"}) {
        const Outcome run = workspace.run({QLatin1String(command), QStringLiteral("a.xml")});
        EXPECT_EQ(run.code, 2) << command;
        EXPECT_THAT(run.err.toStdString(), ::testing::StartsWith("a.xml:")) << command;
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, BadInput,
                         ::testing::Values("", "   ", "text", "<a", "<a></b>", "<a b='1' b='2'/>",
                                           "<a>&undefined;</a>", "<a>\x01</a>", "\xff\xfe<",
                                           "<a/><b/>", "<?xml version='1.0'?>"));

} // namespace rvopen::test

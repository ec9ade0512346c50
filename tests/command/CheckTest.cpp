// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QDir>
#include <QImage>
#include <QSet>

namespace rvopen::test {

namespace {

struct Found {
    QStringList rules;
    QJsonArray findings;
    int code = -1;
};

Found check(const Workspace& workspace, const QStringList& arguments)
{
    const Outcome run = workspace.run(words("check --json") + arguments);
    Found found;
    found.code = run.code;
    found.findings = run.json()[QStringLiteral("findings")].toArray();
    for (const auto& finding : found.findings)
        found.rules << finding.toObject()[QStringLiteral("rule")].toString();
    return found;
}

Found check(const QByteArray& xml, const QStringList& options = {})
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), xml);
    return check(workspace, words("a.xml") + options);
}

/// A snapshot document around what stands in a snapshot that is otherwise complete.
QByteArray inSnapShot(const QByteArray& xml)
{
    return "<snapRoot><snapshots name=\"Model SnapShots\"><snapshot "
           "name=\"A\"><snapShotSettings/>" +
           xml + "</snapshot></snapshots></snapRoot>";
}

QByteArray inCamera(const QByteArray& params)
{
    return inSnapShot("<camera>" + params + "</camera>");
}

QByteArray inArchive(const QByteArray& xml)
{
    return "<presets>" + xml + "</presets>";
}

} // namespace

struct RuleCase {
    const char* rule;
    QByteArray xml;
};

void PrintTo(const RuleCase& rule, std::ostream* out)
{
    *out << rule.rule << ": " << rule.xml.toStdString();
}

class CheckRule : public ::testing::TestWithParam<RuleCase> {};

TEST_P(CheckRule, IsFoundAlone)
{
    const Found found = check(GetParam().xml);
    EXPECT_EQ(found.rules, QStringList(QLatin1String(GetParam().rule)));
    EXPECT_EQ(found.code, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, CheckRule,
    ::testing::Values(
        RuleCase{"malformed-xml", "<snapRoot><a></snapRoot>"},
        RuleCase{"unknown-document", "<html/>"},
        RuleCase{"newer-version", "<snapRoot zorvane_version=\"3.2\"/>"},
        RuleCase{"newer-version", "<snapRoot zorvane_version=\"4.0\"/>"},
        RuleCase{"old-collection-name", "<snapRoot><snapshots name=\"SnapShots\"/></snapRoot>"},
        RuleCase{"units-scale", "<snapRoot unitsScale=\"0\"/>"},
        RuleCase{"units-scale", "<snapRoot unitsScale=\"big\"/>"},
        RuleCase{"unknown-element", "<snapRoot><Camera/></snapRoot>"},
        RuleCase{"unknown-attribute", "<snapRoot colour=\"red\"/>"},
        RuleCase{"unknown-kind", inSnapShot("<camera/><background subcat=\"plain\"/>")},
        RuleCase{"unknown-kind", inSnapShot("<camera/><scheme subcat=\"exterior\"/>")},
        RuleCase{"unknown-kind", inArchive("<materials><material subcat=\"Opake\"/></materials>")},
        RuleCase{"unknown-kind", inArchive("<lenses><lens subcat=\"long\"/></lenses>")},
        RuleCase{"misplaced-child", inArchive("<materials><colour/></materials>")},
        RuleCase{"misplaced-child",
                 inArchive("<materials><material><camera/></material></materials>")},
        RuleCase{"misplaced-child",
                 "<snapRoot><snapshots name=\"x\"><camera/></snapshots></snapRoot>"},
        RuleCase{"repeated-component", inSnapShot("<camera/><camera/>")},
        RuleCase{"repeated-component",
                 inArchive("<materials><material><bump/><bump/></material></materials>")},
        RuleCase{"ignored-child", inSnapShot("<camera/><lens/>")},
        RuleCase{"missing-component", inSnapShot("")},
        RuleCase{"hidden-parameter",
                 inCamera("ink<param name=\"Near\" type=\"float\" val=\"1\"/>")},
        RuleCase{"hidden-parameter",
                 inCamera("<![CDATA[ ]]><param name=\"Near\" type=\"float\" val=\"1\"/>")},
        RuleCase{"unknown-shader", inArchive("<bumps><bump><param name=\"Colour\" type=\"shader\" "
                                             "val=\"marble\"/></bump></bumps>")},
        RuleCase{"unknown-parameter", inCamera("<param name=\"near\" type=\"float\" val=\"1\"/>")},
        RuleCase{"unnamed-parameter", inCamera("<param type=\"float\" val=\"1\"/>")},
        RuleCase{"missing-type", inCamera("<param name=\"Near\" val=\"1\"/>")},
        RuleCase{"wrong-type", inCamera("<param name=\"Near\" type=\"integer\" val=\"1\"/>")},
        RuleCase{"wrong-type", inCamera("<param name=\"Near\" type=\"Float\" val=\"1\"/>")},
        RuleCase{"bad-value", inCamera("<param name=\"Near\" type=\"float\" val=\"1,5\"/>")},
        RuleCase{"bad-value", inCamera("<param name=\"Near\" type=\"float\" val=\"\"/>")},
        RuleCase{"bad-value",
                 inCamera("<param name=\"Orthographic\" type=\"boolean\" val=\"true\"/>")},
        RuleCase{"bad-value", inCamera("<param name=\"From\" type=\"point\" val=\"1 2\"/>")},
        RuleCase{"out-of-range", inCamera("<param name=\"Near\" rangeMax=\"2\" rangeMin=\"1\" "
                                          "type=\"float\" val=\"2.1\"/>")},
        RuleCase{"out-of-range", inCamera("<param name=\"Near\" rangeMax=\"2\" rangeMin=\"1\" "
                                          "type=\"float\" val=\"0.9\"/>")},
        RuleCase{"out-of-range",
                 inCamera("<param name=\"Near\" rangeMin=\"1\" type=\"float\" val=\"0\"/>")},
        RuleCase{"out-of-range",
                 inCamera("<param name=\"Near\" rangeMax=\"2\" type=\"float\" val=\"3\"/>")},
        RuleCase{"out-of-range", inCamera("<param name=\"Near\" type=\"float\" val=\"-1\"/>")},
        RuleCase{"out-of-range",
                 inCamera("<param name=\"Field Of View\" type=\"float\" val=\"-3\"/>")},
        RuleCase{"out-of-range", inCamera("<param name=\"Near\" rangeMin=\"-9\" type=\"float\" "
                                          "val=\"-1\"/>")},
        RuleCase{"out-of-range",
                 inArchive("<finishes><finish shaderClass=\"lit appearance\"><param "
                           "name=\"roughness\" type=\"float\" val=\"5\"/></finish></finishes>")},
        RuleCase{"out-of-range",
                 inArchive("<colours><colour><diffuse><param name=\"Colour\" type=\"shader\" "
                           "val=\"colour\"><plainColour><param name=\"Colour\" type=\"colour\" "
                           "val=\"5 5 5\"/></plainColour></param></diffuse></colour></colours>")},
        RuleCase{"duplicate-parameter",
                 inCamera("<param name=\"Near\" type=\"float\" val=\"1\"/>"
                          "<param name=\"Near\" type=\"float\" val=\"2\"/>")},
        RuleCase{"duplicate-name", "<snapRoot><snapshots name=\"Temp SnapShots\"><snapshot "
                                   "name=\"A\"/><snapshot name=\"A\"/></snapshots></snapRoot>"},
        RuleCase{"duplicate-link-name",
                 inSnapShot("<camera/><materialRepository><material linkname=\"a\"/>"
                            "<material linkname=\"a\"/></materialRepository>")},
        RuleCase{
            "duplicate-reference-name",
            inArchive("<colours><dir name=\"x\"><colour name=\"a\" refname=\"r\"/></dir><colour "
                      "name=\"b\" refname=\"r\"/></colours>")},
        RuleCase{"missing-archive", inArchive("<materials><dir archiveFilename=\"a\" "
                                              "archiveType=\"Else\"/></materials>")},
        RuleCase{"missing-texture",
                 inSnapShot("<camera/><background subcat=\"Image\"><param name=\"File Name\" "
                            "type=\"string\" val=\"C:\\a.png\"/></background>")},
        RuleCase{"unreadable-preview",
                 inArchive("<colours><colour xmlImage=\"00ff\"/></colours>")}));

class CheckSilence : public ::testing::TestWithParam<QByteArray> {};

TEST_P(CheckSilence, NothingIsFound)
{
    const Found found = check(GetParam());
    EXPECT_EQ(found.rules, QStringList());
    EXPECT_EQ(found.code, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, CheckSilence,
    ::testing::Values(
        QByteArray("<snapRoot zorvane_version=\"3.1\"/>"),
        inArchive("<materials><dir name=\"x\"><material><material/></material></dir></materials>"),
        inArchive("<materials><material subcat=\"Velvety\"/><material subcat=\"\"/></materials>"),
        inArchive("<lenses><lens><param name=\"Angle\" type=\"float\" val=\"1\"/></lens></lenses>"),
        inArchive("<colours><colour name=\"a\" refname=\"r\"/></colours><bumps><bump name=\"a\" "
                  "refname=\"r\"/></bumps>"),
        inCamera("<param name=\"Near\" rangeMax=\"2\" rangeMin=\"1\" type=\"float\" val=\"2\"/>"),
        inCamera("<param name=\"Near\" rangeMax=\"2\" rangeMin=\"1\" type=\"float\" val=\"1\"/>"),
        inCamera("<param name=\"Near\" rangeMin=\"1\" type=\"float\" val=\"9\"/>"),
        inCamera("<param name=\"Near\" rangeMax=\"2\" type=\"float\" val=\"0.1\"/>"),
        inSnapShot("<camera/><foreground subcat=\"None\"/>")));

TEST(Check, RangesAreInSceneUnits)
{
    QByteArray xml = inCamera("<param name=\"Near\" prop=\"D\" rangeMax=\"2\" rangeMin=\"1\" "
                              "type=\"float\" val=\"15\"/>");
    EXPECT_EQ(check(xml).rules, QStringList(QStringLiteral("out-of-range")));
    xml.replace("<snapRoot>", "<snapRoot unitsScale=\"10\">");
    EXPECT_EQ(check(xml).rules, QStringList());
}

TEST(Check, TellsTheStartTagOfTheElement)
{
    const QJsonObject finding =
        check("<?xml version=\"1.0\"?>\n<!-- <a> -->\n<snapRoot>\n  <snapshot name=\"ü\"/>\n  "
              "ü <wrong\n     a=\">\"/>\n</snapRoot>",
              words("--only unknown-element"))
            .findings.first()
            .toObject();
    EXPECT_EQ(finding[QStringLiteral("line")], 5);
    EXPECT_EQ(finding[QStringLiteral("column")], 5);
    EXPECT_EQ(finding[QStringLiteral("path")], QStringLiteral("wrong"));
}

TEST(Check, TellsThePlaceWhateverTheLineEndsAndTheEncoding)
{
    const QString text = QStringLiteral("<snapRoot>\r\n<a/>\r\r\n  <wrong/></snapRoot>");
    const QStringList arguments = words("a.xml --only unknown-element");
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), text.toUtf8());
    QJsonObject finding = check(workspace, arguments).findings.last().toObject();
    EXPECT_EQ(finding[QStringLiteral("line")], 4);
    EXPECT_EQ(finding[QStringLiteral("column")], 3);
    QByteArray utf16("\xff\xfe");
    for (const QChar c : text) {
        utf16 += char(c.unicode() & 0xff);
        utf16 += char(c.unicode() >> 8);
    }
    workspace.write(QStringLiteral("a.xml"), utf16);
    finding = check(workspace, arguments).findings.last().toObject();
    EXPECT_EQ(finding[QStringLiteral("line")], 4);
    EXPECT_EQ(finding[QStringLiteral("column")], 3);
}

TEST(Check, APathLeadsToTheFinding)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), inCamera("<param name=\"Near\" val=\"1\"/>"));
    const QString path =
        check(workspace, words("a.xml")).findings.first()[QStringLiteral("path")].toString();
    EXPECT_EQ(workspace
                  .run({QStringLiteral("get"), QStringLiteral("a.xml"),
                        QLatin1Char('/') + path + QStringLiteral("@val")})
                  .out,
              QStringLiteral("1\n"));
}

TEST(Check, TakesTheNewestKnownVersion)
{
    EXPECT_EQ(check("<snapRoot zorvane_version=\"9.1\"/>", words("--known-version 9.1")).code, 0);
}

TEST(Check, FiltersByRuleAndSeverity)
{
    const QByteArray xml = "<snapRoot colour=\"red\" unitsScale=\"0\"><Camera/></snapRoot>";
    EXPECT_EQ(check(xml).rules.size(), 3);
    EXPECT_EQ(check(xml, words("--severity error")).rules,
              QStringList(QStringLiteral("units-scale")));
    EXPECT_EQ(check(xml, words("--only unknown-attribute")).rules,
              QStringList(QStringLiteral("unknown-attribute")));
    EXPECT_EQ(check(xml, words("--ignore unknown-attribute")).rules.size(), 2);
}

TEST(Check, AnUnknownRuleIsAnError)
{
    const Workspace workspace;
    EXPECT_EQ(workspace.run("check --only none a.xml").code, 2);
}

TEST(Check, PresetsAreLookedForInTheFoldersOfTheHost)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("custom/a.rvx"), smallArchive());
    workspace.write(QStringLiteral("a.xml"),
                    inSnapShot("<camera refname=\"c.above\"/><scheme refname=\"c.above\" "
                               "subcat=\"Product\"/>"));
    EXPECT_EQ(check(workspace, words("a.xml")).rules, QStringList());
    const Found found = check(workspace, words("a.xml --custom custom"));
    EXPECT_EQ(found.rules, QStringList(QStringLiteral("missing-preset")));
}

TEST(Check, ReferenceNamesAreThoseOfOneArchiveAmongAllThatAreChecked)
{
    const Workspace workspace;
    const QByteArray archive = inArchive("<colours><colour name=\"a\" refname=\"r\"/></colours>"
                                         "<bumps><bump name=\"b\" refname=\"r\"/></bumps>");
    workspace.write(QStringLiteral("a.rvx"), archive);
    workspace.write(QStringLiteral("b.rvx"),
                    inArchive("<bumps><bump name=\"other\" refname=\"r\"/></bumps>"));
    workspace.write(QStringLiteral("c.rvx"),
                    inArchive("<lenses><lens refname=\"r\"/><lens/></lenses>"));
    workspace.write(QStringLiteral("d.rvx"), inArchive("<lenses><lens/></lenses>"));
    const Found found = check(workspace, words("a.rvx b.rvx c.rvx d.rvx"));
    EXPECT_EQ(found.rules, QStringList(QStringLiteral("duplicate-reference-name")));
    const QJsonObject finding = found.findings.first().toObject();
    EXPECT_EQ(finding[QStringLiteral("file")].toString(), QStringLiteral("b.rvx"));
    EXPECT_EQ(finding[QStringLiteral("path")].toString(), QStringLiteral("bumps/bump[other]"));
    EXPECT_EQ(finding[QStringLiteral("message")].toString(),
              QStringLiteral("The reference name \"r\" is taken in \"a.rvx\""));
    // The same file twice is one archive.
    EXPECT_EQ(check(workspace, words("a.rvx ./a.rvx")).rules, QStringList());
}

TEST(Check, ArchivesAreLookedForInTheFolderOfTheirType)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("custom/Sub/there.rvx"), "<presets/>");
    workspace.write(
        QStringLiteral("a.rvx"),
        inArchive("<materials><dir name=\"a\" archiveType=\"Custom\" path=\"Sub\" "
                  "archiveFilename=\"there\"/><dir name=\"b\" archiveType=\"Custom\" "
                  "archiveFilename=\"gone\"/><dir name=\"c\" archiveType=\"Custom\" path=\"..\" "
                  "archiveFilename=\"a\"/></materials>"));
    const Found found = check(workspace, words("a.rvx --custom custom"));
    EXPECT_EQ(found.rules,
              QStringList({QStringLiteral("missing-archive"), QStringLiteral("missing-archive")}));
}

TEST(Check, TexturesBesideTheDocumentAreThere)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("x/maps/sky.hdr"), "picture");
    workspace.write(QStringLiteral("x/a.xml"),
                    "<snapRoot><snapshot><snapShotSettings><param name=\"Reflected Env Path\" "
                    "type=\"string\" val=\"maps\\sky.hdr\"/></snapShotSettings><camera/></snapshot>"
                    "</snapRoot>");
    EXPECT_EQ(check(workspace, words("x/a.xml")).rules, QStringList());
}

TEST(Check, ThumbnailsAreLookedForAndDecoded)
{
    const Workspace workspace;
    const QByteArray archive =
        "<presets type=\"Zorvane\"><colours><colour cat=\"C\" path=\"P\" imgname=\"a\"/></colours>"
        "</presets>";
    workspace.write(QStringLiteral("a.rvx"), archive);
    const QStringList arguments = words("a.rvx --install .");
    EXPECT_EQ(check(workspace, arguments).rules, QStringList(QStringLiteral("missing-thumbnail")));
    workspace.write(QStringLiteral("sethumbs/C/P/a.jpg"), "no picture");
    EXPECT_EQ(check(workspace, arguments).rules, QStringList(QStringLiteral("unreadable-preview")));
    QImage(4, 4, QImage::Format_RGB32).save(workspace.path(QStringLiteral("sethumbs/C/P/a.jpg")));
    EXPECT_EQ(check(workspace, arguments).rules, QStringList());
}

TEST(Check, ThumbnailsOfSnapShotsAreLookedFor)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), inSnapShot("<camera/>"));
    QDir(workspace.path()).mkdir(QStringLiteral("pictures"));
    EXPECT_EQ(check(workspace, words("a.xml --snapshots pictures")).rules,
              QStringList(QStringLiteral("missing-thumbnail")));
}

TEST(Check, CommentsAndInstructionsHideNoParameter)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"),
                    inCamera("<!-- x --><?x y?>\n<param name=\"Near\" type=\"float\" val=\"1\"/>"));
    EXPECT_EQ(check(workspace, words("a.xml")).rules, QStringList());
}

TEST(Check, FixMendsWhatIsSafeAndNothingElse)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"),
                    inCamera("ink<param name=\"Near\" type=\"integer\" val=\"1\"/>"
                             "<param name=\"Far\" val=\"far\"/>"));
    const Outcome run = workspace.run("check --fix --in-place a.xml");
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.out.toStdString(), ::testing::HasSubstr("1 error, 0 warnings, 0 notes in 1 "
                                                            "file; 3 fixed"));
    EXPECT_EQ(check(workspace, words("a.xml")).rules, QStringList(QStringLiteral("missing-type")));
    EXPECT_TRUE(workspace.read(QStringLiteral("a.xml")).contains("ink"));
}

TEST(Check, FixKeepsTheOrderOfParameters)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"),
                    inCamera("<param name=\"From\" type=\"point\" val=\"1 1 1\"/>ink"
                             "<param name=\"Near\" type=\"float\" val=\"1\"/>"
                             "<param name=\"Far\" type=\"float\" val=\"2\"/>"));
    EXPECT_EQ(workspace.run("check --fix a.xml -o b.xml").code, 0);
    const QByteArray xml = workspace.read(QStringLiteral("b.xml"));
    EXPECT_LT(xml.indexOf("From"), xml.indexOf("Near"));
    EXPECT_LT(xml.indexOf("Near"), xml.indexOf("Far"));
    EXPECT_LT(xml.indexOf("Far"), xml.indexOf("ink"));
}

TEST(Check, FixNeedsToBeToldWhereToWrite)
{
    const Workspace workspace;
    const QByteArray xml = "<snapRoot><snapshots name=\"SnapShots\"/></snapRoot>";
    workspace.write(QStringLiteral("a.xml"), xml);
    EXPECT_EQ(workspace.run("check --fix a.xml").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), xml);
}

TEST(Check, IsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    workspace.write(QStringLiteral("bad.xml"), "<a><b></a>");
    EXPECT_TRUE(isOfSchema(workspace.run("check --json ."), QStringLiteral("check")));
    EXPECT_TRUE(isOfSchema(workspace.run("check --json --rules"), QStringLiteral("check")));
}

TEST(Check, SarifIsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    workspace.write(QStringLiteral("bad.xml"), "<a><b></a>");
    EXPECT_TRUE(isOfSchema(workspace.run("check --format sarif ."), QStringLiteral("sarif")));
}

TEST(Check, SarifListsWhatIsLeftToDoOnly)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"),
                    inCamera("<param name=\"Near\" type=\"integer\" val=\"1\"/>"
                             "<param name=\"Far\" val=\"far\"/>"));
    const auto rulesOf = [](const Outcome& run) {
        QStringList rules;
        for (const auto& result : run.json()[QStringLiteral("runs")]
                                      .toArray()
                                      .first()[QStringLiteral("results")]
                                      .toArray())
            rules << result.toObject()[QStringLiteral("ruleId")].toString();
        return rules;
    };
    EXPECT_EQ(rulesOf(workspace.run("check --format sarif a.xml")),
              words("wrong-type missing-type"));
    EXPECT_EQ(rulesOf(workspace.run("check --format sarif --fix a.xml -o b.xml")),
              words("missing-type"));
}

TEST(Check, SampleDocumentsAreCleanButForTheOlderForm)
{
    Workspace workspace;
    workspace.copySamples(Workspace::Pictures::Copied);
    const Found checked = check(workspace, words(". --install install --archives archives/Zorvane "
                                                 "--custom archives/Custom --snapshots snapshots"));
    QSet<QString> rules;
    for (const QString& rule : checked.rules)
        rules.insert(rule);
    EXPECT_EQ(rules, QSet<QString>(
                         {QStringLiteral("ignored-child"), QStringLiteral("old-collection-name")}));
}

TEST(Check, TenThousandPresetsWithFindingsAreNoTrouble)
{
    const Workspace workspace;
    QByteArray xml = largeArchive(10000);
    xml.replace("type=\"float\"", "type=\"integer\"");
    workspace.write(QStringLiteral("a.rvx"), xml);
    EXPECT_EQ(check(workspace, words("a.rvx --only wrong-type")).rules.size(), 10000);
}

TEST(Check, ReadsStandardInput)
{
    const Outcome run = Workspace().run("check -", "<html/>");
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.out.toStdString(), ::testing::StartsWith("<stdin>:1:1: error: "));
}

TEST(Check, AsksWhichRuleWasMeant)
{
    const Workspace workspace;
    EXPECT_EQ(
        workspace.run("check --only bad-vlaue a.xml").err,
        QStringLiteral("rvopen: there is no rule \"bad-vlaue\"; did you mean \"bad-value\"?\n"));
    EXPECT_EQ(workspace.run("check --ignore nothing a.xml").err,
              QStringLiteral("rvopen: there is no rule \"nothing\"; --rules explains all\n"));
}

TEST(Check, RulesAreTheSameAsTextAndAsJson)
{
    const Workspace workspace;
    QString text;
    for (const auto& value :
         workspace.run("check --rules --json").json()[QStringLiteral("rules")].toArray()) {
        const QJsonObject rule = value.toObject();
        text += rule[QStringLiteral("rule")].toString() + QLatin1String(" (") +
                rule[QStringLiteral("severity")].toString() + QLatin1String(")\n    ") +
                rule[QStringLiteral("summary")].toString() + QLatin1String("\n    ") +
                rule[QStringLiteral("advice")].toString() + QLatin1Char('\n');
        if (!rule[QStringLiteral("fix")].isNull())
            text += QLatin1String("    --fix: ") + rule[QStringLiteral("fix")].toString() +
                    QLatin1Char('\n');
    }
    EXPECT_TRUE(text.contains(QStringLiteral("    --fix: ")));
    EXPECT_EQ(workspace.run("check --rules").out, text);
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

/// What diff prints for two texts.
Outcome diff(const QByteArray& before, const QByteArray& after, const QStringList& options = {})
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a"), before);
    workspace.write(QStringLiteral("b"), after);
    return workspace.run(words("diff a b") + options);
}

QByteArray replaced(QByteArray text, const char* from, const char* to)
{
    EXPECT_TRUE(text.contains(from)) << from;
    return text.replace(from, to);
}

} // namespace

TEST(Diff, EqualFilesAnswerZero)
{
    const Outcome run = diff(smallDocument(), smallDocument());
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, QString());
}

TEST(Diff, EqualFilesAreJudgedAndNamedAsOthersAre)
{
    const Outcome refused = diff("<snapRoot>", "<snapRoot>");
    EXPECT_EQ(refused.code, 2);
    EXPECT_EQ(refused.err, QStringLiteral("a:1:11: The element \"snapRoot\" is not closed\n"));
    const Outcome same = diff(smallArchive(), smallArchive(), words("--json"));
    const Outcome alike = diff(smallArchive(), smallArchive() + "\n", words("--json"));
    EXPECT_EQ(same.code, 0);
    EXPECT_EQ(same.out, alike.out);
    EXPECT_TRUE(same.out.contains(QStringLiteral("\"before\": \"a\"")));
}

TEST(Diff, StandardInputIsNoFileOfThatName)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("-"), smallDocument());
    workspace.write(QStringLiteral("b"), smallDocument());
    EXPECT_EQ(workspace.run("diff - b", smallArchive()).code, 1);
    EXPECT_EQ(workspace.run("diff b -", smallArchive()).code, 1);
}

// Files of more than is read at once, which differ in the last byte that says anything.
TEST(Diff, LooksAtAllOfTheBytes)
{
    const QByteArray start = "<snapRoot>" + QByteArray(1024 * 1024, ' ') + "<scenery name=\"";
    EXPECT_EQ(diff(start + "a\"/></snapRoot>", start + "a\"/></snapRoot>").code, 0);
    const Outcome other = diff(start + "a\"/></snapRoot>", start + "b\"/></snapRoot>");
    EXPECT_EQ(other.code, 1);
    EXPECT_NE(other.out, QString());
}

TEST(Diff, HowItIsWrittenDoesNotCount)
{
    const QByteArray before =
        "<snapRoot><scenery><param name=\"A\" type=\"float\" val=\"1\"/><param "
        "name=\"B\" type=\"boolean\" val=\"2\"/></scenery></snapRoot>";
    const QByteArray after = "<!-- note -->\n<snapRoot>\n<scenery><param val='1'  name='B' "
                             "type='boolean'/>\n<param val='1.0e0' type='float' "
                             "name='A'/></scenery></snapRoot>";
    EXPECT_EQ(diff(before, after).out, QString());
}

TEST(Diff, TellsOldAndNewValuesInSceneUnits)
{
    const Outcome run = diff(smallDocument(), replaced(smallDocument(), "type=\"float\" val=\"5\"",
                                                       "type=\"float\" val=\"6\""));
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, QStringLiteral("~ snapshots[Model SnapShots]/snapshot[Front / "
                                      "left]/camera[Eye]:Near: \"0.5\" -> \"0.6\"\n"));
}

TEST(Diff, TellsAttributes)
{
    const Outcome run =
        diff(smallArchive(), replaced(smallArchive(), "desc=\"Grey\"", "desc=\"Blue\""));
    EXPECT_EQ(run.out, QStringLiteral("~ materials[Materials]/dir[Metals]/material[Zinc]@desc: "
                                      "\"Grey\" -> \"Blue\"\n"));
}

TEST(Diff, ARenamedPresetIsTheSamePreset)
{
    const Outcome run =
        diff(smallArchive(), replaced(smallArchive(), "name=\"Zinc\"", "name=\"Zink\""));
    EXPECT_EQ(run.out, QStringLiteral("~ materials[Materials]/dir[Metals]/material[Zink]@name: "
                                      "\"Zinc\" -> \"Zink\"\n"));
}

TEST(Diff, TellsWhatWasAddedAndRemoved)
{
    const QByteArray without =
        replaced(smallArchive(),
                 "<material cat=\"Glass\" name=\"Window\" refname=\"m.window\" "
                 "subcat=\"Transparent\"/>",
                 "");
    EXPECT_EQ(diff(without, smallArchive()).out,
              QStringLiteral("+ materials[Materials]/material[Window]\n"));
    EXPECT_EQ(diff(smallArchive(), without).out,
              QStringLiteral("- materials[Materials]/material[Window]\n"));
}

TEST(Diff, TellsWhatWasMovedAndChangedAtOnce)
{
    const QByteArray zinc = "<material cat=\"Metals\" desc=\"Grey\" name=\"Zinc\" "
                            "refname=\"m.zinc\" subcat=\"Opaque\"/>";
    QByteArray after = replaced(smallArchive(), zinc.constData(), "");
    QByteArray changed = zinc;
    after.replace("</materials>", changed.replace("Grey", "Blue") + "</materials>");
    EXPECT_EQ(diff(smallArchive(), after).out,
              QStringLiteral("> materials[Materials]/material[Zinc]  from "
                             "materials[Materials]/dir[Metals]/material[Zinc]\n"
                             "~ materials[Materials]/material[Zinc]@desc: \"Grey\" -> \"Blue\"\n"));
}

TEST(Diff, TellsAnotherOrderOfSnapShots)
{
    const QByteArray a = "<snapshot name=\"A\"/>";
    const QByteArray b = "<snapshot name=\"B\"/>";
    const QByteArray c = "<snapshot name=\"C\"/>";
    const auto document = [](const QByteArray& snapShots) {
        return "<snapRoot><snapshots name=\"Model SnapShots\">" + snapShots +
               "</snapshots></snapRoot>";
    };
    EXPECT_EQ(diff(document(a + b + c), document(c + a + b)).out,
              QStringLiteral("> snapshots[Model SnapShots]/snapshot[C]  (order)\n"));
}

TEST(Diff, TellsAnotherType)
{
    const Outcome run = diff(smallArchive(), replaced(smallArchive(), "type=\"float\" val=\"30\"",
                                                      "type=\"integer\" val=\"30\""));
    EXPECT_TRUE(run.out.contains(QLatin1String("@type: \"float\" -> \"integer\"")));
}

TEST(Diff, MaterialsOfAPaletteAreToldByTheirLinkNames)
{
    const auto document = [](const char* name) {
        return QByteArray("<snapRoot><snapshot name=\"S\"><materialRepository><material "
                          "linkname=\"Door\" refname=\"") +
               name + "\"/></materialRepository></snapshot></snapRoot>";
    };
    EXPECT_TRUE(diff(document("oak"), document("elm"))
                    .out.contains(QLatin1String("@refname: \"oak\" -> \"elm\"")));
}

TEST(Diff, ToleranceTakesNumbersForEqual)
{
    const QByteArray after = replaced(smallDocument(), "val=\"1 2 3\"", "val=\"1.001 2 2.999\"");
    EXPECT_EQ(diff(smallDocument(), after).code, 1);
    EXPECT_EQ(diff(smallDocument(), after, words("--tolerance 0.001")).code, 0);
    EXPECT_EQ(diff(smallDocument(), after, words("--tolerance 0.0009")).code, 1);
}

TEST(Diff, IsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    EXPECT_TRUE(isOfSchema(workspace.run("diff --json snapshots/house.xml snapshots/import_me.xml"),
                           QStringLiteral("diff")));
}

TEST(Diff, AMissingFileAnswersTwo)
{
    EXPECT_EQ(Workspace().run("diff a b").code, 2);
}

} // namespace rvopen::test

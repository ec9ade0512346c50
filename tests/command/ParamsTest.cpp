// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QRegularExpression>

namespace rvopen::test {

namespace {

/// The rows that the command prints as JSON.
QJsonArray rowsOf(const QStringList& arguments)
{
    const Outcome run = Workspace().run(words("params --json") + arguments);
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    return run.json()[QStringLiteral("params")].toArray();
}

QStringList namesOf(const QStringList& arguments)
{
    QStringList names;
    for (const auto& row : rowsOf(arguments)) {
        const QJsonObject object = row.toObject();
        names << (object[QStringLiteral("isAttribute")].toBool() ? QStringLiteral("@")
                                                                 : QString()) +
                     object[QStringLiteral("name")].toString();
    }
    return names;
}

QJsonObject rowOf(const QStringList& arguments, const QString& name)
{
    for (const auto& row : rowsOf(arguments)) {
        if (row.toObject()[QStringLiteral("name")] == name)
            return row.toObject();
    }
    ADD_FAILURE() << name.toStdString();
    return {};
}

} // namespace

TEST(Params, ListsThoseOfAnElement)
{
    EXPECT_EQ(namesOf(words("naturalLightStudio")),
              QStringList({QStringLiteral("Enabled"), QStringLiteral("Sun Azimuth"),
                           QStringLiteral("Sun Altitude")}));
    EXPECT_EQ(namesOf(words("scheme")), QStringList(QStringLiteral("@subcat")));
}

TEST(Params, ListsThoseOfAKind)
{
    EXPECT_EQ(namesOf(words("background Image3D")),
              QStringList({QStringLiteral("@subcat"), QStringLiteral("File Name"),
                           QStringLiteral("Horizon Position"), QStringLiteral("Fixed Size")}));
    EXPECT_EQ(rowOf(words("map bump"), QStringLiteral("Texture"))[QStringLiteral("colourSpace")],
              QStringLiteral("data"));
}

TEST(Params, ListsAllWithoutAnElement)
{
    const QJsonArray rows = rowsOf({});
    EXPECT_GT(rows.size(), 120);
    EXPECT_EQ(rows.first().toObject()[QStringLiteral("element")], QString());
    EXPECT_TRUE(rows.first().toObject()[QStringLiteral("isAttribute")].toBool());
}

TEST(Params, TellsWhatIsKnown)
{
    const QJsonObject row = rowOf(words("camera"), QStringLiteral("Field Of View"));
    const QJsonObject range = row[QStringLiteral("hardRange")].toObject();
    EXPECT_EQ(range[QStringLiteral("minimum")].toDouble(-1), 0);
    EXPECT_EQ(range[QStringLiteral("maximum")].toDouble(-1), 180);
    EXPECT_TRUE(range[QStringLiteral("excludesMinimum")].toBool());
    EXPECT_TRUE(range[QStringLiteral("excludesMaximum")].toBool());
    EXPECT_EQ(row[QStringLiteral("unit")], QStringLiteral("degrees"));
    EXPECT_EQ(row[QStringLiteral("type")], QStringLiteral("float"));
    EXPECT_EQ(row[QStringLiteral("default")], QStringLiteral("45"));
    EXPECT_EQ(row[QStringLiteral("created")], QStringLiteral("0"));
    EXPECT_TRUE(row[QStringLiteral("absent")].isNull());
}

TEST(Params, HasNullForAnEndThatThereIsNoneOf)
{
    const QJsonObject range =
        rowOf(words("camera"), QStringLiteral("Near"))[QStringLiteral("hardRange")].toObject();
    EXPECT_EQ(range[QStringLiteral("minimum")].toDouble(-1), 0);
    EXPECT_TRUE(range[QStringLiteral("maximum")].isNull());
    EXPECT_FALSE(range[QStringLiteral("excludesMinimum")].toBool());
}

TEST(Params, ListsChoices)
{
    const QJsonObject row = rowOf(words("renderTarget"), QStringLiteral("Output Format"));
    EXPECT_EQ(row[QStringLiteral("choices")].toArray().first(), QStringLiteral("PNG"));
    EXPECT_TRUE(row[QStringLiteral("areChoicesOpen")].toBool());
    EXPECT_FALSE(rowOf(words("scheme"), QStringLiteral("subcat"))[QStringLiteral("areChoicesOpen")]
                     .toBool());
}

TEST(Params, PrintsALineForEach)
{
    const QStringList lines = Workspace().run("params lens").lines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines.first().startsWith(QLatin1String("lens  @subcat")));
    EXPECT_EQ(lines.last().split(QRegularExpression(QStringLiteral("  +"))),
              QStringList({QStringLiteral("lens"), QStringLiteral("Angle"), QStringLiteral("float"),
                           QStringLiteral("degrees, above 0 and below 180"), QStringLiteral("45"),
                           QStringLiteral("Horizontal angle across the width of the image.")}));
}

TEST(Params, RefusesWhatIsNotKnown)
{
    for (const char* const line : {"params teapot", "params background Odd", "params Camera"}) {
        const Outcome run = Workspace().run(line);
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_EQ(run.out, QString()) << line;
        EXPECT_TRUE(run.err.startsWith(QLatin1String("rvopen: "))) << line;
    }
}

TEST(Params, AnswersOneForAnElementWithout)
{
    const Outcome run = Workspace().run("params diffuse Odd");
    EXPECT_EQ(run.code, 0);
    const Outcome none = Workspace().run("params colour");
    EXPECT_EQ(none.code, 1);
    EXPECT_EQ(none.out, QString());
}

TEST(Params, IsOfItsSchema)
{
    EXPECT_TRUE(isOfSchema(Workspace().run("params --json"), QStringLiteral("params")));
}

TEST(Params, MakesTablesForTheDocuments)
{
    const Outcome run = Workspace().run("--generate tables");
    EXPECT_EQ(run.code, 0);
    const QString lens =
        run.out.section(QStringLiteral("### lens\n\n"), 1).section(QStringLiteral("\n\n"), 0, 0);
    EXPECT_EQ(lens, QStringLiteral(
                        "| parameter | type | new | absent | unit, range | since | meaning |\n"
                        "|---|---|---|---|---|---|---|\n"
                        "| \"Angle\" | float | \u2013 | \u2013 | degrees, above 0 and below 180 | "
                        "first | Horizontal angle across the width of the image. |"));
    EXPECT_TRUE(run.out.contains(
        QLatin1String("| \"Horizon Position\" | float | `0` | 0.5 | factor, 0 to 1 | first | "
                      "`Image3D` | Where the horizon lies")));
    EXPECT_TRUE(run.out.contains(QLatin1String("| \"Gamma\" | float | `0` |")));
    EXPECT_TRUE(
        run.out.contains(QLatin1String("| \"Filename\" | string | empty | empty | file | ")));
}

TEST(Params, AskWhichElementOrKindWasMeant)
{
    const Workspace workspace;
    EXPECT_EQ(workspace.run("params camra").err,
              QStringLiteral("rvopen: there is no element \"camra\"; did you mean \"camera\"?\n"));
    EXPECT_EQ(workspace.run("params xyz").err,
              QStringLiteral("rvopen: there is no element \"xyz\"\n"));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

/// The reference names that list prints for the small archive.
QStringList listed(const QStringList& options)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const Outcome run = workspace.run(
        QStringList{QStringLiteral("list"), QStringLiteral("--json"), QStringLiteral("a.rvx")} +
        options);
    QStringList names;
    for (const auto& preset : run.json()[QStringLiteral("presets")].toArray())
        names << preset.toObject()[QStringLiteral("refname")].toString();
    EXPECT_EQ(run.code, names.isEmpty() ? 1 : 0);
    return names;
}

} // namespace

TEST(List, SortsByKindAndName)
{
    EXPECT_EQ(listed({}), QStringList({QStringLiteral("c.above"), QStringLiteral("m.brass"),
                                       QStringLiteral("m.window"), QStringLiteral("m.zinc")}));
}

TEST(List, SelectsByType)
{
    EXPECT_EQ(listed({QStringLiteral("--type"), QStringLiteral("camera")}),
              QStringList(QStringLiteral("c.above")));
}

TEST(List, SelectsBySection)
{
    EXPECT_EQ(listed({QStringLiteral("--type"), QStringLiteral("cameras")}),
              QStringList(QStringLiteral("c.above")));
}

TEST(List, SelectsBySubCategory)
{
    EXPECT_EQ(listed({QStringLiteral("--subcat"), QStringLiteral("Transparent")}),
              QStringList(QStringLiteral("m.window")));
}

TEST(List, SelectsByCategory)
{
    EXPECT_EQ(listed({QStringLiteral("--category"), QStringLiteral("Metals")}),
              QStringList({QStringLiteral("m.brass"), QStringLiteral("m.zinc")}));
}

TEST(List, SelectsByAllWordsInNamesAndDescriptionsInAnyCase)
{
    EXPECT_EQ(listed({QStringLiteral("--text"), QStringLiteral("YELLOW brass")}),
              QStringList(QStringLiteral("m.brass")));
    EXPECT_EQ(listed({QStringLiteral("--text"), QStringLiteral("yellow zinc")}), QStringList());
}

TEST(List, GivesPathsThatTreeAndGetTake)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const Outcome run =
        workspace.run({QStringLiteral("list"), QStringLiteral("--json"), QStringLiteral("--text"),
                       QStringLiteral("zinc"), QStringLiteral("a.rvx")});
    const QString path =
        run.json()[QStringLiteral("presets")].toArray().first()[QStringLiteral("path")].toString();
    EXPECT_EQ(workspace
                  .run({QStringLiteral("get"), QStringLiteral("a.rvx"),
                        QLatin1Char('/') + path + QStringLiteral("@refname")})
                  .out,
              QStringLiteral("m.zinc\n"));
}

TEST(List, AlignsItsColumns)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const QStringList lines =
        workspace.run({QStringLiteral("list"), QStringLiteral("a.rvx")}).lines();
    for (const QString& line : lines)
        EXPECT_EQ(line.indexOf(QLatin1String("a.rvx: ")),
                  lines.first().indexOf(QLatin1String("a.rvx: ")));
}

TEST(List, IsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    EXPECT_TRUE(isOfSchema(workspace.run({QStringLiteral("list"), QStringLiteral("--json"),
                                          QStringLiteral("install")}),
                           QStringLiteral("list")));
}

TEST(List, NeedsFilesOrFolders)
{
    EXPECT_EQ(Workspace().run({QStringLiteral("list")}).code, 2);
}

TEST(List, TakesTenThousandPresets)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(10000));
    EXPECT_EQ(workspace.run({QStringLiteral("list"), QStringLiteral("a.rvx")}).lines().size(),
              10000);
}

} // namespace rvopen::test

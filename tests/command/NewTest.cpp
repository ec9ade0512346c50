// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

TEST(New, DocumentsHaveNoFindingsAndAreCanonical)
{
    const Workspace workspace;
    EXPECT_EQ(workspace.run("new snapshots a.xml").code, 0);
    EXPECT_EQ(workspace.run("new archive b.rvx").code, 0);
    EXPECT_EQ(workspace.run("check .").code, 0);
    EXPECT_EQ(workspace.run("format --check .").code, 0);
}

TEST(New, TakesVersionAndUnitsScale)
{
    const Workspace workspace;
    const Outcome run = workspace.run("new snapshots - --document-version 2.7 --units-scale 1000");
    EXPECT_THAT(run.out.toStdString(),
                ::testing::HasSubstr("unitsScale=\"1000\" zorvane_version=\"2.7\""));
}

TEST(New, TellsProgramsWhatItWrote)
{
    const Workspace workspace;
    const Outcome run = workspace.run("new --json archive b.rvx");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("new")));
    EXPECT_EQ(run.json().value(QStringLiteral("kind")).toString(), QStringLiteral("archive"));
    EXPECT_EQ(run.json().value(QStringLiteral("written")).toString(), QStringLiteral("b.rvx"));
}

TEST(New, OverwritesNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "old");
    EXPECT_EQ(workspace.run("new snapshots a.xml").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), QByteArray("old"));
}

TEST(New, ArchivesHaveASectionForEachKindOfPreset)
{
    const Workspace workspace;
    const Outcome run = workspace.shell(QStringLiteral("rvopen new archive -"));
    for (const char* const section :
         {"schemes", "backgrounds", "foregrounds", "cameras", "lenses", "aspectratios",
          "naturalLights", "materials", "colours", "finishes", "transparencies", "bumps"})
        EXPECT_EQ(run.out.count(QLatin1Char('<') + QLatin1String(section) + QLatin1Char(' ')), 1)
            << section;
}

} // namespace rvopen::test

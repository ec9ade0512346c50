// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

TEST(New, DocumentsHaveNoFindingsAndAreCanonical)
{
    const Workspace workspace;
    EXPECT_EQ(
        workspace.run({QStringLiteral("new"), QStringLiteral("snapshots"), QStringLiteral("a.xml")})
            .code,
        0);
    EXPECT_EQ(
        workspace.run({QStringLiteral("new"), QStringLiteral("archive"), QStringLiteral("b.rvx")})
            .code,
        0);
    EXPECT_EQ(workspace.run({QStringLiteral("check"), QStringLiteral(".")}).code, 0);
    EXPECT_EQ(
        workspace.run({QStringLiteral("format"), QStringLiteral("--check"), QStringLiteral(".")})
            .code,
        0);
}

TEST(New, TakesVersionAndUnitsScale)
{
    const Workspace workspace;
    const Outcome run =
        workspace.run({QStringLiteral("new"), QStringLiteral("snapshots"), QStringLiteral("-"),
                       QStringLiteral("--document-version"), QStringLiteral("2.7"),
                       QStringLiteral("--units-scale"), QStringLiteral("1000")});
    EXPECT_THAT(run.out.toStdString(),
                ::testing::HasSubstr("unitsScale=\"1000\" zorvane_version=\"2.7\""));
}

TEST(New, TellsProgramsWhatItWrote)
{
    const Workspace workspace;
    const Outcome run = workspace.run({QStringLiteral("new"), QStringLiteral("--json"),
                                       QStringLiteral("archive"), QStringLiteral("b.rvx")});
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("new")));
    EXPECT_EQ(run.json().value(QStringLiteral("kind")).toString(), QStringLiteral("archive"));
    EXPECT_EQ(run.json().value(QStringLiteral("written")).toString(), QStringLiteral("b.rvx"));
}

TEST(New, OverwritesNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "old");
    EXPECT_EQ(
        workspace.run({QStringLiteral("new"), QStringLiteral("snapshots"), QStringLiteral("a.xml")})
            .code,
        2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), QByteArray("old"));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

TEST(Format, SampleDocumentsAreCanonical)
{
    Workspace workspace;
    workspace.copySamples();
    const Outcome run = workspace.run("format --check .");
    EXPECT_EQ(run.code, 0) << run.out.toStdString();
}

TEST(Format, CheckNamesWhatIsNotCanonicalAndWritesNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "<snapRoot  b='1' a='2'/>");
    workspace.write(QStringLiteral("b.xml"), smallDocument());
    const Outcome run = workspace.run("format --check .");
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, QStringLiteral("./a.xml\n"));
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), QByteArray("<snapRoot  b='1' a='2'/>"));
}

TEST(Format, InPlaceMakesCanonical)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "<snapRoot  b='1' a='2'/>");
    EXPECT_EQ(workspace.run("format --in-place a.xml").code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), QByteArray("<snapRoot a=\"2\" b=\"1\"/>\n"));
}

TEST(Format, IsAFilter)
{
    const Outcome run = Workspace().run("format -", "<a  b='1'/>");
    EXPECT_EQ(run.out, QStringLiteral("<a b=\"1\"/>\n"));
}

TEST(Format, IndentsArchivesByThree)
{
    const Outcome run = Workspace().run("format -", "<presets><materials/></presets>");
    EXPECT_EQ(run.out, QStringLiteral("<presets>\n   <materials/>\n</presets>\n"));
}

TEST(Format, RefusesTheInputAsOutput)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "<snapRoot  b='1'/>");
    EXPECT_EQ(workspace.run("format a.xml -o a.xml").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), QByteArray("<snapRoot  b='1'/>"));
}

TEST(Format, IsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    EXPECT_TRUE(isOfSchema(workspace.run("format --check --json ."), QStringLiteral("format")));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

TEST(Format, SampleDocumentsAreCanonical)
{
    Workspace workspace;
    workspace.copySamples();
    const Outcome run =
        workspace.run({QStringLiteral("format"), QStringLiteral("--check"), QStringLiteral(".")});
    EXPECT_EQ(run.code, 0) << run.out.toStdString();
}

TEST(Format, CheckNamesWhatIsNotCanonicalAndWritesNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "<snapRoot  b='1' a='2'/>");
    workspace.write(QStringLiteral("b.xml"), smallDocument());
    const Outcome run =
        workspace.run({QStringLiteral("format"), QStringLiteral("--check"), QStringLiteral(".")});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, QStringLiteral("./a.xml\n"));
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), QByteArray("<snapRoot  b='1' a='2'/>"));
}

TEST(Format, InPlaceMakesCanonical)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "<snapRoot  b='1' a='2'/>");
    EXPECT_EQ(
        workspace
            .run({QStringLiteral("format"), QStringLiteral("--in-place"), QStringLiteral("a.xml")})
            .code,
        0);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), QByteArray("<snapRoot a=\"2\" b=\"1\"/>\n"));
}

TEST(Format, IsAFilter)
{
    const Outcome run =
        Workspace().run({QStringLiteral("format"), QStringLiteral("-")}, "<a  b='1'/>");
    EXPECT_EQ(run.out, QStringLiteral("<a b=\"1\"/>\n"));
}

TEST(Format, IndentsArchivesByThree)
{
    const Outcome run = Workspace().run({QStringLiteral("format"), QStringLiteral("-")},
                                        "<presets><materials/></presets>");
    EXPECT_EQ(run.out, QStringLiteral("<presets>\n   <materials/>\n</presets>\n"));
}

TEST(Format, RefusesTheInputAsOutput)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), "<snapRoot  b='1'/>");
    EXPECT_EQ(workspace
                  .run({QStringLiteral("format"), QStringLiteral("a.xml"), QStringLiteral("-o"),
                        QStringLiteral("a.xml")})
                  .code,
              2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), QByteArray("<snapRoot  b='1'/>"));
}

TEST(Format, IsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    EXPECT_TRUE(isOfSchema(workspace.run({QStringLiteral("format"), QStringLiteral("--check"),
                                          QStringLiteral("--json"), QStringLiteral(".")}),
                           QStringLiteral("format")));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

/// The archive in the canonical text, with these lines in its section.
QByteArray archive(const QByteArrayList& lines)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<presets>\n   <colours>\n      " +
           lines.join("\n      ") + "\n   </colours>\n</presets>\n";
}

const QByteArray s_zebra = "<colour cat=\"A\" name=\"zebra\" refname=\"c.2\"/>";
const QByteArray s_ape = "<colour cat=\"B\" name=\"Ape\" refname=\"c.3\"/>";
const QByteArray s_bear = "<colour cat=\"A\" name=\"bear\" refname=\"c.1\"/>";
const QByteArray s_folder = "<dir name=\"Folder\"/>";
const QByteArray s_comment = "<!-- striped -->";
const QByteArray s_last = "<!-- the end -->";

QByteArray sorted(const QByteArrayList& lines, const QStringList& options)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), archive(lines));
    const Outcome run = workspace.run(words("sort a.rvx -o b.rvx") + options);
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    return workspace.read(QStringLiteral("b.rvx"));
}

} // namespace

TEST(Sort, ByNameWithFoldersFirstAndCommentsBeforeWhatFollowsThem)
{
    EXPECT_EQ(sorted({s_comment, s_zebra, s_bear, s_ape, s_folder, s_last}, {}),
              archive({s_folder, s_ape, s_bear, s_comment, s_zebra, s_last}));
}

TEST(Sort, ByReferenceNameAndCategory)
{
    EXPECT_EQ(sorted({s_ape, s_zebra, s_bear}, words("--by refname")),
              archive({s_bear, s_zebra, s_ape}));
    EXPECT_EQ(sorted({s_ape, s_zebra, s_bear}, words("--by category")),
              archive({s_zebra, s_bear, s_ape}));
}

TEST(Sort, TheOtherWayRoundKeepsFoldersFirstAndWhatIsAlikeInOrder)
{
    EXPECT_EQ(sorted({s_zebra, s_bear, s_ape, s_folder}, words("--by category --reverse")),
              archive({s_folder, s_ape, s_zebra, s_bear}));
}

TEST(Sort, TakesNamedShelvesWithTheFoldersInThem)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"b\"/><colour name=\"a\"/></colours><bumps>"
                    "<dir name=\"d\"><bump name=\"b\"/><bump name=\"a\"/></dir></bumps></presets>");
    const Outcome run = workspace.run("sort a.rvx bumps --in-place");
    EXPECT_EQ(run.out, QStringLiteral("sorted  bumps/dir[d]\n"));
    const QByteArray xml = workspace.read(QStringLiteral("a.rvx"));
    EXPECT_LT(xml.indexOf("<bump name=\"a\""), xml.indexOf("<bump name=\"b\""));
    EXPECT_LT(xml.indexOf("<colour name=\"b\""), xml.indexOf("<colour name=\"a\""));
    EXPECT_EQ(workspace.run("sort a.rvx none --in-place").code, 2);
}

TEST(Sort, OrdersSnapShotsAndPalettes)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"),
                    "<snapRoot><snapshots name=\"x\"><snapshot name=\"b\"/><snapshot name=\"a\"/>"
                    "</snapshots><snapshot><materialRepository><material linkname=\"d\"/><material "
                    "name=\"c\"/></materialRepository></snapshot></snapRoot>");
    EXPECT_EQ(workspace.run("sort a.xml --in-place").out,
              QStringLiteral("sorted  snapshots[x]\nsorted  snapshot/materialRepository\n"));
    const QByteArray xml = workspace.read(QStringLiteral("a.xml"));
    EXPECT_LT(xml.indexOf("name=\"a\""), xml.indexOf("name=\"b\""));
    EXPECT_LT(xml.indexOf("name=\"c\""), xml.indexOf("linkname=\"d\""));
}

TEST(Sort, LeavesAFileThatIsInOrderAsItIs)
{
    const Workspace workspace;
    // Not as it would be written.
    const QByteArray before = "<presets><colours><colour  name='a'/></colours></presets>";
    workspace.write(QStringLiteral("a.rvx"), before);
    const Outcome run = workspace.run("sort --json a.rvx --in-place");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("sort")));
    EXPECT_TRUE(run.json()[QStringLiteral("written")].toArray().isEmpty());
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), before);
}

TEST(Sort, DryRunChangesNothing)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), archive({s_zebra, s_ape}));
    const Outcome run = workspace.run("sort --dry-run --json a.rvx --in-place");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("sort")));
    EXPECT_EQ(run.json()[QStringLiteral("items")].toArray().size(), 1);
    EXPECT_EQ(workspace.read(QStringLiteral("a.rvx")), archive({s_zebra, s_ape}));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/check/Inspection.h>

#include "../InAFolder.h"

#include <rvopen/toolkit/documents/Load.h>

namespace rvopen::test {

namespace {

using namespace toolkit;

class Inspected : public InAFolder {
protected:
    Load loaded(const QByteArray& text)
    {
        return LoadDocument(write("a.xml", text));
    }

    /// "rule line:column path" of each finding.
    static std::string linesOf(const QVector<Finding>& findings)
    {
        QStringList lines;
        for (const Finding& finding : findings)
            lines << QStringLiteral("%1 %2:%3 %4")
                         .arg(QLatin1String(finding.rule->id))
                         .arg(finding.line)
                         .arg(finding.column)
                         .arg(finding.path);
        return joinedBy("\n", lines);
    }
};

} // namespace

TEST_F(Inspected, ADocumentThatIsRightHasNoFindings)
{
    const Load load = loaded("<snapRoot><snapshot name='CurrSnapshot'><snapShotSettings/>"
                             "</snapshot></snapRoot>");
    ASSERT_TRUE(load);
    EXPECT_EQ(linesOf(Inspect(*load.document)), "");
}

TEST_F(Inspected, FindingsHaveRuleFilePlaceAndPath)
{
    const Load load = loaded("<snapRoot>\n <snapshot name='CurrSnapshot'><snapShotSettings/>\n"
                             "  <camera><param name='Field Of View' type='float' val='x'/></camera>"
                             "</snapshot></snapRoot>");
    ASSERT_TRUE(load);
    const QVector<Finding> findings = Inspect(*load.document);
    EXPECT_EQ(linesOf(findings), "bad-value 3:11 snapshot[CurrSnapshot]/camera:Field Of View");
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings.first().file, load.document->Name());
    EXPECT_EQ(findings.first().element.attribute(QStringLiteral("val")), QStringLiteral("x"));
    EXPECT_EQ(SeverityName(findings.first().rule->severity), QStringLiteral("error"));
}

TEST_F(Inspected, PresetsAreMissedOnceTheFoldersAreKnown)
{
    const Load load = loaded("<snapRoot><snapshot name='CurrSnapshot'><snapShotSettings/>"
                             "<camera refname='a'/></snapshot></snapRoot>");
    ASSERT_TRUE(load);
    EXPECT_EQ(linesOf(Inspect(*load.document)), "");
    Folders folders;
    folders.custom = path("custom");
    write("custom/a.rvx", "<presets><cameras><camera refname='b'/></cameras></presets>");
    write("custom/broken.rvx", "<presets>");
    QStringList failed;
    const Surroundings surroundings =
        LookAround(folders, [&failed](const ReadError& error) { failed << error.file; });
    EXPECT_EQ(joinedBy(" ", QStringList(surroundings.presets.begin(), surroundings.presets.end())),
              "camera/b");
    EXPECT_EQ(joinedBy(" ", failed), folders.custom.toStdString() + "/broken.rvx");
    EXPECT_EQ(linesOf(Inspect(*load.document, surroundings)),
              "missing-preset 1:60 snapshot[CurrSnapshot]/camera[a]");
    // With a prefix the document is built.
    write("custom/c.rvx", "<presets xmlns:p='u'><cameras><camera refname='a'/></cameras>"
                          "</presets>");
    EXPECT_EQ(linesOf(Inspect(*load.document, LookAround(folders))), "");
}

TEST_F(Inspected, PresetsAreMissedWhereThoseThatThereAreHaveNoNames)
{
    const Load load = loaded("<snapRoot><snapshot name='CurrSnapshot'><snapShotSettings/>"
                             "<camera refname='a'/></snapshot></snapRoot>");
    ASSERT_TRUE(load);
    Folders folders;
    folders.custom = path("custom");
    for (const char* const archive :
         {"<presets><cameras><camera/></cameras></presets>",
          "<presets xmlns:p='u'><cameras><camera/></cameras></presets>"}) {
        write("custom/a.rvx", archive);
        EXPECT_EQ(linesOf(Inspect(*load.document, LookAround(folders))),
                  "missing-preset 1:60 snapshot[CurrSnapshot]/camera[a]")
            << archive;
    }
}

TEST_F(Inspected, AReferenceNameOfAnArchiveIsTakenForTheNext)
{
    const QByteArray text = "<presets><colours><colour refname='r'/><colour/></colours></presets>";
    write("a.rvx", text);
    write("b.rvx", text);
    const Load first = LoadDocument(path("a.rvx"));
    const Load second = LoadDocument(path("b.rvx"));
    ASSERT_TRUE(first && second);
    Surroundings surroundings;
    EXPECT_EQ(linesOf(Inspect(*first.document, surroundings)), "");
    TakeNames(*first.document, surroundings);
    EXPECT_EQ(linesOf(Inspect(*first.document, surroundings)), "");
    EXPECT_EQ(linesOf(Inspect(*second.document, surroundings)),
              "duplicate-reference-name 1:19 colours/colour[r]");
    // A document has no presets of its own, whatever it refers to.
    const Load snapShots = loaded("<snapRoot><colour refname='s'/></snapRoot>");
    TakeNames(*snapShots.document, surroundings);
    EXPECT_EQ(surroundings.taken.size(), 1);
}

TEST_F(Inspected, WhatIsMendedIsMarkedAndStandsInTheDocument)
{
    const Load load = loaded("<snapRoot><snapshots name='SnapShots'/>"
                             "<snapshots name='SnapShots2'><lens/></snapshots></snapRoot>");
    ASSERT_TRUE(load);
    QVector<Finding> findings = Inspect(*load.document);
    ASSERT_EQ(findings.size(), 2) << linesOf(findings);
    EXPECT_EQ(Mend(findings), 1);
    EXPECT_TRUE(findings.first().isFixed);
    EXPECT_FALSE(findings.last().isFixed);
    EXPECT_EQ(
        load.document->Root().firstChildElement().attribute(QStringLiteral("name")).toStdString(),
        "Model SnapShots");
}

TEST_F(Inspected, ATextThatIsNotWellFormedIsAFindingToo)
{
    const Load load = loaded("<snapRoot>\n</x>");
    ASSERT_FALSE(load);
    const Finding finding = FindingOf(load.error);
    EXPECT_EQ(linesOf({finding}), "malformed-xml 2:" + std::to_string(load.error.column) + " ");
    EXPECT_EQ(finding.message, load.error.message);
    EXPECT_EQ(finding.file, load.error.file);
}

TEST(Rules, AreFoundByTheirIdentifiersWhichDiffer)
{
    const QVector<const Rule*> rules = AllRules();
    EXPECT_EQ(rules.size(), 29);
    for (const Rule* const rule : rules)
        EXPECT_EQ(FindRule(QLatin1String(rule->id)), rule) << rule->id;
    EXPECT_EQ(FindRule(QStringLiteral("no-such-rule")), nullptr);
}

TEST(Inspection, ThatIsStoppedHasNothing)
{
    const auto document = Document::Of(
        QStringLiteral("a.xml"), parsed("<snapRoot><snapshots><nonsense/></snapshots></snapRoot>"));
    std::atomic<bool> stop{false};
    EXPECT_FALSE(Inspect(*document, {}, &stop).isEmpty());
    stop = true;
    EXPECT_TRUE(Inspect(*document, {}, &stop).isEmpty());
    EXPECT_FALSE(Inspect(*document).isEmpty());
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QDir>
#include <QThread>

namespace rvopen::test {

namespace {

/// The reference names that list prints for the small archive.
QStringList listed(const QStringList& options)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const Outcome run = workspace.run(words("list --json a.rvx") + options);
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
    EXPECT_EQ(listed(words("--type camera")), QStringList(QStringLiteral("c.above")));
}

TEST(List, SelectsBySection)
{
    EXPECT_EQ(listed(words("--type cameras")), QStringList(QStringLiteral("c.above")));
}

TEST(List, SelectsBySubCategory)
{
    EXPECT_EQ(listed(words("--subcat Transparent")), QStringList(QStringLiteral("m.window")));
}

TEST(List, SelectsByCategory)
{
    EXPECT_EQ(listed(words("--category Metals")),
              QStringList({QStringLiteral("m.brass"), QStringLiteral("m.zinc")}));
}

TEST(List, SelectsByAllWordsInNamesAndDescriptionsInAnyCase)
{
    EXPECT_EQ(listed(words("--text 'YELLOW brass'")), QStringList(QStringLiteral("m.brass")));
    EXPECT_EQ(listed(words("--text 'yellow zinc'")), QStringList());
}

TEST(List, GivesPathsThatTreeAndGetTake)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const Outcome run = workspace.run("list --json --text zinc a.rvx");
    const QString path =
        run.json()[QStringLiteral("presets")].toArray().first()[QStringLiteral("path")].toString();
    EXPECT_EQ(workspace
                  .run({QStringLiteral("get"), QStringLiteral("a.rvx"),
                        QLatin1Char('/') + path + QStringLiteral("@refname")})
                  .out,
              QStringLiteral("m.zinc\n"));
}

TEST(List, FindsArchivesWhoseExtensionsAreCapitals)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("mine/Sub/A.RVX"), smallArchive());
    workspace.write(QStringLiteral("mine/B.Rvx"), smallArchive());
    EXPECT_EQ(workspace.run("list --custom mine").lines().size(), 8);
    EXPECT_EQ(workspace.run("list mine").lines().size(), 8);
}

TEST(List, AlignsColumnsOfWideCharacters)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"雪\"/><colour name=\"Größe\"/><colour "
                    "name=\"a\u0301\"/></colours></presets>");
    int columns = 0;
    for (const QString& line : workspace.run("list a.rvx").lines()) {
        const QString before = line.section(QStringLiteral("a.rvx: "), 0, 0);
        int width = 0;
        for (const QChar c : before)
            width += c == QChar(0x96ea) ? 2 : c == QChar(0x301) ? 0 : 1;
        EXPECT_EQ(width, columns == 0 ? width : columns) << line.toStdString();
        columns = width;
    }
    EXPECT_GT(columns, 5);
}

TEST(List, AlignsItsColumns)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const QStringList lines = workspace.run("list a.rvx").lines();
    for (const QString& line : lines)
        EXPECT_EQ(line.indexOf(QLatin1String("a.rvx: ")),
                  lines.first().indexOf(QLatin1String("a.rvx: ")));
}

TEST(List, IsOfItsSchema)
{
    Workspace workspace;
    workspace.copySamples();
    EXPECT_TRUE(isOfSchema(workspace.run("list --json install"), QStringLiteral("list")));
}

TEST(List, NeedsFilesOrFolders)
{
    EXPECT_EQ(Workspace().run("list").code, 2);
}

TEST(List, TakesTenThousandPresets)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(10000));
    EXPECT_EQ(workspace.run("list a.rvx").lines().size(), 10000);
}

TEST(List, PrintsTheColumnsThatAreChosen)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    EXPECT_EQ(workspace.run("list --columns refname,name --category Metals a.rvx").out,
              QStringLiteral("m.brass  Brass\nm.zinc   Zinc\n"));
}

TEST(List, PrintsTabSeparatedText)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    EXPECT_EQ(workspace.run("list --tsv --columns name,description --category Metals a.rvx").out,
              QStringLiteral("name\tdescription\nBrass\tShiny and yellow\nZinc\tGrey\n"));
    EXPECT_EQ(
        workspace.run("list --tsv --type camera a.rvx").out,
        QStringLiteral("file\tkind\tname\trefname\tcategory\tsubcat\tfolder\tpath\tdescription\n"
                       "a.rvx\tcamera\tAbove\tc.above\tCameras\t\t\tcameras[Cameras]/"
                       "camera[Above]\t\n"));
}

TEST(List, SortsWhatWasBuiltAmongWhatWasNot)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    // With a prefix the document is built.
    workspace.write(QStringLiteral("b.rvx"),
                    smallArchive().replace("<presets", "<presets xmlns:p=\"u\""));
    EXPECT_EQ(workspace.run("list --tsv --columns refname,file b.rvx a.rvx").out,
              QStringLiteral("refname\tfile\nc.above\ta.rvx\nc.above\tb.rvx\nm.brass\ta.rvx\n"
                             "m.brass\tb.rvx\nm.window\ta.rvx\nm.window\tb.rvx\n"
                             "m.zinc\ta.rvx\nm.zinc\tb.rvx\n"));
}

TEST(List, TabsAndLinesInNamesEndNoCell)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"a&#9;b&#10;c\\d\"/></colours></presets>");
    EXPECT_EQ(workspace.run("list --tsv --columns name a.rvx").out,
              QStringLiteral("name\na\\tb\\nc\\\\d\n"));
}

TEST(List, RefusesColumnsThatThereAreNotAndThoseOfJson)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    EXPECT_EQ(workspace.run("list --columns nmae a.rvx").err,
              QStringLiteral("rvopen: there is no column \"nmae\"; did you mean \"name\"?\n"));
    const Outcome json = workspace.run("list --json --tsv a.rvx");
    EXPECT_EQ(json.err, QStringLiteral("rvopen: --json has all columns: it goes with neither "
                                       "--columns nor --tsv\n"));
    EXPECT_EQ(json.code, 2);
}

/// Archives that are listed with an index, which is kept below "caches".
class ListWithIndex : public ::testing::Test {
protected:
    ListWithIndex()
    {
        workspace.environment.remove(QStringLiteral("RVOPEN_CATALOGUE"));
        workspace.environment.insert(QStringLiteral("XDG_CACHE_HOME"),
                                     workspace.path(QStringLiteral("caches")));
        workspace.write(QStringLiteral("in/a.rvx"), largeArchive(8000));
        workspace.write(QStringLiteral("in/b.rvx"), smallArchive());
        // What is younger than the step of a clock is not kept.
        QThread::msleep(2100);
    }

    Outcome list() const
    {
        return workspace.run("list in --text yellow");
    }
    QStringList cached() const
    {
        return workspace.files().filter(QStringLiteral("caches/"));
    }

    Workspace workspace;
};

TEST_F(ListWithIndex, PrintsTheSameAgainAndWithout)
{
    const Outcome first = list();
    EXPECT_EQ(cached().size(), 1);
    const Outcome again = list();
    workspace.environment.insert(QStringLiteral("RVOPEN_CATALOGUE"), QStringLiteral("off"));
    const Outcome without = list();
    EXPECT_GT(first.lines().size(), 0);
    EXPECT_EQ(again.out, first.out);
    EXPECT_EQ(without.out, first.out);
}

TEST_F(ListWithIndex, PrintsWhatIsInTheFilesNow)
{
    list();
    workspace.write(QStringLiteral("in/b.rvx"), smallArchive().replace("yellow", "violet"));
    EXPECT_FALSE(list().out.contains(QLatin1String("b.rvx")));
    workspace.write(QStringLiteral("in/b.rvx"), "<presets>");
    const Outcome broken = list();
    EXPECT_EQ(broken.code, 2);
    EXPECT_TRUE(broken.err.contains(QLatin1String("in/b.rvx:1:10: "))) << broken.err.toStdString();
}

TEST_F(ListWithIndex, PrintsAllOfNamesThatBeginWithTheMarkOfAnEncoding)
{
    const QString name = QChar(QChar::ByteOrderMark) + QStringLiteral("marked]");
    workspace.write(QStringLiteral("in/m.rvx"), "<presets><materials><material name='" +
                                                    name.toUtf8() + "'/></materials></presets>");
    const QString path = QStringLiteral("materials/material[%1\\]]")
                             .arg(QChar(QChar::ByteOrderMark) + QStringLiteral("marked"));
    for (const char* const options : {"--columns path,name --text", "--json --text", "--text"}) {
        const Outcome run = workspace.run(QByteArray("list in/m.rvx ") + options + " marked");
        EXPECT_TRUE(run.out.contains(name)) << options;
        QString shown = run.out;
        EXPECT_TRUE(shown.replace(QLatin1String("\\\\"), QLatin1String("\\")).contains(path))
            << run.out.toStdString();
    }
}

TEST_F(ListWithIndex, PrintsTheSameWithAnIndexThatIsNone)
{
    const QString first = list().out;
    const QString name = cached().value(0);
    const QByteArray index = workspace.read(name);
    for (const QByteArray& bytes : {QByteArray(), index.left(index.size() / 2),
                                    QByteArray(index.size(), 'x'), QByteArray("RVOCAT1\n")}) {
        workspace.write(name, bytes);
        EXPECT_EQ(list().out, first);
    }
}

TEST_F(ListWithIndex, PrintsTheSameWhereNoThreadCanBeStarted)
{
    const QString wanted = list().out;
    for (const bool isIndexed : {true, false}) {
        if (!isIndexed)
            QDir(workspace.path(QStringLiteral("caches"))).removeRecursively();
        QString trace;
        const Outcome run = workspace.traced(
            QStringLiteral("-e trace=clone,clone3 -e inject=clone,clone3:error=EAGAIN"),
            QStringLiteral("rvopen list in --text yellow"), trace);
        EXPECT_EQ(trace.contains(QLatin1String("INJECTED")), QThread::idealThreadCount() > 1);
        EXPECT_EQ(run.out, wanted);
        EXPECT_EQ(run.code, 0) << run.err.toStdString();
    }
}

/// What goes wrong while an index is made, at the first such call, the second and so on.
TEST_F(ListWithIndex, PrintsTheSameWhateverBecomesOfTheIndex)
{
    workspace.environment.insert(QStringLiteral("RVOPEN_CATALOGUE"), QStringLiteral("off"));
    const QString wanted = list().out;
    workspace.environment.remove(QStringLiteral("RVOPEN_CATALOGUE"));
    const QString renaming = QStringLiteral("rename,renameat,renameat2");
    const QStringList faults[] = {
#ifndef RVOPEN_SANITIZE
        // A sanitizer writes into a pipe of its own to learn whether memory may be read.
        {QStringLiteral("write"), QStringLiteral("error=ENOSPC")},
        {QStringLiteral("write"), QStringLiteral("signal=SIGKILL")},
#endif
        {QStringLiteral("mkdir"), QStringLiteral("error=EACCES")},
        {renaming, QStringLiteral("error=EACCES")},
        {renaming, QStringLiteral("signal=SIGKILL")}};
    for (const QStringList& fault : faults) {
        bool isOver = false;
        for (int number = 1; !isOver; ++number) {
            SCOPED_TRACE(fault.join(QLatin1Char(' ')).toStdString() + ' ' + std::to_string(number));
            ASSERT_LT(number, 40);
            QDir(workspace.path(QStringLiteral("caches"))).removeRecursively();
            QString trace;
            const Outcome run =
                workspace.traced(QStringLiteral("-e trace=%1 -e inject=%1:%2:when=%3")
                                     .arg(fault[0], fault[1])
                                     .arg(number),
                                 QStringLiteral("rvopen list in --text yellow"), trace);
            const bool isKilled = trace.contains(QLatin1String("+++ killed"));
            isOver = !isKilled && !trace.contains(QLatin1String("INJECTED"));
            ASSERT_TRUE(!isOver || number > 1) << run.err.toStdString() << trace.toStdString();
            // The output may be what could not be written.
            if (run.code == 0) {
                EXPECT_EQ(run.out, wanted);
            } else if (!isKilled) {
                EXPECT_EQ(run.err.toStdString(), "rvopen: the output could not be written: No "
                                                 "space left on device\n");
            }
            if (!isKilled) {
                EXPECT_EQ(cached().filter(QStringLiteral("/new.")), QStringList());
            }
            EXPECT_EQ(list().out, wanted);
            EXPECT_EQ(list().out, wanted);
        }
    }
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "BrowserSupport.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenReader.h>

#include <QProcess>

#include <csignal>

namespace rvopen::test {

using namespace browser;

namespace {

class JournalTest : public BrowserTest {
protected:
    /// The journal as it is now, as a program that has ended would leave it.
    Journal::Left leave(const char* name)
    {
        const QStringList folders = QDir(journals()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        EXPECT_EQ(folders.size(), 1);
        const QDir from(journals() + '/' + folders.value(0));
        const QDir to(path(name) + "/left");
        QDir().mkpath(to.path());
        for (const char* const file : {"base", "log"})
            EXPECT_TRUE(QFile::copy(from.filePath(file), to.filePath(file)));
        const auto left = Journal::leftOver(path(name));
        EXPECT_EQ(left.size(), 1);
        return left.value(0);
    }

    /// What comes of the base and the journal.
    QString recovered(const Journal::Left& left)
    {
        const QString file = write("recovered.rvx", Journal::base(left));
        const auto opened = open(file);
        EXPECT_TRUE(opened->recover(left));
        return textOf(*opened);
    }
};

TEST_F(JournalTest, HasNothingBeforeTheFirstEditAndAfterASave)
{
    const auto file = open(write("a.rvx", sampleArchive()));
    EXPECT_FALSE(QFileInfo::exists(journals()));
    EXPECT_TRUE(edits::rename(*file, at(*file, "/materials/dir[Metals]"), "Alloys"));
    EXPECT_EQ(QDir(journals()).count(), 3U);
    EXPECT_TRUE(Journal::leftOver(journals()).isEmpty());
    EXPECT_FALSE(file->save());
    EXPECT_EQ(QDir(journals()).count(), 2U);
}

TEST_F(JournalTest, GoesWithAFileThatIsClosed)
{
    auto file = open(write("a.rvx", sampleArchive()));
    edits::rename(*file, at(*file, "/materials/dir[Metals]"), "Alloys");
    file.reset();
    EXPECT_EQ(QDir(journals()).count(), 2U);
}

TEST_F(JournalTest, GivesBackWhatWasEdited)
{
    const auto file = open(write("a.rvx", sampleArchive()));
    edits::rename(*file, at(*file, "//material[Brass]"), QString::fromUtf8("Größe \"<&>\n"));
    edits::duplicate(*file, at(*file, "//material[Copper]"));
    edits::remove(*file, {at(*file, "/colours/colour[Red]")});
    edits::move(*file, at(*file, "/materials/dir[Woods]"), -1);
    edits::add(*file, "dir", at(*file, "/materials/dir[Woods]"));
    const Journal::Left left = leave("left");
    EXPECT_EQ(Journal::base(left), sampleArchive());
    EXPECT_EQ(left.file, file->file());
    EXPECT_EQ(recovered(left), textOf(*file));
}

TEST_F(JournalTest, HasWhatWasUndoneAndRedone)
{
    const auto file = open(write("a.rvx", sampleArchive()));
    edits::remove(*file, {at(*file, "/materials/dir[Metals]")});
    edits::rename(*file, at(*file, "/colours/colour[Red]"), "Blue");
    file->stack().undo();
    file->stack().undo();
    file->stack().redo();
    EXPECT_EQ(recovered(leave("left")), textOf(*file));
}

TEST_F(JournalTest, TellsAnEmptyValueFromNone)
{
    const auto file = open(write("a.rvx", sampleArchive()));
    const QDomElement red = at(*file, "/colours/colour[Red]");
    for (const QString& value : {QString(), QString("")}) {
        RVOpenChange change;
        change.kind = RVOpenChange::AttributeSet;
        change.document = file->dom();
        change.node = red;
        change.name = value.isNull() ? "refname" : "cat";
        change.before = value;
        change.after = value.isNull() ? QString("c.red") : QString();
        ASSERT_TRUE(file->takeBack(change));
    }
    EXPECT_FALSE(red.hasAttribute("refname"));
    EXPECT_TRUE(red.hasAttribute("cat"));
    EXPECT_EQ(recovered(leave("left")), textOf(*file));
}

TEST_F(JournalTest, TakesWhatStandsInALogThatEndsInTheMiddle)
{
    const auto file = open(write("a.rvx", sampleArchive()));
    edits::rename(*file, at(*file, "//material[Brass]"), "First");
    const QString first = textOf(*file);
    edits::rename(*file, at(*file, "//material[First]"), "Second");
    Journal::Left left = leave("left");
    const QByteArray log = bytesOf(left.folder + "/log");
    for (int cut = 2; cut < 60; cut += 7) {
        write("left/left/log", log.left(log.size() - cut));
        left = Journal::leftOver(path("left")).value(0);
        EXPECT_EQ(recovered(left), first) << cut;
    }
}

TEST_F(JournalTest, KeepsEditsOfSnapshotDocuments)
{
    const auto file = open(write("a.xml", sampleDocument()));
    ASSERT_EQ(file->kind(), toolkit::DocumentKind::SnapShots);
    edits::rename(*file, at(*file, "/snapshots/snapshot[One]"), "Entrance");
    edits::duplicate(*file, at(*file, "/snapshots/snapshot[Two]"));
    const Journal::Left left = leave("left");
    const auto again = open(write("b.xml", Journal::base(left)));
    EXPECT_TRUE(again->recover(left));
    EXPECT_EQ(textOf(*again), textOf(*file));
    EXPECT_EQ(namesIn(at(*again, "/snapshots")).size(), 3);
}

TEST_F(JournalTest, RecoveringIsOneStepToUndo)
{
    const auto file = open(write("a.rvx", sampleArchive()));
    edits::rename(*file, at(*file, "//material[Brass]"), "First");
    edits::remove(*file, {at(*file, "/colours/colour[Red]")});
    const Journal::Left left = leave("left");
    const auto again = open(write("b.rvx", sampleArchive()));
    const QString before = textOf(*again);
    EXPECT_TRUE(again->recover(left));
    EXPECT_EQ(again->stack().count(), 1);
    again->stack().undo();
    EXPECT_EQ(textOf(*again), before);
}

TEST_F(JournalTest, SaysThatItCannotBeKept)
{
    write("journals", "a file");
    const auto file = open(write("a.rvx", sampleArchive()));
    EXPECT_TRUE(file->journalProblem().isEmpty());
    EXPECT_TRUE(edits::rename(*file, at(*file, "//material[Brass]"), "First"));
    EXPECT_FALSE(file->journalProblem().isEmpty());
    EXPECT_FALSE(file->save());
    EXPECT_TRUE(bytesOf(file->file()).contains("First"));
}

/// The program is killed between two edits that it tells of.
TEST_F(JournalTest, AProgramThatIsKilledLosesNothing)
{
    const QString file = write("a.rvx", sampleArchive());
    QProcess editor;
    editor.start(KILLED_EDITOR, {file, journals()});
    // A line may come in pieces.
    while (!editor.canReadLine())
        ASSERT_TRUE(editor.waitForReadyRead(30000));
    const QByteArray told = editor.readLine();
    EXPECT_TRUE(Journal::leftOver(journals()).isEmpty());
    ::kill(pid_t(editor.processId()), SIGKILL);
    ASSERT_TRUE(editor.waitForFinished(30000));
    EXPECT_EQ(editor.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(bytesOf(file), sampleArchive());

    Memory memory(path("settings.ini"));
    Workspace workspace(memory, journals());
    const QVector<Journal::Left> left = workspace.leftOver();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].file, file);
    EditedFile* const recovered = workspace.recover(left[0]);
    ASSERT_TRUE(recovered);
    EXPECT_EQ(recovered->file(), file);
    EXPECT_TRUE(recovered->isChanged());
    EXPECT_EQ(textOf(*recovered).toUtf8(), QByteArray::fromBase64(told.trimmed()));
    EXPECT_TRUE(workspace.save(*recovered));
    EXPECT_TRUE(workspace.leftOver().isEmpty());
    EXPECT_TRUE(bytesOf(file).contains("name=\"Killed 9\""));
}

TEST_F(JournalTest, AFileThatHasChangedSinceStays)
{
    const QString file = write("a.rvx", sampleArchive());
    {
        const auto edited = open(file);
        edits::rename(*edited, at(*edited, "//material[Brass]"), "Mine");
        leave("left");
    }
    const QByteArray theirs = sampleArchive().replace("Copper", "Theirs");
    write("a.rvx", theirs);
    Memory memory(path("settings.ini"));
    Workspace workspace(memory, path("left"));
    EditedFile* const recovered = workspace.recover(workspace.leftOver().value(0));
    ASSERT_TRUE(recovered);
    EXPECT_EQ(recovered->file(), path("a-recovered.rvx"));
    EXPECT_EQ(bytesOf(file), theirs);
    EXPECT_FALSE(at(*recovered, "//material[Mine]").isNull());
    EXPECT_FALSE(at(*recovered, "//material[Copper]").isNull());
    EXPECT_TRUE(workspace.leftOver().isEmpty());
}

} // namespace

} // namespace rvopen::test

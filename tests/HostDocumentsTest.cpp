// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Documents.h>
#include <rvopen/host/OpenArchive.h>

#include "FileSupport.h"
#include "ManagerSupport.h"

#include <rvopen/Camera.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenView.h>

namespace rvopen::test {
namespace {

using host::Imported;
using host::ImportedCamera;
using host::OpenArchive;
using host::Result;

const char* const s_snapShots = "<snapRoot><snapshots name='Model SnapShots'>"
                                "<snapshot name='a'/></snapshots><snapshot name='now'><camera/>"
                                "</snapshot></snapRoot>";

struct HostDocuments : ::testing::Test {
    QString write(const QString& name, const QByteArray& text) const
    {
        writeFile(path(name), text);
        return path(name);
    }
    QString path(const QString& name) const
    {
        return folder.filePath(name);
    }

    QTemporaryDir folder;
    RVOpenManager manager;
};

TEST_F(HostDocuments, AreLoaded)
{
    const Result<> result = host::load(manager, write("a.xml", s_snapShots));
    EXPECT_TRUE(result);
    EXPECT_EQ(result.error().message, "");
    EXPECT_EQ(namesIn(manager.GetSnapShots()), "a");
    EXPECT_TRUE(host::loadText(manager, "<snapRoot><snapshot name='b'/></snapRoot>"));
    EXPECT_EQ(manager.GetCurrentSnapShot()->GetName(), "b");
}

TEST_F(HostDocuments, SayWhyTheyWereNotLoadedAndWhere)
{
    load(manager, s_snapShots);
    const QString before = textOf(manager);
    const QString bad = write("bad.xml", "<snapRoot>\n  <snapshot>\n</snapRoot>");
    const Result<> malformed = host::load(manager, bad);
    EXPECT_FALSE(malformed);
    EXPECT_EQ(malformed.error().file, bad);
    EXPECT_EQ(malformed.error().line, 3);
    EXPECT_GT(malformed.error().column, 0);
    EXPECT_NE(malformed.error().message, "");
    const Result<> missing = host::load(manager, path("missing.xml"));
    EXPECT_FALSE(missing);
    EXPECT_EQ(missing.error().file, path("missing.xml"));
    EXPECT_EQ(missing.error().line, 0);
    EXPECT_EQ(missing.error().message, "No such file or directory");
    // What is told of must not be what an earlier attempt left.
    EXPECT_TRUE(host::load(manager, write("good.xml", s_snapShots)));
    const Result<> empty = host::load(manager, QString());
    EXPECT_FALSE(empty);
    EXPECT_EQ(empty.error().message, "No file can have this name");
    const Result<> text = host::loadText(manager, "<snapRoot>");
    EXPECT_FALSE(text);
    EXPECT_EQ(text.error().file, "");
    EXPECT_EQ(text.error().line, 1);
    EXPECT_EQ(textOf(manager), before);
}

TEST_F(HostDocuments, AreSavedAsTheyAreWritten)
{
    load(manager, s_snapShots);
    EXPECT_FALSE(host::save(manager, path("out.xml")));
    EXPECT_EQ(QString::fromUtf8(readFile(path("out.xml"))), manager.GetSnapShotDocumentAsString());
    const RVOpenNode* const inside = manager.GetCurrentSnapShot();
    EXPECT_FALSE(host::saveTree(inside, path("tree.rvx")));
    EXPECT_TRUE(readFile(path("tree.rvx")).contains("\n   <snapshot name=\"now\">\n      <camera"))
        << readFile(path("tree.rvx")).constData();
}

TEST_F(HostDocuments, SayWhyTheyWereNotSaved)
{
    load(manager, s_snapShots);
    const WriteError folderMissing = host::save(manager, path("no/out.xml"));
    EXPECT_TRUE(folderMissing);
    EXPECT_EQ(folderMissing.file, path("no/out.xml"));
    EXPECT_EQ(folderMissing.message, "No such file or directory");
    const QString old = write("old.xml", "old");
    {
        const FileSizeLimit full(8);
        EXPECT_EQ(host::save(manager, old).message, "File too large");
    }
    EXPECT_EQ(readFile(old), "old");
    // An error of before is none of the next one.
    EXPECT_FALSE(host::save(manager, old));
    manager.ClearSnapShotDoc();
    EXPECT_EQ(host::save(manager, old).message, "There is no document");
    EXPECT_EQ(host::saveTree(nullptr, old).message, "There is no document");
    const RVOpenNode unbound;
    EXPECT_EQ(host::saveTree(&unbound, old).message, "There is no document");
    EXPECT_NE(readFile(old), "");
}

TEST_F(HostDocuments, AreImportedWithTheirThumbnails)
{
    ArchiveFolders folders;
    load(manager, s_snapShots);
    const QString other =
        write("other.xml", "<snapRoot><snapshots name='Model SnapShots'><snapshot name='x'/>"
                           "<snapshot name='y'/></snapshots></snapRoot>");
    write("icon_x.jpg", "picture");
    const Result<Imported> result = host::importSnapShots(manager, other, ImportedCamera::Current);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->snapShots, 2);
    EXPECT_FALSE(result->thumbnail);
    EXPECT_EQ(namesIn(manager.GetSnapShots()), "a x y");
    EXPECT_EQ(readFile(folders.snapshots() + "/icon_x.jpg"), "picture");
    EXPECT_NE(manager.GetSnapShots()->GetFirstSnapShot()->GetNext()->GetCamera(), nullptr);
    ASSERT_TRUE(host::importSnapShots(manager, other));
    EXPECT_EQ(namesIn(manager.GetSnapShots()), "a x y x y");
}

TEST_F(HostDocuments, SayWhichThumbnailDidNotArrive)
{
    ArchiveFolders folders;
    load(manager, s_snapShots);
    const QString other =
        write("other.xml", "<snapRoot><snapshots name='Model SnapShots'><snapshot name='none'/>"
                           "<snapshot name='x'/><snapshot name='y'/></snapshots></snapRoot>");
    write("icon_x.jpg", "a picture of some size");
    write("icon_y.jpg", "small");
    {
        const FileSizeLimit full(8);
        const Result<Imported> result = host::importSnapShots(manager, other);
        ASSERT_TRUE(result);
        EXPECT_EQ(result->snapShots, 3);
        EXPECT_TRUE(result->thumbnail);
        EXPECT_EQ(QFileInfo(result->thumbnail.file).fileName(), "icon_x.jpg");
        EXPECT_EQ(result->thumbnail.message, "File too large");
        EXPECT_EQ(LastWriteError(), "File too large");
    }
    EXPECT_FALSE(QFileInfo::exists(folders.snapshots() + "/icon_x.jpg"));
    EXPECT_EQ(readFile(folders.snapshots() + "/icon_y.jpg"), "small");
    const Result<Imported> again = host::importSnapShots(manager, other);
    ASSERT_TRUE(again);
    EXPECT_FALSE(again->thumbnail);
    // What is there already is no error.
    EXPECT_FALSE(host::importSnapShots(manager, other)->thumbnail);
    EXPECT_EQ(LastWriteError(), "");
}

TEST_F(HostDocuments, SayWhyAThumbnailCouldNotBeRead)
{
    ArchiveFolders folders;
    const QString other = write("other.xml", "<snapRoot><snapshots name='Model SnapShots'>"
                                             "<snapshot name='x'/></snapshots></snapRoot>");
    const QString thumbnail = write("icon_x.jpg", QByteArray(1000, 'x'));
    SetMaxInputSize(999);
    EXPECT_EQ(host::importSnapShots(manager, other)->thumbnail.message,
              "The input is larger than 999");
    SetMaxInputSize(DefaultMaxInputSize);
    setMode(thumbnail, 0);
    for (const QString& path : {folder.path(), folders.root(), folders.snapshots()})
        setMode(path, 0777);
    {
        const Unprivileged unprivileged;
        EXPECT_EQ(host::importSnapShots(manager, other)->thumbnail.message, "Permission denied");
    }
    EXPECT_FALSE(QFileInfo::exists(folders.snapshots() + "/icon_x.jpg"));
}

TEST_F(HostDocuments, AnImportOfNothingLeavesNoOlderError)
{
    const QString empty = write("empty.xml", "<snapRoot/>");
    manager.ClearSnapShotDoc();
    EXPECT_FALSE(WriteFile("x", path("no/file")));
    const Result<Imported> result = host::importSnapShots(manager, empty);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->snapShots, 0);
    EXPECT_EQ(result->thumbnail.message, "");
    EXPECT_EQ(LastWriteError(), "");
}

TEST_F(HostDocuments, AreNotImportedWhereTheyCannotBeRead)
{
    load(manager, s_snapShots);
    const QString before = textOf(manager);
    const Result<Imported> result = host::importSnapShots(manager, path("missing.xml"));
    EXPECT_FALSE(result);
    EXPECT_EQ(result.error().file, path("missing.xml"));
    EXPECT_EQ(result.error().message, "No such file or directory");
    EXPECT_EQ(textOf(manager), before);
}

struct HostArchive : ::testing::Test {
    ArchiveFolders folders;
    QString file = folders.write("A", "<r><p/></r>");

    bool isOpen() const
    {
        return GetDirectoryHandler()->IsArchiveOpen(file);
    }
};

TEST_F(HostArchive, IsOpenAsLongAsTheHandle)
{
    EXPECT_FALSE(isOpen());
    {
        const OpenArchive archive(file);
        EXPECT_TRUE(archive);
        EXPECT_EQ(archive.path(), file);
        EXPECT_EQ(archive.error().message, "");
        EXPECT_EQ(archive.root(), GetDirectoryHandler()->LoadArchive(file));
    }
    EXPECT_FALSE(isOpen());
}

TEST_F(HostArchive, OfSeveralTheLastCloses)
{
    OpenArchive second;
    {
        OpenArchive first(file);
        second = OpenArchive(file);
        EXPECT_EQ(first.root(), second.root());
    }
    EXPECT_TRUE(isOpen());
    OpenArchive moved(std::move(second));
    EXPECT_FALSE(second); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(moved);
    second.close();
    EXPECT_TRUE(isOpen());
    moved.close();
    EXPECT_FALSE(moved);
    EXPECT_FALSE(isOpen());
    moved.close();
}

TEST_F(HostArchive, AssigningClosesWhatWasThere)
{
    const QString other = folders.write("B", "<b/>");
    OpenArchive archive(file);
    archive = OpenArchive(other);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(archive.root()->GetNodeName(), "b");
    OpenArchive& itself = archive;
    archive = std::move(itself);
    EXPECT_TRUE(archive);
}

TEST_F(HostArchive, StaysOpenWhereItWasOpenBefore)
{
    RVOpenNode* const root = GetDirectoryHandler()->LoadArchive(file);
    {
        const OpenArchive first(file);
        const OpenArchive second(file);
    }
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(GetDirectoryHandler()->LoadArchive(file), root);
}

TEST_F(HostArchive, ClosedByOthersItHasNoRootAndClosesNothing)
{
    OpenArchive archive(file);
    GetDirectoryHandler()->CloseArchive(file);
    EXPECT_FALSE(archive);
    EXPECT_EQ(archive.root(), nullptr);
    RVOpenNode* const anew = GetDirectoryHandler()->LoadArchive(file);
    const WriteError error = archive.save();
    EXPECT_EQ(error.file, file);
    EXPECT_EQ(error.message, "The archive is not open");
    {
        const OpenArchive shared(file);
        EXPECT_EQ(shared.root(), anew);
        archive.close();
        EXPECT_TRUE(shared);
    }
    EXPECT_TRUE(isOpen());
}

TEST_F(HostArchive, KeptByACopyOfTheRegistryItLeavesWhatWasOpenedAnew)
{
    OpenArchive first(file);
    const DirectoryHandler copy = *GetDirectoryHandler();
    GetDirectoryHandler()->CloseArchive(file);
    const OpenArchive second(file);
    EXPECT_NE(first.root(), second.root());
    first.close();
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(second);
}

TEST_F(HostArchive, SaysWhyItIsNotOpen)
{
    const OpenArchive missing(folders.full("none"));
    EXPECT_FALSE(missing);
    EXPECT_EQ(missing.error().file, folders.full("none"));
    EXPECT_EQ(missing.error().message, "No such file or directory");
    EXPECT_FALSE(OpenArchive());
}

TEST_F(HostArchive, SavesAndDropsWhatIsNotSaved)
{
    {
        OpenArchive archive(file);
        archive.root()->SetName("kept");
        EXPECT_FALSE(archive.save());
        archive.root()->SetName("dropped");
    }
    EXPECT_TRUE(readFile(file).contains("name=\"kept\""));
    EXPECT_EQ(OpenArchive(file).root()->GetName(), "kept");
    OpenArchive full(file);
    full.root()->SetName(QString(64, 'x'));
    const FileSizeLimit limit(8);
    EXPECT_EQ(full.save().message, "File too large");
}

TEST_F(HostArchive, OfANodeIsSaved)
{
    const QDomDocument referring =
        parse("<r><dir archiveType='Custom' archiveFilename='A'/><x/></r>");
    const RVOpenView<> view(referring.documentElement());
    RVOpenNode* const reference = view->GetChild(1, 1);
    EXPECT_EQ(host::saveArchive(reference).message, "The archive is not open");
    EXPECT_EQ(LastWriteError(), "The archive is not open");
    reference->GetChild(1, 1)->SetName("inside");
    EXPECT_EQ(GetDirectoryHandler()->GetArchiveAround(reference), file);
    EXPECT_FALSE(host::saveArchive(reference));
    EXPECT_TRUE(readFile(file).contains("name=\"inside\""));
    EXPECT_EQ(host::saveArchive(reference->GetNext(1)).message, "The node belongs to no archive");
    EXPECT_EQ(host::saveArchive(nullptr).message, "The node belongs to no archive");
    EXPECT_EQ(GetDirectoryHandler()->GetArchiveAround(nullptr), "");
}

} // namespace
} // namespace rvopen::test

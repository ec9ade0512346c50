// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileSupport.h"
#include "ManagerSupport.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/files/AtomicWrite.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/xattr.h>
#endif

using namespace rvopen;
using namespace rvopen::test;

namespace {

const QByteArray s_old = "<archive/>";
const QByteArray s_new = "<archive name=\"new\"/>\n";

/// The library as it is built, or with the source that serves systems that are not Unix, which the
/// test program contains.
enum class Build { Own, Portable };

/// "archives/a.rvx" is an archive that is open and changed: saving it turns s_old into s_new. A
/// test first makes of its file and folder what it needs.
class SavingTest : public ::testing::TestWithParam<Build> {
protected:
    SavingTest()
    {
        makeFolder();
        m_root.write("archives/a.rvx", s_old);
        m_handler.LoadArchive(path())->SetName("new");
    }
    ~SavingTest() override
    {
        if (QFileInfo(folder()).isDir())
            setMode(folder(), 0755);
    }

    void makeFolder()
    {
        ASSERT_TRUE(QDir(m_root.path()).mkdir("archives"));
        if (isRoot())
            setOwner(folder(), Nobody, Nobody);
    }
    QString folder() const
    {
        return m_root.path("archives");
    }
    QString path() const
    {
        return m_root.path("archives/a.rvx");
    }
    void remove()
    {
        ASSERT_TRUE(QFile::remove(path()));
    }
    bool save()
    {
        QString reason;
        return GetParam() == Build::Own ? m_handler.SaveArchive(path())
                                        : replaceFile(path(), s_new, reason) == SaveResult::Saved;
    }

    OpenFolder m_root;

private:
    DirectoryHandler m_handler;
};

/// What only the Unix source promises.
class UnixSavingTest : public SavingTest {};

const auto s_buildName = [](const ::testing::TestParamInfo<Build>& build) {
    return build.param == Build::Own ? "Own" : "Portable";
};

INSTANTIATE_TEST_SUITE_P(Builds, SavingTest, ::testing::Values(Build::Own, Build::Portable),
                         s_buildName);
INSTANTIATE_TEST_SUITE_P(Builds, UnixSavingTest, ::testing::Values(Build::Own), s_buildName);

} // namespace

// What takes the place of a file

TEST_P(SavingTest, ReplacesTheContent)
{
    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
}

TEST_P(SavingTest, LeavesNothingElseInTheFolder)
{
    save();

    EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
}

TEST_P(SavingTest, LeavesTheOldContentToThoseWhoHaveItOpen)
{
    QFile reader(path());
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
    save();

    EXPECT_EQ(reader.readAll(), s_old);
}

TEST_P(SavingTest, LeavesTheOldContentUnderItsOtherNames)
{
    ASSERT_EQ(::link(QFile::encodeName(path()).constData(),
                     QFile::encodeName(m_root.path("other")).constData()),
              0);
    save();

    EXPECT_EQ(readFile(m_root.path("other")), s_old);
}

TEST_P(SavingTest, MakesAFileWhereThereIsNone)
{
    remove();

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
}

// Permissions

TEST_P(SavingTest, KeepsTheMode)
{
    for (const int mode : {0600, 0640, 0664, 0666, 0755}) {
        setMode(path(), mode);

        EXPECT_TRUE(save());
        EXPECT_EQ(modeOf(path()), mode);
    }
}

TEST_P(SavingTest, GivesANewFileTheModeThatTheProcessGivesNewFiles)
{
    remove();
    const mode_t before = ::umask(026);
    save();
    ::umask(before);

    EXPECT_EQ(modeOf(path()), 0640);
}

TEST_P(UnixSavingTest, KeepsOwnerAndGroup)
{
    if (!isRoot())
        GTEST_SKIP() << "only root may give files away";
    setOwner(path(), Nobody, Nobody - 1);

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
    EXPECT_EQ(statusOf(path()).st_uid, Nobody);
    EXPECT_EQ(statusOf(path()).st_gid, Nobody - 1);
}

TEST_P(UnixSavingTest, ReplacesAFileOfAnotherOwnerAndTheOwnGroup)
{
    if (!isRoot())
        GTEST_SKIP() << "only root may give files away";
    setOwner(path(), 0, Nobody);
    setMode(path(), 0660);
    const auto before = statusOf(path()).st_ino;
    const Unprivileged unprivileged;

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
    EXPECT_NE(statusOf(path()).st_ino, before);
    EXPECT_EQ(statusOf(path()).st_gid, Nobody);
    EXPECT_EQ(modeOf(path()), 0660);
}

TEST_P(UnixSavingTest, WritesInPlaceWhereTheGroupCannotBeKept)
{
    if (!isRoot())
        GTEST_SKIP() << "only root may give files away";
    setOwner(path(), Nobody, 0);
    setMode(path(), 0660);
    const auto before = statusOf(path()).st_ino;
    const Unprivileged unprivileged;

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
    EXPECT_EQ(statusOf(path()).st_ino, before);
    EXPECT_EQ(statusOf(path()).st_gid, 0U);
    EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
}

#ifdef Q_OS_LINUX

namespace {

/// Reading and writing for the owner and for user 1, who is not the group's; nothing for others.
const QByteArray s_accessList = QByteArray::fromHex("02000000"
                                                    "01000600ffffffff"
                                                    "0200060001000000"
                                                    "04000000ffffffff"
                                                    "10000600ffffffff"
                                                    "20000000ffffffff");
const char s_accessListName[] = "system.posix_acl_access";

QByteArray accessListOf(const QString& path)
{
    QByteArray list(1024, 0);
    const auto size = ::getxattr(QFile::encodeName(path).constData(), s_accessListName, list.data(),
                                 static_cast<size_t>(list.size()));
    return size < 0 ? QByteArray() : list.left(static_cast<int>(size));
}

bool setAccessList(const QString& path, const char* name)
{
    return ::setxattr(QFile::encodeName(path).constData(), name, s_accessList.constData(),
                      static_cast<size_t>(s_accessList.size()), 0) == 0;
}

} // namespace

TEST_P(UnixSavingTest, KeepsTheAccessControlList)
{
    if (!setAccessList(path(), s_accessListName))
        GTEST_SKIP() << "the file system has no access control lists";

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
    EXPECT_EQ(accessListOf(path()), s_accessList);
    EXPECT_EQ(modeOf(path()), 0660);
}

TEST_P(UnixSavingTest, TakesNoAccessControlListFromTheFolder)
{
    setMode(path(), 0640);
    if (!setAccessList(folder(), "system.posix_acl_default"))
        GTEST_SKIP() << "the file system has no access control lists";

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
    EXPECT_EQ(accessListOf(path()), QByteArray());
    EXPECT_EQ(modeOf(path()), 0640);
}

#endif

// Symbolic links

TEST_P(SavingTest, WritesWhatALinkLeadsTo)
{
    remove();
    const QString target = m_root.write("target", s_old);
    link(target, path());

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(target), s_new);
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_P(SavingTest, FollowsALinkFromTheFolderThatItIsIn)
{
    remove();
    const QString target = m_root.write("target", s_old);
    link("../target", path());

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(target), s_new);
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_P(SavingTest, FollowsLinksThatLeadToLinks)
{
    remove();
    const QString target = m_root.write("target", s_old);
    link("target", m_root.path("second"));
    link("../second", path());

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(target), s_new);
    EXPECT_TRUE(QFileInfo(m_root.path("second")).isSymLink());
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_P(SavingTest, LeavesNothingBesideALinkOrWhatItLeadsTo)
{
    remove();
    m_root.write("target", s_old);
    link("../target", path());
    save();

    EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
    EXPECT_EQ(entriesOf(m_root.path()), QStringList({"archives", "target"}));
}

TEST_P(SavingTest, FollowsALinkToAFolderAboveTheFile)
{
    ASSERT_TRUE(QDir().rename(folder(), m_root.path("elsewhere")));
    link("elsewhere", folder());

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(m_root.path("elsewhere/a.rvx")), s_new);
    EXPECT_TRUE(QFileInfo(folder()).isSymLink());
}

TEST_P(UnixSavingTest, MakesTheFileThatALinkLeadsTo)
{
    remove();
    link("../target", path());

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(m_root.path("target")), s_new);
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_P(UnixSavingTest, MakesNoFolderThatALinkLeadsTo)
{
    remove();
    link("../missing/target", path());

    EXPECT_FALSE(save());
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_EQ(entriesOf(m_root.path()), QStringList("archives"));
}

TEST_P(UnixSavingTest, FailsForALinkThatLeadsToItself)
{
    remove();
    link("a.rvx", path());

    EXPECT_FALSE(save());
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
}

// What may not be written, or cannot

TEST_P(SavingTest, LeavesAFileThatMayNotBeWritten)
{
    setMode(path(), 0444);
    const Unprivileged unprivileged;

    EXPECT_FALSE(save());
    EXPECT_EQ(readFile(path()), s_old);
    EXPECT_EQ(modeOf(path()), 0444);
    EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
}

TEST_P(SavingTest, LeavesAFolderOfThatName)
{
    remove();
    ASSERT_TRUE(QDir().mkdir(path()));

    EXPECT_FALSE(save());
    EXPECT_TRUE(QFileInfo(path()).isDir());
    EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
}

TEST_P(SavingTest, MakesNoFolder)
{
    ASSERT_TRUE(QDir(folder()).removeRecursively());

    EXPECT_FALSE(save());
    EXPECT_EQ(entriesOf(m_root.path()), QStringList());
}

TEST_P(SavingTest, FailsBelowAFile)
{
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    m_root.write("archives", "no folder");

    EXPECT_FALSE(save());
    EXPECT_EQ(readFile(folder()), "no folder");
}

TEST_P(SavingTest, MakesNoFileInAFolderThatMayNotBeWritten)
{
    remove();
    setMode(folder(), 0555);
    const Unprivileged unprivileged;

    EXPECT_FALSE(save());
    EXPECT_EQ(entriesOf(folder()), QStringList());
}

TEST_P(SavingTest, WritesIntoAPipe)
{
    remove();
    const QByteArray name = QFile::encodeName(path());
    ASSERT_EQ(::mkfifo(name.constData(), 0600), 0);
    const int reader = ::open(name.constData(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);

    EXPECT_TRUE(save());
    std::array<char, 100> bytes;
    const ssize_t size = ::read(reader, bytes.data(), bytes.size());
    ::close(reader);
    EXPECT_EQ(QByteArray(bytes.data(), static_cast<int>(size)), s_new);
    EXPECT_TRUE(S_ISFIFO(statusOf(path()).st_mode));
    EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
}

// In a folder that may not be written

TEST_P(SavingTest, WritesInPlaceWhereTheFolderMayNotBeWritten)
{
    const auto before = statusOf(path()).st_ino;
    setMode(folder(), 0555);
    const Unprivileged unprivileged;

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
    EXPECT_EQ(statusOf(path()).st_ino, before);
}

TEST_P(SavingTest, LeavesNothingOfALongerFileInPlace)
{
    m_root.write("archives/a.rvx", QByteArray(1000, 'x'));
    setMode(folder(), 0555);
    const Unprivileged unprivileged;

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
}

TEST_P(SavingTest, WritesInPlaceWhatALinkLeadsTo)
{
    remove();
    ASSERT_TRUE(QDir().mkdir(m_root.path("closed")));
    const QString target = m_root.write("closed/target", s_old);
    link("../closed/target", path());
    setMode(m_root.path("closed"), 0555);
    {
        const Unprivileged unprivileged;

        EXPECT_TRUE(save());
    }
    EXPECT_EQ(readFile(target), s_new);
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    setMode(m_root.path("closed"), 0755);
}

TEST_P(UnixSavingTest, WritesInPlaceWhereTheFolderKeepsTheFilesOfOthers)
{
    if (!isRoot())
        GTEST_SKIP() << "only root may give files away";
    setOwner(folder(), 0, 0);
    setMode(folder(), 01777);
    setOwner(path(), 0, Nobody);
    setMode(path(), 0660);
    const Unprivileged unprivileged;

    EXPECT_TRUE(save());
    EXPECT_EQ(readFile(path()), s_new);
    EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
}

// A full disk

namespace {

/// Sizes at which the disk is full: at once, in the middle, and when all but the end is written.
const auto s_limits = {0, 1, 11, 21};

} // namespace

TEST_P(SavingTest, LeavesTheFileWhenTheDiskIsFull)
{
    for (const int size : s_limits) {
        const FileSizeLimit limit(static_cast<rlim_t>(size));

        EXPECT_FALSE(save());
        EXPECT_EQ(readFile(path()), s_old);
        EXPECT_EQ(entriesOf(folder()), QStringList("a.rvx"));
    }
}

TEST_P(SavingTest, MakesNoFileWhenTheDiskIsFull)
{
    remove();
    for (const int size : s_limits) {
        const FileSizeLimit limit(static_cast<rlim_t>(size));

        EXPECT_FALSE(save());
        EXPECT_EQ(entriesOf(folder()), QStringList());
    }
}

TEST_P(SavingTest, LeavesTheFileInPlaceWhenTheDiskIsFull)
{
    setMode(folder(), 0555);
    const Unprivileged unprivileged;
    for (const int size : s_limits) {
        const FileSizeLimit limit(static_cast<rlim_t>(size));

        EXPECT_FALSE(save());
        EXPECT_EQ(readFile(path()), s_old);
    }
}

TEST_P(SavingTest, LeavesALongerFileInPlaceWhenTheDiskIsFull)
{
    const QByteArray longer(1000, 'x');
    m_root.write("archives/a.rvx", longer);
    setMode(folder(), 0555);
    const Unprivileged unprivileged;
    for (const int size : s_limits) {
        const FileSizeLimit limit(static_cast<rlim_t>(size));

        EXPECT_FALSE(save());
        EXPECT_EQ(readFile(path()), longer);
    }
}

// Names

namespace {

/// Saves by the manager, to any path.
class SavingUnderANameTest : public ::testing::Test {
protected:
    bool save(const QString& path)
    {
        const QDomDocument document = parse("<archive name='new'/>");
        return m_manager.SaveArchive(path, test::bind(document.documentElement()).get());
    }
    QString path(const QString& name) const
    {
        return m_folder.filePath(name);
    }

    const QTemporaryDir m_folder;

private:
    RVOpenManager m_manager;
};

} // namespace

TEST_F(SavingUnderANameTest, MayBeRelative)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));

    EXPECT_TRUE(save("a.rvx"));
    EXPECT_EQ(readFile(path("a.rvx")), s_new);
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST_F(SavingUnderANameTest, MayHaveAnyCharacters)
{
    const QString name = QStringLiteral(" \u00fc\u4e2d e\u0301\n'\"$*.rvx");

    EXPECT_TRUE(save(path(name)));
    EXPECT_EQ(readFile(path(name)), s_new);
}

TEST_F(SavingUnderANameTest, MayBeAsLongAsTheFileSystemTakesIt)
{
    const QString name(255, 'a');

    EXPECT_TRUE(save(path(name)));
    EXPECT_EQ(entriesOf(m_folder.path()), QStringList(name));
}

TEST_F(SavingUnderANameTest, MayNotBeLonger)
{
    bool result = false;
    EXPECT_ASSERTION(result = save(path(QString(256, 'a'))), "0", "RVOpenManager");
    EXPECT_FALSE(result);
    EXPECT_EQ(entriesOf(m_folder.path()), QStringList());
}

TEST_F(SavingUnderANameTest, MayNotBeEmpty)
{
    bool result = false;
    EXPECT_ASSERTION(result = save(QString()), "0", "RVOpenManager");
    EXPECT_FALSE(result);
}

TEST_F(SavingUnderANameTest, MayNotEndEarly)
{
    bool result = false;
    EXPECT_ASSERTION(result = save(path("a") + QChar(0) + "b"), "0", "RVOpenManager");
    EXPECT_FALSE(result);
    EXPECT_EQ(entriesOf(m_folder.path()), QStringList());
}

// Documents that could not be read again

TEST_F(SavingUnderANameTest, LeavesTheFileWhenTheDocumentIsTooLargeToBeRead)
{
    writeFile(path("a.rvx"), s_old);
    const qint64 before = GetMaxInputSize();
    SetMaxInputSize(s_new.size() - 1);

    EXPECT_FALSE(save(path("a.rvx")));
    EXPECT_EQ(readFile(path("a.rvx")), s_old);
    SetMaxInputSize(before);
}

TEST_F(SavingUnderANameTest, SavesADocumentThatCanJustBeRead)
{
    const qint64 before = GetMaxInputSize();
    SetMaxInputSize(s_new.size());

    EXPECT_TRUE(save(path("a.rvx")));
    SetMaxInputSize(before);
    EXPECT_EQ(readFile(path("a.rvx")), s_new);
}

// Deleting archives

namespace {

/// An archive in the custom folder that nobody can delete.
class UndeletableArchiveTest : public ::testing::Test {
protected:
    UndeletableArchiveTest()
    {
        if (isRoot()) {
            setMode(m_folders.root(), 0755);
            setOwner(path(), Nobody, Nobody);
        }
        m_root = GetDirectoryHandler()->LoadArchive(path());
        m_root->SetName("new");
        setMode(m_folders.custom(), 0555);
    }
    ~UndeletableArchiveTest() override
    {
        setMode(m_folders.custom(), 0755);
    }

    const QString& path() const
    {
        return m_path;
    }

    ArchiveFolders m_folders;
    RVOpenNode* m_root = nullptr;

private:
    const QString m_path = m_folders.write("a", s_old);
};

} // namespace

TEST_F(UndeletableArchiveTest, KeepsItsFileWhenItIsRemoved)
{
    const Unprivileged unprivileged;
    GetDirectoryHandler()->RemoveArchive(path());

    EXPECT_EQ(readFile(path()), s_old);
}

TEST_F(UndeletableArchiveTest, StaysOpenWhenItIsRemoved)
{
    const Unprivileged unprivileged;
    GetDirectoryHandler()->RemoveArchive(path());

    EXPECT_EQ(GetDirectoryHandler()->LoadArchive(path()), m_root);
    EXPECT_TRUE(GetDirectoryHandler()->SaveArchive(path()));
    EXPECT_EQ(readFile(path()), s_new);
}

TEST_F(UndeletableArchiveTest, GoesAfterAllWhenItCanBe)
{
    {
        const Unprivileged unprivileged;
        GetDirectoryHandler()->RemoveArchive(path());
    }
    setMode(m_folders.custom(), 0755);
    GetDirectoryHandler()->RemoveArchive(path());

    EXPECT_FALSE(QFile::exists(path()));
    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(path()));
}

TEST_F(UndeletableArchiveTest, StaysOpenWhenTheReferenceToItIsDeleted)
{
    const QDomDocument document =
        parse("<presets><dir archiveType='Custom' archiveFilename='a'/></presets>");
    const auto presets = test::bind(document.documentElement());
    const Unprivileged unprivileged;
    presets->DeleteNode(presets->GetChild(1, 0));

    EXPECT_EQ(xmlOf(document), xmlOf("<presets/>"));
    EXPECT_EQ(GetDirectoryHandler()->LoadArchive(path()), m_root);
    EXPECT_EQ(readFile(path()), s_old);
}

// Copying the thumbnails of an import

namespace {

/// The import of a snapshot "a" with its thumbnail. Its session becomes the current snapshot's,
/// "ours", when the thumbnail has been copied.
class ThumbnailCopyTest : public ::testing::Test {
protected:
    ThumbnailCopyTest()
    {
        writeFile(m_folder.filePath("import.xml"),
                  "<snapRoot><snapshots name='Model SnapShots'><snapshot name='a'>"
                  "<snapShotSettings><param name='Session Folder' type='string' val='theirs'/>"
                  "</snapShotSettings></snapshot></snapshots></snapRoot>");
        writeFile(source(), m_bytes);
        m_manager.GetCurrentSnapShot()->GetSnapShotSettings()->SetSessionName("ours");
        // For the user that Unprivileged becomes.
        setMode(m_folder.path(), 0755);
        setMode(m_folders.root(), 0755);
    }
    ~ThumbnailCopyTest() override
    {
        setMode(m_folders.snapshots(), 0755);
    }

    void import()
    {
        m_manager.ImportSnapShotDoc(m_folder.filePath("import.xml"), false, true);
        ASSERT_EQ(namesIn(m_manager.GetSnapShots()), "a");
    }
    QString session()
    {
        return m_manager.GetSnapShots()
            ->GetFirstSnapShot()
            ->GetSnapShotSettings()
            ->GetSessionName();
    }
    QString source() const
    {
        return m_folder.filePath("icon_a.jpg");
    }
    QString copy() const
    {
        return m_folders.snapshots() + "/icon_a.jpg";
    }

    const QByteArray m_bytes = QByteArray(40000, 'x') + QByteArray(40000, '\0');
    const QTemporaryDir m_folder;
    ArchiveFolders m_folders;
    RVOpenManager m_manager;
};

} // namespace

TEST_F(ThumbnailCopyTest, IsWhole)
{
    import();

    EXPECT_EQ(readFile(copy()), m_bytes);
    EXPECT_EQ(session(), "ours");
}

TEST_F(ThumbnailCopyTest, HasTheModeOfTheOriginal)
{
    setMode(source(), 0640);
    import();

    EXPECT_EQ(modeOf(copy()), 0640);
}

TEST_F(ThumbnailCopyTest, IsNotMadeInPartWhenTheDiskIsFull)
{
    for (const auto size : {0, 40000, 79999}) {
        const FileSizeLimit limit(static_cast<rlim_t>(size));
        m_manager.GetSnapShots()->Clear();
        import();

        EXPECT_EQ(entriesOf(m_folders.snapshots()), QStringList());
        EXPECT_EQ(session(), "theirs");
    }
}

TEST_F(ThumbnailCopyTest, IsNotMadeInAFolderThatMayNotBeWritten)
{
    setMode(m_folders.snapshots(), 0555);
    const Unprivileged unprivileged;
    import();

    EXPECT_EQ(entriesOf(m_folders.snapshots()), QStringList());
    EXPECT_EQ(session(), "theirs");
}

TEST_F(ThumbnailCopyTest, DoesNotFollowALinkOutOfTheFolder)
{
    link("../outside.jpg", copy());
    import();

    EXPECT_FALSE(QFile::exists(m_folders.root() + "/outside.jpg"));
    EXPECT_TRUE(QFileInfo(copy()).isSymLink());
    EXPECT_EQ(session(), "theirs");
}

TEST_F(ThumbnailCopyTest, IsNotMadeOfAFolder)
{
    ASSERT_TRUE(QFile::remove(source()));
    ASSERT_TRUE(QDir().mkdir(source()));
    import();

    EXPECT_EQ(entriesOf(m_folders.snapshots()), QStringList());
    EXPECT_EQ(session(), "theirs");
}

TEST_F(ThumbnailCopyTest, IsNotMadeOfMoreThanTheLibraryReads)
{
    const qint64 before = GetMaxInputSize();
    SetMaxInputSize(m_bytes.size() - 1);
    import();
    SetMaxInputSize(before);

    EXPECT_EQ(entriesOf(m_folders.snapshots()), QStringList());
    EXPECT_EQ(session(), "theirs");
}

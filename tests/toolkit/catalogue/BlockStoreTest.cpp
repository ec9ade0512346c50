// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/catalogue/BlockStore.h"
#include "../Parts.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <chrono>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace rvopen::test {

using namespace toolkit::catalogue;

namespace {

QByteArray archiveOf(const char* name, int presets)
{
    QByteArray text = "<presets><colours>";
    for (int i = 0; i < presets; ++i)
        text += QByteArray("<colour name='") + name + ' ' + QByteArray::number(i) + "' desc='" +
                QByteArray(1500, 'd') + "'/>";
    return text + "</colours></presets>";
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QStringList namesOf(const BlockStore& store)
{
    QStringList names;
    for (int i = 0; i < store.count(); ++i) {
        const Block& block = store.block(i);
        for (quint32 row = 0; row < block.head().rows; ++row)
            names << toQString(block.text(block.row(row).name));
    }
    return names;
}

void waitUntilNothingIsRecent()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(2100));
}

/// Three archives that are worth keeping and older than a step of a clock, and a folder for caches
/// of the test's own.
class BlockStoreTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_folder = new QTemporaryDir;
        for (const char* const name : {"a", "b", "below/c"})
            writeBytes(path(name), archiveOf(name, 300));
        waitUntilNothingIsRecent();
    }
    static void TearDownTestSuite()
    {
        delete s_folder;
    }

    void SetUp() override
    {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(m_caches.path()));
    }
    void TearDown() override
    {
        qunsetenv("XDG_CACHE_HOME");
        qunsetenv("RVOPEN_CATALOGUE");
    }

    static QString path(const char* name)
    {
        return s_folder->filePath(QLatin1String(name) + QLatin1String(".rvx"));
    }
    static QStringList files()
    {
        return {path("a"), path("b"), path("below/c")};
    }
    static QStringList names()
    {
        QStringList names;
        for (const char* const name : {"a", "b", "below/c"}) {
            for (int i = 0; i < 300; ++i)
                names << QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(i);
        }
        return names;
    }

    /// Files that have to be read, of those there are; what is found is right in any case.
    static int readCount()
    {
        const BlockStore store(files());
        EXPECT_EQ(namesOf(store), names());
        return store.readCount();
    }

    QStringList cached() const
    {
        QStringList found;
        QDirIterator it(m_caches.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext())
            found << it.next();
        return found;
    }
    QString index() const
    {
        const QStringList found = cached();
        EXPECT_EQ(found.size(), 1);
        return found.value(0);
    }

    QTemporaryDir m_caches;
    static QTemporaryDir* s_folder;
};

QTemporaryDir* BlockStoreTest::s_folder = nullptr;

} // namespace

TEST_F(BlockStoreTest, ReadsWhatIsKnownNoSecondTime)
{
    EXPECT_EQ(readCount(), 3);
    EXPECT_EQ(readCount(), 0);
}

TEST_F(BlockStoreTest, KeepsTheIndexWhereCachesAreAndForNobodyElse)
{
    readCount();
    EXPECT_TRUE(index().startsWith(m_caches.path() + QLatin1String("/rvopen/catalogue-v1/")));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(index()) & others, QFile::Permissions());
    EXPECT_EQ(QFile::permissions(QFileInfo(index()).path()) & others, QFile::Permissions());
}

TEST_F(BlockStoreTest, KeepsNothingWhereThatIsNotWanted)
{
    qputenv("RVOPEN_CATALOGUE", "off");
    EXPECT_EQ(readCount(), 3);
    EXPECT_EQ(cached(), QStringList());
}

TEST_F(BlockStoreTest, KeepsNothingOfWhatIsReadAsQuickly)
{
    EXPECT_EQ(BlockStore({path("a")}).readCount(), 1);
    EXPECT_EQ(cached(), QStringList());
}

TEST_F(BlockStoreTest, ReadsAnewWhatHasAnotherContent)
{
    const QString copy = path("copy");
    writeBytes(copy, archiveOf("first", 900));
    waitUntilNothingIsRecent();
    EXPECT_EQ(BlockStore({copy}).readCount(), 1);
    EXPECT_EQ(BlockStore({copy}).readCount(), 0);
    struct stat before = {};
    ASSERT_EQ(::stat(QFile::encodeName(copy).constData(), &before), 0);

    // Of the same size, at the same time by the clock of the file.
    writeBytes(copy, archiveOf("other", 900));
    const timespec times[2] = {before.st_atim, before.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(copy).constData(), times, 0), 0);
    const BlockStore again({copy});
    EXPECT_EQ(again.readCount(), 1);
    EXPECT_EQ(namesOf(again).value(0), QStringLiteral("other 0"));
    QFile::remove(copy);
}

TEST_F(BlockStoreTest, ReadsAnewWhatMayHaveChangedSinceWithinAStepOfTheClock)
{
    const QString fresh = path("fresh");
    writeBytes(fresh, archiveOf("fresh", 900));
    EXPECT_EQ(BlockStore({fresh}).readCount(), 1);
    EXPECT_EQ(BlockStore({fresh}).readCount(), 1);
    QFile::remove(fresh);
}

TEST(FileState, IsRecentForTwoSecondsAndInTheFuture)
{
    FileState state;
    state.modified = 10'000'000'000;
    EXPECT_TRUE(state.isRecent(9'000'000'000));
    EXPECT_TRUE(state.isRecent(11'999'999'999));
    EXPECT_FALSE(state.isRecent(12'000'000'000));
    state.changed = 10'000'000'001;
    EXPECT_TRUE(state.isRecent(12'000'000'000));
}

TEST_F(BlockStoreTest, RemembersDocumentsThatWereNotAskedForThisTime)
{
    readCount();
    const QString other = path("other");
    writeBytes(other, archiveOf("other", 900));
    waitUntilNothingIsRecent();
    EXPECT_EQ(BlockStore({path("a"), other}).readCount(), 1);
    EXPECT_EQ(readCount(), 0);
    QFile::remove(other);
}

TEST_F(BlockStoreTest, GivesNoBlockOfWhatIsNoDocument)
{
    const QString bad = path("bad");
    writeBytes(bad, "<presets>");
    const BlockStore store({bad, path("none"), s_folder->path(), QStringLiteral("-"), QString()});
    for (int i = 0; i < store.count(); ++i)
        EXPECT_FALSE(store.block(i).isValid());
    EXPECT_EQ(store.error(0).message, QStringLiteral("The element \"presets\" is not closed"));
    EXPECT_EQ(store.error(0).file, bad);
    EXPECT_EQ(store.error(1).message, QString());
    QFile::remove(bad);
}

TEST_F(BlockStoreTest, TellsOfEachFileOnceAtMost)
{
    QStringList told;
    const BlockStore store(files(), [&told](int at, const QString& file) {
        EXPECT_GE(at, 1);
        EXPECT_LE(at, 3);
        told << file;
    });
    EXPECT_GT(told.size(), 0);
    EXPECT_EQ(told.removeDuplicates(), 0);
}

// An index that is not as it was written

TEST_F(BlockStoreTest, AnIndexThatWasCutIsAsGoodAsNone)
{
    readCount();
    const QString name = index();
    const QByteArray whole = bytesOf(name);
    for (const int size : {0, 1, 31, 32, 100, int(whole.size()) / 2, int(whole.size()) - 9}) {
        writeBytes(name, whole.left(size));
        EXPECT_GT(readCount(), 0) << size;
        writeBytes(name, whole);
    }
}

TEST_F(BlockStoreTest, NoByteThatIsAnotherMakesAnAnswerWrong)
{
    readCount();
    const QString name = index();
    const QByteArray whole = bytesOf(name);
    // All of the head, then some of the records and names and of the blocks.
    for (int at = 0; at < int(whole.size()) && !HasFailure(); at += at < 32    ? 1
                                                                    : at < 700 ? 13
                                                                               : 39989) {
        QByteArray changed = whole;
        changed[at] = char(changed.at(at) ^ (1 << at % 8));
        writeBytes(name, changed);
        SCOPED_TRACE(at);
        readCount();
    }
}

TEST_F(BlockStoreTest, AnIndexThatOthersMayChangeIsAsGoodAsNone)
{
    readCount();
    ASSERT_EQ(::chmod(QFile::encodeName(index()).constData(), 0666), 0);
    EXPECT_EQ(readCount(), 3);
    EXPECT_EQ(readCount(), 0);
}

TEST_F(BlockStoreTest, AnIndexOfSomebodyElseIsAsGoodAsNone)
{
    readCount();
    if (::chown(QFile::encodeName(index()).constData(), 65534, 65534) != 0)
        GTEST_SKIP() << "only root can give files away";
    EXPECT_EQ(readCount(), 3);
}

TEST_F(BlockStoreTest, ALinkToAnIndexIsNotFollowed)
{
    readCount();
    const QString name = index();
    ASSERT_TRUE(QFile::rename(name, m_caches.filePath(QStringLiteral("elsewhere"))));
    ASSERT_TRUE(QFile::link(m_caches.filePath(QStringLiteral("elsewhere")), name));
    EXPECT_EQ(readCount(), 3);
}

// A folder for caches that is not as it should be

TEST_F(BlockStoreTest, AnswersWithoutAFolderForCaches)
{
    const QString file = m_caches.filePath(QStringLiteral("file"));
    writeBytes(file, "x");
    for (const QString& folder : {file, file + QStringLiteral("/below"),
                                  QStringLiteral("/dev/full"), QStringLiteral("/proc/none")}) {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(folder));
        EXPECT_EQ(readCount(), 3) << folder.toStdString();
    }
    EXPECT_EQ(bytesOf(file), "x");
}

TEST_F(BlockStoreTest, AFolderInThePlaceOfTheIndexStaysAndIsNoTrouble)
{
    readCount();
    const QString name = index();
    QFile::remove(name);
    writeBytes(name + QLatin1String("/x"), "x");
    EXPECT_EQ(readCount(), 3);
    EXPECT_EQ(cached(), QStringList{name + QLatin1String("/x")});
}

TEST_F(BlockStoreTest, SeveralWritersLeaveOneIndexThatIsWhole)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int turn = 0; turn < 4; ++turn) {
                EXPECT_EQ(namesOf(BlockStore(files())).size(), 900);
                QDir(qEnvironmentVariable("XDG_CACHE_HOME")).removeRecursively();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    readCount();
    EXPECT_EQ(readCount(), 0);
    index();
}

TEST_F(BlockStoreTest, WhatIsLeftBehindGoesInTime)
{
    readCount();
    const QString name = index();
    // A writer was killed; a folder may not be there any more.
    struct Left {
        const char* name;
        int days;
        bool isKept;
    };
    const Left cases[] = {{"new.abcdef", 2, false},
                          {"new.ghijkl", 0, true},
                          {"0123456789abcdef", 61, false},
                          {"fedcba9876543210", 59, true}};
    const QDir folder(QFileInfo(name).path());
    for (const Left& one : cases) {
        const QString path = folder.filePath(QLatin1String(one.name));
        writeBytes(path, "cut");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::currentDateTime().addDays(-one.days),
                         QFileDevice::FileModificationTime);
    }
    QFile::remove(name);
    EXPECT_EQ(readCount(), 3);
    for (const Left& one : cases)
        EXPECT_EQ(folder.exists(QLatin1String(one.name)), one.isKept) << one.name;
}

} // namespace rvopen::test

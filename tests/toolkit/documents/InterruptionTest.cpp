// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/documents/Interruption.h"

#include "../Parts.h"
#include "toolkit/documents/FileLock.h"
#include "toolkit/documents/FileTransaction.h"

#include <QFile>
#include <QTemporaryDir>

#include <functional>
#include <vector>

namespace rvopen::test {

namespace {

using namespace toolkit;

/// Is the interruption of the process for the time of a scope, and notes what it hears.
class Noted : public Interruption {
public:
    Noted()
    {
        use(this);
    }
    ~Noted() override
    {
        use(nullptr);
    }

    void hold() override
    {
        ++depth;
    }
    void release() override
    {
        if (--depth == 0 && atEnd)
            atEnd();
    }
    bool isWanted() const override
    {
        return wanted;
    }
    void removeAtEnd(const QByteArray& path) override
    {
        litter.push_back(path.toStdString());
    }

    int depth = 0;
    /// Nothing holds any more.
    std::function<void()> atEnd;
    bool wanted = false;
    std::vector<std::string> litter;
};

} // namespace

TEST(Interruption, IsHeldFromTheFirstFileUntilAllAreKeptOrGone)
{
    const QTemporaryDir folder;
    const QString made = folder.filePath(QStringLiteral("made"));
    const QString old = folder.filePath(QStringLiteral("old"));
    Noted noted;
    {
        FileTransaction files;
        ASSERT_TRUE(files.create("old", old));
        EXPECT_EQ(noted.depth, 1);
        files.keep();
        EXPECT_EQ(noted.depth, 0);
    }
    // Whoever may end the program then finds everything as it was.
    int ends = 0;
    noted.atEnd = [&] {
        QByteArray bytes;
        if (!QFile::exists(made) && toolkit::readWhole(old, bytes) && bytes == "old")
            ++ends;
    };
    {
        FileTransaction files;
        ASSERT_TRUE(files.makeFolder(folder.filePath(QStringLiteral("folder"))));
        EXPECT_EQ(noted.depth, 0);
        ASSERT_TRUE(files.replace("new", old));
        ends = 0;
        ASSERT_TRUE(files.create("made", made));
        EXPECT_EQ(noted.depth, 1);
    }
    EXPECT_EQ(noted.depth, 0);
    EXPECT_EQ(ends, 1);
}

TEST(Interruption, IsHeldWhileAScopeLives)
{
    Noted noted;
    {
        const Uninterrupted outer;
        const Uninterrupted inner;
        EXPECT_EQ(noted.depth, 2);
    }
    EXPECT_EQ(noted.depth, 0);
}

TEST(Interruption, IsNeverWantedWithoutOne)
{
    {
        Noted noted;
        noted.wanted = true;
        EXPECT_TRUE(isInterrupted());
    }
    const Uninterrupted scope;
    EXPECT_FALSE(isInterrupted());
}

TEST(Interruption, LeavesNoFileOfATransaction)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.txt"));
    Noted noted;
    noted.wanted = true;
    FileTransaction files;
    EXPECT_FALSE(files.create("text", path));
    EXPECT_EQ(files.problem(), QStringLiteral("interrupted"));
    EXPECT_FALSE(QFile::exists(path));
    noted.wanted = false;
    EXPECT_TRUE(files.create("text", path));
}

TEST(Interruption, IsToldOfTheLockThatGoesWithTheProgram)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xml"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    Noted noted;
    {
        FileLock lock;
        lock.take(path);
        ASSERT_EQ(noted.litter.size(), 1U);
        EXPECT_THAT(noted.litter.front(), ::testing::EndsWith("a.xml.lock"));
        EXPECT_TRUE(QFile::exists(path + QStringLiteral(".lock")));
    }
    ASSERT_EQ(noted.litter.size(), 2U);
    EXPECT_EQ(noted.litter.back(), "");
    EXPECT_FALSE(QFile::exists(path + QStringLiteral(".lock")));
}

} // namespace rvopen::test

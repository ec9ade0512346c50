// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/documents/FileTransaction.h"

#include "../Parts.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#if defined(__unix__) || defined(__APPLE__)
#include <sys/stat.h>
#endif

namespace rvopen::test {

namespace {

using toolkit::FileTransaction;

class NewFile : public ::testing::Test {
protected:
    QString path(const char* name) const
    {
        return m_folder.filePath(QLatin1String(name));
    }

    void write(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray read(const char* name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }

    std::string names() const
    {
        return joinedBy(" ", QDir(m_folder.path())
                                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                            QDir::NoDotAndDotDot));
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(NewFile, IsGoneWithItsFoldersUnlessItIsKept)
{
    {
        FileTransaction files;
        ASSERT_TRUE(files.makeFolder(path("a/b")));
        ASSERT_TRUE(files.create("x", path("a/b/c")));
        EXPECT_EQ(read("a/b/c"), QByteArray("x"));
    }
    EXPECT_EQ(names(), "");
    {
        FileTransaction files;
        ASSERT_TRUE(files.makeFolder(path("a/b")));
        ASSERT_TRUE(files.create("x", path("a/b/c")));
        files.keep();
    }
    EXPECT_EQ(read("a/b/c"), QByteArray("x"));
}

TEST_F(NewFile, LeavesFoldersThatWereThere)
{
    ASSERT_TRUE(QDir().mkpath(path("a")));
    {
        FileTransaction files;
        ASSERT_TRUE(files.makeFolder(path("a")));
        ASSERT_TRUE(files.makeFolder(path("a/b")));
    }
    EXPECT_EQ(names(), "a");
    EXPECT_TRUE(QDir(path("a")).isEmpty());
}

TEST_F(NewFile, TakesNoNameThatIsTaken)
{
    write("there", "old");
    ASSERT_TRUE(QFile::link(QStringLiteral("nowhere"), path("link")));
    FileTransaction files;
    for (const char* const name : {"there", "link"}) {
        EXPECT_FALSE(files.create("new", path(name)));
        EXPECT_EQ(files.problem(), QStringLiteral("it is there already")) << name;
    }
    EXPECT_EQ(read("there"), QByteArray("old"));
    EXPECT_EQ(names(), "link there");
}

TEST_F(NewFile, WhatIsReplacedComesBackUnlessItIsKept)
{
    write("there", "old");
    {
        FileTransaction files;
        ASSERT_TRUE(files.replace("new", path("there")));
        EXPECT_EQ(read("there"), QByteArray("new"));
        EXPECT_FALSE(files.replace("new", path("nothing")));
        EXPECT_EQ(files.problem(), QStringLiteral("it could not be read"));
    }
    EXPECT_EQ(read("there"), QByteArray("old"));
    {
        FileTransaction files;
        ASSERT_TRUE(files.replace("new", path("there")));
        files.keep();
    }
    EXPECT_EQ(read("there"), QByteArray("new"));
    EXPECT_EQ(names(), "there");
}

TEST_F(NewFile, IsNoneBelowAFile)
{
    write("file", "");
    FileTransaction files;
    EXPECT_FALSE(files.makeFolder(path("file/a")));
    EXPECT_THAT(files.problem().toStdString(), ::testing::StartsWith("the folder cannot be made"));
    EXPECT_FALSE(files.create("x", path("file/b")));
    EXPECT_THAT(files.problem().toStdString(), ::testing::StartsWith("it could not be written"));
}

TEST_F(NewFile, IsACopyOfTheWholeOrNone)
{
    const QByteArray bytes("\0\n\r\xff", 4);
    write("from", bytes);
    FileTransaction files;
    EXPECT_TRUE(files.copy(path("from"), path("to")));
    EXPECT_EQ(read("to"), bytes);
    for (const char* const source : {"nothing", "."}) {
        EXPECT_FALSE(files.copy(path(source), path("no"))) << source;
        EXPECT_EQ(files.problem(), QStringLiteral("it could not be read"));
    }
    EXPECT_EQ(names(), "from to");
}

TEST_F(NewFile, SameBytesAreToldWhateverTheName)
{
    const QByteArray large((1 << 20) + 1, 'a');
    write("a", large);
    write("b", large);
    write("longer", large + 'a');
    write("other", QByteArray(1 << 20, 'a') + 'b');
    ASSERT_TRUE(QFile::link(path("a"), path("link")));
    EXPECT_TRUE(toolkit::haveSameBytes(path("a"), path("b")));
    EXPECT_TRUE(toolkit::haveSameBytes(path("a"), path("link")));
    EXPECT_FALSE(toolkit::haveSameBytes(path("a"), path("longer")));
    EXPECT_FALSE(toolkit::haveSameBytes(path("a"), path("other")));
    EXPECT_FALSE(toolkit::haveSameBytes(path("a"), path("nothing")));
}

#if defined(__unix__) || defined(__APPLE__)
TEST_F(NewFile, IsForThoseWhomTheProcessLets)
{
    const struct {
        mode_t withheld;
        QFile::Permissions left;
    } cases[] = {
        {0, QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther},
        {S_IRGRP, QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther},
        {S_IWGRP, QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther},
        {S_IROTH, QFile::ReadGroup | QFile::WriteGroup | QFile::WriteOther},
        {S_IWOTH, QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther},
    };
    for (const auto& each : cases) {
        const mode_t before = umask(each.withheld);
        FileTransaction files;
        const bool isMade = files.create("x", path("a"));
        umask(before);
        ASSERT_TRUE(isMade);
        const QFile::Permissions others =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        EXPECT_EQ(int(QFile::permissions(path("a")) & others), int(each.left)) << each.withheld;
    }
}
#endif

} // namespace rvopen::test

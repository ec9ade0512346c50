// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenWriter.h>

#include "FileSupport.h"

namespace rvopen::test {

TEST(RVOpenWriter, TextIsIndentedAsAskedFor)
{
    const QDomDocument document = parse(QStringLiteral("<a><b d='1' c='2'/></a>"));
    EXPECT_EQ(XmlText(document, 1), QStringLiteral("<a>\n <b c=\"2\" d=\"1\"/>\n</a>\n"));
    EXPECT_EQ(XmlText(document, SnapShotFileIndent),
              QStringLiteral("<a>\n  <b c=\"2\" d=\"1\"/>\n</a>\n"));
}

TEST(RVOpenWriter, ADocumentWithoutRootHasNoText)
{
    EXPECT_TRUE(XmlText(QDomDocument(), 1).isNull());
}

TEST(RVOpenWriter, WritesTheText)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xml"));
    const QDomDocument document = parse(QStringLiteral("<a><b n='\u00fc'/></a>"));
    EXPECT_TRUE(WriteXmlDocument(document, path, ArchiveFileIndent));
    EXPECT_EQ(readFile(path), XmlText(document, ArchiveFileIndent).toUtf8());
}

TEST(RVOpenWriter, WhatCannotBeWrittenLeavesTheFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xml"));
    writeFile(path, "old");
    EXPECT_FALSE(WriteXmlDocument(QDomDocument(), path, ArchiveFileIndent));
    EXPECT_EQ(readFile(path), QByteArray("old"));
}

TEST(RVOpenWriter, WritesBytesInThePlaceOfOthers)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    writeFile(path, "old");
    EXPECT_TRUE(WriteFile(QByteArray("n\0w", 3), path));
    EXPECT_EQ(readFile(path), QByteArray("n\0w", 3));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST(RVOpenWriter, AFolderThatIsNotThereIsNoPlaceToWrite)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(WriteFile("x", folder.filePath(QStringLiteral("none/a"))));
}

TEST(RVOpenWriter, TheLastErrorIsTheSystemsReason)
{
    const QTemporaryDir folder;
    const struct {
        QString path;
        const char* reason;
    } failures[] = {
        {folder.filePath(QStringLiteral("none/file")), "No such file or directory"},
        {folder.path(), "Is a directory"},
        {folder.filePath(QStringLiteral("file/below")), "Not a directory"},
        {QString(), "No file can have this name"},
        {QString(QChar(0)), "No file can have this name"},
        {folder.filePath(QStringLiteral("loop")), "Too many levels of symbolic links"},
        {QStringLiteral("/dev/full"), "No space left on device"},
    };
    ASSERT_TRUE(WriteFile("mine", folder.filePath(QStringLiteral("file"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("loop"), folder.filePath(QStringLiteral("loop"))));
    for (const auto& failure : failures) {
        EXPECT_FALSE(WriteFile("bytes", failure.path)) << failure.path.toStdString();
        EXPECT_EQ(LastWriteError(), QLatin1String(failure.reason)) << failure.path.toStdString();
    }
    EXPECT_TRUE(WriteFile("bytes", folder.filePath(QStringLiteral("file"))));
    EXPECT_EQ(LastWriteError(), QString());
}

TEST(RVOpenWriter, TheLastErrorIsTheSystemsReasonWhereTheDiskIsFullInTheMiddle)
{
    const QTemporaryDir root;
    const QString folder = root.filePath(QStringLiteral("folder"));
    ASSERT_TRUE(QDir().mkdir(folder));
    const QString shorter = folder + QStringLiteral("/shorter");
    const QString longer = folder + QStringLiteral("/longer");
    writeFile(shorter, "old");
    writeFile(longer, QByteArray(1000, 'x'));
    for (const QString& path : {shorter, longer}) {
        setOwner(path, Nobody, Nobody);
        setMode(path, 0666);
    }
    setMode(root.path(), 0755);
    for (const int mode : {0777, 0555}) {
        setMode(folder, mode);
        const Unprivileged unprivileged;
        for (const QString& path : {shorter, longer, folder + QStringLiteral("/new")}) {
            // A file that is not there needs the folder.
            if (mode == 0555 && !QFile::exists(path))
                continue;
            const QByteArray before = readFile(path);
            for (const rlim_t size : {0U, 1U, 7U}) {
                const FileSizeLimit limit(size);
                EXPECT_FALSE(WriteFile("the bytes", path));
                EXPECT_EQ(LastWriteError(), QStringLiteral("File too large"))
                    << path.toStdString() << ' ' << size << ' ' << mode;
            }
            EXPECT_EQ(readFile(path), before);
        }
    }
    setMode(folder, 0777);
}

TEST(RVOpenWriter, TheLastErrorTellsADocumentThatCouldNotBeReadAgain)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    EXPECT_FALSE(WriteXmlDocument(QDomDocument(), path, SnapShotFileIndent));
    EXPECT_EQ(LastWriteError(), QStringLiteral("The document could not be read again"));
    EXPECT_FALSE(QFile::exists(path));
}

} // namespace rvopen::test

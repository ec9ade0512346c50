// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenWriter.h>

#include "TestSupport.h"

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

} // namespace rvopen::test

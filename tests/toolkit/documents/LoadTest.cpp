// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/documents/Load.h>

#include "../Parts.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace rvopen::test {

namespace {

using namespace toolkit;

const char* const s_snapShots = "<snapRoot><snapshot name='CurrSnapshot'/></snapRoot>";
const char* const s_archive = "<presets type='UserArchives'><colours/></presets>";

/// A folder with a file of these bytes.
class Loading : public ::testing::Test {
protected:
    QString written(const QByteArray& bytes, const char* name = "a.xml")
    {
        const QString path = m_folder.filePath(QString::fromUtf8(name));
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return path;
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(Loading, GivesADocumentOfTheKindThatItIs)
{
    const Load snapShots = LoadDocument(written(s_snapShots));
    ASSERT_TRUE(snapShots);
    EXPECT_EQ(snapShots.kind, DocumentKind::SnapShots);
    EXPECT_EQ(snapShots.document->Indent(), 2);
    EXPECT_TRUE(snapShots.error.message.isEmpty());
    const Load archive = LoadDocument(written(s_archive), DocumentKind::Archive);
    ASSERT_TRUE(archive);
    EXPECT_EQ(archive.kind, DocumentKind::Archive);
    EXPECT_EQ(archive.document->Indent(), 3);
    EXPECT_EQ(archive.document->Root().tagName(), QStringLiteral("presets"));
}

TEST_F(Loading, TellsAnArchiveByRootTypeOrSections)
{
    for (const char* const archive :
         {"<presets/>", "<mine type='UserArchives'/>", "<mine type='Zorvane'/>",
          "<mine><other/><materials/></mine>"}) {
        ReadError error;
        const auto document = Document::Read(written(archive), error);
        ASSERT_TRUE(document) << archive;
        EXPECT_EQ(document->Kind(), DocumentKind::Archive) << archive;
    }
    ReadError error;
    const auto other = Document::Read(written("<mine type='Mine'><other/></mine>"), error);
    ASSERT_TRUE(other);
    EXPECT_EQ(other->Kind(), DocumentKind::Unknown);
}

TEST_F(Loading, RefusesAKindThatWasNotAskedForAndSaysWhichItIs)
{
    const QString path = written(s_snapShots);
    const Load load = LoadDocument(path, DocumentKind::Archive);
    EXPECT_FALSE(load);
    EXPECT_EQ(load.document, nullptr);
    EXPECT_EQ(load.kind, DocumentKind::SnapShots);
    EXPECT_EQ(load.error.file, path);
    EXPECT_EQ(load.error.message.toStdString(),
              "This is a document of snapshots, and an archive of presets was asked for");
    const Load other = LoadDocument(written(s_archive), DocumentKind::SnapShots);
    EXPECT_FALSE(other);
    EXPECT_EQ(other.kind, DocumentKind::Archive);
    EXPECT_EQ(other.error.message.toStdString(),
              "This is an archive of presets, and a document of snapshots was asked for");
}

TEST_F(Loading, RefusesOtherXmlByItsRoot)
{
    const Load load = LoadDocument(written("<svg/>"));
    EXPECT_FALSE(load);
    EXPECT_EQ(load.kind, DocumentKind::Unknown);
    EXPECT_TRUE(load.error.message.endsWith(QStringLiteral("its root is \"svg\"")))
        << load.error.message.toStdString();
}

TEST_F(Loading, SaysWhereATextIsNotWellFormed)
{
    const QString path = written("<snapRoot>\n  <camera>\n</snapRoot>");
    const Load load = LoadDocument(path);
    EXPECT_FALSE(load);
    EXPECT_EQ(load.error.file, path);
    EXPECT_EQ(load.error.line, 3);
    EXPECT_GT(load.error.column, 0);
    EXPECT_FALSE(load.error.message.isEmpty());
    EXPECT_TRUE(load.foreignFormat.isEmpty());
}

TEST_F(Loading, RefusesWhatIsNotThereAndFolders)
{
    const QString nowhere = m_folder.filePath(QStringLiteral("nowhere.xml"));
    const Load absent = LoadDocument(nowhere);
    EXPECT_FALSE(absent);
    EXPECT_EQ(absent.error.file, nowhere);
    EXPECT_EQ(absent.error.line, 0);
    EXPECT_FALSE(absent.error.message.isEmpty());
    EXPECT_EQ(LoadDocument(m_folder.path()).error.message.toStdString(),
              "This is a folder, no document");
}

struct ForeignCase {
    const char* what;
    QByteArray bytes;
};

void PrintTo(const ForeignCase& one, std::ostream* out)
{
    *out << one.what;
}

class Foreign : public Loading, public ::testing::WithParamInterface<ForeignCase> {};

TEST_P(Foreign, IsToldWhatItIs)
{
    const Load load = LoadDocument(written(GetParam().bytes, "a.rvx"));
    EXPECT_FALSE(load);
    EXPECT_EQ(load.foreignFormat.toStdString(), GetParam().what);
    EXPECT_EQ(load.error.message.toStdString(),
              "This is " + std::string(GetParam().what) + ", no document");
    EXPECT_EQ(load.error.line, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, Foreign,
    ::testing::Values(ForeignCase{"a JPEG picture", QByteArray("\xff\xd8\xff\xe0\0\x10JFIF", 10)},
                      ForeignCase{"a PNG picture", QByteArray("\x89PNG\r\n\x1a\n\0\0", 10)},
                      ForeignCase{"a PDF document", QByteArray("%PDF-1.7\n")},
                      ForeignCase{"a gzip file", QByteArray("\x1f\x8b\x08\0", 4)},
                      ForeignCase{"a ZIP file", QByteArray("PK\x03\x04\x14\0", 6)},
                      ForeignCase{"a ZIP file", QByteArray("PK\x05\x06\0\0", 6)}));

TEST_F(Loading, FindsTheDocumentsBelowAFolderInTheOrderOfTheirPaths)
{
    written(s_archive, "b/c.RVX");
    written(s_snapShots, "b/a.xml");
    written(s_snapShots, "a.xml");
    written("text", "b/notes.txt");
    QVector<ReadError> problems;
    QStringList names;
    for (const QString& file : DocumentsBelow(m_folder.path(), problems))
        names << QDir(m_folder.path()).relativeFilePath(file);
    EXPECT_EQ(joinedBy(" ", names), "a.xml b/a.xml b/c.RVX");
    EXPECT_TRUE(problems.isEmpty());
    const QString nowhere = m_folder.filePath(QStringLiteral("nowhere"));
    EXPECT_TRUE(DocumentsBelow(nowhere, problems).isEmpty());
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems.first().file, nowhere);
}

} // namespace rvopen::test

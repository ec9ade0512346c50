// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/DirectoryHandler.h>

#include "FileSupport.h"
#include "LoggedMessages.h"
#include "TestSupport.h"

#include <QDir>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

namespace rvopen {
namespace {

using test::parse;
using test::readFile;
using test::writeFile;
using test::xmlOf;

// Folders

struct FolderCase {
    const char* label;
    QString (DirectoryHandler::*get)();
    void (DirectoryHandler::*set)(QString);
};

void PrintTo(const FolderCase& folder, std::ostream* out)
{
    *out << folder.label;
}

class DirectoryHandlerFolderTest : public ::testing::TestWithParam<FolderCase> {
protected:
    QString get()
    {
        return (m_handler.*GetParam().get)();
    }
    void set(const QString& folder)
    {
        (m_handler.*GetParam().set)(folder);
    }

    QTemporaryDir m_root;
    const QString m_folder = m_root.filePath("folder");
    DirectoryHandler m_handler;
};

TEST_P(DirectoryHandlerFolderTest, IsEmptyAtFirst)
{
    EXPECT_EQ(get(), QString());
}

TEST_P(DirectoryHandlerFolderTest, IsTheOneThatWasSet)
{
    set(m_root.path());
    EXPECT_EQ(get(), m_root.path());
}

TEST_P(DirectoryHandlerFolderTest, DoesNotReachTheOtherFolders)
{
    set(m_root.path());
    const QStringList folders = {m_handler.GetSnapshotsFolder(),
                                 m_handler.GetZorvaneArchivesFolder(),
                                 m_handler.GetCustomArchivesFolder()};
    EXPECT_EQ(folders.count(m_root.path()), 1);
}

TEST_P(DirectoryHandlerFolderTest, ReadsAsEmptyWhenItDoesNotExist)
{
    set(m_folder);
    EXPECT_EQ(get(), QString());
}

TEST_P(DirectoryHandlerFolderTest, IsNotCheckedBeforeItIsAskedFor)
{
    set(m_folder);
    ASSERT_TRUE(QDir().mkdir(m_folder));
    EXPECT_EQ(get(), m_folder);
}

TEST_P(DirectoryHandlerFolderTest, ReadsAsEmptyOnceItIsDeleted)
{
    ASSERT_TRUE(QDir().mkdir(m_folder));
    set(m_folder);
    ASSERT_EQ(get(), m_folder);
    ASSERT_TRUE(QDir().rmdir(m_folder));
    EXPECT_EQ(get(), QString());
}

TEST_P(DirectoryHandlerFolderTest, StaysEmptyWhenItIsCreatedAgain)
{
    ASSERT_TRUE(QDir().mkdir(m_folder));
    set(m_folder);
    ASSERT_TRUE(QDir().rmdir(m_folder));
    ASSERT_EQ(get(), QString());
    ASSERT_TRUE(QDir().mkdir(m_folder));
    EXPECT_EQ(get(), QString());
}

TEST_P(DirectoryHandlerFolderTest, ReturnsWhenItIsSetAgain)
{
    ASSERT_TRUE(QDir().mkdir(m_folder));
    set(m_folder);
    ASSERT_TRUE(QDir().rmdir(m_folder));
    ASSERT_EQ(get(), QString());
    ASSERT_TRUE(QDir().mkdir(m_folder));
    set(m_folder);
    EXPECT_EQ(get(), m_folder);
}

TEST_P(DirectoryHandlerFolderTest, KeepsTheBackslashesItWasSetWith)
{
    ASSERT_TRUE(QDir().mkdir(m_folder));
    const QString backslashed = m_root.path() + "\\folder";
    set(backslashed);
    EXPECT_EQ(get(), backslashed);
}

INSTANTIATE_TEST_SUITE_P(
    All, DirectoryHandlerFolderTest,
    ::testing::Values(FolderCase{"Snapshots", &DirectoryHandler::GetSnapshotsFolder,
                                 &DirectoryHandler::SetSnapshotsFolder},
                      FolderCase{"Zorvane", &DirectoryHandler::GetZorvaneArchivesFolder,
                                 &DirectoryHandler::SetZorvaneArchivesFolder},
                      FolderCase{"Custom", &DirectoryHandler::GetCustomArchivesFolder,
                                 &DirectoryHandler::SetCustomArchivesFolder}),
    [](const auto& folder) { return std::string(folder.param.label); });

class DirectoryHandlerTest : public ::testing::Test {
protected:
    QString path(const QString& name) const
    {
        return m_root.filePath(name);
    }
    QString write(const QString& name, const QByteArray& bytes) const
    {
        writeFile(path(name), bytes);
        return path(name);
    }

    QTemporaryDir m_root;
    DirectoryHandler m_handler;
};

TEST_F(DirectoryHandlerTest, GivesTheFolderOfAnArchiveType)
{
    ASSERT_TRUE(QDir(m_root.path()).mkdir("product"));
    ASSERT_TRUE(QDir(m_root.path()).mkdir("custom"));
    m_handler.SetZorvaneArchivesFolder(path("product"));
    m_handler.SetCustomArchivesFolder(path("custom"));

    EXPECT_EQ(m_handler.GetFolder("Zorvane"), path("product"));
    EXPECT_EQ(m_handler.GetFolder("Custom"), path("custom"));
}

TEST_F(DirectoryHandlerTest, GivesANullStringForAnyOtherType)
{
    m_handler.SetSnapshotsFolder(m_root.path());
    m_handler.SetZorvaneArchivesFolder(m_root.path());
    m_handler.SetCustomArchivesFolder(m_root.path());

    for (const char* kind : {"custom", "zorvane", "Snapshots", "", "Custom "})
        EXPECT_TRUE(m_handler.GetFolder(kind).isNull()) << kind;
}

TEST_F(DirectoryHandlerTest, ThereIsOneInstance)
{
    ASSERT_NE(GetDirectoryHandler(), nullptr);
    EXPECT_EQ(GetDirectoryHandler(), GetDirectoryHandler());
}

// Opening archives

TEST_F(DirectoryHandlerTest, OpensAnArchiveAsANodeOverItsRoot)
{
    RVOpenNode* const root =
        m_handler.LoadArchive(write("a.rvx", "<archive><colours name='c'/></archive>"));

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(xmlOf(root->GetDomNode()), xmlOf("<archive><colours name='c'/></archive>"));
    EXPECT_EQ(root->GetParent(), nullptr);
    EXPECT_EQ(root->GetChild(1, 1)->GetName(), "c");
}

TEST_F(DirectoryHandlerTest, KeepsTheDocumentOfAnArchive)
{
    RVOpenNode* const root = m_handler.LoadArchive(write("a.rvx", "<archive/>"));

    EXPECT_EQ(root->GetDomNode().ownerDocument().documentElement(), root->GetDomNode());
}

TEST_F(DirectoryHandlerTest, GivesTheSameNodeForTheSameName)
{
    const QString name = write("a.rvx", "<archive/>");
    RVOpenNode* const root = m_handler.LoadArchive(name);

    EXPECT_EQ(m_handler.LoadArchive(name), root);
}

TEST_F(DirectoryHandlerTest, DoesNotReadAnOpenArchiveAgain)
{
    const QString name = write("a.rvx", "<archive name='old'/>");
    m_handler.LoadArchive(name);
    write("a.rvx", "<archive name='new'/>");
    EXPECT_EQ(m_handler.LoadArchive(name)->GetName(), "old");

    QFile::remove(name);
    EXPECT_EQ(m_handler.LoadArchive(name)->GetName(), "old");
}

TEST_F(DirectoryHandlerTest, OpensASecondCopyForAnotherSpelling)
{
    write("a.rvx", "<archive/>");
    RVOpenNode* const root = m_handler.LoadArchive(path("a.rvx"));
    RVOpenNode* const dotted = m_handler.LoadArchive(m_root.path() + "/./a.rvx");
    RVOpenNode* const backslashed = m_handler.LoadArchive(m_root.path() + "\\a.rvx");

    ASSERT_NE(dotted, nullptr);
    ASSERT_NE(backslashed, nullptr);
    EXPECT_NE(dotted, root);
    EXPECT_NE(backslashed, root);
    EXPECT_NE(backslashed, dotted);
    EXPECT_NE(dotted->GetDomNode().ownerDocument(), root->GetDomNode().ownerDocument());
}

TEST_F(DirectoryHandlerTest, OpensASecondCopyForALetterOfTheOtherCase)
{
    // Two files or one, as the file system has it.
    RVOpenNode* const lower = m_handler.LoadArchive(write("a.rvx", "<archive/>"));
    RVOpenNode* const upper = m_handler.LoadArchive(write("A.rvx", "<archive/>"));

    ASSERT_NE(upper, nullptr);
    EXPECT_NE(upper, lower);
    EXPECT_NE(upper->GetDomNode().ownerDocument(), lower->GetDomNode().ownerDocument());
    EXPECT_EQ(m_handler.LoadArchive(path("A.rvx")), upper);
    EXPECT_EQ(m_handler.LoadArchive(path("a.rvx")), lower);
}

TEST_F(DirectoryHandlerTest, KeepsSeveralArchivesOpen)
{
    RVOpenNode* const a = m_handler.LoadArchive(write("a.rvx", "<archive name='a'/>"));
    RVOpenNode* const b = m_handler.LoadArchive(write("b.rvx", "<archive name='b'/>"));

    EXPECT_EQ(a->GetName(), "a");
    EXPECT_EQ(m_handler.LoadArchive(path("a.rvx")), a);
    EXPECT_EQ(m_handler.LoadArchive(path("b.rvx")), b);
}

TEST_F(DirectoryHandlerTest, GivesNullForAFileThatCannotBeRead)
{
    EXPECT_EQ(m_handler.LoadArchive(path("missing.rvx")), nullptr);
    EXPECT_EQ(m_handler.LoadArchive(write("bad.rvx", "<archive>")), nullptr);
    EXPECT_EQ(m_handler.LoadArchive(write("empty.rvx", "")), nullptr);
    EXPECT_EQ(m_handler.LoadArchive(m_root.path()), nullptr);
    EXPECT_EQ(m_handler.LoadArchive(QString()), nullptr);
}

TEST_F(DirectoryHandlerTest, RegistersNothingForAFileThatCannotBeRead)
{
    m_handler.LoadArchive(path("a.rvx"));
    EXPECT_FALSE(m_handler.SaveArchive(path("a.rvx")));

    EXPECT_NE(m_handler.LoadArchive(write("a.rvx", "<archive/>")), nullptr);
}

TEST_F(DirectoryHandlerTest, DoesNotChangeTheFileOfAnArchiveByOpeningIt)
{
    const QByteArray wellFormed = "<archive>\r\n</archive>";
    m_handler.LoadArchive(write("a.rvx", wellFormed));
    m_handler.LoadArchive(write("b.rvx", "<archive>"));

    EXPECT_EQ(readFile(path("a.rvx")), wellFormed);
    EXPECT_EQ(readFile(path("b.rvx")), "<archive>");
}

// Saving archives

TEST_F(DirectoryHandlerTest, SavesAnOpenArchive)
{
    const QString name = write("a.rvx", "<!-- note --><archive><colours/></archive>");
    m_handler.LoadArchive(name)->GetChild(1, 1)->SetName("changed");

    EXPECT_TRUE(m_handler.SaveArchive(name));
    EXPECT_EQ(xmlOf(parse(readFile(name))),
              xmlOf("<!-- note --><archive><colours name='changed'/></archive>"));
}

TEST_F(DirectoryHandlerTest, SavesIndentedByThree)
{
    const QString name = write("a.rvx", "<archive><colours><colour/></colours></archive>");
    m_handler.LoadArchive(name);
    m_handler.SaveArchive(name);

    EXPECT_EQ(readFile(name), "<archive>\n   <colours>\n      <colour/>\n   </colours>\n"
                              "</archive>\n");
}

TEST_F(DirectoryHandlerTest, SavesUtf8)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.LoadArchive(name)->SetName(QStringLiteral("\u00fc\u4e2d"));
    m_handler.SaveArchive(name);

    EXPECT_EQ(readFile(name), QStringLiteral("<archive name=\"\u00fc\u4e2d\"/>\n").toUtf8());
}

TEST_F(DirectoryHandlerTest, SavesUnderTheNameWithBackslashesThatItWasOpenedBy)
{
    ASSERT_TRUE(QDir(m_root.path()).mkdir("sub"));
    write("sub/a.rvx", "<archive/>");
    const QString name = m_root.path() + "\\sub\\a.rvx";
    m_handler.LoadArchive(name)->SetName("changed");

    EXPECT_TRUE(m_handler.SaveArchive(name));
    EXPECT_EQ(readFile(path("sub/a.rvx")), "<archive name=\"changed\"/>\n");
}

TEST_F(DirectoryHandlerTest, SavesNothingThatIsNotOpen)
{
    const QString name = write("a.rvx", "<archive  />");

    EXPECT_FALSE(m_handler.SaveArchive(name));
    EXPECT_EQ(readFile(name), "<archive  />");
    EXPECT_FALSE(m_handler.SaveArchive(path("new.rvx")));
    EXPECT_FALSE(QFile::exists(path("new.rvx")));
}

TEST_F(DirectoryHandlerTest, SavesAsItReadsBack)
{
    const QString name = write("a.rvx", "<archive a='&lt;&amp;'><colours><colour b='2' a='1'/>"
                                        "</colours><!-- note --></archive>");
    const QString before = xmlOf(m_handler.LoadArchive(name)->GetDomNode());
    m_handler.SaveArchive(name);
    m_handler.CloseArchive(name);

    EXPECT_EQ(xmlOf(m_handler.LoadArchive(name)->GetDomNode()), before);
}

TEST_F(DirectoryHandlerTest, ReportsAFileThatCannotBeWritten)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.LoadArchive(name);
    ASSERT_TRUE(QFile::remove(name));
    ASSERT_TRUE(QDir().mkdir(name));

    EXPECT_FALSE(m_handler.SaveArchive(name));
}

TEST_F(DirectoryHandlerTest, LogsNothingAboutAFileThatCannotBeReadOrWritten)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.LoadArchive(name);
    ASSERT_TRUE(QFile::remove(name));
    ASSERT_TRUE(QDir().mkdir(name));
    const QString malformed = write("bad.rvx", "<archive>");
    const test::LoggedMessages logged;

    EXPECT_FALSE(m_handler.SaveArchive(name));
    EXPECT_FALSE(m_handler.SaveArchive(path("unknown.rvx")));
    EXPECT_EQ(m_handler.LoadArchive(malformed), nullptr);
    EXPECT_EQ(m_handler.LoadArchive(path("missing.rvx")), nullptr);
    EXPECT_EQ(logged.texts(), QStringList());
}

TEST_F(DirectoryHandlerTest, RequiresThatAnOpenArchiveHasADocument)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.LoadArchive(name)->SetDomNode(QDomNode());
    bool result = false;

    EXPECT_ASSERTION(result = m_handler.SaveArchive(name), "!doc.isNull()", "DirectoryHandler");
    EXPECT_FALSE(result);
    EXPECT_EQ(readFile(name), "<archive/>");
}

/// An archive of the custom folder, open in the instance of the process.
class DirectoryHandlerNodeTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_fileName = m_folders.write("Stone", "<archive/>");
        GetDirectoryHandler()->LoadArchive(m_fileName)->SetName("changed");
    }
    static QByteArray saved()
    {
        return "<archive name=\"changed\"/>\n";
    }
    /// A tree in which the element "here" lies below one that names the archive, if any does.
    RVOpenNode* here(const char* xml)
    {
        m_document = parse(xml);
        m_root = test::bind(m_document.documentElement());
        RVOpenNode* node = m_root.get();
        while (node && node->GetNodeName() != "here")
            node = node->GetChild(1, 0);
        return node;
    }

    test::ArchiveFolders m_folders;
    QString m_fileName;
    QDomDocument m_document;
    std::unique_ptr<RVOpenNode> m_root;
};

TEST_F(DirectoryHandlerNodeTest, SavesTheArchiveThatTheNodeNames)
{
    RVOpenNode* const node = here("<here archiveFilename='Stone' archiveType='Custom'/>");

    EXPECT_TRUE(GetDirectoryHandler()->SaveArchive(node));
    EXPECT_EQ(readFile(m_fileName), saved());
}

TEST_F(DirectoryHandlerNodeTest, SavesTheArchiveThatAnAncestorNames)
{
    RVOpenNode* const node =
        here("<a archiveFilename='Stone' archiveType='Custom'><b><here/></b></a>");

    EXPECT_TRUE(GetDirectoryHandler()->SaveArchive(node));
    EXPECT_EQ(readFile(m_fileName), saved());
}

TEST_F(DirectoryHandlerNodeTest, SavesTheArchiveOfTheNearestAncestor)
{
    RVOpenNode* const node =
        here("<a archiveFilename='Other' archiveType='Custom'>"
             "<b archiveFilename='Stone' archiveType='Custom'><here/></b></a>");

    EXPECT_TRUE(GetDirectoryHandler()->SaveArchive(node));
    EXPECT_EQ(readFile(m_fileName), saved());
}

TEST_F(DirectoryHandlerNodeTest, SavesNothingWhenNobodyNamesAnArchive)
{
    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(here("<a><here/></a>")));
    EXPECT_EQ(readFile(m_fileName), "<archive/>");
}

TEST_F(DirectoryHandlerNodeTest, SavesNothingWhenTheArchiveIsNotOpen)
{
    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(
        here("<here archiveFilename='Other' archiveType='Custom'/>")));
}

TEST_F(DirectoryHandlerNodeTest, SavesTheArchiveOfTheOneInstance)
{
    DirectoryHandler other;
    RVOpenNode* const node = here("<here archiveFilename='Stone' archiveType='Custom'/>");

    EXPECT_TRUE(other.SaveArchive(node));
    EXPECT_EQ(readFile(m_fileName), saved());
}

// Whether archives may be written

TEST_F(DirectoryHandlerNodeTest, IsWritableWhenTheFileOfTheNodesArchiveIs)
{
    EXPECT_TRUE(GetDirectoryHandler()->ArchiveWritable(
        here("<here archiveFilename='Stone' archiveType='Custom'/>")));
}

TEST_F(DirectoryHandlerNodeTest, IsWritableWhenTheFileOfAnAncestorsArchiveIs)
{
    EXPECT_TRUE(GetDirectoryHandler()->ArchiveWritable(
        here("<a archiveFilename='Stone' archiveType='Custom'><b><here/></b></a>")));
}

TEST_F(DirectoryHandlerNodeTest, IsWritableByTheNearestAncestorAlone)
{
    EXPECT_FALSE(GetDirectoryHandler()->ArchiveWritable(
        here("<a archiveFilename='Stone' archiveType='Custom'>"
             "<b archiveFilename='Missing' archiveType='Custom'><here/></b></a>")));
}

TEST_F(DirectoryHandlerNodeTest, IsNotWritableWhenThereIsNoFile)
{
    EXPECT_FALSE(GetDirectoryHandler()->ArchiveWritable(
        here("<here archiveFilename='Missing' archiveType='Custom'/>")));
}

TEST_F(DirectoryHandlerNodeTest, IsNotWritableWhenNobodyNamesAnArchive)
{
    EXPECT_FALSE(GetDirectoryHandler()->ArchiveWritable(here("<a><here/></a>")));
}

TEST_F(DirectoryHandlerNodeTest, AsksNobodyAboveADetachedNode)
{
    auto parent = test::bind(parse("<dir><item/></dir>").documentElement());
    const std::unique_ptr<RVOpenNode> node(parent->GetChild(1, 1));
    parent->DetachNode(node.get(), true);
    parent.reset();

    EXPECT_FALSE(GetDirectoryHandler()->ArchiveWritable(node.get()));
    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(node.get()));
}

TEST_F(DirectoryHandlerNodeTest, IsWritableWithoutBeingOpen)
{
    GetDirectoryHandler()->CloseArchive(m_fileName);

    EXPECT_TRUE(GetDirectoryHandler()->ArchiveWritable(
        here("<here archiveFilename='Stone' archiveType='Custom'/>")));
}

TEST_F(DirectoryHandlerNodeTest, IsNotWritableWhenItsOwnerMayNotWriteTheFile)
{
    test::setMode(m_folders.root(), 0755);
    test::setMode(m_fileName, 0444);
    const test::Unprivileged unprivileged;

    EXPECT_FALSE(GetDirectoryHandler()->ArchiveWritable(
        here("<here archiveFilename='Stone' archiveType='Custom'/>")));
}

TEST_F(DirectoryHandlerNodeTest, IsWritableWhereTheSubFolderIsWrittenWithBackslashes)
{
    m_folders.write("sub/deep/Wood", "<archive/>");

    EXPECT_TRUE(GetDirectoryHandler()->ArchiveWritable(
        here("<here archiveFilename='Wood' archiveType='Custom' path='sub\\deep'/>")));
}

// Closing and removing archives

TEST_F(DirectoryHandlerTest, CloseLeavesTheFile)
{
    const QString name = write("a.rvx", "<archive  />");
    m_handler.LoadArchive(name);
    m_handler.CloseArchive(name);

    EXPECT_EQ(readFile(name), "<archive  />");
}

TEST_F(DirectoryHandlerTest, CloseForgetsTheArchive)
{
    const QString name = write("a.rvx", "<archive name='old'/>");
    m_handler.LoadArchive(name);
    m_handler.CloseArchive(name);
    EXPECT_FALSE(m_handler.SaveArchive(name));

    write("a.rvx", "<archive name='new'/>");
    EXPECT_EQ(m_handler.LoadArchive(name)->GetName(), "new");
}

TEST_F(DirectoryHandlerTest, CloseLeavesTheOtherArchivesOpen)
{
    const QString a = write("a.rvx", "<archive/>");
    const QString b = write("b.rvx", "<archive name='b'/>");
    const QString c = write("c.rvx", "<archive name='c'/>");
    m_handler.LoadArchive(a);
    RVOpenNode* const nodeB = m_handler.LoadArchive(b);
    RVOpenNode* const nodeC = m_handler.LoadArchive(c);
    m_handler.CloseArchive(a);

    EXPECT_EQ(m_handler.LoadArchive(b), nodeB);
    EXPECT_EQ(m_handler.LoadArchive(c), nodeC);
    EXPECT_EQ(nodeC->GetName(), "c");
}

TEST_F(DirectoryHandlerTest, CloseOfAnUnknownArchiveDoesNothing)
{
    const QString name = write("a.rvx", "<archive/>");
    RVOpenNode* const node = m_handler.LoadArchive(name);
    m_handler.CloseArchive(m_root.path() + "/./a.rvx");

    EXPECT_EQ(m_handler.LoadArchive(name), node);
}

TEST_F(DirectoryHandlerTest, RemoveDeletesTheFile)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.LoadArchive(name);
    m_handler.RemoveArchive(name);

    EXPECT_FALSE(QFile::exists(name));
}

TEST_F(DirectoryHandlerTest, RemoveForgetsTheArchive)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.LoadArchive(name);
    m_handler.RemoveArchive(name);

    EXPECT_EQ(m_handler.LoadArchive(name), nullptr);
    EXPECT_FALSE(m_handler.SaveArchive(name));
}

TEST_F(DirectoryHandlerTest, RemoveForgetsAnArchiveWhoseFileIsGone)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.LoadArchive(name);
    QFile::remove(name);
    m_handler.RemoveArchive(name);

    EXPECT_EQ(m_handler.LoadArchive(name), nullptr);
}

TEST_F(DirectoryHandlerTest, RemoveOfAnArchiveThatIsNotOpenLeavesItsFile)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.RemoveArchive(name);

    EXPECT_TRUE(QFile::exists(name));
}

TEST_F(DirectoryHandlerTest, RemoveLeavesTheOtherArchivesOpen)
{
    const QString a = write("a.rvx", "<archive/>");
    const QString b = write("b.rvx", "<archive/>");
    m_handler.LoadArchive(a);
    RVOpenNode* const node = m_handler.LoadArchive(b);
    m_handler.RemoveArchive(a);

    EXPECT_EQ(m_handler.LoadArchive(b), node);
    EXPECT_TRUE(QFile::exists(b));
}

TEST_F(DirectoryHandlerTest, RemoveTakesANameWithBackslashes)
{
    ASSERT_TRUE(QDir(m_root.path()).mkdir("sub"));
    write("sub/a.rvx", "<archive/>");
    const QString name = m_root.path() + "\\sub\\a.rvx";
    m_handler.LoadArchive(name);
    m_handler.RemoveArchive(name);

    EXPECT_FALSE(QFile::exists(path("sub/a.rvx")));
}

// Copying

TEST_F(DirectoryHandlerTest, ACopySharesFoldersAndNodes)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.SetSnapshotsFolder(m_root.path());
    RVOpenNode* const node = m_handler.LoadArchive(name);
    DirectoryHandler copy(m_handler);

    EXPECT_EQ(copy.GetSnapshotsFolder(), m_root.path());
    EXPECT_EQ(copy.LoadArchive(name), node);
}

TEST_F(DirectoryHandlerTest, AssignmentSharesFoldersAndNodes)
{
    const QString name = write("a.rvx", "<archive/>");
    m_handler.SetCustomArchivesFolder(m_root.path());
    RVOpenNode* const node = m_handler.LoadArchive(name);
    DirectoryHandler target;
    target = m_handler;

    EXPECT_EQ(target.GetCustomArchivesFolder(), m_root.path());
    EXPECT_EQ(target.LoadArchive(name), node);
}

TEST_F(DirectoryHandlerTest, ACopyLeavesTheArchivesOpenWhenItGoes)
{
    const QString name = write("a.rvx", "<archive/>");
    RVOpenNode* const node = m_handler.LoadArchive(name);
    {
        const DirectoryHandler copy(m_handler);
    }

    EXPECT_EQ(m_handler.LoadArchive(name), node);
    EXPECT_EQ(node->GetNodeName(), "archive");
}

TEST_F(DirectoryHandlerTest, ACopyOutlivesItsOriginal)
{
    const QString name = write("a.rvx", "<archive/>");
    auto original = std::make_unique<DirectoryHandler>();
    RVOpenNode* const node = original->LoadArchive(name);
    DirectoryHandler copy(*original);
    original.reset();

    EXPECT_EQ(copy.LoadArchive(name), node);
    EXPECT_EQ(node->GetNodeName(), "archive");
}

TEST_F(DirectoryHandlerTest, WhatACopyClosesStaysOpenInTheOriginal)
{
    const QString name = write("a.rvx", "<archive/>");
    RVOpenNode* const node = m_handler.LoadArchive(name);
    DirectoryHandler copy(m_handler);
    copy.CloseArchive(name);

    EXPECT_FALSE(copy.SaveArchive(name));
    EXPECT_EQ(m_handler.LoadArchive(name), node);
    EXPECT_EQ(node->GetNodeName(), "archive");
}

TEST_F(DirectoryHandlerTest, WhatACopyOpensIsItsOwn)
{
    const QString name = write("a.rvx", "<archive/>");
    DirectoryHandler copy(m_handler);
    RVOpenNode* const node = copy.LoadArchive(name);

    EXPECT_FALSE(m_handler.SaveArchive(name));
    EXPECT_NE(m_handler.LoadArchive(name), node);
}

} // namespace
} // namespace rvopen

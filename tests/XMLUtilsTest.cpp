// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/XMLUtils.h>

#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>

#include "LoggedMessages.h"
#include "TestSupport.h"

#include <QBuffer>
#include <QColor>
#include <QDir>
#include <QObject>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

namespace rvopen {
namespace {

using test::bind;
using test::parse;
using test::readFile;
using test::writeFile;
using test::xmlOf;

TEST(XMLUtilsTest, IsAQObjectWithoutAParent)
{
    const XMLUtils utils;

    EXPECT_EQ(static_cast<const QObject&>(utils).parent(), nullptr);
}

// Reading files

class ReadXmlDocumentTest : public ::testing::Test {
protected:
    std::unique_ptr<QDomDocument> read(const QByteArray& bytes)
    {
        writeFile(m_path, bytes);
        return std::unique_ptr<QDomDocument>(XMLUtils().ReadXmlDocument(m_path));
    }
    /// The "name" of the root, "(none)" without a document.
    QString nameIn(const QByteArray& bytes)
    {
        const auto document = read(bytes);
        return document ? document->documentElement().attribute("name") : QString("(none)");
    }

    QTemporaryDir m_root;
    const QString m_path = m_root.filePath("a.xml");
};

TEST_F(ReadXmlDocumentTest, GivesTheDocument)
{
    const auto document = read("<!-- note --><a b='1'><c/>text</a>");

    ASSERT_NE(document, nullptr);
    EXPECT_EQ(xmlOf(*document), xmlOf("<!-- note --><a b='1'><c/>text</a>"));
}

TEST_F(ReadXmlDocumentTest, GivesNullForAMissingFile)
{
    EXPECT_EQ(XMLUtils().ReadXmlDocument(m_root.filePath("missing.xml")), nullptr);
}

TEST_F(ReadXmlDocumentTest, GivesNullForAnEmptyPath)
{
    EXPECT_EQ(XMLUtils().ReadXmlDocument(QString()), nullptr);
}

TEST_F(ReadXmlDocumentTest, LogsNothingAboutAFileThatCannotBeRead)
{
    const test::LoggedMessages logged;
    XMLUtils().ReadXmlDocument(QString());
    XMLUtils().ReadXmlDocument(m_path);
    XMLUtils().ReadXmlDocument(m_root.path());
    read("<a>");

    EXPECT_EQ(logged.texts(), QStringList());
}

TEST_F(ReadXmlDocumentTest, GivesNullForAFolder)
{
    EXPECT_EQ(XMLUtils().ReadXmlDocument(m_root.path()), nullptr);
}

TEST_F(ReadXmlDocumentTest, DoesNotCreateAMissingFile)
{
    XMLUtils().ReadXmlDocument(m_path);

    EXPECT_FALSE(QFile::exists(m_path));
}

class ReadBadXmlTest : public ReadXmlDocumentTest,
                       public ::testing::WithParamInterface<const char*> {};

TEST_P(ReadBadXmlTest, GivesNull)
{
    EXPECT_EQ(read(GetParam()), nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, ReadBadXmlTest,
                         ::testing::Values("", " ", "no XML", "<a>", "<a></b>", "<a/><b/>",
                                           "<a b=1/>", "<!-- note -->"));

class ReadUnchangedTest : public ReadXmlDocumentTest,
                          public ::testing::WithParamInterface<const char*> {};

TEST_P(ReadUnchangedTest, LeavesTheBytesOfTheFile)
{
    read(GetParam());

    EXPECT_EQ(readFile(m_path), GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, ReadUnchangedTest,
                         ::testing::Values("<a b='1'>\r\n</a>\r\n", "<a>", "", "\xff\xfe\xfd",
                                           "<a/>\n\n"));

TEST_F(ReadXmlDocumentTest, ReadsUtf8)
{
    EXPECT_EQ(nameIn("<a name='\xc3\xbc\xe4\xb8\xad'/>"), QStringLiteral("\u00fc\u4e2d"));
}

TEST_F(ReadXmlDocumentTest, ReadsUtf8WithAByteOrderMark)
{
    EXPECT_EQ(nameIn("\xef\xbb\xbf<a name='\xc3\xbc'/>"), QStringLiteral("\u00fc"));
}

TEST_F(ReadXmlDocumentTest, ReadsUtf16WithAByteOrderMark)
{
    QByteArray little = "\xff\xfe";
    QByteArray big = "\xfe\xff";
    for (const QChar character : QStringLiteral("<a name='\u00fc'/>")) {
        little.append(static_cast<char>(character.cell()));
        little.append(static_cast<char>(character.row()));
        big.append(static_cast<char>(character.row()));
        big.append(static_cast<char>(character.cell()));
    }

    EXPECT_EQ(nameIn(little), QStringLiteral("\u00fc"));
    EXPECT_EQ(nameIn(big), QStringLiteral("\u00fc"));
}

TEST_F(ReadXmlDocumentTest, ReadsUtf8WhateverTheDeclarationSays)
{
    EXPECT_EQ(nameIn("<?xml version='1.0' encoding='ISO-8859-1'?><a name='\xc3\xbc'/>"),
              QStringLiteral("\u00fc"));
}

TEST_F(ReadXmlDocumentTest, ProcessesNamespaces)
{
    const auto document = read("<n:a xmlns:n='urn:n'/>");

    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->documentElement().namespaceURI(), "urn:n");
    EXPECT_EQ(document->documentElement().localName(), "a");
}

TEST_F(ReadXmlDocumentTest, TakesAPathWithBackslashes)
{
    ASSERT_TRUE(QDir(m_root.path()).mkpath("xml/deep"));
    writeFile(m_root.filePath("xml/deep/a.xml"), "<a/>");
    const std::unique_ptr<QDomDocument> document(
        XMLUtils().ReadXmlDocument(m_root.path() + "\\xml\\deep\\a.xml"));

    EXPECT_NE(document, nullptr);
}

// Paths of preview images

/// A node over an element with the given attributes.
class NodeOf {
public:
    explicit NodeOf(const QString& attributes)
        : m_document(parse("<preset " + attributes + "/>"))
        , m_node(bind(m_document.documentElement()))
    {
    }

    RVOpenNode* get() const
    {
        return m_node.get();
    }

private:
    QDomDocument m_document;
    std::unique_ptr<RVOpenNode> m_node;
};

struct TextCase {
    const char* given;
    const char* expected;
};

void PrintTo(const TextCase& text, std::ostream* out)
{
    *out << text.given;
}

class ThumbPathTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(ThumbPathTest, IsCategoryAndPath)
{
    EXPECT_EQ(XMLUtils().ThumbPathFromRVOpenNode(NodeOf(GetParam().given).get()),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, ThumbPathTest,
                         ::testing::Values(TextCase{"cat='Studio' path='Blue'", "Studio\\Blue"},
                                           TextCase{"cat='Studio'", "Studio\\"},
                                           TextCase{"path='Blue'", "Blue"}, TextCase{"", ""},
                                           TextCase{"cat='' path=''", ""}));

class ImagePathTest : public ::testing::Test {
protected:
    /// The folder for a preset in an archive whose root has the given attributes.
    static QString imagePath(const QString& rootAttributes, const QString& attributes)
    {
        const QDomDocument document =
            parse("<archive " + rootAttributes + "><preset " + attributes + "/></archive>");
        const auto node = bind(document.documentElement().firstChild());
        return XMLUtils().ImagePathFromRVOpenNode(node.get(), "folder");
    }

    test::ArchiveFolders m_folders;
};

TEST_F(ImagePathTest, LiesBelowTheThumbnailsOfTheGivenFolder)
{
    EXPECT_EQ(imagePath("", "cat='Studio' path='Blue'"), "folder\\sethumbs\\Studio\\Blue");
}

TEST_F(ImagePathTest, IsTheThumbnailsFolderItselfForABarePreset)
{
    EXPECT_EQ(imagePath("", ""), "folder\\sethumbs\\");
}

TEST_F(ImagePathTest, IsNotChangedByOtherArchiveTypes)
{
    EXPECT_EQ(imagePath("type='userarchives'", "cat='C' path='P'"), "folder\\sethumbs\\C\\P");
}

TEST_F(ImagePathTest, LiesBelowTheCustomFolderForAUserArchive)
{
    const QString separator = QDir::separator();

    EXPECT_EQ(imagePath("type='UserArchives'", "cat='Studio' path='Blue'"),
              m_folders.custom() + separator + "Studio\\Blue" + separator + "thumbs" + separator);
}

TEST_F(ImagePathTest, GoesByTheTypeOfTheRootAlone)
{
    EXPECT_EQ(imagePath("", "type='UserArchives' cat='C'"), "folder\\sethumbs\\C\\");
}

// Names

class ImageNameTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(ImageNameTest, IsTheFirstNameMadeFileSafe)
{
    EXPECT_EQ(XMLUtils().GetImageName(NodeOf(GetParam().given).get()), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, ImageNameTest,
    ::testing::Values(TextCase{"imgname='image' name='name' refname='ref'", "image"},
                      TextCase{"name='name' refname='ref'", "name"},
                      TextCase{"imgname='' name='' refname='ref'", "ref"}, TextCase{"", ""},
                      TextCase{"name='12:30'", "12-30"}, TextCase{"imgname='a:b:c'", "a-b-c"},
                      TextCase{"refname='a:b?'", "a-b%3f"}, TextCase{"name='50%'", "50%25"},
                      TextCase{"name='a\\b'", "a\\b"}, TextCase{"name='a\\b:'", "a\\b-"},
                      TextCase{"name='a\\b*'", "a%5cb%2a"}));

TEST(XMLUtilsTest, ImageNameDoesNotChangeTheNode)
{
    const NodeOf node("name='12:30'");
    XMLUtils().GetImageName(node.get());

    EXPECT_EQ(node.get()->GetName(), "12:30");
}

class IllegalCharactersTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(IllegalCharactersTest, AreReplaced)
{
    QString text = GetParam().given;
    XMLUtils::ReplaceIllegalCharacters(text);

    EXPECT_EQ(text, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, IllegalCharactersTest,
    ::testing::Values(TextCase{"", ""}, TextCase{"a b.c", "a b.c"}, TextCase{"/", "%2f"},
                      TextCase{":", "%3a"}, TextCase{"*", "%2a"}, TextCase{"?", "%3f"},
                      TextCase{"\"", "%22"}, TextCase{"<", "%3c"}, TextCase{">", "%3e"},
                      TextCase{"|", "%7c"}, TextCase{"%", "%25"}, TextCase{"\\", "\\"},
                      TextCase{"50%", "50%25"}, TextCase{"a\\b", "a\\b"},
                      TextCase{"a\\b:", "a%5cb%3a"}, TextCase{":a\\b\\", "%3aa%5cb%5c"},
                      TextCase{"::", "%3a%3a"}, TextCase{"%3a", "%253a"},
                      TextCase{"[a]^-$.", "[a]^-$."},
                      TextCase{"\xc3\xbc:\xe4\xb8\xad", "\xc3\xbc%3a\xe4\xb8\xad"}));

TEST(XMLUtilsTest, ReplaceIllegalCharactersReturnsItsArgument)
{
    QString legal = "a";
    QString illegal = "a:";

    EXPECT_EQ(&XMLUtils::ReplaceIllegalCharacters(legal), &legal);
    EXPECT_EQ(&XMLUtils::ReplaceIllegalCharacters(illegal), &illegal);
}

/// A name that is wanted among siblings.
struct NameCase {
    QString name;
    QStringList siblings;
    QString expected;
};

void PrintTo(const NameCase& name, std::ostream* out)
{
    *out << name.name.toStdString() << " among " << name.siblings.join(", ").toStdString();
}

class NameDuplicationTest : public ::testing::TestWithParam<NameCase> {};

TEST_P(NameDuplicationTest, GivesANameThatIsFree)
{
    QDomDocument document = parse("<parent/>");
    for (const QString& sibling : GetParam().siblings) {
        QDomElement child = document.createElement("child");
        child.setAttribute("name", sibling);
        document.documentElement().appendChild(child);
    }
    const auto parent = bind(document.documentElement());

    EXPECT_EQ(XMLUtils().CheckNameDuplication(parent.get(), GetParam().name), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Free, NameDuplicationTest,
    ::testing::Values(NameCase{"Sky", {}, "Sky"}, NameCase{"", {}, ""},
                      NameCase{"", {"", "Sky"}, ""}, NameCase{"Sky", {"Sea"}, "Sky"},
                      NameCase{"Sky", {"sky"}, "Sky"}, NameCase{"Sky", {"Sk", ""}, "Sky"},
                      NameCase{"Sky", {"Sky blue"}, "Sky"}, NameCase{"Sky", {"Blue Sky"}, "Sky"},
                      NameCase{"Sky", {"Sky (x)"}, "Sky"}, NameCase{"Sky", {"Sky (-2)"}, "Sky"},
                      NameCase{"Sky", {"Sky ()"}, "Sky"}, NameCase{"a/b", {}, "a-b"},
                      NameCase{"a\\b", {}, "a-b"}, NameCase{"a\nb", {}, "a b"},
                      NameCase{"/\\\n/", {}, "-- -"}, NameCase{"a/b", {"a-b"}, "a-b"},
                      NameCase{"a/b", {"other"}, "a-b"}));

INSTANTIATE_TEST_SUITE_P(
    Taken, NameDuplicationTest,
    ::testing::Values(NameCase{"Sky", {"Sky"}, "Sky (2)"},
                      NameCase{"Sky", {"Sky", "Sky"}, "Sky (2)"},
                      NameCase{"Sky", {"Sky", "Sky (2)"}, "Sky (3)"},
                      NameCase{"Sky", {"Sky", "Sky (2)", "Sky (7)"}, "Sky (8)"},
                      NameCase{"Sky", {"Sky (7)", "Sky", "Sky (2)"}, "Sky (8)"},
                      NameCase{"Sky", {"Sky (3)"}, "Sky (4)"},
                      NameCase{"Sky", {"Sky (12)", "Sky (9)"}, "Sky (13)"},
                      NameCase{"Sky", {"Sky", "Sky blue", "Sea"}, "Sky (2)"},
                      NameCase{"a/b", {"a/b"}, "a/b (2)"}, NameCase{"a\\b", {"a\\b"}, "a\\b (2)"},
                      NameCase{"Sky", {"7Sky ("}, "Sky (8)"},
                      NameCase{"Sky (2)", {"Sky (2)"}, "Sky (2) (2)"}));

TEST(XMLUtilsTest, AnEmptyNameIsGivenBackWithoutALookAtTheChildren)
{
    const QDomDocument document = parse("<parent><child name=''/><child name='Sky'/></parent>");
    const auto parent = bind(document.documentElement());

    EXPECT_EQ(XMLUtils().CheckNameDuplication(parent.get(), QString()), QString());
    EXPECT_EQ(parent->GetChild(0, 0), nullptr);
}

// Preview images

constexpr Qt::GlobalColor s_embeddedColour = Qt::red;
constexpr Qt::GlobalColor s_fileColour = Qt::blue;

QByteArray encodedImage(const QColor& colour)
{
    QPixmap pixmap(4, 4);
    pixmap.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(pixmap.save(&buffer, "PNG"));
    return bytes;
}

QString embedded(const QByteArray& bytes)
{
    return "xmlImage='" + QString::fromLatin1(qCompress(bytes).toHex()) + '\'';
}

bool shows(const QPixmap& pixmap, const QColor& colour)
{
    const QColor shown = pixmap.toImage().pixelColor(1, 1);
    return !pixmap.isNull() && (shown.red() > shown.blue()) == (colour.red() > colour.blue());
}

class PreviewTest : public ::testing::Test {
protected:
    /// Writes an image of the file colour.
    static void writeImage(const QString& path)
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QPixmap pixmap(4, 4);
        pixmap.fill(s_fileColour);
        ASSERT_TRUE(pixmap.save(path, "JPG")) << path.toStdString();
    }
    static QPixmap preview(RVOpenNode* node, const QString& folder = QString())
    {
        return XMLUtils().QPixmapFromRVOpenNode(node, folder);
    }
    QString inSnapshots(const QString& name) const
    {
        return m_folders.snapshots() + '/' + name;
    }

    test::ArchiveFolders m_folders;
};

TEST_F(PreviewTest, IsTheEmbeddedImage)
{
    EXPECT_TRUE(
        shows(preview(NodeOf(embedded(encodedImage(s_embeddedColour))).get()), s_embeddedColour));
}

TEST_F(PreviewTest, IsTheEmbeddedImageWrittenInCapitals)
{
    const QByteArray text = qCompress(encodedImage(s_embeddedColour)).toHex().toUpper();

    EXPECT_TRUE(shows(preview(NodeOf("xmlImage='" + text + '\'').get()), s_embeddedColour));
}

TEST_F(PreviewTest, IsTheEmbeddedImageEvenWhereThereIsAFile)
{
    writeImage(m_folders.root() + "/sethumbs/n.jpg");

    EXPECT_TRUE(shows(preview(NodeOf("name='n' " + embedded(encodedImage(s_embeddedColour))).get(),
                              m_folders.root()),
                      s_embeddedColour));
}

class CorruptPreviewTest : public PreviewTest, public ::testing::WithParamInterface<const char*> {
protected:
    static QString corrupt()
    {
        return GetParam() == QLatin1String("no image")
                   ? embedded("no image")
                   : QStringLiteral("xmlImage='%1'").arg(GetParam());
    }
};

TEST_P(CorruptPreviewTest, IsNullEvenWhereThereIsAFile)
{
    writeImage(m_folders.root() + "/sethumbs/n.jpg");

    EXPECT_TRUE(preview(NodeOf("name='n' " + corrupt()).get(), m_folders.root()).isNull());
}

TEST_P(CorruptPreviewTest, IsNotLogged)
{
    const test::LoggedMessages logged;
    preview(NodeOf("name='n' " + corrupt()).get(), m_folders.root());

    EXPECT_EQ(logged.texts(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(All, CorruptPreviewTest,
                         ::testing::Values("no hexadecimal", "0", "00", "00000004", "deadbeef00",
                                           "0000000401020304", "no image"));

TEST_F(PreviewTest, IsTheFileInTheThumbnailsFolder)
{
    writeImage(m_folders.root() + "/sethumbs/Studio/Blue/Name.jpg");

    EXPECT_TRUE(
        shows(preview(NodeOf("cat='Studio' path='Blue' name='Name'").get(), m_folders.root()),
              s_fileColour));
}

TEST_F(PreviewTest, IsTheFileOfTheImageName)
{
    writeImage(m_folders.root() + "/sethumbs/12-30.jpg");

    EXPECT_TRUE(shows(preview(NodeOf("name='12:30'").get(), m_folders.root()), s_fileColour));
}

TEST_F(PreviewTest, IsTheFileOfAnEmptyEmbeddedImage)
{
    writeImage(m_folders.root() + "/sethumbs/n.jpg");

    EXPECT_TRUE(
        shows(preview(NodeOf("name='n' xmlImage=''").get(), m_folders.root()), s_fileColour));
}

TEST_F(PreviewTest, IsTheFileOfAUserArchive)
{
    writeImage(m_folders.custom() + "/Studio/Blue/thumbs/Name.jpg");
    const QDomDocument document = parse("<archive type='UserArchives'>"
                                        "<preset cat='Studio' path='Blue' name='Name'/></archive>");
    const auto root = bind(document.documentElement());

    EXPECT_TRUE(shows(preview(root->GetChild(1, 1)), s_fileColour));
}

TEST_F(PreviewTest, IsNullWithoutAnImage)
{
    EXPECT_TRUE(preview(NodeOf("name='n'").get(), m_folders.root()).isNull());
}

TEST_F(PreviewTest, IsNullForAFileThatIsNoImage)
{
    ASSERT_TRUE(QDir().mkpath(m_folders.root() + "/sethumbs"));
    writeFile(m_folders.root() + "/sethumbs/n.jpg", "no image");

    EXPECT_TRUE(preview(NodeOf("name='n'").get(), m_folders.root()).isNull());
}

/// Members of a snapshot collection.
class MemberPreviewTest : public PreviewTest {
protected:
    SnapShots* collection(const char* xml)
    {
        m_document = parse(xml);
        m_collection = bind<SnapShots>(m_document.documentElement());
        return m_collection.get();
    }

    QDomDocument m_document;
    std::unique_ptr<SnapShots> m_collection;
};

TEST_F(MemberPreviewTest, OfASnapShotIsItsThumbnail)
{
    writeImage(inSnapshots("icon_12%3a30.jpg"));
    SnapShots* const snapShots =
        collection("<snapshots name='Model Cameras'><snapshot name='12:30'/></snapshots>");
    snapShots->Populate();

    EXPECT_TRUE(shows(preview(snapShots->GetFirstSnapShot()), s_fileColour));
}

TEST_F(MemberPreviewTest, OfASnapShotCreatesNoFolder)
{
    SnapShots* const snapShots =
        collection("<snapshots name='Model Cameras'><snapshot name='a'/></snapshots>");
    snapShots->Populate();

    EXPECT_TRUE(preview(snapShots->GetFirstSnapShot()).isNull());
    EXPECT_TRUE(QDir(m_folders.snapshots()).isEmpty());
}

TEST_F(MemberPreviewTest, OfAnotherNodeLiesInTheFolderOfTheCollection)
{
    writeImage(inSnapshots("Model Cameras/icon_a.jpg"));
    SnapShots* const snapShots =
        collection("<snapshots name='Model Cameras'><camera name='a'/></snapshots>");

    EXPECT_TRUE(shows(preview(snapShots->GetChild(1, 1)), s_fileColour));
}

TEST_F(MemberPreviewTest, OfAnotherNodeGoesByItsDisplayNameAsItIs)
{
    writeImage(inSnapshots("Model Cameras/icon_12:30.jpg"));
    SnapShots* const snapShots = collection(
        "<snapshots name='Model Cameras'><camera imgname='other' name='12:30'/></snapshots>");

    EXPECT_TRUE(shows(preview(snapShots->GetChild(1, 1)), s_fileColour));
}

TEST_F(MemberPreviewTest, OfAnotherNodeCreatesTheFolderEvenWithoutAnImage)
{
    SnapShots* const snapShots =
        collection("<snapshots name='Model Cameras'><camera name='a'/></snapshots>");

    EXPECT_TRUE(preview(snapShots->GetChild(1, 1)).isNull());
    EXPECT_TRUE(QDir(inSnapshots("Model Cameras")).exists());
}

TEST_F(MemberPreviewTest, OfAnotherNodeIsNullWithoutASnapShotsFolder)
{
    GetDirectoryHandler()->SetSnapshotsFolder(QString());
    SnapShots* const snapShots =
        collection("<snapshots name='Model Cameras'><camera name='a'/></snapshots>");

    EXPECT_TRUE(preview(snapShots->GetChild(1, 1)).isNull());
    EXPECT_FALSE(QDir("Model Cameras").exists());
}

TEST_F(MemberPreviewTest, OfAnEmbeddedImageCreatesNoFolder)
{
    SnapShots* const snapShots = collection(
        QStringLiteral("<snapshots name='Model Cameras'><camera name='a' %1/></snapshots>")
            .arg(embedded(encodedImage(s_embeddedColour)))
            .toUtf8()
            .constData());

    EXPECT_TRUE(shows(preview(snapShots->GetChild(1, 1)), s_embeddedColour));
    EXPECT_TRUE(QDir(m_folders.snapshots()).isEmpty());
}

TEST_F(MemberPreviewTest, OfASnapShotOutsideOfACollectionLiesInTheThumbnailsFolder)
{
    writeImage(m_folders.root() + "/sethumbs/a.jpg");
    const QDomDocument document = parse("<root><snapshot name='a'/></root>");
    const auto root = bind(document.documentElement());

    EXPECT_TRUE(shows(preview(root->GetChild(1, 1), m_folders.root()), s_fileColour));
}

} // namespace
} // namespace rvopen

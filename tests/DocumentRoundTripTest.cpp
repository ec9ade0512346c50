// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "WrittenDocuments.h"

#include <QDirIterator>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// What was written loads again, equal, whatever it was.
namespace rvopen::test {
namespace {

using Document = std::unique_ptr<QDomDocument>;

/// What is in a document, line by line, with what takes the place of what no document may contain,
/// and without what reading leaves out: white space that is layout, and the borders between
/// neighbouring texts.
class Content {
public:
    explicit Content(const QDomDocument& document)
        : m_type(document.doctype())
    {
        addType();
        QDomNode node = document.firstChild();
        if (node.isProcessingInstruction() && node.nodeName() == "xml") {
            m_lines << "declaration " + node.nodeValue();
            node = node.nextSibling();
        }
        for (; !node.isNull(); node = node.nextSibling())
            add(node);
    }
    explicit Content(const QDomElement& element)
        : m_type(element.ownerDocument().doctype())
    {
        add(element);
    }

    const QStringList& lines() const
    {
        return m_lines;
    }

private:
    void addType()
    {
        m_lines << "type " + m_type.name() + '|' + m_type.publicId() + '|' + m_type.systemId();
    }

    void add(const QDomNode& node)
    {
        const bool isCharacters = node.nodeType() == QDomNode::TextNode;
        const bool isReference = node.isEntityReference() && !isKept(node.nodeName());
        if (isCharacters || isReference) {
            m_characters += isReference ? meaningOf(node.nodeName()) : node.nodeValue();
            return;
        }
        endCharacters(node.isCDATASection() || node.isEntityReference());
        if (node.isElement())
            addElement(node.toElement());
        else if (node.isCDATASection())
            addSection(node.nodeValue());
        else if (node.isComment())
            m_lines << "comment " + expectedComment(node.nodeValue());
        else if (node.isProcessingInstruction())
            m_lines << "instruction " + expectedTarget(node.nodeName()) + '|' +
                           expectedData(node.nodeValue());
        else
            m_lines << "reference " + node.nodeName();
    }

    void addElement(const QDomElement& element)
    {
        m_lines << "element " + expectedName(element.nodeName());
        QStringList attributes;
        for (int i = 0; i < element.attributes().count(); ++i) {
            const QDomAttr attribute = element.attributes().item(i).toAttr();
            if (!attribute.name().startsWith("xmlns:"))
                attributes << "attribute " + expectedName(attribute.nodeName()) + '=' +
                                  allowed(attribute.value());
        }
        attributes.sort();
        m_lines += attributes;
        const auto behindTag = m_lines.size();
        for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling())
            add(child);
        endCharacters(m_lines.size() == behindTag);
        m_lines << "end";
    }

    void addSection(const QString& data)
    {
        const QString line = "section " + allowed(lineEnds(data));
        if (m_lines.last().startsWith("section "))
            m_lines.last() += line.mid(8);
        else
            m_lines << line;
    }

    /// White space stays where it touches a section or a reference, and where there is nothing
    /// else in the element.
    void endCharacters(bool isBeforeContent)
    {
        const QString last = m_lines.isEmpty() ? QString() : m_lines.last();
        const bool isContent = isBeforeContent || last.startsWith("section ") ||
                               last.startsWith("reference ") ||
                               !std::all_of(m_characters.cbegin(), m_characters.cend(), isBlank);
        if (isContent && !m_characters.isEmpty())
            m_lines << "text " + allowed(m_characters);
        m_characters.clear();
    }

    /// Whether the reader makes a reference of it.
    bool isKept(const QString& entity) const
    {
        return !m_type.systemId().isNull() && expectedName(entity) == entity &&
               meaningOf(entity).startsWith('&');
    }

    static QString meaningOf(const QString& entity)
    {
        if (entity == "lt")
            return "<";
        if (entity == "apos")
            return "'";
        return '&' + entity + ';';
    }

    static bool isBlank(QChar c)
    {
        return c == ' ' || c == '\t' || c == '\n' || c == '\r';
    }

    /// With U+FFFD for what is no character of a document.
    static QString allowed(QString text)
    {
        for (int i = 0; i < text.size(); ++i) {
            const QChar c = text.at(i);
            if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
                ++i;
            else if ((c < QChar(0x20) && !isBlank(c)) || c >= QChar(0xFFFE) || c.isSurrogate())
                text[i] = QChar(0xFFFD);
        }
        return text;
    }

    static QString lineEnds(QString text)
    {
        return text.replace("\r\n", "\n").replace('\r', '\n');
    }

    static QString expectedComment(QString text)
    {
        while (text.contains("--"))
            text.replace("--", "- -");
        return allowed(lineEnds(text.endsWith('-') ? text + ' ' : text));
    }

    static QString expectedTarget(const QString& target)
    {
        return target == "xml" ? QString("_xml") : expectedName(target);
    }

    static QString expectedData(QString data)
    {
        data = lineEnds(data.replace("?>", "? >"));
        while (!data.isEmpty() && isBlank(data.at(0)))
            data.remove(0, 1);
        return allowed(data);
    }

    QDomDocumentType m_type;
    QStringList m_lines;
    QString m_characters;
};

QStringList contentOf(const QDomDocument& document)
{
    return Content(document).lines();
}

QStringList contentOf(const QDomElement& element)
{
    return Content(element).lines();
}

::testing::AssertionResult haveSameContent(const QStringList& first, const QStringList& second)
{
    for (int i = 0; i < std::max(first.size(), second.size()); ++i) {
        if (first.value(i) != second.value(i)) {
            return ::testing::AssertionFailure()
                   << "\"" << first.value(i).toStdString() << "\" differs from \""
                   << second.value(i).toStdString() << '"';
        }
    }
    return ::testing::AssertionSuccess();
}

/// A document with anything in it.
class HostileDocument : public Written {
public:
    explicit HostileDocument(unsigned seed)
        : HostileDocument(Random(seed))
    {
    }

private:
    explicit HostileDocument(Random random)
        : Written(randomProlog(random))
    {
        const Vocabulary vocabulary = hostile();
        Grower(random, vocabulary).growDocument(document());
    }
};

TEST(DocumentRoundTripTest, WritesTextThatLoadsAgainEqual)
{
    for (unsigned seed = 0; seed < ManyTexts; ++seed) {
        SCOPED_TRACE(seed);
        const HostileDocument written(seed);
        const QString text = written.text();
        const Document loaded = parseText(text);
        ASSERT_TRUE(loaded) << LastReadError().message.toStdString() << text.toStdString();
        ASSERT_TRUE(haveSameContent(contentOf(*loaded), contentOf(written.document())))
            << text.toStdString();
    }
}

TEST(DocumentRoundTripTest, WritesTextThatLoadsFromAFileEqual)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xml");
    for (unsigned seed = 0; seed < ManyTexts; ++seed) {
        SCOPED_TRACE(seed);
        const HostileDocument written(seed);
        const QString text = written.text();
        writeFile(path, text.toUtf8());
        const Document loaded(ReadXmlDocument(path));
        ASSERT_TRUE(loaded) << LastReadError().message.toStdString() << text.toStdString();
        ASSERT_TRUE(haveSameContent(contentOf(*loaded), contentOf(written.document())))
            << text.toStdString();
    }
}

TEST(DocumentRoundTripTest, WritesFilesThatLoadAgainEqual)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.rvx");
    for (unsigned seed = 0; seed < ManyFiles; ++seed) {
        SCOPED_TRACE(seed);
        HostileDocument written(seed);
        ASSERT_TRUE(written.save(path)) << written.text().toStdString();
        const Document loaded(ReadXmlDocument(path));
        ASSERT_TRUE(loaded) << LastReadError().message.toStdString();
        ASSERT_TRUE(haveSameContent(contentOf(*loaded), contentOf(written.document())))
            << readFile(path).toStdString();
    }
}

TEST(DocumentRoundTripTest, WritesSnapShotsThatLoadAgainEqual)
{
    const Vocabulary vocabulary = hostile();
    for (unsigned seed = 0; seed < ManyTexts; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        Written written;
        SnapShot* const snapShot = written.manager().GetCurrentSnapShot();
        Grower(random, vocabulary).growElement(snapShot->GetDomNode().toElement(), 0);
        const QString text = snapShot->CreateSnapShotDocumentAsString();
        const Document loaded = parseText(text);
        ASSERT_TRUE(loaded) << LastReadError().message.toStdString() << text.toStdString();
        const QDomElement collection = loaded->documentElement().firstChildElement();
        ASSERT_TRUE(haveSameContent(contentOf(collection.firstChildElement()),
                                    contentOf(snapShot->GetDomNode().toElement())))
            << text.toStdString();
    }
}

/// Loads a snapshot document and gives it as text.
QString reloaded(const QString& text)
{
    RVOpenManager manager;
    load(manager, text);
    return manager.GetSnapShotDocumentAsString();
}

/// Loads an archive and gives the bytes that it is saved as.
QByteArray resaved(const QByteArray& bytes)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.rvx");
    writeFile(path, bytes);
    RVOpenManager manager;
    const std::unique_ptr<RVOpenNode> root(manager.LoadArchive(path));
    return root && manager.SaveArchive(path, root.get()) ? readFile(path) : QByteArray();
}

TEST(DocumentRoundTripTest, WritesTheSameTextEachTimeAfterTheFirst)
{
    for (unsigned seed = 0; seed < ManyTexts; ++seed) {
        SCOPED_TRACE(seed);
        const QString second = reloaded(HostileDocument(seed).text());
        ASSERT_FALSE(second.isEmpty());
        ASSERT_EQ(reloaded(second), second);
    }
}

TEST(DocumentRoundTripTest, WritesTheSameFileEachTimeAfterTheFirst)
{
    for (unsigned seed = 0; seed < ManyFiles; ++seed) {
        SCOPED_TRACE(seed);
        const QByteArray second = resaved(HostileDocument(seed).bytes());
        ASSERT_FALSE(second.isEmpty());
        ASSERT_EQ(QString::fromUtf8(resaved(second)), QString::fromUtf8(second));
    }
}

TEST(DocumentRoundTripTest, WritesTheTextOfALoadedFileEachTime)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xml");
    for (unsigned seed = 0; seed < ManyFiles; ++seed) {
        SCOPED_TRACE(seed);
        HostileDocument written(seed);
        ASSERT_TRUE(written.save(path));
        RVOpenManager manager;
        ASSERT_EQ(manager.LoadSnapShotDocFromFile(path), 1);
        const QString second = manager.GetSnapShotDocumentAsString();
        ASSERT_EQ(reloaded(second), second);
    }
}

/// The files that come with the library.
using ShippedFileTest = ::testing::TestWithParam<std::string>;

TEST_P(ShippedFileTest, IsTheSameEachTimeAfterTheFirst)
{
    const QByteArray bytes = readFile(QString::fromStdString(GetParam()));
    const QByteArray second = resaved(bytes);
    EXPECT_FALSE(second.isEmpty());
    EXPECT_EQ(resaved(second), second);
}

TEST_P(ShippedFileTest, IsEqualWhenSavedAndLoadedAgain)
{
    const QString path = QString::fromStdString(GetParam());
    const Document original(ReadXmlDocument(path));
    const Document again = parseText(QString::fromUtf8(resaved(readFile(path))));
    ASSERT_TRUE(original && again);
    EXPECT_TRUE(haveSameContent(contentOf(*again), contentOf(*original)));
}

std::vector<std::string> shippedFiles()
{
    std::vector<std::string> files;
    QDirIterator entries(RVOPEN_DATA_DIR, {"*.xml", "*.rvx"}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        files.push_back(entries.next().toStdString());
    std::sort(files.begin(), files.end());
    return files;
}

INSTANTIATE_TEST_SUITE_P(Data, ShippedFileTest, ::testing::ValuesIn(shippedFiles()));

// Through the operations of a host

TEST(DocumentRoundTripTest, KeepsWhatAHostPutsInAnArchiveOfTheRegistry)
{
    ArchiveFolders folders;
    const QString fileName = folders.write("a", "<archive/>");
    const Vocabulary vocabulary = hostile();
    RVOpenNode* root = GetDirectoryHandler()->LoadArchive(fileName);
    Random random(0);
    for (int i = 0; i < 500; ++i) {
        const QString name = random.someOf(without(vocabulary.names, {character(0)}));
        root->SetAttributeString(name.toUtf8().constData(), random.someOf(vocabulary.texts));
    }
    const QStringList before = contentOf(root->GetDomNode().toElement());
    ASSERT_TRUE(GetDirectoryHandler()->SaveArchive(fileName));
    root = reopenArchive(fileName);
    ASSERT_TRUE(root) << LastReadError().message.toStdString();
    EXPECT_TRUE(haveSameContent(contentOf(root->GetDomNode().toElement()), before));
}

} // namespace
} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "WrittenDocuments.h"

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenWriter.h>

#include <QMap>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

/// What the library's text looks like, for any content of a document. The same with every version
/// of Qt.
namespace rvopen::test {
namespace {

using Document = std::unique_ptr<QDomDocument>;

// Against QDomDocument::toString()

using Size = decltype(QString().size());

/// A reader of what QDomDocument::toString() writes, which knows tags and their attributes.
class AttributeSorter {
public:
    explicit AttributeSorter(const QString& text)
        : m_text(text)
    {
    }

    /// The text with the attributes of each tag by name.
    QString sorted()
    {
        while (m_at < m_text.size()) {
            const auto next = m_text.indexOf('<', m_at);
            copyTo(next < 0 ? m_text.size() : next);
            if (m_at < m_text.size() && !copied("<!--", "-->") && !copied("<![CDATA[", "]]>") &&
                !copied("<?", "?>") && !copied("<!", ">") && !copied("</", ">"))
                tag();
        }
        return m_result;
    }

private:
    bool copied(const QString& start, const QString& end)
    {
        if (m_text.mid(m_at, start.size()) != start)
            return false;
        copyTo(m_text.indexOf(end, m_at) + end.size());
        return true;
    }

    void copyTo(Size end)
    {
        m_result += m_text.mid(m_at, end - m_at);
        m_at = end;
    }

    void tag()
    {
        Size end = m_at;
        while (m_text[end] != ' ' && m_text[end] != '>')
            ++end;
        copyTo(end);
        QMap<QString, QString> attributes;
        while (m_text[m_at] == ' ') {
            const auto equals = m_text.indexOf('=', m_at);
            const auto behind = m_text.indexOf('"', equals + 2) + 1;
            attributes[m_text.mid(m_at, equals - m_at)] = m_text.mid(equals, behind - equals);
            m_at = behind;
        }
        for (auto it = attributes.cbegin(); it != attributes.cend(); ++it)
            m_result += it.key() + it.value();
    }

    const QString m_text;
    Size m_at = 0;
    QString m_result;
};

/// Qt begins a new line behind a processing instruction, which the text there becomes a part of;
/// and white space without other characters is text to it wherever it stands.
void makeTextUnmistakable(QDomNode node)
{
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (child.nodeType() == QDomNode::TextNode && child.nodeValue().trimmed().isEmpty())
            child.setNodeValue("text");
        if (child.isText() && child.previousSibling().isProcessingInstruction())
            node.insertBefore(node.ownerDocument().createComment("between"), child);
        makeTextUnmistakable(child);
    }
}

/// A document that QDomDocument::toString() writes so that it can be read again.
void fillHarmlessly(QDomDocument document, Random& random, int maxAttributes)
{
    const Vocabulary vocabulary = harmless(maxAttributes);
    Grower(random, vocabulary).growDocument(document);
    makeTextUnmistakable(document.documentElement());
}

struct Comparison {
    const char* name;
    unsigned documents;
    int maxAttributes;
    int indent;
    QString (*write)(Written& written);
};

void PrintTo(const Comparison& comparison, std::ostream* out)
{
    *out << comparison.name;
}

using ComparisonTest = ::testing::TestWithParam<Comparison>;

TEST_P(ComparisonTest, GivesWhatQtWritesButForTheOrderOfAttributes)
{
    for (unsigned seed = 0; seed < GetParam().documents; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        Written written(randomProlog(random));
        fillHarmlessly(written.document(), random, GetParam().maxAttributes);
        const QString reference = written.document().toString(GetParam().indent);
        const QString expected =
            GetParam().maxAttributes > 1 ? AttributeSorter(reference).sorted() : reference;
        ASSERT_EQ(GetParam().write(written), expected);
    }
}

QString asText(Written& written)
{
    return written.text();
}

QString asFile(Written& written)
{
    return QString::fromUtf8(written.bytes());
}

INSTANTIATE_TEST_SUITE_P(
    Documents, ComparisonTest,
    ::testing::Values(Comparison{"TextWithOneAttribute", ManyTexts, 1, 2, asText},
                      Comparison{"TextWithAttributes", ManyTexts, 8, 2, asText},
                      Comparison{"FileWithOneAttribute", ManyFiles, 1, 3, asFile},
                      Comparison{"FileWithAttributes", ManyFiles, 8, 3, asFile}),
    [](const auto& test) { return std::string(test.param.name); });

/// Documents with namespaces, as they are read from a file.
class NamespacesTest : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        const QString path = m_folder.filePath("a.rvx");
        writeFile(path, GetParam());
        m_root.reset(m_manager.LoadArchive(path));
        ASSERT_TRUE(m_root) << LastReadError().message.toStdString();
    }

    QString saved()
    {
        const QString path = m_folder.filePath("b.rvx");
        return m_manager.SaveArchive(path, m_root.get()) ? QString::fromUtf8(readFile(path))
                                                         : QString();
    }

    QTemporaryDir m_folder;
    RVOpenManager m_manager;
    std::unique_ptr<RVOpenNode> m_root;
};

TEST_P(NamespacesTest, AreDeclaredWhereTheyWere)
{
    EXPECT_EQ(saved(), QString::fromUtf8(GetParam()));
}

TEST_P(NamespacesTest, AreWrittenAlikeWhenReadWithoutThem)
{
    const std::unique_ptr<RVOpenNode> root(m_manager.DecodeXML(GetParam()));
    const QString path = m_folder.filePath("c.rvx");
    ASSERT_TRUE(m_manager.SaveArchive(path, root.get()));
    EXPECT_EQ(QString::fromUtf8(readFile(path)), QString::fromUtf8(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    Documents, NamespacesTest,
    ::testing::Values(
        "<a b=\"1\" xmlns=\"u\" z=\"2\">\n   <c/>\n   <d xmlns=\"v\"/>\n   <e xmlns=\"\">\n"
        "      <f/>\n   </e>\n</a>\n",
        "<p:a p:b=\"1\" q=\"0\" xmlns:p=\"u\">\n   <p:c>\n      <d a=\"4\" p:e=\"3\"/>\n   </p:c>\n"
        "</p:a>\n",
        "<r xmlns:u=\"urn:u\">\n   <a type=\"u:x\"/>\n</r>\n",
        "<a p:b=\"1\" q:b=\"2\" xmlns:p=\"u\" xmlns:q=\"u\"/>\n",
        "<p:a xmlns:p=\"u\">\n   <p:b xmlns:p=\"u\"/>\n   <p:c xmlns:p=\"v\">\n      <p:d/>\n"
        "   </p:c>\n   <p:e/>\n</p:a>\n",
        "<a xml:lang=\"en\">\n   <c xml:space=\"preserve\"/>\n</a>\n",
        "<a xmlns=\"u&quot;&amp;&lt;>&#x9;\"/>\n", "<a xmlns:p=\"\">\n   <p:b/>\n</a>\n",
        "<: :=\"\" a:=\"\" a:b:c=\"\">\n   <A:/>\n<?p:q ?>\n</:>\n",
        "<p:b xmlns:p=\"urn:rvopen:undeclared:p\"/>\n"));

// The order

/// What is written for a document's root element when \p fill was through with it.
QString writtenElement(const std::function<void(QDomElement)>& fill)
{
    Written written;
    QDomElement element = written.document().createElement("a");
    fill(element);
    written.root().appendChild(element);
    const QString before = "<snapRoot>\n  <snapshot name=\"s\"/>\n";
    const QString behind = "\n</snapRoot>\n";
    const QString text = written.text();
    EXPECT_TRUE(text.startsWith(before) && text.endsWith(behind)) << text.toStdString();
    return text.mid(before.size(), text.size() - before.size() - behind.size()).trimmed();
}

void setAttributes(QDomElement element, const QStringList& names)
{
    for (const QString& name : names)
        element.setAttribute(name, "1");
}

TEST(DocumentWriterTest, PutsAttributesInTheOrderOfTheirNames)
{
    const QString text = writtenElement([](QDomElement element) {
        setAttributes(element, {"val", "é", "b2", "Z", "name", "_", "b", "b.1", "b10"});
    });
    EXPECT_EQ(text, "<a Z=\"1\" _=\"1\" b=\"1\" b.1=\"1\" b10=\"1\" b2=\"1\" name=\"1\" val=\"1\" "
                    "é=\"1\"/>");
}

TEST(DocumentWriterTest, PutsAttributesInTheSameOrderHoweverTheyWereSet)
{
    QStringList names{"a", "b", "c", "d", "e"};
    do {
        const QString text =
            writtenElement([&names](QDomElement element) { setAttributes(element, names); });
        EXPECT_EQ(text, "<a a=\"1\" b=\"1\" c=\"1\" d=\"1\" e=\"1\"/>");
    } while (std::next_permutation(names.begin(), names.end()));
}

TEST(DocumentWriterTest, PutsTheAttributesOfEachNeighbourInOrder)
{
    const QString text = writtenElement([](QDomElement element) {
        for (const char* names : {"b a", "a b", "b a", "a c", "c b a", "c b d", "", "d", "d"}) {
            QDomElement child = element.ownerDocument().createElement("c");
            setAttributes(child, QString(names).split(' ', Qt::SkipEmptyParts));
            element.appendChild(child);
        }
    });
    EXPECT_EQ(text, "<a>\n"
                    "    <c a=\"1\" b=\"1\"/>\n"
                    "    <c a=\"1\" b=\"1\"/>\n"
                    "    <c a=\"1\" b=\"1\"/>\n"
                    "    <c a=\"1\" c=\"1\"/>\n"
                    "    <c a=\"1\" b=\"1\" c=\"1\"/>\n"
                    "    <c b=\"1\" c=\"1\" d=\"1\"/>\n"
                    "    <c/>\n"
                    "    <c d=\"1\"/>\n"
                    "    <c d=\"1\"/>\n"
                    "  </a>");
}

TEST(DocumentWriterTest, KeepsEachValueAtItsNameHoweverTheAttributesOfNeighboursWereSet)
{
    QString expected = "<a>\n";
    const QString text = writtenElement([&expected](QDomElement element) {
        QStringList names{"a", "b", "c", "d", "e"};
        int number = 0;
        do {
            QDomElement child = element.ownerDocument().createElement("c");
            for (const QString& name : names)
                child.setAttribute(name, name + QString::number(number));
            element.appendChild(child);
            const QString n = QString::number(number++);
            expected += "    <c a=\"a" + n + "\" b=\"b" + n + "\" c=\"c" + n + "\" d=\"d" + n +
                        "\" e=\"e" + n + "\"/>\n";
        } while (std::next_permutation(names.begin(), names.end()));
    });
    EXPECT_EQ(text, expected + "  </a>");
}

TEST(DocumentWriterTest, WritesTheAttributeThatTookTheNodeOfAnother)
{
    const QStringList names{"cat", "desc", "name", "prop", "type", "val"};
    for (int count = 1; count <= int(names.size()); ++count) {
        for (int replaced = 0; replaced < count; ++replaced) {
            for (const char* const value : {"a", "zzz"}) {
                QDomDocument document;
                document.appendChild(document.createElement("r"));
                QString expected = "<r>\n";
                for (int i = 0; i < 4; ++i) {
                    QDomElement element = document.createElement("e");
                    document.documentElement().appendChild(element);
                    for (const QString& name : names.mid(0, count))
                        element.setAttribute(name, "old");
                    QString line = "<e";
                    for (int at = 0; at < count; ++at) {
                        const bool isReplaced = at == replaced && i % 2 == 1;
                        line +=
                            QStringLiteral(" %1=\"%2\"").arg(names[at], isReplaced ? value : "old");
                    }
                    if (i % 2 == 1) {
                        QDomAttr attribute = document.createAttribute(names[replaced]);
                        attribute.setValue(value);
                        element.setAttributeNode(attribute);
                    }
                    expected += line + "/>\n";
                }
                EXPECT_EQ(XmlText(document, 0), expected + "</r>\n");
            }
        }
    }
}

TEST(DocumentWriterTest, TellsAttributesOfOneNameInSeveralNamespacesApart)
{
    const QString text = writtenElement([](QDomElement element) {
        for (const char* name : {"", "p:a", "", "a", ""}) {
            QDomElement child = element.ownerDocument().createElement("c");
            child.setAttribute("b", "1");
            if (*name)
                child.setAttributeNS("urn:u", name, "2");
            else
                child.setAttribute("a", "2");
            element.appendChild(child);
        }
    });
    EXPECT_EQ(text, "<a>\n"
                    "    <c a=\"2\" b=\"1\"/>\n"
                    "    <c b=\"1\" p:a=\"2\" xmlns:p=\"urn:u\"/>\n"
                    "    <c a=\"2\" b=\"1\"/>\n"
                    "    <c a=\"2\" b=\"1\"/>\n"
                    "    <c a=\"2\" b=\"1\"/>\n"
                    "  </a>");
}

// Characters that no document may contain

struct Forbidden {
    const char* name;
    QString text;
    /// As many of U+FFFD.
    int count;
};

void PrintTo(const Forbidden& forbidden, std::ostream* out)
{
    *out << forbidden.name;
}

std::vector<Forbidden> forbiddenCharacters()
{
    const QString high = character(0xD83D);
    const QString low = character(0xDE00);
    return {{"U0000", character(0), 1},
            {"U0001", character(1), 1},
            {"U0008", character(8), 1},
            {"U000B", character(0xB), 1},
            {"U000E", character(0xE), 1},
            {"U001F", character(0x1F), 1},
            {"UFFFE", character(0xFFFE), 1},
            {"UFFFF", character(0xFFFF), 1},
            {"HighHalf", high, 1},
            {"LowHalf", low, 1},
            {"HighHalfTwice", high + high, 2},
            {"HalvesTheWrongWayRound", low + high, 2},
            {"AFewInARow", character(1) + character(2) + character(3), 3}};
}

struct Place {
    const char* name;
    void (*put)(QDomElement element, const QString& text);
    /// With "%1" for the text.
    const char* written;
};

void PrintTo(const Place& place, std::ostream* out)
{
    *out << place.name;
}

std::vector<Place> places()
{
    return {{"Text",
             [](QDomElement element, const QString& text) {
                 element.appendChild(element.ownerDocument().createTextNode(text));
             },
             "<a>%1</a>"},
            {"Attribute",
             [](QDomElement element, const QString& text) { element.setAttribute("b", text); },
             "<a b=\"%1\"/>"},
            {"Section",
             [](QDomElement element, const QString& text) {
                 element.appendChild(element.ownerDocument().createCDATASection(text));
             },
             "<a><![CDATA[%1]]></a>"},
            {"Comment",
             [](QDomElement element, const QString& text) {
                 element.appendChild(element.ownerDocument().createComment(text));
             },
             "<a>\n    <!--%1-->\n  </a>"},
            {"Instruction",
             [](QDomElement element, const QString& text) {
                 element.appendChild(
                     element.ownerDocument().createProcessingInstruction("p", text));
             },
             "<a>\n<?p %1?>\n  </a>"}};
}

QString writtenAt(const Place& place, const QString& text)
{
    return writtenElement([&](QDomElement element) { place.put(element, text); });
}

using ForbiddenTest = ::testing::TestWithParam<std::tuple<Forbidden, Place>>;

TEST_P(ForbiddenTest, BecomesTheReplacementCharacter)
{
    const auto& [forbidden, place] = GetParam();
    const QString written = 'x' + QString(forbidden.count, QChar(0xFFFD)) + 'y';
    EXPECT_EQ(writtenAt(place, 'x' + forbidden.text + 'y'), QString(place.written).arg(written));
}

TEST_P(ForbiddenTest, BecomesTheReplacementCharacterByItself)
{
    const auto& [forbidden, place] = GetParam();
    const QString written(forbidden.count, QChar(0xFFFD));
    EXPECT_EQ(writtenAt(place, forbidden.text), QString(place.written).arg(written));
}

std::string nameOf(const ::testing::TestParamInfo<std::tuple<Forbidden, Place>>& test)
{
    return std::string(std::get<0>(test.param).name) + "In" + std::get<1>(test.param).name;
}

INSTANTIATE_TEST_SUITE_P(Characters, ForbiddenTest,
                         ::testing::Combine(::testing::ValuesIn(forbiddenCharacters()),
                                            ::testing::ValuesIn(places())),
                         nameOf);

using AllowedTest = ::testing::TestWithParam<Place>;

TEST_P(AllowedTest, StandAsTheyAre)
{
    const QString text = QString("x") + character(0x7F) + character(0x80) + character(0x9F) +
                         character(0xD7FF) + character(0xE000) + character(0xFDD0) +
                         character(0xFFFD) + "\U00010000\U0001F600\U0010FFFF";
    EXPECT_EQ(writtenAt(GetParam(), text), QString(GetParam().written).arg(text));
}

INSTANTIATE_TEST_SUITE_P(Characters, AllowedTest, ::testing::ValuesIn(places()),
                         [](const auto& test) { return std::string(test.param.name); });

// What would not load again as Qt writes it

struct Form {
    const char* name;
    void (*fill)(QDomElement element, QDomDocument document);
    const char* written;
};

void PrintTo(const Form& form, std::ostream* out)
{
    *out << form.name;
}

using FormTest = ::testing::TestWithParam<Form>;

QString writtenForm(const Form& form)
{
    return writtenElement(
        [&form](QDomElement element) { form.fill(element, element.ownerDocument()); });
}

TEST_P(FormTest, IsReplacedByOneThatCanBeRead)
{
    EXPECT_EQ(writtenForm(GetParam()), GetParam().written);
}

TEST_P(FormTest, LoadsAgain)
{
    EXPECT_TRUE(parseText(writtenForm(GetParam()))) << LastReadError().message.toStdString();
}

std::string formName(const ::testing::TestParamInfo<Form>& test)
{
    return test.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Names, FormTest,
    ::testing::Values(
        Form{"NameWithForbiddenCharacter",
             [](QDomElement a, QDomDocument) { a.setTagName("b" + character(7)); }, "<b_x0007_/>"},
        Form{"NameThatStartsWithADigit",
             [](QDomElement a, QDomDocument) { a.setAttribute("1b2", ""); }, "<a _x0031_b2=\"\"/>"},
        Form{"NameWithABlank", [](QDomElement a, QDomDocument) { a.setAttribute("b c", ""); },
             "<a b_x0020_c=\"\"/>"},
        Form{"NameOutsideTheBasicPlane",
             [](QDomElement a, QDomDocument) { a.setAttribute("😀", ""); },
             "<a _xD83D__xDE00_=\"\"/>"},
        Form{"NamesWithColonsOfNoMeaning",
             [](QDomElement a, QDomDocument) {
                 setAttributes(a, {":b", "b:", "b:c:d", "b:1"});
             },
             "<a :b=\"1\" b:=\"1\" b:1=\"1\" b:c:d=\"1\"/>"},
        Form{"NamesThatBecomeTheSame",
             [](QDomElement a, QDomDocument) {
                 a.setAttribute("b c", "2");
                 a.setAttribute("b_x0020_c", "1");
             },
             "<a b_x0020_c=\"1\" b_x0020_c_=\"2\"/>"},
        Form{"SameNameInTwoNamespaces",
             [](QDomElement a, QDomDocument) {
                 a.setAttributeNS("u", "p:b", "1");
                 a.setAttributeNS("v", "p:b", "2");
             },
             "<a p:b=\"1\" p:b_=\"2\" xmlns:p=\"u\"/>"},
        Form{"DeclarationTwice",
             [](QDomElement a, QDomDocument document) {
                 QDomElement child = document.createElementNS("u", "p:c");
                 child.setAttribute("xmlns:p", "v");
                 a.appendChild(child);
             },
             "<a>\n    <p:c xmlns:p=\"u\"/>\n  </a>"},
        Form{"DeclarationAsAnAttributeInItsNamespace",
             [](QDomElement a, QDomDocument) {
                 a.setAttributeNS("http://www.w3.org/2000/xmlns/", "xmlns:p", "u");
                 a.setAttributeNS("u", "p:b", "1");
             },
             "<a p:b=\"1\" xmlns:p=\"u\"/>"},
        Form{"NamespaceWithoutName",
             [](QDomElement a, QDomDocument) { a.setAttributeNS("", "p:b", "1"); },
             "<a p:b=\"1\" xmlns:p=\"urn:rvopen:undeclared:p\"/>"}),
    formName);

INSTANTIATE_TEST_SUITE_P(
    Content, FormTest,
    ::testing::Values(Form{"EndOfSectionInASection",
                           [](QDomElement a, QDomDocument document) {
                               a.appendChild(document.createCDATASection("b]]>c]]]>"));
                           },
                           "<a><![CDATA[b]]]]><![CDATA[>c]]]]]><![CDATA[>]]></a>"},
                      Form{"EndOfSectionAcrossTexts",
                           [](QDomElement a, QDomDocument document) {
                               a.appendChild(document.createTextNode("]]"));
                               a.appendChild(document.createTextNode(">"));
                           },
                           "<a>]]&gt;</a>"},
                      Form{"HyphensInAComment",
                           [](QDomElement a, QDomDocument document) {
                               a.appendChild(document.createComment("--b---c-->-"));
                           },
                           "<a>\n    <!--- -b- - -c- ->- -->\n  </a>"},
                      Form{"EndOfInstructionInAnInstruction",
                           [](QDomElement a, QDomDocument document) {
                               a.appendChild(document.createProcessingInstruction("p", "b?>c?\?>"));
                           },
                           "<a>\n<?p b? >c?\? >?>\n  </a>"},
                      Form{"DeclarationInTheMiddle",
                           [](QDomElement a, QDomDocument document) {
                               a.appendChild(
                                   document.createProcessingInstruction("xml", "version='1.0'"));
                           },
                           "<a>\n<?_xml version='1.0'?>\n  </a>"},
                      Form{"TextBehindAnInstruction",
                           [](QDomElement a, QDomDocument document) {
                               a.appendChild(document.createProcessingInstruction("p", ""));
                               a.appendChild(document.createTextNode("b"));
                           },
                           "<a>\n<?p ?>b</a>"},
                      Form{"ReferenceToNothing",
                           [](QDomElement a, QDomDocument document) {
                               a.appendChild(document.createComment("b"));
                               a.appendChild(document.createEntityReference("x"));
                               a.appendChild(document.createComment("c"));
                           },
                           "<a>\n    <!--b-->&amp;x;<!--c-->\n  </a>"},
                      Form{"ReferenceToACharacter",
                           [](QDomElement a, QDomDocument document) {
                               a.appendChild(document.createElement("b"));
                               a.appendChild(document.createEntityReference("lt"));
                               a.appendChild(document.createElement("c"));
                           },
                           "<a>\n    <b/>&lt;<c/>\n  </a>"}),
    formName);

struct XmlDeclaration {
    const char* name;
    const char* data;
    const char* written;
};

void PrintTo(const XmlDeclaration& declaration, std::ostream* out)
{
    *out << declaration.name;
}

using XmlDeclarationTest = ::testing::TestWithParam<XmlDeclaration>;

TEST_P(XmlDeclarationTest, FitsTheText)
{
    Written written;
    QDomDocument document = written.document();
    document.insertBefore(document.createProcessingInstruction("xml", GetParam().data),
                          document.documentElement());
    EXPECT_EQ(written.text(), QString("<?xml %1?>\n<snapRoot>\n  <snapshot name=\"s\"/>\n"
                                      "</snapRoot>\n")
                                  .arg(GetParam().written));
}

INSTANTIATE_TEST_SUITE_P(
    Data, XmlDeclarationTest,
    ::testing::Values(XmlDeclaration{"InDoubleQuotes", "version=\"1.0\" encoding=\"utf-8\"",
                                     "version=\"1.0\" encoding=\"utf-8\""},
                      XmlDeclaration{"InSingleQuotes",
                                     "version='1.0' encoding='UTF-8' standalone='yes'",
                                     "version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\""},
                      XmlDeclaration{"OfTheVersionOnly", "version=\"1.0\"", "version=\"1.0\""},
                      XmlDeclaration{"OfAnotherEncoding", "version=\"1.0\" encoding=\"ISO-8859-1\"",
                                     "version=\"1.0\" encoding=\"utf-8\""},
                      XmlDeclaration{"WithoutVersion", "encoding=\"utf-8\"",
                                     "version=\"1.0\" encoding=\"utf-8\""},
                      XmlDeclaration{"ThatEndsEarly", "version=\"1.0\"?><b/>", "version=\"1.0\""}),
    [](const auto& test) { return std::string(test.param.name); });

struct TypeDeclaration {
    const char* name;
    QString type;
    QString publicId;
    QString systemId;
    const char* written;
};

void PrintTo(const TypeDeclaration& declaration, std::ostream* out)
{
    *out << declaration.name;
}

using TypeDeclarationTest = ::testing::TestWithParam<TypeDeclaration>;

TEST_P(TypeDeclarationTest, CanBeRead)
{
    const TypeDeclaration& given = GetParam();
    QDomImplementation implementation;
    QDomDocument document = implementation.createDocument(
        QString(), "a",
        implementation.createDocumentType(given.type, given.publicId, given.systemId));
    EXPECT_EQ(QString::fromUtf8(savedBytes(document.documentElement())),
              QString(given.written) + "\n<a/>\n");
}

INSTANTIATE_TEST_SUITE_P(
    Identifiers, TypeDeclarationTest,
    ::testing::Values(
        TypeDeclaration{"System", "a", QString(), "s", "<!DOCTYPE a SYSTEM 's'>"},
        TypeDeclaration{"Public", "a", "p", "s", "<!DOCTYPE a PUBLIC 'p' 's'>"},
        TypeDeclaration{"Apostrophe", "a", "it's", "it's", "<!DOCTYPE a PUBLIC \"it's\" \"it's\">"},
        TypeDeclaration{"QuotationMark", "a", "\"", "\"", "<!DOCTYPE a PUBLIC '_' '\"'>"},
        TypeDeclaration{"BothQuotes", "a", QString(), "'\"", "<!DOCTYPE a SYSTEM \"'%22\">"},
        TypeDeclaration{"Markup", "a", "<&>", "<&>", "<!DOCTYPE a PUBLIC '___' '<&>'>"},
        TypeDeclaration{"ForbiddenCharacter", "a", "\x01", "\x01",
                        "<!DOCTYPE a PUBLIC '_' '\xEF\xBF\xBD'>"},
        TypeDeclaration{"Name", "a b", QString(), "s", "<!DOCTYPE a_x0020_b SYSTEM 's'>"}),
    [](const auto& test) { return std::string(test.param.name); });

// References to entities

struct Reference {
    const char* name;
    const char* prolog;
    bool isKept;
};

void PrintTo(const Reference& reference, std::ostream* out)
{
    *out << reference.name;
}

using ReferenceTest = ::testing::TestWithParam<Reference>;

TEST_P(ReferenceTest, IsKeptWhereTheReaderKnowsTheEntity)
{
    Written written(GetParam().prolog);
    const QDomElement root = written.root();
    root.firstChildElement().appendChild(written.document().createEntityReference("x"));
    const QString text = written.text();
    EXPECT_EQ(text.contains("&x;"), GetParam().isKept) << text.toStdString();
    EXPECT_EQ(text.contains("&amp;x;"), !GetParam().isKept) << text.toStdString();
    EXPECT_TRUE(parseText(text));
}

INSTANTIATE_TEST_SUITE_P(
    Types, ReferenceTest,
    ::testing::Values(Reference{"None", "", false}, Reference{"Empty", "<!DOCTYPE a>", false},
                      Reference{"ExternalSubset", "<!DOCTYPE a SYSTEM 's'>", true},
                      Reference{"ExternalSubsetOfAStandaloneDocument",
                                "<?xml version='1.0' standalone='yes'?><!DOCTYPE a SYSTEM 's'>",
                                false}),
    [](const auto& test) { return std::string(test.param.name); });

// Prefixes that nothing declares

void addUndeclaredPrefixes(QDomElement element)
{
    element.setAttribute("p:b", "1");
    element.setAttribute("c", "2");
    QDomElement child = element.ownerDocument().createElement("p:d");
    child.setAttribute("q:e", "3");
    element.appendChild(child);
    element.appendChild(element.ownerDocument().createElement("q:f"));
}

TEST(DocumentWriterTest, DeclaresPrefixesThatNothingDeclares)
{
    Written written;
    addUndeclaredPrefixes(written.root());
    EXPECT_EQ(written.text(), "<snapRoot c=\"2\" p:b=\"1\" xmlns:p=\"urn:rvopen:undeclared:p\">\n"
                              "  <snapshot name=\"s\"/>\n"
                              "  <p:d q:e=\"3\" xmlns:q=\"urn:rvopen:undeclared:q\"/>\n"
                              "  <q:f xmlns:q=\"urn:rvopen:undeclared:q\"/>\n"
                              "</snapRoot>\n");
}

TEST(DocumentWriterTest, WritesTextThatLoadsFromAFileWhereNamespacesCount)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xml");
    Written written;
    addUndeclaredPrefixes(written.root());
    writeFile(path, written.text().toUtf8());
    EXPECT_EQ(written.manager().LoadSnapShotDocFromFile(path), 1);
}

TEST(DocumentWriterTest, DeclaresInTheTextOfASnapShotWhatItsDocumentDeclaresAroundIt)
{
    RVOpenManager manager;
    load(manager, "<snapRoot xmlns:p='u'><snapshot name='s' p:a='1'/></snapRoot>");
    const QString text = manager.GetCurrentSnapShot()->CreateSnapShotDocumentAsString();
    EXPECT_TRUE(
        text.contains("<snapshot name=\"s\" p:a=\"1\" xmlns:p=\"urn:rvopen:undeclared:p\"/>"))
        << text.toStdString();
}

TEST(DocumentWriterTest, DeclaresAPrefixThatOnlyANeighbourDeclares)
{
    Written written;
    QDomElement neighbour = written.document().createElement("a");
    neighbour.setAttribute("xmlns:p", "u");
    written.root().appendChild(neighbour);
    for (QDomElement parent : {neighbour, written.root()}) {
        QDomElement child = written.document().createElement("b");
        child.setAttribute("p:c", "1");
        parent.appendChild(child);
    }
    EXPECT_EQ(written.text(), "<snapRoot>\n"
                              "  <snapshot name=\"s\"/>\n"
                              "  <a xmlns:p=\"u\">\n"
                              "    <b p:c=\"1\"/>\n"
                              "  </a>\n"
                              "  <b p:c=\"1\" xmlns:p=\"urn:rvopen:undeclared:p\"/>\n"
                              "</snapRoot>\n");
}

TEST(DocumentWriterTest, DeclaresNoPrefixThatIsDeclaredAround)
{
    Written written;
    QDomElement root = written.root();
    root.setAttribute("xmlns:p", "u");
    root.appendChild(written.document().createElement("p:a"));
    root.appendChild(written.document().createElement("xml:b"));
    EXPECT_EQ(written.text(), "<snapRoot xmlns:p=\"u\">\n"
                              "  <snapshot name=\"s\"/>\n"
                              "  <p:a/>\n"
                              "  <xml:b/>\n"
                              "</snapRoot>\n");
}

// Namespaces of what a host puts in

struct Addition {
    const char* name;
    const char* text;
    void (*change)(QDomElement root, QDomDocument document);
    const char* written;
};

void PrintTo(const Addition& addition, std::ostream* out)
{
    *out << addition.name;
}

using AdditionTest = ::testing::TestWithParam<Addition>;

TEST_P(AdditionTest, IsDeclaredOnceWhereItNeedsToBe)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xml");
    writeFile(path, GetParam().text);
    Document document(ReadXmlDocument(path));
    ASSERT_TRUE(document);
    GetParam().change(document->documentElement(), *document);
    const QString text = XmlText(*document, 0);
    EXPECT_EQ(text, QString(GetParam().written) + '\n');

    writeFile(path, text.toUtf8());
    document.reset(ReadXmlDocument(path));
    ASSERT_TRUE(document);
    EXPECT_EQ(XmlText(*document, 0), text);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, AdditionTest,
    ::testing::Values(Addition{"ElementInScope", "<p:a xmlns:p='u'/>",
                               [](QDomElement root, QDomDocument document) {
                                   root.appendChild(document.createElementNS("u", "p:b"));
                               },
                               "<p:a xmlns:p=\"u\">\n<p:b/>\n</p:a>"},
                      Addition{"ElementInAnotherNamespace", "<p:a xmlns:p='u'/>",
                               [](QDomElement root, QDomDocument document) {
                                   root.appendChild(document.createElementNS("v", "p:b"))
                                       .appendChild(document.createElementNS("v", "p:c"));
                               },
                               "<p:a xmlns:p=\"u\">\n<p:b xmlns:p=\"v\">\n<p:c/>\n</p:b>\n</p:a>"},
                      Addition{"ElementOutOfADefault", "<a xmlns='u'/>",
                               [](QDomElement root, QDomDocument document) {
                                   root.appendChild(document.createElementNS("", "b"));
                               },
                               "<a xmlns=\"u\">\n<b xmlns=\"\"/>\n</a>"},
                      Addition{"AttributeOfANewPrefix", "<a><b/></a>",
                               [](QDomElement root, QDomDocument) {
                                   root.setAttributeNS("u", "p:c", "1");
                                   root.firstChildElement().setAttributeNS("u", "p:c", "1");
                               },
                               "<a p:c=\"1\" xmlns:p=\"u\">\n<b p:c=\"1\"/>\n</a>"},
                      Addition{"ElementMovedOutOfScope", "<a><b xmlns:p='u'><p:c/></b></a>",
                               [](QDomElement root, QDomDocument) {
                                   root.appendChild(root.firstChildElement().firstChild());
                               },
                               "<a>\n<b xmlns:p=\"u\"/>\n<p:c xmlns:p=\"u\"/>\n</a>"},
                      Addition{"ElementOfAnXmlPrefix", "<a/>",
                               [](QDomElement root, QDomDocument) {
                                   root.setAttributeNS("http://www.w3.org/XML/1998/namespace",
                                                       "xml:lang", "e");
                               },
                               "<a xml:lang=\"e\"/>"},
                      Addition{"PrefixThatNothingDeclares", "<a><p:b/><p:c q:d=''/></a>",
                               [](QDomElement, QDomDocument) {},
                               "<a>\n<p:b xmlns:p=\"urn:rvopen:undeclared:p\"/>\n"
                               "<p:c q:d=\"\" xmlns:p=\"urn:rvopen:undeclared:p\" "
                               "xmlns:q=\"urn:rvopen:undeclared:q\"/>\n</a>"},
                      Addition{
                          "PrefixDeclaredAroundLater", "<a><p:b/></a>",
                          [](QDomElement root, QDomDocument) { root.setAttribute("xmlns:p", "u"); },
                          "<a xmlns:p=\"u\">\n<p:b/>\n</a>"}),
    [](const auto& test) { return std::string(test.param.name); });

// White space

/// Text that is read and written as it stands.
using SpaceTest = ::testing::TestWithParam<const char*>;

TEST_P(SpaceTest, ComesBackAsItWas)
{
    const Document document = parseText(GetParam());
    ASSERT_TRUE(document);
    EXPECT_EQ(XmlText(*document, 2), GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Documents, SpaceTest,
    ::testing::Values("<a> </a>\n", "<a>\n\t</a>\n", "<a>&#xd;</a>\n", "<a>1&#xd;\n2</a>\n",
                      "<a><![CDATA[1]]> <![CDATA[2]]></a>\n", "<a> <![CDATA[]]>\n</a>\n",
                      "<a> <![CDATA[]]>\n<b/>\n</a>\n",
                      "<a xml:space=\"preserve\"> <b/>\n<c> <d/></c></a>\n",
                      "<a xml:space=\"preserve\"><b/><!--c--><?p ?><d/></a>\n",
                      "<a>\n  <b xml:space=\"preserve\"><c/><d xml:space=\"default\">\n"
                      "      <e/>\n    </d></b>\n</a>\n",
                      "<!DOCTYPE a SYSTEM 'x'>\n<a>&e; &f;<b/>&g;</a>\n"));

struct Spacing {
    const char* name;
    void (*fill)(QDomElement root, QDomDocument document);
    const char* written;
};

void PrintTo(const Spacing& spacing, std::ostream* out)
{
    *out << spacing.name;
}

using SpacingTest = ::testing::TestWithParam<Spacing>;

TEST_P(SpacingTest, IsLayoutOrStays)
{
    QDomDocument document;
    QDomElement root = document.createElement("a");
    document.appendChild(root);
    GetParam().fill(root, document);
    const QString text = XmlText(document, 1);
    EXPECT_EQ(text, GetParam().written);

    const Document again = parseText(text);
    ASSERT_TRUE(again);
    EXPECT_EQ(XmlText(*again, 1), text);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, SpacingTest,
    ::testing::Values(Spacing{"BetweenElements",
                              [](QDomElement root, QDomDocument document) {
                                  root.appendChild(document.createTextNode("\n"));
                                  root.appendChild(document.createElement("b"));
                                  root.appendChild(document.createTextNode(" \n"));
                                  root.appendChild(document.createTextNode(" "));
                              },
                              "<a>\n <b/>\n</a>\n"},
                      Spacing{"InPieces",
                              [](QDomElement root, QDomDocument document) {
                                  for (const char* piece : {" ", "", " ", "x", " "})
                                      root.appendChild(document.createTextNode(piece));
                                  root.appendChild(document.createElement("b"));
                              },
                              "<a>  x <b/>\n</a>\n"},
                      Spacing{"OnlyContentInPieces",
                              [](QDomElement root, QDomDocument document) {
                                  root.appendChild(document.createTextNode(""));
                                  root.appendChild(document.createTextNode(" "));
                              },
                              "<a> </a>\n"},
                      Spacing{"NoCharacters",
                              [](QDomElement root, QDomDocument document) {
                                  root.appendChild(document.createTextNode(""));
                              },
                              "<a/>\n"},
                      Spacing{"BesideAReferenceThatBecomesText",
                              [](QDomElement root, QDomDocument document) {
                                  root.appendChild(document.createTextNode(" "));
                                  root.appendChild(document.createEntityReference("e"));
                                  root.appendChild(document.createElement("b"));
                              },
                              "<a> &amp;e;<b/>\n</a>\n"},
                      Spacing{"ManyPieces",
                              [](QDomElement root, QDomDocument document) {
                                  for (int i = 0; i < 50000; ++i)
                                      root.appendChild(document.createTextNode(" "));
                                  root.appendChild(document.createElement("b"));
                              },
                              "<a>\n <b/>\n</a>\n"}),
    [](const auto& test) { return std::string(test.param.name); });

// What cannot be saved

struct Unreadable {
    const char* name;
    void (*spoil)(QDomDocument document);
};

void PrintTo(const Unreadable& unreadable, std::ostream* out)
{
    *out << unreadable.name;
}

using UnreadableTest = ::testing::TestWithParam<Unreadable>;

TEST_P(UnreadableTest, IsNotSaved)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.rvx");
    writeFile(path, "as it was");
    Written written;
    GetParam().spoil(written.document());
    EXPECT_FALSE(written.save(path));
    EXPECT_EQ(readFile(path), "as it was");
}

INSTANTIATE_TEST_SUITE_P(
    Documents, UnreadableTest,
    ::testing::Values(Unreadable{"WithTwoRoots",
                                 [](QDomDocument document) {
                                     document.appendChild(document.createElement("second"));
                                 }},
                      Unreadable{"WithTextBesideItsRoot",
                                 [](QDomDocument document) {
                                     document.appendChild(document.createTextNode("text"));
                                 }},
                      Unreadable{"WithTooManyLevels",
                                 [](QDomDocument document) {
                                     QDomNode parent = document.documentElement();
                                     for (int i = 0; i < MaxNestingDepth; ++i)
                                         parent = parent.appendChild(document.createElement("a"));
                                 }},
                      Unreadable{"WithTooManyAttributes",
                                 [](QDomDocument document) {
                                     for (int i = 0; i <= MaxAttributes; ++i)
                                         document.documentElement().setAttribute(
                                             "a" + QString::number(i), "");
                                 }},
                      Unreadable{"WithTooLongAName",
                                 [](QDomDocument document) {
                                     document.documentElement().setAttribute(
                                         QString(MaxNameLength + 1, 'a'), "");
                                 }}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(DocumentWriterTest, WritesFilesInUtf8)
{
    QDomDocument document;
    QDomElement root = document.createElement("имя");
    root.setAttribute("a", "é😀");
    document.appendChild(root);
    EXPECT_EQ(savedBytes(root), "<\xD0\xB8\xD0\xBC\xD1\x8F a=\"\xC3\xA9\xF0\x9F\x98\x80\"/>\n");
}

} // namespace
} // namespace rvopen::test

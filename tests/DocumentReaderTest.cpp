// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ManagerSupport.h"

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/SnapShot.h>
#include <rvopen/XMLUtils.h>

#include <QThread>
#include <QXmlStreamReader>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

/// What is read as a document, and what it is then. The same with every version of Qt.
namespace rvopen::test {
namespace {

using namespace std::string_literals;

using Document = std::unique_ptr<QDomDocument>;

QByteArray bytesOf(const std::string& text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

/// A file of a temporary folder, read with namespace processing.
class ReadFileTest : public ::testing::Test {
protected:
    QString path(const QString& name = QStringLiteral("a.xml")) const
    {
        return m_folder.filePath(name);
    }

    Document read(const QByteArray& bytes)
    {
        writeFile(path(), bytes);
        m_error = ReadError();
        return Document(ReadXmlDocument(path(), &m_error));
    }

    ReadError m_error;

private:
    QTemporaryDir m_folder;
};

Document parseText(const QString& text)
{
    return Document(ParseXmlDocument(text));
}

/// Sets the bound for as long as it lives.
class InputSizeBound {
public:
    explicit InputSizeBound(qint64 size)
    {
        SetMaxInputSize(size);
    }
    ~InputSizeBound()
    {
        SetMaxInputSize(DefaultMaxInputSize);
    }
    InputSizeBound(const InputSizeBound&) = delete;
    InputSizeBound& operator=(const InputSizeBound&) = delete;
};

// What is a document

struct Verdict {
    const char* name;
    std::string bytes;
};

void PrintTo(const Verdict& verdict, std::ostream* out)
{
    *out << verdict.name;
}

std::string nameOf(const ::testing::TestParamInfo<Verdict>& info)
{
    return info.param.name;
}

class WellFormedTest : public ReadFileTest, public ::testing::WithParamInterface<Verdict> {};

TEST_P(WellFormedTest, IsReadFromAFile)
{
    EXPECT_NE(read(bytesOf(GetParam().bytes)), nullptr) << m_error.message.toStdString();
}

TEST_P(WellFormedTest, IsReadFromAString)
{
    EXPECT_NE(parseText(QString::fromStdString(GetParam().bytes)), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, WellFormedTest,
    ::testing::Values(
        Verdict{"EmptyElement", "<a/>"}, Verdict{"Blanks", " \n\t<a \n/ >"s.substr(0, 7) + "/>\n "},
        Verdict{"Declaration", "<?xml version=\"1.0\" encoding=\"utf-8\"?><a/>"},
        Verdict{"DeclarationInSingleQuotes", "<?xml version = '1.0'?><a/>"},
        Verdict{"DeclarationStandalone", "<?xml version='1.0' standalone='yes' ?><a/>"},
        Verdict{"LaterVersion", "<?xml version='1.1'?><a/>"},
        Verdict{"UnknownEncoding", "<?xml version='1.0' encoding='x-unknown'?><a/>"},
        Verdict{"ByteOrderMark", "\xEF\xBB\xBF<a/>"},
        Verdict{"Comments", "<!----><!-- <a> & - -> --><a><!-- ' --></a><!--\n-->"},
        Verdict{"Instructions", "<?p?><?p <a> ? & ?><a><?xml-q ?\?></a><?p\n?>"},
        Verdict{"CdataSections", "<a><![CDATA[]]><![CDATA[<b>&]]]]><![CDATA[>]]></a>"},
        Verdict{"Brackets", "<a b=']]>'>]] > ]</a>"},
        Verdict{"Quotes", "<a b='\"' c=\"'>\">\"'</a>"},
        Verdict{"References", "<a b='&lt;&#10;'>&amp;&gt;&quot;&apos;&#x1F600;&#9;&#x10FFFF;</a>"},
        Verdict{"NonAsciiNames", "<\xC3\xA9t\xC3\xA9 \xD0\xB8\xD0\xBC\xD1\x8F='1'/>"},
        Verdict{"NonBasicPlane", "<a b='\xF0\x9F\x98\x80'>\xF4\x8F\xBF\xBF</a>"},
        Verdict{"C1Controls", "<a b='\xC2\x80'>\xC2\x9F\x7F</a>"},
        Verdict{"ReplacementCharacter", "<a>\xEF\xBF\xBD</a>"},
        Verdict{"Namespaces", "<a xmlns='u' xmlns:p='v' p:b='1'><p:c xmlns='' xml:lang='e'/></a>"},
        Verdict{"DocumentType", "<!DOCTYPE a><a/>"},
        Verdict{"ExternalSubset", "<!DOCTYPE a PUBLIC '-//X' \"x.dtd\"><a b='&e;'>&e;</a>"},
        Verdict{"MarkupInSystemId", "<!DOCTYPE a SYSTEM 'http://h/?x=1&y=2<\"'><a/>"},
        Verdict{"EmptySystemId", "<!DOCTYPE a PUBLIC '' ''><a/>"},
        Verdict{"ColonInTarget", "<?p:q x?><a><?:?></a>"},
        Verdict{"ColonsInNames", "<:><A: :b='' b:='' a:b:c='' a:1=''/></:>"},
        Verdict{"ColonInDocumentType", "<!DOCTYPE p:a><p:a/>"},
        Verdict{"ByteOrderMarkInText", "<a>\xEF\xBB\xBF</a>"},
        Verdict{"PrefixesThatNothingDeclares", "<p:a q:b='1'><r:c/></p:a>"},
        Verdict{"PrefixOutOfScope", "<a><b xmlns:p='u'/><p:c/></a>"},
        Verdict{"SameExpandedNameTwice", "<a xmlns:p='u' xmlns:q='u' p:b='' q:b=''/>"},
        Verdict{"PrefixOfNothing", "<a xmlns:p=''><p:b/></a>"},
        Verdict{"ReservedPrefixes", "<xmlns:a xmlns:xml='u' xmlns:xmlns='v'/>"},
        Verdict{"ReservedNamespaces", "<a xmlns='http://www.w3.org/2000/xmlns/'"
                                      " xmlns:p='http://www.w3.org/XML/1998/namespace'/>"}),
    nameOf);

class MalformedTest : public ReadFileTest, public ::testing::WithParamInterface<Verdict> {};

TEST_P(MalformedTest, IsRefusedInAFile)
{
    EXPECT_EQ(read(bytesOf(GetParam().bytes)), nullptr);
}

TEST_P(MalformedTest, IsRefusedInAString)
{
    EXPECT_EQ(parseText(QString::fromStdString(GetParam().bytes)), nullptr);
}

TEST_P(MalformedTest, StaysAsItIsOnTheDisk)
{
    const QByteArray bytes = bytesOf(GetParam().bytes);
    read(bytes);

    EXPECT_EQ(readFile(path()), bytes);
}

TEST_P(MalformedTest, HasAReason)
{
    read(bytesOf(GetParam().bytes));

    EXPECT_NE(m_error.message, QString());
}

INSTANTIATE_TEST_SUITE_P(
    Structure, MalformedTest,
    ::testing::Values(Verdict{"Nothing", ""}, Verdict{"BlanksOnly", " \n"},
                      Verdict{"TextOnly", "a"}, Verdict{"NoRoot", "<!-- a -->"},
                      Verdict{"TwoRoots", "<a/><b/>"}, Verdict{"TextBeforeTheRoot", "x<a/>"},
                      Verdict{"TextAfterTheRoot", "<a/>x"},
                      Verdict{"ReferenceAfterTheRoot", "<a/>&#32;"},
                      Verdict{"CdataAfterTheRoot", "<a/><![CDATA[]]>"},
                      Verdict{"ZeroAfterTheRoot", "<a/>\0"s}, Verdict{"Unclosed", "<a>"},
                      Verdict{"EndTagTwice", "<a></a></a>"}, Verdict{"EndTagOnly", "</a>"},
                      Verdict{"OtherEndTag", "<a></b>"}, Verdict{"LongerEndTag", "<a></ab>"},
                      Verdict{"Crossed", "<a><b></a></b>"},
                      Verdict{"AttributeInEndTag", "<a></a b='1'>"}, Verdict{"CutTag", "<a b='1'"},
                      Verdict{"CutEndTag", "<a></a"}, Verdict{"SlashInTag", "<a / >"},
                      Verdict{"BlankBeforeName", "< a/>"}, Verdict{"BlankInEndTag", "<a></ a>"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Attributes, MalformedTest,
    ::testing::Values(Verdict{"Twice", "<a b='1' b='1'/>"},
                      Verdict{"TwiceAmongMany",
                              "<a b='' c='' d='' e='' f='' g='' h='' i='' j='' k='' l='' m=''"
                              " n='' o='' e=''/>"},
                      Verdict{"NamespaceTwice", "<a xmlns:p='u' xmlns:p='v' p:b=''/>"},
                      Verdict{"NoBlankBetween", "<a b='1'c='2'/>"},
                      Verdict{"NoBlankBefore", "<a'b'/>"}, Verdict{"NoValue", "<a b/>"},
                      Verdict{"NoQuotes", "<a b=1/>"}, Verdict{"OtherQuote", "<a b='1\"/>"},
                      Verdict{"LessThan", "<a b='<'/>"}, Verdict{"LoneAmpersand", "<a b='&'/>"},
                      Verdict{"NoName", "<a ='1'/>"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Names, MalformedTest,
                         ::testing::Values(Verdict{"DigitFirst", "<1a/>"},
                                           Verdict{"HyphenFirst", "<-a/>"},
                                           Verdict{"DotFirst", "<a .b=''/>"},
                                           Verdict{"Plus", "<a+b/>"},
                                           Verdict{"MultiplicationSign", "<a\xC3\x97/>"},
                                           Verdict{"CombiningFirst", "<\xCC\x80/>"},
                                           Verdict{"NonBasicPlane", "<a\xF0\x90\x80\x80/>"},
                                           Verdict{"OfTheFifthEditionOnly", "<a\xC8\xA0/>"},
                                           Verdict{"ReplacementCharacter", "<a \xEF\xBF\xBD=''/>"}),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(
    Characters, MalformedTest,
    ::testing::Values(
        Verdict{"ControlInText", "<a>\x01</a>"}, Verdict{"ControlInValue", "<a b='\x1F'/>"},
        Verdict{"ControlInComment", "<a/><!-- \x0B -->"},
        Verdict{"ControlInCdata", "<a><![CDATA[\x08]]></a>"},
        Verdict{"ControlInInstruction", "<?p \x02?><a/>"}, Verdict{"Zero", "<a>\0</a>"s},
        Verdict{"NonCharacter", "<a>\xEF\xBF\xBE</a>"},
        Verdict{"NonCharacterInValue", "<a b='\xEF\xBF\xBF'/>"},
        Verdict{"ReferenceToZero", "<a>&#0;</a>"}, Verdict{"ReferenceToControl", "<a>&#x1;</a>"},
        Verdict{"ReferenceToSurrogate", "<a>&#xD800;</a>"},
        Verdict{"ReferenceToNonCharacter", "<a b='&#xFFFE;'/>"},
        Verdict{"ReferenceBeyondUnicode", "<a>&#x110000;</a>"},
        Verdict{"ReferenceOverflowing", "<a>&#x100000041;</a>"},
        Verdict{"EmptyReference", "<a>&#;</a>"}, Verdict{"UpperCaseX", "<a>&#X41;</a>"},
        Verdict{"NoSemicolon", "<a>&lt</a>"}, Verdict{"LoneAmpersand", "<a>& </a>"},
        Verdict{"CdataEndInText", "<a>]]></a>"},
        Verdict{"ByteOrderMarkBehindTheRoot", "<a/>\xEF\xBB\xBF"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(CommentsAndSections, MalformedTest,
                         ::testing::Values(Verdict{"HyphensInComment", "<a><!-- -- --></a>"},
                                           Verdict{"HyphenAtEndOfComment", "<a><!-- ---></a>"},
                                           Verdict{"CutComment", "<a/><!-- -"},
                                           Verdict{"CommentInTag", "<a <!-- --> />"},
                                           Verdict{"CutCdata", "<a><![CDATA[]]</a>"},
                                           Verdict{"LowerCaseCdata", "<a><![cdata[]]></a>"},
                                           Verdict{"CutInstruction", "<a/><?p ?"},
                                           Verdict{"InstructionWithoutTarget", "<? p?><a/>"},
                                           Verdict{"InstructionGlued", "<?p+q?><a/>"},
                                           Verdict{"ReservedTarget", "<a><?XmL x?></a>"}),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(
    Declarations, MalformedTest,
    ::testing::Values(Verdict{"NotAtTheStart", " <?xml version='1.0'?><a/>"},
                      Verdict{"AfterTheRoot", "<a/><?xml version='1.0'?>"},
                      Verdict{"NoVersion", "<?xml encoding='utf-8'?><a/>"},
                      Verdict{"Empty", "<?xml?><a/>"},
                      Verdict{"OtherVersion", "<?xml version='2.0'?><a/>"},
                      Verdict{"WrongOrder",
                              "<?xml version='1.0' standalone='no' encoding='utf-8'?><a/>"},
                      Verdict{"NoBlank", "<?xml version='1.0'encoding='utf-8'?><a/>"},
                      Verdict{"BadEncoding", "<?xml version='1.0' encoding='-'?><a/>"},
                      Verdict{"BadStandalone", "<?xml version='1.0' standalone='maybe'?><a/>"},
                      Verdict{"Unclosed", "<?xml version='1.0'><a/>"},
                      Verdict{"UpperCase", "<?XML version='1.0'?><a/>"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    DocumentTypes, MalformedTest,
    ::testing::Values(
        Verdict{"Twice", "<!DOCTYPE a><!DOCTYPE a><a/>"},
        Verdict{"AfterTheRoot", "<a/><!DOCTYPE a>"}, Verdict{"InTheRoot", "<a><!DOCTYPE a></a>"},
        Verdict{"NoName", "<!DOCTYPE><a/>"}, Verdict{"NoSystemId", "<!DOCTYPE a PUBLIC 'x'><a/>"},
        Verdict{"BadPublicId", "<!DOCTYPE a PUBLIC '<' 'x'><a/>"},
        Verdict{"NoBlankInExternalId", "<!DOCTYPE a PUBLIC 'x''y'><a/>"},
        Verdict{"CutSystemId", "<!DOCTYPE a SYSTEM 'x><a/>"},
        Verdict{"EmptyInternalSubset", "<!DOCTYPE a []><a/>"},
        Verdict{"InternalSubset", "<!DOCTYPE a [<!ENTITY e 'x'>]><a/>"},
        Verdict{"BothSubsets", "<!DOCTYPE a SYSTEM 'x' [<!ATTLIST a b CDATA 'c'>]><a/>"},
        Verdict{"CutSubset", "<!DOCTYPE a [<!ENTITY e 'x'>"},
        Verdict{"OtherDeclaration", "<!ELEMENT a ANY><a/>"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Entities, MalformedTest,
    ::testing::Values(
        Verdict{"Undeclared", "<a>&e;</a>"}, Verdict{"UndeclaredInValue", "<a b='&e;'/>"},
        Verdict{"UndeclaredWithoutExternalSubset", "<!DOCTYPE a><a>&e;</a>"},
        Verdict{"UndeclaredThoughStandalone",
                "<?xml version='1.0' standalone='yes'?><!DOCTYPE a SYSTEM 'x'><a>&e;</a>"},
        Verdict{"UndeclaredInValueThoughStandalone",
                "<?xml version='1.0' standalone='yes'?><!DOCTYPE a SYSTEM 'x'><a b='&e;'/>"},
        Verdict{"NoName", "<!DOCTYPE a SYSTEM 'x'><a>&;</a>"},
        Verdict{"NoSemicolon", "<!DOCTYPE a SYSTEM 'x'><a>&e</a>"}),
    nameOf);

// Names

/// What Qt takes, of which each version has the same table.
bool isReadByQt(const QString& name)
{
    QXmlStreamReader reader('<' + name + "/>");
    return reader.readNextStartElement();
}

/// Whether the fifth edition of XML 1.0 lets a name contain the character; Qt alone takes more.
bool isInFifthEdition(int code)
{
    const std::pair<int, int> ranges[] = {
        {'-', '.'},       {'0', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
        {0xB7, 0xB7},     {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x37D},    {0x37F, 0x1FFF},
        {0x200C, 0x200D}, {0x203F, 0x2040}, {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF},
        {0xF900, 0xFDCF}, {0xFDF0, 0xFFFC}};
    return std::any_of(std::begin(ranges), std::end(ranges), [code](const auto& range) {
        return code >= range.first && code <= range.second;
    });
}

TEST(NameTest, MayContainWhatQtTakesAndTheFifthEditionAllows)
{
    QStringList wrong;
    for (int code = 0; code <= 0xFFFF; ++code) {
        const QString character(QChar(static_cast<ushort>(code)));
        for (const QString& name : {character, 'a' + character}) {
            // A colon is for namespaces to judge, and markup makes more than a name of the text.
            if (code < 0x80 && (code == ':' || QString(" \t\r\n/").contains(character)))
                continue;
            const bool expected = isInFifthEdition(code) && isReadByQt(name);
            if (bool(parseText('<' + name + "/>")) != expected)
                wrong << QString::number(code, 16) + (name == character ? " first" : " later");
        }
    }
    EXPECT_EQ(wrong.join(' '), QString());
}

// Encodings

struct Encoding {
    const char* name;
    QByteArray (*encode)(const QString&);
};

template <typename Unit, Unit (*Convert)(Unit)>
QByteArray inUnits(const QString& text)
{
    QByteArray bytes;
    const auto append = [&bytes](char32_t c) {
        const Unit unit = Convert(static_cast<Unit>(c));
        bytes.append(reinterpret_cast<const char*>(&unit), sizeof unit);
    };
    append(0xFEFF);
    if (sizeof(Unit) == 2) {
        for (const QChar c : text)
            append(c.unicode());
    } else {
        for (const uint c : text.toUcs4())
            append(c);
    }
    return bytes;
}

const Encoding s_encodings[] = {
    {"Utf8", [](const QString& text) { return text.toUtf8(); }},
    {"Utf8WithMark", [](const QString& text) { return "\xEF\xBB\xBF" + text.toUtf8(); }},
    {"Utf16LittleEndian", inUnits<quint16, qToLittleEndian<quint16>>},
    {"Utf16BigEndian", inUnits<quint16, qToBigEndian<quint16>>},
    {"Utf32LittleEndian", inUnits<quint32, qToLittleEndian<quint32>>},
    {"Utf32BigEndian", inUnits<quint32, qToBigEndian<quint32>>}};

void PrintTo(const Encoding& encoding, std::ostream* out)
{
    *out << encoding.name;
}

class EncodingTest : public ReadFileTest, public ::testing::WithParamInterface<Encoding> {};

TEST_P(EncodingTest, GivesTheCharacters)
{
    // U+0D0A holds the bytes of a line end.
    const QString name =
        QStringLiteral("\u00e9\u4e2d\u0d0a\u0a0d\ufeff") + QChar(0xD83D) + QChar(0xDE00);
    const Document document = read(GetParam().encode(QStringLiteral("<a name='%1'/>").arg(name)));

    ASSERT_NE(document, nullptr) << m_error.message.toStdString();
    EXPECT_EQ(document->documentElement().attribute("name"), name);
}

TEST_P(EncodingTest, CountsMoreThanTheDeclaredOne)
{
    EXPECT_NE(read(GetParam().encode("<?xml version='1.0' encoding='iso-8859-1'?><a/>")), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Marks, EncodingTest, ::testing::ValuesIn(s_encodings),
                         [](const auto& test) { return std::string(test.param.name); });

class BadEncodingTest : public ReadFileTest, public ::testing::WithParamInterface<Verdict> {};

TEST_P(BadEncodingTest, IsRefused)
{
    EXPECT_EQ(read(bytesOf(GetParam().bytes)), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, BadEncodingTest,
    ::testing::Values(Verdict{"Latin1", "<a>\xE9</a>"}, Verdict{"CutSequence", "<a>\xE2\x82</a>"},
                      Verdict{"CutAtTheEnd", "<a/><!---->\xE2\x82"},
                      Verdict{"Overlong", "<a>\xC0\xBC</a>"},
                      Verdict{"OverlongZero", "<a>\xC0\x80</a>"},
                      Verdict{"Surrogate", "<a>\xED\xA0\x80</a>"},
                      Verdict{"SurrogatePair", "<a>\xED\xA0\xBD\xED\xB8\x80</a>"},
                      Verdict{"BeyondUnicode", "<a>\xF4\x90\x80\x80</a>"},
                      Verdict{"BesideAReplacementCharacter", "<a>\xEF\xBF\xBD\xFF</a>"},
                      Verdict{"Utf16WithoutMark", "<\0a\0/\0>\0"s},
                      Verdict{"Utf16OddLength", "\xFF\xFE<\0a\0/\0>\0\0"s},
                      Verdict{"Utf16HighSurrogateAlone", "\xFF\xFE<\0a\0>\0\x3D\xD8<\0/\0a\0>\0"s},
                      Verdict{"Utf16LowSurrogateAlone", "\xFF\xFE<\0a\0>\0\x00\xDE<\0/\0a\0>\0"s},
                      Verdict{"Utf32Surrogate", "\xFF\xFE\0\0<\0\0\0a\0\0\0>\0\0\0\0\xD8\0\0"s},
                      Verdict{"Utf32OddLength", "\xFF\xFE\0\0<\0\0\0a\0\0\0/\0\0\0>\0\0\0\0"s}),
    nameOf);

TEST_F(ReadFileTest, NamesTheLineOfBytesThatStandForNoCharacter)
{
    read("<a>\n  \xE2\x82\xAC\xEF\xBF\xBD\xFF</a>");

    EXPECT_EQ(m_error.line, 2);
    EXPECT_EQ(m_error.column, 5);
}

// What the document is

/// A text and the text of the document that is read from it.
struct Meaning {
    const char* name;
    const char* text;
    const char* expected;
};

void PrintTo(const Meaning& meaning, std::ostream* out)
{
    *out << meaning.name;
}

/// As xmlOf(), and CDATA sections, references and the text of each node can be told apart.
QString treeOf(const QDomNode& node)
{
    QString text;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        switch (child.nodeType()) {
        case QDomNode::ElementNode: {
            QStringList attributes;
            for (int i = 0; i < child.attributes().count(); ++i) {
                const QDomNode attribute = child.attributes().item(i);
                attributes
                    << QStringLiteral(" %1=[%2]").arg(attribute.nodeName(), attribute.nodeValue());
            }
            attributes.sort();
            text += child.nodeName() + attributes.join(QString()) + '{' + treeOf(child) + '}';
            break;
        }
        case QDomNode::TextNode:
            text += '[' + child.nodeValue() + ']';
            break;
        default:
            text += child.nodeName() + '[' + child.nodeValue() + ']';
            break;
        }
    }
    for (const char c : {'\n', '\r', '\t'})
        text.replace(QLatin1Char(c), QStringLiteral("\\%1").arg(int(c)));
    return text;
}

class MeaningTest : public ReadFileTest, public ::testing::WithParamInterface<Meaning> {};

TEST_P(MeaningTest, IsTheSameInAFile)
{
    const Document document = read(GetParam().text);

    ASSERT_NE(document, nullptr) << m_error.message.toStdString();
    EXPECT_EQ(treeOf(*document), QString::fromUtf8(GetParam().expected));
}

TEST_P(MeaningTest, IsTheSameInAString)
{
    const Document document = parseText(QString::fromUtf8(GetParam().text));

    ASSERT_NE(document, nullptr);
    EXPECT_EQ(treeOf(*document), QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Text, MeaningTest,
    ::testing::Values(
        Meaning{"Text", "<a> x </a>", "a{[ x ]}"},
        Meaning{"MixedText", "<a>x<b/> y<!--c-->z</a>", "a{[x]b{}[ y]#comment[c][z]}"},
        Meaning{"LayoutIsLeftOut", "<a> <b/>\t<!--c-->\n<?p?> &#32;\n<b/>\t</a>",
                "a{b{}#comment[c]p[]b{}}"},
        Meaning{"BlanksBesideInkedTextAreNone", "<a> x <b/> <!--c-->y </a>",
                "a{[ x ]b{}#comment[c][y ]}"},
        Meaning{"OnlyContent", "<a><b> </b><c>\n\t</c></a>", "a{b{[ ]}c{[\\10\\9]}}"},
        Meaning{"OnlyContentFromReferences", "<a><b>&#32;</b><c>&#13;&#xA;&#9;</c></a>",
                "a{b{[ ]}c{[\\13\\10\\9]}}"},
        Meaning{"BlanksBesideCdata", "<a><![CDATA[one]]> <![CDATA[two]]>\n<b/> <![CDATA[]]></a>",
                "a{#cdata-section[one][ ]#cdata-section[two][\\10]b{}[ ]#cdata-section[]}"},
        Meaning{"BlanksBetweenCdataAndTags", "<a> <![CDATA[x]]> </a>",
                "a{[ ]#cdata-section[x][ ]}"},
        Meaning{"BlanksBehindAComment", "<a><b> <!--c--> </b></a>", "a{b{#comment[c]}}"},
        Meaning{"PreservedSpace", "<a xml:space='preserve'> <b>\n<c/> </b>\n</a>",
                "a xml:space=[preserve]{[ ]b{[\\10]c{}[ ]}[\\10]}"},
        Meaning{"PreservedSpaceUntilDefault",
                "<a> <b xml:space='preserve'> <c xml:space='default'> <d/> </c> <e/></b> </a>",
                "a{b xml:space=[preserve]{[ ]c xml:space=[default]{d{}}[ ]e{}}}"},
        Meaning{"SpaceOfNoMeaning", "<a xml:space='preserve'> <b xml:space='x'> <c/></b></a>",
                "a xml:space=[preserve]{[ ]b xml:space=[x]{[ ]c{}}}"},
        Meaning{"PreservedCarriageReturn", "<a xml:space='preserve'>&#13;<b/></a>",
                "a xml:space=[preserve]{[\\13]b{}}"},
        Meaning{"OtherSpacesAreNot", "<a>\xC2\xA0</a>", "a{[\xC2\xA0]}"},
        Meaning{"OtherSpacesFromReferencesAreNot", "<a> &#x3000;<b/></a>", "a{[ \xE3\x80\x80]b{}}"},
        Meaning{"NoncharacterBesideOtherSpaces",
                "<a>\xC2\xA0<b/>\xEF\xB7\x90<![CDATA[\xEF\xB7\x90]]></a>",
                "a{[\xC2\xA0]b{}[\xEF\xB7\x90]#cdata-section[\xEF\xB7\x90]}"},
        Meaning{"LineEnds", "<a>1\r\n2\r3\n4\r\r\n5</a>", "a{[1\\102\\103\\104\\10\\105]}"},
        Meaning{"LineEndsFromReferences", "<a>1&#13;&#10;2&#xD;</a>", "a{[1\\13\\102\\13]}"},
        Meaning{"Cdata", "<a>x<![CDATA[<&>]]>y</a>", "a{[x]#cdata-section[<&>][y]}"},
        Meaning{"EmptyCdata", "<a><![CDATA[]]></a>", "a{#cdata-section[]}"},
        Meaning{"CdataOfSpaces", "<a>x<![CDATA[ \n]]></a>", "a{[x]#cdata-section[ \\10]}"},
        Meaning{"Instruction", "<?p  d ?><a><?q?></a>", "p[d ]a{q[]}"}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Values, MeaningTest,
    ::testing::Values(
        Meaning{"WhiteSpaceBecomesBlanks", "<a b='1\t2\n3\r\n4\r5'/>", "a b=[1 2 3 4 5]{}"},
        Meaning{"WhiteSpaceFromReferencesStays", "<a b='&#9;&#10;&#13;'/>", "a b=[\\9\\10\\13]{}"},
        Meaning{"References", "<a b='&lt;&amp;&quot;&#x41;'/>", "a b=[<&\"A]{}"}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Declarations, MeaningTest,
    ::testing::Values(Meaning{"Version", "<?xml version='1.0'?><a/>", "xml[version=\"1.0\"]a{}"},
                      Meaning{"All",
                              "<?xml  version = '1.0'\tencoding='UTF-8' standalone='no' ?><a/>",
                              "xml[version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"]a{}"},
                      Meaning{"OtherEncoding",
                              "<?xml version='1.0' encoding='latin1'?><!--c--><a/>",
                              "xml[version=\"1.0\" encoding=\"utf-8\"]#comment[c]a{}"}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Entities, MeaningTest,
    ::testing::Values(
        Meaning{"InContent", "<!DOCTYPE a SYSTEM 'x'><a>1&e;2&amp;</a>", "a{[1]e[][2&]}"},
        Meaning{"BlanksBesideThem", "<!DOCTYPE a SYSTEM 'x'><a>&e; &f;\n<b/></a>",
                "a{e[][ ]f[][\\10]b{}}"},
        Meaning{"InAValue", "<!DOCTYPE a SYSTEM 'x'><a b='1&e;&amp;2'/>", "a b=[1&e;&2]{}"},
        Meaning{"WithAColon", "<!DOCTYPE a SYSTEM 'x'><a>&e:f;</a>", "a{e:f[]}"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(ReadFileTest, KeepsTheDocumentTypeAndWhatStandsAroundIt)
{
    const Document document = read("<?xml version='1.0'?><!--c--><?p?>"
                                   "<!DOCTYPE p:a PUBLIC '-//X' '?x=1&y=<2'><!--d--><p:a/>");

    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->doctype().name(), "p:a");
    EXPECT_EQ(document->doctype().publicId(), "-//X");
    EXPECT_EQ(document->doctype().systemId(), "?x=1&y=<2");
    EXPECT_EQ(treeOf(*document), "xml[version=\"1.0\"]#comment[c]p[]#comment[d]p:a{}");
}

TEST_F(ReadFileTest, KeepsCharactersThatAHostAskedQtToDrop)
{
    const QString text = QStringLiteral("<a b='\U0001F600'>\U0001F600<!--\U0001F600--></a>");
    for (const auto policy :
         {QDomImplementation::DropInvalidChars, QDomImplementation::ReturnNullNode}) {
        QDomImplementation::setInvalidDataPolicy(policy);
        const Document fromFile = read(text.toUtf8());
        const Document fromText = parseText(text);
        const auto after = QDomImplementation::invalidDataPolicy();
        QDomImplementation::setInvalidDataPolicy(QDomImplementation::AcceptInvalidChars);

        const QString expected =
            QStringLiteral("a b=[\U0001F600]{[\U0001F600]#comment[\U0001F600]}");
        EXPECT_EQ(treeOf(*fromFile), expected);
        EXPECT_EQ(treeOf(*fromText), expected);
        EXPECT_EQ(after, policy);
    }
}

// Namespaces

/// "prefix|local name|namespace", and "plain name" for what has no meaning to namespaces.
QString namespaceOf(const QDomNode& node)
{
    return node.localName().isNull()
               ? QLatin1String("plain ") + node.nodeName()
               : node.prefix() + '|' + node.localName() + '|' + node.namespaceURI();
}

/// Those of the elements with their attributes, in order.
QStringList namespacesOf(const QDomElement& element)
{
    QStringList names{namespaceOf(element)};
    QStringList attributes;
    for (int i = 0; i < element.attributes().count(); ++i)
        attributes << '@' + namespaceOf(element.attributes().item(i));
    attributes.sort();
    names += attributes;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        names += namespacesOf(child);
    return names;
}

struct Naming {
    const char* name;
    const char* text;
    QStringList expected;
};

void PrintTo(const Naming& naming, std::ostream* out)
{
    *out << naming.name;
}

class NamingTest : public ReadFileTest, public ::testing::WithParamInterface<Naming> {};

TEST_P(NamingTest, IsKnownInAFile)
{
    const Document document = read(GetParam().text);

    ASSERT_NE(document, nullptr) << m_error.message.toStdString();
    EXPECT_EQ(namespacesOf(document->documentElement()), GetParam().expected);
}

TEST_P(NamingTest, IsPlainInAString)
{
    const Document document = parseText(GetParam().text);

    ASSERT_NE(document, nullptr);
    for (const QString& name : namespacesOf(document->documentElement()))
        EXPECT_TRUE(name.startsWith("plain ") || name.startsWith("@plain ")) << name.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Documents, NamingTest,
    ::testing::Values(
        Naming{"None", "<a b=''/>", {"|a|", "@|b|"}},
        Naming{"Default",
               "<a xmlns='u' b=''><c/><d xmlns='v'/><e xmlns=''/><f/></a>",
               {"|a|u", "@|b|", "@|xmlns|", "|c|u", "|d|v", "@|xmlns|", "|e|", "@|xmlns|", "|f|u"}},
        Naming{"Prefix",
               "<p:a xmlns:p='u' p:b=''><p:c xmlns:p='v'/><p:d/></p:a>",
               {"p|a|u", "@plain xmlns:p", "@p|b|u", "p|c|v", "@plain xmlns:p", "p|d|u"}},
        Naming{"ValueOfADeclaration",
               "<p:a xmlns:p='u&amp;&#x9;v\tw'/>",
               {"p|a|u&\tv w", "@plain xmlns:p"}},
        Naming{"Xml",
               "<a xml:space='default'/>",
               {"|a|", "@xml|space|http://www.w3.org/XML/1998/namespace"}},
        Naming{"Undeclared", "<p:a q:b=''/>", {"plain p:a", "@plain q:b"}},
        Naming{"OutOfScope",
               "<a><b xmlns:p='u'/><p:c/></a>",
               {"|a|", "|b|", "@plain xmlns:p", "plain p:c"}},
        Naming{"Undone",
               "<a xmlns:p='u'><p:b xmlns:p=''/><p:c/></a>",
               {"|a|", "@plain xmlns:p", "plain p:b", "@plain xmlns:p", "p|c|u"}},
        Naming{"ColonsOfNoMeaning",
               "<a xmlns:p='u' p:b:c='' :p='' p:='' p:1=''/>",
               {"|a|", "@plain :p", "@plain p:", "@plain p:1", "@plain p:b:c", "@plain xmlns:p"}},
        Naming{"SameNameTwice",
               "<a xmlns:p='u' xmlns:q='u' p:b='1' q:b='2'/>",
               {"|a|", "@plain q:b", "@plain xmlns:p", "@plain xmlns:q", "@p|b|u"}},
        Naming{"PrefixOfDeclarations",
               "<xmlns:a xmlns:xmlns='u' xmlns:p='v'/>",
               {"plain xmlns:a", "@plain xmlns:p", "@plain xmlns:xmlns"}},
        Naming{
            "ReservedPrefixes",
            "<xmlns:a xmlns:xml='u' xml:b=''/>",
            {"plain xmlns:a", "@plain xmlns:xml", "@xml|b|http://www.w3.org/XML/1998/namespace"}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(ReadFileTest, FindsTheAttributeWithoutPrefixByItsName)
{
    for (const char* attributes : {"name='own' p:name='other'", "p:name='other' name='own'"}) {
        const Document document = read(QByteArray("<a xmlns:p='u' ") + attributes + "/>");

        ASSERT_NE(document, nullptr);
        EXPECT_EQ(document->documentElement().attribute("name"), "own");
        EXPECT_EQ(document->documentElement().attributeNS("u", "name"), "other");
    }
}

TEST_F(ReadFileTest, ReadsAFileWithANonAsciiName)
{
    const QString name = path(QStringLiteral("\u00e9t\u00e9 \u4e2d.xml"));
    writeFile(name, "<a/>");

    EXPECT_NE(Document(ReadXmlDocument(name)), nullptr);
}

TEST_F(ReadFileTest, RefusesTwoByteOrderMarks)
{
    for (const char* mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
        const QByteArray unit = QByteArray(mark) == "\xFE\xFF" ? QByteArray("\0", 1) : QByteArray();
        QByteArray bytes = QByteArray(mark) + mark;
        for (const char c : {'<', 'a', '/', '>'}) {
            bytes += unit + c;
            if (QByteArray(mark) == "\xFF\xFE")
                bytes += '\0';
        }
        EXPECT_EQ(read(bytes), nullptr) << bytes.toHex().toStdString();
        EXPECT_NE(read(bytes.mid(static_cast<int>(qstrlen(mark)))), nullptr);
    }
}

TEST_F(ReadFileTest, LeavesAWellFormedFileAsItIs)
{
    const QByteArray bytes = "\xEF\xBB\xBF<?xml version='1.0'?>\r\n<a  b = '1'/>\r\n";
    read(bytes);

    EXPECT_EQ(readFile(path()), bytes);
}

// Bounds

QString nested(int levels)
{
    return QStringLiteral("<a>").repeated(levels) + QStringLiteral("</a>").repeated(levels);
}

TEST(ReadingBoundsTest, TakesTheDeepestNesting)
{
    EXPECT_NE(parseText(nested(MaxNestingDepth)), nullptr);
}

TEST(ReadingBoundsTest, RefusesADeeperNesting)
{
    EXPECT_EQ(parseText(nested(MaxNestingDepth + 1)), nullptr);
}

TEST(ReadingBoundsTest, CountsNoLevelsInCommentsAndSections)
{
    const QString tags = nested(MaxNestingDepth);

    EXPECT_NE(parseText("<a b='&lt;a>'><!--" + tags + "--><![CDATA[" + tags + "]]><?p " + tags +
                        "?></a>"),
              nullptr);
}

TEST(ReadingBoundsTest, RefusesAMillionLevelsAtOnce)
{
    EXPECT_EQ(parseText(nested(1000000)), nullptr);
}

QString withAttributes(int count, const char* quotes)
{
    QString text = QStringLiteral("<a");
    for (int i = 0; i < count; ++i)
        text += QStringLiteral(" b%1=").arg(i) + QLatin1String(quotes);
    return text + QStringLiteral("/>");
}

TEST(ReadingBoundsTest, TakesTheMostAttributes)
{
    EXPECT_NE(parseText(withAttributes(MaxAttributes, "''")), nullptr);
    EXPECT_NE(parseText(withAttributes(MaxAttributes, "\"\"")), nullptr);
}

TEST(ReadingBoundsTest, RefusesMoreAttributes)
{
    EXPECT_EQ(parseText(withAttributes(MaxAttributes + 1, "''")), nullptr);
    EXPECT_EQ(parseText(withAttributes(MaxAttributes + 1, "\"\"")), nullptr);
}

TEST(ReadingBoundsTest, TakesTheLongestName)
{
    const QString name(MaxNameLength, QLatin1Char('n'));

    EXPECT_NE(parseText(QStringLiteral("<%1 %1=''/>").arg(name)), nullptr);
    EXPECT_NE(parseText(QStringLiteral("<%1 %1=\"\"/>").arg(name)), nullptr);
}

TEST(ReadingBoundsTest, RefusesALongerName)
{
    const QString name(MaxNameLength + 1, QLatin1Char('n'));

    EXPECT_EQ(parseText(QStringLiteral("<a %1=''/>").arg(name)), nullptr);
    EXPECT_EQ(parseText(QStringLiteral("<a %1=\"\"/>").arg(name)), nullptr);
}

TEST(ReadingBoundsTest, AreGenerousAboutTheInput)
{
    EXPECT_EQ(GetMaxInputSize(), qint64(512) * 1024 * 1024);
}

TEST_F(ReadFileTest, TakesAFileOfTheLargestSize)
{
    const InputSizeBound bound(4);

    EXPECT_NE(read("<a/>"), nullptr);
}

TEST_F(ReadFileTest, RefusesALargerFile)
{
    const InputSizeBound bound(3);

    EXPECT_EQ(read("<a/>"), nullptr);
    EXPECT_EQ(m_error.message, QString("The input is larger than 3"));
}

TEST(ReadingBoundsTest, RefusesALargerString)
{
    const InputSizeBound bound(3);

    EXPECT_EQ(parseText("<a/>"), nullptr);
}

/// Sets the bound for as long as it lives.
class MemoryBound {
public:
    explicit MemoryBound(qint64 bytes)
    {
        SetMaxDocumentMemory(bytes);
    }
    ~MemoryBound()
    {
        SetMaxDocumentMemory(DefaultMaxDocumentMemory);
    }
    MemoryBound(const MemoryBound&) = delete;
    MemoryBound& operator=(const MemoryBound&) = delete;
};

/// The smallest bound within which the text is read.
qint64 memoryOf(const QString& text)
{
    qint64 tooLittle = -1;
    qint64 enough = qint64(1) << 40;
    while (enough - tooLittle > 1) {
        const qint64 middle = (tooLittle + enough) / 2;
        const MemoryBound bound(middle);
        (parseText(text) ? enough : tooLittle) = middle;
    }
    return enough;
}

struct Cost {
    const char* name;
    QString piece;
    qint64 atLeast;
};

void PrintTo(const Cost& cost, std::ostream* out)
{
    *out << cost.name;
}

class MemoryBoundTest : public ::testing::TestWithParam<Cost> {};

TEST_P(MemoryBoundTest, CountsEachOfThem)
{
    const QString text = QStringLiteral("<!DOCTYPE a SYSTEM 'x'><a>%1</a>");
    const qint64 none = memoryOf(text.arg(QString()));
    const qint64 one = memoryOf(text.arg(GetParam().piece)) - none;

    EXPECT_GE(one, GetParam().atLeast);
    EXPECT_EQ(memoryOf(text.arg(GetParam().piece.repeated(3))) - none, 3 * one);
}

INSTANTIATE_TEST_SUITE_P(
    Pieces, MemoryBoundTest,
    ::testing::Values(Cost{"Elements", "<b/>", 200}, Cost{"Attributes", "<b c='' d='' e=''/>", 900},
                      Cost{"LongNames", "<b" + QString(1000, 'x') + "/>", 2200},
                      Cost{"LongValues", "<b c='" + QString(1000, 'x') + "'/>", 2500},
                      Cost{"Texts", "x<b/>", 300}, Cost{"Blanks", "<b> </b>", 300},
                      Cost{"LongTexts", QString(1000, 'x') + "<b/>", 2300},
                      Cost{"Sections", "<![CDATA[]]>", 100}, Cost{"Comments", "<!---->", 100},
                      Cost{"Instructions", "<?p?>", 100}, Cost{"References", "&e;", 100}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(ReadFileTest, NamesThePlaceWhereADocumentPassesItsMemory)
{
    const MemoryBound bound(memoryOf("<a>\n<b/></a>"));
    read("<a>\n<b/></a>");
    EXPECT_EQ(m_error.message, QString());
    read("<a>\n<b/><c/></a>");

    EXPECT_TRUE(m_error.message.contains("memory")) << m_error.message.toStdString();
    EXPECT_EQ(m_error.line, 2);
}

TEST(ReadingBoundsTest, AreGenerousAboutMemory)
{
    EXPECT_EQ(GetMaxDocumentMemory(), qint64(sizeof(void*) == 8 ? 8 : 1) * 1024 * 1024 * 1024);
}

TEST(ReadingBoundsTest, LeaveNoMemoryBelowZero)
{
    const MemoryBound bound(-1);

    EXPECT_EQ(GetMaxDocumentMemory(), 0);
}

#ifdef Q_OS_LINUX
TEST(ReadingBoundsTest, RefusesAFileWithoutEnd)
{
    const InputSizeBound bound(10000000);

    EXPECT_EQ(Document(ReadXmlDocument("/dev/zero")), nullptr);
}
#endif

TEST(ReadingBoundsTest, CannotBeSetBelowZero)
{
    const InputSizeBound bound(-1);

    EXPECT_EQ(GetMaxInputSize(), 0);
}

TEST(ReadingBoundsTest, CannotBeSetBeyondWhatAStringHolds)
{
    const InputSizeBound bound(qint64(1) << 60);

    EXPECT_EQ(GetMaxInputSize(), 1000000000);
}

/// What a host does with a document, on a stack of 512 KB.
class SmallStack : public QThread {
public:
    explicit SmallStack(const QString& xml)
        : m_xml(xml)
    {
        setStackSize(512 * 1024);
        start();
        wait();
    }

protected:
    void run() override
    {
        RVOpenManager manager;
        ASSERT_EQ(manager.LoadSnapShotDocFromString(m_xml), 1);
        const Document document = parseText(m_xml);
        RVOpenNode root;
        root.SetDomNode(document->documentElement());
        EXPECT_EQ(materialise(root), MaxNestingDepth);
        QStringList textures;
        manager.FindRVOpenNodeTextures(&root, textures);
        manager.StripTexturePaths(&root);

        const std::unique_ptr<SnapShot> clone(
            manager.CreateInternalSnapShot(manager.GetCurrentSnapShot()));
        EXPECT_FALSE(clone->CreateSnapShotDocumentAsString().isEmpty());
        const QString text = manager.GetSnapShotDocumentAsString();
        EXPECT_NE(parseText(text), nullptr);

        QTemporaryDir folder;
        const QString path = folder.filePath("a.xml");
        EXPECT_TRUE(manager.SaveArchive(path, &root));
        EXPECT_NE(Document(ReadXmlDocument(path)), nullptr);
    }

private:
    /// Makes every object. The number of levels.
    static int materialise(RVOpenNode& root)
    {
        int levels = 1;
        int deepest = 1;
        RVOpenNode* node = &root;
        while (node) {
            if (RVOpenNode* const child = node->GetChild(1, 1)) {
                node = child;
                deepest = std::max(deepest, ++levels);
                continue;
            }
            while (node != &root && !node->GetNext(1)) {
                node = node->GetParent();
                --levels;
            }
            node = node == &root ? nullptr : node->GetNext(1);
        }
        return deepest;
    }

    QString m_xml;
};

class SmallStackTest : public ::testing::TestWithParam<const char*> {};

TEST_P(SmallStackTest, HoldsTheDeepestDocument)
{
    const QString name(GetParam());
    const int levels = MaxNestingDepth - 2;
    const QString xml = "<root><snapshot>" + ("<" + name + ">").repeated(levels) +
                        ("</" + name + ">").repeated(levels) + "</snapshot></root>";
    SmallStack host(xml);
}

INSTANTIATE_TEST_SUITE_P(Elements, SmallStackTest,
                         ::testing::Values("x", "snapshot", "snapshots", "materialRepository",
                                           "material", "colour", "diffuse", "dir", "background",
                                           "camera", "renderTargets", "param"),
                         [](const auto& test) { return std::string(test.param); });

// Errors

TEST_F(ReadFileTest, NamesFileLineAndColumnOfAnError)
{
    read("<a>\r\n  <b \xC3\xA9='1' c/>\n</a>");

    EXPECT_EQ(m_error.file, path());
    EXPECT_EQ(m_error.line, 2);
    EXPECT_EQ(m_error.column, 13);
    EXPECT_EQ(m_error.message, QString("The attribute \"c\" has no value"));
}

TEST_F(ReadFileTest, NamesThePlaceOfAnInternalSubset)
{
    read("<!DOCTYPE a\n  [<!ENTITY e 'x'>]><a/>");

    EXPECT_EQ(m_error.line, 2);
    EXPECT_EQ(m_error.column, 3);
    EXPECT_TRUE(m_error.message.contains("internal subset")) << m_error.message.toStdString();
}

TEST_F(ReadFileTest, NamesNoPlaceForAMissingFile)
{
    EXPECT_EQ(Document(ReadXmlDocument(path("missing.xml"), &m_error)), nullptr);
    EXPECT_EQ(m_error.file, path("missing.xml"));
    EXPECT_NE(m_error.message, QString());
    EXPECT_EQ(m_error.line, 0);
    EXPECT_EQ(m_error.column, 0);
}

class UnreadablePathTest : public ::testing::TestWithParam<QString> {};

TEST_P(UnreadablePathTest, IsAnError)
{
    ReadError error;

    EXPECT_EQ(Document(ReadXmlDocument(GetParam(), &error)), nullptr);
    EXPECT_NE(error.message, QString());
}

INSTANTIATE_TEST_SUITE_P(Paths, UnreadablePathTest,
                         ::testing::Values(QString(), QDir::tempPath(),
                                           QStringLiteral("/dev/null") + QChar(0)));

TEST_F(ReadFileTest, LeavesNoErrorWhenItSucceeds)
{
    read("<a>");
    ReadError error = m_error;

    Document(ReadXmlDocument(path("missing.xml"), &error));
    read("<a/>");
    error = LastReadError();
    EXPECT_EQ(error.file + error.message, QString());
    EXPECT_EQ(error.line, 0);
}

TEST_F(ReadFileTest, RemembersTheErrorOfALoad)
{
    writeFile(path(), "<a>\n<b></a>");
    RVOpenManager manager;

    EXPECT_EQ(manager.LoadSnapShotDocFromFile(path()), 0);
    EXPECT_EQ(LastReadError().file, path());
    EXPECT_EQ(LastReadError().line, 2);
}

TEST_F(ReadFileTest, RemembersTheErrorOfAnArchive)
{
    writeFile(path(), "<a");

    EXPECT_EQ(GetDirectoryHandler()->LoadArchive(path()), nullptr);
    EXPECT_EQ(LastReadError().file, path());
}

TEST(ParseTest, RemembersTheErrorOfAString)
{
    RVOpenManager manager;

    EXPECT_EQ(manager.LoadSnapShotDocFromString("<a>\n<b></a>"), 0);
    EXPECT_EQ(LastReadError().file, QString());
    EXPECT_EQ(LastReadError().line, 2);
}

TEST(ParseTest, TakesAStringWithAByteOrderMark)
{
    EXPECT_NE(parseText(QChar(0xFEFF) + QStringLiteral("<?xml version='1.0'?><a/>")), nullptr);
}

TEST(ParseTest, RefusesAStringWithTwoByteOrderMarks)
{
    EXPECT_EQ(parseText(QString(2, QChar(0xFEFF)) + QStringLiteral("<a/>")), nullptr);
}

TEST(ParseTest, RefusesHalfOfASurrogatePair)
{
    EXPECT_EQ(parseText(QStringLiteral("<a>") + QChar(0xD83D) + QStringLiteral("</a>")), nullptr);
    EXPECT_EQ(parseText(QStringLiteral("<a b='") + QChar(0xDE00) + QStringLiteral("'/>")), nullptr);
}

} // namespace
} // namespace rvopen::test

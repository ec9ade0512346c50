// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ManagerSupport.h"

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/SnapShot.h>
#include <rvopen/XMLUtils.h>

#include <QThread>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

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
        Verdict{"InternalSubset", "<!DOCTYPE a [<!-- ]> --><?p ]>?>\n"
                                  "<!ELEMENT a (b|(c,d*)+)?><!ELEMENT b (#PCDATA|c)*>\n"
                                  "<!ELEMENT c EMPTY><!ATTLIST a x (p|q) 'p' y CDATA #IMPLIED\n"
                                  " z NOTATION (n) #REQUIRED w NMTOKENS #FIXED \"1 2\">\n"
                                  "<!NOTATION n PUBLIC 'n'><!ENTITY g SYSTEM 'g' NDATA n>\n"
                                  "<!ENTITY % e '<!ENTITY f \"x\">'>%e;]><a>&f;</a>"},
        Verdict{"MarkupInEntities", "<!DOCTYPE a [<!ENTITY e '<b>&f;</b>'>"
                                    "<!ENTITY f '<c/>&#38;amp;'>]><a>&e;&e;</a>"},
        Verdict{"QuoteInEntity", "<!DOCTYPE a [<!ENTITY e '\"&#39;'>]><a b=\"&e;\" c='&e;'/>"},
        Verdict{"UnusedBadEntity", "<!DOCTYPE a [<!ENTITY e '<b>'><!ENTITY f '&f;'>]><a/>"}),
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

INSTANTIATE_TEST_SUITE_P(
    Names, MalformedTest,
    ::testing::Values(Verdict{"DigitFirst", "<1a/>"}, Verdict{"HyphenFirst", "<-a/>"},
                      Verdict{"DotFirst", "<a .b=''/>"}, Verdict{"Plus", "<a+b/>"},
                      Verdict{"MultiplicationSign", "<a\xC3\x97/>"},
                      Verdict{"CombiningFirst", "<\xCC\x80/>"},
                      Verdict{"NonBasicPlane", "<a\xF0\x90\x80\x80/>"},
                      Verdict{"ReplacementCharacter", "<a \xEF\xBF\xBD=''/>"},
                      Verdict{"ColonFirst", "<:a/>"}, Verdict{"ColonLast", "<a b:=''/>"},
                      Verdict{"TwoColons", "<a:b:c xmlns:a='u'/>"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Characters, MalformedTest,
                         ::testing::Values(Verdict{"ControlInText", "<a>\x01</a>"},
                                           Verdict{"ControlInValue", "<a b='\x1F'/>"},
                                           Verdict{"ControlInComment", "<a/><!-- \x0B -->"},
                                           Verdict{"ControlInCdata", "<a><![CDATA[\x08]]></a>"},
                                           Verdict{"ControlInInstruction", "<?p \x02?><a/>"},
                                           Verdict{"Zero", "<a>\0</a>"s},
                                           Verdict{"NonCharacter", "<a>\xEF\xBF\xBE</a>"},
                                           Verdict{"NonCharacterInValue", "<a b='\xEF\xBF\xBF'/>"},
                                           Verdict{"ReferenceToZero", "<a>&#0;</a>"},
                                           Verdict{"ReferenceToControl", "<a>&#x1;</a>"},
                                           Verdict{"ReferenceToSurrogate", "<a>&#xD800;</a>"},
                                           Verdict{"ReferenceToNonCharacter", "<a b='&#xFFFE;'/>"},
                                           Verdict{"ReferenceBeyondUnicode", "<a>&#x110000;</a>"},
                                           Verdict{"ReferenceOverflowing", "<a>&#x100000041;</a>"},
                                           Verdict{"EmptyReference", "<a>&#;</a>"},
                                           Verdict{"UpperCaseX", "<a>&#X41;</a>"},
                                           Verdict{"NoSemicolon", "<a>&lt</a>"},
                                           Verdict{"LoneAmpersand", "<a>& </a>"},
                                           Verdict{"CdataEndInText", "<a>]]></a>"}),
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
                                           Verdict{"InstructionWithColon", "<?p:q?><a/>"},
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
        Verdict{"CutSubset", "<!DOCTYPE a [<!ENTITY e 'x'>"},
        Verdict{"TextInSubset", "<!DOCTYPE a [x]><a/>"},
        Verdict{"ConditionalSection", "<!DOCTYPE a [<![INCLUDE[]]>]><a/>"},
        Verdict{"BadContentModel", "<!DOCTYPE a [<!ELEMENT a (b,c|d)>]><a/>"},
        Verdict{"BadAttributeType", "<!DOCTYPE a [<!ATTLIST a b TEXT #IMPLIED>]><a/>"},
        Verdict{"BadDefault", "<!DOCTYPE a [<!ATTLIST a b CDATA '<'>]><a/>"},
        Verdict{"ParameterEntityInDeclaration",
                "<!DOCTYPE a [<!ENTITY % p 'x'><!ENTITY e '%p;'>]><a/>"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Entities, MalformedTest,
    ::testing::Values(
        Verdict{"Undeclared", "<a>&e;</a>"}, Verdict{"UndeclaredInValue", "<a b='&e;'/>"},
        Verdict{"UndeclaredBesideOthers", "<!DOCTYPE a [<!ENTITY f 'x'>]><a>&e;</a>"},
        Verdict{"UndeclaredThoughStandalone",
                "<?xml version='1.0' standalone='yes'?><!DOCTYPE a SYSTEM 'x'><a>&e;</a>"},
        Verdict{"UndeclaredInDefault",
                "<!DOCTYPE a [<!ATTLIST a b CDATA '&e;'><!ENTITY e 'x'>]><a/>"},
        Verdict{"Circular", "<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a>&e;</a>"},
        Verdict{"StartTagOnly", "<!DOCTYPE a [<!ENTITY e '<b>'>]><a>&e;</b></a>"},
        Verdict{"EndTagOnly", "<!DOCTYPE a [<!ENTITY e '</b>'>]><a><b>&e;</a>"},
        Verdict{"HalfATag", "<!DOCTYPE a [<!ENTITY e '<b '>]><a>&e;/></a>"},
        Verdict{"HalfAReference", "<!DOCTYPE a [<!ENTITY e '&#38;'>]><a>&e;lt;</a>"},
        Verdict{"MarkupInValue", "<!DOCTYPE a [<!ENTITY e '<b/>'>]><a b='&e;'/>"},
        Verdict{"ExternalInValue", "<!DOCTYPE a [<!ENTITY e SYSTEM 'x'>]><a b='&e;'/>"},
        Verdict{"Unparsed",
                "<!DOCTYPE a [<!NOTATION n SYSTEM 'n'><!ENTITY e SYSTEM 'x' NDATA n>]><a>&e;</a>"}),
    nameOf);

// Namespaces

/// Refused where namespaces are processed, which is in files.
class NamespaceErrorTest : public ReadFileTest, public ::testing::WithParamInterface<Verdict> {};

TEST_P(NamespaceErrorTest, IsRefusedInAFile)
{
    EXPECT_EQ(read(bytesOf(GetParam().bytes)), nullptr);
}

TEST_P(NamespaceErrorTest, IsReadFromAString)
{
    EXPECT_NE(parseText(QString::fromStdString(GetParam().bytes)), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, NamespaceErrorTest,
    ::testing::Values(Verdict{"PrefixOfElement", "<p:a/>"},
                      Verdict{"PrefixOfAttribute", "<a p:b=''/>"},
                      Verdict{"PrefixOutOfScope", "<a><b xmlns:p='u'/><p:c/></a>"},
                      Verdict{"SameAttributeTwice", "<a xmlns:p='u' xmlns:q='u' p:b='' q:b=''/>"},
                      Verdict{"PrefixOfNothing", "<a xmlns:p=''/>"},
                      Verdict{"ReservedPrefix", "<a xmlns:xml='u'/>"}),
    nameOf);

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
        Meaning{"WhiteSpaceIsLeftOut", "<a> <b> &#32;\n</b>\t</a>", "a{b{}}"},
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
        Meaning{"Text", "<!DOCTYPE a [<!ENTITY e 'x &#38;lt; y'>]><a b='&e;'>1&e;2</a>",
                "a b=[x < y]{[1x < y2]}"},
        Meaning{"Markup", "<!DOCTYPE a [<!ENTITY e 'x<b/>&#60;c/>'>]><a>1&e;2</a>",
                "a{[1x]b{}c{}[2]}"},
        Meaning{"Nested", "<!DOCTYPE a [<!ENTITY e '(&f;)'><!ENTITY f '&#38;#38;'>]><a>&e;</a>",
                "a{[(&)]}"},
        Meaning{"FirstDeclarationCounts", "<!DOCTYPE a [<!ENTITY e '1'><!ENTITY e '2'>]><a>&e;</a>",
                "a{[1]}"},
        Meaning{"Quotes", "<!DOCTYPE a [<!ENTITY e '\"&#39;'>]><a b=\"&e;\" c='&e;'/>",
                "a b=[\"'] c=[\"']{}"},
        Meaning{"LineEnds", "<!DOCTYPE a [<!ENTITY e '1&#13;2&#10;3'>]><a b='&e;'>&e;</a>",
                "a b=[1 2 3]{[1\\132\\103]}"},
        Meaning{"Brackets", "<!DOCTYPE a [<!ENTITY e ']]'><!ENTITY f '&#62;'>]><a>&e;&f;]&f;</a>",
                "a{[]]>]>]}"},
        Meaning{"SpacesOnly", "<!DOCTYPE a [<!ENTITY e ' &#160; '>]><a> &e; <b/></a>",
                "a{[  \xC2\xA0  ]b{}}"},
        Meaning{"FromParameterEntity",
                "<!DOCTYPE a [<!ENTITY % p '<!ENTITY e \"x\">'> %p;]><a>&e;</a>", "a{[x]}"},
        Meaning{"ExternalStays", "<!DOCTYPE a [<!ENTITY e SYSTEM 'x'>]><a>1&e;2</a>",
                "a{[1]e[][2]}"},
        Meaning{"UndeclaredWithExternalSubset", "<!DOCTYPE a SYSTEM 'x'><a>1&e;2</a>",
                "a{[1]e[][2]}"},
        Meaning{"DefaultValue", "<!DOCTYPE a [<!ENTITY e 'x'><!ATTLIST a b CDATA '&e;y'>]><a/>",
                "a b=[xy]{}"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(ReadFileTest, NumbersTheLinesOfElements)
{
    const Document document =
        read("<?xml version='1.0'?>\n<!DOCTYPE a [\n<!-- \n -->]>\n<a>\r\n<b/></a>");

    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->documentElement().firstChild().lineNumber(), 6);
}

TEST_F(ReadFileTest, ReadsAFileWithANonAsciiName)
{
    const QString name = path(QStringLiteral("\u00e9t\u00e9 \u4e2d.xml"));
    writeFile(name, "<a/>");

    EXPECT_NE(Document(ReadXmlDocument(name)), nullptr);
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

TEST(ReadingBoundsTest, CountsTheLevelsInEntities)
{
    const QString text = QStringLiteral("<!DOCTYPE a [<!ENTITY e '%1'>]><a>&e;</a>");

    EXPECT_NE(parseText(text.arg(nested(MaxNestingDepth - 1))), nullptr);
    EXPECT_EQ(parseText(text.arg(nested(MaxNestingDepth))), nullptr);
}

TEST(ReadingBoundsTest, RefusesAMillionLevelsAtOnce)
{
    EXPECT_EQ(parseText(nested(1000000)), nullptr);
}

QString withAttributes(int count)
{
    QString text = QStringLiteral("<a");
    for (int i = 0; i < count; ++i)
        text += QStringLiteral(" b%1=''").arg(i);
    return text + QStringLiteral("/>");
}

TEST(ReadingBoundsTest, TakesTheMostAttributes)
{
    EXPECT_NE(parseText(withAttributes(MaxAttributes)), nullptr);
}

TEST(ReadingBoundsTest, RefusesMoreAttributes)
{
    EXPECT_EQ(parseText(withAttributes(MaxAttributes + 1)), nullptr);
}

TEST(ReadingBoundsTest, TakesTheLongestName)
{
    const QString name(MaxNameLength, QLatin1Char('n'));

    EXPECT_NE(parseText(QStringLiteral("<%1 %1=''/>").arg(name)), nullptr);
}

TEST(ReadingBoundsTest, RefusesALongerName)
{
    const QString name(MaxNameLength + 1, QLatin1Char('n'));

    EXPECT_EQ(parseText(QStringLiteral("<a %1=''/>").arg(name)), nullptr);
}

/// One entity of \p size characters, referred to \p count times.
QString referring(qint64 size, int count)
{
    return QStringLiteral("<!DOCTYPE a [<!ENTITY e '%1'>]><a>%2</a>")
        .arg(QString(static_cast<int>(size), QLatin1Char('x')),
             QStringLiteral("&e;").repeated(count));
}

TEST(ReadingBoundsTest, TakesEntitiesUpToTheBound)
{
    EXPECT_NE(parseText(referring(MaxEntityExpansion / 1024 - 1, 1024)), nullptr);
}

TEST(ReadingBoundsTest, RefusesEntitiesBeyondTheBound)
{
    EXPECT_EQ(parseText(referring(MaxEntityExpansion / 1024 - 1, 1025)), nullptr);
}

TEST(ReadingBoundsTest, TakesEntitiesThatAtMostDoubleALargeText)
{
    EXPECT_NE(parseText(referring(2, 500000)), nullptr);
}

TEST(ReadingBoundsTest, RefusesManyReferencesToALargeEntity)
{
    EXPECT_EQ(parseText(referring(100000, 100000)), nullptr);
}

/// Each entity refers to the one before \p factor times; the first stands for \p text.
QString exponential(const QString& text, int factor)
{
    QString declarations = QStringLiteral("<!ENTITY e0 '%1'>").arg(text);
    for (int i = 1; i <= 40; ++i) {
        declarations += QStringLiteral("<!ENTITY e%1 '%2'>")
                            .arg(i)
                            .arg(QStringLiteral("&e%1;").arg(i - 1).repeated(factor));
    }
    return declarations;
}

TEST(ReadingBoundsTest, RefusesEntitiesThatGrowExponentially)
{
    EXPECT_EQ(parseText("<!DOCTYPE a [" + exponential("x", 10) + "]><a>&e40;</a>"), nullptr);
}

TEST(ReadingBoundsTest, RefusesThemInValues)
{
    EXPECT_EQ(parseText("<!DOCTYPE a [" + exponential("x", 10) + "]><a b='&e40;'/>"), nullptr);
}

TEST(ReadingBoundsTest, RefusesThemThoughTheyStandForNothing)
{
    EXPECT_EQ(parseText("<!DOCTYPE a [" + exponential("", 2) + "]><a>&e40;</a>"), nullptr);
}

TEST(ReadingBoundsTest, TakesThemWhenNothingRefersToThem)
{
    EXPECT_NE(parseText("<!DOCTYPE a [" + exponential("x", 10) + "]><a/>"), nullptr);
}

TEST(ReadingBoundsTest, RefusesDefaultsThatBlowUpManyTags)
{
    EXPECT_EQ(parseText("<!DOCTYPE a [<!ATTLIST b c CDATA '" + QString(1000, QLatin1Char('x')) +
                        "'>]><a>" + QStringLiteral("<b/>").repeated(2000) + "</a>"),
              nullptr);
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

TEST_F(ReadFileTest, NamesTheReferenceOfAnErrorInAnEntity)
{
    read("<!DOCTYPE a [<!ENTITY e '<b>\n\n'>]>\n\n<a>\n&e;</a>");

    EXPECT_EQ(m_error.line, 6);
}

TEST_F(ReadFileTest, NamesTheLineOfAnUndeclaredPrefix)
{
    read("<a>\n<p:b/></a>");

    EXPECT_EQ(m_error.line, 2);
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

TEST(ParseTest, RefusesHalfOfASurrogatePair)
{
    EXPECT_EQ(parseText(QStringLiteral("<a>") + QChar(0xD83D) + QStringLiteral("</a>")), nullptr);
    EXPECT_EQ(parseText(QStringLiteral("<a b='") + QChar(0xDE00) + QStringLiteral("'/>")), nullptr);
}

} // namespace
} // namespace rvopen::test

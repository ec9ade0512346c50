// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenScanner.h>

#include "FileSupport.h"

#include <rvopen/RVOpenLimits.h>

#include <QDomDocument>
#include <QStringList>
#include <QtEndian>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace rvopen::test {
namespace {

QString textOf(std::u16string_view view)
{
    return QString::fromUtf16(view.data(), static_cast<int>(view.size()));
}

/// What a scan tells, in lines, and the bytes of the file that each was told of.
class Told : public XmlScan {
public:
    explicit Told(const QByteArray& bytes = QByteArray())
        : m_bytes(bytes)
    {
    }

    QStringList lines;
    QList<QByteArray> places;

protected:
    void StartElement(std::u16string_view name,
                      const std::vector<ScannedAttribute>& attributes) override
    {
        QString line = '<' + textOf(name);
        for (const ScannedAttribute& attribute : attributes)
            line += ' ' + textOf(attribute.name) + '=' + attribute.Text();
        add(line);
    }
    void EndElement() override
    {
        add(">");
    }
    void Text(std::u16string_view text, bool isPlain) override
    {
        add((isPlain ? "'" : "&") + textOf(text));
    }

private:
    void add(const QString& line)
    {
        lines << line;
        places << m_bytes.mid(static_cast<int>(Offset()), static_cast<int>(EndOffset() - Offset()));
    }

    const QByteArray m_bytes;
};

class XmlScanTest : public ::testing::Test {
protected:
    QString path() const
    {
        return m_folder.filePath("a.rvx");
    }
    QString write(const QByteArray& bytes) const
    {
        writeFile(path(), bytes);
        return path();
    }

    QTemporaryDir m_folder;
};

/// "file:line:column: message" of an error.
QString lineOf(const ReadError& error)
{
    return QString("%1:%2:%3: %4")
        .arg(error.file)
        .arg(error.line)
        .arg(error.column)
        .arg(error.message);
}

/// What reading the file says, and what scanning it says.
void expectSameAnswer(const QString& path)
{
    ReadError read;
    const std::unique_ptr<QDomDocument> document(ReadXmlDocument(path, &read));
    ReadError scanned;
    Told told;
    EXPECT_EQ(told.ScanFile(path, &scanned), document != nullptr);
    EXPECT_EQ(lineOf(scanned), lineOf(read));
    EXPECT_EQ(lineOf(LastReadError()), lineOf(read));
}

const char* const s_everything =
    "<?xml version='1.0' encoding='utf-8'?>\r\n<!DOCTYPE a SYSTEM 'x'>\n<!-- c --><?p q?>"
    "<a b='1' c=\"&lt;&#x41;\r\n\">text<b/>\r<![CDATA[<&]]>&amp;&e; \xC3\xA4<c:d>&#10;</c:d >"
    "\xF0\x9F\x98\x80</a>\n<!-- z -->";

TEST_F(XmlScanTest, TellsOfElementsAndTextInTheirOrder)
{
    Told told;
    ASSERT_TRUE(told.ScanFile(write("<a b='1' c='x'>t<d/><![CDATA[<]]><e>&lt;</e></a>")));

    EXPECT_EQ(told.lines,
              QStringList({"<a b=1 c=x", "'t", "<d", ">", "'<", "<e", "&&lt;", ">", ">"}));
}

TEST_F(XmlScanTest, GivesValuesAsADocumentHasThem)
{
    write("<a b='&lt;&#x41;&#10;&quot;\r\n\t.' c='&#x1F600;'/>");
    Told told;
    ASSERT_TRUE(told.ScanFile(path()));
    const std::unique_ptr<QDomDocument> document(ReadXmlDocument(path()));
    const QDomElement root = document->documentElement();

    EXPECT_EQ(told.lines.first(), "<a b=" + root.attribute("b") + " c=" + root.attribute("c"));
}

TEST_F(XmlScanTest, TellsOfWhatStandsBeforeAnError)
{
    Told told;
    EXPECT_FALSE(told.ScanFile(write("<a><b/><c></a>")));

    EXPECT_EQ(told.lines, QStringList({"<a", "<b", ">", "<c"}));
}

// Where it stands

QList<QByteArray> encoded(const QStringList& texts, QByteArray (*encode)(const QString&))
{
    QList<QByteArray> result;
    for (const QString& text : texts)
        result << encode(text);
    return result;
}

QByteArray utf8(const QString& text)
{
    return text.toUtf8();
}

template <typename Unit, bool IsBigEndian>
QByteArray units(const QString& text)
{
    QByteArray bytes;
    const auto add = [&bytes](Unit unit) {
        const Unit stored = IsBigEndian ? qToBigEndian(unit) : qToLittleEndian(unit);
        bytes.append(reinterpret_cast<const char*>(&stored), sizeof stored);
    };
    if (sizeof(Unit) == 2) {
        for (const QChar c : text)
            add(static_cast<Unit>(c.unicode()));
    } else {
        for (const uint c : text.toUcs4())
            add(static_cast<Unit>(c));
    }
    return bytes;
}

struct Encoder {
    const char* name;
    QByteArray mark;
    QByteArray (*encode)(const QString&);
};

void PrintTo(const Encoder& encoder, std::ostream* out)
{
    *out << encoder.name;
}

std::string nameOf(const ::testing::TestParamInfo<Encoder>& info)
{
    return info.param.name;
}

class OffsetTest : public XmlScanTest, public ::testing::WithParamInterface<Encoder> {
protected:
    /// What the file is cut into, of which some parts are told of.
    QList<QByteArray> placesOf(const QStringList& parts)
    {
        const QByteArray bytes = GetParam().mark + GetParam().encode(parts.join(QString()));
        Told told(bytes);
        EXPECT_TRUE(told.ScanFile(write(bytes)));
        return told.places;
    }
};

TEST_P(OffsetTest, IsThatOfPlainText)
{
    EXPECT_EQ(placesOf({" ", "<a b='1'>", "xy", "<c/>", "</a >", "\n"}),
              encoded({"<a b='1'>", "xy", "<c/>", "", "</a >"}, GetParam().encode));
}

TEST_P(OffsetTest, IsThatBehindLineEndsOfAllKinds)
{
    EXPECT_EQ(placesOf({"\r\n\r\r\n", "<a\r\nb='\r'>", "\r\n.\r\r.\n\r\n", "<c\n/>", "\r", "</a>"}),
              encoded({"<a\r\nb='\r'>", "\r\n.\r\r.\n\r\n", "<c\n/>", "", "\r", "</a>"},
                      GetParam().encode));
}

TEST_P(OffsetTest, IsThatBehindCharactersOfAllLengths)
{
    const QString text = QString::fromUtf8("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80.");
    EXPECT_EQ(placesOf({"<!--" + text + "-->", "<a b='" + text + "'>", text, "<c/>", "</a>"}),
              encoded({"<a b='" + text + "'>", text, "<c/>", "", "</a>"}, GetParam().encode));
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, OffsetTest,
    ::testing::Values(Encoder{"Utf8", "", utf8}, Encoder{"Utf8Marked", "\xEF\xBB\xBF", utf8},
                      Encoder{"Utf16Little", "\xFF\xFE", units<quint16, false>},
                      Encoder{"Utf16Big", "\xFE\xFF", units<quint16, true>},
                      Encoder{"Utf32Little", QByteArray("\xFF\xFE\0\0", 4), units<quint32, false>},
                      Encoder{"Utf32Big", QByteArray("\0\0\xFE\xFF", 4), units<quint32, true>}),
    nameOf);

// What is refused

TEST_F(XmlScanTest, AnswersAsReadingDoesWhereverADocumentEnds)
{
    const QByteArray bytes(s_everything);
    for (int size = 0; size <= bytes.size() && !HasFailure(); ++size) {
        SCOPED_TRACE(size);
        expectSameAnswer(write(bytes.left(size)));
    }
}

TEST_F(XmlScanTest, AnswersAsReadingDoesWhicheverByteIsAnother)
{
    const QByteArray bytes(s_everything);
    for (int at = 0; at < bytes.size() && !HasFailure(); ++at) {
        SCOPED_TRACE(at);
        QByteArray changed = bytes;
        changed[at] = static_cast<char>(changed.at(at) ^ (at % 2 ? 0x04 : 0x80));
        expectSameAnswer(write(changed));
    }
}

TEST_F(XmlScanTest, AnswersAsReadingDoesWhereThereIsNoFile)
{
    expectSameAnswer(path());
    expectSameAnswer(m_folder.path());
    expectSameAnswer(QString());
}

TEST_F(XmlScanTest, AnswersAsReadingDoesBeyondABound)
{
    write("<a>" + QByteArray(1000, 'x') + "</a>");
    SetMaxInputSize(1000);
    expectSameAnswer(path());
    SetMaxInputSize(DefaultMaxInputSize);
    SetMaxDocumentMemory(1000);
    expectSameAnswer(path());
    SetMaxDocumentMemory(DefaultMaxDocumentMemory);
    expectSameAnswer(write(QByteArray("<a>").repeated(MaxNestingDepth + 1)));
}

TEST_F(XmlScanTest, CanBeRunAgain)
{
    Told told;
    EXPECT_FALSE(told.ScanFile(write("<a>")));
    ReadError error;
    error.message = "before";
    EXPECT_TRUE(told.ScanFile(write("<b/>"), &error));

    EXPECT_EQ(error.message, QString());
    EXPECT_EQ(told.lines, QStringList({"<a", "<b", ">"}));
}

} // namespace
} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/check/Places.h"

#include "../InAFolder.h"

#include <rvopen/toolkit/check/Inspection.h>

namespace rvopen::test {

namespace {

using namespace toolkit;

struct PlaceCase {
    const char* what;
    QByteArray text;
    /// "ordinal line:column path" of each finding.
    const char* places;
};

void PrintTo(const PlaceCase& one, std::ostream* out)
{
    *out << one.what;
}

QByteArray utf16(const char* text, bool isBigEndian)
{
    QByteArray bytes(isBigEndian ? "\xfe\xff" : "\xff\xfe");
    for (const QChar c : QString::fromUtf8(text)) {
        const char low = char(c.unicode() & 0xff);
        const char high = char(c.unicode() >> 8);
        bytes += isBigEndian ? high : low;
        bytes += isBigEndian ? low : high;
    }
    return bytes;
}

class Placed : public InAFolder, public ::testing::WithParamInterface<PlaceCase> {};

} // namespace

TEST_P(Placed, FindingsStandHere)
{
    const auto document = read(GetParam().text);
    ASSERT_TRUE(document);
    const QStringList expected = QString::fromUtf8(GetParam().places).split(QLatin1String(", "));
    QVector<Finding> findings;
    for (const QString& place : expected) {
        Finding finding;
        finding.ordinal = place.section(QLatin1Char(' '), 0, 0).toInt();
        findings.append(finding);
    }
    givePlaces(findings, *document);
    QStringList places;
    for (const Finding& finding : findings)
        places << QStringLiteral("%1 %2:%3 %4")
                      .arg(finding.ordinal)
                      .arg(finding.line)
                      .arg(finding.column)
                      .arg(finding.path);
    EXPECT_EQ(joinedBy(", ", places), GetParam().places);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, Placed,
    ::testing::Values(
        PlaceCase{"the root", "<r/>", "0 1:1 "},
        PlaceCase{"several of one element", "<r><a/></r>", "0 1:1 , 1 1:4 a, 1 1:4 a"},
        PlaceCase{"elements without findings are passed", "<r><a><b/></a><c/></r>", "3 1:15 c"},
        PlaceCase{"the last of all", "<r>\n <a/>\n <a/>\n</r>", "2 3:2 a#2"},
        PlaceCase{"after a declaration", "<?xml version='1.0'?>\n<r>\n</r>", "0 2:1 "},
        PlaceCase{"after comments with tags", "<!-- <x> --><r><!-- <x y='>'> --><a/></r>",
                  "0 1:13 , 1 1:34 a"},
        PlaceCase{"after a comment of one sign", "<r><!----><a/></r>", "1 1:11 a"},
        PlaceCase{"after instructions with tags", "<r><?x <y> ?><a/></r>", "1 1:14 a"},
        PlaceCase{"after CDATA with tags", "<r><![CDATA[<x>]]><a/></r>", "1 1:19 a"},
        PlaceCase{"after a document type", "<!DOCTYPE r SYSTEM 'a>b'><r/>", "0 1:26 "},
        PlaceCase{"after tags with signs in quotes", "<r a='>' b=\">'\"><a/></r>", "1 1:17 a"},
        PlaceCase{"after end tags", "<r><a></a ><b/></r>", "2 1:12 b"},
        PlaceCase{"letters of several bytes are one column", "<r>\xc3\xa4\xe2\x82\xac<a/></r>",
                  "1 1:6 a"},
        PlaceCase{"lines that end with CR LF", "<r>\r\n\r\n<a/></r>", "1 3:1 a"},
        PlaceCase{"lines that end with CR", "<r>\r\r <a/></r>", "1 3:2 a"},
        PlaceCase{"a line in a tag", "<r\n a='1'>\n<a/></r>", "0 1:1 , 1 3:1 a"},
        PlaceCase{"a mark of UTF-8", "\xef\xbb\xbf<r><a/></r>", "0 1:1 , 1 1:4 a"},
        PlaceCase{"UTF-16 of either order", utf16("<r>\n<a/></r>", false), "1 2:1 a"},
        PlaceCase{"UTF-16 with the high byte first", utf16("<r>\n<a/></r>", true), "1 2:1 a"}));

/// The file has something else, or nothing.
TEST_F(InAFolder, FindingsInMemoryHavePathsAndNoLines)
{
    const QString file = write("a.rvx", "<presets>\n\n<materials>");
    QDomDocument dom;
    dom.setContent(QByteArray("<presets><colours><lens name='x'/></colours></presets>"));
    const auto document = toolkit::Document::Of(file, dom);
    EXPECT_TRUE(document->IsInMemory());
    EXPECT_EQ(document->Kind(), toolkit::DocumentKind::Archive);
    EXPECT_EQ(document->Folder(), m_folder.path());
    const QVector<Finding> findings = Inspect(*document);
    ASSERT_FALSE(findings.isEmpty());
    for (const Finding& finding : findings) {
        EXPECT_EQ(finding.line, 0) << finding.message.toStdString();
        EXPECT_EQ(finding.file, file);
    }
    EXPECT_TRUE(findings.first().path.startsWith("colours"));
    EXPECT_FALSE(read("<presets/>")->IsInMemory());
}

} // namespace rvopen::test

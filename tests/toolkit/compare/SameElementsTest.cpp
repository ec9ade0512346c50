// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/compare/SameElements.h"

#include "../InAFolder.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Load.h>

#include <memory>

namespace rvopen::test {

using namespace toolkit;

namespace {

class SameElementsTest : public InAFolder {
protected:
    /// Whether the file with the first text has the elements of the second.
    bool isSame(const QByteArray& file, const QByteArray& elements)
    {
        ReadError error;
        const std::unique_ptr<Document> document =
            Document::Read(write("elements.rvx", elements), error);
        return document && hasSameElements(write("file.rvx", file), document->Root());
    }
};

} // namespace

TEST_F(SameElementsTest, AreThoseOfTheSameNamesAttributesAndOrder)
{
    const QByteArray text = "<presets name='a&amp;b'><colours><colour name='&#10;' cat=''/><param "
                            "val='1' type='float'/></colours><bumps/></presets>";
    EXPECT_TRUE(isSame(text, text));
    for (const auto& [before, after] :
         {std::pair("<bumps/>", "<bumps></bumps>"), std::pair("<bumps/>", "<bumps/><!-- c -->"),
          std::pair("val='1' type='float'", "type='float' val='1'"), std::pair("&amp;", "&#38;")})
        EXPECT_TRUE(isSame(QByteArray(text).replace(before, after), text)) << after;
    for (const auto& [before, after] :
         {std::pair("<bumps/>", ""), std::pair("<bumps/>", "<bumps/><bumps/>"),
          std::pair("<bumps/>", "<bumps><dir/></bumps>"), std::pair("<bumps/>", "<bump/>"),
          std::pair("val='1' ", ""), std::pair("val='1'", "val='2'"),
          std::pair("val='1'", "vel='1'"), std::pair("cat=''", "dog=''"), std::pair("&amp;", ""),
          std::pair("<bumps/></presets>", "</presets>"),
          std::pair("<bumps/></presets>", "<bumps/>")}) {
        const QByteArray other = QByteArray(text).replace(before, after);
        EXPECT_FALSE(isSame(other, text)) << after;
        EXPECT_FALSE(isSame(text, other)) << after;
    }
}

TEST_F(SameElementsTest, AreThoseThatWereWritten)
{
    QVector<ReadError> problems;
    const QString out = path("out.xml");
    int count = 0;
    for (const QString& file : DocumentsBelow(QStringLiteral(RVOPEN_DATA_DIR), problems)) {
        ReadError error;
        const std::unique_ptr<Document> document = Document::Read(file, error);
        ASSERT_TRUE(document);
        ASSERT_TRUE(WriteXmlDocument(document->Dom(), out, document->Indent()));
        EXPECT_TRUE(hasSameElements(out, document->Root())) << file.toStdString();
        ++count;
    }
    EXPECT_GT(count, 5);
}

} // namespace rvopen::test

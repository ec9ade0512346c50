// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

/// What the tests themselves stand on.
namespace rvopen::test {

TEST(Words, AreSeparatedByBlanksOutsideOfQuotes)
{
    const struct {
        const char* line;
        QStringList words;
    } cases[] = {
        {"", {}},
        {"  ", {}},
        {"info a.xml", {QStringLiteral("info"), QStringLiteral("a.xml")}},
        {" get  a.xml ", {QStringLiteral("get"), QStringLiteral("a.xml")}},
        {"'a b' \"c d\"", {QStringLiteral("a b"), QStringLiteral("c d")}},
        {"x='a b'y", {QStringLiteral("x=a by")}},
        {"'\"' \"'\"", {QStringLiteral("\""), QStringLiteral("'")}},
        {"a '' b", {QStringLiteral("a"), QString(), QStringLiteral("b")}},
        {"D:\\ä\\b", {QStringLiteral("D:\\ä\\b")}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(words(one.line), one.words) << one.line;
}

} // namespace rvopen::test

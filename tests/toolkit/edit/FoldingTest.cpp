// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/edit/Folding.h"

#include "../Parts.h"

namespace rvopen::test {

using namespace toolkit;

TEST(Folding, LeavesOutAccentsAndCase)
{
    EXPECT_EQ(folded(QString::fromUtf8("Café AU Lait")), QStringLiteral("cafe au lait"));
    EXPECT_EQ(folded(QString::fromUtf8("Größe")), folded(QString::fromUtf8("GROSSE")));
}

TEST(Folding, ComposedAndDecomposedAreOne)
{
    EXPECT_EQ(folded(QString::fromUtf8("\u00e9")), folded(QString::fromUtf8("e\u0301")));
    EXPECT_EQ(folded(QString::fromUtf8("\ufb01ne")), QStringLiteral("fine"));
}

TEST(Folding, LeavesOtherLettersApart)
{
    EXPECT_NE(folded(QStringLiteral("oak")), folded(QStringLiteral("oat")));
    EXPECT_EQ(folded(QString::fromUtf8("雪")), QString::fromUtf8("雪"));
}

TEST(Folding, SplitsWordsAtAnyBlanks)
{
    EXPECT_EQ(joinedBy("|", foldedWords(QStringLiteral("  Red\tOAK  "))), "red|oak");
    EXPECT_EQ(foldedWords(QStringLiteral(" ")).size(), 0);
}

} // namespace rvopen::test

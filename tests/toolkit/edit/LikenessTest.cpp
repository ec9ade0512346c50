// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/edit/Likeness.h"

#include "../Parts.h"

namespace rvopen::test {

using namespace toolkit;

namespace {

QString among(const char* word, const char* candidates)
{
    return likeliest(QString::fromUtf8(word),
                     QString::fromUtf8(candidates).split(QLatin1Char(' ')));
}

/// What stands for a path in a document with a name of each kind.
QString path(const char* text)
{
    const QDomDocument document =
        parsed("<presets unitsScale=\"10\"><materials name=\"Materials\"><dir name=\"Metals\">"
               "<material name=\"Brass\" cat=\"Metals\"><finish>"
               "<param name=\"roughness\" type=\"float\" val=\"0.1\"/></finish></material></dir>"
               "</materials></presets>");
    return likeliestPath(QString::fromUtf8(text), document.documentElement());
}

} // namespace

TEST(Likeness, KindsMayBeHalfWrong)
{
    const QStringList kinds{QStringLiteral("Opaque"), QStringLiteral("Mask")};
    EXPECT_EQ(likeliestKind(QStringLiteral("Opake"), kinds), QStringLiteral("Opaque"));
    EXPECT_EQ(likeliestKind(QStringLiteral("mask"), kinds), QStringLiteral("Mask"));
    EXPECT_EQ(likeliestKind(QStringLiteral("Matte"), kinds), QString());
    EXPECT_EQ(likeliestKind(QStringLiteral("Mask"), kinds), QString());
    EXPECT_EQ(likeliest(QStringLiteral("Opake"), kinds), QString());
}

TEST(Likeness, NamesInBracketsMayHaveSlashesAndColons)
{
    const QDomDocument document =
        parsed("<presets><colours><colour name=\"Red/Brown: warm\"/></colours></presets>");
    EXPECT_EQ(likeliestPath(QStringLiteral("colours/colour[Red/Brown: wram]"),
                            document.documentElement()),
              QStringLiteral("colours/colour[Red/Brown: warm]"));
    // A slash in a name is a letter like others.
    EXPECT_EQ(likeliestPath(QStringLiteral("colours/colour[Red-Brown: warm]"),
                            document.documentElement()),
              QStringLiteral("colours/colour[Red/Brown: warm]"));
}

TEST(Likeness, ForgivesALetterLeftOutTooManyWrongOrSwapped)
{
    EXPECT_EQ(among("lst", "tree list find"), QStringLiteral("list"));
    EXPECT_EQ(among("liist", "tree list find"), QStringLiteral("list"));
    EXPECT_EQ(among("lost", "tree list find"), QStringLiteral("list"));
    EXPECT_EQ(among("lsit", "tree list find"), QStringLiteral("list"));
}

TEST(Likeness, ForgivesAThirdOfTheLetters)
{
    EXPECT_EQ(among("mxtxrial", "material"), QStringLiteral("material"));
    EXPECT_EQ(among("mxtxrixl", "material"), QString());
    EXPECT_EQ(among("ls", "l"), QString());
    EXPECT_EQ(among("--tpye", "--json --type"), QStringLiteral("--type"));
    EXPECT_EQ(among("--tpey", "--type"), QString());
}

TEST(Likeness, TakesTheNearestAndOfThoseTheFirst)
{
    EXPECT_EQ(among("camexas", "cambras cameras"), QStringLiteral("cameras"));
    EXPECT_EQ(among("cat", "cut cot"), QStringLiteral("cut"));
}

TEST(Likeness, CountsNeitherCaseNorAccents)
{
    EXPECT_EQ(among("MATERIAL", "material"), QStringLiteral("material"));
    EXPECT_EQ(among("cafe", "Café"), QString::fromUtf8("Café"));
}

TEST(Likeness, SaysNothingOfAWordThatIsThere)
{
    EXPECT_EQ(among("list", "lost list"), QString());
}

TEST(Likeness, KnowsPathsFromAnywhereInTheDocument)
{
    EXPECT_EQ(path("finish:rougness"), QStringLiteral("finish:roughness"));
    EXPECT_EQ(path("material[Bras]/finish"), QStringLiteral("material[Brass]/finish"));
    EXPECT_EQ(path("material[Brass]/finish:rougness"),
              QStringLiteral("material[Brass]/finish:roughness"));
    EXPECT_EQ(path("Barss/finish:roughness"), QStringLiteral("Brass/finish:roughness"));
    EXPECT_EQ(path(":rouhgness"), QStringLiteral(":roughness"));
}

TEST(Likeness, OffersPathsFromTheRootToThoseThatAskForThem)
{
    EXPECT_EQ(path("/materials/dri"), QStringLiteral("/materials/dir"));
    EXPECT_EQ(path("/finihs"), QString());
}

TEST(Likeness, KnowsAttributes)
{
    EXPECT_EQ(path("material@caat"), QStringLiteral("material@cat"));
    EXPECT_EQ(path("@unitScale"), QStringLiteral("@unitsScale"));
}

TEST(Likeness, SaysNothingOfPathsThatMeanMany)
{
    EXPECT_EQ(path("material[Brs*]"), QString());
    EXPECT_EQ(path("materials//finihs"), QString());
    EXPECT_EQ(path("materail[@cat=Metals]"), QString());
}

TEST(Likeness, AsksAtTheEndOfAMessage)
{
    EXPECT_EQ(didYouMean(QStringLiteral("list")), QStringLiteral("; did you mean \"list\"?"));
    EXPECT_EQ(didYouMean(QString()), QString());
}

} // namespace rvopen::test

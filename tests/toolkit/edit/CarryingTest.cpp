// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/edit/Carrying.h"

#include "../Parts.h"

namespace rvopen::test {

namespace {

using toolkit::FreeNames;
using toolkit::keyOf;
using toolkit::makePreset;

std::string keyIn(const char* xml)
{
    const QDomDocument document = parsed(xml);
    const QDomElement shelf = document.documentElement();
    return keyOf(shelf.firstChildElement(), shelf).toStdString();
}

} // namespace

TEST(Carrying, TellsThingsApartByWhatTheirShelfGoesBy)
{
    EXPECT_EQ(keyIn("<materials><material name='n' refname='r' linkname='l'/></materials>"),
              "/refname/r");
    EXPECT_EQ(keyIn("<materials><material name='n'/></materials>"), "/name/n");
    EXPECT_EQ(keyIn("<materials><material/></materials>"), "");
    EXPECT_EQ(keyIn("<materials><dir name='n' refname='r'/></materials>"), "dir/name/n");
    EXPECT_EQ(keyIn("<materialRepository><material name='n' refname='r' linkname='l'/>"
                    "</materialRepository>"),
              "/linkname/l");
    EXPECT_EQ(keyIn("<snapshots><snapshot name='n' refname='r'/></snapshots>"), "snapshot/name/n");
}

TEST(Carrying, FindsNamesThatNothingHas)
{
    const QDomDocument document =
        parsed("<a><x name='n' refname='r'/><y name='n (2)'/><z refname='r_3'/></a>");
    FreeNames names(document.documentElement());
    const QDomElement element = document.documentElement().firstChildElement();
    names.rename(element);
    EXPECT_EQ(element.attribute(QStringLiteral("name")), QStringLiteral("n (4)"));
    EXPECT_EQ(element.attribute(QStringLiteral("refname")), QStringLiteral("r_4"));
}

TEST(Carrying, GivesAPictureANameOfItsOwn)
{
    const QDomDocument document =
        parsed("<a><x name='n' imgname='p'/><y imgname='p_2'/><z name='m'/></a>");
    FreeNames names(document.documentElement());
    const QDomElement element = document.documentElement().firstChildElement();
    names.rename(element);
    EXPECT_EQ(element.attribute(QStringLiteral("name")), QStringLiteral("n (3)"));
    EXPECT_EQ(element.attribute(QStringLiteral("imgname")), QStringLiteral("p_3"));
    const QDomElement bare = document.documentElement().lastChildElement();
    names.rename(bare);
    EXPECT_EQ(bare.attribute(QStringLiteral("name")), QStringLiteral("m (2)"));
    EXPECT_FALSE(bare.hasAttribute(QStringLiteral("imgname")));
}

TEST(Carrying, KeepsPercentSignsInNames)
{
    const QDomDocument document = parsed("<a><x name='Gloss %2' refname='r%1'/></a>");
    const QDomElement element = document.documentElement().firstChildElement();
    FreeNames(document.documentElement()).rename(element);
    EXPECT_EQ(element.attribute(QStringLiteral("name")), QStringLiteral("Gloss %2 (2)"));
    EXPECT_EQ(element.attribute(QStringLiteral("refname")), QStringLiteral("r%1_2"));
}

TEST(Carrying, APresetOfAPaletteHasNamesAndNoObject)
{
    const QDomDocument document = parsed("<a><material linkname='Front door'/></a>");
    const QDomElement material = document.documentElement().firstChildElement();
    makePreset(material);
    EXPECT_EQ(material.attribute(QStringLiteral("name")), QStringLiteral("Front door"));
    EXPECT_EQ(material.attribute(QStringLiteral("refname")), QStringLiteral("material.front_door"));
    EXPECT_FALSE(material.hasAttribute(QStringLiteral("linkname")));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "edit/Carrying.h"

#include "Parts.h"

namespace rvopen::test {

namespace {

using tools::FreeNames;
using tools::isAbsoluteReference;
using tools::keyOf;
using tools::makePreset;
using tools::withOtherPrefix;

std::string keyIn(const char* xml)
{
    const QDomDocument document = parsed(xml);
    const QDomElement shelf = document.documentElement();
    return keyOf(shelf.firstChildElement(), shelf).toStdString();
}

} // namespace

TEST(Carrying, KnowsAbsoluteReferencesOfAllSystems)
{
    for (const char* const reference :
         {"C:\\a.png", "c:a.png", "/a.png", "\\a.png", "\\\\s\\a.png"})
        EXPECT_TRUE(isAbsoluteReference(QLatin1String(reference))) << reference;
    for (const char* const reference : {"a.png", "..\\a.png", "tex/a.png", "1:\\a.png"})
        EXPECT_FALSE(isAbsoluteReference(QLatin1String(reference))) << reference;
}

TEST(Carrying, ChangesPrefixesOfWholeNames)
{
    const auto changed = [](const char* reference, const char* from, const char* to) {
        return withOtherPrefix(QLatin1String(reference), QLatin1String(from), QLatin1String(to))
            .toStdString();
    };
    EXPECT_EQ(changed("D:\\tex\\a\\b.png", "d:/tex/", "E:\\new"), "E:\\new\\a\\b.png");
    EXPECT_EQ(changed("/tex/b.png", "/", "/new"), "/new/tex/b.png");
    EXPECT_EQ(changed("tex/b.png", "tex", ""), "b.png");
    EXPECT_EQ(changed("textures/b.png", "tex", "new"), "");
    EXPECT_EQ(changed("a/tex/b.png", "tex", "new"), "");
}

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

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/Sorting.h>

#include "../Parts.h"

namespace rvopen::test {

namespace {

using toolkit::SortBy;
using toolkit::SortOrder;
using toolkit::SortShelf;

/// What the children of the root are told by afterwards, comments by their text.
std::string sorted(const char* xml, SortBy by, SortOrder order = SortOrder::Ascending)
{
    const QDomDocument document = parsed(xml);
    SortShelf(document.documentElement(), by, order);
    QStringList names;
    for (QDomNode node = document.documentElement().firstChild(); !node.isNull();
         node = node.nextSibling()) {
        names << (node.isElement() ? node.toElement().attribute(QStringLiteral("name"))
                                   : node.nodeValue());
    }
    return joinedBy(" ", names);
}

} // namespace

TEST(Sorting, TakesCapitalsForSmallLettersAndKeepsWhatIsAlike)
{
    EXPECT_EQ(sorted("<a><x name='b'/><x name='A'/><x name='B'/><x name='a'/></a>", SortBy::Name),
              "A a b B");
    EXPECT_EQ(sorted("<a><x name='b'/><x name='A'/><x name='B'/><x name='a'/></a>", SortBy::Name,
                     SortOrder::Descending),
              "b B A a");
}

TEST(Sorting, PutsParametersThenFoldersFirst)
{
    EXPECT_EQ(sorted("<a><x name='1'/><dir name='z'/><param name='q'/><param name='p'/><dir "
                     "name='y'/></a>",
                     SortBy::Name),
              "q p y z 1");
    EXPECT_EQ(sorted("<a><x name='1'/><dir name='y'/><dir name='z'/></a>", SortBy::Name,
                     SortOrder::Descending),
              "z y 1");
}

TEST(Sorting, SortsFoldersByNameWhateverElseCounts)
{
    EXPECT_EQ(sorted("<a><dir name='z' cat='1'/><dir name='y' cat='2'/><x name='3' cat='b'/><x "
                     "name='4' cat='a'/></a>",
                     SortBy::Category),
              "y z 4 3");
}

TEST(Sorting, LeavesCommentsBeforeWhatFollowsThem)
{
    EXPECT_EQ(
        sorted("<a><!--of b--><!--too--><x name='b'/><x name='a'/><!--end--></a>", SortBy::Name),
        "a of b too b end");
}

TEST(Sorting, TellsWhetherAnythingMoved)
{
    const QDomDocument document = parsed("<a><x name='b'/><x name='a'/></a>");
    EXPECT_TRUE(SortShelf(document.documentElement(), SortBy::Name, SortOrder::Ascending));
    EXPECT_FALSE(SortShelf(document.documentElement(), SortBy::Name, SortOrder::Ascending));
}

} // namespace rvopen::test

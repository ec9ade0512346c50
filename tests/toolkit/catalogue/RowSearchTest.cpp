// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/catalogue/RowSearch.h"
#include "../InAFolder.h"
#include "toolkit/catalogue/BlockStore.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <string>

namespace rvopen::test {

using namespace toolkit;
using namespace toolkit::catalogue;

namespace {

QByteArray plain(const char* colour)
{
    return QByteArrayLiteral("<plainColour><param name='Colour' type='colour' val='") + colour +
           "'/></plainColour>";
}

QByteArray finish(const char* name, const char* value)
{
    return QByteArrayLiteral("<finish><param name='") + name + "' type='float' val='" + value +
           "'/></finish>";
}

class RowSearchTest : public InAFolder {
protected:
    RowSearchTest()
        : store({write("a.rvx", "<presets><materials name='Oak'>"
                                "<material name='Dark oak' cat='Woods' desc='A floor'>" +
                                    plain("1 0 0") + finish("Roughness", "0.5") +
                                    "</material>"
                                    "<material name='Oaken' subcat='Opaque'>" +
                                    plain("0.9 0 0.1") + finish("roughness", "0.9") +
                                    "</material>"
                                    "<material name='Soak' cat='oak'>" +
                                    plain("0 0 1") + finish("gloss", "0.5") +
                                    "</material>"
                                    "<dir name='Wände'><dir name='Oak'><material name='Plaster' "
                                    "refname='m.oak'/></dir><material name='Red'>" +
                                    plain("none") + plain("1 0 0") +
                                    "</material></dir></materials></presets>"),
                 write("b.rvx", "<presets><lights><light name='OAK'/><light name='„Oak“ lamp' "
                                "desc='dark'/></lights></presets>")})
    {
    }

    /// Names of what is found, in its order.
    std::string found(const CatalogueQuery& query) const
    {
        RowSearch search(query);
        std::vector<RowMatch> matches;
        for (int i = 0; i < store.count(); ++i)
            search.search(store.block(i), i, matches);
        RowSearch::sort(matches);
        std::string names;
        for (const RowMatch& match : matches) {
            const Block& block = store.block(match.document);
            names +=
                (names.empty() ? "" : ", ") + std::string(block.text(block.row(match.row).name));
        }
        return names;
    }
    std::string withText(const char* text) const
    {
        CatalogueQuery query;
        query.text = QString::fromUtf8(text);
        return found(query);
    }
    std::string withNumber(const NumberRange& range) const
    {
        CatalogueQuery query;
        query.numbers.append(range);
        return found(query);
    }

    BlockStore store;
};

} // namespace

TEST_F(RowSearchTest, FindsBeginningsOfWordsTheNameFirst)
{
    EXPECT_EQ(withText("oak"), "OAK, Oaken, Dark oak, „Oak“ lamp, Soak, Plaster");
    EXPECT_EQ(withText("ak"), "");
    EXPECT_EQ(withText("so"), "Soak");
}

TEST_F(RowSearchTest, FindsAllWordsWhereverTheyStand)
{
    EXPECT_EQ(withText("oak da"), "Dark oak, „Oak“ lamp");
    EXPECT_EQ(withText("dark oak"), "Dark oak, „Oak“ lamp");
    EXPECT_EQ(withText("FLOOR wood"), "Dark oak");
    EXPECT_EQ(withText("floor light"), "");
}

TEST_F(RowSearchTest, FindsNamesOfFoldersInAnyCaseWithoutAccents)
{
    EXPECT_EQ(withText("wan"), "Plaster, Red");
    CatalogueQuery query;
    query.folder = QStringLiteral("WANDE");
    EXPECT_EQ(found(query), "Plaster, Red");
    query.folder = QStringLiteral("oak");
    EXPECT_EQ(found(query), "Plaster");
}

TEST_F(RowSearchTest, FindsKindsSectionsAndCategoriesThatAreThis)
{
    CatalogueQuery query;
    query.kind = QStringLiteral("LIGHT");
    EXPECT_EQ(found(query), "OAK, „Oak“ lamp");
    query.kind = QStringLiteral("materials");
    EXPECT_EQ(found(query), "Dark oak, Oaken, Soak, Plaster, Red");
    query.category = QStringLiteral("WOODS");
    EXPECT_EQ(found(query), "Dark oak");
    query.category = QStringLiteral("wood");
    EXPECT_EQ(found(query), "");
    query = CatalogueQuery();
    query.subCategory = QStringLiteral("opaque");
    EXPECT_EQ(found(query), "Oaken");
}

TEST_F(RowSearchTest, FindsColoursWithinADistanceTheNearestFirst)
{
    CatalogueQuery query;
    query.colour = QStringLiteral("0.9 0 0.1");
    EXPECT_EQ(found(query), "Oaken, Dark oak, Red");
    query.colour = QStringLiteral("#ff0000");
    EXPECT_EQ(found(query), "Dark oak, Red, Oaken");
    query.within = 0;
    EXPECT_EQ(found(query), "Dark oak, Red");
    query.text = QStringLiteral("oak");
    query.within = 10;
    EXPECT_EQ(found(query), "Oaken, Dark oak");
}

TEST_F(RowSearchTest, RefusesWhatIsNoColour)
{
    CatalogueQuery query;
    query.colour = QStringLiteral("reddish");
    EXPECT_THROW(RowSearch search(query), Failure);
}

TEST_F(RowSearchTest, FindsNumbersBetweenTheirBoundsWhichBelongToThem)
{
    EXPECT_EQ(withNumber({QStringLiteral("ROUGHNESS"), 0.5, 0.8}), "Dark oak");
    EXPECT_EQ(withNumber({QStringLiteral("roughness"), 0.6, 0.9}), "Oaken");
    NumberRange open;
    open.name = QStringLiteral("roughness");
    EXPECT_EQ(withNumber(open), "Dark oak, Oaken");
    open.least = 0.91;
    EXPECT_EQ(withNumber(open), "");
}

TEST_F(RowSearchTest, FindsAllWhereNothingIsAskedFor)
{
    EXPECT_EQ(found(CatalogueQuery()), "Dark oak, Oaken, Soak, Plaster, Red, OAK, „Oak“ lamp");
}

} // namespace rvopen::test

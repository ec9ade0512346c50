// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/documents/SafeFiles.h"

#include "../InAFolder.h"

namespace rvopen::test {

using namespace toolkit;

class SafeFiles : public InAFolder {
protected:
    SafeFiles()
    {
        write("a/in/x", "x");
        write("ab/x", "x");
        QFile::link(path("ab"), path("a/out"));
        QFile::link(path("a/in/x"), path("same"));
    }
};

TEST_F(SafeFiles, AreBelowAFolderByWhereTheyReallyAre)
{
    EXPECT_TRUE(isBelow(path("a/in/x"), path("a")));
    EXPECT_TRUE(isBelow(path("a"), path("a")));
    EXPECT_TRUE(isBelow(path("ab/../a/in"), path("a")));
    EXPECT_TRUE(isBelow(path("a/in/x"), QStringLiteral("/")));
    EXPECT_FALSE(isBelow(path("ab/x"), path("a")));
    EXPECT_FALSE(isBelow(path("a/out/x"), path("a")));
    EXPECT_FALSE(isBelow(path("a"), path("a/in")));
    EXPECT_FALSE(isBelow(path("a/nothing"), path("a")));
    EXPECT_FALSE(isBelow(path("a/in/x"), path("nothing")));
    EXPECT_FALSE(isBelow(path("nothing"), path("nothing")));
}

TEST_F(SafeFiles, AreTheSameThroughLinks)
{
    EXPECT_TRUE(isSameFile(path("same"), path("a/in/x")));
    EXPECT_TRUE(isSameFile(path("a/out/x"), path("ab/x")));
    EXPECT_FALSE(isSameFile(path("ab/x"), path("a/in/x")));
    EXPECT_FALSE(isSameFile(path("nothing"), path("nothing")));
}

TEST_F(SafeFiles, AreWrittenThroughNoLinkThatLeadsOut)
{
    EXPECT_EQ(linkInTheWay(path("a/in/new"), path("a")), QString());
    EXPECT_EQ(linkInTheWay(path("a/new/deep/x"), path("a")), QString());
    EXPECT_NE(linkInTheWay(path("a/out/new"), path("a")), QString());
    EXPECT_NE(linkInTheWay(path("same"), path(".")), QString());
}

} // namespace rvopen::test

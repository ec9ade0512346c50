// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/images/TextureReferences.h"

#include "../Parts.h"

namespace rvopen::test {

namespace {

using namespace toolkit;

} // namespace

TEST(TextureReferences, KnowsAbsoluteReferencesOfAllSystems)
{
    for (const char* const reference :
         {"C:\\a.png", "c:a.png", "/a.png", "\\a.png", "\\\\s\\a.png"})
        EXPECT_TRUE(isAbsoluteReference(QLatin1String(reference))) << reference;
    for (const char* const reference : {"a.png", "..\\a.png", "tex/a.png", "1:\\a.png"})
        EXPECT_FALSE(isAbsoluteReference(QLatin1String(reference))) << reference;
}

TEST(TextureReferences, ChangesPrefixesOfWholeNames)
{
    const auto changed = [](const char* reference, const char* from, const char* to) {
        return withOtherPrefix(QLatin1String(reference), QLatin1String(from), QLatin1String(to))
            .toStdString();
    };
    EXPECT_EQ(changed("D:\\tex\\a\\b.png", "d:/tex/", "E:\\new"), "E:\\new\\a\\b.png");
    EXPECT_EQ(changed("D:\\tex\\a\\b.png", "D:\\tex", "/mnt/new"), "/mnt/new/a/b.png");
    EXPECT_EQ(changed("/tex/a/b.png", "/tex", "E:\\new"), "E:\\new\\a\\b.png");
    EXPECT_EQ(changed("D:\\tex\\a\\b.png", "D:\\tex", "textures"), "textures\\a\\b.png");
    EXPECT_EQ(changed("/tex/b.png", "/", "/new"), "/new/tex/b.png");
    EXPECT_EQ(changed("tex/b.png", "tex", ""), "b.png");
    EXPECT_EQ(changed("textures/b.png", "tex", "new"), "");
    EXPECT_EQ(changed("a/tex/b.png", "tex", "new"), "");
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/edit/Selection.h"

#include "../Parts.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>

namespace rvopen::test {

namespace {

using namespace toolkit;

const char s_archive[] = R"(<presets><materials>
<dir name="D"><material name="A" cat="x"><finish><param name="roughness" type="float" val="0.2"/>
</finish></material><material name="A#2" cat="x"/></dir><material name="B" cat="y"/></materials>
<finishes><finish name="F"><param name="roughness" type="float" val="0.9"/></finish></finishes>
</presets>)";

std::string selected(const SelectionTexts& texts)
{
    const QDomDocument document = parsed(s_archive);
    QStringList paths;
    for (const PathPattern::Match& match :
         Selection(texts).in(document.documentElement()).elements())
        paths << match.path;
    return joinedBy(" ", paths);
}

SelectionTexts byPath(const char* path)
{
    SelectionTexts texts;
    texts.paths << QString::fromUtf8(path);
    return texts;
}

} // namespace

TEST(Scope, HasTheOutermostInDocumentOrder)
{
    SelectionTexts texts = byPath("finish");
    texts.paths << QStringLiteral("dir") << QStringLiteral("material");
    EXPECT_EQ(selected(texts), "materials/dir[D] materials/material[B] finishes/finish[F]");
}

TEST(Scope, OfAConditionHasPresetsAndNoPartsOfThem)
{
    SelectionTexts texts;
    texts.conditions << QStringLiteral("roughness > 0");
    EXPECT_EQ(selected(texts), "materials/dir[D]/material[A] finishes/finish[F]");
    texts.type = QStringLiteral("FINISH");
    EXPECT_EQ(selected(texts), "finishes/finish[F]");
}

TEST(Scope, OfAKindThatIsNoPresetHasItsElementsInSnapShots)
{
    const QDomDocument document =
        parsed("<snapRoot><snapshot name=\"S\"><snapShotSettings/><camera/></snapshot></snapRoot>");
    SelectionTexts texts;
    texts.type = QStringLiteral("SNAPSHOTSETTINGS");
    const auto settings = Selection(texts).in(document.documentElement()).elements();
    ASSERT_EQ(settings.size(), 1);
    EXPECT_EQ(settings[0].path, QStringLiteral("snapshot[S]/snapShotSettings"));
    texts.type = QStringLiteral("nothing");
    EXPECT_EQ(Selection(texts).in(document.documentElement()).elements().size(), 0);
}

TEST(Scope, OfPathAndFilterIsWhatBothSelect)
{
    SelectionTexts texts = byPath("finish");
    texts.category = QStringLiteral("X");
    EXPECT_EQ(selected(texts), "materials/dir[D]/material[A]/finish");
    texts = byPath("dir");
    texts.category = QStringLiteral("X");
    EXPECT_EQ(selected(texts), "materials/dir[D]/material[A] materials/dir[D]/material[A#2]");
}

TEST(Scope, TellsInsideFromAboveAndBeside)
{
    const QDomDocument document = parsed(s_archive);
    const Scope scope = Selection(byPath("material[A]/finish")).in(document.documentElement());
    EXPECT_TRUE(scope.covers(QStringLiteral("materials/dir[D]/material[A]/finish")));
    EXPECT_TRUE(scope.covers(QStringLiteral("materials/dir[D]/material[A]/finish:roughness")));
    EXPECT_FALSE(scope.covers(QStringLiteral("materials/dir[D]/material[A]")));
    EXPECT_FALSE(scope.covers(QStringLiteral("materials/dir[D]/material[A]/finish#2")));
    EXPECT_FALSE(scope.covers(QString()));
    EXPECT_TRUE(scope.leadsTo(QStringLiteral("materials/dir[D]")));
    EXPECT_FALSE(scope.leadsTo(QStringLiteral("materials/dir[D]/material[A]/finish")));
    EXPECT_TRUE(scope.takes(QStringLiteral("materials/dir[D]/material[A]")));
    EXPECT_FALSE(scope.takes(QStringLiteral("materials/dir[D]/material[A#2]")));
}

TEST(Scope, OfNoSelectionIsEverything)
{
    const QDomDocument document = parsed(s_archive);
    const Scope scope = Selection(SelectionTexts()).in(document.documentElement());
    EXPECT_TRUE(scope.isEverything());
    EXPECT_TRUE(scope.covers(QStringLiteral("anything")));
    EXPECT_TRUE(scope.covers(QString()));
}

TEST(Selection, RefusesAttributesAsElements)
{
    EXPECT_THROW(Selection(byPath("material@name")), Failure);
}

} // namespace rvopen::test

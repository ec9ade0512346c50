// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/edit/Uses.h"

#include "../InAFolder.h"

namespace rvopen::test {

namespace {

using namespace toolkit;

const char* const s_archive =
    "<presets><materials name='M'><material name='A' refname='a'>"
    "<colour refname='c'/></material></materials>"
    "<colours name='C'><colour name='C' refname='c'/></colours></presets>";

class UsesOfPresets : public InAFolder {
protected:
    /// A child of the section.
    static QDomElement presetIn(const Document& document, const char* section)
    {
        return document.Root().firstChildElement(QLatin1String(section)).firstChildElement();
    }

    static std::string told(const QVector<Use>& uses)
    {
        QStringList list;
        for (const Use& use : uses)
            list << use.path + QLatin1String(" uses ") + use.what;
        return joinedBy(", ", list);
    }
};

} // namespace

TEST_F(UsesOfPresets, AreComponentsOfThatKindAndNameOutsideOfThem)
{
    const auto archive = read(s_archive);
    const Uses colour(*archive, {presetIn(*archive, "colours")});
    EXPECT_EQ(told(colour.inDocument()), "materials[M]/material[A]/colour[c] uses colour c");
    ASSERT_EQ(colour.elementsInDocument().size(), 1);
    EXPECT_EQ(colour.elementsInDocument().first().parentNode().nodeName(),
              QStringLiteral("material"));
    const Uses both(*archive, {presetIn(*archive, "colours"), presetIn(*archive, "materials")});
    EXPECT_EQ(told(both.inDocument()), "");
}

TEST_F(UsesOfPresets, AreInOtherDocumentsAndNotInTheSameFileAgain)
{
    const auto archive = read(s_archive);
    const auto other = read("<snapRoot><snapshot name='S'><materialRepository>"
                            "<material refname='a'/><colour refname='a'/>"
                            "</materialRepository></snapshot></snapRoot>");
    const Uses uses(*archive, {presetIn(*archive, "materials")});
    EXPECT_TRUE(uses.canBeElsewhere());
    EXPECT_EQ(told(uses.inOther(*other)),
              "snapshot[S]/materialRepository/material[a] uses material a");
    EXPECT_EQ(uses.inOther(*other).first().file, other->Name());
    const Uses colour(*archive, {presetIn(*archive, "colours")});
    EXPECT_EQ(told(colour.inOther(*archive)), "");
}

TEST_F(UsesOfPresets, AreNowhereElseForWhatNobodyLooksFor)
{
    const auto archive = read("<presets><colours><colour name='n'/></colours></presets>");
    EXPECT_FALSE(Uses(*archive, {presetIn(*archive, "colours")}).canBeElsewhere());
}

TEST_F(UsesOfPresets, AreObjectsThatMaterialsOfPalettesBelongTo)
{
    const auto document = read("<snapRoot><snapshot name='S'><materialRepository>"
                               "<material name='x' linkname='Door'/><material name='y'/>"
                               "</materialRepository></snapshot></snapRoot>");
    const QDomElement first =
        document->Root().firstChildElement().firstChildElement().firstChildElement();
    const Uses uses(*document, {first, first.nextSiblingElement()});
    EXPECT_EQ(told(uses.ofObjects()),
              "snapshot[S]/materialRepository/material[x] uses the link name \"Door\"");
}

} // namespace rvopen::test

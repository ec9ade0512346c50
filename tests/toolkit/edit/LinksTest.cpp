// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/Links.h>

#include "../Parts.h"

namespace rvopen::test {

namespace {

using namespace toolkit;

std::string told(const QVector<Link>& links)
{
    QStringList list;
    for (const Link& link : links)
        list << link.path + QLatin1String(" -> ") + link.kind + QLatin1Char(' ') + link.refName;
    return joinedBy(", ", list);
}

} // namespace

TEST(Links, OfAPresetAreItsComponentsAndNotItself)
{
    const QDomDocument document =
        parsed("<presets><materials name='M'><material name='A' refname='a'><colour refname='c'/>"
               "<finish/><base><material refname='b'/></base></material></materials></presets>");
    const QDomElement preset = document.documentElement().firstChildElement().firstChildElement();
    EXPECT_EQ(told(LinksFrom(preset)), "materials[M]/material[A]/colour[c] -> colour c, "
                                       "materials[M]/material[A]/base/material[b] -> material b");
    EXPECT_EQ(told(LinksFrom(preset.firstChildElement())),
              "materials[M]/material[A]/colour[c] -> colour c");
    EXPECT_EQ(told(LinksTo("colour", "c", document.documentElement())),
              "materials[M]/material[A]/colour[c] -> colour c");
    EXPECT_EQ(told(LinksTo("material", "c", document.documentElement())), "");
    EXPECT_EQ(told(LinksTo("material", "a", document.documentElement())), "");
}

TEST(Links, OfADocumentAreThoseOfSnapshotsAndPalettes)
{
    const QDomDocument document = parsed(
        "<snapRoot><snapshots name='S'><snapshot name='One' refname='x'><camera refname='k'/>"
        "<materialRepository><material linkname='wall' refname='m'/></materialRepository>"
        "</snapshot></snapshots><unknown refname='u'/></snapRoot>");
    EXPECT_EQ(told(LinksFrom(document.documentElement())),
              "snapshots[S]/snapshot[One]/camera[k] -> camera k, "
              "snapshots[S]/snapshot[One]/materialRepository/material[m] -> material m");
    EXPECT_EQ(told(LinksFrom(QDomElement())), "");
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/catalogue/PathScan.h"
#include "../InAFolder.h"
#include "toolkit/catalogue/BlockStore.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <QStringList>

#include <vector>

namespace rvopen::test {

using namespace toolkit;
using namespace toolkit::catalogue;

namespace {

struct Leading {
    const char* name;
    QStringList paths;
    /// The names of the presets, "everything" where something else may be meant.
    const char* found;
};

class PathScans : public InAFolder, public ::testing::WithParamInterface<Leading> {};

TEST_P(PathScans, FindThePresetsThatPathsLeadTo)
{
    const QString file = write(
        "a.rvx", "<presets><materials><material name='A' cat='x'><finish><param name='p' "
                 "type='float' val='1'/></finish></material><dir name='D'><material name='B'/>"
                 "<material name='C' refname='c'><finish/></material></dir></materials>"
                 "<colours><colour name='A'/></colours></presets>");
    std::vector<PathPattern> patterns;
    for (const QString& path : GetParam().paths)
        patterns.emplace_back(path);
    PathScan scan(patterns);
    const ReadBlock read = readBlock(file);
    std::vector<BlockRow> rows;
    QStringList names;
    if (!scan.isPossible() || !scan.findRows(file, read.block, rows))
        names << QStringLiteral("everything");
    else
        for (const BlockRow& row : rows)
            names << toQString(read.block.text(row.name));
    EXPECT_EQ(names.join(QLatin1Char(' ')), QLatin1String(GetParam().found));
}

const Leading s_leading[] = {
    {"APreset", {"material[C]"}, "C"},
    {"AReferenceName", {"c@name"}, "C"},
    {"IntoAPreset", {"A/finish:p"}, "A"},
    {"AnyDepth", {"//:p"}, "A"},
    {"OfTwoKinds", {"A"}, "A A"},
    {"SeveralPaths", {"material[C]", "material[B]", "C/finish"}, "B C"},
    {"AnAttributeOfTheRoot", {"@name", "B@cat"}, "B"},
    {"AConditionOnAnAttribute", {"material[@cat=x]"}, "A B C"},
    {"AConditionOnAValue", {"material[:p=1]"}, "everything"},
    {"AFolder", {"dir[D]"}, "everything"},
    {"ASection", {"B", "materials"}, "everything"},
    {"Nothing", {"material[Z]"}, ""},
};

INSTANTIATE_TEST_SUITE_P(PathScan, PathScans, ::testing::ValuesIn(s_leading),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace rvopen::test

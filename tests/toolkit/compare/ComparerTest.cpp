// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/compare/Comparer.h>

#include "../Parts.h"

namespace rvopen::test {

namespace {

using namespace toolkit;

struct CompareCase {
    const char* what;
    const char* before;
    const char* after;
    const char* differences;
    double tolerance = 0;
};

void PrintTo(const CompareCase& one, std::ostream* out)
{
    *out << one.what;
}

QString lineOf(const Difference& difference)
{
    switch (difference.kind) {
    case DifferenceKind::Added:
        return QLatin1Char('+') + difference.path;
    case DifferenceKind::Removed:
        return QLatin1Char('-') + difference.path;
    case DifferenceKind::Moved:
        return QLatin1Char('>') + difference.path + QLatin1Char('<') + difference.from;
    case DifferenceKind::Changed:
        break;
    }
    return QLatin1Char('~') + difference.path + QLatin1Char('=') + difference.before +
           QLatin1Char('|') + difference.after;
}

std::string linesOf(const QVector<Difference>& differences)
{
    QStringList lines;
    for (const Difference& difference : differences)
        lines << lineOf(difference);
    return joinedBy(" ", lines);
}

class Compared : public ::testing::TestWithParam<CompareCase> {};

} // namespace

TEST_P(Compared, DifferInThis)
{
    const CompareCase& one = GetParam();
    Comparison comparison;
    comparison.tolerance = one.tolerance;
    const QDomDocument before = parsed(one.before);
    const QDomDocument after = parsed(one.after);
    Comparer comparer(comparison);
    EXPECT_EQ(linesOf(comparer.Run(before.documentElement(), after.documentElement())),
              one.differences);
    // Nothing of the first run is left in the second.
    EXPECT_EQ(linesOf(comparer.Run(before.documentElement(), after.documentElement())),
              one.differences);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, Compared,
    ::testing::Values(
        CompareCase{"nothing", "<r a='1'><b/></r>", "<r a='1'><b/></r>", ""},
        CompareCase{"the name of an element", "<r/>", "<s/>", "~=r|s"},
        CompareCase{"a parameter with what is none", "<param name='x' type='float' val='1'/>",
                    "<r/>", "~=param|r ~@name=x| ~@type=float| ~@val=1|"},
        CompareCase{"an attribute", "<r a='1' b='2'/>", "<r a='1' b='3'/>", "~@b=2|3"},
        CompareCase{"an attribute that came", "<r/>", "<r a='1'/>", "~@a=|1"},
        CompareCase{"an attribute that went", "<r a='1'/>", "<r/>", "~@a=1|"},
        CompareCase{"numbers as they are written",
                    "<r><param name='x' type='float' val='1.0'/></r>",
                    "<r><param name='x' type='float' val='1e0'/></r>", ""},
        CompareCase{"numbers", "<r><param name='x' type='float' val='1'/></r>",
                    "<r><param name='x' type='float' val='2'/></r>", "~:x=1|2"},
        CompareCase{"a type alone", "<r><param name='x' type='float' val='1'/></r>",
                    "<r><param name='x' type='integer' val='1'/></r>", "~:x@type=float|integer"},
        CompareCase{"type and value", "<r><param name='x' type='float' val='1'/></r>",
                    "<r><param name='x' type='integer' val='2'/></r>",
                    "~:x@type=float|integer ~:x=1|2"},
        CompareCase{"an element named val, which is no parameter", "<r val='1' type='a'/>",
                    "<r val='2' type='b'/>", "~@type=a|b ~@val=1|2"},
        CompareCase{"numbers at the tolerance", "<r><param name='x' type='float' val='1'/></r>",
                    "<r><param name='x' type='float' val='1.5'/></r>", "", 0.5},
        CompareCase{"numbers beyond it", "<r><param name='x' type='float' val='1'/></r>",
                    "<r><param name='x' type='float' val='1.51'/></r>", "~:x=1|1.51", 0.5},
        CompareCase{"the last number of three beyond it",
                    "<r><param name='x' type='vector' val='1 2 3'/></r>",
                    "<r><param name='x' type='vector' val='1.1 2.1 3.6'/></r>",
                    "~:x=1 2 3|1.1 2.1 3.6", 0.5},
        CompareCase{"three numbers within it", "<r><param name='x' type='vector' val='1 2 3'/></r>",
                    "<r><param name='x' type='vector' val='1.1 1.9 3.4'/></r>", "", 0.5},
        CompareCase{"texts that look like numbers",
                    "<r><param name='x' type='string' val='1'/></r>",
                    "<r><param name='x' type='string' val='1.1'/></r>", "~:x=1|1.1", 0.5},
        CompareCase{"shaders that look like numbers",
                    "<r><param name='x' type='shader' val='1'/></r>",
                    "<r><param name='x' type='shader' val='1.1'/></r>", "~:x=1|1.1", 0.5},
        CompareCase{"truths, which no tolerance covers",
                    "<r><param name='x' type='boolean' val='0'/></r>",
                    "<r><param name='x' type='boolean' val='1'/></r>", "~:x=false|true", 5},
        CompareCase{"a value that is absent now", "<r><param name='x' type='float' val='1'/></r>",
                    "<r><param name='x' type='float'/></r>", "~:x=1|", 5},
        CompareCase{"lengths in scene units",
                    "<snapRoot unitsScale='10'><param name='x' prop='D' type='float' "
                    "val='10'/></snapRoot>",
                    "<snapRoot unitsScale='100'><param name='x' prop='D' type='float' "
                    "val='100'/></snapRoot>",
                    "~@unitsScale=10|100"},
        CompareCase{"parts that came and went", "<r><a/><b/></r>", "<r><b/><c/></r>", "-a +c"},
        CompareCase{"the second of two parts", "<r><a/></r>", "<r><a/><a/></r>", "+a#2"},
        CompareCase{"parts by their kind, not by their name", "<r><a name='x'/></r>",
                    "<r><a name='y'/></r>", "~a[y]@name=x|y"},
        CompareCase{"collections by their name", "<r><snapshots name='x'/></r>",
                    "<r><snapshots name='y'/></r>", "-snapshots[x] +snapshots[y]"},
        CompareCase{"the members of a collection by their name",
                    "<r><snapshots name='s'><snapshot name='x'/></snapshots></r>",
                    "<r><snapshots name='s'><snapshot name='y'/></snapshots></r>",
                    "-snapshots[s]/snapshot[x] +snapshots[s]/snapshot[y]"},
        CompareCase{"presets by their reference name, before their name",
                    "<r><colours><colour name='a' refname='x'/></colours></r>",
                    "<r><colours><colour name='b' refname='x'/></colours></r>",
                    "~colours/colour[b]@name=a|b"},
        CompareCase{"members of a palette by their link name",
                    "<r><materialRepository><material linkname='l' refname='x'/>"
                    "</materialRepository></r>",
                    "<r><materialRepository><material linkname='l' refname='y'/>"
                    "</materialRepository></r>",
                    "~materialRepository/material[y]@refname=x|y"},
        CompareCase{"link names elsewhere tell nothing",
                    "<r><colours><colour linkname='l' refname='x'/></colours></r>",
                    "<r><colours><colour linkname='l' refname='y'/></colours></r>",
                    "-colours/colour[x] +colours/colour[y]"},
        CompareCase{"a folder and what is in it",
                    "<r><colours><dir name='d'><colour name='a'/></dir></colours></r>",
                    "<r><colours/></r>", "-colours/dir[d] -colours/dir[d]/colour[a]"},
        CompareCase{"what is in an element that went counts not for itself",
                    "<r><a><b name='x'/></a></r>", "<r/>", "-a"},
        CompareCase{"a preset in another folder",
                    "<r><colours><dir name='d'><colour name='a'/></dir></colours></r>",
                    "<r><colours><dir name='d'/><colour name='a'/></colours></r>",
                    ">colours/colour[a]<colours/dir[d]/colour[a]"},
        CompareCase{
            "of two that could have moved the first",
            "<r><colours><dir name='d'><colour name='a'/></dir></colours></r>",
            "<r><colours><dir name='d'/><dir name='e'><colour name='a' desc='1'/></dir><dir "
            "name='f'><colour name='a'/></dir></colours></r>",
            ">colours/dir[e]/colour[a]<colours/dir[d]/colour[a] "
            "~colours/dir[e]/colour[a]@desc=|1 +colours/dir[e] +colours/dir[f] "
            "+colours/dir[f]/colour[a]"},
        CompareCase{"what has no name moves nowhere",
                    "<r><colours><dir name='d'><colour/></dir></colours></r>",
                    "<r><colours><dir name='d'/><colour/></colours></r>",
                    "-colours/dir[d]/colour +colours/colour"},
        CompareCase{"the order of members",
                    "<r><colours><colour name='a'/><colour name='b'/><colour "
                    "name='c'/></colours></r>",
                    "<r><colours><colour name='b'/><colour name='c'/><colour "
                    "name='a'/></colours></r>",
                    ">colours/colour[a]<colours/colour[a]"},
        CompareCase{"the order of parts means nothing", "<r><a/><b/></r>", "<r><b/><a/></r>", ""},
        CompareCase{"the order of parameters means nothing",
                    "<r><dir><param name='x'/><param name='y'/></dir></r>",
                    "<r><dir><param name='y'/><param name='x'/></dir></r>", ""},
        CompareCase{"parameters by their names", "<r><param name='x'/></r>",
                    "<r><param name='y'/></r>", "-:x +:y"}));

TEST(Comparison, LeavesOutWhatItIsToldTo)
{
    Comparison comparison;
    comparison.ignoredAttributes << QStringLiteral("a");
    const QDomDocument before = parsed("<r a='1' b='1'><s a='1'/></r>");
    const QDomDocument after = parsed("<r a='2' b='2'><s a='2'/></r>");
    EXPECT_EQ(linesOf(Comparer(comparison).Run(before.documentElement(), after.documentElement())),
              "~@b=1|2");
}

} // namespace rvopen::test

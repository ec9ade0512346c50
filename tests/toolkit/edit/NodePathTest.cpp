// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/NodePath.h>

#include "../Parts.h"
#include "toolkit/edit/Labels.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <algorithm>

namespace rvopen::test {

namespace {

using namespace toolkit;

const char s_tree[] = R"(<snapRoot a="1">
<snapshots name="S">
 <snapshot name="A"><camera name="Eye" refname="eye"><param name="Near"/><param name="Far"/></camera></snapshot>
 <snapshot name="A"><camera linkname="eye"><param name="Near"/></camera></snapshot>
 <snapshot name="B"><background/><background/></snapshot>
 <snapshot/>
</snapshots>
<dir name="A"><param name="Near"><map><param name="Near"/></map></param></dir>
</snapRoot>)";

struct FindCase {
    const char* pattern;
    const char* paths;
};

void PrintTo(const FindCase& one, std::ostream* out)
{
    *out << one.pattern;
}

class FoundPaths : public ::testing::TestWithParam<FindCase> {};

} // namespace

TEST_P(FoundPaths, AreThese)
{
    const QDomDocument document = parsed(s_tree);
    QStringList paths;
    for (const PathPattern::Match& match :
         PathPattern(QString::fromUtf8(GetParam().pattern)).Find(document.documentElement()))
        paths << match.path;
    EXPECT_EQ(joinedBy(" ", paths), GetParam().paths);
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, FoundPaths,
    ::testing::Values(
        FindCase{"@a", ""}, FindCase{"snapshots", "snapshots[S]"},
        FindCase{"/snapshots", "snapshots[S]"}, FindCase{"/snapshot", ""},
        FindCase{"snapshot[A]", "snapshots[S]/snapshot[A] snapshots[S]/snapshot[A]#2"},
        FindCase{"snapshot[A]#1", "snapshots[S]/snapshot[A]"},
        FindCase{"snapshot[A]#2", "snapshots[S]/snapshot[A]#2"}, FindCase{"snapshot[A]#3", ""},
        FindCase{"snapshot#1",
                 "snapshots[S]/snapshot[A] snapshots[S]/snapshot[B] snapshots[S]/snapshot"},
        FindCase{"*[A]", "snapshots[S]/snapshot[A] snapshots[S]/snapshot[A]#2 dir[A]"},
        FindCase{"snapshots/*[B]", "snapshots[S]/snapshot[B]"},
        FindCase{"background#2", "snapshots[S]/snapshot[B]/background#2"},
        FindCase{"background#1", "snapshots[S]/snapshot[B]/background"},
        FindCase{"camera[Eye]", "snapshots[S]/snapshot[A]/camera[Eye]"},
        FindCase{"camera[eye]",
                 "snapshots[S]/snapshot[A]/camera[Eye] snapshots[S]/snapshot[A]#2/camera[eye]"},
        FindCase{"camera:Far", "snapshots[S]/snapshot[A]/camera[Eye]:Far"},
        FindCase{"camera:*", "snapshots[S]/snapshot[A]/camera[Eye]:Near "
                             "snapshots[S]/snapshot[A]/camera[Eye]:Far "
                             "snapshots[S]/snapshot[A]#2/camera[eye]:Near"},
        FindCase{"/dir:Near", "dir[A]:Near"}, FindCase{"dir:Near/map:Near", "dir[A]:Near/map:Near"},
        FindCase{"map:Near", "dir[A]:Near/map:Near"}, FindCase{"dir/*", "dir[A]:Near"},
        FindCase{"dir/param", ""}, FindCase{"camera:near", ""}, FindCase{"Camera", ""},
        FindCase{"snapshots/camera", ""},
        FindCase{"/snapshots/snapshot[B]/background",
                 "snapshots[S]/snapshot[B]/background snapshots[S]/snapshot[B]/background#2"}));

INSTANTIATE_TEST_SUITE_P(
    Depths, FoundPaths,
    ::testing::Values(FindCase{"//dir", "dir[A]"}, FindCase{"//map:Near", "dir[A]:Near/map:Near"},
                      FindCase{"/snapshots//camera[Eye]", "snapshots[S]/snapshot[A]/camera[Eye]"},
                      FindCase{"snapshots//:Near", "snapshots[S]/snapshot[A]/camera[Eye]:Near "
                                                   "snapshots[S]/snapshot[A]#2/camera[eye]:Near"},
                      FindCase{"dir//:Near", "dir[A]:Near dir[A]:Near/map:Near"},
                      FindCase{"dir//map", "dir[A]:Near/map"}, FindCase{"/camera//:Near", ""}));

INSTANTIATE_TEST_SUITE_P(
    Stars, FoundPaths,
    ::testing::Values(FindCase{"camera[E*]", "snapshots[S]/snapshot[A]/camera[Eye]"},
                      FindCase{"[E*e]", "snapshots[S]/snapshot[A]/camera[Eye]"},
                      FindCase{"camera[*ye]", "snapshots[S]/snapshot[A]/camera[Eye] "
                                              "snapshots[S]/snapshot[A]#2/camera[eye]"},
                      FindCase{"camera[Eye*e]", ""}, FindCase{"camera[E\\*]", ""},
                      FindCase{"camera[E*:N*]", ""},
                      FindCase{"camera[Eye]:F*", "snapshots[S]/snapshot[A]/camera[Eye]:Far"},
                      FindCase{"camera:*ar", "snapshots[S]/snapshot[A]/camera[Eye]:Near "
                                             "snapshots[S]/snapshot[A]/camera[Eye]:Far "
                                             "snapshots[S]/snapshot[A]#2/camera[eye]:Near"},
                      FindCase{"camera[Eye]:*e*r", "snapshots[S]/snapshot[A]/camera[Eye]:Near"}));

INSTANTIATE_TEST_SUITE_P(
    Conditions, FoundPaths,
    ::testing::Values(FindCase{"camera[@name=Eye]", "snapshots[S]/snapshot[A]/camera[Eye]"},
                      FindCase{"*[@linkname]", "snapshots[S]/snapshot[A]#2/camera[eye]"},
                      FindCase{"[@linkname]", "snapshots[S]/snapshot[A]#2/camera[eye]"},
                      FindCase{"camera[@name!=Eye]", "snapshots[S]/snapshot[A]#2/camera[eye]"},
                      FindCase{"camera[eye][@name~EY]", "snapshots[S]/snapshot[A]/camera[Eye]"},
                      FindCase{"snapshot[:Far]", "snapshots[S]/snapshot[A]"},
                      FindCase{"snapshot[A][:Far]/camera", "snapshots[S]/snapshot[A]/camera[Eye]"},
                      FindCase{"camera[@name=Eye][@refname=no]", ""}));

INSTANTIATE_TEST_SUITE_P(
    BareNames, FoundPaths,
    ::testing::Values(FindCase{"Eye", "snapshots[S]/snapshot[A]/camera[Eye]"},
                      FindCase{"eye:Far", "snapshots[S]/snapshot[A]/camera[Eye]:Far"},
                      FindCase{"S/B/background#2", ""},
                      FindCase{"B/background#2", "snapshots[S]/snapshot[B]/background#2"},
                      FindCase{"Ey*", "snapshots[S]/snapshot[A]/camera[Eye]"}, FindCase{"Near", ""},
                      FindCase{"/Eye", ""}));

TEST(NodePath, IsFoundByThePathThatIsGiven)
{
    const QDomDocument document = parsed(s_tree);
    int count = 0;
    Walk(document.documentElement(), QString(),
         [&count](const QDomElement& element, const QString& path) {
             EXPECT_EQ(PathOf(element), path);
             const auto found = PathPattern(QLatin1Char('/') + path)
                                    .Find(element.ownerDocument().documentElement());
             // Without a number the second of a name is found as well.
             EXPECT_TRUE(!found.isEmpty() &&
                         std::any_of(found.begin(), found.end(),
                                     [&](const auto& match) { return match.element == element; }))
                 << path.toStdString();
             ++count;
             return true;
         });
    EXPECT_EQ(count, 16);
}

TEST(NodePath, WalksWhereItIsWelcomeOnly)
{
    const QDomDocument document = parsed(s_tree);
    QStringList paths;
    Walk(document.documentElement(), QStringLiteral("x"),
         [&paths](const QDomElement& element, const QString& path) {
             paths << path;
             return element.tagName() == QLatin1String("snapshots");
         });
    EXPECT_EQ(joinedBy(" ", paths),
              "x/snapshots[S] x/snapshots[S]/snapshot[A] x/snapshots[S]/snapshot[A]#2 "
              "x/snapshots[S]/snapshot[B] x/snapshots[S]/snapshot x/dir[A]");
}

TEST(NodePath, OfNamesWithStarsAndSignsFindsTheseAlone)
{
    const QDomDocument document =
        parsed("<r><a name='x*'/><a name='xy'/><a name='@b=1'/><a name=':b'/></r>");
    Walk(document.documentElement(), QString(),
         [](const QDomElement& element, const QString& path) {
             const auto found = PathPattern(path).Find(element.ownerDocument().documentElement());
             EXPECT_EQ(found.size(), 1) << path.toStdString();
             EXPECT_TRUE(found.value(0).element == element) << path.toStdString();
             return true;
         });
}

TEST(NodePath, OfTheRootIsEmpty)
{
    EXPECT_EQ(PathOf(parsed("<a/>").documentElement()), QString());
}

struct LabelCase {
    const char* xml;
    const char* path;
};

void PrintTo(const LabelCase& one, std::ostream* out)
{
    *out << one.xml;
}

class LabelOf : public ::testing::TestWithParam<LabelCase> {};

TEST_P(LabelOf, TheOnlyChildIsThis)
{
    const QDomDocument document = parsed(GetParam().xml);
    const QDomElement child = document.documentElement().firstChildElement();
    EXPECT_EQ(PathOf(child), QString::fromUtf8(GetParam().path));
}

INSTANTIATE_TEST_SUITE_P(
    Elements, LabelOf,
    ::testing::Values(LabelCase{"<r><a/></r>", "a"}, LabelCase{"<r><a name='x'/></r>", "a[x]"},
                      LabelCase{"<r><a name='x' refname='y' linkname='z'/></r>", "a[x]"},
                      LabelCase{"<r><a refname='y' linkname='z'/></r>", "a[y]"},
                      LabelCase{"<r><a name='' linkname='z'/></r>", "a[z]"},
                      LabelCase{"<r><a name='x]y\\z/:@#='/></r>", "a[x\\]y\\\\z/:@#=]"},
                      LabelCase{"<r><a name='x&#10;y&#9;z'/></r>", "a[x\\ny\\tz]"},
                      LabelCase{"<r><a name='@x*'/></r>", "a[\\@x\\*]"},
                      LabelCase{"<r><a name=':x'/></r>", "a[\\:x]"},
                      LabelCase{"<r><param name='x*'/></r>", ":x\\*"},
                      LabelCase{"<r><param name='x'/></r>", ":x"},
                      LabelCase{"<r><param/></r>", ":"},
                      LabelCase{"<r><param name='/:@#=]'/></r>", ":\\/\\:\\@\\#\\=]"},
                      LabelCase{"<r><param refname='x'/></r>", ":"}));

struct ParsedCase {
    const char* pattern;
    const char* attribute;
};

void PrintTo(const ParsedCase& one, std::ostream* out)
{
    *out << one.pattern;
}

class AttributeOf : public ::testing::TestWithParam<ParsedCase> {};

TEST_P(AttributeOf, ThePathIsThis)
{
    const PathPattern pattern(QString::fromUtf8(GetParam().pattern));
    EXPECT_EQ(pattern.Attribute(), QString::fromUtf8(GetParam().attribute));
    EXPECT_EQ(pattern.Text(), QString::fromUtf8(GetParam().pattern));
}

INSTANTIATE_TEST_SUITE_P(Patterns, AttributeOf,
                         ::testing::Values(ParsedCase{"a", ""}, ParsedCase{"a@b", "b"},
                                           ParsedCase{"@b", "b"}, ParsedCase{"a[x@y]", ""},
                                           ParsedCase{"a[x@y]@z", "z"}, ParsedCase{"a:x\\@y", ""},
                                           ParsedCase{"a:x@y", "y"}, ParsedCase{"a#2@y", "y"}));

class NoPath : public ::testing::TestWithParam<const char*> {};

TEST_P(NoPath, IsRefused)
{
    EXPECT_THROW(PathPattern(QString::fromUtf8(GetParam())), Failure);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoPath,
                         ::testing::Values("", "/", "//", "a//", "///a", "a///b", "a//@b", "//@b",
                                           "a/", "a[x", "a[x][y]", "a[@b<c]", "a[@]", "a[x\\]",
                                           "a[x]b", "a@", "@", "a#", "a#0", "a#-1", "a#x", "a[x]#",
                                           "#1", "a#1#2"));

struct AssignmentCase {
    const char* text;
    /// Null when it is no assignment.
    const char* path;
    const char* value;
};

void PrintTo(const AssignmentCase& one, std::ostream* out)
{
    *out << one.text;
}

class Assignment : public ::testing::TestWithParam<AssignmentCase> {};

TEST_P(Assignment, IsSplitAtTheFirstSignOutsideOfNames)
{
    QString path = QStringLiteral("p");
    QString value = QStringLiteral("v");
    const bool isSplit = splitAssignment(QString::fromUtf8(GetParam().text), path, value);
    EXPECT_EQ(isSplit, GetParam().path != nullptr);
    EXPECT_EQ(path, QString::fromUtf8(isSplit ? GetParam().path : "p"));
    EXPECT_EQ(value, QString::fromUtf8(isSplit ? GetParam().value : "v"));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Assignment,
    ::testing::Values(AssignmentCase{"a=1", "a", "1"}, AssignmentCase{"a=", "a", ""},
                      AssignmentCase{"=1", "", "1"}, AssignmentCase{"a=b=c", "a", "b=c"},
                      AssignmentCase{"a[x=y]=1", "a[x=y]", "1"},
                      AssignmentCase{"a[x[=y]=1", "a[x[=y]", "1"},
                      AssignmentCase{"a[x\\]=y]=1", "a[x\\]=y]", "1"},
                      AssignmentCase{"a:x\\=y=1", "a:x\\=y", "1"},
                      AssignmentCase{"a", nullptr, nullptr}, AssignmentCase{"", nullptr, nullptr},
                      AssignmentCase{"a[x=y", nullptr, nullptr},
                      AssignmentCase{"a\\=1", nullptr, nullptr}));

} // namespace rvopen::test

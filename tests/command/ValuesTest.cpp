// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QFile>
#include <QFileInfo>

namespace rvopen::test {

namespace {

class Values : public ::testing::Test {
protected:
    Values()
    {
        workspace.write(QStringLiteral("a.xml"), smallDocument());
    }

    Outcome get(const QStringList& paths) const
    {
        return workspace.run(words("get a.xml") + paths);
    }

    Outcome set(const QStringList& arguments) const
    {
        return workspace.run(words("set a.xml") + arguments +
                             QStringList(QStringLiteral("--in-place")));
    }

    /// The document is what it was, whole.
    bool isUntouched() const
    {
        return workspace.read(QStringLiteral("a.xml")) == smallDocument() &&
               workspace.files() == QStringList(QStringLiteral("a.xml"));
    }

    Workspace workspace;
};

const QString s_eye = QStringLiteral("camera[Eye]:");

} // namespace

// tree

TEST_F(Values, TreePrintsPathsThatGetTakes)
{
    const Outcome tree = workspace.run("tree --params --paths a.xml");
    int count = 0;
    for (const QString& line : tree.lines()) {
        if (!line.contains(QLatin1String(" = ")))
            continue;
        const QString path = line.section(QStringLiteral(" = "), 0, 0);
        const bool isOfRoot = path.startsWith(QLatin1Char('@'));
        const Outcome run = get({isOfRoot ? path : QLatin1Char('/') + path});
        EXPECT_EQ(run.code, 0) << path.toStdString();
        EXPECT_EQ(run.out, line.section(QStringLiteral(" = "), 1) + QLatin1Char('\n'));
        ++count;
    }
    EXPECT_GT(count, 20);
}

/// With a prefix declared the document is built.
TEST_F(Values, TreeToADepthIsThatOfTheBuiltDocument)
{
    const QByteArray strange =
        "<snapRoot refname=\"a&amp;b\" name=\"&#x9;\" ><dir/>text<dir name=\"same\"/><param/><dir "
        "name=\"same\" subcat=\"&lt;\"><param name=\"p\"><!-- --><param name=\"q\"><a/><b/></param>"
        "</param><param name=\"p\"/><param name=\"p\"><a/><a/></param></dir></snapRoot>";
    for (const QByteArray& plain : {smallDocument(), smallArchive(), strange}) {
        const QByteArray declared = declaringAPrefix(plain);
        for (int depth = 0; depth < 7; ++depth) {
            for (const QString& option :
                 {QString(), QStringLiteral(" --json"), QStringLiteral(" --paths")}) {
                const QStringList line = words("tree a.xml --depth") +
                                         words(qPrintable(QString::number(depth) + option));
                workspace.write(QStringLiteral("a.xml"), declared);
                const Outcome built = workspace.run(line);
                workspace.write(QStringLiteral("a.xml"), plain);
                const Outcome run = workspace.run(line);
                EXPECT_FALSE(built.out.isEmpty());
                EXPECT_EQ(run.out, built.out) << depth << option.toStdString();
                EXPECT_EQ(run.err, QString());
                EXPECT_EQ(run.code, 0);
            }
        }
    }
}

TEST_F(Values, TreeToADepthRefusesWhatIsBrokenBelowIt)
{
    workspace.write(QStringLiteral("b.xml"), "<snapRoot><a><b><c></b></a></snapRoot>");
    const Outcome run = workspace.run("tree --depth 1 --paths b.xml a.xml");
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(run.err.startsWith(QLatin1String("b.xml:1:"))) << run.err.toStdString();
    EXPECT_EQ(run.err, workspace.run("tree --params b.xml").err);
    EXPECT_EQ(run.out, workspace.run("tree --depth 1 --paths a.xml").out);
}

TEST_F(Values, AnyNameHasAPath)
{
    workspace.write(QStringLiteral("a.xml"),
                    "<snapRoot><dir name=\"a]b\\c[d/e:f@g#2=h&#xa;i\"><camera><param "
                    "name=\"x]/y:z@w#1=2\\\" type=\"string\" val=\"found\"/></camera></dir>"
                    "<dir name=\"same\"/><dir name=\"same\" desc=\"second\"/></snapRoot>");
    const QStringList lines = workspace.run("tree --params --paths a.xml").lines();
    const QStringList found = lines.filter(QStringLiteral(" = found"));
    ASSERT_EQ(found.size(), 1);
    const QString path = found.first().section(QStringLiteral(" = "), 0, 0);
    EXPECT_EQ(get({path}).out, QStringLiteral("found\n"));
    EXPECT_EQ(set({path + QStringLiteral("=a=b")}).code, 0);
    EXPECT_EQ(get({path}).out, QStringLiteral("a=b\n"));
    EXPECT_EQ(get(words("/dir[same]#2@desc")).out, QStringLiteral("second\n"));
}

TEST_F(Values, TreeStopsAtTheDepth)
{
    const Outcome tree = workspace.run("tree --depth 1 a.xml");
    EXPECT_EQ(tree.lines().size(), 2);
}

TEST_F(Values, TreeShowsParametersOnDemand)
{
    const QStringList arguments = words("tree a.xml");
    EXPECT_FALSE(workspace.run(arguments).out.contains(QLatin1String("Field Of View")));
    EXPECT_TRUE(workspace.run(arguments + QStringList(QStringLiteral("-p")))
                    .out.contains(QLatin1String(":Field Of View = 45\n")));
}

TEST_F(Values, TreeIsOfItsSchema)
{
    EXPECT_TRUE(isOfSchema(workspace.run("tree --json -p a.xml"), QStringLiteral("tree")));
}

// get

TEST_F(Values, GetPrintsOneValueAlone)
{
    EXPECT_EQ(get({s_eye + QStringLiteral("Field Of View")}).out, QStringLiteral("45\n"));
}

TEST_F(Values, GetDividesLengthsByTheUnitsScale)
{
    EXPECT_EQ(get({s_eye + QStringLiteral("Near")}).out, QStringLiteral("0.5\n"));
}

TEST_F(Values, GetReadsAttributes)
{
    EXPECT_EQ(get(words("camera[Eye]@refname")).out, QStringLiteral("camera.eye\n"));
    EXPECT_EQ(get(words("@unitsScale")).out, QStringLiteral("10\n"));
}

TEST_F(Values, GetPassesOverElementsWithoutTheAttribute)
{
    EXPECT_EQ(get(words("snapshots/*@refname")).out, QString());
    EXPECT_EQ(get(words("camera@nothing")).code, 1);
    EXPECT_EQ(get(words("*@refname")).out, QStringLiteral("camera.eye\n"));
}

TEST_F(Values, GetPrintsEveryMatchWithItsPath)
{
    EXPECT_EQ(get(words("'camera:Field Of View'")).lines().size(), 2);
}

TEST_F(Values, GetOfAnElementHasWhatParametersHold)
{
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"Red\"><diffuse><param name=\"Colour\" "
                    "type=\"shader\" val=\"colour\"><plainColour enabled=\"1\"><param "
                    "name=\"Colour\" type=\"colour\" val=\"1 0 0\"/></plainColour></param>"
                    "</diffuse></colour></colours></presets>");
    EXPECT_EQ(
        workspace.run("get a.rvx colour[Red]").lines().filter(QStringLiteral("/plainColour")),
        (QStringList{
            QStringLiteral("colours/colour[Red]/diffuse:Colour/plainColour@enabled  1"),
            QStringLiteral("colours/colour[Red]/diffuse:Colour/plainColour:Colour   1 0 0")}));
}

TEST_F(Values, GetTakesNamesWithSlashes)
{
    EXPECT_EQ(get(words("'snapshot[Front / left]/camera:Orthographic'")).out,
              QStringLiteral("false\n"));
}

TEST_F(Values, GetTakesNamesOfOtherLetters)
{
    EXPECT_EQ(get(words("'snapshot[Größe]/camera:Field Of View'")).out, QStringLiteral("30\n"));
}

TEST_F(Values, GetFindsByReferenceNameAndStars)
{
    EXPECT_EQ(get(words("'*[camera.eye]:Field Of View'")).out, QStringLiteral("45\n"));
    EXPECT_EQ(get(words("snapshots/*[*]/background:*")).out, QStringLiteral("1 0.5 0\n"));
}

TEST_F(Values, AnAnchoredPathStartsBelowTheRoot)
{
    EXPECT_EQ(get(words("'/camera:Field Of View'")).code, 1);
}

TEST_F(Values, GetAnswersOneWhenNothingIsFound)
{
    const Outcome run = get(words("camera:Nothing"));
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, QString());
}

TEST_F(Values, GetAnswersTwoForWhatIsNoPath)
{
    for (const char* path : {"", "/", "a[b", "camera:x#0", "a///b", "camera@", "camera[@x<y]"})
        EXPECT_EQ(get({QLatin1String(path)}).code, 2) << path;
}

TEST_F(Values, GetIsOfItsSchema)
{
    EXPECT_TRUE(isOfSchema(get(words("--json *:* *@name")), QStringLiteral("get")));
}

// set

struct Assignment {
    const char* path;
    const char* value;
    const char* stored;
};

void PrintTo(const Assignment& assignment, std::ostream* out)
{
    *out << assignment.path << '=' << assignment.value;
}

class GoodAssignment : public Values, public ::testing::WithParamInterface<Assignment> {};

TEST_P(GoodAssignment, IsStored)
{
    const QString path = QString::fromUtf8(GetParam().path);
    const Outcome run = set({path + QLatin1Char('=') + QString::fromUtf8(GetParam().value)});
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    const QByteArray xml = workspace.read(QStringLiteral("a.xml"));
    EXPECT_TRUE(xml.contains(GetParam().stored)) << xml.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Types, GoodAssignment,
    ::testing::Values(
        Assignment{"camera[Eye]:Field Of View", "50.5", "type=\"float\" val=\"50.5\""},
        Assignment{"camera[Eye]:Near", "2", "prop=\"D\" type=\"float\" val=\"20\""},
        Assignment{"camera[Eye]:From", "4 5.5 -6", "val=\"4 5.5 -6\""},
        Assignment{"camera[Eye]:From", "4,5,6", "val=\"4 5 6\""},
        Assignment{"camera[Eye]:Orthographic", "yes",
                   "\"Orthographic\" type=\"boolean\" val=\"1\""},
        Assignment{"background:Colour", "#ff0000", "type=\"colour\" val=\"1 0 0\""},
        Assignment{"renderTarget:Width", "1024", "type=\"integer\" val=\"1024\""},
        Assignment{"snapShotSettings:Reflected Env Path", "D:\\a = b.hdr", "val=\"D:\\a = b.hdr\""},
        Assignment{"snapShotSettings:Reflected Env Path", "", "type=\"string\" val=\"\""},
        Assignment{"camera[Eye]@desc", "<new> & \"quoted\"",
                   "desc=\"&lt;new> &amp; &quot;quoted&quot;\""},
        Assignment{"camera[Eye]@enabled", "off", "<camera enabled=\"0\""},
        Assignment{"@unitsScale", "2.5", "unitsScale=\"2.5\""}));

class BadAssignment : public Values, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadAssignment, LeavesTheDocumentAlone)
{
    const Outcome run = set({QString::fromUtf8(GetParam())});
    EXPECT_EQ(run.code, 2);
    EXPECT_NE(run.err, QString());
    EXPECT_TRUE(isUntouched());
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, BadAssignment,
    ::testing::Values("camera[Eye]:Field Of View=wide", "camera[Eye]:Field Of View=",
                      "camera[Eye]:Field Of View=5", "camera[Eye]:Field Of View=121",
                      "camera[Eye]:Field Of View=nan", "camera[Eye]:Field Of View=1e99",
                      "camera[Eye]:Far=50", "camera[Eye]:From=1 2", "camera[Eye]:From=1 2 3 4",
                      "camera[Eye]:Orthographic=2", "renderTarget:Width=1.5", "camera[Eye]=5",
                      "camera:Field Of View=50", "camera:Nothing=1", "camera[Eye]:Near",
                      "@unitsScale=0", "camera[Eye]:Near@val=1", "camera[Eye]@enabled=maybe",
                      "camera[Eye]@1=2"));

TEST_F(Values, SetKnowsWhatAttributesAreMadeOf)
{
    const QString near = s_eye + QStringLiteral("Near@");
    for (const char* const name : {"rangeMin", "rangeMax", "centre", "range"}) {
        EXPECT_EQ(set({near + QLatin1String(name) + QStringLiteral("=low")}).code, 2) << name;
        EXPECT_EQ(set({near + QLatin1String(name) + QStringLiteral("=1.5")}).code, 0) << name;
        EXPECT_EQ(get({near + QLatin1String(name)}).out, QStringLiteral("1.5\n")) << name;
    }
    const QString camera = QStringLiteral("camera[Eye]@");
    for (const char* const name :
         {"enabled", "custom", "reset", "translationDisabled", "thumbRegenerated"}) {
        EXPECT_EQ(set({camera + QLatin1String(name) + QStringLiteral("=2")}).code, 2) << name;
        EXPECT_EQ(set({camera + QLatin1String(name) + QStringLiteral("=true")}).code, 0) << name;
        EXPECT_EQ(get({camera + QLatin1String(name)}).out, QStringLiteral("1\n")) << name;
    }
    EXPECT_EQ(set({camera + QStringLiteral("ImageBorder=1.5")}).code, 2);
    EXPECT_EQ(set({camera + QStringLiteral("ImageBorder=3")}).code, 0);
    EXPECT_EQ(set({QStringLiteral("@unitsScale=-1")}).code, 2);
    EXPECT_EQ(set({QStringLiteral("@unitsScale=big")}).code, 2);
    EXPECT_EQ(set({QStringLiteral("@unitsScale=0.5")}).code, 0);
    EXPECT_EQ(get({QStringLiteral("@unitsScale")}).out, QStringLiteral("0.5\n"));
}

TEST_F(Values, SetRefusesWhatMakesNoSenseUnlessForced)
{
    struct Slip {
        const char* assignment;
        const char* problem;
    };
    for (const Slip& slip :
         {Slip{"camera[Eye]:Near=-3", "-3 is not from 0 (--force sets it)"},
          Slip{"renderTarget:Width=-2", "-2 is not from 1 (--force sets it)"},
          Slip{"background:Colour=1 -1 0", "-1 is not from 0 (--force sets it)"},
          Slip{"background@subcat=Plane",
               "there is no background of kind \"Plane\"; did you mean \"Plain\"? (--force sets "
               "it)"},
          Slip{"background@subcat=Stars",
               "there is no background of kind \"Stars\" (--force sets it)"},
          Slip{"camera[Eye]@decs=x", "no camera has an attribute \"decs\"; did you mean \"desc\"? "
                                     "(--force sets it)"}}) {
        const QString assignment = QString::fromUtf8(slip.assignment);
        const Outcome refused = set({assignment});
        EXPECT_EQ(refused.code, 2) << slip.assignment;
        EXPECT_THAT(refused.err.toStdString(),
                    ::testing::HasSubstr(": " + std::string(slip.problem) + '\n'));
        EXPECT_TRUE(isUntouched()) << slip.assignment;
        const QString place = assignment.section(QLatin1Char('='), 0, 0);
        const QString before = get({place}).out;
        EXPECT_EQ(set({QStringLiteral("--force"), assignment}).code, 0) << slip.assignment;
        EXPECT_EQ(get({place}).out, assignment.section(QLatin1Char('='), 1) + QLatin1Char('\n'));
        EXPECT_NE(get({place}).out, before);
        workspace.write(QStringLiteral("a.xml"), smallDocument());
    }
}

TEST_F(Values, SetTakesKindsThatAreLikeNoOther)
{
    EXPECT_EQ(set({QStringLiteral("camera[Eye]@subcat=Handheld")}).code, 0);
    EXPECT_EQ(set({QStringLiteral("background@subcat=Horizon")}).code, 0);
}

TEST_F(Values, SetMakesAllAssignmentsOrNone)
{
    EXPECT_EQ(
        set({s_eye + QStringLiteral("Field Of View=50"), s_eye + QStringLiteral("From=1")}).code,
        2);
    EXPECT_TRUE(isUntouched());
}

TEST_F(Values, SetAllTakesEveryMatch)
{
    EXPECT_EQ(set(words("--all 'camera:Field Of View=50'")).code, 0);
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")).count("val=\"50\""), 2);
}

TEST_F(Values, SetForceTakesReadOnlyParametersAndOtherRanges)
{
    EXPECT_EQ(set({QStringLiteral("--force"), s_eye + QStringLiteral("Far=50"),
                   s_eye + QStringLiteral("Field Of View=150")})
                  .code,
              0);
}

TEST_F(Values, SetForceTakesNoOtherType)
{
    for (const char* const assignment :
         {"Field Of View=wide", "Field Of View=", "From=1 2", "Orthographic=2", "Far=near"}) {
        const Outcome run = set({QStringLiteral("--force"), s_eye + QLatin1String(assignment)});
        EXPECT_EQ(run.code, 2) << assignment;
        EXPECT_TRUE(isUntouched()) << assignment;
    }
}

TEST_F(Values, SetForceChangesNoRange)
{
    EXPECT_EQ(set({QStringLiteral("--force"), s_eye + QStringLiteral("Field Of View=150")}).code,
              0);
    QByteArray expected = smallDocument();
    expected.replace("val=\"45\"", "val=\"150\"");
    EXPECT_EQ(workspace.read(QStringLiteral("a.xml")).toStdString(), expected.toStdString());
}

TEST_F(Values, SetWritesNowhereUnlessTold)
{
    const Outcome run = workspace.run({QStringLiteral("set"), QStringLiteral("a.xml"),
                                       s_eye + QStringLiteral("Field Of View=50")});
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(isUntouched());
}

TEST_F(Values, SetDoesNotTakeTheInputForAnOutput)
{
    const Outcome run = workspace.run({QStringLiteral("set"), QStringLiteral("a.xml"),
                                       s_eye + QStringLiteral("Field Of View=50"),
                                       QStringLiteral("-o"), QStringLiteral("./a.xml")});
    EXPECT_EQ(run.code, 2);
    EXPECT_TRUE(isUntouched());
}

TEST_F(Values, SetIsAFilter)
{
    const Outcome run = workspace.run({QStringLiteral("set"), QStringLiteral("-"),
                                       s_eye + QStringLiteral("Field Of View=50"),
                                       QStringLiteral("-o"), QStringLiteral("-")},
                                      smallDocument());
    EXPECT_EQ(run.code, 0);
    QByteArray expected = smallDocument();
    expected.replace("val=\"45\"", "val=\"50\"");
    EXPECT_EQ(run.out.toStdString(), expected.toStdString());
}

TEST_F(Values, SetIsOfItsSchema)
{
    EXPECT_TRUE(
        isOfSchema(set({QStringLiteral("--json"), s_eye + QStringLiteral("Field Of View=50")}),
                   QStringLiteral("set")));
}

TEST_F(Values, SetThroughALinkLeavesTheLink)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("a.xml"), workspace.path(QStringLiteral("link.xml"))));
    EXPECT_EQ(workspace
                  .run({QStringLiteral("set"), QStringLiteral("link.xml"),
                        s_eye + QStringLiteral("Field Of View=50"), QStringLiteral("--in-place")})
                  .code,
              0);
    EXPECT_TRUE(QFileInfo(workspace.path(QStringLiteral("link.xml"))).isSymLink());
    EXPECT_EQ(get({s_eye + QStringLiteral("Field Of View")}).out, QStringLiteral("50\n"));
}

TEST_F(Values, SetThatCannotWriteLeavesTheOldFile)
{
    workspace.write(QStringLiteral("old.xml"), "<old/>");
    const Outcome run = workspace.shell(
        QStringLiteral("ulimit -f 0; trap '' XFSZ; rvopen set a.xml 'camera[Eye]:Field Of View=50' "
                       "-o old.xml --force"));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("old.xml")), QByteArray("<old/>"));
    EXPECT_EQ(workspace.files().size(), 2);
}

TEST(Set, TellsHowAValueIsWritten)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    const auto refusal = [&workspace](const char* assignment) {
        const Outcome run =
            workspace.run({QStringLiteral("set"), QStringLiteral("a.xml"), QStringLiteral("-o"),
                           QStringLiteral("-"), QLatin1String(assignment)});
        EXPECT_EQ(run.code, 2) << assignment;
        return run.err.section(QLatin1Char('\n'), 0, 0).section(QStringLiteral(": "), 2);
    };
    EXPECT_EQ(refusal("camera[Eye]:Field Of View=40,5"),
              QStringLiteral("\"40,5\" has a comma where a number has its decimal point: 40.5"));
    EXPECT_EQ(refusal("camera[Eye]:Field Of View=wide"),
              QStringLiteral("\"wide\" is no number: write it as 0.5"));
    EXPECT_EQ(refusal("renderTarget:Width=1.5"),
              QStringLiteral("\"1.5\" is no whole number of 32 bits: write it as 3"));
    EXPECT_EQ(refusal("camera[Eye]:Orthographic=maybe"),
              QStringLiteral("\"maybe\" is neither true nor false"));
    EXPECT_EQ(refusal("background:Colour=red"),
              QStringLiteral("\"red\" is no colour: write \"0.5 0 0\" or \"#800000\""));
    EXPECT_EQ(refusal("camera[Eye]:From=1 2"),
              QStringLiteral("\"1 2\" is not three numbers: write \"0 0.5 1\""));
}

TEST(Paths, ThatFindNothingAskWhichWasMeant)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    workspace.write(QStringLiteral("a.rvx"), smallArchive());
    const QString view = QStringLiteral("camera:Feild Of View");
    EXPECT_EQ(workspace.run({QStringLiteral("get"), QStringLiteral("a.xml"), view}).err,
              QStringLiteral("a.xml: nothing has the path \"camera:Feild Of View\"; did you mean "
                             "\"camera:Field Of View\"?\n"));
    EXPECT_EQ(workspace
                  .run({QStringLiteral("set"), QStringLiteral("a.xml"),
                        view + QStringLiteral("=40"), QStringLiteral("-o"), QStringLiteral("-")})
                  .err,
              QStringLiteral("a.xml: nothing has the path \"camera:Feild Of View\"; did you mean "
                             "\"camera:Field Of View\"?\nrvopen: nothing was set\n"));
    EXPECT_EQ(workspace.run("remove a.rvx Barss -o -").err,
              QStringLiteral("rvopen: nothing has the path \"Barss\"; did you mean \"Brass\"?\n"));
    EXPECT_EQ(workspace.run("get a.rvx material@subcta").err,
              QStringLiteral("a.rvx: nothing has the path \"material@subcta\"; did you mean "
                             "\"material@subcat\"?\n"));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

/// Presets of doubled and of nested names among many others.
QByteArray strangeArchive()
{
    return largeArchive(150).replace(
        "</materials>",
        "<material name='twin' cat='1'><finish><param name='roughness' type='float' val='0.1'/>"
        "</finish></material><material name='twin' cat='2'><finish><param name='roughness' "
        "type='float' val='0.2'/></finish></material><dir name='D' refname='d'><material "
        "name='inner' cat='3'><colour name='Oak/oak'><param name='val' type='float' val='1'/>"
        "</colour></material></dir><param name='loose' type='float' val='7'/><dir name='D'>"
        "<material name='last'/></dir></materials><colours name='C'><colour name='materials' "
        "cat='4'><materials><material name='deep'><param name='roughness' type='float' val='3'/>"
        "</material></materials></colour><colour refname='r'/></colours>");
}

/// What the command does with a document that it builds, and with the same that it need not build.
void expectTheSame(const Workspace& workspace, const QByteArray& document, const QStringList& line)
{
    workspace.write(QStringLiteral("a.rvx"), declaringAPrefix(document));
    const Outcome built = workspace.run(line);
    workspace.write(QStringLiteral("a.rvx"), document);
    const Outcome run = workspace.run(line);
    const std::string what = line.join(QLatin1Char(' ')).toStdString();
    EXPECT_EQ(run.out, built.out) << what;
    EXPECT_EQ(run.err, built.err) << what;
    EXPECT_EQ(run.code, built.code) << what;
}

} // namespace

TEST(Get, PrintsTheSameWhetherTheDocumentIsBuilt)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("b.rvx"), smallArchive());
    const QByteArray archive = strangeArchive();
    for (const char* const paths : {"'/materials/dir[0]/material[Material 77]/finish:roughness'",
                                    "'materials/dir/material[m.77]@refname'",
                                    "'material[Material 77]'",
                                    "'Material 77'",
                                    "'Material 77/finish:roughness' 'm.78@name'",
                                    "'[Material 7*]@refname'",
                                    "'*[inner]//:val'",
                                    "'inner//:val'",
                                    "'colour[Oak/oak]:val'",
                                    "@name",
                                    "@name twin@cat",
                                    "'material[twin]@cat'",
                                    "'material[twin]#2@cat'",
                                    "'material[last]@name'",
                                    "'material[@cat=3]@name'",
                                    "'material[:val]@name'",
                                    "'dir[D]@refname'",
                                    "'dir[D]#2@name'",
                                    "'d/*@name'",
                                    "':loose'",
                                    "':roughness'",
                                    "'materials/material[deep]:roughness'",
                                    "materials/deep@name",
                                    "materials@name",
                                    "colours",
                                    "'*[r]'",
                                    "'material[twn]@cat'",
                                    "'Material 77:roughnes'",
                                    "'Material 77@nothing'",
                                    "'finish[x]'"}) {
        for (const char* const options : {"get a.rvx ", "get --json a.rvx ", "get a.rvx b.rvx "})
            expectTheSame(workspace, archive, words((QByteArray(options) + paths).constData()));
    }
    expectTheSame(workspace, archive, words("get --jobs 2 a.rvx b.rvx 'Material 77' Brass@cat"));
    expectTheSame(workspace, archive, words("get a.rvx --type colour @cat materials@cat"));
}

TEST(Get, PrintsTheSameOfSnapshotsWhetherTheDocumentIsBuilt)
{
    const Workspace workspace;
    const QByteArray document = smallDocument().replace(
        "<snapshots", "<snapshot name=\"now\"><camera><param name=\"Near\" type=\"float\" "
                      "val=\"5\"/></camera><dir name=\"x\"><camera name=\"in\"/></dir></snapshot>"
                      "<snapshots");
    for (const char* const path :
         {"/snapshot/camera:Near", "/snapshot@name", "/snapshot", "camera:Near", "camera[in]@name",
          "'[Front / left]//:From'", "@unitsScale", "camera:Nere"})
        expectTheSame(workspace, document,
                      QStringList(QStringLiteral("get")) + words("a.rvx") + words(path));
}

TEST(Get, RefusesWhatIsBrokenBehindWhatIsAskedFor)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), largeArchive(150).replace("</presets>", "</preset>"));
    const Outcome run = workspace.run("get a.rvx 'Material 7@name'");
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.out, QString());
    EXPECT_TRUE(run.err.startsWith(QLatin1String("a.rvx:"))) << run.err.toStdString();
}

} // namespace rvopen::test

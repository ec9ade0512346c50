// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

QByteArray replaced(QByteArray text, const char* from, const char* to)
{
    EXPECT_TRUE(text.contains(from)) << from;
    return text.replace(from, to);
}

class Merging : public ::testing::Test {
protected:
    Outcome merge(const QByteArray& base, const QByteArray& ours, const QByteArray& theirs,
                  const char* options = "--in-place") const
    {
        m_workspace.write(QStringLiteral("base"), base);
        m_workspace.write(QStringLiteral("ours"), ours);
        m_workspace.write(QStringLiteral("theirs"), theirs);
        return m_workspace.run(words("merge base ours theirs") + words(options));
    }

    /// What was merged against another text, as diff prints it.
    QString differenceTo(const QByteArray& text) const
    {
        m_workspace.write(QStringLiteral("wanted"), text);
        return m_workspace.run("diff wanted ours").out;
    }

    Workspace m_workspace;
};

} // namespace

TEST_F(Merging, TakesWhatEachSideAloneChanged)
{
    const QByteArray ours = replaced(smallArchive(), "val=\"30\"", "val=\"35\"");
    const QByteArray theirs = replaced(smallArchive(), "desc=\"Grey\"", "desc=\"Blue\"");
    const Outcome run = merge(smallArchive(), ours, theirs);
    EXPECT_EQ(run.code, 0) << run.out.toStdString() << run.err.toStdString();
    EXPECT_EQ(run.out, QString());
    EXPECT_EQ(differenceTo(replaced(ours, "desc=\"Grey\"", "desc=\"Blue\"")), QString());
}

TEST_F(Merging, InConflictOursStaysAndTheRestIsTaken)
{
    const QByteArray ours = replaced(smallArchive(), "val=\"30\"", "val=\"35\"");
    const QByteArray theirs = replaced(replaced(smallArchive(), "val=\"30\"", "val=\"40\""),
                                       "val=\"0.1\"", "val=\"0.2\"");
    const Outcome run = merge(smallArchive(), ours, theirs);
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, QStringLiteral("! cameras[Cameras]/camera[Above]:Field Of View: \"30\" -> "
                                      "ours \"35\", theirs \"40\"\n"));
    EXPECT_EQ(differenceTo(replaced(ours, "val=\"0.1\"", "val=\"0.2\"")), QString());
}

TEST_F(Merging, AsJsonHasWhatThereIsNotAsNull)
{
    const QByteArray ours = replaced(smallArchive(), "desc=\"Grey\" ", "");
    const QByteArray theirs = replaced(smallArchive(), "desc=\"Grey\"", "desc=\"Blue\"");
    const Outcome run = merge(smallArchive(), ours, theirs, "--json");
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("merge")));
    const QJsonObject result = run.json();
    EXPECT_EQ(result.value(QStringLiteral("taken")).toInt(-1), 0);
    const QJsonObject conflict =
        result.value(QStringLiteral("conflicts")).toArray().at(0).toObject();
    EXPECT_EQ(conflict.value(QStringLiteral("path")).toString(),
              QStringLiteral("materials[Materials]/dir[Metals]/material[Zinc]@desc"));
    EXPECT_EQ(conflict.value(QStringLiteral("base")).toString(), QStringLiteral("Grey"));
    EXPECT_TRUE(conflict.value(QStringLiteral("ours")).isNull());
    EXPECT_EQ(conflict.value(QStringLiteral("theirs")).toString(), QStringLiteral("Blue"));
}

TEST_F(Merging, WithoutATargetNothingIsWritten)
{
    const QByteArray theirs = replaced(smallArchive(), "desc=\"Grey\"", "desc=\"Blue\"");
    for (const char* const options : {"", "--dry-run", "--dry-run --in-place"}) {
        EXPECT_EQ(merge(smallArchive(), smallArchive(), theirs, options).code, 0) << options;
        EXPECT_EQ(m_workspace.read(QStringLiteral("ours")), smallArchive()) << options;
    }
}

TEST_F(Merging, ToStandardOutputConflictsAreErrors)
{
    const Outcome run = merge(smallArchive(), replaced(smallArchive(), "\"30\"", "\"35\""),
                              replaced(smallArchive(), "\"30\"", "\"40\""), "-o -");
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.out.startsWith(QLatin1String("<?xml")));
    EXPECT_THAT(run.err.toStdString(), ::testing::HasSubstr("ours \"35\", theirs \"40\""));
}

TEST_F(Merging, AnEmptyBaseIsNoneAtAll)
{
    EXPECT_EQ(merge("", smallArchive(), smallArchive()).code, 0);
    const Outcome run =
        merge("", smallArchive(), replaced(smallArchive(), "desc=\"Grey\"", "desc=\"Blue\""));
    EXPECT_EQ(run.out, QStringLiteral("! materials[Materials]/dir[Metals]/material[Zinc]@desc: "
                                      "nothing -> ours \"Grey\", theirs \"Blue\"\n"));
}

TEST_F(Merging, OursThatTakesNothingKeepsItsBytes)
{
    const QByteArray ours = replaced(smallArchive(), "   <cameras", "<cameras");
    EXPECT_EQ(merge(smallArchive(), ours, smallArchive()).code, 0);
    EXPECT_EQ(m_workspace.read(QStringLiteral("ours")), ours);
}

TEST_F(Merging, RefusesDocumentsOfTwoKinds)
{
    const Outcome run = merge(smallArchive(), smallArchive(), smallDocument());
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(m_workspace.read(QStringLiteral("ours")), smallArchive());
}

} // namespace rvopen::test

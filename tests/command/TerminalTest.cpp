// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QStandardPaths>

#include <csignal>

namespace rvopen::test {

namespace {

/// What reaches a terminal that the program runs on.
class Terminal : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("script")).isEmpty())
            GTEST_SKIP() << "there is no script";
        workspace.environment.insert(QStringLiteral("TERM"), QStringLiteral("xterm"));
        workspace.write(QStringLiteral("x/a.xml"), smallDocument());
        workspace.write(QStringLiteral("x/b.xml"), smallDocument());
    }

    QString shown(const QString& line) const
    {
        return workspace.shell(QStringLiteral("script -qec '%1' /dev/null").arg(line)).out;
    }

    Workspace workspace;
};

} // namespace

TEST_F(Terminal, IsColoured)
{
    EXPECT_TRUE(shown(QStringLiteral("rvopen tree x/a.xml")).contains(QLatin1String("\033[1m")));
}

TEST_F(Terminal, IsNotColouredWithNoColor)
{
    workspace.environment.insert(QStringLiteral("NO_COLOR"), QStringLiteral("1"));
    EXPECT_FALSE(shown(QStringLiteral("rvopen tree x/a.xml")).contains(QLatin1String("\033[1m")));
}

TEST_F(Terminal, ShowsProgressThatGoes)
{
    const QString out = shown(QStringLiteral("rvopen info x > /dev/null"));
    EXPECT_TRUE(out.contains(QLatin1String("[1/2] x/a.xml"))) << out.toStdString();
    EXPECT_TRUE(out.endsWith(QLatin1String("\r\033[K")));
}

TEST_F(Terminal, ShowsNoProgressWhenQuiet)
{
    EXPECT_EQ(shown(QStringLiteral("rvopen -q info x > /dev/null")), QString());
}

TEST(Interrupt, EndsTheProgramAndWritesNothing)
{
    Workspace workspace;
    Child process;
    process.setWorkingDirectory(workspace.path());
    process.start(QStringLiteral(RVOPEN_COMMAND),
                  {QStringLiteral("set"), QStringLiteral("-"), QStringLiteral("@name=x"),
                   QStringLiteral("-o"), QStringLiteral("out.xml")});
    ASSERT_TRUE(process.waitForStarted());
    process.write("<snapRoot name=\"");
    ASSERT_TRUE(process.waitForBytesWritten());
    // Until it handles signals the default action ends it as well.
    ::kill(pid_t(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(workspace.files(), QStringList());
    EXPECT_TRUE(process.exitStatus() == QProcess::CrashExit || process.exitCode() == 2);
}

} // namespace rvopen::test

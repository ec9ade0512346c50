// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

/// A command line that writes, and the system calls of it that fail or are the last.
struct Fault {
    const char* calls;
    /// What strace does at such a call.
    const char* what;
};

void PrintTo(const Fault& fault, std::ostream* out)
{
    *out << fault.calls << ' ' << fault.what;
}

class Faults : public ::testing::TestWithParam<Fault> {
protected:
    /// Runs the line with the fault at the first, second, ... call, until it comes no more. \p
    /// isGood looks at what is left each time.
    template <typename Prepare, typename IsGood>
    static void forEachFault(const QString& line, Prepare prepare, IsGood isGood)
    {
        const int most = 40;
        for (int number = 1; number < most; ++number) {
            SCOPED_TRACE(number);
            const Workspace workspace;
            prepare(workspace);
            QString trace;
            const Outcome run = workspace.traced(
                QStringLiteral("-e trace=%1 -e inject=%1:%2:when=%3")
                    .arg(QLatin1String(GetParam().calls), QLatin1String(GetParam().what))
                    .arg(number),
                line, trace);
            const bool isInjected = trace.contains(QLatin1String("INJECTED")) ||
                                    trace.contains(QLatin1String("--- SIG")) ||
                                    trace.contains(QLatin1String("+++ killed"));
            ASSERT_TRUE(isInjected || number > 1)
                << "there was no such call, or processes cannot be traced\n"
                << run.err.toStdString() << trace.toStdString();
            isGood(workspace, run);
            if (!isInjected || ::testing::Test::HasFailure())
                return;
        }
        ADD_FAILURE() << "the fault came " << most - 1 << " times";
    }

    static bool kills()
    {
        return QLatin1String(GetParam().what) == QLatin1String("signal=SIGKILL");
    }
};

/// Faults of what makes folders too.
class FolderFaults : public Faults {};

QByteArray oldDocument()
{
    return smallDocument();
}

QByteArray newDocument()
{
    return smallDocument().replace("val=\"45\"", "val=\"50\"");
}

} // namespace

TEST_P(Faults, SetLeavesTheOldOrTheNewDocument)
{
    forEachFault(
        QStringLiteral("rvopen set a.xml 'camera[Eye]:Field Of View=50' --in-place"),
        [](const Workspace& workspace) { workspace.write(QStringLiteral("a.xml"), oldDocument()); },
        [](const Workspace& workspace, const Outcome& run) {
            const QByteArray left = workspace.read(QStringLiteral("a.xml"));
            EXPECT_TRUE(left == oldDocument() || left == newDocument()) << left.toStdString();
            if (run.code == 0) {
                EXPECT_EQ(left.toStdString(), newDocument().toStdString());
            }
            if (!kills()) {
                EXPECT_EQ(workspace.files(), QStringList(QStringLiteral("a.xml")));
            }
        });
}

TEST_P(Faults, ImportLeavesItsInputsWhole)
{
    const QByteArray target = "<snapRoot>\n  <snapshots name=\"Model SnapShots\"/>\n</snapRoot>\n";
    forEachFault(
        QStringLiteral("rvopen import from/a.xml b.xml -o out.xml"),
        [&target](const Workspace& workspace) {
            workspace.write(QStringLiteral("from/a.xml"), smallDocument());
            workspace.write(QStringLiteral("from/icon_Gr\u00f6\u00dfe.jpg"), pictureOf("picture"));
            workspace.write(QStringLiteral("b.xml"), target);
        },
        [&target](const Workspace& workspace, const Outcome& run) {
            EXPECT_EQ(workspace.read(QStringLiteral("from/a.xml")), smallDocument());
            EXPECT_EQ(workspace.read(QStringLiteral("b.xml")), target);
            EXPECT_EQ(workspace.read(QStringLiteral("from/icon_Gr\u00f6\u00dfe.jpg")),
                      pictureOf("picture"));
            if (run.code == 0) {
                EXPECT_TRUE(workspace.exists(QStringLiteral("icon_Gr\u00f6\u00dfe.jpg")));
            }
            if (workspace.exists(QStringLiteral("out.xml"))) {
                EXPECT_TRUE(workspace.read(QStringLiteral("out.xml")).endsWith("</snapRoot>\n"));
            } else if (!kills()) {
                EXPECT_EQ(workspace.files().size(), 3);
            }
        });
}

TEST_P(FolderFaults, CollectLeavesItsInputsWhole)
{
    const QByteArray xml =
        "<snapRoot><snapshot><background subcat=\"Image\"><param name=\"File Name\" "
        "type=\"string\" val=\"x.png\"/></background></snapshot></snapRoot>";
    forEachFault(
        QStringLiteral("rvopen textures --collect out a.xml"),
        [&xml](const Workspace& workspace) {
            workspace.write(QStringLiteral("a.xml"), xml);
            workspace.write(QStringLiteral("x.png"), pictureOf("picture"));
        },
        [&xml](const Workspace& workspace, const Outcome& run) {
            EXPECT_EQ(workspace.read(QStringLiteral("a.xml")), xml);
            EXPECT_EQ(workspace.read(QStringLiteral("x.png")), pictureOf("picture"));
            if (run.code == 0) {
                EXPECT_EQ(workspace.files().size(), 4);
            }
            if (workspace.exists(QStringLiteral("out/a.xml"))) {
                EXPECT_EQ(workspace.read(QStringLiteral("out/x.png")), pictureOf("picture"));
            } else if (!kills()) {
                EXPECT_FALSE(workspace.exists(QStringLiteral("out")));
            }
        });
}

const auto s_faults =
    ::testing::Values(Fault{"fsync,fdatasync", "error=EIO"},
                      Fault{"rename,renameat,renameat2,link,linkat", "error=EACCES"},
                      Fault{"rename,renameat,renameat2,link,linkat", "signal=SIGKILL"},
                      Fault{"rename,renameat,renameat2,link,linkat", "signal=SIGINT"},
                      Fault{"fsync,fdatasync", "signal=SIGINT"});

INSTANTIATE_TEST_SUITE_P(Calls, Faults, s_faults);
INSTANTIATE_TEST_SUITE_P(Calls, FolderFaults, s_faults);
#ifndef RVOPEN_SANITIZE
// A sanitizer writes into a pipe of its own to learn whether memory may be read.
const auto s_writes =
    ::testing::Values(Fault{"write", "error=ENOSPC"}, Fault{"write", "signal=SIGKILL"});
INSTANTIATE_TEST_SUITE_P(Writes, Faults, s_writes);
INSTANTIATE_TEST_SUITE_P(Writes, FolderFaults, s_writes);
#endif
INSTANTIATE_TEST_SUITE_P(MakingFolders, FolderFaults,
                         ::testing::Values(Fault{"mkdir", "error=EACCES"}));

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Session.h"
#include "toolkit/documents/FileTransaction.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenScanner.h>
#include <rvopen/toolkit/compare/Comparer.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFileInfo>
#include <QJsonArray>

namespace rvopen::command {

using namespace toolkit;

namespace {

QString nameOf(DifferenceKind kind)
{
    switch (kind) {
    case DifferenceKind::Added:
        return QStringLiteral("added");
    case DifferenceKind::Removed:
        return QStringLiteral("removed");
    case DifferenceKind::Moved:
        return QStringLiteral("moved");
    case DifferenceKind::Changed:
        break;
    }
    return QStringLiteral("changed");
}

/// Whether it can be read more than once.
bool isFile(const QString& argument)
{
    return argument != QLatin1String("-") && QFileInfo(PathToOpen(argument)).isFile();
}

class Diff : public Command {
public:
    const char* name() const override
    {
        return "diff";
    }

    const char* summary() const override
    {
        return "Tell the differences of meaning between two files";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "What was added, removed, moved and changed, by name and type, with old and new "
            "values; "
            "how it is written does not count. Lengths are in scene units. Exit code 1 when there "
            "are differences.");
        arguments.positional("before", m_before, "Document or archive, or \"-\"");
        arguments.positional("after", m_after, "The same later, or \"-\"");
        arguments.option("--tolerance", m_comparison.tolerance, "NUMBER",
                         "Numbers that differ by no more are equal");
        arguments.example("rvopen diff snapshots/house.xml snapshots/import_me.xml",
                          "what the neighbour's house has otherwise");
        arguments.example("rvopen diff --tolerance 0.01 --json archives/Custom/MyPresets.rvx "
                          "archives/Custom/Sub/Studio.rvx",
                          "the same of two archives, for a program, without what cannot be seen");
    }

    int run(Session& session) override
    {
        if (m_before == QLatin1String("-") && m_after == m_before)
            throw Failure(QStringLiteral("standard input can be one of the two only"));
        // Who compares a folder with its copy has this most of the time.
        if (isFile(m_before) && isFile(m_after) &&
            haveSameBytes(PathToOpen(m_before), PathToOpen(m_after)) &&
            XmlScan().ScanFile(m_before)) {
            if (session.json)
                printJson(m_before, m_after, {}, session);
            return session.result(ExitFine);
        }
        const std::unique_ptr<Document> before = readOrFail(m_before, session);
        const std::unique_ptr<Document> after = readOrFail(m_after, session);
        const QVector<Difference> differences =
            Comparer(m_comparison).Run(before->Root(), after->Root());
        if (session.json)
            printJson(before->Name(), after->Name(), differences, session);
        else
            print(differences, session.out);
        return session.result(differences.isEmpty() ? ExitFine : ExitFindings);
    }

private:
    static void print(const QVector<Difference>& differences, Output& out)
    {
        for (const Difference& difference : differences) {
            const QString path = visible(difference.path);
            switch (difference.kind) {
            case DifferenceKind::Added:
                out.line(out.styled(QLatin1String("+ ") + path, Style::Green));
                break;
            case DifferenceKind::Removed:
                out.line(out.styled(QLatin1String("- ") + path, Style::Red));
                break;
            case DifferenceKind::Moved:
                out.line(out.styled(QLatin1String("> ") + path, Style::Cyan) +
                         (difference.from == difference.path
                              ? QStringLiteral("  (order)")
                              : QLatin1String("  from ") + visible(difference.from)));
                break;
            case DifferenceKind::Changed:
                out.line(out.styled(QLatin1String("~ ") + path, Style::Yellow) +
                         QStringLiteral(": \"%1\" -> \"%2\"")
                             .arg(visible(difference.before), visible(difference.after)));
                break;
            }
        }
    }

    static void printJson(const QString& before, const QString& after,
                          const QVector<Difference>& differences, Session& session)
    {
        QJsonArray list;
        for (const Difference& difference : differences) {
            QJsonObject object{{QStringLiteral("kind"), nameOf(difference.kind)},
                               {QStringLiteral("type"), difference.type},
                               {QStringLiteral("path"), difference.path}};
            if (difference.kind == DifferenceKind::Moved)
                object.insert(QStringLiteral("from"), difference.from);
            if (difference.kind == DifferenceKind::Changed) {
                object.insert(QStringLiteral("before"), difference.before);
                object.insert(QStringLiteral("after"), difference.after);
            }
            list.append(object);
        }
        QJsonObject result = Session::envelope("diff");
        result.insert(QStringLiteral("before"), before);
        result.insert(QStringLiteral("after"), after);
        result.insert(QStringLiteral("differences"), list);
        session.out.json(result);
    }

    QString m_before;
    QString m_after;
    Comparison m_comparison;
};

} // namespace

std::unique_ptr<Command> makeDiff()
{
    return std::make_unique<Diff>();
}

} // namespace rvopen::command

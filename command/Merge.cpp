// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/exchange/Merger.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFileInfo>
#include <QJsonArray>

namespace rvopen::command {

using namespace toolkit;

namespace {

/// Longer texts, such as embedded pictures, are cut where a person reads them.
const int s_shownLength = 60;

class Merge : public Command {
public:
    const char* name() const override
    {
        return "merge";
    }

    const char* summary() const override
    {
        return "Merge what two sides made of a file";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "What one side alone changed is taken, and what both changed alike; where they differ, "
            "OURS stays and a conflict is told. Presets are told by their reference names, "
            "snapshots by name and place, values by their paths. Without --output and --in-place "
            "only the conflicts are told. Exit code 1 when there are any.");
        arguments.positional("base", m_base,
                             "What both come from, or \"-\"; an empty file where there is nothing");
        arguments.positional("ours", m_ours, "The document that is changed, or \"-\"");
        arguments.positional("theirs", m_theirs, "The other one, or \"-\"");
        m_target.declare(arguments);
        arguments.example("rvopen merge snapshots/house.xml snapshots/house.xml "
                          "snapshots/import_me.xml -o merged.xml",
                          "all that the neighbour changed, since one side changed nothing");
        arguments.example("rvopen merge --json archives/Custom/MyPresets.rvx "
                          "archives/Custom/Sub/Studio.rvx archives/Zorvane/Product.rvx",
                          "what would be in conflict, for a program");
    }

    int run(Session& session) override
    {
        if (QStringList{m_base, m_ours, m_theirs}.count(QStringLiteral("-")) > 1)
            throw Failure(QStringLiteral("standard input can be one of the three only"));
        m_target.lock(m_ours);
        std::unique_ptr<Document> base;
        if (!isEmptyFile(m_base))
            base = readOrFail(m_base, session);
        const std::unique_ptr<Document> ours = readOrFail(m_ours, session);
        const std::unique_ptr<Document> theirs = readOrFail(m_theirs, session);
        if (m_target.isGiven())
            m_target.check(*ours);
        Merger merger(base.get(), *ours, *theirs);
        const QVector<MergeConflict> conflicts = merger.run();
        const bool isWritten = m_target.isGiven() && (!m_target.isInPlace() || merger.taken() > 0);
        if (isWritten)
            m_target.write(*ours, *ours, session);
        // The document itself may have gone to standard output.
        if (m_target.isStandardOutput())
            complain(conflicts, ours->Name(), session);
        else if (session.json)
            printJson(conflicts, merger.taken(), isWritten ? m_target.file(*ours) : QString(),
                      session);
        else
            print(conflicts, session.out);
        return session.result(conflicts.isEmpty() ? ExitFine : ExitFindings);
    }

private:
    /// As git has one for a file that both sides added.
    static bool isEmptyFile(const QString& path)
    {
        const QFileInfo file(PathToOpen(path));
        return file.isFile() && file.size() == 0;
    }

    static QString shown(const MergeText& text)
    {
        if (!text)
            return QStringLiteral("nothing");
        const QString whole = visible(*text);
        return QLatin1Char('"') +
               (whole.size() > s_shownLength ? whole.left(s_shownLength) + QLatin1String("...")
                                             : whole) +
               QLatin1Char('"');
    }

    static QString line(const MergeConflict& conflict)
    {
        return QLatin1String(": ") + shown(conflict.base) + QLatin1String(" -> ours ") +
               shown(conflict.ours) + QLatin1String(", theirs ") + shown(conflict.theirs);
    }

    static void print(const QVector<MergeConflict>& conflicts, Output& out)
    {
        for (const MergeConflict& conflict : conflicts)
            out.line(out.styled(QLatin1String("! ") + visible(conflict.path), Style::Red) +
                     line(conflict));
    }

    static void complain(const QVector<MergeConflict>& conflicts, const QString& file,
                         Session& session)
    {
        for (const MergeConflict& conflict : conflicts)
            session.warning(file, visible(conflict.path) + line(conflict));
    }

    static QJsonValue asJson(const MergeText& text)
    {
        return text ? QJsonValue(*text) : QJsonValue();
    }

    void printJson(const QVector<MergeConflict>& conflicts, int taken, const QString& file,
                   Session& session) const
    {
        QJsonArray list;
        for (const MergeConflict& conflict : conflicts) {
            list.append(QJsonObject{{QStringLiteral("path"), conflict.path},
                                    {QStringLiteral("base"), asJson(conflict.base)},
                                    {QStringLiteral("ours"), asJson(conflict.ours)},
                                    {QStringLiteral("theirs"), asJson(conflict.theirs)}});
        }
        QJsonObject result = Session::envelope(name());
        result.insert(QStringLiteral("taken"), taken);
        result.insert(QStringLiteral("conflicts"), list);
        if (!file.isEmpty() && !m_target.isDryRun())
            result.insert(QStringLiteral("written"), file);
        session.out.json(result);
    }

    QString m_base;
    QString m_ours;
    QString m_theirs;
    Target m_target;
};

} // namespace

std::unique_ptr<Command> makeMerge()
{
    return std::make_unique<Merge>();
}

} // namespace rvopen::command

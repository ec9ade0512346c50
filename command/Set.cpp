// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Inputs.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Likeness.h"
#include "toolkit/edit/TypedText.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/toolkit/schema/ValueCheck.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QJsonArray>

namespace rvopen::command {

using namespace toolkit;

namespace {

struct Change {
    QDomElement element;
    /// Empty for the value of a parameter.
    QString attribute;
    QString path;
    QString before;
    QString after;
};

/// What is wrong with a value for an attribute; empty when nothing is. Flags may be written as
/// people write them, and texts as anybody likes.
QString checkAttribute(const toolkit::ParamInfo* info, const QString& value)
{
    if (!toolkit::IsXmlText(value))
        return QStringLiteral("it has a character that no document may contain");
    if (!info || info->type == toolkit::ValueType::String)
        return QString();
    const QString stored = storedText(info->type, value);
    if (info->type == toolkit::ValueType::Boolean && stored.isEmpty())
        return QStringLiteral("\"%1\" is neither true nor false").arg(value);
    // Documents may have the attribute empty; to set it so is a mistake.
    const toolkit::ValueFault fault = stored.isEmpty() ? toolkit::CheckText(info->type, stored)
                                                       : toolkit::CheckValue(*info, stored);
    return toolkit::FaultMessage(*info, fault);
}

/// What seems mistyped in an assignment to an attribute: one that nobody knows, or a kind that is
/// none. Where other kinds are as good, it is one that looks like a known kind.
QString slipOf(const QString& element, const QString& attribute, const QString& value)
{
    const ElementInfo* const info = FindElement(element);
    if (info && !FindAttribute(element, attribute)) {
        QStringList known;
        for (const ParamInfo& each : AllAttributes()) {
            if (each.element.isEmpty() || each.element == element)
                known << each.name.toString();
        }
        return QStringLiteral("no %1 has an attribute \"%2\"").arg(element, attribute) +
               didYouMean(likeliest(attribute, known));
    }
    if (!info || info->kindAttribute != attribute || value.isEmpty() || info->kinds.contains(value))
        return QString();
    const QString likely = likeliestKind(value, info->kinds);
    if (info->areKindsOpen && likely.isEmpty())
        return QString();
    return QStringLiteral("there is no %1 of kind \"%2\"").arg(element, value) + didYouMean(likely);
}

/// The problem, and that it can be passed over.
QString unlessForced(const QString& problem)
{
    return problem.isEmpty() ? problem : problem + QLatin1String(" (--force sets it)");
}

class Set : public Command {
public:
    const char* name() const override
    {
        return "set";
    }

    const char* summary() const override
    {
        return "Set values by their paths";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Takes the paths of get. Values are of the parameter's type and within its ranges, "
            "which params tells, lengths in scene units, booleans true or false, colours \"0.5 0 "
            "0\" or \"#800000\". "
            "Either all assignments are made in a document or none; among many documents, those "
            "that have not what a path names stay as they are.");
        arguments.positional("file", m_file, "Document, archive, folder, or \"-\"", false);
        arguments.positional("assignments", m_assignments,
                             "More documents, patterns, folders as \"archives/\", and PATH=VALUE",
                             false);
        arguments.flag("--all", m_all, "Set every match of a path; without, there may be one only");
        m_target.declare(arguments,
                         "Also set read-only parameters, values outside of their range, and kinds "
                         "and attributes that nobody knows, and write over another file that is "
                         "there");
        m_selection.declare(arguments);
        m_inputs.declare(arguments);
        arguments.example("rvopen set snapshots/house.xml \"/snapshot/camera:Field Of View=50\" "
                          "-o wide.xml",
                          "a copy that looks through 50 degrees");
        arguments.example("rvopen set --all snapshots/product.xml \"scenery:Drop Shadow=off\" "
                          "\"scenery:Drop Reflection=off\" -o -",
                          "two assignments in all snapshots, to standard output");
    }

    int run(Session& session) override
    {
        QStringList assignments = m_assignments;
        if (!m_file.isEmpty())
            assignments.prepend(m_file);
        const QStringList given = m_inputs.taken(assignments);
        if (assignments.isEmpty())
            throw Failure(QStringLiteral("say what to set: PATH=VALUE"));
        const Selection selection = m_selection.selection();
        const QStringList files = m_inputs.files(given, session);
        m_isOne = files == given && files.size() == 1;
        if (m_target.isGiven() && !m_target.isInPlace() && files.size() != 1)
            throw Failure(QStringLiteral("--output takes one document"));
        m_counts = QVector<int>(int(assignments.size()));
        forEachDocument(
            files, session,
            [&](Document& document) {
                m_target.check(document);
                setIn(document, assignments, selection.in(document.Root()), session);
            },
            {}, m_target.isInPlace() && !m_target.isDryRun() ? Access::Changing : Access::Reading,
            m_inputs.jobs());
        m_selection.tellMisspelling(session);
        if (m_isOne && session.hasFailed())
            return ExitFailed;
        for (int i = 0; i < int(m_counts.size()); ++i) {
            if (m_counts[i] == 0 && !m_isOne)
                session.error(assignments[i], QStringLiteral("nothing has this path"));
        }
        report(session);
        return session.result(ExitFine);
    }

private:
    /// What was done in one document.
    struct Done {
        QString file;
        QString written;
        QVector<Change> changes;
    };

    void setIn(const Document& document, const QStringList& assignments, const Scope& scope,
               Session& session)
    {
        ParamValues values;
        Done done{document.Name(), m_target.isDryRun() ? QString() : m_target.file(document), {}};
        bool isGood = true;
        for (int i = 0; i < int(assignments.size()); ++i) {
            if (!prepare(assignments[i], document, scope, values, done.changes, m_counts[i],
                         session))
                isGood = false;
        }
        if (!isGood && m_isOne)
            throw Failure(QStringLiteral("nothing was set"));
        if (!isGood || (done.changes.isEmpty() && !m_isOne))
            return;
        for (Change& change : done.changes) {
            if (change.attribute.isEmpty()) {
                values.Set(change.element, change.after);
                change.after = values.Text(change.element);
            } else {
                const ParamInfo* const info =
                    toolkit::FindAttribute(change.element.tagName(), change.attribute);
                if (info)
                    change.after = storedText(info->type, change.after);
                change.element.setAttribute(change.attribute, change.after);
            }
        }
        m_target.write(document, document, session);
        // What holds the document goes before the next is read.
        for (Change& change : done.changes)
            change.element = QDomElement();
        m_done.append(done);
    }

    /// False when the assignment cannot be made, which has been said then. \p count grows by the
    /// places that have the path.
    bool prepare(const QString& assignment, const Document& document, const Scope& scope,
                 ParamValues& values, QVector<Change>& changes, int& count, Session& session) const
    {
        QString path;
        QString value;
        if (!splitAssignment(assignment, path, value)) {
            session.error(assignment, QStringLiteral("an assignment is PATH=VALUE"));
            return false;
        }
        const PathPattern pattern(path);
        QVector<PathPattern::Match> matches;
        for (const PathPattern::Match& match : pattern.Find(document.Root())) {
            if (scope.covers(match.path))
                matches.append(match);
        }
        count += int(matches.size());
        if (matches.isEmpty()) {
            if (m_isOne)
                session.error(document.Name(), nothingHas(path, document.Root()));
            return !m_isOne;
        }
        if (matches.size() > 1 && !m_all) {
            session.error(document.Name(),
                          QStringLiteral("%1 places have the path \"%2\", the first \"%3\": give "
                                         "more of the path, or --all")
                              .arg(matches.size())
                              .arg(path, matches.first().path));
            return false;
        }
        bool isGood = true;
        for (const PathPattern::Match& match : matches) {
            const QString problem = problemOf(match.element, pattern.Attribute(), value, values);
            if (!problem.isEmpty()) {
                session.error(document.Name(), match.path + QLatin1String(": ") + problem);
                isGood = false;
                continue;
            }
            Change change;
            change.element = match.element;
            change.attribute = pattern.Attribute();
            change.path = match.path;
            change.after = value;
            if (change.attribute.isEmpty()) {
                change.before = values.Text(match.element);
            } else {
                change.path = attributePath(match.path, change.attribute);
                change.before = match.element.attribute(change.attribute);
            }
            changes.append(change);
        }
        return isGood;
    }

    QString problemOf(const QDomElement& element, const QString& attribute, const QString& value,
                      ParamValues& values) const
    {
        const bool isReadOnly =
            isParam(element) &&
            element.attribute(QStringLiteral("prop")).contains(QLatin1Char('R'));
        if (isReadOnly && !m_target.isForced())
            return QStringLiteral("the parameter is read-only (--force sets it)");
        if (!attribute.isEmpty()) {
            if (isParam(element) &&
                (attribute == QLatin1String("val") || attribute == QLatin1String("type")))
                return QStringLiteral("set the parameter itself, without \"@%1\"").arg(attribute);
            if (!isAttributeName(attribute))
                return QStringLiteral("\"%1\" is no name for an attribute").arg(attribute);
            const QString problem =
                checkAttribute(toolkit::FindAttribute(element.tagName(), attribute), value);
            return !problem.isEmpty() || m_target.isForced()
                       ? problem
                       : unlessForced(slipOf(element.tagName(), attribute, value));
        }
        if (!isParam(element))
            return QStringLiteral("only parameters (:name) and attributes (@name) have values");
        // By itself, and without its own range, it has its type alone.
        QDomElement free = element.cloneNode(false).toElement();
        free.removeAttribute(QStringLiteral("rangeMin"));
        free.removeAttribute(QStringLiteral("rangeMax"));
        const QString problem = values.Check(free, value);
        return !problem.isEmpty() || m_target.isForced()
                   ? problem
                   : unlessForced(values.Check(element, value));
    }

    static bool isAttributeName(const QString& name)
    {
        for (int i = 0; i < int(name.size()); ++i) {
            const QChar c = name[i];
            const bool isStart = c.isLetter() || c == QLatin1Char('_');
            if (!isStart &&
                (i == 0 || !(c.isDigit() || c == QLatin1Char('-') || c == QLatin1Char('.'))))
                return false;
        }
        return !name.isEmpty();
    }

    void report(Session& session) const
    {
        if (m_target.isStandardOutput() && !m_target.isDryRun())
            return;
        if (session.json)
            printJson(session);
        else
            print(session);
    }

    void print(Session& session) const
    {
        Table table;
        for (const Done& done : m_done) {
            for (const Change& change : done.changes) {
                QVector<Table::Cell> cells{{change.path, Style::Dim},
                                           {change.before, Style::Red},
                                           {QStringLiteral("->"), Style::Dim},
                                           {change.after, Style::Green}};
                if (!m_isOne)
                    cells.prepend({done.file, Style::Dim});
                table.row(cells);
            }
        }
        table.print(session.out);
    }

    void printJson(Session& session) const
    {
        QJsonArray files;
        for (const Done& done : m_done) {
            QJsonArray list;
            for (const Change& change : done.changes) {
                list.append(QJsonObject{{QStringLiteral("path"), change.path},
                                        {QStringLiteral("before"), change.before},
                                        {QStringLiteral("after"), change.after}});
            }
            files.append(
                QJsonObject{{QStringLiteral("file"), done.file},
                            {QStringLiteral("written"),
                             m_target.isDryRun() ? QJsonValue() : QJsonValue(done.written)},
                            {QStringLiteral("changes"), list}});
        }
        QJsonObject result = Session::envelope(name());
        if (m_isOne) {
            const QJsonObject only = files.first().toObject();
            for (auto it = only.begin(); it != only.end(); ++it)
                result.insert(it.key(), it.value());
        } else {
            result.insert(QStringLiteral("files"), files);
        }
        session.out.json(result);
    }

    QString m_file;
    QStringList m_assignments;
    bool m_all = false;
    Target m_target;
    SelectionOptions m_selection;
    Inputs m_inputs;
    /// One document was named itself, and what it has not is an error.
    bool m_isOne = false;
    /// How many places each assignment found.
    QVector<int> m_counts;
    QVector<Done> m_done;
};

} // namespace

std::unique_ptr<Command> makeSet()
{
    return std::make_unique<Set>();
}

} // namespace rvopen::command

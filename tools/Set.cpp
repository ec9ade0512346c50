// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "NodePath.h"
#include "Session.h"
#include "Target.h"
#include "Values.h"

#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/toolkit/schema/ValueCheck.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QJsonArray>

namespace rvopen::tools {

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
    bool truth = false;
    if (info->type == toolkit::ValueType::Boolean) {
        return toBoolean(value, truth)
                   ? QString()
                   : QStringLiteral("\"%1\" is neither true nor false").arg(value);
    }
    toolkit::ValueFault fault = toolkit::CheckText(info->type, value);
    if (!fault)
        fault = toolkit::CheckValue(*info, value);
    return toolkit::FaultMessage(*info, fault);
}

/// As it is stored: flags as 1 or 0.
QString storedAttribute(const toolkit::ParamInfo* info, const QString& value)
{
    bool truth = false;
    if (info && info->type == toolkit::ValueType::Boolean && toBoolean(value, truth))
        return truth ? QStringLiteral("1") : QStringLiteral("0");
    return value;
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
            "Takes the paths of get. Values are of the parameter's type and within its range, "
            "lengths in scene units, booleans true or false, colours \"0.5 0 0\" or \"#800000\". "
            "Either all assignments are made or none.");
        arguments.positional("file", m_file, "Document, archive, or \"-\"");
        arguments.positional("assignments", m_assignments, "PATH=VALUE");
        arguments.flag("--all", m_all, "Set every match of a path; without, there may be one only");
        m_target.declare(arguments, "Also set read-only parameters and values outside of their "
                                    "range, and write over another file than the input");
        arguments.example("rvopen set snapshots/house.xml \"/snapshot/camera:Field Of View=50\" "
                          "-o wide.xml",
                          "a copy that looks through 50 degrees");
        arguments.example("rvopen set --all snapshots/product.xml \"scenery:Drop Shadow=off\" "
                          "\"scenery:Drop Reflection=off\" -o -",
                          "two assignments in all snapshots, to standard output");
    }

    int run(Session& session) override
    {
        m_target.lock(m_file);
        const std::unique_ptr<Document> document = readOrFail(m_file, session);
        m_target.check(*document);
        ParamValues values;
        QVector<Change> changes;
        for (const QString& assignment : m_assignments)
            prepare(assignment, *document, values, changes, session);
        if (session.hasFailed())
            throw Failure(QStringLiteral("nothing was set"));
        for (Change& change : changes) {
            if (change.attribute.isEmpty()) {
                values.set(change.element, change.after);
                change.after = values.text(change.element);
            } else {
                change.after = storedAttribute(
                    toolkit::FindAttribute(change.element.tagName(), change.attribute),
                    change.after);
                change.element.setAttribute(change.attribute, change.after);
            }
        }
        m_target.write(*document, *document, session);
        report(*document, changes, session);
        return ExitFine;
    }

private:
    void prepare(const QString& assignment, const Document& document, ParamValues& values,
                 QVector<Change>& changes, Session& session) const
    {
        QString path;
        QString value;
        if (!splitAssignment(assignment, path, value)) {
            session.error(assignment, QStringLiteral("an assignment is PATH=VALUE"));
            return;
        }
        const PathPattern pattern(path);
        const QVector<PathPattern::Match> matches = pattern.find(document.root());
        if (matches.isEmpty())
            session.error(document.name(), QStringLiteral("nothing has the path \"%1\"").arg(path));
        if (matches.size() > 1 && !m_all) {
            session.error(document.name(),
                          QStringLiteral("%1 places have the path \"%2\", the first \"%3\": give "
                                         "more of the path, or --all")
                              .arg(matches.size())
                              .arg(path, matches.first().path));
            return;
        }
        for (const PathPattern::Match& match : matches) {
            const QString problem = problemOf(match.element, pattern.attribute(), value, values);
            if (!problem.isEmpty()) {
                session.error(document.name(), match.path + QLatin1String(": ") + problem);
                continue;
            }
            Change change;
            change.element = match.element;
            change.attribute = pattern.attribute();
            change.path = match.path;
            change.after = value;
            if (change.attribute.isEmpty()) {
                change.before = values.text(match.element);
            } else {
                change.path = attributePath(match.path, change.attribute);
                change.before = match.element.attribute(change.attribute);
            }
            changes.append(change);
        }
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
            return checkAttribute(toolkit::FindAttribute(element.tagName(), attribute), value);
        }
        if (!isParam(element))
            return QStringLiteral("only parameters (:name) and attributes (@name) have values");
        if (!m_target.isForced())
            return values.check(element, value);
        QDomElement free = element.cloneNode(false).toElement();
        free.removeAttribute(QStringLiteral("rangeMin"));
        free.removeAttribute(QStringLiteral("rangeMax"));
        return values.check(free, value);
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

    void report(const Document& document, const QVector<Change>& changes, Session& session) const
    {
        if (m_target.isStandardOutput())
            return;
        if (session.json) {
            QJsonArray list;
            for (const Change& change : changes) {
                list.append(QJsonObject{{QStringLiteral("path"), change.path},
                                        {QStringLiteral("before"), change.before},
                                        {QStringLiteral("after"), change.after}});
            }
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("file"), document.name());
            result.insert(QStringLiteral("written"),
                          m_target.isDryRun() ? QJsonValue() : QJsonValue(m_target.file(document)));
            result.insert(QStringLiteral("changes"), list);
            session.out.json(result);
            return;
        }
        Table table;
        for (const Change& change : changes)
            table.row({{change.path, Style::Dim},
                       {change.before, Style::Red},
                       {QStringLiteral("->"), Style::Dim},
                       {change.after, Style::Green}});
        table.print(session.out);
    }

    QString m_file;
    QStringList m_assignments;
    bool m_all = false;
    Target m_target;
};

} // namespace

std::unique_ptr<Command> makeSet()
{
    return std::make_unique<Set>();
}

} // namespace rvopen::tools

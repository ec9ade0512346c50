// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Inputs.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/edit/Likeness.h"

#include <rvopen/RVOpenVersion.h>
#include <rvopen/toolkit/check/Inspection.h>
#include <rvopen/toolkit/check/Rules.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QDir>
#include <QHash>
#include <QJsonArray>
#include <QSet>
#include <QUrl>

namespace rvopen::command {

using namespace toolkit;

namespace {

Style styleOf(Severity severity)
{
    if (severity == Severity::Note)
        return Style::Cyan;
    return severity == Severity::Warning ? Style::Yellow : Style::Red;
}

/// What the user of the command does about a finding, where its options help.
QString adviceOf(const Rule& rule)
{
    static const QHash<QString, QString> ofCommand{
        {QStringLiteral("newer-version"),
         QStringLiteral("What that version added is kept but not understood. Open it with that "
                        "version, or tell the newest version that you know with "
                        "--known-version.")},
        {QStringLiteral("missing-preset"),
         QStringLiteral("Looked for in the folders of the host (--install, --archives, --custom) "
                        "when these are named.")},
        {QStringLiteral("missing-archive"),
         QStringLiteral("Looked for in the folder of its type (--archives, --custom) when that is "
                        "named.")},
        {QStringLiteral("missing-texture"),
         QStringLiteral("\"rvopen textures --relink DIR\" finds it again by its name.")},
        {QStringLiteral("missing-thumbnail"),
         QStringLiteral("Looked for below --install, --custom or --snapshots when these are named. "
                        "The host can make it anew.")}};
    return ofCommand.value(QLatin1String(rule.id), QLatin1String(rule.advice));
}

QStringList ruleNames()
{
    QStringList names;
    for (const Rule* const rule : AllRules())
        names << QLatin1String(rule->id);
    return names;
}

class Check : public Command {
public:
    const char* name() const override
    {
        return "check";
    }

    const char* summary() const override
    {
        return "Find what is wrong with documents and archives";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description("Presets, archives and thumbnails that are referred to are looked "
                              "for in the folders of "
                              "the host that are named. Exit code 1 when there are findings.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"", false);
        arguments.flag("--rules", m_explain, "Explain each rule");
        arguments.choice("--format", m_format,
                         {QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("sarif")},
                         "Format of the findings");
        arguments.choice(
            "--severity", m_severity,
            {QStringLiteral("note"), QStringLiteral("warning"), QStringLiteral("error")},
            "Leave out findings below this one");
        arguments.option("--only", m_only, "RULE", "This rule alone; may be repeated", ruleNames());
        arguments.option("--ignore", m_ignored, "RULE", "Without this rule; may be repeated",
                         ruleNames());
        arguments.option("--known-version", m_knownVersion, "MAJOR.MINOR",
                         "The newest version that is known; 3.1 when not given");
        arguments.flag(
            "--fix", m_fix,
            "Mend what can be mended without guessing, and say what; needs --in-place or "
            "--output");
        m_target.declare(arguments);
        m_selection.declare(arguments);
        m_inputs.declare(arguments);
        arguments.example("rvopen check --severity error snapshots archives",
                          "whether a host could stumble over something");
        arguments.example("rvopen check --fix snapshots/interior_old.xml -o mended.xml",
                          "a mended copy");
    }

    int run(Session& session) override
    {
        verifyRules();
        if (session.json)
            m_format = QStringLiteral("json");
        if (m_explain)
            return explain(session);
        const QStringList files = m_inputs.files(m_files, session);
        if (files.isEmpty() && m_files.isEmpty())
            throw Failure(QStringLiteral("name the files to check"));
        if (m_fix && !m_target.isGiven() && !m_target.isDryRun())
            throw Failure(QStringLiteral("--fix needs --in-place or --output FILE"));
        if (m_fix && m_target.isStandardOutput())
            throw Failure(
                QStringLiteral("--fix writes to a file: standard output has the findings"));
        if (!m_fix && (m_target.isGiven() || m_target.isDryRun()))
            throw Failure(QStringLiteral("--output, --in-place and --dry-run go with --fix"));
        if (m_fix && files.size() != 1 && m_target.isGiven() && !m_target.isInPlace())
            throw Failure(QStringLiteral("--output takes one document"));

        const Selection selection = m_selection.selection();
        Surroundings surroundings = lookAround(session);
        QVector<Finding> findings;
        forEachDocument(
            files, session,
            [&](Document& document) {
                QVector<Finding> found =
                    inside(selection.in(document.Root()), wanted(Inspect(document, surroundings)));
                TakeNames(document, surroundings);
                if (m_fix)
                    fix(found, document, session);
                if (m_format == QLatin1String("text"))
                    print(found, session.out);
                for (Finding& finding : found) {
                    // What holds the document goes before the next is read.
                    finding.element = QDomElement();
                    findings.append(finding);
                }
            },
            [&](const QString& file, const ReadError& error) {
                if (error.line == 0)
                    return false;
                ReadError named = error;
                named.file = file;
                const QVector<Finding> found = wanted({FindingOf(named)});
                if (m_format == QLatin1String("text"))
                    print(found, session.out);
                findings += found;
                return true;
            },
            m_fix && m_target.isInPlace() && !m_target.isDryRun() ? Access::Changing
                                                                  : Access::Reading,
            m_inputs.jobs());
        m_selection.tellMisspelling(session);
        if (m_format == QLatin1String("json"))
            session.out.json(jsonOf(findings, int(files.size())));
        else if (m_format == QLatin1String("sarif"))
            session.out.json(sarifOf(findings));
        else
            printSummary(findings, int(files.size()), session.out);
        for (const Finding& finding : findings) {
            if (!finding.isFixed)
                return session.result(ExitFindings);
        }
        return session.result(ExitFine);
    }

private:
    void verifyRules() const
    {
        for (const QString& id : m_only + m_ignored) {
            const QString likely = likeliest(id, ruleNames());
            if (!FindRule(id))
                throw Failure(QStringLiteral("there is no rule \"%1\"").arg(id) +
                              (likely.isEmpty() ? QStringLiteral("; --rules explains all")
                                                : didYouMean(likely)));
        }
    }

    Surroundings lookAround(Session& session) const
    {
        Surroundings newest;
        bool isMajor = true;
        bool isMinor = true;
        if (!m_knownVersion.isEmpty()) {
            newest.knownMajor = m_knownVersion.section(QLatin1Char('.'), 0, 0).toInt(&isMajor);
            newest.knownMinor = m_knownVersion.section(QLatin1Char('.'), 1).toInt(&isMinor);
        }
        if (!isMajor || !isMinor)
            throw Failure(QStringLiteral("a version is MAJOR.MINOR, as in 3.1"));
        Surroundings surroundings = LookAround(
            session.folders, [&session](const ReadError& error) { session.error(error); });
        surroundings.knownMajor = newest.knownMajor;
        surroundings.knownMinor = newest.knownMinor;
        return surroundings;
    }

    bool isWanted(const Rule& rule) const
    {
        const QString id = QLatin1String(rule.id);
        if (!m_only.isEmpty() && !m_only.contains(id))
            return false;
        if (m_ignored.contains(id))
            return false;
        if (m_severity == QLatin1String("error"))
            return rule.severity == Severity::Error;
        return m_severity != QLatin1String("warning") || rule.severity != Severity::Note;
    }

    QVector<Finding> wanted(const QVector<Finding>& findings) const
    {
        QVector<Finding> result;
        for (const Finding& finding : findings) {
            if (isWanted(*finding.rule))
                result.append(finding);
        }
        return result;
    }

    static QVector<Finding> inside(const Scope& scope, const QVector<Finding>& findings)
    {
        QVector<Finding> result;
        for (const Finding& finding : findings) {
            if (scope.covers(finding.path))
                result.append(finding);
        }
        return result;
    }

    void fix(QVector<Finding>& findings, const Document& document, Session& session) const
    {
        m_target.check(document);
        const int count = Mend(findings);
        if (count > 0 || !m_target.isInPlace())
            m_target.write(document, document, session);
    }

    void print(const QVector<Finding>& findings, Output& out)
    {
        for (const Finding& finding : findings) {
            const Rule& rule = *finding.rule;
            out.line(
                out.styled(visible(QStringLiteral("%1:%2:%3: ")
                                       .arg(finding.file)
                                       .arg(finding.line)
                                       .arg(finding.column)),
                           Style::Bold) +
                out.styled(finding.isFixed ? QStringLiteral("fixed") : SeverityName(rule.severity),
                           finding.isFixed ? Style::Green : styleOf(rule.severity)) +
                QLatin1String(": ") + visible(finding.message) +
                out.styled(QStringLiteral(" [%1]").arg(QLatin1String(rule.id)), Style::Dim));
            if (!finding.path.isEmpty())
                out.line(out.styled(QLatin1String("    at ") + visible(finding.path), Style::Dim));
            if (!m_advised.contains(&rule))
                out.line(out.styled(QLatin1String("    ") + adviceOf(rule), Style::Dim));
            m_advised.insert(&rule);
        }
    }

    struct Sums {
        int errors = 0;
        int warnings = 0;
        int notes = 0;
        int fixed = 0;
    };

    static Sums sumsOf(const QVector<Finding>& findings)
    {
        Sums sums;
        for (const Finding& finding : findings) {
            if (finding.isFixed)
                ++sums.fixed;
            else if (finding.rule->severity == Severity::Error)
                ++sums.errors;
            else if (finding.rule->severity == Severity::Warning)
                ++sums.warnings;
            else
                ++sums.notes;
        }
        return sums;
    }

    static void printSummary(const QVector<Finding>& findings, int files, Output& out)
    {
        const Sums sums = sumsOf(findings);
        QString line = QStringLiteral("%1, %2, %3 in %4")
                           .arg(counted(sums.errors, QStringLiteral("error")),
                                counted(sums.warnings, QStringLiteral("warning")),
                                counted(sums.notes, QStringLiteral("note")),
                                counted(files, QStringLiteral("file")));
        if (sums.fixed > 0)
            line += QStringLiteral("; %1 fixed").arg(sums.fixed);
        out.line(out.styled(line, Style::Bold));
    }

    static QJsonObject jsonOf(const QVector<Finding>& findings, int files)
    {
        QJsonArray list;
        for (const Finding& finding : findings) {
            list.append(
                QJsonObject{{QStringLiteral("file"), finding.file},
                            {QStringLiteral("line"), finding.line},
                            {QStringLiteral("column"), finding.column},
                            {QStringLiteral("path"), finding.path},
                            {QStringLiteral("rule"), QLatin1String(finding.rule->id)},
                            {QStringLiteral("severity"), SeverityName(finding.rule->severity)},
                            {QStringLiteral("message"), finding.message},
                            {QStringLiteral("advice"), adviceOf(*finding.rule)},
                            {QStringLiteral("fixed"), finding.isFixed}});
        }
        const Sums sums = sumsOf(findings);
        QJsonObject result = Session::envelope("check");
        result.insert(QStringLiteral("findings"), list);
        result.insert(QStringLiteral("summary"),
                      QJsonObject{{QStringLiteral("files"), files},
                                  {QStringLiteral("errors"), sums.errors},
                                  {QStringLiteral("warnings"), sums.warnings},
                                  {QStringLiteral("notes"), sums.notes},
                                  {QStringLiteral("fixed"), sums.fixed}});
        return result;
    }

    static QJsonObject sarifText(const QString& text)
    {
        return {{QStringLiteral("text"), text}};
    }

    static QJsonObject sarifOf(const QVector<Finding>& findings)
    {
        QJsonArray described;
        for (const Rule* const each : AllRules()) {
            const Rule& rule = *each;
            described.append(QJsonObject{
                {QStringLiteral("id"), QLatin1String(rule.id)},
                {QStringLiteral("shortDescription"), sarifText(QLatin1String(rule.summary))},
                {QStringLiteral("help"), sarifText(adviceOf(rule))},
                {QStringLiteral("defaultConfiguration"),
                 QJsonObject{{QStringLiteral("level"), SeverityName(rule.severity)}}}});
        }
        QJsonArray results;
        for (const Finding& finding : findings) {
            if (finding.isFixed)
                continue;
            const QJsonObject region{{QStringLiteral("startLine"), std::max(finding.line, 1)},
                                     {QStringLiteral("startColumn"), std::max(finding.column, 1)}};
            const QString uri = QString::fromLatin1(
                QUrl::toPercentEncoding(QDir::fromNativeSeparators(finding.file), "/"));
            const QJsonObject place{
                {QStringLiteral("artifactLocation"), QJsonObject{{QStringLiteral("uri"), uri}}},
                {QStringLiteral("region"), region}};
            QJsonObject location{{QStringLiteral("physicalLocation"), place}};
            if (!finding.path.isEmpty())
                location.insert(
                    QStringLiteral("logicalLocations"),
                    QJsonArray{QJsonObject{{QStringLiteral("fullyQualifiedName"), finding.path}}});
            results.append(QJsonObject{
                {QStringLiteral("ruleId"), QLatin1String(finding.rule->id)},
                {QStringLiteral("level"), SeverityName(finding.rule->severity)},
                {QStringLiteral("message"), QJsonObject{{QStringLiteral("text"), finding.message}}},
                {QStringLiteral("locations"), QJsonArray{location}}});
        }
        const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("rvopen")},
                                 {QStringLiteral("version"), QLatin1String(RVOPEN_VERSION_STRING)},
                                 {QStringLiteral("rules"), described}};
        return {{QStringLiteral("version"), QStringLiteral("2.1.0")},
                {QStringLiteral("runs"),
                 QJsonArray{QJsonObject{
                     {QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver}}},
                     {QStringLiteral("columnKind"), QStringLiteral("unicodeCodePoints")},
                     {QStringLiteral("results"), results}}}}};
    }

    int explain(Session& session) const
    {
        QJsonArray list;
        for (const Rule* const each : AllRules()) {
            const Rule& rule = *each;
            list.append(
                QJsonObject{{QStringLiteral("rule"), QLatin1String(rule.id)},
                            {QStringLiteral("severity"), SeverityName(rule.severity)},
                            {QStringLiteral("summary"), QLatin1String(rule.summary)},
                            {QStringLiteral("advice"), adviceOf(rule)},
                            {QStringLiteral("fix"),
                             rule.fix ? QJsonValue(QLatin1String(rule.fix)) : QJsonValue()}});
            if (m_format == QLatin1String("json"))
                continue;
            Output& out = session.out;
            out.line(out.styled(QLatin1String(rule.id), Style::Bold) + QLatin1String(" (") +
                     out.styled(SeverityName(rule.severity), styleOf(rule.severity)) +
                     QLatin1String(")"));
            out.line(QLatin1String("    ") + QLatin1String(rule.summary));
            out.line(QLatin1String("    ") + adviceOf(rule));
            if (rule.fix)
                out.line(QLatin1String("    --fix: ") + QLatin1String(rule.fix));
        }
        if (m_format == QLatin1String("json")) {
            QJsonObject result = Session::envelope("check");
            result.insert(QStringLiteral("rules"), list);
            session.out.json(result);
        }
        return ExitFine;
    }

    QStringList m_files;
    bool m_explain = false;
    QString m_format = QStringLiteral("text");
    QString m_severity = QStringLiteral("note");
    QStringList m_only;
    QStringList m_ignored;
    QString m_knownVersion;
    bool m_fix = false;
    Target m_target;
    SelectionOptions m_selection;
    Inputs m_inputs;
    QSet<const Rule*> m_advised;
};

} // namespace

std::unique_ptr<Command> makeCheck()
{
    return std::make_unique<Check>();
}

} // namespace rvopen::command

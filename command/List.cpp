// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "toolkit/edit/Likeness.h"
#include "toolkit/edit/Placement.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <QJsonArray>

#include <algorithm>

namespace rvopen::command {

using namespace toolkit;

namespace {

QString value(const QDomElement& element, const char* attribute)
{
    return element.attribute(QLatin1String(attribute));
}

struct Entry {
    QString file;
    QString kind;
    QString name;
    QString refName;
    QString category;
    QString subCategory;
    QString folder;
    QString path;
    QString description;
    /// The name without regard to the case of letters.
    QString order;
};

/// What there is to know of a preset, by the name that it has in JSON and on the command line.
struct Column {
    const char* name;
    QString Entry::*text;
};

constexpr Column s_columns[] = {{"file", &Entry::file},
                                {"kind", &Entry::kind},
                                {"name", &Entry::name},
                                {"refname", &Entry::refName},
                                {"category", &Entry::category},
                                {"subcat", &Entry::subCategory},
                                {"folder", &Entry::folder},
                                {"path", &Entry::path},
                                {"description", &Entry::description}};

QStringList columnNames()
{
    QStringList names;
    for (const Column& column : s_columns)
        names << QLatin1String(column.name);
    return names;
}

/// A cell of tab-separated text: what would end it, and the backslash before these, has a
/// backslash.
QString tabSeparated(const QString& text)
{
    return visible(QString(text).replace(QLatin1Char('\\'), QLatin1String("\\\\")));
}

bool precedes(const Entry& a, const Entry& b)
{
    for (const auto part :
         {&Entry::kind, &Entry::order, &Entry::name, &Entry::refName, &Entry::file}) {
        const int order = QString::compare(a.*part, b.*part);
        if (order != 0)
            return order < 0;
    }
    return false;
}

class List : public Command {
public:
    const char* name() const override
    {
        return "list";
    }

    const char* summary() const override
    {
        return "List the presets of archives";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description("Sorted by kind and name. Without files, all archives in the folders "
                              "of the host. Exit code 1 when nothing is found.");
        arguments.positional("files", m_files, "Archives, folders, or \"-\"", false);
        const QByteArray columns = "These alone, in this order, as name,path; there are " +
                                   columnNames().join(QStringLiteral(", ")).toLatin1();
        arguments.option("--columns", m_names, "NAMES", columns.constData());
        arguments.flag(
            "--tsv", m_isTabSeparated,
            "Tabs between the columns and a line of their names above, for spreadsheets");
        m_selection.declare(arguments);
        arguments.example("rvopen list --type material --text \"brass\" install",
                          "materials that have to do with brass");
        arguments.example("rvopen list --archives archives/Zorvane --custom archives/Custom",
                          "all presets that the host can browse");
    }

    int run(Session& session) override
    {
        QStringList files = m_files;
        if (files.isEmpty())
            files = archivesIn(session.folders);
        if (files.isEmpty() && m_files.isEmpty())
            throw Failure(QStringLiteral(
                "name archives, or the folders of the host (--install, --archives, --custom)"));
        if (session.json && (m_isTabSeparated || !m_names.isEmpty()))
            throw Failure(QStringLiteral("--json has all columns: it goes with neither --columns "
                                         "nor --tsv"));
        const QVector<Column> columns = chosenColumns();
        const Selection selection = m_selection.selection();

        std::vector<Entry> entries;
        forEachDocument(files, session, [&](Document& document) {
            const Scope scope = selection.in(document.Root());
            forEachPreset(document.Root(), [&](const Preset& preset) {
                if (scope.takes(preset.path))
                    entries.push_back(entry(document, preset));
            });
        });
        m_selection.tellMisspelling(session);
        std::sort(entries.begin(), entries.end(), precedes);
        if (session.json)
            printJson(entries, session.out);
        else if (m_isTabSeparated)
            printTabSeparated(entries, columns, session.out);
        else if (m_names.isEmpty())
            print(entries, session.out);
        else
            print(entries, columns, session.out);
        return session.result(entries.empty() ? ExitFindings : ExitFine);
    }

private:
    /// All where none are named.
    QVector<Column> chosenColumns() const
    {
        QVector<Column> columns;
        if (m_names.isEmpty()) {
            for (const Column& column : s_columns)
                columns.append(column);
            return columns;
        }
        const QStringList known = columnNames();
        for (const QString& name : m_names.split(QLatin1Char(','))) {
            const int at = int(known.indexOf(name.trimmed()));
            if (at < 0)
                throw Failure(QStringLiteral("there is no column \"%1\"").arg(name.trimmed()) +
                              didYouMean(likeliest(name.trimmed(), known)));
            columns.append(s_columns[at]);
        }
        return columns;
    }

    static Entry entry(const Document& document, const Preset& preset)
    {
        const QDomElement& element = preset.element;
        return {document.Name(),        element.tagName(),
                value(element, "name"), value(element, "refname"),
                value(element, "cat"),  value(element, "subcat"),
                preset.folder,          preset.path,
                value(element, "desc"), value(element, "name").toCaseFolded()};
    }

    static void print(const std::vector<Entry>& entries, Output& out)
    {
        Table table;
        for (const Entry& entry : entries) {
            table.row({{entry.kind, Style::Dim},
                       {entry.name, Style::Bold},
                       {entry.refName, Style::Cyan},
                       {entry.subCategory},
                       {entry.file + QLatin1String(": ") + entry.path, Style::Dim}});
        }
        table.print(out);
    }

    static void print(const std::vector<Entry>& entries, const QVector<Column>& columns,
                      Output& out)
    {
        Table table;
        for (const Entry& entry : entries) {
            QVector<Table::Cell> cells;
            for (const Column& column : columns)
                cells.append({entry.*column.text});
            table.row(cells);
        }
        table.print(out);
    }

    static void printTabSeparated(const std::vector<Entry>& entries, const QVector<Column>& columns,
                                  Output& out)
    {
        QStringList cells;
        for (const Column& column : columns)
            cells << QLatin1String(column.name);
        out.line(cells.join(QLatin1Char('\t')));
        for (const Entry& entry : entries) {
            cells.clear();
            for (const Column& column : columns)
                cells << tabSeparated(entry.*column.text);
            out.line(cells.join(QLatin1Char('\t')));
        }
    }

    static void printJson(const std::vector<Entry>& entries, Output& out)
    {
        QJsonArray presets;
        for (const Entry& entry : entries) {
            QJsonObject preset;
            for (const Column& column : s_columns)
                preset.insert(QLatin1String(column.name), entry.*column.text);
            presets.append(preset);
        }
        QJsonObject result = Session::envelope("list");
        result.insert(QStringLiteral("presets"), presets);
        out.json(result);
    }

    QStringList m_files;
    QString m_names;
    bool m_isTabSeparated = false;
    SelectionOptions m_selection;
};

} // namespace

std::unique_ptr<Command> makeList()
{
    return std::make_unique<List>();
}

} // namespace rvopen::command

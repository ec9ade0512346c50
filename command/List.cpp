// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "toolkit/catalogue/PresetList.h"
#include "toolkit/catalogue/RowFilter.h"
#include "toolkit/edit/Likeness.h"
#include "toolkit/edit/Placement.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <QJsonArray>

namespace rvopen::command {

using namespace toolkit;
using catalogue::BlockStore;
using catalogue::PresetList;

namespace {

/// What there is to know of a preset, by the name that it has in JSON and on the command line.
struct Column {
    const char* name;
    QString ListedPreset::*text;
};

constexpr Column s_columns[] = {{"file", &ListedPreset::file},
                                {"kind", &ListedPreset::kind},
                                {"name", &ListedPreset::name},
                                {"refname", &ListedPreset::refName},
                                {"category", &ListedPreset::category},
                                {"subcat", &ListedPreset::subCategory},
                                {"folder", &ListedPreset::folder},
                                {"path", &ListedPreset::path},
                                {"description", &ListedPreset::description}};

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

        // What rows of the catalogue cannot say is looked for in documents.
        AttributeFilter filter;
        const bool isInRows = selection.isAttributeFilter(filter);
        const QStringList found = expandedInputs(files, session);
        const BlockStore store(isInRows ? found : QStringList(), [&](int at, const QString& file) {
            session.progress(at, int(found.size()), file);
        });
        PresetList list(store);
        QVector<bool> isListed;
        for (int i = 0; i < int(found.size()); ++i)
            isListed.append(isInRows && list.add(i, filter));
        for (int i = 0; i < int(found.size()); ++i) {
            if (!isListed[i])
                addFromDocument(found[i], selection, session, list);
        }
        session.clearProgress();
        if (list.size() == 0) {
            for (int i = 0; i < store.count(); ++i)
                catalogue::noteOthers(store.block(i), selection);
            m_selection.tellMisspelling(session);
        }
        if (session.json)
            printJson(list, session.out);
        else if (m_isTabSeparated)
            printTabSeparated(list, columns, session.out);
        else if (m_names.isEmpty())
            print(list, session.out);
        else
            print(list, columns, session.out);
        return session.result(list.size() == 0 ? ExitFindings : ExitFine);
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

    static void addFromDocument(const QString& file, const Selection& selection, Session& session,
                                PresetList& list)
    {
        forEachDocument({file}, session, [&](Document& document) {
            const Scope scope = selection.in(document.Root());
            forEachPreset(document.Root(), [&](const Preset& preset) {
                if (scope.takes(preset.path))
                    list.add(document.Name(), preset);
            });
        });
    }

    static void print(PresetList& list, Output& out)
    {
        const auto cells = [](const ListedPreset& preset) {
            return Columns::shown({{preset.kind, Style::Dim},
                                   {preset.name, Style::Bold},
                                   {preset.refName, Style::Cyan},
                                   {preset.subCategory},
                                   {preset.file + QLatin1String(": ") + preset.path, Style::Dim}});
        };
        // Measured in the order in which they lie in memory.
        Columns columns;
        for (std::size_t i = 0; i < list.size(); ++i)
            columns.measure(cells(list.shortAt(i)));
        list.sort();
        for (std::size_t i = 0; i < list.size(); ++i)
            columns.print(cells(list.at(i)), out);
    }

    static void print(PresetList& list, const QVector<Column>& chosen, Output& out)
    {
        const auto cells = [&chosen](const ListedPreset& preset) {
            QVector<Cell> texts;
            for (const Column& column : chosen)
                texts.append({preset.*column.text});
            return Columns::shown(texts);
        };
        Columns columns;
        for (std::size_t i = 0; i < list.size(); ++i)
            columns.measure(cells(list.at(i)));
        list.sort();
        for (std::size_t i = 0; i < list.size(); ++i)
            columns.print(cells(list.at(i)), out);
    }

    static void printTabSeparated(PresetList& list, const QVector<Column>& columns, Output& out)
    {
        QStringList cells;
        for (const Column& column : columns)
            cells << QLatin1String(column.name);
        out.line(cells.join(QLatin1Char('\t')));
        list.sort();
        for (std::size_t i = 0; i < list.size(); ++i) {
            const ListedPreset preset = list.at(i);
            cells.clear();
            for (const Column& column : columns)
                cells << tabSeparated(preset.*column.text);
            out.line(cells.join(QLatin1Char('\t')));
        }
    }

    static void printJson(PresetList& list, Output& out)
    {
        list.sort();
        QJsonArray presets;
        for (std::size_t i = 0; i < list.size(); ++i) {
            const ListedPreset listed = list.at(i);
            QJsonObject preset;
            for (const Column& column : s_columns)
                preset.insert(QLatin1String(column.name), listed.*column.text);
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

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "toolkit/catalogue/PresetList.h"
#include "toolkit/catalogue/RowFilter.h"
#include "toolkit/documents/Utf8.h"
#include "toolkit/edit/Likeness.h"
#include "toolkit/edit/Placement.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <QJsonArray>

#include <string>
#include <vector>

namespace rvopen::command {

using namespace toolkit;
using catalogue::BlockStore;
using catalogue::PresetList;
using catalogue::PresetText;

namespace {

/// What there is to know of a preset, by the name that it has in JSON and on the command line.
struct Column {
    const char* name;
    PresetText text;
};

constexpr Column s_columns[] = {{"file", PresetText::File},
                                {"kind", PresetText::Kind},
                                {"name", PresetText::Name},
                                {"refname", PresetText::RefName},
                                {"category", PresetText::Category},
                                {"subcat", PresetText::SubCategory},
                                {"folder", PresetText::Folder},
                                {"path", PresetText::Path},
                                {"description", PresetText::Description}};

QStringList columnNames()
{
    QStringList names;
    for (const Column& column : s_columns)
        names << QLatin1String(column.name);
    return names;
}

/// Makes it a cell of tab-separated text: what would end it, and the backslash before these, has a
/// backslash.
void makeTabSeparated(std::string& text)
{
    for (std::size_t at = 0; (at = text.find('\\', at)) != std::string::npos; at += 2)
        text.insert(at, 1, '\\');
    makeVisible(text);
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
        const std::vector<bool> areListed =
            isInRows ? list.add(filter) : std::vector<bool>(std::size_t(found.size()));
        for (int i = 0; i < int(found.size()); ++i) {
            if (!areListed[std::size_t(i)])
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

    /// Calls \p use with the cells of each preset, in the places of those before.
    template <typename Use>
    static void forEachLine(const PresetList& list, std::vector<ShownCell>& cells,
                            const std::vector<PresetText>& texts, Use use)
    {
        for (std::size_t i = 0; i < list.size(); ++i) {
            list.announce(i);
            const PresetList::Entry entry = list.entry(i);
            for (std::size_t cell = 0; cell < texts.size(); ++cell) {
                cells[cell].text.clear();
                entry.append(texts[cell], cells[cell].text);
                makeVisible(cells[cell].text);
            }
            use(entry);
        }
    }

    static void print(PresetList& list, Output& out)
    {
        std::vector<ShownCell> cells{{"", Style::Dim}, {"", Style::Bold}, {"", Style::Cyan}, {}};
        const std::vector<PresetText> texts{PresetText::Kind, PresetText::Name, PresetText::RefName,
                                            PresetText::SubCategory};
        // Measured in the order in which they lie in memory.
        Columns columns;
        forEachLine(list, cells, texts, [&](const PresetList::Entry&) { columns.measure(cells); });
        list.sort();
        cells.push_back({"", Style::Dim});
        forEachLine(list, cells, texts, [&](const PresetList::Entry& entry) {
            std::string& place = cells.back().text;
            place.clear();
            entry.append(PresetText::File, place);
            place += ": ";
            entry.append(PresetText::Path, place);
            makeVisible(place);
            columns.print(cells, out);
        });
    }

    static void print(PresetList& list, const QVector<Column>& chosen, Output& out)
    {
        std::vector<ShownCell> cells(std::size_t(chosen.size()));
        std::vector<PresetText> texts;
        for (const Column& column : chosen)
            texts.push_back(column.text);
        Columns columns;
        forEachLine(list, cells, texts, [&](const PresetList::Entry&) { columns.measure(cells); });
        list.sort();
        forEachLine(list, cells, texts,
                    [&](const PresetList::Entry&) { columns.print(cells, out); });
    }

    static void printTabSeparated(PresetList& list, const QVector<Column>& columns, Output& out)
    {
        QStringList names;
        for (const Column& column : columns)
            names << QLatin1String(column.name);
        out.line(names.join(QLatin1Char('\t')));
        list.sort();
        std::string line;
        std::string cell;
        for (std::size_t i = 0; i < list.size(); ++i) {
            list.announce(i);
            const PresetList::Entry entry = list.entry(i);
            line.clear();
            for (const Column& column : columns) {
                cell.clear();
                entry.append(column.text, cell);
                makeTabSeparated(cell);
                line += cell;
                line += '\t';
            }
            line.back() = '\n';
            out.bytes(line);
        }
    }

    static void printJson(PresetList& list, Output& out)
    {
        list.sort();
        QJsonArray presets;
        std::string text;
        for (std::size_t i = 0; i < list.size(); ++i) {
            const PresetList::Entry entry = list.entry(i);
            QJsonObject preset;
            for (const Column& column : s_columns) {
                text.clear();
                entry.append(column.text, text);
                preset.insert(QLatin1String(column.name), fromUtf8(text));
            }
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

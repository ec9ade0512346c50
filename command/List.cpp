// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "SelectionOptions.h"
#include "Session.h"
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
        const Selection selection = m_selection.selection(session);

        std::vector<Entry> entries;
        forEachDocument(files, session, [&](Document& document) {
            const Scope scope = selection.in(document.Root());
            forEachPreset(document.Root(), [&](const Preset& preset) {
                if (scope.takes(preset.path))
                    entries.push_back(entry(document, preset));
            });
        });
        std::sort(entries.begin(), entries.end(), precedes);
        if (session.json)
            printJson(entries, session.out);
        else
            print(entries, session.out);
        return session.result(entries.empty() ? ExitFindings : ExitFine);
    }

private:
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

    static void printJson(const std::vector<Entry>& entries, Output& out)
    {
        QJsonArray presets;
        for (const Entry& entry : entries) {
            presets.append(QJsonObject{{QStringLiteral("file"), entry.file},
                                       {QStringLiteral("kind"), entry.kind},
                                       {QStringLiteral("name"), entry.name},
                                       {QStringLiteral("refname"), entry.refName},
                                       {QStringLiteral("category"), entry.category},
                                       {QStringLiteral("subcat"), entry.subCategory},
                                       {QStringLiteral("folder"), entry.folder},
                                       {QStringLiteral("path"), entry.path},
                                       {QStringLiteral("description"), entry.description}});
        }
        QJsonObject result = Session::envelope("list");
        result.insert(QStringLiteral("presets"), presets);
        out.json(result);
    }

    QStringList m_files;
    SelectionOptions m_selection;
};

} // namespace

std::unique_ptr<Command> makeList()
{
    return std::make_unique<List>();
}

} // namespace rvopen::command

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Inputs.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "toolkit/catalogue/BlockStore.h"
#include "toolkit/catalogue/PathScan.h"
#include "toolkit/catalogue/SmallDocument.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Likeness.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>

#include <QJsonArray>
#include <QSet>

#include <algorithm>
#include <memory>
#include <vector>

namespace rvopen::command {

using namespace toolkit;

namespace {

struct Value {
    QString path;
    QString type;
    QString text;
    QJsonValue json;
};

/// The values of one document.
struct Found {
    QString file;
    QVector<Value> values;
};

class Get : public Command {
public:
    const char* name() const override
    {
        return "get";
    }

    const char* summary() const override
    {
        return "Print values by their paths";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "A path is what tree and list print: camera:Field Of View is a parameter, "
            "camera@refname an attribute, camera alone stands for all values in it but embedded "
            "pictures. It may start anywhere, also with a bare name; \"*\" stands for any kind or "
            "any part of a name, \"//\" for any number of levels, [@cat=Metals] for a condition; a "
            "leading \"/\" anchors it below the root. Without paths, all values of what is "
            "selected. One match of one path prints the value alone. Lengths are in scene units. "
            "Exit code 1 when a path finds nothing.");
        arguments.positional("file", m_file, "Document, archive, folder, or \"-\"", false);
        arguments.positional("paths", m_paths,
                             "More documents, patterns, folders as \"archives/\", and the paths of "
                             "parameters, attributes or elements",
                             false);
        m_selection.declare(arguments);
        m_inputs.declare(arguments);
        arguments.example("rvopen get snapshots/house.xml \"/snapshot/camera:Field Of View\"",
                          "the field of view of the current snapshot");
        arguments.example("rvopen get snapshots/house.xml \"camera:Field Of View\" @unitsScale",
                          "of all cameras, and the units scale of the document");
    }

    int run(Session& session) override
    {
        QStringList arguments = m_paths;
        if (!m_file.isEmpty())
            arguments.prepend(m_file);
        const QStringList given = m_inputs.taken(arguments);
        std::vector<PathPattern> patterns;
        for (const QString& path : arguments)
            patterns.emplace_back(path);
        const Selection selection = m_selection.selection();
        if (patterns.empty() && selection.isEverything())
            throw Failure(QStringLiteral("say which values: paths, or what is selected"));
        const QStringList files = m_inputs.files(given, session);
        const bool isOne = files == given && files.size() == 1;

        QVector<int> counts(int(patterns.size()));
        QVector<QString> problems(int(patterns.size()));
        QVector<Found> all;
        const bool isInText =
            !patterns.empty() && selection.isEverything() && PathScan(patterns).isPossible();
        forEachPart(
            files, session,
            [&](const QString& file) {
                return isInText ? partWith(patterns, file, isOne) : nullptr;
            },
            [&](Document& document) {
                Found found{document.Name(), {}};
                find(document, patterns, selection.in(document.Root()), found.values, counts);
                all.append(found);
                for (int i = 0; isOne && i < int(counts.size()); ++i) {
                    if (counts[i] == 0)
                        problems[i] = nothingHas(patterns[std::size_t(i)].Text(), document.Root());
                }
            },
            m_inputs.jobs());
        m_selection.tellMisspelling(session);
        if (isOne && session.hasFailed())
            return ExitFailed;
        bool isIncomplete = false;
        for (int i = 0; i < int(counts.size()); ++i) {
            if (counts[i] > 0)
                continue;
            isIncomplete = true;
            if (isOne)
                session.warning(all.first().file, problems[i]);
            else
                session.warning(QStringLiteral("rvopen"),
                                noSuchPath(patterns[std::size_t(i)].Text(), QString()));
        }
        if (patterns.empty())
            isIncomplete = std::all_of(all.begin(), all.end(),
                                       [](const Found& found) { return found.values.isEmpty(); });
        if (session.json)
            printJson(all, isOne, session);
        else
            print(all, isOne, int(patterns.size()), session);
        return session.result(isIncomplete ? ExitFindings : ExitFine);
    }

private:
    /// The document with no more than the presets in which the patterns may find something; null
    /// where that is not known, and, if \p isAll is needed, where one finds nothing.
    std::unique_ptr<Document> partWith(const std::vector<PathPattern>& patterns,
                                       const QString& file, bool isAll)
    {
        const catalogue::ReadBlock read = catalogue::readBlock(file);
        std::vector<catalogue::BlockRow> rows;
        if (!read.block.isValid() || !PathScan(patterns).findRows(file, read.block, rows))
            return nullptr;
        std::unique_ptr<Document> part =
            catalogue::documentOfRows(file, read.state, read.block, rows);
        if (part && isAll) {
            // What was meant instead all of the document tells.
            QVector<Value> found;
            QVector<int> counts(int(patterns.size()));
            find(*part, patterns, Scope(), found, counts);
            if (counts.contains(0))
                return nullptr;
        }
        return part;
    }

    void find(const Document& document, const std::vector<PathPattern>& patterns,
              const Scope& scope, QVector<Value>& found, QVector<int>& counts)
    {
        ParamValues values;
        if (patterns.empty()) {
            for (const PathPattern::Match& match : scope.elements())
                addAll(match, values, found);
        }
        for (int i = 0; i < int(patterns.size()); ++i) {
            const PathPattern& pattern = patterns[std::size_t(i)];
            const int before = int(found.size());
            QSet<QString> known;
            for (const PathPattern::Match& match : pattern.Find(document.Root())) {
                if (!scope.covers(match.path))
                    continue;
                QVector<Value> added;
                if (!pattern.Attribute().isEmpty())
                    addAttribute(match, pattern.Attribute(), added);
                else if (isParam(match.element))
                    addParam(match, values, added);
                else
                    addAll(match, values, added);
                for (const Value& value : added) {
                    if (!known.contains(value.path))
                        found.append(value);
                    known.insert(value.path);
                }
            }
            counts[i] += int(found.size()) - before;
        }
    }

    static void addAttribute(const PathPattern::Match& match, const QString& name,
                             QVector<Value>& found)
    {
        if (!match.element.hasAttribute(name))
            return;
        const QString text = match.element.attribute(name);
        found.append(
            {attributePath(match.path, name), QStringLiteral("attribute"), text, QJsonValue(text)});
    }

    static void addParam(const PathPattern::Match& match, ParamValues& values,
                         QVector<Value>& found)
    {
        found.append({match.path, match.element.attribute(QStringLiteral("type")),
                      values.Text(match.element),
                      QJsonValue::fromVariant(values.Value(match.element))});
    }

    void addAll(const PathPattern::Match& match, ParamValues& values, QVector<Value>& found)
    {
        m_isWhole = true;
        const auto add = [&](const QDomElement& element, const QString& path) {
            if (isParam(element)) {
                addParam({element, path}, values, found);
                return true;
            }
            QStringList names;
            const QDomNamedNodeMap attributes = element.attributes();
            for (int i = 0; i < int(attributes.count()); ++i)
                names << attributes.item(i).nodeName();
            names.removeAll(QStringLiteral("xmlImage"));
            names.sort();
            for (const QString& name : names)
                addAttribute({element, path}, name, found);
            return true;
        };
        add(match.element, match.path);
        Walk(match.element, match.path, add);
    }

    void print(const QVector<Found>& all, bool isOne, int patterns, Session& session) const
    {
        if (isOne && patterns == 1 && !m_isWhole && all.first().values.size() == 1) {
            session.out.line(visible(all.first().values.first().text));
            return;
        }
        Table table;
        for (const Found& found : all) {
            for (const Value& value : found.values) {
                if (isOne)
                    table.row({{value.path, Style::Dim}, {value.text}});
                else
                    table.row({{found.file, Style::Dim}, {value.path, Style::Dim}, {value.text}});
            }
        }
        table.print(session.out);
    }

    void printJson(const QVector<Found>& all, bool isOne, Session& session) const
    {
        QJsonObject result = Session::envelope(name());
        QJsonArray files;
        for (const Found& found : all) {
            QJsonArray list;
            for (const Value& value : found.values) {
                list.append(QJsonObject{{QStringLiteral("path"), value.path},
                                        {QStringLiteral("type"), value.type},
                                        {QStringLiteral("text"), value.text},
                                        {QStringLiteral("value"), value.json}});
            }
            if (isOne) {
                result.insert(QStringLiteral("file"), found.file);
                result.insert(QStringLiteral("values"), list);
            }
            files.append(QJsonObject{{QStringLiteral("file"), found.file},
                                     {QStringLiteral("values"), list}});
        }
        if (!isOne)
            result.insert(QStringLiteral("files"), files);
        session.out.json(result);
    }

    QString m_file;
    QStringList m_paths;
    SelectionOptions m_selection;
    Inputs m_inputs;
    /// All values of an element are among what is printed.
    bool m_isWhole = false;
};

} // namespace

std::unique_ptr<Command> makeGet()
{
    return std::make_unique<Get>();
}

} // namespace rvopen::command

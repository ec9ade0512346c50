// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Session.h"
#include "toolkit/edit/Labels.h"

#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>

#include <QJsonArray>

namespace rvopen::command {

using namespace toolkit;

namespace {

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
            "A path is what tree prints: camera:Field Of View is a parameter, camera@refname an "
            "attribute. It may start anywhere and take \"*\" for any kind or name; a leading \"/\" "
            "anchors it below the root. One match of one path prints the value alone. Lengths are "
            "in "
            "scene units. Exit code 1 when a path finds nothing.");
        arguments.positional("file", m_file, "Document, archive, or \"-\"");
        arguments.positional("paths", m_paths, "Paths of parameters or attributes");
        arguments.example("rvopen get snapshots/house.xml \"/snapshot/camera:Field Of View\"",
                          "the field of view of the current snapshot");
        arguments.example("rvopen get snapshots/house.xml \"camera:Field Of View\" @unitsScale",
                          "of all cameras, and the units scale of the document");
    }

    int run(Session& session) override
    {
        QVector<PathPattern> patterns;
        for (const QString& path : m_paths)
            patterns.append(PathPattern(path));
        const std::unique_ptr<Document> document = readOrFail(m_file, session);
        ParamValues values;
        QJsonArray found;
        Table table;
        QString only;
        int count = 0;
        bool isIncomplete = false;
        for (const PathPattern& pattern : patterns) {
            int matched = 0;
            for (const PathPattern::Match& match : pattern.Find(document->Root())) {
                QString path = match.path;
                QString type = match.element.attribute(QStringLiteral("type"));
                QJsonValue json;
                if (!pattern.Attribute().isEmpty()) {
                    if (!match.element.hasAttribute(pattern.Attribute()))
                        continue;
                    path = attributePath(path, pattern.Attribute());
                    type = QStringLiteral("attribute");
                    only = match.element.attribute(pattern.Attribute());
                    json = only;
                } else if (isParam(match.element)) {
                    only = values.Text(match.element);
                    json = QJsonValue::fromVariant(values.Value(match.element));
                } else {
                    continue;
                }
                ++matched;
                table.row({{path, Style::Dim}, {only}});
                found.append(QJsonObject{{QStringLiteral("path"), path},
                                         {QStringLiteral("type"), type},
                                         {QStringLiteral("text"), only},
                                         {QStringLiteral("value"), json}});
            }
            count += matched;
            if (matched == 0) {
                isIncomplete = true;
                session.warning(document->Name(),
                                QStringLiteral("nothing has the path \"%1\"").arg(pattern.Text()));
            }
        }
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("file"), document->Name());
            result.insert(QStringLiteral("values"), found);
            session.out.json(result);
        } else if (count == 1 && m_paths.size() == 1) {
            session.out.line(visible(only));
        } else {
            table.print(session.out);
        }
        return session.result(isIncomplete ? ExitFindings : ExitFine);
    }

private:
    QString m_file;
    QStringList m_paths;
};

} // namespace

std::unique_ptr<Command> makeGet()
{
    return std::make_unique<Get>();
}

} // namespace rvopen::command

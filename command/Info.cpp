// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Session.h"
#include "Survey.h"

#include <QJsonArray>

#include <algorithm>
#include <thread>

namespace rvopen::command {

using namespace toolkit;

namespace {

QJsonObject json(const Counts& counts)
{
    QJsonObject object;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        object.insert(it.key(), it.value());
    return object;
}

QString listed(const Counts& counts)
{
    QStringList parts;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        parts << it.key() + (it.value() > 1 ? QStringLiteral(" (%1)").arg(it.value()) : QString());
    return parts.join(QStringLiteral(", "));
}

class Info : public Command {
public:
    const char* name() const override
    {
        return "info";
    }

    const char* summary() const override
    {
        return "Tell what files are and what is in them";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description("Kind, version, units scale, collections or sections, counts by "
                              "kind, and what in it the "
                              "library does not know.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"");
        arguments.example("rvopen info snapshots/house.xml", "one document in all detail");
        arguments.example("rvopen info --json archives",
                          "every archive in a folder, for a program");
    }

    int run(Session& session) override
    {
        QJsonArray files;
        bool isFirst = true;
        const int jobs = std::max(1, int(std::thread::hardware_concurrency()));
        const auto use = [&](const Outcome& outcome) {
            if (!outcome.isDocument) {
                session.error(outcome.error);
                files.append(
                    QJsonObject{{QStringLiteral("file"), outcome.error.file},
                                {QStringLiteral("error"), Session::errorObject(outcome.error)}});
            } else if (session.json) {
                files.append(object(outcome.contents));
            } else {
                if (!isFirst)
                    session.out.line();
                isFirst = false;
                print(outcome.contents, session.out);
            }
        };
        forEachRead(expandedInputs(m_files, session), jobs, session, outcomeOf, use);
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("files"), files);
            session.out.json(result);
        }
        return session.result(ExitFine);
    }

private:
    struct Outcome {
        bool isDocument = false;
        Contents contents;
        ReadError error;
    };

    static Outcome outcomeOf(const QString& file)
    {
        Outcome outcome;
        outcome.isDocument = survey(file, outcome.contents, outcome.error);
        return outcome;
    }

    static int paramCount(const Contents& contents)
    {
        int sum = 0;
        for (const int count : contents.params)
            sum += count;
        return sum;
    }

    static void print(const Contents& contents, Output& out)
    {
        const auto attribute = [&contents](const char* name) {
            return contents.rootAttributes.value(QLatin1String(name));
        };
        const bool isArchive = contents.kind == DocumentKind::Archive;
        const bool isOfSnapShots = contents.kind == DocumentKind::SnapShots;
        out.line(out.styled(visible(contents.name), Style::Bold));
        Table table;
        const auto row = [&table](const char* label, const QString& value) {
            if (!value.isEmpty())
                table.row({{QLatin1String(label), Style::Dim}, {value}});
        };
        row("kind", isOfSnapShots ? QStringLiteral("snapshot document")
                    : isArchive   ? QStringLiteral("preset archive")
                                  : QStringLiteral("unknown"));
        row("root", contents.root);
        row("name", attribute("name"));
        row("description", attribute("desc"));
        row("type", attribute("type"));
        row("version", attribute("zorvane_version"));
        if (isOfSnapShots)
            row("units scale", unitsScale(contents));
        row("size", readableSize(contents.size));
        for (const Group& group : contents.groups)
            row(isArchive ? "section" : "collection",
                QStringLiteral("%1: %2").arg(
                    group.name.isEmpty() ? group.element : group.name,
                    counted(group.members,
                            isArchive ? QStringLiteral("preset") : QStringLiteral("snapshot"))));
        Counts kinds = contents.kinds;
        if (paramCount(contents) > 0)
            kinds.insert(QStringLiteral("param"), paramCount(contents));
        row("elements", listed(kinds));
        row("unknown elements", listed(contents.unknownElements));
        row("unknown attributes", listed(contents.unknownAttributes));
        row("unknown parameters", listed(contents.unknownParams));
        table.print(out, 2);
    }

    static QString unitsScale(const Contents& contents)
    {
        return contents.rootAttributes.value(QStringLiteral("unitsScale"), QStringLiteral("1"));
    }

    static QJsonObject object(const Contents& contents)
    {
        QJsonArray groups;
        for (const Group& group : contents.groups) {
            groups.append(QJsonObject{{QStringLiteral("path"), group.path},
                                      {QStringLiteral("element"), group.element},
                                      {QStringLiteral("name"), group.name},
                                      {QStringLiteral("members"), group.members}});
        }
        const auto attribute = [&contents](const char* name) {
            const auto found = contents.rootAttributes.constFind(QLatin1String(name));
            return found == contents.rootAttributes.constEnd() ? QJsonValue() : QJsonValue(*found);
        };
        return {
            {QStringLiteral("file"), contents.name},
            {QStringLiteral("size"), contents.size},
            {QStringLiteral("kind"), KindName(contents.kind)},
            {QStringLiteral("root"), contents.root},
            {QStringLiteral("name"), attribute("name")},
            {QStringLiteral("description"), attribute("desc")},
            {QStringLiteral("type"), attribute("type")},
            {QStringLiteral("version"), attribute("zorvane_version")},
            {QStringLiteral("unitsScale"), unitsScale(contents).toDouble()},
            {QStringLiteral("groups"), groups},
            {QStringLiteral("presets"), contents.presets},
            {QStringLiteral("elements"), json(contents.kinds)},
            {QStringLiteral("parameters"), json(contents.params)},
            {QStringLiteral("unknown"),
             QJsonObject{{QStringLiteral("elements"), json(contents.unknownElements)},
                         {QStringLiteral("attributes"), json(contents.unknownAttributes)},
                         {QStringLiteral("parameters"), json(contents.unknownParams)}}},
        };
    }

    QStringList m_files;
};

} // namespace

std::unique_ptr<Command> makeInfo()
{
    return std::make_unique<Info>();
}

} // namespace rvopen::command

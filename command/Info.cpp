// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Session.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QJsonArray>
#include <QMap>

namespace rvopen::command {

using namespace toolkit;

namespace {

using Counts = QMap<QString, int>;

struct Group {
    QString path;
    QString element;
    QString name;
    int members = 0;
};

/// What stands in one document.
struct Contents {
    Counts kinds;
    Counts params;
    Counts unknownElements;
    Counts unknownAttributes;
    Counts unknownParams;
    QVector<Group> groups;
    int presets = 0;
};

class Survey {
public:
    explicit Survey(const Document& document)
        : m_vocabulary(Vocabulary::instance())
        , m_isArchive(document.Kind() == DocumentKind::Archive)
        , m_root(document.Root())
    {
        countAttributes(m_root);
        Labels labels;
        for (QDomElement child = m_root.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement())
            visitTop(child, labels.next(child));
    }

    Contents contents;

private:
    void visitTop(const QDomElement& element, const QString& path)
    {
        const QString kind = element.tagName();
        const bool isGroup = kind == QLatin1String("snapshots") || m_vocabulary.isSection(kind);
        if (isGroup)
            contents.groups.append({path, kind, element.attribute(QStringLiteral("name")), 0});
        visit(element, isGroup ? int(contents.groups.size()) - 1 : -1, true);
    }

    /// \p isShelf: whether its children stand in a group or a folder of one.
    void visit(const QDomElement& element, int group, bool isShelf)
    {
        const QString kind = element.tagName();
        countAttributes(element);
        if (isParam(element)) {
            countParam(element);
        } else {
            ++contents.kinds[kind];
            if (!toolkit::FindElement(kind))
                ++contents.unknownElements[kind];
        }
        for (QDomElement child = element.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            const bool isFolder = child.tagName() == QLatin1String("dir");
            if (group >= 0 && isShelf && !isFolder && !isParam(child)) {
                ++contents.groups[group].members;
                contents.presets += m_isArchive ? 1 : 0;
            }
            visit(child, group, isShelf && isFolder);
        }
    }

    void countParam(const QDomElement& param)
    {
        ++contents.params[param.attribute(QStringLiteral("type"))];
        const QDomElement owner = param.parentNode().toElement();
        const QString name = param.attribute(QStringLiteral("name"));
        if (toolkit::HasParams(owner.tagName()) &&
            !toolkit::FindParam(owner.tagName(), toolkit::KindOf(owner), name))
            ++contents.unknownParams[owner.tagName() + QLatin1Char(':') + name];
    }

    void countAttributes(const QDomElement& element)
    {
        const QDomNamedNodeMap attributes = element.attributes();
        const QString kind = element.tagName();
        for (int i = 0; i < attributes.count(); ++i) {
            const QString name = attributes.item(i).nodeName();
            if (m_vocabulary.isAttribute(kind, name))
                continue;
            const bool isOfRoot = element == m_root && (name == QLatin1String("type") ||
                                                        name == QLatin1String("zorvane_version") ||
                                                        name == QLatin1String("unitsScale"));
            if (!isOfRoot)
                ++contents.unknownAttributes[attributePath(kind, name)];
        }
    }

    const Vocabulary& m_vocabulary;
    bool m_isArchive;
    QDomElement m_root;
};

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
        forEachDocument(
            m_files, session,
            [&](Document& document) {
                const Survey survey(document);
                if (session.json) {
                    files.append(object(document, survey.contents));
                    return;
                }
                if (!isFirst)
                    session.out.line();
                isFirst = false;
                print(document, survey.contents, session.out);
            },
            [&](const QString& name, const ReadError& error) {
                files.append(QJsonObject{{QStringLiteral("file"), name},
                                         {QStringLiteral("error"), Session::errorObject(error)}});
                return false;
            });
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("files"), files);
            session.out.json(result);
        }
        return session.result(ExitFine);
    }

private:
    static int paramCount(const Contents& contents)
    {
        int sum = 0;
        for (const int count : contents.params)
            sum += count;
        return sum;
    }

    static void print(const Document& document, const Contents& contents, Output& out)
    {
        const QDomElement root = document.Root();
        out.line(out.styled(visible(document.Name()), Style::Bold));
        Table table;
        const auto row = [&table](const char* label, const QString& value) {
            if (!value.isEmpty())
                table.row({{QLatin1String(label), Style::Dim}, {value}});
        };
        row("kind", document.Kind() == DocumentKind::SnapShots ? QStringLiteral("snapshot document")
                    : document.Kind() == DocumentKind::Archive ? QStringLiteral("preset archive")
                                                               : QStringLiteral("unknown"));
        row("root", root.tagName());
        row("name", root.attribute(QStringLiteral("name")));
        row("description", root.attribute(QStringLiteral("desc")));
        row("type", root.attribute(QStringLiteral("type")));
        row("version", root.attribute(QStringLiteral("zorvane_version")));
        if (document.Kind() == DocumentKind::SnapShots)
            row("units scale", root.attribute(QStringLiteral("unitsScale"), QStringLiteral("1")));
        row("size", readableSize(document.Size()));
        for (const Group& group : contents.groups)
            row(document.Kind() == DocumentKind::Archive ? "section" : "collection",
                QStringLiteral("%1: %2").arg(
                    group.name.isEmpty() ? group.element : group.name,
                    counted(group.members, document.Kind() == DocumentKind::Archive
                                               ? QStringLiteral("preset")
                                               : QStringLiteral("snapshot"))));
        Counts kinds = contents.kinds;
        if (paramCount(contents) > 0)
            kinds.insert(QStringLiteral("param"), paramCount(contents));
        row("elements", listed(kinds));
        row("unknown elements", listed(contents.unknownElements));
        row("unknown attributes", listed(contents.unknownAttributes));
        row("unknown parameters", listed(contents.unknownParams));
        table.print(out, 2);
    }

    static QJsonObject object(const Document& document, const Contents& contents)
    {
        const QDomElement root = document.Root();
        QJsonArray groups;
        for (const Group& group : contents.groups) {
            groups.append(QJsonObject{{QStringLiteral("path"), group.path},
                                      {QStringLiteral("element"), group.element},
                                      {QStringLiteral("name"), group.name},
                                      {QStringLiteral("members"), group.members}});
        }
        const auto attribute = [&root](const char* name) -> QJsonValue {
            const QString value = root.attribute(QLatin1String(name));
            return value.isNull() ? QJsonValue() : QJsonValue(value);
        };
        return {
            {QStringLiteral("file"), document.Name()},
            {QStringLiteral("size"), document.Size()},
            {QStringLiteral("kind"), KindName(document.Kind())},
            {QStringLiteral("root"), root.tagName()},
            {QStringLiteral("name"), attribute("name")},
            {QStringLiteral("description"), attribute("desc")},
            {QStringLiteral("type"), attribute("type")},
            {QStringLiteral("version"), attribute("zorvane_version")},
            {QStringLiteral("unitsScale"),
             root.attribute(QStringLiteral("unitsScale"), QStringLiteral("1")).toDouble()},
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

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "ParamTables.h"
#include "Session.h"
#include "toolkit/edit/Likeness.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QJsonArray>

namespace rvopen::command {

using namespace toolkit;

namespace {

using toolkit::ParamInfo;

/// Null where there is no value.
QJsonValue jsonOf(QStringView value)
{
    return value.isNull() ? QJsonValue() : QJsonValue(value.toString());
}

QJsonObject jsonOf(const toolkit::Range& range)
{
    return {
        {QStringLiteral("minimum"), range.HasMinimum() ? QJsonValue(range.minimum) : QJsonValue()},
        {QStringLiteral("maximum"), range.HasMaximum() ? QJsonValue(range.maximum) : QJsonValue()},
        {QStringLiteral("excludesMinimum"), range.excludesMinimum},
        {QStringLiteral("excludesMaximum"), range.excludesMaximum}};
}

QString contentName(toolkit::Content content)
{
    switch (content) {
    case toolkit::Content::Text:
        break;
    case toolkit::Content::ImageFile:
        return QStringLiteral("image-file");
    case toolkit::Content::OutputFile:
        return QStringLiteral("output-file");
    case toolkit::Content::FileName:
        return QStringLiteral("file-name");
    case toolkit::Content::Folder:
        return QStringLiteral("folder");
    }
    return QStringLiteral("text");
}

QJsonObject jsonOf(const ParamInfo& info)
{
    QJsonArray choices;
    for (const QStringView choice : info.choices)
        choices.append(choice.toString());
    return {{QStringLiteral("element"), info.element.toString()},
            {QStringLiteral("kind"), info.kind.toString()},
            {QStringLiteral("name"), info.name.toString()},
            {QStringLiteral("isAttribute"), info.isAttribute},
            {QStringLiteral("label"), info.label.toString()},
            {QStringLiteral("help"), info.help.toString()},
            {QStringLiteral("type"), toolkit::TypeName(info.type)},
            {QStringLiteral("unit"), toolkit::UnitName(info.unit)},
            {QStringLiteral("isLength"), info.isLength},
            {QStringLiteral("content"), contentName(info.content)},
            {QStringLiteral("colourSpace"), toolkit::ColourSpaceName(info.colourSpace)},
            {QStringLiteral("hardRange"), jsonOf(info.hard)},
            {QStringLiteral("softRange"), jsonOf(info.soft)},
            {QStringLiteral("step"), info.step},
            {QStringLiteral("default"), jsonOf(info.defaultValue)},
            {QStringLiteral("created"), jsonOf(info.createdValue)},
            {QStringLiteral("absent"), jsonOf(info.absentValue)},
            {QStringLiteral("choices"), choices},
            {QStringLiteral("areChoicesOpen"), info.choices.areOpen},
            {QStringLiteral("isLater"), info.isLater}};
}

QStringList elementNames()
{
    QStringList names;
    for (const toolkit::ElementInfo& info : toolkit::AllElements())
        names << info.name;
    return names;
}

class Params : public Command {
public:
    const char* name() const override
    {
        return "params";
    }

    const char* summary() const override
    {
        return "Explain parameters and attributes";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description("What each parameter and attribute (@name) of an element means: "
                              "type, unit and range, usual value. Without an element all of them, "
                              "first those of every element (*).");
        arguments.positional("element", m_element, "Kind of element: camera, finish, ...", false,
                             elementNames());
        arguments.positional("kind", m_kind,
                             "Its sub-category or shader class: Horizon, \"lit appearance\", ...",
                             false);
        arguments.example("rvopen params camera", "what a camera has");
        arguments.example("rvopen params --json background Image3D", "the same for programs");
    }

    int run(Session& session) override
    {
        verify();
        const QVector<const ParamInfo*> rows = wanted();
        if (session.json) {
            QJsonArray list;
            for (const ParamInfo* const info : rows)
                list.append(jsonOf(*info));
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("params"), list);
            session.out.json(result);
        } else {
            print(rows, session.out);
        }
        return rows.isEmpty() ? ExitFindings : ExitFine;
    }

private:
    void verify() const
    {
        if (m_element.isEmpty())
            return;
        const toolkit::ElementInfo* const info = toolkit::FindElement(m_element);
        if (!info)
            throw Failure(QStringLiteral("there is no element \"%1\"").arg(m_element) +
                          toolkit::didYouMean(toolkit::likeliest(m_element, elementNames())));
        if (!m_kind.isEmpty() && !info->areKindsOpen && !info->kinds.contains(m_kind)) {
            throw Failure(QStringLiteral("\"%1\" is no kind of \"%2\", which are %3")
                              .arg(m_kind, m_element, info->kinds.join(QStringLiteral(", "))) +
                          toolkit::didYouMean(toolkit::likeliest(m_kind, info->kinds)));
        }
    }

    /// Attributes first, as in a document.
    QVector<const ParamInfo*> wanted() const
    {
        QVector<const ParamInfo*> rows;
        for (const ParamInfo& info : toolkit::AllAttributes()) {
            if (m_element.isEmpty() || info.element == QStringView(m_element))
                rows.append(&info);
        }
        if (!m_kind.isEmpty())
            return rows + toolkit::ParamsOf(m_element, m_kind);
        for (const ParamInfo& info : toolkit::AllParams()) {
            if (m_element.isEmpty() || info.element == QStringView(m_element))
                rows.append(&info);
        }
        return rows;
    }

    static void print(const QVector<const ParamInfo*>& rows, Output& out)
    {
        Table table;
        for (const ParamInfo* const info : rows) {
            QString owner =
                info->element.isEmpty() ? QStringLiteral("*") : info->element.toString();
            if (!info->kind.isEmpty())
                owner += QStringLiteral(" (%1)").arg(info->kind.toString());
            table.row(
                {{owner, Style::Dim},
                 {(info->isAttribute ? QStringLiteral("@") : QString()) + info->name.toString(),
                  Style::Bold},
                 {toolkit::TypeName(info->type)},
                 {valuesText(*info)},
                 {info->defaultValue.toString(), Style::Cyan},
                 {info->help.toString(), Style::Dim}});
        }
        table.print(out);
    }

    QString m_element;
    QString m_kind;
};

} // namespace

std::unique_ptr<Command> makeParams()
{
    return std::make_unique<Params>();
}

} // namespace rvopen::command

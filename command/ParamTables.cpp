// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamTables.h"

#include <QStringList>

#include <algorithm>

namespace rvopen::command {

namespace {

using toolkit::ParamInfo;

QString textText(const ParamInfo& info)
{
    switch (info.content) {
    case toolkit::Content::Text:
        break;
    case toolkit::Content::ImageFile:
        return QStringLiteral("image file");
    case toolkit::Content::OutputFile:
        return QStringLiteral("file");
    case toolkit::Content::FileName:
        return QStringLiteral("file name");
    case toolkit::Content::Folder:
        return QStringLiteral("folder");
    }
    QStringList choices;
    for (const QStringView choice : info.choices)
        choices << choice.toString();
    if (!choices.isEmpty() && info.choices.areOpen)
        choices << QStringLiteral("or another");
    return choices.join(QLatin1String(", "));
}

QString numberText(const ParamInfo& info)
{
    QString unit = toolkit::UnitName(info.unit);
    // What is converted when it is stored is called so.
    if (info.isLength)
        unit = info.unit == toolkit::Unit::SceneArea ? QStringLiteral("length that holds an area")
                                                     : QStringLiteral("length");
    const QString range = toolkit::RangeText(info.hard);
    return unit.isEmpty() || range.isEmpty() ? unit + range : unit + QLatin1String(", ") + range;
}

/// The value in a cell; "–" for one that there is none of.
QString valueCell(QStringView value, bool isCode)
{
    if (value.isNull())
        return QString(QChar(0x2013));
    if (value.isEmpty())
        return QStringLiteral("empty");
    const QString mark = isCode ? QStringLiteral("`") : QString();
    return mark + value.toString() + mark;
}

QString line(const QStringList& cells)
{
    QString result;
    for (const QString& cell : cells)
        result +=
            cell.isEmpty() ? QStringLiteral("| ") : QLatin1String("| ") + cell + QLatin1Char(' ');
    return result + QLatin1String("|\n");
}

} // namespace

QString valuesText(const ParamInfo& info)
{
    switch (info.type) {
    case toolkit::ValueType::Boolean:
        return QStringLiteral("0 or 1");
    case toolkit::ValueType::Colour:
        return toolkit::RangeText(info.soft);
    case toolkit::ValueType::Vector:
        return QStringLiteral("direction");
    case toolkit::ValueType::String:
    case toolkit::ValueType::Shader:
        return textText(info);
    case toolkit::ValueType::Bytes:
        return QStringLiteral("hexadecimal text");
    default:
        return numberText(info);
    }
}

QString parameterTables()
{
    const toolkit::ParamInfos all = toolkit::AllParams();
    QString text;
    for (const ParamInfo* info = all.begin(); info != all.end();) {
        const QStringView element = info->element;
        const ParamInfo* const end = std::find_if(
            info, all.end(), [element](const ParamInfo& row) { return row.element != element; });
        const QStringView kind = info->kind;
        const bool hasKinds =
            std::any_of(info, end, [kind](const ParamInfo& row) { return row.kind != kind; });
        QStringList headings{QStringLiteral("parameter"),   QStringLiteral("type"),
                             QStringLiteral("new"),         QStringLiteral("absent"),
                             QStringLiteral("unit, range"), QStringLiteral("since")};
        if (hasKinds)
            headings << QStringLiteral("kind");
        headings << QStringLiteral("meaning");
        text += QLatin1String("### ") + element.toString() + QLatin1String("\n\n") +
                line(headings) + QLatin1Char('|') +
                QStringLiteral("---|").repeated(int(headings.size())) + QLatin1Char('\n');
        for (; info != end; ++info) {
            QStringList cells{QLatin1Char('"') + info->name.toString() + QLatin1Char('"'),
                              toolkit::TypeName(info->type),
                              valueCell(info->createdValue, true),
                              valueCell(info->absentValue, false),
                              valuesText(*info),
                              info->isLater ? QStringLiteral("later") : QStringLiteral("first")};
            if (hasKinds)
                cells << (info->kind.isEmpty() ? QString() : valueCell(info->kind, true));
            cells << info->help.toString();
            text += line(cells);
        }
        text += QLatin1Char('\n');
    }
    return text;
}

} // namespace rvopen::command

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SchemaSupport.h"

#include <QHash>
#include <QStringList>

/// The tables of attributes in docs/formats.md and the schema say the same.
namespace rvopen::test {

namespace {

using namespace toolkit;

struct DocumentedAttribute {
    QString element;
    QString name;
    QString type;
    QString absent;
};

QString referenceText()
{
    const QByteArray text = readFile(QStringLiteral(RVOPEN_DATA_DIR "/../docs/formats.md"));
    EXPECT_FALSE(text.isEmpty());
    return QString::fromUtf8(text);
}

/// The rows of all tables of attributes.
std::vector<DocumentedAttribute> documented()
{
    std::vector<DocumentedAttribute> rows;
    QString element;
    QStringList headings;
    for (const QString& line : referenceText().split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('#'))) {
            // Only headings of one element have its name between marks.
            element = line.startsWith(QLatin1String("### `")) ? line.section(QLatin1Char('`'), 1, 1)
                                                              : QString();
            if (line == QLatin1String("## Parameters"))
                element = QStringLiteral("param");
        }
        const QStringList cells = line.split(QLatin1Char('|'));
        if (!line.startsWith(QLatin1Char('|')))
            headings.clear();
        else if (cells[1] == QLatin1String(" attribute "))
            headings = cells;
        else if (!headings.isEmpty() && cells[1].contains(QLatin1Char('`'))) {
            const QStringList names = cells[1].split(QLatin1Char('`'));
            for (int i = 1; i < int(names.size()); i += 2) {
                const auto cell = [&](const char* heading) {
                    const int column = int(headings.indexOf(QLatin1String(heading)));
                    return column < 0 ? QString() : cells[column].trimmed();
                };
                rows.push_back({element, names[i], cell(" type "), cell(" when absent ")});
            }
        }
    }
    return rows;
}

} // namespace

TEST(DocumentedAttributes, AreInTheSchema)
{
    const QHash<QString, ValueType> types = {
        {QStringLiteral("text"), ValueType::String},
        {QStringLiteral("flag"), ValueType::Boolean},
        {QStringLiteral("integer"), ValueType::Integer},
        {QStringLiteral("number"), ValueType::Float},
        {QStringLiteral("number above 0"), ValueType::Float},
        {QStringLiteral("hexadecimal text"), ValueType::Bytes},
    };
    int compared = 0;
    for (const DocumentedAttribute& row : documented()) {
        const ParamInfo* const info = FindAttribute(row.element, row.name);
        ASSERT_TRUE(info) << row.element.toStdString() << '@' << row.name.toStdString();
        EXPECT_EQ(info->element.toString(), row.element) << row.name.toStdString();
        if (types.contains(row.type)) {
            ++compared;
            EXPECT_EQ(info->type, types[row.type]) << row.name.toStdString();
        }
        bool isNumber = false;
        row.absent.toInt(&isNumber);
        if (isNumber)
            EXPECT_EQ(info->absentValue.toString(), row.absent) << row.name.toStdString();
        else
            EXPECT_TRUE(info->absentValue.isNull()) << row.name.toStdString();
    }
    EXPECT_EQ(compared, 23);
}

TEST(DocumentedAttributes, AreAllOfTheSchema)
{
    QStringList names;
    for (const DocumentedAttribute& row : documented())
        names << row.element + QLatin1Char('@') + row.name;
    const QString text = referenceText();
    for (const ParamInfo& info : AllAttributes()) {
        const QString element = info.element.toString();
        const QString name = info.name.toString();
        const bool hasTable = element.isEmpty() || element == QLatin1String("param") ||
                              element == QLatin1String("snapRoot");
        if (hasTable)
            EXPECT_TRUE(names.contains(element + QLatin1Char('@') + name)) << name.toStdString();
        else
            EXPECT_TRUE(text.contains(QLatin1Char('`') + name + QLatin1Char('`')))
                << name.toStdString();
    }
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Tables.h"

#include <QFile>
#include <QSet>

#include <utility>

namespace rvopen::starter {

namespace {

QStringList cellsOf(const QString& line)
{
    QStringList cells{QString()};
    bool isQuoted = false;
    for (int i = 0; i < int(line.size()); ++i) {
        const QChar c = line[i];
        if (c == QLatin1Char('"')) {
            const bool isDoubled =
                isQuoted && i + 1 < int(line.size()) && line[i + 1] == QLatin1Char('"');
            if (isDoubled)
                cells.last() += line[++i];
            else
                isQuoted = !isQuoted;
        } else if (c == QLatin1Char(',') && !isQuoted) {
            cells << QString();
        } else {
            cells.last() += c;
        }
    }
    return cells;
}

/// The key of a note that tells of a source, empty for others.
QString sourceOf(const QString& note)
{
    const QLatin1String start("# [");
    return note.startsWith(start) ? note.mid(start.size()).section(QLatin1Char(']'), 0, 0)
                                  : QString();
}

/// The facts of each row come from somewhere, and nothing is named as a source of none.
void checkSources(const QString& path, const QSet<QString>& told, const QVector<Row>& rows)
{
    QSet<QString> unused = told;
    for (const Row& row : rows) {
        const QString source = row.text("source");
        if (!told.contains(source))
            throw Failure(
                QStringLiteral("%1: no note tells of the source \"%2\"").arg(row.place(), source));
        unused.remove(source);
    }
    if (!unused.isEmpty())
        throw Failure(
            QStringLiteral("%1: no row is from the source \"%2\"").arg(path, *unused.cbegin()));
}

} // namespace

Failure::Failure(const QString& what)
    : std::runtime_error(what.toStdString())
{
}

Row::Row(QHash<QString, QString> cells, QString place)
    : m_cells(std::move(cells))
    , m_place(std::move(place))
{
}

QString Row::text(const char* column) const
{
    const auto cell = m_cells.constFind(QLatin1String(column));
    if (cell == m_cells.cend())
        throw Failure(QStringLiteral("%1: no column \"%2\"").arg(m_place, QLatin1String(column)));
    return *cell;
}

bool Row::has(const char* column) const
{
    return !text(column).isEmpty();
}

float Row::number(const char* column) const
{
    bool isNumber = false;
    const float value = text(column).toFloat(&isNumber);
    if (!isNumber)
        throw Failure(QStringLiteral("%1: \"%2\" is no number in column \"%3\"")
                          .arg(m_place, text(column), QLatin1String(column)));
    return value;
}

int Row::integer(const char* column) const
{
    bool isNumber = false;
    const int value = text(column).toInt(&isNumber);
    if (!isNumber)
        throw Failure(QStringLiteral("%1: \"%2\" is no whole number in column \"%3\"")
                          .arg(m_place, text(column), QLatin1String(column)));
    return value;
}

QDate Row::date(const char* column) const
{
    const QDate value = QDate::fromString(text(column), Qt::ISODate);
    if (!value.isValid())
        throw Failure(QStringLiteral("%1: \"%2\" is no date in column \"%3\"")
                          .arg(m_place, text(column), QLatin1String(column)));
    return value;
}

QVector<QColor> Row::colours(const char* column) const
{
    QVector<QColor> colours;
    for (const QString& name : text(column).split(QLatin1Char(' '))) {
        const QColor colour(name);
        if (!colour.isValid() || !name.startsWith(QLatin1Char('#')))
            throw Failure(QStringLiteral("%1: \"%2\" is no colour").arg(m_place, name));
        colours << colour;
    }
    return colours;
}

QString Row::place() const
{
    return m_place;
}

QVector<Row> readTable(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("cannot read %1").arg(path));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    QVector<Row> rows;
    QStringList columns;
    QSet<QString> sources;
    for (int i = 0; i < int(lines.size()); ++i) {
        const QString& line = lines[i];
        if (line.startsWith(QLatin1Char('#'))) {
            const QString source = sourceOf(line);
            if (!source.isEmpty())
                sources.insert(source);
            continue;
        }
        if (line.isEmpty())
            continue;
        const QStringList cells = cellsOf(line);
        if (columns.isEmpty()) {
            columns = cells;
            continue;
        }
        const QString place = QStringLiteral("%1:%2").arg(path).arg(i + 1);
        if (cells.size() != columns.size())
            throw Failure(QStringLiteral("%1: %2 cells instead of %3")
                              .arg(place)
                              .arg(cells.size())
                              .arg(columns.size()));
        QHash<QString, QString> named;
        for (int column = 0; column < int(columns.size()); ++column)
            named.insert(columns[column], cells[column]);
        rows.append(Row(named, place));
    }
    checkSources(path, sources, rows);
    return rows;
}

Tables::Tables(QString folder)
    : m_folder(std::move(folder))
{
}

QVector<Row> Tables::rows(const char* name) const
{
    return readTable(m_folder + QLatin1Char('/') + QLatin1String(name) + QLatin1String(".csv"));
}

} // namespace rvopen::starter

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

#include <stdexcept>

namespace rvopen::starter {

/// What is wrong with a table, or could not be made.
class Failure : public std::runtime_error {
public:
    explicit Failure(const QString& what);
};

/// One line of a table.
class Row {
public:
    Row(QHash<QString, QString> cells, QString place);

    /// Fails when there is no such column.
    QString text(const char* column) const;
    bool has(const char* column) const;
    float number(const char* column) const;
    int integer(const char* column) const;
    /// As "2026-12-21".
    QDate date(const char* column) const;
    /// Colours as "#rrggbb", separated by blanks.
    QVector<QColor> colours(const char* column) const;
    /// File and line, for messages.
    QString place() const;

private:
    QHash<QString, QString> m_cells;
    QString m_place;
};

/// Comma-separated values in UTF-8: lines that start with "#" are notes, the first other line names
/// the columns. Cells with commas or quotes are quoted, quotes in them doubled. A note "# [key]
/// ..." tells of a source; each row names one of them in its column "source". Fails where a row has
/// another or none, and where no row has a source that there is a note of.
QVector<Row> readTable(const QString& path);

/// The tables of a folder, by name.
class Tables {
public:
    explicit Tables(QString folder);

    QVector<Row> rows(const char* name) const;

private:
    QString m_folder;
};

} // namespace rvopen::starter

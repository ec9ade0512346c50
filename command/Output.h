// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cstdio>

namespace rvopen::command {

enum class Style { Plain, Bold, Dim, Red, Green, Yellow, Cyan };

/// Text with control characters, which could drive a terminal, made visible.
QString visible(const QString& text);
/// Columns that the text takes on a terminal.
int displayWidth(const QString& text);
/// "1 file", "2 files".
QString counted(qint64 number, const QString& singular, const QString& plural = QString());
/// 1234567 as "1.2 MB".
QString readableSize(qint64 bytes);

/// Standard output as UTF-8, coloured where that is wanted.
class Output {
public:
    explicit Output(std::FILE* file = stdout);
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// "auto", "always" or "never".
    void setColour(const QString& when);

    QString styled(const QString& text, Style style) const;
    void line(const QString& text = QString());
    void text(const QString& text);
    void bytes(const QByteArray& bytes);
    void json(const QJsonObject& object);

    /// Throws a Failure when something could not be written.
    void flush();

private:
    std::FILE* m_file;
    bool m_coloured = false;
    QByteArray m_buffer;
};

/// Rows of cells below each other; the last column is not padded.
class Table {
public:
    struct Cell {
        QString text;
        Style style = Style::Plain;
    };

    void row(const QVector<Cell>& cells);
    bool isEmpty() const;
    void print(Output& out, int indent = 0) const;

private:
    /// As they are printed.
    QVector<QVector<Cell>> m_rows;
    QVector<int> m_widths;
};

} // namespace rvopen::command

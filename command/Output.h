// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace rvopen::command {

enum class Style { Plain, Bold, Dim, Red, Green, Yellow, Cyan };

/// Text with control characters, which could drive a terminal, made visible.
QString visible(const QString& text);
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
    /// The same in UTF-8.
    void appendStyled(std::string_view text, Style style, std::string& line) const;
    void line(const QString& text = QString());
    void text(const QString& text);
    void bytes(std::string_view bytes);
    void json(const QJsonObject& object);

    /// Throws a Failure when something could not be written.
    void flush();

private:
    std::FILE* m_file;
    bool m_coloured = false;
    std::string m_buffer;
};

struct Cell {
    QString text;
    Style style = Style::Plain;
};

/// A cell as it is printed, in UTF-8.
struct ShownCell {
    std::string text;
    Style style = Style::Plain;
};

/// Makes control characters visible.
void makeVisible(std::string& text);
/// Columns that the text takes on a terminal.
int displayWidth(const std::string& text);

/// What cells below each other are padded to; the last one of a line is not. For more lines than
/// are held in memory: first all are measured, then printed.
class Columns {
public:
    void measure(const std::vector<ShownCell>& cells);
    void print(const std::vector<ShownCell>& cells, Output& out, int indent = 0);

private:
    std::vector<int> m_widths;
    std::string m_line;
};

/// Rows of cells below each other.
class Table {
public:
    using Cell = command::Cell;

    void row(const QVector<Cell>& cells);
    bool isEmpty() const;
    void print(Output& out, int indent = 0);

private:
    std::vector<std::vector<ShownCell>> m_rows;
    Columns m_columns;
};

} // namespace rvopen::command

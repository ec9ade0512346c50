// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Output.h"

#include "toolkit/documents/Utf8.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <QJsonDocument>
#include <QVarLengthArray>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace rvopen::command {

using namespace toolkit;

namespace {

bool isTerminal(std::FILE* file)
{
#if defined(_WIN32)
    return _isatty(_fileno(file)) != 0;
#else
    return isatty(fileno(file)) != 0;
#endif
}

bool isWide(uint c)
{
    return c >= 0x1100 &&
           (c <= 0x115f || (c >= 0x2e80 && c <= 0xa4cf) || (c >= 0xac00 && c <= 0xd7a3) ||
            (c >= 0xf900 && c <= 0xfaff) || (c >= 0xfe30 && c <= 0xfe6f) ||
            (c >= 0xff00 && c <= 0xff60) || (c >= 0xffe0 && c <= 0xffe6) ||
            (c >= 0x1f300 && c <= 0x1faff) || (c >= 0x20000 && c <= 0x3fffd));
}

/// Control characters, and those that turn the direction of text round.
bool isControl(QChar c)
{
    return c.unicode() < 0x20 || (c.unicode() >= 0x7f && c.unicode() < 0xa0) ||
           c.unicode() == 0x061c || c.unicode() == 0x200e || c.unicode() == 0x200f ||
           (c.unicode() >= 0x202a && c.unicode() <= 0x202e) ||
           (c.unicode() >= 0x2066 && c.unicode() <= 0x2069);
}

const char* code(Style style)
{
    switch (style) {
    case Style::Bold:
        return "\033[1m";
    case Style::Dim:
        return "\033[2m";
    case Style::Red:
        return "\033[31m";
    case Style::Green:
        return "\033[32m";
    case Style::Yellow:
        return "\033[33m";
    case Style::Cyan:
        return "\033[36m";
    case Style::Plain:
        break;
    }
    return "";
}

/// Of the characters that steer terminals and editors Qt escapes those below U+0020 only.
QByteArray harmless(const QByteArray& json)
{
    const QString text = QString::fromUtf8(json);
    const auto isEscaped = [](QChar c) { return c != QLatin1Char('\n') && isControl(c); };
    if (std::none_of(text.cbegin(), text.cend(), isEscaped))
        return json;
    QString result;
    for (const QChar c : text) {
        if (isEscaped(c))
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            result += c;
    }
    return result.toUtf8();
}

/// From blanks to tildes alone. Most of what is printed is, and eight bytes are one number.
bool isPlainAscii(std::string_view text)
{
    const quint64 ones = 0x0101010101010101;
    quint64 other = 0;
    for (std::size_t at = 0; at < text.size(); at += 8) {
        quint64 eight = 0x20 * ones;
        if (text.size() - at >= 8) {
            std::memcpy(&eight, text.data() + at, 8);
        } else {
            for (std::size_t i = at; i < text.size(); ++i)
                eight = eight << 8 | static_cast<unsigned char>(text[i]);
        }
        // A bit for what is less than a blank, what is a delete character and what is no ASCII.
        other |= (eight - 0x20 * ones) | (eight + ones) | eight;
    }
    return (other & 0x80 * ones) == 0;
}

} // namespace

QString visible(const QString& text)
{
    if (std::none_of(text.cbegin(), text.cend(), isControl))
        return text;
    QString result;
    for (const QChar c : text) {
        if (c == QLatin1Char('\n'))
            result += QLatin1String("\\n");
        else if (c == QLatin1Char('\t'))
            result += QLatin1String("\\t");
        else if (isControl(c))
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            result += c;
    }
    return result;
}

QString counted(qint64 number, const QString& singular, const QString& plural)
{
    const QString many = plural.isEmpty() ? singular + QLatin1Char('s') : plural;
    return QString::number(number) + QLatin1Char(' ') + (number == 1 ? singular : many);
}

QString readableSize(qint64 bytes)
{
    if (bytes < 1000)
        return counted(bytes, QStringLiteral("byte"));
    double size = double(bytes);
    const char* const units[] = {"kB", "MB", "GB"};
    int unit = -1;
    while (size >= 1000 && unit < 2) {
        size /= 1000;
        ++unit;
    }
    return QString::number(size, 'f', size < 10 ? 1 : 0) + QLatin1Char(' ') +
           QLatin1String(units[unit]);
}

Output::Output(std::FILE* file)
    : m_file(file)
{
}

Output::~Output()
{
    if (!m_buffer.empty())
        std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_file);
    std::fflush(m_file);
}

void Output::setColour(const QString& when)
{
    if (when == QLatin1String("auto")) {
        m_coloured = isTerminal(m_file) && qEnvironmentVariableIsEmpty("NO_COLOR") &&
                     qgetenv("TERM") != "dumb";
    } else {
        m_coloured = when == QLatin1String("always");
    }
}

QString Output::styled(const QString& text, Style style) const
{
    std::string result;
    appendStyled(text.toStdString(), style, result);
    return fromUtf8(result);
}

void Output::appendStyled(std::string_view text, Style style, std::string& line) const
{
    const bool isStyled = m_coloured && style != Style::Plain && !text.empty();
    if (isStyled)
        line += code(style);
    line += text;
    if (isStyled)
        line += "\033[0m";
}

void Output::line(const QString& line)
{
    text(line + QLatin1Char('\n'));
}

void Output::text(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    bytes({utf8.constData(), std::size_t(utf8.size())});
}

void Output::bytes(std::string_view bytes)
{
    m_buffer += bytes;
    if (m_buffer.size() > 65536)
        flush();
}

void Output::json(const QJsonObject& object)
{
    const QByteArray json = harmless(QJsonDocument(object).toJson(QJsonDocument::Indented));
    bytes({json.constData(), std::size_t(json.size())});
}

void Output::flush()
{
    errno = 0;
    const std::size_t size = m_buffer.size();
    const bool isWritten = std::fwrite(m_buffer.data(), 1, size, m_file) == size;
    m_buffer.clear();
    if (isWritten && std::fflush(m_file) == 0)
        return;
    const std::string reason = std::generic_category().message(errno);
    throw Failure(
        QStringLiteral("the output could not be written: %1").arg(QString::fromStdString(reason)));
}

void makeVisible(std::string& text)
{
    if (!isPlainAscii(text))
        text = visible(fromUtf8(text)).toStdString();
}

int displayWidth(const std::string& text)
{
    if (isPlainAscii(text))
        return int(text.size());
    int width = 0;
    for (const uint c : fromUtf8(text).toUcs4()) {
        const QChar::Category category = QChar::category(c);
        if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing ||
            category == QChar::Other_Format)
            continue;
        width += isWide(c) ? 2 : 1;
    }
    return width;
}

void Columns::measure(const std::vector<ShownCell>& cells)
{
    if (m_widths.size() < cells.size())
        m_widths.resize(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i)
        m_widths[i] = std::max(m_widths[i], displayWidth(cells[i].text));
}

void Columns::print(const std::vector<ShownCell>& cells, Output& out, int indent)
{
    std::size_t count = cells.size();
    while (count > 1 && cells[count - 1].text.empty())
        --count;
    m_line.assign(std::size_t(indent), ' ');
    for (std::size_t i = 0; i < count; ++i) {
        out.appendStyled(cells[i].text, cells[i].style, m_line);
        if (i + 1 < count)
            m_line.append(std::size_t(m_widths[i] - displayWidth(cells[i].text) + 2), ' ');
    }
    m_line += '\n';
    out.bytes(m_line);
}

void Table::row(const QVector<Cell>& cells)
{
    std::vector<ShownCell> row;
    for (const Cell& cell : cells)
        row.push_back({visible(cell.text).toStdString(), cell.style});
    m_columns.measure(row);
    m_rows.push_back(std::move(row));
}

bool Table::isEmpty() const
{
    return m_rows.empty();
}

void Table::print(Output& out, int indent)
{
    for (const std::vector<ShownCell>& row : m_rows)
        m_columns.print(row, out, indent);
}

} // namespace rvopen::command

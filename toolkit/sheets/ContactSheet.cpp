// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ContactSheet.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

const QColor s_ink(0x22, 0x28, 0x2e);
const QColor s_pale(0x8a, 0x90, 0x96);
const QColor s_rule(0xd5, 0xd7, 0xd8);

QFont fontOf(int pixels, bool isBold)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixels);
    font.setBold(isBold);
    return font;
}

} // namespace

ContactSheet::ContactSheet(const QString& title, const QVector<Cell>& cells, int columns, int side)
    : m_title(title)
    , m_cells(cells)
    , m_columns(columns)
    , m_side(side)
{
}

int ContactSheet::width() const
{
    return 2 * margin() + m_columns * m_side + (m_columns - 1) * gap();
}

int ContactSheet::height() const
{
    const QVector<Row> all = rows(0);
    return all.isEmpty() ? titleHeight() + 2 * margin() : all.last().top + rowHeight() + margin();
}

int ContactSheet::pages(int pageHeight) const
{
    const QVector<Row> all = rows(pageHeight);
    return all.isEmpty() ? 1 : all.last().page + 1;
}

void ContactSheet::paint(QPainter& painter, int pageHeight, const Pictures& pictures,
                         const std::function<void()>& newPage) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const int count = pages(pageHeight);
    int page = 0;
    paintPageTitle(painter, 0, count);
    for (const Row& row : rows(pageHeight)) {
        if (row.page != page) {
            page = row.page;
            newPage();
            paintPageTitle(painter, page, count);
        }
        for (const Group& group : row.groups)
            paintGroup(painter, row.top, group, pictures(group.first, group.count));
    }
}

bool ContactSheet::belongTogether(int a, int b) const
{
    return m_cells[a].heading == m_cells[b].heading && m_cells[a].document == m_cells[b].document;
}

int ContactSheet::groupEnd(int first) const
{
    int end = first;
    while (end < int(m_cells.size()) && belongTogether(first, end))
        ++end;
    return end;
}

int ContactSheet::columnsOf(const QString& heading, int count) const
{
    const int text = QFontMetrics(headingFont()).horizontalAdvance(heading);
    const int forHeading = (text + 2 * gap() + m_side - 1) / (m_side + gap());
    return std::min(m_columns, std::max(count, forHeading));
}

bool ContactSheet::placeBeside(Row& row, const Group& group) const
{
    const Group& last = row.groups.last();
    const int column = last.column + last.columns;
    if (!row.isOpen || column + group.columns > m_columns ||
        m_cells[last.first].document != m_cells[group.first].document)
        return false;
    row.groups.append(group);
    row.groups.last().column = column;
    return true;
}

QVector<ContactSheet::Row> ContactSheet::rows(int pageHeight) const
{
    QVector<Row> result;
    int page = 0;
    int top = margin() + titleHeight();
    for (int i = 0; i < int(m_cells.size());) {
        const bool isNew = i == 0 || !belongTogether(i - 1, i);
        const int left = groupEnd(i) - i;
        Group group;
        group.heading = m_cells[i].heading;
        group.first = i;
        group.count = std::min(left, m_columns);
        group.columns = columnsOf(group.heading, group.count);
        i += group.count;
        const bool isWhole = isNew && group.count == left;
        if (isWhole && !result.isEmpty() && placeBeside(result.last(), group))
            continue;
        const int height = rowHeight() + (isNew ? headingHeight() : 0);
        if (pageHeight > 0 && top + height > pageHeight - margin()) {
            ++page;
            top = margin() + titleHeight();
        }
        // On a new page the heading stands again.
        const bool isFirst = result.isEmpty() || result.last().page != page;
        if (isNew || isFirst)
            top += headingHeight();
        else
            group.heading.clear();
        Row row;
        row.groups.append(group);
        row.page = page;
        row.top = top;
        row.isOpen = isWhole;
        top += rowHeight();
        result.append(row);
    }
    return result;
}

void ContactSheet::paintPageTitle(QPainter& painter, int page, int of) const
{
    const int right = width() - margin();
    painter.setFont(fontOf(namePixels() * 8 / 5, true));
    painter.setPen(s_ink);
    const QString number = of > 1 ? QStringLiteral("%1 / %2").arg(page + 1).arg(of) : QString();
    const int forNumber = of > 1 ? m_side : 0;
    const QString title = QFontMetrics(painter.font(), painter.device())
                              .elidedText(m_title, Qt::ElideMiddle, right - margin() - forNumber);
    painter.drawText(QRect(margin(), margin(), right - margin(), titleHeight()),
                     int(Qt::AlignLeft) | int(Qt::AlignTop), title);
    if (of > 1) {
        painter.setFont(fontOf(namePixels(), false));
        painter.setPen(s_pale);
        painter.drawText(QRect(right - m_side, margin(), m_side, titleHeight()),
                         int(Qt::AlignRight) | int(Qt::AlignTop), number);
    }
}

void ContactSheet::paintGroup(QPainter& painter, int top, const Group& group,
                              const QVector<QImage>& images) const
{
    if (!group.heading.isEmpty())
        paintHeading(painter, top, group);
    for (int i = 0; i < group.count; ++i) {
        const int left = columnLeft(group.column + i);
        const QImage image = images.value(i);
        if (!image.isNull()) {
            QSize size = image.size();
            size.scale(m_side, m_side, Qt::KeepAspectRatio);
            const QRect place(left + (m_side - size.width()) / 2,
                              top + (m_side - size.height()) / 2, size.width(), size.height());
            painter.drawImage(place, image);
            painter.setPen(QPen(s_rule, 1));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(place);
        }
        paintName(painter, m_cells[group.first + i].name, left, top + m_side + gap() / 3);
    }
}

void ContactSheet::paintHeading(QPainter& painter, int top, const Group& group) const
{
    const int base = top - headingHeight() / 3;
    const int left = columnLeft(group.column);
    const int room = columnLeft(group.column + group.columns) - gap() - left;
    painter.setFont(headingFont());
    painter.setPen(s_ink);
    const QString text = QFontMetrics(painter.font(), painter.device())
                             .elidedText(group.heading, Qt::ElideRight, room);
    painter.drawText(
        QRect(left, top - headingHeight(), room, headingHeight() - headingHeight() / 3 - 2),
        int(Qt::AlignLeft) | int(Qt::AlignBottom), text);
    painter.setPen(QPen(s_rule, 1));
    painter.drawLine(left, base, left + room, base);
}

void ContactSheet::paintName(QPainter& painter, const QString& name, int left, int top) const
{
    const QFont font = fontOf(namePixels(), false);
    const QFontMetrics metrics(font, painter.device());
    painter.setFont(font);
    painter.setPen(s_ink);
    QTextLayout layout(name, font, painter.device());
    layout.beginLayout();
    int used = 0;
    for (int line = 0; line < 2; ++line) {
        QTextLine piece = layout.createLine();
        if (!piece.isValid())
            break;
        piece.setLineWidth(m_side);
        const int from = piece.textStart();
        const bool isLast = line == 1;
        QString text = isLast ? name.mid(from) : name.mid(from, piece.textLength());
        text = metrics.elidedText(text.trimmed(), Qt::ElideRight, m_side);
        painter.drawText(QRect(left, top + used, m_side, metrics.height()),
                         int(Qt::AlignHCenter) | int(Qt::AlignTop), text);
        used += metrics.lineSpacing();
    }
    layout.endLayout();
}

QFont ContactSheet::headingFont() const
{
    return fontOf(namePixels() * 6 / 5, true);
}

int ContactSheet::columnLeft(int column) const
{
    return margin() + column * (m_side + gap());
}

int ContactSheet::rowHeight() const
{
    return m_side + gap() / 3 + namePixels() * 13 / 5 + gap() / 2;
}

int ContactSheet::headingHeight() const
{
    return namePixels() * 27 / 10;
}

int ContactSheet::titleHeight() const
{
    return namePixels() * 3;
}

int ContactSheet::margin() const
{
    return std::max(m_side / 6, 12);
}

int ContactSheet::gap() const
{
    return std::max(m_side / 8, 6);
}

int ContactSheet::namePixels() const
{
    // At six pictures across a sheet of paper, 8 points.
    return std::max(m_side / 11, 9);
}

} // namespace rvopen::toolkit

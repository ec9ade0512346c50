// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ContactSheet.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace rvopen::tools {

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
        paintRow(painter, row, pictures(row.first, row.count));
    }
}

bool ContactSheet::belongTogether(int a, int b) const
{
    return m_cells[a].heading == m_cells[b].heading && m_cells[a].document == m_cells[b].document;
}

QVector<ContactSheet::Row> ContactSheet::rows(int pageHeight) const
{
    QVector<Row> result;
    int page = 0;
    int top = margin() + titleHeight();
    for (int i = 0; i < int(m_cells.size());) {
        Row row;
        row.first = i;
        const bool isNew = i == 0 || !belongTogether(i - 1, i);
        while (i < int(m_cells.size()) && row.count < m_columns && belongTogether(row.first, i)) {
            ++row.count;
            ++i;
        }
        const int height = rowHeight() + (isNew ? headingHeight() : 0);
        if (pageHeight > 0 && top + height > pageHeight - margin()) {
            ++page;
            top = margin() + titleHeight();
        }
        // On a new page the heading stands again.
        const bool isFirst = result.isEmpty() || result.last().page != page;
        if (isNew || isFirst) {
            row.heading = m_cells[row.first].heading;
            top += headingHeight();
        }
        row.page = page;
        row.top = top;
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

void ContactSheet::paintRow(QPainter& painter, const Row& row, const QVector<QImage>& images) const
{
    if (!row.heading.isEmpty()) {
        const int base = row.top - headingHeight() / 3;
        painter.setFont(fontOf(namePixels() * 6 / 5, true));
        painter.setPen(s_ink);
        const int room = width() - 2 * margin();
        const QString text = QFontMetrics(painter.font(), painter.device())
                                 .elidedText(row.heading, Qt::ElideRight, room);
        painter.drawText(QRect(margin(), row.top - headingHeight(), room,
                               headingHeight() - headingHeight() / 3 - 2),
                         int(Qt::AlignLeft) | int(Qt::AlignBottom), text);
        painter.setPen(QPen(s_rule, 1));
        painter.drawLine(margin(), base, width() - margin(), base);
    }
    for (int i = 0; i < row.count; ++i) {
        const int left = margin() + i * (m_side + gap());
        const QImage image = images.value(i);
        if (!image.isNull()) {
            QSize size = image.size();
            size.scale(m_side, m_side, Qt::KeepAspectRatio);
            const QRect place(left + (m_side - size.width()) / 2,
                              row.top + (m_side - size.height()) / 2, size.width(), size.height());
            painter.drawImage(place, image);
            painter.setPen(QPen(s_rule, 1));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(place);
        }
        paintName(painter, m_cells[row.first + i].name, left, row.top + m_side + gap() / 3);
    }
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

} // namespace rvopen::tools

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QString>
#include <QVector>

#include <functional>

class QPainter;

namespace rvopen::tools {

/// Pictures with their names below each other's headings. Measures are in points of which a picture
/// is `side` wide.
class ContactSheet {
public:
    struct Cell {
        QString heading;
        QString name;
        /// Cells of different documents stand apart.
        int document = 0;
    };
    /// The pictures of some neighbouring cells, which are all that is held at one time.
    using Pictures = std::function<QVector<QImage>(int first, int count)>;

    ContactSheet(const QString& title, const QVector<Cell>& cells, int columns, int side);

    int width() const;
    /// As one page, however long.
    int height() const;
    int pages(int pageHeight) const;

    /// Paints page after page, of \p pageHeight each; \p newPage is called between them.
    void paint(QPainter& painter, int pageHeight, const Pictures& pictures,
               const std::function<void()>& newPage) const;

private:
    struct Row {
        /// Empty unless a heading stands above.
        QString heading;
        int first = 0;
        int count = 0;
        int page = 0;
        int top = 0;
    };

    bool belongTogether(int a, int b) const;
    QVector<Row> rows(int pageHeight) const;
    void paintPageTitle(QPainter& painter, int page, int of) const;
    void paintRow(QPainter& painter, const Row& row, const QVector<QImage>& images) const;
    void paintName(QPainter& painter, const QString& name, int left, int top) const;
    int rowHeight() const;
    int headingHeight() const;
    int titleHeight() const;
    int margin() const;
    int gap() const;
    int namePixels() const;

    QString m_title;
    QVector<Cell> m_cells;
    int m_columns;
    int m_side;
};

} // namespace rvopen::tools

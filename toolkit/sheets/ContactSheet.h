// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QImage>
#include <QString>
#include <QVector>

#include <functional>

class QPainter;

namespace rvopen::toolkit {

/// Pictures with their names under headings; small groups stand side by side. Measures are in
/// points of which a picture is `side` wide.
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
    /// What stands under one heading, or goes on from the row above without one.
    struct Group {
        QString heading;
        int first = 0;
        int count = 0;
        int column = 0;
        /// Columns that it takes: its heading may need more than its pictures.
        int columns = 0;
    };
    struct Row {
        QVector<Group> groups;
        int page = 0;
        int top = 0;
        /// Whether all of its groups begin and end in it, so that another may stand beside them.
        bool isOpen = false;
    };

    bool belongTogether(int a, int b) const;
    int groupEnd(int first) const;
    int columnsOf(const QString& heading, int count) const;
    bool placeBeside(Row& row, const Group& group) const;
    QVector<Row> rows(int pageHeight) const;
    void paintPageTitle(QPainter& painter, int page, int of) const;
    void paintGroup(QPainter& painter, int top, const Group& group,
                    const QVector<QImage>& images) const;
    void paintHeading(QPainter& painter, int top, const Group& group) const;
    void paintName(QPainter& painter, const QString& name, int left, int top) const;
    QFont headingFont() const;
    int columnLeft(int column) const;
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

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/sheets/ContactSheet.h"

#include "../Parts.h"
#include "toolkit/images/PictureApplication.h"

#include <rvopen/toolkit/images/EmbeddedPreview.h>

#include <QPainter>

namespace rvopen::test {

namespace {

using namespace toolkit;

const int s_side = 64;
/// Room for two rows.
const int s_pageHeight = 280;

QVector<ContactSheet::Cell> cells(int count)
{
    QVector<ContactSheet::Cell> list;
    for (int i = 0; i < count; ++i)
        list.append({QStringLiteral("Heading"), QString(), 1});
    return list;
}

/// The pages of a sheet whose pictures are all of one colour.
QVector<QImage> pagesOf(const ContactSheet& sheet)
{
    QImage page(sheet.width(), s_pageHeight, QImage::Format_RGB32);
    page.fill(Qt::white);
    QVector<QImage> pages;
    QPainter painter(&page);
    sheet.paint(
        painter, s_pageHeight,
        [](int, int count) {
            QImage picture(s_side, s_side, QImage::Format_RGB32);
            picture.fill(Qt::magenta);
            return QVector<QImage>(count, picture);
        },
        [&] {
            pages.append(page.copy());
            painter.fillRect(page.rect(), Qt::white);
        });
    painter.end();
    pages.append(page);
    return pages;
}

/// The first line with a picture in it, from there on; -1 without.
int firstPicture(const QImage& page, int from)
{
    for (int y = from; y < page.height(); ++y) {
        if (page.pixel(40, y) == qRgb(255, 0, 255))
            return y;
    }
    return -1;
}

int inkIn(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
    }
    return count;
}

QImage above(const QImage& page, int top)
{
    return page.copy(0, top - 22, page.width(), 20);
}

} // namespace

TEST(ContactSheet, RepeatsAHeadingOnANewPageOnly)
{
    prepareTexts();
    const QVector<QImage> pages =
        pagesOf(ContactSheet(QStringLiteral("Title"), cells(10), 2, s_side));
    ASSERT_EQ(pages.size(), 3);
    const int first = firstPicture(pages[0], 0);
    const int second = firstPicture(pages[0], first + s_side);
    ASSERT_GT(second, first);
    EXPECT_GT(inkIn(above(pages[0], first)), 50);
    EXPECT_EQ(inkIn(above(pages[0], second)), 0);
    for (int i = 1; i < 3; ++i) {
        EXPECT_EQ(firstPicture(pages[i], 0), first);
        EXPECT_EQ(above(pages[i], first), above(pages[0], first)) << "page " << i + 1;
    }
}

TEST(ContactSheet, ARuleStandsBetweenAHeadingAndItsPictures)
{
    prepareTexts();
    const QVector<QImage> pages =
        pagesOf(ContactSheet(QStringLiteral("Title"), cells(2), 2, s_side));
    const QImage band = above(pages[0], firstPicture(pages[0], 0));
    int rule = -1;
    int lastText = -1;
    for (int y = 0; y < band.height(); ++y) {
        int marked = 0;
        for (int x = 0; x < band.width(); ++x)
            marked += band.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
        if (marked > 2 * s_side)
            rule = y;
        else if (inkIn(band.copy(0, y, band.width(), 1)) > 0)
            lastText = y;
    }
    EXPECT_GT(lastText, 0);
    EXPECT_GT(rule, lastText);
}

TEST(ContactSheet, HasAsManyPagesAsItsRowsFill)
{
    prepareTexts();
    const struct {
        int cells;
        int pages;
    } cases[] = {{0, 1}, {1, 1}, {4, 1}, {5, 2}, {8, 2}, {9, 3}};
    for (const auto& one : cases) {
        const ContactSheet sheet(QStringLiteral("Title"), cells(one.cells), 2, s_side);
        EXPECT_EQ(sheet.pages(s_pageHeight), one.pages) << one.cells;
        EXPECT_EQ(sheet.pages(0), 1) << one.cells;
    }
}

TEST(ContactSheet, PutsSmallGroupsOfOneDocumentSideBySide)
{
    prepareTexts();
    const auto heightOf = [](const QVector<ContactSheet::Cell>& list) {
        return ContactSheet(QStringLiteral("Title"), list, 6, s_side).height();
    };
    const ContactSheet::Cell a{QStringLiteral("A"), QString(), 1};
    const ContactSheet::Cell b{QStringLiteral("B"), QString(), 1};
    const ContactSheet::Cell other{QStringLiteral("B"), QString(), 2};
    EXPECT_EQ(heightOf({a, b}), heightOf({a}));
    EXPECT_EQ(heightOf({a, a, a, b, b, b}), heightOf({a}));
    EXPECT_GT(heightOf({a, a, a, b, b, b, b}), heightOf({a}));
    EXPECT_GT(heightOf({a, other}), heightOf({a}));
}

} // namespace rvopen::test

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/sheets/PictureSheet.h>

#include "ContactSheet.h"
#include "SheetPage.h"
#include "toolkit/documents/Stopping.h"
#include "toolkit/drawing/Drawing.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/PictureApplication.h"
#include "toolkit/images/PictureMoves.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>
#include <rvopen/toolkit/images/PictureLocations.h>

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <vector>

namespace rvopen::toolkit {

namespace {

/// Longest picture in PNG.
const int s_maxHeight = 30000;
const qint64 s_maxPixels = qint64(200) * 1000 * 1000;
/// On paper, and pictures are drawn twice as fine as they are asked for.
const int s_dotsPerInch = 300;
const int s_pdfFineness = 2;
/// That are held at one time.
const int s_picturesAtOnce = 16;

/// Nobody waits for it any more.
struct Stopped {};

/// What is in a cell: a picture that is there, or one to draw.
struct Item {
    /// Its bytes, as they are embedded.
    QString embedded;
    QString file;
    /// Kept for as long as its element.
    QDomDocument document;
    QDomElement element;
    std::shared_ptr<drawing::TextureReader> textures;
};

bool fits(const ContactSheet& sheet)
{
    return sheet.height() <= s_maxHeight && qint64(sheet.width()) * sheet.height() <= s_maxPixels;
}

} // namespace

class PictureSheet::Maker {
public:
    Maker(SheetFormat format, const SheetWish& wish)
        : m_format(format)
        , m_size(std::clamp(wish.size, MinPictureSize, MaxSheetPicture))
        , m_columns(std::clamp(wish.columns, 1, MaxSheetColumns))
        , m_isDrawn(wish.isDrawn)
    {
        m_picture.size = format == SheetFormat::Pdf ? m_size * s_pdfFineness : m_size;
    }

    void add(const Document& document, const QVector<Subject>& subjects, const Folders& folders)
    {
        const auto textures =
            std::make_shared<drawing::TextureReader>(TextureFinder(document, folders));
        const QString name = document.Root().attribute(QStringLiteral("name"));
        m_names << (document.Kind() == DocumentKind::Archive && !name.isEmpty()
                        ? name
                        : QFileInfo(document.Name()).completeBaseName());
        const PictureFolders places(document, folders);
        ParamValues values;
        for (const Subject& subject : subjects) {
            if (m_format == SheetFormat::Page)
                m_data.add(subject, document, values);
            Item item;
            const QString file = LocatePicture(subject.element, document, places.folders()).file;
            if (!m_isDrawn && FindsPicture(subject.element, file)) {
                item.embedded = subject.element.attribute(QStringLiteral("xmlImage"));
                item.file = file;
            } else {
                item.document = document.Dom();
                item.element = subject.element;
                item.textures = textures;
                ++m_drawnCount;
            }
            m_items.append(item);
            m_cells.append({subject.heading, subject.name, int(m_names.size())});
        }
    }

    int count() const
    {
        return int(m_items.size());
    }

    int drawnCount() const
    {
        return m_drawnCount;
    }

    QString title() const
    {
        return m_names.join(QStringLiteral(", "));
    }

    int pageCount() const
    {
        return m_pages;
    }

    int fittingSize() const
    {
        const auto fitsAt = [this](int side) { return fits(sheetOf(side)); };
        if (m_format != SheetFormat::Png || fitsAt(m_size))
            return m_size;
        int fitting = MinPictureSize;
        if (!fitsAt(fitting))
            return 0;
        int tooLarge = m_size;
        while (tooLarge - fitting > 1) {
            const int between = (fitting + tooLarge) / 2;
            (fitsAt(between) ? fitting : tooLarge) = between;
        }
        return fitting;
    }

    QByteArray bytes(const Progress& progress, const std::atomic<bool>* stop)
    {
        const Stoppable stoppable(stop);
        const ContactSheet sheet = sheetOf(m_size);
        try {
            return m_format == SheetFormat::Pdf ? asPdf(sheet, progress) : asPng(sheet, progress);
        } catch (const Stopped&) {
            return QByteArray();
        }
    }

    bool writeFolder(const QString& folder, bool mayReplace, const Progress& progress,
                     const std::atomic<bool>* stop) const
    {
        const Stoppable stoppable(stop);
        SheetPage page(folder, mayReplace, m_data);
        try {
            for (int first = 0; first < count(); first += s_picturesAtOnce) {
                const QVector<QImage> images =
                    pictures(first, std::min(s_picturesAtOnce, count() - first), progress);
                for (int i = 0; i < int(images.size()); ++i)
                    page.setPicture(first + i, images[i]);
            }
        } catch (const Stopped&) {
            return false;
        }
        page.finish(title());
        return true;
    }

private:
    ContactSheet sheetOf(int side) const
    {
        QVector<ContactSheet::Cell> cells = m_cells;
        if (m_names.size() > 1) {
            for (ContactSheet::Cell& cell : cells)
                cell.heading = m_names[cell.document - 1] + QStringLiteral(": ") + cell.heading;
        }
        return ContactSheet(title(), cells, m_columns, side);
    }

    QVector<QImage> pictures(int first, int number, const Progress& progress) const
    {
        if (progress)
            progress(first);
        QVector<QImage> images(number);
        std::vector<drawing::Draw> draws;
        QVector<int> places;
        for (int i = 0; i < number; ++i) {
            const Item& item = m_items[first + i];
            if (item.textures) {
                draws.push_back(drawing::drawingOf(item.element, m_picture, *item.textures));
                places.append(i);
            } else {
                images[i] =
                    item.embedded.isEmpty() ? readImage(item.file) : EmbeddedPreview(item.embedded);
            }
        }
        const std::vector<QImage> drawn = drawing::drawnTogether(draws);
        for (int i = 0; i < int(places.size()); ++i)
            images[places[i]] = drawn[std::size_t(i)];
        if (isStopped())
            throw Stopped();
        return images;
    }

    ContactSheet::Pictures picturesWith(const Progress& progress) const
    {
        return
            [this, progress](int first, int number) { return pictures(first, number, progress); };
    }

    QByteArray asPng(const ContactSheet& sheet, const Progress& progress) const
    {
        const QSize size(sheet.width(), sheet.height());
        if (!fits(sheet))
            throw Failure(QStringLiteral("that is too much for one picture"));
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        sheet.paint(painter, 0, picturesWith(progress), [] {});
        painter.end();
        return encodedPicture(image, "png");
    }

    QByteArray asPdf(const ContactSheet& sheet, const Progress& progress)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setTitle(title());
        writer.setCreator(QStringLiteral("rvopen"));
        writer.setResolution(s_dotsPerInch);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        const double scale = double(writer.width()) / sheet.width();
        const int pageHeight = int(writer.height() / scale);
        QPainter painter(&writer);
        painter.scale(scale, scale);
        m_pages = sheet.pages(pageHeight);
        sheet.paint(painter, pageHeight, picturesWith(progress), [&writer] { writer.newPage(); });
        painter.end();
        return bytes;
    }

    SheetFormat m_format;
    int m_size;
    int m_columns;
    bool m_isDrawn;
    PictureWish m_picture;
    SheetData m_data;
    QStringList m_names;
    QVector<Item> m_items;
    QVector<ContactSheet::Cell> m_cells;
    int m_drawnCount = 0;
    int m_pages = 1;
};

PictureSheet::PictureSheet(SheetFormat format, const SheetWish& wish)
{
    // A page has its words in the browser's letters.
    if (format == SheetFormat::Page)
        preparePictures();
    else
        prepareTexts();
    m_maker = std::make_unique<Maker>(format, wish);
}

PictureSheet::~PictureSheet() = default;

void PictureSheet::Add(const Document& document, const QVector<Subject>& subjects,
                       const Folders& folders)
{
    m_maker->add(document, subjects, folders);
}

int PictureSheet::Count() const
{
    return m_maker->count();
}

int PictureSheet::DrawnCount() const
{
    return m_maker->drawnCount();
}

QString PictureSheet::Title() const
{
    return m_maker->title();
}

int PictureSheet::FittingSize() const
{
    return m_maker->fittingSize();
}

QByteArray PictureSheet::Bytes(const Progress& progress, const std::atomic<bool>* stop) const
{
    return m_maker->bytes(progress, stop);
}

int PictureSheet::PageCount() const
{
    return m_maker->pageCount();
}

void PictureSheet::CheckFolder(const QString& folder, bool mayReplace)
{
    SheetPage(folder, mayReplace, SheetData());
}

bool PictureSheet::WriteFolder(const QString& folder, bool mayReplace, const Progress& progress,
                               const std::atomic<bool>* stop) const
{
    return m_maker->writeFolder(folder, mayReplace, progress, stop);
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "OutputOptions.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "SheetPage.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/Interruption.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/drawing/Drawing.h"
#include "toolkit/images/ContactSheet.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/PictureApplication.h"
#include "toolkit/images/PictureMoves.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/toolkit/drawing/Subjects.h>
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
#include <memory>
#include <utility>

namespace rvopen::command {

using namespace toolkit;

namespace {

const int s_maxColumns = 40;
/// Longest picture in PNG.
const int s_maxHeight = 30000;
const qint64 s_maxPixels = qint64(200) * 1000 * 1000;
/// On paper, and pictures are drawn twice as fine as they are asked for.
const int s_dotsPerInch = 300;
const int s_pdfFineness = 2;
/// That are held at one time.
const int s_picturesAtOnce = 16;

class Sheet : public Command {
public:
    const char* name() const override
    {
        return "sheet";
    }

    const char* summary() const override
    {
        return "Make a contact sheet of pictures with their names";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Presets, snapshots and palettes under the names of their sections, folders and "
            "collections. Pictures that are there are taken, the others are drawn; no document "
            "is changed. The name of the output tells the format: PNG is one long picture, PDF "
            "has pages of A4. With --html a folder with a page for browsers, to search, filter "
            "and look into.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"");
        arguments.option("-o,--output", m_output, "FILE", "Write to this file, .png or .pdf");
        arguments.option("--html", m_html, "DIR",
                         "Write a page for browsers into this folder, which is empty or, with "
                         "--force, has such a page");
        arguments.option("--size", m_size, "PIXELS", "The width of a picture; 160 when not given");
        arguments.option("--columns", m_columns, "NUMBER", "Pictures in a row; 6 when not given");
        arguments.flag("--drawn", m_drawn, "Draw them all, also those that there are pictures of");
        m_options.declare(arguments);
        m_selection.declare(arguments);
        for (const char* const option : {"--output", "--columns", "--backup"})
            arguments.onlyOne({QStringLiteral("--html"), QLatin1String(option)});
        arguments.example("rvopen sheet archives/Custom/MyPresets.rvx --size 80 -o mine.pdf",
                          "a sheet to print");
        arguments.example("rvopen sheet archives --type material --html page",
                          "materials to look through in a browser: page/index.html");
    }

    int run(Session& session) override
    {
        const bool isPage = !m_html.isEmpty();
        const QString format = QFileInfo(m_output).suffix().toLower();
        const bool isPdf = format == QLatin1String("pdf");
        if (!isPage && !isPdf && format != QLatin1String("png"))
            throw Failure(QStringLiteral("say where to write: --output FILE.png or FILE.pdf, or "
                                         "--html DIR"));
        if (m_size < MinPictureSize || m_size > MaxPictureSize / s_pdfFineness)
            throw Failure(QStringLiteral("--size takes %1 to %2")
                              .arg(MinPictureSize)
                              .arg(MaxPictureSize / s_pdfFineness));
        if (m_columns < 1 || m_columns > s_maxColumns)
            throw Failure(QStringLiteral("--columns takes 1 to %1").arg(s_maxColumns));
        if (!isPage && isInput())
            throw Failure(QStringLiteral("\"%1\" is the input").arg(m_output));
        m_selected = m_selection.selection();
        if (isPage) {
            m_page = std::make_unique<SheetPage>(m_html, m_options.isForced());
            preparePictures();
        } else {
            m_options.check(m_output);
            prepareTexts();
        }

        forEachSelected(m_files, session, m_selected,
                        [&](Document& document) { collect(document, session); });
        m_selection.tellMisspelling(session);
        if (m_items.isEmpty() && !session.hasFailed())
            throw Failure(QStringLiteral("there is nothing to show"));
        if (session.hasFailed())
            return ExitFailed;
        m_session = &session;
        m_wish.size = isPdf ? m_size * s_pdfFineness : m_size;
        int pages = 1;
        if (isPage)
            writePage();
        else
            writeSheet(isPdf, pages);
        session.clearProgress();
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("written"), isPage ? m_html : m_output);
            result.insert(QStringLiteral("pictures"), int(m_items.size()));
            result.insert(QStringLiteral("drawn"), m_drawnCount);
            result.insert(QStringLiteral("pages"), pages);
            session.out.json(result);
        }
        return ExitFine;
    }

private:
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

    bool isInput() const
    {
        return std::any_of(m_files.begin(), m_files.end(),
                           [this](const QString& file) { return isSameFile(file, m_output); });
    }

    QString title() const
    {
        return m_names.size() == 1 ? m_names.first() : m_names.join(QStringLiteral(", "));
    }

    void collect(Document& document, Session& session)
    {
        const auto textures =
            std::make_shared<drawing::TextureReader>(TextureFinder(document, session.folders));
        const QString name = document.Root().attribute(QStringLiteral("name"));
        m_names << (document.Kind() == DocumentKind::Archive && !name.isEmpty()
                        ? name
                        : QFileInfo(document.Name()).completeBaseName());
        const QVector<Subject> subjects = selectedOf(
            SubjectsOf(document) + PaletteSubjects(document), m_selected.in(document.Root()));
        const PictureFolders places(document, session.folders);
        ParamValues values;
        for (const Subject& subject : subjects) {
            if (m_page)
                m_page->add(subject, document, values);
            Item item;
            const QString file = LocatePicture(subject.element, document, places.folders()).file;
            if (!m_drawn && FindsPicture(subject.element, file)) {
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

    void writeSheet(bool isPdf, int& pages)
    {
        if (m_names.size() > 1) {
            for (ContactSheet::Cell& cell : m_cells)
                cell.heading = m_names[cell.document - 1] + QStringLiteral(": ") + cell.heading;
        }
        const ContactSheet sheet(title(), m_cells, m_columns, m_size);
        const QByteArray bytes = isPdf ? asPdf(sheet, pages) : asPng(sheet);
        if (m_options.isDryRun())
            return;
        m_options.backUp(m_output);
        writeOrFail(bytes, m_output);
    }

    void writePage()
    {
        if (m_options.isDryRun())
            return;
        const Uninterrupted writing;
        // It goes before that, with what there is of it unless it was finished.
        const std::unique_ptr<SheetPage> page = std::move(m_page);
        const int count = int(m_items.size());
        for (int first = 0; first < count; first += s_picturesAtOnce) {
            // Whoever ends the program waits for a few pictures.
            if (isInterrupted())
                throw Failure(QStringLiteral("interrupted"));
            const QVector<QImage> images =
                pictures(first, std::min(s_picturesAtOnce, count - first));
            for (int i = 0; i < int(images.size()); ++i)
                page->setPicture(first + i, images[i]);
        }
        page->finish(title());
    }

    QVector<QImage> pictures(int first, int count)
    {
        m_session->progress(first, int(m_items.size()), m_html.isEmpty() ? m_output : m_html);
        QVector<QImage> images(count);
        std::vector<drawing::Draw> draws;
        QVector<int> places;
        for (int i = 0; i < count; ++i) {
            const Item& item = m_items[first + i];
            if (item.textures) {
                draws.push_back(drawing::drawingOf(item.element, m_wish, *item.textures));
                places.append(i);
            } else {
                images[i] =
                    item.embedded.isEmpty() ? readImage(item.file) : EmbeddedPreview(item.embedded);
            }
        }
        const std::vector<QImage> drawn = drawing::drawnTogether(draws);
        for (int i = 0; i < int(places.size()); ++i)
            images[places[i]] = drawn[std::size_t(i)];
        return images;
    }

    static bool fits(const ContactSheet& sheet)
    {
        return sheet.height() <= s_maxHeight &&
               qint64(sheet.width()) * sheet.height() <= s_maxPixels;
    }

    /// What makes the sheet small enough for one picture.
    QString remedy() const
    {
        const auto fitsAt = [this](int side) {
            return fits(ContactSheet(title(), m_cells, m_columns, side));
        };
        int fitting = MinPictureSize;
        if (!fitsAt(fitting))
            return QStringLiteral("or more --columns");
        int tooLarge = m_size;
        while (tooLarge - fitting > 1) {
            const int between = (fitting + tooLarge) / 2;
            (fitsAt(between) ? fitting : tooLarge) = between;
        }
        return QStringLiteral("--size %1, or more --columns").arg(fitting);
    }

    QByteArray asPng(const ContactSheet& sheet)
    {
        const QSize size(sheet.width(), sheet.height());
        if (!fits(sheet))
            throw Failure(QStringLiteral("that is too much for one picture: take PDF, ") +
                          remedy());
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        sheet.paint(
            painter, 0, [this](int first, int count) { return pictures(first, count); }, [] {});
        painter.end();
        return encodedPicture(image, "png");
    }

    QByteArray asPdf(const ContactSheet& sheet, int& pages)
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
        pages = sheet.pages(pageHeight);
        sheet.paint(
            painter, pageHeight, [this](int first, int count) { return pictures(first, count); },
            [&writer] { writer.newPage(); });
        painter.end();
        return bytes;
    }

    QStringList m_files;
    QString m_output;
    QString m_html;
    int m_size = 160;
    int m_columns = 6;
    bool m_drawn = false;
    OutputOptions m_options;
    SelectionOptions m_selection;
    Selection m_selected;

    std::unique_ptr<SheetPage> m_page;
    PictureWish m_wish;
    Session* m_session = nullptr;
    QStringList m_names;
    QVector<Item> m_items;
    QVector<ContactSheet::Cell> m_cells;
    int m_drawnCount = 0;
};

} // namespace

std::unique_ptr<Command> makeSheet()
{
    return std::make_unique<Sheet>();
}

} // namespace rvopen::command

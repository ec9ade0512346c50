// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Session.h"
#include "toolkit/catalogue/BlockStore.h"
#include "toolkit/catalogue/SmallDocument.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/drawing/Drawing.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/PictureApplication.h"

#include <rvopen/RVOpenLimits.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/toolkit/drawing/Subjects.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <memory>
#include <vector>

namespace rvopen::command {

using namespace toolkit;

namespace {

/// File managers ask for up to 1024.
const int s_maxSize = 1024;
/// What anybody may put into a folder that a file manager opens: more takes too long to show.
/// @{
const qint64 s_maxInput = 8 << 20;
/// Of 256 MiB in all: the program itself and a large picture take the rest.
const qint64 s_maxMemory = 192 << 20;
/// @}
/// Pictures side by side, when there are that many: more would be too small to tell apart.
const int s_maxSide = 2;

class Thumbnail : public Command {
public:
    const char* name() const override
    {
        return "thumbnail";
    }

    const char* summary() const override
    {
        return "Make a file manager's thumbnail of a document";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "One picture as PNG of up to four presets or snapshots, from all over the document: "
            "embedded ones, or drawn ones. Nothing but the document is read, whatever files it "
            "refers to. Exit code 1 when there is nothing to show; a document of more than 8 MiB, "
            "or one that would take more than 256 MiB of memory, is refused.");
        arguments.positional("input", m_input, "Document, archive, or \"-\"");
        arguments.positional("output", m_output, "The PNG file to write, in place of any there is");
        arguments.option("-s,--size", m_size, "PIXELS",
                         "Width and height at most, 16 to 1024; 256 when not given");
        arguments.example("rvopen thumbnail -s 128 archives/Custom/MyPresets.rvx mine.png",
                          "what a file manager shows for an archive");
        arguments.example("rvopen thumbnail snapshots/house.xml house.png",
                          "snapshots of a document");
    }

    int run(Session& session) override
    {
        if (m_size < MinPictureSize || m_size > s_maxSize)
            throw Failure(
                QStringLiteral("--size takes %1 to %2").arg(MinPictureSize).arg(s_maxSize));
        SetMaxInputSize(s_maxInput);
        SetMaxDocumentMemory(s_maxMemory);
        preparePictures();
        // Of a document that is refused, or shows nothing, all is read, to say so.
        const catalogue::OpenPart part = partOfFile();
        QVector<QDomElement> elements = part.presets;
        std::unique_ptr<Document> document;
        if (elements.isEmpty()) {
            document = readOrFail(m_input, session);
            const QVector<Subject> subjects = SubjectsOf(*document);
            for (const int i : chosen(int(subjects.size())))
                elements.append(subjects[i].element);
        }
        if (isSameFile(m_input, m_output))
            throw Failure(QStringLiteral("\"%1\" is the document").arg(m_output));
        if (elements.isEmpty()) {
            session.warning(document->Name(), QStringLiteral("there is nothing to show"));
            return ExitFindings;
        }
        const QImage image = composed(elements);
        const QByteArray bytes = encodedPicture(image, "png");
        writeOrFail(bytes, m_output);
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("written"), m_output);
            result.insert(QStringLiteral("pictures"), int(elements.size()));
            result.insert(QStringLiteral("width"), image.width());
            result.insert(QStringLiteral("height"), image.height());
            session.out.json(result);
        }
        return ExitFine;
    }

private:
    /// What is shown, of a file of which a pass over its text says where that stands; null of
    /// others.
    catalogue::OpenPart partOfFile() const
    {
        const catalogue::ReadBlock read = catalogue::readBlock(m_input);
        const std::vector<quint32> shown = shownIn(read.block);
        std::vector<catalogue::BlockRow> rows;
        for (const int i : chosen(int(shown.size())))
            rows.push_back(read.block.row(shown[std::size_t(i)]));
        return catalogue::openPart(m_input, read.state, read.block, rows,
                                   catalogue::Sections::Needed);
    }

    /// The rows of SubjectsOf().
    static std::vector<quint32> shownIn(const catalogue::Block& block)
    {
        const bool isOfSnapShots = block.text(block.head().root) == "snapRoot";
        std::vector<quint32> shown;
        for (quint32 i = 0; i < block.head().rows; ++i) {
            const catalogue::BlockRow row = block.row(i);
            if (row.folder != catalogue::NoFolder &&
                drawing::isDrawable(catalogue::toQString(block.text(row.kind))) &&
                (!isOfSnapShots || block.text(block.folder(row.folder).kind) == "snapshots"))
                shown.push_back(i);
        }
        return shown;
    }

    /// Of so many one, or as many as fill the square, evenly from all of them.
    static QVector<int> chosen(int count)
    {
        const int places = s_maxSide * s_maxSide;
        if (count < places)
            return count == 0 ? QVector<int>() : QVector<int>{0};
        QVector<int> indices;
        for (int i = 0; i < places; ++i)
            indices.append(int(qint64(i) * count / places));
        return indices;
    }

    QImage composed(const QVector<QDomElement>& elements) const
    {
        const int side = elements.size() == 1 ? 1 : s_maxSide;
        const int cell = std::max(m_size / side, MinPictureSize);
        // Files that a document from anywhere refers to are not for its thumbnail to show.
        drawing::TextureReader textures([](const QString&) { return QString(); });
        PictureWish wish;
        wish.size = cell;
        QVector<QImage> images;
        for (const QDomElement& element : elements) {
            QImage image = EmbeddedPreview(element.attribute(QStringLiteral("xmlImage")));
            if (image.isNull())
                image = drawing::drawingOf(element, wish, textures)();
            if (image.width() > cell || image.height() > cell)
                image = image.scaled(cell, cell, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            images.append(image);
        }
        if (side == 1)
            return images.first();
        QImage sheet(side * cell, side * cell, QImage::Format_ARGB32);
        sheet.fill(Qt::transparent);
        QPainter painter(&sheet);
        for (int i = 0; i < int(images.size()); ++i)
            painter.drawImage((i % side) * cell + (cell - images[i].width()) / 2,
                              (i / side) * cell + (cell - images[i].height()) / 2, images[i]);
        painter.end();
        return sheet;
    }

    QString m_input;
    QString m_output;
    int m_size = 256;
};

} // namespace

std::unique_ptr<Command> makeThumbnail()
{
    return std::make_unique<Thumbnail>();
}

} // namespace rvopen::command

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Session.h"
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
        const std::unique_ptr<Document> document = readOrFail(m_input, session);
        if (isSameFile(m_input, m_output))
            throw Failure(QStringLiteral("\"%1\" is the document").arg(m_output));
        const QVector<Subject> subjects = chosen(SubjectsOf(*document));
        if (subjects.isEmpty()) {
            session.warning(document->Name(), QStringLiteral("there is nothing to show"));
            return ExitFindings;
        }
        const QImage image = composed(subjects);
        const QByteArray bytes = encodedPicture(image, "png");
        writeOrFail(bytes, m_output);
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("written"), m_output);
            result.insert(QStringLiteral("pictures"), int(subjects.size()));
            result.insert(QStringLiteral("width"), image.width());
            result.insert(QStringLiteral("height"), image.height());
            session.out.json(result);
        }
        return ExitFine;
    }

private:
    /// One, or as many as fill the square, evenly from all of them.
    static QVector<Subject> chosen(const QVector<Subject>& all)
    {
        const int places = s_maxSide * s_maxSide;
        if (all.size() < places)
            return all.mid(0, 1);
        QVector<Subject> subjects;
        for (int i = 0; i < places; ++i)
            subjects.append(all[int(qint64(i) * all.size() / places)]);
        return subjects;
    }

    QImage composed(const QVector<Subject>& subjects) const
    {
        const int side = subjects.size() == 1 ? 1 : s_maxSide;
        const int cell = std::max(m_size / side, MinPictureSize);
        // Files that a document from anywhere refers to are not for its thumbnail to show.
        drawing::TextureReader textures([](const QString&) { return QString(); });
        PictureWish wish;
        wish.size = cell;
        QVector<QImage> images;
        for (const Subject& subject : subjects) {
            QImage image = EmbeddedPreview(subject.element.attribute(QStringLiteral("xmlImage")));
            if (image.isNull())
                image = drawing::drawingOf(subject.element, wish, textures)();
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

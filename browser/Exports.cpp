// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Exports.h"

#include "EditedFile.h"
#include "FileTexts.h"
#include "Workspace.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/toolkit/drawing/PicturePlan.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace rvopen::browser {

using namespace toolkit;

namespace {

constexpr int s_pictureSize = 512;

class Texts {
    Q_DECLARE_TR_FUNCTIONS(rvopen::browser::Exports)
};

/// Of one file those that are wanted.
struct Part {
    QString file;
    /// Where it is edited.
    QDomDocument dom;
    QSet<QString> paths;
};

QVector<Part> partsOf(const Workspace& workspace, const QVector<ListedPreset>& presets)
{
    QVector<Part> parts;
    QHash<QString, int> places;
    for (const ListedPreset& preset : presets) {
        const auto known = places.constFind(preset.file);
        if (known != places.constEnd()) {
            parts[*known].paths.insert(preset.path);
            continue;
        }
        const EditedFile* const edited = workspace.edited(preset.file);
        places.insert(preset.file, int(parts.size()));
        parts.append({preset.file, edited ? edited->copy() : QDomDocument(), {preset.path}});
    }
    return parts;
}

std::unique_ptr<Document> documentOf(const Part& part)
{
    if (!part.dom.isNull())
        return Document::Of(part.file, part.dom);
    Load load = LoadDocument(part.file);
    if (!load)
        throw Failure(messageOf(load.error));
    return std::move(load.document);
}

QVector<Subject> subjectsIn(const Document& document, const Part& part)
{
    QVector<Subject> wanted;
    for (const Subject& subject : SubjectsOf(document) + PaletteSubjects(document)) {
        if (part.paths.contains(subject.path))
            wanted.append(subject);
    }
    return wanted;
}

QString freeName(const QString& folder, const QDomElement& element)
{
    QString name = element.attribute(QStringLiteral("refname"));
    if (name.isEmpty())
        name = element.attribute(QStringLiteral("name"));
    // What no system has trouble with.
    name.replace(QRegularExpression(QStringLiteral("[/\\\\:*?\"<>|\\x00-\\x1f]")),
                 QStringLiteral("_"));
    if (name.isEmpty() || name.startsWith(QLatin1Char('.')))
        name.prepend(element.tagName());
    return freePath(folder, name, QStringLiteral("png"));
}

void writePicture(const QImage& picture, const QString& file)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    if (!WriteFile(bytes, file))
        throw Failure(messageOf(WriteError{file, LastWriteError()}));
}

} // namespace

LongWork::Work sheetOf(const Workspace& workspace, const QVector<ListedPreset>& presets,
                       SheetFormat format, const SheetWish& wish, const QString& place)
{
    return [parts = partsOf(workspace, presets), folders = workspace.folders(), format, wish,
            place](LongWork::State& state) -> LongWork::Ending {
        if (format == SheetFormat::Page)
            PictureSheet::CheckFolder(place, true);
        PictureSheet sheet(format, wish);
        for (const Part& part : parts) {
            if (state.stop)
                return {};
            const std::unique_ptr<Document> document = documentOf(part);
            sheet.Add(*document, subjectsIn(*document, part), folders);
        }
        state.count = sheet.Count();
        if (sheet.Count() == 0)
            return [] { return Texts::tr("There is nothing to show on a sheet"); };
        if (const int size = sheet.FittingSize(); size < wish.size)
            return [size] {
                return Texts::tr("That is too much for one picture: take PDF, or smaller "
                                 "pictures, of %1 pixels")
                    .arg(size);
            };
        const auto progress = [&state](int done) { state.done = done; };
        if (format == SheetFormat::Page) {
            if (!sheet.WriteFolder(place, true, progress, &state.stop))
                return {};
        } else {
            const QByteArray bytes = sheet.Bytes(progress, &state.stop);
            if (bytes.isEmpty())
                return {};
            if (!WriteFile(bytes, place))
                throw Failure(messageOf(WriteError{place, LastWriteError()}));
        }
        return [count = sheet.Count(), name = LastPathComponent(place)] {
            return Texts::tr("%1 has %n picture(s)", nullptr, count).arg(name);
        };
    };
}

LongWork::Work picturesOf(const Workspace& workspace, const QVector<ListedPreset>& presets,
                          const QString& folder)
{
    return [parts = partsOf(workspace, presets), folders = workspace.folders(), folder,
            count = int(presets.size())](LongWork::State& state) -> LongWork::Ending {
        PictureWish wish;
        wish.size = s_pictureSize;
        state.count = count;
        int written = 0;
        for (const Part& part : parts) {
            const std::unique_ptr<Document> document = documentOf(part);
            for (const Subject& subject : subjectsIn(*document, part)) {
                const QImage picture =
                    PicturePlan::Drawn(subject.element, part.file, folders, wish).Draw(&state.stop);
                if (state.stop)
                    break;
                writePicture(picture, freeName(folder, subject.element));
                state.done = ++written;
            }
        }
        return [written] { return Texts::tr("%n picture(s) were written", nullptr, written); };
    };
}

} // namespace rvopen::browser

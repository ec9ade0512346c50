// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/drawing/PicturePlan.h>

#include "Drawing.h"
#include "toolkit/documents/Stopping.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/PictureApplication.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/drawing/Subjects.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>
#include <rvopen/toolkit/images/PictureLocations.h>

#include <QDateTime>
#include <QFileInfo>

#include <set>
#include <utility>

namespace rvopen::toolkit {

namespace {

/// Reads no file and notes which images it is asked for.
class AskedTextures : public drawing::TextureReader {
public:
    AskedTextures()
        : TextureReader(FindFile())
    {
    }

    std::shared_ptr<const drawing::Texture> texture(const QString& reference,
                                                    drawing::TextureUse) override
    {
        if (!reference.isEmpty())
            m_references.insert(reference);
        return nullptr;
    }

    const std::set<QString>& references() const
    {
        return m_references;
    }

private:
    std::set<QString> m_references;
};

void addState(const QString& path, QByteArray& state)
{
    const QFileInfo file(path);
    state += file.filePath().toUtf8() + '\n' + QByteArray::number(file.size()) + '\n' +
             QByteArray::number(file.lastModified().toMSecsSinceEpoch()) + '\n';
}

} // namespace

struct RVOPEN_TOOLKIT_NO_EXPORT PicturePlan::Data {
    drawing::FreeCopy copy;
    PictureWish wish;
    FindFile find;
    /// Attribute of the element; empty where that is not to be shown, or there is none.
    QString embedded = QString();
    /// The same of the host's picture.
    QString file = QString();
};

PicturePlan::PicturePlan(const QDomElement& element, const PictureWish& wish, const FindFile& find)
    : m_data(std::make_shared<const Data>(
          Data{drawing::FreeCopy(element), drawing::possible(wish), find}))
{
    preparePictures();
}

PicturePlan PicturePlan::Shown(const QDomElement& element, const QString& file,
                               const Folders& folders, const PictureWish& wish)
{
    preparePictures();
    const auto document = Document::Of(file, element.ownerDocument());
    Data data{drawing::FreeCopy(element), drawing::possible(wish),
              TextureFinder(*document, folders)};
    data.embedded = element.attribute(QStringLiteral("xmlImage"));
    if (data.embedded.isEmpty())
        data.file = LocatePicture(element, *document, folders).file;
    return PicturePlan(std::make_shared<const Data>(std::move(data)));
}

PicturePlan PicturePlan::Drawn(const QDomElement& element, const QString& file,
                               const Folders& folders, const PictureWish& wish)
{
    const auto document = Document::Of(file, element.ownerDocument());
    return PicturePlan(element, wish, TextureFinder(*document, folders));
}

PicturePlan::~PicturePlan() = default;

PicturePlan::PicturePlan(const PicturePlan&) = default;

PicturePlan& PicturePlan::operator=(const PicturePlan&) = default;

QByteArray PicturePlan::ImageState() const
{
    QByteArray state;
    if (!m_data->file.isEmpty())
        addState(m_data->file, state);
    if (!m_data->find)
        return state;
    AskedTextures textures;
    drawing::drawingOf(m_data->copy.element(), m_data->wish, textures);
    for (const QString& reference : textures.references()) {
        state += reference.toUtf8() + '\n';
        addState(m_data->find(reference), state);
    }
    return state;
}

QImage PicturePlan::Draw(const std::atomic<bool>* stop) const
{
    const Stoppable stoppable(stop);
    if (isStopped())
        return QImage();
    QImage existing;
    if (!m_data->embedded.isEmpty())
        existing = EmbeddedPreview(m_data->embedded);
    else if (!m_data->file.isEmpty())
        existing = readImage(m_data->file);
    if (!existing.isNull() || isStopped())
        return isStopped() ? QImage() : existing;
    drawing::TextureReader textures(m_data->find);
    const drawing::Draw draw = drawing::drawingOf(m_data->copy.element(), m_data->wish, textures);
    const QImage picture = draw && !isStopped() ? draw() : QImage();
    return isStopped() ? QImage() : picture;
}

PicturePlan::PicturePlan(std::shared_ptr<const Data> data)
    : m_data(std::move(data))
{
}

QImage ReadPicture(const QString& path, const std::atomic<bool>* stop)
{
    const Stoppable stoppable(stop);
    return readImage(path);
}

} // namespace rvopen::toolkit

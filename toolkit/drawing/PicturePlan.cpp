// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/drawing/PicturePlan.h>

#include "Drawing.h"
#include "toolkit/documents/Stopping.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/PictureApplication.h"

#include <QDateTime>
#include <QFileInfo>

#include <set>

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

} // namespace

struct PicturePlan::Data {
    drawing::FreeCopy copy;
    PictureWish wish;
    FindFile find;
};

PicturePlan::PicturePlan(const QDomElement& element, const PictureWish& wish, const FindFile& find)
    : m_data(std::make_shared<const Data>(
          Data{drawing::FreeCopy(element), drawing::possible(wish), find}))
{
    preparePictures();
}

PicturePlan::~PicturePlan() = default;

PicturePlan::PicturePlan(const PicturePlan&) = default;

PicturePlan& PicturePlan::operator=(const PicturePlan&) = default;

QByteArray PicturePlan::ImageState() const
{
    QByteArray state;
    if (!m_data->find)
        return state;
    AskedTextures textures;
    drawing::drawingOf(m_data->copy.element(), m_data->wish, textures);
    for (const QString& reference : textures.references()) {
        const QFileInfo file(m_data->find(reference));
        state += reference.toUtf8() + '\n' + file.filePath().toUtf8() + '\n' +
                 QByteArray::number(file.size()) + '\n' +
                 QByteArray::number(file.lastModified().toMSecsSinceEpoch()) + '\n';
    }
    return state;
}

QImage PicturePlan::Draw(const std::atomic<bool>* stop) const
{
    const Stoppable stoppable(stop);
    if (isStopped())
        return QImage();
    drawing::TextureReader textures(m_data->find);
    const drawing::Draw draw = drawing::drawingOf(m_data->copy.element(), m_data->wish, textures);
    const QImage picture = draw && !isStopped() ? draw() : QImage();
    return isStopped() ? QImage() : picture;
}

QImage ReadPicture(const QString& path, const std::atomic<bool>* stop)
{
    const Stoppable stoppable(stop);
    return readImage(path);
}

} // namespace rvopen::toolkit

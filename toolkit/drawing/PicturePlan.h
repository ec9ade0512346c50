// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>
#include <rvopen/toolkit/drawing/Picture.h>

#include <QByteArray>
#include <QDomElement>
#include <QImage>
#include <QString>

#include <atomic>
#include <memory>

namespace rvopen::toolkit {

struct Folders;

/// What DrawPicture() does, in two steps, for programs with windows, which must not wait: the
/// element is copied in the thread that its document is used in, and all that takes time is done in
/// any other.
///
/// \code
/// const toolkit::PicturePlan plan(preset.element, wish, find);
/// std::future<QImage> picture = std::async(std::launch::async, [plan] { return plan.Draw(); });
/// \endcode
///
/// A plan is used by one thread at a time, as are its copies, which share everything.
class RVOPEN_TOOLKIT_EXPORT PicturePlan {
public:
    /// Copies the element, of which nothing is read later; its document is not changed, and no
    /// observer hears of it. \p find is called by the operations below, in their thread.
    explicit PicturePlan(const QDomElement& element, const PictureWish& wish = {},
                         const FindFile& find = {});
    /// A plan for the picture that lists show: the one that the document embeds or that the host
    /// has in a file, where there is one that can be read, in its own size; else the one that is
    /// drawn, with images found by TextureFinder(). \p file is that of the element's document, of
    /// which nothing else need be there than what the element stands in.
    static PicturePlan Shown(const QDomElement& element, const QString& file,
                             const Folders& folders, const PictureWish& wish = {});
    /// The same without a picture that exists: the one that is drawn.
    static PicturePlan Drawn(const QDomElement& element, const QString& file,
                             const Folders& folders, const PictureWish& wish = {});
    ~PicturePlan();
    /// Shares all of the other.
    PicturePlan(const PicturePlan&);
    /// As a copy.
    PicturePlan& operator=(const PicturePlan&);

    /// What is another when files of the picture are: which there are for its images, and for a
    /// picture that the host has, and of each its size and when it changed. Empty for an element
    /// without any.
    QByteArray ImageState() const;
    /// The picture; one that is drawn is byte for byte that of DrawPicture(). Null for an element
    /// that there is none for, and when it is stopped: once \p stop, null for never, is true, which
    /// it has to stay, the work ends with the row of pixels that it is at.
    QImage Draw(const std::atomic<bool>* stop = nullptr) const;

private:
    struct Data;

    explicit PicturePlan(std::shared_ptr<const Data> data);

    std::shared_ptr<const Data> m_data;
};

/// The picture in a file, which comes from anywhere: beyond 8192 pixels a side or 16 million pixels
/// it is not decoded. Null then, and when it is stopped as PicturePlan::Draw() is. In any thread.
RVOPEN_TOOLKIT_EXPORT QImage ReadPicture(const QString& path,
                                         const std::atomic<bool>* stop = nullptr);

} // namespace rvopen::toolkit

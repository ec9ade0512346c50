// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/documents/Folders.h>
#include <rvopen/widgets/WidgetsExport.h>

#include <QDomElement>
#include <QImage>
#include <QObject>
#include <QString>

#include <memory>

namespace rvopen::widgets {

/// Pictures of presets and snapshots for views, made in threads of its own: who asks for one never
/// waits. A picture is that which the document embeds or the host has in a file, or else is drawn
/// from the values. What was made is kept by what is in the element and in the files of its images,
/// so that equal ones are made once.
///
/// Of what was asked for the last comes first, and what nobody has seen for long is not made: a
/// view asks again when it shows it.
///
/// \code
/// void showPicture(rvopen::RVOpenNode& node, const QString& file, QLabel& label)
/// {
///     using rvopen::widgets::Thumbnails;
///     auto* const thumbnails = new Thumbnails(&label);
///     const QDomElement element = node.GetDomNode().toElement();
///     const auto show = [=, &label] {
///         const QImage picture = thumbnails->Picture(element, file, 256, Thumbnails::Drawn);
///         label.setPixmap(QPixmap::fromImage(picture));
///     };
///     QObject::connect(thumbnails, &Thumbnails::ElementChanged, &label, show);
///     show();
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT Thumbnails : public QObject {
    Q_OBJECT

public:
    /// Which picture of an element is wanted.
    enum Source {
        Shown, ///< The one that exists, unless the element was edited since it was asked for first.
        Drawn, ///< The one that is drawn.
    };

    /// Without folders, and with 64 MiB for pictures.
    explicit Thumbnails(QObject* parent = nullptr);
    /// Stops what is being made, which takes no longer than a row of pixels.
    ~Thumbnails() override;

    /// \name Where pictures come from
    /// @{

    /// Where the host's pictures and the images of presets are found. All pictures are looked at
    /// again.
    void SetFolders(const toolkit::Folders& folders);
    /// The catalogue that presets are asked for by; may be null. They are looked at again.
    void SetCatalogue(std::shared_ptr<const toolkit::Catalogue> catalogue);
    /// Files may have changed: each picture is looked at again when it is asked for, and until that
    /// is done the one of before is given.
    void Refresh();
    /// How many bytes of pictures are kept for when they are asked for again.
    void SetCacheLimit(int bytes);
    /// @}

    /// \name Pictures
    /// With \p size pixels of the device at the longer side, at most, and without enlarging one
    /// that exists. While it is made, the last one of the same element or preset in that size is
    /// given, or a null image, and a signal tells when to ask again. Null for good where there is
    /// no picture, which is told once, too.
    /// @{

    /// Of an element of a document in memory, whose file is or will be \p file.
    QImage Picture(const QDomElement& element, const QString& file, int size,
                   Source source = Shown);
    /// Of a preset of the catalogue, as it is in its file.
    QImage Picture(const toolkit::ListedPreset& preset, int size);
    /// What to show while there is none: a square of that size, for backgrounds of all colours.
    static QImage Placeholder(int size);
    /// How many are being made or wait to be.
    int Waiting() const;
    /// @}

Q_SIGNALS:
    /// A picture of the element is there, or the element was edited after one was asked for: ask
    /// again.
    void ElementChanged(const QDomElement& element);
    /// A picture of the preset is there: ask again.
    void PresetChanged(const rvopen::toolkit::ListedPreset& preset);

private:
    class Store;

    std::unique_ptr<Store> m_store;
};

} // namespace rvopen::widgets

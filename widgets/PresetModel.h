// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/widgets/WidgetsExport.h>

#include <QAbstractTableModel>
#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QImage>
#include <QMetaType>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QString>

#include <memory>

namespace rvopen::widgets {

class PresetRows;
class Thumbnails;

/// The presets of a catalogue as rows, in the order of its files and of each. All rows are there at
/// once, of very many presets too: nothing is read of one before somebody looks at it, and no
/// object is made.
///
/// Archives that the host edits are followed: their presets are those of the document, saved or
/// not, and each change, insertion and removal that is made through objects is told of the rows
/// that it concerns. Nothing is reset but by SetCatalogue().
///
/// \code
/// void listPresets(const QStringList& files, QLineEdit& search, QListView& view)
/// {
///     using namespace rvopen::widgets;
///     auto* const model = new PresetModel(&view);
///     model->SetThumbnails(new Thumbnails(model));
///     model->SetCatalogue(std::make_shared<const rvopen::toolkit::Catalogue>(files));
///     auto* const filter = new PresetFilter(&view);
///     filter->setSourceModel(model);
///     QObject::connect(&search, &QLineEdit::textChanged, filter, &PresetFilter::SetWords);
///     view.setModel(filter);
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT PresetModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// What each row has.
    enum Column {
        Name,        ///< The name, or what else the preset is called by.
        Kind,        ///< Element name.
        Category,    ///< Attribute "cat".
        SubCategory, ///< Attribute "subcat".
        Folder,      ///< Names of the folders, joined by " / ".
        File,        ///< As the catalogue was given it.
        ColumnCount,
    };

    /// What is told of every column of a row besides what Qt's own roles are for.
    enum Role {
        PresetRole = Qt::UserRole, ///< toolkit::ListedPreset.
    };

    /// Without rows.
    explicit PresetModel(QObject* parent = nullptr);
    ~PresetModel() override;

    /// \name What is shown
    /// @{

    /// The presets of \p catalogue, which may be null. Of its files those that are followed stay
    /// so, and others are followed no more.
    void SetCatalogue(std::shared_ptr<const toolkit::Catalogue> catalogue);
    /// The catalogue with what is followed as it is now: its places are the rows. Null without.
    std::shared_ptr<const toolkit::Catalogue> CurrentCatalogue() const;
    /// From now on the presets of \p file, one of the catalogue's, or another, which comes last,
    /// are those of \p document, which is observed; of an archive that is open this is the document
    /// of its root. A null document ends that, and a reset of the document without
    /// replacement does: then they are those of the file.
    ///
    /// Called again with the same document it finds what was changed past the objects.
    void Follow(const QString& file, const QDomDocument& document);
    /// Reads the file again, which somebody else has written. A file that is followed is as its
    /// document is.
    void Reread(const QString& file);
    /// @}

    /// Pictures for Qt::DecorationRole of names, each in a square of \p size pixels, a placeholder
    /// where there is none, so that views need not be laid out anew; null for none at all. They
    /// have to stay as long as the model or until this is called with others, and are given the
    /// catalogue.
    void SetThumbnails(Thumbnails* thumbnails, int size = 96);

    /// \name The preset of a row
    /// @{

    /// What a list shows of it; empty for an index of none.
    toolkit::ListedPreset Preset(const QModelIndex& index) const;
    /// The element in the document that is followed; null where none is.
    QDomElement Element(const QModelIndex& index) const;
    /// To be looked at, as Catalogue::Open() gives it; of a document that is followed a copy.
    toolkit::OpenPreset Open(const QModelIndex& index) const;
    /// Where a preset is shown, by its file and path; invalid for one that is not. Looks through
    /// the file.
    QModelIndex IndexOf(const QString& file, const QString& path) const;
    /// The same of an element of a document that is followed, or in a preset of one.
    QModelIndex IndexOf(const QDomElement& element) const;
    /// @}

    /// \name As Qt asks for it
    /// @{

    /// 0 below a row.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// 0 below a row.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// See Role.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Rows have nothing below them, and can be dragged.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// "application/x-rvopen-node+xml".
    QStringList mimeTypes() const override;
    /// Presets as text of XML, which a NodeModel takes, and the files that they are of. Presets
    /// that are not there any more are left out. The caller's.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// Of the columns.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    /// @}

private:
    friend class PresetRows;

    QVariant picture(const QModelIndex& index) const;
    void tellOfPicture(const QModelIndex& index);

    std::unique_ptr<PresetRows> m_rows;
    QPointer<Thumbnails> m_thumbnails;
    QImage m_placeholder;
    int m_pictureSize = 0;
    /// Of the presets whose pictures were asked for, by file and path.
    mutable QHash<QString, QPersistentModelIndex> m_asked;
};

} // namespace rvopen::widgets

Q_DECLARE_METATYPE(rvopen::toolkit::ListedPreset)

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/widgets/NodeModel.h>

namespace rvopen {

class MaterialRepository;

namespace widgets {

/// The materials of a palette, as rows without rows of their own.
///
/// \code
/// void showPalette(rvopen::SnapShot& snapShot, QListView& view)
/// {
///     using rvopen::MaterialRepository;
///     auto* const model = new rvopen::widgets::PaletteModel(&view);
///     model->SetPalette(rvopen::host::find<MaterialRepository>(&snapShot));
///     view.setModel(model);
///     view.setDragDropMode(QAbstractItemView::DragDrop);
///     view.setDefaultDropAction(Qt::MoveAction);
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT PaletteModel : public NodeModel {
    Q_OBJECT

public:
    /// Without rows.
    explicit PaletteModel(QObject* parent = nullptr);
    ~PaletteModel() override;

    /// Of a snapshot or of the collection of palettes; null for none.
    void SetPalette(MaterialRepository* palette);

protected:
    bool isShown(const QDomElement& element) const override;
    bool isShelf(const QDomElement& element) const override;
};

} // namespace widgets
} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/widgets/NodeModel.h>

namespace rvopen {

class RVOpenNode;

namespace widgets {

/// An archive as a tree: sections, folders and presets. A folder that stands for another archive is
/// a row without rows of its own.
///
/// \code
/// void showArchive(const rvopen::host::OpenArchive& archive, QTreeView& view)
/// {
///     auto* const model = new rvopen::widgets::ArchiveModel(&view);
///     model->SetArchive(archive.root());
///     view.setModel(model);
///     view.setDragDropMode(QAbstractItemView::DragDrop);
///     view.setDefaultDropAction(Qt::MoveAction);
///     view.setEditTriggers(QAbstractItemView::EditKeyPressed);
///     view.setUniformRowHeights(true);
///     view.expandToDepth(0);
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT ArchiveModel : public NodeModel {
    Q_OBJECT

public:
    /// Without rows.
    explicit ArchiveModel(QObject* parent = nullptr);
    ~ArchiveModel() override;

    /// The archive with that root; null for none. Once it is closed there are no rows.
    void SetArchive(RVOpenNode* root);

protected:
    bool isShown(const QDomElement& element) const override;
    bool isShelf(const QDomElement& element) const override;
};

} // namespace widgets
} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/widgets/WidgetsExport.h>

#include <QStyledItemDelegate>

namespace rvopen::widgets {

/// Edits the values of a ParamModel in a view, each by the ParamEditor that fits it. What the user
/// chooses is written at once: a slider's drag is followed by all windows and is one change for
/// those who wait for RVOpenObserver::BlockEnded(), as an undo does. A value that is only looked at
/// is not written.
///
/// \code
/// void editCamera(rvopen::Camera* camera, QTreeView& view)
/// {
///     using rvopen::widgets::ParamModel;
///     auto* const model = new ParamModel(&view);
///     model->SetNode(camera);
///     view.setModel(model);
///     view.setItemDelegateForColumn(ParamModel::Value, new rvopen::widgets::ParamDelegate(&view));
///     view.setEditTriggers(QAbstractItemView::AllEditTriggers);
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT ParamDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// Without previews.
    explicit ParamDelegate(QObject* parent = nullptr);
    ~ParamDelegate() override;

    /// What finds the files of previews from now on; without, there are none. It is called in other
    /// threads as well, by one at a time.
    void SetFindFile(const toolkit::FindFile& find);

    /// \name As Qt asks for it
    /// @{

    /// A ParamEditor, which is \p parent's; null where nothing can be edited.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Shows the value of the model.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Writes what the user made of it, if anything.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    /// High enough for an editor.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// @}

protected:
    /// Closes editors, of which nothing is written after the escape key.
    bool eventFilter(QObject* editor, QEvent* event) override;
    /// A truth is a box to check without a text.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    toolkit::FindFile m_find;
};

} // namespace rvopen::widgets

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/ParamDelegate.h>

#include <rvopen/widgets/ParamEditor.h>
#include <rvopen/widgets/ParamModel.h>

#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <memory>
#include <mutex>

namespace rvopen::widgets {

using namespace toolkit;

ParamDelegate::ParamDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

ParamDelegate::~ParamDelegate() = default;

void ParamDelegate::SetFindFile(const FindFile& find)
{
    m_find = nullptr;
    if (!find)
        return;
    // Whoever finds files may keep what it learnt of folders.
    const auto lock = std::make_shared<std::mutex>();
    m_find = [find, lock](const QString& reference) {
        const std::lock_guard<std::mutex> guard(*lock);
        return find(reference);
    };
}

QWidget* ParamDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const
{
    if (!(index.flags() & Qt::ItemIsEditable))
        return nullptr;
    ParamEditor* const editor =
        ParamEditor::Make(index.data(ParamModel::FactsRole).value<ParamFacts>(), parent, m_find);
    // Qt's signals of a delegate are not const.
    auto* const self = const_cast<ParamDelegate*>(this);
    connect(editor, &ParamEditor::Edited, self,
            [self, editor] { Q_EMIT self->commitData(editor); });
    // Later, since a view that closes an editor takes the focus before the editor is hidden.
    const auto close = [self, left = QPointer<ParamEditor>(editor)] {
        if (!left || left->isHidden())
            return;
        Q_EMIT self->commitData(left);
        Q_EMIT self->closeEditor(left, NoHint);
    };
    connect(editor, &ParamEditor::Left, self, close, Qt::QueuedConnection);
    return editor;
}

void ParamDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    static_cast<ParamEditor*>(editor)->SetValue(index.data(Qt::EditRole));
}

void ParamDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const
{
    auto* const param = static_cast<ParamEditor*>(editor);
    if (param->IsEdited() && !model->setData(index, param->Value(), Qt::EditRole))
        param->SetValue(index.data(Qt::EditRole));
}

QSize ParamDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const int frame = 10;
    size.setHeight(std::max(size.height(), option.fontMetrics.height() + frame));
    return size;
}

bool ParamDelegate::eventFilter(QObject* editor, QEvent* event)
{
    // A line of text has an edit to tell of when it loses the focus.
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        editor->blockSignals(true);
    return QStyledItemDelegate::eventFilter(editor, event);
}

void ParamDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->features & QStyleOptionViewItem::HasCheckIndicator)
        option->text.clear();
}

} // namespace rvopen::widgets

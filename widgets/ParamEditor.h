// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/widgets/ParamFacts.h>
#include <rvopen/widgets/WidgetsExport.h>

#include <QVariant>
#include <QWidget>

namespace rvopen::widgets {

/// Edits the value of one parameter, in a cell of a view, where ParamDelegate puts it, or in a form
/// of a host's. It knows no document: it shows a value and says when the user has another one.
///
/// All of its parts are reached by the tabulator key and have names for those who hear instead of
/// see. Dialogs that it opens do not block.
///
/// \code
/// void addRow(QFormLayout& form, rvopen::widgets::ParamModel& model, const QModelIndex& index)
/// {
///     using namespace rvopen::widgets;
///     const auto facts = index.data(ParamModel::FactsRole).value<ParamFacts>();
///     ParamEditor* const editor = ParamEditor::Make(facts);
///     editor->SetValue(index.data(Qt::EditRole));
///     QObject::connect(editor, &ParamEditor::Edited, &model,
///                      [=, &model] { model.setData(index, editor->Value()); });
///     form.addRow(index.siblingAtColumn(ParamModel::Name).data().toString(), editor);
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT ParamEditor : public QWidget {
    Q_OBJECT

public:
    ~ParamEditor() override;

    /// The editor that fits: for a truth a box to check, for a number a field with the range, and a
    /// slider where there is a usual one, for a colour, vector or point three fields, for a colour
    /// its swatch too, which opens a dialog, for choices a list, for a file its path with a preview
    /// and a dialog, else a line of text. What is read-only can be read and copied.
    ///
    /// \p find finds the file of the preview, in several threads at once; without, there is none.
    /// The editor is \p parent's, and the caller's without one.
    static ParamEditor* Make(const ParamFacts& facts, QWidget* parent = nullptr,
                             const toolkit::FindFile& find = {});

    /// Shows a value as ParamModel gives it, invalid for one that is absent. Is no edit, and takes
    /// nothing from under the hand of a user who drags a slider.
    void SetValue(const QVariant& value);
    /// What is shown, as ParamModel takes it.
    QVariant Value() const;
    /// Whether the user made another value of the one that was set. Only then is there something
    /// to write: a value that was only looked at stays as it is, to the last digit.
    bool IsEdited() const;

Q_SIGNALS:
    /// The user has chosen a value, which is to be written now. While a slider is dragged that
    /// happens often; from the press to the release an RVOpenBlock makes one change of it.
    void Edited();
    /// The focus went from this editor to another part of the program.
    void Left();

protected:
    /// Without parts.
    ParamEditor(const ParamFacts& facts, QWidget* parent);

    /// What the parameter is; of the time when the editor was made.
    const ParamFacts& facts() const;
    /// Adds a part to the right of those that there are, by the name of the parameter and \p name,
    /// which may be empty. The first one gets the focus.
    void addPart(QWidget* part, const QString& name = QString(), int stretch = 0);

    /// What SetValue() does with the parts.
    virtual void showValue(const QVariant& value) = 0;
    /// What the parts show.
    virtual QVariant shownValue() const = 0;

private:
    void focusMoved(const QWidget* from, const QWidget* to);

    ParamFacts m_facts;
    QVariant m_unedited;
};

} // namespace rvopen::widgets

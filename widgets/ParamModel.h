// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/widgets/ParamFacts.h>
#include <rvopen/widgets/WidgetsExport.h>

#include <QAbstractTableModel>
#include <QDomElement>

#include <memory>

namespace rvopen {

class RVOpenNode;

namespace widgets {

/// The parameters of an element as rows of a table, in document order: what each is called, its
/// value, its unit and its meaning. Values are in scene units, as objects have them, and are
/// written through an object, so that everybody who observes the document hears of it.
///
/// Rows follow the document: each change, insertion and removal is told of the rows that it
/// concerns, and nothing is reset unless the document is. The rows go when the element goes, and
/// come back with it. When the document is replaced, the model is empty until SetElement(). The
/// element and its document are kept alive, objects are not: those may go at any time.
///
/// \code
/// void showMaterial(rvopen::Material* material, QTreeView& view)
/// {
///     using rvopen::widgets::ParamModel;
///     auto* const model = new ParamModel(&view);
///     model->SetNode(material, ParamModel::Below);
///     QObject::connect(model, &ParamModel::Refused, &view, [](const QModelIndex&, QString reason)
///     {
///         QToolTip::showText(QCursor::pos(), reason);
///     });
///     view.setModel(model);
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT ParamModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// What each row has.
    enum Column {
        Name,    ///< The label, for people.
        Value,   ///< The one that can be edited.
        Unit,    ///< What numbers count; empty for none.
        Meaning, ///< A sentence; empty for what nobody knows.
        ColumnCount,
    };

    /// What is told of every column of a row besides what Qt's own roles are for. Qt::EditRole of
    /// the value is a number, a truth, a list of three numbers or a text, and invalid where it is
    /// absent; Qt::CheckStateRole is that of a truth, and Qt::DecorationRole the colour of a
    /// colour.
    enum Role {
        FactsRole = Qt::UserRole, ///< ParamFacts, for editors.
        SectionRole, ///< Names of the elements down to the owner, "colour / diffuse"; of the
                     ///< element's own parameters empty.
    };

    /// Which parameters are shown.
    enum Depth {
        Own,   ///< Those of the element itself.
        Below, ///< Those of the elements in it too: of a material all of its shaders.
    };

    /// Without rows.
    explicit ParamModel(QObject* parent = nullptr);
    ~ParamModel() override;

    /// \name What is shown
    /// @{

    /// The parameters of \p element, which may be null.
    void SetElement(const QDomElement& element, Depth depth = Own);
    /// Those of the node's element; null for none. The node may go.
    void SetNode(RVOpenNode* node, Depth depth = Own);
    /// The one that is shown; null for none.
    QDomElement Element() const;
    /// The parameter of a row; null for an index of none.
    QDomElement Param(const QModelIndex& index) const;
    /// Where the value of a parameter is shown; invalid for one that is not.
    QModelIndex IndexOf(const QDomElement& param) const;
    /// @}

    /// \name As Qt asks for it
    /// @{

    /// 0 below a row.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// 0 below a row.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// See Role.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Writes a value of Qt::EditRole, a colour, a text as people type it, or a Qt::CheckStateRole.
    /// False, with Refused() for what is no value of the parameter, when nothing was written. While
    /// observers are told of a change nothing is.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// Values can be edited unless they are read-only.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Of the columns.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    /// @}

Q_SIGNALS:
    /// A value was not written; \p reason is a sentence for people, without capital and full stop.
    void Refused(const QModelIndex& index, const QString& reason);

private:
    class Rows;

    std::unique_ptr<Rows> m_rows;
};

} // namespace widgets
} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/widgets/WidgetsExport.h>

#include <QAbstractItemModel>
#include <QDomDocument>
#include <QDomElement>
#include <QString>

#include <memory>

namespace rvopen {

class RVOpenNode;

namespace widgets {

class NodeRows;

/// What models of a document's presets, snapshots and materials have in common: their rows are
/// elements. What is below a row is looked at when a view opens it; objects are made for what is
/// edited.
///
/// Rows follow the document: each change, insertion and removal is told of the rows that it
/// concerns, whoever makes it through objects. A move is a removal and an insertion. Nothing is
/// reset unless the document is. The document is kept alive, objects are not.
///
/// Rows are dragged as text of XML, of the type MimeType(), and dropped where such elements may
/// stand: moved within a model, copied into others, there and between programs. A copy that is
/// called as something in the new place is called otherwise. Drops, removals and new names are made
/// through the objects of the document, each as one RVOpenBlock, and refused while observers are
/// told of a change.
class RVOPEN_WIDGETS_EXPORT NodeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    /// What each row has.
    enum Column {
        Name, ///< The name, or what else the element is called by; can be edited.
        Kind, ///< Element name.
        ColumnCount,
    };

    /// What is told of every column of a row besides what Qt's own roles are for.
    enum Role {
        PathRole = Qt::UserRole, ///< The readable path of the element in its document.
        RefNameRole,             ///< The reference name; empty for none.
        LinkNameRole,            ///< The link name; empty for none.
        CategoryRole,            ///< Attribute "cat"; empty for none.
        SubCategoryRole,         ///< Attribute "subcat"; empty for none.
    };

    ~NodeModel() override;

    /// \name The file
    /// @{

    /// Which the document is or will be written to; empty at first, where that is not known. What
    /// is dropped from another file refers to the same images then, and so does what is dragged.
    void SetFile(const QString& file);
    /// As it was set.
    QString File() const;
    /// @}

    /// \name Elements
    /// @{

    /// What the rows at the top stand in; null for none.
    QDomElement Root() const;
    /// Of a row; that of the top for an invalid index.
    QDomElement Element(const QModelIndex& index) const;
    /// Where the element, or what it stands in, is shown, as far as rows were looked at; invalid
    /// for one that is not.
    QModelIndex IndexOf(const QDomElement& element) const;
    /// The same, but looks at the rows above it.
    QModelIndex Fetch(const QDomElement& element);
    /// The object of a row in the tree of its document, made where there was none, and that
    /// tree's. Null without one.
    RVOpenNode* Node(const QModelIndex& index) const;
    /// "application/x-rvopen-node+xml".
    static QString MimeType();
    /// @}

    /// \name As Qt asks for it
    /// @{

    /// Of what is shown.
    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    /// Invalid at the top.
    QModelIndex parent(const QModelIndex& index) const override;
    /// How many rows were looked at.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// See Column.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Without looking at more than it takes.
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    /// Whether rows were not looked at.
    bool canFetchMore(const QModelIndex& parent) const override;
    /// Looks at them.
    void fetchMore(const QModelIndex& parent) override;
    /// See Role.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Gives a row another name. False for an empty one, and where nothing was written.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// Names can be edited, rows dragged, and dropped on what may hold some.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Of the columns.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    /// Deletes elements with their objects. False, with nothing done, where they are not there.
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    /// Copies, and moves within the model.
    Qt::DropActions supportedDropActions() const override;
    /// MimeType().
    QStringList mimeTypes() const override;
    /// The elements of rows, of those in each other the outermost, as text of XML, too,
    /// and File(). The caller's.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// Whether all of the elements may stand there.
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    /// Puts them there. What was dragged from this model is moved by Qt::MoveAction, for which the
    /// answer is false, so that a view removes nothing; otherwise true where all were put there.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
    /// @}

protected:
    /// Without rows.
    explicit NodeModel(QObject* parent);

    /// The rows are those in the element of \p root, which is the root of a tree of objects or
    /// stands in one, and of which objects are made. Null for none, until findRoot() has one after
    /// a change of \p document.
    void setRoot(RVOpenNode* root, const QDomDocument& document = QDomDocument());

    /// Whether an element is a row in what it stands in, which is Root() or a row.
    virtual bool isShown(const QDomElement& element) const = 0;
    /// Whether an element that is a row has rows below it.
    virtual bool isShelf(const QDomElement& element) const = 0;
    /// The object whose element is the root once the document has one again, or another document
    /// took its place; null for none, as it is here.
    virtual RVOpenNode* findRoot() const;

private:
    friend class NodeRows;

    RVOpenNode* nodeOf(const QDomElement& element) const;

    std::unique_ptr<NodeRows> m_rows;
    QString m_file;
};

} // namespace widgets
} // namespace rvopen

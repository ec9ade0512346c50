// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/widgets/PresetModel.h>
#include <rvopen/widgets/WidgetsExport.h>

#include <QAbstractProxyModel>
#include <QColor>
#include <QString>

#include <memory>

namespace rvopen::widgets {

/// Those presets of a PresetModel that somebody looks for, the best first, as Catalogue::Search()
/// finds them: one search of 100,000 presets takes a few milliseconds, so that a view may follow
/// each letter that is typed.
///
/// What is asked for counts at once; what changes in the model is searched for when control returns
/// to the event loop, and until then what was found before is shown of it. Rows that stay are kept,
/// with their selection; where very much comes and goes, the model is reset.
class RVOPEN_WIDGETS_EXPORT PresetFilter : public QAbstractProxyModel {
    Q_OBJECT
    /// Beginnings of words, as CatalogueQuery::text has them.
    Q_PROPERTY(QString words READ Words WRITE SetWords NOTIFY QueryChanged)
    /// Element name or section; empty for all.
    Q_PROPERTY(QString kind READ Kind WRITE SetKind NOTIFY QueryChanged)
    /// All of attribute "cat"; empty for all.
    Q_PROPERTY(QString category READ Category WRITE SetCategory NOTIFY QueryChanged)
    /// All of attribute "subcat"; empty for all.
    Q_PROPERTY(QString tag READ Tag WRITE SetTag NOTIFY QueryChanged)
    /// The name of one of the folders that presets stand in; empty for all.
    Q_PROPERTY(QString folder READ Folder WRITE SetFolder NOTIFY QueryChanged)
    /// One that presets have, the nearest first; invalid for all.
    Q_PROPERTY(QColor colour READ Colour WRITE SetColour NOTIFY QueryChanged)
    /// How far from the colour, by CIEDE2000; 10 at first.
    Q_PROPERTY(double within READ Within WRITE SetWithin NOTIFY QueryChanged)

public:
    /// Everything, once there is a model.
    explicit PresetFilter(QObject* parent = nullptr);
    ~PresetFilter() override;

    /// \name What is looked for
    /// @{

    /// All of it; false, and nothing changes, when the colour of the query is none.
    bool SetQuery(const toolkit::CatalogueQuery& query);
    /// What is looked for now.
    toolkit::CatalogueQuery Query() const;
    /// See the property.
    QString Words() const;
    /// See the property.
    void SetWords(const QString& words);
    /// See the property.
    QString Kind() const;
    /// See the property.
    void SetKind(const QString& kind);
    /// See the property.
    QString Category() const;
    /// See the property.
    void SetCategory(const QString& category);
    /// See the property.
    QString Tag() const;
    /// See the property.
    void SetTag(const QString& tag);
    /// See the property.
    QString Folder() const;
    /// See the property.
    void SetFolder(const QString& folder);
    /// See the property.
    QColor Colour() const;
    /// See the property.
    void SetColour(const QColor& colour);
    /// See the property.
    double Within() const;
    /// See the property.
    void SetWithin(double within);
    /// @}

    /// \name As Qt asks for it
    /// @{

    /// Takes a PresetModel, or null; any other model is refused, with a message of Qt's.
    void setSourceModel(QAbstractItemModel* model) override;
    /// Invalid for what is not found.
    QModelIndex mapFromSource(const QModelIndex& source) const override;
    /// Invalid for an index of none.
    QModelIndex mapToSource(const QModelIndex& index) const override;
    /// Invalid below a row.
    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    /// None.
    QModelIndex parent(const QModelIndex& index) const override;
    /// 0 below a row.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// 0 below a row.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Of the model's columns.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    /// @}

Q_SIGNALS:
    /// Something else is looked for, and rows are what was found.
    void QueryChanged();

private:
    class Found;

    std::unique_ptr<Found> m_found;
};

} // namespace rvopen::widgets

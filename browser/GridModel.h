// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QIdentityProxyModel>
#include <QItemSelection>
#include <QVector>

namespace rvopen::widgets {
class PresetFilter;
class PresetModel;
} // namespace rvopen::widgets

namespace rvopen::browser {

/// The presets that are found, in the one column that a grid has: who hears it is told each preset
/// once, and all that is selected is presets. Their tool tips have the values.
class GridModel : public QIdentityProxyModel {
    Q_OBJECT

public:
    explicit GridModel(QObject* parent = nullptr);

    /// Which have to stay as long as this.
    void setPresets(widgets::PresetModel* presets, widgets::PresetFilter* filter);
    /// Of the model of presets; invalid for none.
    QModelIndex presetOf(const QModelIndex& index) const;
    /// Where a preset of that model is shown; invalid where it is not found.
    QModelIndex indexOf(const QModelIndex& preset) const;
    /// What stays the same of a preset when all rows become others; empty for no preset.
    toolkit::PresetPlace placeOf(const QModelIndex& index) const;
    /// Those of the presets that are found.
    QItemSelection selectionOf(const QVector<toolkit::PresetPlace>& places) const;

    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    QString toolTipOf(const QModelIndex& preset) const;

    widgets::PresetModel* m_presets = nullptr;
    widgets::PresetFilter* m_filter = nullptr;
};

} // namespace rvopen::browser

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "GridModel.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QColor>
#include <QListView>
#include <QVector>

namespace rvopen::browser {

/// Pictures of presets with their names, to choose from. What is chosen stays so, by its file and
/// path, when all rows become others, and nobody is told. A colour or a picture that is dropped on
/// it is what is looked for.
class Grid : public QListView {
    Q_OBJECT

public:
    explicit Grid(QWidget* parent = nullptr);

    GridModel& presets();
    /// The one that is chosen, of the model of presets; invalid for none.
    QModelIndex currentPreset() const;
    /// All that are selected, of that model.
    QModelIndexList selectedPresets() const;

    int pictureSize() const;
    /// In logical pixels, from 32 to 256.
    void setPictureSize(int size);

    /// What people see first in a picture: the mean of what is not background.
    static QColor colourOf(const QImage& picture);

    static constexpr int s_leastSize = 32;
    static constexpr int s_greatestSize = 256;

Q_SIGNALS:
    void pictureSizeChanged(int size);
    void colourDropped(const QColor& colour);
    /// Files that were dropped, to be opened.
    void filesDropped(const QStringList& files);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool takes(const QDropEvent& event) const;
    void keepChoice();
    void restoreChoice();

    GridModel m_presets;
    toolkit::PresetPlace m_keptCurrent;
    QVector<toolkit::PresetPlace> m_keptSelected;
};

} // namespace rvopen::browser

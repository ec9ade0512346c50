// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "GridModel.h"

#include <QColor>
#include <QListView>

namespace rvopen::browser {

/// Pictures of presets with their names, to choose from. A colour or a picture that is dropped on
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

    GridModel m_presets;
};

} // namespace rvopen::browser

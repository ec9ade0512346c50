// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Grid.h"

#include "FileTexts.h"

#include <rvopen/toolkit/drawing/PicturePlan.h>

#include <QDragEnterEvent>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace rvopen::browser {

namespace {

constexpr int s_sizeStep = 16;
/// Of a picture as many points a side say which colour it has.
constexpr int s_sampled = 48;

bool isPicture(const QString& file)
{
    return !QImageReader::imageFormat(file).isEmpty();
}

} // namespace

Grid::Grid(QWidget* parent)
    : QListView(parent)
{
    setViewMode(IconMode);
    setResizeMode(Adjust);
    setMovement(Static);
    setUniformItemSizes(true);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(true);
    setDragDropMode(DragDrop);
    // What cannot be moved takes no drops otherwise.
    viewport()->setAcceptDrops(true);
    setDropIndicatorShown(false);
    setAccessibleName(tr("Presets"));
    setModel(&m_presets);
    // After the view and its selection, which forget then.
    connect(&m_presets, &GridModel::modelAboutToBeReset, this, &Grid::keepChoice);
    connect(&m_presets, &GridModel::modelReset, this, &Grid::restoreChoice);
    setPictureSize(s_leastSize);
}

GridModel& Grid::presets()
{
    return m_presets;
}

QModelIndex Grid::currentPreset() const
{
    return m_presets.presetOf(currentIndex());
}

QModelIndexList Grid::selectedPresets() const
{
    QModelIndexList all;
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        all.append(m_presets.presetOf(index));
    return all;
}

int Grid::pictureSize() const
{
    return iconSize().width();
}

void Grid::setPictureSize(int size)
{
    size = std::clamp(size, s_leastSize, s_greatestSize);
    const int text = fontMetrics().height();
    setIconSize({size, size});
    setGridSize({size + 2 * text, size + 2 * text});
    Q_EMIT pictureSizeChanged(size);
}

QColor Grid::colourOf(const QImage& picture)
{
    if (picture.isNull())
        return QColor();
    const QImage small =
        picture.scaled(s_sampled, s_sampled, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_ARGB32);
    const QColor corner = small.pixelColor(0, 0);
    const auto isBackground = [&corner](const QColor& colour) {
        return colour.alpha() < 128 || (std::abs(colour.red() - corner.red()) < 12 &&
                                        std::abs(colour.green() - corner.green()) < 12 &&
                                        std::abs(colour.blue() - corner.blue()) < 12);
    };
    float sums[3] = {};
    float count = 0;
    for (int y = 0; y < small.height(); ++y) {
        for (int x = 0; x < small.width(); ++x) {
            const QColor colour = small.pixelColor(x, y);
            if (isBackground(colour))
                continue;
            sums[0] += float(colour.redF());
            sums[1] += float(colour.greenF());
            sums[2] += float(colour.blueF());
            count += 1;
        }
    }
    // A picture of one colour is that.
    return count < 1 ? QColor(corner.rgb())
                     : QColor::fromRgbF(sums[0] / count, sums[1] / count, sums[2] / count);
}

void Grid::dragEnterEvent(QDragEnterEvent* event)
{
    if (takes(*event))
        event->acceptProposedAction();
}

void Grid::dragMoveEvent(QDragMoveEvent* event)
{
    if (takes(*event))
        event->acceptProposedAction();
}

void Grid::dropEvent(QDropEvent* event)
{
    if (!takes(*event))
        return;
    event->acceptProposedAction();
    const QMimeData& dropped = *event->mimeData();
    if (dropped.hasColor()) {
        Q_EMIT colourDropped(dropped.colorData().value<QColor>());
        return;
    }
    if (dropped.hasImage()) {
        Q_EMIT colourDropped(colourOf(dropped.imageData().value<QImage>()));
        return;
    }
    const QStringList files = localFiles(dropped);
    if (files.size() == 1 && isPicture(files.first()))
        Q_EMIT colourDropped(colourOf(toolkit::ReadPicture(files.first())));
    else
        Q_EMIT filesDropped(files);
}

void Grid::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QListView::wheelEvent(event);
        return;
    }
    setPictureSize(pictureSize() + (event->angleDelta().y() > 0 ? s_sizeStep : -s_sizeStep));
    event->accept();
}

bool Grid::takes(const QDropEvent& event) const
{
    const QMimeData* const dragged = event.mimeData();
    return event.source() != this &&
           (dragged->hasColor() || dragged->hasImage() || !localFiles(*dragged).isEmpty());
}

void Grid::keepChoice()
{
    m_keptCurrent = m_presets.placeOf(currentIndex());
    m_keptSelected.clear();
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        m_keptSelected.append(m_presets.placeOf(index));
}

void Grid::restoreChoice()
{
    // The view is painted anew anyway, and nobody has chosen.
    const QSignalBlocker blocker(selectionModel());
    selectionModel()->select(m_presets.selectionOf(m_keptSelected),
                             QItemSelectionModel::ClearAndSelect);
    const QModelIndexList current = m_presets.selectionOf({m_keptCurrent}).indexes();
    if (!current.isEmpty())
        selectionModel()->setCurrentIndex(current.first(), QItemSelectionModel::NoUpdate);
}

} // namespace rvopen::browser

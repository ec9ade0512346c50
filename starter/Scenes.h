// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <QVector>

namespace rvopen::starter {

/// A backdrop, panorama or environment: a landscape or a room of light panels, twice as wide as
/// high, which repeats sideways. Five colours: sky, sky at the horizon, ground at the horizon,
/// ground, and what stands on it; for panels three: above, below, and the panels, of which there
/// are \p count. Fails for an unknown scene.
QImage drawScene(const QString& name, int height, const QVector<QColor>& colours, int count,
                 unsigned int seed);

} // namespace rvopen::starter

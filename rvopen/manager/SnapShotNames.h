// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/SnapShots.h>

#include <QString>

namespace rvopen {

/// Numbers the names of new snapshots, for each kind of collection by itself. Numbers rise as long
/// as this object lives.
class SnapShotNames {
public:
    /// \p base followed by the next number that makes a name which no snapshot of \p collection
    /// has. A null collection has none.
    QString next(const QString& base, SnapShots::SnapShotType type, SnapShots* collection);

private:
    int m_snapShots = 0;
    int m_backgrounds = 0;
    int m_materialPalettes = 0;
    int m_cameras = 0;
};

} // namespace rvopen

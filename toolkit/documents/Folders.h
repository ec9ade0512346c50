// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen::toolkit {

/// The folders of a host in which presets, archives and pictures are looked for; empty where there
/// is none.
struct Folders {
    /// The installation, with "xml" and the pictures of its presets.
    QString install;
    /// The archives that came with the host.
    QString archives;
    /// The user's own archives.
    QString custom;
    /// The pictures of snapshots.
    QString snapshots;
};

} // namespace rvopen::toolkit

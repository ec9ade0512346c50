// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Documents of any size in the shape of real ones. The same arguments give the same text.
namespace rvopen::bench {

struct Document {
    QString text;
    long elements = 0;
    /// Snapshots, materials or presets, whichever the document is made of.
    long parts = 0;
};

/// Snapshots with all their components, as many as have about \p elements elements.
Document snapShotDocument(long elements);
/// One snapshot with a palette of materials that have colours, finishes, transparencies, bumps and
/// maps. The link names are Object1, Object2 and so on.
Document paletteDocument(long elements);
/// Snapshots with a camera of three parameters each and nothing else, as many as have about
/// \p elements elements.
Document camerasDocument(long elements);
/// Snapshots that have names only: Snapshot1, Snapshot2 and so on.
Document namesDocument(long elements);
/// As many elements, each of which has a name of its own without an ASCII character.
Document foreignNamesDocument(long elements);
/// Presets in folders of fifty, below one section of background presets. Their reference names are
/// background.1, background.2 and so on.
Document archive(long presets);
/// Materials in folders below the section "materials", as many as have about \p elements elements.
Document materialArchive(long elements);

} // namespace rvopen::bench

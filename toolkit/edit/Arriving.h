// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QString>

namespace rvopen::toolkit {

/// \name Where presets, folders, snapshots and materials of palettes may stand
/// In sections and folders of archives, collections of snapshots, and palettes: those are shelves.
/// @{

/// Why the element, which may stand anywhere, cannot stand in \p shelf: a sentence for people
/// without capital and full stop; empty when it can.
RVOPEN_TOOLKIT_EXPORT QString ProblemOfPlace(const QDomElement& element, const QDomElement& shelf);

/// A copy of the element for that place, in the document of the shelf but standing nowhere yet, as
/// "rvopen copy" would make it: lengths in the units of the document, a material of a palette made
/// a preset, and what is called as something there called otherwise.
RVOPEN_TOOLKIT_EXPORT QDomElement CopyFor(const QDomElement& element, const QDomElement& shelf);
/// @}

} // namespace rvopen::toolkit

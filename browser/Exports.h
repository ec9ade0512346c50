// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "LongWork.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/sheets/PictureSheet.h>

#include <QString>
#include <QVector>

namespace rvopen::browser {

class Workspace;

/// Makes a sheet of these presets, in the order of their files, as they are in memory where they
/// are edited. \p place is the file that is written, or for a page the folder; what is there
/// already gives way where it is such a page.
LongWork::Work sheetOf(const Workspace& workspace, const QVector<toolkit::ListedPreset>& presets,
                       toolkit::SheetFormat format, const toolkit::SheetWish& wish,
                       const QString& place);

/// Draws the picture of each, large, into a file of the folder. What is there already stays: a
/// number comes behind the name.
LongWork::Work picturesOf(const Workspace& workspace, const QVector<toolkit::ListedPreset>& presets,
                          const QString& folder);

} // namespace rvopen::browser

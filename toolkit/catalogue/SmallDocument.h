// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Block.h"
#include "FileState.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QDomDocument>
#include <QString>

namespace rvopen::toolkit::catalogue {

/// The preset of a row with what it stands in, read from where the block of the file has it. Null
/// where the file is not in that state, where something else stands there, and where the bytes of
/// a part do not say what they mean in the whole: then the row has to be made anew, or the
/// document to be built.
OpenPreset openThere(const QString& file, const FileState& state, const Block& block,
                     const BlockRow& row);

/// The root of the file with its attributes, and nothing in it; null as openThere() is.
QDomDocument openRoot(const QString& file, const FileState& state, const Block& block);

/// The preset of that path, of the whole document.
OpenPreset openWhole(const QString& file, const QString& path);

} // namespace rvopen::toolkit::catalogue

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Block.h"
#include "FileState.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QVector>

#include <memory>
#include <vector>

namespace rvopen::toolkit {

class Document;

} // namespace rvopen::toolkit

namespace rvopen::toolkit::catalogue {

/// Which sections of an archive come along.
enum class Sections {
    Needed, ///< Those that presets stand in.
    All
};

/// Presets of one file.
struct OpenPart {
    /// All of it; null where they are not there.
    QDomDocument dom;
    /// In it, in the order of the file.
    QVector<QDomElement> presets;
};

/// The presets of these rows with what they stand in, read from where the block of the file has
/// them. Null where the file is not in that state, where something else stands there, and where the
/// bytes of a part do not say what they mean in the whole: then the rows have to be made anew, or
/// the document to be built.
OpenPart openPart(const QString& file, const FileState& state, const Block& block,
                  const std::vector<BlockRow>& rows, Sections sections);

/// The same of one row.
OpenPreset openThere(const QString& file, const FileState& state, const Block& block,
                     const BlockRow& row);

/// The preset of that path, of the whole document.
OpenPreset openWhole(const QString& file, const QString& path);

/// A document in which these presets are all that sections and folders have, with the paths,
/// headings and places that they have in the whole. Null where openPart() has none, where paths
/// would be others, and where it would be most of the document.
std::unique_ptr<Document> documentOfRows(const QString& file, const FileState& state,
                                         const Block& block, const std::vector<BlockRow>& rows);

} // namespace rvopen::toolkit::catalogue

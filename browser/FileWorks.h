// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Findings.h"
#include "LongWork.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/exchange/Exchange.h>
#include <rvopen/toolkit/images/DocumentTextures.h>

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace rvopen::browser {

class Workspace;

/// What is done to whole files that are edited. It is worked out in copies, in another thread, and
/// comes into each file as one step to undo, unless that was edited meanwhile: then nothing of it
/// does, which the person is told.
namespace works {

using Work = LongWork::Work;
/// What is told besides a message: where something is to be looked at.
using Show = std::function<void(const QVector<Findings::Line>&)>;

/// Takes over what another file of the same kind has. \p asked is called where something is there
/// already with another content, and stayed as it was; how many of them.
Work importInto(Workspace& workspace, const QString& file, const QString& source,
                toolkit::ChangedImports changed, const std::function<void(int count)>& asked,
                const Show& show);
/// Merges what another file of the same kind has; \p base is what both come from, empty for none.
Work mergeInto(Workspace& workspace, const QString& file, const QString& theirs,
               const QString& base, const Show& show);
/// Finds images that are missing in and below the folder.
Work findImages(Workspace& workspace, const QString& file, const QString& folder, const Show& show);
/// Draws the pictures of these presets, and embeds them in their archives.
Work embedPictures(Workspace& workspace, const QVector<toolkit::PresetPlace>& presets);
/// Gives a value that \p from has to all of them that have the parameter in the same place: below
/// the same elements, whatever these are called. \p path is that of the parameter in \p from.
Work setForAll(Workspace& workspace, const toolkit::PresetPlace& from, const QString& path,
               const QVector<toolkit::PresetPlace>& presets);

/// Copies the file as it is in memory, with its images and pictures, into a folder. Nothing is
/// edited.
Work collect(const Workspace& workspace, const QString& file, const QString& folder,
             toolkit::CollectedTextures which, const Show& show);
/// Whether the file refers to images that CollectedTextures::Everywhere alone takes along.
bool hasImagesElsewhere(const Workspace& workspace, const QString& file);

/// All places of all files that go by the preset.
Work findUses(const Workspace& workspace, const toolkit::ListedPreset& preset, const Show& show);

} // namespace works
} // namespace rvopen::browser

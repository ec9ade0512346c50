// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenWriter.h>

#include <QMimeData>
#include <QString>
#include <QStringList>

namespace rvopen::browser {

/// \name What people read of a file
/// The file, the place in it where there is one, and the reason.
/// @{
QString messageOf(const ReadError& error);
QString messageOf(const WriteError& error);
/// @}

/// A file of that name in the folder, with a number where there is one already: "Mine-2.rvx".
QString freePath(const QString& folder, const QString& base, const QString& suffix);

/// Those that are dragged or pasted, of this machine. Presets name the files that they are of,
/// which are none to open.
QStringList localFiles(const QMimeData& data);

/// All of a file; empty where it cannot be read.
QByteArray bytesOf(const QString& path);

} // namespace rvopen::browser

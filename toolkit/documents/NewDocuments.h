// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomDocument>
#include <QString>

namespace rvopen::toolkit {

/// Which version of the host a new document is for.
struct HostVersion {
    /// Its first part.
    unsigned int major = 3;
    /// Its second part.
    unsigned int minor = 1;
};

/// A snapshot document whose current snapshot has default settings and scenery. \p unitsScale is
/// how many document units a scene unit has, a finite number above 0.
RVOPEN_TOOLKIT_EXPORT QDomDocument NewSnapShots(const HostVersion& version = {},
                                                double unitsScale = 1);

/// An archive with a section for each kind of preset, to be written to \p file, empty where that
/// is not known: it says so itself, for hosts to find where to save it. Without \p name it is
/// called as the file is.
RVOPEN_TOOLKIT_EXPORT QDomDocument NewArchive(const QString& file, const QString& name = QString(),
                                              const HostVersion& version = {});

} // namespace rvopen::toolkit

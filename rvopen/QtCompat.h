// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

/// The differences between the supported versions of Qt.
namespace rvopen::compat {

/// The type of sizes and indices of Qt's strings and byte arrays: an int in Qt 5, a qsizetype
/// since.
using Size = decltype(QString().size());

/// For what is measured rather than called.
inline constexpr bool isQt6 = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);

} // namespace rvopen::compat

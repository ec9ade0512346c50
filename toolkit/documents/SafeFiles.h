// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen::toolkit {

/// Whether both name the same existing file.
bool isSameFile(const QString& a, const QString& b);

/// Whether a file or folder that is there lies below the folder, once all links are followed.
bool isBelow(const QString& path, const QString& folder);

/// Why a file whose name was made from what stands in a document is not written below \p folder:
/// a link may lead anywhere. Empty when there is no link in the way.
QString linkInTheWay(const QString& file, const QString& folder);

} // namespace rvopen::toolkit

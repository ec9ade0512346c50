// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen::starter {

class Tables;

/// Draws all images of the table of textures into a folder.
void makeTextures(const Tables& tables, const QString& folder);

} // namespace rvopen::starter

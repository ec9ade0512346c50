// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen::toolkit {

/// \name Values as people type them
/// @{

/// Three numbers between blanks or commas, as people write them.
bool toTriple(const QString& text, float (&triple)[3]);
/// The same, or "#rrggbb".
bool toColour(const QString& text, float (&colour)[3]);
/// true, yes, on, 1 and their opposites.
bool toBoolean(const QString& text, bool& value);
/// @}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QString>

namespace rvopen::toolkit {

/// \name Values as people type them, and as documents have them
/// @{

/// Three numbers between blanks or commas, as people write them.
bool toTriple(const QString& text, float (&triple)[3]);
/// The same, or "#rrggbb".
bool toColour(const QString& text, float (&colour)[3]);
/// true, yes, on, 1 and their opposites.
bool toBoolean(const QString& text, bool& value);
/// Three numbers as documents have them, and toTriple() takes them.
QString tripleText(const float (&triple)[3]);
/// What documents have for a value of that type. Of it only truths are checked: empty for what is
/// none.
QString storedText(ValueType type, const QString& text);
/// @}

} // namespace rvopen::toolkit

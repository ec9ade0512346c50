// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QString>

namespace rvopen::toolkit {

/// \name Values as documents have them
/// In the C locale. Outputs are untouched where the text is no such value.
/// @{

/// 6 significant digits in general notation, as the library writes numbers.
RVOPEN_TOOLKIT_EXPORT QString NumberText(double value);
/// A number that is finite in single precision, without anything around it.
RVOPEN_TOOLKIT_EXPORT bool ToNumber(const QString& text, double& value);
RVOPEN_TOOLKIT_EXPORT bool ToInteger(const QString& text, int& value);
/// Three numbers separated by white space.
RVOPEN_TOOLKIT_EXPORT bool ToTriple(const QString& text, float (&triple)[3]);
/// Without the characters that no document may contain.
RVOPEN_TOOLKIT_EXPORT bool IsXmlText(const QString& text);
/// @}

} // namespace rvopen::toolkit

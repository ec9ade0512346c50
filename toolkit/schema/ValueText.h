// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QString>

namespace rvopen::toolkit {

/// The number with 6 significant digits in general notation, as the library writes it.
RVOPEN_TOOLKIT_EXPORT QString NumberText(double value);
/// Whether the text is a number that is finite in single precision, in the C locale. \p value is
/// untouched where it is none.
RVOPEN_TOOLKIT_EXPORT bool ToNumber(const QString& text, double& value);
/// Whether the text is an integer of 32 bits. \p value is untouched where it is none.
RVOPEN_TOOLKIT_EXPORT bool ToInteger(const QString& text, int& value);
/// Whether the text is three such numbers between white space. \p triple is untouched where it is
/// not.
RVOPEN_TOOLKIT_EXPORT bool ToTriple(const QString& text, float (&triple)[3]);
/// Whether the text is without the characters that no document may contain.
RVOPEN_TOOLKIT_EXPORT bool IsXmlText(const QString& text);

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Values as the text of attributes, in the C locale.
namespace rvopen::valueText {

/// 6 significant digits in general notation: 0.1, 0.333333, 1.23457e+06, 1.
QString fromFloat(float value);
/// "1" for any non-zero value, else "0".
QString fromBool(int value);
/// Three floats separated by single blanks.
QString fromTriple(float a, float b, float c);
QString fromTriple(const float* triple);

/// Readers answer StatusMissing for an empty text, leaving the output alone; a text that is no
/// number gives 0 with StatusOk. The output may be null.
unsigned int toFloat(const QString& text, float* out);
unsigned int toInt(const QString& text, int* out);
/// 1 when the integer is 1 or more, else 0.
unsigned int toBool(const QString& text, int* out);
/// Three numbers separated by any white space; one that cannot be read becomes 0.
void toTriple(const QString& text, float* a, float* b, float* c);
/// As above into out[0..2]; StatusMissing for an empty text or a null output.
unsigned int toTriple(const QString& text, float* out);

} // namespace rvopen::valueText

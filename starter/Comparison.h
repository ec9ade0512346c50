// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace rvopen::starter {

/// How the files below \p made differ from those below \p kept, a line for each that does; none
/// when they are the same. JPEG files are compared by what is seen, within a tolerance: encoders
/// and mathematical libraries round differently. PNG files are the same to the pixel, however they
/// are compressed, all others to the byte.
QStringList differences(const QString& kept, const QString& made);

} // namespace rvopen::starter

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace rvopen::toolkit {

/// The text without accents and without regard to the case of letters, to compare it with others
/// that were folded: "Café" as "cafe".
QString folded(const QString& text);

/// The words between blanks, folded.
QStringList foldedWords(const QString& text);

} // namespace rvopen::toolkit

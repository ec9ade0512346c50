// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Folding.h"

namespace rvopen::toolkit {

QString folded(const QString& text)
{
    QString result;
    for (const QChar c : text.normalized(QString::NormalizationForm_KD)) {
        if (c.category() != QChar::Mark_NonSpacing)
            result += c;
    }
    // Qt folds letter by letter, and this one is two in capitals.
    return result.toCaseFolded().replace(QChar(0xdf), QLatin1String("ss"));
}

QStringList foldedWords(const QString& text)
{
    return folded(text).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace rvopen::toolkit

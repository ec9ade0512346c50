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
    return result.toCaseFolded();
}

QStringList foldedWords(const QString& text)
{
    return folded(text).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace rvopen::toolkit

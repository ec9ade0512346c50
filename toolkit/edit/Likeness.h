// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>
#include <QStringList>

namespace rvopen::toolkit {

/// Which of the candidates somebody may have meant who wrote another word: the one with the fewest
/// letters left out, too many, wrong or swapped with the next. At most one letter of the word in
/// \p lettersPerSlip may be; case and accents do not count. Empty for none.
QString likeliest(const QString& word, const QStringList& candidates, int lettersPerSlip = 3);
/// The same for the kind of an element, which is one of few and may be half wrong.
QString likeliestKind(const QString& kind, const QStringList& kinds);

/// The same for a path that nothing below the root has; empty also for one with stars, conditions
/// or "//", which means many.
QString likeliestPath(const QString& path, const QDomElement& root);

/// Says that nothing below the root has the path, and which one was meant, if one is like it.
QString nothingHas(const QString& path, const QDomElement& root);

/// The same, once it is known which one was meant; empty for none.
QString noSuchPath(const QString& path, const QString& likely);

/// The end of a message: "; did you mean "..."?". Empty for an empty text.
QString didYouMean(const QString& likely);

} // namespace rvopen::toolkit

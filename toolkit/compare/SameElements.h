// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>

namespace rvopen::toolkit {

/// Whether the file has these elements with these attributes, in this order, which a pass over its
/// text tells: a Comparer then finds no difference. Where it is false there may be none either.
bool hasSameElements(const QString& file, const QDomElement& root);

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomNode>

namespace rvopen::widgets {

/// Whether it is the outer one or stands in it; nothing stands in a null one.
inline bool isInside(QDomNode node, const QDomNode& outer)
{
    while (!node.isNull() && node != outer)
        node = node.parentNode();
    return !node.isNull();
}

} // namespace rvopen::widgets

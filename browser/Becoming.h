// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenObserver.h>

#include <QDomElement>

#include <functional>

namespace rvopen::browser {

/// The one of that path, as PathOf() has it; null for none.
QDomElement elementAt(const QDomDocument& document, const QString& path);

/// Puts a change into a document; false where that cannot be.
using TakeBack = std::function<bool(const RVOpenChange&)>;

/// Puts a node that stands nowhere behind \p previous, null for the first place, in \p parent.
bool insertNode(const QDomNode& parent, const QDomNode& node, const QDomNode& previous,
                const TakeBack& takeBack);
/// Takes a node out of its parent.
bool removeNode(const QDomNode& node, const TakeBack& takeBack);
/// Makes \p element as \p wanted, of the same name, is by as few changes as it takes, so that
/// whoever observes its document hears of them: what was worked out in a copy comes in as one edit.
/// Nodes of \p wanted are copied.
bool becomeAs(const QDomElement& wanted, const QDomElement& element, const TakeBack& takeBack);

} // namespace rvopen::browser

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenObserver.h>

#include <QDomDocument>

#include <functional>

namespace rvopen::browser {

/// Makes \p document as \p wanted is by as few changes as it takes, each by \p takeBack, so that
/// whoever observes it hears of them: what was worked out in a copy comes in as one edit. Nodes of
/// \p wanted are copied. False where a change could not be made.
bool becomeAs(const QDomDocument& wanted, const QDomDocument& document,
              const std::function<bool(const RVOpenChange&)>& takeBack);

} // namespace rvopen::browser

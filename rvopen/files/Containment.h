// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen {

/// Whether what \p path names lies below \p folder once all links on the way to both are followed.
/// What does not exist lies where its folder does. A link that leads nowhere lies nowhere.
bool liesBelow(const QString& path, const QString& folder);

} // namespace rvopen

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen::starter {

class Presets;
class Tables;

/// Makes the snapshot documents of the sample models from presets, and puts the image files that
/// they and the other documents below \p data refer to beside each of them: copies from \p
/// archives, under the same relative names.
void makeModels(const Tables& tables, const Presets& presets, const QString& archives,
                const QString& data);

} // namespace rvopen::starter

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen::browser {

/// The colours of the windows.
enum class Appearance {
    System, ///< Those of the desktop.
    Light,
    Dark
};

/// Has all windows look like that from now on. To be called with an application.
void setAppearance(Appearance appearance);

} // namespace rvopen::browser

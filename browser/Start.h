// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen::browser {

/// The whole program.
int run(int argc, char** argv);

} // namespace rvopen::browser

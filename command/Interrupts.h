// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen::command {

/// Ctrl-C and the end that others ask for (SIGINT, SIGTERM, SIGHUP), as the interruption of the
/// process. Outside of an Uninterrupted scope the program ends at once; inside, at the end of the
/// scope, so that what is written is written whole or not at all.
void handleInterrupts();

} // namespace rvopen::command

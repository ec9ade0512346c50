// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

namespace rvopen::tools {

/// Ctrl-C and the end that others ask for (SIGINT, SIGTERM, SIGHUP). Outside of an Uninterrupted
/// scope the program ends at once; inside, at the end of the scope, so that what is written is
/// written whole or not at all.
void handleInterrupts();

/// A file that goes with the program when it is ended so; one at a time. Empty for none.
void removeAtInterrupt(const QByteArray& path);

/// For long work inside of an Uninterrupted scope, which undoes what it did and returns.
bool isInterrupted();

class Uninterrupted {
public:
    Uninterrupted();
    ~Uninterrupted();
    Uninterrupted(const Uninterrupted&) = delete;
    Uninterrupted& operator=(const Uninterrupted&) = delete;
};

} // namespace rvopen::tools

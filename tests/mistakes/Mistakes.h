// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

/// What a host may do wrong with the ownership of objects, and what happens then.
namespace rvopen::test {

struct Mistake {
    /// As the guide tells it.
    const char* text;
    const char* consequence;
    /// Does it and gives what came out otherwise than told; empty when all is as told.
    QString (*make)();
    /// Whether the program is at the mercy of the allocator afterwards: only a sanitizer or
    /// valgrind sees what it does.
    bool isUndefined = false;
};

/// Those that leave the program to chance last.
const std::vector<Mistake>& mistakes();
/// Those with handles, values and changes, of which none does.
const std::vector<Mistake>& handleMistakes();

} // namespace rvopen::test

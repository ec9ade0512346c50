// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

/// Control over the memory that the library takes for its objects. The program's own malloc stands
/// in front of the C library's, for the calls that the library makes itself; what Qt and the
/// standard library take is left alone, since they cannot go on without it.
namespace rvopen::test::memory {

enum class Failure { OneAllocation, AllFromThen };

/// Lets the allocation with this number, from 1, fail and, as \p failure says, those after it.
void failAt(std::size_t number, Failure failure);
/// Lets none fail any more. The number of those that failed.
std::size_t stopFailing();
/// Objects of the library that are not freed.
std::size_t liveObjects();

} // namespace rvopen::test::memory

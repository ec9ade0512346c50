// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>
#include <cstddef>
#include <functional>

namespace rvopen::toolkit {

/// The next piece of work that nobody has taken.
using NextPiece = std::atomic<std::size_t>;

/// Calls \p work on as many processors as there are, on no more than there are pieces, and here,
/// and returns when all have returned. Each takes pieces below \p pieces until there are none. What
/// one throws is thrown again.
void onAllProcessors(std::size_t pieces,
                     const std::function<void(NextPiece& next, bool isHere)>& work);

/// Calls \p work once with each number below \p count, in any order, on as many processors as there
/// are.
void forEachPiece(std::size_t count, const std::function<void(std::size_t)>& work);

} // namespace rvopen::toolkit

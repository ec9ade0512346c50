// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen::bench {

/// Whether this machine's C library lets allocations be counted.
bool canCountAllocations();
/// Calls of malloc, calloc and realloc since the process started.
long allocations();
/// Bytes of the heap in use, with what the allocator adds to each block.
double bytesInUse();

} // namespace rvopen::bench

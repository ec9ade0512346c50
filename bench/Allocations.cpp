// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Allocations.h"

#include <cstddef>
#include <cstdlib>

#ifdef __GLIBC__

#include <malloc.h>

namespace {

long s_allocations = 0;

} // namespace

// The C library's own functions have these names too; the program's take precedence.
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);

__attribute__((visibility("default"))) void* malloc(std::size_t size)
{
    ++s_allocations;
    return __libc_malloc(size);
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size)
{
    ++s_allocations;
    return __libc_calloc(count, size);
}

__attribute__((visibility("default"))) void* realloc(void* memory, std::size_t size)
{
    ++s_allocations;
    return __libc_realloc(memory, size);
}
}

namespace rvopen::bench {

bool canCountAllocations()
{
    return true;
}

long allocations()
{
    return s_allocations;
}

double bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

} // namespace rvopen::bench

#else

namespace rvopen::bench {

bool canCountAllocations()
{
    return false;
}

long allocations()
{
    return 0;
}

double bytesInUse()
{
    return 0.0;
}

} // namespace rvopen::bench

#endif

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ORVBase.h>

#include <algorithm>
#include <cstdlib>

namespace rvopen {

namespace {

/// The C library of Linux keeps freed blocks of up to 120 bytes aside and merges them with their
/// neighbours later all at once, when they have long left the processor's caches: deleting a large
/// document takes half as long again with objects of that size among its nodes.
constexpr std::size_t s_smallestBlock = 121;

void* allocate(std::size_t size)
{
    return std::malloc(std::max(size, s_smallestBlock));
}

} // namespace

void* ORVBase::operator new(std::size_t size) noexcept
{
    return allocate(size);
}

void* ORVBase::operator new[](std::size_t size) noexcept
{
    return allocate(size);
}

void* ORVBase::operator new(std::size_t size, const char*, int) noexcept
{
    return allocate(size);
}

void* ORVBase::operator new[](std::size_t size, const char*, int) noexcept
{
    return allocate(size);
}

void ORVBase::operator delete(void* memory) noexcept
{
    std::free(memory);
}

void ORVBase::operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void ORVBase::operator delete(void* memory, const char*, int) noexcept
{
    std::free(memory);
}

void ORVBase::operator delete[](void* memory, const char*, int) noexcept
{
    std::free(memory);
}

} // namespace rvopen

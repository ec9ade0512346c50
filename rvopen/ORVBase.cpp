// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ORVBase.h>

#include <rvopen/AllocationWatch.h>

#include <cstdlib>

namespace rvopen {

thread_local unsigned int AllocationWatch::s_failures = 0;

namespace {

void* allocate(std::size_t size)
{
    void* const memory = std::malloc(size);
    if (!memory)
        AllocationWatch::countFailure();
    return memory;
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

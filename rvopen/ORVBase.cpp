// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ORVBase.h>

#include <cstdlib>

namespace rvopen {

void* ORVBase::operator new(std::size_t size) noexcept
{
    return std::malloc(size);
}

void* ORVBase::operator new[](std::size_t size) noexcept
{
    return std::malloc(size);
}

void* ORVBase::operator new(std::size_t size, const char*, int) noexcept
{
    return std::malloc(size);
}

void* ORVBase::operator new[](std::size_t size, const char*, int) noexcept
{
    return std::malloc(size);
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

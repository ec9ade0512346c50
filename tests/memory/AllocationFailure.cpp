// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "AllocationFailure.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <dlfcn.h>
#include <link.h>

extern "C" {
void* __libc_malloc(std::size_t size);
void __libc_free(void* memory);
}

namespace rvopen::test::memory {

namespace {

struct Code {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
};

std::array<void*, 4096> s_live;
std::size_t s_liveCount = 0;

std::size_t s_allocations = 0;
std::size_t s_failAt = 0;
std::size_t s_failed = 0;
Failure s_failure = Failure::OneAllocation;

int takeIfItContains(dl_phdr_info* object, std::size_t, void* data)
{
    Code& code = *static_cast<Code*>(data);
    for (int i = 0; i < object->dlpi_phnum; ++i) {
        const ElfW(Phdr)& segment = object->dlpi_phdr[i];
        const std::uintptr_t begin = object->dlpi_addr + segment.p_vaddr;
        const std::uintptr_t end = begin + segment.p_memsz;
        if (segment.p_type == PT_LOAD && code.begin >= begin && code.begin < end) {
            code = {begin, end};
            return 1;
        }
    }
    return 0;
}

/// The code of the library. Found before anything is counted: looking for it takes memory.
Code libraryCode()
{
    Code code;
    // ORVBase::operator new(std::size_t)
    code.begin = reinterpret_cast<std::uintptr_t>(dlsym(RTLD_DEFAULT, "_ZN6rvopen7ORVBasenwEm"));
    if (!code.begin || !dl_iterate_phdr(takeIfItContains, &code))
        std::abort();
    return code;
}

Code s_code;

bool fails()
{
    ++s_allocations;
    const bool reached = s_failAt > 0 && s_allocations >= s_failAt;
    return reached && (s_failure == Failure::AllFromThen || s_allocations == s_failAt);
}

} // namespace

void failAt(std::size_t number, Failure failure)
{
    if (!s_code.begin)
        s_code = libraryCode();
    s_allocations = 0;
    s_failed = 0;
    s_failure = failure;
    s_failAt = number;
}

std::size_t stopFailing()
{
    s_failAt = 0;
    return s_failed;
}

std::size_t liveObjects()
{
    return s_liveCount;
}

void* allocate(std::size_t size, const void* caller)
{
    const auto address = reinterpret_cast<std::uintptr_t>(caller);
    if (address < s_code.begin || address >= s_code.end)
        return __libc_malloc(size);
    if (fails()) {
        ++s_failed;
        return nullptr;
    }
    void* const memory = __libc_malloc(size);
    if (s_liveCount == s_live.size())
        std::abort();
    s_live[s_liveCount++] = memory;
    return memory;
}

void release(void* memory)
{
    void** const end = s_live.data() + s_liveCount;
    void** const found = memory ? std::find(s_live.data(), end, memory) : end;
    if (found != end)
        *found = s_live[--s_liveCount];
    __libc_free(memory);
}

} // namespace rvopen::test::memory

extern "C" __attribute__((visibility("default"), noinline)) void* malloc(std::size_t size)
{
    return rvopen::test::memory::allocate(size, __builtin_return_address(0));
}

extern "C" __attribute__((visibility("default"), noinline)) void free(void* memory)
{
    rvopen::test::memory::release(memory);
}

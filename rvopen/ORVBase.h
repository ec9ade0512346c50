// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <cstddef>

namespace rvopen {

/// Allocation base of the library's classes.
///
/// Objects come from malloc and go back with free, whatever allocator the host replaces the global
/// one with. When memory is exhausted a new-expression gives null instead of throwing, which is
/// how the operations that create objects can promise null.
class RVOPEN_EXPORT ORVBase {
public:
    /// Does nothing.
    ORVBase() = default;
    /// Copies nothing: there is no data.
    ORVBase(const ORVBase&) = default;
    ORVBase& operator=(const ORVBase&) = default;

    /// From malloc; null when memory is exhausted.
    static void* operator new(std::size_t size) noexcept;
    static void* operator new[](std::size_t size) noexcept;
    /// Debugging form: \p file and \p line name the caller and are not recorded.
    static void* operator new(std::size_t size, const char* file, int line) noexcept;
    static void* operator new[](std::size_t size, const char* file, int line) noexcept;

    /// To free; null is allowed.
    static void operator delete(void* memory) noexcept;
    static void operator delete[](void* memory) noexcept;
    /// Of the debugging forms.
    static void operator delete(void* memory, const char* file, int line) noexcept;
    static void operator delete[](void* memory, const char* file, int line) noexcept;
};

} // namespace rvopen

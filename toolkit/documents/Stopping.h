// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>

namespace rvopen::toolkit {

/// While one lives, long work of its thread, such as a picture, ends early once the flag is true;
/// what it gives then is of no use. They nest, and the innermost counts.
class Stoppable {
public:
    /// \p flag, null for work that is never stopped, is held by the caller.
    explicit Stoppable(const std::atomic<bool>* flag);
    ~Stoppable();
    Stoppable(const Stoppable&) = delete;
    Stoppable& operator=(const Stoppable&) = delete;

private:
    const std::atomic<bool>* m_outer;
};

/// That of this thread, for others that work for it; null where nothing is stopped.
const std::atomic<bool>* stopFlag();

/// Whether the work of this thread is to end. Cheap enough for each row of a picture.
bool isStopped();

} // namespace rvopen::toolkit

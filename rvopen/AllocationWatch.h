// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen {

/// Tells whether this thread could not get memory for some object of the library in the lifetime of
/// the watch. A walk over children ends early then, as if there were no more of them, and what is
/// decided by such a walk would be decided wrongly.
class AllocationWatch {
public:
    AllocationWatch()
        : m_failuresBefore(s_failures)
    {
    }

    bool failed() const
    {
        return s_failures != m_failuresBefore;
    }

    /// \p made, a free-standing object or null; null, and \p made deleted, when memory ran out.
    template <typename Object>
    Object* complete(Object* made) const
    {
        if (!failed())
            return made;
        delete made;
        return nullptr;
    }

    static void countFailure()
    {
        ++s_failures;
    }

private:
    static thread_local unsigned int s_failures;

    unsigned int m_failuresBefore;
};

} // namespace rvopen

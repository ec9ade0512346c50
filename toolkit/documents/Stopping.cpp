// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Stopping.h"

#include <utility>

namespace rvopen::toolkit {

namespace {

thread_local const std::atomic<bool>* t_stopFlag = nullptr;

} // namespace

Stoppable::Stoppable(const std::atomic<bool>* flag)
    : m_outer(std::exchange(t_stopFlag, flag))
{
}

Stoppable::~Stoppable()
{
    t_stopFlag = m_outer;
}

const std::atomic<bool>* stopFlag()
{
    return t_stopFlag;
}

bool isStopped()
{
    return t_stopFlag && t_stopFlag->load(std::memory_order_relaxed);
}

} // namespace rvopen::toolkit

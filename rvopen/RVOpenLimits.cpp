// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenLimits.h>

#include <atomic>

namespace rvopen {

namespace {

std::atomic<qint64> s_maxInputSize = DefaultMaxInputSize;
std::atomic<qint64> s_maxDocumentMemory = DefaultMaxDocumentMemory;

} // namespace

qint64 GetMaxInputSize()
{
    return s_maxInputSize;
}

void SetMaxInputSize(qint64 size)
{
    // Qt 5 holds no string of more than some 2^30 characters.
    s_maxInputSize = qBound(qint64(0), size, qint64(1000000000));
}

qint64 GetMaxDocumentMemory()
{
    return s_maxDocumentMemory;
}

void SetMaxDocumentMemory(qint64 bytes)
{
    s_maxDocumentMemory = qMax(qint64(0), bytes);
}

} // namespace rvopen

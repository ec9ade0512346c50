// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Interruption.h"

namespace rvopen::toolkit {

namespace {

Interruption* s_current = nullptr;

} // namespace

Interruption::~Interruption() = default;

void Interruption::use(Interruption* interruption)
{
    s_current = interruption;
}

Interruption* Interruption::current()
{
    return s_current;
}

Uninterrupted::Uninterrupted()
{
    if (s_current)
        s_current->hold();
}

Uninterrupted::~Uninterrupted()
{
    if (s_current)
        s_current->release();
}

bool isInterrupted()
{
    return s_current && s_current->isWanted();
}

void removeAtInterrupt(const QByteArray& path)
{
    if (s_current)
        s_current->removeAtEnd(path);
}

} // namespace rvopen::toolkit

// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Interrupts.h"

#include "Command.h"

#include <atomic>
#include <csignal>
#include <cstdlib>

#if defined(__unix__) || defined(__APPLE__)
#include <unistd.h>
#endif

namespace rvopen::tools {

namespace {

std::atomic<int> s_depth{0};
std::atomic<bool> s_interrupted{false};

[[noreturn]] void endNow()
{
    std::_Exit(ExitFailed);
}

void onSignal(int)
{
    s_interrupted = true;
    if (s_depth == 0) {
#if defined(__unix__) || defined(__APPLE__)
        const char message[] = "\nrvopen: interrupted\n";
        const auto written = write(STDERR_FILENO, message, sizeof message - 1);
        static_cast<void>(written);
#endif
        endNow();
    }
}

} // namespace

void handleInterrupts()
{
    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
#if defined(SIGHUP)
    std::signal(SIGHUP, onSignal);
#endif
}

bool isInterrupted()
{
    return s_interrupted;
}

Uninterrupted::Uninterrupted()
{
    ++s_depth;
}

Uninterrupted::~Uninterrupted()
{
    if (--s_depth == 0 && s_interrupted)
        onSignal(0);
}

} // namespace rvopen::tools
